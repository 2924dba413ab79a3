// Random calls of the functions for items, to a list and to its model alike.
#pragma once

#include <tests/list/ItemModel.h>

namespace corvidlmw::test {

class Walk {
public:
    Walk(Widget list, Model &model) : list_(list), model_(model) {}

    void Step() {
        switch (random_.Between(0, 3)) {
        case 0: return Select();
        case 1: return MoveCursor();
        default: return StepOfRows();
        }
    }
    void StepOfRows() {
        switch (random_.Between(0, 12)) {
        case 0: return AddOne();
        case 1:
        case 2: return AddMany();
        case 3: return DeletePos();
        case 4: return DeleteItems();
        case 5: return DeletePositions();
        case 6: return DeleteItemsPos();
        case 7: return ReplaceItems();
        case 8: return ReplacePositions();
        case 9: return Deselect();
        case 10: return Scroll();
        case 11: return LmListUpdateSelectedList(list_), model_.Rebuild();
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
        const bool notify = random_.Chance(0.5);
        LmListSelectPos(list_, position, notify);
        if (const int row = RowAt(position); row >= 0)
            model_.Select(row, notify);
    }
    void Deselect() {
        if (random_.Chance(0.2)) {
            LmListDeselectAllItems(list_);
            return model_.DeselectAll();
        }
        const int position = Position(), row = RowAt(position);
        LmListDeselectPos(list_, position);
        if (row >= 0) {
            model_.PutBoth(row, false);
            model_.Rebuild();
        }
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
            model_.MoveCursor(row);
    }
    void DeleteAll() {
        if (random_.Chance(0.8))
            return;
        LmListDeleteAllItems(list_);
        model_.DeleteAll();
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

} // namespace corvidlmw::test
