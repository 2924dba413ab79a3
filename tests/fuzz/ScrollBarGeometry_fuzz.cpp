// Trough, arrows and slider of a scroll bar, at any size and in any range.
#include <tests/fuzz/Input.h>
#include <tests/scrollbar/ScrollBarModel.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::scroll_bar;
using namespace corvidlmw::scroll_bar::scroll_bar_model;
using fuzz::Input, fuzz::Require;

namespace {

Range ReadRange(Input &input) {
    Range range;
    range.minimum = input.Between(INT_MIN, INT_MAX - 1);
    range.maximum = static_cast<int>(
        range.minimum + std::int64_t{1} +
        input.Between(0, static_cast<int>(std::min<std::int64_t>(
                             INT_MAX - 1, std::int64_t{INT_MAX} - range.minimum - 1))));
    range.slider_size = input.Between(1, range.Extent());
    return range;
}

void CheckLayout(const Layout &layout, const Frame &frame) {
    Require(layout.trough.width >= 1 && layout.trough.height >= 1);
    Require(layout.trough.width <= 32767 && layout.trough.height <= 32767);
    Require((layout.arrow_width >= 1 && layout.arrow_height >= 1) == frame.arrows);
    Frame other = frame;
    other.horizontal = !frame.horizontal;
    std::swap(other.width, other.height);
    const Layout turned = Arrange(other);
    Require(turned.trough == Transposed(layout.trough));
    Require(turned.arrow2 == Point{layout.arrow2.y, layout.arrow2.x});
}

// A horizontal bar's; the upright one is its mirror image.
void CheckSlider(const Rectangle &trough, const Range &range, int value) {
    const Rectangle slider = SliderAt(trough, {true}, range, value);
    Require(slider == ExpectedSlider(trough, range, value));
    Require(SliderAt(Transposed(trough), {false}, range, value) == Transposed(slider));
    Require(slider.width >= shortest_slider);
    Require(slider.x + slider.width <= trough.x + trough.width);
    Require(slider.x >= trough.x - std::max(0, shortest_slider - trough.width));
    const int next = value < range.Highest() ? value + 1 : value;
    Require(SliderAt(trough, {true}, range, next).x >= slider.x);
    Require(Invert(range, Invert(range, value)) == value);
}

void CheckValue(const Rectangle &trough, const Rectangle &slider, const Range &range, int start) {
    const int origin = trough.x - 1;
    const int value = ValueAt(trough, slider, {true}, range, origin, start);
    Require(value == ExpectedValue(trough, slider, range, origin, start));
    Require(value >= range.minimum && value <= range.Highest());
    Require(ValueAt(trough, slider, {true}, range, origin, start + 1) >= value ||
            trough.width <= slider.width);
    const int fitted = FitSlider(trough, slider, {true}, start);
    Require(fitted + slider.width <= trough.x + trough.width);
}

// What lies on the slider is no side of it, and what is a side lies in the trough or on an arrow.
void CheckHit(const Layout &layout, const Rectangle &slider, const Frame &frame, Point point) {
    const Axis axis{frame.horizontal};
    const Part part = PartAt(layout, slider, frame.arrows, point);
    const Side side = SideAt(layout, slider, axis, frame.arrows, point);
    Require(part != Part::Nothing || side == Side::Nothing);
    Require(frame.arrows || (part != Part::Arrow1 && part != Part::Arrow2 && side != Side::Arrow1 &&
                             side != Side::Arrow2));
    if (part == Part::Slider) {
        Require(side != Side::Before && side != Side::After);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    Frame frame;
    frame.width = input.Dimension();
    frame.height = input.Dimension();
    frame.edge = input.Between(0, 2 * 65535);
    frame.horizontal = input.Flag();
    frame.arrows = input.Flag();
    const Layout layout = Arrange(frame);
    CheckLayout(layout, frame);

    const Range range = ReadRange(input);
    const int value = input.Between(range.minimum, range.Highest());
    Require(Fit(range, value) == value);
    const Rectangle trough = {input.Between(0, 300), 2, input.Between(1, 32000), 11};
    CheckSlider(trough, range, value);
    CheckValue(trough, SliderAt(trough, {true}, range, value), range, input.Position());
    const Rectangle slider = SliderAt(layout.trough, {frame.horizontal}, range, value);
    CheckHit(layout, slider, frame, input.Place());
    return 0;
}
