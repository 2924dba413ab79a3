// libcgraph's own writer writes edges twice where a subgraph without a name holds another one, gives nodes the
// defaults of a subgraph that only mentions them, and drops names that begin with '%'. Here nodes come first, in
// their order and with all that differs from the graph's defaults, so that subgraphs have only to mention them.

#include "DotWriter.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <initializer_list>
#include <string_view>
#include <strings.h>
#include <unordered_set>
#include <utility>
#include <vector>

#include "DotSource.h"

namespace graph_browser {
namespace {

// ---- Words -----------------------------------------------------------------

bool EndsPiece(std::string_view text, std::size_t at) {
    return at >= text.size() || text[at] == '"' || text[at] == '\\';
}

// The scanner takes a backslash together with a quote, a second backslash or a line break behind it, and drops a
// line break that stands alone between such pieces.
bool CanBeQuoted(std::string_view text) {
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '\n' && (at == 0 || EndsPiece(text, at - 1)) && EndsPiece(text, at + 1))
            return false;
        if (text[at] != '\\')
            continue;
        const char next = at + 1 < text.size() ? text[at + 1] : '"';
        if (next == '"' || next == '\n')
            return false;
        at += next == '\\' ? 1 : 0;
    }
    return true;
}

bool IsNumeral(std::string_view text) {
    const std::size_t start = text.starts_with('-') ? 1 : 0;
    return text.find_first_of("0123456789") != std::string_view::npos &&
           text.find_first_not_of("0123456789.", start) == std::string_view::npos &&
           text.find('.') == text.rfind('.');
}

bool IsName(std::string_view text) {
    const auto letter = [](unsigned char c) { return c >= 0x80 || c == '_' || std::isalpha(c); };
    if (text.empty() || !letter(static_cast<unsigned char>(text[0])))
        return false;
    for (const char c : text)
        if (!letter(static_cast<unsigned char>(c)) && !std::isdigit(static_cast<unsigned char>(c)))
            return false;
    for (const char *word : {"node", "edge", "graph", "digraph", "subgraph", "strict"})
        if (strcasecmp(word, std::string{text}.c_str()) == 0)
            return false;
    return true;
}

// What cannot stand between quotes came from between angle brackets.
std::string Word(std::string_view text) {
    if (IsName(text) || IsNumeral(text))
        return std::string{text};
    if (!CanBeQuoted(text))
        return "<" + std::string{text} + ">";
    std::string word = "\"";
    for (const char c : text)
        (word += c == '"' ? "\\" : "") += c;
    return word + "\"";
}

std::string ValueWord(char *value) {
    return aghtmlstr(value) ? "<" + std::string{value} + ">" : Word(value);
}

// ---- Attributes ------------------------------------------------------------

// "a=b, c=d"
class AttributeList {
public:
    void Add(std::string_view name, char *value) {
        text += (text.empty() ? "" : ", ") + Word(name) + "=" + ValueWord(value);
    }
    std::string InBrackets() const { return text.empty() ? "" : " [" + text + "]"; }

private:
    std::string text;
};

bool Same(char *a, char *b) {
    return std::strcmp(a, b) == 0 && aghtmlstr(a) == aghtmlstr(b);
}

bool IsOneOf(const Agsym_t *symbol, std::initializer_list<const char *> names) {
    for (const char *name : names)
        if (std::strcmp(symbol->name, name) == 0)
            return true;
    return false;
}

// Nodes have a label where the file says nothing of it.
bool IsWorthSaying(int kind, const Agsym_t *symbol, const char *value) {
    return *value || (kind == AGNODE && IsOneOf(symbol, {"label"}));
}

std::string Defaults(Agraph_t *root, int kind) {
    AttributeList list;
    for (Agsym_t *symbol = agnxtattr(root, kind, nullptr); symbol;
         symbol = agnxtattr(root, kind, symbol))
        if (char *value = kind == AGRAPH ? agxget(root, symbol) : symbol->defval;
            IsWorthSaying(kind, symbol, value))
            list.Add(symbol->name, value);
    return list.InBrackets();
}

std::string NodeAttributeList(Agraph_t *root, Agnode_t *node) {
    AttributeList list;
    for (Agsym_t *symbol = agnxtattr(root, AGNODE, nullptr); symbol;
         symbol = agnxtattr(root, AGNODE, symbol))
        if (char *value = agxget(node, symbol); !Same(value, symbol->defval))
            list.Add(symbol->name, value);
    return list.InBrackets();
}

// The name of an edge is its key.
std::string EdgeAttributeList(Agraph_t *root, Agedge_t *edge) {
    AttributeList list;
    std::string key;
    if (const char *name = GivenName(edge))
        key = " [key=" + Word(name) + "]";
    for (Agsym_t *symbol = agnxtattr(root, AGEDGE, nullptr); symbol;
         symbol = agnxtattr(root, AGEDGE, symbol))
        if (char *value = agxget(edge, symbol);
            !Same(value, symbol->defval) && !IsOneOf(symbol, {"key"}))
            list.Add(symbol->name, value);
    return key + list.InBrackets();
}

// A subgraph begins with the values of the one around it.
std::string SubgraphAttributes(Agraph_t *root, Agraph_t *graph, const std::string &indent) {
    std::string text;
    for (Agsym_t *symbol = agnxtattr(root, AGRAPH, nullptr); symbol;
         symbol = agnxtattr(root, AGRAPH, symbol))
        if (char *value = agxget(graph, symbol); !Same(value, agxget(agparent(graph), symbol)))
            text += indent + Word(symbol->name) + "=" + ValueWord(value) + ";\n";
    return text;
}

// ---- Graphs ----------------------------------------------------------------

using Objects = std::unordered_set<const void *>;

// A graph being written, and what its subgraphs have mentioned.
struct Level {
    Agraph_t *graph;
    std::vector<Agraph_t *> waiting; // its subgraphs, the next one last
    Objects nodes{};
    Objects edges{};
};

void MoveInto(Objects &to, Objects &from) {
    if (to.size() < from.size())
        std::swap(to, from);
    to.merge(from);
}

// libcgraph gives them out by the addresses of their names.
std::vector<Agraph_t *> LastToFirst(Agraph_t *graph) {
    std::vector<Agraph_t *> inner;
    for (Agraph_t *next = agfstsubg(graph); next; next = agnxtsubg(next))
        inner.push_back(next);
    std::sort(inner.begin(), inner.end(),
              [](Agraph_t *a, Agraph_t *b) { return AGSEQ(a) > AGSEQ(b); });
    return inner;
}

class GraphWriter {
public:
    explicit GraphWriter(Agraph_t *whole) : root(whole) {}

    std::string Write() {
        Begin();
        levels.push_back({root, LastToFirst(root)});
        while (!levels.empty()) {
            auto &waiting = levels.back().waiting;
            if (waiting.empty()) {
                Close();
            } else {
                Agraph_t *inner = waiting.back();
                waiting.pop_back();
                Open(inner);
            }
        }
        return std::move(text);
    }

private:
    std::string Indent() const { return std::string(levels.size(), '\t'); }

    void Begin() {
        const char *name = GivenName(root);
        text = agisstrict(root) ? "strict " : "";
        text += agisdirected(root) ? "digraph " : "graph ";
        text += (name ? Word(name) + " " : "") + "{\n";
        for (const auto &[kind, word] :
             {std::pair{AGRAPH, "graph"}, {AGNODE, "node"}, {AGEDGE, "edge"}})
            if (const std::string defaults = Defaults(root, kind); !defaults.empty())
                text += std::string{"\t"} + word + defaults + ";\n";
        for (Agnode_t *node = agfstnode(root); node; node = agnxtnode(root, node))
            text += "\t" + Word(agnameof(node)) + NodeAttributeList(root, node) + ";\n";
    }

    void Open(Agraph_t *graph) {
        const char *name = GivenName(graph);
        text += Indent() + (name ? "subgraph " + Word(name) + " {\n" : "{\n");
        levels.push_back({graph, LastToFirst(graph)});
        text += SubgraphAttributes(root, graph, Indent());
    }

    void Close() {
        if (levels.size() > 1)
            WriteNodes();
        WriteEdges();
        Level done = std::move(levels.back());
        levels.pop_back();
        text += Indent() + "}\n";
        if (levels.empty())
            return;
        MoveInto(levels.back().nodes, done.nodes);
        MoveInto(levels.back().edges, done.edges);
    }

    void WriteNodes() {
        Level &level = levels.back();
        for (Agnode_t *node = agfstnode(level.graph); node; node = agnxtnode(level.graph, node))
            if (level.nodes.insert(node).second)
                text += Indent() + Word(agnameof(node)) + ";\n";
    }

    void WriteEdges() {
        Level &level = levels.back();
        for (Agnode_t *node = agfstnode(level.graph); node; node = agnxtnode(level.graph, node))
            for (Agedge_t *edge = agfstout(level.graph, node); edge;
                 edge = agnxtout(level.graph, edge))
                if (level.edges.insert(edge).second)
                    WriteEdge(edge);
    }

    // A second mention of an edge without a key would be a second edge.
    void WriteEdge(Agedge_t *edge) {
        const bool first = written.insert(edge).second;
        if (!first && !agisstrict(root) && !GivenName(edge))
            return;
        text += Indent() + Word(agnameof(agtail(edge))) + (agisdirected(root) ? " -> " : " -- ") +
                Word(agnameof(aghead(edge))) + EdgeAttributeList(root, edge) + ";\n";
    }

    Agraph_t *root;
    std::string text;
    std::vector<Level> levels;
    Objects written;
};

// ---- Places ----------------------------------------------------------------

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
        text += GraphWriter{written.get()}.Write();
    return text;
}

} // namespace graph_browser
