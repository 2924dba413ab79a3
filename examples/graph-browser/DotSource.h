#pragma once

#include <memory>
#include <string>
#include <vector>

#include <graphviz/cgraph.h>

#include "DotGraph.h"

// libcgraph's own graphs, which know what a file says beyond what the browser shows. They are kept
// while a graph is shown, are changed with it, and are what is written.
namespace graph_browser {

struct GraphCloser {
    void operator()(Agraph_t *graph) const { agclose(graph); }
};
using GraphHolder = std::unique_ptr<Agraph_t, GraphCloser>;

// An attribute of nodes that the browser adds: where the user put the node, "x,y" in pixels.
constexpr const char *place_attribute = "browserpos";

// The indices are those of Graph::nodes and Graph::edges; what was removed is null.
struct DotSource {
    std::vector<GraphHolder> graphs; // all of the file; the first one is shown
    std::vector<Agnode_t *> nodes;
    std::vector<Agedge_t *> edges;

    Agraph_t *Root() const { return graphs.front().get(); }
    Agnode_t *&NodeAt(int index) { return nodes[static_cast<std::size_t>(index)]; }
    Agedge_t *&EdgeAt(int index) { return edges[static_cast<std::size_t>(index)]; }
};

// The next graph of a text, which goes on behind it; null at the end of the text.
Agraph_t *ReadNext(std::string_view &text);

// What the file calls a graph, a node or an edge; null if nothing.
const char *GivenName(void *object);

// All subgraphs, at any depth, outer before inner.
std::vector<Agraph_t *> SubgraphsOf(Agraph_t *root);

} // namespace graph_browser
