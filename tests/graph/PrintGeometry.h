// How a failing check shows points and rectangles.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <ostream>

namespace corvidlmw {

inline void PrintTo(const Point &point, std::ostream *out) {
    *out << "(" << point.x << "," << point.y << ")";
}

inline void PrintTo(const Segment &segment, std::ostream *out) {
    PrintTo(segment.start, out);
    *out << "-";
    PrintTo(segment.end, out);
}

inline void PrintTo(const Rectangle &box, std::ostream *out) {
    *out << box.width << "x" << box.height << "+" << box.x << "+" << box.y;
}

} // namespace corvidlmw
