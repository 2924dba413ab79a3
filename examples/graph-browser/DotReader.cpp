// Reading has three steps: the file comes into memory whole, libcgraph makes its own graph of it,
// and what we show of it is copied. libcgraph keeps its scanner, its error hook and its file name in
// globals, so that one reading is done before the next begins.

#include "DotReader.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <unistd.h>

#include <graphviz/cgraph.h>

#include "DotAttributes.h"
#include "DotScanner.h"
#include "DotSource.h"
#include "Utf8.h"

namespace graph_browser {
namespace {

// An endless device must not fill the memory.
constexpr std::size_t largest_file = std::size_t{256} << 20;
constexpr std::size_t longest_message = 160;

// ---- The file --------------------------------------------------------------

ReadError SystemError() {
    return {0, std::strerror(errno)};
}

class FileDescriptor {
public:
    explicit FileDescriptor(const std::string &path)
        : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}
    ~FileDescriptor() {
        if (descriptor >= 0)
            close(descriptor);
    }
    FileDescriptor(const FileDescriptor &) = delete;
    FileDescriptor &operator=(const FileDescriptor &) = delete;
    int Get() const { return descriptor; }

private:
    int descriptor;
};

std::variant<std::string, ReadError> ReadWhole(const std::string &path) {
    const FileDescriptor file{path};
    if (file.Get() < 0)
        return SystemError();
    std::string text;
    for (;;) {
        char block[1 << 16];
        const ssize_t count = read(file.Get(), block, sizeof block);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return SystemError();
        if (count == 0)
            return text;
        text.append(block, static_cast<std::size_t>(count));
        if (text.size() > largest_file)
            return ReadError{0, "larger than 256 megabytes"};
    }
}

// The number of the line in which a byte stands.
int LineAt(std::string_view text, std::size_t at) {
    return 1 + static_cast<int>(
                   std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(at), '\n'));
}

int LastLine(std::string_view text) {
    return LineAt(text, text.empty() ? 0 : text.size() - 1);
}

// ---- libcgraph -------------------------------------------------------------

// libcgraph hands its messages over in pieces: "Error", ": ", and the text.
std::string *messages = nullptr;

int KeepMessage(char *piece) {
    if (messages)
        *messages += piece;
    return 0;
}

class MessageCapture {
public:
    MessageCapture() : before(agseterrf(KeepMessage)) { messages = &text; }
    ~MessageCapture() {
        messages = nullptr;
        agseterrf(before);
    }
    MessageCapture(const MessageCapture &) = delete;
    MessageCapture &operator=(const MessageCapture &) = delete;

    // The first error; warnings before it are passed over.
    std::string FirstError() const {
        std::size_t at = text.find("Error: ");
        while (at != std::string::npos && at != 0 && text[at - 1] != '\n')
            at = text.find("Error: ", at + 1);
        if (at == std::string::npos)
            return {};
        return text.substr(at + 7, text.find('\n', at) - at - 7);
    }

private:
    std::string text;
    agusererrf before;
};

// Reads graph after graph to the end of the text: libcgraph's scanner would otherwise keep the
// rest for the next file.
std::vector<GraphHolder> ReadGraphs(std::string_view text) {
    agsetfile(nullptr);
    // A node of which the file says nothing shows its name.
    agattr(nullptr, AGNODE, const_cast<char *>("label"), const_cast<char *>("\\N"));
    std::vector<GraphHolder> graphs;
    while (Agraph_t *graph = ReadNext(text))
        graphs.emplace_back(graph);
    return graphs;
}

// libcgraph says "syntax error in line 3 near 'x'", at times with a file name before it.
ReadError SyntaxError(const std::string &message, int last_line) {
    constexpr std::string_view mark = " in line ";
    ReadError error{1, message};
    if (const std::size_t at = message.find(mark); at != std::string::npos) {
        char *end = nullptr;
        const long line = std::strtol(message.c_str() + at + mark.size(), &end, 10);
        error.line = static_cast<int>(std::clamp(line, 1L, static_cast<long>(last_line)));
        error.message = message.substr(0, at) + end;
    }
    if (const std::size_t at = error.message.find("syntax error"); at != std::string::npos)
        error.message.erase(0, at);
    if (error.message == "syntax error")
        error.message += " at the end of the file";
    for (char &c : error.message)
        if (static_cast<unsigned char>(c) < ' ' || c == 0x7F)
            c = '?';
    if (error.message.size() > longest_message)
        error.message.resize(longest_message);
    error.message = CleanUtf8(error.message, false);
    return error;
}

// ---- From libcgraph's graph to ours ----------------------------------------

void CopyNodes(const DotSource &source, const TextRules &rules, Graph &to) {
    const NodeAttributes attributes{source.Root(), rules};
    to.nodes.reserve(source.nodes.size());
    for (Agnode_t *node : source.nodes) {
        to.nodes.push_back(attributes.Read(node));
        to.placed = to.placed || to.nodes.back().place.has_value();
    }
}

// libcgraph numbers nodes as they appear, and gives them out in that order.
int IndexOf(const std::vector<Agnode_t *> &order, Agnode_t *node) {
    const auto before = [](Agnode_t *a, Agnode_t *b) { return AGSEQ(a) < AGSEQ(b); };
    return static_cast<int>(std::lower_bound(order.begin(), order.end(), node, before) -
                            order.begin());
}

std::vector<Agnode_t *> NodesInOrder(Agraph_t *graph) {
    std::vector<Agnode_t *> order;
    for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node))
        order.push_back(node);
    return order;
}

std::vector<Agedge_t *> EdgesInOrder(Agraph_t *graph) {
    std::vector<Agedge_t *> order;
    for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node))
        for (Agedge_t *edge = agfstout(graph, node); edge; edge = agnxtout(graph, edge))
            order.push_back(edge);
    return order;
}

void CopyEdges(const DotSource &source, const TextRules &rules, Graph &to) {
    const EdgeAttributes attributes{source.Root(), rules};
    to.edges.reserve(source.edges.size());
    for (Agedge_t *edge : source.edges) {
        Edge copy = attributes.Read(edge);
        copy.from = IndexOf(source.nodes, agtail(edge));
        copy.to = IndexOf(source.nodes, aghead(edge));
        if (copy.turned)
            std::swap(copy.from, copy.to);
        to.edges.push_back(std::move(copy));
    }
}

// A subgraph is a cluster by its name; inner ones come after the outer, and so have the last word.
void CopyClusters(const DotSource &source, const TextRules &rules, Graph &to) {
    for (Agraph_t *graph : SubgraphsOf(source.Root())) {
        if (!std::string_view{agnameof(graph)}.starts_with("cluster"))
            continue;
        const std::string label = ClusterLabel(graph, rules);
        for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node)) {
            Agnode_t *own = agsubnode(source.Root(), node, 0);
            to.nodes[static_cast<std::size_t>(IndexOf(source.nodes, own))].cluster = label;
        }
    }
}

Graph CopyGraph(std::unique_ptr<DotSource, DotSourceDeleter> source) {
    Agraph_t *root = source->Root();
    source->nodes = NodesInOrder(root);
    source->edges = EdgesInOrder(root);
    const TextRules rules = RulesOf(root);
    Graph to;
    to.name = rules.graph_name;
    to.directed = agisdirected(root) != 0;
    to.orientation = OrientationOf(root);
    to.graphs_in_file = static_cast<int>(source->graphs.size());
    CopyNodes(*source, rules, to);
    CopyEdges(*source, rules, to);
    CopyClusters(*source, rules, to);
    to.source = std::move(source);
    return to;
}

} // namespace

// ---- Public functions ------------------------------------------------------

std::variant<Graph, ReadError> ReadDotText(const std::string &text) {
    if (text.empty())
        return ReadError{1, "the file is empty"};
    if (const std::size_t zero = text.find('\0'); zero != std::string::npos)
        return ReadError{LineAt(text, zero), "not a DOT file: it holds a zero byte"};
    if (const auto fault = FindScanFault(text))
        return ReadError{LineAt(text, fault->at), fault->message};
    const MessageCapture capture;
    std::unique_ptr<DotSource, DotSourceDeleter> source{new DotSource};
    source->graphs = ReadGraphs(text);
    if (const std::string message = capture.FirstError(); !message.empty())
        return SyntaxError(message, LastLine(text));
    if (source->graphs.empty())
        return ReadError{LastLine(text), "no graph in the file"};
    return CopyGraph(std::move(source));
}

std::variant<Graph, ReadError> ReadDotFile(const std::string &path) {
    auto text = ReadWhole(path);
    if (auto *error = std::get_if<ReadError>(&text))
        return std::move(*error);
    return ReadDotText(std::get<std::string>(text));
}

std::string Describe(const std::string &path, const ReadError &error) {
    const std::string line = error.line > 0 ? std::to_string(error.line) + ": " : "";
    return path + ":" + (line.empty() ? " " : line) + error.message;
}

} // namespace graph_browser
