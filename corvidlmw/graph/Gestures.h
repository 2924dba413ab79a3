// What the sources of the pointer machine share: the actions, and the steps that the dispatchers choose from
// by `gesture_state`.
#pragma once

#include <corvidlmw/graph/GraphI.h>

namespace corvidlmw::graph {

// ---- Actions -------------------------------------------------------------------------------------

void Indicate(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void AddIndicate(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void IndicateSubtree(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void FastButtonAction(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void SelectForMotion(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void StartAddNode(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void HandleMotion(Widget graph, XEvent *event, String *params, Cardinal *num_params);
void EndButtonAction(Widget graph, XEvent *event, String *params, Cardinal *num_params);

// ---- Steps ---------------------------------------------------------------------------------------

void Cancel(Widget graph, XEvent *event);
void CancelAdd(Widget graph, XEvent *event);
void CancelSubtree(Widget graph, XEvent *event);
void Select(Widget graph, XEvent *event);
void AddSelect(Widget graph, XEvent *event);
void SelectSubtree(Widget graph, XEvent *event);
void SweepOutRegion(Widget graph, XEvent *event);
void SelectRegion(Widget graph, XEvent *event);
void Motion(Widget graph, XEvent *event);
void EndMotion(Widget graph, XEvent *event);
void PositionNewNode(Widget graph, XEvent *event);
void EndAddNode(Widget graph, XEvent *event);

// ---- Shared --------------------------------------------------------------------------------------

inline Point PointerIn(const XEvent *event) {
    return {event->xbutton.x, event->xbutton.y};
}

inline void SetCursor(Widget graph, Cursor cursor) {
    if (HasWindow(graph)) {
        XDefineCursor(XtDisplay(graph), XtWindow(graph), cursor);
    }
}

inline void RepairAfter(void (*step)(Widget, XEvent *), Widget graph, XEvent *event) {
    const DamageRepair repair(graph);
    step(graph, event);
}

// A gesture that was left open ends here, and its figure with it.
inline void EnterState(Widget graph, XmGraphGestureState state) {
    HideFigure(graph);
    GraphOf(graph).gesture_state = state;
}

} // namespace corvidlmw::graph
