// Keys that select, activate and cancel.
//
// Selecting by a key is a press and a release at the location cursor's row: while keyboard_selection is on,
// that is the row that events hit.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

bool IsExtended(const LmListPart &list) {
    return list.selection_policy == XmEXTENDED_SELECT;
}

bool IsButtonDown(const LmListPart &list) {
    return (list.event_flags & EVENT_BUTTON_DOWN) != 0;
}

void StartAdding(LmListPart &list, int flag) {
    list.append_in_progress = True;
    list.event_flags = static_cast<char>(list.event_flags | flag);
}

void StopAdding(LmListPart &list) {
    list.append_in_progress = False;
    list.event_flags = 0;
}

// The cursor can be behind the last row, or at none.
int CursorRow(const LmListPart &list) {
    return std::min(list.current_keyboard_item, list.element_count - 1);
}

// ---- Press and release ------------------------------------------------------------------------------

// False if the list died of it.
bool RunAtCursor(Widget w, XEvent *event, Action *action) {
    const LifeWatch life(w);
    ListOf(w).keyboard_selection = True;
    action(w, event, nullptr, nullptr);
    if (life.Ended()) {
        return false;
    }
    ListOf(w).keyboard_selection = False;
    return true;
}

// A press that hits no row must not leave its modifier to the next one.
void PressAtCursor(Widget w, XEvent *event) {
    auto &list = ListOf(w);
    if (IsExtended(list) && list.add_mode) {
        StartAdding(list, EVENT_CTRL);
    }
    if ((!list.traversing || RunAtCursor(w, event, SelectElement)) && !IsButtonDown(list)) {
        StopAdding(list);
    }
}

void ReleaseAtCursor(Widget w, XEvent *event) {
    if (RunAtCursor(w, event, UnSelectElement)) {
        StopAdding(ListOf(w));
    }
}

// ---- Rows -------------------------------------------------------------------------------------------

// The cursor's row and, in a list that selects one row at a time, no other.
void SelectCursorRow(Widget w, int row) {
    auto &list = ListOf(w);
    if (list.selection_policy == XmSINGLE_SELECT || list.selection_policy == XmBROWSE_SELECT) {
        DeselectAllBut(w, row);
    }
    list.last_highlighted = row;
    SetBothSelected(list, row, true);
    DrawItem(w, row);
}

void SelectAllRows(Widget w) {
    auto &list = ListOf(w);
    for (int row = 0; row < list.element_count; row++) {
        if (!ElementOf(list, row).selected) {
            SetBothSelected(list, row, true);
        }
    }
    const RowRange rows = RowsInView(list);
    const BarClip together(w);
    for (int row = rows.first; row < rows.end; row++) {
        DrawItem(w, row);
    }
}

void Report(Widget w, XEvent *event) {
    ShowCursor(w);
    if (ClickElement(w, event)) {
        ListOf(w).event_flags = 0;
    }
}

// ---- What the parent hears --------------------------------------------------------------------------

Boolean PassOn(Widget w, int action, XEvent *event, String *params, Cardinal *num_params) {
    XmParentProcessDataRec data{};
    data.input_action = {.process_type = XmINPUT_ACTION,
                         .event = event,
                         .action = action,
                         .params = params,
                         .num_params = num_params};
    return _XmParentProcess(XtParent(w), &data);
}

void RestoreSelection(Widget w) {
    auto &list = ListOf(w);
    RestoreRange(w, list.start_item, list.end_item, Anchor::Restored);
    RestoreRange(w, list.old_start_item, list.old_end_item, Anchor::Restored);
    list.start_item = list.old_start_item;
    list.end_item = list.old_end_item;
    const int selected = StateOf(list).selected.Next(0);
    if (list.selection_policy == XmBROWSE_SELECT && selected >= 0) {
        list.last_highlighted = selected;
    }
    // Rows that came in mid-gesture brought the positions up to what was selected then.
    UpdateSelectedIndices(list);
    ShowCursor(w);
}

} // namespace

// ---- Actions ----------------------------------------------------------------------------------------

void KbdSelectElement(Widget w, XEvent *event, String *, Cardinal *) {
    if (ListOf(w).traversing) {
        PressAtCursor(w, event);
    }
}

void KbdUnSelectElement(Widget w, XEvent *event, String *, Cardinal *) {
    if (ListOf(w).traversing) {
        ReleaseAtCursor(w, event);
    }
}

void KbdShiftSelect(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    if (IsExtended(list)) {
        StartAdding(list, EVENT_SHIFT);
        list.old_start_item = list.start_item;
        list.old_end_item = list.end_item;
        PressAtCursor(w, event);
    }
}

void KbdShiftUnSelect(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    if (!IsButtonDown(list)) {
        return;
    }
    if (list.traversing) {
        ReleaseAtCursor(w, event);
    } else {
        StopAdding(list);
    }
}

void KbdCtrlSelect(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    if (!IsExtended(list)) {
        return;
    }
    if (list.add_mode) {
        RememberAnchors(w);
    }
    PressAtCursor(w, event);
}

void KbdCtrlUnSelect(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    const auto &list = ListOf(w);
    if (list.add_mode || list.traversing) {
        KbdShiftUnSelect(w, event, params, num_params);
    }
}

void KbdToggleAddMode(Widget w, XEvent *, String *, Cardinal *) {
    auto &list = ListOf(w);
    if (!IsExtended(list) || SetAddMode(w, !list.add_mode)) {
        list.event_flags = 0;
    }
}

void KbdActivate(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    auto &list = ListOf(w);
    const int row = CursorRow(list);
    if (!IsRow(list, row)) {
        return;
    }
    list.append_in_progress = False;
    SelectCursorRow(w, row);
    ShowCursor(w);
    if (!DefaultAction(w, event)) {
        return;
    }
    list.event_flags = 0;
    // A dialog whose list closed it must not go on to its default button.
    if (!IsBeingDestroyed(w)) {
        PassOn(w, XmPARENT_ACTIVATE, event, params, num_params);
    }
}

void KbdCancel(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    auto &list = ListOf(w);
    if (!IsButtonDown(list)) {
        PassOn(w, XmPARENT_CANCEL, event, params, num_params);
        return;
    }
    if (!SelectsRanges(list)) {
        return;
    }
    StopScrolling(list);
    RestoreSelection(w);
    StopAdding(list);
    if (list.automatic_selection) {
        ClickElement(w, nullptr);
    }
}

void KbdSelectAll(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    const int row = CursorRow(list);
    const bool many = list.selection_policy == XmMULTIPLE_SELECT || IsExtended(list);
    if (list.element_count == 0 || (!many && !IsRow(list, row))) {
        return;
    }
    list.append_in_progress = False;
    if (many) {
        SelectAllRows(w);
    } else {
        SelectCursorRow(w, row);
    }
    Report(w, event);
}

void KbdDeSelectAll(Widget w, XEvent *event, String *, Cardinal *) {
    auto &list = ListOf(w);
    const bool one =
        list.selection_policy == XmSINGLE_SELECT || list.selection_policy == XmBROWSE_SELECT;
    if (list.element_count == 0 || (one && !list.add_mode)) {
        return;
    }
    const bool keeps = IsExtended(list) && !list.add_mode && _XmGetFocusPolicy(w) == XmEXPLICIT;
    list.append_in_progress = False;
    DeselectAllBut(w, keeps ? CursorRow(list) : -1);
    Report(w, event);
}

} // namespace corvidlmw::list
