// The index of boxes against a walk over all of them.
#include <tests/fuzz/Input.h>

#include <corvidlmw/graph/BoxIndex.h>

#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::graph;
using fuzz::Input, fuzz::Require;

namespace {

bool Overlap(const Rectangle &a, const Rectangle &b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

// At least a pixel large.
Rectangle ABox(Input &input) {
    const auto [x, y, width, height] = input.Box();
    return {x, y, width + 1, height + 1};
}

void CheckAsked(const BoxIndex &index, const std::vector<Rectangle> &boxes,
                const Rectangle &asked) {
    std::size_t next = 0;
    const auto pass = [&](std::size_t end) {
        for (; next < end; next++) {
            Require(boxes[next].width == 0 || !Overlap(boxes[next], asked));
        }
    };
    index.ForEachTouching(Bounds(asked), [&](std::size_t found) {
        Require(found >= next && found < boxes.size() && boxes[found].width > 0 &&
                Overlap(boxes[found], asked));
        pass(found);
        next = found + 1;
    });
    pass(boxes.size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const auto count = static_cast<std::size_t>(input.Between(1, 100));
    BoxIndex index;
    index.Reset(count);
    std::vector<Rectangle> boxes(count);
    while (!input.AtEnd()) {
        const auto at = static_cast<std::size_t>(input.Between(0, static_cast<int>(count) - 1));
        const bool gone = input.Flag();
        boxes[at] = gone ? Rectangle{} : ABox(input);
        index.Set(at, gone ? Bounds() : Bounds(boxes[at]));
        CheckAsked(index, boxes, ABox(input));
    }
    return 0;
}
