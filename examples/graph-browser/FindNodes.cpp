#include "FindNodes.h"

namespace graph_browser {
namespace {

// Bytes of longer characters are above ASCII and stay as they are.
std::string Lower(std::string text) {
    for (char &c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

} // namespace

std::vector<int> FindNodes(const Graph &graph, const std::string &text) {
    std::vector<int> found = text.empty() ? std::vector<int>{} : NodesOf(graph);
    std::erase_if(found, [&graph, wanted = Lower(text)](int index) {
        const Node &node = graph.NodeAt(index);
        return Lower(node.name).find(wanted) == std::string::npos &&
               Lower(node.label).find(wanted) == std::string::npos;
    });
    return found;
}

} // namespace graph_browser
