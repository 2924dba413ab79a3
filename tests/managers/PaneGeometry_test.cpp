// The fitting of panes, by hand and against a second computation.
#include <corvidlmw/managers/PaneGeometry.h>

#include <tests/managers/PaneModel.h>
#include <tests/support/Random.h>

#include <gtest/gtest.h>

#include <vector>

namespace corvidlmw::managers {
namespace {

using pane_model::Expected;
using test::Random;
using Widths = std::vector<int>;
constexpr FitRules limits{.keep_limits = true};
constexpr FitRules all{.adjust_all = true};

std::vector<Pane> Fitted(const PaneRow &row, std::vector<Pane> panes, int index, Direction way,
                         FitRules rules = {}) {
    FitPanes(row, panes, index, way, rules);
    return panes;
}

Widths WidthsOf(const std::vector<Pane> &panes) {
    Widths widths;
    for (const Pane &pane : panes)
        widths.push_back(pane.width);
    return widths;
}

TEST(PaneGeometry, Examples) {
    const auto right = Direction::Right, left = Direction::Left;
    const auto skipped = [](int width) { return Pane{.width = width, .skip_adjust = true}; };
    // clang-format off
    const struct {
        const char *what;
        int row;
        std::vector<Pane> panes;
        int index;
        Direction way;
        FitRules rules;
        Widths widths;
    } examples[] = {
        {"the next pane to the right gives up", 90, {{40}, {30}, {30}}, 0, right, {}, {40, 20, 30}},
        {"and the one behind it when it has no more", 40, {{38}, {30}, {30}}, 0, right, {}, {38, 1, 1}},
        {"to the left, beginning with the pane itself", 90, {{40}, {30}, {30}}, 1, left, {}, {40, 20, 30}},
        {"room goes the same way", 120, {{40}, {30}, {30}}, 0, right, {}, {40, 50, 30}},
        {"up to the limit", 120, {{40}, {30, 0, 0, 1, 35}, {30}}, 0, right, {}, {40, 35, 45}},
        {"widths are brought into their limits first", 100, {{5, 0, 0, 20, 30}, {50}}, 1, left, {}, {20, 80}},
        {"both sides give in a far drag", 230, {{100}, {550}, {80}}, 1, right, {}, {1, 228, 1}},
        {"as they are when limits must hold", 50, {{40, 0, 0, 30}, {30, 0, 0, 30}}, 1, left, limits, {30, 30}},
        {"else the first one gives in", 50, {{40, 0, 0, 30}, {30, 0, 0, 30}}, 1, left, {}, {30, 20}},
        {"a skipped pane lets the next one give", 90, {{40}, skipped(30), {30}}, 0, right, {}, {40, 30, 20}},
        {"but not in the other direction", 90, {skipped(40), {30}, skipped(30)}, 1, right, {}, {30, 30, 30}},
        {"and not in a drag", 90, {{40}, skipped(30), {30}}, 0, right, all, {40, 20, 30}},
        {"one pane fills the row", 300, {{40}}, 0, right, {}, {300}},
    };
    // clang-format on
    for (const auto &example : examples) {
        SCOPED_TRACE(example.what);
        EXPECT_EQ(WidthsOf(Fitted({example.row}, example.panes, example.index, example.way,
                                  example.rules)),
                  example.widths);
    }
}

TEST(PaneGeometry, PlacesFollowOneAnotherIn16Bits) {
    const PaneRow row{60, 3, 8};
    const auto panes = Fitted(row, {{10}, {10, 0, 2}, {10}}, 2, Direction::Left);
    EXPECT_EQ(UsedWidth(row, panes), 60);
    EXPECT_EQ(WidthsOf(panes), (Widths{10, 10, 14}));
    EXPECT_EQ(panes[1].x, 3 + 10 + 8);
    EXPECT_EQ(panes[2].x, 21 + 14 + 8);
    EXPECT_EQ(UsedWidth(row, {}), 6) << "no gap without a pane";
    const auto wide = Fitted({65535}, {{30000, 0, 0, 1, 30000}, {40000, 0, 0, 1, 40000}, {1}}, 0,
                             Direction::Right);
    EXPECT_EQ(wide[2].x, 65534 - 65536);
    EXPECT_TRUE(Fitted(row, {}, -1, Direction::Left).empty());
}

TEST(PaneGeometry, SashesAndSeparatorsStandBehindTheirPane) {
    const SashRules rules{.height = 200, .spacing = 9, .indent = -10, .offset = 3};
    EXPECT_EQ(SashPlace(rules, 100, 11, 10, 1), (Point{100 + 4 - 5 - 1 + 3, 178}));
    EXPECT_EQ(SashPlace({.height = 200, .indent = 7}, 100, 10, 10, 0), (Point{95, 7}));
    EXPECT_EQ(SashPlace({.height = 200, .indent = 191}, 0, 10, 10, 0).y, 0);
    EXPECT_EQ(SashPlace({.height = 200, .indent = 190}, 0, 10, 10, 0).y, 190);
    EXPECT_EQ(SashPlace({.height = 15, .indent = -10}, 0, 10, 10, 0).y, 0);
    EXPECT_EQ(SashPlace({.height = 200, .indent = 0}, 0, 10, 10, 0).y, 190);
    EXPECT_EQ(SeparatorPlace(rules, 100, 3, 1), 100 + 4 - 1 - 1);
    EXPECT_EQ(TrackPlace(50, 2, 9), 45);
}

// ---- Against a second computation ---------------------------------------------------------------

Pane RandomPane(Random &random) {
    const int most = random.Chance(0.05) ? 65535 : 300;
    const int least = random.Chance(0.5) ? 1 : random.Between(1, 120);
    return {.width = random.Between(-50, most),
            .border = random.Between(0, 3),
            .least = least,
            .most = random.Chance(0.5) ? 1000 : random.Between(least, 500),
            .skip_adjust = random.Chance(0.2)};
}

TEST(PaneGeometry, RandomPanesAgreeWithAWalkLaidOutBeforehand) {
    Random random;
    for (int round = 0; round < 20000; ++round) {
        const PaneRow row{random.Between(1, random.Chance(0.1) ? 65535 : 900), random.Between(0, 9),
                          random.Between(0, 12)};
        std::vector<Pane> panes(static_cast<std::size_t>(random.Between(1, 6)));
        for (Pane &pane : panes)
            pane = RandomPane(random);
        const int index = random.Between(0, static_cast<int>(panes.size()) - 1);
        const Direction way = random.Chance(0.5) ? Direction::Right : Direction::Left;
        const FitRules rules{random.Chance(0.5), random.Chance(0.5)};
        const auto got = Fitted(row, panes, index, way, rules);
        const auto wanted = Expected(row, panes, index, static_cast<int>(way), rules);
        for (std::size_t i = 0; i < panes.size(); ++i) {
            ASSERT_EQ(got[i].width, wanted[i].width) << "round " << round << " pane " << i;
            ASSERT_EQ(got[i].x, wanted[i].x) << "round " << round << " pane " << i;
        }
    }
}

} // namespace
} // namespace corvidlmw::managers
