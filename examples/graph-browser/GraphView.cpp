#include "GraphView.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <Xm/PushBG.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>

#include "Looks.h"

namespace graph_browser {
namespace {

constexpr const char *selected_color = "#2f5f9f";

// ---- What is in the widget -------------------------------------------------

struct Contents {
    std::vector<int> nodes;
    std::vector<int> edges;
};

Contents Everything(const Graph &graph) {
    return {NodesOf(graph), EdgesOf(graph)};
}

// Only arcs at the centre come along: one between two neighbours could take one of them away
// from the centre when the widget makes its tree. For the same reason the centre comes first.
Contents Neighbourhood(const Graph &graph, int center) {
    Contents around{{center}, EdgesAround(graph, center)};
    std::vector<bool> present(graph.nodes.size());
    present[static_cast<std::size_t>(center)] = true;
    for (const int index : around.edges) {
        const Edge &edge = graph.EdgeAt(index);
        const int other = edge.from == center ? edge.to : edge.from;
        if (present[static_cast<std::size_t>(other)])
            continue;
        present[static_cast<std::size_t>(other)] = true;
        around.nodes.push_back(other);
    }
    return around;
}

// Of each node, whether an edge leads from it to one that is not to be seen.
std::vector<bool> NodesThatHide(const Graph &graph, const std::vector<int> &shown) {
    std::vector<bool> present(graph.nodes.size());
    for (const int index : shown)
        present[static_cast<std::size_t>(index)] = graph.NodeAt(index).visible;
    std::vector<bool> hiding(graph.nodes.size());
    for (const int index : EdgesOf(graph)) {
        const Edge &edge = graph.EdgeAt(index);
        if (!present[static_cast<std::size_t>(edge.to)])
            hiding[static_cast<std::size_t>(edge.from)] = true;
    }
    return hiding;
}

// What a user does to a gadget: an icon has no callback for it that anybody calls but us.
const char *ActivationOf(Widget gadget) {
    return XmvIsIconGadget(gadget) ? XmNdefaultActionCallback : XmNactivateCallback;
}

} // namespace

// ---- Life ------------------------------------------------------------------

GraphView::GraphView(Widget parent, std::function<void()> on_change)
    : changed(std::move(on_change)),
      graph_widget(XmCreateScrolledGraph(parent, Name("graph"), nullptr, 0)), colors(graph_widget),
      node_icons(graph_widget) {
    XtAddEventHandler(graph_widget, ButtonPressMask, False, ButtonPressed, this);
    XtAddCallback(graph_widget, XmNgraphTooBigCallback, GraphTooBig, this);
    XtManageChild(graph_widget);
}

GraphView::~GraphView() {
    if (rebuild)
        XtRemoveWorkProc(*rebuild);
}

// ---- Contents --------------------------------------------------------------

void GraphView::Show(Graph graph) {
    model = std::move(graph);
    selected.reset();
    own_shades.reset();
    widgets.assign(model.nodes.size(), nullptr);
    if (model.orientation)
        TakeOrientation(*model.orientation);
    ScheduleRebuild();
}

// A node cannot be destroyed while its own callback runs, so that a graph on the screen is built
// anew only when the events are worked off.
void GraphView::ScheduleRebuild() {
    if (!XtIsRealized(graph_widget))
        return Rebuild();
    if (!rebuild)
        rebuild = XtAppAddWorkProc(XtWidgetToApplicationContext(graph_widget), RebuildLater, this);
}

Boolean GraphView::RebuildLater(XtPointer view) {
    auto &self = *static_cast<GraphView *>(view);
    self.rebuild.reset();
    self.Rebuild();
    return True;
}

void GraphView::Rebuild() {
    Clear();
    const unsigned char style = LayoutStyle();
    if (const auto nodes = NodesOf(model); style == XmBUTTERFLY && !selected && !nodes.empty())
        selected = nodes.front();
    const Contents contents =
        style == XmBUTTERFLY && selected ? Neighbourhood(model, *selected) : Everything(model);
    CreateNodes(contents.nodes);
    CreateArcs(contents.edges);
    LayOut(style);
    ScrollToSelected();
    changed();
}

void GraphView::Clear() {
    XmGraphDestroyAllArcs(graph_widget);
    XmGraphDestroyAllNodes(graph_widget);
    widgets.assign(model.nodes.size(), nullptr);
    own_shades.reset();
    too_big = false;
}

void GraphView::CreateNodes(const std::vector<int> &nodes) {
    std::vector<Widget> managed;
    hides_children = NodesThatHide(model, nodes);
    for (const int index : nodes) {
        WidgetOf(index) = CreateNode(index);
        if (model.NodeAt(index).visible)
            managed.push_back(WidgetOf(index));
    }
    XtManageChildren(managed.data(), static_cast<Cardinal>(managed.size()));
    MarkSelected();
}

Widget GraphView::CreateNode(int index) {
    NodeLook look{colors, model.NodeAt(index)};
    XtCallbackRec activated[] = {{NodeActivated, this}, {nullptr, nullptr}};
    look.Add(XmNuserData, index);
    if (Icons()) {
        node_icons.AddTo(look, model.NodeAt(index), HidesChildren(index));
        look.Add(XmNdefaultActionCallback, activated);
        return XmvCreateIconGadget(graph_widget, Name("node"), look.Get(), look.Count());
    }
    look.Add(XmNactivateCallback, activated);
    return XmCreatePushButtonGadget(graph_widget, Name("node"), look.Get(), look.Count());
}

// One that the user has just made has none.
bool GraphView::HidesChildren(int index) const {
    const auto place = static_cast<std::size_t>(index);
    return place < hides_children.size() && hides_children[place];
}

// An invisible edge is an unmanaged arc: it counts in the layout and is not drawn.
void GraphView::CreateArcs(const std::vector<int> &edges) {
    std::vector<Widget> managed;
    for (const int index : edges) {
        const Widget arc = CreateArc(index);
        if (model.EdgeAt(index).visible)
            managed.push_back(arc);
    }
    XtManageChildren(managed.data(), static_cast<Cardinal>(managed.size()));
}

Widget GraphView::CreateArc(int index) {
    const Edge &edge = model.EdgeAt(index);
    ArcLook look{colors, edge, GetOrientation(), arc_labels};
    look.Add(XmNfrom, WidgetOf(edge.from));
    look.Add(XmNto, WidgetOf(edge.to));
    look.Add(XmNuserData, index);
    return XmCreateArc(graph_widget, Name("arc"), look.Get(), look.Count());
}

// ---- Changes by the user ---------------------------------------------------

int GraphView::IndexOf(Widget object) {
    return static_cast<int>(
        reinterpret_cast<std::intptr_t>(GetResource<XtPointer>(object, XmNuserData)));
}

void GraphView::AdoptNode(Widget gadget, int index) {
    widgets.resize(model.nodes.size());
    WidgetOf(index) = gadget;
    XtVaSetValues(gadget, XmNuserData, index, nullptr);
    XtAddCallback(gadget, ActivationOf(gadget), NodeActivated, this);
    RefreshNode(index);
}

void GraphView::AdoptArc(Widget arc, int index) {
    XtVaSetValues(arc, XmNuserData, index, nullptr);
    RefreshArc(arc);
}

void GraphView::RefreshNode(int index) {
    NodeLook look{colors, model.NodeAt(index)};
    if (XmvIsIconGadget(WidgetOf(index)))
        node_icons.AddTo(look, model.NodeAt(index), HidesChildren(index));
    XtSetValues(WidgetOf(index), look.Get(), look.Count());
}

void GraphView::RefreshArc(Widget arc) {
    ArcLook look{colors, model.EdgeAt(IndexOf(arc)), GetOrientation(), arc_labels};
    XtSetValues(arc, look.Get(), look.Count());
}

void GraphView::ForgetNode(int index) {
    WidgetOf(index) = nullptr;
}

// ---- Selection -------------------------------------------------------------

void GraphView::Select(std::optional<int> node) {
    if (node == selected)
        return;
    UnmarkSelected();
    selected = node;
    if (LayoutStyle() == XmBUTTERFLY)
        return ScheduleRebuild();
    MarkSelected();
    changed();
}

bool GraphView::SelectByName(const std::string &name) {
    auto found = std::find_if(model.nodes.begin(), model.nodes.end(),
                              [&name](const Node &node) { return node.name == name; });
    if (found == model.nodes.end())
        found = std::find_if(model.nodes.begin(), model.nodes.end(),
                             [&name](const Node &node) { return node.label == name; });
    if (found == model.nodes.end())
        return false;
    Select(static_cast<int>(found - model.nodes.begin()));
    return true;
}

// The node's own colours are kept while it bears those of the selection.
void GraphView::MarkSelected() {
    const Widget gadget = selected ? WidgetOf(*selected) : nullptr;
    const auto background = colors.Find(selected_color);
    if (!gadget || !background)
        return;
    if (Editing()) {
        selected.reset();
        return XmGraphSelectNode(graph_widget, gadget, False);
    }
    own_shades = ShadesIn(gadget);
    SetShades(gadget, colors.ShadesOf(*background));
}

void GraphView::UnmarkSelected() {
    if (selected && own_shades)
        SetShades(WidgetOf(*selected), *own_shades);
    own_shades.reset();
}

// ---- Edit mode -------------------------------------------------------------

bool GraphView::Editing() const {
    return GetResource<Boolean>(graph_widget, XmNeditable) != False;
}

void GraphView::SetEditing(bool on) {
    if (on == Editing())
        return;
    if (on)
        TakeLayoutStyle(XmGRAPH);
    TakeEditing(on);
    changed();
}

// One selected node stays selected. Where the graph is about to be built anew, that is done then.
void GraphView::TakeEditing(bool on) {
    if (on) {
        UnmarkSelected();
    } else {
        selected = OnlySelected();
        UnselectAll();
    }
    // The keyboard's focus would look like a selection.
    XtVaSetValues(graph_widget, XmNeditable, on ? True : False, XmNtraversalOn, on ? False : True,
                  nullptr);
    if (!rebuild)
        MarkSelected();
}

std::optional<int> GraphView::OnlySelected() const {
    int count = 0;
    const WidgetList nodes = XmGraphGetSelectedNodes(graph_widget, &count);
    if (rebuild || count != 1)
        return std::nullopt;
    return IndexOf(nodes[0]);
}

void GraphView::UnselectAll() {
    int count = 0;
    const WidgetList nodes = XmGraphGetSelectedNodes(graph_widget, &count);
    XmGraphUnselectNodes(graph_widget, nodes, count, False);
    const WidgetList arcs = XmGraphGetSelectedArcs(graph_widget, &count);
    XmGraphUnselectArcs(graph_widget, arcs, count, False);
}

// In edit mode a press is a gesture.
void GraphView::ButtonPressed(Widget, XtPointer view, XEvent *event, Boolean *) {
    auto &self = *static_cast<GraphView *>(view);
    const XButtonEvent &press = event->xbutton;
    if (self.Editing() || press.button != Button1)
        return;
    const Widget object = XmObjectAtPoint(self.graph_widget, static_cast<Position>(press.x),
                                          static_cast<Position>(press.y));
    if (object && XmvIsIconGadget(object))
        XtCallCallbacks(object, XmNdefaultActionCallback, nullptr);
}

void GraphView::NodeActivated(Widget gadget, XtPointer view, XtPointer) {
    auto &self = *static_cast<GraphView *>(view);
    // The node may be one of a graph that is about to go.
    if (self.rebuild)
        return;
    self.Select(IndexOf(gadget));
}

} // namespace graph_browser
