// Drawing, erasing, picking and input of an arc.
//
// An arc draws on its graph's window with its own shared GC. What it looks like is computed each time,
// in ArcGeometry; only the rank among parallel arcs is kept from the last drawing, so that erasing
// paints over what was drawn. Erasing has no memory of the nodes' places: erase, move, draw.

#include <corvidlmw/graph/ArcGeometry.h>
#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/toolkit/TextClip.h>

#include <algorithm>
#include <array>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Shape ---------------------------------------------------------------------------------------

arc::Label LabelOf(const XmArcPart &part) {
    return {
        .shown = part.map_label != False, .width = part.label_width, .height = part.label_height};
}

arc::Attachment AttachmentOf(Widget arc_widget) {
    const auto &part = ArcOf(arc_widget);
    const auto &graph = GraphOf(XtParent(arc_widget));
    return {
        .mode = static_cast<arc::DrawMode>(graph.arc_draw_mode),
        .horizontal = graph.orientation == XmHORIZONTAL,
        .from_side = part.from_side,
        .from_position = part.from_position,
        .to_side = part.to_side,
        .to_position = part.to_position,
    };
}

enum class Path { Straight, Curve, Loop };

// Curves are for the parallel arcs of the first two draw modes; in the third each arc has ends of its
// own.
Path PathOf(Widget arc_widget, int rank) {
    const auto &part = ArcOf(arc_widget);
    if (part.to == part.from) {
        return Path::Loop;
    }
    const bool proportional =
        GraphOf(XtParent(arc_widget)).arc_draw_mode == XmPOSITION_PROPORTIONAL;
    return rank == 0 || proportional ? Path::Straight : Path::Curve;
}

// All that drawing and erasing must agree on.
struct Shape {
    Path path = Path::Straight;
    Segment ends;
    std::array<Point, arc::curve_points> curve{};
    Point control;
    arc::Loop loop;
    Point label; // upper left corner of its rectangle
    int arrow_count = 0;
    Segment arrows[2];
    bool visible = false; // its line: not all of its coordinates are negative
};

bool AllNegative(const Segment &s) {
    return s.start.x < 0 && s.start.y < 0 && s.end.x < 0 && s.end.y < 0;
}

int ArrowCount(const XmArcPart &part) {
    switch (part.arc_direction) {
    case XmBIDIRECTED: return 2;
    case XmDIRECTED: return 1;
    default: return 0;
    }
}

void ShapeLine(Shape &shape, const XmArcPart &part) {
    const auto &[start, end] = shape.ends;
    shape.visible = !AllNegative(shape.ends);
    shape.arrows[0] = {start, end};
    shape.arrows[1] = {end, start};
    shape.label = {(start.x + end.x) / 2, (start.y + end.y) / 2 - part.label_height};
}

void ShapeCurve(Shape &shape, const XmArcPart &part, int rank) {
    const auto &[start, end] = shape.ends;
    shape.control = arc::CurveControl(shape.ends, rank);
    shape.curve = arc::CurveThrough(shape.ends, shape.control);
    shape.visible = !AllNegative(shape.ends) || shape.control.x >= 0 || shape.control.y >= 0;
    shape.arrows[0] = {shape.control, end};
    shape.arrows[1] = {shape.control, start};
    const Point &middle = shape.curve[arc::curve_label_point];
    shape.label = {middle.x, middle.y - part.label_height};
}

void ShapeLoop(Shape &shape, const XmArcPart &part, int rank) {
    shape.loop = arc::LoopAround(RectangleOf(part.from), rank, LabelOf(part));
    shape.visible = !AllNegative(shape.ends);
    shape.arrows[0] = shape.loop.arrows[0];
    shape.arrows[1] = shape.loop.arrows[1];
    shape.label = shape.loop.label;
}

Shape ShapeOf(Widget arc_widget, int rank) {
    const auto &part = ArcOf(arc_widget);
    Shape shape;
    shape.ends = EndsOf(arc_widget);
    shape.path = PathOf(arc_widget, rank);
    shape.arrow_count = ArrowCount(part);
    switch (shape.path) {
    case Path::Straight: ShapeLine(shape, part); break;
    case Path::Curve: ShapeCurve(shape, part, rank); break;
    case Path::Loop: ShapeLoop(shape, part, rank); break;
    }
    return shape;
}

// ---- Pieces ------------------------------------------------------------------------------------------

struct Surface {
    Display *display;
    Window window;
};

Surface SurfaceOf(Widget arc_widget) {
    Widget graph = XtParent(arc_widget);
    return {XtDisplay(graph), XtWindow(graph)};
}

// The foreground of the shared GC for one piece of a highlighted arc, and back right after.
class HighlightScope {
public:
    explicit HighlightScope(Widget arc_widget)
        : display_(XtDisplay(XtParent(arc_widget))), part_(ArcOf(arc_widget)) {
        if (part_.highlight) {
            XSetForeground(display_, part_.gc, GraphOf(XtParent(arc_widget)).highlight_color);
        }
    }
    ~HighlightScope() {
        if (part_.highlight) {
            XSetForeground(display_, part_.gc, part_.foreground);
        }
    }
    HighlightScope(const HighlightScope &) = delete;
    HighlightScope &operator=(const HighlightScope &) = delete;

private:
    Display *display_;
    const XmArcPart &part_;
};

template <std::size_t n>
std::array<XPoint, n> XPointsOf(const std::array<Point, n> &points) {
    std::array<XPoint, n> result;
    std::transform(points.begin(), points.end(), result.begin(), [](const Point &p) {
        return XPoint{CutToPosition(p.x), CutToPosition(p.y)};
    });
    return result;
}

void PaintLine(const Surface &surface, GC gc, const Shape &shape) {
    switch (shape.path) {
    case Path::Straight:
        XDrawLine(surface.display, surface.window, gc, shape.ends.start.x, shape.ends.start.y,
                  shape.ends.end.x, shape.ends.end.y);
        break;
    case Path::Curve: {
        auto points = XPointsOf(shape.curve);
        XDrawLines(surface.display, surface.window, gc, points.data(), arc::curve_points,
                   CoordModeOrigin);
        break;
    }
    case Path::Loop: {
        const Rectangle &box = shape.loop.box;
        XDrawArc(surface.display, surface.window, gc, box.x, box.y,
                 static_cast<unsigned>(box.width), static_cast<unsigned>(box.height),
                 shape.loop.start, shape.loop.extent);
        break;
    }
    }
}

void PaintArrow(const Surface &surface, GC gc, const Segment &arrow) {
    if (const auto triangle = arc::ArrowHead(arrow.start, arrow.end)) {
        auto points = XPointsOf(*triangle);
        XFillPolygon(surface.display, surface.window, gc, points.data(), 3, Convex,
                     CoordModeOrigin);
    }
}

// ---- Bounds --------------------------------------------------------------------------------------------

// A mitred corner reaches up to 5.2 widths past its point; an arrow head is 6 pixels long.
int ReachOf(const XmArcPart &part) {
    return 8 + 6 * std::clamp(part.arc_width, 0, widest_arc);
}

// All that the arc paints.
Bounds BoundsOf(Widget arc_widget, const Shape &shape) {
    const auto &part = ArcOf(arc_widget);
    const int reach = ReachOf(part);
    Bounds bounds(shape.ends.start, reach);
    bounds.Add(shape.ends.end, reach);
    if (shape.path == Path::Curve) {
        for (const Point &p : shape.curve) {
            bounds.Add(p, reach);
        }
    } else if (shape.path == Path::Loop) {
        const Rectangle &box = shape.loop.box;
        bounds.Add({box.x, box.y}, reach);
        bounds.Add({box.x + box.width, box.y + box.height}, reach);
    }
    if (part.map_label) {
        bounds.Add(shape.label, 0);
        bounds.Add({shape.label.x + part.label_width, shape.label.y + part.label_height}, 0);
    }
    return bounds;
}

Rectangle BoxOf(const Bounds &b) {
    return {b.left, b.top, b.right - b.left + 1, b.bottom - b.top + 1};
}

// A long line is erased in several boxes, so that little is repainted beside it.
void NoteErasedLine(Widget graph, const Segment &line, int reach) {
    constexpr int pieces = 8;
    auto at = [&](int i) {
        return Point{line.start.x + (line.end.x - line.start.x) * i / pieces,
                     line.start.y + (line.end.y - line.start.y) * i / pieces};
    };
    for (int i = 0; i < pieces; i++) {
        Bounds bounds(at(i), reach);
        bounds.Add(at(i + 1), reach);
        NoteDamage(graph, BoxOf(bounds));
    }
}

void NoteErased(Widget arc_widget, const Shape &shape) {
    Widget graph = XtParent(arc_widget);
    if (StateOf(graph).repairs == 0) {
        return;
    }
    if (shape.path != Path::Straight) {
        NoteDamage(graph, BoxOf(BoundsOf(arc_widget, shape)));
        return;
    }
    const auto &part = ArcOf(arc_widget);
    NoteErasedLine(graph, shape.ends, ReachOf(part));
    if (part.map_label) {
        NoteDamage(graph, {shape.label.x, shape.label.y, part.label_width, part.label_height});
    }
}

// ---- Drawing and erasing --------------------------------------------------------------------------------

void draw_arrow(Widget arc_widget, const Segment &arrow) {
    const HighlightScope highlight(arc_widget);
    PaintArrow(SurfaceOf(arc_widget), ArcOf(arc_widget).gc, arrow);
}

void clear_arrow(Widget arc_widget, const Segment &arrow) {
    PaintArrow(SurfaceOf(arc_widget), ArcOf(arc_widget).clear_gc, arrow);
}

void DrawLabel(Widget arc_widget, const Shape &shape) {
    const auto &part = ArcOf(arc_widget);
    if (!part.map_label) {
        return;
    }
    const HighlightScope highlight(arc_widget);
    const Surface surface = SurfaceOf(arc_widget);
    _XmStringDraw(surface.display, surface.window, part.font_list, part.label_string, part.gc,
                  CutToPosition(shape.label.x), CutToPosition(shape.label.y), part.label_width,
                  XmALIGNMENT_CENTER, 0, nullptr);
}

void DrawShape(Widget arc_widget, const Shape &shape) {
    if (shape.visible) {
        const HighlightScope highlight(arc_widget);
        PaintLine(SurfaceOf(arc_widget), ArcOf(arc_widget).gc, shape);
    }
    for (int i = 0; i < shape.arrow_count; i++) {
        draw_arrow(arc_widget, shape.arrows[i]);
    }
    DrawLabel(arc_widget, shape);
}

void EraseShape(Widget arc_widget, const Shape &shape) {
    const FigureLift lift(XtParent(arc_widget));
    NoteErased(arc_widget, shape);
    const auto &part = ArcOf(arc_widget);
    const Surface surface = SurfaceOf(arc_widget);
    if (shape.path == Path::Loop || shape.visible) {
        PaintLine(surface, part.clear_gc, shape);
    }
    for (int i = 0; i < shape.arrow_count; i++) {
        clear_arrow(arc_widget, shape.arrows[i]);
    }
    if (part.map_label) {
        XFillRectangle(surface.display, surface.window, part.clear_gc, shape.label.x, shape.label.y,
                       part.label_width, part.label_height);
    }
}

// ---- Exposures ---------------------------------------------------------------------------------------------

// Keeps the rank and the end points of an arc that is about to be drawn. False if it is not to be drawn
// at all.
bool PrepareDrawing(Widget arc_widget) {
    auto &part = ArcOf(arc_widget);
    part.sibling_rank = _sibling_rank(arc_widget);
    if (!HasBothEnds(arc_widget) || !HasWindow(XtParent(arc_widget)) || !XtIsManaged(arc_widget) ||
        IsBeingDestroyed(arc_widget)) {
        return false;
    }
    part.drawn = True;
    return true;
}

// The GCs that have a clip for the length of one redisplay, and the labels' text with them. Most arcs
// share one GC, and lines drawn in a row with the same GC travel to the server as one request.
class ClippedArcs {
public:
    ClippedArcs(const Surface &surface, Region region)
        : display_(surface.display), region_(region),
          text_(surface.display, surface.window, region) {}
    ~ClippedArcs() {
        for (GC gc : clipped_) {
            XSetClipMask(display_, gc, None);
        }
    }
    ClippedArcs(const ClippedArcs &) = delete;
    ClippedArcs &operator=(const ClippedArcs &) = delete;

    void Clip(const XmArcPart &part) {
        if (std::find(clipped_.rbegin(), clipped_.rend(), part.gc) == clipped_.rend()) {
            XSetRegion(display_, part.gc, region_);
            clipped_.push_back(part.gc);
        }
        if (part.map_label) {
            text_.Clip(part.font_list);
        }
    }

private:
    Display *display_;
    Region region_;
    TextClip text_;
    Vector<GC> clipped_;
};

void Reshow(Widget arc_widget, bool highlight) {
    if (!arc_widget || !XmIsArc(arc_widget)) {
        return;
    }
    _EraseArc(arc_widget);
    ArcOf(arc_widget).highlight = highlight ? True : False;
    ArcRedisplay(arc_widget, nullptr, nullptr);
}

OwnedRegion RegionOf(const arc::Polygon &polygon) {
    std::array<XPoint, 10> points = XPointsOf(polygon.points);
    return OwnedRegion(XPolygonRegion(points.data(), polygon.count, EvenOddRule));
}

} // namespace

namespace corvidlmw::graph {

bool HasBothEnds(Widget arc_widget) {
    return ArcOf(arc_widget).to && ArcOf(arc_widget).from;
}

Segment EndsOf(Widget arc_widget) {
    const auto &part = ArcOf(arc_widget);
    return arc::EndPoints(AttachmentOf(arc_widget), RectangleOf(part.from), RectangleOf(part.to));
}

Segment StoredEndsOf(Widget arc_widget) {
    const auto &core = arc_widget->core;
    return {{core.x, core.y}, {CutToPosition(core.width), CutToPosition(core.height)}};
}

void StoreEnds(Widget arc_widget, const Segment &ends) {
    arc_widget->core.x = CutToPosition(ends.start.x);
    arc_widget->core.y = CutToPosition(ends.start.y);
    arc_widget->core.width = CutToDimension(ends.end.x);
    arc_widget->core.height = CutToDimension(ends.end.y);
}

// An arc is not looked for along its line, only by its ends.
bool ArcIsInView(Widget w, Widget arc_widget) {
    if (IsBeingDestroyed(arc_widget) || !HasBothEnds(arc_widget)) {
        return false;
    }
    const auto &graph = GraphOf(w);
    if (!graph.in_scrolled_window || graph.show_crossing_arcs) {
        return true;
    }
    const int left = CutToPosition(-w->core.x);
    const int top = CutToPosition(-w->core.y);
    auto in_view = [&](const Point &p) {
        return p.x >= left && p.x <= left + graph.clip_width && p.y >= top &&
               p.y <= top + graph.clip_height;
    };
    const Segment ends = StoredEndsOf(arc_widget);
    return in_view(ends.start) || in_view(ends.end);
}

void DrawArc(Widget arc_widget) {
    if (XtExposeProc expose = XtClass(arc_widget)->core_class.expose) {
        expose(arc_widget, nullptr, nullptr);
    }
}

// As each arc's own `expose` would with the region, but the clip is set once for each GC, and an arc that
// paints nothing inside the region's box sends nothing.
void DrawArcsInRegion(Widget graph, Region region, const BoxIndex &painted) {
    if (!HasWindow(graph)) {
        return;
    }
    XRectangle box;
    XClipBox(region, &box);
    const RankWalk walk(graph);
    ClippedArcs clipped({XtDisplay(graph), XtWindow(graph)}, region);
    for (Widget arc_widget :
         Touching(painted, Arcs(graph), {box.x, box.y, box.width, box.height})) {
        if (ArcIsInView(graph, arc_widget) && PrepareDrawing(arc_widget)) {
            const Shape shape = ShapeOf(arc_widget, ArcOf(arc_widget).sibling_rank);
            StoreEnds(arc_widget, shape.ends);
            clipped.Clip(ArcOf(arc_widget));
            DrawShape(arc_widget, shape);
        }
    }
}

Bounds MeasureArc(Widget graph, Widget arc_widget) {
    if (!HasBothEnds(arc_widget)) {
        return {};
    }
    const Shape shape = ShapeOf(arc_widget, _sibling_rank(arc_widget));
    if (ArcIsInView(graph, arc_widget) && PrepareDrawing(arc_widget)) {
        StoreEnds(arc_widget, shape.ends);
    }
    return BoundsOf(arc_widget, shape);
}

// ---- Class methods -----------------------------------------------------------------------------------------

void ArcRedisplay(Widget arc_widget, XEvent *, Region region) {
    if (!PrepareDrawing(arc_widget)) {
        return;
    }
    const Shape shape = ShapeOf(arc_widget, ArcOf(arc_widget).sibling_rank);
    StoreEnds(arc_widget, shape.ends);
    if (region) {
        ClippedArcs clipped(SurfaceOf(arc_widget), region);
        clipped.Clip(ArcOf(arc_widget));
        DrawShape(arc_widget, shape);
    } else {
        const FigureLift lift(XtParent(arc_widget));
        DrawShape(arc_widget, shape);
    }
}

// The callback lists of an arc are asked for by their contents where a name belongs, so they are never
// called; the call is left out.
void ArcDispatchInput(Widget arc_widget, XEvent *event, Mask mask) {
    auto &part = ArcOf(arc_widget);
    switch (mask) {
    case XmARM_EVENT:
        part.armed = True;
        ArcRedisplay(arc_widget, event, nullptr);
        break;
    case XmACTIVATE_EVENT:
        part.armed = False;
        ArcRedisplay(arc_widget, event, nullptr);
        ArcRedisplay(arc_widget, event, nullptr);
        break;
    case XmENTER_EVENT:
    case XmLEAVE_EVENT: ArcRedisplay(arc_widget, event, nullptr); break;
    default: break;
    }
}

} // namespace corvidlmw::graph

// ---- Public functions -----------------------------------------------------------------------------------------

extern "C" {

void _GetPoints(Widget arc_widget, int from_x, int from_y, int from_width, int from_height,
                int to_x, int to_y, int to_width, int to_height, int *x1, int *y1, int *x2,
                int *y2) {
    const Segment ends =
        arc::EndPoints(AttachmentOf(arc_widget), {from_x, from_y, from_width, from_height},
                       {to_x, to_y, to_width, to_height});
    *x1 = ends.start.x;
    *y1 = ends.start.y;
    *x2 = ends.end.x;
    *y2 = ends.end.y;
}

void _EraseArc(Widget arc_widget) {
    if (!arc_widget || !XmIsArc(arc_widget)) {
        return;
    }
    auto &part = ArcOf(arc_widget);
    if (!HasBothEnds(arc_widget) || !HasWindow(XtParent(arc_widget)) || !part.drawn) {
        return;
    }
    part.drawn = False;
    EraseShape(arc_widget, ShapeOf(arc_widget, part.sibling_rank));
}

void _XmHighlightArc(Widget arc_widget) {
    Reshow(arc_widget, true);
}

void _XmUnhighlightArc(Widget arc_widget) {
    Reshow(arc_widget, false);
}

int _ArcInRect(Widget, XRectangle *) {
    return 1;
}

Region _AddRegionToRegion(Region a, Region b) {
    if (!a && !b) {
        return nullptr;
    }
    Region result = XCreateRegion();
    if (a) {
        XUnionRegion(a, b ? b : a, result);
        XDestroyRegion(a);
    } else {
        XUnionRegion(b, b, result);
    }
    return result;
}

void XmArcGetPos(Widget arc_widget, Position *x1, Position *y1, Position *x2, Position *y2) {
    Segment ends;
    if (arc_widget && XmIsArc(arc_widget) && HasBothEnds(arc_widget)) {
        ends = EndsOf(arc_widget);
        StoreEnds(arc_widget, ends);
    }
    *x1 = CutToPosition(ends.start.x);
    *y1 = CutToPosition(ends.start.y);
    *x2 = CutToPosition(ends.end.x);
    *y2 = CutToPosition(ends.end.y);
}

Region XmArcGetRegion(Widget arc_widget) {
    if (!arc_widget || !XmIsArc(arc_widget) || IsBeingDestroyed(arc_widget) ||
        !HasBothEnds(arc_widget)) {
        return nullptr;
    }
    const auto &part = ArcOf(arc_widget);
    const int rank = _sibling_rank(arc_widget);
    const int width = std::clamp(part.arc_width, 1, widest_arc);
    const arc::PickShape shape =
        part.to == part.from ? arc::PickLoop(RectangleOf(part.from), rank, LabelOf(part))
                             : arc::PickLine(StoredEndsOf(arc_widget), rank, width, LabelOf(part));
    Region region = nullptr;
    for (int i = 0; i < shape.count; i++) {
        const OwnedRegion piece = RegionOf(shape.polygons[static_cast<std::size_t>(i)]);
        region = _AddRegionToRegion(region, piece.get());
    }
    return region;
}

} // extern "C"
