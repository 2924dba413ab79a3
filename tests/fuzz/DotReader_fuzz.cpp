// The graph browser's reader and writer: a file is refused with a reason, or gives a graph whose edges lead
// from node to node and that can be written.
#include <tests/fuzz/Input.h>

#include <DotReader.h>
#include <DotWriter.h>

using namespace graph_browser;
using corvidlmw::fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string text(reinterpret_cast<const char *>(data), size);
    const auto read = ReadDotText(text);
    if (const auto *error = std::get_if<ReadError>(&read)) {
        Require(!error->message.empty() && error->line >= 0);
        return 0;
    }
    const Graph &graph = std::get<Graph>(read);
    for (const Edge &edge : graph.edges) {
        const auto count = static_cast<int>(graph.nodes.size());
        Require(edge.from >= 0 && edge.from < count && edge.to >= 0 && edge.to < count);
    }
    Require(!WriteDot(graph).empty());
    return 0;
}
