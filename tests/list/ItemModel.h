// A plain model of a list, which the list is held against.
#pragma once

#include <tests/list/ItemTest.h>

namespace corvidlmw::test {

// What the functions do to rows, selection, top and cursor, in a list whose size does not change.
struct Model {
    Texts items;
    std::vector<bool> selected = std::vector<bool>(items.size());
    Texts selected_items;
    int top = 0, cursor = 0, visible = 0, warned = 0;
    bool multiple = false;

    int size() const { return static_cast<int>(items.size()); }
    int Find(const std::string &text) const {
        const auto found = std::find(items.begin(), items.end(), text);
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    }
    bool IsMember(const std::string &text) const {
        return std::find(selected_items.begin(), selected_items.end(), text) !=
               selected_items.end();
    }
    void Rebuild() {
        selected_items.clear();
        for (size_t row = 0; row < items.size(); row++)
            if (selected[row])
                selected_items.push_back(items[row]);
    }

    void Add(const Texts &texts, int position, bool by_membership) {
        const bool inserted = position >= 1 && position <= size() + 1;
        const int at = inserted ? position - 1 : size();
        const int count = static_cast<int>(texts.size());
        if (items.empty())
            top = std::min(top, count - 1);
        for (int i = 0; i < count; i++) {
            const auto &text = texts[static_cast<size_t>(i)];
            items.insert(items.begin() + at + i, text);
            selected.insert(selected.begin() + at + i, by_membership && IsMember(text));
        }
        if (inserted && at <= cursor)
            cursor = std::min(cursor + count, size() - 1);
    }
    void Erase(int row) {
        items.erase(items.begin() + row);
        selected.erase(selected.begin() + row);
    }
    void DeleteRun(int row, int count) {
        const bool in_view = row >= top && row < top + visible;
        const bool shrinks = row < top || (in_view && top + visible > size() - count);
        for (int i = 0; i < count; i++)
            Erase(row);
        Rebuild();
        if (row <= cursor)
            cursor = std::max(cursor - count, 0);
        if (shrinks)
            top = std::max(top - count, 0);
    }
    void PullTopBack() {
        if (size() - top < visible)
            top = std::max(size() - visible, 0);
    }
    void DeleteItems(const Texts &texts) {
        for (const auto &text : texts) {
            const int row = Find(text);
            if (row < 0) {
                warned++;
                continue;
            }
            cursor -= cursor >= row;
            Erase(row);
        }
        Rebuild();
        PullTopBack();
    }
    void DeletePositions(std::vector<int> positions) {
        for (int position : positions)
            warned += position < 1 || position > size();
        std::sort(positions.rbegin(), positions.rend());
        positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
        for (int position : positions)
            if (position >= 1 && position <= size())
                Erase(position - 1);
        Rebuild();
        cursor = std::min(cursor, size());
        PullTopBack();
    }
    void Replace(int row, const std::string &text, bool by_membership) {
        items[static_cast<size_t>(row)] = text;
        selected[static_cast<size_t>(row)] = by_membership && IsMember(text);
    }
    void Select(int row) {
        const auto at = static_cast<size_t>(row);
        const bool on = !multiple || !selected[at];
        if (!multiple)
            selected.assign(items.size(), false);
        selected[at] = on;
        Rebuild();
        for (int i = 0; i < size(); i++)
            if (selected[static_cast<size_t>(i)])
                cursor = i;
    }
};

inline void ExpectAsModel(Widget list, const Model &model) {
    ASSERT_NO_FATAL_FAILURE(ExpectInOrder(list));
    ASSERT_EQ(ItemsOf(list), model.items);
    std::vector<int> rows, positions;
    for (int row = 0; row < model.size(); row++)
        if (model.selected[static_cast<size_t>(row)]) {
            rows.push_back(row);
            positions.push_back(row + 1);
        }
    ASSERT_EQ(SelectedRows(list), rows);
    ASSERT_EQ(SelectedTexts(list), model.selected_items);
    int *found = nullptr, count = 0;
    const Boolean any = LmListGetSelectedPos(list, &found, &count);
    const auto &part = PartOf(list);
    ASSERT_EQ(PositionsFrom(any, found, count),
              model.selected_items.empty() ? std::vector<int>() : positions);
    ASSERT_TRUE(std::equal(positions.begin(), positions.end(), part.selected_positions));
    ASSERT_EQ(part.top_item_position, model.top);
    ASSERT_EQ(part.current_keyboard_item, model.cursor);
    ASSERT_EQ(part.visible_item_count, model.visible);
}

} // namespace corvidlmw::test
