// Geometry in doubles that knows nothing of how arcs are computed.
#pragma once

#include <corvidlmw/graph/ArcGeometry.h>

#include <algorithm>
#include <complex>
#include <cstddef>

namespace corvidlmw::arc::plain {

using Vector = std::complex<double>;

// To the right of `a` where y grows downward.
inline Vector Across(Vector a) {
    return a * Vector(0, 1);
}
inline Vector V(Point point) {
    return Vector(point.x, point.y);
}
inline Vector CentreOf(const Rectangle &box) {
    return Vector(box.x + box.width / 2.0, box.y + box.height / 2.0);
}

// By de Casteljau.
inline Vector OnCurve(const Segment &ends, Point control, double t) {
    const auto between = [t](Vector a, Vector b) { return a + t * (b - a); };
    return between(between(V(ends.start), V(control)), between(V(control), V(ends.end)));
}

inline bool Inside(const Polygon &polygon, Vector at) {
    bool inside = false;
    for (int i = 0; i < polygon.count; ++i) {
        const Vector a = V(polygon.points[static_cast<std::size_t>(i)]) - at;
        const Vector b = V(polygon.points[static_cast<std::size_t>((i + 1) % polygon.count)]) - at;
        if ((a.imag() > 0) != (b.imag() > 0) &&
            a.real() > a.imag() / (b.imag() - a.imag()) * (b.real() - a.real()))
            inside = !inside;
    }
    return inside;
}
inline bool Inside(const PickShape &shape, Vector at) {
    return std::any_of(shape.polygons.begin(), shape.polygons.begin() + shape.count,
                       [at](const Polygon &polygon) { return Inside(polygon, at); });
}

} // namespace corvidlmw::arc::plain
