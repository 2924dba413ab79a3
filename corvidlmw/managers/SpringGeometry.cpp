// Everything is computed in 64 bits and truncated toward zero; only what becomes a coordinate is cut
// to 16 bits. Remainders are dropped, so the last child need not touch the end.
#include <corvidlmw/managers/SpringGeometry.h>

#include <algorithm>
#include <limits>

namespace corvidlmw::managers {

namespace {

// Of an extent and a spring of 32 bits each, or of two lengths.
std::int64_t Share(std::int64_t extent, std::int64_t weight, std::int64_t sum) {
    return sum == 0 ? 0 : extent * weight / sum;
}

// A spring that outweighs the sum of all three, since others are negative, stretches beyond all bounds.
std::int64_t In32Bits(std::int64_t extent) {
    using Limits = std::numeric_limits<std::int32_t>;
    return std::clamp<std::int64_t>(extent, Limits::min(), Limits::max());
}

short AtPosition(std::int64_t value) {
    return static_cast<short>(static_cast<unsigned short>(value));
}

// Asked before the cut, after which nothing is negative.
unsigned short AtLeastOne(std::int64_t extent) {
    return static_cast<unsigned short>(std::max<std::int64_t>(extent, 1));
}

std::int64_t Gaps(const SpringSums &sums, const SpringFrame &frame) {
    return std::int64_t{frame.spacing} * (sums.count() - 1);
}

unsigned short NeverZero(std::int64_t extent) {
    const auto cut = static_cast<unsigned short>(extent);
    return cut == 0 ? 1 : cut;
}

} // namespace

void SpringSums::Add(const SpringChild &child) {
    count_ += 1;
    springs_ += std::int64_t{child.along.before} + child.along.inner + child.along.after;
    inner_springs_ += child.along.inner;
    preferred_ += child.preferred_length;
    rigid_ += child.along.inner == 0 ? child.preferred_length : 1;
    thickest_ = std::max(thickest_, child.preferred_thickness);
}

// Without a child the gaps are -1 of them, which wraps.
SpringSize NaturalSpringSize(const SpringSums &sums, const SpringFrame &frame) {
    return {
        NeverZero(sums.preferred() + Gaps(sums, frame) + 2 * (frame.shadow + frame.margin_along)),
        NeverZero(sums.thickest() + 2 * (frame.shadow + frame.margin_across))};
}

SpringRow::SpringRow(const SpringFrame &frame, const SpringSums &sums)
    : frame_(frame), sums_(sums), preferred_(sums.preferred() + Gaps(sums, frame)),
      rigid_(sums.rigid() + Gaps(sums, frame)),
      available_(frame.length - 2 * (frame.shadow + frame.margin_along)),
      extra_(available_ - preferred_), next_(AtPosition(frame.shadow + frame.margin_along)) {}

short SpringRow::SideShare(int spring) const {
    return SideSpringsAct() ? AtPosition(Share(extra_, spring, sums_.springs())) : short{0};
}

// Missing room is first taken from those with inner springs; only when that cannot be enough are the
// others scaled.
std::int64_t SpringRow::LengthOf(const SpringChild &child) const {
    const std::int64_t preferred = child.preferred_length;
    if (SideSpringsAct()) {
        return preferred + Share(extra_, child.along.inner, sums_.springs());
    }
    if (child.along.inner != 0 && sums_.inner_springs() != 0) {
        return preferred + Share(extra_, child.along.inner, sums_.inner_springs());
    }
    if (extra_ < 0 && frame_.may_shrink && available_ < rigid_) {
        return Share(preferred, available_, rigid_);
    }
    return preferred;
}

std::int64_t SpringRow::ThicknessOf(const SpringChild &child) const {
    const std::int64_t preferred = child.preferred_thickness;
    const auto [before, inner, after] = child.across;
    const std::int64_t sum = std::int64_t{before} + inner + after;
    if (inner != 0 && sum != 0) {
        const std::int64_t extra = frame_.thickness - 2 * frame_.margin_across - preferred;
        return In32Bits(preferred + Share(extra, inner, sum));
    }
    return frame_.may_shrink ? std::min<std::int64_t>(preferred, frame_.thickness) : preferred;
}

// The shadow counts only where a child is held against the far edge, or is too thick: a child at the
// near edge lies upon it.
short SpringRow::AcrossOf(const SpringChild &child, std::int64_t thickness) const {
    const auto [before, inner, after] = child.across;
    const std::int64_t margin = frame_.margin_across;
    const std::int64_t inside_shadow = frame_.shadow + margin;
    if (before == 0) {
        return AtPosition(margin);
    }
    if (after == 0) {
        return AtPosition(std::max(frame_.thickness - margin - thickness, inside_shadow));
    }
    if (thickness > frame_.thickness) {
        return AtPosition(inside_shadow);
    }
    const std::int64_t extra = frame_.thickness - 2 * margin - thickness;
    return AtPosition(margin +
                      AtPosition(Share(extra, before, std::int64_t{before} + inner + after)));
}

SpringPlace SpringRow::Next(const SpringChild &child) {
    next_ = AtPosition(next_ + SideShare(child.along.before));
    const std::int64_t thickness = ThicknessOf(child);
    const SpringPlace place{next_, AcrossOf(child, thickness), AtLeastOne(LengthOf(child)),
                            AtLeastOne(thickness)};
    next_ = AtPosition(next_ + frame_.spacing + place.length + SideShare(child.along.after));
    return place;
}

} // namespace corvidlmw::managers
