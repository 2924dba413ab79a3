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
    XSetWindowBackground(XtDisplay(w), XtWindow(w), BarOf(w).trough_color);
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
        XtReleaseGC(w, BarOf(w).foreground_gc);
        BuildForegroundGC(w);
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
bool UpdateSlider(Widget current, Widget w) {
    const auto &old = BarOf(current);
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

} // namespace

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    RepairChange(BarOf(current), new_w);
    const bool redisplays[] = {UpdateTroughColor(current, new_w), UpdateLayout(current, new_w),
                               UpdateColors(current, new_w), UpdateSlider(current, new_w),
                               XtIsSensitive(current) != XtIsSensitive(new_w)};
    const bool any = std::any_of(std::begin(redisplays), std::end(redisplays),
                                 [](bool redisplay) { return redisplay; });
    return any ? True : False;
}

} // namespace corvidlmw::scroll_bar
