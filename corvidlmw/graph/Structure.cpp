// Roots, nodes and arcs as sets, and changes to the graph by function.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Lists that are handed out -------------------------------------------------------------------

WidgetList WidgetsOf(const XmGraphNodeList &nodes, int *count) {
    return_widget_list.count = 0;
    for (NodePtr node : Nodes(nodes)) {
        AppendArc(return_widget_list, node->widget);
    }
    *count = return_widget_list.count;
    return *count ? reinterpret_cast<WidgetList>(return_widget_list.items) : nullptr;
}

// Destroys the nodes from `first` on. Inside of a dispatch they stay among the children for now, else
// they leave at once; a client's callback may destroy others on the way, or add some at the end.
void DestroyNodes(Widget w, Cardinal first) {
    Cardinal at = first;
    for (Cardinal left = NumChildrenOf(w) - first; left > 0 && at < NumChildrenOf(w); left--) {
        Widget node = ChildrenOf(w)[at];
        assert(node && XtIsObject(node));
        if (!IsBeingDestroyed(node)) {
            XtDestroyWidget(node);
        }
        if (at < NumChildrenOf(w) && ChildrenOf(w)[at] == node) {
            at++;
        }
    }
}

// The arcs leave the graph's list before they are destroyed. One that dies early, by a client's
// callback, leaves a hole here.
std::vector<TakenArc> TakeArcs(Widget w) {
    auto &graph = GraphOf(w);
    std::vector<TakenArc> taken;
    taken.reserve(Arcs(w).size());
    for (Widget arc : Arcs(w)) {
        taken.push_back({SerialOf(arc), arc});
    }
    XtFree(reinterpret_cast<char *>(graph.arcs));
    graph.arcs = nullptr;
    graph.num_arcs = graph.arcs_size = 0;
    return taken;
}

// ---- Moving arcs -----------------------------------------------------------------------------------

void EraseArcs(const XmGraphNodeList &arcs) {
    for (Widget arc : Widgets(arcs)) {
        _EraseArc(arc);
    }
}

void DrawArcs(const XmGraphNodeList &arcs) {
    for (Widget arc : Widgets(arcs)) {
        DrawArc(arc);
    }
}

void Part(NodePtr from, NodePtr to) {
    _XmGraphNodeListRemove(&from->children, to);
    _XmGraphNodeListRemove(&from->tree_children, to);
    _XmGraphNodeListRemove(&to->parents, from);
    // Nothing leads from the one to the other any more, so it may not be reached through it later.
    if (to->tree_parent == from) {
        to->tree_parent = nullptr;
    }
}

void MoveFrom(Widget arc, NodePtr from) {
    auto &part = ArcOf(arc);
    NodePtr old = NodeOf(part.from);
    part.from = from->widget;
    Part(old, NodeOf(part.to));
    _XmGraphNodeListRemove(&old->from_arcs, arc);
    AppendArc(from->from_arcs, arc);
}

void MoveTo(Widget arc, NodePtr to) {
    auto &part = ArcOf(arc);
    NodePtr old = NodeOf(part.to);
    part.to = to->widget;
    Part(NodeOf(part.from), old);
    _XmGraphNodeListRemove(&old->to_arcs, arc);
    AppendArc(to->to_arcs, arc);
}

void MoveEnds(Widget graph, Widget arc, NodePtr from, NodePtr to) {
    const auto &part = ArcOf(arc);
    if (part.from != from->widget) {
        MoveFrom(arc, from);
    }
    if (part.to != to->widget) {
        MoveTo(arc, to);
    }
    _XmGraphNodeListInsertNoDuplicates(graph, &from->children, to);
    _XmGraphNodeListInsertNoDuplicates(graph, &from->tree_children, to);
    _XmGraphNodeListInsertNoDuplicates(graph, &to->parents, from);
    if (Widget twin = FindTwin(arc, from, to)) {
        MakeSiblings(twin, arc);
    }
}

// ---- Picking -----------------------------------------------------------------------------------------

// The box around the end points, as it is cut to 16 bits.
bool IsInBox(Widget arc, int tolerance, int x, int y) {
    const Segment ends = StoredEndsOf(arc);
    const int left = CutToPosition(std::min(ends.start.x, ends.end.x) - tolerance);
    const int top = CutToPosition(std::min(ends.start.y, ends.end.y) - tolerance);
    const int width = CutToDimension(std::abs(ends.end.x - ends.start.x) + 2 * tolerance);
    const int height = CutToDimension(std::abs(ends.end.y - ends.start.y) + 2 * tolerance);
    return x >= left && x <= left + width && y >= top && y <= top + height;
}

// Such an arc bows out of its box.
bool IsLaterTwin(const XmGraphPart &graph, Widget arc) {
    const XmGraphNodeList *siblings = ArcOf(arc).siblings;
    return graph.twins_visible == True && siblings && Widgets(*siblings).front() != arc;
}

bool MayTouch(const XmGraphPart &graph, Widget arc, int x, int y) {
    const auto &part = ArcOf(arc);
    return (part.label_string && part.map_label) || IsInBox(arc, graph.arc_tolerance, x, y) ||
           part.to == part.from || IsLaterTwin(graph, arc);
}

bool Touches(const XmGraphPart &graph, Widget arc, int x, int y) {
    const OwnedRegion region(XmArcGetRegion(arc));
    const auto side = static_cast<unsigned>(2 * graph.arc_tolerance);
    return region && XRectInRegion(region.get(), x - graph.arc_tolerance, y - graph.arc_tolerance,
                                   side, side) != RectangleOut;
}

} // namespace

namespace corvidlmw::graph {

void DestroyAllArcs(Widget w) {
    Watch watch(w);
    std::vector<Widget> arcs = Copy(Arcs(w));
    if (!arcs.empty()) {
        XtUnmanageChildren(arcs.data(), static_cast<Cardinal>(arcs.size()));
    }
    if (watch.Died()) {
        return;
    }
    TakenArcs taken = {TakeArcs(w), StateOf(w).taken_arcs};
    StateOf(w).taken_arcs = &taken;
    for (const TakenArc &entry : taken.arcs) {
        if (entry.arc && !watch.Died()) {
            assert(XtIsObject(entry.arc));
            XtDestroyWidget(entry.arc);
        }
        // Inside of a dispatch it lives on for a while, and may outlive its graph.
        if (entry.arc && !watch.Died()) {
            Doom(w, entry.arc, 0);
        }
    }
    if (!watch.Died()) {
        StateOf(w).taken_arcs = taken.outer;
    }
}

} // namespace corvidlmw::graph

extern "C" {

// ---- Roots ------------------------------------------------------------------------------------------

void XmGraphInsertRoots(Widget w, WidgetList nodes, int count) {
    if (!w || !XmIsGraph(w) || !nodes) {
        return;
    }
    for (int i = 0; i < count; i++) {
        if (NodePtr node = NodeIn(w, nodes[i])) {
            _XmGraphNodeListInsertNoDuplicates(w, &GraphOf(w).user_roots, node);
        }
    }
}

void XmGraphRemoveRoots(Widget w, WidgetList nodes, int count) {
    if (!w || !XmIsGraph(w) || !nodes) {
        return;
    }
    // `nodes` may be the list that XmGraphGetRoots returned: it does not shrink here.
    for (int i = 0; i < count; i++) {
        if (NodePtr node = NodeIn(w, nodes[i])) {
            _XmGraphNodeListRemove(&GraphOf(w).user_roots, node);
        }
    }
}

int XmGraphNumRoots(Widget w) {
    return w && XmIsGraph(w) ? GraphOf(w).user_roots.count : 0;
}

WidgetList XmGraphGetRoots(Widget w, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    *count = 0;
    if (!CheckGraph(w, "XmGetRoots requires an XmGraph widget")) {
        return nullptr;
    }
    return WidgetsOf(GraphOf(w).user_roots, count);
}

// ---- Nodes and arcs as sets ---------------------------------------------------------------------------

int XmGraphNumNodes(Widget w) {
    return w && XmIsGraph(w) ? std::max(static_cast<int>(NumChildrenOf(w)) - 1, 0) : 0;
}

WidgetList XmGraphGetNodes(Widget w, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    *count = 0;
    if (!CheckGraph(w, "XmGraphGetNodes requires an XmGraph widget") || NumChildrenOf(w) < 2) {
        return nullptr;
    }
    *count = static_cast<int>(NumChildrenOf(w)) - 1;
    return ChildrenOf(w) + 1;
}

int XmGraphNumArcs(Widget w) {
    return CheckGraph(w, "XmGraphNumArcs requires an XmGraph widget") ? GraphOf(w).num_arcs : 0;
}

WidgetList XmGraphGetArcs(Widget w, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    *count = 0;
    if (!CheckGraph(w, "XmGraphGetArcs requires an XmGraph widget")) {
        return nullptr;
    }
    *count = GraphOf(w).num_arcs;
    return *count ? GraphOf(w).arcs : nullptr;
}

void XmGraphDestroyAllArcs(Widget w) {
    if (CheckGraph(w, "XmGraphDestroyAllArcs requires an XmGraph widget")) {
        DestroyAllArcs(w);
    }
}

// The hidden first child stays. The arcs go with their nodes.
void XmGraphDestroyAllNodes(Widget w) {
    if (!CheckGraph(w, "XmGraphDestroyAllNodes requires an XmGraph widget") ||
        NumChildrenOf(w) < 2) {
        return;
    }
    Watch watch(w);
    std::vector<Widget> nodes = Copy(Children(w).subspan(1));
    XtUnmanageChildren(nodes.data(), static_cast<Cardinal>(nodes.size()));
    if (!watch.Died()) {
        DestroyNodes(w, 1);
    }
}

// ---- Changes ---------------------------------------------------------------------------------------------

// A node that is being destroyed stays where it is, and that is told as done.
Boolean XmGraphMoveNode(Widget w, Widget node_widget, Position x, Position y) {
    if (!CheckGraph(w, "XmGraphMoveNode requires an XmGraph widget")) {
        return False;
    }
    NodePtr node = node_widget && XtParent(node_widget) == w && XtIsRectObj(node_widget)
                       ? NodeOf(node_widget)
                       : nullptr;
    if (!node) {
        return False;
    }
    if (IsBeingDestroyed(node_widget)) {
        return True;
    }
    const bool managed = XtIsManaged(node_widget);
    if (managed) {
        EraseArcs(node->from_arcs);
        EraseArcs(node->to_arcs);
    }
    _XmMoveObject(node_widget, x, y);
    if (managed) {
        DrawArcs(node->from_arcs);
        DrawArcs(node->to_arcs);
    }
    return True;
}

Boolean XmGraphMoveArc(Widget w, Widget arc, Widget from_widget, Widget to_widget) {
    if (!CheckGraph(w, " XmGraphMoveArcrequires an XmGraph widget") || !arc || !XmIsArc(arc) ||
        XtParent(arc) != w) {
        return False;
    }
    const auto &part = ArcOf(arc);
    if (part.from == from_widget && part.to == to_widget) {
        return False;
    }
    if (!HasBothEnds(arc)) {
        return True;
    }
    NodePtr from = NodeIn(w, from_widget);
    NodePtr to = NodeIn(w, to_widget);
    if (!from || !to) {
        return False;
    }
    const bool managed = XtIsManaged(arc);
    if (managed) {
        _EraseArc(arc);
    }
    LeaveSiblings(w, arc, true);
    MoveEnds(w, arc, from, to);
    switch (GraphOf(w).auto_layout_mode) {
    case XmALWAYS:
    case XmARCS_ONLY:
    case XmPARTIAL: XmGraphRelaySubgraph(w, from_widget); break;
    default:
        if (managed) {
            DrawArc(arc);
        }
        break;
    }
    return True;
}

// ---- Picking -----------------------------------------------------------------------------------------------

Widget XmGraphInputOverArc(Widget w, int x, int y) {
    if (!CheckGraph(w, "XmGraphInputOverArc requires an XmGraph widget")) {
        return nullptr;
    }
    // Regions have 16 bits: a point past them would come in again on the other side.
    if (x != CutToPosition(x) || y != CutToPosition(y)) {
        return nullptr;
    }
    const auto &graph = GraphOf(w);
    for (Widget arc : Arcs(w)) {
        if (HasBothEnds(arc) && MayTouch(graph, arc, x, y) && Touches(graph, arc, x, y)) {
            return arc;
        }
    }
    return nullptr;
}

} // extern "C"
