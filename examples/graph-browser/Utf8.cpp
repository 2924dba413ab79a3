#include "Utf8.h"

#include <algorithm>

namespace graph_browser {
namespace {

constexpr std::size_t longest_line = 160;
constexpr int most_lines = 60;

bool IsContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Length of the well-formed sequence that `text` begins with, 0 if there is none. Overlong forms,
// surrogates and values above 0x10FFFF are refused by the range of the second byte.
std::size_t SequenceLength(std::string_view text) {
    const auto lead = static_cast<unsigned char>(text[0]);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead < 0xC2   ? 0
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length == 0 || text.size() < length)
        return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    if ((lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
        (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F))
        return 0;
    const std::string_view rest = text.substr(1, length - 1);
    return std::all_of(rest.begin(), rest.end(), IsContinuation) ? length : 0;
}

} // namespace

void AppendCodePoint(std::string &out, std::uint32_t code) {
    const auto byte = [&out](std::uint32_t value) { out += static_cast<char>(value); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | (code >> 18));
        byte(0x80 | ((code >> 12) & 0x3F));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

std::string CleanUtf8(std::string_view text, bool latin1) {
    std::string out;
    while (!text.empty()) {
        const std::size_t length = latin1 ? 0 : SequenceLength(text);
        const auto first = static_cast<unsigned char>(text[0]);
        if (first == '\t')
            out += ' ';
        else if (length > 1)
            out += text.substr(0, length);
        else if (first == '\n' ||
                 (first >= ' ' && first != 0x7F && (first < 0x80 || first >= 0xA0)))
            AppendCodePoint(out, first);
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return out;
}

std::string LimitedLines(std::string_view text) {
    std::string out;
    for (int line = 0; line < most_lines; ++line) {
        const std::size_t end = text.find('\n');
        std::string_view shown = text.substr(0, end);
        const bool cut = shown.size() > longest_line;
        if (cut)
            shown = shown.substr(0, longest_line);
        // A character is never cut in two.
        if (cut && text.size() > longest_line && IsContinuation(text[longest_line])) {
            while (!shown.empty() && IsContinuation(shown.back()))
                shown.remove_suffix(1);
            if (!shown.empty())
                shown.remove_suffix(1);
        }
        out += shown;
        if (cut)
            out += "\u2026";
        if (end == std::string_view::npos)
            return out;
        text.remove_prefix(end + 1);
        out += '\n';
    }
    return out + "\u2026";
}

} // namespace graph_browser
