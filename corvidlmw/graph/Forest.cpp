// Turns the graph, with its cycles and shared children, into a forest.
//
// A depth-first walk over `children`, in which the first visitor of a node becomes its parent. Arcs
// that are no tree edges lose their entry in `tree_children`; an entry that was taken out stays
// out in later conversions, since `tree_children` is not rebuilt. What holds during the walk: a
// node has a depth exactly when it was entered, so a node on the way down is never entered twice.
// The walk keeps its own stack, since a chain may be as long as the graph.

#include <corvidlmw/graph/GraphI.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

struct Visit {
    NodePtr node;
    int next_child = 0;
    int child_count = 0; // as it was on entry
    Vector<NodePtr> cut;
};

bool IsDying(NodePtr node) {
    return node->widget && IsBeingDestroyed(node->widget);
}

// Gives the node its place, and tells whether the walk goes on below it.
bool Enter(const XmGraphNodeList &path, NodePtr node, NodePtr parent, int depth) {
    node->tree_parent = parent;
    node->depth = depth;
    return !_XmGraphNodeListMember(const_cast<XmGraphNodeList *>(&path), node) && !IsDying(node);
}

// Takes all of `cut` out of `tree_children` in one pass.
void CutTreeChildren(NodePtr node, const Vector<NodePtr> &cut) {
    if (cut.empty()) {
        return;
    }
    const UnorderedSet<NodePtr> gone(cut.begin(), cut.end());
    XmGraphNodeList &list = node->tree_children;
    auto entries = Nodes(list);
    auto kept = std::remove_if(entries.begin(), entries.end(),
                               [&](NodePtr entry) { return gone.contains(entry); });
    std::fill(kept, entries.end(), nullptr);
    list.count = static_cast<int>(kept - entries.begin());
}

// A child that stands at or above its new parent moves below it, with its subtree.
void Reparent(NodePtr child, NodePtr parent) {
    child->depth += 1;
    for (NodePtr grandchild : Nodes(child->tree_children)) {
        if (!IsDying(grandchild)) {
            _XmGraphUpdateNodeDepth(grandchild);
        }
    }
    _XmGraphUpdateNodeParent(child, parent);
}

} // namespace

extern "C" {

void _XmGraphConvertToTree(Widget graph) {
    XmGraphNodeList path{};
    _XmGraphDoConvertToTree(graph, &path, GraphOf(graph).root, nullptr, 0);
    _XmGraphNodeListFree(&path);
}

void _XmGraphDoConvertToTree(Widget, XmGraphNodeList *path, NodePtr node, NodePtr parent,
                             int depth) {
    Vector<Visit> stack;
    if (Enter(*path, node, parent, depth)) {
        stack.push_back({.node = node, .child_count = node->children.count});
    }
    while (!stack.empty()) {
        Visit &visit = stack.back();
        NodePtr here = visit.node;
        if (visit.next_child >= std::min(visit.child_count, here->children.count)) {
            CutTreeChildren(here, visit.cut);
            stack.pop_back();
            continue;
        }
        auto child = static_cast<NodePtr>(here->children.items[visit.next_child++]);
        if (IsDying(child)) {
            continue;
        }
        if (child->depth < XmGRAPH_UNPLACED_DEPTH) {
            visit.cut.push_back(child);
        } else if (child->depth <= here->depth && child->tree_parent != here) {
            Reparent(child, here);
        } else if (Enter(*path, child, here, here->depth + 1)) {
            stack.push_back({.node = child, .child_count = child->children.count});
        }
    }
}

// Before a conversion `tree_children` may still hold a cycle: each node is met once.
void _XmGraphUpdateNodeDepth(NodePtr node) {
    UnorderedSet<NodePtr> met;
    Vector<NodePtr> stack{node};
    while (!stack.empty()) {
        NodePtr here = stack.back();
        stack.pop_back();
        if (!met.insert(here).second) {
            continue;
        }
        here->depth += 1;
        for (NodePtr child : Nodes(here->tree_children)) {
            if (!IsDying(child)) {
                stack.push_back(child);
            }
        }
    }
}

void _XmGraphUpdateNodeParent(NodePtr node, NodePtr parent) {
    if (node->tree_parent) {
        _XmGraphNodeListRemove(&node->tree_parent->tree_children, node);
    }
    node->tree_parent = parent;
}

} // extern "C"
