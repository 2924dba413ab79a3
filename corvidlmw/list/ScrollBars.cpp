// The two scroll bars of a list in a scrolled window: made, brought up to date, listened to, let go.
//
// The list scrolls by drawing other rows, never by moving its window. A bar is told a value only if it
// shows another; all values of a bar are set in one call, so that there is no moment at which they disagree.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/scrollbar/SvScrollBarP.h>

#include <Xm/ScrolledW.h>

#include <algorithm>
#include <utility>

namespace corvidlmw::list {

namespace {

// ---- Listening to bars ----------------------------------------------------------------------------------

int ValueIn(XtPointer call_data) {
    return static_cast<XmScrollBarCallbackStruct *>(call_data)->value;
}

// A bar that the client exchanged for another one moves nothing any more.
void VertSliderMove(Widget bar, XtPointer closure, XtPointer call_data) {
    const auto w = static_cast<Widget>(closure);
    auto &list = ListOf(w);
    if (bar != list.vertical_scroll_bar) {
        return;
    }
    EraseCursor(w);
    list.vertical_origin = list.top_item_position = ValueIn(call_data);
    DrawList(w);
    if (static_cast<XmScrollBarCallbackStruct *>(call_data)->reason != XmCR_DRAG) {
        ShowCursor(w);
    }
}

// Rows can be wider than the 16 bits of x_origin reach.
void HorizSliderMove(Widget bar, XtPointer closure, XtPointer call_data) {
    constexpr int furthest = 32767;
    const auto w = static_cast<Widget>(closure);
    auto &list = ListOf(w);
    if (bar != list.horizontal_scroll_bar) {
        return;
    }
    EraseCursor(w);
    list.horizontal_origin = ValueIn(call_data);
    list.x_origin = CutToPosition(std::min(list.horizontal_origin, furthest));
    DrawList(w);
}

void UpdateHighlight(Widget, XtPointer closure, XtPointer) {
    ShowCursor(static_cast<Widget>(closure));
}

void ForgetBar(Widget bar, XtPointer closure, XtPointer) {
    auto &list = ListOf(static_cast<Widget>(closure));
    std::erase(StateOf(list).made_bars, bar);
    for (Widget *field : {&list.vertical_scroll_bar, &list.horizontal_scroll_bar}) {
        if (*field == bar) {
            *field = nullptr;
        }
    }
}

// Once, however often the bar is exchanged.
void RememberBar(Widget w, Widget bar) {
    XtRemoveCallback(bar, XmNdestroyCallback, ForgetBar, w);
    XtAddCallback(bar, XmNdestroyCallback, ForgetBar, w);
}

const char *const scroll_callbacks[] = {
    XmNincrementCallback, XmNdecrementCallback, XmNpageIncrementCallback, XmNpageDecrementCallback,
    XmNtoTopCallback,     XmNtoBottomCallback,  XmNdragCallback};

void ListenTo(Widget bar, Widget w, XtCallbackProc on_scroll) {
    for (const char *name : scroll_callbacks) {
        XtAddCallback(bar, name, on_scroll, w);
    }
    RememberBar(w, bar);
    StateOf(w).made_bars.push_back(bar);
}

void StopListeningTo(Widget bar, Widget w) {
    for (const char *name : scroll_callbacks) {
        XtRemoveCallback(bar, name, VertSliderMove, w);
        XtRemoveCallback(bar, name, HorizSliderMove, w);
    }
    XtRemoveCallback(bar, XmNvalueChangedCallback, UpdateHighlight, w);
    XtRemoveCallback(bar, XmNdestroyCallback, ForgetBar, w);
}

// ---- Making bars ----------------------------------------------------------------------------------------

void FillLooks(Widget w, Vector<Arg> &args) {
    const auto add = [&args](const char *name, XtArgVal value) {
        args.push_back({Name(name), value});
    };
    const auto &primitive = PrimitiveOf(w);
    add(XmNunitType, XmPIXELS);
    add(XmNbackground, w->core.background_pixel);
    add(XmNbackgroundPixmap, w->core.background_pixmap);
    add(XmNshadowThickness, primitive.shadow_thickness);
    add(XmNhighlightThickness, 0);
    add(XmNtopShadowColor, primitive.top_shadow_color);
    add(XmNtopShadowPixmap, primitive.top_shadow_pixmap);
    add(XmNbottomShadowColor, primitive.bottom_shadow_color);
    add(XmNbottomShadowPixmap, primitive.bottom_shadow_pixmap);
    add(XmNtraversalOn, False);
    add(XmNsensitive, static_cast<XtArgVal>(w->core.sensitive));
}

Widget CreateBar(Widget w, const char *name, Vector<Arg> args) {
    FillLooks(w, args);
    Widget bar = XtCreateWidget(name, svScrollBarWidgetClass, ListOf(w).scrolled_window,
                                args.data(), static_cast<Cardinal>(args.size()));
    reinterpret_cast<SvScrollBarWidget>(bar)->primitive.unit_type = PrimitiveOf(w).unit_type;
    return bar;
}

void CreateVerticalBar(Widget w) {
    auto &list = ListOf(w);
    list.vertical_scroll_bar = CreateBar(w, "VertScrollBar", {{Name(XmNorientation), XmVERTICAL}});
    ListenTo(list.vertical_scroll_bar, w, VertSliderMove);
    XtAddCallback(list.vertical_scroll_bar, XmNvalueChangedCallback, UpdateHighlight, w);
    SetVerticalScrollbar(w);
}

void CreateHorizontalBar(Widget w) {
    auto &list = ListOf(w);
    const BarValues bar = HorizontalBar(FrameOf(w), list.base_x, list.max_width, list.x_origin);
    list.horizontal_scroll_bar =
        CreateBar(w, "HorScrollBar",
                  {{Name(XmNorientation), XmHORIZONTAL},
                   {Name(XmNminimum), 0},
                   {Name(XmNmaximum), bar.maximum},
                   {Name(XmNvalue), bar.value},
                   {Name(XmNsliderSize), bar.slider_size},
                   {Name(XmNincrement), bar.increment},
                   {Name(XmNpageIncrement), std::max<int>(w->core.width, 1)}});
    ListenTo(list.horizontal_scroll_bar, w, HorizSliderMove);
    SetHorizontalScrollbar(w);
}

bool ScrollsThroughParent(Widget w) {
    Widget parent = XtParent(w);
    return XmIsScrolledWindow(parent) &&
           ResourceOf<unsigned char>(parent, XmNvisualPolicy, XmCONSTANT) != XmCONSTANT;
}

// ---- Telling bars ---------------------------------------------------------------------------------------

const SvScrollBarPart &PartOf(Widget bar) {
    return reinterpret_cast<SvScrollBarWidget>(bar)->scroll_bar;
}

// Each added row asks, so the list's own class of bars is not asked by the names of its resources.
BarValues ShownBy(Widget bar) {
    BarValues shown;
    if (SvIsScrollBar(bar)) {
        SvScrollBarGetValues(bar, &shown.value, &shown.slider_size, &shown.increment,
                             &shown.page_increment);
        shown.maximum = PartOf(bar).maximum;
        return shown;
    }
    XtVaGetValues(bar, XmNmaximum, &shown.maximum, XmNvalue, &shown.value, XmNsliderSize,
                  &shown.slider_size, XmNincrement, &shown.increment, XmNpageIncrement,
                  &shown.page_increment, nullptr);
    return shown;
}

void Tell(Widget bar, const BarValues &values) {
    if (ShownBy(bar) != values) {
        XtVaSetValues(bar, XmNmaximum, values.maximum, XmNvalue, values.value, XmNsliderSize,
                      values.slider_size, XmNincrement, values.increment, XmNpageIncrement,
                      values.page_increment, nullptr);
    }
}

unsigned char DirectionOf(Widget bar, unsigned char preset) {
    return SvIsScrollBar(bar) ? PartOf(bar).processing_direction
                              : ResourceOf(bar, XmNprocessingDirection, preset);
}

void SetDirection(Widget bar, bool right_to_left) {
    const auto direction =
        static_cast<unsigned char>(right_to_left ? XmMAX_ON_LEFT : XmMAX_ON_RIGHT);
    if (DirectionOf(bar, direction) != direction) {
        XtVaSetValues(bar, XmNprocessingDirection, direction, nullptr);
    }
}

bool NeedsVerticalBar(const LmListPart &list) {
    return list.scroll_bar_display_policy == XmSTATIC ||
           (list.element_count > 0 &&
            (list.element_count > list.visible_item_count || list.top_item_position != 0));
}

bool NeedsHorizontalBar(Widget w) {
    const auto &list = ListOf(w);
    return list.scroll_bar_display_policy == XmSTATIC || list.max_width > ListWidth(FrameOf(w));
}

void TellVertical(Widget w) {
    auto &list = ListOf(w);
    const BarValues values =
        VerticalBar(list.element_count, list.top_item_position, list.visible_item_count);
    if (list.element_count > 0) {
        list.vertical_maximum = values.maximum;
        list.vertical_origin = values.value;
        list.vertical_extent = values.slider_size;
        Tell(list.vertical_scroll_bar, values);
    } else if (XtIsManaged(list.vertical_scroll_bar)) {
        Tell(list.vertical_scroll_bar, values);
    }
}

void TellHorizontal(Widget w) {
    auto &list = ListOf(w);
    if (list.element_count > 0) {
        const BarValues values =
            HorizontalBar(FrameOf(w), list.base_x, list.max_width, list.x_origin);
        list.horizontal_maximum = values.maximum;
        list.horizontal_origin = values.value;
        list.x_origin = CutToPosition(values.value);
        list.horizontal_extent = values.slider_size;
        SetDirection(list.horizontal_scroll_bar, IsRightToLeft(list));
        Tell(list.horizontal_scroll_bar, values);
    } else if (XtIsManaged(list.horizontal_scroll_bar)) {
        Tell(list.horizontal_scroll_bar, {});
    }
}

// The window shows the rows at the old origin, with the cursor.
void ShowMoved(Widget w, Position old_origin) {
    auto &list = ListOf(w);
    const Position origin = std::exchange(list.x_origin, old_origin);
    EraseCursor(w);
    list.x_origin = origin;
    DrawList(w);
}

} // namespace

// ---- Life -----------------------------------------------------------------------------------------------

void CreateScrollBars(Widget w) {
    auto &list = ListOf(w);
    list.scrolled_window = list.vertical_scroll_bar = list.horizontal_scroll_bar = nullptr;
    if (!ScrollsThroughParent(w)) {
        return;
    }
    list.scrolled_window = XtParent(w);
    CreateVerticalBar(w);
    if (!IsVariable(list)) {
        CreateHorizontalBar(w);
    }
    XmScrolledWindowSetAreas(list.scrolled_window, list.horizontal_scroll_bar,
                             list.vertical_scroll_bar, w);
}

void ReleaseScrollBars(Widget w) {
    auto &list = ListOf(w);
    for (Widget bar : StateOf(list).made_bars) {
        StopListeningTo(bar, w);
    }
    for (Widget bar : {list.vertical_scroll_bar, list.horizontal_scroll_bar}) {
        if (bar) {
            XtRemoveCallback(bar, XmNdestroyCallback, ForgetBar, w);
        }
    }
}

// Anything else the scrolled window would crash with.
bool CanBeBar(const LmListPart &list, Widget bar) {
    return !bar || (XmIsScrollBar(bar) && XtParent(bar) == list.scrolled_window);
}

void RefuseOtherWidgets(LmListPart &list, const LmListPart &old) {
    for (auto bar : {&LmListPart::vertical_scroll_bar, &LmListPart::horizontal_scroll_bar}) {
        if (!CanBeBar(list, list.*bar)) {
            list.*bar = old.*bar;
        }
    }
    if (list.vertical_scroll_bar && list.vertical_scroll_bar == list.horizontal_scroll_bar) {
        list.vertical_scroll_bar = old.vertical_scroll_bar;
        list.horizontal_scroll_bar = old.horizontal_scroll_bar;
    }
}

// The client says which bars there are; those that it brings along report to the client alone.
void ExchangeScrollBars(Widget w, const LmListPart &old) {
    auto &list = ListOf(w);
    RefuseOtherWidgets(list, old);
    const auto &made = StateOf(list).made_bars;
    for (Widget bar : {old.vertical_scroll_bar, old.horizontal_scroll_bar}) {
        if (bar && std::find(made.begin(), made.end(), bar) == made.end()) {
            XtRemoveCallback(bar, XmNdestroyCallback, ForgetBar, w);
        }
    }
    for (Widget bar : {list.vertical_scroll_bar, list.horizontal_scroll_bar}) {
        if (bar) {
            RememberBar(w, bar);
        }
    }
    if (list.scrolled_window) {
        XmScrolledWindowSetAreas(list.scrolled_window, list.horizontal_scroll_bar,
                                 list.vertical_scroll_bar, w);
    }
}

void ShowBar(Widget bar, bool shown) {
    if (bar && (XtIsManaged(bar) != False) != shown) {
        (shown ? XtManageChild : XtUnmanageChild)(bar);
    }
}

// ---- Bringing bars up to date ------------------------------------------------------------------------------

// Showing a bar makes the scrolled window resize the list, which can move the top: it is read afterwards.
void SetVerticalScrollbar(Widget w) {
    auto &list = ListOf(w);
    if (!list.update || !list.scrolled_window || !list.vertical_scroll_bar ||
        list.in_scroll_update) {
        return;
    }
    list.in_scroll_update = True;
    list.visible_item_count = SetVizCount(w);
    ShowBar(list.vertical_scroll_bar, NeedsVerticalBar(list));
    TellVertical(w);
    list.in_scroll_update = False;
}

// Showing this bar leaves other rows in view, of which the vertical one hears when this is done.
void SetHorizontalScrollbar(Widget w) {
    auto &list = ListOf(w);
    if (!list.update || !list.scrolled_window || !list.horizontal_scroll_bar) {
        return;
    }
    const Boolean was_in_update = list.in_scroll_update;
    const int visible = list.visible_item_count;
    const Position origin = list.x_origin;
    list.in_scroll_update = True;
    if (list.element_count > 0) {
        RecomputeMaxWidth(list);
    }
    const bool needed = NeedsHorizontalBar(w);
    if (!needed) {
        PlaceBaseX(w);
        list.x_origin = 0;
    }
    ShowBar(list.horizontal_scroll_bar, needed);
    TellHorizontal(w);
    list.in_scroll_update = was_in_update;
    if (list.x_origin != origin) {
        ShowMoved(w, origin);
    }
    if (list.visible_item_count != visible) {
        SetVerticalScrollbar(w);
    }
}

} // namespace corvidlmw::list
