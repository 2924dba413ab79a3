/* XmGrid: a manager that places its children in the cells of a table.
 *
 * The table has XmNnumRows rows and XmNnumColumns columns, counted from 0. Each row and each column
 * has a margin on both of its sides and a weight. Rows and columns of weight 0 take the natural size
 * of their children; the others share what is left of the grid's size in proportion to their weights.
 * With XmNautoLayout, which is the default, the grid derives the weights from the natural sizes.
 *
 * A child holds one cell, named by its constraints XmNrow and XmNcolumn, and fills it, or keeps its
 * preferred size and is aligned in it by XmNgravity. A child that leaves both unset gets the first
 * empty cell, row by row.
 *
 * For interface builders the grid can show its margins (XmNshowGrid), mark a cell, and hand a child
 * to the cell under the pointer: set XmNmoveOnly, XmNcursorX and XmNcursorY together with a new XmNx
 * or XmNy. With XmNbuilderAction a new XmNwidth or XmNheight becomes the child's preferred size.
 *
 * All functions belong to the toolkit's thread. Lengths and coordinates are in pixels. A `grid` that
 * is NULL or of another class is passed over in silence.
 */
#ifndef CORVIDLMW_MANAGERS_GRID_H
#define CORVIDLMW_MANAGERS_GRID_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names and classes ---------------------------------------------------------------- */

#ifndef XmNautoLayout
#define XmNautoLayout "autoLayout"
#endif
#ifndef XmNnumRows
#define XmNnumRows "numRows"
#endif
#ifndef XmNnumColumns
#define XmNnumColumns "numColumns"
#endif
#ifndef XmNdefaultSpacing
#define XmNdefaultSpacing "defaultSpacing"
#endif
#ifndef XmNshowGrid
#define XmNshowGrid "showGrid"
#endif
#ifndef XmNbuildMode
#define XmNbuildMode "buildMode"
#endif
#ifndef XmNgravity
#define XmNgravity "gravity"
#endif
#ifndef XmNresizeVertical
#define XmNresizeVertical "resizeVertical"
#endif
#ifndef XmNresizeHorizontal
#define XmNresizeHorizontal "resizeHorizontal"
#endif
#ifndef XmNrow
#define XmNrow "row"
#endif
#ifndef XmNcolumn
#define XmNcolumn "column"
#endif
#ifndef XmNcursorX
#define XmNcursorX "cursorX"
#endif
#ifndef XmNcursorY
#define XmNcursorY "cursorY"
#endif
#ifndef XmNmoveOnly
#define XmNmoveOnly "moveOnly"
#endif
#ifndef XmNbuilderAction
#define XmNbuilderAction "builderAction"
#endif

#ifndef XmCAutoLayout
#define XmCAutoLayout "AutoLayout"
#endif
#ifndef XmCNumRows
#define XmCNumRows "NumRows"
#endif
#ifndef XmCNumColumns
#define XmCNumColumns "NumColumns"
#endif
#ifndef XmCDefaultSpacing
#define XmCDefaultSpacing "DefaultSpacing"
#endif
#ifndef XmCShowGrid
#define XmCShowGrid "ShowGrid"
#endif
#ifndef XmCBuildMode
#define XmCBuildMode "BuildMode"
#endif
#ifndef XmCGravity
#define XmCGravity "Gravity"
#endif
#ifndef XmCResizeVertical
#define XmCResizeVertical "ResizeVertical"
#endif
#ifndef XmCResizeHorizontal
#define XmCResizeHorizontal "ResizeHorizontal"
#endif
#ifndef XmCRow
#define XmCRow "Row"
#endif
#ifndef XmCColumn
#define XmCColumn "Column"
#endif
#ifndef XmCCursorX
#define XmCCursorX "CursorX"
#endif
#ifndef XmCCursorY
#define XmCCursorY "CursorY"
#endif
#ifndef XmCMoveOnly
#define XmCMoveOnly "MoveOnly"
#endif
#ifndef XmCBuilderAction
#define XmCBuilderAction "BuilderAction"
#endif
#ifndef XmRGravity
#define XmRGravity "Gravity"
#endif

/* An XmNrow, XmNcolumn, XmNcursorX or XmNcursorY that is not set. It is not -1, which names no row
 * and no column at all. */
#define XmGRID_UNSET 65535

/* ---- Class --------------------------------------------------------------------------------------- */

typedef struct _XmGridClassRec *XmGridWidgetClass;
typedef struct _XmGridRec *XmGridWidget;

CORVIDLMW_EXPORT extern WidgetClass xmGridWidgetClass;

#define XmIsGrid(w) XtIsSubclass((w), xmGridWidgetClass)

/* ---- Creation ------------------------------------------------------------------------------------ */

/* An unmanaged grid of that name below `parent`, with these resources. */
CORVIDLMW_EXPORT Widget XmCreateGrid(Widget parent, String name, ArgList args, Cardinal argcount);

/* An unmanaged grid in a dialog shell of its own, which is named after it with "_popup" added.
 * Managing the grid pops the dialog up; destroying it destroys the shell as well. Shell and grid both
 * get the arguments; the shell allows its child to resize it. */
CORVIDLMW_EXPORT Widget XmCreateGridDialog(Widget parent, String name, ArgList args,
                                           Cardinal argcount);

/* ---- Rows and columns ------------------------------------------------------------------------------ */

/* The weight of a row or column: 0 gives it the natural size of its children for ever, any other is
 * its share of the space that is left, until XmNautoLayout derives another one. A realized grid places
 * its children anew; its own size stays. An index at or beyond the number of rows or columns is a
 * fatal error; a negative one does nothing. */
CORVIDLMW_EXPORT void XmGridSetRowResizability(Widget grid, int row, int weight);
CORVIDLMW_EXPORT void XmGridSetColumnResizability(Widget grid, int column, int weight);

/* The space that a row or column keeps free on each of its two sides. As above otherwise. */
CORVIDLMW_EXPORT void XmGridSetRowMargin(Widget grid, int row, Dimension margin);
CORVIDLMW_EXPORT void XmGridSetColumnMargin(Widget grid, int column, Dimension margin);

/* The row at y and the column at x, from the grid's upper left corner, margins included; the other
 * coordinate is not looked at. -1 outside of all rows or columns and on the boundary of two; 0 is a
 * boundary as well. Shadow and border of the grid are not taken into account. */
CORVIDLMW_EXPORT int XmGridPositionToRow(Widget grid, Position x, Position y);
CORVIDLMW_EXPORT int XmGridPositionToColumn(Widget grid, Position x, Position y);

/* For `row` 0 or less the height of all rows with their margins, for any other row 0. Only the low 16
 * bits count, as in a Position. */
CORVIDLMW_EXPORT Position XmGridRowToYPosition(Widget grid, int row);

/* Clears the grid and draws lines at the running sums of the rows' heights and of the columns' widths,
 * without margins, and a rectangle at the cell, as wide as its row is high and as high as its column
 * is wide. Gadgets are drawn over it, as windows are. Does nothing unless XmNshowGrid is True, the grid
 * has a window, and there is such a cell. The next redisplay takes it away. */
CORVIDLMW_EXPORT void XmGridHighlightCell(Widget grid, int row, int column);

#ifdef __cplusplus
}
#endif

#endif
