// What the workbench shows and undoes, and where it comes from.

#include <filesystem>
#include <fstream>
#include <random>
#include <set>
#include <string>
#include <unistd.h>

#include <tests/support/GoogleTest.h>

#include <DotReader.h>
#include <History.h>
#include <Includes.h>
#include <Reader.h>
#include <WriteDocument.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;

class WorkbenchModel : public ::testing::Test {
protected:
    void SetUp() override {
        top = fs::temp_directory_path() / ("workbench_model." + std::to_string(getpid()));
        fs::create_directories(top);
    }
    void TearDown() override { fs::remove_all(top); }

    std::string File(const std::string &name, const std::string &text) const {
        fs::create_directories((top / name).parent_path());
        std::ofstream(top / name) << text;
        return top / name;
    }
    static std::variant<Document, Failure> Read(Source source, const std::string &path) {
        const auto reader = MakeReader(source, path);
        while (reader->Step()) {
        }
        return reader->Take();
    }
    static Document Got(std::variant<Document, Failure> read) {
        return std::move(std::get<Document>(read));
    }
    static int NodeNamed(const Graph &graph, const std::string &name) {
        for (const int node : graph_browser::NodesOf(graph)) {
            if (graph.NodeAt(node).name == name) {
                return node;
            }
        }
        return -1;
    }
    // Of a graph read anew: "a>b" for each arc, by the labels.
    static std::multiset<std::string> Arcs(const Graph &graph) {
        std::multiset<std::string> arcs;
        for (const int edge : graph_browser::EdgesOf(graph)) {
            arcs.insert(graph.NodeAt(graph.EdgeAt(edge).from).label + ">" +
                        graph.NodeAt(graph.EdgeAt(edge).to).label);
        }
        return arcs;
    }
    static Graph Written(const Document &document) {
        const auto text = WriteDocument(document);
        return std::move(std::get<Graph>(graph_browser::ReadDotText(std::get<std::string>(text))));
    }

    fs::path top;
};

bool operator==(const Node &a, const Node &b) {
    return a.label == b.label && a.place == b.place && a.removed == b.removed;
}

bool operator==(const Edge &a, const Edge &b) {
    return a.from == b.from && a.to == b.to && a.removed == b.removed;
}

// Nodes and arcs that were never seen in a state count as removed there.
bool SameState(const Graph &graph, const Graph &state) {
    for (std::size_t i = 0; i < graph.nodes.size(); i++) {
        if (i < state.nodes.size() ? !(graph.nodes[i] == state.nodes[i])
                                   : !graph.nodes[i].removed) {
            return false;
        }
    }
    for (std::size_t i = 0; i < graph.edges.size(); i++) {
        if (i < state.edges.size() ? !(graph.edges[i] == state.edges[i])
                                   : !graph.edges[i].removed) {
            return false;
        }
    }
    return true;
}

Graph Copy(const Graph &graph) {
    Graph copy;
    copy.nodes = graph.nodes;
    copy.edges = graph.edges;
    return copy;
}

void EditAtRandom(History &history, const Document &document, std::mt19937 &random) {
    const auto nodes = graph_browser::NodesOf(document.graph);
    const auto edges = graph_browser::EdgesOf(document.graph);
    const auto node = [&] { return nodes[random() % nodes.size()]; };
    switch (nodes.size() < 2 ? 0 : random() % 6) {
    case 0: history.AddNode({.name = "new", .label = "new"}); break;
    case 1: history.AddEdge(node(), node()); break;
    case 2: history.RemoveNode(node()); break;
    case 3: history.ChangeNode(node()).label = std::to_string(random()); break;
    case 4: history.ChangeNode(node()).place = Place{static_cast<int>(random() % 999), 1}; break;
    default:
        if (!edges.empty()) {
            history.ChangeEdge(edges[random() % edges.size()]).to = node();
        }
    }
}

TEST_F(WorkbenchModel, EveryStateComesBackByUndoAndRedo) {
    std::mt19937 random(7);
    Document document;
    History history(document);
    std::vector<Graph> states;
    states.push_back(Copy(document.graph));
    std::size_t at = 0;
    for (int step = 0; step < 2000; step++) {
        const auto choice = random() % 4;
        if (choice == 0 && at > 0) {
            history.Undo();
            at--;
        } else if (choice == 1 && at + 1 < states.size()) {
            history.Redo();
            at++;
        } else {
            history.Begin("edit");
            EditAtRandom(history, document, random);
            if (const Touched touched = history.Commit();
                touched.nodes.empty() && touched.edges.empty()) {
                continue;
            }
            states.resize(++at);
            states.push_back(Copy(document.graph));
        }
        ASSERT_TRUE(SameState(document.graph, states[at])) << "step " << step;
        ASSERT_EQ(history.UndoName().empty(), at == 0);
        ASSERT_EQ(history.RedoName().empty(), at + 1 == states.size());
    }
}

TEST_F(WorkbenchModel, AnUndoneEditLeavesPlacesOfALaterLayoutAlone) {
    Document document;
    document.AddNode({.name = "a", .label = "a", .place = Place{1, 1}}, {});
    History history(document);
    history.Begin("Rename");
    history.ChangeNode(0).label = "b";
    history.Commit();
    EXPECT_TRUE(history.IsChanged());
    document.graph.NodeAt(0).place = Place{5, 5};
    history.Undo();
    EXPECT_EQ(document.graph.NodeAt(0).label, "a");
    EXPECT_EQ(document.graph.NodeAt(0).place, (Place{5, 5}));
    EXPECT_FALSE(history.IsChanged());
    // What was saved can no longer come back.
    history.Redo();
    history.MarkSaved();
    history.Undo();
    history.Begin("Rename");
    history.ChangeNode(0).label = "c";
    history.Commit();
    EXPECT_TRUE(history.IsChanged());
}

TEST_F(WorkbenchModel, ReadsADirectoryButNotWhatIsHidden) {
    File("tree/b/two", "12345");
    File("tree/b/.hidden", "");
    File("tree/a", "");
    fs::create_symlink("nowhere", top / "tree/link");
    const Document document = Got(Read(Source::Directory, top / "tree"));
    EXPECT_EQ(Arcs(document.graph),
              (std::multiset<std::string>{"tree>a", "tree>b", "b>two", "tree>link"}));
    const int two = NodeNamed(document.graph, top / "tree/b/two");
    ASSERT_GE(two, 0);
    EXPECT_EQ(document.ItemAt(two).size, 5u);
    EXPECT_EQ(document.ItemAt(two).kind, Kind::File);
    EXPECT_EQ(GuessSource(top), Source::Directory);
    EXPECT_TRUE(std::holds_alternative<Failure>(Read(Source::Directory, top / "none")));
    EXPECT_TRUE(std::holds_alternative<Failure>(Read(Source::DotFile, top / "none")));
    EXPECT_TRUE(std::holds_alternative<Failure>(Read(Source::Includes, top / "tree")));
}

TEST_F(WorkbenchModel, FindsIncludesOutsideOfComments) {
    const std::string text = "#include \"a.h\" // a\n  #  include <b/c.h>\n/* #include <no.h>\n"
                             "#include <no.h> */ #include <d.h>\n#include MACRO\n#include \"a.h\"\n"
                             "//#include <no.h>\n#include <broken\n#includes <no.h>\n#include <>";
    EXPECT_EQ(IncludesIn(text),
              (std::vector<Include>{{"a.h", true}, {"b/c.h", false}, {"d.h", false}}));
}

TEST_F(WorkbenchModel, ReadsTheIncludeGraphOfAProject) {
    File("p/main.cpp",
         "#include \"x.h\"\n#include <lib/y.h>\n#include <vector>\n#include <deep.h>");
    File("p/x.h", "#include \"lib/y.h\"\n#include \"main.cpp\"");
    File("p/lib/y.h", "#include \"../x.h\"\n#include <x.h>\n#include <same.h>");
    File("p/lib/inner/deep.h", "");
    File("p/lib/same.h", "");
    File("p/other/same.h", "#include <p/lib/same.h>\n#include <p/none.h>");
    File("p/build/CMakeCache.txt", "");
    File("p/build/made.h", "");
    File("p/notes.txt", "#include \"x.h\"");
    const Document document = Got(Read(Source::Includes, top / "p"));
    EXPECT_EQ(Arcs(document.graph),
              (std::multiset<std::string>{
                  "main.cpp>x.h", "main.cpp>lib/y.h", "main.cpp>lib/inner/deep.h", "x.h>lib/y.h",
                  "x.h>main.cpp", "lib/y.h>x.h", "other/same.h>lib/same.h"}));
    EXPECT_EQ(document.ItemAt(NodeNamed(document.graph, "main.cpp")).note, "also vector");
    EXPECT_EQ(document.ItemAt(NodeNamed(document.graph, "lib/y.h")).note, "also same.h");
    EXPECT_EQ(document.ItemAt(NodeNamed(document.graph, "other/same.h")).note, "also p/none.h");
    EXPECT_EQ(NodeNamed(document.graph, "build/made.h"), -1);
}

TEST_F(WorkbenchModel, SavingKeepsWhatTheFileSaysBesides) {
    const std::string file = File("in.dot", "digraph { size=7; a [shape=star]; a -> b [weight=3];"
                                            " b -> c; c -> a } graph second { z }");
    Document document = Got(Read(Source::DotFile, file));
    History history(document);
    history.Begin("several");
    history.RemoveNode(2);
    history.ChangeNode(1).label = "B\n\"\\";
    const int added = history.AddNode({.name = "d", .label = "shown"});
    history.AddEdge(1, added);
    history.ChangeEdge(0).to = added;
    history.Commit();
    const Graph written = Written(document);
    EXPECT_EQ(written.graphs_in_file, 2);
    EXPECT_EQ(Arcs(written), (std::multiset<std::string>{"a>shown", "B\n\"\\>shown"}));
    EXPECT_GE(NodeNamed(written, "d"), 0);
    const std::string text = std::get<std::string>(WriteDocument(document));
    for (const char *kept : {"size=7", "shape=star", "weight=3"}) {
        EXPECT_NE(text.find(kept), std::string::npos) << kept;
    }
    history.Undo();
    EXPECT_EQ(Arcs(Written(document)), (std::multiset<std::string>{"a>b", "b>c", "c>a"}));
}

TEST_F(WorkbenchModel, WhatCameFromADirectoryIsWrittenWithNamesAndPlaces) {
    File("tree/a \"b\"", "");
    fs::create_directories(top / "lone");
    Document document = Got(Read(Source::Directory, top / "tree"));
    document.graph.NodeAt(1).place = Place{3, 4};
    document.graph.placed = true;
    const Graph written = Written(document);
    const int node = NodeNamed(written, top / "tree/a \"b\"");
    ASSERT_GE(node, 0);
    EXPECT_EQ(written.NodeAt(node).label, "a \"b\"");
    EXPECT_EQ(written.NodeAt(node).place, (Place{3, 4}));
    const Graph lone = Written(Got(Read(Source::Directory, top / "lone")));
    EXPECT_EQ(lone.nodes.at(0).label, "lone");
    EXPECT_EQ(lone.nodes.at(0).name, (top / "lone").string());
}

TEST_F(WorkbenchModel, AStrictGraphTakesNoSecondArc) {
    Document document = Got(Read(Source::DotFile, File("s.dot", "strict digraph { a -> b }")));
    History history(document);
    history.Begin("Add Arc");
    history.AddEdge(0, 1);
    history.Commit();
    EXPECT_TRUE(std::holds_alternative<Failure>(WriteDocument(document)));
    history.Undo();
    EXPECT_TRUE(std::holds_alternative<std::string>(WriteDocument(document)));
}

} // namespace
} // namespace workbench
