/* Records and class record of XmGrid, for subclasses and for the other sources of the library. */
#ifndef CORVIDLMW_MANAGERS_GRIDP_H
#define CORVIDLMW_MANAGERS_GRIDP_H

#include <corvidlmw/managers/Grid.h>

#include <Xm/BulletinBP.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Instance ------------------------------------------------------------------------------------ */

/* A row or a column. */
typedef struct {
    int resizability; /* weight; 0: fixed; -1 for a moment: gets an even share; 100 in a new one */
    Dimension margin; /* on each side */
    Dimension size;   /* without margins, as placed last; 0 in a new one */
} XmGridSlot;

typedef struct {
    Boolean build_mode; /* the grid itself never looks at it */
    Boolean auto_layout;
    Dimension default_spacing; /* margin of a new row or column */
    int num_rows;              /* at least 1, as num_columns */
    int num_columns;
    XmGridSlot *rows; /* owned, as all three */
    XmGridSlot *columns;
    Widget *cells; /* row by row; zero in an empty cell */
    Boolean show_grid;

    XtPointer internal; /* the library's own */
} XmGridPart;

typedef struct _XmGridRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmBulletinBoardPart bulletin_board;
    XmGridPart grid;
} XmGridRec;

/* ---- Constraints --------------------------------------------------------------------------------- */

typedef struct {
    int gravity; /* an X gravity, 1 to 9 */
    Boolean resize_horizontal;
    Boolean resize_vertical;
    int row; /* XmGRID_UNSET or the cell that the child wants; it has it unless there is none */
    int column;
    Dimension preferred_height; /* what the child asked for */
    Dimension preferred_width;
    int cursor_x;
    int cursor_y;
    Boolean move_only;
    Boolean builder_action;

    XtPointer internal; /* the library's own */
} XmGridConstraintPart;

typedef struct _XmGridConstraintRec {
    XmManagerConstraintPart manager;
    XmGridConstraintPart grid;
} XmGridConstraintRec, *XmGridConstraintPtr;

/* ---- Class ----------------------------------------------------------------------------------------- */

typedef struct {
    XtPointer extension;
} XmGridClassPart;

typedef struct _XmGridClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmBulletinBoardClassPart bulletin_board_class;
    XmGridClassPart grid_class;
} XmGridClassRec;

CORVIDLMW_EXPORT extern XmGridClassRec xmGridClassRec;

#ifdef __cplusplus
}
#endif

#endif
