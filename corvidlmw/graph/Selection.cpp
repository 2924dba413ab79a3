// What is selected: the lists, their highlight, and who is told.
//
// `selected_nodes` holds records and `selected_arcs` arcs, both in the order of selection; `selected` behind
// `internal` holds the widgets of both, to ask for one. The three change together, here only.
//
// The order of highlight, list and callback differs from function to function, and clients see it: a
// selection is told when it is done, its opposite before.

#include <corvidlmw/graph/GraphI.h>

#include <Xm/PrimitiveP.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Lists ---------------------------------------------------------------------------------------

void InsertNode(Widget w, Widget node) {
    if (StateOf(w).selected.insert(node).second) {
        _XmGraphNodeListInsert(w, &GraphOf(w).selected_nodes, NodeOf(node));
    }
}

void InsertArc(Widget w, Widget arc) {
    if (StateOf(w).selected.insert(arc).second) {
        AppendArc(GraphOf(w).selected_arcs, arc);
    }
}

void InsertArcs(Widget w, const Vector<Widget> &arcs) {
    const RankWalk walk(w);
    for (Widget arc : arcs) {
        _XmHighlightArc(arc);
        InsertArc(w, arc);
    }
}

void Clear(XmGraphNodeList &list) {
    std::fill_n(list.items, list.count, nullptr);
    list.count = 0;
}

// One that waits for its death has left all lists for good.
Widget ArcIn(Widget w, Widget arc) {
    return arc && XmIsArc(arc) && XtParent(arc) == w && !IsDoomed(arc) ? arc : nullptr;
}

// Any child that has a record, the super-root too; zero for others.
Widget NodeWidgetIn(Widget w, Widget node) {
    const bool child = w && XmIsGraph(w) && node && XtParent(node) == w && XtIsRectObj(node);
    return child && NodeOf(node) && NodeOf(node)->widget ? node : nullptr;
}

Vector<Widget> Pick(Widget w, WidgetList list, int count, Widget (*in)(Widget, Widget)) {
    Vector<Widget> picked;
    for (int i = 0; list && i < count; i++) {
        if (Widget object = in(w, list[i])) {
            picked.push_back(object);
        }
    }
    return picked;
}

// ---- Callbacks -----------------------------------------------------------------------------------

XmGraphCallbackStruct CallData(int reason, Widget object) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = reason;
    call_data.widget = object;
    return call_data;
}

void Tell(Widget w, const char *callbacks, int reason, Widget object) {
    XmGraphCallbackStruct call_data = CallData(reason, object);
    CallWithLists(w, callbacks, call_data);
}

void TellDeselection(Widget w, int reason) {
    XmGraphCallbackStruct call_data = CallData(reason, nullptr);
    call_data.interactive = True;
    CallWithLists(w, XmNdeselectCallback, call_data);
}

// ---- Highlight -----------------------------------------------------------------------------------

// Without a window the toolkit would draw on none; its records say what the first exposure draws.
void SetHighlighted(Widget node, bool highlighted) {
    if (XmIsGadget(node)) {
        reinterpret_cast<XmGadget>(node)->gadget.highlighted = highlighted ? True : False;
    } else if (XmIsPrimitive(node)) {
        reinterpret_cast<XmPrimitiveWidget>(node)->primitive.highlighted =
            highlighted ? True : False;
    }
}

// ---- Subgraphs -----------------------------------------------------------------------------------

bool CanBeSeen(Widget from, Widget to) {
    return XtIsManaged(from) && XtIsManaged(to) &&
           (XmIsGadget(from) || XmIsGadget(to) ||
            (from->core.mapped_when_managed && to->core.mapped_when_managed));
}

bool BelongsToSubgraph(Widget arc) {
    const auto &part = ArcOf(arc);
    return HasBothEnds(arc) && part.to != part.from && CanBeSeen(part.from, part.to);
}

} // namespace

namespace corvidlmw::graph {

// ---- Lists that are handed out -------------------------------------------------------------------

WidgetList WidgetsOf(const XmGraphNodeList &nodes, int *count) {
    return_widget_list.count = 0;
    for (NodePtr node : Nodes(nodes)) {
        AppendArc(return_widget_list, node->widget);
    }
    *count = return_widget_list.count;
    return *count ? reinterpret_cast<WidgetList>(return_widget_list.items) : nullptr;
}

Vector<Widget> WidgetsOf(std::span<NodePtr> nodes) {
    Vector<Widget> widgets(nodes.size());
    std::transform(nodes.begin(), nodes.end(), widgets.begin(),
                   [](NodePtr n) { return n->widget; });
    return widgets;
}

void CallWithLists(Widget w, const char *callbacks, XmGraphCallbackStruct &call_data) {
    if (XtHasCallbacks(w, callbacks) != XtCallbackHasSome) {
        return;
    }
    auto &graph = GraphOf(w);
    call_data.selected_widgets = WidgetsOf(graph.selected_nodes, &call_data.num_selected_widgets);
    call_data.num_selected_arcs = graph.selected_arcs.count;
    call_data.selected_arcs = graph.selected_arcs.count
                                  ? reinterpret_cast<WidgetList>(graph.selected_arcs.items)
                                  : nullptr;
    XtCallCallbacks(w, callbacks, &call_data);
}

// ---- Highlight -----------------------------------------------------------------------------------

void HighlightNode(Widget node) {
    const FigureLift lift(XtParent(node));
    if (XtIsRealized(node)) {
        _XmHighlightBorder(node);
    } else {
        SetHighlighted(node, true);
    }
}

// A gadget's border is painted over with the background, and with it the arcs that pass there.
void UnhighlightNode(Widget node) {
    const FigureLift lift(XtParent(node));
    if (XtIsRealized(node)) {
        if (XmIsGadget(node)) {
            NoteDamage(XtParent(node), RectangleOf(node));
        }
        _XmUnhighlightBorder(node);
    } else {
        SetHighlighted(node, false);
    }
}

// ---- One object ----------------------------------------------------------------------------------

// A pointer to what has died is not followed.
bool IsSelected(Widget w, Widget object) {
    return StateOf(w).selected.contains(object);
}

bool HasSelection(Widget w) {
    return !StateOf(w).selected.empty();
}

void ForgetSelected(Widget w, Widget object) {
    if (StateOf(w).selected.erase(object) == 0) {
        return;
    }
    if (XmIsArc(object)) {
        RemoveOnlyEntry(GraphOf(w).selected_arcs, object);
    } else {
        RemoveOnlyEntry(GraphOf(w).selected_nodes, NodeOf(object));
    }
}

void SelectNode(Widget w, Widget node, bool notify) {
    HighlightNode(node);
    InsertNode(w, node);
    if (notify) {
        Tell(w, XmNselectNodeCallback, XmCR_SELECT_NODE, node);
    }
}

void SelectArc(Widget w, Widget arc, bool notify) {
    InsertArc(w, arc);
    _XmHighlightArc(arc);
    if (notify) {
        Tell(w, XmNselectArcCallback, XmCR_SELECT_ARC, arc);
    }
}

// The client may destroy what it is told of.
void UnselectNode(Widget w, Widget node, bool notify) {
    const LivingCopy alive(w, {node});
    UnhighlightNode(node);
    if (notify) {
        Tell(w, XmNdeselectCallback, XmCR_DESELECT, node);
    }
    if (alive[0]) {
        ForgetSelected(w, node);
    }
}

void UnselectArc(Widget w, Widget arc, bool notify) {
    const LivingCopy alive(w, {arc});
    _XmUnhighlightArc(arc);
    if (notify) {
        Tell(w, XmNdeselectCallback, XmCR_DESELECT, arc);
    }
    if (alive[0]) {
        ForgetSelected(w, arc);
    }
}

// ---- All of them -----------------------------------------------------------------------------------

void DeselectAllNodes(Widget w) {
    if (!CheckGraph(w, "DeselectAllNodes requires an XmGraph widget")) {
        return;
    }
    auto &selected = GraphOf(w).selected_nodes;
    const Watch watch(w);
    if (selected.count > 0) {
        TellDeselection(w, XmCR_DESELECT_NODES);
    }
    if (watch.Died()) {
        return;
    }
    for (NodePtr node : Nodes(selected)) {
        UnhighlightNode(node->widget);
        StateOf(w).selected.erase(node->widget);
    }
    Clear(selected);
}

void DeselectAllArcs(Widget w) {
    if (!CheckGraph(w, "DeselectAllArcs requires an XmGraph widget")) {
        return;
    }
    auto &selected = GraphOf(w).selected_arcs;
    const Watch watch(w);
    if (selected.count > 0) {
        TellDeselection(w, XmCR_DESELECT_ARCS);
    }
    if (watch.Died()) {
        return;
    }
    const RankWalk walk(w);
    for (Widget arc : Widgets(selected)) {
        _XmUnhighlightArc(arc);
        StateOf(w).selected.erase(arc);
    }
    Clear(selected);
}

// ---- Subgraphs -----------------------------------------------------------------------------------

void SelectArcsWithSubgraph(Widget w, NodePtr node) {
    const LivingCopy arcs(w, Copy(Widgets(node->from_arcs)));
    for (Widget arc : arcs) {
        if (arc && BelongsToSubgraph(arc)) {
            SelectArc(w, arc, true);
        }
    }
}

// A twin behind the first stays selected, while twins show.
void CancelArcsWithSubgraph(Widget w, NodePtr node) {
    for (Widget arc : Copy(Widgets(node->from_arcs))) {
        if (BelongsToSubgraph(arc) && _sibling_rank(arc) == 0) {
            UnselectArc(w, arc, false);
        }
    }
}

// The list is shared and may hold nodes of another graph, whose death this one would not hear of.
Vector<Widget> SubgraphOf(Widget w) {
    Vector<Widget> nodes = WidgetsOf(Nodes(subgraph_nodes));
    std::erase_if(nodes, [&](Widget node) { return XtParent(node) != w; });
    return nodes;
}

void SelectSubgraph(Widget w, Widget root) {
    Vector<Widget> reached = SubgraphOf(w);
    reached.insert(reached.begin(), root);
    const LivingCopy nodes(w, std::move(reached));
    for (Widget node : nodes) {
        if (node) {
            SelectNode(w, node, false);
            SelectArcsWithSubgraph(w, NodeOf(node));
        }
    }
}

} // namespace corvidlmw::graph

// ---- Public functions --------------------------------------------------------------------------------

extern "C" {

void XmGraphSelectNode(Widget w, Widget node, Boolean notify) {
    if (NodeWidgetIn(w, node)) {
        SelectNode(w, node, notify);
    }
}

void XmGraphSelectNodes(Widget w, WidgetList nodes, int count, Boolean notify) {
    const Vector<Widget> picked = Pick(w, nodes, count, NodeWidgetIn);
    for (Widget node : picked) {
        SelectNode(w, node, false);
    }
    if (notify && !picked.empty()) {
        Tell(w, XmNselectNodeCallback, XmCR_SELECT_NODES, picked.front());
    }
}

void XmGraphSelectArc(Widget w, Widget arc, Boolean notify) {
    if (CheckGraph(w, "XmGraphSelectArc requires an XmGraph widget") && ArcIn(w, arc)) {
        SelectArc(w, arc, notify);
    }
}

void XmGraphSelectArcs(Widget w, WidgetList arcs, int count, Boolean notify) {
    if (!CheckGraph(w, "XmGraphSelectArcs requires an XmGraph widget")) {
        return;
    }
    const Vector<Widget> picked = Pick(w, arcs, count, ArcIn);
    InsertArcs(w, picked);
    if (notify && !picked.empty()) {
        Tell(w, XmNselectArcCallback, XmCR_SELECT_ARCS, picked.front());
    }
}

// `subgraph_nodes` is emptied neither before nor after.
void XmGraphSelectSubtree(Widget w, Widget root, Boolean notify) {
    if (!w || !XmIsGraph(w) || !NodeIn(w, root)) {
        return;
    }
    XmGraphNodeList path{};
    GetSubgraphNodeList(w, path, NodeOf(root));
    _XmGraphNodeListFree(&path);
    const LivingCopy alive(w, {root});
    SelectSubgraph(w, root);
    if (notify && alive[0]) {
        XmGraphCallbackStruct call_data = CallData(XmCR_SELECT_SUBGRAPH, root);
        call_data.interactive = True;
        CallWithLists(w, XmNselectSubgraphCallback, call_data);
    }
}

void XmGraphUnselectNode(Widget w, Widget node, Boolean notify) {
    if (NodeWidgetIn(w, node)) {
        UnselectNode(w, node, notify);
    }
}

void XmGraphUnselectNodes(Widget w, WidgetList nodes, int count, Boolean notify) {
    Vector<Widget> picked = Pick(w, nodes, count, NodeWidgetIn);
    if (picked.empty()) {
        return;
    }
    Widget first = picked.front();
    const LivingCopy going(w, std::move(picked));
    if (notify) {
        Tell(w, XmNdeselectCallback, XmCR_DESELECT, first);
    }
    for (Widget node : going) {
        if (node) {
            UnhighlightNode(node);
            ForgetSelected(w, node);
        }
    }
}

void XmGraphUnselectArc(Widget w, Widget arc, Boolean notify) {
    if (CheckGraph(w, "XmGraphUnselectArc requires an XmGraph widget") && ArcIn(w, arc)) {
        UnselectArc(w, arc, notify);
    }
}

// It tells even of nothing.
void XmGraphUnselectArcs(Widget w, WidgetList arcs, int count, Boolean notify) {
    if (!CheckGraph(w, "XmGraphUnselectArcs requires an XmGraph widget")) {
        return;
    }
    Widget first = arcs ? arcs[0] : nullptr;
    const LivingCopy going(w, Pick(w, arcs, count, ArcIn));
    if (notify) {
        Tell(w, XmNdeselectCallback, XmCR_DESELECT, first);
    }
    if (going.Died()) {
        return;
    }
    const RankWalk walk(w);
    for (Widget arc : going) {
        if (arc) {
            _XmUnhighlightArc(arc);
            ForgetSelected(w, arc);
        }
    }
}

int XmGraphNumSelectedNodes(Widget w) {
    return w && XmIsGraph(w) ? GraphOf(w).selected_nodes.count : 0;
}

int XmGraphNumSelectedArcs(Widget w) {
    return CheckGraph(w, "XmGraphNumSelectedArcs requires an XmGraph widget")
               ? GraphOf(w).selected_arcs.count
               : 0;
}

WidgetList XmGraphGetSelectedNodes(Widget w, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    *count = 0;
    if (!CheckGraph(w, "XmGraphGetRoots requires an XmGraph widget")) {
        return nullptr;
    }
    return WidgetsOf(GraphOf(w).selected_nodes, count);
}

WidgetList XmGraphGetSelectedArcs(Widget w, int *count) {
    int unwanted = 0;
    count = count ? count : &unwanted;
    *count = 0;
    if (!CheckGraph(w, "XmGraphGetSelectedArcs requires an XmGraph widget")) {
        return nullptr;
    }
    const auto &selected = GraphOf(w).selected_arcs;
    *count = selected.count;
    return selected.count ? reinterpret_cast<WidgetList>(selected.items) : nullptr;
}

Boolean XmGraphIsSelectedNode(Widget w, Widget node) {
    return w && XmIsGraph(w) && IsSelected(w, node) && !XmIsArc(node) ? True : False;
}

Boolean XmGraphIsSelectedArc(Widget w, Widget arc) {
    return CheckGraph(w, "XmGraphIsSelectedArc requires an XmGraph widget") && IsSelected(w, arc) &&
                   XmIsArc(arc)
               ? True
               : False;
}

} // extern "C"
