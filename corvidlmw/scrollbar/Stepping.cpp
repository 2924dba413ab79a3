// How the scroll bar calls its clients, and the steps that a timer repeats.
//
// The client is called last, and nothing of the bar is touched afterwards: it may have been destroyed,
// or may have seen events of its own.

#include <corvidlmw/scrollbar/SvScrollBarI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <Xm/ScrollBar.h>

#include <algorithm>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Callbacks ----------------------------------------------------------------------------------

struct Route {
    int reason;
    int mirrored; // what an inverted bar calls it
    XtCallbackList SvScrollBarPart::*list;
};

constexpr Route routes[] = {
    {XmCR_INCREMENT, XmCR_DECREMENT, &SvScrollBarPart::increment_callback},
    {XmCR_DECREMENT, XmCR_INCREMENT, &SvScrollBarPart::decrement_callback},
    {XmCR_PAGE_INCREMENT, XmCR_PAGE_DECREMENT, &SvScrollBarPart::page_increment_callback},
    {XmCR_PAGE_DECREMENT, XmCR_PAGE_INCREMENT, &SvScrollBarPart::page_decrement_callback},
    {XmCR_TO_TOP, XmCR_TO_BOTTOM, &SvScrollBarPart::to_top_callback},
    {XmCR_TO_BOTTOM, XmCR_TO_TOP, &SvScrollBarPart::to_bottom_callback},
    {XmCR_DRAG, XmCR_DRAG, &SvScrollBarPart::drag_callback},
    {XmCR_VALUE_CHANGED, XmCR_VALUE_CHANGED, &SvScrollBarPart::value_changed_callback},
};

const Route &RouteOf(int reason) {
    const auto *found = std::find_if(std::begin(routes), std::end(routes) - 1,
                                     [&](const Route &route) { return route.reason == reason; });
    return *found;
}

// ---- Steps and their repetition -----------------------------------------------------------------

void TimerEvent(XtPointer w, XtIntervalId *);

void StartTimer(Widget w, int delay) {
    BarOf(w).timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                     static_cast<unsigned long>(delay), TimerEvent, w);
}

// The client keeps up with the repetition, and the server with the client; who destroyed the bar may
// have closed its display as well.
void ReportStep(Widget w) {
    const LifeWatch life(w);
    ScrollCallback(w, BarOf(w).change_type, {}, nullptr);
    if (!life.Ended()) {
        XSync(DisplayOf(w), False);
    }
}

// An insensitive bar is not told of the release.
bool MayRepeat(Widget w) {
    return IsSet(BarOf(w), SV_SLIDER_AVAILABLE) && XtIsSensitive(w);
}

// The first firing takes no step, so that there are both delays before the second one.
void TimerEvent(XtPointer client_data, XtIntervalId *) {
    auto *w = static_cast<Widget>(client_data);
    auto &bar = BarOf(w);
    bar.timer = 0;
    if (IsSet(bar, SV_END_TIMER)) {
        SetFlag(bar, SV_END_TIMER, false);
    } else if (IsSet(bar, SV_FIRST_SCROLL)) {
        XSync(DisplayOf(w), False);
        SetFlag(bar, SV_FIRST_SCROLL, false);
        StartTimer(w, bar.repeat_delay);
    } else if (MayRepeat(w) && TakeStep(w)) {
        StartTimer(w, bar.repeat_delay);
        ReportStep(w);
    } else {
        XSync(DisplayOf(w), False);
    }
}

} // namespace

// ---- Callbacks ----------------------------------------------------------------------------------

// A step that nobody listens to is still a change of the value; a drag has no such way out.
void ScrollCallback(Widget w, int reason, Point pointer, XEvent *event) {
    auto &bar = BarOf(w);
    const int mirrored = IsInverted(bar) ? RouteOf(reason).mirrored : reason;
    XmScrollBarCallbackStruct data{};
    data.reason = mirrored;
    data.event = event;
    data.value = ForClient(bar, bar.value);
    data.pixel = AxisOf(bar).Along(pointer);
    XtCallbackList list = bar.*RouteOf(mirrored).list;
    if (!list && mirrored != XmCR_DRAG) {
        data.reason = XmCR_VALUE_CHANGED;
        list = bar.value_changed_callback;
    }
    XtCallCallbackList(w, list, &data);
}

// ---- Steps and their repetition -----------------------------------------------------------------

std::int64_t StepOf(const SvScrollBarPart &bar, int reason) {
    switch (reason) {
    case XmCR_INCREMENT: return bar.increment;
    case XmCR_DECREMENT: return -std::int64_t{bar.increment};
    case XmCR_PAGE_INCREMENT: return bar.page_increment;
    case XmCR_PAGE_DECREMENT: return -std::int64_t{bar.page_increment};
    default: return 0;
    }
}

bool TakeStep(Widget w) {
    auto &bar = BarOf(w);
    const int value = Fit(RangeOf(bar), bar.value + StepOf(bar, bar.change_type));
    if (value == bar.value) {
        return false;
    }
    bar.value = value;
    RedrawSlider(w);
    return true;
}

// The timer is armed before the client is called, which may run events of its own and so see the
// release.
void ReportAndRepeat(Widget w) {
    auto &bar = BarOf(w);
    SetFlag(bar, SV_END_TIMER, false);
    SetFlag(bar, SV_FIRST_SCROLL, true);
    if (!bar.timer) {
        StartTimer(w, bar.initial_delay);
    }
    ReportStep(w);
}

void EndTimer(SvScrollBarPart &bar) {
    if (bar.timer) {
        SetFlag(bar, SV_END_TIMER, true);
    }
}

} // namespace corvidlmw::scroll_bar
