// The line of a rubber board's child, by hand and against a second computation.
#include <corvidlmw/managers/RubberGeometry.h>

#include <tests/managers/RubberModel.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <cstdlib>

namespace corvidlmw::managers {
namespace {

using test::Random, test::InSteps;

TEST(RubberGeometry, TheLineGoesThroughBothMarksAndBeyond) {
    EXPECT_EQ(Stretch({10, 200}, {30, 400}, 300), 20);
    EXPECT_EQ(Stretch({10, 200}, {30, 400}, 100), 0);
    EXPECT_EQ(Stretch({10, 200}, {30, 400}, 0), -10);
    EXPECT_EQ(Stretch({10, 200}, {10, 400}, 999), 10);
    EXPECT_EQ(Stretch({7, 200}, {90, 200}, 5), 7) << "two recordings at one size";
    EXPECT_EQ(Stretch({0, 10}, {37, 20}, 9), -3) << "-3.7 is truncated toward zero";
}

TEST(RubberGeometry, OnlyTheLow16BitsOfAnExtentCount) {
    EXPECT_EQ(StretchExtent({0, 100}, {0, 200}, 150, 42), 42);
    EXPECT_EQ(StretchExtent({0, 100}, {30, 200}, 0, 42), 65536 - 30);
    EXPECT_EQ(StretchExtent({0, 1}, {32768, 2}, 3, 42), 42) << "65536 is 0";
    EXPECT_EQ(StretchExtent({0, 1}, {32769, 2}, 3, 42), 2);
    // Past the range of an int.
    EXPECT_EQ(StretchExtent({65535, 65535}, {0, 65534}, 0, 42),
              CutToDimension(-2147483647 - 1) + 42);
}

TEST(RubberGeometry, RandomLinesAreRoundedToSinglePrecisionAtEachStep) {
    Random random;
    for (int round = 0; round < 200000; ++round) {
        const int most = random.Chance(0.5) ? 65535 : 1200;
        const int value = random.Between(-600, 600);
        const RubberMark a{random.Chance(0.1) ? random.Between(-32768, 65535) : value,
                           random.Between(1, most)};
        const RubberMark b{random.Between(-600, 600), random.Between(1, most)};
        const int extent = random.Between(0, most);
        ASSERT_EQ(Stretch(a, b, extent), InSteps(a, b, extent))
            << a.value << '@' << a.extent << ' ' << b.value << '@' << b.extent << ' ' << extent;
    }
}

// The rounding shows: no other precision gives these numbers.
TEST(RubberGeometry, AtItsOwnMarkAFewValuesComeOutAPixelOff) {
    int off = 0;
    int all = 0;
    for (int value = 1; value <= 300; ++value)
        for (int extent = 401; extent <= 500; ++extent, ++all)
            if (const int came = Stretch({10, 200}, {value, extent}, extent); came != value) {
                EXPECT_EQ(std::abs(came - value), 1);
                ++off;
            }
    EXPECT_GT(off, all / 30);
    EXPECT_LT(off, all / 4);
}

} // namespace
} // namespace corvidlmw::managers
