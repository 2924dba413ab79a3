// The arithmetic of XmGrid once more: sums are kept in 16 bits where the first keeps wide ones, and it
// divides by counting instead of truncating.
#pragma once

#include <corvidlmw/managers/GridGeometry.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace corvidlmw::grid::grid_model {

struct Axis {
    std::vector<XmGridSlot> slots;
    std::vector<int> largest;
    int extent = 0;
};

inline std::vector<std::array<int, 3>> Numbers(ConstSlots slots) {
    std::vector<std::array<int, 3>> numbers;
    for (const XmGridSlot &slot : slots)
        numbers.push_back({slot.resizability, slot.margin, slot.size});
    return numbers;
}

inline int ExpectedExtent(const Axis &axis, int frame) {
    auto sum = static_cast<uint16_t>(frame);
    for (size_t i = 0; i < axis.slots.size(); ++i)
        for (const int part : {axis.largest[i], +axis.slots[i].margin, +axis.slots[i].margin})
            sum = static_cast<uint16_t>(sum + part);
    return sum == 0 ? 1 : sum;
}

inline std::vector<XmGridSlot> ExpectedWeights(const Axis &axis, int frame) {
    auto expected = axis.slots;
    long left = axis.extent - frame;
    std::vector<XmGridSlot *> empty;
    for (size_t i = 0; i < expected.size(); ++i) {
        left -= 2 * expected[i].margin;
        if (expected[i].resizability == 0)
            continue;
        left -= axis.largest[i];
        expected[i].size = 0;
        expected[i].resizability = axis.largest[i];
        if (axis.largest[i] == 0)
            empty.push_back(&expected[i]);
    }
    int share = 0;
    while ((share + 1L) * static_cast<long>(empty.size()) <= left && !empty.empty())
        ++share;
    for (XmGridSlot *slot : empty)
        slot->resizability = share == 0 ? 1 : share;
    return expected;
}

inline std::vector<XmGridSlot> ExpectedShares(const Axis &axis) {
    auto expected = axis.slots;
    long weights = 0, used = 0;
    for (size_t i = 0; i < expected.size(); ++i) {
        const bool fixed = expected[i].resizability == 0;
        expected[i].size = static_cast<uint16_t>(fixed ? axis.largest[i] : 0);
        used += expected[i].size + expected[i].margin + expected[i].margin;
        weights += expected[i].resizability;
    }
    const long extra = used < axis.extent ? axis.extent - used : 0;
    for (XmGridSlot &slot : expected)
        if (slot.resizability != 0 && weights != 0) {
            const long share = std::labs(slot.resizability) * extra / std::labs(weights);
            const bool opposed = (slot.resizability < 0) != (weights < 0);
            slot.size = static_cast<uint16_t>(opposed ? 65536 * share - share : share);
        }
    return expected;
}

} // namespace corvidlmw::grid::grid_model
