// What the sources of the overview share: its geometry in the graph's terms, and the frame.
#pragma once

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/graph/OverviewGeometry.h>

#include <algorithm>

namespace corvidlmw::graph {

inline Size SizeOf(Widget w) {
    return {w->core.width, w->core.height};
}

inline overview::Scale ScaleOf(Widget graph) {
    return {GraphOf(graph).overview_x_scale, GraphOf(graph).overview_y_scale};
}

// Figures past 16 bits lie outside of every window; cut to 16 bits they would come in again.
inline short InRange(int coordinate) {
    return static_cast<short>(std::clamp(coordinate, -32768, 32767));
}

XRectangle ToXRectangle(const Rectangle &r);

// Whether there is a window to paint on, of a graph that lives.
bool CanPaintOverview(Widget graph);

// ---- OverviewFrame.cpp ------------------------------------------------------------------------------

// Whether the pointer holds the frame; there is a window.
bool IsDragged(Widget graph);
// Draws the frame where it is.
void ShowFrame(Widget graph);
// The window was cleared: no frame is on it.
void ForgetFrame(Widget graph);
// Puts it around what the clip window shows now, unless it is being dragged.
void FollowScroll(Widget graph);
// A mark was painted here: the frame is not there any more.
void NotePaintedOver(Widget graph, const Rectangle &place);

void handle_overview_btndown(Widget overview, XtPointer graph, XEvent *event, Boolean *dispatch);
void handle_overview_btnup(Widget overview, XtPointer graph, XEvent *event, Boolean *dispatch);
void handle_overview_mouse_motion(Widget overview, XtPointer graph, XEvent *event,
                                  Boolean *dispatch);

} // namespace corvidlmw::graph
