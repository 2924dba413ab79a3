// The overview: a plain drawing area that shows the whole graph scaled to fit, marks on some nodes, and
// a frame around the part that can be seen, which the pointer drags.
//
// The graph and its overview name each other in callbacks and event handlers; whoever dies first takes
// them off the other.

#include <corvidlmw/graph/OverviewI.h>

#include <corvidlmw/toolkit/Lasting.h>

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

// ---- What there is -------------------------------------------------------------------------------

std::span<Widget> NodesOf(Widget w) {
    auto children = Children(w);
    return children.subspan(std::min<std::size_t>(1, children.size()));
}

// No mark is -1, which a client may have given as an int: its width decides.
bool HasMark(Widget node) {
    return static_cast<std::int32_t>(ConstraintOf(node).mark_color) >= 0;
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
    if (overview_rectangle_list.count == 0) {
        return;
    }
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

// The frame is a shadow of the overview's own, seen through exclusive or. A client gives an overview its
// colours after it is made, so they are taken whenever no frame is on it.
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

// A frame that is being dragged stays under the pointer.
void PaintFrame(Widget w) {
    TakeShadowColors(w, GraphOf(w).overview);
    if (IsDragged(w)) {
        ShowFrame(w);
    } else {
        FollowScroll(w);
    }
}

// The last exposure of a series is the one that is painted for: each is answered with all there is.
void show_overview(Widget overview, XtPointer client_data, XtPointer call_data) {
    auto w = static_cast<Widget>(client_data);
    const auto *data = static_cast<XmDrawingAreaCallbackStruct *>(call_data);
    const XEvent *event = data ? data->event : nullptr;
    if (!CanPaintOverview(w) || (event && event->type == Expose && event->xexpose.count > 0)) {
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

// A callback that destroys the graph outside of a dispatch destroys it at once, and the toolkit still
// calls the rest of the list for it: those that live and have an overview stand here.
Vector<Widget> &GraphsWithOverview() {
    static const Lasting<Vector<Widget>> graphs;
    return *graphs;
}

bool IsFollowed(Widget w) {
    const auto &graphs = GraphsWithOverview();
    return std::find(graphs.begin(), graphs.end(), w) != graphs.end();
}

// The frame is not drawn anew over the mark.
void set_overview_mark(Widget w, Widget node) {
    if (!node || !NodeOf(node) || !XtIsManaged(node) || !ScaleOf(w).IsSet()) {
        return;
    }
    Widget overview = GraphOf(w).overview;
    FillNode(w, overview, node);
    NotePaintedOver(w, overview::MiniatureOf(ScaleOf(w), RectangleOf(node)));
}

void update_overview(Widget w, XtPointer, XtPointer call_data) {
    const auto *change = static_cast<XmGraphCallbackStruct *>(call_data);
    if (!IsFollowed(w) || !CanPaintOverview(w) || !HasWindow(w)) {
        return;
    }
    switch (change ? change->reason : XmCR_LAYOUT_CHANGED) {
    case XmCR_MARK_CHANGED: return set_overview_mark(w, change->widget);
    case XmCR_GRAPH_SCROLLED: return FollowScroll(w);
    default: return ClearOverview(w);
    }
}

// ---- Life ---------------------------------------------------------------------------------------------------

void overviewDestroyed(Widget, XtPointer graph, XtPointer) {
    DetachOverview(static_cast<Widget>(graph));
}

void AttachOverview(Widget w, Widget overview) {
    GraphOf(w).overview = overview;
    GraphsWithOverview().push_back(w);
    StateOf(w).overview = {};
    XtAddCallback(overview, XmNdestroyCallback, overviewDestroyed, w);
    XtAddCallback(overview, XmNexposeCallback, show_overview, w);
    XtAddCallback(w, XmNgraphChangedCallback, update_overview, overview);
    XtAddEventHandler(overview, ButtonPressMask, False, handle_overview_btndown, w);
    XtAddEventHandler(overview, ButtonReleaseMask, False, handle_overview_btnup, w);
    XtAddEventHandler(overview, Button1MotionMask, False, handle_overview_mouse_motion, w);
}

// The GCs are of the graph's screen and depth.
bool CanDrawOn(Widget w, Widget other) {
    return XtScreen(w) == XtScreen(other) && w->core.depth == other->core.depth;
}

} // namespace

namespace corvidlmw::graph {

XRectangle ToXRectangle(const Rectangle &r) {
    const short left = InRange(r.x);
    const short top = InRange(r.y);
    return {left, top, static_cast<unsigned short>(std::clamp(r.x + r.width - left, 0, 65535)),
            static_cast<unsigned short>(std::clamp(r.y + r.height - top, 0, 65535))};
}

bool CanPaintOverview(Widget w) {
    Widget overview = GraphOf(w).overview;
    return !IsBeingDestroyed(w) && overview && HasWindow(overview);
}

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
    std::erase(GraphsWithOverview(), w);
    graph.overview = nullptr;
    graph.overview_dragging = 0;
    graph.overview_x_scale = graph.overview_y_scale = 0;
    StateOf(w).overview = {};
}

void RefreshOverview(Widget w) {
    if (CanPaintOverview(w) && HasWindow(w)) {
        ClearOverview(w);
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
