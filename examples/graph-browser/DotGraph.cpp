#include "DotGraph.h"

namespace graph_browser {

std::vector<int> EdgesAround(const Graph &graph, int node) {
    std::vector<int> around;
    for (int i = 0; i < static_cast<int>(graph.edges.size()); ++i) {
        const Edge &edge = graph.edges[static_cast<std::size_t>(i)];
        if (edge.from == node || edge.to == node)
            around.push_back(i);
    }
    return around;
}

} // namespace graph_browser
