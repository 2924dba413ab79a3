// The row of a spring box, by hand and against a second computation.
#include <corvidlmw/managers/SpringGeometry.h>

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
using Places = std::vector<SpringPlace>;
using Children = std::vector<SpringChild>;

SpringSums SumsOf(const Children &children) {
    SpringSums sums;
    for (const SpringChild &child : children)
        sums.Add(child);
    return sums;
}

Places PlacesOf(const SpringFrame &frame, const Children &children) {
    SpringRow row(frame, SumsOf(children));
    Places places;
    for (const SpringChild &child : children)
        if (row.PlacesAnything())
            places.push_back(row.Next(child));
    return places;
}

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

using Wide = long long;

// The share as long division of magnitudes, which truncates toward zero.
Wide ShareOf(Wide extent, Wide weight, Wide sum) {
    if (sum == 0)
        return 0;
    const Wide product = extent * weight;
    const Wide size = (product < 0 ? -product : product) / (sum < 0 ? -sum : sum);
    return (product < 0) != (sum < 0) ? -size : size;
}

int Low16(Wide value) {
    return static_cast<int>(value & 0xffff);
}
int Signed16(Wide value) {
    return Low16(value) < 0x8000 ? Low16(value) : Low16(value) - 0x10000;
}

// Each child's place told by the ends of all before it.
Places Expected(const SpringFrame &f, const Children &children) {
    const Wide gaps = f.spacing * (static_cast<int>(children.size()) - 1);
    Wide all = 0, inner = 0, wanted = gaps, hard = gaps;
    for (const auto &c : children) {
        all += static_cast<Wide>(c.along.before) + c.along.inner + c.along.after;
        inner += c.along.inner;
        wanted += c.preferred_length;
        hard += c.along.inner ? 1 : c.preferred_length;
    }
    const Wide room = f.length - 2 * f.shadow - 2 * f.margin_along, extra = room - wanted;
    const bool springs_act = all != 0 && extra > 0;
    Places places;
    if (wanted <= 0)
        return places;
    Wide x = f.shadow + f.margin_along;
    for (const auto &c : children) {
        Wide w = c.preferred_length, h = c.preferred_thickness, y = f.margin_across;
        if (springs_act)
            w += ShareOf(extra, c.along.inner, all);
        else if (c.along.inner && inner)
            w += ShareOf(extra, c.along.inner, inner);
        else if (extra < 0 && room < hard && f.may_shrink)
            w = ShareOf(w, room, hard);
        const auto &[top, stretch, bottom] = c.across;
        const Wide across = static_cast<Wide>(top) + stretch + bottom;
        const int inside = f.thickness - 2 * f.margin_across;
        if (stretch && across)
            h += ShareOf(inside - h, stretch, across);
        else if (f.may_shrink && h > f.thickness)
            h = f.thickness;
        if (top && !bottom) {
            y = f.thickness - f.margin_across - h;
            if (y < f.shadow + f.margin_across)
                y = f.shadow + f.margin_across;
        } else if (top) {
            y += h > f.thickness ? f.shadow : Signed16(ShareOf(inside - h, top, across));
        }
        if (springs_act)
            x += Signed16(ShareOf(extra, c.along.before, all));
        const int width = w < 1 ? 1 : Low16(w);
        places.push_back({static_cast<short>(Signed16(x)), static_cast<short>(Signed16(y)),
                          static_cast<unsigned short>(width),
                          static_cast<unsigned short>(h < 1 ? 1 : Low16(h))});
        x += f.spacing + width;
        if (springs_act)
            x += Signed16(ShareOf(extra, c.along.after, all));
    }
    return places;
}

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
