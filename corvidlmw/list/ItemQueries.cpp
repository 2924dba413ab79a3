// Questions about rows, and the row of the location cursor.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

// The client frees them.
int *NewPositions(const Vector<int> &rows) {
    auto *positions = static_cast<int *>(
        static_cast<void *>(XtCalloc(static_cast<Cardinal>(rows.size()), sizeof(int))));
    std::transform(rows.begin(), rows.end(), positions, [](int row) { return row + 1; });
    return positions;
}

Boolean Give(const Vector<int> &rows, int **positions, int *count) {
    if (rows.empty()) {
        return False;
    }
    if (positions) {
        *positions = NewPositions(rows);
    }
    if (count) {
        *count = static_cast<int>(rows.size());
    }
    return True;
}

Vector<int> RowsEqualTo(const LmListPart &list, XmString string) {
    Vector<int> rows;
    for (int row = FindRow(list, string); row >= 0; row = FindRow(list, string, row + 1)) {
        rows.push_back(row);
    }
    return rows;
}

template <typename T>
void Give(T *place, int value) {
    if (place) {
        *place = static_cast<T>(value);
    }
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

// ---- Items ------------------------------------------------------------------------------------------

Boolean LmListItemExists(Widget w, XmString item) {
    return IsList(w) && FindRow(ListOf(w), item) >= 0;
}

int LmListItemPos(Widget w, XmString item) {
    return IsList(w) && item ? FindRow(ListOf(w), item) + 1 : 0;
}

Boolean LmListGetMatchPos(Widget w, XmString item, int **positions, int *count) {
    return IsList(w) && Give(RowsEqualTo(ListOf(w), item), positions, count);
}

Boolean LmListGetSelectedPos(Widget w, int **positions, int *count) {
    return IsList(w) && ListOf(w).selected_item_count > 0 &&
           Give(StateOf(w).selected.Rows(), positions, count);
}

Boolean LmListPosSelected(Widget w, int position) {
    return IsList(w) && StateOf(w).selected.Contains(RowAtPosition(ListOf(w), position));
}

// ---- The location cursor ------------------------------------------------------------------------------

int LmListGetKbdItemPos(Widget w) {
    return IsList(w) && ListOf(w).items ? ListOf(w).current_keyboard_item + 1 : 0;
}

Boolean LmListSetKbdItemPos(Widget w, int position) {
    const int row = IsList(w) ? RowAtPosition(ListOf(w), position) : -1;
    if (row < 0) {
        return False;
    }
    PlaceCursor(w, row);
    BringIntoView(w, row);
    return True;
}

// ---- Places in the window -------------------------------------------------------------------------------

int LmListYToPos(Widget w, Position y) {
    return IsList(w) ? RowFromY(w, y) : 0;
}

Boolean LmListPosToBounds(Widget w, int position, Position *x, Position *y, Dimension *width,
                          Dimension *height) {
    // A row, unlike everywhere else; so position 0, which is past the last one, has no bounds.
    const int row = IsList(w) && position == 0 ? ListOf(w).item_count : position;
    if (!IsList(w) || !HasWindow(w) || !RowsInView(ListOf(w)).Contains(row)) {
        return False;
    }
    const auto &list = ListOf(w);
    const Frame frame = FrameOf(w);
    Give(x, list.base_x - frame.row_highlight);
    Give(y, RowOf(w, row).y - frame.row_highlight);
    Give(width, std::max(frame.width - 2 * (frame.margin_width + frame.shadow), 0));
    Give(height, list.max_item_height + 2 * frame.row_highlight);
    return True;
}

} // extern "C"
