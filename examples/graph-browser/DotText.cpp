#include "DotText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

#include "Utf8.h"

namespace graph_browser {
namespace {

// ---- Entities --------------------------------------------------------------

struct Entity {
    std::string_view name;
    std::uint32_t code;
};

constexpr std::array entities{
    Entity{"amp", '&'},      Entity{"lt", '<'},      Entity{"gt", '>'},
    Entity{"quot", '"'},     Entity{"apos", '\''},   Entity{"nbsp", ' '},
    Entity{"copy", 0xA9},    Entity{"reg", 0xAE},    Entity{"deg", 0xB0},
    Entity{"middot", 0xB7},  Entity{"times", 0xD7},  Entity{"ndash", 0x2013},
    Entity{"mdash", 0x2014}, Entity{"bull", 0x2022}, Entity{"hellip", 0x2026},
    Entity{"larr", 0x2190},  Entity{"rarr", 0x2192}, Entity{"harr", 0x2194},
};

std::optional<std::uint32_t> NumericEntity(std::string_view digits) {
    const bool hexadecimal = !digits.empty() && (digits[0] == 'x' || digits[0] == 'X');
    if (hexadecimal)
        digits.remove_prefix(1);
    std::uint32_t code = 0;
    const char *end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, code, hexadecimal ? 16 : 10);
    const bool character = code != 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    if (error != std::errc{} || stop != end || !character)
        return std::nullopt;
    return code;
}

std::optional<std::uint32_t> EntityCode(std::string_view name) {
    if (!name.empty() && name[0] == '#')
        return NumericEntity(name.substr(1));
    const auto *found = std::find_if(entities.begin(), entities.end(),
                                     [name](const Entity &entity) { return entity.name == name; });
    if (found == entities.end())
        return std::nullopt;
    return found->code;
}

// Appends the entity at `at` (an ampersand) and gives the place behind it; an ampersand that
// begins none stands for itself.
std::size_t AppendEntity(std::string &out, std::string_view text, std::size_t at) {
    const std::size_t end = text.substr(at, 12).find(';');
    if (end != std::string_view::npos) {
        if (const auto code = EntityCode(text.substr(at + 1, end - 1))) {
            AppendCodePoint(out, *code);
            return at + end + 1;
        }
    }
    out += '&';
    return at + 1;
}

// ---- Escapes ---------------------------------------------------------------

std::string_view NameOfEscape(char escape, const LabelNames &names) {
    switch (escape) {
    case 'G': return names.graph;
    case 'N': return names.node;
    case 'E': return names.edge;
    case 'T': return names.tail;
    case 'H': return names.head;
    default: return {};
    }
}

// Gathers the text of one label and how its lines were ended.
struct LabelBuilder {
    LabelText label;
    int left_breaks = 0;
    int other_breaks = 0;

    void BreakLine(char kind) {
        label.text += '\n';
        ++(kind == 'l' ? left_breaks : other_breaks);
    }

    void Escape(char escape, const LabelNames &names) {
        if (escape == 'n' || escape == 'l' || escape == 'r')
            return BreakLine(escape);
        if (std::string_view{"GNETH"}.find(escape) != std::string_view::npos)
            label.text += NameOfEscape(escape, names);
        else
            label.text += escape;
    }

    // \l and \r end a line, so that the last of them begins none.
    LabelText Finished() {
        if (!label.text.empty() && label.text.back() == '\n')
            label.text.pop_back();
        label.left_aligned = left_breaks > 0 && other_breaks == 0;
        return std::move(label);
    }
};

void TrimBlanks(std::string &text) {
    while (!text.empty() && text.back() == ' ')
        text.pop_back();
}

// Runs of white space count as one blank, and none begins a line.
void AppendCollapsed(std::string &out, char c) {
    const bool blank = c == ' ' || c == '\t' || c == '\n' || c == '\r';
    if (!blank)
        out += c;
    else if (!out.empty() && out.back() != ' ' && out.back() != '\n')
        out += ' ';
}

std::size_t PastClosing(std::string_view text, std::size_t at, std::string_view closing) {
    const std::size_t end = text.find(closing, at);
    return end == std::string_view::npos ? text.size() : end + closing.size();
}

// ---- Records ---------------------------------------------------------------

void AppendRecordCharacter(std::string &text, char c, bool side_by_side) {
    if (c == '{' || c == '}')
        return;
    if (c != '|')
        return AppendCollapsed(text, c);
    TrimBlanks(text);
    // A field whose last line was ended already is not followed by an empty one.
    if (!text.ends_with('\n'))
        text += side_by_side ? " | " : "\n";
}

// ---- HTML ------------------------------------------------------------------

std::string LowerCase(std::string_view text) {
    std::string lower{text};
    for (char &c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

std::string TagName(std::string_view tag) {
    const std::size_t end = tag.find_first_of(" \t\r\n/", tag.starts_with('/') ? 1 : 0);
    return LowerCase(tag.substr(0, end));
}

void ApplyTag(std::string &out, std::string_view tag) {
    const std::string name = TagName(tag);
    if (name == "br" || name == "/tr" || name == "/table") {
        TrimBlanks(out);
        const bool table = name != "br";
        if (!table || (!out.empty() && out.back() != '\n'))
            out += '\n';
    } else if (name == "/td") {
        AppendCollapsed(out, ' ');
    }
}

} // namespace

// ---- Public functions ------------------------------------------------------

LabelText PlainLabel(std::string_view label, const LabelNames &names) {
    LabelBuilder builder;
    for (std::size_t i = 0; i < label.size();) {
        if (label[i] == '\\' && i + 1 < label.size()) {
            builder.Escape(label[i + 1], names);
            i += 2;
        } else if (label[i] == '&') {
            i = AppendEntity(builder.label.text, label, i);
        } else if (label[i] == '\n') {
            builder.BreakLine('n');
            ++i;
        } else {
            builder.label.text += label[i++];
        }
    }
    return builder.Finished();
}

LabelText RecordLabel(std::string_view label, const LabelNames &names) {
    LabelBuilder builder;
    bool side_by_side = true;
    for (std::size_t i = 0; i < label.size();) {
        const char c = label[i];
        if (c == '\\' && i + 1 < label.size()) {
            builder.Escape(label[i + 1], names);
            i += 2;
        } else if (c == '&') {
            i = AppendEntity(builder.label.text, label, i);
        } else if (c == '<') {
            i = PastClosing(label, i, ">");
        } else {
            if (c == '{' || c == '}')
                side_by_side = !side_by_side;
            AppendRecordCharacter(builder.label.text, c, side_by_side);
            ++i;
        }
    }
    TrimBlanks(builder.label.text);
    return builder.Finished();
}

std::string HtmlLabel(std::string_view label) {
    std::string out;
    for (std::size_t i = 0; i < label.size();) {
        if (label.substr(i).starts_with("<!--")) {
            i = PastClosing(label, i, "-->");
        } else if (label[i] == '<') {
            const std::size_t end = std::min(label.find('>', i), label.size());
            ApplyTag(out, label.substr(i + 1, end - i - 1));
            i = std::min(end + 1, label.size());
        } else if (label[i] == '&') {
            i = AppendEntity(out, label, i);
        } else {
            AppendCollapsed(out, label[i++]);
        }
    }
    while (!out.empty() && (out.back() == ' ' || out.back() == '\n'))
        out.pop_back();
    return out;
}

} // namespace graph_browser
