// Roots, nodes and arcs as sets, and changes to the graph by function.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>
#include <cassert>
#include <cstdlib>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Destroying ----------------------------------------------------------------------------------

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
Vector<TakenArc> TakeArcs(Widget w) {
    ForgetArcIndex(w);
    auto &graph = GraphOf(w);
    Vector<TakenArc> taken;
    taken.reserve(Arcs(w).size());
    for (Widget arc : Arcs(w)) {
        taken.push_back({SerialOf(arc), arc});
    }
    XtFree(reinterpret_cast<char *>(graph.arcs));
    graph.arcs = nullptr;
    graph.num_arcs = graph.arcs_size = 0;
    return taken;
}

Vector<Widget> ArcsBetween(Widget w, Widget from_widget, Widget to_widget) {
    NodePtr from = NodeIn(w, from_widget);
    if (!from || !NodeIn(w, to_widget)) {
        return {};
    }
    Vector<Widget> arcs = Copy(Widgets(from->from_arcs));
    std::erase_if(arcs, [&](Widget arc) { return ArcOf(arc).to != to_widget; });
    return arcs;
}

// ---- Moving arcs -----------------------------------------------------------------------------------

void EraseArcs(const XmGraphNodeList &arcs) {
    for (Widget arc : Widgets(arcs)) {
        _EraseArc(arc);
    }
}

// A loop stands in both lists, and painted twice its antialiased label would be bolder.
void DrawArcsOf(NodePtr node) {
    for (Widget arc : Widgets(node->from_arcs)) {
        DrawArc(arc);
    }
    for (Widget arc : Widgets(node->to_arcs)) {
        if (ArcOf(arc).from != ArcOf(arc).to) {
            DrawArc(arc);
        }
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
    ForgetArcIndex(graph);
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

// ---- Managing ------------------------------------------------------------------------------------

bool IsInGraph(Widget w, Widget object) {
    return object && XtParent(object) == w && XtIsRectObj(object) && !IsBeingDestroyed(object);
}

// What the toolkit does once its flag is set and the parent knows.
void ShowOrHide(Widget object, bool managed) {
    if (!XtIsWidget(object) || XmIsArc(object)) {
        return;
    }
    if (managed && !XtIsRealized(object)) {
        XtRealizeWidget(object);
    }
    if (object->core.mapped_when_managed && XtIsRealized(object)) {
        managed ? XtMapWidget(object) : XtUnmapWidget(object);
    }
}

// One call of the class's method for all, where the toolkit would make one for each batch of a client.
void SetManaged(Widget w, std::span<Widget> objects, bool managed) {
    Vector<Widget> changed;
    for (Widget object : objects) {
        if (IsInGraph(w, object)) {
            if (XtIsManaged(object) != managed) {
                changed.push_back(object);
            }
            object->core.managed = managed ? True : False;
        }
    }
    if (IsBeingDestroyed(w)) {
        return;
    }
    const LivingCopy alive(w, std::move(changed));
    reinterpret_cast<CompositeWidgetClass>(XtClass(w))->composite_class.change_managed(w);
    if (alive.Died()) {
        return;
    }
    // The toolkit would lift it after its own call.
    UnveilArcs(w);
    for (Widget object : alive) {
        if (object && XtIsRealized(w)) {
            ShowOrHide(object, managed);
        }
    }
}

Vector<Widget> AllObjects(Widget w, bool with_arcs) {
    Vector<Widget> objects = Copy(Children(w));
    if (!objects.empty()) {
        objects.erase(objects.begin());
    }
    if (with_arcs) {
        objects.insert(objects.end(), Arcs(w).begin(), Arcs(w).end());
    }
    return objects;
}

void DestroyLiving(const LivingCopy &objects) {
    for (Widget object : objects) {
        if (object && !IsBeingDestroyed(object)) {
            assert(XtIsObject(object));
            XtDestroyWidget(object);
        }
    }
}

} // namespace

namespace corvidlmw::graph {

void DestroyAllArcs(Widget w) {
    Watch watch(w);
    Vector<Widget> arcs = Copy(Arcs(w));
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

void MoveNode(Widget w, Widget widget, Position x, Position y) {
    if (IsBeingDestroyed(widget)) {
        return;
    }
    const FigureLift lift(w);
    NodePtr node = NodeOf(widget);
    const bool managed = XtIsManaged(widget);
    if (managed) {
        EraseArcs(node->from_arcs);
        EraseArcs(node->to_arcs);
    }
    _XmMoveObject(widget, x, y);
    NoteDragged(w, widget);
    if (managed) {
        const RankWalk walk(w);
        DrawArcsOf(node);
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

void XmGraphNumNodeArcs(Widget w, Widget node_widget, int *num_from, int *num_to) {
    if (!CheckGraph(w, " XmGraphNumNodeArcs requires an XmGraph widget")) {
        return;
    }
    if (NodePtr node = NodeIn(w, node_widget)) {
        *num_from = node->from_arcs.count;
        *num_to = node->to_arcs.count;
    }
}

void XmGraphGetNodeArcs(Widget w, Widget node_widget, WidgetList *from, WidgetList *to,
                        int *num_from, int *num_to) {
    *from = *to = nullptr;
    *num_from = *num_to = 0;
    if (!CheckGraph(w, " XmGraphGetNodeArcs requires an XmGraph widget")) {
        return;
    }
    if (NodePtr node = NodeIn(w, node_widget)) {
        *from = reinterpret_cast<WidgetList>(node->from_arcs.items);
        *to = reinterpret_cast<WidgetList>(node->to_arcs.items);
        *num_from = node->from_arcs.count;
        *num_to = node->to_arcs.count;
    }
}

void XmGraphGetArcNodes(Widget, Widget arc, Widget *from, Widget *to) {
    const bool attached = arc && XmIsArc(arc);
    *from = attached ? ArcOf(arc).from : nullptr;
    *to = attached ? ArcOf(arc).to : nullptr;
}

WidgetList XmGraphGetArcsBetweenNodes(Widget w, Widget from, Widget to, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    const Vector<Widget> arcs = w && XmIsGraph(w) ? ArcsBetween(w, from, to) : Vector<Widget>();
    *count = static_cast<int>(arcs.size());
    if (arcs.empty()) {
        return nullptr;
    }
    auto list =
        reinterpret_cast<WidgetList>(XtMalloc(static_cast<Cardinal>(arcs.size() * sizeof(Widget))));
    std::copy(arcs.begin(), arcs.end(), list);
    return list;
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
    Vector<Widget> nodes = Copy(Children(w).subspan(1));
    XtUnmanageChildren(nodes.data(), static_cast<Cardinal>(nodes.size()));
    if (!watch.Died()) {
        DestroyNodes(w, 1);
    }
}

// ---- Changes ---------------------------------------------------------------------------------------------

// A node that is being destroyed stays where it is, and that is told as done.
Boolean XmGraphMoveNode(Widget w, Widget node, Position x, Position y) {
    if (!CheckGraph(w, "XmGraphMoveNode requires an XmGraph widget")) {
        return False;
    }
    if (!node || XtParent(node) != w || !XtIsRectObj(node) || !NodeOf(node)) {
        return False;
    }
    MoveNode(w, node, x, y);
    RefreshOverview(w);
    return True;
}

// A gadget is told of its place alone, so that nothing is cleared.
Boolean XmGraphMoveNodeQuietly(Widget w, Widget node, Position x, Position y) {
    if (!w || !XmIsGraph(w) || !node || XtParent(node) != w || !XtIsRectObj(node) ||
        !NodeOf(node)) {
        return True;
    }
    NoteDragged(w, node);
    x = std::max<Position>(x, 0);
    y = std::max<Position>(y, 0);
    const FigureLift lift(w);
    RefreshOverview(w);
    if (XtIsWidget(node)) {
        XtMoveWidget(node, x, y);
        return True;
    }
    node->core.x = x;
    node->core.y = y;
    if (XtWidgetProc resize = XtClass(node)->core_class.resize) {
        resize(node);
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
    const Watch watch(w);
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
    if (!watch.Died()) {
        RefreshOverview(w);
    }
    return True;
}

void XmGraphRemoveArcBetweenNodes(Widget w, Widget from, Widget to) {
    if (CheckGraph(w, "XmGraphRemoveArcBetweenNodes requires an XmGraph widget")) {
        DestroyLiving(LivingCopy(w, ArcsBetween(w, from, to)));
    }
}

// The super-root stays, though a sweep may have taken it along. The arcs of the nodes go with them.
void XmGraphDestroySelectedArcsOrNodes(Widget w) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    const auto &graph = GraphOf(w);
    Vector<Widget> objects = WidgetsOf(Nodes(graph.selected_nodes));
    std::erase_if(objects, [&](Widget node) { return graph.root && node == graph.root->widget; });
    objects.insert(objects.end(), Widgets(graph.selected_arcs).begin(),
                   Widgets(graph.selected_arcs).end());
    DestroyLiving(LivingCopy(w, std::move(objects)));
}

// ---- Managing ------------------------------------------------------------------------------------------------

void XmGraphManageChild(Widget child) {
    XmGraphManageChildren(&child, child ? 1 : 0);
}

void XmGraphManageChildren(WidgetList children, int count) {
    Widget w = children && count > 0 && children[0] ? XtParent(children[0]) : nullptr;
    if (w && XmIsGraph(w)) {
        SetManaged(w, {children, static_cast<std::size_t>(count)}, true);
    }
}

void XmGraphManageAll(Widget w) {
    if (w && XmIsGraph(w)) {
        Vector<Widget> objects = AllObjects(w, true);
        SetManaged(w, objects, true);
    }
}

void XmGraphUnmanageAll(Widget w) {
    if (w && XmIsGraph(w)) {
        Vector<Widget> objects = AllObjects(w, GraphOf(w).num_arcs > 1);
        SetManaged(w, objects, false);
    }
}

} // extern "C"
