#include <corvidlmw/graph/OverviewGeometry.h>

#include <algorithm>

namespace corvidlmw::overview {

namespace {

constexpr float smallest_node = 2;
// Right and lower edges, which lie this far from 1, still fit in 16 bits.
constexpr int largest_frame = 32766;

int Scaled(float scale, int length) {
    return Truncate(scale * static_cast<float>(length));
}

} // namespace

Scale ScaleFor(const Size &window, const Size &extent, bool skewed) {
    const float x = static_cast<float>(window.width) / static_cast<float>(extent.width);
    const float y = 1.0F / static_cast<float>(extent.height) * static_cast<float>(window.height);
    if (skewed) {
        return {x, y};
    }
    const float both = std::min(x, y);
    return {both, both};
}

// ---- Nodes -----------------------------------------------------------------------------------------

Point CentreOf(const Scale &scale, const Rectangle &node) {
    return {Scaled(scale.x, node.x + node.width / 2), Scaled(scale.y, node.y + node.height / 2)};
}

Rectangle MiniatureOf(const Scale &scale, const Rectangle &node) {
    const Point centre = CentreOf(scale, node);
    const float width = scale.Smaller() * static_cast<float>(node.width);
    const float height = scale.Smaller() * static_cast<float>(node.height);
    return {Truncate(static_cast<float>(centre.x) - width * 0.5F),
            Truncate(static_cast<float>(centre.y) - height * 0.5F),
            Truncate(std::max(smallest_node, width)), Truncate(std::max(smallest_node, height))};
}

// ---- The frame ---------------------------------------------------------------------------------------

Rectangle FrameFor(const Scale &scale, const Point &origin, const Size &view) {
    const auto in_range = [](int value) { return std::min(value, largest_frame); };
    return {in_range(Scaled(scale.x, origin.x)), in_range(Scaled(scale.y, origin.y)),
            in_range(Scaled(scale.x, view.width)), in_range(Scaled(scale.y, view.height))};
}

Rectangle KeepInside(Rectangle frame, const Size &window) {
    if (frame.x + frame.width >= window.width) {
        frame.x = window.width - frame.width + 1;
    }
    frame.x = std::max(frame.x, 1);
    if (frame.y + frame.height > window.height) {
        frame.y = window.height - frame.height + 1;
    }
    frame.y = std::max(frame.y, 1);
    return frame;
}

Point GraphPlaceOf(const Scale &scale, const Point &corner) {
    if (!scale.IsSet()) {
        return {};
    }
    return {CutToPosition(Truncate(static_cast<float>(corner.x) / scale.x)),
            CutToPosition(Truncate(static_cast<float>(corner.y) / scale.y))};
}

std::array<Segment, 4> UpperLeftLines(const Rectangle &frame) {
    const auto [x, y, w, h] = frame;
    return {{
        {{x, y}, {x + w, y}},
        {{x, y + 1}, {x + w - 1, y + 1}},
        {{x, y + 2}, {x, y + h}},
        {{x + 1, y + 2}, {x + 1, y + h - 1}},
    }};
}

std::array<Segment, 4> LowerRightLines(const Rectangle &frame) {
    const auto [x, y, w, h] = frame;
    return {{
        {{x + w, y + 1}, {x + w, y + h}},
        {{x + w - 1, y + 2}, {x + w - 1, y + h}},
        {{x + 1, y + h}, {x + w - 2, y + h}},
        {{x + 2, y + h - 1}, {x + w - 2, y + h - 1}},
    }};
}

// A frame that is thinner than its lines has some of them beside it.
bool TouchesFrame(const Rectangle &frame, const Rectangle &r) {
    const int right = frame.x + frame.width;
    const int bottom = frame.y + frame.height;
    const int lines = 2;
    const bool beside = r.x > std::max(right, frame.x + lines) ||
                        r.y > std::max(bottom, frame.y + lines) ||
                        r.x + r.width <= std::min(frame.x, right - lines) ||
                        r.y + r.height <= std::min(frame.y, bottom - lines);
    const bool within =
        r.x > frame.x + 1 && r.y > frame.y + 1 && r.x + r.width < right && r.y + r.height < bottom;
    return !beside && !within;
}

} // namespace corvidlmw::overview
