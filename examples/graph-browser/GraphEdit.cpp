#include "GraphEdit.h"

#include <string_view>
#include <utility>

#include "DotAttributes.h"
#include "DotEscapes.h"
#include "DotSource.h"

namespace graph_browser {
namespace {

void SetAttribute(void *object, const char *name, const std::string &value) {
    agsafeset(object, const_cast<char *>(name), const_cast<char *>(value.c_str()),
              const_cast<char *>(""));
}

bool HasNode(Agraph_t *root, const std::string &name) {
    return agnode(root, const_cast<char *>(name.c_str()), 0) != nullptr;
}

Agnode_t *NewNode(Agraph_t *root, const std::string &name) {
    return agnode(root, const_cast<char *>(name.c_str()), 1);
}

std::string FreeName(const Graph &graph) {
    std::size_t number = graph.nodes.size() + 1;
    while (HasNode(graph.source->Root(), "node" + std::to_string(number)))
        ++number;
    return "node" + std::to_string(number);
}

// ---- What the browser shows ------------------------------------------------

// The place and the cluster are not read from attributes of the node.
void ReadAgain(Graph &graph, int index) {
    const TextRules rules = RulesOf(graph.source->Root());
    Node read = NodeAttributes{graph.source->Root(), rules}.Read(graph.source->NodeAt(index));
    Node &node = graph.NodeAt(index);
    read.place = node.place;
    read.cluster = std::move(node.cluster);
    read.added = node.added;
    node = std::move(read);
    graph.changed = true;
}

void ReadEdgeAgain(Graph &graph, int index) {
    const TextRules rules = RulesOf(graph.source->Root());
    Edge read = EdgeAttributes{graph.source->Root(), rules}.Read(graph.source->EdgeAt(index));
    Edge &edge = graph.EdgeAt(index);
    read.from = edge.from;
    read.to = edge.to;
    edge = std::move(read);
    graph.changed = true;
}

// ---- Names and labels ------------------------------------------------------

// A node without edges that no subgraph knows can give way to one of another name.
void TakeName(Graph &graph, int node, const std::string &name) {
    Agnode_t *&own = graph.source->NodeAt(node);
    Agraph_t *root = graph.source->Root();
    if (name == agnameof(own) || HasNode(root, name))
        return;
    Agnode_t *named = NewNode(root, name);
    agdelnode(root, own);
    own = named;
}

LabelKind KindOf(Agnode_t *node) {
    const char *shape = agget(node, const_cast<char *>("shape"));
    const std::string_view kind = shape ? shape : "";
    return kind == "record" || kind == "Mrecord" ? LabelKind::Record : LabelKind::Plain;
}

// What the user makes is to be seen, whatever the file says of all others.
void ShowNew(void *object, bool &visible) {
    if (!visible)
        SetAttribute(object, "style", "");
    visible = true;
}

// ---- Ends of edges ---------------------------------------------------------

struct Ends {
    Agnode_t *tail;
    Agnode_t *head;
};

Ends EndsFor(const Graph &graph, const Edge &edge, int from, int to) {
    if (edge.turned)
        std::swap(from, to);
    return {graph.source->NodeAt(from), graph.source->NodeAt(to)};
}

bool PointsBackByDefault(Agraph_t *root) {
    const Agsym_t *direction = agattr(root, AGEDGE, const_cast<char *>("dir"), nullptr);
    return direction && std::string_view{direction->defval} == "back";
}

// A strict graph has one edge at most between two nodes. Elsewhere a second one of the same key
// would be the first again, so that it goes without.
Agedge_t *NewEdge(Agraph_t *root, Ends ends, char *key) {
    if (agisstrict(root) && agedge(root, ends.tail, ends.head, nullptr, 0))
        return nullptr;
    if (key && agedge(root, ends.tail, ends.head, key, 0))
        key = nullptr;
    return agedge(root, ends.tail, ends.head, key, 1);
}

// It is where the old one was, as far as its new ends are there.
void JoinSubgraphs(Agraph_t *root, Agedge_t *old, Agedge_t *edge) {
    for (Agraph_t *graph : SubgraphsOf(root))
        if (agsubedge(graph, old, 0) && agsubnode(graph, agtail(edge), 0) &&
            agsubnode(graph, aghead(edge), 0))
            agsubedge(graph, edge, 1);
}

// A port is a place on one node; another has it not.
void DropPorts(Agedge_t *old, Agedge_t *edge) {
    if (agtail(old) != agtail(edge))
        SetAttribute(edge, "tailport", "");
    if (aghead(old) != aghead(edge))
        SetAttribute(edge, "headport", "");
}

} // namespace

// ---- Public functions ------------------------------------------------------

int AddNode(Graph &graph, const std::optional<Place> &place) {
    const int index = static_cast<int>(graph.nodes.size());
    graph.source->nodes.push_back(NewNode(graph.source->Root(), FreeName(graph)));
    graph.nodes.emplace_back();
    graph.nodes.back().place = place;
    graph.nodes.back().added = true;
    ReadAgain(graph, index);
    ShowNew(graph.source->NodeAt(index), graph.NodeAt(index).visible);
    return index;
}

void LabelNode(Graph &graph, int node, const std::string &text) {
    const TextRules rules = RulesOf(graph.source->Root());
    if (graph.NodeAt(node).added && EdgesAround(graph, node).empty() &&
        CanBeName(text, rules.latin1))
        TakeName(graph, node, text);
    Agnode_t *own = graph.source->NodeAt(node);
    const bool shows_name =
        text.empty() || (text == agnameof(own) && CanBeName(text, rules.latin1));
    SetAttribute(own, "label", shows_name ? "\\N" : EscapedLabel(text, KindOf(own), rules.latin1));
    ReadAgain(graph, node);
}

// Without a label an edge would show its external one.
void LabelEdge(Graph &graph, int edge, const std::string &text) {
    const TextRules rules = RulesOf(graph.source->Root());
    Agedge_t *own = graph.source->EdgeAt(edge);
    SetAttribute(own, "label", EscapedLabel(text, LabelKind::Plain, rules.latin1));
    const char *external = agget(own, const_cast<char *>("xlabel"));
    if (text.empty() && external && *external)
        SetAttribute(own, "xlabel", "");
    ReadEdgeAgain(graph, edge);
}

std::optional<int> AddEdge(Graph &graph, int from, int to) {
    Agraph_t *root = graph.source->Root();
    const Edge edge{.from = from, .to = to, .turned = PointsBackByDefault(root)};
    Agedge_t *own = NewEdge(root, EndsFor(graph, edge, from, to), nullptr);
    if (!own)
        return std::nullopt;
    const int index = static_cast<int>(graph.edges.size());
    graph.source->edges.push_back(own);
    graph.edges.push_back(edge);
    ReadEdgeAgain(graph, index);
    ShowNew(own, graph.EdgeAt(index).visible);
    return index;
}

bool MoveEdge(Graph &graph, int edge, int from, int to) {
    Edge &moved = graph.EdgeAt(edge);
    Agedge_t *&own = graph.source->EdgeAt(edge);
    Agraph_t *root = graph.source->Root();
    Agedge_t *copy = NewEdge(root, EndsFor(graph, moved, from, to), agnameof(own));
    if (!copy)
        return false;
    agcopyattr(own, copy);
    DropPorts(own, copy);
    JoinSubgraphs(root, own, copy);
    agdeledge(root, own);
    own = copy;
    moved.from = from;
    moved.to = to;
    ReadEdgeAgain(graph, edge);
    return true;
}

void RemoveNode(Graph &graph, int node) {
    for (const int edge : EdgesAround(graph, node))
        RemoveEdge(graph, edge);
    agdelnode(graph.source->Root(), graph.source->NodeAt(node));
    graph.source->NodeAt(node) = nullptr;
    graph.NodeAt(node).removed = true;
    graph.changed = true;
}

void RemoveEdge(Graph &graph, int edge) {
    agdeledge(graph.source->Root(), graph.source->EdgeAt(edge));
    graph.source->EdgeAt(edge) = nullptr;
    graph.EdgeAt(edge).removed = true;
    graph.changed = true;
}

void SetPlaced(Graph &graph, bool placed) {
    graph.changed = graph.changed || placed || graph.placed;
    graph.placed = placed;
    if (!placed)
        for (Node &node : graph.nodes)
            node.place.reset();
}

} // namespace graph_browser
