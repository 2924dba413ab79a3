// The arithmetic of rows: by examples worked out by hand, and against a second computation that goes
// from row to row where the first divides.
#include <corvidlmw/list/RowGeometry.h>

#include <tests/list/RowWalk.h>
#include <tests/support/Random.h>

#include <array>
#include <ostream>
#include <vector>

namespace corvidlmw {

static std::ostream &operator<<(std::ostream &out, const Rectangle &r) {
    return out << r.width << 'x' << r.height << '+' << r.x << '+' << r.y;
}
static std::ostream &operator<<(std::ostream &out, const Point &p) {
    return out << p.x << ", " << p.y;
}

namespace list {
namespace {

using test::Random, test::RowAtByWalking;

// 200 by 100, margins 2 and 0, highlight 2 and shadow 2: rows begin at 7, 5.
const Frame frame{.width = 200,
                  .height = 100,
                  .margin_width = 2,
                  .margin_height = 0,
                  .row_highlight = 3,
                  .shadow = 2};

Layout PlainLayout() {
    return {.frame = frame, .base_x = 7, .base_y = 5, .max_item_height = 13};
}

Layout IconLayout() {
    Layout layout = PlainLayout();
    layout.icon_column_width = 18;
    layout.show_icons = layout.indent_icons = true;
    return layout;
}

TEST(RowGeometry, PlainRows) {
    const Layout layout = PlainLayout();
    const Row row{.y = 22, .width = 60, .indent = 0};
    EXPECT_EQ(InnerArea(frame), (Rectangle{7, 5, 186, 90}));
    EXPECT_EQ(BarArea(frame), (Rectangle{5, 5, 190, 90}));
    EXPECT_EQ(TextOrigin(layout, row, RowWidthOfAll(layout)), (Point{7, 24}));
    EXPECT_EQ(ClearedOfAll(layout, row), (Rectangle{7, 22, 189, 17}));
    EXPECT_EQ(ClearedOfOne(layout, row), (Rectangle{7, 22, 191, 17}));
    EXPECT_EQ(Fill(layout, row, false), (Rectangle{7, 22, 193, 13}));
    EXPECT_EQ(Fill(layout, row, true), (Rectangle{7, 22, 193, 17}));
    EXPECT_EQ(Bar(layout, row), (Rectangle{7, 22, 191, 17}));
    EXPECT_EQ(Cursor(layout, row), (Rectangle{4, 19, 190, 20}));
    EXPECT_EQ(ClearedBelow(layout, 22), (Rectangle{7, 37, 189, 58}));
    EXPECT_TRUE(IsEmpty(ClearedBelow(layout, 82)));
}

TEST(RowGeometry, RowsWithIconsScrolledSideways) {
    Layout layout = IconLayout();
    layout.x_origin = 10;
    const Row row{.y = 5, .width = 60, .indent = 12};
    EXPECT_EQ(IconOrigin(layout, row), (Point{7 - 10 + 12, 5}));
    EXPECT_EQ(TextOrigin(layout, row, 193), (Point{7 - 10 + 18 + 12, 7}));
    EXPECT_EQ(ClearedOfOne(layout, row), (Rectangle{10 + 15 - 2, 5, 193 - 18, 17}));
    EXPECT_EQ(Fill(layout, row, false), (Rectangle{27, 5, 175, 13}));
    EXPECT_EQ(Bar(layout, row), (Rectangle{10 + 15 + 12 - 2, 5, 193 - 18 - 12, 17}));
    EXPECT_EQ(Cursor(layout, row), (Rectangle{4 + 10 + 12 + 18, 2, 192 - 18 - 12, 20}));
    layout.indent_icons = false;
    EXPECT_EQ(IconOrigin(layout, row), (Point{-3, 5}));
    EXPECT_EQ(Bar(layout, row), (Rectangle{23, 5, 175, 17})) << "the text alone is indented";
    EXPECT_EQ(TextOrigin(layout, row, 193).x, 27);
}

TEST(RowGeometry, RowsFromRightToLeftEndWhereTheRowDoes) {
    Layout layout = PlainLayout();
    layout.right_to_left = true;
    layout.x_origin = 5;
    const Row row{.y = 5, .width = 60, .indent = 0};
    EXPECT_EQ(TextOrigin(layout, row, RowWidthOfAll(layout)), (Point{186 - 60 + 5, 7}));
    EXPECT_EQ(TextOrigin(layout, row, RowWidthOfOne(layout)), (Point{193 - 60 + 5, 7}));
}

TEST(RowGeometry, CellsFollowTheColumnsEvenIfThoseAreAbsurd) {
    const Layout layout = PlainLayout();
    const Row row{.y = 5, .width = 60, .indent = 9};
    const std::array widths{40, 50, 60};
    EXPECT_EQ(Cell(layout, row, widths, 0), (Rectangle{7 - 11, 5, 40, 13}));
    EXPECT_EQ(Cell(layout, row, widths, 2), (Rectangle{7 + 90 - 11, 5, 60, 13}));
    const std::array absurd{2'000'000'000, 2'000'000'000, -1};
    EXPECT_EQ(Cell(layout, row, absurd, 2).width, 65535);
    EXPECT_EQ(Cell(layout, row, absurd, 2).x,
              CutToPosition(static_cast<int>(3'999'999'996LL & 0xffff)));
    EXPECT_EQ(FieldAt(widths, 7, 46), 0);
    EXPECT_EQ(FieldAt(widths, 7, 47), 1);
    EXPECT_EQ(FieldAt(widths, 7, 157), -1);
    EXPECT_EQ(FieldAt(widths, 7, -300), 0) << "left of all columns is the first";
    EXPECT_EQ(FieldAt(absurd, 0, 32767), 0);
}

TEST(RowGeometry, NothingIsNegativeInAWidgetWithoutRoom) {
    Frame tiny = frame;
    tiny.width = 1;
    tiny.height = 0;
    EXPECT_EQ(InnerArea(tiny), (Rectangle{7, 5, 1, 1}));
    EXPECT_EQ(RowsThatFit(ListHeight(tiny), 17), 1);
    EXPECT_EQ(RowsThatFit(170, 0), 170);
    Layout layout = IconLayout();
    layout.frame = tiny;
    EXPECT_TRUE(IsEmpty(Bar(layout, {})) && IsEmpty(Cursor(layout, {})) &&
                IsEmpty(ClearedOfOne(layout, {})));
}

// ---- Against a second computation -------------------------------------------------------------------

TEST(RowGeometry, PicksTheRowInEveryRegionOfALongList) {
    Random random;
    for (int round = 0; round < 40; round++) {
        Hits hits;
        hits.count = random.Between(1, 12000);
        hits.max_item_height = random.Between(1, 40);
        const int spacing = random.Between(1, 8);
        hits.pitch = hits.max_item_height + spacing;
        hits.base_y = random.Between(0, 9);
        hits.height = random.Between(1, 900);
        hits.visible = RowsThatFit(hits.height - 2 * hits.base_y, hits.pitch);
        std::vector<unsigned short> heights;
        for (int row = 0, sum = hits.max_item_height; row < hits.count; row++, sum += hits.pitch)
            heights.push_back(CutToDimension(sum));
        for (int i = 0; i < 60; i++) {
            hits.top = random.Chance(0.3) ? 0 : random.Between(0, hits.count - 1);
            const int y = random.Between(-5, hits.height + 5);
            ASSERT_EQ(RowAt(hits, CutToPosition(y)), RowAtByWalking(hits, heights, y))
                << "y " << y << " top " << hits.top << " of " << hits.count;
        }
    }
}

TEST(RowGeometry, KnowsTheRowsInView) {
    const auto ends = [](RowRange r) { return std::array{r.first, r.end}; };
    EXPECT_EQ(ends(RowsInView(3, 4, 10)), (std::array{3, 7}));
    EXPECT_EQ(ends(RowsInView(8, 4, 10)), (std::array{8, 10}));
    EXPECT_EQ(ends(RowsInView(12, 4, 10)), (std::array{10, 10}));
    EXPECT_EQ(ends(RowsInView(-2, 4, 10)), (std::array{0, 2}));
    EXPECT_EQ(ends(RowsInView(0, 2'000'000'000, 10)), (std::array{0, 10}));
    EXPECT_EQ(ends(RowsInView(2'000'000'000, 2'000'000'000, 10)), (std::array{10, 10}));
}

TEST(RowGeometry, BarsNeverAskForWhatABarWouldRepair) {
    Random random;
    for (int i = 0; i < 4000; i++) {
        const int count = random.Between(-1, 50), top = random.Between(-3, 60);
        const BarValues vertical = VerticalBar(count, top, random.Between(1, 60));
        Frame any = frame;
        any.width = random.Between(0, 400);
        const int base_x = random.Between(0, 9);
        const BarValues horizontal =
            HorizontalBar(any, base_x, random.Between(0, 600), random.Between(0, 700));
        for (const BarValues &bar : {vertical, horizontal}) {
            ASSERT_GE(bar.value, 0);
            ASSERT_GE(bar.slider_size, 1);
            ASSERT_LE(bar.value + bar.slider_size, bar.maximum);
            ASSERT_GE(bar.page_increment, 1);
        }
    }
    EXPECT_EQ(VerticalBar(20, 15, 8), (BarValues{20, 15, 5, 1, 7}));
    EXPECT_EQ(HorizontalBar(frame, 7, 500, 40), (BarValues{514, 40, 200, 10, 176}));
    EXPECT_EQ(HorizontalBar(frame, 7, 500, 400), (BarValues{514, 314, 200, 10, 176}));
    Frame narrow = frame;
    narrow.width = 20;
    EXPECT_EQ(HorizontalBar(narrow, 7, 500, 0).page_increment, 1);
}

TEST(RowGeometry, BarsAreThereAsNeeded) {
    // Five rows of 13 and the gaps of 4 between them need 81 pixels inside of the frame.
    BarNeeds needs{.width = 200,
                   .height = 91,
                   .default_width = 150,
                   .default_height = 95,
                   .frame_height = 10,
                   .horizontal_bar_height = 15,
                   .vertical_bar_width = 15,
                   .spacing = 4,
                   .count = 5,
                   .max_item_height = 13,
                   .item_spacing = 4};
    const auto found = [&] {
        const BarsNeeded bars = FindBarsNeeded(needs);
        return (bars.horizontal ? 1 : 0) + (bars.vertical ? 2 : 0);
    };
    EXPECT_EQ(found(), 0);
    needs.count = 6;
    EXPECT_EQ(found(), 2);
    needs.count = 5;
    needs.default_width = 190;
    EXPECT_EQ(found(), 0) << "the vertical bar takes nothing while it is not there";
    needs.count = 6;
    EXPECT_EQ(found(), 3) << "with the vertical bar there is too little width";
    needs.count = 1;
    needs.is_static = true;
    EXPECT_EQ(found(), 3);
    needs.is_static = false;
    needs.default_width = 201;
    EXPECT_EQ(found(), 3) << "too small both ways";
    needs.default_height = 91;
    EXPECT_EQ(found(), 1);
    needs.count = 5;
    EXPECT_EQ(found(), 3) << "the horizontal bar leaves three rows";
    needs.is_variable = true;
    EXPECT_EQ(found(), 1) << "no horizontal bar takes room";
    needs.height = 0;
    needs.default_height = 0;
    EXPECT_EQ(found(), 3);
    needs.count = 1;
    EXPECT_EQ(found(), 1) << "one row always fits";
}

} // namespace
} // namespace list
} // namespace corvidlmw
