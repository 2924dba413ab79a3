#include <corvidlmw/list/RowGeometry.h>

#include <algorithm>
#include <cstdint>

namespace corvidlmw::list {

namespace {

// The text stands this much below the row's top, and its box is twice that taller than the row.
constexpr int text_drop = 2;
constexpr int box_excess = 2 * text_drop;
// A cell begins this much to the left of its column's text.
constexpr int cell_lead = 11;
// The horizontal bar moves by this much, and its page leaves as much in sight.
constexpr int horizontal_step = 10;

int BoxHeight(const Layout &layout) {
    return layout.max_item_height + box_excess;
}

int IconIndent(const Layout &layout, const Row &row) {
    return layout.indent_icons ? row.indent : 0;
}

// A row drawn alone keeps two pixels free: to the left of the text where icons stand, else at its end.
int InsetOfOne(const Layout &layout) {
    return layout.show_icons ? 2 : 0;
}
int CutOfOne(const Layout &layout) {
    return layout.show_icons ? 0 : 2;
}

} // namespace

// ---- Frame ----------------------------------------------------------------------------------------

Rectangle InnerArea(const Frame &frame) {
    return {SideOf(frame), TopOf(frame), std::max(ListWidth(frame), 1),
            std::max(ListHeight(frame), 1)};
}

Rectangle BarArea(const Frame &frame) {
    const int edge = frame.row_highlight + frame.shadow;
    return {edge, edge, std::max(frame.width - 2 * edge, 0), std::max(frame.height - 2 * edge, 0)};
}

Rectangle WithinShadow(const Frame &frame, const Rectangle &r) {
    const int x = std::max(r.x, frame.shadow);
    const int y = std::max(r.y, frame.shadow);
    return {x, y, std::min(r.x + r.width, frame.width - frame.shadow) - x,
            std::min(r.y + r.height, frame.height - frame.shadow) - y};
}

// ---- Rows -----------------------------------------------------------------------------------------

int RowsThatFit(int list_height, int row_step) {
    return std::max(list_height / std::max(row_step, 1), 1);
}

RowRange RowsInView(int top, int visible, int count) {
    const int first = std::clamp(top, 0, std::max(count, 0));
    const auto end = std::int64_t{top} + visible;
    return {first, static_cast<int>(std::clamp<std::int64_t>(end, first, std::max(count, first)))};
}

int RowWidthOfAll(const Layout &layout) {
    return std::max(layout.frame.width - 2 * layout.base_x, 1);
}

int RowWidthOfOne(const Layout &layout) {
    return layout.frame.width - layout.base_x;
}

int TextX(const Layout &layout, const Row &row, int row_width) {
    return layout.right_to_left ? row_width - row.width + layout.x_origin
                                : layout.base_x - layout.x_origin + layout.icon_column_width;
}

Point TextOrigin(const Layout &layout, const Row &row, int row_width) {
    return {TextX(layout, row, row_width) + row.indent, row.y + text_drop};
}

Point IconOrigin(const Layout &layout, const Row &row) {
    return {layout.base_x - layout.x_origin + IconIndent(layout, row), row.y};
}

Rectangle ClearedOfAll(const Layout &layout, const Row &row) {
    return {layout.base_x, row.y, RowWidthOfAll(layout) + 3, BoxHeight(layout)};
}

Rectangle ClearedOfOne(const Layout &layout, const Row &row) {
    const int row_width = RowWidthOfOne(layout);
    return {layout.x_origin + TextX(layout, row, row_width) - InsetOfOne(layout), row.y,
            row_width - layout.icon_column_width - CutOfOne(layout), BoxHeight(layout)};
}

Rectangle ClearedBelow(const Layout &layout, int last_row_y) {
    const int end = std::max(layout.frame.height - layout.base_y, 1);
    const int row_end = layout.max_item_height + last_row_y;
    if (row_end >= end) {
        return {};
    }
    const int y = row_end + 2;
    return {layout.base_x, y, RowWidthOfAll(layout) + 3, end - y};
}

Rectangle Fill(const Layout &layout, const Row &row, bool own_look) {
    const int row_width = RowWidthOfOne(layout);
    return {TextX(layout, row, row_width) + row.indent, row.y, row_width - layout.icon_column_width,
            own_look ? BoxHeight(layout) : layout.max_item_height};
}

Rectangle Bar(const Layout &layout, const Row &row) {
    const int row_width = RowWidthOfOne(layout);
    const int left = IconIndent(layout, row);
    return {layout.x_origin + TextX(layout, row, row_width) + left - InsetOfOne(layout), row.y,
            row_width - layout.icon_column_width - left - CutOfOne(layout), BoxHeight(layout)};
}

// Columns are as wide as the client says, which can be anything.
Rectangle Cell(const Layout &layout, const Row &row, std::span<const int> widths, int field) {
    std::int64_t x = TextX(layout, row, RowWidthOfOne(layout));
    for (const int width : widths.first(static_cast<std::size_t>(field))) {
        x += width;
    }
    return {CutToPosition(static_cast<int>((x - cell_lead) & 0xffff)), row.y,
            CutToDimension(widths[static_cast<std::size_t>(field)]), layout.max_item_height};
}

bool ReachesOut(const Layout &layout, const Row &row, const Rectangle &drawn) {
    const Rectangle area = BarArea(layout.frame);
    const Rectangle all = ClearedOfAll(layout, row);
    const Rectangle one = ClearedOfOne(layout, row);
    return std::max(drawn.x, area.x) < std::max(all.x, one.x) ||
           std::min(drawn.x + drawn.width, area.x + area.width) >
               std::min(all.x + all.width, one.x + one.width);
}

Rectangle Strip(const Layout &layout, const Row &row) {
    const Rectangle area = BarArea(layout.frame);
    return {area.x, row.y, area.width, BoxHeight(layout)};
}

// The origin is added here, where the text takes it off.
Rectangle Cursor(const Layout &layout, const Row &row) {
    const Frame &frame = layout.frame;
    const int left = IconIndent(layout, row);
    return {layout.base_x - frame.row_highlight + layout.x_origin + left +
                (layout.show_icons ? layout.icon_column_width : 0),
            row.y - frame.row_highlight,
            frame.width - 2 * (frame.shadow + frame.margin_width) - layout.icon_column_width -
                left - CutOfOne(layout),
            layout.max_item_height + frame.row_highlight + 2 * frame.shadow};
}

// ---- Hits -----------------------------------------------------------------------------------------

// The gap below a row belongs to the next one, and the strip below the last row to none.
int RowAt(const Hits &hits, short y) {
    if (y <= hits.base_y) {
        return hits.top != 0 ? -1 : 0;
    }
    if (y > hits.height && std::int64_t{hits.top} + hits.visible >= hits.count) {
        return hits.count - 1;
    }
    if (y >= hits.height - hits.base_y) {
        return hits.count + 1;
    }
    const int past_first = std::max(y - hits.base_y - hits.max_item_height, 0);
    const int pitch = std::max(hits.pitch, 1);
    const auto row = std::int64_t{hits.top} + (past_first + pitch - 1) / pitch;
    return static_cast<int>(std::min<std::int64_t>(row, hits.count));
}

int FieldAt(std::span<const int> widths, int start, int x) {
    std::int64_t end = start;
    for (std::size_t field = 0; field < widths.size(); field++) {
        end += widths[field];
        if (x < end) {
            return static_cast<int>(field);
        }
    }
    return -1;
}

// ---- Scroll bars ------------------------------------------------------------------------------------

BarValues VerticalBar(int count, int top, int visible) {
    const int page = visible > 1 ? visible - 1 : 1;
    if (count < 1) {
        return {.page_increment = page};
    }
    const int value = std::clamp(top, 0, count - 1);
    return {.maximum = count,
            .value = value,
            .slider_size = std::clamp(visible, 1, count - value),
            .page_increment = page};
}

// The page is computed in 16 bits: of a list narrower than the step it would be enormous.
BarValues HorizontalBar(const Frame &frame, int base_x, int max_width, int origin) {
    const int maximum = std::max(max_width + 2 * base_x, 1);
    const int value = std::clamp(origin, 0, std::max(maximum - std::max(frame.width, 1), 0));
    const int page = CutToDimension(ListWidth(frame) - horizontal_step);
    return {.maximum = maximum,
            .value = value,
            .slider_size = std::clamp(frame.width, 1, maximum - value),
            .increment = horizontal_step,
            .page_increment = page > frame.width ? 1 : std::max(page, 1)};
}

namespace {

// The first row needs no gap above it.
int WholeRows(const BarNeeds &needs, int available) {
    const int pitch = std::max(needs.max_item_height + needs.item_spacing, 1);
    return std::max((available - needs.max_item_height) / pitch, 0) + 1;
}

// In the list's own width: a vertical bar takes room from it and can make it too narrow.
BarsNeeded FindWhereAsNeeded(const BarNeeds &needs) {
    int available = std::max(needs.height - needs.frame_height, 1);
    if (needs.default_width > needs.width && !needs.is_variable) {
        available = std::max(available - needs.horizontal_bar_height - needs.spacing, 1);
    }
    if (needs.count <= WholeRows(needs, available)) {
        return {.horizontal = needs.default_width > needs.width, .vertical = false};
    }
    const int remaining = std::max(needs.width - needs.vertical_bar_width - needs.spacing, 1);
    return {.horizontal = needs.default_width > remaining, .vertical = true};
}

} // namespace

BarsNeeded FindBarsNeeded(const BarNeeds &needs) {
    const bool too_small = needs.height < needs.default_height && needs.width < needs.default_width;
    return too_small || needs.is_static ? BarsNeeded{.horizontal = true, .vertical = true}
                                        : FindWhereAsNeeded(needs);
}

} // namespace corvidlmw::list
