// What the scroll bar does with pointer and keys: actions, the repeat timer, callbacks.
//
// A press drags the slider, or takes one step, which a timer repeats until the release or until the
// value reaches its limit. Every action and the timer call the client last and touch nothing of the
// bar afterwards: the client may have destroyed it, or may have run events of its own.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <X11/keysym.h>
#include <Xm/ScrollBar.h>
#include <Xm/VirtKeys.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Events -------------------------------------------------------------------------------------

// Key, button and motion events have their place, time and detail at the same offsets. A client that
// calls an action by itself may have no event.
Point PointOf(const XEvent *event) {
    return event ? Point{event->xbutton.x, event->xbutton.y} : Point{};
}

Time TimeOf(const XEvent *event) {
    return event ? event->xbutton.time : CurrentTime;
}

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

// ---- Grab ---------------------------------------------------------------------------------------

void GrabKeyboard(Widget w, const XEvent *event) {
    if (XtGrabKeyboard(w, False, GrabModeAsync, GrabModeAsync, TimeOf(event)) == GrabSuccess) {
        SetFlag(BarOf(w), SV_KEYBOARD_GRABBED, true);
    }
    XAllowEvents(XtDisplay(w), AsyncPointer, CurrentTime);
    XAllowEvents(XtDisplay(w), AsyncKeyboard, CurrentTime);
}

void UngrabKeyboard(Widget w, const XEvent *event) {
    XtUngrabKeyboard(w, TimeOf(event));
    SetFlag(BarOf(w), SV_KEYBOARD_GRABBED, false);
}

// ---- Arrows -------------------------------------------------------------------------------------

Boolean &SelectedArrow(SvScrollBarPart &bar, Part arrow) {
    return arrow == Part::Arrow1 ? bar.arrow1_selected : bar.arrow2_selected;
}

void SelectArrow(Widget w, Part arrow, bool selected) {
    SelectedArrow(BarOf(w), arrow) = selected ? True : False;
    DrawArrow(w, arrow);
}

void ReleaseArrows(Widget w) {
    for (const Part arrow : {Part::Arrow1, Part::Arrow2}) {
        if (SelectedArrow(BarOf(w), arrow)) {
            SelectArrow(w, arrow, false);
        }
    }
}

// ---- Steps and their repetition -----------------------------------------------------------------

void TimerEvent(XtPointer w, XtIntervalId *);

std::int64_t StepOf(const SvScrollBarPart &bar, int reason) {
    switch (reason) {
    case XmCR_INCREMENT: return bar.increment;
    case XmCR_DECREMENT: return -std::int64_t{bar.increment};
    case XmCR_PAGE_INCREMENT: return bar.page_increment;
    case XmCR_PAGE_DECREMENT: return -std::int64_t{bar.page_increment};
    default: return 0;
    }
}

// True if there was a way to go.
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

void StartTimer(Widget w, int delay) {
    BarOf(w).timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                     static_cast<unsigned long>(delay), TimerEvent, w);
}

void EndTimer(SvScrollBarPart &bar) {
    if (bar.timer) {
        SetFlag(bar, SV_END_TIMER, true);
    }
}

// The client keeps up with the repetition, and the server with the client.
void ReportStep(Widget w) {
    const auto &bar = BarOf(w);
    Display *display = XtDisplay(w);
    ScrollCallback(w, bar.change_type, {}, nullptr);
    XSync(display, False);
}

// A timer that still runs from the last press goes on with this one's step. It is armed before the
// client is called, which may run events of its own and so see the release.
void ReportAndRepeat(Widget w) {
    auto &bar = BarOf(w);
    SetFlag(bar, SV_END_TIMER, false);
    SetFlag(bar, SV_FIRST_SCROLL, true);
    if (!bar.timer) {
        StartTimer(w, bar.initial_delay);
    }
    ReportStep(w);
}

// The first firing takes no step, so that there are both delays before the second one.
void TimerEvent(XtPointer client_data, XtIntervalId *) {
    auto *w = static_cast<Widget>(client_data);
    auto &bar = BarOf(w);
    bar.timer = 0;
    if (IsSet(bar, SV_END_TIMER)) {
        SetFlag(bar, SV_END_TIMER, false);
    } else if (IsSet(bar, SV_FIRST_SCROLL)) {
        XSync(XtDisplay(w), False);
        SetFlag(bar, SV_FIRST_SCROLL, false);
        StartTimer(w, bar.repeat_delay);
    } else if (IsSet(bar, SV_SLIDER_AVAILABLE) && TakeStep(w)) {
        StartTimer(w, bar.repeat_delay);
        ReportStep(w);
    } else {
        XSync(XtDisplay(w), False);
    }
}

// ---- Drag ---------------------------------------------------------------------------------------

void Moved(Widget w, XEvent *event, String *, Cardinal *) {
    auto &bar = BarOf(w);
    if (!event || !IsSet(bar, SV_SLIDER_AVAILABLE) || !bar.sliding_on) {
        return;
    }
    const Axis axis = AxisOf(bar);
    const Rectangle trough = TroughOf(bar);
    const Rectangle slider = SliderOf(bar);
    const Point initial = {bar.initial_x, bar.initial_y};
    const int pointer = std::clamp(axis.Along(PointOf(event)), axis.Start(trough),
                                   axis.Start(trough) + axis.Length(trough));
    const int start = pointer - axis.Along({bar.separation_x, bar.separation_y});
    if (start == axis.Along(initial)) {
        return;
    }
    const int origin = axis.Along({bar.arrow_width, bar.arrow_height}) + EdgeOf(w);
    const int value = ValueAt(trough, slider, axis, RangeOf(bar), origin, start);
    const Point place =
        axis.At(FitSlider(trough, slider, axis, start), axis.Across({slider.x, slider.y}));
    if (place != initial) {
        MoveSlider(w, place);
        bar.initial_x = CutToPosition(place.x);
        bar.initial_y = CutToPosition(place.y);
    }
    if (value != bar.value) {
        bar.value = value;
        ScrollCallback(w, XmCR_DRAG, PointOf(event), event);
    }
}

void BeginDrag(SvScrollBarPart &bar, Point separation) {
    bar.initial_x = bar.slider_x;
    bar.initial_y = bar.slider_y;
    bar.separation_x = CutToPosition(separation.x);
    bar.separation_y = CutToPosition(separation.y);
    bar.sliding_on = True;
}

// The slider comes to the pointer with its middle.
void DragFromMiddle(Widget w, XEvent *event) {
    auto &bar = BarOf(w);
    const Axis axis = AxisOf(bar);
    BeginDrag(bar, axis.At(axis.Length(SliderOf(bar)) / 2, 0));
    Moved(w, event, nullptr, nullptr);
}

// ---- Press and release --------------------------------------------------------------------------

// False if the focus callbacks of others took the bar along. In a scrolled window the focus stays
// with what is scrolled.
bool TakeFocus(Widget w) {
    if (XmIsScrolledWindow(XtParent(w))) {
        return true;
    }
    const LifeWatch life(w);
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    return !life.Ended();
}

void PressSlider(Widget w, XEvent *event) {
    auto &bar = BarOf(w);
    const Point point = PointOf(event);
    ReleaseArrows(w);
    if (event->xbutton.button == Button1) {
        BeginDrag(bar, {point.x - bar.slider_x, point.y - bar.slider_y});
    } else {
        DragFromMiddle(w, event);
    }
}

void PressTrough(Widget w, XEvent *event) {
    auto &bar = BarOf(w);
    const Axis axis = AxisOf(bar);
    ReleaseArrows(w);
    if (event->xbutton.button != Button1) {
        DragFromMiddle(w, event);
        return;
    }
    const bool before = axis.Along(PointOf(event)) < axis.Start(SliderOf(bar));
    bar.change_type = before ? XmCR_PAGE_DECREMENT : XmCR_PAGE_INCREMENT;
    if (TakeStep(w)) {
        ReportAndRepeat(w);
    }
}

// At the limit the arrow is pressed all the same, and nothing else happens.
void PressArrow(Widget w, Part arrow) {
    auto &bar = BarOf(w);
    bar.change_type = arrow == Part::Arrow1 ? XmCR_DECREMENT : XmCR_INCREMENT;
    const bool stepped = TakeStep(w);
    SelectArrow(w, arrow, true);
    if (stepped) {
        ReportAndRepeat(w);
    }
}

void PressPart(Widget w, Part part, XEvent *event) {
    BarOf(w).separation_x = BarOf(w).separation_y = 0;
    switch (part) {
    case Part::Slider: PressSlider(w, event); break;
    case Part::Trough: PressTrough(w, event); break;
    case Part::Arrow1:
    case Part::Arrow2: PressArrow(w, part); break;
    case Part::Nothing: break;
    }
}

// The place is judged before the focus moves, by which the slider might.
void Select(Widget w, XEvent *event, String *, Cardinal *) {
    auto &bar = BarOf(w);
    if (!event) {
        return;
    }
    bar.saved_value = bar.value;
    GrabKeyboard(w, event);
    if (!IsSet(bar, SV_SLIDER_AVAILABLE)) {
        return;
    }
    const Part part =
        PartAt(LayoutOf(bar), SliderOf(bar), bar.show_arrows != False, PointOf(event));
    if (event->xbutton.button != Button1 || TakeFocus(w)) {
        PressPart(w, part, event);
    }
}

// A press that began before the bar became unavailable ends as well, but nobody is told.
void Release(Widget w, XEvent *event, String *, Cardinal *) {
    auto &bar = BarOf(w);
    if (IsSet(bar, SV_KEYBOARD_GRABBED)) {
        UngrabKeyboard(w, event);
    }
    ReleaseArrows(w);
    EndTimer(bar);
    const bool slid = bar.sliding_on != False;
    bar.sliding_on = False;
    if (slid && IsSet(bar, SV_SLIDER_AVAILABLE)) {
        ScrollCallback(w, XmCR_VALUE_CHANGED, PointOf(event), event);
    }
}

// ---- Cancel -------------------------------------------------------------------------------------

// A dialog that the bar stands in gets the key that cancels nothing here.
void PassCancelOn(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    XmParentProcessDataRec data{};
    data.input_action = {.process_type = XmINPUT_ACTION,
                         .event = event,
                         .action = XmPARENT_CANCEL,
                         .params = params,
                         .num_params = num_params};
    _XmParentProcess(XtParent(w), &data);
}

// The range may have changed since the press.
void CancelDrag(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    auto &bar = BarOf(w);
    if (!IsSet(bar, SV_KEYBOARD_GRABBED)) {
        PassCancelOn(w, event, params, num_params);
        return;
    }
    UngrabKeyboard(w, event);
    bar.sliding_on = False;
    EndTimer(bar);
    bar.value = Fit(RangeOf(bar), bar.saved_value);
    const Rectangle slider = SliderAt(TroughOf(bar), AxisOf(bar), RangeOf(bar), bar.value);
    MoveSlider(w, {slider.x, slider.y});
    ScrollCallback(w, XmCR_VALUE_CHANGED, {bar.slider_x, bar.slider_y}, nullptr);
}

// ---- Jumps to the ends --------------------------------------------------------------------------

enum class End { Top, Bottom }; // of the trough, whatever the direction

void JumpTo(Widget w, End end, XEvent *event) {
    auto &bar = BarOf(w);
    const Axis axis = AxisOf(bar);
    const Rectangle trough = TroughOf(bar);
    const Rectangle slider = SliderOf(bar);
    const bool top = end == End::Top;
    const int bottom = axis.Start(trough) + axis.Length(trough) - axis.Length(slider);
    MoveSlider(w, axis.At(top ? axis.Start(trough) : bottom, axis.Across({slider.x, slider.y})));
    bar.value = top ? bar.minimum : bar.maximum - bar.slider_size;
    ScrollCallback(w, top ? XmCR_TO_TOP : XmCR_TO_BOTTOM, PointOf(event), event);
}

// The keys mean the ends as the client counts.
void JumpByKey(Widget w, XEvent *event) {
    Modifiers modifiers = 0;
    const bool begin = XtGetActionKeysym(event, &modifiers) == osfXK_BeginLine;
    JumpTo(w, begin != IsInverted(BarOf(w)) ? End::Top : End::Bottom, event);
}

void JumpByPointer(Widget w, XEvent *event) {
    auto &bar = BarOf(w);
    switch (SideAt(LayoutOf(bar), SliderOf(bar), AxisOf(bar), bar.show_arrows != False,
                   PointOf(event))) {
    case Side::Arrow1:
        bar.change_type = XmCR_DECREMENT;
        SelectArrow(w, Part::Arrow1, true);
        JumpTo(w, End::Top, event);
        break;
    case Side::Arrow2:
        bar.change_type = XmCR_INCREMENT;
        SelectArrow(w, Part::Arrow2, true);
        JumpTo(w, End::Bottom, event);
        break;
    case Side::Before: JumpTo(w, End::Top, event); break;
    case Side::After: JumpTo(w, End::Bottom, event); break;
    case Side::Nothing: break;
    }
}

void TopOrBottom(Widget w, XEvent *event, String *, Cardinal *) {
    if (!event || !IsSet(BarOf(w), SV_SLIDER_AVAILABLE)) {
        return;
    }
    if (event->type == KeyPress) {
        JumpByKey(w, event);
    } else {
        JumpByPointer(w, event);
    }
}

// ---- Steps by key -------------------------------------------------------------------------------

// The translations bind each key for both orientations: "0" is meant for a vertical bar, "1" for a
// horizontal one, anything else and no parameter at all for both.
bool IsMeant(const SvScrollBarPart &bar, const String *params, const Cardinal *num_params) {
    if (!params || !num_params || *num_params == 0 || !params[0]) {
        return true;
    }
    const int meant = std::atoi(params[0]);
    return AxisOf(bar).horizontal ? meant != 0 : meant != 1;
}

struct KeyStep {
    int reason;
    // The arrow on the side that the slider leaves: it can be used from now on.
    Part arrow;
    int available;
};

void RepaintArrow(Widget w, const KeyStep &step) {
    auto &bar = BarOf(w);
    if (!bar.show_arrows || IsSet(bar, step.available)) {
        return;
    }
    const bool first = step.arrow == Part::Arrow1;
    if (HasWindow(w)) {
        XClearArea(XtDisplay(w), XtWindow(w), first ? bar.arrow1_x : bar.arrow2_x,
                   first ? bar.arrow1_y : bar.arrow2_y, static_cast<unsigned>(bar.arrow_width),
                   static_cast<unsigned>(bar.arrow_height), False);
    }
    SelectArrow(w, step.arrow, false);
    SetFlag(bar, step.available, true);
}

void StepByKey(Widget w, XEvent *event, const String *params, const Cardinal *num_params,
               const KeyStep &step) {
    auto &bar = BarOf(w);
    if (!IsSet(bar, SV_SLIDER_AVAILABLE) || !IsMeant(bar, params, num_params)) {
        return;
    }
    const int value = Fit(RangeOf(bar), bar.value + StepOf(bar, step.reason));
    if (value == bar.value) {
        return;
    }
    bar.value = value;
    RepaintArrow(w, step);
    RedrawSlider(w);
    ScrollCallback(w, step.reason, PointOf(event), event);
}

void IncrementUpOrLeft(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    StepByKey(w, event, params, num_params, {XmCR_DECREMENT, Part::Arrow2, SV_ARROW2_AVAILABLE});
}

void IncrementDownOrRight(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    StepByKey(w, event, params, num_params, {XmCR_INCREMENT, Part::Arrow1, SV_ARROW1_AVAILABLE});
}

void PageUpOrLeft(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    StepByKey(w, event, params, num_params,
              {XmCR_PAGE_DECREMENT, Part::Arrow2, SV_ARROW2_AVAILABLE});
}

void PageDownOrRight(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    StepByKey(w, event, params, num_params,
              {XmCR_PAGE_INCREMENT, Part::Arrow1, SV_ARROW1_AVAILABLE});
}

} // namespace

// ---- Actions ------------------------------------------------------------------------------------

XtActionsRec actions[num_actions] = {
    {Name("Select"), Select},
    {Name("Release"), Release},
    {Name("Moved"), Moved},
    {Name("TopOrBottom"), TopOrBottom},
    {Name("IncrementUpOrLeft"), IncrementUpOrLeft},
    {Name("IncrementDownOrRight"), IncrementDownOrRight},
    {Name("PageUpOrLeft"), PageUpOrLeft},
    {Name("PageDownOrRight"), PageDownOrRight},
    {Name("CancelDrag"), CancelDrag},
};

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

} // namespace corvidlmw::scroll_bar
