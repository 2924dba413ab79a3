#include <random>

#include <gtest/gtest.h>

#include <DotReader.h>

namespace graph_browser {
namespace {

Graph Read(const std::string &text) {
    auto result = ReadDotText(text);
    if (auto *error = std::get_if<ReadError>(&result)) {
        ADD_FAILURE() << Describe("text", *error);
        return {};
    }
    return std::move(std::get<Graph>(result));
}

std::string ErrorIn(const std::string &text) {
    const auto result = ReadDotText(text);
    const auto *error = std::get_if<ReadError>(&result);
    return error ? Describe("f", *error) : "no error";
}

using Texts = std::vector<std::string>;

// Each edge by its nodes' names, with an arrow head at each end that has one.
Texts EdgesIn(const std::string &text) {
    const Graph graph = Read(text);
    const auto name = [&](int node) { return graph.nodes.at(static_cast<size_t>(node)).name; };
    Texts edges;
    for (const Edge &edge : graph.edges) {
        const bool one_way = edge.direction == Direction::Forward;
        const char *line = one_way ? " -> " : edge.direction == Direction::Both ? " <> " : " -- ";
        edges.push_back(name(edge.from) + line + name(edge.to));
    }
    return edges;
}

TEST(DotReader, EdgesStandByTheirTailsAndPointForward) {
    EXPECT_EQ(EdgesIn("digraph { b -> a; a -> \"c d\" -> b; b -> a; e }"),
              (Texts{"b -> a", "b -> a", "a -> c d", "c d -> b"}));
    EXPECT_EQ(EdgesIn("strict digraph { a -> b; a -> b }"), (Texts{"a -> b"}));
    EXPECT_EQ(EdgesIn("graph { a -- b; b -- c [dir=forward]; c -- c }"),
              (Texts{"a -- b", "b -> c", "c -- c"}));
    EXPECT_EQ(EdgesIn("digraph { a -> b [dir=back]; a -> b [dir=both]; a -> b [dir=none] }"),
              (Texts{"b -> a", "a <> b", "a -- b"}));
}

TEST(DotReader, AGraphKnowsItsNameItsKindAndTheEdgesAroundANode) {
    const Graph graph = Read("digraph g { b -> a; a -> c -> b; b -> a; e }");
    EXPECT_EQ(graph.name, "g");
    EXPECT_TRUE(graph.directed);
    EXPECT_FALSE(Read("graph { a -- b }").directed);
    EXPECT_EQ(EdgesAround(graph, 0), (std::vector<int>{0, 1, 3}));
    EXPECT_TRUE(EdgesAround(graph, 3).empty());
}

TEST(DotReader, EdgeAttributesBecomeLineColourWidthAndLabel) {
    const auto edges = Read("digraph { edge [style=dotted]; a -> b [label=\"\\T to \\H\"];"
                            " a -> b [style=\"bold,dashed\", color=\"red:blue\"];"
                            " a -> b [penwidth=3.6, style=solid, color=\"0.5 1 1\"];"
                            " a -> b [style=invis, penwidth=\"inf\"]; a -> b [penwidth=\"1e9\"] }")
                           .edges;
    ASSERT_EQ(edges.size(), 5U);
    EXPECT_EQ(edges[0].label, "a to b");
    EXPECT_EQ(edges[0].line, LineKind::Dotted);
    EXPECT_EQ(edges[1].line, LineKind::Dashed);
    EXPECT_EQ(edges[1].color, "red");
    EXPECT_EQ(edges[2].color, "#00ffff");
    EXPECT_FALSE(edges[3].visible);
    for (size_t i = 0; const int width : {0, 2, 4})
        EXPECT_EQ(edges[i++].width, width);
    EXPECT_LE(edges[4].width, 100);
}

TEST(DotReader, NodeAttributesBecomeColoursAndLabels) {
    const auto nodes =
        Read("digraph { a [color=red]; b [style=filled]; c [fillcolor=\"#80ff0040\"];"
             " d [style=invis, fontcolor=\"/x11/navy\"]; e [label=\"\"];"
             " f [label=\"one\\ltwo\\l\"]; g [label=<<b>x</b>>];"
             " h [shape=record, label=\"{<p>a|b}|c\"]; i [color=transparent] }")
            .nodes;
    Texts labels;
    Texts fills;
    for (const Node &node : nodes) {
        labels.push_back(node.label);
        fills.push_back(node.fill);
    }
    EXPECT_EQ(labels, (Texts{"a", "b", "c", "d", "", "one\ntwo", "x", "a\nb | c", "i"}));
    EXPECT_EQ(fills, (Texts{"red", "lightgrey", "#80ff00", "", "", "", "", "", ""}));
    EXPECT_FALSE(nodes.at(3).visible);
    EXPECT_EQ(nodes[3].text_color, "navy");
    EXPECT_TRUE(nodes[5].left_aligned);
}

TEST(DotReader, NodesOfSubgraphsBelongToTheGraphAndToTheInnermostCluster) {
    const Graph graph =
        Read("digraph { subgraph cluster_o { label=\"Outer\"; a; subgraph cluster_i { b } }"
             " subgraph plain { c -> {d; e} } }");
    ASSERT_EQ(graph.nodes.size(), 5U);
    EXPECT_EQ(graph.nodes[0].cluster, "Outer");
    EXPECT_NE(graph.nodes[1].cluster, "");
    EXPECT_EQ(graph.nodes[2].cluster, "");
    EXPECT_EQ(graph.edges.size(), 2U);
}

TEST(DotReader, RankdirIsTheOrientation) {
    EXPECT_EQ(Read("digraph { rankdir=LR; a }").orientation, Orientation::Horizontal);
    EXPECT_EQ(Read("digraph { graph [rankdir=BT]; a }").orientation, Orientation::Vertical);
    EXPECT_EQ(Read("digraph { a }").orientation, std::nullopt);
}

TEST(DotReader, BytesBecomeUtf8) {
    EXPECT_EQ(Read("digraph { \"a\xC3\xA4\" }").nodes[0].label, "a\u00e4");
    EXPECT_EQ(Read("digraph { \"a\xE4 b\" }").nodes[0].label, "a\u00e4 b");
    EXPECT_EQ(Read("digraph { charset=latin1; \"\xC3\xA4\" }").nodes[0].label, "\u00c3\u00a4");
}

TEST(DotReader, FaultsNameTheirLine) {
    EXPECT_EQ(ErrorIn("digraph {\n a -> b;\n c ->\n}\n"), "f:4: syntax error near '}'");
    EXPECT_EQ(ErrorIn("hello\n"), "f:1: syntax error near 'hello'");
    EXPECT_EQ(ErrorIn("graph {\n a -> b }\n"), "f:2: syntax error near '->'");
    EXPECT_EQ(ErrorIn("digraph { a }\ndigraph { b -> \n"),
              "f:2: syntax error at the end of the file");
    EXPECT_EQ(ErrorIn("digraph {\n}\n\"a\n\n"), "f:3: a string is not closed");
    EXPECT_EQ(ErrorIn("digraph {\n/* a\n*}\n"), "f:2: a comment is not closed");
    EXPECT_EQ(ErrorIn("digraph { a #\"\n // \"\n <b/*> -> \"\\\"@/*\" }"), "no error");
    EXPECT_EQ(ErrorIn(""), "f:1: the file is empty");
    EXPECT_EQ(ErrorIn("// nothing\n\n"), "f:2: no graph in the file");
    EXPECT_EQ(ErrorIn(std::string("digraph {\n\0}", 12)),
              "f:2: not a DOT file: it holds a zero byte");
}

TEST(DotReader, NeitherAFaultNorFurtherGraphsReachIntoTheNextFile) {
    EXPECT_EQ(Read("digraph { a } graph { b } digraph { c }").graphs_in_file, 3);
    EXPECT_EQ(EdgesIn("digraph { x -> y }"), Texts{"x -> y"});
    for (const char *broken :
         {"digraph { a -> \"open\n", "digraph { /* open", "digraph { a [label=<<b>", "digraph {{{",
          "digraph { a }\n\"", "digraph { a } \"b\\\"", "digraph { a } /* b *", "digraph { a } <<>",
          "digraph { a } @ digraph"}) {
        EXPECT_NE(ErrorIn(broken), "no error") << broken;
        EXPECT_EQ(EdgesIn("digraph { x -> y }"), Texts{"x -> y"}) << broken;
    }
}

TEST(DotReader, DeepNestingIsReadOrRefused) {
    const auto nested = [](int depth) {
        std::string text = "digraph ";
        for (int i = 0; i < depth; ++i)
            text += "{";
        text += "a";
        return text.append(static_cast<std::size_t>(depth), '}');
    };
    EXPECT_EQ(Read(nested(1000)).nodes.size(), 1U);
    EXPECT_NE(ErrorIn(nested(200000)), "no error");
}

// Damaged files are refused or read, and whatever was read is whole.
TEST(DotReader, DamagedTextDoesNoHarm) {
    const std::string text =
        "strict digraph \"g\" { rankdir=LR; node [shape=record, label=\"{<p>\\N|x}\"];"
        " subgraph cluster_1 { label=<a<br/>b>; a:p -> {b c} [color=\"0.1 1 1\"]; }"
        " /* c */ a -> b [label=\"\\E \\G\\l\", penwidth=2.5, dir=back]; # d\n }";
    constexpr std::string_view bytes = "{}[]<>\"\\;=->/*#|&\n\xC3 a9";
    std::mt19937 random{20};
    int read = 0;
    for (int round = 0; round < 4000; ++round) {
        std::string damaged = text;
        for (int hits = 1 + static_cast<int>(random() % 3); hits > 0; --hits) {
            const std::size_t at = random() % damaged.size();
            const char byte = bytes[random() % bytes.size()];
            switch (random() % 3) {
            case 0: damaged[at] = byte; break;
            case 1: damaged.insert(at, 1 + random() % 4, byte); break;
            default: damaged.erase(at, 1 + random() % 8); break;
            }
        }
        const auto result = ReadDotText(damaged);
        const auto *graph = std::get_if<Graph>(&result);
        if (!graph) {
            ASSERT_GT(std::get<ReadError>(result).line, 0) << damaged;
            continue;
        }
        ++read;
        const int nodes = static_cast<int>(graph->nodes.size());
        for (const Edge &edge : graph->edges)
            for (int end : {edge.from, edge.to})
                ASSERT_TRUE(end >= 0 && end < nodes) << damaged;
    }
    EXPECT_GT(read, 100);
    EXPECT_LT(read, 3900);
}

} // namespace
} // namespace graph_browser
