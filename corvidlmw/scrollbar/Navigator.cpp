// The navigator trait, by which a scrolled window reads and sets its scroll bars, of whatever class
// they are.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <Xm/NavigatorT.h>
#include <Xm/TraitP.h>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Dimensions ---------------------------------------------------------------------------------

// `internal` holds the dimensions that a scrolled window said this bar is for. Before one has, its
// orientation says it.
Mask DimensionsOf(const SvScrollBarPart &bar) {
    const auto told = reinterpret_cast<Mask>(bar.internal);
    const Mask own = AxisOf(bar).horizontal ? NavigDimensionX : NavigDimensionY;
    return told ? told : own;
}

int Pick(const SvScrollBarPart &bar, const TwoDIntRec &pair) {
    return DimensionsOf(bar) & NavigDimensionX ? pair.x : pair.y;
}

// ---- The trait's procedures ---------------------------------------------------------------------

void ChangeMoveCallback(Widget w, XtCallbackProc callback, XtPointer closure, Boolean set) {
    auto *const change = set ? XtAddCallback : XtRemoveCallback;
    change(w, XmNvalueChangedCallback, callback, closure);
    change(w, XmNdragCallback, callback, closure);
}

struct Setting {
    Mask bit;
    const char *resource;
    TwoDIntRec XmNavigatorDataRec::*numbers;
};

const Setting settings[] = {
    {NavMinimum, XmNminimum, &XmNavigatorDataRec::minimum},
    {NavMaximum, XmNmaximum, &XmNavigatorDataRec::maximum},
    {NavSliderSize, XmNsliderSize, &XmNavigatorDataRec::slider_size},
    {NavIncrement, XmNincrement, &XmNavigatorDataRec::increment},
    {NavPageIncrement, XmNpageIncrement, &XmNavigatorDataRec::page_increment},
    {NavValue, XmNvalue, &XmNavigatorDataRec::value},
};

// A scrolled window tells all of its bars of each change, also of those in the other dimension. The
// numbers are set all at once, since new limits and a new value often fit only each other.
void SetValue(Widget w, XmNavigatorData data, Boolean notify) {
    auto &bar = BarOf(w);
    if (data->valueMask & NavDimMask) {
        bar.internal = reinterpret_cast<XtPointer>(data->dimMask);
    }
    if (!(data->dimMask & DimensionsOf(bar))) {
        return;
    }
    Arg args[XtNumber(settings)];
    Cardinal count = 0;
    for (const Setting &setting : settings) {
        if (data->valueMask & setting.bit) {
            XtSetArg(args[count], Name(setting.resource), Pick(bar, data->*setting.numbers));
            ++count;
        }
    }
    const int old_value = bar.value;
    if (count > 0) {
        XtSetValues(w, args, count);
    }
    if (notify && bar.value != old_value) {
        ScrollCallback(w, XmCR_VALUE_CHANGED, {}, nullptr);
    }
}

// Only what the mask asks for.
void GetValue(Widget w, XmNavigatorData data) {
    const auto &bar = BarOf(w);
    data->dimMask = DimensionsOf(bar);
    auto put = [&](Mask bit, TwoDIntRec &pair, int number) {
        if (data->valueMask & bit) {
            (DimensionsOf(bar) & NavigDimensionX ? pair.x : pair.y) = number;
        }
    };
    put(NavValue, data->value, ForClient(bar, bar.value));
    put(NavMinimum, data->minimum, bar.minimum);
    put(NavMaximum, data->maximum, bar.maximum);
    put(NavSliderSize, data->slider_size, bar.slider_size);
    put(NavIncrement, data->increment, bar.increment);
    put(NavPageIncrement, data->page_increment, bar.page_increment);
}

XmNavigatorTraitRec navigator = {
    .version = 0,
    .changeMoveCB = ChangeMoveCallback,
    .setValue = SetValue,
    .getValue = GetValue,
};

} // namespace

// A trait belongs to one class: a subclass needs it as well.
void InstallNavigator(WidgetClass widget_class) {
    XmeTraitSet(widget_class, XmQTnavigator, &navigator);
}

} // namespace corvidlmw::scroll_bar
