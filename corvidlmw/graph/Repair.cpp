// Repainting a part of the graph at once, without an exposure.
//
// An arc is erased by painting over it, which takes the pixels of whatever it crossed along. A gesture that
// shows and hides an arc's highlight notes what was erased, and repaints there when its step is done.

#include <corvidlmw/graph/GraphI.h>
#include <corvidlmw/toolkit/Regions.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// Past this many boxes one around all of them is cheaper.
constexpr std::size_t most_boxes = 64;

XRectangle Cut(const Rectangle &r) {
    return {CutToPosition(r.x), CutToPosition(r.y), CutToDimension(r.width),
            CutToDimension(r.height)};
}

// What of it lies in the window; empty elsewhere.
Rectangle Clipped(const Rectangle &r, Widget w) {
    const int left = std::clamp<int>(r.x, 0, w->core.width);
    const int top = std::clamp<int>(r.y, 0, w->core.height);
    return {left, top, std::clamp<int>(r.x + r.width, 0, w->core.width) - left,
            std::clamp<int>(r.y + r.height, 0, w->core.height) - top};
}

} // namespace

namespace corvidlmw::graph {

Rectangle Around(const Rectangle &a, const Rectangle &b) {
    const int left = std::min(a.x, b.x);
    const int top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
            std::max(a.y + a.height, b.y + b.height) - top};
}

void ClearAndPaint(Widget w, Region region) {
    const FigureLift lift(w);
    for (const XRectangle &r : RectanglesOf(region)) {
        XClearArea(XtDisplay(w), XtWindow(w), r.x, r.y, r.width, r.height, False);
    }
    PaintRegion(w, region);
}

void RepaintBoxes(Widget w, const Vector<Rectangle> &boxes) {
    const OwnedRegion region(XCreateRegion());
    for (const Rectangle &box : boxes) {
        XRectangle cut = Cut(Clipped(box, w));
        if (cut.width > 0 && cut.height > 0) {
            XUnionRectWithRegion(&cut, region.get(), region.get());
        }
    }
    if (!XEmptyRegion(region.get())) {
        ClearAndPaint(w, region.get());
    }
}

void NoteDamage(Widget w, const Rectangle &box) {
    auto &state = StateOf(w);
    if (state.repairs == 0) {
        return;
    }
    if (state.damage.size() == most_boxes) {
        state.damage.front() = Around(state.damage.front(), box);
    } else {
        state.damage.push_back(box);
    }
}

DamageRepair::DamageRepair(Widget w) : watch_(w), graph_(w) {
    StateOf(w).repairs += 1;
}

DamageRepair::~DamageRepair() {
    if (watch_.Died() || --StateOf(graph_).repairs > 0) {
        return;
    }
    const Vector<Rectangle> damage = std::exchange(StateOf(graph_).damage, {});
    if (!damage.empty() && HasWindow(graph_) && !IsBeingDestroyed(graph_)) {
        RepaintBoxes(graph_, damage);
    }
}

} // namespace corvidlmw::graph
