// Selection by function, and add mode, which decides what the cursor's keys select.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

// ---- Selecting --------------------------------------------------------------------------------------

void Deselect(Widget w, int row) {
    SetBothSelected(ListOf(w), row, false);
    DrawItem(w, row);
}

void SelectByPolicy(Widget w, int row) {
    auto &list = ListOf(w);
    if (list.selection_policy == XmMULTIPLE_SELECT) {
        SetBothSelected(list, row, !ElementOf(list, row).selected);
    } else {
        DeselectAllBut(w, row);
        SetBothSelected(list, row, true);
    }
    DrawItem(w, row);
}

// ---- Deselecting ------------------------------------------------------------------------------------

// A row that is drawn takes a part of the cursor with it, also that of a neighbour.
void DeselectRow(Widget w, int row) {
    auto &list = ListOf(w);
    if (row < 0) {
        return;
    }
    SetBothSelected(list, row, false);
    BuildSelectedList(list, true);
    DrawItem(w, row);
    ShowCursor(w);
}

// ---- Add mode -----------------------------------------------------------------------------------------

bool TakesAddMode(const LmListPart &list, bool on) {
    return list.selection_policy == XmEXTENDED_SELECT ||
           list.selection_policy == (on ? XmSINGLE_SELECT : XmBROWSE_SELECT);
}

// Without add mode the cursor's row is the selection: it is left unselected by its coming if it is all
// there is, and selected by its going if nothing is.
bool SelectionFollowsAddMode(const LmListPart &list, bool on) {
    const RowSet &selected = StateOf(list).selected;
    return list.selection_policy == XmEXTENDED_SELECT && IsRow(list, list.current_keyboard_item) &&
           (on ? selected.size() == 1 && selected.Contains(list.current_keyboard_item)
               : selected.empty());
}

} // namespace

void DeselectAllBut(Widget w, int kept) {
    const RowSet &selected = StateOf(w).selected;
    const BarClip together(w);
    for (int row = selected.Next(0); row >= 0; row = selected.Next(row + 1)) {
        if (row != kept) {
            Deselect(w, row);
        }
    }
}

bool SelectRow(Widget w, int row, bool notify) {
    auto &list = ListOf(w);
    if (!IsRow(list, row)) {
        return true;
    }
    SelectByPolicy(w, row);
    list.last_highlighted = row;
    if (!notify) {
        BuildSelectedList(list, true);
    } else if (!ClickElement(w, nullptr)) {
        return false;
    }
    SetSelectionParams(w);
    if (StateOf(w).selected.empty()) {
        ShowCursor(w);
    }
    return true;
}

bool SetAddMode(Widget w, bool on) {
    auto &list = ListOf(w);
    if (!TakesAddMode(list, on)) {
        return true;
    }
    EraseCursor(w);
    list.add_mode = on;
    ChangeHighlightGC(w, on);
    ShowCursor(w);
    if (!SelectionFollowsAddMode(list, on)) {
        return true;
    }
    SetBothSelected(list, list.current_keyboard_item, !on);
    DrawList(w);
    return ClickElement(w, nullptr);
}

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListSelectItem(Widget w, XmString item, Boolean notify) {
    if (IsList(w)) {
        SelectRow(w, FindRow(ListOf(w), item), notify != False);
    }
}

void LmListSelectPos(Widget w, int position, Boolean notify) {
    if (IsList(w)) {
        SelectRow(w, RowAtPosition(ListOf(w), position), notify != False);
    }
}

void LmListDeselectItem(Widget w, XmString item) {
    if (IsList(w)) {
        DeselectRow(w, FindRow(ListOf(w), item));
    }
}

void LmListDeselectPos(Widget w, int position) {
    if (IsList(w)) {
        DeselectRow(w, RowAtPosition(ListOf(w), position));
    }
}

void LmListDeselectAllItems(Widget w) {
    if (!IsList(w) || ListOf(w).item_count == 0 || ListOf(w).selected_item_count < 1) {
        return;
    }
    DeselectAllBut(w, -1);
    ClearSelectedList(ListOf(w));
    ShowCursor(w);
}

void LmListUpdateSelectedList(Widget w) {
    if (IsList(w)) {
        BuildSelectedList(ListOf(w), true);
    }
}

void LmListSetAddMode(Widget w, Boolean on) {
    if (IsList(w)) {
        SetAddMode(w, on != False);
    }
}

} // extern "C"
