// The scroll bar's values: what becomes of those out of range, and how an inverted bar's value is
// turned round between its field and its client.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <Xm/RepType.h>

#include <algorithm>
#include <limits>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Resources that are not given ---------------------------------------------------------------

constexpr int not_given = XmINVALID_DIMENSION;

XmRepTypeId orientation_type;

void Complain(Widget w, const char *text) {
    XmeWarning(w, Name(text));
}

// Stores the repaired number and says what was wrong with the other one.
template <typename T>
void Repair(Widget w, T &number, T repaired, const char *text) {
    number = repaired;
    Complain(w, text);
}

// Limits whose distance no int can hold are no range, either.
bool AreLimits(const SvScrollBarPart &bar) {
    return bar.minimum < bar.maximum &&
           std::int64_t{bar.maximum} - bar.minimum <= std::int64_t{std::numeric_limits<int>::max()};
}

// ---- Directions ---------------------------------------------------------------------------------

bool Fits(unsigned char direction, unsigned char orientation) {
    return orientation == XmHORIZONTAL ? direction == XmMAX_ON_LEFT || direction == XmMAX_ON_RIGHT
                                       : direction == XmMAX_ON_TOP || direction == XmMAX_ON_BOTTOM;
}

// Top is carried over to left and bottom to right, or the other way round.
unsigned char CarriedOver(unsigned char direction, unsigned char orientation) {
    const bool to_horizontal = orientation == XmHORIZONTAL && direction <= XmMAX_ON_BOTTOM;
    const bool to_vertical =
        orientation == XmVERTICAL && (direction == XmMAX_ON_LEFT || direction == XmMAX_ON_RIGHT);
    if (to_horizontal) {
        return static_cast<unsigned char>(direction + 2);
    }
    return to_vertical ? static_cast<unsigned char>(direction - 2) : direction;
}

bool IsOrientation(Widget w, unsigned char orientation) {
    return XmRepTypeValidValue(orientation_type, orientation, w) != False;
}

// ---- At creation --------------------------------------------------------------------------------

void RepairNewSliderSize(Widget w) {
    auto &bar = BarOf(w);
    const int extent = bar.maximum - bar.minimum;
    if (bar.slider_size == not_given) {
        bar.slider_size = std::max(extent / 10, 1);
    }
    if (bar.slider_size < 1) {
        Repair(w, bar.slider_size, 1, _XmMsgScrollBar_0001);
    }
    if (bar.slider_size > extent) {
        Repair(w, bar.slider_size, extent, _XmMsgScrollBar_0008);
    }
}

// Also a value that is too high starts at the minimum.
void RepairNewValue(Widget w) {
    auto &bar = BarOf(w);
    const bool given = bar.value != not_given;
    if (!given) {
        bar.value = 0;
    }
    const char *wrong = bar.value < bar.minimum                     ? _XmMsgScrollBar_0002
                        : bar.value > bar.maximum - bar.slider_size ? _XmMsgScrollBar_0003
                                                                    : nullptr;
    if (wrong) {
        bar.value = bar.minimum;
    }
    if (wrong && given) {
        Complain(w, wrong);
    }
}

void RepairNewOrientation(Widget w) {
    auto &bar = BarOf(w);
    if (!IsOrientation(w, bar.orientation)) {
        bar.orientation = XmVERTICAL;
    }
    if (!Fits(bar.processing_direction, bar.orientation)) {
        const auto usual = static_cast<unsigned char>(
            bar.orientation == XmHORIZONTAL ? XmMAX_ON_RIGHT : XmMAX_ON_BOTTOM);
        Repair(w, bar.processing_direction, usual, _XmMsgScaleScrBar_0004);
    }
}

void RepairNewSteps(Widget w) {
    auto &bar = BarOf(w);
    if (bar.increment < 1) {
        Repair(w, bar.increment, 1, _XmMsgScrollBar_0004);
    }
    if (bar.page_increment < 1) {
        Repair(w, bar.page_increment, 10, _XmMsgScrollBar_0005);
    }
    if (bar.initial_delay < 1) {
        Repair(w, bar.initial_delay, 250, _XmMsgScrollBar_0006);
    }
    // Not the resource's default, which is 50.
    if (bar.repeat_delay < 1) {
        Repair(w, bar.repeat_delay, 75, _XmMsgScrollBar_0007);
    }
}

// ---- After a change -----------------------------------------------------------------------------

// Each of these returns whether it repaired anything.

bool RepairLimits(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    if (AreLimits(bar)) {
        return false;
    }
    bar.minimum = old.minimum;
    Repair(w, bar.maximum, old.maximum, _XmMsgScrollBar_0000);
    return true;
}

bool RepairSliderSize(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    const int extent = bar.maximum - bar.minimum;
    if (bar.slider_size >= 1 && bar.slider_size <= extent) {
        return false;
    }
    Repair(w, bar.slider_size, std::min(old.slider_size, extent),
           bar.slider_size < 1 ? _XmMsgScrollBar_0001 : _XmMsgScrollBar_0008);
    return true;
}

bool RepairValue(Widget w) {
    auto &bar = BarOf(w);
    const Range range = RangeOf(bar);
    const int fitting = Fit(range, bar.value);
    if (fitting == bar.value) {
        return false;
    }
    Repair(w, bar.value, fitting,
           bar.value < bar.minimum ? _XmMsgScrollBar_0002 : _XmMsgScrollBar_0003);
    return true;
}

// The old direction may fit the new orientation no better than the new one.
bool RepairOrientation(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    const bool valid = IsOrientation(w, bar.orientation);
    if (!valid) {
        bar.orientation = old.orientation;
    }
    if (Fits(bar.processing_direction, bar.orientation)) {
        return !valid;
    }
    Repair(w, bar.processing_direction, CarriedOver(old.processing_direction, bar.orientation),
           _XmMsgScaleScrBar_0004);
    return true;
}

bool RepairStep(Widget w, int &step, int old_step, const char *text) {
    if (step >= 1) {
        return false;
    }
    Repair(w, step, old_step, text);
    return true;
}

bool RepairSteps(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    const bool repairs[] = {
        RepairStep(w, bar.increment, old.increment, _XmMsgScrollBar_0004),
        RepairStep(w, bar.page_increment, old.page_increment, _XmMsgScrollBar_0005),
        RepairStep(w, bar.initial_delay, old.initial_delay, _XmMsgScrollBar_0006),
        RepairStep(w, bar.repeat_delay, old.repeat_delay, _XmMsgScrollBar_0007)};
    return std::any_of(std::begin(repairs), std::end(repairs), [](bool repair) { return repair; });
}

bool RepairOnce(const SvScrollBarPart &old, Widget w) {
    const bool repairs[] = {RepairLimits(old, w), RepairSliderSize(old, w), RepairValue(w),
                            RepairOrientation(old, w), RepairSteps(old, w)};
    return std::any_of(std::begin(repairs), std::end(repairs), [](bool repair) { return repair; });
}

// A value that the client gave counts from its end. One that it did not give is what it was for the
// client.
void TurnValueRound(const SvScrollBarPart &old, SvScrollBarPart &bar) {
    const bool given = IsSet(bar, SV_VALUE_SET);
    if (given ? IsInverted(bar) : IsInverted(bar) != IsInverted(old)) {
        bar.value = Invert(RangeOf(bar), bar.value);
    }
    SetFlag(bar, SV_VALUE_SET, false);
}

} // namespace

// ---- Creation -----------------------------------------------------------------------------------

void LookUpRepresentationTypes() {
    orientation_type = XmRepTypeGetId(Name(XmROrientation));
}

void RepairAtCreation(Widget w) {
    auto &bar = BarOf(w);
    if (!AreLimits(bar)) {
        bar.minimum = 0;
        Repair(w, bar.maximum, 100, _XmMsgScrollBar_0000);
    }
    RepairNewSliderSize(w);
    RepairNewValue(w);
    RepairNewOrientation(w);
    RepairNewSteps(w);
}

// ---- Changes ------------------------------------------------------------------------------------

void RepairChange(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    if (bar.orientation != old.orientation &&
        bar.processing_direction == old.processing_direction) {
        bar.processing_direction = CarriedOver(bar.processing_direction, bar.orientation);
    }
    // A repair brings back what was valid, so the second pass makes none, or the third at the latest.
    while (RepairOnce(old, w)) {
    }
    TurnValueRound(old, bar);
}

// ---- The value as the client sees it ------------------------------------------------------------

void ExportScrollBarValue(Widget w, int, XtArgVal *value) {
    const auto &bar = BarOf(w);
    *value = static_cast<XtArgVal>(ForClient(bar, bar.value));
}

// Runs before SetValues, and at creation before Initialize, which assigns all flags.
XmImportOperator ImportScrollBarValue(Widget w, int, XtArgVal *) {
    SetFlag(BarOf(w), SV_VALUE_SET, true);
    return XmSYNTHETIC_LOAD;
}

} // namespace corvidlmw::scroll_bar
