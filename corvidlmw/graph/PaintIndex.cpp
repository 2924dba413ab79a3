// Where each arc and each node paints, kept from one redisplay to the next, so that an exposure of a few
// pixels has to do with a few of them.
//
// The indices run parallel to `arcs` and to the children. Whoever changes a list, or what an arc looks like,
// calls one of the two that forget. Nobody tells of nodes that move: the toolkit may move a gadget without a word. So
// each question first compares all nodes with the places that it knows, which is one read of each. While the
// user drags nodes only those are looked at that the graph itself has moved: the release redraws all. What
// moves many nodes at once forgets the index, as a drag may be running.

#include <corvidlmw/graph/GraphI.h>

#include <cassert>
#include <cstring>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// A child's place and size as they stand in its record, in one piece.
std::uint64_t GeometryOf(Widget child) {
    static_assert(offsetof(CorePart, height) == offsetof(CorePart, x) + 6);
    std::uint64_t geometry;
    std::memcpy(&geometry, &child->core.x, sizeof geometry);
    return geometry;
}

void MeasureArcAt(Widget w, std::size_t at) {
    StateOf(w).painted.arcs.Set(at, MeasureArc(w, Arcs(w)[at]));
}

// `arcs` is sorted by serial numbers.
void MeasureArcsOf(Widget w, const XmGraphNodeList &arcs_of_node) {
    auto arcs = Arcs(w);
    for (Widget arc : Widgets(arcs_of_node)) {
        auto found =
            std::lower_bound(arcs.begin(), arcs.end(), SerialOf(arc),
                             [](Widget a, unsigned long serial) { return SerialOf(a) < serial; });
        if (found != arcs.end() && *found == arc) {
            MeasureArcAt(w, static_cast<std::size_t>(found - arcs.begin()));
        }
    }
}

void PlaceNode(Widget w, std::size_t at) {
    auto &painted = StateOf(w).painted;
    Widget child = Children(w)[at];
    painted.geometries[at] = GeometryOf(child);
    painted.nodes.Set(at, Bounds(RectangleOf(child)));
}

void PlaceAllNodes(Widget w) {
    auto &painted = StateOf(w).painted;
    painted.geometries.resize(Children(w).size());
    painted.nodes.Reset(Children(w).size());
    for (std::size_t i = 0; i < painted.nodes.size(); i++) {
        PlaceNode(w, i);
    }
    painted.unmeasured.clear();
    painted.nodes_known = true;
    painted.arcs_known = false;
}

void MeasureAllArcs(Widget w) {
    auto &painted = StateOf(w).painted;
    painted.arcs.Reset(Arcs(w).size());
    for (std::size_t i = 0; i < painted.arcs.size(); i++) {
        MeasureArcAt(w, i);
    }
    painted.unmeasured.clear();
    painted.arcs_known = true;
}

bool IsDraggingNodes(const XmGraphPart &graph) {
    return graph.gesture_state == GESTURE_MOVE_NODE ||
           graph.gesture_state == GESTURE_MOVE_SELECTION;
}

Vector<std::size_t> DraggedNodes(Widget w) {
    auto children = Children(w);
    Vector<std::size_t> moved;
    for (Widget node : StateOf(w).painted.dragged) {
        auto found = std::find(children.begin(), children.end(), node);
        if (found != children.end()) {
            moved.push_back(static_cast<std::size_t>(found - children.begin()));
        }
    }
    return moved;
}

// The children whose place is not the known one; but no more than `most` of them.
Vector<std::size_t> MovedNodes(Widget w, std::size_t most) {
    const auto &known = StateOf(w).painted.geometries;
    auto children = Children(w);
    Vector<std::size_t> moved;
    for (std::size_t i = 0; i < children.size() && moved.size() < most; i++) {
        if (GeometryOf(children[i]) != known[i]) {
            moved.push_back(i);
        }
    }
    return moved;
}

void PlaceWhatMoved(Widget w) {
    auto &painted = StateOf(w).painted;
    const std::size_t many = Children(w).size() / 8 + 1;
    const Vector<std::size_t> moved =
        IsDraggingNodes(GraphOf(w)) ? DraggedNodes(w) : MovedNodes(w, many);
    painted.dragged.clear();
    if (moved.size() >= many) {
        return PlaceAllNodes(w);
    }
    for (std::size_t at : moved) {
        PlaceNode(w, at);
        painted.unmeasured.push_back(at);
    }
}

// Measuring keeps an arc's ends for later picks, so it is left to the next redisplay.
void MeasureWhatMoved(Widget w) {
    for (std::size_t at : std::exchange(StateOf(w).painted.unmeasured, {})) {
        if (NodePtr node = NodeOf(Children(w)[at])) {
            MeasureArcsOf(w, node->from_arcs);
            MeasureArcsOf(w, node->to_arcs);
        }
    }
}

// Inside of a dispatch a twin that is to die has given up its rank already, and the index hears of it at its
// death, where the others are drawn anew.
[[maybe_unused]] bool MayHaveMovedUp(Widget arc) {
    const XmGraphNodeList *siblings = ArcOf(arc).siblings;
    return siblings && std::ranges::any_of(Widgets(*siblings), IsBeingDestroyed);
}

// For the assertion: of a few arcs only, and not while a drag looks at its own nodes alone.
[[maybe_unused]] bool Agrees(Widget w) {
    const auto &painted = StateOf(w).painted;
    for (std::size_t i = 0; i < std::min<std::size_t>(painted.arcs.size(), 100); i++) {
        Widget arc = Arcs(w)[i];
        if (painted.arcs[i] != MeasureArc(w, arc) && !MayHaveMovedUp(arc)) {
            return IsDraggingNodes(GraphOf(w));
        }
    }
    return true;
}

} // namespace

namespace corvidlmw::graph {

void ForgetNodeIndex(Widget w) {
    StateOf(w).painted.nodes_known = false;
}

void ForgetArcIndex(Widget w) {
    StateOf(w).painted.arcs_known = false;
}

void NoteDragged(Widget w, Widget node) {
    auto &painted = StateOf(w).painted;
    if (!IsDraggingNodes(GraphOf(w)) || !painted.nodes_known) {
        return;
    }
    // Without a window nobody asks.
    if (painted.dragged.size() > Children(w).size()) {
        painted.dragged.clear();
        ForgetNodeIndex(w);
    }
    painted.dragged.push_back(node);
}

const BoxIndex &NodeIndexOf(Widget w) {
    const auto &painted = StateOf(w).painted;
    if (painted.nodes_known && painted.nodes.size() == Children(w).size()) {
        PlaceWhatMoved(w);
    } else {
        PlaceAllNodes(w);
    }
    return painted.nodes;
}

const PaintIndex &PaintIndexOf(Widget w) {
    NodeIndexOf(w);
    const RankWalk walk(w);
    const auto &painted = StateOf(w).painted;
    if (painted.arcs_known && painted.arcs.size() == Arcs(w).size()) {
        MeasureWhatMoved(w);
    } else {
        MeasureAllArcs(w);
    }
    assert(Agrees(w));
    return painted;
}

Vector<Widget> Touching(const BoxIndex &index, std::span<Widget> objects, const Rectangle &box) {
    Vector<Widget> touching;
    index.ForEachTouching(Bounds(box), [&](std::size_t i) { touching.push_back(objects[i]); });
    return touching;
}

} // namespace corvidlmw::graph
