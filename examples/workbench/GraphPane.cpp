#include "GraphPane.h"

#include <algorithm>
#include <utility>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>

#include <GraphView.h>
#include <Looks.h>
#include <ViewMenu.h>

namespace workbench {

namespace {

using graph_browser::GetResource;
using graph_browser::GraphView;
using graph_browser::Name;

constexpr PictureFormat format{14, 1};
constexpr Pixel no_mark = static_cast<Pixel>(-1);
// Above this many nodes the graph opens with compact spacing: a window is at most 32767 pixels high.
constexpr std::size_t many_nodes = 40;

template <typename Thing>
Widget At(const std::vector<Widget> &widgets, Thing index) {
    const auto at = static_cast<std::size_t>(index);
    return at < widgets.size() ? widgets[at] : nullptr;
}

Widget CreateGraph(Widget parent) {
    Arg args[] = {{Name(XmNeditable), True},
                  {Name(XmNtraversalOn), False},
                  {Name(XmNdefaultNodeClass), reinterpret_cast<XtArgVal>(xmvIconGadgetClass)}};
    return XmCreateScrolledGraph(parent, Name("graph"), args, XtNumber(args));
}

} // namespace

// ---- Life -------------------------------------------------------------------------------------------

GraphPane::GraphPane(Widget parent, Document &document, Worker &worker)
    : document_(document), worker_(worker), graph_(CreateGraph(parent)), colors_(graph_),
      pictures_(graph_, format) {
    background_ = GetResource<Pixel>(graph_, XmNbackground);
    mark_ = colors_.Find("#d4500c").value_or(0);
    XtAddCallback(graph_, XmNgraphTooBigCallback, TooBig, this);
    XtManageChild(graph_);
}

void GraphPane::TooBig(Widget, XtPointer closure, XtPointer) {
    static_cast<GraphPane *>(closure)->too_big_ = true;
}

Widget GraphPane::NodeAt(int node) const {
    return At(nodes_, node);
}

Widget GraphPane::ArcAt(int edge) const {
    return At(arcs_, edge);
}

void GraphPane::FitTables() {
    nodes_.resize(document_.graph.nodes.size());
    arcs_.resize(document_.graph.edges.size());
    degrees_ = DegreesOf(document_.graph);
}

// ---- Another document -------------------------------------------------------------------------------

void GraphPane::Clear() {
    XmGraphDestroyAllArcs(graph_);
    XmGraphDestroyAllNodes(graph_);
    nodes_.clear();
    arcs_.clear();
    unmanaged_.clear();
    hits_.clear();
    too_big_ = false;
}

void GraphPane::Show() {
    worker_.Add("graph", [this] {
        FitTables();
        const auto spacing = document_.graph.nodes.size() > many_nodes
                                 ? graph_browser::compact_spacing
                                 : graph_browser::normal_spacing;
        const bool vertical = document_.graph.orientation == graph_browser::Orientation::Vertical;
        XtVaSetValues(graph_, XmNchildSpacing, spacing.child, XmNsiblingSpacing, spacing.sibling,
                      XmNorientation, vertical ? XmVERTICAL : XmHORIZONTAL, nullptr);
        return false;
    });
    worker_.AddForEach("nodes", static_cast<int>(document_.graph.nodes.size()),
                       [this](int node) { MakeNode(node); });
    worker_.AddForEach("arcs", static_cast<int>(document_.graph.edges.size()),
                       [this](int edge) { MakeArc(edge); });
    worker_.Add("managing", [this] {
        ManageNew();
        return false;
    });
    worker_.Add("layout", [this] {
        Arrange();
        return false;
    });
}

// A document with places of its own may have nodes without any; these are laid out.
void GraphPane::Arrange() {
    XmGraphLayout(graph_);
    if (document_.graph.placed) {
        for (const int node : graph_browser::NodesOf(document_.graph)) {
            PutInPlace(node);
        }
        XmGraphAdjustSize(graph_);
    }
    KeepPlaces();
}

void GraphPane::KeepPlaces() {
    for (const int node : graph_browser::NodesOf(document_.graph)) {
        document_.graph.NodeAt(node).place = PlaceOf(node);
    }
}

// ---- Objects ----------------------------------------------------------------------------------------

void GraphPane::MakeNode(int node) {
    const Node &shown = document_.graph.NodeAt(node);
    if (shown.removed) {
        return;
    }
    graph_browser::NodeLook look(colors_, shown);
    const Pixel fill = colors_.Find(shown.fill).value_or(background_);
    const Degree degree = degrees_[static_cast<std::size_t>(node)];
    const Kind kind = ShownKind(document_.ItemAt(node).kind, degree);
    look.Add(XmNbackground, fill); // that of the picture
    look.Add(XmNlabelPixmap, pictures_.Of(kind, fill, false));
    look.Add(XmNuserData, node);
    Widget &gadget = nodes_[static_cast<std::size_t>(node)];
    if (gadget) {
        return XtSetValues(gadget, look.Get(), look.Count());
    }
    gadget = XmvCreateIconGadget(graph_, Name("node"), look.Get(), look.Count());
    if (shown.visible) {
        unmanaged_.push_back(gadget);
    }
}

// An invisible edge is an unmanaged arc: it counts in the layout and is not drawn.
void GraphPane::MakeArc(int edge) {
    const Edge &shown = document_.graph.EdgeAt(edge);
    if (shown.removed) {
        return;
    }
    graph_browser::ArcLook look(colors_, shown, GetOrientation(), true);
    look.Add(XmNuserData, edge);
    Widget &arc = arcs_[static_cast<std::size_t>(edge)];
    if (arc) {
        XtSetValues(arc, look.Get(), look.Count());
        XmGraphMoveArc(graph_, arc, NodeAt(shown.from), NodeAt(shown.to));
        return;
    }
    look.Add(XmNfrom, NodeAt(shown.from));
    look.Add(XmNto, NodeAt(shown.to));
    arc = XmCreateArc(graph_, Name("arc"), look.Get(), look.Count());
    if (shown.visible) {
        unmanaged_.push_back(arc);
    }
}

void GraphPane::ManageNew() {
    XmGraphManageChildren(unmanaged_.data(), static_cast<int>(unmanaged_.size()));
    unmanaged_.clear();
}

// All at once, so that the graph is not drawn anew for each.
void GraphPane::HideRemoved(const Touched &touched) {
    const auto hide = [](const std::vector<int> &indices, const auto &things,
                         const std::vector<Widget> &widgets) {
        std::vector<Widget> hidden;
        for (const int index : indices) {
            const Widget widget = At(widgets, index);
            if (widget && things[static_cast<std::size_t>(index)].removed) {
                hidden.push_back(widget);
            }
        }
        XtUnmanageChildren(hidden.data(), static_cast<Cardinal>(hidden.size()));
    };
    hide(touched.edges, document_.graph.edges, arcs_);
    hide(touched.nodes, document_.graph.nodes, nodes_);
}

// With a node its arcs are destroyed, so that they go first.
void GraphPane::RemoveArc(int edge) {
    if (document_.graph.EdgeAt(edge).removed && ArcAt(edge)) {
        XtDestroyWidget(std::exchange(arcs_[static_cast<std::size_t>(edge)], nullptr));
    }
}

void GraphPane::RemoveNode(int node) {
    if (document_.graph.NodeAt(node).removed && NodeAt(node)) {
        XtDestroyWidget(std::exchange(nodes_[static_cast<std::size_t>(node)], nullptr));
    }
}

// ---- Edits ------------------------------------------------------------------------------------------

void GraphPane::Update(const Touched &touched) {
    const auto shared = std::make_shared<const Touched>(touched);
    const auto for_each = [this, shared](const char *name, const std::vector<int> &indices,
                                         void (GraphPane::*act)(int)) {
        worker_.AddForEach(name, static_cast<int>(indices.size()),
                           [this, shared, &indices, act](int i) {
                               (this->*act)(indices[static_cast<std::size_t>(i)]);
                           });
    };
    FitTables();
    worker_.Add("hiding", [this, shared] {
        HideRemoved(*shared);
        return false;
    });
    for_each("removing arcs", shared->edges, &GraphPane::RemoveArc);
    for_each("removing nodes", shared->nodes, &GraphPane::RemoveNode);
    for_each("nodes", shared->nodes, &GraphPane::MakeNode);
    for_each("arcs", shared->edges, &GraphPane::MakeArc);
    worker_.Add("managing", [this] {
        ManageNew();
        return false;
    });
    for_each("moving", shared->nodes, &GraphPane::PutInPlace);
    worker_.Add("drawing", [this] {
        too_big_ = false;
        XmGraphAdjustSize(graph_);
        if (XtIsRealized(graph_)) {
            XClearArea(XtDisplay(graph_), XtWindow(graph_), 0, 0, 0, 0, True);
        }
        return false;
    });
}

void GraphPane::PutInPlace(int node) {
    auto &place = document_.graph.NodeAt(node).place;
    if (!NodeAt(node)) {
        return;
    }
    if (!place) {
        place = PlaceOf(node);
    } else if (place != PlaceOf(node)) {
        XmGraphMoveNodeQuietly(graph_, NodeAt(node), static_cast<Position>(place->x),
                               static_cast<Position>(place->y));
    }
}

std::optional<Place> GraphPane::PlaceOf(int node) const {
    const Widget gadget = NodeAt(node);
    if (!gadget) {
        return std::nullopt;
    }
    return Place{GetResource<Position>(gadget, XmNx), GetResource<Position>(gadget, XmNy)};
}

void GraphPane::AdoptNode(Widget gadget, int node) {
    FitTables();
    nodes_[static_cast<std::size_t>(node)] = gadget;
    MakeNode(node);
}

void GraphPane::AdoptArc(Widget arc, int edge) {
    FitTables();
    arcs_[static_cast<std::size_t>(edge)] = arc;
    MakeArc(edge);
}

// ---- Selection and hits -----------------------------------------------------------------------------

std::vector<int> GraphPane::Selected() const {
    int count = 0;
    const WidgetList gadgets = XmGraphGetSelectedNodes(graph_, &count);
    std::vector<int> selected;
    std::transform(gadgets, gadgets + count, std::back_inserter(selected), GraphView::IndexOf);
    std::sort(selected.begin(), selected.end());
    return selected;
}

void GraphPane::Select(const std::vector<int> &nodes) {
    const std::vector<int> before = Selected();
    const auto change = [this](const std::vector<int> &from, const std::vector<int> &but,
                               auto select) {
        std::vector<Widget> gadgets;
        for (const int node : from) {
            const bool same = std::binary_search(but.begin(), but.end(), node);
            if (const Widget gadget = NodeAt(node); gadget && !same) {
                gadgets.push_back(gadget);
            }
        }
        select(graph_, gadgets.data(), static_cast<int>(gadgets.size()), False);
    };
    change(before, nodes, XmGraphUnselectNodes);
    change(nodes, before, XmGraphSelectNodes);
}

void GraphPane::Mark(const std::vector<int> &hits) {
    const auto mark = [this](const std::vector<int> &nodes, const std::vector<int> &but,
                             Pixel color) {
        for (const int node : nodes) {
            const bool same = std::binary_search(but.begin(), but.end(), node);
            if (const Widget gadget = NodeAt(node); gadget && !same) {
                XtVaSetValues(gadget, XmNmarkColor, color, nullptr);
            }
        }
    };
    mark(hits_, hits, no_mark);
    mark(hits, hits_, mark_);
    hits_ = hits;
}

void GraphPane::BringIntoSight(int node) {
    if (NodeAt(node)) {
        XmGraphCenterAroundWidget(graph_, NodeAt(node));
    }
}

// ---- The view ---------------------------------------------------------------------------------------

graph_browser::Orientation GraphPane::GetOrientation() const {
    return IsHorizontal() ? graph_browser::Orientation::Horizontal
                          : graph_browser::Orientation::Vertical;
}

bool GraphPane::IsHorizontal() const {
    return GetResource<unsigned char>(graph_, XmNorientation) == XmHORIZONTAL;
}

void GraphPane::LayOut() {
    too_big_ = false;
    XmGraphLayout(graph_);
}

void GraphPane::Zoom(float factor) {
    too_big_ = false;
    XmGraphZoom(graph_, factor);
    KeepPlaces();
}

void GraphPane::Turn() {
    too_big_ = false;
    // This lays the graph out, too.
    XtVaSetValues(graph_, XmNorientation, IsHorizontal() ? XmVERTICAL : XmHORIZONTAL, nullptr);
    const auto sides = graph_browser::SidesFor(GetOrientation());
    for (const Widget arc : arcs_) {
        if (arc) {
            XtVaSetValues(arc, XmNfromSide, sides.from, XmNtoSide, sides.to, nullptr);
        }
    }
    KeepPlaces();
}

} // namespace workbench
