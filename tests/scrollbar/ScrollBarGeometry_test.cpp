#include <corvidlmw/scrollbar/ScrollBarGeometry.h>
#include <tests/scrollbar/ScrollBarModel.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <ostream>

namespace corvidlmw {

static void PrintTo(const Rectangle &r, std::ostream *out) {
    *out << r.width << 'x' << r.height << '+' << r.x << '+' << r.y;
}

namespace scroll_bar {
namespace {

using test::Random;
using namespace scroll_bar_model;

// ---- Layout -------------------------------------------------------------------------------------

struct LayoutCase {
    Frame frame;
    Rectangle trough;
    int arrow2, arrow_width, arrow_height;
};

TEST(ScrollBarGeometry, LaysOutSizesWithAndWithoutRoom) {
    const LayoutCase cases[] = {
        {{15, 104, 2, false, true}, {2, 14, 11, 76}, 91, 11, 11},
        {{300, 20, 5, true, true}, {16, 5, 268, 10}, 285, 10, 10},
        {{3000, 20, 2, true, false}, {2, 2, 2996, 16}, 0, 0, 0},
        {{40, 20, 2, true, true}, {17, 2, 6, 16}, 24, 14, 16}, // 8 pixels from arrow to arrow
        {{9, 20, 2, true, true}, {2, 2, 5, 16}, 8, 1, 16},     // (9 - 8 - 4) / 2 is -1
        {{1, 1, 2, false, true}, {0, -2, 1, 5}, 4, 1, 1},      // nothing fits
        {{7, 7, 4, true, false}, {4, 3, 1, 1}, 0, 0, 0},       // half of what cannot hold the edges
        {{40000, 65535, 9, false, true}, {9, 32764, 32767, 7}, 32767, 32767, 32754}, // 16 bits
    };
    for (const LayoutCase &one : cases) {
        const Layout layout = Arrange(one.frame);
        EXPECT_EQ(layout.trough, one.trough);
        EXPECT_EQ(layout.arrow_width, one.arrow_width);
        EXPECT_EQ(layout.arrow_height, one.arrow_height);
        if (one.frame.arrows) {
            EXPECT_EQ(Axis{one.frame.horizontal}.Along(layout.arrow2), one.arrow2);
        }
    }
}

// ---- Slider -------------------------------------------------------------------------------------

Range RandomRange(Random &random) {
    const int scale = random.Between(1, 31);
    const int most = scale == 31 ? INT_MAX : (1 << scale) - 1;
    Range range;
    const int extent = random.Between(1, most);
    const int lowest = random.Chance(0.2) ? INT_MIN : -most;
    range.minimum = random.Chance(0.2) ? INT_MAX - extent
                                       : random.Between(lowest, std::min(INT_MAX - extent, most));
    range.maximum = range.minimum + extent;
    range.slider_size =
        random.Chance(0.5) ? random.Between(1, std::min(extent, 50)) : random.Between(1, extent);
    return range;
}

TEST(ScrollBarGeometry, TheSliderStandsWhereASecondComputationPutsIt) {
    Random random;
    for (int i = 0; i < 200000; i++) {
        const Rectangle trough = {random.Between(0, 30), random.Between(0, 5),
                                  random.Between(1, random.Chance(0.2) ? 32767 : 400),
                                  random.Between(1, 30)};
        const Range range = RandomRange(random);
        const int value = random.Between(range.minimum, range.Highest());
        const Rectangle slider = SliderAt(trough, {true}, range, value);
        ASSERT_EQ(slider, ExpectedSlider(trough, range, value))
            << range.minimum << ".." << range.maximum << " size " << range.slider_size << " value "
            << value << " in " << trough.width;
        ASSERT_EQ(Transposed(slider), SliderAt(Transposed(trough), {false}, range, value));
        ASSERT_LE(slider.x + slider.width, trough.x + trough.width);
        ASSERT_GE(slider.x, trough.x - std::max(0, 6 - trough.width));
        ASSERT_EQ(Invert(range, Invert(range, value)), value);
    }
}

TEST(ScrollBarGeometry, AShortestSliderReachesBothEnds) {
    const Rectangle trough = {2, 14, 11, 100};
    const Range range = {0, 1000, 1};
    EXPECT_EQ(SliderAt(trough, {false}, range, 0), (Rectangle{2, 14, 11, 6}));
    EXPECT_EQ(SliderAt(trough, {false}, range, 999), (Rectangle{2, 108, 11, 6}));
    EXPECT_EQ(SliderAt({0, 3, 9, 5}, {false}, range, 500), (Rectangle{0, 2, 9, 6}));
}

// ---- Values -------------------------------------------------------------------------------------

TEST(ScrollBarGeometry, APlaceMeansTheValueThatASecondComputationGives) {
    Random random;
    for (int i = 0; i < 200000; i++) {
        const Range range = RandomRange(random);
        const Rectangle trough = {14, 2, random.Between(1, 2000), 11};
        const Rectangle slider = SliderAt(trough, {true}, range, range.minimum);
        const int start = random.Between(-2000, 4000);
        const int room = trough.width - slider.width;
        ASSERT_EQ(ValueAt(trough, slider, {true}, range, 13, start),
                  ExpectedValue(trough, slider, range, 13, start));
        const int fitted = FitSlider(trough, slider, {true}, start);
        ASSERT_EQ(fitted, std::min(std::max(start, 14), 14 + room));
    }
}

TEST(ScrollBarGeometry, StepsBeyondAnIntStopAtTheLimits) {
    const Range range = {INT_MAX - 100, INT_MAX, 10};
    EXPECT_EQ(Fit(range, std::int64_t{INT_MAX} + INT_MAX), INT_MAX - 10);
    EXPECT_EQ(Fit(range, std::int64_t{INT_MIN} - INT_MAX), INT_MAX - 100);
    EXPECT_EQ(Invert({INT_MIN, -2, 5}, INT_MIN), -7);
}

// ---- Hits ---------------------------------------------------------------------------------------

TEST(ScrollBarGeometry, EveryPixelAlongTheBarBelongsToOnePart) {
    const Layout layout = Arrange({15, 104, 2, false, true}); // trough 14..89, arrows 2, 91
    const Rectangle slider = {2, 40, 11, 20};
    std::string parts, sides;
    for (int y = 0; y < 104; y++) {
        parts += ".STab"[static_cast<int>(PartAt(layout, slider, true, {5, y}))];
        sides += ".ab-+"[static_cast<int>(SideAt(layout, slider, {false}, true, {5, y}))];
    }
    auto run = [](int count, char part) { return std::string(static_cast<size_t>(count), part); };
    EXPECT_EQ(parts, run(2, '.') + run(12, 'a') + run(26, 'T') + run(20, 'S') + run(31, 'T') +
                         run(12, 'b') + run(1, '.'));
    EXPECT_EQ(sides, run(2, '.') + run(12, 'a') + run(26, '-') + run(21, '.') + run(30, '+') +
                         run(12, 'b') + run(1, '.'));
    EXPECT_EQ(PartAt(layout, slider, true, {13, 20}), Part::Trough); // one past its side
    EXPECT_EQ(PartAt(layout, slider, true, {13, 45}), Part::Trough);
    EXPECT_EQ(PartAt(layout, slider, true, {14, 20}), Part::Nothing);
    EXPECT_EQ(PartAt(layout, slider, false, {5, 5}), Part::Nothing);
}

} // namespace
} // namespace scroll_bar
} // namespace corvidlmw
