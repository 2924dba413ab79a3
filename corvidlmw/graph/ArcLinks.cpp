// How arcs and nodes hold each other: attaching and detaching, the lists of parallel arcs, and what is
// left to do when one of them dies.
//
// An attached arc has both ends set and stands in the `from_arcs` of one node and the `to_arcs` of the
// other. A detached arc has neither; there is nothing between. All arcs between the same two nodes,
// in either direction, share one list of siblings, in the order of attachment.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>
#include <cassert>
#include <utility>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Siblings -------------------------------------------------------------------------------------------------

// The arcs behind `arc`, which move down one rank when it leaves.
Vector<Widget> ArcsBehind(Widget arc) {
    const auto &part = ArcOf(arc);
    auto siblings = Widgets(*part.siblings);
    const auto first = static_cast<std::size_t>(_sibling_rank(arc)) + 1;
    Vector<Widget> behind;
    for (Widget sibling : siblings.subspan(std::min(first, siblings.size()))) {
        if (sibling != arc) {
            behind.push_back(sibling);
        }
    }
    return behind;
}

void LeaveSiblingList(XmArcPart &part, Widget arc) {
    XmGraphNodeList *list = part.siblings;
    StateOf(XtParent(arc)).known_ranks.erase(list);
    if (list->count == 2) {
        for (Widget sibling : Widgets(*list)) {
            ArcOf(sibling).siblings = nullptr;
        }
        _XmGraphNodeListFree(list);
        XtFree(reinterpret_cast<char *>(list));
    } else {
        _XmGraphNodeListRemove(list, arc);
    }
    part.siblings = nullptr;
}

// Counts on from a place in the list. False at its end.
bool CountTo(Widget arc, std::span<const Widget> siblings, KnownRank &place) {
    auto [at, rank] = place;
    for (; at < siblings.size() && siblings[at] != arc; at++) {
        rank += IsBeingDestroyed(siblings[at]) ? 0 : 1;
    }
    place = {at, rank};
    return at < siblings.size();
}

// ---- Nodes' lists -----------------------------------------------------------------------------------------------

// An arc from `from` to `to` other than `arc`, looked for where there are fewer. Which one does not
// matter: all of them share one list of siblings.
Widget FindArc(Widget arc, NodePtr from, NodePtr to) {
    const bool forward = from->from_arcs.count <= to->to_arcs.count;
    for (Widget other : Widgets(forward ? from->from_arcs : to->to_arcs)) {
        const auto &part = ArcOf(other);
        if (other != arc && part.from == from->widget && part.to == to->widget) {
            return other;
        }
    }
    return nullptr;
}

// Each neighbour stands once in `children`, `tree_children` and `parents`. A node that no arc led to is in
// none of them, unless an arc went and left its entry in `tree_children`.
void LinkNeighbours(Widget graph, NodePtr from, NodePtr to, bool had_arc) {
    const bool may_be_there = had_arc || StateOf(graph).stale_owners.contains(from);
    auto insert = may_be_there ? _XmGraphNodeListInsertNoDuplicates : _XmGraphNodeListInsert;
    insert(graph, &from->children, to);
    insert(graph, &from->tree_children, to);
    insert(graph, &to->parents, from);
}

// The tree edge goes with its arc; an entry that was no tree edge stays where it is in the order.
void UnlinkNeighbours(Widget graph, NodePtr from, NodePtr to) {
    RemoveOnlyEntry(from->children, to);
    if (to->tree_parent == from) {
        RemoveOnlyEntry(from->tree_children, to);
        to->tree_parent = nullptr;
    } else {
        StateOf(graph).stale_owners.insert(from);
    }
    RemoveOnlyEntry(to->parents, from);
}

Boolean reallyDestroyArc(XtPointer client_data) {
    auto arc = static_cast<Widget>(client_data);
    // The latest work procedure runs first.
    auto &doomed = StateOf(XtParent(arc)).doomed_arcs;
    auto found = std::find_if(doomed.rbegin(), doomed.rend(),
                              [&](const DoomedArc &d) { return d.arc == arc; });
    if (found != doomed.rend()) {
        found->work_proc = 0;
    }
    XtDestroyWidget(arc);
    return True;
}

// ---- Death of a node -------------------------------------------------------------------------------------------------

// The toolkit is in the middle of a destruction, so the arc goes later. A graph that is going takes it
// along at its end: destroyed here, it could outlive a graph that dies right after this node.
void DestroyLater(Widget graph, Widget arc) {
    const bool waits = !IsBeingDestroyed(graph) && !IsBeingDestroyed(arc);
    Doom(graph, arc,
         waits ? XtAppAddWorkProc(XtWidgetToApplicationContext(graph), reallyDestroyArc, arc) : 0);
}

// Unmanaging calls the client, who may destroy arcs of the list: what is left is asked for anew. The
// latest goes first, since it is found at once in the lists of others.
void DropArcs(Widget graph, XmGraphNodeList &list) {
    if (list.count == 0) {
        return;
    }
    Vector<Widget> arcs = Copy(Widgets(list));
    XtUnmanageChildren(arcs.data(), static_cast<Cardinal>(arcs.size()));
    arcs.clear();
    while (list.count > 0) {
        Widget arc = Widgets(list).back();
        assert(arc);
        XtRemoveCallback(arc, XmNdestroyCallback, destroy_arc_callback, nullptr);
        DoRemoveArc(graph, arc);
        if (list.count > 0 && Widgets(list).back() == arc) {
            list.count -= 1;
        }
        ForgetObject(graph, arc);
        arcs.push_back(arc);
    }
    // A graph that is going destroys all arcs at its end: taken out here one by one, each would shift
    // all that come after it.
    if (IsBeingDestroyed(graph)) {
        return;
    }
    std::for_each(arcs.begin(), arcs.end(), [&](Widget arc) { RemoveFromArcs(graph, arc); });
    std::for_each(arcs.rbegin(), arcs.rend(), [&](Widget arc) { DestroyLater(graph, arc); });
}

// The toolkit destroys an arc's graph before the arc, if a client asked for both in that order inside
// of one dispatch: it does not know them for parent and child. Such an arc gets a parent that lives as
// long as the display.
void OrphanArc(Widget graph, Widget arc) {
    XtRemoveCallback(arc, XmNdestroyCallback, destroy_arc_callback, nullptr);
    DoRemoveArc(graph, arc);
    ReleaseFontList(graph, std::exchange(ArcOf(arc).font_list, nullptr));
    arc->core.managed = False;
    arc->core.parent = XtHooksOfDisplay(XtDisplay(arc));
}

// No list of another node may name it once its record is freed.
void LeaveForest(Widget graph, NodePtr node) {
    for (Widget arc : Widgets(node->to_arcs)) {
        if (NodePtr from = NodeIn(graph, ArcOf(arc).from)) {
            _XmGraphNodeListRemove(&from->tree_children, node);
        }
    }
    auto &stale = StateOf(graph).stale_owners;
    for (NodePtr owner : stale) {
        _XmGraphNodeListRemove(&owner->tree_children, node);
    }
    stale.erase(node);
}

} // namespace

namespace corvidlmw::graph {

// ---- Siblings ------------------------------------------------------------------------------------------------------------

void MakeSiblings(Widget existing, Widget arc) {
    ForgetArcIndex(XtParent(arc));
    auto &part = ArcOf(existing);
    if (!part.siblings) {
        part.siblings = reinterpret_cast<XmGraphNodeList *>(XtCalloc(1, sizeof(XmGraphNodeList)));
        AppendArc(*part.siblings, existing);
    }
    if (!_XmGraphNodeListMember(part.siblings, arc)) {
        AppendArc(*part.siblings, arc);
    }
    ArcOf(arc).siblings = part.siblings;
}

// An arc in the opposite direction counts as a twin too.
Widget FindTwin(Widget arc, NodePtr from, NodePtr to) {
    Widget twin = FindArc(arc, from, to);
    return twin ? twin : FindArc(arc, to, from);
}

void LeaveSiblings(Widget graph, Widget arc, bool redraw) {
    auto &part = ArcOf(arc);
    if (!part.siblings) {
        return;
    }
    ForgetArcIndex(graph);
    Vector<Widget> behind;
    if (redraw) {
        behind = ArcsBehind(arc);
    }
    for (Widget sibling : behind) {
        if (ArcIsInView(graph, sibling)) {
            _EraseArc(sibling);
        }
    }
    LeaveSiblingList(part, arc);
    const RankWalk walk(graph);
    for (Widget sibling : behind) {
        DrawArc(sibling);
    }
}

// ---- Attaching and detaching ------------------------------------------------------------------------------------------------

// The gesture's way to make an arc: the nodes' lists of neighbours are left to the caller.
Widget CreateArcInternal(Widget graph, char *name, NodePtr from, NodePtr to, ArgList args,
                         Cardinal num_args) {
    Widget arc = XtCreateWidget(name, xmArcWidgetClass, graph, args, num_args);
    auto &part = ArcOf(arc);
    part.from = from->widget;
    part.to = to->widget;
    if (Widget twin = FindTwin(arc, from, to)) {
        MakeSiblings(twin, arc);
    }
    AppendArc(from->from_arcs, arc);
    AppendArc(to->to_arcs, arc);
    return arc;
}

// In a graph that is going down nothing is drawn. An arc that is being destroyed itself is not in view
// either: the graph repaints when it is unmanaged.
void DoRemoveArc(Widget w, Widget arc) {
    if (!arc) {
        return;
    }
    auto &part = ArcOf(arc);
    const bool redraw = !IsBeingDestroyed(w);
    if (redraw && ArcIsInView(w, arc)) {
        _EraseArc(arc);
    }
    LeaveSiblings(w, arc, redraw);
    ForgetSelected(w, arc);
    // A node that is dying has lost its widget, but still has its lists.
    NodePtr from = part.from ? NodeOf(part.from) : nullptr;
    NodePtr to = part.to ? NodeOf(part.to) : nullptr;
    if (from && to) {
        UnlinkNeighbours(w, from, to);
    }
    if (from) {
        RemoveOnlyEntry(from->from_arcs, arc);
    }
    if (to) {
        RemoveOnlyEntry(to->to_arcs, arc);
    }
    Detach(part);
    RefreshOverview(w);
}

// ---- Deaths ------------------------------------------------------------------------------------------------------------------------

void destroy_arc_callback(Widget arc, XtPointer, XtPointer) {
    Widget graph = XtParent(arc);
    DoRemoveArc(graph, arc);
    ForgetObject(graph, arc);
    // A client's own callback that comes later may not bring it back.
    ArcOf(arc).internal = reinterpret_cast<XtPointer>(doomed_serial);
}

void destroy_node_callback(Widget w, XtPointer client_data, XtPointer) {
    auto graph_widget = static_cast<Widget>(client_data);
    NodePtr node = XtIsRectObj(w) ? NodeOf(w) : nullptr;
    if (!node) {
        return;
    }
    auto &graph = GraphOf(graph_widget);
    if (!IsBeingDestroyed(graph_widget)) {
        LeaveForest(graph_widget, node);
    }
    DropArcs(graph_widget, node->from_arcs);
    DropArcs(graph_widget, node->to_arcs);
    StateOf(graph_widget).stale_owners.erase(node);
    ForgetObject(graph_widget, w);
    ForgetSelected(graph_widget, w);
    _XmGraphNodeListRemove(&graph.user_roots, node);
    _XmGraphNodeListRemove(&subgraph_nodes, node);
    node->widget = nullptr;
    node->tree_parent = nullptr;
    node->tree_children.count = 0;
}

void Doom(Widget graph, Widget arc, XtWorkProcId work_proc) {
    if (!IsDoomed(arc)) {
        ArcOf(arc).internal = reinterpret_cast<XtPointer>(doomed_serial);
        StateOf(graph).doomed_arcs.push_back({arc, work_proc});
    }
}

// The latest first: the toolkit keeps the work procedures in that order. An arc leaves the list as it
// dies.
void DestroyDoomedArcs(Widget graph) {
    auto &doomed = StateOf(graph).doomed_arcs;
    while (!doomed.empty()) {
        StopWaiting(doomed.back());
        Widget arc = doomed.back().arc;
        if (IsBeingDestroyed(arc)) {
            doomed.pop_back();
            OrphanArc(graph, arc);
        } else {
            XtDestroyWidget(arc);
        }
    }
}

} // namespace corvidlmw::graph

// ---- Exported functions ---------------------------------------------------------------------

extern "C" {

// Ends that are no living nodes of this graph leave the arc detached, and so does its own approaching
// death. An arc that is attached already stays as it is.
void _SetupArcInternal(Widget graph, Widget arc) {
    if (!arc || !XmIsArc(arc) || XtParent(arc) != graph) {
        return;
    }
    auto &part = ArcOf(arc);
    NodePtr from = NodeIn(graph, part.from);
    NodePtr to = NodeIn(graph, part.to);
    if (!from || !to || IsBeingDestroyed(arc) || IsDoomed(arc)) {
        Detach(part);
        return;
    }
    XmGraphNodeList &shorter =
        from->from_arcs.count <= to->to_arcs.count ? from->from_arcs : to->to_arcs;
    if (_XmGraphNodeListMember(&shorter, arc)) {
        return;
    }
    Widget same_way = FindArc(arc, from, to);
    Widget twin = same_way ? same_way : FindArc(arc, to, from);
    if (twin) {
        MakeSiblings(twin, arc);
    }
    ForgetArcIndex(graph);
    AppendArc(from->from_arcs, arc);
    AppendArc(to->to_arcs, arc);
    LinkNeighbours(graph, from, to, same_way != nullptr);
    RefreshOverview(graph);
}

int _sibling_rank(Widget arc) {
    if (!arc || !XmIsArc(arc)) {
        return 0;
    }
    const auto &part = ArcOf(arc);
    if (!part.siblings || GraphOf(XtParent(arc)).twins_visible != True) {
        return 0;
    }
    const auto siblings = Widgets(*part.siblings);
    auto &state = StateOf(XtParent(arc));
    KnownRank first;
    KnownRank &place = state.rank_walks > 0 ? state.known_ranks[part.siblings] : first;
    if (!CountTo(arc, siblings, place)) {
        place = {};
        CountTo(arc, siblings, place);
    }
    return place.rank;
}

} // extern "C"
