// Button 1 in an editable graph: the machine that runs one gesture from press to release.
//
// Each press overwrites `gesture_state` without looking at it, so that a gesture left open ends at the next
// press. Motion and release choose their step by the state. There is no grab and no timer. Between two
// events any object may die, which clears the fields that name it; after each callback the graph itself may
// be gone.
//
// A plain press shows its object and the release selects it; on what is selected already the press does all.
// Where nodes and arcs are both deselected the nodes come first, but for one place: selecting an arc.

#include <corvidlmw/graph/Gestures.h>

#include <cstdint>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Highlight -----------------------------------------------------------------------------------

void Highlight(Widget object) {
    XmIsArc(object) ? _XmHighlightArc(object) : HighlightNode(object);
}

void Unhighlight(Widget object) {
    XmIsArc(object) ? _XmUnhighlightArc(object) : UnhighlightNode(object);
}

// ---- Selecting one -------------------------------------------------------------------------------

void SelectOne(Widget w, Widget object) {
    XmIsArc(object) ? SelectArc(w, object, true) : SelectNode(w, object, true);
}

void DeselectAll(Widget w) {
    const Watch watch(w);
    DeselectAllNodes(w);
    if (!watch.Died()) {
        DeselectAllArcs(w);
    }
}

void DeselectAllArcsFirst(Widget w) {
    const Watch watch(w);
    DeselectAllArcs(w);
    if (!watch.Died()) {
        DeselectAllNodes(w);
    }
}

void CollapseTo(Widget w, Widget object) {
    auto &graph = GraphOf(w);
    EnterState(w, GESTURE_RESELECT);
    graph.indicated = object;
    const LivingCopy alive(w, {object});
    DeselectAll(w);
    if (alive[0]) {
        SelectOne(w, object);
    }
}

void StartIndicating(Widget w, Widget object, XmGraphGestureState state) {
    auto &graph = GraphOf(w);
    EnterState(w, state);
    SetCursor(w, graph.indicate_cursor);
    graph.indicated = object;
}

// A window that is no widget's hides nothing here, unlike elsewhere.
Widget PickForCancel(Widget w, XEvent *event) {
    const Window subwindow = event->xmotion.subwindow;
    if (subwindow == None || XtWindowToWidget(XtDisplay(w), subwindow)) {
        return PickObject(w, event, true);
    }
    XEvent without = *event;
    without.xmotion.subwindow = None;
    return PickObject(w, &without, true);
}

XmGraphCallbackStruct GestureData(int reason, Widget object, XEvent *event) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = reason;
    call_data.event = event;
    call_data.interactive = True;
    call_data.widget = object;
    return call_data;
}

// ---- Double click --------------------------------------------------------------------------------

void HandleDoubleClick(Widget w, XEvent *event) {
    if (XtHasCallbacks(w, XmNdefaultActionCallback) != XtCallbackHasSome) {
        return;
    }
    Widget object = PickObject(w, event, true);
    GraphOf(w).indicated = nullptr;
    const int reason = !object           ? XmCR_DOUBLE_CLICK
                       : XmIsArc(object) ? XmCR_ARC_DOUBLE_CLICK
                                         : XmCR_NODE_DOUBLE_CLICK;
    XmGraphCallbackStruct call_data = GestureData(reason, object, event);
    CallWithLists(w, XmNdefaultActionCallback, call_data);
}

// The server's clock has 32 bits and wraps.
bool CompletesDoubleClick(XmGraphPart &graph, Time time) {
    const auto elapsed =
        static_cast<std::uint32_t>(time) - static_cast<std::uint32_t>(graph.last_click_time);
    const bool second = graph.last_click_time != 0 && graph.double_click_interval > 0 &&
                        elapsed < static_cast<std::uint32_t>(graph.double_click_interval);
    graph.last_click_time = second ? 0 : time;
    return second;
}

// ---- Subgraphs -----------------------------------------------------------------------------------

void ForgetSubtreeGesture(XmGraphPart &graph) {
    graph.current_node = graph.current_subtree = nullptr;
    graph.current_arc = nullptr;
    subgraph_nodes.count = 0;
}

// What is not selected would only be drawn once more.
void Withdraw(Widget w, Widget node) {
    if (IsSelected(w, node)) {
        UnselectNode(w, node, false);
    }
    CancelArcsWithSubgraph(w, NodeOf(node));
}

void WithdrawSubgraph(Widget w) {
    Withdraw(w, GraphOf(w).indicated);
    for (Widget node : SubgraphOf(w)) {
        Withdraw(w, node);
    }
}

void SelectSubgraphAloud(Widget w, Widget root, XEvent *event) {
    Vector<Widget> reached = SubgraphOf(w);
    reached.insert(reached.begin(), root);
    const LivingCopy nodes(w, std::move(reached));
    DeselectAll(w);
    // The root is among those that it reaches, so the client hears of it twice.
    for (Widget const &node : nodes) {
        if (node) {
            SelectNode(w, node, true);
        }
        if (node) {
            SelectArcsWithSubgraph(w, NodeOf(node));
        }
    }
    if (nodes[0]) {
        XmGraphCallbackStruct call_data = GestureData(XmCR_SELECT_SUBGRAPH, root, event);
        CallWithLists(w, XmNselectSubgraphCallback, call_data);
    }
}

// ---- Sweeping ------------------------------------------------------------------------------------

Segment SweptDiagonal(const XmGraphPart &graph) {
    return {{graph.start_x, graph.start_y},
            {graph.start_x + graph.offset_x, graph.start_y + graph.offset_y}};
}

// A press on the background deselects all, and sweeps if several objects may be selected.
void StartSweep(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    EnterState(w, GESTURE_NONE);
    graph.indicated = nullptr;
    const Watch watch(w);
    if (HasSelection(w)) {
        DeselectAll(w);
    }
    if (watch.Died() || !graph.allow_multiple_selections) {
        return;
    }
    SetCursor(w, graph.top_left_cursor);
    graph.gesture_state = GESTURE_SWEEP_REGION;
    graph.start_x = event->xbutton.x;
    graph.start_y = event->xbutton.y;
    graph.offset_x = graph.offset_y = 0;
    ShowFigure(w, {Figure::Kind::Box, SweptDiagonal(graph)});
}

Cursor SweepCursor(const XmGraphPart &graph) {
    if (graph.offset_x > 0) {
        return graph.offset_y > 0 ? graph.bottom_right_cursor : graph.top_right_cursor;
    }
    return graph.offset_y > 0 ? graph.bottom_left_cursor : graph.top_left_cursor;
}

bool Holds(const Rectangle &r, Point p) {
    return p.x >= r.x && p.x <= r.x + r.width && p.y >= r.y && p.y <= r.y + r.height;
}

Vector<Widget> ArcsIn(Widget w, const Rectangle &swept) {
    Vector<Widget> arcs;
    if (!GraphOf(w).selectable_arcs) {
        return arcs;
    }
    for (Widget arc : Arcs(w)) {
        const Segment ends = StoredEndsOf(arc);
        if (Holds(swept, ends.start) && Holds(swept, ends.end)) {
            arcs.push_back(arc);
        }
    }
    return arcs;
}

OwnedRegion RegionOf(const Rectangle &r) {
    const short left = CutToPosition(r.x);
    const short top = CutToPosition(r.y);
    const short right = CutToPosition(r.x + r.width);
    const short bottom = CutToPosition(r.y + r.height);
    XPoint corners[] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
    return OwnedRegion(XPolygonRegion(corners, XtNumber(corners), EvenOddRule));
}

// Managed or not, and the super-root like any other.
Vector<Widget> NodesIn(Widget w, const Rectangle &swept) {
    const OwnedRegion region = RegionOf(swept);
    Vector<Widget> nodes;
    for (Widget child : Children(w)) {
        if (NodeOf(child) && XRectInRegion(region.get(), child->core.x, child->core.y,
                                           child->core.width, child->core.height) == RectangleIn) {
            nodes.push_back(child);
        }
    }
    return nodes;
}

// Several arcs without a node are told to nobody.
void TellOfSweep(Widget w, Vector<Widget> nodes, Vector<Widget> arcs, XEvent *event) {
    if (XtHasCallbacks(w, XmNselectNodeCallback) != XtCallbackHasSome) {
        return;
    }
    const LivingCopy first_arc(w, {arcs.empty() ? nullptr : arcs.front()});
    auto tell = [&](const char *callbacks, int reason, Widget object) {
        XmGraphCallbackStruct call_data = GestureData(reason, object, event);
        CallWithLists(w, callbacks, call_data);
    };
    if (!nodes.empty() && !arcs.empty()) {
        tell(XmNselectNodeCallback, XmCR_SELECT_NODES_AND_ARCS, nodes.front());
        if (!first_arc.Died()) {
            tell(XmNselectArcCallback, XmCR_SELECT_NODES_AND_ARCS, first_arc[0]);
        }
    } else if (!nodes.empty()) {
        tell(XmNselectNodeCallback, nodes.size() > 1 ? XmCR_SELECT_NODES : XmCR_SELECT_NODE,
             nodes.front());
    } else if (arcs.size() == 1) {
        tell(XmNselectArcCallback, XmCR_SELECT_ARC, arcs.front());
    }
}

} // namespace

namespace corvidlmw::graph {

// ---- Selecting one -------------------------------------------------------------------------------

void Indicate(Widget w, XEvent *event, String *, Cardinal *) {
    const auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    const DamageRepair repair(w);
    Widget object = PickObject(w, event, true);
    if (!object) {
        return StartSweep(w, event);
    }
    if (XmIsArc(object) && !graph.selectable_arcs) {
        return;
    }
    if (IsSelected(w, object)) {
        return CollapseTo(w, object);
    }
    StartIndicating(w, object, XmIsArc(object) ? GESTURE_ARC_INDICATED : GESTURE_NODE_INDICATED);
    Highlight(object);
}

void Cancel(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    Widget indicated = graph.indicated;
    if (!graph.editable || !indicated) {
        return;
    }
    const bool shown = graph.gesture_state == GESTURE_NODE_INDICATED ||
                       graph.gesture_state == GESTURE_ARC_INDICATED;
    const bool over = PickForCancel(w, event) == indicated;
    if (over == shown) {
        return;
    }
    if (over) {
        Highlight(indicated);
        graph.gesture_state = XmIsArc(indicated) ? GESTURE_ARC_INDICATED : GESTURE_NODE_INDICATED;
    } else {
        Unhighlight(indicated);
        graph.gesture_state = XmIsArc(indicated) ? GESTURE_ARC_CANCELLED : GESTURE_NODE_CANCELLED;
    }
}

// Who was indicated, is under the pointer at the release too, and was not selected at the press.
void Select(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    const int state = std::exchange(graph.gesture_state, GESTURE_NONE);
    if (CompletesDoubleClick(graph, event->xbutton.time)) {
        return HandleDoubleClick(w, event);
    }
    Widget object = graph.indicated ? PickObject(w, event, true) : nullptr;
    if (!object || object != graph.indicated) {
        return;
    }
    const bool arc = XmIsArc(object);
    if (state != (arc ? GESTURE_ARC_INDICATED : GESTURE_NODE_INDICATED)) {
        return;
    }
    const LivingCopy alive(w, {object});
    if (HasSelection(w)) {
        arc ? DeselectAllArcsFirst(w) : DeselectAll(w);
    }
    if (alive[0]) {
        SelectOne(w, object);
    }
    if (!alive.Died()) {
        graph.indicated = nullptr;
    }
}

// ---- Adding to the selection ---------------------------------------------------------------------

void AddIndicate(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    if (!graph.editable || !graph.allow_multiple_selections) {
        return;
    }
    const DamageRepair repair(w);
    Widget object = PickObject(w, event, true);
    if (!object) {
        return;
    }
    if (XmIsArc(object)) {
        if (graph.selectable_arcs) {
            StartIndicating(w, object, GESTURE_ADD_ARC_INDICATED);
            Highlight(object);
        }
    } else if (IsSelected(w, object)) {
        // Only the double click is left for the release to count.
        EnterState(w, GESTURE_RESELECT);
        graph.indicated = nullptr;
    } else {
        StartIndicating(w, object, GESTURE_ADD_NODE_INDICATED);
        Highlight(object);
    }
}

void CancelAdd(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    Widget indicated = graph.indicated;
    if (!graph.editable || !indicated) {
        return;
    }
    const bool shown = graph.gesture_state == GESTURE_ADD_NODE_INDICATED ||
                       graph.gesture_state == GESTURE_ADD_ARC_INDICATED;
    const bool over = PickObject(w, event, true) == indicated;
    if (over && !shown) {
        Highlight(indicated);
    } else if (!over && shown) {
        Unhighlight(indicated);
    }
    if (XmIsArc(indicated)) {
        graph.gesture_state = over ? GESTURE_ADD_ARC_INDICATED : GESTURE_ADD_ARC_CANCELLED;
    } else {
        graph.gesture_state = over ? GESTURE_ADD_NODE_INDICATED : GESTURE_ADD_NODE_CANCELLED;
    }
}

// A release over nothing leaves all as it was.
void AddSelect(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable || !graph.indicated) {
        return;
    }
    Widget object = PickObject(w, event, true);
    if (!object) {
        return;
    }
    const Watch watch(w);
    if (object == graph.indicated) {
        graph.gesture_state =
            XmIsArc(object) ? GESTURE_ADD_ARC_SELECTED : GESTURE_ADD_NODE_SELECTED;
        SelectOne(w, object);
    }
    if (!watch.Died()) {
        graph.indicated = nullptr;
    }
}

// ---- Subgraphs -----------------------------------------------------------------------------------

// Nothing shows before the first motion.
void IndicateSubtree(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    ForgetSubtreeGesture(graph);
    if (!graph.editable || !graph.allow_multiple_selections) {
        return;
    }
    Widget node = PickObject(w, event, false);
    if (!node) {
        return;
    }
    StartIndicating(w, node, GESTURE_SUBTREE_INDICATED);
    graph.current_subtree = NodeOf(node);
    XmGraphNodeList path{};
    GetSubgraphNodeList(w, path, NodeOf(node));
    _XmGraphNodeListFree(&path);
}

// Over the background the state stays, and over the root all is selected anew at each motion.
void CancelSubtree(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable || !graph.indicated) {
        return;
    }
    Widget object = PickObject(w, event, false);
    if (!object) {
        if (graph.gesture_state == GESTURE_SUBTREE_INDICATED) {
            WithdrawSubgraph(w);
        }
    } else if (object == graph.indicated || !graph.current_subtree) {
        graph.gesture_state = GESTURE_SUBTREE_INDICATED;
        SelectSubgraph(w, graph.indicated);
    } else {
        graph.gesture_state = GESTURE_SUBTREE_CANCELLED;
        WithdrawSubgraph(w);
    }
}

void SelectSubtree(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    const Watch watch(w);
    Widget object = PickObject(w, event, false);
    if (object && object == graph.indicated) {
        SelectSubgraphAloud(w, object, event);
    }
    if (watch.Died()) {
        return;
    }
    ForgetSubtreeGesture(graph);
    graph.indicated = nullptr;
    graph.gesture_state = GESTURE_NONE;
}

// ---- Sweeping ------------------------------------------------------------------------------------

// The cursor follows the motion before this one.
void SweepOutRegion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable || !graph.allow_multiple_selections) {
        return;
    }
    SetCursor(w, SweepCursor(graph));
    graph.offset_x = event->xmotion.x - graph.start_x;
    graph.offset_y = event->xmotion.y - graph.start_y;
    ShowFigure(w, {Figure::Kind::Box, SweptDiagonal(graph)});
}

void SelectRegion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable || !graph.allow_multiple_selections) {
        return;
    }
    graph.gesture_state = GESTURE_NONE;
    graph.indicated = nullptr;
    const Rectangle swept = Normalised({{graph.start_x, graph.start_y}, PointerIn(event)});
    graph.start_x = swept.x;
    graph.start_y = swept.y;
    graph.offset_x = swept.width;
    graph.offset_y = swept.height;
    Vector<Widget> arcs = ArcsIn(w, swept);
    for (Widget arc : arcs) {
        SelectArc(w, arc, false);
    }
    Vector<Widget> nodes = NodesIn(w, swept);
    for (Widget node : nodes) {
        SelectNode(w, node, false);
    }
    TellOfSweep(w, std::move(nodes), std::move(arcs), event);
}

// ---- Dispatch ------------------------------------------------------------------------------------

// Held for gestures of others to bind.
void FastButtonAction(Widget, XEvent *, String *, Cardinal *) {}

void HandleMotion(Widget w, XEvent *event, String *, Cardinal *) {
    switch (GraphOf(w).gesture_state) {
    case GESTURE_NODE_INDICATED:
    case GESTURE_NODE_CANCELLED:
    case GESTURE_ARC_INDICATED:
    case GESTURE_ARC_CANCELLED: return RepairAfter(Cancel, w, event);
    case GESTURE_ADD_NODE_INDICATED:
    case GESTURE_ADD_NODE_CANCELLED:
    case GESTURE_ADD_ARC_INDICATED:
    case GESTURE_ADD_ARC_CANCELLED: return RepairAfter(CancelAdd, w, event);
    case GESTURE_MOVE_NODE:
    case GESTURE_MOVE_ARC:
    case GESTURE_MOVE_SELECTION: return Motion(w, event);
    case GESTURE_SUBTREE_INDICATED:
    case GESTURE_SUBTREE_CANCELLED: return RepairAfter(CancelSubtree, w, event);
    case GESTURE_PLACE_NODE:
    case GESTURE_DRAW_ARC:
    case GESTURE_DRAW_ARC_IN_SOURCE: return PositionNewNode(w, event);
    case GESTURE_SWEEP_REGION: return SweepOutRegion(w, event);
    default: return;
    }
}

// The state of a line that has not left its source stands, but the line goes.
void EndButtonAction(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    SetCursor(w, graph.ptr_cursor);
    HideFigure(w);
    switch (graph.gesture_state) {
    case GESTURE_NODE_INDICATED:
    case GESTURE_ARC_INDICATED:
    case GESTURE_RESELECT: return RepairAfter(Select, w, event);
    case GESTURE_ADD_NODE_INDICATED:
    case GESTURE_ADD_ARC_INDICATED: return RepairAfter(AddSelect, w, event);
    case GESTURE_NODE_CANCELLED:
    case GESTURE_ARC_CANCELLED:
    case GESTURE_ADD_NODE_CANCELLED:
    case GESTURE_ADD_ARC_CANCELLED:
    case GESTURE_NODE_SELECTED:
    case GESTURE_ADD_NODE_SELECTED:
    case GESTURE_ARC_SELECTED:
    case GESTURE_ADD_ARC_SELECTED:
    case GESTURE_SUBTREE_CANCELLED: graph.gesture_state = GESTURE_NONE; return;
    case GESTURE_MOVE_NODE:
    case GESTURE_MOVE_ARC:
    case GESTURE_MOVE_SELECTION: return EndMotion(w, event);
    case GESTURE_SUBTREE_INDICATED: return RepairAfter(SelectSubtree, w, event);
    case GESTURE_PLACE_NODE:
    case GESTURE_DRAW_ARC: return EndAddNode(w, event);
    case GESTURE_SWEEP_REGION: return RepairAfter(SelectRegion, w, event);
    default: return;
    }
}

} // namespace corvidlmw::graph
