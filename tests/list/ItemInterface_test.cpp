// Rows added, deleted, replaced, selected, scrolled to and asked for by function.
#include <tests/list/ListTest.h>

#include <limits>
#include <numeric>

namespace {

using namespace corvidlmw::test;

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

Texts SelectedTexts(Widget list) {
    Texts texts;
    for (int i = 0; i < Get(list, XmNselectedItemCount); i++)
        texts.push_back(TextOf(Get<XmString *>(list, XmNselectedItems)[i]));
    return texts;
}

std::vector<int> PositionsFrom(Boolean found, int *positions, int count) {
    const std::vector<int> all(positions, positions + (found ? count : 0));
    XtFree(reinterpret_cast<char *>(positions));
    return all;
}

class ItemTest : public ListTest {
protected:
    // How many there were since the last call.
    int TakeWarnings() {
        int count = 0;
        for (; !warnings().empty(); count++)
            ExpectWarning(warnings().front());
        return count;
    }
    static void Select(Widget list, const std::vector<int> &positions) {
        for (int position : positions)
            LmListSelectPos(list, position, False);
    }
};

// ---- A model ------------------------------------------------------------------------------------------

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

void ExpectAsModel(Widget list, const Model &model) {
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

class Walk {
public:
    Walk(Widget list, Model &model) : list_(list), model_(model) {}

    void Step() {
        switch (random_.Between(0, 15)) {
        case 0: return AddOne();
        case 1:
        case 2: return AddMany();
        case 3: return DeletePos();
        case 4: return DeleteItems();
        case 5: return DeletePositions();
        case 6: return DeleteItemsPos();
        case 7: return ReplaceItems();
        case 8: return ReplacePositions();
        case 9:
        case 10: return Select();
        case 11: return Deselect();
        case 12: return Scroll();
        case 13: return MoveCursor();
        case 14: return LmListUpdateSelectedList(list_), model_.Rebuild();
        default: return DeleteAll();
        }
    }

private:
    std::string Text() { return std::string(2, static_cast<char>('a' + random_.Between(0, 9))); }
    Texts SomeTexts(int most) {
        Texts texts(static_cast<size_t>(random_.Between(1, most)));
        std::generate(texts.begin(), texts.end(), [this] { return Text(); });
        return texts;
    }
    int Position() {
        constexpr int odd[] = {0, -5, lowest, highest};
        return random_.Chance(0.15) ? odd[random_.Between(0, 3)]
                                    : random_.Between(1, model_.size() + 2);
    }
    int Room() { return std::max(model_.size() - 1, 0); } // a deleted last row changes the size

    void AddOne() {
        const Texts texts = SomeTexts(1);
        const bool by_membership = random_.Chance(0.5);
        const int position = Position();
        (by_membership ? LmListAddItem : LmListAddItemUnselected)(list_, Strings(texts)[0],
                                                                  position);
        model_.Add(texts, position, by_membership);
    }
    void AddMany() {
        const Texts texts = SomeTexts(9);
        Strings strings(texts);
        const bool by_membership = random_.Chance(0.5);
        const int position = Position();
        (by_membership ? LmListAddItems : LmListAddItemsUnselected)(
            list_, strings.data(), static_cast<int>(texts.size()), position);
        model_.Add(texts, position, by_membership);
    }
    void DeletePos() {
        const int position = Position();
        if (Room() < 1)
            return;
        LmListDeletePos(list_, position);
        if (position > model_.size())
            model_.warned++;
        else
            model_.DeleteRun((position < 1 ? model_.size() : position) - 1, 1);
    }
    void DeleteItems() {
        const Texts texts = SomeTexts(4);
        if (Room() < 4)
            return;
        LmListDeleteItems(list_, Strings(texts).data(), static_cast<int>(texts.size()));
        model_.DeleteItems(texts);
    }
    void DeletePositions() {
        std::vector<int> positions(static_cast<size_t>(random_.Between(1, 5)));
        if (Room() < 5)
            return;
        std::generate(positions.begin(), positions.end(), [this] { return Position(); });
        model_.DeletePositions(positions);
        LmListDeletePositions(list_, positions.data(), static_cast<int>(positions.size()));
    }
    void DeleteItemsPos() {
        const int position = Position(), count = random_.Chance(0.1) ? highest : Position() / 4;
        if (position == 1 && count >= model_.size())
            return;
        LmListDeleteItemsPos(list_, count, position);
        if (model_.items.empty() || count < 1)
            return;
        if (position < 1 || position > model_.size())
            model_.warned++;
        else
            model_.DeleteRun(position - 1, std::min(count, model_.size() - position + 1));
    }
    void ReplaceItems() {
        const Texts old_texts = SomeTexts(3);
        const Texts new_texts(old_texts.size(), Text());
        const bool by_membership = random_.Chance(0.5);
        (by_membership ? LmListReplaceItems : LmListReplaceItemsUnselected)(
            list_, Strings(old_texts).data(), static_cast<int>(old_texts.size()),
            Strings(new_texts).data());
        for (size_t i = 0; i < old_texts.size(); i++)
            if (const int row = model_.Find(old_texts[i]); row >= 0)
                model_.Replace(row, new_texts[i], by_membership);
    }
    void ReplacePositions() {
        int position = Position();
        const Texts texts = SomeTexts(6);
        const int count = static_cast<int>(texts.size());
        const bool by_membership = random_.Chance(0.5);
        (by_membership ? LmListReplaceItemsPos : LmListReplaceItemsPosUnselected)(
            list_, Strings(texts).data(), count, position);
        for (int i = 0; position >= 1 && i < count && i <= model_.size() - position; i++)
            model_.Replace(position - 1 + i, texts[static_cast<size_t>(i)], by_membership);
        position = Position();
        LmListReplacePositions(list_, &position, Strings(texts).data(), 1);
        if (position >= 1 && position <= model_.size())
            model_.Replace(position - 1, texts[0], true);
        else
            model_.warned += !model_.items.empty();
    }
    void Select() {
        const int position = Position();
        LmListSelectPos(list_, position, random_.Chance(0.5));
        if (const int row = RowAt(position); row >= 0)
            model_.Select(row);
    }
    void Deselect() {
        const int row = RowAt(Position());
        if (random_.Chance(0.2)) {
            LmListDeselectAllItems(list_);
            if (!model_.selected_items.empty())
                model_.selected.assign(model_.items.size(), false);
        } else {
            LmListDeselectPos(list_, row < 0 ? -1 : row + 1);
            if (row < 0)
                return;
            model_.selected[static_cast<size_t>(row)] = false;
        }
        if (!model_.selected_items.empty() || row >= 0)
            model_.Rebuild();
    }
    void Scroll() {
        const int position = Position(), row = RowAt(position);
        const bool to_top = random_.Chance(0.5);
        (to_top ? LmListSetPos : LmListSetBottomPos)(list_, position);
        if (row >= 0)
            model_.top = to_top ? row : std::max(row + 1 - model_.visible, 0);
    }
    void MoveCursor() {
        const int position = Position(), row = RowAt(position);
        EXPECT_EQ(LmListSetKbdItemPos(list_, position), row >= 0);
        if (row >= 0)
            model_.cursor = row;
    }
    void DeleteAll() {
        if (random_.Chance(0.8))
            return;
        LmListDeleteAllItems(list_);
        if (!model_.items.empty())
            model_ = {
                .visible = model_.visible, .warned = model_.warned, .multiple = model_.multiple};
    }
    // In the families where 0 is the last item.
    int RowAt(int position) const {
        return position < 0 || position > model_.size() ? -1
                                                        : (position ? position : model_.size()) - 1;
    }

    Widget list_;
    Model &model_;
    Random random_;
};

TEST_F(ItemTest, DoesAsTheModelDoes) {
    Show();
    for (const int policy : {XmBROWSE_SELECT, XmMULTIPLE_SELECT}) {
        Widget list = Make({"aa"}, {{XmNvisibleItemCount, 7},
                                    {XmNselectionPolicy, static_cast<XtArgVal>(policy)}});
        Model model{.items = {"aa"}, .visible = 7, .multiple = policy == XmMULTIPLE_SELECT};
        Walk walk(list, model);
        for (int step = 0; step < 1500; step++) {
            walk.Step();
            ASSERT_EQ(TakeWarnings(), std::exchange(model.warned, 0)) << step;
            ASSERT_NO_FATAL_FAILURE(ExpectAsModel(list, model)) << step;
        }
        XtDestroyWidget(list);
    }
}

} // namespace
