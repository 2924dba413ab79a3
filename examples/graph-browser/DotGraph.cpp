#include "DotGraph.h"

namespace graph_browser {
namespace {

template <typename Item>
std::vector<int> Kept(const std::vector<Item> &items) {
    std::vector<int> kept;
    for (int i = 0; i < static_cast<int>(items.size()); ++i)
        if (!items[static_cast<std::size_t>(i)].removed)
            kept.push_back(i);
    return kept;
}

} // namespace

std::vector<int> NodesOf(const Graph &graph) {
    return Kept(graph.nodes);
}

std::vector<int> EdgesOf(const Graph &graph) {
    return Kept(graph.edges);
}

std::vector<int> EdgesAround(const Graph &graph, int node) {
    std::vector<int> around;
    for (int i = 0; i < static_cast<int>(graph.edges.size()); ++i) {
        const Edge &edge = graph.EdgeAt(i);
        if (!edge.removed && (edge.from == node || edge.to == node))
            around.push_back(i);
    }
    return around;
}

} // namespace graph_browser
