// New nodes and arcs, by gesture and by function. The client hears of each before it shows and may
// refuse it.
//
// While something is added XmNautoLayoutMode is another, so that managing it lays out only what the
// resource asks for. The order in which the client is told differs: a gesture tells XmNgraphChangedCallback
// of a node before it is managed, of an arc after; XmGraphAddNode tells of a node after.
//
// Managing tells the client too, who may destroy what was added. The toolkit's own call would go on with it
// then, outside of a dispatch; the graph's does not.

#include <corvidlmw/graph/GraphI.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- The mode meanwhile --------------------------------------------------------------------------

int ModeWhileAddingNode(int mode) {
    switch (mode) {
    case XmARCS_ONLY:
    case XmPARTIAL: return XmNEVER;
    case XmNODES_ONLY: return XmALWAYS;
    default: return mode;
    }
}

int ModeWhileAddingArc(int mode) {
    switch (mode) {
    case XmARCS_ONLY: return XmALWAYS;
    case XmNODES_ONLY:
    case XmPARTIAL: return XmNEVER;
    default: return mode;
    }
}

// ---- Asking the client ---------------------------------------------------------------------------

XmGraphCallbackStruct Proposal(int reason, Widget object, XEvent *event) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = reason;
    call_data.event = event;
    call_data.interactive = True;
    call_data.widget = object;
    call_data.doit = True;
    return call_data;
}

// True if the object may stay. One that the client destroyed, or that lost its nodes, may not.
bool Accepts(Widget w, const LivingCopy &object, const char *callbacks,
             XmGraphCallbackStruct &call_data) {
    CallWithLists(w, callbacks, call_data);
    return call_data.doit && object[0] && !IsBeingDestroyed(object[0]);
}

void Refuse(const LivingCopy &object) {
    if (object[0] && !IsBeingDestroyed(object[0])) {
        XtDestroyWidget(object[0]);
    }
}

void Restore(Widget w, const Watch &watch, int mode) {
    if (!watch.Died()) {
        GraphOf(w).auto_layout_mode = mode;
    }
}

// ---- Nodes ---------------------------------------------------------------------------------------

Widget CreateNode(Widget w, Point place) {
    Widget node = XtCreateWidget(Name("Node"), GraphOf(w).default_node_class, w, nullptr, 0);
    if (!XtIsRectObj(node)) {
        XtDestroyWidget(node);
        return nullptr;
    }
    _XmMoveObject(node, CutToPosition(place.x), CutToPosition(place.y));
    nn_width = node->core.width;
    nn_height = node->core.height;
    return node;
}

Point MiddleOfView(Widget w) {
    const auto &graph = GraphOf(w);
    const int half_width = nn_width / 2;
    const int half_height = nn_height / 2;
    if (graph.in_scrolled_window) {
        return {graph.clip_width / 2 - w->core.x - half_width,
                graph.clip_height / 2 - w->core.y - half_height};
    }
    return {w->core.width / 2 - half_width, w->core.height / 2 - half_height};
}

// ---- Arcs ----------------------------------------------------------------------------------------

Widget CreateArc(Widget w, NodePtr source, NodePtr target) {
    Arg arg;
    XtSetArg(arg, Name(XmNarcDirection), GraphOf(w).interactive_arc_direction);
    Widget arc = CreateArcInternal(w, Name("arc"), source, target, &arg, 1);
    _XmGraphNodeListInsertNoDuplicates(w, &source->children, target);
    _XmGraphNodeListInsertNoDuplicates(w, &source->tree_children, target);
    _XmGraphNodeListInsertNoDuplicates(w, &target->parents, source);
    return arc;
}

} // namespace

namespace corvidlmw::graph {

void AddNode(Widget w, Point place, XEvent *event) {
    auto &graph = GraphOf(w);
    const int saved = graph.auto_layout_mode;
    graph.auto_layout_mode = ModeWhileAddingNode(saved);
    Widget node = CreateNode(w, place);
    if (!node) {
        graph.auto_layout_mode = saved;
        return;
    }
    const LivingCopy alive(w, {node});
    XmGraphCallbackStruct call_data = Proposal(XmCR_NEW_NODE, node, event);
    if (!Accepts(w, alive, XmNnewNodeCallback, call_data)) {
        Refuse(alive);
        return Restore(w, alive, saved);
    }
    if (event) {
        CallGraphChanged(w, XmCR_NEW_NODE, node, true);
    }
    if (alive[0]) {
        XmGraphManageChild(node);
    }
    if (!event && alive[0]) {
        CallGraphChanged(w, XmCR_NEW_NODE, node, true);
    }
    Restore(w, alive, saved);
}

// Dropped on the background the arc is none: the changed mode stays, and so does `current_node`.
void AddArc(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    const int saved = graph.auto_layout_mode;
    if (!graph.current_node) {
        return;
    }
    graph.auto_layout_mode = ModeWhileAddingArc(saved);
    Widget target = PickObject(w, event, false);
    if (!target) {
        return;
    }
    Widget source = std::exchange(graph.current_node, nullptr)->widget;
    Widget arc = CreateArc(w, NodeOf(source), NodeOf(target));
    const LivingCopy alive(w, {arc, source});
    XmGraphCallbackStruct call_data = Proposal(XmCR_NEW_ARC, arc, event);
    call_data.new_from = source;
    call_data.new_to = target;
    if (!Accepts(w, alive, XmNnewArcCallback, call_data)) {
        Refuse(alive);
        return Restore(w, alive, saved);
    }
    XmGraphManageChild(arc);
    Restore(w, alive, saved);
    if (saved == XmPARTIAL && alive[1]) {
        XmGraphRelaySubgraph(w, source);
    }
    if (alive[0]) {
        CallGraphChanged(w, XmCR_NEW_ARC, arc, true);
    }
}

} // namespace corvidlmw::graph

extern "C" void XmGraphAddNode(Widget w) {
    if (w && XmIsGraph(w)) {
        AddNode(w, MiddleOfView(w), nullptr);
    }
}
