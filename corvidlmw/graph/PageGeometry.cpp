#include <corvidlmw/graph/PageGeometry.h>

#include <algorithm>

namespace corvidlmw::page {

namespace {

constexpr int margin = 10;
// The double nearest to 1 / 774.
constexpr double pages_per_unit = 0.0012919896640826874;

// From the first unit past the sheet's edge to the one before its other edge.
bool Touches(int low, int high, int origin, int length) {
    return low - origin < length && high - origin >= 1;
}

} // namespace

Picture PictureFor(const Size &extent) {
    const Size size = {std::max(extent.width, 0) + margin, std::max(extent.height, 0) + margin};
    return {.size = size,
            .rows = Truncate((size.height + height - 1) * pages_per_unit),
            .columns = (size.width + width - 1) / width};
}

Point Sheet::Origin() const {
    return {column * width, row * height};
}

Box BoxAround(const Point &a, const Point &b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

bool TouchesRow(const Box &box, int row) {
    return Touches(box.bottom, box.top, row * height, height);
}

bool TouchesColumn(const Box &box, int column) {
    return Touches(box.left, box.right, column * width, width);
}

int FirstBaseline(int node_top, int node_height, int lines, int font_size) {
    return node_top - font_size - (node_height - lines * font_size) / 2;
}

} // namespace corvidlmw::page
