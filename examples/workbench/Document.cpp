#include "Document.h"

#include <utility>

namespace workbench {

std::string KindName(Kind kind) {
    switch (kind) {
    case Kind::Node: return "node";
    case Kind::Root: return "root";
    case Kind::Inner: return "inner";
    case Kind::Leaf: return "leaf";
    case Kind::Lone: return "lone";
    case Kind::Directory: return "directory";
    case Kind::Closed: return "closed";
    case Kind::File: return "file";
    case Kind::Program: return "program";
    case Kind::Link: return "link";
    case Kind::Other: return "other";
    case Kind::Code: return "code";
    case Kind::Header: return "header";
    }
    return "";
}

int Document::AddNode(Node node, Item item) {
    graph.nodes.push_back(std::move(node));
    items.push_back(std::move(item));
    return static_cast<int>(graph.nodes.size()) - 1;
}

int Document::AddEdge(int from, int to) {
    graph.edges.push_back({.from = from, .to = to});
    return static_cast<int>(graph.edges.size()) - 1;
}

std::vector<Degree> DegreesOf(const Graph &graph) {
    std::vector<Degree> degrees(graph.nodes.size());
    for (const Edge &edge : graph.edges) {
        if (!edge.removed) {
            degrees[static_cast<std::size_t>(edge.from)].out++;
            degrees[static_cast<std::size_t>(edge.to)].in++;
        }
    }
    return degrees;
}

Kind ShownKind(Kind kind, Degree degree) {
    if (kind != Kind::Node) {
        return kind;
    }
    if (degree.in == 0) {
        return degree.out == 0 ? Kind::Lone : Kind::Root;
    }
    return degree.out == 0 ? Kind::Leaf : Kind::Inner;
}

} // namespace workbench
