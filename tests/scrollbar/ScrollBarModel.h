// The slider of a horizontal bar once more.
#pragma once

#include <corvidlmw/scrollbar/ScrollBarGeometry.h>

#include <algorithm>
#include <climits>
#include <cmath>

namespace corvidlmw::scroll_bar::scroll_bar_model {

// One operation in double precision and one rounding is the same as one in single precision.
inline double Single(double x) {
    volatile float rounded = static_cast<float>(x);
    return rounded;
}

inline int ToPixels(double x) {
    return static_cast<int>(std::min(x + 0.5, 2147483647.0));
}

inline Rectangle ExpectedSlider(const Rectangle &trough, const Range &r, int value) {
    const double extent = Single(double(r.maximum) - r.minimum);
    double factor = Single(trough.width / extent);
    int length = ToPixels(Single(Single(r.slider_size) * factor));
    if (length <= 6) {
        const double way = Single(double(r.maximum) - r.minimum - r.slider_size);
        length = 6;
        factor = Single(Single(trough.width - 6.0) / (way == 0 ? 1.0 : way));
    }
    int x = trough.x + ToPixels(Single(Single(double(value) - r.minimum) * factor));
    if (x + length > trough.x + trough.width)
        x = trough.x + trough.width - length;
    return {x, trough.y, length, trough.height};
}

inline Rectangle Transposed(const Rectangle &r) {
    return {r.y, r.x, r.height, r.width};
}

inline int ExpectedValue(const Rectangle &trough, const Rectangle &slider, const Range &range,
                         int origin, int start) {
    const int room = trough.width - slider.width;
    const double share = room > 0 ? Single((double(start) - origin) / room) : 1.0;
    const double way = Single(double(range.Highest()) - range.minimum);
    double value = Single(Single(range.minimum) + Single(way * share));
    value = Single(value + (value > 0 ? 0.5 : value < 0 ? -0.5 : 0));
    const double held = std::clamp(std::trunc(value), double(INT_MIN), double(INT_MAX));
    return static_cast<int>(std::clamp<double>(held, range.minimum, range.Highest()));
}

} // namespace corvidlmw::scroll_bar::scroll_bar_model
