// Points, rectangles and the conversions at the edge between 32-bit arithmetic and the 16 bits of
// the X protocol. Plain values: no Widget, no Display.
#pragma once

#include <cmath>
#include <limits>

namespace corvidlmw {

struct Point {
    int x = 0;
    int y = 0;
    friend bool operator==(const Point &, const Point &) = default;
};

struct Segment {
    Point start;
    Point end;
    friend bool operator==(const Segment &, const Segment &) = default;
};

struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Rectangle &, const Rectangle &) = default;
};

// The low 16 bits, signed: what storing into a Position does.
constexpr short CutToPosition(int value) {
    return static_cast<short>(static_cast<unsigned short>(value));
}

// The low 16 bits, unsigned: what storing into a Dimension does.
constexpr unsigned short CutToDimension(int value) {
    return static_cast<unsigned short>(value);
}

// Truncates toward zero. A value out of range saturates and NaN becomes 0, since the bare
// conversion would be undefined.
inline int Truncate(double value) {
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value)) {
        return 0;
    }
    if (value <= lowest) {
        return std::numeric_limits<int>::min();
    }
    if (value >= highest) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(value);
}

} // namespace corvidlmw
