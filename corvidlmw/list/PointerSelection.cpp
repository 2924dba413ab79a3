// Press, motion and release, which the keyboard's selection runs through as well.
//
// From press to release EVENT_BUTTON_DOWN is set; the flags of a modifier are set before the press. What is
// selected changes at the press and while the pointer moves; clients are told at the release, or all along
// with automatic selection. What a gesture undoes is kept in the rows' last_selected.
//
// A callback that runs in the middle can empty the list or destroy it: whatever follows one asks whether
// the list lives and looks at its rows anew.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <Xm/List.h>

#include <algorithm>
#include <cstdint>

namespace corvidlmw::list {

namespace {

Time TimeOf(const XEvent &event) {
    switch (event.type) {
    case KeyPress:
    case KeyRelease: return event.xkey.time;
    case ButtonPress:
    case ButtonRelease: return event.xbutton.time;
    case MotionNotify: return event.xmotion.time;
    case EnterNotify:
    case LeaveNotify: return event.xcrossing.time;
    default: return 0;
    }
}

bool IsExtended(const LmListPart &list) {
    return list.selection_policy == XmEXTENDED_SELECT;
}

bool HasFlag(const LmListPart &list, int flag) {
    return (list.event_flags & flag) != 0;
}

void AddFlag(LmListPart &list, int flag) {
    list.event_flags = static_cast<char>(list.event_flags | flag);
}

// ---- The press --------------------------------------------------------------------------------------

// A list that is insensitive or behind a modal dialog never hears of the release: the modifiers of that
// gesture are none of the next one's.
void ForgetLostGesture(LmListPart &list) {
    if (HasFlag(list, EVENT_BUTTON_DOWN) && !list.keyboard_selection) {
        list.event_flags = 0;
        list.append_in_progress = False;
    }
}

unsigned char TypeOfSelection(const LmListPart &list) {
    if (HasFlag(list, EVENT_SHIFT)) {
        return XmMODIFICATION;
    }
    return HasFlag(list, EVENT_CTRL) ? XmADDITION : XmINITIAL;
}

// The server's clock has 32 bits.
bool IsSecondPress(const LmListPart &list, Time now) {
    return !list.keyboard_selection && list.down_time != 0 && list.down_count >= 1 &&
           std::int64_t{static_cast<std::uint32_t>(now - list.down_time)} <
               list.double_click_interval;
}

void CountPress(LmListPart &list, Time now) {
    list.down_count = 1;
    if (!list.keyboard_selection) {
        list.down_time = now;
    }
    list.did_selection = False;
}

void SelectPressedExtending(LmListPart &list, int row) {
    const bool selected = ElementOf(list, row).selected != False;
    if (HasFlag(list, EVENT_CTRL)) {
        SetSelected(list, row, !selected);
    } else if (list.traversing && list.add_mode) {
        SetLastSelected(list, row, selected);
        SetSelected(list, row, !selected);
    } else {
        SetSelected(list, row, true);
    }
}

void SelectPressed(Widget w, int row) {
    auto &list = ListOf(w);
    const bool was_selected = ElementOf(list, row).selected != False;
    const bool adds =
        list.selection_policy == XmMULTIPLE_SELECT || (IsExtended(list) && list.append_in_progress);
    if (!adds) {
        SelectRange(w, 0, list.element_count - 1, false);
    }
    if (!IsExtended(list)) {
        SetSelected(list, row, !list.add_mode || !was_selected);
    } else if (!HasFlag(list, EVENT_SHIFT)) {
        SelectPressedExtending(list, row);
    }
    DrawItem(w, row);
}

// The keyboard comes to the list; another widget hears that it lost it.
bool TakeKeyboard(Widget w) {
    const LifeWatch life(w);
    XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    return !life.Ended();
}

void MoveAnchor(Widget w, int row) {
    auto &list = ListOf(w);
    list.old_start_item = list.start_item;
    list.start_item = row;
}

void StartGesture(Widget w, int row) {
    auto &list = ListOf(w);
    SelectPressed(w, row);
    if (!TakeKeyboard(w) || !IsRow(list, row)) {
        return;
    }
    list.last_highlighted = row;
    list.mouse_moved = False;
    list.old_end_item = list.end_item;
    list.end_item = row;
    if (IsExtended(list) && HasFlag(list, EVENT_SHIFT)) {
        ArrangePressedRange(w, list.old_end_item, row);
    } else {
        MoveAnchor(w, row);
    }
    ShowCursor(w);
    if (list.automatic_selection && SelectsRanges(list)) {
        ClickElement(w, nullptr);
    }
}

// ---- The motion -------------------------------------------------------------------------------------

// The pointer crossed into another column of the row. In a list that browses, row 0 ends unselected, since
// it seems to be where the pointer was.
bool ReenterRow(Widget w, int row) {
    auto &list = ListOf(w);
    const bool was_selected = ElementOf(list, row).selected != False;
    SetSelected(list, row, false);
    DrawItem(w, row);
    if (IsExtended(list)) {
        SetSelected(list, row, was_selected);
        DrawItem(w, row);
    }
    list.last_highlighted = 0;
    return HandleNewItem(w, row);
}

void MoveTo(Widget w, int row, bool field_changed) {
    auto &list = ListOf(w);
    const bool same_row = row == list.last_highlighted;
    if (!RowsInView(list).Contains(row) || (same_row && !field_changed)) {
        return;
    }
    list.down_count = 0;
    list.did_selection = False;
    if (same_row) {
        ReenterRow(w, row);
    } else {
        HandleNewItem(w, row);
    }
}

// ---- The release ------------------------------------------------------------------------------------

// The row in view that is nearest.
int ReleasedRow(Widget w, int y) {
    const auto &list = ListOf(w);
    const RowRange rows = RowsInView(list);
    const int row = std::clamp(RowFromY(w, y), rows.first, std::max(rows.end - 1, rows.first));
    return std::min(row, list.element_count - 1);
}

bool WasReported(const LmListPart &list, int flags) {
    return list.automatic_selection &&
           (list.did_selection ||
            (SelectsRanges(list) && (flags & (EVENT_SHIFT | EVENT_CTRL)) == 0));
}

bool ReportRelease(Widget w, XEvent *event, int flags) {
    const auto &list = ListOf(w);
    if (list.down_count >= 2) {
        return DefaultAction(w, event);
    }
    return WasReported(list, flags) || ClickElement(w, event);
}

void FinishSelection(Widget w, XEvent *event, int row) {
    auto &list = ListOf(w);
    const int flags = static_cast<unsigned char>(list.event_flags);
    if (!list.keyboard_selection) {
        list.old_start_item = list.start_item;
        list.old_end_item = list.end_item;
    }
    PlaceCursor(w, !list.traversing || SelectsRanges(list) ? row : list.last_highlighted);
    EndGesture(list);
    if (!ReportRelease(w, event, flags)) {
        return;
    }
    if (list.automatic_selection) {
        BuildSelectedList(list, true);
    }
    ShowCursor(w);
}

// ---- Modifiers --------------------------------------------------------------------------------------

// A press that hits nothing must not leave its modifier to the next one.
void PressWith(Widget w, XEvent *event, int flag) {
    auto &list = ListOf(w);
    const LifeWatch life(w);
    ForgetLostGesture(list);
    list.append_in_progress = True;
    AddFlag(list, flag);
    SelectElement(w, event, nullptr, nullptr);
    if (!life.Ended() && !HasFlag(list, EVENT_BUTTON_DOWN)) {
        list.append_in_progress = False;
        list.event_flags = 0;
    }
}

// In every policy: a modifier can come after the press, whose gesture would never end.
void ReleaseWith(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (HasFlag(ListOf(w), EVENT_BUTTON_DOWN)) {
        UnSelectElement(w, event, params, num_params);
    }
}

} // namespace

void RememberAnchors(Widget w) {
    auto &list = ListOf(w);
    list.old_start_item = list.start_item;
    list.old_end_item = list.end_item;
    if (list.start_item != 0 || list.end_item != 0) {
        RememberRange(w, list.start_item, list.end_item);
    }
}

// ---- Actions ----------------------------------------------------------------------------------------

void SelectElement(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    const auto at = PointOf(event);
    const int row = at ? RowFromY(w, at->y) : list.element_count;
    if (!at || row >= list.element_count) {
        return;
    }
    list.current_field = FieldFromX(w, at->x, IsRow(list, row) ? ElementOf(list, row).indent : 0);
    if (!RowsInView(list).Contains(row)) {
        return;
    }
    ForgetLostGesture(list);
    AddFlag(list, EVENT_BUTTON_DOWN);
    list.leave_direction = 0;
    if (IsInIconColumn(list, row, at->x)) {
        ArmIcon(w, event, row);
        return;
    }
    if (IsExtended(list)) {
        list.selection_type = TypeOfSelection(list);
    }
    if (IsSecondPress(list, TimeOf(*event))) {
        list.down_count++;
        list.down_time = 0;
        return;
    }
    CountPress(list, TimeOf(*event));
    StartGesture(w, row);
}

void VerifyMotion(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    auto &list = ListOf(w);
    const auto at = PointOf(event);
    if (!at || !HasFlag(list, EVENT_BUTTON_DOWN) || !SelectsRanges(list)) {
        return;
    }
    const int old_field = list.current_field;
    const unsigned char direction = LeaveDirectionOf(w, *at);
    if (direction == 0) {
        StopScrolling(list);
        list.current_field = FieldFromX(w, at->x, 0);
    } else if (IsOppositeOf(direction, list.leave_direction)) {
        StopScrolling(list);
        ListLeave(w, event, params, num_params);
        return;
    }
    KeepScrolling(w, direction);
    MoveTo(w, RowFromY(w, at->y), list.current_field != old_field);
}

// The limit of the icon column lies behind the frame here, and without it at the press.
void UnSelectElement(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    const auto at = PointOf(event);
    if (!at || list.element_count == 0) {
        EndGesture(list);
        return;
    }
    if (!HasFlag(list, EVENT_BUTTON_DOWN)) {
        return;
    }
    const int row = ReleasedRow(w, at->y);
    if (IsInIconColumn(list, row, at->x - list.base_x)) {
        EndGesture(list);
        DisarmIcon(w, event, row);
    } else {
        FinishSelection(w, event, row);
    }
}

void ExSelect(Widget w, XEvent *event, String *, Cardinal *) {
    if (IsExtended(ListOf(w))) {
        PressWith(w, event, EVENT_SHIFT);
    }
}

void ExUnSelect(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    ReleaseWith(w, event, params, num_params);
}

void CtrlSelect(Widget w, XEvent *event, String *, Cardinal *) {
    if (IsExtended(ListOf(w))) {
        RememberAnchors(w);
        PressWith(w, event, EVENT_CTRL);
    }
}

void CtrlUnSelect(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    ReleaseWith(w, event, params, num_params);
}

} // namespace corvidlmw::list
