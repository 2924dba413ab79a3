#include "History.h"

#include <utility>

namespace workbench {

namespace {

// A layout in the meantime has given the node another place, which an edit of something else leaves alone.
void Restore(Node &node, const Node &from, const Node &to) {
    const std::optional<Place> place = from.place == to.place ? node.place : to.place;
    node = to;
    node.place = place;
}

} // namespace

// ---- An edit ----------------------------------------------------------------------------------------

void History::Begin(std::string name) {
    open_ = {std::move(name), {}, {}};
    noted_nodes_.clear();
    noted_edges_.clear();
}

Node &History::ChangeNode(int node) {
    Node &changed = document_.graph.NodeAt(node);
    if (noted_nodes_.insert(node).second) {
        open_.nodes.push_back({node, changed, {}});
    }
    return changed;
}

Edge &History::ChangeEdge(int edge) {
    Edge &changed = document_.graph.EdgeAt(edge);
    if (noted_edges_.insert(edge).second) {
        open_.edges.push_back({edge, changed, {}});
    }
    return changed;
}

// Before it was added, it was removed.
int History::AddNode(Node node) {
    node.removed = true;
    node.added = true;
    const int index = document_.AddNode(std::move(node), {});
    ChangeNode(index).removed = false;
    return index;
}

int History::AddEdge(int from, int to) {
    const int index = document_.AddEdge(from, to);
    document_.graph.EdgeAt(index).removed = true;
    ChangeEdge(index).removed = false;
    return index;
}

void History::RemoveNode(int node) {
    for (const int edge : graph_browser::EdgesAround(document_.graph, node)) {
        RemoveEdge(edge);
    }
    ChangeNode(node).removed = true;
}

void History::RemoveEdge(int edge) {
    ChangeEdge(edge).removed = true;
}

Touched History::Commit() {
    Touched touched = TouchedBy(open_);
    if (open_.nodes.empty() && open_.edges.empty()) {
        return touched;
    }
    for (auto &change : open_.nodes) {
        change.after = document_.graph.NodeAt(change.index);
    }
    for (auto &change : open_.edges) {
        change.after = document_.graph.EdgeAt(change.index);
    }
    if (saved_ && *saved_ > done_) {
        saved_.reset();
    }
    edits_.resize(done_);
    edits_.push_back(std::move(open_));
    done_++;
    open_ = {};
    return touched;
}

Touched History::TouchedBy(const Edit &edit) {
    Touched touched;
    for (const auto &change : edit.nodes) {
        touched.nodes.push_back(change.index);
    }
    for (const auto &change : edit.edges) {
        touched.edges.push_back(change.index);
    }
    return touched;
}

// ---- Back and forth ---------------------------------------------------------------------------------

std::string History::UndoName() const {
    return done_ > 0 ? edits_[done_ - 1].name : "";
}

std::string History::RedoName() const {
    return done_ < edits_.size() ? edits_[done_].name : "";
}

Touched History::Undo() {
    if (done_ == 0) {
        return {};
    }
    const Edit &edit = edits_[--done_];
    for (const auto &change : edit.nodes) {
        Restore(document_.graph.NodeAt(change.index), change.after, change.before);
    }
    for (const auto &change : edit.edges) {
        document_.graph.EdgeAt(change.index) = change.before;
    }
    return TouchedBy(edit);
}

Touched History::Redo() {
    if (done_ == edits_.size()) {
        return {};
    }
    const Edit &edit = edits_[done_++];
    for (const auto &change : edit.nodes) {
        Restore(document_.graph.NodeAt(change.index), change.before, change.after);
    }
    for (const auto &change : edit.edges) {
        document_.graph.EdgeAt(change.index) = change.after;
    }
    return TouchedBy(edit);
}

void History::Clear() {
    edits_.clear();
    open_ = {};
    done_ = 0;
    saved_ = 0;
}

} // namespace workbench
