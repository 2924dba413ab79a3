// What becomes of a row where a range gets another end: '.' nothing, 's' set, 'r' restored, 'c' cleared.
// Each row asks which line of the tables of extended selection is its own.
#pragma once

#include <cstdlib>

namespace corvidlmw::test {

inline bool IsBetween(int r, int one, int other) {
    return (one <= r && r <= other) || (other <= r && r <= one);
}

inline char FateAtPress(int start, int old, int row, bool value, int r) {
    if (start == old)
        return IsBetween(r, start, row) ? 's' : '.';
    const bool same_side = (row - start) * (old - start) >= 0 && row != start;
    const bool grows = same_side && std::abs(row - start) > std::abs(old - start);
    if (grows) // the old end itself is set on neither side, but one row inwards is, upwards
        return IsBetween(r, old, row) && (r != old || start > old) ? 's'
               : start > old && r == old + 1                       ? 's'
                                                                   : '.';
    if (same_side || row == start)
        return IsBetween(r, row, old) && r != row ? 'r' : '.';
    if (IsBetween(r, start, row))
        return 's';
    return IsBetween(r, start, old) ? (value ? 'c' : 'r') : '.';
}

inline char FateAtDrag(int start, int end, int row, bool value, int r) {
    if (start == end)
        return IsBetween(r, start, row) ? 's' : '.';
    const bool same_side = (row - start) * (end - start) >= 0;
    const bool grows =
        same_side && (std::abs(row - start) > std::abs(end - start) || (row == end && start > end));
    if (grows)
        return IsBetween(r, end, row) ? 's' : '.';
    if (!same_side && IsBetween(r, start, row))
        return 's';
    const int kept = same_side ? row : start - (end > start ? 1 : -1);
    return IsBetween(r, kept, end) && r != kept ? (value ? 'c' : 'r') : '.';
}

} // namespace corvidlmw::test
