#include <corvidlmw/scrollbar/ScrollBarGeometry.h>

#include <algorithm>
#include <limits>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Layout -------------------------------------------------------------------------------------

// What a record of the toolkit can hold, so that a bar wider than a window can be stays harmless.
int Limit(int value) {
    return std::clamp<int>(value, std::numeric_limits<short>::min(),
                           std::numeric_limits<short>::max());
}

// At least this much stays between the arrows, at the cost of their length.
constexpr int room_between_arrows = 8;

int ArrowLength(int along, int across, int edge) {
    const int square = across - 2 * edge;
    return along < 2 * (edge + square) + room_between_arrows
               ? (along - room_between_arrows - 2 * edge) / 2
               : square;
}

// ---- Slider -------------------------------------------------------------------------------------

int Pixels(float length) {
    return Truncate(static_cast<double>(length) + 0.5);
}

struct Scale {
    float factor; // pixels for one unit of value
    int length;   // of the slider
};

// A slider of least length has less way to go than its share of the range says, so that it still
// reaches both ends.
Scale ScaleOf(int trough_length, const Range &range) {
    const auto length = static_cast<float>(trough_length);
    const float factor = length / static_cast<float>(range.Extent());
    const int share = Pixels(static_cast<float>(range.slider_size) * factor);
    if (share > shortest_slider) {
        return {factor, share};
    }
    const auto way = static_cast<float>(range.Extent() - range.slider_size);
    return {(length - static_cast<float>(shortest_slider)) / (way == 0.0F ? 1.0F : way),
            shortest_slider};
}

// ---- Hits ---------------------------------------------------------------------------------------

bool Within(Point p, int x, int y, int last_x, int last_y) {
    return p.x >= x && p.x <= last_x && p.y >= y && p.y <= last_y;
}

bool InsideOf(const Rectangle &r, Point p) {
    return Within(p, r.x, r.y, r.x + r.width - 1, r.y + r.height - 1);
}

bool InsideOrJustPast(const Rectangle &r, Point p) {
    return Within(p, r.x, r.y, r.x + r.width, r.y + r.height);
}

Rectangle ArrowBox(const Layout &layout, Point arrow) {
    return {arrow.x, arrow.y, layout.arrow_width, layout.arrow_height};
}

} // namespace

// ---- Layout -------------------------------------------------------------------------------------

// All sums are of the arrows' uncut lengths: in a bar without room for arrows they are negative, and
// the arrows overlap the trough.
Layout Arrange(const Frame &frame) {
    const Axis axis{frame.horizontal};
    const int edge = frame.edge;
    const int along = axis.Along({frame.width, frame.height});
    const int across = axis.Across({frame.width, frame.height});
    const int arrow = frame.arrows ? ArrowLength(along, across, edge) : 0;
    const int start = frame.arrows ? edge + arrow + 1 : edge;
    const int length = along - 2 * start;
    const int thickness = across - 2 * edge;

    Layout layout;
    const Point origin = axis.At(Limit(start), Limit(2 * edge > across ? across / 2 : edge));
    layout.trough = axis.Box(origin, std::max(Limit(length), 1), std::max(Limit(thickness), 1));
    layout.arrow1 = {Limit(edge), Limit(edge)};
    layout.arrow2 = axis.At(Limit(edge + arrow + length + 2), Limit(edge));
    if (frame.arrows) {
        const Rectangle box =
            axis.Box({}, std::max(Limit(arrow), 1), std::max(Limit(thickness), 1));
        layout.arrow_width = box.width;
        layout.arrow_height = box.height;
    }
    return layout;
}

// ---- Values -------------------------------------------------------------------------------------

int Fit(const Range &range, std::int64_t value) {
    return static_cast<int>(
        std::max<std::int64_t>(std::min<std::int64_t>(value, range.Highest()), range.minimum));
}

int Invert(const Range &range, int value) {
    const std::int64_t ends = std::int64_t{range.maximum} + range.minimum;
    return static_cast<int>(std::clamp<std::int64_t>(ends - value - range.slider_size,
                                                     std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

// ---- Slider -------------------------------------------------------------------------------------

Rectangle SliderAt(const Rectangle &trough, Axis axis, const Range &range, int value) {
    const int trough_length = axis.Length(trough);
    const Scale scale = ScaleOf(trough_length, range);
    const auto above_minimum = static_cast<float>(std::int64_t{value} - range.minimum);
    const int way = std::min(Pixels(above_minimum * scale.factor), trough_length - scale.length);
    const Point start = axis.At(Limit(axis.Start(trough) + way), axis.Across({trough.x, trough.y}));
    return axis.Box(start, scale.length, std::max(axis.Thickness(trough), 1));
}

int FitSlider(const Rectangle &trough, const Rectangle &slider, Axis axis, int start) {
    const int last = axis.Start(trough) + axis.Length(trough) - axis.Length(slider);
    return std::min(std::max(start, axis.Start(trough)), last);
}

int ValueAt(const Rectangle &trough, const Rectangle &slider, Axis axis, const Range &range,
            int origin, int start) {
    const int room = axis.Length(trough) - axis.Length(slider);
    const float way = static_cast<float>(start) - static_cast<float>(origin);
    const float share = room > 0 ? way / static_cast<float>(room) : 1.0F;
    const auto extent = static_cast<float>(range.Extent() - range.slider_size);
    const float beyond_minimum = extent * share;
    const float value = static_cast<float>(range.minimum) + beyond_minimum;
    const float half = value > 0.0F ? 0.5F : value < 0.0F ? -0.5F : 0.0F;
    return Fit(range, Truncate(static_cast<double>(value + half)));
}

// ---- Hits ---------------------------------------------------------------------------------------

Part PartAt(const Layout &layout, const Rectangle &slider, bool arrows, Point point) {
    if (InsideOf(slider, point)) {
        return Part::Slider;
    }
    if (InsideOrJustPast(layout.trough, point)) {
        return Part::Trough;
    }
    if (arrows && InsideOrJustPast(ArrowBox(layout, layout.arrow1), point)) {
        return Part::Arrow1;
    }
    return arrows && InsideOrJustPast(ArrowBox(layout, layout.arrow2), point) ? Part::Arrow2
                                                                              : Part::Nothing;
}

Side SideAt(const Layout &layout, const Rectangle &slider, Axis axis, bool arrows, Point point) {
    if (arrows && InsideOrJustPast(ArrowBox(layout, layout.arrow1), point)) {
        return Side::Arrow1;
    }
    if (arrows && InsideOrJustPast(ArrowBox(layout, layout.arrow2), point)) {
        return Side::Arrow2;
    }
    if (!InsideOrJustPast(layout.trough, point)) {
        return Side::Nothing;
    }
    const int along = axis.Along(point);
    const int slider_start = axis.Start(slider);
    if (along < slider_start) {
        return Side::Before;
    }
    return along > slider_start + axis.Length(slider) ? Side::After : Side::Nothing;
}

} // namespace corvidlmw::scroll_bar
