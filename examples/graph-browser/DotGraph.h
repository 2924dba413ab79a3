#pragma once

#include <optional>
#include <string>
#include <vector>

// What a DOT file says, reduced to what the browser can show. Text is UTF-8; the lines of a label
// are divided by '\n'.
namespace graph_browser {

enum class Orientation { Vertical, Horizontal };
enum class Direction { Both, Forward, Neither };
enum class LineKind { Solid, Dashed, Dotted };

struct Node {
    std::string name;
    std::string label;
    std::string fill;       // a colour as Xlib writes it; empty for the browser's own
    std::string text_color; // likewise
    std::string cluster;    // label of the innermost cluster around it; empty for none
    bool left_aligned = false;
    bool visible = true;
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
};

struct Graph {
    std::string name;
    bool directed = true;
    std::optional<Orientation> orientation; // from rankdir; none when the file does not say
    std::vector<Node> nodes;
    std::vector<Edge> edges;
    int graphs_in_file = 1; // the first one is shown
};

// The edges that touch one node.
std::vector<int> EdgesAround(const Graph &graph, int node);

} // namespace graph_browser
