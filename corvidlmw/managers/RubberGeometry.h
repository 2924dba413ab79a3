// The line through two recorded values: what a rubber board's child is at any size of the board.
// Arithmetic only.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

namespace corvidlmw::managers {

// A value of a child, and the extent that its board then had.
struct RubberMark {
    int value = 0;
    int extent = 0;
};

// The value at another extent, beyond the two as well; where both extents are one, always the first.
// In single precision, each intermediate rounded: a line does not quite pass through its marks, and
// about one coordinate in eleven comes out a pixel off at the second.
inline int Stretch(RubberMark initial, RubberMark final, int extent) {
    if (initial.extent == final.extent) {
        return initial.value;
    }
    const float slope = static_cast<float>(final.value - initial.value) /
                        static_cast<float>(final.extent - initial.extent);
    const float run = static_cast<float>(initial.extent) * slope;
    const float at_zero = static_cast<float>(initial.value) - run;
    const float rise = slope * static_cast<float>(extent);
    const float value = rise + at_zero;
    return Truncate(value);
}

// The same for a width or height, where 0 stands for the present one. Only the low 16 bits count, so
// a negative one comes out near 65535.
inline unsigned short StretchExtent(RubberMark initial, RubberMark final, int extent,
                                    unsigned short present) {
    const unsigned short stretched = CutToDimension(Stretch(initial, final, extent));
    return stretched == 0 ? present : stretched;
}

} // namespace corvidlmw::managers
