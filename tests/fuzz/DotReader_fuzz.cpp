// The graph browser's reader and writer: a file is refused with a reason, or gives a graph whose edges lead
// from node to node and that is written so that it reads as it did. Neither reaches into the next file.
#include <tests/fuzz/Input.h>

#include <DotReader.h>
#include <DotWriter.h>

#include <map>

using namespace graph_browser;
using corvidlmw::fuzz::Require;

namespace {

// Nodes of clusters are written first.
std::map<std::string, std::string> LabelsOf(const Graph &graph) {
    std::map<std::string, std::string> labels;
    for (const Node &node : graph.nodes) {
        labels[node.name] = node.label;
    }
    return labels;
}

void CheckEdges(const Graph &graph) {
    const auto count = static_cast<int>(graph.nodes.size());
    for (const Edge &edge : graph.edges) {
        Require(edge.from >= 0 && edge.from < count && edge.to >= 0 && edge.to < count);
    }
}

void CheckSame(const Graph &a, const Graph &b) {
    Require(a.directed == b.directed && a.nodes.size() == b.nodes.size());
    Require(a.edges.size() == b.edges.size() && LabelsOf(a) == LabelsOf(b));
}

void CheckNextFile() {
    Require(std::holds_alternative<Graph>(ReadDotText("digraph { x -> y }")));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto read = ReadDotText({reinterpret_cast<const char *>(data), size});
    CheckNextFile();
    if (const auto *error = std::get_if<ReadError>(&read)) {
        Require(!error->message.empty() && error->line >= 0);
        return 0;
    }
    const Graph &graph = std::get<Graph>(read);
    CheckEdges(graph);
    const auto again = ReadDotText(WriteDot(graph));
    Require(std::holds_alternative<Graph>(again));
    CheckSame(graph, std::get<Graph>(again));
    return 0;
}
