// The graph is as large as its nodes need, at least as large as its clip window, and shrinks only
// when it is much too large: geometry methods, life inside a scrolled window, the cover window.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/graph/Size.h>

#include <Xm/DrawingA.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <functional>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

constexpr int largest_size = 32567;
// How much larger than needed the graph may stay.
constexpr int slack = 50;

const char *const scroll_callbacks[] = {XmNvalueChangedCallback,  XmNincrementCallback,
                                        XmNdecrementCallback,     XmNpageIncrementCallback,
                                        XmNpageDecrementCallback, XmNdragCallback};

// ---- Scrolled window ---------------------------------------------------------------------------

ScrollBars BarsOf(Widget scrolled) {
    if (!scrolled || !XmIsScrolledWindow(scrolled)) {
        return {};
    }
    const auto direction = ResourceOf<XmDirection>(scrolled, XmNlayoutDirection, XmLEFT_TO_RIGHT);
    return {.vertical = ResourceOf<Widget>(scrolled, XmNverticalScrollBar, nullptr),
            .horizontal = ResourceOf<Widget>(scrolled, XmNhorizontalScrollBar, nullptr),
            .from_right =
                XmDirectionMatchPartial(direction, XmRIGHT_TO_LEFT, XmHORIZONTAL_MASK) != False};
}

// The scrolled window in automatic mode, which put its clip window between itself and the graph.
// A graph directly below a shell has no grandparent at all.
Widget GrandparentOf(Widget graph) {
    Widget parent = XtParent(graph);
    return parent ? XtParent(parent) : nullptr;
}

// A client may have given the scrolled window bars of another class.
void FixIncrement(Widget bar, int increment) {
    if (!bar || !XtIsSubclass(bar, xmScrollBarWidgetClass)) {
        return;
    }
    int value = 0;
    int slider_size = 0;
    int old_increment = 0;
    int page_increment = 0;
    XmScrollBarGetValues(bar, &value, &slider_size, &old_increment, &page_increment);
    XmScrollBarSetValues(bar, value, slider_size, increment, page_increment, True);
}

void ForEachScrollCallback(Widget bar, Widget graph,
                           void (*change)(Widget, const char *, XtCallbackProc, XtPointer)) {
    for (const char *name : scroll_callbacks) {
        change(bar, name, GraphScrolled, graph);
    }
}

// Bars that a client made die before a graph that was created after them.
void ForgetBar(Widget bar, XtPointer graph, XtPointer) {
    auto &bars = StateOf(static_cast<Widget>(graph)).bars;
    std::replace(bars.begin(), bars.end(), bar, Widget{});
}

// ---- Extent -------------------------------------------------------------------------------------

// The children that count: rectangles other than the super-root and the dying.
template <typename Visit>
void ForEachLivingNode(Widget graph, Visit visit) {
    auto children = Children(graph);
    if (children.empty()) {
        return;
    }
    for (Widget child : children.subspan(1)) {
        if (NodeOf(child) && !IsBeingDestroyed(child)) {
            visit(child);
        }
    }
}

int RightOf(Widget child) {
    return child->core.x + child->core.width + 2 * child->core.border_width;
}

int BottomOf(Widget child) {
    return child->core.y + child->core.height + 2 * child->core.border_width;
}

// Nodes left or above of the origin pull all nodes to it. Never the other way.
bool PullToOrigin(Widget graph) {
    int left = 0;
    int top = 0;
    ForEachLivingNode(graph, [&](Widget child) {
        left = std::min<int>(left, child->core.x);
        top = std::min<int>(top, child->core.y);
    });
    if (left == 0 && top == 0) {
        return false;
    }
    XmGraphMoveAll(graph, -left, -top);
    return true;
}

Size NeededSize(Widget w) {
    const auto &graph = GraphOf(w);
    Size need;
    ForEachLivingNode(w, [&](Widget child) {
        need.width = std::max(need.width, RightOf(child));
        need.height = std::max(need.height, BottomOf(child));
    });
    if (graph.in_scrolled_window) {
        need.width = std::max<int>(need.width, graph.clip_width);
        need.height = std::max<int>(need.height, graph.clip_height);
    }
    // Managers grant a size of 0, and the server refuses it.
    return {std::max(need.width, 1), std::max(need.height, 1)};
}

bool Fits(Widget w, const Size &need) {
    const int width = w->core.width;
    const int height = w->core.height;
    return need.width <= width && need.height <= height && need.width >= width - slack &&
           need.height >= height - slack;
}

XtGeometryResult RequestSize(Widget w, const Size &size) {
    Dimension width = 0;
    Dimension height = 0;
    XtGeometryResult result = XtMakeResizeRequest(w, CutToDimension(size.width),
                                                  CutToDimension(size.height), &width, &height);
    if (result == XtGeometryAlmost) {
        result = XtMakeResizeRequest(w, width, height, nullptr, nullptr);
    }
    return result;
}

void TellTooBig(Widget w) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = XmCR_SIZE_CHANGED;
    call_data.widget = w;
    XtCallCallbacks(w, XmNgraphTooBigCallback, &call_data);
}

// Asks for what the nodes need. True if the graph got another size.
bool FitToNodes(Widget w) {
    const Size need = NeededSize(w);
    if (Fits(w, need)) {
        return false;
    }
    const Size wanted = {std::min(need.width, largest_size), std::min(need.height, largest_size)};
    if (need.width > largest_size || need.height > largest_size) {
        Watch watch(w);
        TellTooBig(w);
        if (watch.Died()) {
            return false;
        }
    }
    return RequestSize(w, wanted) != XtGeometryNo;
}

bool FillsClip(Widget w) {
    const auto &graph = GraphOf(w);
    return graph.clip_width <= w->core.width && graph.clip_height <= w->core.height;
}

Size SizeToFillClip(Widget w) {
    const auto &graph = GraphOf(w);
    return {std::max(w->core.width, graph.clip_width), std::max(w->core.height, graph.clip_height)};
}

void GrowToClip(Widget w) {
    if (!FillsClip(w)) {
        RequestSize(w, SizeToFillClip(w));
    }
}

void TellNewSize(Widget w) {
    Watch watch(w);
    _XmGraphFixScrollBarInc(w);
    if (!watch.Died()) {
        CallGraphChanged(w, XmCR_SIZE_CHANGED);
    }
}

// ---- Layouts of the scrolled window -----------------------------------------------------------------

bool BarsComeAndGo(Widget scrolled) {
    return ResourceOf<unsigned char>(scrolled, XmNscrollBarDisplayPolicy, XmSTATIC) == XmAS_NEEDED;
}

// The scrolled window has decided which bars it shows before it resizes its clip window, and a request out of
// the midst of its layout makes it lay out for others than it then puts in place. To fill the clip window changes
// nothing about the bars and needs no asking. All else is asked for once the layout is over: the event that
// tells of the clip window's new size is not read before.
void FollowClipInLayout(Widget w) {
    StateOf(w).adjust_after_layout = true;
    if (FillsClip(w)) {
        return;
    }
    const Size size = SizeToFillClip(w);
    XmeConfigureObject(w, w->core.x, w->core.y, CutToDimension(size.width),
                       CutToDimension(size.height), w->core.border_width);
    TellNewSize(w);
}

void AdjustAfterLayout(Widget, XtPointer client_data, XEvent *event, Boolean *) {
    auto w = static_cast<Widget>(client_data);
    if (event->type == ConfigureNotify && !IsBeingDestroyed(w) &&
        std::exchange(StateOf(w).adjust_after_layout, false)) {
        _XmGraphAdjustSize(w);
    }
}

// Whether nodes were managed or unmanaged since the last time. The toolkit's look for a new place of the
// keyboard focus asks the server; arcs take none.
bool ManagedNodesChanged(Widget w) {
    std::size_t digest = 0;
    for (Widget child : Children(w)) {
        if (NodeOf(child) && IsManaged(child)) {
            digest += std::hash<Widget>()(child) * 31 + 1;
        }
    }
    return std::exchange(StateOf(w).managed_nodes, digest) != digest;
}

void DestroySWCallback(Widget, XtPointer scrolled, XtPointer) {
    auto window = static_cast<Widget>(scrolled);
    Widget clip = ResourceOf<Widget>(window, XmNclipWindow, nullptr);
    if (clip) {
        XtDestroyWidget(clip);
    }
    XtDestroyWidget(window);
}

} // namespace

namespace corvidlmw::graph {

ScrollBars ScrollBarsAround(Widget graph) {
    return BarsOf(GrandparentOf(graph));
}

// ---- Attaching to a scrolled window ---------------------------------------------------------------

// At creation the parent is still the scrolled window itself.
void AttachToScrolledWindow(Widget w) {
    auto &graph = GraphOf(w);
    Widget parent = XtParent(w);
    if (!XmIsScrolledWindow(parent)) {
        return;
    }
    graph.in_scrolled_window = True;
    if (Widget clip = ResourceOf<Widget>(parent, XmNclipWindow, nullptr)) {
        XtAddCallback(clip, XmNresizeCallback, ResizeClipArea, w);
        XtAddEventHandler(clip, StructureNotifyMask, False, AdjustAfterLayout, w);
        graph.clip_width = clip->core.width;
        graph.clip_height = clip->core.height;
    }
    const ScrollBars bars = BarsOf(parent);
    StateOf(w).bars = {bars.horizontal, bars.vertical};
    for (Widget bar : StateOf(w).bars) {
        if (bar) {
            ForEachScrollCallback(bar, w, XtAddCallback);
            XtAddCallback(bar, XmNdestroyCallback, ForgetBar, w);
        }
    }
    if (bars.horizontal) {
        graph.scrollbar_thickness = CutToPosition(bars.horizontal->core.height);
    }
    if (bars.vertical) {
        graph.scrollbar_thickness =
            std::max(graph.scrollbar_thickness, CutToPosition(bars.vertical->core.width));
    }
}

// The scrolled window may outlive the graph, so its parts must forget it.
void DetachFromScrolledWindow(Widget w) {
    Widget parent = XtParent(w);
    if (XmIsDrawingArea(parent)) {
        XtRemoveCallback(parent, XmNresizeCallback, ResizeClipArea, w);
        XtRemoveEventHandler(parent, StructureNotifyMask, False, AdjustAfterLayout, w);
    }
    for (Widget bar : StateOf(w).bars) {
        if (bar) {
            XtRemoveCallback(bar, XmNdestroyCallback, ForgetBar, w);
            ForEachScrollCallback(bar, w, XtRemoveCallback);
        }
    }
}

bool HasCover(Widget w) {
    auto &graph = GraphOf(w);
    if (graph.cover_window != None && XtWindow(XtParent(w)) != StateOf(w).cover_parent) {
        graph.cover_window = None;
        graph.cover_count = 0;
    }
    return graph.cover_window != None;
}

// ---- Geometry methods -------------------------------------------------------------------------------

void GraphResize(Widget w) {
    auto &graph = GraphOf(w);
    if (!graph.in_scrolled_window) {
        return;
    }
    Widget clip = XtParent(w);
    if (XmIsScrolledWindow(clip)) {
        clip = ResourceOf<Widget>(clip, XmNclipWindow, nullptr);
    }
    graph.clip_width = clip ? clip->core.width : w->core.width;
    graph.clip_height = clip ? clip->core.height : w->core.height;
    _XmGraphFixScrollBarInc(w);
}

// The size does not follow here: that comes with a layout or a move.
void GraphChangeManaged(Widget w) {
    Watch watch(w);
    UnveilArcs(w);
    if (GraphOf(w).auto_layout_mode == XmALWAYS) {
        LayoutNow(w);
        if (watch.Died()) {
            return;
        }
    }
    ApplyEditModeAgain(w);
    if (ManagedNodesChanged(w)) {
        XmeNavigChangeManaged(w);
    }
    if (HasWindow(w)) {
        ClearGraph(w);
        CallGraphChanged(w, XmCR_LAYOUT_CHANGED);
    }
    if (!watch.Died()) {
        VeilArcs(w);
    }
}

// The graph refuses nothing.
XtGeometryResult GraphGeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *) {
    const XtGeometryMask mode = request->request_mode;
    if ((mode & XtCWQueryOnly) || mode == 0) {
        return XtGeometryYes;
    }
    const Position x = mode & CWX ? request->x : child->core.x;
    const Position y = mode & CWY ? request->y : child->core.y;
    const Dimension width = mode & CWWidth ? request->width : child->core.width;
    const Dimension height = mode & CWHeight ? request->height : child->core.height;
    const Dimension border =
        mode & CWBorderWidth ? request->border_width : child->core.border_width;
    // An arc has no rectangle and no window: what it asks for are its end points.
    if (!NodeOf(child)) {
        child->core.x = x;
        child->core.y = y;
        child->core.width = width;
        child->core.height = height;
        return XtGeometryDone;
    }
    XmGraphMoveNode(XtParent(child), child, x, y);
    XmeConfigureObject(child, x, y, width, height, border);
    RefreshOverview(XtParent(child));
    return XtGeometryDone;
}

XtGeometryResult GraphQueryGeometry(Widget w, XtWidgetGeometry *intended,
                                    XtWidgetGeometry *preferred) {
    const XtGeometryMask mode = intended->request_mode;
    if (mode & ~static_cast<XtGeometryMask>(CWWidth | CWHeight)) {
        return XtGeometryYes;
    }
    int width = mode & CWWidth ? intended->width : 0;
    int height = mode & CWHeight ? intended->height : 0;
    for (Widget child : Children(w)) {
        if (NodeOf(child)) {
            width = std::max(width, RightOf(child));
            height = std::max(height, BottomOf(child));
        }
    }
    preferred->width = CutToDimension(std::max<int>(width, w->core.width));
    preferred->height = CutToDimension(std::max<int>(height, w->core.height));
    const bool wider = (mode & CWWidth) && width != intended->width;
    const bool taller = (mode & CWHeight) && height != intended->height;
    if (mode == 0 || wider || taller) {
        preferred->request_mode = CWWidth | CWHeight;
    } else {
        preferred->request_mode = mode & CWWidth ? CWHeight : CWWidth;
    }
    return XtGeometryAlmost;
}

// ---- Clip window and scroll bars -------------------------------------------------------------------------

// A change smaller than the room that the scroll bars take asks for no new size.
void ResizeClipArea(Widget clip, XtPointer client_data, XtPointer) {
    auto w = static_cast<Widget>(client_data);
    auto &graph = GraphOf(w);
    if (IsBeingDestroyed(w)) {
        return;
    }
    const int width_change = std::abs(clip->core.width - graph.clip_width);
    const int height_change = std::abs(clip->core.height - graph.clip_height);
    graph.clip_width = clip->core.width;
    graph.clip_height = clip->core.height;
    if (HasCover(w)) {
        XResizeWindow(XtDisplay(w), graph.cover_window, std::max<Dimension>(graph.clip_width, 1),
                      std::max<Dimension>(graph.clip_height, 1));
    }
    Widget scrolled = XtParent(clip);
    Watch watch(w);
    if (width_change > scrolled->core.width - clip->core.width ||
        height_change > scrolled->core.height - clip->core.height) {
        if (XtIsRealized(clip) && BarsComeAndGo(scrolled)) {
            FollowClipInLayout(w);
        } else {
            _XmGraphAdjustSize(w);
        }
    }
    if (!watch.Died()) {
        XmUpdateDisplay(w);
    }
    if (!watch.Died()) {
        CallGraphChanged(w, XmCR_SIZE_CHANGED);
    }
    if (!watch.Died()) {
        _XmGraphFixScrollBarInc(w);
    }
}

void GraphScrolled(Widget, XtPointer client_data, XtPointer) {
    CallGraphChanged(static_cast<Widget>(client_data), XmCR_GRAPH_SCROLLED);
}

} // namespace corvidlmw::graph

// ---- Public functions ---------------------------------------------------------------------------------------

extern "C" {

void _XmGraphAdjustSize(Widget w) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    auto &graph = GraphOf(w);
    if (!graph.adjust_size) {
        GrowToClip(w);
        return;
    }
    Watch watch(w);
    const bool pulled = PullToOrigin(w);
    const bool resized = FitToNodes(w);
    if (!watch.Died() && (pulled || resized)) {
        TellNewSize(w);
    }
}

void XmGraphDontAdjustSize(Widget w) {
    if (w && XmIsGraph(w)) {
        GraphOf(w).adjust_size = False;
    }
}

void XmGraphAdjustSize(Widget w) {
    if (w && XmIsGraph(w)) {
        GraphOf(w).adjust_size = True;
        _XmGraphAdjustSize(w);
    }
}

void XmGraphMoveAll(Widget w, int dx, int dy) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    for (Widget arc : Arcs(w)) {
        if (XtIsManaged(arc) && ArcIsInView(w, arc)) {
            _EraseArc(arc);
        }
    }
    for (Widget child : Children(w)) {
        if (NodeOf(child)) {
            _XmMoveObject(child, CutToPosition(child->core.x + CutToPosition(dx)),
                          CutToPosition(child->core.y + CutToPosition(dy)));
        }
    }
    ForgetNodeIndex(w);
    const RankWalk walk(w);
    for (Widget arc : Arcs(w)) {
        DrawArc(arc);
    }
    RefreshOverview(w);
}

void _XmGraphFixScrollBarInc(Widget w) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    const ScrollBars bars = ScrollBarsAround(w);
    const int increment = GraphOf(w).increment;
    FixIncrement(bars.vertical, increment);
    FixIncrement(bars.horizontal, increment);
}

void XmGraphShowCoverWindow(Widget w) {
    if (!w || !XmIsGraph(w) || !HasCover(w)) {
        return;
    }
    if (++GraphOf(w).cover_count < 2) {
        XMapRaised(XtDisplay(w), GraphOf(w).cover_window);
        XFlush(XtDisplay(w));
    }
}

void XmGraphHideCoverWindow(Widget w) {
    if (!w || !XmIsGraph(w) || !HasCover(w)) {
        return;
    }
    auto &graph = GraphOf(w);
    graph.cover_count = std::max(graph.cover_count - 1, 0);
    if (graph.cover_count == 0) {
        XUnmapWindow(XtDisplay(w), graph.cover_window);
    }
}

Widget XmCreateScrolledGraph(Widget parent, char *name, ArgList args, Cardinal argcount) {
    const Text window_name = Text(name ? name : "") + "SW";
    Widget scrolled = XtVaCreateManagedWidget(window_name.c_str(), xmScrolledWindowWidgetClass,
                                              parent, XmNscrollingPolicy, XmAUTOMATIC,
                                              XmNvisualPolicy, XmCONSTANT, nullptr);
    const ScrollBars bars = BarsOf(scrolled);
    for (Widget bar : {bars.horizontal, bars.vertical}) {
        if (bar) {
            XtVaSetValues(bar, XmNincrement, 1, nullptr);
        }
    }
    Widget graph = XtCreateWidget(name, xmGraphWidgetClass, scrolled, args, argcount);
    XtAddCallback(graph, XmNdestroyCallback, DestroySWCallback, scrolled);
    return graph;
}

} // extern "C"
