#include "DotSource.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace graph_browser {
namespace {

int ReadFromText(void *channel, char *buffer, int size) {
    auto &rest = *static_cast<std::string_view *>(channel);
    const std::size_t count = std::min(rest.size(), static_cast<std::size_t>(size));
    std::memcpy(buffer, rest.data(), count);
    rest.remove_prefix(count);
    return static_cast<int>(count);
}

int AppendToText(void *channel, const char *piece) {
    *static_cast<std::string *>(channel) += piece;
    return 0;
}

int KeepText(void *) {
    return 0;
}

// A graph keeps the address of what it was read with.
Agiodisc_t text_input_output{ReadFromText, AppendToText, KeepText};
Agdisc_t discipline{AgDefaultDisc.mem, AgDefaultDisc.id, &text_input_output};

} // namespace

void DotSourceDeleter::operator()(DotSource *source) const {
    delete source;
}

Agraph_t *ReadNext(std::string_view &text) {
    return agread(&text, &discipline);
}

std::string Written(Agraph_t *graph) {
    std::string text;
    agwrite(graph, &text);
    return text;
}

std::vector<Agraph_t *> SubgraphsOf(Agraph_t *root) {
    std::vector<Agraph_t *> found{root};
    for (std::size_t at = 0; at < found.size(); ++at)
        for (Agraph_t *inner = agfstsubg(found[at]); inner; inner = agnxtsubg(inner))
            found.push_back(inner);
    found.erase(found.begin());
    return found;
}

} // namespace graph_browser
