// Where the rows of a list lie: what a row covers, where its text, icon, bar, cell and cursor go, which
// row or column a point hits, how many rows fit and what the scroll bars show. Arithmetic only.
//
// All rows are equally tall. A row's y is the difference of two running heights that are kept in 16
// bits, plus the frame, in 16 bits again; so it is right for every row in view, however many rows lie
// above the window. Right to left and left to right, drawing all rows and drawing one row differ on
// purpose where functions for both stand side by side.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <span>

namespace corvidlmw::list {

// ---- Frame ----------------------------------------------------------------------------------------

// What lies around the rows.
struct Frame {
    int width = 0; // of the widget
    int height = 0;
    int margin_width = 0;
    int margin_height = 0;
    int row_highlight = 0;
    int shadow = 0;
};

constexpr int SideOf(const Frame &frame) {
    return frame.margin_width + frame.row_highlight + frame.shadow;
}
constexpr int TopOf(const Frame &frame) {
    return frame.margin_height + frame.row_highlight + frame.shadow;
}
// Can be negative: a widget has any size.
constexpr int ListWidth(const Frame &frame) {
    return frame.width - 2 * SideOf(frame);
}
constexpr int ListHeight(const Frame &frame) {
    return frame.height - 2 * TopOf(frame);
}
// At least 1 by 1.
Rectangle InnerArea(const Frame &frame);
// What bars are clipped to: all but the frame itself.
Rectangle BarArea(const Frame &frame);
// What is cleared of a rectangle: all but the shadow around the list, which rows' boxes can reach into.
Rectangle WithinShadow(const Frame &frame, const Rectangle &r);

// ---- Rows -----------------------------------------------------------------------------------------

// How many whole rows a height takes, at least 1.
int RowsThatFit(int list_height, int row_step);

struct RowRange {
    int first = 0;
    int end = 0; // one past the last
    bool Contains(int row) const { return row >= first && row < end; }
};
// Those in view that there are; empty if the top is past the end.
RowRange RowsInView(int top, int visible, int count);

// `height` and `top_height` are running heights, cut to 16 bits.
constexpr short RowY(int height, int top_height, int base_y) {
    return CutToPosition(height - top_height + base_y);
}

// What all rows share.
struct Layout {
    Frame frame;
    int base_x = 0;
    int base_y = 0;
    int x_origin = 0; // how far the list is scrolled sideways
    int icon_column_width = 0;
    int max_item_height = 0;
    bool show_icons = false;
    bool indent_icons = false;
    bool right_to_left = false;
};

struct Row {
    int y = 0;
    int width = 0; // of its text
    int indent = 0;
};

// The frame is taken off on both sides when all rows are drawn, and on one when a single row is.
int RowWidthOfAll(const Layout &layout);
int RowWidthOfOne(const Layout &layout);

// Without the indent.
int TextX(const Layout &layout, const Row &row, int row_width);
Point TextOrigin(const Layout &layout, const Row &row, int row_width);
Point IconOrigin(const Layout &layout, const Row &row);

// Cleared before a row is drawn. Rectangles here can be empty or inside out: see IsEmpty.
Rectangle ClearedOfAll(const Layout &layout, const Row &row);
Rectangle ClearedOfOne(const Layout &layout, const Row &row);
// From below the last drawn row on; empty if that one reaches the end.
Rectangle ClearedBelow(const Layout &layout, int last_row_y);
// Filled with the background of the row's text.
Rectangle Fill(const Layout &layout, const Row &row, bool own_look);
// The raised bar of a selected row.
Rectangle Bar(const Layout &layout, const Row &row);
// The column's cell in a selected row, with the shadow around it. `field` is an index of `widths`.
Rectangle Cell(const Layout &layout, const Row &row, std::span<const int> widths, int field);
// Whether something clipped to the bars' area shows where the row's own clearing, alone or with all others,
// does not reach: in the margin, or where icons stand.
bool ReachesOut(const Layout &layout, const Row &row, const Rectangle &drawn);
// All that a row can cover.
Rectangle Strip(const Layout &layout, const Row &row);
// The location cursor, as a frame of the highlight's thickness.
Rectangle Cursor(const Layout &layout, const Row &row);

constexpr bool IsEmpty(const Rectangle &r) {
    return r.width <= 0 || r.height <= 0;
}

// ---- Hits -----------------------------------------------------------------------------------------

// Which row a height hits. `beyond` (count + 1) is no row; the first row that is not there is `count`;
// -1 is the row above the window.
struct Hits {
    int base_y = 0;
    int height = 0; // of the widget
    int count = 0;
    int top = 0;
    int visible = 0;
    int max_item_height = 0;
    int pitch = 0; // from one row to the next
};
int RowAt(const Hits &hits, short y);

// The first column whose end lies past x, if the first begins at `start`; -1 behind the last.
int FieldAt(std::span<const int> widths, int start, int x);

// ---- Scroll bars ------------------------------------------------------------------------------------

struct BarValues {
    int maximum = 1;
    int value = 0;
    int slider_size = 1;
    int increment = 1;
    int page_increment = 1;
    friend bool operator==(const BarValues &, const BarValues &) = default;
};

// The page is given without rows too. `top` is brought below `count`.
BarValues VerticalBar(int count, int top, int visible);
// `origin` is not negative. It is brought to where the slider ends at the maximum.
BarValues HorizontalBar(const Frame &frame, int base_x, int max_width, int origin);

// What decides which bars a list of a given size needs.
struct BarNeeds {
    int width = 0; // the size in question
    int height = 0;
    int default_width = 0; // the preferred size
    int default_height = 0;
    int frame_height = 0;          // frame and margin, above and below
    int horizontal_bar_height = 0; // its borders and highlights included
    int vertical_bar_width = 0;
    int spacing = 0; // between the list and its bars
    int count = 0;
    int max_item_height = 0;
    int item_spacing = 0;
    bool is_static = false;
    bool is_variable = false;
};
struct BarsNeeded {
    bool horizontal = false;
    bool vertical = false;
};
BarsNeeded FindBarsNeeded(const BarNeeds &needs);

} // namespace corvidlmw::list
