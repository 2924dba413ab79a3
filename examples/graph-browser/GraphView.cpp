#include "GraphView.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include "Text.h"

namespace graph_browser {
namespace {

constexpr int dash_length = 6;
constexpr int dot_length = 2;
constexpr Dimension scroll_margin = 20;
constexpr const char *selected_color = "#2f5f9f";

// ---- Resources -------------------------------------------------------------

// Resources for one XtCreateWidget or XtSetValues; more than fit are a mistake in this file.
class Arguments {
public:
    template <typename Value>
    void Add(const char *name, Value value) {
        XtSetArg(arguments[count], Name(name), value);
        ++count;
    }
    void Add(const Shades &shades) {
        Add(XmNbackground, shades.background);
        Add(XmNforeground, shades.foreground);
        Add(XmNtopShadowColor, shades.top_shadow);
        Add(XmNbottomShadowColor, shades.bottom_shadow);
        Add(XmNarmColor, shades.arm);
    }
    ArgList Get() { return arguments.data(); }
    Cardinal Count() const { return count; }

private:
    std::array<Arg, 16> arguments;
    Cardinal count = 0;
};

template <typename Value>
Value GetResource(Widget widget, const char *name) {
    Value value{};
    XtVaGetValues(widget, Name(name), &value, nullptr);
    return value;
}

void SetShades(Widget widget, const Shades &shades) {
    Arguments arguments;
    arguments.Add(shades);
    XtSetValues(widget, arguments.Get(), arguments.Count());
}

int DashesOf(LineKind line) {
    return line == LineKind::Dotted ? dot_length : dash_length;
}

int ArcDirectionOf(Direction direction) {
    switch (direction) {
    case Direction::Both: return XmBIDIRECTED;
    case Direction::Forward: return XmDIRECTED;
    case Direction::Neither: return XmUNDIRECTED;
    }
    return XmUNDIRECTED;
}

struct Sides {
    short from;
    short to;
};

// Arcs run with the levels of the layout.
Sides SidesFor(Orientation orientation) {
    return orientation == Orientation::Horizontal ? Sides{XmARC_RIGHT, XmARC_LEFT}
                                                  : Sides{XmARC_BOTTOM, XmARC_TOP};
}

// ---- What is in the widget -------------------------------------------------

struct Contents {
    std::vector<int> nodes;
    std::vector<int> edges;
};

Contents Everything(const Graph &graph) {
    Contents all{std::vector<int>(graph.nodes.size()), std::vector<int>(graph.edges.size())};
    std::iota(all.nodes.begin(), all.nodes.end(), 0);
    std::iota(all.edges.begin(), all.edges.end(), 0);
    return all;
}

// Only arcs at the centre come along: one between two neighbours could take one of them away
// from the centre when the widget makes its tree. For the same reason the centre comes first.
Contents Neighbourhood(const Graph &graph, int center) {
    Contents around{{center}, EdgesAround(graph, center)};
    std::vector<bool> present(graph.nodes.size());
    present[static_cast<std::size_t>(center)] = true;
    for (const int index : around.edges) {
        const Edge &edge = graph.edges[static_cast<std::size_t>(index)];
        const int other = edge.from == center ? edge.to : edge.from;
        if (present[static_cast<std::size_t>(other)])
            continue;
        present[static_cast<std::size_t>(other)] = true;
        around.nodes.push_back(other);
    }
    return around;
}

} // namespace

// ---- Life ------------------------------------------------------------------

GraphView::GraphView(Widget parent, std::function<void()> on_change)
    : changed(std::move(on_change)),
      graph_widget(XmCreateScrolledGraph(parent, Name("graph"), nullptr, 0)), colors(graph_widget) {
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
        SetOrientation(*model.orientation);
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
    if (style == XmBUTTERFLY && !selected && !model.nodes.empty())
        selected = 0;
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
    for (const int index : nodes) {
        WidgetOf(index) = CreateNode(index);
        if (model.nodes[static_cast<std::size_t>(index)].visible)
            managed.push_back(WidgetOf(index));
    }
    XtManageChildren(managed.data(), static_cast<Cardinal>(managed.size()));
    MarkSelected();
}

Widget GraphView::CreateNode(int index) {
    const Node &node = model.nodes[static_cast<std::size_t>(index)];
    const Text label{node.label};
    XtCallbackRec activated[] = {{NodeActivated, this}, {nullptr, nullptr}};
    Arguments arguments;
    arguments.Add(XmNlabelString, label.Get());
    arguments.Add(XmNuserData, index);
    arguments.Add(XmNactivateCallback, activated);
    if (node.left_aligned)
        arguments.Add(XmNalignment, XmALIGNMENT_BEGINNING);
    std::optional<Shades> shades;
    if (const auto fill = colors.Find(node.fill))
        shades = colors.ShadesOf(*fill);
    const auto text_color = colors.Find(node.text_color);
    if (shades && text_color)
        shades->foreground = *text_color;
    if (shades)
        arguments.Add(*shades);
    else if (text_color)
        arguments.Add(XmNforeground, *text_color);
    return XmCreatePushButtonGadget(graph_widget, Name("node"), arguments.Get(), arguments.Count());
}

// An invisible edge is an unmanaged arc: it counts in the layout and is not drawn.
void GraphView::CreateArcs(const std::vector<int> &edges) {
    std::vector<Widget> managed;
    for (const int index : edges) {
        const Edge &edge = model.edges[static_cast<std::size_t>(index)];
        const Widget arc = CreateArc(edge);
        if (edge.visible)
            managed.push_back(arc);
    }
    XtManageChildren(managed.data(), static_cast<Cardinal>(managed.size()));
}

Widget GraphView::CreateArc(const Edge &edge) {
    const Sides sides = SidesFor(GetOrientation());
    const Text label{edge.label};
    Arguments arguments;
    arguments.Add(XmNfrom, WidgetOf(edge.from));
    arguments.Add(XmNto, WidgetOf(edge.to));
    arguments.Add(XmNfromSide, sides.from);
    arguments.Add(XmNtoSide, sides.to);
    arguments.Add(XmNarcDirection, ArcDirectionOf(edge.direction));
    arguments.Add(XmNarcWidth, edge.width);
    arguments.Add(XmNstyle, edge.line == LineKind::Solid ? LineSolid : LineOnOffDash);
    arguments.Add(XmNdashes, DashesOf(edge.line));
    if (const auto color = colors.Find(edge.color))
        arguments.Add(XmNforeground, *color);
    if (!edge.label.empty()) {
        arguments.Add(XmNlabelString, label.Get());
        arguments.Add(XmNmapLabel, arc_labels);
        arguments.Add(XmNuserData, this); // marks the arcs that have a label to show
    }
    return XmCreateArc(graph_widget, Name("arc"), arguments.Get(), arguments.Count());
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
    own_shades = Shades{.background = GetResource<Pixel>(gadget, XmNbackground),
                        .foreground = GetResource<Pixel>(gadget, XmNforeground),
                        .top_shadow = GetResource<Pixel>(gadget, XmNtopShadowColor),
                        .bottom_shadow = GetResource<Pixel>(gadget, XmNbottomShadowColor),
                        .arm = GetResource<Pixel>(gadget, XmNarmColor)};
    SetShades(gadget, colors.ShadesOf(*background));
}

void GraphView::UnmarkSelected() {
    if (selected && own_shades)
        SetShades(WidgetOf(*selected), *own_shades);
    own_shades.reset();
}

void GraphView::NodeActivated(Widget gadget, XtPointer view, XtPointer) {
    auto &self = *static_cast<GraphView *>(view);
    // The node may be one of a graph that is about to go.
    if (self.rebuild)
        return;
    const auto data = reinterpret_cast<std::intptr_t>(GetResource<XtPointer>(gadget, XmNuserData));
    self.Select(static_cast<int>(data));
}

// ---- Layout ----------------------------------------------------------------

void GraphView::LayOut(unsigned char style) {
    const bool butterfly = style == XmBUTTERFLY && selected;
    XmGraphSetButterflyRoot(graph_widget, butterfly ? WidgetOf(*selected) : nullptr);
    XmGraphLayout(graph_widget);
}

void GraphView::GraphTooBig(Widget, XtPointer view, XtPointer) {
    static_cast<GraphView *>(view)->too_big = true;
}

void GraphView::ScrollToSelected() {
    if (model.nodes.empty() || !XtIsRealized(graph_widget))
        return;
    const Widget node = WidgetOf(selected.value_or(0));
    const Widget scrolled_window = XtParent(XtParent(graph_widget));
    if (node && XtIsManaged(node))
        XmScrollVisible(scrolled_window, node, scroll_margin, scroll_margin);
}

// ---- The view's resources --------------------------------------------------

Orientation GraphView::GetOrientation() const {
    const bool vertical = GetResource<unsigned char>(graph_widget, XmNorientation) == XmVERTICAL;
    return vertical ? Orientation::Vertical : Orientation::Horizontal;
}

void GraphView::SetOrientation(Orientation orientation) {
    if (orientation == GetOrientation())
        return;
    too_big = false;
    XtVaSetValues(graph_widget, XmNorientation,
                  orientation == Orientation::Vertical ? XmVERTICAL : XmHORIZONTAL, nullptr);
    SetSides();
    changed();
}

void GraphView::SetSides() {
    const Sides sides = SidesFor(GetOrientation());
    int count = 0;
    const WidgetList arcs = XmGraphGetArcs(graph_widget, &count);
    for (int i = 0; i < count; ++i)
        XtVaSetValues(arcs[i], XmNfromSide, sides.from, XmNtoSide, sides.to, nullptr);
}

unsigned char GraphView::ArcDrawMode() const {
    return GetResource<unsigned char>(graph_widget, XmNarcDrawMode);
}

void GraphView::SetArcDrawMode(unsigned char mode) {
    XtVaSetValues(graph_widget, XmNarcDrawMode, mode, nullptr);
}

unsigned char GraphView::LayoutStyle() const {
    return GetResource<unsigned char>(graph_widget, XmNlayoutStyle);
}

void GraphView::SetLayoutStyle(unsigned char style) {
    if (style == LayoutStyle())
        return;
    // Without a root the change lays nothing out; the new contents are laid out when they stand.
    XmGraphSetButterflyRoot(graph_widget, nullptr);
    XtVaSetValues(graph_widget, XmNlayoutStyle, style, nullptr);
    ScheduleRebuild();
}

Spacing GraphView::GetSpacing() const {
    return {GetResource<int>(graph_widget, XmNchildSpacing),
            GetResource<int>(graph_widget, XmNsiblingSpacing)};
}

void GraphView::SetSpacing(Spacing spacing) {
    too_big = false;
    XtVaSetValues(graph_widget, XmNchildSpacing, spacing.child, XmNsiblingSpacing, spacing.sibling,
                  nullptr);
    changed();
}

bool GraphView::TwinsVisible() const {
    return GetResource<Boolean>(graph_widget, XmNtwinsVisible) != False;
}

void GraphView::SetTwinsVisible(bool visible) {
    XtVaSetValues(graph_widget, XmNtwinsVisible, visible ? True : False, nullptr);
}

void GraphView::SetArcLabels(bool labels) {
    arc_labels = labels;
    int count = 0;
    const WidgetList arcs = XmGraphGetArcs(graph_widget, &count);
    for (int i = 0; i < count; ++i)
        if (GetResource<XtPointer>(arcs[i], XmNuserData) == this)
            XtVaSetValues(arcs[i], XmNmapLabel, labels ? True : False, nullptr);
}

} // namespace graph_browser
