/* Records and class record of XmArc. */
#ifndef CORVIDLMW_GRAPH_ARCP_H
#define CORVIDLMW_GRAPH_ARCP_H

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/GraphP.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef void (*XmArcInputDispatchProc)(Widget arc, XEvent *event, Mask mask);

/* In the core part, `x` and `y` hold the arc's start point and `width` and `height` its end point,
 * as signed 16-bit numbers in graph coordinates. They say nothing of a rectangle. */
typedef struct {
    int arc_width;
    int dashes;
    int dash_offset;
    unsigned char arc_direction;
    unsigned char style;
    unsigned char cap_style;
    Atom attribute;
    Widget to;
    Widget from;
    short to_side, from_side;
    short to_position, from_position; /* percent along that side */
    Pixel foreground;
    Boolean highlight; /* drawn in the graph's highlight colour */
    Boolean drawn;     /* on the screen, unless something was painted over it */
    XmFontList font_list;
    _XmString label_string;
    Dimension label_width, label_height;
    Boolean map_label;
    XmGraphNodeList *siblings; /* shared by all parallel arcs; zero when alone */
    GC gc;
    GC clear_gc; /* foreground and background exchanged, for erasing */
    XtCallbackList arm_callback, activate_callback, disarm_callback;
    XtPointer user_data;
    Boolean armed;
    int sibling_rank; /* at the last drawing */
    XtPointer internal;
} XmArcPart;

typedef struct _XmArcRec {
    CorePart core;
    XmArcPart arc;
} XmArcRec;

typedef struct {
    XmArcInputDispatchProc input_dispatch;
} XmArcClassPart;

typedef struct _XmArcClassRec {
    CoreClassPart core_class;
    XmArcClassPart arc_class;
} XmArcClassRec;

CORVIDLMW_EXPORT extern XmArcClassRec xmArcClassRec;

/* ---- Internal functions that are exported -------------------------------------------------- */

/* Links an arc whose ends are set into the lists of both nodes. */
CORVIDLMW_EXPORT void _SetupArcInternal(Widget graph, Widget arc);
/* Place among the parallel arcs, from 0. */
CORVIDLMW_EXPORT int _sibling_rank(Widget arc);
/* End points between the rectangles given, by the arc's graph and its own resources. */
CORVIDLMW_EXPORT void _GetPoints(Widget arc, int from_x, int from_y, int from_width,
                                 int from_height, int to_x, int to_y, int to_width, int to_height,
                                 int *x1, int *y1, int *x2, int *y2);
/* Paints the arc over as it was last drawn. */
CORVIDLMW_EXPORT void _EraseArc(Widget arc);
CORVIDLMW_EXPORT void _XmHighlightArc(Widget arc);
CORVIDLMW_EXPORT void _XmUnhighlightArc(Widget arc);
/* The union of both regions in a new one; `a` is destroyed, `b` is not. NULL if both are. */
CORVIDLMW_EXPORT Region _AddRegionToRegion(Region a, Region b);
/* Always 1: an arc is never left out for its place. */
CORVIDLMW_EXPORT int _ArcInRect(Widget arc, XRectangle *rectangle);

#ifdef __cplusplus
}
#endif

#endif
