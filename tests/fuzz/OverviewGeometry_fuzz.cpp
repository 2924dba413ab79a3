// A graph scaled into the overview's window, and the frame in it.
#include <tests/fuzz/Input.h>

#include <corvidlmw/graph/OverviewGeometry.h>

#include <algorithm>
#include <cmath>

using namespace corvidlmw;
using namespace corvidlmw::overview;
using fuzz::Input, fuzz::Require;

namespace {

Size ReadSize(Input &input) {
    const int width = std::max(input.Dimension(), 1);
    return {width, std::max(input.Dimension(), 1)};
}

// The whole graph, and unless it is skewed one side of it exactly, fits the window.
void CheckScale(const Scale &scale, const Size &window, const Size &extent, bool skewed) {
    Require(scale.IsSet() && (skewed || scale.x == scale.y));
    const auto scaled_width = static_cast<double>(scale.x) * extent.width;
    const auto scaled_height = static_cast<double>(scale.y) * extent.height;
    Require(scaled_width <= window.width * 1.000001 && scaled_height <= window.height * 1.000001);
    Require(std::max(scaled_width / window.width, scaled_height / window.height) > 0.999999);
}

void CheckNode(const Scale &scale, const Rectangle &node) {
    const Rectangle miniature = MiniatureOf(scale, node);
    Require(miniature.width >= 2 && miniature.height >= 2);
    const Point centre = CentreOf(scale, node);
    if (std::abs(centre.x) > 1e9 || miniature.width > 1e9) {
        return;
    }
    const double rounding = 4 + 1e-6 * (std::abs(centre.x) + miniature.width);
    Require(std::fabs(2.0 * miniature.x + miniature.width - 2.0 * centre.x) <= rounding ||
            miniature.width == 2);
}

void CheckInside(const Rectangle &frame, const Size &window) {
    const Rectangle kept = KeepInside(frame, window);
    Require(kept.width == frame.width && kept.height == frame.height);
    Require(kept.x >= 1 && kept.y >= 1);
    Require(kept.width > window.width || kept.x + kept.width <= window.width + 1);
    Require(kept.height > window.height || kept.y + kept.height <= window.height + 1);
    Require(KeepInside(kept, window) == kept || kept.x + kept.width >= window.width);
}

// A line of a frame without room for it runs backwards.
bool Covers(const Rectangle &r, const Segment &line) {
    const auto [left, right] = std::minmax(line.start.x, line.end.x);
    const auto [top, bottom] = std::minmax(line.start.y, line.end.y);
    return left < r.x + r.width && r.x <= right && top < r.y + r.height && r.y <= bottom;
}

// What covers a pixel of the frame's lines is found.
void CheckTouch(const Rectangle &frame, const Rectangle &r) {
    bool covers = false;
    for (const auto &lines : {UpperLeftLines(frame), LowerRightLines(frame)}) {
        for (const Segment &line : lines) {
            covers = covers || (r.width > 0 && r.height > 0 && Covers(r, line));
        }
    }
    Require(!covers || TouchesFrame(frame, r));
}

// From the graph to the window and back less than the pixel that was cut, on either way, is lost.
void CheckPlace(const Scale &scale, const Point &origin) {
    const Rectangle frame = FrameFor(scale, origin, {1, 1});
    const Point back = GraphPlaceOf(scale, {frame.x, frame.y});
    if (std::abs(frame.x) < 32000) {
        Require(std::fabs(static_cast<double>(back.x) - origin.x) <= 1.0 / scale.x + 1.01);
    }
    if (std::abs(frame.y) < 32000) {
        Require(std::fabs(static_cast<double>(back.y) - origin.y) <= 1.0 / scale.y + 1.01);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Size window = ReadSize(input);
    const Size extent = ReadSize(input);
    const bool skewed = input.Flag();
    const Scale scale = ScaleFor(window, extent, skewed);
    CheckScale(scale, window, extent, skewed);
    CheckNode(scale, input.Box());
    const Point origin = input.Place();
    const Rectangle frame = FrameFor(scale, origin, ReadSize(input));
    Require(frame.width <= 32766 && frame.height <= 32766 && frame.x <= 32766);
    CheckInside(frame, window);
    CheckTouch(KeepInside(frame, window), input.Box());
    CheckPlace(scale, input.Place());
    return 0;
}
