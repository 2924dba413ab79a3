#include <bench/graph/Shape.h>

#include <algorithm>
#include <random>

namespace corvidlmw::bench {

namespace {

constexpr int fan_out = 4;

template <class ParentOf>
std::vector<Edge> TreeEdges(int nodes, ParentOf parent_of) {
    std::vector<Edge> edges;
    for (int node = 1; node < nodes; ++node) {
        edges.push_back({parent_of(node), node});
    }
    return edges;
}

// The numbers come from the engine alone: a distribution of the standard library may differ elsewhere.
std::vector<Edge> RandomEdges(int nodes) {
    std::mt19937 engine(1);
    const auto count = static_cast<unsigned>(nodes);
    std::vector<Edge> edges;
    while (edges.size() < 2 * count) {
        const int a = static_cast<int>(engine() % count);
        const int b = static_cast<int>(engine() % count);
        if (a != b) {
            edges.push_back({std::min(a, b), std::max(a, b)});
        }
    }
    std::stable_sort(edges.begin(), edges.end(),
                     [](const Edge &a, const Edge &b) { return a.to < b.to; });
    return edges;
}

} // namespace

std::vector<int> Shape::Parents() const {
    std::vector<int> parents(static_cast<std::size_t>(nodes), -1);
    for (const Edge &edge : edges) {
        parents[static_cast<std::size_t>(edge.to)] = edge.from;
    }
    return parents;
}

Shape MakeShape(std::string_view name, int nodes) {
    Shape shape{.name = std::string(name), .nodes = nodes, .edges = {}, .downward = false};
    if (name == "chain") {
        shape.edges = TreeEdges(nodes, [](int node) { return node - 1; });
        shape.downward = true;
    } else if (name == "tree") {
        shape.edges = TreeEdges(nodes, [](int node) { return (node - 1) / fan_out; });
    } else if (name == "star") {
        shape.edges = TreeEdges(nodes, [](int) { return 0; });
    } else if (name == "dag") {
        shape.edges = RandomEdges(nodes);
    }
    return shape;
}

} // namespace corvidlmw::bench
