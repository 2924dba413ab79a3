/* XmArc: an edge of an XmGraph.
 *
 * An arc is a windowless child of a graph that joins two of the graph's nodes and draws itself on
 * the graph's window: a straight line, a curve beside parallel arcs, or a loop at one node, with
 * arrow heads and a label where asked.
 *
 * XtGetValues of XmNlabelString returns a copy, which the client frees with XmStringFree, as from the
 * toolkit's own labels; XmNfontList is the arc's own.
 */
#ifndef CORVIDLMW_GRAPH_ARC_H
#define CORVIDLMW_GRAPH_ARC_H

#include <corvidlmw/graph/Graph.h>

#include <X11/Xutil.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names, classes and representation types ------------------------------------ */

#ifndef XmNto
#define XmNto "to"
#endif
#ifndef XmNfrom
#define XmNfrom "from"
#endif
#ifndef XmNtoPosition
#define XmNtoPosition "toPosition"
#endif
#ifndef XmNfromPosition
#define XmNfromPosition "fromPosition"
#endif
#ifndef XmNfromSide
#define XmNfromSide "fromSide"
#endif
#ifndef XmNtoSide
#define XmNtoSide "toSide"
#endif
#ifndef XmNarcDirection
#define XmNarcDirection "arcDirection"
#endif
#ifndef XmNforeground
#define XmNforeground "foreground"
#endif
#ifndef XmNhighlight
#define XmNhighlight "highlight"
#endif
#ifndef XmNfontList
#define XmNfontList "fontList"
#endif
#ifndef XmNlabelString
#define XmNlabelString "labelString"
#endif
#ifndef XmNmapLabel
#define XmNmapLabel "mapLabel"
#endif
#ifndef XmNarcWidth
#define XmNarcWidth "arcWidth"
#endif
#ifndef XmNstyle
#define XmNstyle "style"
#endif
#ifndef XmNcapStyle
#define XmNcapStyle "capStyle"
#endif
#ifndef XmNdashes
#define XmNdashes "dashes"
#endif
#ifndef XmNdashOffset
#define XmNdashOffset "dashOffset"
#endif
#ifndef XmNarmCallback
#define XmNarmCallback "armCallback"
#endif
#ifndef XmNdisarmCallback
#define XmNdisarmCallback "disarmCallback"
#endif
#ifndef XmNactivateCallback
#define XmNactivateCallback "activateCallback"
#endif
#ifndef XmNuserData
#define XmNuserData "userData"
#endif
#ifndef XmNattribute
#define XmNattribute "attribute"
#endif
#ifndef XmCTo
#define XmCTo "To"
#endif
#ifndef XmCFrom
#define XmCFrom "From"
#endif
#ifndef XmCPosition
#define XmCPosition "Position"
#endif
#ifndef XmCSide
#define XmCSide "Side"
#endif
#ifndef XmCDirection
#define XmCDirection "Direction"
#endif
#ifndef XmCForeground
#define XmCForeground "Foreground"
#endif
#ifndef XmCHighlight
#define XmCHighlight "Highlight"
#endif
#ifndef XmCFontList
#define XmCFontList "FontList"
#endif
#ifndef XmCLabelString
#define XmCLabelString "LabelString"
#endif
#ifndef XmCMapLabel
#define XmCMapLabel "MapLabel"
#endif
#ifndef XmCArcWidth
#define XmCArcWidth "ArcWidth"
#endif
#ifndef XmCStyle
#define XmCStyle "Style"
#endif
#ifndef XmCCapStyle
#define XmCCapStyle "CapStyle"
#endif
#ifndef XmCDashes
#define XmCDashes "Dashes"
#endif
#ifndef XmCDashOffset
#define XmCDashOffset "DashOffset"
#endif
#ifndef XmCUserData
#define XmCUserData "UserData"
#endif
#ifndef XmCAttribute
#define XmCAttribute "Attribute"
#endif
#ifndef XmRArcDirection
#define XmRArcDirection "ArcDirection"
#endif
#ifndef XmRLineStyle
#define XmRLineStyle "LineStyle"
#endif
#ifndef XmRCapStyle
#define XmRCapStyle "CapStyle"
#endif
/* ---- Enumerations ------------------------------------------------------------------------- */

/* XmNfromSide and XmNtoSide: the side of the node that the arc meets with
 * XmPOSITION_PROPORTIONAL. */
enum { XmARC_LEFT = 0, XmARC_RIGHT = 1, XmARC_BOTTOM = 2, XmARC_TOP = 3 };

/* XmNstyle and XmNcapStyle take the line and cap styles of <X11/X.h>: LineSolid, LineOnOffDash,
 * LineDoubleDash; CapNotLast, CapButt, CapRound, CapProjecting. */

/* ---- Class ---------------------------------------------------------------------------------- */

typedef struct _XmArcClassRec *XmArcWidgetClass;
typedef struct _XmArcRec *XmArcWidget;

CORVIDLMW_EXPORT extern WidgetClass xmArcWidgetClass;

#define XmIsArc(w) XtIsSubclass((w), xmArcWidgetClass)

/* ---- Creation ------------------------------------------------------------------------------- */

/* Creates an unmanaged arc `name` in the graph `parent`, with `argcount` resources from `args`
 * (NULL if `argcount` is 0). With XmNfrom and XmNto, nodes of that graph, it is attached; without
 * them it draws nothing until both are set. Any other parent than an XmGraph is a fatal error. */
CORVIDLMW_EXPORT Widget XmCreateArc(Widget parent, char *name, ArgList args, Cardinal argcount);

/* Creates an unmanaged arc from `from` to `to` and then sets the resources. */
CORVIDLMW_EXPORT Widget XmCreateAttachedArc(Widget parent, char *name, Widget from, Widget to,
                                            ArgList args, Cardinal argcount);

/* ---- Geometry -------------------------------------------------------------------------------- */

/* Stores the two end points of `arc`, in graph coordinates: (x1, y1) at XmNfrom, (x2, y2) at XmNto.
 * An arc without ends, and what is no arc, gives zeros. */
CORVIDLMW_EXPORT void XmArcGetPos(Widget arc, Position *x1, Position *y1, Position *x2,
                                  Position *y2);

/* Returns the area of `arc` for picking, in graph coordinates; the caller destroys it with
 * XDestroyRegion. NULL for an arc without ends or being destroyed, and for what is no arc. */
CORVIDLMW_EXPORT Region XmArcGetRegion(Widget arc);

#ifdef __cplusplus
}
#endif

#endif
