// The rows and columns of a grid against a second computation, and children in their cells.
#include <tests/fuzz/Input.h>
#include <tests/managers/GridModel.h>

using namespace corvidlmw;
using namespace corvidlmw::grid;
using namespace corvidlmw::grid::grid_model;
using fuzz::Input, fuzz::Require;

namespace {

Axis ReadAxis(Input &input) {
    Axis axis;
    axis.extent = input.Dimension();
    for (int i = input.Between(1, 12); i > 0; --i) {
        XmGridSlot slot{};
        slot.resizability = input.Whole();
        slot.margin = static_cast<Dimension>(input.Dimension());
        slot.size = static_cast<Dimension>(input.Dimension());
        axis.slots.push_back(slot);
        axis.largest.push_back(input.Between(0, 3 * 65535));
    }
    return axis;
}

void CheckWeights(Axis axis, int frame) {
    const auto expected = Numbers(ExpectedWeights(axis, frame));
    DeriveWeights(axis.slots, axis.largest, axis.extent, frame);
    Require(Numbers(axis.slots) == expected);
}

// Weights of one sign share no more than there is.
void CheckShares(Axis axis) {
    const auto expected = Numbers(ExpectedShares(axis));
    ShareExtent(axis.slots, axis.largest, axis.extent);
    Require(Numbers(axis.slots) == expected);
    long used = 0;
    long needed = 0;
    bool one_sign = true;
    for (const XmGridSlot &slot : axis.slots) {
        used += slot.size + 2L * slot.margin;
        needed += (slot.resizability == 0 ? slot.size : 0) + 2L * slot.margin;
        one_sign = one_sign && slot.resizability >= 0;
    }
    Require(!one_sign || used <= std::max<long>(needed, axis.extent));
}

// Every pixel between the boundaries is in one slot.
void CheckPositions(const Axis &axis, int position) {
    long start = 0;
    int found = -1;
    for (std::size_t i = 0; i < axis.slots.size(); ++i) {
        const long end = start + axis.slots[i].size + 2L * axis.slots[i].margin;
        if (position > start && position < end) {
            found = static_cast<int>(i);
        }
        start = end;
    }
    Require(SlotAt(axis.slots, position) == found);
    Require(SumFrom(axis.slots, 0) == CutToPosition(static_cast<int>(start)));
    Require(SumFrom(axis.slots, 1) == 0);
}

// A child that is cut stays in its cell, but for its border.
void CheckTenant(const Rectangle &cell, const Tenant &tenant, bool cuts) {
    const Rectangle place = PlaceInCell(cell, tenant, cuts, {});
    Require(!tenant.fills_width || (place.x == cell.x && place.width == cell.width));
    Require(!tenant.fills_height || (place.y == cell.y && place.height == cell.height));
    if (cuts && tenant.preferred_width >= 0 && tenant.preferred_height >= 0) {
        Require(place.x >= cell.x && place.x + place.width <= cell.x + cell.width);
        Require(place.height <= cell.height);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Axis axis = ReadAxis(input);
    const int frame = input.Between(0, 2 * 65535);
    Require(NaturalExtent(axis.slots, axis.largest, frame) == ExpectedExtent(axis, frame));
    CheckWeights(axis, frame);
    CheckShares(axis);
    CheckPositions(axis, input.Position());
    const Rectangle cell = input.Box();
    Tenant tenant{};
    tenant.gravity = input.Between(-1, 11);
    tenant.fills_width = input.Flag();
    tenant.fills_height = input.Flag();
    tenant.preferred_width = input.Dimension();
    tenant.preferred_height = input.Dimension();
    tenant.border = input.Dimension();
    CheckTenant(cell, tenant, input.Flag());
    return 0;
}
