// Which rows change when a range of selected rows gets another end. Arithmetic only.
//
// A range goes from its anchor to its end, up or down; all its rows have the anchor's value, selected or
// not. Rows that leave it are undone: deselected, or given back what they were before the gesture. The two
// tables differ on purpose, and up and down are not quite each other's mirror image.
#pragma once

namespace corvidlmw::list {

// Both ends included.
struct RowSpan {
    int first = 0;
    int last = -1;
    bool empty() const { return last < first; }
    friend bool operator==(const RowSpan &, const RowSpan &) = default;
};

enum class Undo { Deselect, Restore };

// First rows are undone, then others get the value.
struct RangeMove {
    RowSpan undone;
    Undo undo = Undo::Deselect;
    RowSpan set;
};

// A press at `row` extends the range [start, end].
RangeMove PressMove(int start, int end, int row, bool value);
// The pointer or the location cursor goes on to `row`.
RangeMove DragMove(int start, int end, int row, bool value);

} // namespace corvidlmw::list
