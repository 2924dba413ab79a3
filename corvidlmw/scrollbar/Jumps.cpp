// Jumps to the ends, by key or by pointer, and steps by key.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <Xm/VirtKeys.h>

#include <cstdlib>

namespace corvidlmw::scroll_bar {

namespace {

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
        XClearArea(DisplayOf(w), WindowOf(w), first ? bar.arrow1_x : bar.arrow2_x,
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

} // namespace

// ---- Actions ------------------------------------------------------------------------------------

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

} // namespace corvidlmw::scroll_bar
