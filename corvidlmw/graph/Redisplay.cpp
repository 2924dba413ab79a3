// Repainting, resource changes, and the input that an editable graph takes from its children.

#include <corvidlmw/graph/GraphI.h>

#include <X11/Xlib-xcb.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Gadgets ------------------------------------------------------------------------------------

OwnedRegion RegionOf(const Rectangle &r) {
    XPoint corners[] = {
        {CutToPosition(r.x), CutToPosition(r.y)},
        {CutToPosition(r.x + r.width), CutToPosition(r.y)},
        {CutToPosition(r.x + r.width), CutToPosition(r.y + r.height)},
        {CutToPosition(r.x), CutToPosition(r.y + r.height)},
    };
    return OwnedRegion(XPolygonRegion(corners, XtNumber(corners), EvenOddRule));
}

bool Overlap(const Rectangle &a, const Rectangle &b) {
    return a.x < b.x + b.width && a.y < b.y + b.height && b.x < a.x + a.width &&
           b.y < a.y + a.height;
}

Rectangle ClipBoxOf(Region region) {
    XRectangle box{};
    XClipBox(region, &box);
    return {box.x, box.y, box.width, box.height};
}

XEvent ExposeEventFor(Widget w, const Rectangle &box) {
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.display = XtDisplay(w);
    event.xexpose.window = XtWindow(w);
    event.xexpose.x = box.x;
    event.xexpose.y = box.y;
    event.xexpose.width = box.width;
    event.xexpose.height = box.height;
    return event;
}

void RefreshGadgetsIn(Widget w, Region region, const BoxIndex &painted) {
    const Rectangle box = ClipBoxOf(region);
    const Rectangle visible = VisibleRectangle(w);
    const bool scrolled = GraphOf(w).in_scrolled_window;
    XEvent event = ExposeEventFor(w, box);
    for (Widget child : Touching(painted, Children(w), box)) {
        const Rectangle r = RectangleOf(child);
        if ((scrolled && !Overlap(visible, r)) || !XmIsGadget(child) || !XtIsManaged(child) ||
            IsBeingDestroyed(child)) {
            continue;
        }
        XtExposeProc expose = XtClass(child)->core_class.expose;
        if (expose && XRectInRegion(region, r.x, r.y, child->core.width, child->core.height) !=
                          RectangleOut) {
            expose(child, &event, region);
        }
    }
}

// ---- Resource changes ------------------------------------------------------------------------------

bool CanConvert(const XmGraphPart &graph) {
    return graph.orientation == XmHORIZONTAL || graph.orientation == XmVERTICAL;
}

// Brings the spacings to pixels again where their unit or axis changed, then takes new ones. The second
// test is made on what the first one stored, so a conversion to another size is converted twice.
bool UpdateSpacing(Widget current, Widget new_w) {
    const auto &old = GraphOf(current);
    auto &graph = GraphOf(new_w);
    bool relayout = false;
    const bool turned = ManagerOf(current).unit_type != ManagerOf(new_w).unit_type ||
                        old.orientation != graph.orientation || old.reorient != graph.reorient;
    auto spacing_changed = [&] {
        return graph.child_spacing != old.child_spacing ||
               graph.sibling_spacing != old.sibling_spacing;
    };
    if (turned && !spacing_changed()) {
        ConvertSpacing(new_w, graph.child_spacing_units, graph.sibling_spacing_units);
        relayout = true;
        if (!CanConvert(graph)) {
            return relayout;
        }
    }
    if (spacing_changed()) {
        ConvertSpacing(new_w, graph.child_spacing, graph.sibling_spacing);
        relayout = true;
    }
    return relayout;
}

// The resources whose change asks for a layout. Two of them are mere triggers and read False again.
bool WantsLayout(const XmGraphPart &old, XmGraphPart &graph) {
    bool relayout = graph.orientation != old.orientation;
    if (graph.auto_layout_mode != old.auto_layout_mode && graph.auto_layout_mode != XmNEVER) {
        relayout = true;
    }
    if (graph.re_layout != old.re_layout) {
        relayout = true;
        graph.re_layout = False;
    }
    if (graph.layout_style != old.layout_style &&
        (graph.layout_style != XmBUTTERFLY || graph.butterfly_root)) {
        relayout = true;
    }
    if (graph.reorient != old.reorient) {
        relayout = true;
        graph.orientation = old.orientation == XmHORIZONTAL ? XmVERTICAL : XmHORIZONTAL;
        graph.reorient = False;
    }
    return relayout;
}

void Rebuild(Widget w, GC &gc, GC built) {
    XtReleaseGC(w, gc);
    gc = built;
}

// True if the background changed, and with it all that is painted. Arcs erase with the background,
// so theirs follow.
bool UpdateGCs(Widget current, Widget new_w) {
    const auto &old = GraphOf(current);
    auto &graph = GraphOf(new_w);
    const FigureLift lift(new_w);
    const Pixel foreground = ManagerOf(new_w).foreground;
    const bool background_changed = current->core.background_pixel != new_w->core.background_pixel;
    if (background_changed || ManagerOf(current).foreground != foreground) {
        Rebuild(new_w, graph.gc, BuildPlainGC(new_w, foreground));
    }
    if (background_changed || old.highlight_color != graph.highlight_color) {
        Rebuild(new_w, graph.highlight_gc, BuildPlainGC(new_w, graph.highlight_color));
    }
    if (old.overview_node_color != graph.overview_node_color) {
        Rebuild(new_w, graph.overview_node_gc, BuildOverviewGC(new_w, graph.overview_node_color));
    }
    if (old.overview_line_color != graph.overview_line_color) {
        Rebuild(new_w, graph.overview_line_gc, BuildOverviewGC(new_w, graph.overview_line_color));
    }
    if (background_changed) {
        Rebuild(new_w, graph.xor_gc, BuildXorGC(new_w));
        for (Widget arc : Arcs(new_w)) {
            RebuildArcGCs(arc);
        }
    }
    return background_changed;
}

// With `redraw` set the whole window is repainted anyway, so that no arc is drawn by itself.
bool UpdateCrossingArcs(Widget w, bool redraw) {
    const RankWalk walk(w);
    for (Widget arc : Arcs(w)) {
        if (!IsManaged(arc)) {
            continue;
        }
        if (!ArcIsInView(w, arc)) {
            _EraseArc(arc);
            redraw = true;
        } else if (!redraw) {
            DrawArc(arc);
        }
    }
    return redraw;
}

bool OverviewChanged(const XmGraphPart &old, const XmGraphPart &graph) {
    return old.show_overview_arcs != graph.show_overview_arcs ||
           old.skew_overview_scale != graph.skew_overview_scale ||
           old.overview_node_color != graph.overview_node_color ||
           old.overview_line_color != graph.overview_line_color ||
           old.overview_viewport_bottom_shadow_color !=
               graph.overview_viewport_bottom_shadow_color ||
           old.overview_viewport_top_shadow_color != graph.overview_viewport_top_shadow_color;
}

void ClearWindow(Widget w) {
    if (HasWindow(w)) {
        XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, True);
    }
}

// ---- Edit modes ---------------------------------------------------------------------------------------

// The events that an editable graph keeps for its own gestures.
constexpr long hidden_events =
    KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | ButtonMotionMask;
static_assert(hidden_events == 0x200F);

// What was done to a window: its id and the mode in one number, so that a window that was made anew
// differs. Zero is neither.
EventMask AppliedTag(Widget w, bool editable) {
    return static_cast<EventMask>((XtWindow(w) << 2) | (editable ? 1U : 2U));
}

using AppliedWindows = Vector<EventMask>;

// A window whose events are to change.
struct Masking {
    Widget widget;
    bool fresh; // no mode was applied to it yet
};

bool CanBeMasked(Widget w) {
    return XtIsWidget(w) && XtClass(w) != xmArcWidgetClass && w->core.window != None;
}

bool MayDescend(Widget graph, Widget w) {
    return XmIsManager(w) && !GraphOf(graph).allow_grandchild_input && NumChildrenOf(w) > 0;
}

// What lies inside a child, as far as its input is taken too.
Vector<Widget> Inside(Widget graph, Widget child) {
    Vector<Widget> found;
    Vector<Widget> stack{child};
    while (!stack.empty()) {
        Widget here = stack.back();
        stack.pop_back();
        if (!MayDescend(graph, here)) {
            continue;
        }
        for (Widget c : Children(here)) {
            if (c) {
                found.push_back(c);
                stack.push_back(c);
            }
        }
    }
    return found;
}

void CollectInside(Widget graph, Widget child, Vector<Masking> &work) {
    NodePtr node = NodeOf(child);
    if (!node || !MayDescend(graph, child)) {
        return;
    }
    auto *applied = static_cast<AppliedWindows *>(node->internal);
    AppliedWindows now;
    for (Widget w : Inside(graph, child)) {
        if (!CanBeMasked(w)) {
            continue;
        }
        const EventMask tag = AppliedTag(w, GraphOf(graph).editable);
        auto had = [&](EventMask t) {
            return applied && std::binary_search(applied->begin(), applied->end(), t);
        };
        if (!had(tag)) {
            work.push_back({w, !had(AppliedTag(w, !GraphOf(graph).editable))});
        }
        now.push_back(tag);
    }
    std::sort(now.begin(), now.end());
    if (!applied) {
        applied = New<AppliedWindows>();
        node->internal = applied;
    }
    applied->swap(now);
}

Vector<Masking> CollectWork(Widget graph, std::span<Widget> children) {
    Vector<Masking> work;
    for (Widget child : children) {
        if (!child || IsBeingDestroyed(child)) {
            continue;
        }
        CollectInside(graph, child, work);
        EventMask &applied = ConstraintOf(child).event_mask;
        if (CanBeMasked(child)) {
            const EventMask tag = AppliedTag(child, GraphOf(graph).editable);
            if (applied != tag) {
                work.push_back({child, applied == NoEventMask});
                applied = tag;
            }
        }
    }
    return work;
}

void SelectInput(Widget graph, const Masking &item) {
    const bool editable = GraphOf(graph).editable;
    if (item.fresh && !editable) {
        return; // the toolkit has just selected the full mask itself
    }
    const auto mask = static_cast<long>(XtBuildEventMask(item.widget));
    XSelectInput(XtDisplay(graph), XtWindow(item.widget), editable ? mask & ~hidden_events : mask);
}

void SetPropagation(Widget graph, Widget w, long old_mask) {
    const long mask =
        GraphOf(graph).editable ? old_mask & ~hidden_events : old_mask & hidden_events;
    if (mask == old_mask) {
        return;
    }
    XSetWindowAttributes attributes{};
    attributes.do_not_propagate_mask = mask;
    XChangeWindowAttributes(XtDisplay(graph), XtWindow(w), CWDontPropagate, &attributes);
}

} // namespace

namespace corvidlmw::graph {

Rectangle VisibleRectangle(Widget w) {
    const auto &graph = GraphOf(w);
    if (!graph.in_scrolled_window) {
        return {0, 0, w->core.width, w->core.height};
    }
    return {-w->core.x, -w->core.y, graph.clip_width, graph.clip_height};
}

void ClearGraph(Widget w) {
    ClearWindow(w);
}

// A child whose window is new is left to its CreateNotify: of children managed one by one each would
// wait for the server here.
void ApplyEditModeAgain(Widget graph) {
    Vector<Widget> known;
    for (Widget child : Children(graph)) {
        if (ConstraintOf(child).event_mask != NoEventMask) {
            known.push_back(child);
        }
    }
    ApplyEditMode(graph, known);
}

// The server is asked for all windows at once, so that the whole batch waits for one reply time.
void ApplyEditMode(Widget graph, std::span<Widget> children) {
    const Vector<Masking> work = CollectWork(graph, children);
    if (work.empty()) {
        return;
    }
    xcb_connection_t *connection = XGetXCBConnection(XtDisplay(graph));
    Vector<xcb_get_window_attributes_cookie_t> asked;
    asked.reserve(work.size());
    for (const Masking &item : work) {
        asked.push_back(xcb_get_window_attributes(
            connection, static_cast<xcb_window_t>(XtWindow(item.widget))));
    }
    for (std::size_t i = 0; i < work.size(); i++) {
        xcb_generic_error_t *error = nullptr;
        auto *reply = xcb_get_window_attributes_reply(connection, asked[i], &error);
        if (reply) {
            SelectInput(graph, work[i]);
            SetPropagation(graph, work[i].widget, reply->do_not_propagate_mask);
        }
        std::free(reply);
        std::free(error);
    }
}

void FreeEditState(NodePtr node) {
    Delete(static_cast<AppliedWindows *>(node->internal));
    node->internal = nullptr;
}

// Children that were created after the graph's realisation have a window only now. The first one of
// several brings the others along.
void HandleCreateNotify(Widget w, XtPointer, XEvent *event, Boolean *) {
    if (event->type != CreateNotify) {
        return;
    }
    Widget child = XtWindowToWidget(XtDisplay(w), event->xcreatewindow.window);
    if (!child || XtParent(child) != w || !CanBeMasked(child) ||
        ConstraintOf(child).event_mask == AppliedTag(child, GraphOf(w).editable)) {
        return;
    }
    ApplyEditMode(w, Children(w));
}

// ---- Redisplay -----------------------------------------------------------------------------------------

// When a clip window is realised with the graph inside, the toolkit maps the cover with all else in it.
static void SettleCover(Widget w) {
    auto &graph = GraphOf(w);
    if (!StateOf(w).cover_settled && HasCover(w)) {
        StateOf(w).cover_settled = true;
        if (graph.cover_count == 0) {
            XUnmapWindow(XtDisplay(w), graph.cover_window);
        }
    }
}

void PaintRegion(Widget w, Region region) {
    if (HasWindow(w) && !IsBeingDestroyed(w)) {
        const PaintIndex &painted = PaintIndexOf(w);
        DrawArcsInRegion(w, region, painted.arcs);
        RefreshGadgetsIn(w, region, painted.nodes);
    }
}

void GraphRedisplay(Widget w, XEvent *event, Region region) {
    SettleCover(w);
    const FigureLift lift(w);
    if (region) {
        // The figure moved on since the server cleared the region: what it left there is unknown.
        if (MayShowFigure(w, event)) {
            return ClearAndPaint(w, region);
        }
        PaintRegion(w, region);
        return;
    }
    if (HasWindow(w)) {
        XClearWindow(XtDisplay(w), XtWindow(w));
        const RankWalk walk(w);
        for (Widget arc : Arcs(w)) {
            if (ArcIsInView(w, arc)) {
                DrawArc(arc);
            }
        }
    }
    if (event) {
        XmeRedisplayGadgets(w, event, nullptr);
    }
}

// ---- Resource changes ----------------------------------------------------------------------------------

// The order of the steps counts: a layout leaves out what comes after it, since it repaints all.
Boolean GraphSetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    const auto &old = GraphOf(current);
    auto &graph = GraphOf(new_w);
    ForgetArcIndex(new_w);
    if (graph.ptr_cursor != old.ptr_cursor && HasWindow(new_w)) {
        XDefineCursor(XtDisplay(new_w), XtWindow(new_w), graph.ptr_cursor);
    }
    graph.twins_visible = graph.twins_visible ? True : False;
    if (!graph.default_node_class) {
        graph.default_node_class = old.default_node_class;
    }
    SpoilFigure(new_w); // a manager repaints its gadgets and its children's borders in new colours
    bool relayout = UpdateSpacing(current, new_w);
    relayout = WantsLayout(old, graph) || relayout;
    bool redraw =
        graph.arc_draw_mode != old.arc_draw_mode || graph.twins_visible != old.twins_visible;
    redraw = UpdateGCs(current, new_w) || redraw;
    if (graph.editable != old.editable) {
        HideFigure(new_w);
        RefreshOverview(new_w); // a drag that this cuts short is not told
        ApplyEditMode(new_w, Children(new_w));
    }
    if (relayout) {
        LayoutNow(new_w);
        return False;
    }
    if (graph.show_crossing_arcs != old.show_crossing_arcs && HasWindow(new_w)) {
        redraw = UpdateCrossingArcs(new_w, redraw);
    }
    if (graph.overview && OverviewChanged(old, graph)) {
        ClearWindow(graph.overview);
    }
    return redraw ? True : False;
}

} // namespace corvidlmw::graph

extern "C" void _RefreshGadgets(Widget w, Region region) {
    if (!w || !XmIsGraph(w) || IsBeingDestroyed(w) || !HasWindow(w)) {
        return;
    }
    if (region) {
        RefreshGadgetsIn(w, region, NodeIndexOf(w));
        return;
    }
    const OwnedRegion visible = RegionOf(VisibleRectangle(w));
    RefreshGadgetsIn(w, visible.get(), NodeIndexOf(w));
}
