// What the sources of XmGrid share.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/managers/ManagersI.h>

#include <corvidlmw/managers/GridGeometry.h>
#include <corvidlmw/managers/GridP.h>

#include <span>

namespace corvidlmw::grid {

using managers::BoardOf;
using managers::ManagerOf;
using managers::Size;

// ---- Records ------------------------------------------------------------------------------------

inline XmGridPart &GridOf(Widget grid) {
    return reinterpret_cast<XmGridWidget>(grid)->grid;
}

struct GridState {
    // Below it no cell is empty. It saves the search for an empty cell from the beginning, which a
    // table that is being filled would pay for each child.
    int first_candidate = 0;
    // At the last change of the managed set.
    int managed_gadgets = 0;
};

inline GridState &StateOf(XmGridPart &grid) {
    return *static_cast<GridState *>(grid.internal);
}

inline XmGridConstraintPart &ConstraintOf(Widget child) {
    return reinterpret_cast<XmGridConstraintPtr>(child->core.constraints)->grid;
}

inline Slots RowsOf(XmGridPart &grid) {
    return {grid.rows, static_cast<std::size_t>(grid.num_rows)};
}

inline Slots ColumnsOf(XmGridPart &grid) {
    return {grid.columns, static_cast<std::size_t>(grid.num_columns)};
}

inline std::span<Widget> CellsOf(XmGridPart &grid) {
    return {grid.cells,
            static_cast<std::size_t>(grid.num_rows) * static_cast<std::size_t>(grid.num_columns)};
}

inline bool IsSet(int constraint) {
    return constraint != XmGRID_UNSET;
}

// ---- The table of cells (GridCells.cpp) -----------------------------------------------------------

// How many rows and columns a grid can have: no more pixels than that fit into a window, and the
// table of a million by a million cells into no memory.
inline constexpr int most_cells = 1 << 24;
inline constexpr int most_slots_of_both = 1 << 12;

void CreateTables(XmGridPart &grid);
void FreeTables(XmGridPart &grid);
// After num_rows or num_columns became another. `old_w` is the toolkit's copy of the record before;
// its tables are freed.
void ResetGridSize(Widget w, Widget old_w);

// Gives a new child a cell, by its row and column as they are.
void SettleNewChild(Widget w, Widget child);
// After a child's row or column became another.
void MoveToNewCell(Widget w, Widget child, int old_row, int old_column);
// Leaves no cell with this child.
void VacateCells(Widget w, Widget child);

// ---- Layout (GridLayout.cpp) -----------------------------------------------------------------------

void ComputeAuto(Widget w);
void PositionChildren(Widget w);
// Asks the parent for the natural size if the grid has another one.
void AdjustSize(Widget w);
void RenewPreferredSize(Widget child);

void GridResize(Widget w);
void GridChangeManaged(Widget w);
XtGeometryResult GridGeometryManager(Widget child, XtWidgetGeometry *request,
                                     XtWidgetGeometry *reply);
XtGeometryResult GridQueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply);

// ---- Drawing (GridDrawing.cpp) ------------------------------------------------------------------------

void GridRedisplay(Widget w, XEvent *event, Region region);
// The expose method of the widget's own class, which may be a subclass.
void RedrawWholly(Widget w);

} // namespace corvidlmw::grid
