/* XmGraph: a manager that shows a directed graph.
 *
 * The nodes are the graph's ordinary children, widgets or gadgets of any class; the arcs are
 * objects of class XmArc (see Arc.h) that the graph keeps in a list of its own. The graph lays
 * its nodes out as trees or as a butterfly around one node, draws the arcs, and keeps itself as
 * large as its nodes need.
 *
 * All functions belong to the toolkit's thread. Lengths and coordinates are in pixels unless
 * another unit is named.
 */
#ifndef CORVIDLMW_GRAPH_GRAPH_H
#define CORVIDLMW_GRAPH_GRAPH_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names, classes and representation types ------------------------------------ */

#ifndef XmNautoLayoutMode
#define XmNautoLayoutMode "autoLayoutMode"
#endif
#ifndef XmNreLayout
#define XmNreLayout "reLayout"
#endif
#ifndef XmNreorient
#define XmNreorient "reorient"
#endif
#ifndef XmNtwinsVisible
#define XmNtwinsVisible "twinsVisible"
#endif
#ifndef XmNorientation
#define XmNorientation "orientation"
#endif
#ifndef XmNlayoutStyle
#define XmNlayoutStyle "layoutStyle"
#endif
#ifndef XmNarcDrawMode
#define XmNarcDrawMode "arcDrawMode"
#endif
#ifndef XmNchildSpacing
#define XmNchildSpacing "childSpacing"
#endif
#ifndef XmNsiblingSpacing
#define XmNsiblingSpacing "siblingSpacing"
#endif
#ifndef XmNlayoutProc
#define XmNlayoutProc "layoutProc"
#endif
#ifndef XmNlayoutKey
#define XmNlayoutKey "layoutKey"
#endif
#ifndef XmNeditable
#define XmNeditable "editable"
#endif
#ifndef XmNokToAdd
#define XmNokToAdd "okToAdd"
#endif
#ifndef XmNmovableNodes
#define XmNmovableNodes "movableNodes"
#endif
#ifndef XmNselectableArcs
#define XmNselectableArcs "selectableArcs"
#endif
#ifndef XmNeditableArcs
#define XmNeditableArcs "editableArcs"
#endif
#ifndef XmNallowMultipleSelections
#define XmNallowMultipleSelections "allowMultipleSelections"
#endif
#ifndef XmNallowGrandchildInput
#define XmNallowGrandchildInput "allowGrandchildInput"
#endif
#ifndef XmNinteractiveArcDirection
#define XmNinteractiveArcDirection "interactiveArcDirection"
#endif
#ifndef XmNdefaultNodeClass
#define XmNdefaultNodeClass "defaultNodeClass"
#endif
#ifndef XmNdoubleClickInterval
#define XmNdoubleClickInterval "doubleClickInterval"
#endif
#ifndef XmNincrement
#define XmNincrement "increment"
#endif
#ifndef XmNshowCrossingArcs
#define XmNshowCrossingArcs "showCrossingArcs"
#endif
#ifndef XmNptrCursor
#define XmNptrCursor "ptrCursor"
#endif
#ifndef XmNmotionCursor
#define XmNmotionCursor "motionCursor"
#endif
#ifndef XmNindicateCursor
#define XmNindicateCursor "indicateCursor"
#endif
#ifndef XmNindicateChildCursor
#define XmNindicateChildCursor "indicateChildCursor"
#endif
#ifndef XmNindicateParentCursor
#define XmNindicateParentCursor "indicateParentCursor"
#endif
#ifndef XmNhighlightColor
#define XmNhighlightColor "highlightColor"
#endif
#ifndef XmNoverviewLineColor
#define XmNoverviewLineColor "overviewLineColor"
#endif
#ifndef XmNoverviewNodeColor
#define XmNoverviewNodeColor "overviewNodeColor"
#endif
#ifndef XmNoverviewViewportBottomShadowColor
#define XmNoverviewViewportBottomShadowColor "overviewViewportBottomShadowColor"
#endif
#ifndef XmNoverviewViewportTopShadowColor
#define XmNoverviewViewportTopShadowColor "overviewViewportTopShadowColor"
#endif
#ifndef XmNshowOverviewArcs
#define XmNshowOverviewArcs "showOverviewArcs"
#endif
#ifndef XmNskewOverviewScale
#define XmNskewOverviewScale "skewOverviewScale"
#endif
#ifndef XmNgraphTooBigCallback
#define XmNgraphTooBigCallback "graphTooBigCallback"
#endif
#ifndef XmNgraphChangedCallback
#define XmNgraphChangedCallback "graphChangedCallback"
#endif
#ifndef XmNuserButtonCallback
#define XmNuserButtonCallback "userButtonCallback"
#endif
#ifndef XmNnewArcCallback
#define XmNnewArcCallback "newArcCallback"
#endif
#ifndef XmNnewNodeCallback
#define XmNnewNodeCallback "newNodeCallback"
#endif
#ifndef XmNnodeMovedCallback
#define XmNnodeMovedCallback "nodeMovedCallback"
#endif
#ifndef XmNarcMovedCallback
#define XmNarcMovedCallback "arcMovedCallback"
#endif
#ifndef XmNdefaultActionCallback
#define XmNdefaultActionCallback "defaultActionCallback"
#endif
#ifndef XmNselectNodeCallback
#define XmNselectNodeCallback "selectNodeCallback"
#endif
#ifndef XmNdeselectCallback
#define XmNdeselectCallback "deselectCallback"
#endif
#ifndef XmNselectArcCallback
#define XmNselectArcCallback "selectArcCallback"
#endif
#ifndef XmNselectSubgraphCallback
#define XmNselectSubgraphCallback "selectSubgraphCallback"
#endif
#ifndef XmNmarkColor
#define XmNmarkColor "markColor"
#endif
#ifndef XmCAutoLayoutMode
#define XmCAutoLayoutMode "AutoLayoutMode"
#endif
#ifndef XmCReLayout
#define XmCReLayout "ReLayout"
#endif
#ifndef XmCReorient
#define XmCReorient "Reorient"
#endif
#ifndef XmCTwinsVisible
#define XmCTwinsVisible "TwinsVisible"
#endif
#ifndef XmCOrientation
#define XmCOrientation "Orientation"
#endif
#ifndef XmCLayoutStyle
#define XmCLayoutStyle "LayoutStyle"
#endif
#ifndef XmCArcDrawMode
#define XmCArcDrawMode "ArcDrawMode"
#endif
#ifndef XmCChildSpacing
#define XmCChildSpacing "ChildSpacing"
#endif
#ifndef XmCSiblingSpacing
#define XmCSiblingSpacing "SiblingSpacing"
#endif
#ifndef XmCLayoutProc
#define XmCLayoutProc "LayoutProc"
#endif
#ifndef XmCLayoutKey
#define XmCLayoutKey "LayoutKey"
#endif
#ifndef XmCEditable
#define XmCEditable "Editable"
#endif
#ifndef XmCOkToAdd
#define XmCOkToAdd "OkToAdd"
#endif
#ifndef XmCMovableNodes
#define XmCMovableNodes "MovableNodes"
#endif
#ifndef XmCSelectableArcs
#define XmCSelectableArcs "SelectableArcs"
#endif
#ifndef XmCEditableArcs
#define XmCEditableArcs "EditableArcs"
#endif
#ifndef XmCAllowMultipleSelections
#define XmCAllowMultipleSelections "AllowMultipleSelections"
#endif
#ifndef XmCAllowGrandchildInput
#define XmCAllowGrandchildInput "AllowGrandchildInput"
#endif
#ifndef XmCInteractiveArcDirection
#define XmCInteractiveArcDirection "InteractiveArcDirection"
#endif
#ifndef XmCDefaultNodeClass
#define XmCDefaultNodeClass "DefaultNodeClass"
#endif
#ifndef XmCDoubleClickInterval
#define XmCDoubleClickInterval "DoubleClickInterval"
#endif
#ifndef XmCIncrement
#define XmCIncrement "Increment"
#endif
#ifndef XmCShowCrossingArcs
#define XmCShowCrossingArcs "ShowCrossingArcs"
#endif
#ifndef XmCHighlightColor
#define XmCHighlightColor "HighlightColor"
#endif
#ifndef XmCOverviewColor
#define XmCOverviewColor "OverviewColor"
#endif
#ifndef XmCOverviewViewportColor
#define XmCOverviewViewportColor "OverviewViewportColor"
#endif
#ifndef XmCShowOverviewArcs
#define XmCShowOverviewArcs "ShowOverviewArcs"
#endif
#ifndef XmCSkewOverviewScale
#define XmCSkewOverviewScale "SkewOverviewScale"
#endif
#ifndef XmCMarkColor
#define XmCMarkColor "MarkColor"
#endif
#ifndef XmRArcDirection
#define XmRArcDirection "ArcDirection"
#endif
#ifndef XmRAutoLayoutType
#define XmRAutoLayoutType "AutoLayoutType"
#endif
#ifndef XmRLayoutStyle
#define XmRLayoutStyle "LayoutStyle"
#endif
#ifndef XmRArcDrawMode
#define XmRArcDrawMode "ArcDrawMode"
#endif
/* ---- Enumerations ------------------------------------------------------------------------- */

/* XmNautoLayoutMode: which changes lay the graph out by themselves. */
enum { XmNEVER = 0, XmALWAYS = 1, XmARCS_ONLY = 2, XmNODES_ONLY = 3, XmPARTIAL = 4 };

/* XmNlayoutStyle */
enum { XmGRAPH = 0, XmBUTTERFLY = 1 };

/* XmNarcDrawMode: where arcs meet their nodes. Fixed: from the far side of the parent to the near
 * side of the child. Relative: on the line between the two centres. Proportional: at XmNfromSide,
 * XmNfromPosition, XmNtoSide and XmNtoPosition of each arc. */
enum { XmPOSITION_FIXED = 0, XmPOSITION_RELATIVE = 1, XmPOSITION_PROPORTIONAL = 2 };

/* XmNarcDirection and XmNinteractiveArcDirection: which ends carry an arrow head. */
enum { XmBIDIRECTED = 0, XmDIRECTED = 1, XmUNDIRECTED = 2 };

/* ---- Callbacks ------------------------------------------------------------------------------ */

/* Reasons in XmGraphCallbackStruct. */
enum {
    XmCR_NEW_ARC = 41,
    XmCR_NEW_NODE = 42,
    XmCR_NODE_MOVED = 43,
    XmCR_ARC_MOVED = 44,
    XmCR_SELECT_NODE = 47,
    XmCR_SELECT_ARC = 48,
    XmCR_SELECT_SUBGRAPH = 49,
    XmCR_NODE_DOUBLE_CLICK = 54,
    XmCR_ARC_DOUBLE_CLICK = 55,
    XmCR_DOUBLE_CLICK = 56,
    XmCR_DESELECT_ARCS = 57,
    XmCR_DESELECT_NODES = 58,
    XmCR_DESELECT = 59,
    XmCR_NODES_MOVED = 60,
    XmCR_SELECT_NODES = 61,
    XmCR_SELECT_ARCS = 62,
    XmCR_SELECT_NODES_AND_ARCS = 63,
    XmCR_LAYOUT_CHANGED = 64, /* a layout ran, or the set of managed children changed */
    XmCR_GRAPH_SCROLLED = 65, /* a scroll bar of the enclosing scrolled window moved */
    XmCR_SIZE_CHANGED = 66,   /* the graph or its clip window has another size; also the reason
                                 of XmNgraphTooBigCallback */
    XmCR_MARK_CHANGED = 67,   /* XmNmarkColor of the child in `widget` changed */
    XmCR_BUTTON_OVER_GADGET = 69,
    XmCR_BUTTON_OVER_GRAPH = 70,
    XmCR_BUTTON_OVER_OTHER = 71
};

/* Call data of every callback list of XmGraph. What a reason does not speak of is zero. */
typedef struct {
    int reason;
    XEvent *event;               /* of the gesture; NULL for calls of a function */
    Boolean interactive;         /* True when a gesture caused the call */
    WidgetList selected_widgets; /* shared: valid until the next call that returns a list */
    int num_selected_widgets;
    WidgetList selected_arcs; /* the graph's own array: not to be freed or kept */
    int num_selected_arcs;
    Widget widget;           /* the object that the reason speaks of */
    Widget old_to, old_from; /* of an arc that moved */
    Widget new_to, new_from; /* of an arc that moved or is new */
    Boolean doit;            /* set it False to refuse, where the reason can be refused */
} XmGraphCallbackStruct;

/* XmNlayoutProc: places the nodes of a graph that has at least one. */
typedef void (*XmGraphLayoutProc)(Widget graph);

/* ---- Class ----------------------------------------------------------------------------------- */

typedef struct _XmGraphClassRec *XmGraphWidgetClass;
typedef struct _XmGraphRec *XmGraphWidget;

CORVIDLMW_EXPORT extern WidgetClass xmGraphWidgetClass;

#define XmIsGraph(w) XtIsSubclass((w), xmGraphWidgetClass)

/* ---- Creation --------------------------------------------------------------------------------- */

/* Creates an unmanaged graph `name` below `parent`, a composite widget, with `argcount` resources
 * from `args` (NULL if `argcount` is 0). Returns it; the parent owns it. */
CORVIDLMW_EXPORT Widget XmCreateGraph(Widget parent, char *name, ArgList args, Cardinal argcount);

/* The same, managed. */
CORVIDLMW_EXPORT Widget XmCreateManagedGraph(Widget parent, char *name, ArgList args,
                                             Cardinal argcount);

/* Creates a managed, automatic scrolled window, named `name` followed by "SW", and in it an
 * unmanaged graph `name`. Returns the graph, which the caller manages. Destroying the graph
 * destroys the scrolled window too. */
CORVIDLMW_EXPORT Widget XmCreateScrolledGraph(Widget parent, char *name, ArgList args,
                                              Cardinal argcount);

/* ---- Layout ------------------------------------------------------------------------------------- */

/* Lays the graph out now, by XmNlayoutProc, and tells XmNgraphChangedCallback (reason
 * XmCR_LAYOUT_CHANGED). A graph without nodes is left alone. Warns if `graph` is no XmGraph. */
CORVIDLMW_EXPORT void XmGraphLayout(Widget graph);

/* Lays out what can be reached from `node` and leaves the other nodes where they are; `node` keeps
 * its place. Does nothing for a NULL node or one that is no node of a graph. Warns if `graph` is
 * no XmGraph. */
CORVIDLMW_EXPORT void XmGraphRelaySubgraph(Widget graph, Widget node);

/* Names the node that XmBUTTERFLY is laid out around, NULL for none. It counts from the next
 * layout on, and is forgotten when the node dies. A `graph` that is no XmGraph is left alone; around
 * a `node` that is no node of this graph nothing is placed. */
CORVIDLMW_EXPORT void XmGraphSetButterflyRoot(Widget graph, Widget node);

/* ---- Roots ---------------------------------------------------------------------------------------- */

/* The roots of a layout are first those named here, in this order, then the nodes that no arc leads
 * to. Changes count from the next layout on. */

/* Names the `count` widgets of `nodes` as roots, each once. Widgets that are no nodes of this graph
 * are passed over; a count below 1 does nothing. */
CORVIDLMW_EXPORT void XmGraphInsertRoots(Widget graph, WidgetList nodes, int count);

/* Takes the `count` widgets of `nodes` out of the roots named. A count below 1 does nothing. */
CORVIDLMW_EXPORT void XmGraphRemoveRoots(Widget graph, WidgetList nodes, int count);

/* Returns how many roots are named; 0 if `graph` is no XmGraph. */
CORVIDLMW_EXPORT int XmGraphNumRoots(Widget graph);

/* Returns the roots named and stores their number in `*count`; NULL and 0 with none, or, with a
 * warning, if `graph` is no XmGraph. The list belongs to the library and is overwritten by the next
 * call that returns nodes of any graph. */
CORVIDLMW_EXPORT WidgetList XmGraphGetRoots(Widget graph, int *count);

/* ---- Nodes and arcs ---------------------------------------------------------------------------- */

/* Number of nodes, managed or not; 0 if `graph` is no XmGraph. */
CORVIDLMW_EXPORT int XmGraphNumNodes(Widget graph);

/* The nodes in the order of the children, their number in `*count`; NULL and 0 with none, or, with
 * a warning, if `graph` is no XmGraph. The list is the graph's own: do not free it, nor keep it
 * across the creation or destruction of a node. */
CORVIDLMW_EXPORT WidgetList XmGraphGetNodes(Widget graph, int *count);

/* Number of arcs; 0, with a warning, if `graph` is no XmGraph. */
CORVIDLMW_EXPORT int XmGraphNumArcs(Widget graph);

/* The arcs in the order of their creation, their number in `*count`; NULL and 0 with none, or, with
 * a warning, if `graph` is no XmGraph. The list is the graph's own: do not free it, nor keep it
 * across the creation or destruction of an arc. */
CORVIDLMW_EXPORT WidgetList XmGraphGetArcs(Widget graph, int *count);

/* How many arcs leave `node`, and how many lead to it. Both stay unset for a NULL node, for one that is no
 * node of this graph, and, with a warning, if `graph` is no XmGraph. */
CORVIDLMW_EXPORT void XmGraphNumNodeArcs(Widget graph, Widget node, int *num_from, int *num_to);

/* The arcs that leave `node` and those that lead to it, with their numbers. The lists are the node's own:
 * do not free them, nor keep them across a change of its arcs. NULL and 0 for what is no node of this
 * graph, and, with a warning, if `graph` is no XmGraph. */
CORVIDLMW_EXPORT void XmGraphGetNodeArcs(Widget graph, Widget node, WidgetList *from,
                                         WidgetList *to, int *num_from, int *num_to);

/* The nodes that `arc` leaves and leads to; both NULL for a detached arc or what is none. */
CORVIDLMW_EXPORT void XmGraphGetArcNodes(Widget graph, Widget arc, Widget *from, Widget *to);

/* The arcs that lead from `from` to `to`, in the order of their attachment, their number in `*count`; those
 * of the other direction are not among them. The caller frees the list with XtFree. NULL and 0 if there is
 * none. */
CORVIDLMW_EXPORT WidgetList XmGraphGetArcsBetweenNodes(Widget graph, Widget from, Widget to,
                                                       int *count);

/* ---- Selection ----------------------------------------------------------------------------------- */

/* Nodes and arcs that are selected show their highlight. Where `notify` is True the callback list is
 * called, with no event and `interactive` False: after the change for a selection, before it for the
 * opposite, so that the lists of the call data still hold what is going. Selecting what is selected
 * already draws and tells again. XmNselectableArcs and XmNallowMultipleSelections bind gestures only.
 * What is no node, or no arc, of this graph is passed over. The functions for arcs warn if `graph` is
 * no XmGraph; those for nodes leave it alone. */

/* Adds `node` to the selection; XmCR_SELECT_NODE on XmNselectNodeCallback. */
CORVIDLMW_EXPORT void XmGraphSelectNode(Widget graph, Widget node, Boolean notify);

/* Adds the `count` widgets of `nodes`; XmCR_SELECT_NODES once, `widget` the first. With a NULL list or a
 * count below 1 it does nothing. */
CORVIDLMW_EXPORT void XmGraphSelectNodes(Widget graph, WidgetList nodes, int count, Boolean notify);

/* Adds `arc`; XmCR_SELECT_ARC on XmNselectArcCallback. */
CORVIDLMW_EXPORT void XmGraphSelectArc(Widget graph, Widget arc, Boolean notify);

/* Adds the `count` arcs of `arcs`; XmCR_SELECT_ARCS once, `widget` the first. With a NULL list or a count
 * below 1 it does nothing. */
CORVIDLMW_EXPORT void XmGraphSelectArcs(Widget graph, WidgetList arcs, int count, Boolean notify);

/* Adds `root`, all shown nodes that it reaches, and the arcs between shown nodes that leave these. The
 * arcs are told one by one, XmCR_SELECT_ARC, whatever `notify` says; with it XmCR_SELECT_SUBGRAPH follows
 * on XmNselectSubgraphCallback, with `interactive` True. What earlier calls reached is selected again,
 * until a gesture selects a subgraph. */
CORVIDLMW_EXPORT void XmGraphSelectSubtree(Widget graph, Widget root, Boolean notify);

/* Take nodes or arcs out of the selection; XmCR_DESELECT on XmNdeselectCallback, once, `widget` the
 * object or the first of the list. XmGraphUnselectNodes does nothing with a NULL list or a count below 1;
 * XmGraphUnselectArcs then changes nothing, but tells. The lists may be those that the graph returned. */
CORVIDLMW_EXPORT void XmGraphUnselectNode(Widget graph, Widget node, Boolean notify);
CORVIDLMW_EXPORT void XmGraphUnselectNodes(Widget graph, WidgetList nodes, int count,
                                           Boolean notify);
CORVIDLMW_EXPORT void XmGraphUnselectArc(Widget graph, Widget arc, Boolean notify);
CORVIDLMW_EXPORT void XmGraphUnselectArcs(Widget graph, WidgetList arcs, int count, Boolean notify);

/* How many are selected; 0 if `graph` is no XmGraph, for arcs with a warning. */
CORVIDLMW_EXPORT int XmGraphNumSelectedNodes(Widget graph);
CORVIDLMW_EXPORT int XmGraphNumSelectedArcs(Widget graph);

/* The selected nodes in the order of their selection, their number in `*count`; NULL and 0 with none, or,
 * with a warning, if `graph` is no XmGraph. The list belongs to the library and is overwritten by the next
 * call that returns nodes of any graph. */
CORVIDLMW_EXPORT WidgetList XmGraphGetSelectedNodes(Widget graph, int *count);

/* The same for arcs. The list is the graph's own: do not free it, nor keep it across a change of the
 * selection. */
CORVIDLMW_EXPORT WidgetList XmGraphGetSelectedArcs(Widget graph, int *count);

/* True if selected; False for what is no node, or no arc, of this graph. The second warns if `graph` is no
 * XmGraph. */
CORVIDLMW_EXPORT Boolean XmGraphIsSelectedNode(Widget graph, Widget node);
CORVIDLMW_EXPORT Boolean XmGraphIsSelectedArc(Widget graph, Widget arc);

/* ---- Changes ------------------------------------------------------------------------------------- */

/* Makes a node "Node" of class XmNdefaultNodeClass in the middle of what can be seen of the graph, as the
 * user's gesture does: XmNnewNodeCallback may refuse it (XmCR_NEW_NODE, `doit`), else it is managed and
 * XmNgraphChangedCallback called. The graph is laid out if XmNautoLayoutMode is XmALWAYS or XmNODES_ONLY.
 * A `graph` that is no XmGraph is left alone. */
CORVIDLMW_EXPORT void XmGraphAddNode(Widget graph);

/* Moves `node` to (x, y), its arcs with it; the graph's size does not follow. Returns True, or False
 * for a NULL node, one that is no node of a graph, or, with a warning, a `graph` that is no XmGraph. */
CORVIDLMW_EXPORT Boolean XmGraphMoveNode(Widget graph, Widget node, Position x, Position y);

/* The same without drawing any arc, for many moves before a repaint. Coordinates below 0 become 0. Returns
 * True; what is no node of `graph` stays where it is. */
CORVIDLMW_EXPORT Boolean XmGraphMoveNodeQuietly(Widget graph, Widget node, Position x, Position y);

/* Attaches `arc` to other nodes. Returns True if it did, or if the arc has no ends to move; False if
 * both ends are as asked already, if either is NULL or no node of this graph, or, with a warning, if
 * `graph` is no XmGraph. With an automatic layout of arcs the subgraph below `from` is laid out. */
CORVIDLMW_EXPORT Boolean XmGraphMoveArc(Widget graph, Widget arc, Widget from, Widget to);

/* Destroys the arcs that lead from `from` to `to`, if there are any. Warns if `graph` is no XmGraph. */
CORVIDLMW_EXPORT void XmGraphRemoveArcBetweenNodes(Widget graph, Widget from, Widget to);

/* Destroys all arcs, or all nodes with their arcs. Warn if `graph` is no XmGraph. */
CORVIDLMW_EXPORT void XmGraphDestroyAllArcs(Widget graph);
CORVIDLMW_EXPORT void XmGraphDestroyAllNodes(Widget graph);

/* Destroys the selected nodes, with their arcs, and the selected arcs. A `graph` that is no XmGraph is left
 * alone. */
CORVIDLMW_EXPORT void XmGraphDestroySelectedArcsOrNodes(Widget graph);

/* Manage nodes and arcs of one graph as XtManageChildren does, but with one layout for all of them.
 * XmGraphManageChild takes one, or NULL. XmGraphManageChildren takes `count` of them; a count below 1 does
 * nothing, and what is not in the graph of the first is passed over. */
CORVIDLMW_EXPORT void XmGraphManageChild(Widget child);
CORVIDLMW_EXPORT void XmGraphManageChildren(WidgetList children, int count);

/* Manage and unmanage all nodes and arcs, with one layout. A single arc stays managed. A `graph` that is no
 * XmGraph is left alone. */
CORVIDLMW_EXPORT void XmGraphManageAll(Widget graph);
CORVIDLMW_EXPORT void XmGraphUnmanageAll(Widget graph);

/* ---- Picking ------------------------------------------------------------------------------------- */

/* Returns the first arc within a few pixels of (x, y), in graph coordinates, or NULL; NULL with a
 * warning if `graph` is no XmGraph. */
CORVIDLMW_EXPORT Widget XmGraphInputOverArc(Widget graph, int x, int y);

/* True if (x, y) is within a few pixels of `arc`; False for a detached arc or what is none. */
CORVIDLMW_EXPORT Boolean XmGraphIsPointInArc(Widget arc, int x, int y);

/* ---- Size ------------------------------------------------------------------------------------------ */

/* These leave a `graph` alone that is no XmGraph. */

/* Moves all nodes, and the arcs with them, by (dx, dy) pixels. */
CORVIDLMW_EXPORT void XmGraphMoveAll(Widget graph, int dx, int dy);

/* From now on the graph does not follow its nodes: it only grows to its clip window. */
CORVIDLMW_EXPORT void XmGraphDontAdjustSize(Widget graph);

/* Takes that back, and fits the graph to its nodes at once. */
CORVIDLMW_EXPORT void XmGraphAdjustSize(Widget graph);

/* Show and hide a plain window over a graph in a scrolled window, to hide many moves. Calls nest.
 * Without a scrolled window, or before realisation, they do nothing. */
CORVIDLMW_EXPORT void XmGraphShowCoverWindow(Widget graph);
CORVIDLMW_EXPORT void XmGraphHideCoverWindow(Widget graph);

/* ---- View ------------------------------------------------------------------------------------------ */

/* These scroll a graph that lies in an automatic scrolled window by setting the two scroll bars, whose
 * callbacks are told. For a graph that does not, or that is no XmGraph, they do nothing. */

/* Brings the middle of `widget`, a node, to the middle of the view, as far as the scroll bars go. A NULL
 * `widget`, or one that is neither widget nor gadget, is left where it is. */
CORVIDLMW_EXPORT void XmGraphCenterAroundWidget(Widget graph, Widget widget);

/* The same, but only if `widget` is not in view already. What lies past the right edge of the view, and
 * neither above nor below it, counts as in view. */
CORVIDLMW_EXPORT void XmGraphMakeWidgetVisible(Widget graph, Widget widget);

/* Sets each scroll bar to the share of its range that (x, y) has in the graph's width and height: (0, 0)
 * shows the upper left corner, (width, height) the lower right one. */
CORVIDLMW_EXPORT void XmGraphCenterAtPos(Widget graph, int x, int y);

/* Multiplies XmNchildSpacing and XmNsiblingSpacing by `factor`, or divides them by -`factor` if it is
 * negative, lays the graph out and keeps the share of the view; nodes keep their size. A spacing is at
 * least 1; above 4096 only a factor of 0 or less does anything. It works without a scrolled window, too.
 * A graph that is no XmGraph is left alone, and so is any graph if `factor` is no number. */
CORVIDLMW_EXPORT void XmGraphZoom(Widget graph, float factor);

/* ---- Overview --------------------------------------------------------------------------------------- */

/* Creates an unmanaged XmDrawingArea "overview" below `parent`, a composite widget of the graph's
 * screen and depth. At any size it shows the whole graph: nodes as rectangles in XmNoverviewNodeColor,
 * or in their XmNmarkColor; arcs as lines in XmNoverviewLineColor, with XmNshowOverviewArcs; and, for a
 * graph in a scrolled window, a frame around the part in view, which the pointer drags. Returns it; the
 * parent owns it, the caller manages it. It may die before the graph or after it.
 *
 * A graph has one overview: further calls return the same widget, whatever their `parent`. Returns NULL
 * if `graph` is no XmGraph or `parent` cannot hold its overview. */
CORVIDLMW_EXPORT Widget XmGraphCreateOverView(Widget graph, Widget parent);

/* ---- Printing ----------------------------------------------------------------------------------------- */

/* Writes the graph to the file `filename` as PostScript, one pixel as one point, on as many pages of 594
 * by 774 points as it needs, each labelled with its row and column: nodes as boxes with their
 * XmNlabelString, arcs as straight arrows. The text is as high as the font of the first node. Bytes of
 * labels stand in the file as they are: a label with an unbalanced parenthesis or a backslash spoils it.
 * Without nodes the file is not touched. Nothing is told of a file that cannot be opened or written. A
 * `graph` that is no XmGraph, or a NULL `filename`, does nothing. */
CORVIDLMW_EXPORT void XmGraphPrint(Widget graph, const char *filename);

#ifdef __cplusplus
}
#endif

#endif
