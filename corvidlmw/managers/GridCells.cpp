// Who holds which cell of XmGrid.
//
// A child that holds a cell is named by it: row and column of the child are the cell's. The one
// exception is a child whose row or column became unset, negative, or out of range: it stays where it
// stands until it takes another cell. Constraint.internal counts the cells that a child stands in, so
// that whoever dies or moves leaves them all and nobody else's table is searched for it.
//
// A cell can also be named flatly, by row 0 and an index beyond the first row's end.

#include <corvidlmw/managers/GridI.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace corvidlmw::grid {

namespace {

constexpr int new_weight = 100;

void AddToCellsOf(Widget child, int cells) {
    auto &internal = ConstraintOf(child).internal;
    internal = reinterpret_cast<XtPointer>(reinterpret_cast<std::intptr_t>(internal) + cells);
}

bool StandsInTable(Widget child) {
    return ConstraintOf(child).internal != nullptr;
}

// ---- Cells by name ---------------------------------------------------------------------------------

int NumCells(const XmGridPart &grid) {
    return grid.num_rows * grid.num_columns;
}

std::optional<int> CellAt(const XmGridPart &grid, int row, int column) {
    const bool inside = row >= 0 && row < grid.num_rows && column >= 0 && column < grid.num_columns;
    return inside ? std::optional(row * grid.num_columns + column) : std::nullopt;
}

// Takes a flat name as well.
std::optional<int> CellNamed(const XmGridPart &grid, int row, int column) {
    const bool flat = row == 0 && column >= grid.num_columns && column < NumCells(grid);
    return flat ? std::optional(column) : CellAt(grid, row, column);
}

void Empty(XmGridPart &grid, int cell) {
    AddToCellsOf(grid.cells[cell], -1);
    grid.cells[cell] = nullptr;
    int &candidate = StateOf(grid).first_candidate;
    candidate = std::min(candidate, cell);
}

// The child leaves all other cells: it can be seen in one only.
void Occupy(Widget w, int cell, Widget child) {
    auto &grid = GridOf(w);
    if (grid.cells[cell] == child) {
        return;
    }
    VacateCells(w, child);
    if (grid.cells[cell]) {
        AddToCellsOf(grid.cells[cell], -1);
    }
    grid.cells[cell] = child;
    AddToCellsOf(child, 1);
}

std::optional<int> FirstEmpty(const XmGridPart &grid, int begin, int end) {
    Widget *const found = std::find(grid.cells + begin, grid.cells + end, nullptr);
    return found == grid.cells + end ? std::nullopt
                                     : std::optional(static_cast<int>(found - grid.cells));
}

std::optional<int> FirstEmptyOfAll(XmGridPart &grid) {
    int &candidate = StateOf(grid).first_candidate;
    const auto cell = FirstEmpty(grid, candidate, NumCells(grid));
    candidate = cell.value_or(NumCells(grid));
    return cell;
}

// ---- Assignment ---------------------------------------------------------------------------------------

bool Take(Widget w, Widget child, std::optional<int> cell, int columns) {
    if (!cell) {
        return false;
    }
    auto &constraint = ConstraintOf(child);
    constraint.row = *cell / columns;
    constraint.column = *cell % columns;
    Occupy(w, *cell, child);
    return true;
}

// A row that does not exist is a full one.
bool TakeInRow(Widget w, Widget child) {
    auto &grid = GridOf(w);
    const auto start = CellAt(grid, ConstraintOf(child).row, 0);
    return start &&
           Take(w, child, FirstEmpty(grid, *start, *start + grid.num_columns), grid.num_columns);
}

bool TakeAnywhere(Widget w, Widget child) {
    auto &grid = GridOf(w);
    return Take(w, child, FirstEmptyOfAll(grid), grid.num_columns);
}

// Along the flat table, so that past the first row's end the name is a flat one.
bool TakeFrom(Widget w, Widget child, int column) {
    auto &grid = GridOf(w);
    if (column < 0 || column >= NumCells(grid)) {
        return false;
    }
    return Take(w, child, FirstEmpty(grid, column, NumCells(grid)), NumCells(grid));
}

bool IsBeyondTable(const XmGridPart &grid, int row, int column) {
    return row >= 0 && column >= 0 && !CellAt(grid, row, column);
}

// The toolkit takes it for granted that the error handler does not return.
void RefuseOutOfRange(Widget w) {
    XtAppError(XtWidgetToApplicationContext(w), "XmGrid: Row/column specification out of range. ");
}

bool TakeNamed(Widget w, Widget child) {
    const auto &constraint = ConstraintOf(child);
    const auto cell = CellAt(GridOf(w), constraint.row, constraint.column);
    if (cell) {
        Occupy(w, *cell, child);
    } else if (IsBeyondTable(GridOf(w), constraint.row, constraint.column)) {
        RefuseOutOfRange(w);
    }
    return cell.has_value();
}

// False if there is no cell for the child.
bool CheckConstraints(Widget w, Widget child) {
    const auto &constraint = ConstraintOf(child);
    if (IsSet(constraint.column)) {
        return IsSet(constraint.row) ? TakeNamed(w, child) : TakeFrom(w, child, constraint.column);
    }
    return (IsSet(constraint.row) && TakeInRow(w, child)) || TakeAnywhere(w, child);
}

// Of another child, which goes on living.
Widget OtherOccupant(Widget w, int cell, Widget child) {
    Widget occupant = GridOf(w).cells[cell];
    return occupant && occupant != child && !IsBeingDestroyed(occupant) ? occupant : nullptr;
}

void Displace(Widget w, Widget occupant) {
    ConstraintOf(occupant).row = XmGRID_UNSET;
    ConstraintOf(occupant).column = XmGRID_UNSET;
    CheckConstraints(w, occupant);
}

// The names that the occupant gets may be flat, or of a cell that the table no longer has. It is not
// the client that named them now: they are no error, and the occupant has no cell then.
void HandOver(Widget w, Widget occupant, int row, int column) {
    ConstraintOf(occupant).row = row;
    ConstraintOf(occupant).column = column;
    if (!IsSet(row) || !IsSet(column)) {
        CheckConstraints(w, occupant);
    } else if (const auto cell = CellNamed(GridOf(w), row, column)) {
        Occupy(w, *cell, occupant);
    }
}

// ---- The tables -----------------------------------------------------------------------------------------

XmGridSlot *NewSlots(int count, Dimension margin) {
    auto *slots =
        reinterpret_cast<XmGridSlot *>(XtCalloc(static_cast<Cardinal>(count), sizeof(XmGridSlot)));
    std::fill_n(slots, count, XmGridSlot{new_weight, margin, 0});
    return slots;
}

void CopySlots(Slots to, Slots from) {
    std::copy_n(from.begin(), std::min(to.size(), from.size()), to.begin());
}

void CopyCells(XmGridPart &grid, const XmGridPart &old) {
    const int columns = std::min(grid.num_columns, old.num_columns);
    for (int row = 0; row < std::min(grid.num_rows, old.num_rows); ++row) {
        Widget *to = grid.cells + row * grid.num_columns;
        std::copy_n(old.cells + row * old.num_columns, columns, to);
        for (Widget child : std::span(to, static_cast<std::size_t>(columns))) {
            if (child) {
                AddToCellsOf(child, 1);
            }
        }
    }
}

// Only the corner beyond both new counts is visited. The children of other lost cells keep their
// names.
void UnsetNamesInCorner(const XmGridPart &grid, const XmGridPart &old) {
    for (int row = grid.num_rows; row < old.num_rows; ++row) {
        for (int column = grid.num_columns; column < old.num_columns; ++column) {
            if (Widget child = old.cells[row * old.num_columns + column]) {
                ConstraintOf(child).row = XmGRID_UNSET;
                ConstraintOf(child).column = XmGRID_UNSET;
            }
        }
    }
}

int NumRectangles(Widget w) {
    const std::span children(ChildrenOf(w), NumChildrenOf(w));
    return static_cast<int>(std::count_if(children.begin(), children.end(),
                                          [](Widget child) { return XtIsRectObj(child); }));
}

} // namespace

void CreateTables(XmGridPart &grid) {
    grid.rows = NewSlots(grid.num_rows, grid.default_spacing);
    grid.columns = NewSlots(grid.num_columns, grid.default_spacing);
    grid.cells =
        reinterpret_cast<Widget *>(XtCalloc(static_cast<Cardinal>(NumCells(grid)), sizeof(Widget)));
    StateOf(grid).first_candidate = 0;
}

void FreeTables(XmGridPart &grid) {
    XtFree(reinterpret_cast<char *>(grid.rows));
    XtFree(reinterpret_cast<char *>(grid.columns));
    XtFree(reinterpret_cast<char *>(grid.cells));
    grid.rows = grid.columns = nullptr;
    grid.cells = nullptr;
}

// A grid of a single cell copies nothing: its child drops out and keeps its name.
void ResetGridSize(Widget w, Widget old_w) {
    auto &grid = GridOf(w);
    auto &old = GridOf(old_w);
    if (NumCells(grid) < NumRectangles(w)) {
        Warn(w, "Grid widget: More children than cells");
    }
    CreateTables(grid);
    for (Widget child : CellsOf(old)) {
        if (child) {
            ConstraintOf(child).internal = nullptr;
        }
    }
    if (old.num_rows > 1 || old.num_columns > 1) {
        CopySlots(RowsOf(grid), RowsOf(old));
        CopySlots(ColumnsOf(grid), ColumnsOf(old));
        CopyCells(grid, old);
    }
    UnsetNamesInCorner(grid, old);
    FreeTables(old);
}

// ---- Children that come, move and go -------------------------------------------------------------------

void SettleNewChild(Widget w, Widget child) {
    const auto &constraint = ConstraintOf(child);
    const auto cell = IsSet(constraint.row) && IsSet(constraint.column)
                          ? CellAt(GridOf(w), constraint.row, constraint.column)
                          : std::nullopt;
    if (cell) {
        if (Widget occupant = OtherOccupant(w, *cell, child)) {
            Displace(w, occupant);
        }
    }
    CheckConstraints(w, child);
}

void MoveToNewCell(Widget w, Widget child, int old_row, int old_column) {
    auto &grid = GridOf(w);
    const auto &constraint = ConstraintOf(child);
    if (!IsSet(constraint.row) || !IsSet(constraint.column)) {
        return;
    }
    const auto cell = CellAt(grid, constraint.row, constraint.column);
    if (cell) {
        if (Widget occupant = OtherOccupant(w, *cell, child)) {
            HandOver(w, occupant, old_row, old_column);
        }
    }
    CheckConstraints(w, child);
}

void VacateCells(Widget w, Widget child) {
    auto &grid = GridOf(w);
    const auto &constraint = ConstraintOf(child);
    const auto named = CellNamed(grid, constraint.row, constraint.column);
    if (named && grid.cells[*named] == child) {
        Empty(grid, *named);
    }
    for (int cell = 0; cell < NumCells(grid) && StandsInTable(child); ++cell) {
        if (grid.cells[cell] == child) {
            Empty(grid, cell);
        }
    }
}

} // namespace corvidlmw::grid
