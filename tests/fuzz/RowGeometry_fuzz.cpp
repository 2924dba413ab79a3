// Rows of a list: what is drawn and cleared, what a point hits, what the scroll bars show.
#include <tests/fuzz/Input.h>
#include <tests/list/RowWalk.h>

#include <algorithm>
#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::list;
using fuzz::Input, fuzz::Require;

namespace {

Frame ReadFrame(Input &input) {
    Frame frame;
    frame.width = input.Dimension();
    frame.height = input.Dimension();
    frame.margin_width = input.Dimension();
    frame.margin_height = input.Dimension();
    frame.row_highlight = input.Dimension();
    frame.shadow = input.Dimension();
    return frame;
}

// Running heights in 16 bits are right only within a window.
Hits ReadHits(Input &input) {
    Hits hits;
    hits.count = input.Between(0, 3000);
    hits.max_item_height = input.Between(1, 60);
    hits.pitch = hits.max_item_height + input.Between(0, 30);
    hits.base_y = input.Between(0, 60);
    hits.height = input.Between(1, 4000);
    hits.visible = RowsThatFit(hits.height - 2 * hits.base_y, hits.pitch);
    hits.top = input.Between(0, std::max(hits.count - 1, 0));
    return hits;
}

void CheckHits(const Hits &hits, short y) {
    std::vector<unsigned short> heights;
    for (int row = 0, sum = hits.max_item_height; row < hits.count; row++, sum += hits.pitch) {
        heights.push_back(CutToDimension(sum));
    }
    Require(RowAt(hits, y) == test::RowAtByWalking(hits, heights, y));
}

Layout ReadLayout(Input &input) {
    Layout layout;
    layout.frame = ReadFrame(input);
    layout.base_x = SideOf(layout.frame);
    layout.base_y = TopOf(layout.frame);
    layout.x_origin = input.Between(0, 1 << 20);
    layout.icon_column_width = input.Dimension();
    layout.max_item_height = input.Dimension();
    layout.show_icons = input.Flag();
    layout.indent_icons = input.Flag();
    layout.right_to_left = input.Flag();
    return layout;
}

void CheckRow(const Layout &layout, const Row &row) {
    const Frame &frame = layout.frame;
    const Rectangle strip = Strip(layout, row);
    Require(strip.y == row.y && strip.height == layout.max_item_height + 4);
    for (const Rectangle &r : {ClearedOfAll(layout, row), ClearedOfOne(layout, row),
                               Bar(layout, row), Cursor(layout, row), Fill(layout, row, true)}) {
        const Rectangle within = WithinShadow(frame, r);
        Require(IsEmpty(within) || (within.x >= frame.shadow &&
                                    within.x + within.width <= frame.width - frame.shadow &&
                                    within.y + within.height <= frame.height - frame.shadow));
        ReachesOut(layout, row, r);
    }
    const Rectangle below = ClearedBelow(layout, row.y);
    Require(IsEmpty(below) || below.y + below.height <= std::max(frame.height - layout.base_y, 1));
    const Rectangle inner = InnerArea(frame);
    Require(inner.width >= 1 && inner.height >= 1);
    TextOrigin(layout, row, RowWidthOfAll(layout));
    IconOrigin(layout, row);
}

// The column is the first one whose end lies past x.
void CheckFields(const Layout &layout, const Row &row, std::span<const int> widths, int start,
                 int x) {
    const int field = FieldAt(widths, start, x);
    long long end = start;
    for (int i = 0; i < static_cast<int>(widths.size()); i++) {
        end += widths[static_cast<std::size_t>(i)];
        Require(field < 0 || i > field ? true : (i == field) == (x < end));
        Require(field >= 0 || x >= end);
        const Rectangle cell = Cell(layout, row, widths, i);
        Require(cell.width >= 0 && cell.width <= 65535 && CutToPosition(cell.x) == cell.x);
    }
}

void CheckBars(const Frame &frame, int count, int top, int visible, int max_width, int origin) {
    for (const BarValues &bar : {VerticalBar(count, top, visible),
                                 HorizontalBar(frame, SideOf(frame), max_width, origin)}) {
        Require(bar.value >= 0 && bar.slider_size >= 1 && bar.increment >= 1);
        Require(bar.page_increment >= 1 && bar.value + bar.slider_size <= bar.maximum);
    }
    const RowRange range = RowsInView(top, visible, count);
    Require(range.first >= 0 && range.first <= range.end && range.end <= std::max(count, 0));
    Require(range.end - range.first <= std::max(visible, 0));
}

void CheckNeeds(Input &input) {
    BarNeeds needs;
    for (int *number :
         {&needs.width, &needs.height, &needs.default_width, &needs.default_height,
          &needs.frame_height, &needs.horizontal_bar_height, &needs.vertical_bar_width,
          &needs.spacing, &needs.count, &needs.max_item_height, &needs.item_spacing}) {
        *number = input.Dimension();
    }
    needs.is_variable = input.Flag();
    const BarsNeeded bars = FindBarsNeeded(needs);
    needs.count++;
    const BarsNeeded with_more = FindBarsNeeded(needs);
    Require(with_more.vertical || !bars.vertical);
    needs.is_static = true;
    const BarsNeeded of_static = FindBarsNeeded(needs);
    Require(of_static.horizontal && of_static.vertical);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Hits hits = ReadHits(input);
    CheckHits(hits, CutToPosition(input.Position()));
    const Layout layout = ReadLayout(input);
    const Row row{input.Position(), input.Dimension(), input.Dimension()};
    CheckRow(layout, row);
    std::vector<int> widths(static_cast<std::size_t>(input.Between(0, 8)));
    for (int &width : widths) {
        width = input.Whole();
    }
    const int start = input.Position();
    CheckFields(layout, row, widths, start, input.Position());
    const int count = input.Between(-1, 1 << 30);
    const int top = input.Whole();
    const int visible = input.Between(1, 1 << 30);
    const int max_width = input.Between(0, 1 << 30);
    CheckBars(layout.frame, count, top, visible, max_width, input.Between(0, 1 << 30));
    CheckNeeds(input);
    return 0;
}
