// Which row is hit, found from row to row.
#pragma once

#include <corvidlmw/list/RowGeometry.h>

#include <cstddef>
#include <vector>

namespace corvidlmw::test {

// From the running heights of all rows in 16 bits, row by row.
inline int RowAtByWalking(const list::Hits &hits, const std::vector<unsigned short> &heights,
                          int y) {
    if (y <= hits.base_y)
        return hits.top ? -1 : 0;
    if (y > hits.height && hits.top + hits.visible >= hits.count)
        return hits.count - 1;
    if (y >= hits.height - hits.base_y)
        return hits.count + 1;
    const auto at = [&](int row) { return heights[static_cast<std::size_t>(row)]; };
    for (int row = hits.top; row < hits.count; row++)
        if (y <= list::RowY(at(row), at(hits.top), hits.base_y) + hits.max_item_height)
            return row;
    return hits.count;
}

} // namespace corvidlmw::test
