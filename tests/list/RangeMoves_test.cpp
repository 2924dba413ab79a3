// The tables of extended selection, worked off row by row: each row asks which line is its own.
#include <corvidlmw/list/RangeMoves.h>

#include <tests/support/GoogleTest.h>

#include <array>

namespace corvidlmw::list {
namespace {

constexpr int count = 7;

// What becomes of a row: '.' nothing, 's' set, 'r' restored, 'c' cleared.
using Fates = std::array<char, count>;

Fates FatesOf(const RangeMove &move) {
    Fates fates;
    fates.fill('.');
    for (int row = move.undone.first; row <= move.undone.last; row++)
        fates.at(static_cast<std::size_t>(row)) = move.undo == Undo::Restore ? 'r' : 'c';
    for (int row = move.set.first; row <= move.set.last; row++)
        fates.at(static_cast<std::size_t>(row)) = 's';
    return fates;
}

bool IsBetween(int r, int one, int other) {
    return (one <= r && r <= other) || (other <= r && r <= one);
}

char FateAtPress(int start, int old, int row, bool value, int r) {
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

char FateAtDrag(int start, int end, int row, bool value, int r) {
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

TEST(RangeMoves, FollowBothTablesRowByRow) {
    for (int start = 0; start < count; start++)
        for (int end = 0; end < count; end++)
            for (int row = 0; row < count; row++)
                for (const bool value : {false, true}) {
                    Fates press, drag;
                    for (int r = 0; r < count; r++) {
                        const auto i = static_cast<std::size_t>(r);
                        press[i] = FateAtPress(start, end, row, value, r);
                        drag[i] = FateAtDrag(start, end, row, value, r);
                    }
                    SCOPED_TRACE(::testing::Message() << start << " to " << end << ", then " << row
                                                      << ", value " << value);
                    EXPECT_EQ(FatesOf(PressMove(start, end, row, value)), press);
                    EXPECT_EQ(FatesOf(DragMove(start, end, row, value)), drag);
                }
}

} // namespace
} // namespace corvidlmw::list
