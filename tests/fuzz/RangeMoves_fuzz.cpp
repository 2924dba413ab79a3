// Gestures that move the end of a range, against the same tables worked off row by row.
#include <tests/fuzz/Input.h>
#include <tests/list/RangeFates.h>

#include <corvidlmw/list/RangeMoves.h>

using namespace corvidlmw::list;
using corvidlmw::fuzz::Input, corvidlmw::fuzz::Require;

namespace {

char FateOf(const RangeMove &move, int row) {
    if (row >= move.set.first && row <= move.set.last) {
        return 's';
    }
    const bool undone = row >= move.undone.first && row <= move.undone.last;
    return !undone ? '.' : move.undo == Undo::Restore ? 'r' : 'c';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    while (!input.AtEnd()) {
        const int start = input.Between(0, 40);
        const int end = input.Between(0, 40);
        const int to = input.Between(0, 40);
        const bool value = input.Flag();
        const RangeMove press = PressMove(start, end, to, value);
        const RangeMove drag = DragMove(start, end, to, value);
        for (int row = 0; row <= 40; row++) {
            Require(FateOf(press, row) == corvidlmw::test::FateAtPress(start, end, to, value, row));
            Require(FateOf(drag, row) == corvidlmw::test::FateAtDrag(start, end, to, value, row));
        }
    }
    return 0;
}
