/* Records and class records of XmHorzPanedWindow, for subclasses. */
#ifndef CORVIDLMW_MANAGERS_HPANEDWP_H
#define CORVIDLMW_MANAGERS_HPANEDWP_H

#include <corvidlmw/managers/HPanedW.h>

#include <Xm/ManagerP.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct {
    int position;       /* among the managed panes */
    int dwidth;         /* desired width */
    Position dx;        /* desired x */
    Position olddx;     /* of the track line that is drawn; -99 for none */
    Dimension min, max; /* of the width */
    Boolean is_pane;    /* False for the window's own sashes and separators */
    Boolean allow_resize;
    Boolean skip_adjust;
    Widget sash;      /* the pane's; of a sash its pane */
    Widget separator; /* the pane's; of a separator its pane */
    short
        position_index; /* in `children`; -1 while unset, and to let a geometry of the window's own
                             making pass */
} XmHorzPanedWindowConstraintPart;

typedef struct {
    XmManagerConstraintPart manager;
    XmHorzPanedWindowConstraintPart horz_paned_window;
} XmHorzPanedWindowConstraintRec, *XmHorzPanedWindowConstraintPtr;

typedef struct {
    Boolean refiguremode;
    Boolean separator_on;
    Dimension margin_width, margin_height;
    Dimension spacing;
    Dimension sash_width, sash_height;
    Dimension sash_shadow_thickness;
    Position sash_indent;
    Position sash_offset;
    int startx;            /* root x where a drag began */
    short increment_count; /* pixels that keys ask for and that are not applied yet */
    short pane_count;      /* managed panes: they come first in `managed_children` */
    short num_slots;       /* of `managed_children` */
    short num_managed_children;
    Boolean recursively_called; /* the window is at work on its own children */
    Boolean resize_at_realize;
    XmHorzPanedWindowConstraintPtr left_pane, right_pane; /* of the drag; zero for none */
    GC flipgc;                                            /* of the track lines */
    Widget *managed_children;
    XtPointer internal;
} XmHorzPanedWindowPart;

typedef struct _XmHorzPanedWindowRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmHorzPanedWindowPart horz_paned_window;
} XmHorzPanedWindowRec;

typedef struct {
    XtPointer extension;
} XmHorzPanedWindowClassPart;

typedef struct _XmHorzPanedWindowClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmHorzPanedWindowClassPart horz_paned_window_class;
} XmHorzPanedWindowClassRec;

CORVIDLMW_EXPORT extern XmHorzPanedWindowClassRec xmHorzPanedWindowClassRec;

#ifdef __cplusplus
}
#endif

#endif
