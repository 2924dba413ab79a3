// The row of a spring box, by hand and against a second computation.
#include <corvidlmw/managers/SpringGeometry.h>

#include <tests/managers/SpringModel.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace corvidlmw::managers {

static std::ostream &operator<<(std::ostream &out, const SpringPlace &p) {
    return out << p.length << 'x' << p.thickness << '+' << p.along << '+' << p.across;
}

namespace {

using test::Random;
using namespace spring_model;

constexpr Springs loose{50, 0, 50};

TEST(SpringGeometry, Examples) {
    const SpringChild plain{loose, loose, 50, 20};
    const SpringChild elastic{{0, 100, 0}, loose, 50, 20};
    // clang-format off
    const struct {
        const char *what;
        SpringFrame frame;
        Children children;
        Places places;
    } examples[] = {
        {"room is spread, remainders are dropped", {300, 40, 0, 0, 0, 2}, {plain, plain, plain},
         {{24, 10, 50, 20}, {124, 10, 50, 20}, {224, 10, 50, 20}}},
        {"an inner spring alone takes all room", {300, 40, 5, 0, 1, 2}, {elastic}, {{6, 10, 288, 20}}},
        {"missing room is first taken from inner springs", {80, 40, 0, 0, 0, 0}, {plain, elastic},
         {{0, 10, 50, 20}, {50, 10, 30, 20}}},
        {"scaled when below what the others need", {50, 40, 0, 0, 0, 0}, {plain, plain},
         {{0, 10, 25, 20}, {25, 10, 25, 20}}},
        {"overrun when nothing may shrink", {50, 40, 0, 0, 0, 0, false}, {plain, plain},
         {{0, 10, 50, 20}, {50, 10, 50, 20}}},
        {"overrun when inner springs cancel one another", {60, 40, 0, 0, 0, 0}, {elastic, {{0, -100, 0}, loose, 50, 20}},
         {{0, 10, 50, 20}, {50, 10, 50, 20}}},
        {"never below 1", {10, 40, 0, 0, 0, 0}, {elastic, plain}, {{0, 10, 1, 20}, {1, 10, 9, 20}}},
        {"nothing prefers a length: nothing is placed", {10, 40, 0, 0, 0, 0}, {{loose, loose, 0, 20}}, {}},
        {"across: before 0 ignores the shadow", {50, 40, 0, 3, 2, 0}, {{{}, {0, 0, 50}, 50, 20}}, {{2, 3, 46, 20}}},
        {"across: both 0 is the near edge", {50, 40, 0, 3, 0, 0}, {{{}, {0, 0, 0}, 50, 20}}, {{0, 3, 50, 20}}},
        {"across: after 0", {50, 40, 0, 3, 0, 0}, {{{}, {50, 0, 0}, 50, 20}}, {{0, 17, 50, 20}}},
        {"across: after 0, too thick", {50, 40, 0, 3, 0, 0, false}, {{{}, {50, 0, 0}, 50, 60}}, {{0, 3, 50, 60}}},
        {"across: too thick", {50, 40, 0, 3, 0, 0, false}, {{{}, loose, 50, 60}}, {{0, 3, 50, 60}}},
        {"across: cut to the box", {50, 40, 0, 3, 0, 0}, {{{}, loose, 50, 60}}, {{0, 0, 50, 40}}},
        {"across: stretched", {50, 100, 0, 5, 0, 0}, {{{}, {10, 20, 10}, 50, 20}}, {{0, 13, 50, 55}}},
        {"across: shrunk beyond all bounds", {50, 100, 0, 0, 0, 0}, {{{}, {2147483647, -2147483647 - 1, 2}, 50, 10}}, {{0, -100, 50, 1}}},
        {"across: springs that sum to 0", {50, 40, 0, 0, 0, 0}, {{{}, {50, 0, -50}, 50, 20}}, {{0, 0, 50, 20}}},
    };
    // clang-format on
    for (const auto &example : examples) {
        SCOPED_TRACE(example.what);
        EXPECT_EQ(PlacesOf(example.frame, example.children), example.places);
    }
}

TEST(SpringGeometry, NaturalSizesWrapAndAreNeverEmpty) {
    const SpringFrame frame{.spacing = 2};
    EXPECT_EQ(NaturalSpringSize({}, frame).length, 65534);
    EXPECT_EQ(NaturalSpringSize({}, frame).thickness, 1);
    const SpringChild child{loose, loose, 40000, 7};
    const auto size = NaturalSpringSize(SumsOf({child, child}), {0, 0, 3, 4, 1, 2});
    EXPECT_EQ(size.length, 80002 + 8 - 65536);
    EXPECT_EQ(size.thickness, 17);
}

// ---- Against a second computation ---------------------------------------------------------------

// Mostly small, sometimes 0, negative or as large as can be.
int RandomSpring(Random &random) {
    switch (random.Between(0, 9)) {
    case 0: return random.Between(-2147483647 - 1, 2147483647);
    case 1: return random.Between(-50, 0);
    case 2:
    case 3: return 0;
    default: return random.Between(1, 200);
    }
}
int RandomExtent(Random &random) {
    return random.Between(0, random.Chance(0.1) ? 65535 : 300);
}
Springs RandomSprings(Random &random) {
    return {RandomSpring(random), RandomSpring(random), RandomSpring(random)};
}

TEST(SpringGeometry, RandomRowsAgreeWithAPlainComputation) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        const SpringFrame frame{random.Between(0, 2) ? random.Between(1, 1500)
                                                     : RandomExtent(random),
                                RandomExtent(random),
                                random.Between(0, 20),
                                random.Between(0, 20),
                                random.Between(0, 4),
                                random.Between(0, 9),
                                random.Chance(0.5)};
        Children children(static_cast<std::size_t>(random.Between(1, 6)));
        for (auto &child : children)
            child = {RandomSprings(random), RandomSprings(random), RandomExtent(random),
                     RandomExtent(random)};
        ASSERT_EQ(PlacesOf(frame, children), Expected(frame, children)) << "round " << round;
    }
}

} // namespace
} // namespace corvidlmw::managers
