// Button 2 in an editable graph: nodes and arc ends that follow the pointer, new nodes and new arcs.
//
// A dragged node trails the pointer by one motion, and the release puts it where the last motion was; all
// selected nodes together do neither. A state that stands after a release means nothing to the next press.

#include <corvidlmw/graph/Gestures.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Shared --------------------------------------------------------------------------------------

// After a drag, in which arcs were erased together with what they crossed. All is cleared first, since
// antialiased text would get bolder where it stands already.
void RedrawArcs(Widget w) {
    if (HasWindow(w)) {
        RepaintBoxes(w, {VisibleRectangle(w)});
    }
}

Segment RubberLine(const XmGraphPart &graph) {
    return {{graph.start_x, graph.start_y}, {graph.end_x, graph.end_y}};
}

Segment NewNodeOutline(const XmGraphPart &graph) {
    return {{graph.start_x, graph.start_y}, {graph.start_x + nn_width, graph.start_y + nn_height}};
}

void SetStart(XmGraphPart &graph, Point p) {
    graph.start_x = p.x;
    graph.start_y = p.y;
}

void SetEnd(XmGraphPart &graph, Point p) {
    graph.end_x = p.x;
    graph.end_y = p.y;
}

void SetOffset(XmGraphPart &graph, Point p) {
    graph.offset_x = p.x;
    graph.offset_y = p.y;
}

// The overview shows it at the end of the drag, which is told.
void MoveTo(Widget w, Widget node, int x, int y) {
    MoveNode(w, node, CutToPosition(x), CutToPosition(y));
}

XmGraphCallbackStruct MoveData(int reason, Widget object, XEvent *event) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = reason;
    call_data.event = event;
    call_data.interactive = True;
    call_data.widget = object;
    return call_data;
}

// Where a drag leaves a state that selects on the next release, nothing may be there to select.
void LeaveDrag(XmGraphPart &graph, XmGraphGestureState state) {
    graph.gesture_state = state;
    graph.indicated = nullptr;
}

// ---- Starting a drag -----------------------------------------------------------------------------

long long SquaredDistance(Point a, Point b) {
    const long long dx = a.x - b.x;
    const long long dy = a.y - b.y;
    return dx * dx + dy * dy;
}

// The end nearer to the pointer follows it; of equal ones the one at the parent.
void StartMovingArc(Widget w, Widget arc, Point pointer) {
    auto &graph = GraphOf(w);
    const Segment ends = StoredEndsOf(arc);
    EnterState(w, GESTURE_MOVE_ARC);
    if (SquaredDistance(pointer, ends.start) > SquaredDistance(pointer, ends.end)) {
        SetStart(graph, ends.start);
        SetCursor(w, graph.indicate_child_cursor);
    } else {
        SetStart(graph, ends.end);
        SetCursor(w, graph.indicate_parent_cursor);
    }
    SetEnd(graph, pointer);
    ShowFigure(w, {Figure::Kind::Line, RubberLine(graph)});
    graph.current_arc = arc;
}

void StartMovingSelection(Widget w, Point pointer) {
    auto &graph = GraphOf(w);
    EnterState(w, GESTURE_MOVE_SELECTION);
    SetCursor(w, graph.motion_cursor);
    graph.current_node = graph.current_subtree = nullptr;
    graph.current_arc = nullptr;
    SetStart(graph, pointer);
    SetOffset(graph, {0, 0});
    for (NodePtr node : Nodes(graph.selected_nodes)) {
        auto &constraint = ConstraintOf(node->widget);
        constraint.old_x = node->widget->core.x;
        constraint.old_y = node->widget->core.y;
        constraint.delta_x = pointer.x - constraint.old_x;
        constraint.delta_y = pointer.y - constraint.old_y;
    }
}

void StartMovingNode(Widget w, Widget node, Point pointer) {
    auto &graph = GraphOf(w);
    EnterState(w, GESTURE_MOVE_NODE);
    const Point place = {node->core.x, node->core.y};
    SetOffset(graph, {pointer.x - place.x, pointer.y - place.y});
    SetStart(graph, place);
    graph.current_node = NodeOf(node);
    SetCursor(w, graph.motion_cursor);
}

// ---- Dragging nodes ------------------------------------------------------------------------------

void MoveSelection(Widget w, Point pointer) {
    for (Widget node : WidgetsOf(Nodes(GraphOf(w).selected_nodes))) {
        const auto &constraint = ConstraintOf(node);
        MoveTo(w, node, pointer.x - constraint.delta_x, pointer.y - constraint.delta_y);
    }
}

void EndMultipleMotion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    const Watch watch(w);
    MoveSelection(w, PointerIn(event));
    graph.current_node = nullptr;
    LeaveDrag(graph, GESTURE_NODE_INDICATED);
    _XmGraphAdjustSize(w);
    if (watch.Died()) {
        return;
    }
    const auto selected = Nodes(graph.selected_nodes);
    XmGraphCallbackStruct call_data =
        MoveData(XmCR_NODES_MOVED, selected.empty() ? nullptr : selected.front()->widget, event);
    CallWithLists(w, XmNnodeMovedCallback, call_data);
    if (!watch.Died()) {
        RedrawArcs(w);
        CallGraphChanged(w, XmCR_NODES_MOVED, nullptr, true);
    }
}

void EndNodeMotion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    Widget node = graph.current_node->widget;
    const LivingCopy alive(w, {node});
    MoveTo(w, node, graph.start_x, graph.start_y);
    _XmGraphAdjustSize(w);
    if (alive.Died()) {
        return;
    }
    // Before the redrawing: in a drag that would look for moved nodes among the dragged ones only.
    graph.current_node = nullptr;
    LeaveDrag(graph, GESTURE_NODE_INDICATED);
    RedrawArcs(w);
    // A client that destroyed the node hears no more of it.
    if (alive[0]) {
        XmGraphCallbackStruct call_data = MoveData(XmCR_NODE_MOVED, node, event);
        CallWithLists(w, XmNnodeMovedCallback, call_data);
    }
    if (alive[0]) {
        CallGraphChanged(w, XmCR_NODE_MOVED, node, true);
    }
}

// ---- Dragging an arc's end -----------------------------------------------------------------------

struct Ends {
    Widget from, to;
    friend bool operator==(const Ends &, const Ends &) = default;
};

Ends DroppedEnds(const XmGraphPart &graph, Widget arc, Widget picked) {
    const Point fixed = {graph.start_x, graph.start_y};
    if (fixed == StoredEndsOf(arc).end) {
        return {picked, ArcOf(arc).to};
    }
    return {ArcOf(arc).from, picked};
}

// True if the client lets it move and all that takes part lives.
bool MayMove(Widget w, const LivingCopy &alive, const Ends &old_ends, const Ends &new_ends,
             XEvent *event) {
    XmGraphCallbackStruct call_data = MoveData(XmCR_ARC_MOVED, alive[0], event);
    call_data.old_from = old_ends.from;
    call_data.old_to = old_ends.to;
    call_data.new_from = new_ends.from;
    call_data.new_to = new_ends.to;
    call_data.doit = True;
    CallWithLists(w, XmNarcMovedCallback, call_data);
    return call_data.doit && alive[0];
}

// The client is told before the arc has moved.
void EndArcMotion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    Widget picked = PickObject(w, event, false);
    Widget arc = std::exchange(graph.current_arc, nullptr);
    if (!picked || !HasBothEnds(arc)) {
        return;
    }
    const Ends old_ends = {ArcOf(arc).from, ArcOf(arc).to};
    const Ends new_ends = DroppedEnds(graph, arc, picked);
    if (new_ends == old_ends) {
        return;
    }
    const LivingCopy alive(w, {arc, new_ends.from, new_ends.to});
    if (!MayMove(w, alive, old_ends, new_ends, event)) {
        return;
    }
    CallGraphChanged(w, XmCR_ARC_MOVED, arc, true);
    if (alive[0] && alive[1] && alive[2]) {
        XmGraphMoveArc(w, arc, new_ends.from, new_ends.to);
    }
    if (!alive.Died()) {
        RedrawArcs(w);
        LeaveDrag(graph, GESTURE_ARC_INDICATED);
    }
}

} // namespace

namespace corvidlmw::graph {

// ---- Moving --------------------------------------------------------------------------------------

void SelectForMotion(Widget w, XEvent *event, String *, Cardinal *) {
    const auto &graph = GraphOf(w);
    if (!graph.editable || (event->xbutton.subwindow != None && !graph.movable_nodes)) {
        return;
    }
    Widget object = PickObject(w, event, true);
    if (!object) {
        return;
    }
    const Point pointer = PointerIn(event);
    if (XmIsArc(object)) {
        if (graph.editable_arcs) {
            StartMovingArc(w, object, pointer);
        }
    } else if (graph.movable_nodes) {
        if (graph.selected_nodes.count > 1 && IsSelected(w, object)) {
            StartMovingSelection(w, pointer);
        } else {
            StartMovingNode(w, object, pointer);
        }
    }
}

// A node from an earlier gesture that was left open comes before the arc.
void Motion(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    const Point pointer = PointerIn(event);
    const Point next = {pointer.x - graph.offset_x, pointer.y - graph.offset_y};
    if (graph.gesture_state == GESTURE_MOVE_SELECTION) {
        MoveSelection(w, pointer);
        SetStart(graph, next);
    } else if (graph.current_node) {
        MoveTo(w, graph.current_node->widget, graph.start_x, graph.start_y);
        SetStart(graph, next);
    } else if (graph.current_arc) {
        SetEnd(graph, pointer);
        ShowFigure(w, {Figure::Kind::Line, RubberLine(graph)});
    }
}

void EndMotion(Widget w, XEvent *event) {
    const auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    if (graph.gesture_state == GESTURE_MOVE_SELECTION) {
        EndMultipleMotion(w, event);
    } else if (graph.current_node) {
        EndNodeMotion(w, event);
    } else if (graph.current_arc) {
        EndArcMotion(w, event);
    }
}

// ---- Adding --------------------------------------------------------------------------------------

// An arc under the pointer counts for nothing: a node may be placed on it.
void StartAddNode(Widget w, XEvent *event, String *, Cardinal *) {
    auto &graph = GraphOf(w);
    if (!graph.ok_to_add || !graph.editable) {
        return;
    }
    Widget source = PickObject(w, event, false);
    if (!source) {
        EnterState(w, GESTURE_PLACE_NODE);
        SetCursor(w, graph.motion_cursor);
        SetStart(graph, PointerIn(event));
        ShowFigure(w, {Figure::Kind::Box, NewNodeOutline(graph)});
    } else if (graph.editable_arcs) {
        EnterState(w, GESTURE_DRAW_ARC_IN_SOURCE);
        SetCursor(w, graph.indicate_parent_cursor);
        graph.current_node = NodeOf(source);
        const Rectangle r = RectangleOf(source);
        SetStart(graph, {r.x + r.width / 2, r.y + r.height / 2});
        SetEnd(graph, {graph.start_x, graph.start_y});
        ShowFigure(w, {Figure::Kind::Line, RubberLine(graph)});
    }
}

// The line must have crossed the background before it counts.
void PositionNewNode(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    if (graph.gesture_state == GESTURE_PLACE_NODE) {
        SetStart(graph, PointerIn(event));
        ShowFigure(w, {Figure::Kind::Box, NewNodeOutline(graph)});
        return;
    }
    if (graph.gesture_state == GESTURE_DRAW_ARC_IN_SOURCE && !PickObject(w, event, false)) {
        SetCursor(w, graph.indicate_child_cursor);
        graph.gesture_state = GESTURE_DRAW_ARC;
    }
    SetEnd(graph, PointerIn(event));
    ShowFigure(w, {Figure::Kind::Line, RubberLine(graph)});
}

void EndAddNode(Widget w, XEvent *event) {
    auto &graph = GraphOf(w);
    if (!graph.editable) {
        return;
    }
    if (std::exchange(graph.gesture_state, GESTURE_NONE) == GESTURE_PLACE_NODE) {
        AddNode(w, PointerIn(event), event);
    } else {
        SetEnd(graph, PointerIn(event));
        AddArc(w, event);
    }
}

} // namespace corvidlmw::graph
