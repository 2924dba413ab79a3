// What lies under a point: arcs by their regions, nodes by their windows and rectangles.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>
#include <cstdlib>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Arcs ----------------------------------------------------------------------------------------

// The box around the end points, as it is cut to 16 bits.
bool IsInBox(Widget arc, int tolerance, int x, int y) {
    const Segment ends = StoredEndsOf(arc);
    const int left = CutToPosition(std::min(ends.start.x, ends.end.x) - tolerance);
    const int top = CutToPosition(std::min(ends.start.y, ends.end.y) - tolerance);
    const int width = CutToDimension(std::abs(ends.end.x - ends.start.x) + 2 * tolerance);
    const int height = CutToDimension(std::abs(ends.end.y - ends.start.y) + 2 * tolerance);
    return x >= left && x <= left + width && y >= top && y <= top + height;
}

// Such an arc bows out of its box.
bool IsLaterTwin(const XmGraphPart &graph, Widget arc) {
    const XmGraphNodeList *siblings = ArcOf(arc).siblings;
    return graph.twins_visible == True && siblings && Widgets(*siblings).front() != arc;
}

// Asked before a region is made, which costs far more.
bool MayTouch(const XmGraphPart &graph, Widget arc, int x, int y) {
    const auto &part = ArcOf(arc);
    return (part.label_string && part.map_label) || IsInBox(arc, graph.arc_tolerance, x, y) ||
           part.to == part.from || IsLaterTwin(graph, arc);
}

// Regions have 16 bits: a point past them would come in again on the other side.
bool FitsRegion(int x, int y) {
    return x == CutToPosition(x) && y == CutToPosition(y);
}

bool Touches(const XmGraphPart &graph, Widget arc, int x, int y) {
    const OwnedRegion region(XmArcGetRegion(arc));
    const auto side = static_cast<unsigned>(2 * graph.arc_tolerance);
    return region && XRectInRegion(region.get(), x - graph.arc_tolerance, y - graph.arc_tolerance,
                                   side, side) != RectangleOut;
}

} // namespace

extern "C" {

// ---- Picking -----------------------------------------------------------------------------------------------

Widget XmGraphInputOverArc(Widget w, int x, int y) {
    if (!CheckGraph(w, "XmGraphInputOverArc requires an XmGraph widget")) {
        return nullptr;
    }
    if (!FitsRegion(x, y)) {
        return nullptr;
    }
    const auto &graph = GraphOf(w);
    for (Widget arc : Arcs(w)) {
        if (HasBothEnds(arc) && MayTouch(graph, arc, x, y) && Touches(graph, arc, x, y)) {
            return arc;
        }
    }
    return nullptr;
}

Boolean XmGraphIsPointInArc(Widget arc, int x, int y) {
    if (!arc || !XmIsArc(arc) || !HasBothEnds(arc) || !FitsRegion(x, y)) {
        return False;
    }
    const auto &graph = GraphOf(XtParent(arc));
    return MayTouch(graph, arc, x, y) && Touches(graph, arc, x, y) ? True : False;
}

} // extern "C"
