// Arcs worked out by hand, exact to the pixel.
#include <corvidlmw/graph/ArcGeometry.h>

#include <tests/graph/PrintGeometry.h>

#include <gtest/gtest.h>

#include <array>
#include <vector>

namespace corvidlmw::arc {
namespace {

// ---- End points -------------------------------------------------------------------------------

struct EndsExample {
    const char *what;
    Attachment attachment;
    Rectangle from;
    Rectangle to;
    Segment ends;
};

constexpr Attachment level{.mode = DrawMode::Fixed, .horizontal = true};
constexpr Attachment upright{.mode = DrawMode::Fixed, .horizontal = false};
constexpr Attachment relative{.mode = DrawMode::Relative};
constexpr Attachment unknown{.mode = static_cast<DrawMode>(7)};

constexpr Attachment Proportional(int from_side, int from_position, int to_side, int to_position) {
    return {DrawMode::Proportional, true, from_side, from_position, to_side, to_position};
}

constexpr Rectangle high{10, 20, 40, 80};
constexpr Rectangle wide{200, 300, 60, 20};
constexpr Rectangle longest{0, 0, 65535, 1};

const EndsExample ends_examples[] = {
    {"fixed, left to right", level, {10, 20, 31, 15}, {100, 60, 8, 9}, {{41, 27}, {100, 64}}},
    {"fixed, top to bottom", upright, {10, 20, 31, 15}, {100, 60, 8, 9}, {{25, 35}, {104, 60}}},
    {"fixed, whatever the places", level, {100, 0, 20, 20}, {0, 0, 20, 20}, {{120, 10}, {0, 10}}},

    {"left by percentage, bottom", Proportional(0, 25, 2, 75), high, wide, {{10, 40}, {245, 320}}},
    {"top, right", Proportional(3, 25, 1, 75), high, wide, {{20, 20}, {260, 315}}},
    {"bottom, top", Proportional(2, 33, 3, 10), high, wide, {{23, 100}, {206, 300}}},
    {"an unknown side", Proportional(4, 50, -1, 50), high, wide, {{50, 60}, {200, 310}}},
    {"beyond the side", Proportional(1, 150, 0, -50), high, wide, {{50, 140}, {200, 290}}},
    {"cut toward zero", Proportional(1, -1, 0, 3), high, wide, {{50, 20}, {200, 300}}},
    {"no wrapping",
     Proportional(2, 100000, 2, -100000),
     longest,
     longest,
     {{65535000, 1}, {-65535000, 1}}},

    {"same centre", relative, {0, 0, 41, 21}, {10, 5, 21, 11}, {{20, 10}, {20, 10}}},
    {"half a pixel apart", relative, {0, 0, 40, 21}, {0, 0, 41, 20}, {{20, 10}, {20, 10}}},
    {"level, to the right", relative, {0, 0, 40, 20}, {100, 5, 30, 11}, {{40, 10}, {100, 10}}},
    {"level, to the left", relative, {100, 5, 30, 11}, {0, 0, 40, 20}, {{100, 10}, {40, 10}}},
    {"upright, down", relative, {0, 0, 40, 20}, {5, 100, 31, 20}, {{20, 20}, {20, 100}}},
    {"upright, up", relative, {5, 100, 31, 20}, {0, 0, 40, 20}, {{20, 100}, {20, 20}}},
    // A line through the corner leaves by the side where it falls, by top or bottom where it rises.
    {"corner, falling", relative, {0, 0, 5, 5}, {10, 10, 5, 5}, {{5, 4}, {10, 10}}},
    {"corner, rising", relative, {0, 10, 5, 5}, {10, 0, 5, 5}, {{4, 10}, {9, 5}}},
    {"corner, falling to the left", relative, {10, 10, 5, 5}, {0, 0, 5, 5}, {{10, 10}, {5, 4}}},
    {"corner, rising to the left", relative, {10, 0, 5, 5}, {0, 10, 5, 5}, {{9, 5}, {4, 10}}},
    {"steep, down and right", relative, {0, 0, 40, 20}, {40, 100, 40, 20}, {{24, 20}, {56, 100}}},
    {"by own aspect", relative, {0, 0, 10, 100}, {80, 90, 40, 10}, {{10, 52}, {89, 90}}},
    // Such a node counts as a hundred times as high.
    {"no width", relative, {0, 0, 0, 50}, {0, 215, 20, 20}, {{0, 25}, {9, 215}}},
    {"no width, steeper", relative, {0, 0, 0, 50}, {0, 224, 2, 2}, {{0, 50}, {0, 224}}},
    {"an unknown mode", unknown, {0, 0, 40, 20}, {40, 100, 40, 20}, {{24, 20}, {56, 100}}},
    {"cut toward zero", relative, {-100, -100, 9, 9}, {0, -70, 9, 9}, {{-91, -94}, {0, -67}}},
};

TEST(ArcEnds, LieWhereTheDrawModePutsThem) {
    for (const EndsExample &example : ends_examples)
        EXPECT_EQ(EndPoints(example.attachment, example.from, example.to), example.ends)
            << example.what;
}

// ---- Curves -----------------------------------------------------------------------------------

TEST(ArcCurve, HasItsControlPointBesideTheMiddleOnAlternateSides) {
    const struct {
        Segment ends;
        int rank;
        Point control;
    } examples[] = {
        {{{0, 0}, {100, 0}}, 1, {50, -39}},  {{{0, 0}, {100, 0}}, 2, {49, 40}},
        {{{0, 0}, {100, 0}}, 3, {50, -79}},  {{{0, 0}, {100, 0}}, 4, {49, 80}},
        {{{0, 0}, {0, 100}}, 1, {40, 0}},    {{{0, 0}, {0, 100}}, 2, {-27, 128}},
        {{{0, 0}, {44, 33}}, 1, {45, -16}},  {{{0, 0}, {100, 100}}, 1, {78, 22}},
        {{{0, 0}, {100, 100}}, 2, {26, 74}}, {{{3, 0}, {104, 0}}, 1, {53, -39}},
        {{{0, 100}, {100, 0}}, 1, {22, 22}}, {{{0, 100}, {100, 0}}, 2, {74, 74}},
        {{{100, 100}, {0, 0}}, 1, {78, 22}},
    };
    for (const auto &[ends, rank, control] : examples)
        EXPECT_EQ(CurveControl(ends, rank), control)
            << testing::PrintToString(ends) << " rank " << rank;
}

TEST(ArcCurve, EndsBeforeItsEndAndCutsItsPointsToSixteenBits) {
    const auto points = CurveThrough({{3, 0}, {104, 0}}, {53, -39});
    EXPECT_EQ(points.front(), (Point{3, 0}));
    EXPECT_EQ(points[curve_label_point], (Point{53, -19}));
    EXPECT_EQ(points.back(), (Point{98, -3}));
    EXPECT_EQ(CurveThrough({{32768, -32769}, {0, 0}}, {0, 0})[0], (Point{-32768, 32767}));
    EXPECT_EQ(CurveThrough({{0, 0}, {0, 0}}, {100000, -100000})[10], (Point{-15536, 15536}));
}

// ---- Loops ------------------------------------------------------------------------------------

constexpr Rectangle node{100, 200, 101, 40};
constexpr Label label{true, 31, 13};

// clang-format off
const Loop loops[] = {
    {{125, 160, 50, 60}, -1920, 15360, {150, 147},
     {{{175, 160}, {174, 200}}, {{125, 160}, {126, 200}}}},
    {{39, 180, 101, 80}, 1920, 20864, {24, 207},
     {{{106, 260}, {134, 240}}, {{106, 180}, {134, 200}}}},
    {{125, 220, 50, 60}, 1920, -15360, {150, 267},
     {{{175, 280}, {174, 240}}, {{125, 280}, {126, 240}}}},
    {{160, 180, 101, 80}, 9600, -19200, {246, 207},
     {{{193, 260}, {165, 240}}, {{193, 180}, {165, 200}}}},
};
// clang-format on

TEST(ArcLoop, TakesASideOfTheNodeByItsRank) {
    for (int rank = 0; rank < 12; ++rank) {
        SCOPED_TRACE(rank);
        const Loop loop = LoopAround(node, rank, label), &expected = loops[rank % 4];
        EXPECT_EQ(loop.box, expected.box);
        EXPECT_EQ(loop.start, expected.start);
        EXPECT_EQ(loop.extent, expected.extent);
        EXPECT_EQ(loop.label, expected.label);
        EXPECT_EQ(loop.arrows[0], expected.arrows[0]);
        EXPECT_EQ(loop.arrows[1], expected.arrows[1]);
    }
    EXPECT_EQ(LoopAround(node, 1, {false, 31, 13}).label, (Point{39, 207})) << "not centred";
    EXPECT_EQ(LoopAround(node, 3, {false, 31, 13}).label, (Point{261, 207})) << "not centred";
    EXPECT_EQ(LoopAround({-100, 0, 101, 40}, 1, {}).box.x, -160) << "cut toward zero";
    EXPECT_EQ(LoopAround({-100, 0, 101, 40}, 3, {}).box.x, -39) << "cut toward zero";
}

// ---- Arrow heads ------------------------------------------------------------------------------

TEST(ArcArrow, IsATriangleOfSixBySix) {
    const struct {
        Point tail;
        std::array<Point, 3> triangle;
    } examples[] = {
        {{0, 50}, {{{100, 50}, {94, 47}, {94, 53}}}},
        {{50, 0}, {{{50, 100}, {53, 94}, {47, 94}}}},
        {{100, 50}, {{{50, 50}, {56, 53}, {56, 47}}}},
        {{0, 0}, {{{30, 40}, {29, 33}, {24, 37}}}},
        {{20, 10}, {{{-30, 10}, {-23, 13}, {-23, 7}}}},
    };
    for (const auto &[tail, triangle] : examples)
        EXPECT_EQ(ArrowHead(tail, triangle[0]), triangle);
    EXPECT_FALSE(ArrowHead({7, 7}, {7, 7})) << "a tip without a tail";
}

// ---- Picking ----------------------------------------------------------------------------------

using Points = std::vector<Point>;

Points PointsOf(const Polygon &polygon) {
    return {polygon.points.begin(), polygon.points.begin() + polygon.count};
}

TEST(ArcPick, OfAStraightArcIsABandAndItsLabel) {
    const PickShape shape = PickLine({{10, 90}, {101, 20}}, 0, 2, {true, 30, 12});
    ASSERT_EQ(shape.count, 2);
    EXPECT_EQ(PointsOf(shape.polygons[0]), (Points{{8, 88}, {12, 92}, {103, 22}, {99, 18}}));
    EXPECT_EQ(PointsOf(shape.polygons[1]), (Points{{55, 43}, {85, 43}, {85, 55}, {55, 55}}));
}

TEST(ArcPick, OfAnArcFallingNearTheDiagonalHasTheOtherBandToo) {
    const PickShape line = PickLine({{10, 10}, {50, 50}}, 0, 1, {});
    ASSERT_EQ(line.count, 2);
    EXPECT_EQ(PointsOf(line.polygons[1]), (Points{{11, 9}, {9, 11}, {49, 51}, {51, 49}}));
    const PickShape curve = PickLine({{0, 0}, {100, 100}}, 2, 1, {});
    ASSERT_EQ(curve.count, 2);
    const Points band = {{1, -1},   {-1, 1},   {15, 35}, {37, 63}, {65, 85},
                         {99, 101}, {101, 99}, {67, 83}, {39, 61}, {17, 33}};
    EXPECT_EQ(PointsOf(curve.polygons[1]), band);
    for (const Point end : Points{{100, 50}, {50, 100}, {-50, -100}})
        EXPECT_EQ(PickLine({{0, 0}, end}, 0, 1, {}).count, 2) << testing::PrintToString(end);
    for (const Point end : Points{{101, 50}, {50, 101}, {100, -100}, {0, 0}})
        EXPECT_EQ(PickLine({{0, 0}, end}, 0, 1, {}).count, 1) << testing::PrintToString(end);
}

TEST(ArcPick, OfACurveFollowsItInFourPieces) {
    const PickShape shape = PickLine({{3, 0}, {104, 0}}, 1, 2, {true, 30, 12});
    ASSERT_EQ(shape.count, 2);
    const Points band = {{1, -2},  {5, 2},    {30, -12}, {55, -17}, {80, -12},
                         {106, 2}, {102, -2}, {76, -16}, {51, -21}, {26, -16}};
    EXPECT_EQ(PointsOf(shape.polygons[0]), band);
    EXPECT_EQ(PointsOf(shape.polygons[1]), (Points{{53, -31}, {83, -31}, {83, -19}, {53, -19}}));
}

TEST(ArcPick, OfALoopIsItsBoxAndASlantedLabel) {
    const PickShape shape = PickLoop(node, 1, label);
    ASSERT_EQ(shape.count, 2);
    EXPECT_EQ(PointsOf(shape.polygons[0]), (Points{{39, 180}, {140, 180}, {140, 260}, {39, 260}}));
    EXPECT_EQ(PointsOf(shape.polygons[1]), (Points{{24, 194}, {55, 207}, {55, 220}, {24, 220}}));
    EXPECT_EQ(PickLoop(node, 1, {false, 31, 13}).count, 1);
}

} // namespace
} // namespace corvidlmw::arc
