#include <tests/storm/Invariants.h>

#include <tests/list/ListTest.h>

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::storm {

void CheckList(Widget w) {
    const auto &list = test::PartOf(w);
    const auto &state = list::StateOf(w);
    // While it does not update its rows keep the heights that they had.
    if (list.update)
        test::ExpectRowsInOrder(w);
    const auto rows = test::SelectedRows(w);
    EXPECT_EQ(state.selected.size(), static_cast<int>(rows.size()));
    for (const int row : rows)
        EXPECT_TRUE(state.selected.Contains(row)) << row;
    EXPECT_EQ(state.pool.size(), list.element_count);
    EXPECT_GE(list.selected_item_count, 0);
    EXPECT_EQ(list.selected_items == nullptr, list.selected_item_count == 0);
    EXPECT_GE(list.top_item_position, 0);
    EXPECT_GE(list.current_keyboard_item, -1); // the last row of none
    EXPECT_GE(list.visible_item_count, 1);
}

} // namespace corvidlmw::storm
