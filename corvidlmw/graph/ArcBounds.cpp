// Where each arc paints, kept from one redisplay to the next, so that an exposure of a few pixels computes the
// shape of a few arcs.
//
// `of_arcs` runs parallel to `arcs` and `of_nodes` to the children. Whoever changes a list, or what an arc
// looks like, calls ForgetArcBounds. Nobody tells of nodes that move: the toolkit may move a gadget without
// a word. So each question first compares all nodes with the places that the bounds were computed from, which
// is one read of each.

#include <corvidlmw/graph/GraphI.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

constexpr Bounds nowhere;

void Measure(Widget w, std::size_t at) {
    StateOf(w).bounds.of_arcs[at] = MeasureArc(w, Arcs(w)[at]).value_or(nowhere);
}

// `arcs` is sorted by serial numbers.
void MeasureArcsOf(Widget w, const XmGraphNodeList &arcs_of_node) {
    auto arcs = Arcs(w);
    for (Widget arc : Widgets(arcs_of_node)) {
        auto found =
            std::lower_bound(arcs.begin(), arcs.end(), SerialOf(arc),
                             [](Widget a, unsigned long serial) { return SerialOf(a) < serial; });
        if (found != arcs.end() && *found == arc) {
            Measure(w, static_cast<std::size_t>(found - arcs.begin()));
        }
    }
}

void MeasureAll(Widget w) {
    auto &bounds = StateOf(w).bounds;
    bounds.of_nodes.clear();
    for (Widget child : Children(w)) {
        bounds.of_nodes.push_back(RectangleOf(child));
    }
    bounds.of_arcs.resize(Arcs(w).size());
    for (std::size_t i = 0; i < bounds.of_arcs.size(); i++) {
        Measure(w, i);
    }
    bounds.known = true;
}

void MeasureWhatMoved(Widget w) {
    auto &bounds = StateOf(w).bounds;
    auto children = Children(w);
    for (std::size_t i = 0; i < children.size(); i++) {
        const Rectangle now = RectangleOf(children[i]);
        NodePtr node = now == bounds.of_nodes[i] ? nullptr : NodeOf(children[i]);
        bounds.of_nodes[i] = now;
        if (node) {
            MeasureArcsOf(w, node->from_arcs);
            MeasureArcsOf(w, node->to_arcs);
        }
    }
}

bool Touches(const Bounds &bounds, const XRectangle &box) {
    return bounds.left < box.x + box.width && bounds.right >= box.x &&
           bounds.top < box.y + box.height && bounds.bottom >= box.y;
}

} // namespace

namespace corvidlmw::graph {

void ForgetArcBounds(Widget w) {
    StateOf(w).bounds.known = false;
}

std::vector<Widget> ArcsTouching(Widget w, const XRectangle &box) {
    auto &bounds = StateOf(w).bounds;
    const bool parallel =
        bounds.of_arcs.size() == Arcs(w).size() && bounds.of_nodes.size() == Children(w).size();
    bounds.known &&parallel ? MeasureWhatMoved(w) : MeasureAll(w);
    std::vector<Widget> touching;
    for (std::size_t i = 0; i < bounds.of_arcs.size(); i++) {
        if (Touches(bounds.of_arcs[i], box)) {
            touching.push_back(Arcs(w)[i]);
        }
    }
    return touching;
}

} // namespace corvidlmw::graph
