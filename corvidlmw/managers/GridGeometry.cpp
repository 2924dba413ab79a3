#include <corvidlmw/managers/GridGeometry.h>

#include <algorithm>
#include <cstdint>

namespace corvidlmw::grid {

namespace {

constexpr int shares_evenly = -1;

int WithMargins(const XmGridSlot &slot, int size) {
    return size + 2 * slot.margin;
}

// Unsigned, so that a sum of any length may wrap.
std::uint32_t SumOfMargins(ConstSlots slots) {
    std::uint32_t sum = 0;
    for (const XmGridSlot &slot : slots) {
        sum += 2U * slot.margin;
    }
    return sum;
}

// At the near side (0), in the middle (1), at the far side (2) of `extent`.
int Align(int side, int start, int extent, int size) {
    const int rest = extent - size;
    return side == 0 ? start : start + (side == 1 ? rest / 2 : rest);
}

} // namespace

Dimension NaturalExtent(ConstSlots slots, Largest largest, int frame) {
    std::uint32_t sum = SumOfMargins(slots) + static_cast<std::uint32_t>(frame);
    for (const int extent : largest) {
        sum += static_cast<std::uint32_t>(extent);
    }
    return std::max<Dimension>(CutToDimension(static_cast<int>(sum)), 1);
}

void DeriveWeights(Slots slots, Largest largest, int extent, int frame) {
    std::int64_t used = frame;
    std::int64_t sharing = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        XmGridSlot &slot = slots[i];
        used += 2 * slot.margin;
        if (slot.resizability == 0) {
            continue;
        }
        slot.size = 0;
        slot.resizability = largest[i] != 0 ? largest[i] : shares_evenly;
        used += largest[i];
        sharing += largest[i] == 0;
    }
    if (sharing == 0) {
        return;
    }
    const auto share = std::max<std::int64_t>((extent - used) / sharing, 1);
    for (XmGridSlot &slot : slots) {
        if (slot.resizability == shares_evenly) {
            slot.resizability = static_cast<int>(share);
        }
    }
}

void ShareExtent(Slots slots, Largest largest, int extent) {
    std::int64_t used = 0;
    std::int64_t weights = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        XmGridSlot &slot = slots[i];
        slot.size = slot.resizability == 0 ? CutToDimension(largest[i]) : Dimension{0};
        used += WithMargins(slot, slot.size);
        weights += slot.resizability;
    }
    const std::int64_t extra = std::max<std::int64_t>(extent - used, 0);
    if (weights == 0) {
        return;
    }
    for (XmGridSlot &slot : slots) {
        if (slot.resizability != 0) {
            slot.size = static_cast<Dimension>(slot.resizability * extra / weights);
        }
    }
}

// The gravities stand in three rows of three. The border counts in the height alone.
Rectangle PlaceInCell(const Rectangle &cell, const Tenant &tenant, bool cuts,
                      std::optional<Point> previous) {
    Rectangle place = cell;
    const Point kept = previous.value_or(Point{cell.x, cell.y});
    const bool known = tenant.gravity >= 1 && tenant.gravity <= 9;
    const int gravity = known ? tenant.gravity - 1 : 0;
    if (!tenant.fills_width) {
        const int wanted = tenant.preferred_width;
        place.width = cuts ? std::min(cell.width, wanted) : wanted;
        place.x = known ? Align(gravity % 3, cell.x, cell.width, place.width) : kept.x;
    }
    if (!tenant.fills_height) {
        const int wanted = tenant.preferred_height;
        place.height = cuts ? std::min(cell.height, wanted) : wanted;
        place.y = known ? Align(gravity / 3, cell.y, cell.height, place.height + 2 * tenant.border)
                        : kept.y;
    }
    return place;
}

int SlotAt(ConstSlots slots, int position) {
    std::int64_t start = 0;
    for (std::size_t i = 0; i < slots.size() && start < position; ++i) {
        const std::int64_t end = start + WithMargins(slots[i], slots[i].size);
        if (position < end) {
            return static_cast<int>(i);
        }
        start = end;
    }
    return -1;
}

// The sense of the test is a part of the contract.
Position SumFrom(ConstSlots slots, int index) {
    Position sum = 0;
    for (std::size_t i = 0; i < slots.size() && index <= static_cast<int>(i); ++i) {
        const Position extent = CutToPosition(WithMargins(slots[i], slots[i].size));
        sum = CutToPosition(sum + extent);
    }
    return sum;
}

} // namespace corvidlmw::grid
