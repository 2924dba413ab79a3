#include <tests/storm/Words.h>

#include <Xm/Xm.h>

#include <climits>

namespace corvidlmw::storm {

std::string WordFor(int number) {
    return std::to_string(number);
}

std::string WidgetWord(int id) {
    return "@" + std::to_string(id);
}

std::string DyingWord(int id) {
    return "~" + std::to_string(id);
}

std::string SmallNumber(Chance &chance, int low, int high) {
    return WordFor(chance.Between(low, high));
}

std::string AnyNumber(Chance &chance) {
    static constexpr int numbers[] = {
        0,     1,     -1,    2,       3,       7,     100,    255,     256, 32767,       -32768,
        32768, 65535, 65536, INT_MAX, INT_MIN, -1000, 100000, 1 << 30, -2,  INT_MAX - 1, 987654321};
    return chance.OneIn(2) ? SmallNumber(chance, -3, 40) : WordFor(chance.Of(numbers));
}

std::string AnyPlace(Chance &chance) {
    static constexpr int places[] = {-32768, -1, 0, 32767, 32000, -20000, 5000};
    return chance.OneIn(6) ? WordFor(chance.Of(places)) : SmallNumber(chance, -40, 500);
}

std::string AnyExtent(Chance &chance) {
    static constexpr int extents[] = {1, 2, 3, 8, 1000, 5000, 32767, 32766};
    return chance.OneIn(4) ? WordFor(chance.Of(extents)) : SmallNumber(chance, 1, 400);
}

std::string AnyLabel(Chance &chance) {
    static const std::string labels[] = {"",
                                         "x",
                                         "row0",
                                         "row1",
                                         "row5",
                                         "row7",
                                         "two\nlines",
                                         "\t\ttab",
                                         "a\n\n\n\nb",
                                         std::string(400, 'w'),
                                         "\xc3\xa4\xe2\x82\xac \xf0\x9f\x98\x80",
                                         "\xff\xfe\x80 broken",
                                         "(paren) \\ %s%n",
                                         " ",
                                         "\n",
                                         std::string(60, '\n'),
                                         "\x01\x02\x1b[0m"};
    return chance.OneIn(2) ? Quote("row" + SmallNumber(chance, 0, 20)) : Quote(chance.Of(labels));
}

namespace {

std::string AnyGarbage(Chance &chance) {
    static const std::string texts[] = {
        "",      " ",     "garbage", "-1",   "0",        "1",        "99999999999999999999",
        "true",  "FALSE", "nil",     "NULL", "%s%n%s",   "\xff\xfe", std::string(3000, 'a'),
        "1e9",   "0x10",  "1,2,3",   "10in", "1000mm",   "-32769",   "65536",
        "a b c", "\n",    "#",       "*",    "XtDefault"};
    return chance.Of(texts);
}

} // namespace

std::string AnyResourceText(Chance &chance, const std::string &type) {
    if (chance.OneIn(3))
        return Quote(AnyGarbage(chance));
    if (type == XmRPixel)
        return Quote(
            chance.Of({"red", "#123", "#ffffffffffff", "grey50", "no such colour", "White"}));
    if (type == XmRFontList || type == XmRRenderTable)
        return Quote(chance.Of({"fixed", "no-such-font", "9x15=a,fixed=b", "fixed;:", "=", "*-*"}));
    if (type == XmRCursor)
        return Quote(chance.Of({"arrow", "watch", "no such cursor", "fleur"}));
    static const std::string names[] = {"never",
                                        "always",
                                        "arcs_only",
                                        "nodes_only",
                                        "partial",
                                        "graph",
                                        "butterfly",
                                        "position_fixed",
                                        "position_relative",
                                        "position_proportional",
                                        "directed",
                                        "undirected",
                                        "bidirected",
                                        "LineSolid",
                                        "LineOnOffDash",
                                        "LineDoubleDash",
                                        "CapButt",
                                        "CapRound",
                                        "horizontal",
                                        "vertical",
                                        "icon_top",
                                        "icon_bottom",
                                        "icon_left",
                                        "icon_right",
                                        "alignment_center",
                                        "single_select",
                                        "extended_select",
                                        "multiple_select",
                                        "browse_select",
                                        "constant",
                                        "variable",
                                        "resize_if_possible",
                                        "static",
                                        "as_needed",
                                        "shadow_in",
                                        "shadow_etched_out",
                                        "max_on_left",
                                        "string_direction_r_to_l",
                                        "pixels",
                                        "100th_millimeters",
                                        "100th_font_units",
                                        "NorthGravity",
                                        "SouthEastGravity"};
    return Quote(chance.Of(names));
}

} // namespace corvidlmw::storm
