#include "ResourceText.h"

#include <cstdio>

namespace form_designer {
namespace {

constexpr std::string_view blanks = " \t";

std::string_view WithoutBlanks(std::string_view text) {
    const auto begin = text.find_first_not_of(blanks);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
}

bool IsOctal(char c) {
    return c >= '0' && c <= '7';
}

// As the toolkit reads values: \n, \ooo, and any other character for itself.
std::string Unescape(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool octal = value[i] == '\\' && i + 3 < value.size() && IsOctal(value[i + 1]) &&
                           IsOctal(value[i + 2]) && IsOctal(value[i + 3]);
        if (octal) {
            result += static_cast<char>((value[i + 1] - '0') * 64 + (value[i + 2] - '0') * 8 +
                                        (value[i + 3] - '0'));
            i += 3;
        } else if (value[i] == '\\' && i + 1 < value.size()) {
            ++i;
            result += value[i] == 'n' ? '\n' : value[i];
        } else {
            result += value[i];
        }
    }
    return result;
}

// Blanks at both ends would not be kept, and control characters not be seen.
std::string Escape(std::string_view value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto c = static_cast<unsigned char>(value[i]);
        const bool at_end = i == 0 || i + 1 == value.size();
        if (c == '\n') {
            result += "\\n";
        } else if (c == '\\') {
            result += "\\\\";
        } else if (c < ' ' || c == 0x7f || (c == ' ' && at_end)) {
            char octal[5];
            std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned>(c));
            result += octal;
        } else {
            result += value[i];
        }
    }
    return result;
}

std::vector<std::string> Split(std::string_view path) {
    std::vector<std::string> words;
    for (std::size_t begin = 0; begin <= path.size();) {
        const auto end = std::min(path.find('.', begin), path.size());
        words.emplace_back(path.substr(begin, end - begin));
        begin = end + 1;
    }
    return words;
}

// An odd number of backslashes: an even one is escaped backslashes.
bool IsContinued(std::string_view one) {
    const auto last = one.find_last_not_of('\\');
    const auto backslashes = one.size() - (last == std::string_view::npos ? 0 : last + 1);
    return backslashes % 2 != 0;
}

} // namespace

std::string ResourceReader::TakeLogicalLine() {
    std::string logical;
    line = next_line;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view physical = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        ++next_line;
        if (!IsContinued(physical))
            return logical += physical;
        physical.remove_suffix(1);
        logical += physical;
    }
    return logical;
}

std::optional<ResourceLine> ResourceReader::Next() {
    while (!text.empty()) {
        const std::string logical = TakeLogicalLine();
        const std::string_view content = WithoutBlanks(logical);
        if (content.empty() || content.front() == '!')
            continue;
        const auto colon = content.find(':');
        if (content.front() != '*' || colon == std::string_view::npos) {
            problem = "'" + std::string(content.substr(0, 40)) + "' is no resource of a form";
            return std::nullopt;
        }
        return ResourceLine{line, Split(WithoutBlanks(content.substr(1, colon - 1))),
                            Unescape(WithoutBlanks(content.substr(colon + 1)))};
    }
    return std::nullopt;
}

std::string ResourceText(const std::vector<std::string> &path, std::string_view value) {
    std::string text;
    for (const std::string &word : path)
        text += (text.empty() ? "*" : ".") + word;
    return text + ": " + Escape(value) + '\n';
}

} // namespace form_designer
