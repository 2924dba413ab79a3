// The graph as it was read is read again and changed, one difference after the other, by the functions that
// keep all else that the file says.

#include "WriteDocument.h"

#include <optional>
#include <utility>
#include <vector>

#include <DotReader.h>
#include <DotWriter.h>
#include <GraphEdit.h>

namespace workbench {

namespace {

constexpr const char *empty_graph = "digraph { rankdir=LR; }";

class Writer {
public:
    explicit Writer(const Document &document) : document_(document) {}

    std::variant<std::string, Failure> Write();

private:
    void WriteNodes();
    void RemoveEdges();
    bool WriteEdges();
    bool WriteEdge(int index, const Edge &edge);
    void RemoveNodes();
    int AddNode(const Node &node);
    int At(int node) const { return at_[static_cast<std::size_t>(node)]; }

    const Document &document_;
    Graph written_;
    std::vector<int> at_; // for each node of the document, the written one
};

// ---- Nodes ------------------------------------------------------------------------------------------

// A node without arcs takes the first text for its name, as long as it counts as added.
int Writer::AddNode(const Node &node) {
    const int index = graph_browser::AddNode(written_, std::nullopt);
    graph_browser::LabelNode(written_, index, node.name);
    written_.NodeAt(index).added = false;
    return index;
}

void Writer::WriteNodes() {
    for (int i = 0; const Node &node : document_.graph.nodes) {
        const bool in_dot = i < document_.nodes_in_dot;
        at_.push_back(in_dot ? i : node.removed ? -1 : AddNode(node));
        if (!node.removed) {
            Node &written = written_.NodeAt(at_.back());
            if (written.label != node.label) {
                graph_browser::LabelNode(written_, at_.back(), node.label);
            }
            written_.NodeAt(at_.back()).place = document_.graph.placed ? node.place : std::nullopt;
        }
        i++;
    }
}

// With a node would go its arcs, also one that now leads elsewhere.
void Writer::RemoveNodes() {
    for (int i = 0; i < document_.nodes_in_dot; i++) {
        if (document_.graph.NodeAt(i).removed) {
            graph_browser::RemoveNode(written_, i);
        }
    }
}

// ---- Arcs -------------------------------------------------------------------------------------------

// First, so that a strict graph has room for those that take their place.
void Writer::RemoveEdges() {
    for (int i = 0; i < document_.edges_in_dot; i++) {
        if (document_.graph.EdgeAt(i).removed) {
            graph_browser::RemoveEdge(written_, i);
        }
    }
}

bool Writer::WriteEdges() {
    for (int i = 0; const Edge &edge : document_.graph.edges) {
        if (!edge.removed && !WriteEdge(i, edge)) {
            return false;
        }
        i++;
    }
    return true;
}

bool Writer::WriteEdge(int index, const Edge &edge) {
    if (index >= document_.edges_in_dot) {
        return graph_browser::AddEdge(written_, At(edge.from), At(edge.to)).has_value();
    }
    const Edge &written = written_.EdgeAt(index);
    const bool moved = written.from != At(edge.from) || written.to != At(edge.to);
    return !moved || graph_browser::MoveEdge(written_, index, At(edge.from), At(edge.to));
}

std::variant<std::string, Failure> Writer::Write() {
    auto read = graph_browser::ReadDotText(document_.dot.empty() ? empty_graph : document_.dot);
    if (const auto *error = std::get_if<graph_browser::ReadError>(&read)) {
        return Failure{error->message};
    }
    written_ = std::move(std::get<Graph>(read));
    WriteNodes();
    RemoveEdges();
    if (!WriteEdges()) {
        return Failure{"the graph is strict: there can be no second arc between two nodes"};
    }
    RemoveNodes();
    return graph_browser::WriteDot(written_);
}

} // namespace

std::variant<std::string, Failure> WriteDocument(const Document &document) {
    return Writer(document).Write();
}

} // namespace workbench
