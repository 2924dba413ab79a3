// The scroll bar under the pointer: press, drag, release, cancel; and the table of all actions.
//
// A press drags the slider, or takes one step, which a timer repeats until the release or until the
// value reaches its limit.

#include <corvidlmw/scrollbar/SvScrollBarI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <algorithm>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Grab ---------------------------------------------------------------------------------------

bool IsHidden(Widget w) {
    XWindowAttributes attributes;
    return XGetWindowAttributes(DisplayOf(w), WindowOf(w), &attributes) &&
           attributes.map_state != IsViewable;
}

// The server ends the grab of a bar that is hidden in the middle of a press, and sends it no release.
// The toolkit would go on sending it all keys of the client.
void NoteGrabEnd(Widget w, XtPointer, XEvent *event, Boolean *) {
    if (event->type != FocusOut || event->xfocus.mode != NotifyUngrab) {
        return;
    }
    UngrabKeyboard(w, CurrentTime);
    if (IsHidden(w)) {
        EndTimer(BarOf(w));
    }
}

void GrabKeyboard(Widget w, const XEvent *event) {
    if (XtGrabKeyboard(w, False, GrabModeAsync, GrabModeAsync, TimeOf(event)) == GrabSuccess) {
        SetFlag(BarOf(w), SV_KEYBOARD_GRABBED, true);
        XtAddEventHandler(w, FocusChangeMask, False, NoteGrabEnd, nullptr);
    }
    XAllowEvents(DisplayOf(w), AsyncPointer, CurrentTime);
    XAllowEvents(DisplayOf(w), AsyncKeyboard, CurrentTime);
}

// ---- Arrows -------------------------------------------------------------------------------------

void ReleaseArrows(Widget w) {
    for (const Part arrow : {Part::Arrow1, Part::Arrow2}) {
        if (SelectedArrow(BarOf(w), arrow)) {
            SelectArrow(w, arrow, false);
        }
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

bool IsFirstButton(const XButtonEvent &press) {
    return (press.state & (Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask)) ==
           0;
}

// The place is judged before the focus moves, by which the slider might. A drag that lost its release
// while the bar was insensitive ends here.
void Select(Widget w, XEvent *event, String *, Cardinal *) {
    auto &bar = BarOf(w);
    if (!event) {
        return;
    }
    bar.saved_value = bar.value;
    if (IsFirstButton(event->xbutton)) {
        bar.sliding_on = False;
    }
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
    UngrabKeyboard(w, TimeOf(event));
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
    UngrabKeyboard(w, TimeOf(event));
    bar.sliding_on = False;
    EndTimer(bar);
    bar.value = Fit(RangeOf(bar), bar.saved_value);
    const Rectangle slider = SliderAt(TroughOf(bar), AxisOf(bar), RangeOf(bar), bar.value);
    MoveSlider(w, {slider.x, slider.y});
    ScrollCallback(w, XmCR_VALUE_CHANGED, {bar.slider_x, bar.slider_y}, nullptr);
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

// ---- Grab ---------------------------------------------------------------------------------------

void UngrabKeyboard(Widget w, Time time) {
    if (IsSet(BarOf(w), SV_KEYBOARD_GRABBED)) {
        XtRemoveEventHandler(w, FocusChangeMask, False, NoteGrabEnd, nullptr);
        XtUngrabKeyboard(w, time);
        SetFlag(BarOf(w), SV_KEYBOARD_GRABBED, false);
    }
}

// ---- Arrows -------------------------------------------------------------------------------------

void SelectArrow(Widget w, Part arrow, bool selected) {
    SelectedArrow(BarOf(w), arrow) = selected ? True : False;
    DrawArrow(w, arrow);
}

} // namespace corvidlmw::scroll_bar
