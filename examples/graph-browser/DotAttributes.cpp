#include "DotAttributes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <system_error>

#include "DotSource.h"
#include "Utf8.h"

namespace graph_browser {
namespace {

constexpr double widest_line = 20.0;

// ---- Values ----------------------------------------------------------------

// The raw value of an attribute; empty when the graph never speaks of it. It lives as long as the
// graph.
char *RawValue(void *object, Agsym_t *symbol) {
    return symbol ? agxget(object, symbol) : nullptr;
}

std::string_view Value(void *object, Agsym_t *symbol) {
    const char *value = RawValue(object, symbol);
    return value ? std::string_view{value} : std::string_view{};
}

Agsym_t *Find(Agraph_t *graph, int kind, const char *name) {
    return agattr(agroot(graph), kind, const_cast<char *>(name), nullptr);
}

bool IsDelimiter(char c) {
    return c == ',' || c == ' ' || c == ';';
}

// Whether a style such as "bold,dashed" names this one.
bool HasStyle(std::string_view styles, std::string_view wanted) {
    while (!styles.empty()) {
        const auto *end = std::find_if(styles.begin(), styles.end(), IsDelimiter);
        const auto length = static_cast<std::size_t>(end - styles.begin());
        if (styles.substr(0, length) == wanted)
            return true;
        styles.remove_prefix(std::min(length + 1, styles.size()));
    }
    return false;
}

bool ParseNumber(std::string_view &text, double &number) {
    while (!text.empty() && IsDelimiter(text[0]))
        text.remove_prefix(1);
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || !std::isfinite(number))
        return false;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return true;
}

std::optional<Place> ParsePlace(std::string_view text) {
    double x = 0;
    double y = 0;
    if (!ParseNumber(text, x) || !ParseNumber(text, y))
        return std::nullopt;
    const auto bounded = [](double at) { return static_cast<int>(std::clamp(at, 0.0, 32767.0)); };
    return Place{bounded(x), bounded(y)};
}

// ---- Colours ---------------------------------------------------------------

std::string HexColor(double red, double green, double blue) {
    const auto byte = [](double part) { return static_cast<unsigned>(std::lround(part * 255.0)); };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", byte(red), byte(green), byte(blue));
    return text;
}

std::string HsvColor(double hue, double saturation, double value) {
    // Each channel is a trapezoid over the hue circle, a third of it apart from the next.
    const auto channel = [=](double offset) {
        const double place = std::fmod(offset + hue * 6.0, 6.0);
        const double drop = std::max(0.0, std::min({place, 4.0 - place, 1.0}));
        return value - value * saturation * drop;
    };
    return HexColor(channel(5.0), channel(3.0), channel(1.0));
}

std::optional<std::string> ParseHsv(std::string_view text) {
    std::array<double, 3> parts{};
    for (double &part : parts) {
        if (!ParseNumber(text, part))
            return std::nullopt;
        part = std::clamp(part, 0.0, 1.0);
    }
    return HsvColor(parts[0], parts[1], parts[2]);
}

bool IsHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

// ---- Edges -----------------------------------------------------------------

LineKind LineOf(std::string_view style) {
    if (HasStyle(style, "dashed"))
        return LineKind::Dashed;
    if (HasStyle(style, "dotted"))
        return LineKind::Dotted;
    return LineKind::Solid;
}

// The server's thinnest line stands for a width of one.
int WidthOf(std::string_view pen_width, std::string_view style) {
    double width = HasStyle(style, "bold") ? 2.0 : 1.0;
    ParseNumber(pen_width, width);
    const auto pixels = static_cast<int>(std::lround(std::clamp(width, 0.0, widest_line)));
    return pixels > 1 ? pixels : 0;
}

Direction DirectionOf(std::string_view dir, bool directed) {
    if (dir == "both")
        return Direction::Both;
    if (dir == "none")
        return Direction::Neither;
    if (dir == "forward" || dir == "back")
        return Direction::Forward;
    return directed ? Direction::Forward : Direction::Neither;
}

} // namespace

// ---- Public functions ------------------------------------------------------

TextRules RulesOf(Agraph_t *graph) {
    const std::string_view charset = Value(graph, Find(graph, AGRAPH, "charset"));
    TextRules rules;
    rules.latin1 = charset == "latin1" || charset == "latin-1" || charset == "iso-8859-1" ||
                   charset == "ISO-8859-1" || charset == "ISO_8859-1";
    // libcgraph calls a graph without a name %1, %2 and so on.
    const std::string_view name = agnameof(graph);
    if (!name.starts_with('%'))
        rules.graph_name = CleanUtf8(name, rules.latin1);
    return rules;
}

std::optional<Orientation> OrientationOf(Agraph_t *graph) {
    const std::string_view direction = Value(graph, Find(graph, AGRAPH, "rankdir"));
    if (direction == "LR" || direction == "RL")
        return Orientation::Horizontal;
    if (direction == "TB" || direction == "BT")
        return Orientation::Vertical;
    return std::nullopt;
}

std::string ClusterLabel(Agraph_t *cluster, const TextRules &rules) {
    char *label = RawValue(cluster, Find(cluster, AGRAPH, "label"));
    const char *name = agnameof(cluster);
    if (!label || !*label)
        return CleanUtf8(name, rules.latin1);
    if (aghtmlstr(label))
        return LimitedLines(HtmlLabel(CleanUtf8(label, rules.latin1)));
    const LabelNames names{.graph = name, .node = {}, .edge = {}, .tail = {}, .head = {}};
    return LimitedLines(PlainLabel(CleanUtf8(label, rules.latin1), names).text);
}

std::string XColorName(std::string_view color) {
    color = color.substr(0, color.find(':'));
    color = color.substr(0, color.find(';'));
    if (color.starts_with('/'))
        color.remove_prefix(color.rfind('/') + 1);
    if (color.empty() || color == "transparent" || color == "none")
        return {};
    if (color[0] == '#') {
        const std::string_view digits = color.substr(1);
        if (!std::all_of(digits.begin(), digits.end(), IsHexDigit))
            return {};
        // The last two of eight digits and the last of four are the opacity.
        if (digits.size() == 6 || digits.size() == 8)
            return "#" + std::string{digits.substr(0, 6)};
        if (digits.size() == 3 || digits.size() == 4)
            return "#" + std::string{digits.substr(0, 3)};
        return {};
    }
    if (auto hsv = ParseHsv(color))
        return *hsv;
    return std::string{color};
}

NodeAttributes::NodeAttributes(Agraph_t *graph, const TextRules &text_rules)
    : rules(text_rules), label(Find(graph, AGNODE, "label")), shape(Find(graph, AGNODE, "shape")),
      style(Find(graph, AGNODE, "style")), color(Find(graph, AGNODE, "color")),
      fill_color(Find(graph, AGNODE, "fillcolor")), font_color(Find(graph, AGNODE, "fontcolor")),
      place(Find(graph, AGNODE, place_attribute)) {}

LabelText NodeAttributes::Label(Agnode_t *node, std::string_view name) const {
    char *raw = RawValue(node, label);
    if (!raw)
        return {std::string{name}, false};
    const std::string text = CleanUtf8(raw, rules.latin1);
    if (aghtmlstr(raw))
        return {HtmlLabel(text), false};
    const LabelNames names{
        .graph = rules.graph_name, .node = name, .edge = {}, .tail = {}, .head = {}};
    const std::string_view kind = Value(node, shape);
    return kind == "record" || kind == "Mrecord" ? RecordLabel(text, names)
                                                 : PlainLabel(text, names);
}

Node NodeAttributes::Read(Agnode_t *node) const {
    Node read;
    read.name = CleanUtf8(agnameof(node), rules.latin1);
    const LabelText text = Label(node, read.name);
    read.label = LimitedLines(text.text);
    read.left_aligned = text.left_aligned;
    const std::string_view styles = Value(node, style);
    read.visible = !HasStyle(styles, "invis");
    read.fill = XColorName(Value(node, fill_color));
    if (read.fill.empty())
        read.fill = XColorName(Value(node, color));
    if (read.fill.empty() && HasStyle(styles, "filled"))
        read.fill = "lightgrey";
    read.text_color = XColorName(Value(node, font_color));
    read.shape = Value(node, shape);
    read.place = ParsePlace(Value(node, place));
    return read;
}

EdgeAttributes::EdgeAttributes(Agraph_t *graph, const TextRules &text_rules)
    : rules(text_rules), directed(agisdirected(graph) != 0), label(Find(graph, AGEDGE, "label")),
      external_label(Find(graph, AGEDGE, "xlabel")), style(Find(graph, AGEDGE, "style")),
      color(Find(graph, AGEDGE, "color")), pen_width(Find(graph, AGEDGE, "penwidth")),
      dir(Find(graph, AGEDGE, "dir")) {}

std::string EdgeAttributes::Label(Agedge_t *edge) const {
    char *raw = RawValue(edge, label);
    if (!raw || !*raw)
        raw = RawValue(edge, external_label);
    if (!raw || !*raw)
        return {};
    const std::string text = CleanUtf8(raw, rules.latin1);
    if (aghtmlstr(raw))
        return LimitedLines(HtmlLabel(text));
    const std::string tail = CleanUtf8(agnameof(agtail(edge)), rules.latin1);
    const std::string head = CleanUtf8(agnameof(aghead(edge)), rules.latin1);
    const std::string both = tail + (directed ? "->" : "--") + head;
    return LimitedLines(PlainLabel(text, {rules.graph_name, {}, both, tail, head}).text);
}

Edge EdgeAttributes::Read(Agedge_t *edge) const {
    Edge read;
    const std::string_view styles = Value(edge, style);
    read.label = Label(edge);
    read.color = XColorName(Value(edge, color));
    read.direction = DirectionOf(Value(edge, dir), directed);
    read.line = LineOf(styles);
    read.width = WidthOf(Value(edge, pen_width), styles);
    read.visible = !HasStyle(styles, "invis");
    read.turned = Value(edge, dir) == "back";
    return read;
}

} // namespace graph_browser
