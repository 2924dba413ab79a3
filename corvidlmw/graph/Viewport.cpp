// What a graph shows: scrolling and zooming by function, and the node that a butterfly is laid out
// around.
//
// Nothing is moved here. The functions set the scroll bars of the window that the graph lies in, with
// notification, and the bars' callbacks do the rest; any of these may end the graph.

#include <corvidlmw/graph/GraphI.h>

#include <Xm/ScrollBar.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Scroll bars --------------------------------------------------------------------------------

struct Bar {
    Widget widget;
    int value, slider_size, increment, page_increment;
    int minimum, maximum;
};

// A client may have given the scrolled window bars of another class.
bool ReadBar(Widget w, Bar &bar) {
    if (!w || !XtIsSubclass(w, xmScrollBarWidgetClass)) {
        return false;
    }
    bar = {};
    bar.widget = w;
    XmScrollBarGetValues(w, &bar.value, &bar.slider_size, &bar.increment, &bar.page_increment);
    XtVaGetValues(w, XmNmaximum, &bar.maximum, XmNminimum, &bar.minimum, nullptr);
    return true;
}

void SetBar(Widget graph, Widget w, int wanted, bool from_far_end = false) {
    Bar bar;
    if (!ReadBar(w, bar)) {
        return;
    }
    const int last = bar.maximum - bar.slider_size;
    const int place = std::min(last, std::max<int>(bar.minimum, CutToPosition(wanted)));
    const int value = from_far_end ? bar.minimum + last - place : place;
    XmScrollBarSetValues(w, value, bar.slider_size, GraphOf(graph).increment, bar.page_increment,
                         True);
}

// For a place on an axis of the graph the same share of the bar's range.
int ProportionalValue(Widget w, int place, int extent) {
    Bar bar;
    if (!ReadBar(w, bar)) {
        return 0;
    }
    const auto product =
        std::int64_t{bar.maximum - bar.minimum - bar.slider_size} * std::int64_t{place};
    return Truncate(static_cast<float>(product) / static_cast<float>(extent));
}

bool CanScroll(Widget w) {
    return w && XmIsGraph(w) && GraphOf(w).in_scrolled_window;
}

// ---- Zoom -----------------------------------------------------------------------------------------

constexpr int widest_spacing = 4096;

// A negative factor divides.
int Zoomed(int spacing, float factor) {
    const auto length = static_cast<float>(spacing);
    const int zoomed = Truncate(factor >= 0 ? length * factor : length / -factor);
    return zoomed == 0 ? 1 : zoomed;
}

struct Share {
    float x, y;
};

// The place in the graph that stands in the middle of what can be seen.
Share MiddleOfView(Widget w) {
    const auto &graph = GraphOf(w);
    const bool scrolled = graph.in_scrolled_window;
    const int x = scrolled ? graph.clip_width / 2 - w->core.x : w->core.width / 2;
    const int y = scrolled ? graph.clip_height / 2 - w->core.y : w->core.height / 2;
    return {static_cast<float>(x) / static_cast<float>(w->core.width),
            static_cast<float>(y) / static_cast<float>(w->core.height)};
}

// ---- Butterfly root ---------------------------------------------------------------------------------

void butterflyDestroyed(Widget, XtPointer graph, XtPointer) {
    GraphOf(static_cast<Widget>(graph)).butterfly_root = nullptr;
}

} // namespace

namespace corvidlmw::graph {

void ForgetButterflyRoot(Widget w) {
    Widget &root = GraphOf(w).butterfly_root;
    if (root) {
        XtRemoveCallback(root, XmNdestroyCallback, butterflyDestroyed, w);
        root = nullptr;
    }
}

void ScrollTo(Widget w, const Point &corner) {
    Watch watch(w);
    SetBar(w, ScrollBarsAround(w).vertical, corner.y);
    if (!watch.Died()) {
        const ScrollBars bars = ScrollBarsAround(w);
        SetBar(w, bars.horizontal, corner.x, bars.from_right);
    }
}

} // namespace corvidlmw::graph

// ---- Public functions ---------------------------------------------------------------------------------

extern "C" {

void XmGraphCenterAroundWidget(Widget w, Widget widget) {
    if (!CanScroll(w) || !widget || !XtIsRectObj(widget)) {
        return;
    }
    const Rectangle place = RectangleOf(widget);
    const Rectangle view = RectangleOf(XtParent(w));
    ScrollTo(w, {place.x + place.width / 2 - view.width / 2,
                 place.y + place.height / 2 - view.height / 2});
}

// The test on the right edge measures the widget's width alone, so one that lies wholly past that edge
// counts as visible. The test on the lower edge is a real one.
void XmGraphMakeWidgetVisible(Widget w, Widget widget) {
    if (!CanScroll(w) || !widget || !XtIsRectObj(widget)) {
        return;
    }
    const auto &graph = GraphOf(w);
    const Rectangle place = RectangleOf(widget);
    const int left = -w->core.x;
    const int top = -w->core.y;
    const bool visible = place.x > left && place.y > top &&
                         place.x + place.width < graph.clip_width + place.x + left &&
                         place.y + place.height < graph.clip_height + top;
    if (!visible) {
        XmGraphCenterAroundWidget(w, widget);
    }
}

void XmGraphCenterAtPos(Widget w, int x, int y) {
    if (!CanScroll(w)) {
        return;
    }
    const ScrollBars bars = ScrollBarsAround(w);
    ScrollTo(w, {ProportionalValue(bars.horizontal, x, w->core.width),
                 ProportionalValue(bars.vertical, y, w->core.height)});
}

void XmGraphZoom(Widget w, float factor) {
    if (!w || !XmIsGraph(w) || std::isnan(factor)) {
        return;
    }
    const auto &graph = GraphOf(w);
    if (std::max(graph.child_spacing, graph.sibling_spacing) > widest_spacing && factor > 0) {
        return;
    }
    const Share middle = MiddleOfView(w);
    Watch watch(w);
    XtVaSetValues(w, XmNchildSpacing, Zoomed(graph.child_spacing, factor), XmNsiblingSpacing,
                  Zoomed(graph.sibling_spacing, factor), nullptr);
    if (!watch.Died()) {
        XmGraphCenterAtPos(w, Truncate(static_cast<float>(w->core.width) * middle.x),
                           Truncate(static_cast<float>(w->core.height) * middle.y));
    }
}

void XmGraphSetButterflyRoot(Widget w, Widget node) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    ForgetButterflyRoot(w);
    // Of one that is in its destroy callbacks already nobody would tell the end.
    if (node && !IsBeingDestroyed(node)) {
        GraphOf(w).butterfly_root = node;
        XtAddCallback(node, XmNdestroyCallback, butterflyDestroyed, w);
    }
}

} // extern "C"
