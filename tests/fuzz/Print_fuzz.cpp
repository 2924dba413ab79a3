// The printed file of graphs with any labels: it is read as PostScript as far as comments, numbers, names
// and strings go. Each line of the input is a node: place, size and, behind a colon, its label.
#include <tests/fuzz/Client.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include <Xm/LabelG.h>

#include <algorithm>
#include <array>
#include <sys/mman.h>
#include <unistd.h>

using namespace corvidlmw;
using namespace corvidlmw::fuzz;

namespace {

using Texts = std::vector<std::string>;

// ---- The graph ------------------------------------------------------------------------------------

struct Node {
    Rectangle place;
    std::string label;
};

Node ReadNode(const std::string &line) {
    const std::size_t colon = std::min(line.find(':'), line.size());
    Input numbers(std::string_view(line).substr(0, colon));
    Node node;
    node.place = {numbers.Between(-100, 4000), numbers.Between(-100, 4000), numbers.Between(1, 700),
                  numbers.Between(1, 900)};
    node.label = line.substr(std::min(colon + 1, line.size()));
    return node;
}

Widget MakeNode(Widget graph, const Node &node) {
    XmString label = XmStringCreateLocalized(Name(node.label.c_str()));
    const auto &[x, y, width, height] = node.place;
    Widget made = XtVaCreateManagedWidget("node", xmLabelGadgetClass, graph, XmNx, x, XmNy, y,
                                          XmNwidth, width, XmNheight, height, XmNrecomputeSize,
                                          False, XmNlabelString, label, nullptr);
    XmStringFree(label);
    return made;
}

std::string Printed(Widget graph) {
    static const int file = memfd_create("graph.ps", 0);
    static const std::string name = "/proc/self/fd/" + std::to_string(file);
    XmGraphPrint(graph, name.c_str());
    std::string text(static_cast<std::size_t>(lseek(file, 0, SEEK_END)), '\0');
    Require(pread(file, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()));
    return text;
}

// ---- The file -----------------------------------------------------------------------------------------

// A label is written as it is, so one with an open parenthesis or a backslash at its end spoils what follows.
bool IsTame(const std::string &line) {
    int depth = 0;
    for (std::size_t i = 0; i < line.size(); i++) {
        if (line[i] == '\\') {
            i++;
            if (i == line.size()) {
                return false;
            }
        } else if (line[i] == '(') {
            depth++;
        } else if (line[i] == ')' && --depth < 0) {
            return false;
        }
    }
    return depth == 0;
}

// The strings as they are written, and all else between white space.
struct Tokens {
    Texts strings, words;
};

std::size_t EndOfString(const std::string &text, std::size_t start) {
    int depth = 0;
    for (std::size_t at = start; at < text.size(); at++) {
        if (text[at] == '\\') {
            at++;
        } else if (text[at] == '(') {
            depth++;
        } else if (text[at] == ')' && --depth == 0) {
            return at;
        }
    }
    Require(false);
    return text.size();
}

Tokens TokensOf(const std::string &text) {
    Tokens tokens;
    constexpr const char *delimiters = " \n()%{}";
    for (std::size_t at = 0; at < text.size(); at++) {
        const char c = text[at];
        if (c == '%') {
            at = std::min(text.find('\n', at), text.size());
        } else if (c == '(') {
            const std::size_t end = EndOfString(text, at);
            tokens.strings.push_back(text.substr(at + 1, end - at - 1));
            at = end;
        } else if (c != ' ' && c != '\n') {
            const std::size_t end = std::min(text.find_first_of(delimiters, at + 1), text.size());
            tokens.words.push_back(text.substr(at, end - at));
            at = end - 1;
        }
    }
    return tokens;
}

bool IsWord(const std::string &word) {
    constexpr std::array operators = {"moveto",  "show",      "square",    "arrow",
                                      "neg",     "rlineto",   "closepath", "clip",
                                      "newpath", "translate", "showpage"};
    return word.find_first_not_of("-0123456789") == std::string::npos ||
           std::find(operators.begin(), operators.end(), word) != operators.end();
}

// A label with tabs falls into segments in the toolkit's own way.
Texts SegmentsOf(const std::string &label) {
    if (label.find('\t') != std::string::npos) {
        return {};
    }
    Texts lines(1);
    for (const char c : label) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

void CheckHeader(const std::string &text) {
    Require(text.starts_with("%!\n%%BoundingBox: 0 0 "));
    const std::size_t end = text.find("%%EndComments\n");
    Require(end != std::string::npos && end < 100);
    for (std::size_t line = 0; line < end; line = text.find('\n', line) + 1) {
        Require(text[line] == '%');
    }
}

// Each node is in the file on one sheet at least, if it lies on the paper, and nothing but nodes and sheets is.
void CheckSheets(const std::string &text, const std::vector<Node> &nodes) {
    const std::size_t prolog = text.find("\nend\n} def\n");
    Require(prolog != std::string::npos);
    const Tokens tokens = TokensOf(text.substr(prolog + 11));
    Require(std::all_of(tokens.words.begin(), tokens.words.end(), IsWord));
    const auto sheets = std::count(tokens.words.begin(), tokens.words.end(), "showpage");
    Require(sheets >= 1 && tokens.words.back() == "showpage");
    const auto shown = std::count(tokens.words.begin(), tokens.words.end(), "show");
    Require(shown == static_cast<long>(tokens.strings.size()));
    for (const Node &node : nodes) {
        const bool on_paper = node.place.x >= 0 && node.place.y >= 0;
        for (const std::string &segment : SegmentsOf(node.label)) {
            Require(!on_paper || std::find(tokens.strings.begin(), tokens.strings.end(), segment) !=
                                     tokens.strings.end());
        }
    }
}

void CheckRaw(const std::string &text, const Node &node) {
    for (const std::string &segment : SegmentsOf(node.label)) {
        Require(node.place.x < 0 || node.place.y < 0 ||
                text.find(" moveto (" + segment + ") show\n") != std::string::npos);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const Owned graph(XtVaCreateWidget("graph", xmGraphWidgetClass, Stage(), XmNautoLayoutMode,
                                       XmNEVER, nullptr));
    std::vector<Node> nodes;
    Widget last = nullptr;
    for (const std::string &line : LinesOf(data, size)) {
        if (nodes.size() == 12) {
            break;
        }
        nodes.push_back(ReadNode(line));
        Widget node = MakeNode(graph, nodes.back());
        if (last) {
            XmCreateAttachedArc(graph, Name("arc"), last, node, nullptr, 0);
        }
        last = node;
    }
    if (nodes.empty()) {
        return 0;
    }
    const std::string text = Printed(graph);
    CheckHeader(text);
    for (const Node &node : nodes) {
        CheckRaw(text, node);
    }
    const bool tame = std::all_of(nodes.begin(), nodes.end(), [](const Node &node) {
        const Texts segments = SegmentsOf(node.label);
        return !segments.empty() && std::all_of(segments.begin(), segments.end(), IsTame);
    });
    if (tame) {
        CheckSheets(text, nodes);
    }
    return 0;
}
