// The row of a spring box once more.
#pragma once

#include <corvidlmw/managers/SpringGeometry.h>

#include <algorithm>
#include <cstdint>
#include <vector>

namespace corvidlmw::managers::spring_model {

using Places = std::vector<SpringPlace>;
using Children = std::vector<SpringChild>;

// What the row says.
inline SpringSums SumsOf(const Children &children) {
    SpringSums sums;
    for (const SpringChild &child : children)
        sums.Add(child);
    return sums;
}

inline Places PlacesOf(const SpringFrame &frame, const Children &children) {
    SpringRow row(frame, SumsOf(children));
    Places places;
    for (const SpringChild &child : children)
        if (row.PlacesAnything())
            places.push_back(row.Next(child));
    return places;
}

// ---- The second computation ---------------------------------------------------------------------

using Wide = long long;

// The share as long division of magnitudes, which truncates toward zero.
inline Wide ShareOf(Wide extent, Wide weight, Wide sum) {
    if (sum == 0)
        return 0;
    const Wide product = extent * weight;
    const Wide size = (product < 0 ? -product : product) / (sum < 0 ? -sum : sum);
    return (product < 0) != (sum < 0) ? -size : size;
}

inline int Low16(Wide value) {
    return static_cast<int>(value & 0xffff);
}
inline int Signed16(Wide value) {
    return Low16(value) < 0x8000 ? Low16(value) : Low16(value) - 0x10000;
}

// Each child's place told by the ends of all before it.
inline Places Expected(const SpringFrame &f, const Children &children) {
    const Wide gaps = f.spacing * (static_cast<int>(children.size()) - 1);
    Wide all = 0, inner = 0, wanted = gaps, hard = gaps;
    for (const auto &c : children) {
        all += static_cast<Wide>(c.along.before) + c.along.inner + c.along.after;
        inner += c.along.inner;
        wanted += c.preferred_length;
        hard += c.along.inner ? 1 : c.preferred_length;
    }
    const Wide room = f.length - 2 * f.shadow - 2 * f.margin_along, extra = room - wanted;
    const bool springs_act = all != 0 && extra > 0;
    Places places;
    if (wanted <= 0)
        return places;
    Wide x = f.shadow + f.margin_along;
    for (const auto &c : children) {
        Wide w = c.preferred_length, h = c.preferred_thickness, y = f.margin_across;
        if (springs_act)
            w += ShareOf(extra, c.along.inner, all);
        else if (c.along.inner && inner)
            w += ShareOf(extra, c.along.inner, inner);
        else if (extra < 0 && room < hard && f.may_shrink)
            w = ShareOf(w, room, hard);
        const auto &[top, stretch, bottom] = c.across;
        const Wide across = static_cast<Wide>(top) + stretch + bottom;
        const int inside = f.thickness - 2 * f.margin_across;
        if (stretch && across)
            h = std::clamp(h + ShareOf(inside - h, stretch, across), Wide{INT32_MIN},
                           Wide{INT32_MAX});
        else if (f.may_shrink && h > f.thickness)
            h = f.thickness;
        if (top && !bottom) {
            y = f.thickness - f.margin_across - h;
            if (y < f.shadow + f.margin_across)
                y = f.shadow + f.margin_across;
        } else if (top) {
            y += h > f.thickness ? f.shadow : Signed16(ShareOf(inside - h, top, across));
        }
        if (springs_act)
            x += Signed16(ShareOf(extra, c.along.before, all));
        const int width = w < 1 ? 1 : Low16(w);
        places.push_back({static_cast<short>(Signed16(x)), static_cast<short>(Signed16(y)),
                          static_cast<unsigned short>(width),
                          static_cast<unsigned short>(h < 1 ? 1 : Low16(h))});
        x += f.spacing + width;
        if (springs_act)
            x += Signed16(ShareOf(extra, c.along.after, all));
    }
    return places;
}

} // namespace corvidlmw::managers::spring_model
