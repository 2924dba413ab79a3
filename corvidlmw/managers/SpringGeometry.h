// How a spring box shares its room: one row of children along the box, told without saying which way
// the row runs. Arithmetic only.
//
// A layout takes two passes over the children, in one order: SpringSums::Add for each, then
// SpringRow::Next for each.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <cstdint>

namespace corvidlmw::managers {

// On either side of a child, and inside of it, in one direction.
struct Springs {
    int before = 0;
    int inner = 0;
    int after = 0;
};

struct SpringChild {
    Springs along;
    Springs across;
    int preferred_length = 0;
    int preferred_thickness = 0;
};

struct SpringFrame {
    int length = 0;
    int thickness = 0;
    int margin_along = 0;
    int margin_across = 0;
    int shadow = 0;
    int spacing = 0;
    bool may_shrink = true; // children may become smaller than they prefer
};

struct SpringPlace {
    short along = 0;
    short across = 0;
    unsigned short length = 0;
    unsigned short thickness = 0;
    friend bool operator==(const SpringPlace &, const SpringPlace &) = default;
};

// What the row needs to know of all of its children.
class SpringSums {
public:
    void Add(const SpringChild &child);

    int count() const { return count_; }
    std::int64_t springs() const { return springs_; }
    std::int64_t inner_springs() const { return inner_springs_; }
    std::int64_t preferred() const { return preferred_; }
    std::int64_t rigid() const { return rigid_; }
    int thickest() const { return thickest_; }

private:
    int count_ = 0;
    std::int64_t springs_ = 0;
    std::int64_t inner_springs_ = 0;
    std::int64_t preferred_ = 0;
    std::int64_t rigid_ = 0; // of the lengths that no inner spring gives up
    int thickest_ = 0;
};

// What a row asks for: modulo 65536, and never 0.
struct SpringSize {
    unsigned short length = 1;
    unsigned short thickness = 1;
};
SpringSize NaturalSpringSize(const SpringSums &sums, const SpringFrame &frame);

// Hands out the places from the row's beginning on.
class SpringRow {
public:
    SpringRow(const SpringFrame &frame, const SpringSums &sums);

    // A row of children without any preferred length is left as it is.
    bool PlacesAnything() const { return preferred_ > 0; }
    SpringPlace Next(const SpringChild &child);

private:
    std::int64_t LengthOf(const SpringChild &child) const;
    std::int64_t ThicknessOf(const SpringChild &child) const;
    short AcrossOf(const SpringChild &child, std::int64_t thickness) const;
    short SideShare(int spring) const;
    bool SideSpringsAct() const { return sums_.springs() != 0 && extra_ >= 1; }

    SpringFrame frame_;
    SpringSums sums_;
    std::int64_t preferred_; // with the gaps
    std::int64_t rigid_;     // with the gaps
    std::int64_t available_;
    std::int64_t extra_;
    short next_;
};

} // namespace corvidlmw::managers
