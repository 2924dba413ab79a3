// Keys that move the location cursor or scroll.
//
// In lists that browse or select ranges the selection follows the cursor, unless add mode parts the two.
// The list scrolls as far as the cursor's row needs; without a scrolled window the cursor stays in view.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <Xm/List.h>

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace corvidlmw::list {

namespace {

bool HasRows(const LmListPart &list) {
    return list.element_count > 0;
}

void MoveTo(Widget w, int top, int row) {
    auto &list = ListOf(w);
    EraseCursor(w);
    list.current_keyboard_item = row;
    list.top_item_position = top;
    DrawList(w);
    SetVerticalScrollbar(w);
}

bool Follow(Widget w, int row) {
    const auto &list = ListOf(w);
    if (!SelectsRanges(list)) {
        return true;
    }
    return list.automatic_selection && list.selection_policy == XmBROWSE_SELECT
               ? HandleNewItem(w, row)
               : HandleExtendedItem(w, row);
}

// ---- One row ----------------------------------------------------------------------------------------

void Step(Widget w, int rows) {
    const auto &list = ListOf(w);
    const int row = list.current_keyboard_item + rows;
    if (!IsRow(list, row) || (!list.scrolled_window && !RowsInView(list).Contains(row))) {
        return;
    }
    BringIntoView(w, row);
    PlaceCursor(w, row);
    Follow(w, row);
}

// What a step means while a modifier is held.
struct Modifiers {
    int flags;
    unsigned char selection_type;
    bool extended_only;
};
constexpr Modifiers shift{EVENT_SHIFT, XmMODIFICATION, true};
constexpr Modifiers control{EVENT_CTRL, XmADDITION, false};
constexpr Modifiers shift_control{EVENT_SHIFT | EVENT_CTRL, XmMODIFICATION, true};

void StepWith(Widget w, int rows, const Modifiers &modifiers) {
    auto &list = ListOf(w);
    if (!list.traversing ||
        (modifiers.extended_only && list.selection_policy != XmEXTENDED_SELECT)) {
        return;
    }
    const LifeWatch life(w);
    list.append_in_progress = True;
    list.event_flags = static_cast<char>(list.event_flags | modifiers.flags);
    list.selection_type = modifiers.selection_type;
    Step(w, rows);
    if (!life.Ended()) {
        list.event_flags = 0;
        list.append_in_progress = False;
    }
}

// ---- Pages ------------------------------------------------------------------------------------------

// The selection follows even where there is no bar to scroll by.
void TurnPage(Widget w, int top, int row) {
    if (ListOf(w).vertical_scroll_bar) {
        MoveTo(w, top, row);
    }
    Follow(w, row);
}

// ---- Sideways ---------------------------------------------------------------------------------------

constexpr int sideways_step = 10;

void ScrollSideways(Widget w, int origin) {
    if (ListOf(w).scrolled_window) {
        LmListSetHorizPos(w, origin);
    }
}

// A page leaves one step of the last one in sight.
int SidewaysPage(Widget w) {
    return ListWidth(FrameOf(w)) - sideways_step;
}

// ---- The ends ---------------------------------------------------------------------------------------

// Without a scrolled window, of the rows that are in view.
int FirstRow(const LmListPart &list) {
    return list.scrolled_window ? 0 : RowsInView(list).first;
}

int LastTop(const LmListPart &list) {
    return list.scrolled_window ? std::max(list.element_count - list.visible_item_count, 0)
                                : list.top_item_position;
}

bool SelectUnlessAdding(Widget w, int row) {
    return ListOf(w).add_mode || SelectRow(w, row, true);
}

bool ExtendsTo(const LmListPart &list) {
    return HasRows(list) && (list.selection_policy == XmMULTIPLE_SELECT ||
                             list.selection_policy == XmEXTENDED_SELECT);
}

void ExtendTo(Widget w, int top, int row) {
    auto &list = ListOf(w);
    const LifeWatch life(w);
    list.event_flags = static_cast<char>(list.event_flags | EVENT_SHIFT);
    MoveTo(w, top, row);
    if (list.selection_policy == XmEXTENDED_SELECT) {
        HandleExtendedItem(w, row);
    }
    if (!life.Ended()) {
        list.event_flags = 0;
    }
}

// ---- The cursor's place in the window ---------------------------------------------------------------

std::optional<int> OffsetOf(const LmListPart &list, const char *percentage) {
    constexpr long most = std::numeric_limits<int>::max();
    char *end = nullptr;
    const long percent = std::clamp(std::strtol(percentage, &end, 10), -most, most);
    if (end == percentage) {
        return std::nullopt;
    }
    const long offset = list.visible_item_count * (percent == 100 ? 99 : percent) / 100;
    return static_cast<int>(std::clamp(offset, -1L, most));
}

std::optional<int> OffsetOf(Widget w, const XEvent *event) {
    const auto at = PointOf(event);
    return at ? std::optional(RowFromY(w, at->y) - std::max(ListOf(w).top_item_position, 0))
              : std::nullopt;
}

} // namespace

void StepPlainly(Widget w, int rows) {
    auto &list = ListOf(w);
    if (!list.traversing) {
        return;
    }
    list.append_in_progress = False;
    list.event_flags = static_cast<char>(list.event_flags & EVENT_BUTTON_DOWN);
    list.selection_type = XmINITIAL;
    Step(w, rows);
}

// ---- Actions ----------------------------------------------------------------------------------------

void NormalPrevElement(Widget w, XEvent *, String *, Cardinal *) {
    StepPlainly(w, -1);
}

void NormalNextElement(Widget w, XEvent *, String *, Cardinal *) {
    StepPlainly(w, 1);
}

void ShiftPrevElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, -1, shift);
}

void ShiftNextElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, 1, shift);
}

void CtrlPrevElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, -1, control);
}

void CtrlNextElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, 1, control);
}

void ExtendAddPrevElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, -1, shift_control);
}

void ExtendAddNextElement(Widget w, XEvent *, String *, Cardinal *) {
    StepWith(w, 1, shift_control);
}

void KbdPrevPage(Widget w, XEvent *, String *, Cardinal *) {
    const auto &list = ListOf(w);
    const int page = list.visible_item_count - 1;
    if (HasRows(list) && list.scrolled_window && list.top_item_position != 0) {
        TurnPage(w, std::max(list.top_item_position - page, 0),
                 std::clamp(list.current_keyboard_item - page, 0, list.element_count - 1));
    }
}

void KbdNextPage(Widget w, XEvent *, String *, Cardinal *) {
    const auto &list = ListOf(w);
    const int page = list.visible_item_count - 1;
    const int last_top = list.element_count - list.visible_item_count;
    if (HasRows(list) && list.scrolled_window && list.top_item_position < last_top) {
        TurnPage(w, std::min(list.top_item_position + page, last_top),
                 std::clamp(list.current_keyboard_item + page, 0, list.element_count - 1));
    }
}

void KbdLeftChar(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, ListOf(w).horizontal_origin - sideways_step);
}

void KbdRightChar(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, ListOf(w).horizontal_origin + sideways_step);
}

void KbdLeftPage(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, ListOf(w).horizontal_origin - SidewaysPage(w));
}

void KbdRightPage(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, ListOf(w).horizontal_origin + SidewaysPage(w));
}

void BeginLine(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, 0);
}

void EndLine(Widget w, XEvent *, String *, Cardinal *) {
    ScrollSideways(w, ListOf(w).horizontal_maximum - ListOf(w).horizontal_extent);
}

void TopItem(Widget w, XEvent *, String *, Cardinal *) {
    auto &list = ListOf(w);
    const int row = FirstRow(list);
    if (!IsRow(list, row)) {
        return;
    }
    PlaceCursor(w, row);
    ScrollToTop(w, row);
    if (SelectUnlessAdding(w, row)) {
        list.start_item = row;
    }
}

void EndItem(Widget w, XEvent *, String *, Cardinal *) {
    const auto &list = ListOf(w);
    const int row = list.scrolled_window ? list.element_count - 1 : RowsInView(list).end - 1;
    if (!IsRow(list, row)) {
        return;
    }
    PlaceCursor(w, row);
    ScrollToBottom(w, row);
    SelectUnlessAdding(w, row);
}

void ExtendTopItem(Widget w, XEvent *, String *, Cardinal *) {
    const auto &list = ListOf(w);
    const int row = FirstRow(list);
    if (ExtendsTo(list) && IsRow(list, row)) {
        ExtendTo(w, row, row);
    }
}

// Without a scrolled window this reaches one row further than the end without extending does.
void ExtendEndItem(Widget w, XEvent *, String *, Cardinal *) {
    const auto &list = ListOf(w);
    if (ExtendsTo(list)) {
        const int last = list.element_count - 1;
        ExtendTo(w, LastTop(list),
                 list.scrolled_window ? last : std::min(RowsInView(list).end, last));
    }
}

// The top moves so that the cursor's row gets a place in the window: that of the event, or one given in
// percent.
void ListItemVisible(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    const auto &list = ListOf(w);
    if (!HasRows(list) || !list.scrolled_window) {
        return;
    }
    const bool is_given = params && num_params && *num_params > 0 && params[0];
    const auto offset = is_given ? OffsetOf(list, params[0]) : OffsetOf(w, event);
    if (offset && *offset >= 0 && *offset <= list.element_count) {
        ScrollToTop(w, std::clamp(list.current_keyboard_item - *offset, 0, list.element_count - 1));
    }
}

} // namespace corvidlmw::list
