// The rubber figures of the gestures: one line or one rectangle at a time, drawn with `xor_gc` over all
// that is in the window, and removed by being drawn again.
//
// That is exact only while nothing else changes the pixels below. So whoever draws in the meantime lifts the
// figure first (FigureLift), and an exposure, of which nobody knows what it left of the figure, clears its
// region before it repaints. What was painted without that (by the toolkit, or by nodes with windows of
// their own, which see no lift) is painted anew when the figure goes.

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

// ---- Repair --------------------------------------------------------------------------------------

Rectangle BoxAround(const Figure &figure) {
    const Rectangle r = Normalised(figure.span);
    return {r.x, r.y, r.width + 1, r.height + 1};
}

// Clears a window and all below it, with exposures.
void ExposeDeep(Widget top) {
    Vector<Widget> stack{top};
    while (!stack.empty()) {
        Widget here = stack.back();
        stack.pop_back();
        if (!here || !XtIsWidget(here) || !HasWindow(here)) {
            continue;
        }
        XClearArea(XtDisplay(here), XtWindow(here), 0, 0, 0, 0, True);
        if (XtIsComposite(here)) {
            stack.insert(stack.end(), Children(here).begin(), Children(here).end());
        }
    }
}

void ExposeWindowsIn(Widget w, const Rectangle &box) {
    for (Widget child : Touching(NodeIndexOf(w), Children(w), box)) {
        if (XtIsManaged(child)) {
            ExposeDeep(child);
        }
    }
}

void RepairSpoiled(Widget w) {
    auto &state = StateOf(w);
    if (!std::exchange(state.figure_spoiled, false) || !HasWindow(w) || IsBeingDestroyed(w)) {
        return;
    }
    ExposeWindowsIn(w, state.figure_trace);
    RepaintBoxes(w, {state.figure_trace});
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
    if (figure.kind != Figure::Kind::Nothing) {
        const bool first = state.figure.kind == Figure::Kind::Nothing && !state.figure_unsettled;
        const Rectangle box = BoxAround(figure);
        state.figure_trace = first ? box : Around(state.figure_trace, box);
    }
    state.figure = figure;
    if (state.figure_lifts == 0) {
        Toggle(w);
    }
}

void HideFigure(Widget w) {
    auto &state = StateOf(w);
    if (state.figure.kind != Figure::Kind::Nothing) {
        state.figure_unsettled = true;
        state.figure_hidden_at = NextRequest(XtDisplay(w));
        ShowFigure(w, {});
        RepairSpoiled(w);
    }
}

void SpoilFigure(Widget w) {
    auto &state = StateOf(w);
    state.figure_spoiled = state.figure_spoiled || state.figure.kind != Figure::Kind::Nothing;
}

// A figure that was removed only after the server had cleared the region left its lines in there, which
// the serial tells. Of a series of exposures only the last one's is known, so the first that is late
// enough is not trusted yet.
bool MayShowFigure(Widget w, const XEvent *exposure) {
    auto &state = StateOf(w);
    SpoilFigure(w);
    if (state.figure.kind != Figure::Kind::Nothing || !state.figure_unsettled) {
        return state.figure_spoiled;
    }
    state.figure_unsettled = exposure && exposure->xany.serial < state.figure_hidden_at;
    if (state.figure_unsettled) {
        ExposeWindowsIn(w, state.figure_trace);
    }
    return true;
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
