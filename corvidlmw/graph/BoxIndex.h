// Boxes by number, and which of them touch a given one. Numbers that follow one another mostly lie near one
// another, as nodes do in the order of a layout; so a box around each run of them is enough to leave most
// out. A run's box grows with what enters it and does not shrink before Reset.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>
#include <corvidlmw/toolkit/Memory.h>

#include <algorithm>
#include <cstddef>
#include <limits>

namespace corvidlmw::graph {

// From the first to the last pixel, both inside. As made it is empty and touches nothing.
struct Bounds {
    constexpr Bounds() = default;
    Bounds(Point p, int reach) { Add(p, reach); }
    explicit Bounds(const Rectangle &r)
        : left(r.x), top(r.y), right(r.x + r.width - 1), bottom(r.y + r.height - 1) {}

    void Add(Point p, int reach) { Add({p.x - reach, p.y - reach}, {p.x + reach, p.y + reach}); }
    void Add(const Bounds &b) { Add({b.left, b.top}, {b.right, b.bottom}); }

    friend bool operator==(const Bounds &, const Bounds &) = default;

    bool Touches(const Bounds &b) const {
        return left <= b.right && right >= b.left && top <= b.bottom && bottom >= b.top;
    }

    int left = std::numeric_limits<int>::max();
    int top = std::numeric_limits<int>::max();
    int right = std::numeric_limits<int>::min();
    int bottom = std::numeric_limits<int>::min();

private:
    void Add(Point first, Point last) {
        left = std::min(left, first.x);
        top = std::min(top, first.y);
        right = std::max(right, last.x);
        bottom = std::max(bottom, last.y);
    }
};

class BoxIndex {
public:
    void Reset(std::size_t count) {
        boxes_.assign(count, {});
        runs_.assign((count + run_length - 1) / run_length, {});
    }
    std::size_t size() const { return boxes_.size(); }
    const Bounds &operator[](std::size_t i) const { return boxes_[i]; }

    void Set(std::size_t i, const Bounds &bounds) {
        boxes_[i] = bounds;
        runs_[i / run_length].Add(bounds);
    }

    // Calls `visit` with each number, in ascending order.
    template <typename Visit>
    void ForEachTouching(const Bounds &bounds, Visit visit) const {
        for (std::size_t run = 0; run < runs_.size(); run++) {
            if (!runs_[run].Touches(bounds)) {
                continue;
            }
            const std::size_t end = std::min(boxes_.size(), (run + 1) * run_length);
            for (std::size_t i = run * run_length; i < end; i++) {
                if (boxes_[i].Touches(bounds)) {
                    visit(i);
                }
            }
        }
    }

private:
    static constexpr std::size_t run_length = 32;

    Vector<Bounds> boxes_;
    Vector<Bounds> runs_;
};

} // namespace corvidlmw::graph
