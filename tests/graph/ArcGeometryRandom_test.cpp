// Properties of random arcs, held against plain geometry in doubles that knows nothing of how the
// arcs are computed; the tolerances are what the arcs' cuts and integer halves may take away.
#include <corvidlmw/graph/ArcGeometry.h>

#include <tests/graph/PlainGeometry.h>
#include <tests/graph/PrintGeometry.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

namespace corvidlmw::arc {
namespace {

using test::Random;
using namespace plain;

Rectangle RandomBox(Random &random, int reach, int largest) {
    return {random.Between(-reach, reach), random.Between(-reach, reach),
            random.Between(1, largest + 1), random.Between(0, largest)};
}
Point RandomPoint(Random &random, int reach) {
    return {random.Between(-reach, reach), random.Between(-reach, reach)};
}

// ---- End points -------------------------------------------------------------------------------

constexpr Attachment relative{.mode = DrawMode::Relative};

// The line between the centres leaves a box after the part of its way that the nearer pair of
// edges allows. Half a pixel is lost to the integer centre, up to one to the cut, and an odd width
// moves the height by half the slope.
void ExpectLeaves(Point end, const Rectangle &box, const Rectangle &other) {
    const Vector way = CentreOf(other) - CentreOf(box);
    const double part =
        std::min(box.width / 2.0 / std::fabs(way.real()), box.height / 2.0 / std::fabs(way.imag()));
    const Vector exit = CentreOf(box) + part * way;
    const double rounding = 1.51;
    const double odd_width = box.width % 2 != 0 ? 0.5 * std::fabs(way.imag() / way.real()) : 0;
    EXPECT_NEAR(end.x, exit.real(), rounding);
    EXPECT_NEAR(end.y, exit.imag(), rounding + std::min(odd_width, box.height / 2.0));
    const bool on_side = end.x == box.x || end.x == box.x + box.width;
    const bool on_level = end.y == box.y || end.y == box.y + box.height;
    EXPECT_TRUE(on_side || on_level);
}

TEST(RandomArcEnds, OfRandomBoxesLieOnTheirBordersOnTheLineBetweenTheCentres) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const int reach = i % 2 == 0 ? 300 : 8000;
        const Rectangle from = RandomBox(random, reach, reach / 2);
        const Rectangle to = RandomBox(random, reach, reach / 2);
        const Vector way = CentreOf(to) - CentreOf(from);
        if (std::fabs(way.real()) < 1 || std::fabs(way.imag()) < 1)
            continue;
        SCOPED_TRACE(testing::PrintToString(from) + " to " + testing::PrintToString(to));
        const Segment ends = EndPoints(relative, from, to);
        ExpectLeaves(ends.start, from, to);
        ExpectLeaves(ends.end, to, from);
        EXPECT_EQ(EndPoints(relative, to, from), (Segment{ends.end, ends.start}));
    }
}

// ---- Curves -----------------------------------------------------------------------------------

TEST(RandomArcCurve, OfRandomEndsFollowsTheCurve) {
    Random random;
    for (int i = 0; i < 5000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, 3000), RandomPoint(random, 3000)};
        const Point control = RandomPoint(random, 3000);
        const auto points = CurveThrough(ends, control);
        for (int step = 0; step < curve_points; ++step) {
            const Vector exact = OnCurve(ends, control, step * 0.05);
            const Point point = points[static_cast<std::size_t>(step)];
            EXPECT_NEAR(point.x, exact.real(), 1.01);
            EXPECT_NEAR(point.y, exact.imag(), 1.01);
            EXPECT_LE(std::abs(point.x), std::fabs(exact.real()) + 0.01);
            EXPECT_LE(std::abs(point.y), std::fabs(exact.imag()) + 0.01);
        }
    }
}

// ---- Picking ----------------------------------------------------------------------------------

// Whatever the slope, the pointer may miss the line's middle by nearly half its width.
TEST(RandomArcPick, OfRandomLinesHoldsWhatLiesNearTheLine) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, 500), RandomPoint(random, 500)};
        const int width = random.Between(1, 5);
        const Vector way = V(ends.end) - V(ends.start);
        if (std::abs(way) < 20 * width)
            continue;
        const Vector on_line = V(ends.start) + (0.25 + 0.5 * random.Fraction()) * way;
        const Vector across = 1.0 * width * Across(way / std::abs(way));
        const double aside = (2 * random.Fraction() - 1) * 0.44;
        SCOPED_TRACE(testing::PrintToString(ends) + " width " + std::to_string(width));
        const PickShape shape = PickLine(ends, 0, width, {});
        EXPECT_TRUE(Inside(shape, on_line + aside * across)) << aside << " widths aside";
        EXPECT_FALSE(Inside(shape, on_line + 1.5 * across));
    }
}

// ---- The whole range of the protocol's numbers ------------------------------------------------

// Under the sanitizers this is a search for overflows; the checks are what must hold of any input.
TEST(RandomArcs, BearsAllSixteenBitNumbers) {
    Random random;
    const auto word = [&] { return random.Between(-32768, 32767); };
    const auto size = [&] { return random.Chance(0.1) ? 0 : random.Between(0, 65535); };
    const auto box = [&] { return Rectangle{word(), word(), size(), size()}; };
    for (int i = 0; i < 50000 && !testing::Test::HasFailure(); ++i) {
        const Attachment attachment{.mode = static_cast<DrawMode>(random.Between(-1, 3)),
                                    .horizontal = i % 2 == 0,
                                    .from_side = word(),
                                    .from_position = word(),
                                    .to_side = random.Between(-1, 4),
                                    .to_position = word()};
        const Segment ends = EndPoints(attachment, box(), box());
        const Segment stored{{CutToPosition(ends.start.x), CutToPosition(ends.start.y)},
                             {CutToPosition(ends.end.x), CutToPosition(ends.end.y)}};
        const int rank = random.Chance(0.5) ? random.Between(0, 9) : word();
        const Label label{true, size(), size()};

        const Point control = CurveControl(stored, rank);
        const auto curve = CurveThrough(stored, control);
        EXPECT_EQ(curve[0], stored.start);
        for (const Point &point : curve)
            EXPECT_EQ(point, (Point{CutToPosition(point.x), CutToPosition(point.y)}));
        EXPECT_EQ(PickLoop(box(), rank, label).count, 2);
        EXPECT_GE(PickLine(stored, rank, random.Between(1, 65535), label).count, 2);
        const bool allowed = control.x >= 0 && control.y >= 0 && stored.end.y >= 0;
        EXPECT_EQ(ArrowHead(control, stored.end).has_value(), allowed && control != stored.end);
    }
}

} // namespace
} // namespace corvidlmw::arc
