// What resources a list accepts, and what a change of each does.
//
// Rows and selected rows that a client gives are taken out of the record before anything else happens: the
// record holds what the list has until it takes over the new ones, and so all that runs in between finds
// arrays and counts that belong together. What is given can be a part of either array of the list's own,
// so both are copied before the first of those goes.

#include <corvidlmw/list/LmListI.h>

#include <Xm/RepType.h>

#include <algorithm>
#include <utility>

namespace corvidlmw::list {

namespace {

// ---- Representation types -------------------------------------------------------------------------------

struct RepresentationTypes {
    XmRepTypeId selection_policy;
    XmRepTypeId list_size_policy;
    XmRepTypeId scroll_bar_display_policy;
    XmRepTypeId string_direction;
} types;

void Check(Widget w, XmRepTypeId type, unsigned char &value, unsigned char preset) {
    if (!XmRepTypeValidValue(type, value, w)) {
        value = preset;
    }
}

// The toolkit's type has values beyond the two directions.
void CheckDirection(Widget w, XmStringDirection &direction, XmStringDirection preset) {
    Check(w, types.string_direction, direction, preset);
    if (direction != XmSTRING_DIRECTION_L_TO_R && direction != XmSTRING_DIRECTION_R_TO_L) {
        direction = preset;
    }
}

XmStringDirection DirectionOfParent(Widget w) {
    constexpr XmStringDirection preset = XmSTRING_DIRECTION_L_TO_R;
    return XmIsManager(XtParent(w)) ? ResourceOf(XtParent(w), XmNstringDirection, preset) : preset;
}

void RepairSpacing(Widget w, Dimension preset) {
    auto &list = ListOf(w);
    if (list.list_spacing < 1) {
        WarnOfList(w, _XmMsgList_0008);
        list.list_spacing = preset;
    }
}

bool AlwaysAdds(const LmListPart &list) {
    return list.selection_policy == XmSINGLE_SELECT || list.selection_policy == XmMULTIPLE_SELECT;
}

} // namespace

void LookUpRepresentationTypes() {
    types = {.selection_policy = XmRepTypeGetId(Name(XmRSelectionPolicy)),
             .list_size_policy = XmRepTypeGetId(Name(XmRListSizePolicy)),
             .scroll_bar_display_policy = XmRepTypeGetId(Name(XmRScrollBarDisplayPolicy)),
             .string_direction = XmRepTypeGetId(Name(XmRStringDirection))};
}

// ---- Creation -------------------------------------------------------------------------------------------

void RepairAtCreation(Widget w) {
    auto &list = ListOf(w);
    RepairSpacing(w, 1);
    if (list.top_item_position < 0) {
        WarnOfList(w, _XmMsgList_0012);
        list.top_item_position = 0;
    }
    if (list.double_click_interval < 0) {
        list.double_click_interval = XtGetMultiClickTime(XtDisplay(w));
    }
    Check(w, types.selection_policy, list.selection_policy, XmBROWSE_SELECT);
    Check(w, types.list_size_policy, list.list_size_policy, XmVARIABLE);
    Check(w, types.scroll_bar_display_policy, list.scroll_bar_display_policy, XmAS_NEEDED);
    if (list.string_direction == XmSTRING_DIRECTION_DEFAULT) {
        list.string_direction = DirectionOfParent(w);
    }
    CheckDirection(w, list.string_direction, XmSTRING_DIRECTION_L_TO_R);
    list.add_mode = AlwaysAdds(list);
}

void PlaceSpacing(Widget w) {
    auto &list = ListOf(w);
    const Dimension thickness = PrimitiveOf(w).highlight_thickness;
    list.row_highlight = static_cast<unsigned char>(thickness ? std::min(thickness + 1, 255) : 0);
    list.item_spacing = CutToDimension(list.list_spacing + list.row_highlight);
}

void TakeFonts(Widget w) {
    auto &list = ListOf(w);
    list.font_list = XmFontListCopy(list.font_list ? list.font_list
                                                   : XmeGetDefaultRenderTable(w, XmTEXT_FONTLIST));
    StateOf(list).text_widths.Take(list.font_list);
    StateOf(list).antialiased.reset();
}

// ---- Changes --------------------------------------------------------------------------------------------

namespace {

// An array of strings that a client set, beside the list's own.
struct GivenStrings {
    XmString *strings = nullptr;
    int count = 0;
    bool changed = false;
    bool too_long = false; // for the array of the list's own that it is a part of
    Vector<OwnedXmString> copies;
};

// One XtSetValues.
struct Change {
    Widget w;
    const LmListPart &old;
    const Widget old_w;
    GivenStrings items;
    GivenStrings selected_items;
    bool redraw = false;
    bool reset_size = false;
    bool selection_changed = false;

    LmListPart &list() const { return ListOf(w); }
};

GivenStrings TakeOut(XmString *&strings, int &count, XmString *old_strings, int old_count) {
    GivenStrings given{.strings = strings,
                       .count = count,
                       .changed = strings != old_strings || count != old_count};
    strings = old_strings;
    count = old_count;
    return given;
}

// The list's own array is no longer than it is.
bool ReachesPastOwn(const GivenStrings &given, XmString *own, int own_count) {
    return own && given.strings >= own && given.strings < own + own_count &&
           given.count > own + own_count - given.strings;
}

void CopyGiven(const LmListPart &list, GivenStrings &given) {
    given.too_long = ReachesPastOwn(given, list.items, list.item_count) ||
                     ReachesPastOwn(given, list.selected_items, list.selected_item_count);
    if (given.changed && given.strings && given.count > 0 && !given.too_long) {
        given.copies.reserve(static_cast<std::size_t>(given.count));
        for (XmString string : std::span(given.strings, static_cast<std::size_t>(given.count))) {
            given.copies.emplace_back(XmStringCopy(string));
        }
    }
}

void CopyStrings(Change &change) {
    CopyGiven(change.list(), change.items);
    CopyGiven(change.list(), change.selected_items);
}

void ChangeIcons(Change &change) {
    auto &list = change.list();
    if (list.show_icons != change.old.show_icons ||
        list.default_icon_width != change.old.default_icon_width) {
        list.icon_column_width = list.show_icons ? CutToPosition(list.default_icon_width) : 0;
        change.redraw = true;
    }
    if (list.indent_icons != change.old.indent_icons) {
        RecountNeeds(change.w);
        change.redraw = true;
    }
}

void ChangePolicies(Change &change) {
    auto &list = change.list();
    const auto &old = change.old;
    Check(change.w, types.selection_policy, list.selection_policy, old.selection_policy);
    if (list.selection_policy != old.selection_policy && AlwaysAdds(list) != (list.add_mode != 0)) {
        EraseCursor(change.w);
        list.add_mode = AlwaysAdds(list);
        ChangeHighlightGC(change.w, list.add_mode);
        ShowCursor(change.w);
    }
    Check(change.w, types.list_size_policy, list.list_size_policy, old.list_size_policy);
    Check(change.w, types.scroll_bar_display_policy, list.scroll_bar_display_policy,
          old.scroll_bar_display_policy);
    CheckDirection(change.w, list.string_direction, old.string_direction);
    change.redraw = change.redraw || list.string_direction != old.string_direction;
}

void ChangeBars(Change &change) {
    auto &list = change.list();
    if (list.horizontal_scroll_bar != change.old.horizontal_scroll_bar ||
        list.vertical_scroll_bar != change.old.vertical_scroll_bar) {
        ExchangeScrollBars(change.w, change.old);
    }
    if (list.list_size_policy != change.old.list_size_policy) {
        WarnOfList(change.w, _XmMsgList_0005);
        list.list_size_policy = change.old.list_size_policy;
    }
}

// The least margin holds from here on, and not for a creation.
void ChangeMargins(Change &change) {
    constexpr Dimension least_margin_width = 2;
    auto &list = change.list();
    if (list.list_margin_width != change.old.list_margin_width ||
        list.list_margin_height != change.old.list_margin_height) {
        list.list_margin_width = std::max(list.list_margin_width, least_margin_width);
        change.reset_size = true;
    }
}

void ChangeSpacing(Change &change) {
    auto &list = change.list();
    const auto &primitive = PrimitiveOf(change.w);
    const auto &old_primitive = PrimitiveOf(change.old_w);
    if (list.list_spacing != change.old.list_spacing ||
        primitive.highlight_thickness != old_primitive.highlight_thickness) {
        RepairSpacing(change.w, change.old.list_spacing);
        PlaceSpacing(change.w);
        ChangeHighlightGC(change.w, list.add_mode);
        ResetHeight(change.w);
        change.reset_size = true;
    }
    if (primitive.shadow_thickness != old_primitive.shadow_thickness) {
        change.reset_size = true;
    }
}

void ChangeVisibleCount(Change &change) {
    auto &list = change.list();
    if (list.visible_item_count == change.old.visible_item_count) {
        return;
    }
    if (list.visible_item_count < 1) {
        WarnOfList(change.w, _XmMsgList_0000);
        list.visible_item_count = change.old.visible_item_count;
        return;
    }
    list.last_set_visible_count = list.visible_item_count;
    change.reset_size = true;
}

void ChangeSensitivity(Change &change) {
    Widget w = change.w;
    auto &list = change.list();
    if (w->core.sensitive == change.old_w->core.sensitive) {
        return;
    }
    for (Widget bar : {list.vertical_scroll_bar, list.horizontal_scroll_bar}) {
        if (list.scrolled_window && bar) {
            XtVaSetValues(bar, XmNsensitive, static_cast<int>(w->core.sensitive), nullptr);
        }
    }
    if (!w->core.sensitive && list.traversing) {
        EraseCursor(w);
        list.traversing = False;
    }
    change.redraw = true;
}

// ---- Selected items ---------------------------------------------------------------------------------------

void InstallSelectedItems(LmListPart &list, GivenStrings &given) {
    ClearSelectedList(list);
    if (given.count > 0) {
        list.selected_items = static_cast<XmString *>(
            static_cast<void *>(XtCalloc(static_cast<Cardinal>(given.count), sizeof(XmString))));
        std::transform(given.copies.begin(), given.copies.end(), list.selected_items,
                       [](OwnedXmString &copy) { return copy.release(); });
        list.selected_item_count = given.count;
    }
}

void ChangeSelectedItems(Change &change) {
    auto &list = change.list();
    GivenStrings &given = change.selected_items;
    if (!given.changed) {
        return;
    }
    if (given.count > 0 && !given.strings) {
        WarnOfList(change.w, _XmMsgList_0011);
    } else if (given.count < 0 || given.too_long) {
        WarnOfList(change.w, _XmMsgList_0010);
    } else {
        InstallSelectedItems(list, given);
        change.selection_changed = true;
    }
}

// ---- Items ------------------------------------------------------------------------------------------------

void PullTopBack(LmListPart &list) {
    const int last = list.element_count - list.visible_item_count;
    if (list.top_item_position > last) {
        list.top_item_position = std::max(last, 0);
    }
}

// The list keeps the copies.
void InstallItems(Widget w, GivenStrings &given) {
    auto &list = ListOf(w);
    const int top = list.top_item_position;
    RemoveAllRows(w);
    AdoptRows(w, 0, given.copies, Selection::Nothing);
    list.top_item_position = top;
    PullTopBack(list);
    list.last_highlighted = list.current_keyboard_item = 0;
    list.x_origin = 0;
}

void ChangeItems(Change &change) {
    auto &list = change.list();
    GivenStrings &given = change.items;
    if (!given.changed) {
        return;
    }
    DropFields(list);
    if (given.count < 0 || given.too_long) {
        WarnOfList(change.w, _XmMsgList_0006);
    } else if (given.count > 0 && !given.strings) {
        WarnOfList(change.w, _XmMsgList_0009);
    } else {
        InstallItems(change.w, given);
        change.selection_changed = change.reset_size = true;
    }
}

// ---- Looks ------------------------------------------------------------------------------------------------

bool ColoursChanged(const Change &change) {
    const auto &primitive = PrimitiveOf(change.w);
    const auto &old_primitive = PrimitiveOf(change.old_w);
    return primitive.foreground != old_primitive.foreground ||
           change.w->core.background_pixel != change.old_w->core.background_pixel ||
           change.list().arm_color != change.old.arm_color;
}

void ChangeFonts(Change &change) {
    auto &list = change.list();
    TakeFonts(change.w);
    XmFontListFree(change.old.font_list);
    for (LmListElement *element : ElementsOf(list)) {
        _XmStringUpdate(list.font_list, element->name);
    }
    StateOf(list).stale_fonts = true;
    ResetHeight(change.w);
    change.reset_size = true;
}

void ChangeLooks(Change &change) {
    const auto &list = change.list();
    if (PrimitiveOf(change.w).highlight_GC != PrimitiveOf(change.old_w).highlight_GC) {
        MakeHighlightGC(change.w, list.add_mode);
    }
    const bool fonts = list.font_list != change.old.font_list;
    if (fonts) {
        ChangeFonts(change);
    }
    if (fonts || ColoursChanged(change)) {
        MakeGC(change.w);
        change.redraw = true;
    }
}

// ---- Top, update, and the end -------------------------------------------------------------------------------

void ChangeTop(Change &change) {
    auto &list = change.list();
    if (list.top_item_position == change.old.top_item_position) {
        return;
    }
    if (list.top_item_position < 0) {
        WarnOfList(change.w, _XmMsgList_0012);
        list.top_item_position = change.old.top_item_position;
        if (change.items.changed) {
            PullTopBack(list);
        }
        return;
    }
    const int top = std::exchange(list.top_item_position, change.old.top_item_position);
    EraseCursor(change.w);
    list.top_item_position = top;
    DrawList(change.w);
    SetVerticalScrollbar(change.w);
}

// The size that was not asked for meanwhile goes into this change's own request.
void ChangeUpdate(Change &change) {
    if (change.list().update && !change.old.update) {
        change.reset_size = change.redraw = true;
    }
}

void TakeSelection(Change &change) {
    auto &list = change.list();
    if (!change.selection_changed) {
        return;
    }
    SelectByMembership(list);
    UpdateSelectedIndices(list);
    if (!change.reset_size) {
        DrawList(change.w);
        SetSelectionParams(change.w);
    }
}

void TakeSize(Change &change) {
    Widget w = change.w;
    if (!change.reset_size) {
        return;
    }
    const Size size = SetDefaultSize(w);
    PlaceBaseX(w);
    PlaceBaseY(w);
    if (change.list().list_size_policy != XmCONSTANT || w->core.width == 0) {
        w->core.width = size.width;
    }
    w->core.height = size.height;
    change.redraw = true;
}

void TellBars(Widget w) {
    auto &list = ListOf(w);
    if (list.in_set_new_size) {
        return;
    }
    if (!IsVariable(list)) {
        SetHorizontalScrollbar(w);
    }
    SetVerticalScrollbar(w);
}

constexpr void (*steps[])(Change &) = {
    CopyStrings,   ChangeIcons,        ChangePolicies,    ChangeBars,          ChangeMargins,
    ChangeSpacing, ChangeVisibleCount, ChangeSensitivity, ChangeSelectedItems, ChangeItems,
    ChangeLooks,   ChangeTop,          ChangeUpdate,      TakeSelection,       TakeSize};

} // namespace

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    auto &list = ListOf(new_w);
    const auto &old = ListOf(current);
    Change change{.w = new_w, .old = old, .old_w = current};
    change.items = TakeOut(list.items, list.item_count, old.items, old.item_count);
    change.selected_items = TakeOut(list.selected_items, list.selected_item_count,
                                    old.selected_items, old.selected_item_count);
    for (auto *const step : steps) {
        step(change);
    }
    TellBars(new_w);
    return change.redraw;
}

} // namespace corvidlmw::list
