// The rubber figures of the gestures: one line or one rectangle at a time, drawn with `xor_gc` over all
// that is in the window, and removed by being drawn again.
//
// That is exact only while nothing else changes the pixels below. So whoever draws in the meantime lifts the
// figure first (FigureLift), and an exposure, of which nobody knows what it left of the figure, clears its
// region before it repaints.

#include <corvidlmw/graph/GraphI.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

void DrawRubberLine(Widget w, const Segment &line) {
    XDrawLine(XtDisplay(w), XtWindow(w), GraphOf(w).xor_gc, line.start.x, line.start.y, line.end.x,
              line.end.y);
}

// Each rectangle is sent at once, so that the batch is never more than one deep.
void DrawRubberRectangle(Widget w, const Segment &diagonal) {
    const Rectangle r = Normalised(diagonal);
    rectangle_list.rectangles[rectangle_list.count++] = {
        CutToPosition(r.x), CutToPosition(r.y), CutToDimension(r.width), CutToDimension(r.height)};
    XDrawRectangles(XtDisplay(w), XtWindow(w), GraphOf(w).xor_gc, rectangle_list.rectangles,
                    rectangle_list.count);
    rectangle_list.count = 0;
}

// Draws it, or takes it away where it is.
void Toggle(Widget w) {
    if (!HasWindow(w)) {
        return;
    }
    const Figure &figure = StateOf(w).figure;
    switch (figure.kind) {
    case Figure::Kind::Nothing: break;
    case Figure::Kind::Line: DrawRubberLine(w, figure.span); break;
    case Figure::Kind::Box: DrawRubberRectangle(w, figure.span); break;
    }
}

} // namespace

namespace corvidlmw::graph {

Rectangle Normalised(const Segment &diagonal) {
    const auto &[start, end] = diagonal;
    return {std::min(start.x, end.x), std::min(start.y, end.y), std::abs(end.x - start.x),
            std::abs(end.y - start.y)};
}

void ShowFigure(Widget w, const Figure &figure) {
    auto &state = StateOf(w);
    if (state.figure_lifts == 0) {
        Toggle(w);
    }
    state.figure = figure;
    if (state.figure_lifts == 0) {
        Toggle(w);
    }
}

void HideFigure(Widget w) {
    ShowFigure(w, {});
}

FigureLift::FigureLift(Widget w) : watch_(w), graph_(w) {
    if (StateOf(w).figure_lifts++ == 0) {
        Toggle(w);
    }
}

FigureLift::~FigureLift() {
    if (!watch_.Died() && --StateOf(graph_).figure_lifts == 0) {
        Toggle(graph_);
    }
}

} // namespace corvidlmw::graph
