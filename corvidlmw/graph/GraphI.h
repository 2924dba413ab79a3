// What the sources of the graph room share.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

#include <corvidlmw/graph/ArcP.h>
#include <corvidlmw/graph/BoxIndex.h>
#include <corvidlmw/graph/GraphP.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <utility>

namespace corvidlmw::graph {

// ---- Records ------------------------------------------------------------------------------------

inline XmGraphPart &GraphOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->graph;
}

inline XmManagerPart &ManagerOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->manager;
}

inline XmArcPart &ArcOf(Widget arc) {
    return reinterpret_cast<XmArcWidget>(arc)->arc;
}

inline XmGraphConstraintPart &ConstraintOf(Widget child) {
    return reinterpret_cast<XmGraphConstraintPtr>(child->core.constraints)->graph;
}

// The record of a child of a graph; zero for an arc, and for a popup shell, which has no constraints.
inline NodePtr NodeOf(Widget child) {
    return child->core.constraints ? ConstraintOf(child).node : nullptr;
}

// Of a child. The toolkit's own question looks for the application context each time, which passes over
// thousands of children have no time for.
inline bool IsManaged(Widget child) {
    return child->core.managed != False;
}

// The record of any widget at all: zero unless it is a living node of `graph`. The super-root is none.
NodePtr NodeIn(Widget graph, Widget w);

// True, or False with the warning, if `w` is no graph.
bool CheckGraph(Widget w, const char *warning);

inline std::span<Widget> Children(Widget graph) {
    return {ChildrenOf(graph), NumChildrenOf(graph)};
}

inline std::span<Widget> Arcs(Widget graph) {
    return {GraphOf(graph).arcs, static_cast<std::size_t>(GraphOf(graph).num_arcs)};
}

template <typename T>
std::span<T> Entries(const XmGraphNodeList &list) {
    return {reinterpret_cast<T *>(list.items), static_cast<std::size_t>(list.count)};
}

inline std::span<NodePtr> Nodes(const XmGraphNodeList &list) {
    return Entries<NodePtr>(list);
}

inline std::span<Widget> Widgets(const XmGraphNodeList &list) {
    return Entries<Widget>(list);
}

// A copy, to walk while callbacks may change the list.
template <typename T>
Vector<T> Copy(std::span<T> list) {
    return {list.begin(), list.end()};
}

// ---- Lists ----------------------------------------------------------------------------------------

// From a list that has it once at most. The last one is found at once.
void RemoveOnlyEntry(XmGraphNodeList &list, void *entry);
// Appends with the growth of a list of arcs: size/4 + size + 1, without zero fill.
void AppendArc(XmGraphNodeList &list, Widget arc);

// Shared by all graphs: what the functions that return nodes fill, and the nodes of the subgraph
// at hand.
extern XmGraphNodeList return_widget_list;
extern XmGraphNodeList subgraph_nodes;

// Size of the super-root's widget and of new nodes.
extern unsigned short nn_width;
extern unsigned short nn_height;

// Figures collected for one request: the rubber band and the overview.
struct LineBatch {
    int count;
    XSegment segments[200];
};
struct RectangleBatch {
    int count;
    XRectangle rectangles[200];
};
extern LineBatch line_list;
extern LineBatch overview_line_list;
extern RectangleBatch rectangle_list;
extern RectangleBatch overview_rectangle_list;

// ---- State behind `internal` ------------------------------------------------------------------------

class Watch;
class LivingCopy;

// An arc that left `arcs` and is not dead yet: a work procedure destroys it, or, with none, the
// toolkit at the end of a dispatch.
struct DoomedArc {
    Widget arc;
    XtWorkProcId work_proc;
};

inline void StopWaiting(DoomedArc &doomed) {
    if (doomed.work_proc) {
        XtRemoveWorkProc(doomed.work_proc);
        doomed.work_proc = 0;
    }
}

// An arc that was taken out of `arcs` to be destroyed; zero once it is.
struct TakenArc {
    unsigned long serial;
    Widget arc;
};

// All arcs of a graph on their way out. A callback may start another such round inside.
struct TakenArcs {
    Vector<TakenArc> arcs;
    TakenArcs *outer;
};

// A copy of a render table, and how many arcs draw with it; found by the table that it shares.
struct SharedFont {
    XmFontList list;
    int users;
};
using SharedFonts = UnorderedMap<const void *, SharedFont>;

// See PaintIndex.cpp.
struct PaintIndex {
    bool nodes_known = false;
    bool arcs_known = false;
    BoxIndex arcs;
    BoxIndex nodes;
    Vector<std::uint64_t> geometries; // what the nodes' boxes were made from
    Vector<std::size_t> unmeasured;   // nodes that moved since their arcs were measured
    Vector<Widget> dragged;           // moved in a drag, and not in the boxes yet
};

// The rank of the arc at a place in a list of siblings.
struct KnownRank {
    std::size_t at = 0;
    int rank = 0;
};
using KnownRanks = UnorderedMap<const XmGraphNodeList *, KnownRank>;

// What a gesture draws over the graph while it runs.
struct Figure {
    enum class Kind { Nothing, Line, Box } kind = Kind::Nothing;
    Segment span; // from end to end, or from corner to corner
};

// What is on the overview's window, beside what the graph's record says of it.
struct OverviewState {
    bool frame_shown = false;
    OwnedRegion painted_over;   // where marks have covered the frame since it was drawn
    bool frame_scrolls = false; // the graph is being scrolled to where the frame was dragged
    Window prepared = None;     // has its bit gravity
    // Number of the request that cleared the window and asked for its exposure; zero after that.
    unsigned long clear_request = 0;
};

struct GraphState {
    std::array<Widget, 2> bars{}; // the scroll bars that call the graph
    // The indicate cursors that were built here; others belong to a client or a converter.
    Cursor built_cursors[2] = {None, None};
    Window cover_parent = None;       // the clip window's window that the cover lies in
    bool cover_settled = false;       // the cover was unmapped after the clip window's realisation
    bool adjust_after_layout = false; // the scrolled window's own
    int layout_depth = 0;
    bool veiled = false;           // see VeilArcs
    std::size_t managed_nodes = 0; // a digest of them
    unsigned long next_arc_serial = 1;
    Deque<DoomedArc> doomed_arcs;    // in the order of their work procedures
    TakenArcs *taken_arcs = nullptr; // while all arcs are being destroyed
    // Nodes whose `tree_children` may name a node that no arc leads to any more.
    UnorderedSet<NodePtr> stale_owners;
    // What stands in `selected_nodes` and `selected_arcs`.
    UnorderedSet<const void *> selected;
    SharedFonts fonts;
    int rank_walks = 0;
    KnownRanks known_ranks; // of the last arc in each list that a RankWalk asked for
    PaintIndex painted;
    Figure figure;
    int figure_lifts = 0;               // how often it was taken away for a drawing
    Rectangle figure_trace;             // around all that it was in this gesture
    bool figure_spoiled = false;        // something was painted there without a lift
    bool figure_unsettled = false;      // exposures from before its removal may still come
    unsigned long figure_hidden_at = 0; // the request that removed it
    // What was erased since the outermost DamageRepair began.
    Vector<Rectangle> damage;
    int repairs = 0;
    OverviewState overview;
    Watch *watches = nullptr;
    LivingCopy *copies = nullptr;
};

inline GraphState &StateOf(Widget graph) {
    return *static_cast<GraphState *>(GraphOf(graph).internal);
}

// Tells whether a graph died while client code ran.
class Watch {
public:
    explicit Watch(Widget graph) : state_(&StateOf(graph)), next_(state_->watches) {
        state_->watches = this;
    }
    ~Watch() {
        if (state_) {
            state_->watches = next_;
        }
    }
    Watch(const Watch &) = delete;
    Watch &operator=(const Watch &) = delete;

    bool Died() const { return !state_; }
    // The graph's state is going: no watch may touch it any more.
    static void Trip(GraphState &state) {
        for (Watch *watch = state.watches; watch; watch = watch->next_) {
            watch->state_ = nullptr;
        }
    }

protected:
    GraphState *state_;

private:
    Watch *next_;
};

// Nodes and arcs of a graph to walk while client code runs: what dies on the way becomes NULL here.
class LivingCopy : public Watch {
public:
    LivingCopy(Widget graph, Vector<Widget> objects)
        : Watch(graph), outer_(state_->copies), objects_(std::move(objects)) {
        state_->copies = this;
    }
    ~LivingCopy() {
        if (state_) {
            state_->copies = outer_;
        }
    }

    // An object, or all of them with NULL.
    static void Forget(GraphState &state, Widget object) {
        for (LivingCopy *copy = state.copies; copy; copy = copy->outer_) {
            for (Widget &entry : copy->objects_) {
                entry = entry == object || !object ? nullptr : entry;
            }
        }
    }
    Widget operator[](std::size_t i) const { return objects_[i]; }
    auto begin() const { return objects_.begin(); }
    auto end() const { return objects_.end(); }

private:
    LivingCopy *outer_;
    Vector<Widget> objects_;
};

// `internal` of an arc: its serial number in the graph. `arcs` is sorted by it, so that an arc is
// found there by bisection.
inline unsigned long SerialOf(Widget arc) {
    return reinterpret_cast<unsigned long>(ArcOf(arc).internal);
}

// The number of an arc that stands in `doomed_arcs`, or whose destroy callbacks have begun.
constexpr unsigned long doomed_serial = ~0UL;

inline bool IsDoomed(Widget arc) {
    return SerialOf(arc) == doomed_serial;
}

// While one lives, the rank of an arc is counted on from the one of its list that was asked for before, not
// from the first: thousands of parallel arcs are drawn in one pass. Nothing may begin to die meanwhile.
class RankWalk {
public:
    explicit RankWalk(Widget graph) : state_(StateOf(graph)) { state_.rank_walks += 1; }
    ~RankWalk() {
        if (--state_.rank_walks == 0 && !state_.known_ranks.empty()) {
            state_.known_ranks = {};
        }
    }
    RankWalk(const RankWalk &) = delete;
    RankWalk &operator=(const RankWalk &) = delete;

private:
    GraphState &state_;
};

// ---- Graph.cpp ----------------------------------------------------------------------------------------

// XmNgraphChangedCallback with nothing but a reason and, for some, an object.
void CallGraphChanged(Widget graph, int reason, Widget object = nullptr, bool interactive = false);

// Clears every field of the graph that names the dying object.
void ForgetObject(Widget graph, Widget object);

// Makes the hidden first child anew, or for the first time.
void CreateSuperRoot(Widget graph);

// Takes an arc out of `arcs`.
void RemoveFromArcs(Widget graph, Widget arc);

// ---- Graphics.cpp ---------------------------------------------------------------------------------

void CreateSweepCursors(Widget graph);
void CreateIndicateCursors(Widget graph); // those that the client did not give
void FreeCursors(Widget graph);
void BuildGraphGCs(Widget graph);
void FreeGraphGCs(Widget graph);
GC BuildPlainGC(Widget graph, Pixel foreground);
GC BuildXorGC(Widget graph);
GC BuildOverviewGC(Widget graph, Pixel color);

// ---- Arc.cpp, ArcLinks.cpp, ArcText.cpp --------------------------------------------------------------------------------------------

void destroy_arc_callback(Widget arc, XtPointer client_data, XtPointer call_data);
void destroy_node_callback(Widget node, XtPointer graph, XtPointer call_data);
Widget CreateArcInternal(Widget graph, char *name, NodePtr from, NodePtr to, ArgList args,
                         Cardinal num_args);
void DoRemoveArc(Widget graph, Widget arc);
inline void Detach(XmArcPart &part) {
    part.to = part.from = nullptr;
}
void MakeSiblings(Widget existing, Widget arc);
// The arc that a new arc from `from` to `to` stands beside, or NULL.
Widget FindTwin(Widget arc, NodePtr from, NodePtr to);
// Leaves the list of parallel arcs; those behind it are erased and drawn one rank lower.
void LeaveSiblings(Widget graph, Widget arc, bool redraw);
// Enters the arc, once, among those that wait for their death.
void Doom(Widget graph, Widget arc, XtWorkProcId work_proc);
void DestroyDoomedArcs(Widget graph);
void RebuildArcGCs(Widget arc);
// A wider line would keep a server busy for minutes.
constexpr int widest_arc = 1024;
// A private copy of the label that a client gave, or one of the arc's name.
void TakeLabel(Widget arc);
void MeasureLabel(Widget arc);
void TakeFontList(Widget arc, XmFontList given);
void TakeFixedFontList(Widget arc);
void ReleaseFontList(Widget graph, XmFontList list);
// Between the two the toolkit takes managed arcs for realised and leaves them alone.
void VeilArcs(Widget graph);
void UnveilArcs(Widget graph);

// ---- ArcDrawing.cpp ----------------------------------------------------------------------------------------

// Draws as the class's `expose` does.
void DrawArc(Widget arc);
// Draws all arcs in a region, its clip set once for each GC.
void DrawArcsInRegion(Widget graph, Region region, const BoxIndex &painted);
bool ArcIsInView(Widget graph, Widget arc);
// Where it would paint now; nowhere if it is detached. What drawing keeps of an arc is brought up to date.
Bounds MeasureArc(Widget graph, Widget arc);
bool HasBothEnds(Widget arc);
// The end points in whole coordinates, as _GetPoints gives them; both ends must be set.
Segment EndsOf(Widget arc);
// The stored end points.
Segment StoredEndsOf(Widget arc);
void StoreEnds(Widget arc, const Segment &ends);

void ArcRedisplay(Widget arc, XEvent *event, Region region);
void ArcDispatchInput(Widget arc, XEvent *event, Mask mask);

// ---- PaintIndex.cpp ---------------------------------------------------------------------------------------

// For a change in the children, but not for nodes that move.
void ForgetNodeIndex(Widget graph);
// For a change in `arcs`, or in what an arc looks like.
void ForgetArcIndex(Widget graph);
// For each node that the graph moves.
void NoteDragged(Widget graph, Widget node);
// Up to date.
const BoxIndex &NodeIndexOf(Widget graph);
const PaintIndex &PaintIndexOf(Widget graph);
// Those of `objects`, which the index numbers, that may paint inside the box; in their order.
Vector<Widget> Touching(const BoxIndex &index, std::span<Widget> objects, const Rectangle &box);

// ---- Layout.cpp ------------------------------------------------------------------------------------------------

void DoLayout(Widget graph);
// What XmGraphLayout does for a graph.
void LayoutNow(Widget graph);
// `subgraph_nodes` becomes the managed, mapped nodes that `node` reaches, depth first.
void GetSubgraphNodeList(Widget graph, XmGraphNodeList &path, NodePtr node);
// Both spacings in pixels, from the units that the application gave.
void ConvertSpacing(Widget graph, int child_units, int sibling_units);

// ---- Sizing.cpp --------------------------------------------------------------------------------------------------

void GraphResize(Widget graph);
void GraphChangeManaged(Widget graph);
XtGeometryResult GraphGeometryManager(Widget child, XtWidgetGeometry *request,
                                      XtWidgetGeometry *reply);
XtGeometryResult GraphQueryGeometry(Widget graph, XtWidgetGeometry *intended,
                                    XtWidgetGeometry *preferred);
void ResizeClipArea(Widget clip, XtPointer graph, XtPointer call_data);
void GraphScrolled(Widget scroll_bar, XtPointer graph, XtPointer call_data);
// Callbacks on the scrolled window that the graph was created in, and off again.
void AttachToScrolledWindow(Widget graph);
// The cover goes with the window that it lies in, which the toolkit tells nobody.
bool HasCover(Widget graph);
void DetachFromScrolledWindow(Widget graph);
struct ScrollBars {
    Widget vertical = nullptr;
    Widget horizontal = nullptr;
    bool from_right = false; // the horizontal one's values count from the graph's right end
};
// Of the scrolled window that the graph's parent is the clip window of; those that there are.
ScrollBars ScrollBarsAround(Widget graph);

// ---- Redisplay.cpp -----------------------------------------------------------------------------------------------

// Arcs, and the gadgets over them. An arc that is out of view by XmNshowCrossingArcs stays away.
void PaintRegion(Widget graph, Region region);
Rectangle VisibleRectangle(Widget graph); // in its own coordinates
void GraphRedisplay(Widget graph, XEvent *event, Region region);
Boolean GraphSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                       Cardinal *num_args);
void HandleCreateNotify(Widget graph, XtPointer client_data, XEvent *event, Boolean *dispatch);
void ClearGraph(Widget graph); // the whole window, with exposures
// Gives the children the input that the graph's edit mode leaves them. A mode that a window has
// already is not applied again.
void ApplyEditMode(Widget graph, std::span<Widget> children);
// The same for what has come into the children that have it already.
void ApplyEditModeAgain(Widget graph);
void FreeEditState(NodePtr node);

// ---- Selection.cpp ---------------------------------------------------------------------------------------------------

// The nodes' widgets in `return_widget_list`; NULL with none.
WidgetList WidgetsOf(const XmGraphNodeList &nodes, int *count);
// The widgets of records, to walk on.
Vector<Widget> WidgetsOf(std::span<NodePtr> nodes);
// Fills in the lists and calls, if anybody listens.
void CallWithLists(Widget graph, const char *callbacks, XmGraphCallbackStruct &call_data);
// A highlight shows as soon as there is a window.
void HighlightNode(Widget node);
void UnhighlightNode(Widget node);
bool IsSelected(Widget graph, Widget object);
bool HasSelection(Widget graph);
// Any child with a record, the super-root too: a sweep takes it along.
void SelectNode(Widget graph, Widget node, bool notify);
void SelectArc(Widget graph, Widget arc, bool notify);
void UnselectNode(Widget graph, Widget node, bool notify);
void UnselectArc(Widget graph, Widget arc, bool notify);
// Takes it out, with nothing told or drawn.
void ForgetSelected(Widget graph, Widget object);
// These two tell the client first, if there is anything to deselect.
void DeselectAllNodes(Widget graph);
void DeselectAllArcs(Widget graph);
// The arcs that leave a node to another one, if both ends can be seen.
void SelectArcsWithSubgraph(Widget graph, NodePtr node);
void CancelArcsWithSubgraph(Widget graph, NodePtr node);
// What `subgraph_nodes` holds of this graph.
Vector<Widget> SubgraphOf(Widget graph);
// The node, `subgraph_nodes` and their arcs, with no word of the nodes.
void SelectSubgraph(Widget graph, Widget root);

// ---- Viewport.cpp, Overview.cpp ------------------------------------------------------------------------------------

void ForgetButterflyRoot(Widget graph);
// Sets the scroll bars, vertical first, so that this place comes as near to the view's upper left corner as
// they go, and tells their callbacks.
// The graph may be dead afterwards.
void ScrollTo(Widget graph, const Point &corner);

// The overview and the graph forget each other; the window shows nothing any more.
void DetachOverview(Widget graph);
// Repaints the overview after a change that XmNgraphChangedCallback does not tell.
void RefreshOverview(Widget graph);

// ---- Structure.cpp ---------------------------------------------------------------------------------------------------

void DestroyAllArcs(Widget graph);
// A node with its arcs; the overview does not follow yet.
void MoveNode(Widget graph, Widget node, Position x, Position y);

// ---- Additions.cpp ---------------------------------------------------------------------------------------------------

// Where a new node's upper left corner comes to lie, and the gesture that it comes from; NULL for none.
void AddNode(Widget graph, Point place, XEvent *event);
// The arc's gesture ended at (x, y) of the event.
void AddArc(Widget graph, XEvent *event);

// ---- RubberBand.cpp --------------------------------------------------------------------------------------------------

// The rectangle between two corners.
Rectangle Normalised(const Segment &diagonal);
// In place of the one that shows.
void ShowFigure(Widget graph, const Figure &figure);
void HideFigure(Widget graph);
// Something may be painted over the figure without a lift: once it is gone that place is painted anew.
void SpoilFigure(Widget graph);
// Whether an exposed region may hold a part of a figure, so that it must be cleared.
bool MayShowFigure(Widget graph, const XEvent *exposure);

// For the length of a drawing the figure is gone.
class FigureLift {
public:
    explicit FigureLift(Widget graph);
    ~FigureLift();
    FigureLift(const FigureLift &) = delete;
    FigureLift &operator=(const FigureLift &) = delete;

private:
    Watch watch_;
    Widget graph_;
};

// ---- Repair.cpp ------------------------------------------------------------------------------------------------------

// Clears and paints anew, within the window.
void ClearAndPaint(Widget graph, Region region);
void RepaintBoxes(Widget graph, const Vector<Rectangle> &boxes);
// The smallest rectangle that holds both.
Rectangle Around(const Rectangle &a, const Rectangle &b);
void NoteDamage(Widget graph, const Rectangle &box);

// Repaints at its end what was erased meanwhile.
class DamageRepair {
public:
    explicit DamageRepair(Widget graph);
    ~DamageRepair();
    DamageRepair(const DamageRepair &) = delete;
    DamageRepair &operator=(const DamageRepair &) = delete;

private:
    Watch watch_;
    Widget graph_;
};

// ---- Input.cpp -------------------------------------------------------------------------------------------------------

extern XtActionsRec graph_actions[16];
extern const char graph_translations[];
// The topmost managed gadget at a point.
Widget GadgetAt(Widget graph, Position x, Position y);
// The node or arc that a gesture finds at the event's point; NULL for none.
Widget PickObject(Widget graph, XEvent *event, bool with_arcs);

} // namespace corvidlmw::graph
