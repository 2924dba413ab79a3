// How gestures and the location cursor select ranges of rows.
//
// A range is anchored at start_item and ends at end_item. Rows can have gone since either was set: what lies
// past the rows there are is passed over, and an anchor past them is taken to the last.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/list/RangeMoves.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

// `act` can take the row out of the set.
template <typename Act>
void ForEachIn(const RowSet &rows, RowSpan span, Act act) {
    for (int row = rows.Next(span.first); row >= 0 && row <= span.last; row = rows.Next(row + 1)) {
        act(row);
    }
}

// In either order; empty where both are on one side of all rows.
RowSpan SpanOf(const LmListPart &list, int one, int other) {
    return {std::max(std::min(one, other), 0),
            std::min(std::max(one, other), list.element_count - 1)};
}

void DrawSpan(Widget w, RowSpan span) {
    const RowRange rows = RowsInView(ListOf(w));
    const BarClip together(w);
    for (int row = std::max(span.first, rows.first); row <= span.last && row < rows.end; row++) {
        DrawItem(w, row);
    }
}

void DeselectIn(Widget w, RowSpan span) {
    auto &list = ListOf(w);
    const BarClip together(w);
    ForEachIn(StateOf(list).selected, span, [&](int row) {
        SetSelected(list, row, false);
        DrawItem(w, row);
    });
}

int AnchorOf(LmListPart &list) {
    list.start_item = std::clamp(list.start_item, 0, list.element_count - 1);
    return list.start_item;
}

void UndoRows(Widget w, const RangeMove &move) {
    const auto [first, last] = move.undone;
    if (move.undone.empty()) {
        return;
    }
    if (move.undo == Undo::Restore) {
        RestoreRange(w, first, last, Anchor::Kept);
    } else {
        SelectRange(w, first, last, false);
    }
}

void Apply(Widget w, const RangeMove &move, bool value) {
    UndoRows(w, move);
    if (!move.set.empty()) {
        SelectRange(w, move.set.first, move.set.last, value);
    }
}

} // namespace

// ---- Rows -------------------------------------------------------------------------------------------

void SelectRange(Widget w, int first, int last, bool value) {
    auto &list = ListOf(w);
    const RowSpan span = SpanOf(list, first, last);
    if (!value) {
        DeselectIn(w, span);
        return;
    }
    for (int row = span.first; row <= span.last; row++) {
        SetSelected(list, row, true);
    }
    DrawSpan(w, span);
}

void RestoreRange(Widget w, int first, int last, Anchor anchor) {
    auto &list = ListOf(w);
    const BarClip together(w);
    ForEachIn(StateOf(list).unsettled, SpanOf(list, first, last), [&](int row) {
        if (row != list.start_item || anchor == Anchor::Restored) {
            SetSelected(list, row, ElementOf(list, row).last_selected != False);
            DrawItem(w, row);
        }
    });
}

void RememberRange(Widget w, int first, int last) {
    auto &list = ListOf(w);
    ForEachIn(StateOf(list).unsettled, SpanOf(list, first, last), [&list](int row) {
        SetLastSelected(list, row, ElementOf(list, row).selected != False);
    });
}

// ---- Ranges -----------------------------------------------------------------------------------------

void ArrangePressedRange(Widget w, int old_end, int row) {
    auto &list = ListOf(w);
    const int start = AnchorOf(list);
    const bool value = ElementOf(list, start).selected != False;
    Apply(w, PressMove(start, old_end, row, value), value);
}

void ArrangeRange(Widget w, int row) {
    auto &list = ListOf(w);
    const int start = AnchorOf(list);
    const bool value = ElementOf(list, start).selected != False;
    Apply(w, DragMove(start, list.end_item, row, value), value);
}

// ---- Moving on --------------------------------------------------------------------------------------

namespace {

void LeaveBrowsedRow(Widget w, int row) {
    auto &list = ListOf(w);
    if (IsRow(list, row)) {
        SetSelected(list, row, false);
        if (row != list.current_keyboard_item) {
            SetLastSelected(list, row, false);
        }
        DrawItem(w, row);
    }
}

// Rows that came or went in mid-gesture can have parted the selected one from last_highlighted.
void LeaveBrowsedRows(Widget w) {
    const RowSet &selected = StateOf(w).selected;
    LeaveBrowsedRow(w, ListOf(w).last_highlighted);
    for (int row = selected.Next(0); row >= 0; row = selected.Next(row + 1)) {
        LeaveBrowsedRow(w, row);
    }
}

bool MoveBrowsedRow(Widget w, int row) {
    auto &list = ListOf(w);
    LeaveBrowsedRows(w);
    SetSelected(list, row, true);
    DrawItem(w, row);
    list.last_highlighted = list.start_item = list.end_item = row;
    if (!list.automatic_selection) {
        ShowCursor(w);
        return true;
    }
    EraseCursor(w);
    if (!ClickElement(w, nullptr)) {
        return false;
    }
    PlaceCursor(w, row);
    return true;
}

void MoveRangeEnd(Widget w, int row) {
    auto &list = ListOf(w);
    ArrangeRange(w, row);
    list.last_highlighted = list.end_item = row;
}

// The keyboard's: a single row.
void SelectOnly(Widget w, int row) {
    auto &list = ListOf(w);
    list.start_item = list.end_item = list.last_highlighted = row;
    DeselectAllBut(w, row);
    SetBothSelected(list, row, true);
    DrawItem(w, row);
}

// The keyboard's: the range alone, whatever else was selected.
void SelectOnlyRange(Widget w, int row) {
    auto &list = ListOf(w);
    if (list.selected_item_count == 0) {
        list.start_item = row;
    }
    const int start = AnchorOf(list);
    const bool value = ElementOf(list, start).selected != False;
    DeselectIn(w, {0, std::min(row, start) - 1});
    DeselectIn(w, {std::max(row, start) + 1, list.element_count - 1});
    list.end_item = list.last_highlighted = row;
    SelectRange(w, row, start, value);
}

} // namespace

void PlaceCursor(Widget w, int row) {
    auto &list = ListOf(w);
    if (!IsRow(list, row)) {
        return;
    }
    if (row != list.current_keyboard_item) {
        EraseCursor(w);
        list.current_keyboard_item = row;
    }
    ShowCursor(w);
}

bool HandleNewItem(Widget w, int row) {
    auto &list = ListOf(w);
    if (list.last_highlighted == row || !SelectsRanges(list)) {
        return true;
    }
    if (list.automatic_selection) {
        if (!list.did_selection && !ClickElement(w, nullptr)) {
            return false;
        }
        list.did_selection = True;
    }
    if (!IsRow(list, row)) {
        return true;
    }
    if (list.selection_policy == XmBROWSE_SELECT) {
        return MoveBrowsedRow(w, row);
    }
    MoveRangeEnd(w, row);
    ShowCursor(w);
    return true;
}

bool HandleExtendedItem(Widget w, int row) {
    auto &list = ListOf(w);
    const bool extends = (list.event_flags & EVENT_SHIFT) != 0;
    if (list.last_highlighted == row || !IsRow(list, row) || (list.add_mode && !extends)) {
        return true;
    }
    if (list.add_mode) {
        MoveRangeEnd(w, row);
    } else if (extends) {
        SelectOnlyRange(w, row);
    } else {
        SelectOnly(w, row);
    }
    ShowCursor(w);
    return ClickElement(w, nullptr);
}

} // namespace corvidlmw::list
