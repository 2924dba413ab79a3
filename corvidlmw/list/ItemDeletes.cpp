// Rows that go by function.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

// ---- Runs of rows -----------------------------------------------------------------------------------

// A top for when `count` rows from `row` on have gone: what is in view stays where rows above it go, and
// moves down where the end of the list would come into view.
int TopWithout(const LmListPart &list, int row, int count) {
    const int top = list.top_item_position;
    const bool above = row < top;
    const bool ends_in_view = list.visible_item_count > list.item_count - count - top;
    return above || (IsAboveBottom(list, row) && ends_in_view) ? std::max(top - count, 0) : top;
}

void PullCursor(LmListPart &list, int count) {
    list.current_keyboard_item = std::max(list.current_keyboard_item - count, 0);
    if (SelectsRanges(list)) {
        list.last_highlighted = list.current_keyboard_item;
    }
}

void CloseEmptied(Widget w) {
    ListOf(w).top_item_position = 0;
    ClearRows(w, False);
    CloseChange(w);
}

// The top is set first, so that the bar is told once. True if a new size of the window moved it meanwhile.
bool CloseAtTop(Widget w, int top) {
    auto &list = ListOf(w);
    list.top_item_position = top;
    CloseChange(w);
    if (list.top_item_position == top) {
        return false;
    }
    EraseCursor(w);
    list.top_item_position = top;
    SetVerticalScrollbar(w);
    return true;
}

void DeleteRun(Widget w, int row, int count) {
    auto &list = ListOf(w);
    const int top = TopWithout(list, row, count);
    const bool moves_top = top != list.top_item_position;
    const bool moves_cursor = row <= list.current_keyboard_item;
    bool redraw = moves_top || IsAboveBottom(list, row);
    if (moves_cursor || moves_top) {
        EraseCursor(w);
    }
    RemoveRows(w, row, count);
    BuildSelectedList(list, true);
    if (moves_cursor) {
        PullCursor(list, count);
    }
    if (list.item_count == 0) {
        CloseEmptied(w);
        return;
    }
    redraw = CloseAtTop(w, top) || redraw;
    if (moves_cursor || redraw) {
        DrawChange(w, redraw);
    }
}

// ---- Rows here and there ------------------------------------------------------------------------------

// Where the top goes for fewer rows to fill the window again.
int TopFor(const LmListPart &list, int count) {
    const int top = list.top_item_position;
    return count - top < list.visible_item_count ? std::max(count - list.visible_item_count, 0)
                                                 : top;
}

// How much of the window changes with rows that go.
enum class Redraw { Nothing, Cursor, All };

void Draw(Widget w, Redraw redraw) {
    if (redraw != Redraw::Nothing) {
        DrawChange(w, redraw == Redraw::All);
    }
}

// Where no row is left the top stays.
Redraw RemoveAndMove(Widget w, const RowSet &rows, int cursor) {
    auto &list = ListOf(w);
    const int top = TopFor(list, list.item_count - rows.size());
    const bool in_view = !rows.empty() && IsAboveBottom(list, rows.Next(0));
    const bool moves_cursor = cursor != list.current_keyboard_item;
    const bool all = in_view || top != list.top_item_position;
    if (all || moves_cursor) {
        EraseCursor(w);
    }
    list.current_keyboard_item = cursor;
    RemoveRowSet(w, rows);
    BuildSelectedList(list, true);
    if (list.item_count > 0) {
        list.top_item_position = top;
    }
    return all ? Redraw::All : moves_cursor ? Redraw::Cursor : Redraw::Nothing;
}

// For each string the first row equal to it that no other has. Strings for which there is none draw a
// warning.
RowSet FindRows(Widget w, const XmString *strings, int count) {
    const auto &list = ListOf(w);
    StringBag bag;
    RowSet rows;
    std::for_each(strings, strings + count, [&bag](XmString string) { bag.Add(string); });
    for (int row = 0; row < list.item_count && !bag.empty(); row++) {
        rows.Put(row, bag.Take(list.items[row]));
    }
    for (int missing = bag.size(); missing > 0; missing--) {
        WarnOfMissingItem(w);
    }
    return rows;
}

// The cursor moves up by the rows that go before it and its own, and so can come to -1.
int CursorWithout(const LmListPart &list, const RowSet &rows) {
    int cursor = list.current_keyboard_item;
    for (int row = rows.Next(0); row >= 0 && row <= list.current_keyboard_item;
         row = rows.Next(row + 1)) {
        cursor--;
    }
    return cursor;
}

void DeleteFound(Widget w, const RowSet &rows) {
    const Redraw redraw = RemoveAndMove(w, rows, CursorWithout(ListOf(w), rows));
    if (ListOf(w).item_count == 0) {
        CloseEmptied(w);
        return;
    }
    Draw(w, redraw);
    CloseChange(w);
}

// Bad positions become -1.
RowSet TakePositions(Widget w, std::span<int> positions) {
    RowSet rows;
    for (int &position : positions) {
        if (IsPosition(ListOf(w), position)) {
            rows.Put(position - 1, true);
        } else {
            WarnOfMissingItem(w);
            position = -1;
        }
    }
    return rows;
}

// The cursor can be left one past the end, and is brought back when all rows are drawn.
Redraw RemoveFromUnderCursor(Widget w, const RowSet &rows) {
    auto &list = ListOf(w);
    const int count = list.item_count - rows.size();
    if (list.current_keyboard_item < count) {
        return RemoveAndMove(w, rows, list.current_keyboard_item);
    }
    if (list.automatic_selection && SelectsRanges(list)) {
        list.last_highlighted = count;
    }
    RemoveAndMove(w, rows, count);
    return Redraw::All;
}

void DeleteRows(Widget w, const RowSet &rows) {
    const Redraw redraw = RemoveFromUnderCursor(w, rows);
    if (ListOf(w).item_count == 0) {
        // The top stays: the next rows bring it back.
        ClearRows(w, False);
        CloseChange(w);
        return;
    }
    CloseChange(w);
    Draw(w, redraw);
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListDeleteItem(Widget w, XmString item) {
    if (!IsList(w)) {
        return;
    }
    const int row = FindRow(ListOf(w), item);
    if (row < 0) {
        WarnOfMissingItem(w);
    } else {
        DeleteRun(w, row, 1);
    }
}

void LmListDeleteItems(Widget w, XmString *items, int count) {
    if (!IsList(w) || !items || count < 1) {
        return;
    }
    if (ListOf(w).item_count == 0) {
        WarnOfMissingItem(w);
        return;
    }
    // They can be the list's own strings, and are all found before any goes.
    DeleteFound(w, FindRows(w, items, count));
}

void LmListDeletePos(Widget w, int position) {
    if (!IsList(w) || ListOf(w).item_count == 0) {
        return;
    }
    const int last = ListOf(w).item_count;
    if (position > last) {
        WarnOfMissingItem(w);
    } else {
        DeleteRun(w, (position < 1 ? last : position) - 1, 1);
    }
}

void LmListDeletePositions(Widget w, int *positions, int count) {
    if (!IsList(w) || !positions || count < 1 || ListOf(w).item_count == 0) {
        return;
    }
    DeleteRows(w, TakePositions(w, {positions, static_cast<std::size_t>(count)}));
}

void LmListDeleteItemsPos(Widget w, int count, int position) {
    if (!IsList(w) || ListOf(w).item_count == 0 || count < 1) {
        return;
    }
    const int left = ListOf(w).item_count - std::max(position, 1) + 1;
    if (position < 1 || left < 1) {
        WarnOfMissingItem(w);
    } else {
        DeleteRun(w, position - 1, std::min(count, left));
    }
}

// Neither the size nor the vertical bar follow: more rows usually come at once.
void LmListDeleteAllItems(Widget w) {
    if (!IsList(w) || ListOf(w).item_count == 0) {
        return;
    }
    auto &list = ListOf(w);
    EraseCursor(w);
    RemoveAllRows(w);
    ClearSelectedList(list);
    ClearRows(w, False);
    if (!IsVariable(list)) {
        SetHorizontalScrollbar(w);
    }
}

} // extern "C"
