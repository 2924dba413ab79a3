#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

// What a DOT file says, reduced to what the browser can show. Text is UTF-8; the lines of a label
// are divided by '\n'.
namespace graph_browser {

enum class Orientation { Vertical, Horizontal };
enum class Direction { Both, Forward, Neither };
enum class LineKind { Solid, Dashed, Dotted };

struct Place {
    int x = 0;
    int y = 0;
    bool operator==(const Place &) const = default;
};

// Whatever is removed stays in its list, so that the indices of the others hold.
struct Node {
    std::string name;
    std::string label;
    std::string fill;       // a colour as Xlib writes it; empty for the browser's own
    std::string text_color; // likewise
    std::string shape;      // empty for an ellipse
    std::string cluster;    // label of the innermost cluster around it; empty for none
    bool left_aligned = false;
    bool visible = true;
    bool removed = false;
    bool added = false;         // by the user, not from a file
    std::optional<Place> place; // where the user put it; none for where the layout puts it
};

// `from` and `to` are indices into Graph::nodes. An edge that points backwards has been turned
// round, so that an arrow head always stands at `to`.
struct Edge {
    int from = 0;
    int to = 0;
    std::string label;
    std::string color;
    Direction direction = Direction::Forward;
    LineKind line = LineKind::Solid;
    int width = 0; // pixels; 0 is the server's thinnest
    bool visible = true;
    bool turned = false; // it points backwards in the file
    bool removed = false;
};

// What libcgraph keeps of the file: DotSource.h.
struct DotSource;
struct DotSourceDeleter {
    void operator()(DotSource *source) const;
};

// Change it by the functions of GraphEdit.h only, which keep `source` in step.
struct Graph {
    std::string name;
    bool directed = true;
    std::optional<Orientation> orientation; // from rankdir; none when the file does not say
    std::vector<Node> nodes;
    std::vector<Edge> edges;
    int graphs_in_file = 1; // the first one is shown
    bool placed = false;    // the user has put nodes somewhere; saving keeps the places of all
    bool changed = false;   // since it was read or written
    std::unique_ptr<DotSource, DotSourceDeleter> source;

    Node &NodeAt(int index) { return nodes[static_cast<std::size_t>(index)]; }
    const Node &NodeAt(int index) const { return nodes[static_cast<std::size_t>(index)]; }
    Edge &EdgeAt(int index) { return edges[static_cast<std::size_t>(index)]; }
    const Edge &EdgeAt(int index) const { return edges[static_cast<std::size_t>(index)]; }
};

// Those that were not removed.
std::vector<int> NodesOf(const Graph &graph);
std::vector<int> EdgesOf(const Graph &graph);

// The edges that touch one node.
std::vector<int> EdgesAround(const Graph &graph, int node);

} // namespace graph_browser
