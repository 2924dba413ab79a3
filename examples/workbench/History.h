// The edits of a document, each of which can be undone and done again.
#pragma once

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "Document.h"

namespace workbench {

// What an edit, or its undoing, has changed.
struct Touched {
    std::vector<int> nodes;
    std::vector<int> edges;
};

// An edit begins, makes its changes through these functions, and is committed. No change of a document's
// nodes and arcs may pass it by, but for places that a layout gives.
class History {
public:
    explicit History(Document &document) : document_(document) {}

    void Begin(std::string name);
    // To be changed; valid until the next node or arc is added.
    Node &ChangeNode(int node);
    Edge &ChangeEdge(int edge);
    int AddNode(Node node);
    int AddEdge(int from, int to);
    void RemoveNode(int node); // with its arcs
    void RemoveEdge(int edge);
    // What can be done again no longer can. An edit that has changed nothing is forgotten.
    Touched Commit();

    // Empty where there is nothing to undo, or to do again.
    std::string UndoName() const;
    std::string RedoName() const;
    Touched Undo();
    Touched Redo();

    // Whether the document differs from the saved one.
    bool IsChanged() const { return done_ != saved_; }
    void MarkSaved() { saved_ = done_; }
    // The document is another one.
    void Clear();

private:
    template <typename Thing>
    struct Change {
        int index;
        Thing before;
        Thing after;
    };
    struct Edit {
        std::string name;
        std::vector<Change<Node>> nodes;
        std::vector<Change<Edge>> edges;
    };

    static Touched TouchedBy(const Edit &edit);

    Document &document_;
    std::vector<Edit> edits_;
    std::size_t done_ = 0;                 // of the edits; the others can be done again
    std::optional<std::size_t> saved_ = 0; // how many were done then; none if that cannot come back
    Edit open_;
    std::unordered_set<int> noted_nodes_; // that are in it
    std::unordered_set<int> noted_edges_;
};

} // namespace workbench
