// Reading has three steps: the file comes into memory whole, libcgraph makes its own graph of it,
// and that is copied into ours. libcgraph keeps its scanner, its error hook and its file name in
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

struct TextSource {
    std::string_view rest;
};

int ReadFromText(void *channel, char *buffer, int size) {
    auto &source = *static_cast<TextSource *>(channel);
    const std::size_t count = std::min(source.rest.size(), static_cast<std::size_t>(size));
    std::memcpy(buffer, source.rest.data(), count);
    source.rest.remove_prefix(count);
    return static_cast<int>(count);
}

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

struct GraphCloser {
    void operator()(Agraph_t *graph) const { agclose(graph); }
};
using GraphHolder = std::unique_ptr<Agraph_t, GraphCloser>;

// Reads graph after graph to the end of the text: libcgraph's scanner would otherwise keep the
// rest for the next file. Gives the first one and their number.
GraphHolder ReadGraphs(const std::string &text, int &count) {
    TextSource source{text};
    Agiodisc_t input = *AgDefaultDisc.io;
    input.afread = ReadFromText;
    Agdisc_t discipline{AgDefaultDisc.mem, AgDefaultDisc.id, &input};
    agsetfile(nullptr);
    // A node of which the file says nothing shows its name.
    agattr(nullptr, AGNODE, const_cast<char *>("label"), const_cast<char *>("\\N"));
    GraphHolder first;
    while (Agraph_t *graph = agread(&source, &discipline)) {
        GraphHolder holder{graph};
        if (count++ == 0)
            first = std::move(holder);
    }
    return first;
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

void CopyNodes(Agraph_t *from, const TextRules &rules, Graph &to) {
    const NodeAttributes attributes{from, rules};
    to.nodes.reserve(static_cast<std::size_t>(agnnodes(from)));
    for (Agnode_t *node = agfstnode(from); node; node = agnxtnode(from, node))
        to.nodes.push_back(attributes.Read(node));
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

void CopyEdges(Agraph_t *from, const TextRules &rules, const std::vector<Agnode_t *> &order,
               Graph &to) {
    const EdgeAttributes attributes{from, rules};
    to.edges.reserve(static_cast<std::size_t>(agnedges(from)));
    for (Agnode_t *node : order) {
        for (Agedge_t *edge = agfstout(from, node); edge; edge = agnxtout(from, edge)) {
            Edge copy = attributes.Read(edge);
            copy.from = IndexOf(order, agtail(edge));
            copy.to = IndexOf(order, aghead(edge));
            if (attributes.PointsBack(edge))
                std::swap(copy.from, copy.to);
            to.edges.push_back(std::move(copy));
        }
    }
}

// A subgraph is a cluster by its name; inner ones come after the outer, and so have the last word.
void CopyClusters(Agraph_t *from, const TextRules &rules, const std::vector<Agnode_t *> &order,
                  Graph &to) {
    std::vector<Agraph_t *> waiting{from};
    while (!waiting.empty()) {
        Agraph_t *graph = waiting.back();
        waiting.pop_back();
        for (Agraph_t *inner = agfstsubg(graph); inner; inner = agnxtsubg(inner))
            waiting.push_back(inner);
        if (graph == from || !std::string_view{agnameof(graph)}.starts_with("cluster"))
            continue;
        const std::string label = ClusterLabel(graph, rules);
        for (Agnode_t *node = agfstnode(graph); node; node = agnxtnode(graph, node))
            to.nodes[static_cast<std::size_t>(IndexOf(order, agsubnode(from, node, 0)))].cluster =
                label;
    }
}

Graph CopyGraph(Agraph_t *from) {
    const TextRules rules = RulesOf(from);
    const std::vector<Agnode_t *> order = NodesInOrder(from);
    Graph to;
    to.name = rules.graph_name;
    to.directed = agisdirected(from) != 0;
    to.orientation = OrientationOf(from);
    CopyNodes(from, rules, to);
    CopyEdges(from, rules, order, to);
    CopyClusters(from, rules, order, to);
    return to;
}

} // namespace

// ---- Public functions ------------------------------------------------------

std::variant<Graph, ReadError> ReadDotText(const std::string &text) {
    if (text.empty())
        return ReadError{1, "the file is empty"};
    if (const std::size_t zero = text.find('\0'); zero != std::string::npos)
        return ReadError{LineAt(text, zero), "not a DOT file: it holds a zero byte"};
    const MessageCapture capture;
    int count = 0;
    const GraphHolder first = ReadGraphs(text, count);
    if (const std::string message = capture.FirstError(); !message.empty())
        return SyntaxError(message, LastLine(text));
    if (!first)
        return ReadError{LastLine(text), "no graph in the file"};
    Graph graph = CopyGraph(first.get());
    graph.graphs_in_file = count;
    return graph;
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
