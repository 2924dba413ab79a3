/* Records and class records of XmSpringBox, for subclasses. */
#ifndef CORVIDLMW_MANAGERS_SPRINGBOXP_H
#define CORVIDLMW_MANAGERS_SPRINGBOXP_H

#include <corvidlmw/managers/SpringBox.h>

#include <Xm/BulletinBP.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    int top_spring;
    int bottom_spring;
    int left_spring;
    int right_spring;
    int vertical_spring;
    int horizontal_spring;
    Dimension preferred_height, preferred_width; /* as last asked for, or asked of the child */
} XmSpringBoxConstraintPart;

typedef struct {
    XmManagerConstraintPart manager;
    XmSpringBoxConstraintPart spring_box;
} XmSpringBoxConstraintRec, *XmSpringBoxConstraintPtr;

typedef struct {
    unsigned char orientation;
    Dimension min_spacing;
} XmSpringBoxPart;

typedef struct _XmSpringBoxRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmBulletinBoardPart bulletin_board;
    XmSpringBoxPart spring_box;
} XmSpringBoxRec;

typedef struct {
    XtPointer extension;
} XmSpringBoxClassPart;

typedef struct _XmSpringBoxClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmBulletinBoardClassPart bulletin_board_class;
    XmSpringBoxClassPart spring_box_class;
} XmSpringBoxClassRec;

CORVIDLMW_EXPORT extern XmSpringBoxClassRec xmSpringBoxClassRec;

#ifdef __cplusplus
}
#endif

#endif
