// What the workbench shows: nodes of several kinds and the arcs between them, from a directory, a DOT file
// or the sources of a project.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <vector>

#include <DotGraph.h>

namespace workbench {

using graph_browser::Edge;
using graph_browser::Graph;
using graph_browser::Node;
using graph_browser::Place;

enum class Source { Directory, DotFile, Includes };

// A Node is one of a DOT file: where it is shown, it is a Root, Inner, Leaf or Lone one by its arcs.
enum class Kind {
    Node,
    Root,
    Inner,
    Leaf,
    Lone,
    Directory,
    Closed,
    File,
    Program,
    Link,
    Other,
    Code,
    Header
};

std::string KindName(Kind kind);

// What is known of a node beyond its place in the graph.
struct Item {
    Kind kind = Kind::Node;
    std::uintmax_t size = 0;
    std::time_t changed = 0; // 0 where there is no file
    std::string path;
    std::string note;
};

// What is removed stays in its list, so that the indices of the others hold. `graph` has no source of its
// own: what is saved is `dot`, with what differs from it.
struct Document {
    Source source = Source::DotFile;
    std::string path;
    Graph graph;
    std::vector<Item> items; // one for each node
    std::string dot;         // the text of the graph as it was read
    int nodes_in_dot = 0;    // the first ones of the graph
    int edges_in_dot = 0;
    bool cut = false; // there was more than can be shown

    Item &ItemAt(int node) { return items[static_cast<std::size_t>(node)]; }
    const Item &ItemAt(int node) const { return items[static_cast<std::size_t>(node)]; }

    int AddNode(Node node, Item item);
    int AddEdge(int from, int to);
};

struct Degree {
    int in = 0;
    int out = 0;
};

// For each node, of the arcs that were not removed.
std::vector<Degree> DegreesOf(const Graph &graph);

Kind ShownKind(Kind kind, Degree degree);

} // namespace workbench
