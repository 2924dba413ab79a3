// Where the parts of a scroll bar lie, which part a point hits, where the slider stands for a value
// and which value a place of the slider means.
//
// Arithmetic only. Layout sums are exact and then limited to what 16 bits hold. The slider's
// arithmetic is in single precision, each intermediate rounded. Values are ints; their sums and
// differences are 64 bits wide, so that no limits, however far apart, overflow.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <cstdint>

namespace corvidlmw::scroll_bar {

// Turns "along the bar" and "across the bar" into x and y, and back.
struct Axis {
    bool horizontal = false;

    int Along(Point p) const { return horizontal ? p.x : p.y; }
    int Across(Point p) const { return horizontal ? p.y : p.x; }
    int Start(const Rectangle &r) const { return horizontal ? r.x : r.y; }
    int Length(const Rectangle &r) const { return horizontal ? r.width : r.height; }
    int Thickness(const Rectangle &r) const { return horizontal ? r.height : r.width; }
    Point At(int along, int across) const {
        return horizontal ? Point{along, across} : Point{across, along};
    }
    Rectangle Box(Point origin, int length, int thickness) const {
        return horizontal ? Rectangle{origin.x, origin.y, length, thickness}
                          : Rectangle{origin.x, origin.y, thickness, length};
    }
};

// ---- Layout -------------------------------------------------------------------------------------

struct Frame {
    int width = 0; // of the widget
    int height = 0;
    int edge = 0; // highlight and shadow together
    bool horizontal = false;
    bool arrows = true;
};

struct Layout {
    Rectangle trough; // at least 1 by 1, also where the widget has no room for it
    Point arrow1;     // the upper or left one
    Point arrow2;
    int arrow_width = 0; // 0 by 0 without arrows, otherwise at least 1 by 1
    int arrow_height = 0;
};

Layout Arrange(const Frame &frame);

// ---- Values -------------------------------------------------------------------------------------

// minimum < maximum, their difference fits an int, and slider_size is between 1 and that.
struct Range {
    int minimum = 0;
    int maximum = 100;
    int slider_size = 10;

    int Extent() const { return maximum - minimum; }
    int Highest() const { return maximum - slider_size; }
    bool Scrolls() const { return slider_size < Extent(); }
};

// The nearest value in the range.
int Fit(const Range &range, std::int64_t value);
// The value that counts from the other end. Its own inverse for values in the range.
int Invert(const Range &range, int value);

// ---- Slider -------------------------------------------------------------------------------------

// A shorter slider could not be grasped.
constexpr int shortest_slider = 6;

// Never shorter than shortest_slider, and then it may begin before a trough that is shorter still.
Rectangle SliderAt(const Rectangle &trough, Axis axis, const Range &range, int value);

// `start` raised to the trough's start, then lowered until the slider ends within the trough.
int FitSlider(const Rectangle &trough, const Rectangle &slider, Axis axis, int start);

// The value that a slider dragged to `start` stands for. `origin` is where the lowest value is: the
// arrow's length and the edge, which with arrows is one pixel less than the trough's start.
int ValueAt(const Rectangle &trough, const Rectangle &slider, Axis axis, const Range &range,
            int origin, int start);

// ---- Hits ---------------------------------------------------------------------------------------

enum class Part { Nothing, Slider, Trough, Arrow1, Arrow2 };

// The slider is asked first, since it lies in the trough. Trough and arrows include the pixel past
// their ends, so that the gaps between them belong to one of them.
Part PartAt(const Layout &layout, const Rectangle &slider, bool arrows, Point point);

enum class Side { Nothing, Arrow1, Arrow2, Before, After };

// What a jump to an end is asked of. The first pixel past the slider is neither on it nor behind it.
Side SideAt(const Layout &layout, const Rectangle &slider, Axis axis, bool arrows, Point point);

} // namespace corvidlmw::scroll_bar
