#include <corvidlmw/toolkit/Regions.h>

#include <X11/Xregion.h>

// Xregion.h defines these as macros.
#undef min
#undef max

#include <algorithm>

namespace corvidlmw {

Vector<XRectangle> RectanglesOf(Region region) {
    Vector<XRectangle> rectangles(static_cast<std::size_t>(region->numRects));
    std::transform(
        region->rects, region->rects + region->numRects, rectangles.begin(), [](const BOX &box) {
            return XRectangle{box.x1, box.y1, static_cast<unsigned short>(box.x2 - box.x1),
                              static_cast<unsigned short>(box.y2 - box.y1)};
        });
    return rectangles;
}

} // namespace corvidlmw
