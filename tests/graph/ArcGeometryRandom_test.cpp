// Properties of random arcs, held against plain geometry in doubles that knows nothing of how the
// arcs are computed; the tolerances are what the arcs' cuts and integer halves may take away.
#include <corvidlmw/graph/ArcGeometry.h>

#include <tests/graph/PrintGeometry.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <span>
#include <string>

namespace corvidlmw::arc {
namespace {

using test::Random;

// ---- Plain geometry ---------------------------------------------------------------------------

struct Vector {
    double x = 0;
    double y = 0;
};

Vector operator+(Vector a, Vector b) {
    return {a.x + b.x, a.y + b.y};
}
Vector operator-(Vector a, Vector b) {
    return {a.x - b.x, a.y - b.y};
}
Vector operator*(double factor, Vector a) {
    return {factor * a.x, factor * a.y};
}
double Dot(Vector a, Vector b) {
    return a.x * b.x + a.y * b.y;
}
double Length(Vector a) {
    return std::sqrt(Dot(a, a));
}
Vector Unit(Vector a) {
    return 1 / Length(a) * a;
}
// To the right of `a` where y grows downward.
Vector Across(Vector a) {
    return {-a.y, a.x};
}
Vector V(Point point) {
    return {static_cast<double>(point.x), static_cast<double>(point.y)};
}
Vector Between(Vector a, Vector b, double t) {
    return a + t * (b - a);
}
Vector CentreOf(const Rectangle &box) {
    return {box.x + box.width / 2.0, box.y + box.height / 2.0};
}

// By de Casteljau.
Vector OnCurve(const Segment &ends, Point control, double t) {
    const Vector first = Between(V(ends.start), V(control), t);
    return Between(first, Between(V(control), V(ends.end), t), t);
}

bool Inside(const Polygon &polygon, Vector at) {
    bool inside = false;
    for (int i = 0; i < polygon.count; ++i) {
        const Vector a = V(polygon.points[static_cast<std::size_t>(i)]);
        const Vector b = V(polygon.points[static_cast<std::size_t>((i + 1) % polygon.count)]);
        if ((a.y > at.y) != (b.y > at.y) && at.x < a.x + (at.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
            inside = !inside;
        }
    }
    return inside;
}

bool Inside(const PickShape &shape, Vector at) {
    const std::span polygons(shape.polygons.data(), static_cast<std::size_t>(shape.count));
    return std::any_of(polygons.begin(), polygons.end(),
                       [at](const Polygon &polygon) { return Inside(polygon, at); });
}

Rectangle RandomBox(Random &random, int reach, int largest) {
    return {random.Between(-reach, reach), random.Between(-reach, reach),
            random.Between(0, largest), random.Between(0, largest)};
}

Point RandomPoint(Random &random, int low, int high) {
    return {random.Between(low, high), random.Between(low, high)};
}

// ---- End points -------------------------------------------------------------------------------

constexpr Attachment relative{.mode = DrawMode::Relative};

// The line between the centres leaves a box after the part of its way that the nearer pair of
// edges allows. Half a pixel is lost to the integer centre, up to one to the cut, and an odd width
// moves the height by half the slope.
void ExpectLeaves(Point end, const Rectangle &box, const Rectangle &other) {
    const Vector way = CentreOf(other) - CentreOf(box);
    const double part =
        std::min(box.width / 2.0 / std::fabs(way.x), box.height / 2.0 / std::fabs(way.y));
    const Vector exit = CentreOf(box) + part * way;
    const double rounding = 1.51;
    const double odd_width = box.width % 2 != 0 ? 0.5 * std::fabs(way.y / way.x) : 0;
    EXPECT_NEAR(end.x, exit.x, rounding);
    EXPECT_NEAR(end.y, exit.y, rounding + std::min(odd_width, box.height / 2.0));
    const bool on_side = end.x == box.x || end.x == box.x + box.width;
    const bool on_level = end.y == box.y || end.y == box.y + box.height;
    EXPECT_TRUE(on_side || on_level);
}

TEST(RandomArcEnds, OfRandomBoxesLieOnTheirBordersOnTheLineBetweenTheCentres) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const int reach = i % 2 == 0 ? 300 : 8000;
        Rectangle from = RandomBox(random, reach, reach / 2);
        Rectangle to = RandomBox(random, reach, reach / 2);
        from.width += 1;
        to.width += 1;
        const Vector way = CentreOf(to) - CentreOf(from);
        if (std::fabs(way.x) < 1 || std::fabs(way.y) < 1) {
            continue;
        }
        SCOPED_TRACE(testing::PrintToString(from) + " to " + testing::PrintToString(to));
        const Segment ends = EndPoints(relative, from, to);
        ExpectLeaves(ends.start, from, to);
        ExpectLeaves(ends.end, to, from);
    }
}

TEST(RandomArcEnds, OfTheArcBackAreTheSameExchanged) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const bool huge = i % 3 == 0;
        const int reach = huge ? 32767 : 60;
        const Rectangle from = RandomBox(random, reach, huge ? 65535 : 30);
        const Rectangle to = RandomBox(random, reach, huge ? 65535 : 30);
        const Segment there = EndPoints(relative, from, to);
        EXPECT_EQ(EndPoints(relative, to, from), (Segment{there.end, there.start}))
            << testing::PrintToString(from) << " to " << testing::PrintToString(to);
    }
}

TEST(RandomArcEnds, OfAllSidesStandAtTheirPercentage) {
    Random random;
    for (int i = 0; i < 5000 && !testing::Test::HasFailure(); ++i) {
        const Rectangle box = RandomBox(random, 32767, 65535);
        const int side = random.Between(0, 3);
        const int position = random.Between(-200, 300);
        const Attachment attachment{DrawMode::Proportional, true, side, position, side, position};
        const Segment ends = EndPoints(attachment, box, box);
        EXPECT_EQ(ends.start, ends.end);
        const bool vertical = side < 2;
        const int across = vertical ? ends.start.x - box.x : ends.start.y - box.y;
        const int along = vertical ? ends.start.y - box.y : ends.start.x - box.x;
        const int thickness = vertical ? box.width : box.height;
        const double length = vertical ? box.height : box.width;
        EXPECT_EQ(across, side == 1 || side == 2 ? thickness : 0);
        EXPECT_LE(std::abs(along), std::fabs(position * length / 100));
        EXPECT_NEAR(along, position * length / 100, 1);
    }
}

// ---- Curves -----------------------------------------------------------------------------------

// Standing on the parallel line, the control point is away from the straight one by the rank's
// number of steps. Along it the cut of its x slides it by up to `stretch`, and the cut of its y and
// the integer middle by less than two pixels more.
TEST(RandomArcCurve, OfRandomEndsBowsByTheDistanceOfItsRank) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, -1000, 1000), RandomPoint(random, -1000, 1000)};
        const int rank = random.Between(1, 9);
        const Vector way = V(ends.end) - V(ends.start);
        if (way.x == 0 || way.y == 0 || std::fabs(way.y) > 20 * std::fabs(way.x)) {
            continue;
        }
        SCOPED_TRACE(testing::PrintToString(ends) + " rank " + std::to_string(rank));
        const double slope = std::fabs(way.y / way.x);
        const double stretch = std::sqrt(1 + slope * slope);
        const double exact_step = 20 * std::sqrt(slope * slope / rank + 1);
        const bool odd = rank % 2 == 1;
        const int steps = odd ? rank + 1 : rank;
        const Vector rightward = Unit(way.x > 0 ? way : -1 * way);
        const Vector aside = V(CurveControl(ends, rank)) - Between(V(ends.start), V(ends.end), 0.5);

        const double distance = (odd ? -1 : 1) * Dot(aside, Across(rightward)) * stretch;
        EXPECT_LT(distance, steps * exact_step + 1.01 * stretch);
        EXPECT_GT(distance, steps * (exact_step - 1) - 1.01 * stretch);
        EXPECT_NEAR(Dot(aside, rightward), 0, stretch + 1.75);
    }
}

TEST(RandomArcCurve, OfRandomEndsFollowsTheCurve) {
    Random random;
    for (int i = 0; i < 5000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, -3000, 3000), RandomPoint(random, -3000, 3000)};
        const Point control = RandomPoint(random, -3000, 3000);
        const auto points = CurveThrough(ends, control);
        for (int step = 0; step < curve_points; ++step) {
            const Vector exact = OnCurve(ends, control, step * 0.05);
            const Point point = points[static_cast<std::size_t>(step)];
            EXPECT_NEAR(point.x, exact.x, 1.01);
            EXPECT_NEAR(point.y, exact.y, 1.01);
            EXPECT_LE(std::abs(point.x), std::fabs(exact.x) + 0.01);
            EXPECT_LE(std::abs(point.y), std::fabs(exact.y) + 0.01);
        }
    }
}

// ---- Loops and arrow heads --------------------------------------------------------------------

// Each arrow points at a place where the ellipse meets the node's border.
TEST(RandomArcLoop, OfRandomNodesHasItsTipsOnTheEllipseAndOnTheBorder) {
    Random random;
    for (int i = 0; i < 5000 && !testing::Test::HasFailure(); ++i) {
        Rectangle node = RandomBox(random, 32767, 3000);
        node.width += 20;
        node.height += 20;
        const int rank = random.Between(0, 9);
        SCOPED_TRACE(testing::PrintToString(node) + " rank " + std::to_string(rank));
        const Loop loop = LoopAround(node, rank, {});
        const Vector centre = CentreOf(loop.box);
        for (const Segment &arrow : loop.arrows) {
            const Vector tip = V(arrow.end) - centre;
            const double height = tip.y / (loop.box.height / 2.0);
            const double half_chord =
                loop.box.width / 2.0 * std::sqrt(std::max(0.0, 1 - height * height));
            EXPECT_NEAR(std::fabs(tip.x), half_chord, 0.02 * loop.box.width + 4);
            const double above = arrow.end.y - node.y;
            EXPECT_LE(std::min(std::fabs(above), std::fabs(above - node.height)), 3);
            EXPECT_GE(arrow.end.x, node.x);
            EXPECT_LE(arrow.end.x, node.x + node.width);
        }
    }
}

TEST(RandomArcArrow, OfRandomLinesStandsAcrossTheLineBehindItsTip) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Point tail = RandomPoint(random, 0, 2000);
        const Point tip{random.Between(-2000, 2000), random.Between(0, 2000)};
        if (tail == tip) {
            continue;
        }
        SCOPED_TRACE(testing::PrintToString(tail) + " to " + testing::PrintToString(tip));
        const auto triangle = ArrowHead(tail, tip);
        ASSERT_TRUE(triangle.has_value());
        const Vector along = Unit(V(tip) - V(tail));
        const Vector base = V(tip) - 6 * along;
        const Vector corners[] = {base - 3 * Across(along), base + 3 * Across(along)};
        EXPECT_EQ((*triangle)[0], tip);
        for (std::size_t corner = 0; corner < 2; ++corner) {
            const Point got = (*triangle)[corner + 1];
            // Half a pixel is added and the rest cut toward zero, so that a negative one goes up.
            EXPECT_NEAR(got.x, corners[corner].x, corners[corner].x < 0 ? 1.51 : 0.51);
            EXPECT_NEAR(got.y, corners[corner].y, corners[corner].y < 0 ? 1.51 : 0.51);
        }
    }
}

// ---- Picking ----------------------------------------------------------------------------------

// Whatever the slope, the pointer may miss the line's middle by nearly half its width.
TEST(RandomArcPick, OfRandomLinesHoldsWhatLiesNearTheLine) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, -500, 500), RandomPoint(random, -500, 500)};
        const int width = random.Between(1, 5);
        const Vector way = V(ends.end) - V(ends.start);
        if (Length(way) < 20 * width) {
            continue;
        }
        const Vector on_line = V(ends.start) + (0.25 + 0.5 * random.Fraction()) * way;
        const double aside = (2 * random.Fraction() - 1) * 0.44 * width;
        EXPECT_TRUE(Inside(PickLine(ends, 0, width, {}), on_line + aside * Across(Unit(way))))
            << testing::PrintToString(ends) << " width " << width << ", " << aside << " aside";
        const Vector apart = on_line + (1.5 * width) * Across(Unit(way));
        EXPECT_FALSE(Inside(PickLine(ends, 0, width, {}), apart))
            << testing::PrintToString(ends) << " width " << width;
    }
}

TEST(RandomArcPick, OfRandomCurvesHoldsTheirQuarters) {
    Random random;
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        const Segment ends{RandomPoint(random, -2000, 2000), RandomPoint(random, -2000, 2000)};
        const int rank = random.Between(1, 3);
        const Vector way = V(ends.end) - V(ends.start);
        if (Length(way) < 800 || std::fabs(way.y) > 20 * std::fabs(way.x)) {
            continue;
        }
        const PickShape shape = PickLine(ends, rank, 6, {});
        for (const double t : {0.25, 0.5, 0.75}) {
            EXPECT_TRUE(Inside(shape, OnCurve(ends, CurveControl(ends, rank), t)))
                << testing::PrintToString(ends) << " rank " << rank << " at " << t;
        }
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
        const Attachment attachment{static_cast<DrawMode>(random.Between(-1, 3)),
                                    i % 2 == 0,
                                    word(),
                                    word(),
                                    random.Between(-1, 4),
                                    word()};
        const Segment ends = EndPoints(attachment, box(), box());
        const Segment stored{{CutToPosition(ends.start.x), CutToPosition(ends.start.y)},
                             {CutToPosition(ends.end.x), CutToPosition(ends.end.y)}};
        const int rank = random.Chance(0.5) ? random.Between(0, 9) : word();
        const Label label{true, size(), size()};

        const Point control = CurveControl(stored, rank);
        for (const Point &point : CurveThrough(stored, control)) {
            EXPECT_EQ(point.x, CutToPosition(point.x));
            EXPECT_EQ(point.y, CutToPosition(point.y));
        }
        EXPECT_EQ(CurveThrough(stored, control)[0], stored.start);
        const Rectangle node = box();
        EXPECT_EQ(PickLoop(node, rank, label).count, 2);
        EXPECT_GE(PickLine(stored, rank, random.Between(1, 65535), label).count, 2);
        const bool allowed = control.x >= 0 && control.y >= 0 && stored.end.y >= 0;
        EXPECT_EQ(ArrowHead(control, stored.end).has_value(), allowed && control != stored.end);
    }
}

} // namespace
} // namespace corvidlmw::arc
