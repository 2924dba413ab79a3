// The frame in the overview that stands for the part of the graph in view, and its dragging.
//
// It is drawn by exclusive or and taken away by drawing it again, so what matters is to know whether it
// is there: `frame_shown` says so. Clearing the window takes it away as well. Where a mark was painted
// over it since, it is not there any more: `painted_over`.

#include <corvidlmw/graph/OverviewI.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

Rectangle FrameOf(Widget w) {
    const auto &graph = GraphOf(w);
    return {graph.viewport_x, graph.viewport_y, graph.viewport_width, graph.viewport_height};
}

void StoreFrame(Widget w, const Rectangle &frame) {
    auto &graph = GraphOf(w);
    graph.viewport_x = InRange(frame.x);
    graph.viewport_y = InRange(frame.y);
    graph.viewport_width = CutToDimension(frame.width);
    graph.viewport_height = CutToDimension(frame.height);
}

// Draws the frame, or takes it away. The GCs bear the names of the resources that they were first made
// from, the other way round than they are used.
void DrawViewport(Widget w, Widget overview) {
    StoreFrame(w, overview::KeepInside(FrameOf(w), SizeOf(overview)));
    auto draw = [&](GC gc, const std::array<Segment, 4> &lines) {
        for (const Segment &line : lines) {
            XDrawLine(XtDisplay(overview), XtWindow(overview), gc, line.start.x, line.start.y,
                      line.end.x, line.end.y);
        }
    };
    draw(GraphOf(w).overview_viewport_bottom_gc, overview::UpperLeftLines(FrameOf(w)));
    draw(GraphOf(w).overview_viewport_top_gc, overview::LowerRightLines(FrameOf(w)));
}

// Keeps the removal of the frame off the pixels that are not its own any more.
class FrameClip {
public:
    explicit FrameClip(Widget w) : graph_(GraphOf(w)), display_(XtDisplay(w)) {
        const auto &painted_over = StateOf(w).overview.painted_over;
        if (!painted_over) {
            return;
        }
        XRectangle window =
            ToXRectangle({0, 0, graph_.overview->core.width, graph_.overview->core.height});
        const OwnedRegion rest(XCreateRegion());
        XUnionRectWithRegion(&window, rest.get(), rest.get());
        XSubtractRegion(rest.get(), painted_over.get(), rest.get());
        XSetRegion(display_, graph_.overview_viewport_bottom_gc, rest.get());
        XSetRegion(display_, graph_.overview_viewport_top_gc, rest.get());
        clipped_ = true;
    }
    ~FrameClip() {
        if (clipped_) {
            XSetClipMask(display_, graph_.overview_viewport_bottom_gc, None);
            XSetClipMask(display_, graph_.overview_viewport_top_gc, None);
        }
    }
    FrameClip(const FrameClip &) = delete;
    FrameClip &operator=(const FrameClip &) = delete;

private:
    XmGraphPart &graph_;
    Display *display_;
    bool clipped_ = false;
};

void HideFrame(Widget w) {
    if (!StateOf(w).overview.frame_shown) {
        return;
    }
    {
        const FrameClip clip(w);
        DrawViewport(w, GraphOf(w).overview);
    }
    ForgetFrame(w);
}

void MoveFrame(Widget w, const Rectangle &frame) {
    const auto &state = StateOf(w).overview;
    const Rectangle inside = overview::KeepInside(frame, SizeOf(GraphOf(w).overview));
    if (state.frame_shown && !state.painted_over && inside == FrameOf(w)) {
        return;
    }
    HideFrame(w);
    StoreFrame(w, frame);
    ShowFrame(w);
}

// ---- Dragging -----------------------------------------------------------------------------------------

bool IsAnyButtonHeld(Widget w) {
    constexpr unsigned buttons =
        Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;
    Window root = None;
    Window child = None;
    Point in_root;
    Point in_window;
    unsigned state = 0;
    XQueryPointer(XtDisplay(w), XtWindow(w), &root, &child, &in_root.x, &in_root.y, &in_window.x,
                  &in_window.y, &state);
    return (state & buttons) != 0;
}

// Its corner jumps to the pointer. Outside of a scrolled window it stands for nothing and is drawn all
// the same; where there is no picture there is no frame.
void PutFrameAt(Widget w, int x, int y) {
    Rectangle frame = FrameOf(w);
    frame.x = InRange(x);
    frame.y = InRange(y);
    if (ScaleOf(w).IsSet()) {
        MoveFrame(w, frame);
    }
}

// The graph may be dead afterwards.
void ScrollToFrame(Widget w) {
    const auto &graph = GraphOf(w);
    if (!graph.in_scrolled_window || !ScaleOf(w).IsSet()) {
        return;
    }
    Watch watch(w);
    StateOf(w).overview.frame_scrolls = true;
    ScrollTo(w, overview::GraphPlaceOf(ScaleOf(w), {graph.viewport_x, graph.viewport_y}));
    if (!watch.Died()) {
        StateOf(w).overview.frame_scrolls = false;
    }
}

} // namespace

namespace corvidlmw::graph {

// ---- The frame ------------------------------------------------------------------------------------------

void ShowFrame(Widget w) {
    DrawViewport(w, GraphOf(w).overview);
    StateOf(w).overview.frame_shown = true;
}

void ForgetFrame(Widget w) {
    StateOf(w).overview.frame_shown = false;
    StateOf(w).overview.painted_over.reset();
}

// An overview that is hidden or made insensitive in the middle of a drag, or shut out by a modal dialog,
// never gets the release. So where something else than the drag asks, the server says whether a button
// is still held.
bool IsDragged(Widget w) {
    auto &graph = GraphOf(w);
    if (graph.overview_dragging && !StateOf(w).overview.frame_scrolls) {
        graph.overview_dragging = IsAnyButtonHeld(graph.overview) ? 1 : 0;
    }
    return graph.overview_dragging != 0;
}

void FollowScroll(Widget w) {
    const auto &graph = GraphOf(w);
    if (IsDragged(w)) {
        return;
    }
    if (!graph.in_scrolled_window || !ScaleOf(w).IsSet()) {
        HideFrame(w);
        return;
    }
    MoveFrame(w, overview::FrameFor(ScaleOf(w), {-w->core.x, -w->core.y},
                                    {graph.clip_width, graph.clip_height}));
}

void NotePaintedOver(Widget w, const Rectangle &place) {
    auto &state = StateOf(w).overview;
    if (!state.frame_shown || !overview::TouchesFrame(FrameOf(w), place)) {
        return;
    }
    if (!state.painted_over) {
        state.painted_over.reset(XCreateRegion());
    }
    XRectangle r = ToXRectangle(place);
    XUnionRectWithRegion(&r, state.painted_over.get(), state.painted_over.get());
}

// ---- Events ----------------------------------------------------------------------------------------------

void handle_overview_btndown(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (CanPaintOverview(w)) {
        GraphOf(w).overview_dragging = 1;
        PutFrameAt(w, event->xbutton.x, event->xbutton.y);
    }
}

// A drawing area selects the motion of every button, and all handlers of any motion are called for it.
void handle_overview_mouse_motion(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (CanPaintOverview(w) && (event->xmotion.state & Button1Mask)) {
        PutFrameAt(w, event->xmotion.x, event->xmotion.y);
        ScrollToFrame(w);
    }
}

// To where the frame stands, which need not be where the button was let go. The bars may have stopped
// short of it: then the frame goes back to what is in view.
void handle_overview_btnup(Widget, XtPointer client_data, XEvent *, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (IsBeingDestroyed(w)) {
        return;
    }
    Watch watch(w);
    ScrollToFrame(w);
    if (watch.Died()) {
        return;
    }
    GraphOf(w).overview_dragging = 0;
    if (CanPaintOverview(w) && GraphOf(w).in_scrolled_window) {
        FollowScroll(w);
    }
}

} // namespace corvidlmw::graph
