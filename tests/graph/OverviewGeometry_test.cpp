// The overview's arithmetic, by hand.
#include <corvidlmw/graph/OverviewGeometry.h>

#include <tests/graph/PrintGeometry.h>

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <string>
#include <utility>

namespace corvidlmw::overview {
namespace {

TEST(OverviewGeometry, FitsTheGraphIntoTheWindow) {
    const Scale fitted = ScaleFor({100, 100}, {200, 100}, false);
    const Scale skewed = ScaleFor({100, 100}, {200, 100}, true);
    EXPECT_TRUE(fitted.x == 0.5F && fitted.y == 0.5F && skewed.x == 0.5F && skewed.y == 1.0F);
}

TEST(OverviewGeometry, NodesKeepTheirProportionsAndShow) {
    const struct {
        Scale scale;
        Rectangle node, miniature;
    } examples[] = {
        {{0.5, 0.5}, {10, 20, 60, 30}, {5, 9, 30, 15}},
        {{0.5, 1.0},
         {10, 20, 60, 30},
         {5, 27, 30, 15}},                            // the centre by axis, the size by the smaller
        {{0.5, 0.5}, {98, 98, 2, 2}, {48, 48, 2, 2}}, // 49 - 0.5
        {{0.01F, 0.01F}, {1000, 500, 61, 31}, {9, 4, 2, 2}},
        {{0.5, 0.5}, {-40, 0, 20, 10}, {-20, 0, 10, 5}},
        {{2, 2}, {0, 0, 0, 0}, {0, 0, 2, 2}},
        {{1, 1}, {0, 0, 5, 5}, {0, 0, 5, 5}}, // 2 - 2.5 truncates to 0
        {{3e9F, 1}, {1, 0, 0, 0}, {std::numeric_limits<int>::max(), 0, 2, 2}},
    };
    for (const auto &example : examples)
        EXPECT_EQ(MiniatureOf(example.scale, example.node), example.miniature)
            << example.scale.x << ' ' << example.scale.y;
}

TEST(OverviewGeometry, TheFrameStandsForTheView) {
    EXPECT_EQ(FrameFor({0.2F, 0.5}, {300, 31}, {400, 301}), (Rectangle{60, 15, 80, 150}));
    EXPECT_EQ(FrameFor({1000, 1000}, {0, 0}, {400, 300}), (Rectangle{0, 0, 32766, 32766}));
    EXPECT_EQ(GraphPlaceOf({0.2F, 0.5}, {60, 15}), (Point{300, 30})) << "in single precision";
    EXPECT_EQ(GraphPlaceOf({0.001F, 0.001F}, {40, 0}), (Point{40000 - 65536, 0}));
    EXPECT_EQ(GraphPlaceOf({}, {60, 15}), (Point{0, 0}));
}

TEST(OverviewGeometry, TheFrameStaysInTheWindow) {
    const Size window = {200, 100};
    const struct {
        Rectangle before, after;
    } examples[] = {
        {{50, 40, 30, 20}, {50, 40, 30, 20}},
        {{0, -7, 30, 20}, {1, 1, 30, 20}},
        {{169, 79, 30, 20}, {169, 79, 30, 20}},
        {{170, 80, 30, 20}, {171, 80, 30, 20}}, // at the edge already in x, past it only in y
        {{171, 81, 30, 20}, {171, 81, 30, 20}},
        {{900, 900, 30, 20}, {171, 81, 30, 20}},
        {{50, 40, 300, 200}, {1, 1, 300, 200}},
    };
    for (const auto &example : examples)
        EXPECT_EQ(KeepInside(example.before, window), example.after);
}

TEST(OverviewGeometry, AThinFrameReachesOutOfItself) {
    const Rectangle flat = {10, 20, 40, 0};
    EXPECT_TRUE(TouchesFrame(flat, {30, 21, 1, 1})) << "its second line";
    EXPECT_TRUE(TouchesFrame(flat, {30, 19, 1, 1})) << "its last but one";
    EXPECT_FALSE(TouchesFrame(flat, {30, 23, 1, 1}));
    EXPECT_FALSE(TouchesFrame(flat, {51, 20, 1, 1}));
}

// Each pixel of an edge of two pixels once: the upper left half of the corners belongs to the upper left
// lines.
TEST(OverviewGeometry, TheLinesMakeAMitredFrame) {
    const Rectangle frame = {10, 20, 9, 7};
    std::map<std::pair<int, int>, int> pixels;
    auto draw = [&](const std::array<Segment, 4> &lines, int colour) {
        for (const Segment &line : lines)
            for (int x = line.start.x; x <= line.end.x; x++)
                for (int y = line.start.y; y <= line.end.y; y++)
                    EXPECT_TRUE(pixels.emplace(std::pair(x, y), colour).second) << x << ' ' << y;
    };
    draw(UpperLeftLines(frame), 1);
    draw(LowerRightLines(frame), 2);
    std::string picture;
    for (int y = 20; y <= 27; y++) {
        for (int x = 10; x <= 19; x++)
            picture += pixels.contains({x, y}) ? static_cast<char>('0' + pixels[{x, y}]) : '.';
        picture += '\n';
    }
    EXPECT_EQ(picture, "1111111111\n"
                       "1111111112\n"
                       "11......22\n"
                       "11......22\n"
                       "11......22\n"
                       "11......22\n"
                       "1122222222\n"
                       "1222222222\n");
}

} // namespace
} // namespace corvidlmw::overview
