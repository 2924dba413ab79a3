// The arithmetic of XmGrid against a second computation, on random rows of slots.
#include <corvidlmw/managers/GridGeometry.h>

#include <tests/managers/GridModel.h>
#include <tests/support/Random.h>

#include <vector>

namespace corvidlmw::grid {
namespace {

using test::Random;
using namespace grid_model;

// Small numbers, or any that the fields hold.
int Any(Random &random, int small, int limit) {
    return random.Between(0, random.Chance(0.7) ? small : limit);
}

Axis RandomAxis(Random &random) {
    Axis axis;
    for (int i = random.Between(1, 6); i > 0; --i) {
        const int weight = random.Chance(0.3) ? 0 : Any(random, 300, 2'000'000'000);
        axis.slots.push_back({random.Chance(0.05) ? -weight : weight,
                              static_cast<Dimension>(Any(random, 9, 65535)),
                              static_cast<Dimension>(Any(random, 60, 65535))});
        axis.largest.push_back(random.Chance(0.3) ? 0 : Any(random, 90, 3 * 65535));
    }
    axis.extent = Any(random, 800, 65535);
    return axis;
}

TEST(GridGeometry, NaturalExtentIsTheSumOfAllModulo65536AndNeverNothing) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        const Axis axis = RandomAxis(random);
        const int frame = Any(random, 20, 200000);
        ASSERT_EQ(NaturalExtent(axis.slots, axis.largest, frame), ExpectedExtent(axis, frame));
    }
    const XmGridSlot bare = {100, 0, 0};
    const int none = 0;
    EXPECT_EQ(NaturalExtent({&bare, 1}, {&none, 1}, 0), 1);
    EXPECT_EQ(NaturalExtent({&bare, 1}, {&none, 1}, 65536), 1);
}

TEST(GridGeometry, WeightsAreNaturalExtentsAndEmptySlotsShareWhatIsLeft) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        Axis axis = RandomAxis(random);
        const int frame = Any(random, 20, 2000);
        const auto expected = ExpectedWeights(axis, frame);
        DeriveWeights(axis.slots, axis.largest, axis.extent, frame);
        ASSERT_EQ(Numbers(axis.slots), Numbers(expected)) << "round " << round;
    }
}

TEST(GridGeometry, FixedSlotsGetTheirChildrenAndTheOthersShareByWeight) {
    Random random;
    for (int round = 0; round < 5000; ++round) {
        Axis axis = RandomAxis(random);
        const auto expected = ExpectedShares(axis);
        ShareExtent(axis.slots, axis.largest, axis.extent);
        ASSERT_EQ(Numbers(axis.slots), Numbers(expected)) << "round " << round;
    }
}

// 100 : 101 : 0 of 250 less the margins and the fixed 40: 200 is shared, and 1 pixel is dropped.
TEST(GridGeometry, RemaindersAreDropped) {
    std::vector<XmGridSlot> slots = {{100, 1, 7}, {101, 2, 7}, {0, 2, 7}};
    const std::vector<int> largest = {3, 3, 40};
    ShareExtent(slots, largest, 250);
    EXPECT_EQ(slots[0].size, 99);
    EXPECT_EQ(slots[1].size, 100);
    EXPECT_EQ(slots[2].size, 40);
    std::vector<XmGridSlot> opposed = {{5, 1, 7}, {-5, 1, 7}};
    ShareExtent(opposed, std::vector<int>{9, 9}, 100);
    EXPECT_EQ(opposed[0].size + opposed[1].size, 0) << "weights that cancel out share nothing";
}

// ---- In the cell ----------------------------------------------------------------------------------

struct Row {
    bool fills_width, fills_height, cuts;
    int width, height; // in a cell of 40 by 21, wanting 60 by 10
};

TEST(GridGeometry, AChildFillsItsCellOrKeepsItsSize) {
    for (const Row &row : std::initializer_list<Row>{{true, true, true, 40, 21},
                                                     {true, true, false, 40, 21},
                                                     {true, false, true, 40, 10},
                                                     {true, false, false, 40, 10},
                                                     {false, true, true, 40, 21},
                                                     {false, true, false, 60, 21},
                                                     {false, false, true, 40, 10},
                                                     {false, false, false, 60, 10}}) {
        const Tenant tenant = {1, row.fills_width, row.fills_height, 60, 10, 2};
        EXPECT_EQ(PlaceInCell({5, 6, 40, 21}, tenant, row.cuts, {}),
                  (Rectangle{5, 6, row.width, row.height}));
    }
    const Tenant tall = {1, true, false, 60, 50, 2};
    EXPECT_EQ(PlaceInCell({5, 6, 40, 21}, tall, true, {}).height, 21);
    EXPECT_EQ(PlaceInCell({5, 6, 40, 21}, tall, false, {}).height, 50);
}

// The table of gravities, and halves that truncate toward zero where the child is the larger one:
// -31/2 is -15. The border counts in the height alone.
TEST(GridGeometry, GravityAlignsAChildThatDoesNotFill) {
    struct {
        Tenant tenant;
        int x[3], y[3];
    } const cases[] = {
        {{0, false, false, 21, 10, 3}, {100, 109, 119}, {200, 207, 214}},
        {{0, false, false, 71, 60, 0}, {100, 85, 69}, {200, 185, 170}},
        {{0, true, false, 71, 10, 0}, {100, 100, 100}, {200, 210, 220}},
        {{0, false, true, 21, 10, 9}, {100, 109, 119}, {200, 200, 200}},
    };
    for (const auto &row : cases)
        for (int gravity = 1; gravity <= 9; ++gravity) {
            Tenant tenant = row.tenant;
            tenant.gravity = gravity;
            const Rectangle place = PlaceInCell({100, 200, 40, 30}, tenant, false, {});
            EXPECT_EQ(place.x, row.x[(gravity - 1) % 3]) << gravity;
            EXPECT_EQ(place.y, row.y[(gravity - 1) / 3]) << gravity;
        }
}

TEST(GridGeometry, AGravityOutOfRangeStaysWhereTheLastChildWas) {
    for (const int gravity : {0, 10, -1, 2'000'000'000, -2'147'483'647 - 1}) {
        const Tenant tenant = {gravity, false, false, 21, 10, 0};
        EXPECT_EQ(PlaceInCell({100, 200, 40, 30}, tenant, true, {}), (Rectangle{100, 200, 21, 10}));
        EXPECT_EQ(PlaceInCell({100, 200, 40, 30}, tenant, true, Point{7, 8}),
                  (Rectangle{7, 8, 21, 10}));
        const Tenant filling = {gravity, true, true, 21, 10, 0};
        EXPECT_EQ(PlaceInCell({100, 200, 40, 30}, filling, true, Point{7, 8}),
                  (Rectangle{100, 200, 40, 30}));
    }
}

// ---- Positions ------------------------------------------------------------------------------------

TEST(GridGeometry, BoundariesAreInNoSlot) {
    const std::vector<XmGridSlot> slots = {{1, 4, 12}, {1, 0, 0}, {1, 1, 8}};
    for (int position = -3; position < 40; ++position) {
        const int expected = position > 0 && position < 20    ? 0
                             : position > 20 && position < 30 ? 2
                                                              : -1;
        EXPECT_EQ(SlotAt(slots, position), expected) << position;
    }
}

TEST(GridGeometry, TheSumStopsAtTheFirstSlotBeforeTheIndex) {
    const std::vector<XmGridSlot> slots = {{1, 4, 12}, {1, 60000, 50000}, {1, 1, 8}};
    const int all = 20 + (170000 - 3 * 65536) + 10;
    EXPECT_EQ(SumFrom(slots, 0), all);
    EXPECT_EQ(SumFrom(slots, -5), all);
    EXPECT_EQ(SumFrom(slots, 1), 0);
    EXPECT_EQ(SumFrom(slots, 2'000'000'000), 0);
}

} // namespace
} // namespace corvidlmw::grid
