// A plain model of a list, which the list is held against.
#pragma once

#include <tests/list/ItemTest.h>

namespace corvidlmw::test {

// What the functions do to rows, selection, top and cursor, in a list whose size does not change, and what
// its client hears.
struct Model {
    Texts items;
    int visible = 0;
    int policy = XmBROWSE_SELECT;
    bool automatic = false;
    std::vector<bool> selected = std::vector<bool>(items.size());
    std::vector<bool> remembered = selected; // before the gesture that is under way
    Texts selected_items, told;
    int top = 0, cursor = 0, warned = 0;
    int last = 0, start = 0, end = 0, old_start = 0, old_end = 0; // of gestures
    bool was_told = false;
    bool has_keyboard = false;

    bool IsMultiple() const { return policy == XmMULTIPLE_SELECT; }
    bool IsExtended() const { return policy == XmEXTENDED_SELECT; }
    bool SelectsRanges() const { return IsExtended() || policy == XmBROWSE_SELECT; }
    bool IsRow(int row) const { return row >= 0 && row < size(); }
    bool Has(int row) const { return IsRow(row) && selected[static_cast<size_t>(row)]; }
    void Put(int row, bool on) { selected[static_cast<size_t>(row)] = on; }
    void PutBoth(int row, bool on) {
        Put(row, on);
        remembered[static_cast<size_t>(row)] = on;
    }
    std::vector<int> SelectedRows() const {
        std::vector<int> rows;
        for (int row = 0; row < size(); row++)
            if (Has(row))
                rows.push_back(row);
        return rows;
    }
    void DropAllBut(int kept) {
        for (int row = 0; row < size(); row++)
            if (Has(row) && row != kept)
                PutBoth(row, false);
    }

    int size() const { return static_cast<int>(items.size()); }
    int Find(const std::string &text) const {
        const auto found = std::find(items.begin(), items.end(), text);
        return found == items.end() ? -1 : static_cast<int>(found - items.begin());
    }
    bool IsMember(const std::string &text) const {
        return std::find(selected_items.begin(), selected_items.end(), text) !=
               selected_items.end();
    }
    void Rebuild(bool remembers = true) {
        selected_items.clear();
        for (size_t row = 0; row < items.size(); row++)
            if (selected[row])
                selected_items.push_back(items[row]);
        if (remembers)
            remembered = selected;
    }
    // What a client is told: of which row, and which are selected.
    void Tell(const std::string &reason, bool remembers, bool with_selection) {
        was_told = true;
        if (items.empty())
            return;
        Rebuild(remembers);
        std::string text = reason + ' ' + std::to_string(std::clamp(last, 0, size() - 1) + 1);
        for (int row = 0; with_selection && row < size(); row++)
            text += Has(row) ? ' ' + std::to_string(row + 1) : "";
        told.push_back(text);
    }
    void TellSelection() { Tell("selection", !automatic, IsMultiple() || IsExtended()); }

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
            remembered.insert(remembered.begin() + at + i, Has(at + i));
        }
        if (!inserted || at > cursor)
            return;
        cursor = std::min(cursor + count, size() - 1);
        if (automatic && SelectsRanges())
            last = std::min(last + count, size() - 1);
    }
    void Erase(int row) {
        items.erase(items.begin() + row);
        selected.erase(selected.begin() + row);
        remembered.erase(remembered.begin() + row);
    }
    void DeleteRun(int row, int count) {
        const bool in_view = row >= top && row < top + visible;
        const bool shrinks = row < top || (in_view && top + visible > size() - count);
        for (int i = 0; i < count; i++)
            Erase(row);
        Rebuild();
        if (row <= cursor) {
            cursor = std::max(cursor - count, 0);
            last = SelectsRanges() ? cursor : last;
        }
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
        if (cursor >= size()) {
            cursor = has_keyboard ? size() - 1 : size();
            last = automatic && SelectsRanges() ? size() : last;
        }
        PullTopBack();
    }
    void Replace(int row, const std::string &text, bool by_membership) {
        items[static_cast<size_t>(row)] = text;
        PutBoth(row, by_membership && IsMember(text));
    }
    void Select(int row, bool notify) {
        const bool on = !IsMultiple() || !Has(row);
        if (!IsMultiple())
            DropAllBut(row);
        PutBoth(row, on);
        last = row;
        notify ? TellSelection() : Rebuild();
        old_start = start;
        old_end = end;
        start = end = last = 0;
        for (int i = 0; i < size(); i++)
            if (Has(i)) {
                start = Has(i - 1) ? start : i;
                end = last = cursor = i;
            }
    }
    // Into view.
    void MoveCursor(int row) {
        cursor = row;
        if (row < top)
            top = row;
        else if (row >= top + visible)
            top = std::max(row + 1 - visible, 0);
    }
    void DeselectAll() {
        if (selected_items.empty())
            return;
        DropAllBut(-1);
        selected_items.clear();
    }
    void DeleteAll() {
        if (items.empty())
            return;
        items.clear();
        selected.clear();
        remembered.clear();
        selected_items.clear();
        last = top = cursor = 0;
    }
};

inline void ExpectAsModel(Widget list, const Model &model) {
    ASSERT_NO_FATAL_FAILURE(ExpectInOrder(list));
    ASSERT_EQ(ItemsOf(list), model.items);
    const std::vector<int> rows = model.SelectedRows();
    std::vector<int> positions(rows.size());
    std::transform(rows.begin(), rows.end(), positions.begin(), [](int row) { return row + 1; });
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
