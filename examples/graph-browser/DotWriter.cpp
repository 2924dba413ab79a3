#include "DotWriter.h"

#include "DotSource.h"

namespace graph_browser {
namespace {

std::string PlaceText(const Place &place) {
    return std::to_string(place.x) + "," + std::to_string(place.y);
}

// A graph that was never placed by hand gets no attribute for it.
void WritePlace(Agnode_t *node, const std::optional<Place> &place) {
    auto *name = const_cast<char *>(place_attribute);
    if (!place && !agattr(agroot(node), AGNODE, name, nullptr))
        return;
    const std::string text = place ? PlaceText(*place) : "";
    agsafeset(node, name, const_cast<char *>(text.c_str()), const_cast<char *>(""));
}

} // namespace

std::string WriteDot(const Graph &graph) {
    for (const int node : NodesOf(graph))
        WritePlace(graph.source->NodeAt(node), graph.NodeAt(node).place);
    std::string text;
    for (const GraphHolder &written : graph.source->graphs)
        text += Written(written.get());
    return text;
}

} // namespace graph_browser
