// The overview: a plain drawing area that shows the whole graph scaled to fit, marks on some nodes, and
// a frame around the part that can be seen, which the pointer drags.
//
// The graph and its overview name each other in callbacks and event handlers; whoever dies first takes
// them off the other. The frame is drawn by exclusive or and taken away by drawing it again, so what
// matters is to know whether it is there: `frame_shown` says so. Clearing the window takes it away as
// well. Where a mark was painted over it since, it is not there any more.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/graph/OverviewGeometry.h>

#include <Xm/DrawingA.h>

#include <algorithm>
#include <cstdint>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

using overview::Scale;

void show_overview(Widget overview, XtPointer graph, XtPointer call_data);
void update_overview(Widget graph, XtPointer overview, XtPointer call_data);
void overviewDestroyed(Widget overview, XtPointer graph, XtPointer call_data);
void handle_overview_btndown(Widget overview, XtPointer graph, XEvent *event, Boolean *dispatch);
void handle_overview_btnup(Widget overview, XtPointer graph, XEvent *event, Boolean *dispatch);
void handle_overview_mouse_motion(Widget overview, XtPointer graph, XEvent *event,
                                  Boolean *dispatch);

// ---- What there is -------------------------------------------------------------------------------

Size SizeOf(Widget w) {
    return {w->core.width, w->core.height};
}

Scale ScaleOf(Widget w) {
    return {GraphOf(w).overview_x_scale, GraphOf(w).overview_y_scale};
}

std::span<Widget> NodesOf(Widget w) {
    auto children = Children(w);
    return children.subspan(std::min<std::size_t>(1, children.size()));
}

// No mark is -1, which a client may have given as an int: its width decides.
bool HasMark(Widget node) {
    return static_cast<std::int32_t>(ConstraintOf(node).mark_color) >= 0;
}

// Figures past 16 bits lie outside of every window; cut to 16 bits they would come in again.
short InRange(int coordinate) {
    return static_cast<short>(std::clamp(coordinate, -32768, 32767));
}

XRectangle ToXRectangle(const Rectangle &r) {
    const short left = InRange(r.x);
    const short top = InRange(r.y);
    return {left, top, static_cast<unsigned short>(std::clamp(r.x + r.width - left, 0, 65535)),
            static_cast<unsigned short>(std::clamp(r.y + r.height - top, 0, 65535))};
}

// ---- The frame --------------------------------------------------------------------------------------

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

void ShowFrame(Widget w) {
    DrawViewport(w, GraphOf(w).overview);
    StateOf(w).overview.frame_shown = true;
}

// The window was cleared, or the frame taken away.
void ForgetFrame(Widget w) {
    StateOf(w).overview.frame_shown = false;
    StateOf(w).overview.painted_over.reset();
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

// Around what the clip window shows now.
void FollowScroll(Widget w) {
    const auto &graph = GraphOf(w);
    if (graph.overview_dragging) {
        return;
    }
    if (!graph.in_scrolled_window || !ScaleOf(w).IsSet()) {
        HideFrame(w);
        return;
    }
    MoveFrame(w, overview::FrameFor(ScaleOf(w), {-w->core.x, -w->core.y},
                                    {graph.clip_width, graph.clip_height}));
}

// ---- Painting ---------------------------------------------------------------------------------------

// How far the managed nodes reach; nothing if there are none.
Size ExtentOfNodes(Widget w) {
    Size extent;
    for (Widget node : NodesOf(w)) {
        if (NodeOf(node) && XtIsManaged(node)) {
            const Rectangle r = RectangleOf(node);
            const int borders = 2 * node->core.border_width;
            extent.width = std::max({extent.width, r.x + r.width + borders, 1});
            extent.height = std::max({extent.height, r.y + r.height + borders, 1});
        }
    }
    return extent;
}

// False, with scales of zero, if there is nothing to show.
bool UpdateScale(Widget w, Widget overview) {
    auto &graph = GraphOf(w);
    const Size extent = ExtentOfNodes(w);
    const Scale scale =
        extent.width == 0 ? Scale{}
                          : overview::ScaleFor(SizeOf(overview), extent, graph.skew_overview_scale);
    graph.overview_x_scale = scale.x;
    graph.overview_y_scale = scale.y;
    return scale.IsSet();
}

void FillRectangles(Widget w, Widget overview) {
    XFillRectangles(XtDisplay(overview), XtWindow(overview), GraphOf(w).overview_node_gc,
                    overview_rectangle_list.rectangles, overview_rectangle_list.count);
    overview_rectangle_list.count = 0;
}

// The lines are collected also where they are not to be shown.
void DrawLines(Widget w, Widget overview) {
    if (GraphOf(w).show_overview_arcs && overview_line_list.count > 0) {
        XDrawSegments(XtDisplay(overview), XtWindow(overview), GraphOf(w).overview_line_gc,
                      overview_line_list.segments, overview_line_list.count);
    }
    overview_line_list.count = 0;
}

constexpr int full_batch = 199;

// Fills all but the last batch, which shall lie over the lines.
void PaintFirstNodes(Widget w, Widget overview) {
    const Scale scale = ScaleOf(w);
    for (Widget node : NodesOf(w)) {
        if (!NodeOf(node)) {
            continue;
        }
        overview_rectangle_list.rectangles[overview_rectangle_list.count++] =
            ToXRectangle(overview::MiniatureOf(scale, RectangleOf(node)));
        if (overview_rectangle_list.count == full_batch) {
            FillRectangles(w, overview);
        }
    }
}

// From centre to centre, whatever the arc's shape.
void PaintArcs(Widget w, Widget overview) {
    const Scale scale = ScaleOf(w);
    for (Widget arc : Arcs(w)) {
        if (!HasBothEnds(arc)) {
            continue;
        }
        const Point from = overview::CentreOf(scale, RectangleOf(ArcOf(arc).from));
        const Point to = overview::CentreOf(scale, RectangleOf(ArcOf(arc).to));
        if (from.x < 0 || from.y < 0 || to.x < 0 || to.y < 0) {
            continue;
        }
        overview_line_list.segments[overview_line_list.count++] = {InRange(from.x), InRange(from.y),
                                                                   InRange(to.x), InRange(to.y)};
        if (overview_line_list.count == full_batch) {
            DrawLines(w, overview);
        }
    }
    DrawLines(w, overview);
}

// With the node's mark, or without one in the colour of all nodes.
void FillNode(Widget w, Widget overview, Widget node) {
    auto &graph = GraphOf(w);
    GC gc = graph.overview_node_gc;
    if (HasMark(node)) {
        gc = graph.overview_mark_gc;
        XSetForeground(XtDisplay(w), gc, ConstraintOf(node).mark_color);
        XSetBackground(XtDisplay(w), gc, ConstraintOf(node).mark_color);
    }
    const XRectangle r = ToXRectangle(overview::MiniatureOf(ScaleOf(w), RectangleOf(node)));
    XFillRectangle(XtDisplay(w), XtWindow(overview), gc, r.x, r.y, r.width, r.height);
}

void PaintMarks(Widget w, Widget overview) {
    for (Widget node : NodesOf(w)) {
        if (NodeOf(node) && XtIsManaged(node) && HasMark(node)) {
            FillNode(w, overview, node);
        }
    }
}

// A resize exposes the whole window: the picture has another scale.
void PrepareWindow(Widget w, Widget overview) {
    Window &prepared = StateOf(w).overview.prepared;
    if (prepared != XtWindow(overview)) {
        XSetWindowAttributes attributes{};
        attributes.bit_gravity = ForgetGravity;
        XChangeWindowAttributes(XtDisplay(overview), XtWindow(overview), CWBitGravity, &attributes);
        prepared = XtWindow(overview);
    }
}

// A frame that is being dragged stays under the pointer.
void PaintFrame(Widget w) {
    if (GraphOf(w).overview_dragging) {
        ShowFrame(w);
    } else {
        FollowScroll(w);
    }
}

bool CanPaint(Widget w) {
    Widget overview = GraphOf(w).overview;
    return !IsBeingDestroyed(w) && overview && HasWindow(overview);
}

// The last exposure of a series is the one that is painted for: each is answered with all there is.
void show_overview(Widget overview, XtPointer client_data, XtPointer call_data) {
    auto w = static_cast<Widget>(client_data);
    const auto *data = static_cast<XmDrawingAreaCallbackStruct *>(call_data);
    const XEvent *event = data ? data->event : nullptr;
    if (!CanPaint(w) || (event && event->type == Expose && event->xexpose.count > 0)) {
        return;
    }
    PrepareWindow(w, overview);
    StateOf(w).overview.clear_request = 0;
    const bool anything = UpdateScale(w, overview);
    XClearWindow(XtDisplay(overview), XtWindow(overview));
    ForgetFrame(w);
    if (!anything) {
        return;
    }
    PaintFirstNodes(w, overview);
    PaintArcs(w, overview);
    FillRectangles(w, overview);
    PaintMarks(w, overview);
    PaintFrame(w);
}

// The whole window, with an exposure. While the server has not come to the last such request, it stands
// for this one too.
void ClearOverview(Widget w) {
    Display *display = XtDisplay(w);
    auto &state = StateOf(w).overview;
    if (state.clear_request > LastKnownRequestProcessed(display)) {
        return;
    }
    state.clear_request = NextRequest(display);
    XClearArea(display, XtWindow(GraphOf(w).overview), 0, 0, 0, 0, True);
    ForgetFrame(w);
}

// ---- Changes ------------------------------------------------------------------------------------------

// The frame is not drawn anew over the mark.
void set_overview_mark(Widget w, Widget node) {
    if (!node || !NodeOf(node) || !XtIsManaged(node) || !ScaleOf(w).IsSet()) {
        return;
    }
    Widget overview = GraphOf(w).overview;
    FillNode(w, overview, node);
    auto &state = StateOf(w).overview;
    const Rectangle place = overview::MiniatureOf(ScaleOf(w), RectangleOf(node));
    if (state.frame_shown && overview::TouchesFrame(FrameOf(w), place)) {
        if (!state.painted_over) {
            state.painted_over.reset(XCreateRegion());
        }
        XRectangle r = ToXRectangle(place);
        XUnionRectWithRegion(&r, state.painted_over.get(), state.painted_over.get());
    }
}

void update_overview(Widget w, XtPointer, XtPointer call_data) {
    const auto *change = static_cast<XmGraphCallbackStruct *>(call_data);
    if (!CanPaint(w) || !HasWindow(w)) {
        return;
    }
    switch (change ? change->reason : XmCR_LAYOUT_CHANGED) {
    case XmCR_MARK_CHANGED: return set_overview_mark(w, change->widget);
    case XmCR_GRAPH_SCROLLED: return FollowScroll(w);
    default: return ClearOverview(w);
    }
}

// ---- Dragging the frame ---------------------------------------------------------------------------------

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
    if (graph.in_scrolled_window && ScaleOf(w).IsSet()) {
        ScrollTo(w, overview::GraphPlaceOf(ScaleOf(w), {graph.viewport_x, graph.viewport_y}));
    }
}

void handle_overview_btndown(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (CanPaint(w)) {
        GraphOf(w).overview_dragging = 1;
        PutFrameAt(w, event->xbutton.x, event->xbutton.y);
    }
}

// A drawing area selects the motion of every button, and all handlers of any motion are called for it.
void handle_overview_mouse_motion(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (CanPaint(w) && (event->xmotion.state & Button1Mask)) {
        PutFrameAt(w, event->xmotion.x, event->xmotion.y);
        ScrollToFrame(w);
    }
}

// To where the frame stands, which need not be where the button was let go.
void handle_overview_btnup(Widget, XtPointer client_data, XEvent *, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (IsBeingDestroyed(w)) {
        return;
    }
    Watch watch(w);
    ScrollToFrame(w);
    if (!watch.Died()) {
        GraphOf(w).overview_dragging = 0;
    }
}

// ---- Life ---------------------------------------------------------------------------------------------------

void overviewDestroyed(Widget, XtPointer graph, XtPointer) {
    DetachOverview(static_cast<Widget>(graph));
}

void AttachOverview(Widget w, Widget overview) {
    GraphOf(w).overview = overview;
    StateOf(w).overview = {};
    XtAddCallback(overview, XmNdestroyCallback, overviewDestroyed, w);
    XtAddCallback(overview, XmNexposeCallback, show_overview, w);
    XtAddCallback(w, XmNgraphChangedCallback, update_overview, overview);
    XtAddEventHandler(overview, ButtonPressMask, False, handle_overview_btndown, w);
    XtAddEventHandler(overview, ButtonReleaseMask, False, handle_overview_btnup, w);
    XtAddEventHandler(overview, Button1MotionMask, False, handle_overview_mouse_motion, w);
}

// The frame is a shadow of the overview's own, seen through exclusive or.
void TakeShadowColors(Widget w, Widget overview) {
    const auto &graph = GraphOf(w);
    const auto &shadow = ManagerOf(overview);
    auto set = [&](GC gc, Pixel color) {
        const Pixel value = color ^ overview->core.background_pixel;
        XSetForeground(XtDisplay(w), gc, value);
        XSetBackground(XtDisplay(w), gc, value);
    };
    set(graph.overview_viewport_bottom_gc, shadow.top_shadow_color);
    set(graph.overview_viewport_top_gc, shadow.bottom_shadow_color);
}

// The GCs are of the graph's screen and depth.
bool CanDrawOn(Widget w, Widget other) {
    return XtScreen(w) == XtScreen(other) && w->core.depth == other->core.depth;
}

} // namespace

namespace corvidlmw::graph {

void DetachOverview(Widget w) {
    auto &graph = GraphOf(w);
    Widget overview = graph.overview;
    if (!overview) {
        return;
    }
    XtRemoveCallback(overview, XmNdestroyCallback, overviewDestroyed, w);
    XtRemoveCallback(overview, XmNexposeCallback, show_overview, w);
    XtRemoveCallback(w, XmNgraphChangedCallback, update_overview, overview);
    XtRemoveEventHandler(overview, XtAllEvents, True, handle_overview_btndown, w);
    XtRemoveEventHandler(overview, XtAllEvents, True, handle_overview_btnup, w);
    XtRemoveEventHandler(overview, XtAllEvents, True, handle_overview_mouse_motion, w);
    if (HasWindow(overview) && !IsBeingDestroyed(overview)) {
        XClearWindow(XtDisplay(overview), XtWindow(overview));
    }
    graph.overview = nullptr;
    graph.overview_dragging = 0;
    graph.overview_x_scale = graph.overview_y_scale = 0;
    StateOf(w).overview = {};
}

void RefreshOverview(Widget w) {
    if (!GraphOf(w).overview || !CanPaint(w) || !HasWindow(w)) {
        return;
    }
    switch (GraphOf(w).gesture_state) {
    case GESTURE_MOVE_NODE:
    case GESTURE_MOVE_SELECTION:
    case GESTURE_PLACE_NODE: return;
    default: return ClearOverview(w);
    }
}

} // namespace corvidlmw::graph

// ---- Public functions -----------------------------------------------------------------------------------------

extern "C" Widget XmGraphCreateOverView(Widget w, Widget parent) {
    if (!w || !XmIsGraph(w) || IsBeingDestroyed(w)) {
        return nullptr;
    }
    auto &graph = GraphOf(w);
    graph.overview_dragging = 0;
    if (graph.overview && IsBeingDestroyed(graph.overview)) {
        DetachOverview(w);
    }
    if (graph.overview) {
        return graph.overview;
    }
    if (!parent || !XtIsComposite(parent) || !CanDrawOn(w, parent)) {
        return nullptr;
    }
    Widget overview = XmCreateDrawingArea(parent, Name("overview"), nullptr, 0);
    if (!CanDrawOn(w, overview)) {
        XtDestroyWidget(overview);
        return nullptr;
    }
    AttachOverview(w, overview);
    TakeShadowColors(w, overview);
    return overview;
}
