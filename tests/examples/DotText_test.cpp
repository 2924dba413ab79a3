#include <gtest/gtest.h>

#include <DotText.h>
#include <Utf8.h>

namespace graph_browser {
namespace {

const LabelNames names{.graph = "G", .node = "node", .edge = "t->h", .tail = "t", .head = "h"};

TEST(DotText, EscapesAndEntitiesAreExpanded) {
    EXPECT_EQ(PlainLabel("\\N in \\G: \\E, \\T, \\H", names).text, "node in G: t->h, t, h");
    EXPECT_EQ(PlainLabel("a\\nb\\rc\\l", names).text, "a\nb\nc");
    EXPECT_EQ(PlainLabel("\\\\ \\\" \\{", names).text, "\\ \" {");
    EXPECT_EQ(PlainLabel("a &amp; b &#65;&#x42; &unknown; &#0; &#xD800; &", names).text,
              "a & b AB &unknown; &#0; &#xD800; &");
    EXPECT_EQ(PlainLabel("end\\", names).text, "end\\");
}

TEST(DotText, OnlyLeftEndedLinesAreLeftAligned) {
    EXPECT_TRUE(PlainLabel("a\\lb\\l", names).left_aligned);
    EXPECT_FALSE(PlainLabel("a\\lb\\n", names).left_aligned);
    EXPECT_FALSE(PlainLabel("a", names).left_aligned);
}

TEST(DotText, RecordsShowTheirFieldsWithoutPorts) {
    EXPECT_EQ(RecordLabel("<f0> left|<f1> mid\\ dle|<f2> right", names).text,
              "left | mid dle | right");
    EXPECT_EQ(RecordLabel("{\\N|+ size : int\\l|+ draw()\\l}", names).text,
              "node\n+ size : int\n+ draw()");
    EXPECT_EQ(RecordLabel("a \\{ b \\| c", names).text, "a { b | c");
    EXPECT_EQ(RecordLabel("open <port", names).text, "open");
}

TEST(DotText, HtmlShowsItsTextLineByLine) {
    EXPECT_EQ(HtmlLabel("<b>bold</b> &lt;i&gt;<br/>next"), "bold <i>\nnext");
    EXPECT_EQ(
        HtmlLabel("<table>\n <tr><td>a</td>\n <td>b</td></tr>\n <tr><td>c</td></tr>\n</table>"),
        "a b\nc");
    EXPECT_EQ(HtmlLabel("a<!-- <b>no</b> -->b"), "ab");
    EXPECT_EQ(HtmlLabel("a <open"), "a");
}

TEST(DotText, IllFormedUtf8IsTakenForLatin1) {
    EXPECT_EQ(CleanUtf8("\xF0\x9F\x98\x80 \xE2\x82\xAC", false), "\xF0\x9F\x98\x80 \xE2\x82\xAC");
    EXPECT_EQ(CleanUtf8("\xC0\xAF\xED\xA0\xA0\xE4", false), "\u00c0\u00af\u00ed\u00a0\u00a0\u00e4");
    EXPECT_EQ(CleanUtf8("a\tb\x01\x7F\x85\n", false), "a b\n");
}

TEST(DotText, LongTextIsCutBetweenCharacters) {
    EXPECT_EQ(LimitedLines("short\n\nlines"), "short\n\nlines");
    std::string wide;
    for (int i = 0; i < 400; ++i)
        wide += "\u00e4";
    const std::string cut = LimitedLines("x" + wide + "\nnext");
    EXPECT_EQ(cut, "x" + wide.substr(0, 158) + "\u2026\nnext");
    EXPECT_EQ(LimitedLines(wide + "\nnext"), wide.substr(0, 160) + "\u2026\nnext");
    EXPECT_LT(LimitedLines(std::string(10000, '\n')).size(), 200U);
}

} // namespace
} // namespace graph_browser
