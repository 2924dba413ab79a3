// Places the nodes.
//
// A layout collects the roots, hangs them below the hidden super-root, converts the graph to a forest
// (Forest.cpp) and places that: as trees, or as a butterfly around one node, with the levels from
// left to right or from top to bottom. Positions are whole numbers, cut to 16 bits and kept at 0 or
// above where they are stored. No arc is touched: all is repainted afterwards.
//
// Both placings are one, written along an axis: the levels advance along the depth axis by
// `childSpacing`, the neighbours of one level along the breadth axis by `siblingSpacing`.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

constexpr int margin = 40;

bool IsDying(NodePtr node) {
    return node->widget && IsBeingDestroyed(node->widget);
}

bool IsPlaceable(NodePtr node) {
    return node->widget && !IsBeingDestroyed(node->widget);
}

bool IsHorizontal(Widget graph) {
    return GraphOf(graph).orientation == XmHORIZONTAL;
}

// ---- Axes ------------------------------------------------------------------------------------------

// Wide enough for any spacing along any number of nodes.
using Coordinate = long long;

enum class Direction { LeftToRight, TopToBottom };

struct Axes {
    Direction direction;

    Coordinate Breadth(Widget w) const {
        return direction == Direction::LeftToRight ? w->core.height : w->core.width;
    }
    Coordinate Depth(Widget w) const {
        return direction == Direction::LeftToRight ? w->core.width : w->core.height;
    }
    // (depth, breadth) as a point on the window.
    Point At(Coordinate depth, Coordinate breadth) const {
        const int along = static_cast<int>(depth);
        const int across = static_cast<int>(breadth);
        return direction == Direction::LeftToRight ? Point{along, across} : Point{across, along};
    }
};

Position PlaceFor(int coordinate) {
    return std::max<Position>(CutToPosition(coordinate), 0);
}

void MoveInLayout(Widget w, Point place) {
    const Position x = PlaceFor(place.x);
    const Position y = PlaceFor(place.y);
    if (x == w->core.x && y == w->core.y) {
        return;
    }
    if (XtIsWidget(w)) {
        XtMoveWidget(w, x, y);
        return;
    }
    w->core.x = x;
    w->core.y = y;
    if (XtWidgetProc resize = XtClass(w)->core_class.resize) {
        resize(w);
    }
}

// ---- Trees ------------------------------------------------------------------------------------------

// A node whose subtree is being placed: [breadth, extent) is what it and its children take so far.
struct Placing {
    NodePtr node;
    Coordinate depth;   // where the node stands along the depth axis
    Coordinate breadth; // where its subtree starts
    int next_child = 0;
    Coordinate next_breadth; // where the next child starts
    Coordinate extent;       // of the last child placed
};

Placing StartPlacing(NodePtr node, Coordinate depth, Coordinate breadth) {
    return {.node = node,
            .depth = depth,
            .breadth = breadth,
            .next_breadth = breadth,
            .extent = breadth};
}

// The next child in the forest, or NULL. An entry that has another tree parent is passed over.
NodePtr NextChild(Placing &placing) {
    auto children = Nodes(placing.node->tree_children);
    while (placing.next_child < static_cast<int>(children.size())) {
        NodePtr child = children[static_cast<std::size_t>(placing.next_child++)];
        if (child->tree_parent == placing.node && IsPlaceable(child)) {
            return child;
        }
    }
    return nullptr;
}

// Centres the node over what its children took, and returns the extent of the subtree.
Coordinate FinishPlacing(const Axes &axes, const Placing &placing) {
    Widget w = placing.node->widget;
    const Coordinate own = placing.breadth + axes.Breadth(w) + 2 * w->core.border_width;
    const Coordinate extent = std::max(own, placing.extent);
    const Coordinate place = (extent + placing.breadth) / 2 - axes.Breadth(w) / 2;
    MoveInLayout(w, axes.At(placing.depth, place));
    return extent;
}

// Places the subtree with its corner at (depth, breadth) and returns how far it reaches along the
// breadth axis. Keeps its own stack: a chain is as deep as it is long.
int PlaceTree(Widget graph, const Axes &axes, NodePtr node, int depth, int breadth) {
    const int child_spacing = GraphOf(graph).child_spacing;
    const int sibling_spacing = GraphOf(graph).sibling_spacing;
    if (!IsPlaceable(node)) {
        return breadth;
    }
    Vector<Placing> stack{StartPlacing(node, depth, breadth)};
    Coordinate extent = breadth;
    while (!stack.empty()) {
        Placing &top = stack.back();
        if (NodePtr child = NextChild(top)) {
            Widget w = top.node->widget;
            const Coordinate child_depth =
                top.depth + axes.Depth(w) + 2 * w->core.border_width + child_spacing;
            stack.push_back(StartPlacing(child, child_depth, top.next_breadth));
            continue;
        }
        extent = FinishPlacing(axes, top);
        stack.pop_back();
        if (!stack.empty()) {
            stack.back().extent = extent;
            stack.back().next_breadth = extent + sibling_spacing;
        }
    }
    return static_cast<int>(extent);
}

// ---- Butterfly ------------------------------------------------------------------------------------------

NodePtr ButterflyNode(Widget graph) {
    return NodeIn(graph, GraphOf(graph).butterfly_root);
}

Coordinate TotalBreadth(const Axes &axes, const XmGraphNodeList &nodes, Coordinate spacing) {
    Coordinate total = -spacing;
    for (NodePtr node : Nodes(nodes)) {
        if (node->widget) {
            total += axes.Breadth(node->widget) + spacing;
        }
    }
    return total;
}

void PlaceColumn(const Axes &axes, const XmGraphNodeList &nodes, Coordinate depth,
                 Coordinate breadth, Coordinate spacing) {
    for (NodePtr node : Nodes(nodes)) {
        if (node->widget) {
            MoveInLayout(node->widget, axes.At(depth, breadth));
            breadth += axes.Breadth(node->widget) + spacing;
        }
    }
}

// In both directions the distance of the middle is measured by the parents' widths.
int WidestOf(const XmGraphNodeList &nodes) {
    int widest = 0;
    for (NodePtr node : Nodes(nodes)) {
        if (node->widget) {
            widest = std::max<int>(widest, node->widget->core.width);
        }
    }
    return widest;
}

// Parents before the node, children behind it, the smaller side centred on the larger. Other nodes
// keep their places. The middle node gets `childSpacing` added on its breadth axis only when the
// levels run from left to right.
void PlaceButterfly(Widget graph, const Axes &axes) {
    NodePtr node = ButterflyNode(graph);
    if (!node) {
        return;
    }
    const Coordinate sibling = GraphOf(graph).sibling_spacing;
    const Coordinate child = GraphOf(graph).child_spacing;
    const Coordinate parents = TotalBreadth(axes, node->parents, sibling);
    const Coordinate children = TotalBreadth(axes, node->tree_children, sibling);
    const Coordinate parents_shift = children > parents ? (children - parents) / 2 : 0;
    const Coordinate children_shift = children > parents ? 0 : (parents - children) / 2;

    PlaceColumn(axes, node->parents, child, parents_shift + sibling, sibling);
    const Coordinate middle = WidestOf(node->parents) + 2 * child;
    PlaceColumn(axes, node->tree_children, axes.Depth(node->widget) + child + middle,
                children_shift + sibling, sibling);
    const Coordinate added = axes.direction == Direction::LeftToRight ? child : 0;
    MoveInLayout(node->widget, axes.At(middle, (std::max(parents, children) + added) / 2));
}

// ---- One layout ------------------------------------------------------------------------------------------

void ResetNodes(Widget graph) {
    for (Widget child : Children(graph)) {
        NodePtr node = NodeOf(child);
        if (node && !IsBeingDestroyed(child)) {
            node->visited = 0;
            node->tree_parent = nullptr;
            node->depth = XmGRAPH_UNPLACED_DEPTH;
        }
    }
}

// First the roots that the client named, then the nodes without parents, then the first node of each
// part that is only cycles.
Vector<NodePtr> CollectRoots(Widget w) {
    const auto &graph = GraphOf(w);
    Vector<NodePtr> roots;
    UnorderedSet<NodePtr> collected;
    auto collect = [&](NodePtr node) {
        if (collected.insert(node).second) {
            roots.push_back(node);
        }
        _XmGraphMarkSubgraphVisited(node);
    };
    for (NodePtr node : Nodes(graph.user_roots)) {
        collect(node);
    }
    auto for_each_node = [&](auto visit) {
        for (Widget child : Children(w)) {
            NodePtr node = NodeOf(child);
            if (node && node != graph.root && !IsBeingDestroyed(child)) {
                visit(node);
            }
        }
    };
    for_each_node([&](NodePtr node) {
        if (node->parents.count == 0) {
            collect(node);
        }
    });
    for_each_node([&](NodePtr node) {
        if (!node->visited) {
            collect(node);
        }
    });
    return roots;
}

void HangRoots(Widget w, const Vector<NodePtr> &roots) {
    NodePtr super_root = GraphOf(w).root;
    for (NodePtr node : roots) {
        if (!IsDying(node)) {
            _XmGraphNodeListInsert(w, &node->parents, super_root);
            _XmGraphNodeListInsert(w, &super_root->children, node);
            _XmGraphNodeListInsert(w, &super_root->tree_children, node);
        }
    }
}

void UnhangRoots(Widget w, const Vector<NodePtr> &roots) {
    NodePtr super_root = GraphOf(w).root;
    for (NodePtr node : roots) {
        if (!IsDying(node)) {
            _XmGraphNodeListRemove(&node->parents, super_root);
            node->tree_parent = nullptr;
        }
    }
    _XmGraphNodeListFree(&super_root->tree_children);
    _XmGraphNodeListFree(&super_root->parents);
    _XmGraphNodeListFree(&super_root->children);
}

void PlaceBy(Widget graph, NodePtr node, int x, int y) {
    const bool horizontal = IsHorizontal(graph);
    switch (GraphOf(graph).layout_style) {
    case XmGRAPH:
        (horizontal ? _XmGraphHorizontalLayout : _XmGraphVerticalLayout)(graph, node, x, y);
        break;
    case XmBUTTERFLY:
        (horizontal ? _XmGraphHorizontalButterflyLayout : _XmGraphVerticalButterflyLayout)(graph);
        break;
    default: break;
    }
}

// The super-root stands one level before the margin. The vertical corner is taken with the sibling
// spacing where the horizontal one takes the child spacing, so the roots of a vertical graph stand
// at 40 + childSpacing - siblingSpacing.
void PlaceAll(Widget w) {
    const auto &graph = GraphOf(w);
    Widget dummy = graph.root->widget;
    if (IsHorizontal(w)) {
        const Coordinate x = Coordinate{margin} - graph.child_spacing - dummy->core.width;
        PlaceBy(w, graph.root, static_cast<int>(x), margin);
    } else {
        const Coordinate y = Coordinate{margin} - graph.sibling_spacing - dummy->core.height;
        PlaceBy(w, graph.root, margin, static_cast<int>(y));
    }
}

// ---- Relay ------------------------------------------------------------------------------------------------

// What has no window of its own, a gadget or a plain rectangle, cannot be unmapped.
bool IsShown(Widget w) {
    return XtIsManaged(w) && (!XtIsWidget(w) || w->core.mapped_when_managed);
}

void EraseArcsTo(const Vector<NodePtr> &nodes) {
    for (NodePtr node : nodes) {
        for (Widget arc : Widgets(node->to_arcs)) {
            _EraseArc(arc);
        }
    }
}

void DrawArcsTo(Widget w, const Vector<NodePtr> &nodes) {
    const RankWalk walk(w);
    for (NodePtr node : nodes) {
        for (Widget arc : Widgets(node->to_arcs)) {
            DrawArc(arc);
        }
    }
}

// A gadget has no window to unmap, and no such field.
void SetMapped(NodePtr node, bool mapped) {
    if (node->widget && XtIsWidget(node->widget)) {
        XtSetMappedWhenManaged(node->widget, mapped ? True : False);
    }
}

void ResetForRelay(Widget graph, NodePtr node) {
    node->visited = 0;
    node->tree_parent = nullptr;
    node->depth = XmGRAPH_UNPLACED_DEPTH;
    node->tree_children.count = 0;
    SetMapped(node, false);
    for (NodePtr child : Nodes(node->children)) {
        _XmGraphNodeListInsert(graph, &node->tree_children, child);
    }
}

} // namespace

namespace corvidlmw::graph {

void ConvertSpacing(Widget w, int child_units, int sibling_units) {
    auto &graph = GraphOf(w);
    graph.child_spacing_units = child_units;
    graph.sibling_spacing_units = sibling_units;
    const unsigned char unit = ManagerOf(w).unit_type;
    if (unit == XmPIXELS) {
        graph.child_spacing = child_units;
        graph.sibling_spacing = sibling_units;
    } else if (graph.orientation == XmHORIZONTAL) {
        graph.child_spacing = XmCvtToHorizontalPixels(XtScreen(w), child_units, unit);
        graph.sibling_spacing = XmCvtToVerticalPixels(XtScreen(w), sibling_units, unit);
    } else if (graph.orientation == XmVERTICAL) {
        graph.child_spacing = XmCvtToVerticalPixels(XtScreen(w), child_units, unit);
        graph.sibling_spacing = XmCvtToHorizontalPixels(XtScreen(w), sibling_units, unit);
    }
}

void LayoutNow(Widget w) {
    auto &graph = GraphOf(w);
    const FigureLift lift(w);
    const Watch watch(w);
    graph.layed_out = False;
    if (NumChildrenOf(w) > 1 && graph.layout_proc) {
        (*graph.layout_proc)(w);
    }
    // It may have run in the middle of a drag, which looks at the dragged nodes only; and a client's own
    // procedure need not tell of what it moved.
    if (!watch.Died()) {
        ForgetNodeIndex(w);
        RefreshOverview(w);
    }
}

// A callback may ask for a layout in its turn. One that always does would never end, so nesting is
// bounded.
void DoLayout(Widget w) {
    constexpr int deepest = 8;
    auto &graph = GraphOf(w);
    GraphState &state = StateOf(w);
    if (state.layout_depth >= deepest || IsBeingDestroyed(w)) {
        return;
    }
    if (graph.layed_out) {
        ClearGraph(w);
        return;
    }
    if (!IsPlaceable(graph.root)) {
        CreateSuperRoot(w); // a client has destroyed it
    }
    Watch watch(w);
    state.layout_depth += 1;
    ResetNodes(w);
    graph.layed_out = True;
    _XmGraphInitNode(graph.root);
    const Vector<NodePtr> roots = CollectRoots(w);
    HangRoots(w, roots);
    _XmGraphConvertToTree(w);
    XmGraphShowCoverWindow(w);
    PlaceAll(w);
    XmGraphHideCoverWindow(w);
    UnhangRoots(w, roots);
    _XmGraphAdjustSize(w);
    if (!watch.Died()) {
        CallGraphChanged(w, XmCR_LAYOUT_CHANGED);
    }
    if (!watch.Died()) {
        state.layout_depth -= 1;
        ClearGraph(w);
    }
}

// Depth first, each node once. A node that is reached by several paths was listed at the first.
void GetSubgraphNodeList(Widget graph, XmGraphNodeList &path, NodePtr node) {
    UnorderedSet<NodePtr> met(Nodes(path).begin(), Nodes(path).end());
    UnorderedSet<NodePtr> listed(Nodes(subgraph_nodes).begin(), Nodes(subgraph_nodes).end());
    Vector<NodePtr> stack{node};
    while (!stack.empty()) {
        NodePtr here = stack.back();
        stack.pop_back();
        if (!here || !here->widget || !IsShown(here->widget) || !met.insert(here).second) {
            continue;
        }
        if (listed.insert(here).second) {
            _XmGraphNodeListInsert(graph, &subgraph_nodes, here);
        }
        auto children = Nodes(here->children);
        stack.insert(stack.end(), children.rbegin(), children.rend());
    }
}

} // namespace corvidlmw::graph

// ---- Public functions -----------------------------------------------------------------------------------------

extern "C" {

void XmGraphLayout(Widget w) {
    if (CheckGraph(w, "XmGraphLayout requires an XmGraph widget")) {
        LayoutNow(w);
    }
}

void _XmGraphMarkSubgraphVisited(NodePtr node) {
    Vector<NodePtr> stack{node};
    while (!stack.empty()) {
        NodePtr here = stack.back();
        stack.pop_back();
        if (here && !here->visited) {
            here->visited = 1;
            auto children = Nodes(here->children);
            stack.insert(stack.end(), children.rbegin(), children.rend());
        }
    }
}

int _XmGraphHorizontalLayout(Widget graph, NodePtr node, int x, int y) {
    return PlaceTree(graph, {Direction::LeftToRight}, node, x, y);
}

int _XmGraphVerticalLayout(Widget graph, NodePtr node, int x, int y) {
    return PlaceTree(graph, {Direction::TopToBottom}, node, y, x);
}

void _XmGraphHorizontalButterflyLayout(Widget graph) {
    PlaceButterfly(graph, {Direction::LeftToRight});
}

void _XmGraphVerticalButterflyLayout(Widget graph) {
    PlaceButterfly(graph, {Direction::TopToBottom});
}

void XmGraphRelaySubgraph(Widget w, Widget widget) {
    if (!CheckGraph(w, "XmGraphRelaySubgraph requires an XmGraph widget")) {
        return;
    }
    NodePtr node = NodeIn(w, widget);
    if (!node) {
        return;
    }
    auto &graph = GraphOf(w);
    const FigureLift lift(w);
    const Point old = {widget->core.x, widget->core.y};
    graph.layed_out = False;

    // The list is shared and may still hold the nodes of another graph.
    subgraph_nodes.count = 0;
    XmGraphNodeList path{};
    GetSubgraphNodeList(w, path, node);
    const Vector<NodePtr> nodes = Copy(Nodes(subgraph_nodes));
    EraseArcsTo(nodes);
    for (NodePtr listed : nodes) {
        ResetForRelay(w, listed);
    }

    NodePtr super_root = graph.root;
    graph.root = node;
    SetMapped(node, false);
    _XmGraphDoConvertToTree(w, &path, node, nullptr, 0);
    _XmGraphNodeListFree(&path);
    PlaceBy(w, node, old.x, old.y);
    graph.root = super_root;

    // The placing centred the node beside its children; all go back with it.
    const int dx = graph.orientation == XmVERTICAL ? widget->core.x - old.x : 0;
    const int dy = graph.orientation == XmHORIZONTAL ? widget->core.y - old.y : 0;
    for (NodePtr listed : nodes) {
        Widget moved = listed->widget;
        _XmMoveObject(moved, CutToPosition(moved->core.x - dx), CutToPosition(moved->core.y - dy));
        SetMapped(listed, true);
    }
    SetMapped(node, true);
    ForgetNodeIndex(w);
    DrawArcsTo(w, nodes);
    std::fill_n(subgraph_nodes.items, subgraph_nodes.count, nullptr);
    subgraph_nodes.count = 0;
    _XmGraphAdjustSize(w);
}

} // extern "C"
