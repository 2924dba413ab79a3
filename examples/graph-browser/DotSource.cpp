#include "DotSource.h"

#include <algorithm>
#include <cstring>
#include <map>
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

// ---- Names that begin with '%' ---------------------------------------------

// libcgraph gives names that begin with '%' to what has none. It knows other such names only until the file ends;
// then it forgets them, and what had one gets another with each reading. They are kept here. The numbers are
// unique among all objects without a name of libcgraph's own.
struct Names {
    void *inner;
    std::map<IDTYPE, std::string> kept;
};

Names &NamesOf(void *state) {
    return *static_cast<Names *>(state);
}

void *OpenNames(Agraph_t *graph, Agdisc_t *disc) {
    return new Names{AgDefaultDisc.id->open(graph, disc), {}};
}

long MapName(void *state, int kind, char *name, IDTYPE *id, int create) {
    return AgDefaultDisc.id->map(NamesOf(state).inner, kind, name, id, create);
}

long TakeId(void *state, int kind, IDTYPE id) {
    return AgDefaultDisc.id->alloc(NamesOf(state).inner, kind, id);
}

void FreeId(void *state, int kind, IDTYPE id) {
    NamesOf(state).kept.erase(id);
    AgDefaultDisc.id->free(NamesOf(state).inner, kind, id);
}

char *NameOf(void *state, int kind, IDTYPE id) {
    auto &names = NamesOf(state);
    const auto found = names.kept.find(id);
    return found != names.kept.end() ? found->second.data()
                                     : AgDefaultDisc.id->print(names.inner, kind, id);
}

void CloseNames(void *state) {
    AgDefaultDisc.id->close(NamesOf(state).inner);
    delete &NamesOf(state);
}

void RegisterName(void *state, int kind, void *object) {
    if (const char *name = GivenName(object); name && *name == '%')
        NamesOf(state).kept[AGID(object)] = name;
    AgDefaultDisc.id->idregister(NamesOf(state).inner, kind, object);
}

// A graph keeps the address of what it was read with.
Agiodisc_t text_input{ReadFromText, nullptr, nullptr};
Agiddisc_t ids{OpenNames, MapName, TakeId, FreeId, NameOf, CloseNames, RegisterName};
Agdisc_t discipline{AgDefaultDisc.mem, &ids, &text_input};

} // namespace

void DotSourceDeleter::operator()(DotSource *source) const {
    delete source;
}

Agraph_t *ReadNext(std::string_view &text) {
    return agread(&text, &discipline);
}

const char *GivenName(void *object) {
    const char *name = agnameof(object);
    const bool made_up = name && *name == '%' && name + 1 == std::to_string(AGID(object));
    return made_up ? nullptr : name;
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
