/* Records and class records of XmRubberBoard, for subclasses. */
#ifndef CORVIDLMW_MANAGERS_RUBBERBOARDP_H
#define CORVIDLMW_MANAGERS_RUBBERBOARDP_H

#include <corvidlmw/managers/RubberBoard.h>

#include <Xm/BulletinBP.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    Position initial_x, initial_y;
    Position final_x, final_y;
    Dimension initial_width, initial_height;
    Dimension final_width, final_height;
} XmRubberBoardConstraintPart;

typedef struct {
    XmManagerConstraintPart manager;
    XmRubberBoardConstraintPart rubber_board;
} XmRubberBoardConstraintRec, *XmRubberBoardConstraintPtr;

typedef struct {
    Dimension initial_parent_width;
    Dimension initial_parent_height;
    Dimension final_parent_width;
    Dimension final_parent_height;
    Boolean set_initial;
    Boolean set_final;
} XmRubberBoardPart;

typedef struct _XmRubberBoardRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmBulletinBoardPart bulletin_board;
    XmRubberBoardPart rubber_board;
} XmRubberBoardRec;

typedef struct {
    XtPointer extension;
} XmRubberBoardClassPart;

typedef struct _XmRubberBoardClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmBulletinBoardClassPart bulletin_board_class;
    XmRubberBoardClassPart rubber_board_class;
} XmRubberBoardClassRec;

CORVIDLMW_EXPORT extern XmRubberBoardClassRec xmRubberBoardClassRec;

#ifdef __cplusplus
}
#endif

#endif
