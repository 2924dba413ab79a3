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

void Put(const SvScrollBarPart &bar, TwoDIntRec &pair, int number) {
    (DimensionsOf(bar) & NavigDimensionX ? pair.x : pair.y) = number;
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

// All at once, since new limits and a new value often fit only each other.
void SetValue(Widget w, XmNavigatorData data, Boolean notify) {
    auto &bar = BarOf(w);
    if (data->valueMask & NavDimMask) {
        bar.internal = reinterpret_cast<XtPointer>(data->dimMask);
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

void GetValue(Widget w, XmNavigatorData data) {
    const auto &bar = BarOf(w);
    data->valueMask = NavValue | NavMinimum | NavMaximum | NavSliderSize | NavIncrement |
                      NavPageIncrement | NavDimMask;
    data->dimMask = DimensionsOf(bar);
    Put(bar, data->value, ForClient(bar, bar.value));
    Put(bar, data->minimum, bar.minimum);
    Put(bar, data->maximum, bar.maximum);
    Put(bar, data->slider_size, bar.slider_size);
    Put(bar, data->increment, bar.increment);
    Put(bar, data->page_increment, bar.page_increment);
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
