#include <corvidlmw/list/RangeMoves.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

RangeMove Set(int first, int last) {
    return {.undone = {}, .set = {first, last}};
}

RangeMove Undone(Undo undo, int first, int last) {
    return {.undone = {first, last}, .undo = undo, .set = {}};
}

RangeMove UndoneAndSet(Undo undo, RowSpan undone, RowSpan set) {
    return {.undone = undone, .undo = undo, .set = set};
}

Undo UndoOf(bool value) {
    return value ? Undo::Deselect : Undo::Restore;
}

RangeMove PressBelow(int start, int end, int row, bool value) {
    if (row > end) {
        return Set(end + 1, row);
    }
    if (row >= start) {
        return Undone(Undo::Restore, row + 1, end);
    }
    return UndoneAndSet(UndoOf(value), {start + 1, end}, {row, start});
}

// Growing sets one row more than it does in the other direction.
RangeMove PressAbove(int start, int end, int row, bool value) {
    if (row < end) {
        return Set(row, end + 1);
    }
    if (row <= start) {
        return Undone(Undo::Restore, end, row - 1);
    }
    return UndoneAndSet(UndoOf(value), {end, start - 1}, {start, row});
}

RangeMove DragBelow(int start, int end, int row, bool value) {
    if (row > end) {
        return Set(end, row);
    }
    if (row >= start) {
        return Undone(UndoOf(value), row + 1, end);
    }
    return UndoneAndSet(UndoOf(value), {start, end}, {row, start});
}

// An end that stays is set here, and left alone in the other direction.
RangeMove DragAbove(int start, int end, int row, bool value) {
    if (row <= end) {
        return Set(row, end);
    }
    if (row <= start) {
        return Undone(UndoOf(value), end, row - 1);
    }
    return UndoneAndSet(UndoOf(value), {end, start}, {start, row});
}

RangeMove FromAnchor(int start, int row) {
    return Set(std::min(start, row), std::max(start, row));
}

} // namespace

RangeMove PressMove(int start, int end, int row, bool value) {
    if (start == end) {
        return FromAnchor(start, row);
    }
    return (start < end ? PressBelow : PressAbove)(start, end, row, value);
}

RangeMove DragMove(int start, int end, int row, bool value) {
    if (start == end) {
        return FromAnchor(start, row);
    }
    return (start < end ? DragBelow : DragAbove)(start, end, row, value);
}

} // namespace corvidlmw::list
