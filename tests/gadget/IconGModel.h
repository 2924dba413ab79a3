// What holds of every icon gadget that was not squeezed.
#pragma once

#include <corvidlmw/gadget/IconGGeometry.h>

namespace corvidlmw::icon_gadget {

// Text and picture lie inside of border and margins, do not overlap beside one another, and leave the
// arrow's space free.
inline bool KeepsInside(const Contents &c, const Extent &size, const Places &places) {
    const int left = c.border + c.margins.width + c.margins.left;
    const int right = size.width - c.border - c.margins.width - c.margins.right - c.arrow_space;
    if (places.text.x < left || places.text.x + c.text.width > right ||
        places.text.y < c.border + c.margins.height + c.margins.top)
        return false;
    if (!c.picture)
        return true;
    if (c.placement == Placement::left)
        return *places.picture_x >= left &&
               *places.picture_x + c.picture->width + c.gap <= places.text.x;
    if (c.placement == Placement::right)
        return *places.picture_x >= places.text.x + c.text.width + c.gap &&
               *places.picture_x + c.picture->width <= right;
    return true;
}

} // namespace corvidlmw::icon_gadget
