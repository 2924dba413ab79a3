#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include <graphviz/cgraph.h>
#include <gtest/gtest.h>

#include <DotReader.h>
#include <DotWriter.h>
#include <GraphEdit.h>

namespace graph_browser {
namespace {

using Lines = std::vector<std::string>;

Graph Read(const std::string &text) {
    auto result = ReadDotText(text);
    if (auto *error = std::get_if<ReadError>(&result)) {
        ADD_FAILURE() << Describe("text", *error) << '\n' << text;
        return {};
    }
    return std::move(std::get<Graph>(result));
}

// ---- What libcgraph says, asked without the browser --------------------------

std::string Attributes(Agraph_t *root, int kind, void *object) {
    Lines found;
    for (Agsym_t *symbol = agnxtattr(root, kind, nullptr); symbol;
         symbol = agnxtattr(root, kind, symbol)) {
        char *value = agxget(object, symbol);
        // What every node has anyway may be said or not.
        if (*value && !(kind == AGNODE &&
                        std::string{"label=\\N"} == symbol->name + std::string{"="} + value))
            found.push_back(symbol->name + std::string{"="} + value +
                            (aghtmlstr(value) ? " html" : ""));
    }
    std::sort(found.begin(), found.end());
    std::string text;
    for (const std::string &attribute : found)
        text += " [" + attribute + "]";
    return text;
}

void Add(Lines &lines, Agraph_t *root, Agraph_t *graph, const std::string &place) {
    lines.push_back(place + Attributes(root, AGRAPH, graph));
    for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node)) {
        lines.push_back(place + " " + agnameof(node) + Attributes(root, AGNODE, node));
        for (Agedge_t *edge = agfstout(graph, node); edge; edge = agnxtout(graph, edge)) {
            const char *key = agnameof(edge);
            lines.push_back(place + " " + agnameof(node) + " -> " + agnameof(aghead(edge)) + " " +
                            (key ? key : "") + Attributes(root, AGEDGE, edge));
        }
    }
}

Lines Facts(const std::string &text) {
    agattr(nullptr, AGNODE, const_cast<char *>("label"), const_cast<char *>("\\N"));
    Agraph_t *root = agmemread(text.c_str());
    EXPECT_NE(root, nullptr);
    Lines lines{std::string{agisdirected(root) ? "directed " : "undirected "} +
                (agisstrict(root) ? "strict" : "")};
    std::vector<Agraph_t *> graphs{root};
    for (std::size_t at = 0; at < graphs.size(); ++at) {
        std::string place = agnameof(graphs[at]);
        Add(lines, root, graphs[at], place[0] == '%' ? "anonymous" : place);
        for (Agraph_t *inner = agfstsubg(graphs[at]); inner; inner = agnxtsubg(inner))
            graphs.push_back(inner);
    }
    agclose(root);
    std::sort(lines.begin(), lines.end());
    return lines;
}

// ---- What the browser shows --------------------------------------------------

std::string Shown(const Node &node) {
    return node.name + "|" + node.label + "|" + node.fill + "|" + node.text_color + "|" +
           node.cluster + (node.left_aligned ? "|left" : "") + (node.visible ? "" : "|hidden") +
           (node.place ? "|" + std::to_string(node.place->x) + "," + std::to_string(node.place->y)
                       : "");
}

Lines Shown(const Graph &graph) {
    Lines lines{graph.name + (graph.directed ? " directed" : "")};
    for (const int node : NodesOf(graph))
        lines.push_back(Shown(graph.NodeAt(node)));
    for (const int index : EdgesOf(graph)) {
        const Edge &edge = graph.EdgeAt(index);
        lines.push_back(graph.NodeAt(edge.from).name + " -> " + graph.NodeAt(edge.to).name + "|" +
                        edge.label + "|" + edge.color + "|" +
                        std::to_string(static_cast<int>(edge.direction)) +
                        std::to_string(static_cast<int>(edge.line)) + std::to_string(edge.width) +
                        (edge.visible ? "" : "|hidden") + (edge.turned ? "|turned" : ""));
    }
    std::sort(lines.begin(), lines.end());
    return lines;
}

void ExpectSavedAsShown(const Graph &graph) {
    const std::string text = WriteDot(graph);
    EXPECT_EQ(Shown(Read(text)), Shown(graph)) << text;
}

// ---- Random changes ----------------------------------------------------------

class Changes {
public:
    explicit Changes(Graph &of) : graph(of) {}
    void Make() {
        const auto nodes = NodesOf(graph);
        const auto edges = EdgesOf(graph);
        const int kind = Below(8);
        if (kind < 2 || nodes.empty())
            LabelNode(graph, AddNode(graph, Place{Below(900), Below(900)}), AnyText());
        else if (kind < 4 || edges.empty())
            AddEdge(graph, Any(nodes), Any(nodes));
        else if (kind == 4)
            MoveEdge(graph, Any(edges), Any(nodes), Any(nodes));
        else if (kind == 5)
            LabelEdge(graph, Any(edges), AnyText());
        else if (kind == 6)
            RemoveEdge(graph, Any(edges));
        else if (Below(2) == 0)
            RemoveNode(graph, Any(nodes));
        else
            LabelNode(graph, Any(nodes), AnyText());
    }

private:
    int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
    int Any(const std::vector<int> &indices) {
        return indices[static_cast<std::size_t>(Below(static_cast<int>(indices.size())))];
    }
    // Pieces that a label, a record, a name or the quoting could trip over.
    std::string AnyText() {
        static constexpr const char *pieces[] = {"a",  "\\",  "\n", "&amp;", "&",   ";",
                                                 "\"", "{",   "}",  "|",     "<b>", ">",
                                                 "%",  "\\N", " ",  "é",     "☃",   "node7"};
        std::string text;
        for (int count = Below(5); count > 0; --count)
            text += pieces[Below(std::size(pieces))];
        return text;
    }

    Graph &graph;
    std::mt19937 random{7};
};

// ---- Tests -------------------------------------------------------------------

TEST(DotWriter, EveryDataFileSaysTheSameAfterSaving) {
    int files = 0;
    for (const auto &entry : std::filesystem::directory_iterator{EXAMPLE_DATA}) {
        if (entry.path().extension() != ".dot")
            continue;
        SCOPED_TRACE(entry.path().string());
        std::ifstream stream{entry.path()};
        const std::string text{std::istreambuf_iterator<char>{stream}, {}};
        Graph graph = Read(text);
        EXPECT_EQ(Facts(WriteDot(graph)), Facts(text));
        ExpectSavedAsShown(graph);
        Changes changes{graph};
        for (int step = 0; step < 400; ++step)
            changes.Make();
        ExpectSavedAsShown(graph);
        ++files;
    }
    EXPECT_GE(files, 4);
}

// What libcgraph's own writer would change, besides others.
TEST(DotWriter, WhateverStandsInAFileIsReadAgain) {
    for (const char *text :
         {"digraph { {{ a; subgraph s { b -> c } } } }", // its edge, once
          "digraph { a; { node [label=x, color=red]; a; b } }",
          "digraph { node [label=\"\"]; a { rank=same; a; { rank=max; b } { c } } }",
          "graph { a -- b [key=k]; a -- c [key=k]; subgraph s { a -- b [key=k] } }",
          "strict graph { a -- b; subgraph s { a -- b [\xE4=1] } subgraph t { a -- b } }",
          "digraph \"g h\" { edge [headport=n]; a:x:w -> b [headport=\"\", \"\"=e, "
          "label=<<i>i</i>>] }",
          "digraph { \xE4 [\xE4\xFF=\xC3]; \"node\" [\"\xE4 \\\"\"=\"\\\\\"]; -1.5 -> \"1.\" -> "
          "\"1.1.\" }",
          "digraph { <a\\>; <\\\">; <\n>; \"a\n\" -> \"\" }"}) {
        const Graph graph = Read(text);
        const std::string written = WriteDot(graph);
        EXPECT_EQ(Facts(written), Facts(text)) << written;
        const Graph again = Read(written);
        EXPECT_EQ(WriteDot(again), written);
        for (std::size_t i = 0; i < graph.nodes.size(); ++i)
            EXPECT_EQ(again.nodes.at(i).name, graph.nodes[i].name);
    }
}

TEST(DotWriter, NamesThatBeginWithAPercentSignAreKept) {
    const std::string text = "strict digraph \"%g\" {\n"
                             "\tnode [label=\"\\N\"];\n"
                             "\t\"%a b\";\n"
                             "\t\"%\";\n"
                             "\t\"%1\";\n"
                             "\tsubgraph \"%s\" {\n"
                             "\t\t\"%1\";\n"
                             "\t}\n"
                             "\t\"%a b\" -> \"%\" [key=\"%k\"];\n"
                             "}\n";
    const Graph graph = Read(text);
    EXPECT_EQ(graph.nodes.at(0).label, "%a b");
    EXPECT_EQ(graph.nodes.at(2).name, "%1");
    EXPECT_EQ(WriteDot(graph), text);
}

TEST(DotWriter, TextIsShownAsItWasTyped) {
    for (const char *charset : {"utf-8", "latin1"}) {
        Graph graph =
            Read(std::string{"digraph { charset=\""} + charset +
                 "\"; p -> r [xlabel=x]; r [shape=record, label=\"a|b\"]; h [label=<<b>h</b>>] }");
        for (const char *text :
             {"a\\b", "two\nlines", "AT&amp;T", "\\N", "x|{y} <z>", "é ☃", "\"", "%1"}) {
            for (const int node : {0, 1, 2}) {
                LabelNode(graph, node, text);
                EXPECT_EQ(graph.NodeAt(node).label, text);
            }
            LabelEdge(graph, 0, text);
            EXPECT_EQ(graph.EdgeAt(0).label, text);
            const int added = AddNode(graph, std::nullopt);
            LabelNode(graph, added, text);
            EXPECT_EQ(graph.NodeAt(added).label, text);
        }
        LabelEdge(graph, 0, "");
        EXPECT_EQ(graph.EdgeAt(0).label, "");
        LabelNode(graph, 0, "");
        EXPECT_EQ(graph.NodeAt(0).label, "p");
        ExpectSavedAsShown(graph);
    }
}

TEST(DotWriter, ANewNodeTakesAFreeNameAndAnyOtherOnlyALabel) {
    Graph graph = Read("digraph { a; node3 }");
    const int node = AddNode(graph, std::nullopt);
    EXPECT_EQ(graph.NodeAt(node).name, "node4");
    LabelNode(graph, node, "parser");
    EXPECT_EQ(graph.NodeAt(node).name, "parser");
    LabelNode(graph, AddNode(graph, std::nullopt), "a");
    EXPECT_EQ(graph.nodes.back().label, "a");
    EXPECT_NE(graph.nodes.back().name, "a");
    LabelNode(graph, 0, "first");
    EXPECT_EQ(graph.NodeAt(0).name, "a");
    AddEdge(graph, node, 0);
    LabelNode(graph, node, "lexer");
    EXPECT_EQ(graph.NodeAt(node).name, "parser") << "an edge leads to it by this name";
    ExpectSavedAsShown(graph);
}

TEST(DotWriter, AMovedEdgeKeepsWhatTheFileSaysOfIt) {
    Graph graph = Read("digraph { subgraph s { a -> b [key=k, weight=7, tailport=n, headport=s,"
                       " color=red, dir=back] } c; b -> c [key=k] }");
    ASSERT_EQ(graph.EdgeAt(0).from, 1) << "turned round";
    EXPECT_TRUE(MoveEdge(graph, 0, 1, 2));
    EXPECT_EQ(Facts(WriteDot(graph)),
              Facts("digraph { subgraph s { a; b } c; c -> b [key=k, weight=7, headport=s,"
                    " color=red, dir=back]; b -> c [key=k] }"));
    Graph inner = Read("digraph { subgraph s { a -> b; c } }");
    EXPECT_TRUE(MoveEdge(inner, 0, 0, 2));
    EXPECT_EQ(Facts(WriteDot(inner)), Facts("digraph { subgraph s { a; b; a -> c } }"));
    EXPECT_TRUE(MoveEdge(graph, 1, 2, 1));
    EXPECT_EQ(graph.edges.size(), 2U);
    ExpectSavedAsShown(graph);
}

TEST(DotWriter, AStrictGraphRefusesASecondEdge) {
    Graph graph = Read("strict graph { a -- b; b -- c; edge [style=invis]; node [style=invis] }");
    EXPECT_FALSE(AddEdge(graph, 1, 0));
    EXPECT_FALSE(MoveEdge(graph, 1, 1, 0));
    EXPECT_FALSE(graph.changed);
    EXPECT_TRUE(AddEdge(graph, 0, 2));
    AddNode(graph, std::nullopt);
    EXPECT_TRUE(graph.nodes.back().visible && graph.edges.back().visible) << "what is made is seen";
    ExpectSavedAsShown(graph);
}

TEST(DotWriter, AllGraphsOfAFileAndThePlacesAreWritten) {
    Graph graph =
        Read("digraph one { a } graph two { b [label=x] } digraph { edge [dir=back]; c }");
    RemoveNode(graph, 0);
    EXPECT_EQ(Read(WriteDot(graph)).graphs_in_file, 3);
    EXPECT_NE(WriteDot(graph).find("label=x"), std::string::npos);

    Graph back = Read("digraph { edge [dir=back]; a; b [browserpos=\"7,8\"]; c [browserpos=far] }");
    EXPECT_EQ(back.NodeAt(1).place, (Place{7, 8}));
    EXPECT_TRUE(back.placed);
    AddEdge(back, 0, 1);
    ExpectSavedAsShown(back);
    SetPlaced(back, false);
    EXPECT_FALSE(Read(WriteDot(back)).placed);
}

} // namespace
} // namespace graph_browser
