// Strings, HTML texts and comments of DOT, told apart as libcgraph's scanner does; what stands between them is
// passed over.

#include "DotScanner.h"

#include <algorithm>

namespace graph_browser {
namespace {

constexpr std::size_t none = std::string_view::npos;

std::size_t Behind(std::string_view text, std::string_view closing, std::size_t from) {
    const std::size_t at = text.find(closing, from);
    return at == none ? none : at + closing.size();
}

std::size_t BehindString(std::string_view text, std::size_t quote) {
    for (std::size_t at = quote + 1; at < text.size(); ++at) {
        if (text[at] == '"')
            return at + 1;
        if (text[at] == '\\')
            ++at;
    }
    return none;
}

std::size_t BehindHtml(std::string_view text, std::size_t bracket) {
    int depth = 0;
    for (std::size_t at = bracket; at < text.size(); ++at) {
        depth += text[at] == '<' ? 1 : text[at] == '>' ? -1 : 0;
        if (depth == 0)
            return at + 1;
    }
    return none;
}

struct Token {
    std::size_t end; // none if it is not closed
    const char *fault;
};

Token TokenAt(std::string_view text, std::size_t at) {
    const std::string_view rest = text.substr(at);
    if (rest.starts_with("/*"))
        return {Behind(text, "*/", at + 2), "a comment is not closed"};
    if (rest.starts_with("//") || rest.starts_with('#'))
        return {std::min(text.find('\n', at), text.size()), ""};
    if (rest.starts_with('"'))
        return {BehindString(text, at), "a string is not closed"};
    if (rest.starts_with('<'))
        return {BehindHtml(text, at), "an HTML text is not closed"};
    if (rest.starts_with('@'))
        return {none, "syntax error near '@'"};
    return {at + 1, ""};
}

} // namespace

std::optional<ScanFault> FindScanFault(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const Token token = TokenAt(text, at);
        if (token.end == none)
            return ScanFault{at, token.fault};
        at = token.end;
    }
    return std::nullopt;
}

} // namespace graph_browser
