// The arithmetic of XmGrid: natural sizes, weights, the sharing of space, a child's place in its cell.
// Rows and columns are the same thing, slots along an axis; no Widget, no Display.
#pragma once

#include <corvidlmw/managers/GridP.h>
#include <corvidlmw/toolkit/Geometry.h>

#include <optional>
#include <span>

namespace corvidlmw::grid {

using Slots = std::span<XmGridSlot>;
using ConstSlots = std::span<const XmGridSlot>;

// Positions wrap on the way as they would at the end, so that no sum of many slots overflows.
constexpr int Advance(int position, int extent) {
    return CutToPosition(position + extent);
}

// For each slot the largest extent, borders included, that a child in it asks for; 0 if it is empty.
using Largest = std::span<const int>;

// All slots with their margins, and the frame around them. Modulo 65536, and never 0: there is no
// window of that size.
Dimension NaturalExtent(ConstSlots slots, Largest largest, int frame);

// Gives each slot that is not fixed the weight of its largest child. Empty ones share evenly what is
// left of `extent` inside of `frame`; at least 1, since 0 would fix them for ever.
void DeriveWeights(Slots slots, Largest largest, int extent, int frame);

// Fixed slots get their largest child's extent; the others share what is left of `extent` by their
// weights. What the division leaves over is dropped.
void ShareExtent(Slots slots, Largest largest, int extent);

// What decides on a child's place in its cell.
struct Tenant {
    int gravity;
    bool fills_width;
    bool fills_height;
    int preferred_width;
    int preferred_height;
    int border;
};

// `cuts` means that a child that does not fill its cell is made no larger than that. A gravity
// outside of 1 to 9 leaves the coordinates at `previous`, where the last child was placed.
Rectangle PlaceInCell(const Rectangle &cell, const Tenant &tenant, bool cuts,
                      std::optional<Point> previous);

// The slot at this position with its margins, or -1. Both ends are outside of it.
int SlotAt(ConstSlots slots, int position);

// The running sum that stops at the first slot before `index`: all slots for 0 or less, else 0.
Position SumFrom(ConstSlots slots, int index);

} // namespace corvidlmw::grid
