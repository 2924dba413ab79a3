#include <corvidlmw/graph/BoxIndex.h>

#include <tests/support/GoogleTest.h>
#include <tests/support/Random.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

bool Overlap(const Rectangle &a, const Rectangle &b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

} // namespace

// Against a walk over all of them, while boxes move, vanish and grow.
TEST(RandomBoxIndex, FindsWhatAWalkFinds) {
    test::Random random(7);
    BoxIndex index;
    std::vector<Rectangle> boxes(200);
    index.Reset(boxes.size());
    auto any = [&] {
        return Rectangle{random.Between(-300, 300), random.Between(-300, 300),
                         random.Between(1, 60), random.Between(1, 60)};
    };
    for (int step = 0; step < 3000; step++) {
        const auto at = static_cast<std::size_t>(random.Between(0, 199));
        boxes[at] = random.Between(0, 9) == 0 ? Rectangle{} : any();
        index.Set(at, boxes[at] == Rectangle{} ? Bounds() : Bounds(boxes[at]));
        const Rectangle asked = any();
        std::vector<std::size_t> expected;
        for (std::size_t i = 0; i < boxes.size(); i++) {
            if (boxes[i].width > 0 && Overlap(boxes[i], asked)) {
                expected.push_back(i);
            }
        }
        std::vector<std::size_t> found;
        index.ForEachTouching(Bounds(asked), [&](std::size_t i) { found.push_back(i); });
        ASSERT_EQ(found, expected) << "step " << step;
    }
}
