/* Records and class records of XmGraph, for subclasses and for the other sources of the library. */
#ifndef CORVIDLMW_GRAPH_GRAPHP_H
#define CORVIDLMW_GRAPH_GRAPHP_H

#include <corvidlmw/graph/Graph.h>

#include <X11/Xutil.h>

#include <Xm/ManagerP.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Lists ------------------------------------------------------------------------------------ */

/* A growing array of pointers. With all fields zero it is an empty list without storage. */
typedef struct {
    void **items;
    int count;
    int size;
} XmGraphNodeList;

/* ---- Nodes -------------------------------------------------------------------------------------- */

typedef struct _NodeRec NodeRec, *NodePtr;

/* `depth` of a node that a tree conversion has not met yet. */
#define XmGRAPH_UNPLACED_DEPTH 987654321

struct _NodeRec {
    Widget widget;                 /* zero once it is being destroyed */
    XmGraphNodeList from_arcs;     /* arcs that start here */
    XmGraphNodeList to_arcs;       /* arcs that end here */
    XmGraphNodeList parents;       /* nodes with an arc to this one, each once */
    XmGraphNodeList children;      /* nodes that this one has an arc to, each once */
    int visited;                   /* mark of the walks of a layout */
    int depth;                     /* level in the forest */
    NodePtr tree_parent;           /* in the forest; zero for none */
    XmGraphNodeList tree_children; /* in the forest */
    XtPointer internal;
};

/* ---- Constraints --------------------------------------------------------------------------------- */

typedef struct {
    EventMask event_mask; /* what the edit mode last did to this child's window */
    NodePtr node;         /* zero for an arc */
    int delta_x, delta_y; /* pointer offset from this node in a multiple move */
    int old_x, old_y;     /* place kept by the gestures */
    Pixel mark_color;     /* -1 for no mark */
} XmGraphConstraintPart;

typedef struct {
    XmManagerConstraintPart manager;
    XmGraphConstraintPart graph;
} XmGraphConstraintRec, *XmGraphConstraintPtr;

/* ---- Gestures ------------------------------------------------------------------------------------ */

typedef enum {
    GESTURE_NONE = 0,
    GESTURE_NODE_INDICATED = 1,
    GESTURE_NODE_CANCELLED = 2,
    GESTURE_ADD_NODE_INDICATED = 3,
    GESTURE_ADD_NODE_CANCELLED = 4,
    GESTURE_ARC_INDICATED = 5,
    GESTURE_ARC_CANCELLED = 6,
    GESTURE_ADD_ARC_INDICATED = 7,
    GESTURE_ADD_ARC_CANCELLED = 8,
    GESTURE_MOVE_NODE = 9,
    GESTURE_MOVE_ARC = 10,
    GESTURE_MOVE_SELECTION = 11,
    GESTURE_NODE_SELECTED = 12,
    GESTURE_ADD_NODE_SELECTED = 13,
    GESTURE_ARC_SELECTED = 14,
    GESTURE_ADD_ARC_SELECTED = 15,
    GESTURE_RESELECT = 16,
    GESTURE_SUBTREE_INDICATED = 17,
    GESTURE_SUBTREE_CANCELLED = 18,
    GESTURE_PLACE_NODE = 23,
    GESTURE_DRAW_ARC = 24,
    GESTURE_DRAW_ARC_IN_SOURCE = 25,
    GESTURE_SWEEP_REGION = 26
} XmGraphGestureState;

/* ---- The graph's record --------------------------------------------------------------------------- */

typedef struct {
    Window cover_window; /* plain window over a graph in a scrolled window; zero elsewhere */
    int cover_count;     /* how often it is asked for */

    int gesture_state; /* an XmGraphGestureState */
    Time last_click_time;
    int double_click_interval, increment;

    Cursor indicate_child_cursor, indicate_parent_cursor, ptr_cursor, motion_cursor,
        indicate_cursor;
    Cursor top_right_cursor, top_left_cursor, bottom_right_cursor, bottom_left_cursor;

    int start_x, start_y, end_x, end_y, offset_x, offset_y;
    int arc_tolerance; /* of a pick, in pixels */

    int child_spacing, sibling_spacing;             /* in pixels */
    int child_spacing_units, sibling_spacing_units; /* as the application gave them */

    GC gc, xor_gc, highlight_gc;
    GC overview_viewport_bottom_gc, overview_viewport_top_gc, overview_mark_gc;
    GC overview_line_gc, overview_node_gc;

    Boolean show_overview_arcs, editable, ok_to_add, movable_nodes, selectable_arcs, editable_arcs;
    int auto_layout_mode;
    Atom layout_key;
    Boolean twins_visible, re_layout, reorient;
    Boolean layed_out; /* the layout is current */
    unsigned char layout_style, orientation, arc_draw_mode;

    Widget *arcs;
    XmGraphNodeList selected_arcs;  /* of Widget */
    XmGraphNodeList selected_nodes; /* of NodePtr */
    XmGraphNodeList user_roots;     /* of NodePtr */
    int num_arcs, arcs_size;

    NodePtr root; /* the super-root: the hidden first child */
    NodePtr current_node;
    NodePtr current_subtree;
    Widget current_arc;
    Widget armed_gadget;
    Widget indicated;

    Widget overview;
    int overview_dragging;
    Pixel highlight_color, overview_line_color, overview_node_color,
        overview_viewport_bottom_shadow_color, overview_viewport_top_shadow_color;
    Position viewport_x, viewport_y;
    Dimension viewport_width, viewport_height;
    float overview_x_scale, overview_y_scale;
    Boolean skew_overview_scale, allow_grandchild_input;

    WidgetClass default_node_class;
    Boolean allow_multiple_selections;
    XmGraphLayoutProc layout_proc;
    unsigned char interactive_arc_direction;
    Widget butterfly_root;

    XtCallbackList graph_too_big_callback, user_button_callback, graph_changed_callback,
        new_arc_callback, new_node_callback, node_moved_callback, arc_moved_callback,
        default_action_callback, select_node_callback, deselect_callback, select_arc_callback,
        select_subgraph_callback;

    Boolean in_scrolled_window; /* the parent was one at creation */
    Boolean show_crossing_arcs;
    Dimension clip_width, clip_height;
    short scrollbar_thickness;
    Boolean adjust_size; /* the graph may follow its nodes */
    XtPointer internal;
} XmGraphPart;

typedef struct _XmGraphRec {
    CorePart core;
    CompositePart composite;
    ConstraintPart constraint;
    XmManagerPart manager;
    XmGraphPart graph;
} XmGraphRec;

typedef struct {
    XtPointer extension;
} XmGraphClassPart;

typedef struct _XmGraphClassRec {
    CoreClassPart core_class;
    CompositeClassPart composite_class;
    ConstraintClassPart constraint_class;
    XmManagerClassPart manager_class;
    XmGraphClassPart graph_class;
} XmGraphClassRec;

CORVIDLMW_EXPORT extern XmGraphClassRec xmGraphClassRec;

/* ---- Internal functions that are exported ----------------------------------------------------------- */

/* `entry` at the end of `list`; the list belongs to `graph`, which is not looked at. */
CORVIDLMW_EXPORT void _XmGraphNodeListInsert(Widget graph, XmGraphNodeList *list, void *entry);
/* The same unless the list has it already. */
CORVIDLMW_EXPORT void _XmGraphNodeListInsertNoDuplicates(Widget graph, XmGraphNodeList *list,
                                                         void *entry);
/* Takes the first occurrence out and closes the gap. */
CORVIDLMW_EXPORT void _XmGraphNodeListRemove(XmGraphNodeList *list, void *entry);
/* 1 if the list has `entry`, else 0. */
CORVIDLMW_EXPORT int _XmGraphNodeListMember(XmGraphNodeList *list, void *entry);
/* Frees the storage; the list is empty afterwards. */
CORVIDLMW_EXPORT void _XmGraphNodeListFree(XmGraphNodeList *list);
/* Clears all but `widget`, freeing nothing. */
CORVIDLMW_EXPORT void _XmGraphInitNode(NodePtr node);

/* Turns the graph below its super-root into a forest: `tree_parent`, `tree_children`, `depth`. Every
 * node must be unplaced and without `tree_parent`. */
CORVIDLMW_EXPORT void _XmGraphConvertToTree(Widget graph);
/* The same below `node`, which gets `parent` and `depth`. A node on `path` is not entered. */
CORVIDLMW_EXPORT void _XmGraphDoConvertToTree(Widget graph, XmGraphNodeList *path, NodePtr node,
                                              NodePtr parent, int depth);
/* Adds 1 to `depth` of the node and of all below it in the forest. */
CORVIDLMW_EXPORT void _XmGraphUpdateNodeDepth(NodePtr node);
/* Moves the node from its `tree_parent` to another; the new one's list does not change. */
CORVIDLMW_EXPORT void _XmGraphUpdateNodeParent(NodePtr node, NodePtr parent);

/* Place the tree below `node` with its upper left corner at (x, y); return its lower or its right
 * extent. */
CORVIDLMW_EXPORT int _XmGraphHorizontalLayout(Widget graph, NodePtr node, int x, int y);
CORVIDLMW_EXPORT int _XmGraphVerticalLayout(Widget graph, NodePtr node, int x, int y);
/* Place the butterfly root with its parents and its children. */
CORVIDLMW_EXPORT void _XmGraphHorizontalButterflyLayout(Widget graph);
CORVIDLMW_EXPORT void _XmGraphVerticalButterflyLayout(Widget graph);
/* Sets `visited` in the node and in all that it reaches. */
CORVIDLMW_EXPORT void _XmGraphMarkSubgraphVisited(NodePtr node);

/* Fits the graph's size to its nodes. */
CORVIDLMW_EXPORT void _XmGraphAdjustSize(Widget graph);
/* Sets both scroll bars' increment to XmNincrement. */
CORVIDLMW_EXPORT void _XmGraphFixScrollBarInc(Widget graph);

/* Repaints the gadget nodes that `region` touches; NULL means all that can be seen. */
CORVIDLMW_EXPORT void _RefreshGadgets(Widget graph, Region region);

/* The node or arc at the event's point, by the child window in the event, then the gadgets, then,
 * if `with_arcs`, the arcs; NULL for none. */
CORVIDLMW_EXPORT Widget _XmGraphPickChild(Widget graph, XEvent *event, Boolean with_arcs);

/* String converters of the old style; each knows the values of its resource. */
CORVIDLMW_EXPORT void _XmCvtStringToArcDirection(XrmValue *args, Cardinal *num_args, XrmValue *from,
                                                 XrmValue *to);
CORVIDLMW_EXPORT void _XmCvtStringToAutoLayoutType(XrmValue *args, Cardinal *num_args,
                                                   XrmValue *from, XrmValue *to);
CORVIDLMW_EXPORT void _XmCvtStringToLineStyle(XrmValue *args, Cardinal *num_args, XrmValue *from,
                                              XrmValue *to);
CORVIDLMW_EXPORT void _XmCvtStringToCapStyle(XrmValue *args, Cardinal *num_args, XrmValue *from,
                                             XrmValue *to);
CORVIDLMW_EXPORT void _XmCvtStringToLayoutStyle(XrmValue *args, Cardinal *num_args, XrmValue *from,
                                                XrmValue *to);
CORVIDLMW_EXPORT void _XmCvtStringToArcDrawMode(XrmValue *args, Cardinal *num_args, XrmValue *from,
                                                XrmValue *to);

/* Unit conversion of the spacings; the axis follows the orientation. */
CORVIDLMW_EXPORT void _XmFromChildPixels(Widget graph, int offset, XtArgVal *value);
CORVIDLMW_EXPORT XmImportOperator _XmToChildPixels(Widget graph, int offset, XtArgVal *value);
CORVIDLMW_EXPORT void _XmFromSiblingPixels(Widget graph, int offset, XtArgVal *value);
CORVIDLMW_EXPORT XmImportOperator _XmToSiblingPixels(Widget graph, int offset, XtArgVal *value);

#ifdef __cplusplus
}
#endif

#endif
