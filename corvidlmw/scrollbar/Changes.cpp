// What a resource change does to the scroll bar.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <algorithm>

namespace corvidlmw::scroll_bar {

namespace {

// Each of these returns whether the bar has to be drawn anew.

// The toolkit's own change of the background reaches the window, too, whose background is the trough.
bool UpdateTroughColor(Widget current, Widget w) {
    const bool color_changed = BarOf(current).trough_color != BarOf(w).trough_color;
    const bool background_changed = current->core.background_pixel != w->core.background_pixel;
    if (!HasWindow(w) || !(color_changed || background_changed)) {
        return false;
    }
    XSetWindowBackground(DisplayOf(w), WindowOf(w), BarOf(w).trough_color);
    return true;
}

bool UpdateLayout(Widget current, Widget w) {
    const auto &old = BarOf(current);
    const auto &bar = BarOf(w);
    if (old.orientation == bar.orientation && old.show_arrows == bar.show_arrows &&
        PrimitiveOf(current).shadow_thickness == PrimitiveOf(w).shadow_thickness &&
        PrimitiveOf(current).highlight_thickness == PrimitiveOf(w).highlight_thickness) {
        return false;
    }
    XtClass(w)->core_class.resize(w);
    return true;
}

bool UpdateColors(Widget current, Widget w) {
    const auto &old = PrimitiveOf(current);
    const auto &primitive = PrimitiveOf(w);
    const bool fill_changed = old.foreground != primitive.foreground ||
                              current->core.background_pixel != w->core.background_pixel;
    if (fill_changed) {
        FreeForegroundGC(w);
    }
    if (!fill_changed && old.top_shadow_color == primitive.top_shadow_color &&
        old.bottom_shadow_color == primitive.bottom_shadow_color) {
        return false;
    }
    FreeSliderPixmaps(w);
    return true;
}

// True if the bar begins or ceases to react.
bool UpdateAvailability(SvScrollBarPart &bar) {
    const bool available = RangeOf(bar).Scrolls();
    const bool changed = available != IsSet(bar, SV_SLIDER_AVAILABLE);
    SetFlag(bar, SV_SLIDER_AVAILABLE, available);
    if (!available) {
        SetFlag(bar, SV_ARROW1_AVAILABLE | SV_ARROW2_AVAILABLE, true);
    }
    return changed;
}

// A slider that was copied over the stipple of an insensitive bar has to be stippled, too.
bool UpdateSlider(const SvScrollBarPart &old, Widget w) {
    auto &bar = BarOf(w);
    const bool range_changed = old.slider_size != bar.slider_size || old.minimum != bar.minimum ||
                               old.maximum != bar.maximum ||
                               old.processing_direction != bar.processing_direction;
    bool redisplay = false;
    bool moved = false;
    if (range_changed) {
        redisplay = UpdateAvailability(bar);
        moved = RefitSlider(w);
    } else if (old.value != bar.value) {
        moved = RedrawSlider(w);
    }
    return redisplay || (moved && !XtIsSensitive(w));
}

// The toolkit tells an insensitive bar of no release, and nobody else would have the keyboard again.
bool UpdateSensitivity(Widget current, Widget w) {
    if (!XtIsSensitive(w)) {
        UngrabKeyboard(w, CurrentTime);
    }
    return XtIsSensitive(current) != XtIsSensitive(w);
}

// ---- The numbers --------------------------------------------------------------------------------

// Whether anybody besides this class has a say in what XtSetValues does: a subclass, or a client that
// has hooked itself into all changes on the display.
bool OthersTakePart(Widget w) {
    return XtClass(w) != svScrollBarWidgetClass ||
           XtHasCallbacks(XtHooksOfDisplay(DisplayOf(w)), XtNchangeHook) == XtCallbackHasSome;
}

void SetNumbersByResources(Widget w, const Numbers &numbers) {
    Arg args[4];
    Cardinal count = 0;
    auto set = [&](const char *name, int number) {
        XtSetArg(args[count], Name(name), number);
        ++count;
    };
    set(XmNvalue, numbers.value);
    set(XmNsliderSize, numbers.slider_size);
    if (numbers.increment != 0) {
        set(XmNincrement, numbers.increment);
    }
    if (numbers.page_increment != 0) {
        set(XmNpageIncrement, numbers.page_increment);
    }
    XtSetValues(w, args, count);
}

} // namespace

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    RepairChange(BarOf(current), new_w);
    const bool redisplays[] = {UpdateTroughColor(current, new_w), UpdateLayout(current, new_w),
                               UpdateColors(current, new_w), UpdateSlider(BarOf(current), new_w),
                               UpdateSensitivity(current, new_w)};
    const bool any = std::any_of(std::begin(redisplays), std::end(redisplays),
                                 [](bool redisplay) { return redisplay; });
    return any ? True : False;
}

// Does by itself what XtSetValues would do here, at a fraction of the cost: a client that scrolls calls
// this all the time.
void SetNumbers(Widget w, const Numbers &numbers) {
    if (OthersTakePart(w)) {
        SetNumbersByResources(w, numbers);
        return;
    }
    auto &bar = BarOf(w);
    const SvScrollBarPart old = bar;
    bar.value = numbers.value;
    bar.slider_size = numbers.slider_size;
    bar.increment = numbers.increment != 0 ? numbers.increment : old.increment;
    bar.page_increment = numbers.page_increment != 0 ? numbers.page_increment : old.page_increment;
    SetFlag(bar, SV_VALUE_SET, true);
    RepairChange(old, w);
    if (UpdateSlider(old, w) && HasWindow(w)) {
        XClearArea(DisplayOf(w), WindowOf(w), 0, 0, 0, 0, True);
    }
}

} // namespace corvidlmw::scroll_bar
