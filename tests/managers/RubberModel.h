// The line of a rubber board's child once more.
#pragma once

#include <corvidlmw/managers/RubberGeometry.h>

#include <cmath>

namespace corvidlmw::test {

// Each step in double, which holds sum, product and quotient of two floats so exactly that rounding
// them to float once more gives what float arithmetic gives.
inline int InSteps(managers::RubberMark a, managers::RubberMark b, int extent) {
    const auto rounded = [](double value) {
        return static_cast<double>(static_cast<float>(value));
    };
    if (a.extent == b.extent)
        return a.value;
    const double slope = rounded((b.value - a.value) / static_cast<double>(b.extent - a.extent));
    const double at_zero = rounded(a.value - rounded(a.extent * slope));
    const double result = rounded(rounded(slope * extent) + at_zero);
    return static_cast<int>(std::fmin(std::fmax(result, -2147483648.0), 2147483647.0));
}

} // namespace corvidlmw::test
