// The tables of extended selection against the same tables worked off row by row.
#include <corvidlmw/list/RangeMoves.h>

#include <tests/list/RangeFates.h>
#include <tests/support/GoogleTest.h>

#include <array>

namespace corvidlmw::list {
namespace {

using test::FateAtDrag, test::FateAtPress;

constexpr int count = 7;

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
