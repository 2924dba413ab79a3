#include "DotEscapes.h"

#include <cstdint>

#include "Utf8.h"

namespace graph_browser {
namespace {

bool IsAscii(char c) {
    return static_cast<unsigned char>(c) < 0x80;
}

// Takes the first character off well-formed UTF-8.
std::uint32_t TakeCodePoint(std::string_view &text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    std::uint32_t code = lead < 0x80   ? lead
                         : lead < 0xE0 ? lead & 0x1F
                         : lead < 0xF0 ? lead & 0x0F
                                       : lead & 0x07;
    text.remove_prefix(1);
    while (!text.empty() && (static_cast<unsigned char>(text[0]) & 0xC0) == 0x80) {
        code = (code << 6) | (static_cast<unsigned char>(text[0]) & 0x3F);
        text.remove_prefix(1);
    }
    return code;
}

// What Latin-1 has no byte for becomes an entity.
std::string ToLatin1(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::uint32_t code = TakeCodePoint(text);
        if (code < 0x80 || (code >= 0xA0 && code < 0x100))
            out += static_cast<char>(code);
        else
            out += "&#" + std::to_string(code) + ";";
    }
    return out;
}

void AppendEscaped(std::string &out, std::string_view rest, LabelKind kind) {
    const char c = rest[0];
    if (c == '\n')
        out += "\\n";
    else if (c == '&' && rest.find(';') != std::string_view::npos)
        out += "&amp;";
    else if (c == '\\' || (kind == LabelKind::Record &&
                           std::string_view{"{}|<> "}.find(c) != std::string_view::npos))
        (out += '\\') += c;
    else
        out += c;
}

} // namespace

std::string EscapedLabel(std::string_view text, LabelKind kind, bool latin1) {
    const std::string clean = CleanUtf8(text, false);
    std::string escaped;
    for (std::size_t i = 0; i < clean.size(); ++i)
        AppendEscaped(escaped, std::string_view{clean}.substr(i), kind);
    return latin1 ? ToLatin1(escaped) : escaped;
}

// libcgraph makes up names that begin with '%', and cannot quote a backslash in a name.
bool CanBeName(std::string_view text, bool latin1) {
    if (text.empty() || text[0] == '%' || CleanUtf8(text, false) != text)
        return false;
    if (text.find_first_of("\\\n") != std::string_view::npos)
        return false;
    for (const char c : text)
        if (latin1 && !IsAscii(c))
            return false;
    return true;
}

} // namespace graph_browser
