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

// Whatever changed, the window shows what it would show if it were drawn anew. Only a cursor that moves takes
// something of its neighbours along.
TEST_F(ItemTest, ShowsWhatItIsTold) {
    Widget list = MakeScrolled(
        {"aa"}, {{XmNvisibleItemCount, 7}, {XmNlistSizePolicy, XmCONSTANT}, {XmNwidth, 90}});
    const auto draw_anew = [&] {
        XClearArea(display, XtWindow(list), 0, 0, 0, 0, True);
        Pump();
        return Picture::Of(list);
    };
    Show();
    XmProcessTraversal(list, XmTRAVERSE_CURRENT);
    Pump();
    ASSERT_TRUE(PartOf(list).traversing);
    Model model{.items = {"aa"}};
    Walk walk(list, model);
    for (int step = 0; step < 600; step++) {
        if (step % 10 == 0) {
            LmListSelectPos(list, step / 10 % 9, False);
            LmListSetKbdItemPos(list, step / 10 % 8);
            draw_anew();
        }
        walk.StepOfRows();
        TakeWarnings();
        Pump();
        ASSERT_NO_FATAL_FAILURE(ExpectInOrder(list)) << step;
        ASSERT_EQ(ItemsOf(list), model.items) << step;
        const Picture shown = Picture::Of(list);
        ASSERT_TRUE(SamePicture(draw_anew(), shown)) << step;
    }
}

// ---- What the model leaves out ------------------------------------------------------------------------

TEST_F(ItemTest, PassesOverWhatIsNothing) {
    Widget list = Make({"a", "b"});
    Strings some({"a"});
    for (Widget other : {static_cast<Widget>(nullptr), board}) {
        LmListAddItem(other, some[0], 0);
        LmListDeleteAllItems(other);
        EXPECT_EQ(LmListItemPos(other, some[0]), 0);
        EXPECT_FALSE(LmListPosToBounds(other, 0, nullptr, nullptr, nullptr, nullptr));
    }
    for (int count : {0, -1, lowest, 1}) {
        XmString *array = count == 1 ? nullptr : some.data();
        int position = 1, *positions = count == 1 ? nullptr : &position;
        LmListAddItems(list, array, count, 0);
        LmListDeleteItems(list, array, count);
        LmListDeletePositions(list, positions, count);
        LmListReplaceItems(list, array, count, some.data());
        LmListReplaceItemsPos(list, array, count, 1);
        LmListReplacePositions(list, positions, array, count);
    }
    LmListDeleteItemsPos(list, lowest, 1);
    LmListReplaceItemsPos(list, some.data(), 1, lowest);
    LmListSelectPos(list, -1, True);
    LmListSetPos(list, 3);
    LmListSetBottomPos(list, lowest);
    LmListSetHorizPos(list, 5);
    EXPECT_EQ(ItemsOf(list), (Texts{"a", "b"}));
    EXPECT_FALSE(LmListPosSelected(list, 3) || LmListPosSelected(list, lowest));
    EXPECT_FALSE(LmListSetKbdItemPos(list, 3));
    EXPECT_EQ(TakeWarnings(), 0);

    LmListAddItem(list, nullptr, 1);
    EXPECT_EQ(LmListItemPos(list, some[0]), 2);
    EXPECT_EQ(LmListItemPos(list, nullptr), 0);
    ExpectInOrder(list);
}

TEST_F(ItemTest, TakesNothingFromAnEmptyList) {
    Widget list = Make({});
    Strings some({"a"});
    int position = 1, *positions = nullptr, count = 0;
    LmListDeletePos(list, 0);
    LmListDeleteItemsPos(list, 1, 1);
    LmListDeletePositions(list, &position, 1);
    LmListReplaceItems(list, some.data(), 1, some.data());
    LmListReplacePositions(list, &position, some.data(), 1);
    LmListSelectPos(list, 0, True);
    LmListDeselectAllItems(list);
    LmListSetAddMode(list, True);
    LmListSetPos(list, 0);
    EXPECT_EQ(TakeWarnings(), 0);
    EXPECT_FALSE(LmListPosSelected(list, 0) || LmListSetKbdItemPos(list, 0));
    EXPECT_FALSE(LmListGetSelectedPos(list, &positions, &count));
    EXPECT_FALSE(LmListGetMatchPos(list, some[0], &positions, &count));
    EXPECT_EQ(LmListGetKbdItemPos(list), 0);
    LmListDeleteItem(list, some[0]);
    LmListDeleteItems(list, some.data(), 1);
    EXPECT_EQ(TakeWarnings(), 2);
    EXPECT_EQ(position, 1);
}

TEST_F(ItemTest, TakesItsOwnStringsAsArguments) {
    Widget list = Make({"a", "b", "c", "b", "d"}, {{XmNselectionPolicy, XmMULTIPLE_SELECT}});
    Select(list, {1, 2, 4});
    LmListDeleteItems(list, Get<XmString *>(list, XmNselectedItems), 3);
    EXPECT_EQ(ItemsOf(list), (Texts{"c", "d"}));
    EXPECT_EQ(Get(list, XmNselectedItemCount), 0);
    LmListAddItems(list, Get<XmString *>(list, XmNitems), 2, 2);
    EXPECT_EQ(ItemsOf(list), (Texts{"c", "c", "d", "d"}));
    XmString *items = Get<XmString *>(list, XmNitems);
    XmString exchanged[] = {items[3], items[1], items[2], items[0]};
    LmListReplaceItemsPos(list, exchanged, 4, 1);
    EXPECT_EQ(ItemsOf(list), (Texts{"d", "c", "d", "c"}));
    items = Get<XmString *>(list, XmNitems);
    LmListReplaceItems(list, items, 1, items + 1);
    LmListDeleteItem(list, Get<XmString *>(list, XmNitems)[3]);
    EXPECT_EQ(ItemsOf(list), (Texts{"c", "d", "c"}));
    LmListDeleteItems(list, Get<XmString *>(list, XmNitems), 3);
    ExpectInOrder(list);
    EXPECT_EQ(ItemsOf(list), Texts{});
}

TEST_F(ItemTest, LeavesTheCursorWhereItWas) {
    Widget list = Make({"a", "b", "c"});
    LmListSetKbdItemPos(list, 1);
    LmListDeleteItems(list, Strings({"a"}).data(), 1);
    EXPECT_EQ(PartOf(list).current_keyboard_item, -1);
    EXPECT_EQ(LmListGetKbdItemPos(list), 0);
    LmListSetKbdItemPos(list, 0);
    int positions[] = {2, 7, 2, -1};
    LmListDeletePositions(list, positions, 4);
    EXPECT_EQ(std::vector<int>(positions, positions + 4), (std::vector{2, -1, 2, -1}));
    EXPECT_EQ(TakeWarnings(), 2);
    EXPECT_EQ(LmListGetKbdItemPos(list), 2) << "one past the end";
    LmListSelectPos(list, 1, False);
    EXPECT_EQ(LmListGetKbdItemPos(list), 1);
}

// An emptied list can keep its top, which its first new rows bring back.
TEST_F(ItemTest, ComesBackFromNoRows) {
    for (const auto &empty : {+[](Widget list) { LmListDeleteAllItems(list); },
                              +[](Widget list) { LmListDeleteItemsPos(list, highest, 1); },
                              +[](Widget list) {
                                  std::vector<int> all(30);
                                  std::iota(all.begin(), all.end(), 1);
                                  LmListDeletePositions(list, all.data(), 30);
                              }}) {
        Widget list = MakeScrolled(Numbered(30), {{XmNvisibleItemCount, 5}});
        Show();
        LmListSetPos(list, 21);
        empty(list);
        ExpectInOrder(list);
        Strings rows(Numbered(3));
        LmListAddItem(list, rows[0], 1);
        EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
        EXPECT_EQ(LmListGetKbdItemPos(list), 1);
        LmListAddItems(list, rows.data(), 3, 0);
        Pump();
        EXPECT_FALSE(XtIsManaged(PartOf(list).vertical_scroll_bar));
        ExpectInOrder(list);
        XtDestroyWidget(XtParent(list));
    }
}

TEST_F(ItemTest, TellsTheScrollBarButOfSingleItems) {
    Widget list = MakeScrolled(Numbered(20), {{XmNvisibleItemCount, 5}});
    Show();
    const auto bar = [&](const char *name) { return Get(PartOf(list).vertical_scroll_bar, name); };
    Strings more({"x", "y"});
    LmListAddItem(list, more[0], 0);
    EXPECT_EQ(bar(XmNmaximum), 20) << "stale until the next change";
    LmListAddItemUnselected(list, more[1], 0);
    EXPECT_EQ(bar(XmNmaximum), 22);
    LmListSetBottomPos(list, 0);
    EXPECT_EQ(bar(XmNvalue), 17);
    LmListDeletePos(list, 0);
    EXPECT_EQ(bar(XmNvalue), 16);
    LmListDeleteItemsPos(list, 3, 1);
    EXPECT_EQ(bar(XmNvalue), 13);
    EXPECT_EQ(bar(XmNmaximum), 18);
    LmListSetKbdItemPos(list, 2);
    EXPECT_EQ(bar(XmNvalue), 1);
    LmListSetKbdItemPos(list, 9);
    EXPECT_EQ(bar(XmNvalue), 4) << "the last row in view";
    LmListSetItem(list, Strings({"row 10"})[0]);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 8);
    LmListSetBottomItem(list, Strings({"row 5"})[0]);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
}

// A row out of sight that is taller moves those in sight, and moves them back when it goes.
TEST_F(ItemTest, DrawsAllRowsWhereOneMakesThemTaller) {
    Widget list = Make(Numbered(20), {{XmNvisibleItemCount, 5}});
    Show();
    const Picture before = Picture::Of(list, {0, 0, 40, 60});
    LmListAddItem(list, Strings({"two\nlines"})[0], 0);
    Pump();
    ExpectInOrder(list);
    const Picture taller = Picture::Of(list, {0, 0, 40, 60});
    EXPECT_NE(taller, before);
    XClearArea(display, XtWindow(list), 0, 0, 0, 0, True);
    Pump();
    EXPECT_TRUE(SamePicture(Picture::Of(list, {0, 0, 40, 60}), taller));
    LmListDeletePos(list, 0);
    Pump();
    EXPECT_TRUE(SamePicture(before, Picture::Of(list, {0, 0, 40, 60})));
}

TEST_F(ItemTest, ScrollsSidewaysWithinItsBar) {
    Widget list = MakeScrolled({std::string(100, 'm'), "b"},
                               {{XmNlistSizePolicy, XmCONSTANT}, {XmNwidth, 150}});
    Show();
    const auto &part = PartOf(list);
    for (const auto &[position, origin] :
         {std::pair{40, 40},
          {lowest, 0},
          {highest, part.horizontal_maximum - part.horizontal_extent}}) {
        LmListSetHorizPos(list, position);
        EXPECT_EQ(part.x_origin, origin);
        EXPECT_EQ(Get(part.horizontal_scroll_bar, XmNvalue), origin);
    }
}

TEST_F(ItemTest, AnswersWhereRowsAre) {
    Widget list = Make({"a", "b", "a", "c", "b", "a"}, {{XmNvisibleItemCount, 4}});
    int *positions = nullptr, count = 0;
    const Boolean found = LmListGetMatchPos(list, Strings({"a"})[0], &positions, &count);
    EXPECT_EQ(PositionsFrom(found, positions, count), (std::vector{1, 3, 6}));
    EXPECT_TRUE(LmListItemExists(list, Strings({"c"})[0]));
    EXPECT_FALSE(LmListItemExists(list, Strings({"d"})[0]));
    EXPECT_EQ(LmListItemPos(list, Strings({"b"})[0]), 2);
    EXPECT_TRUE(LmListGetMatchPos(list, Strings({"a"})[0], nullptr, nullptr));

    Position x = 0, y = 0;
    Dimension width = 0, height = 0;
    EXPECT_FALSE(LmListPosToBounds(list, 1, &x, &y, &width, &height)) << "no window";
    Show();
    ASSERT_TRUE(LmListPosToBounds(list, 1, &x, &y, &width, &height));
    EXPECT_EQ((XRectangle{x, y, width, height}),
              (XRectangle{4, 19, static_cast<unsigned short>(list->core.width - 8), 19}));
    for (int position : {0, 4, 6, -1, lowest, highest})
        EXPECT_FALSE(LmListPosToBounds(list, position, &x, nullptr, nullptr, nullptr)) << position;
    EXPECT_EQ(LmListYToPos(list, 25), 1);
    LmListSetPos(list, 3);
    EXPECT_EQ(LmListYToPos(list, 25), 3);
    EXPECT_EQ(LmListYToPos(list, 0), -1);
}

// ---- Notified clients ---------------------------------------------------------------------------------

TEST_F(ItemTest, TellsClientsOfWhatIsSelected) {
    Widget list = Make({"a", "b", "a"}, {{XmNselectionPolicy, XmEXTENDED_SELECT}});
    struct Told {
        int position, field;
        Texts selected;
    };
    CallbackLog<Told> log([](XtPointer data) {
        const auto &call = *static_cast<LmListCallbackStruct *>(data);
        Told told{call.item_position, call.field, {}};
        for (int i = 0; i < call.selected_item_count; i++)
            told.selected.push_back(TextOf(call.selected_items[i]));
        return told;
    });
    log.Add(list, XmNextendedSelectionCallback);
    LmListSelectItem(list, Strings({"a"})[0], True);
    LmListSelectPos(list, 0, True);
    LmListSelectPos(list, 0, False);
    LmListDeselectPos(list, 0);
    ASSERT_EQ(log.reasons(), (std::vector<int>(2, XmCR_EXTENDED_SELECT)));
    EXPECT_EQ(log.entries()[0].data.position, 1);
    EXPECT_EQ(log.entries()[0].data.field, -1);
    EXPECT_EQ(log.entries()[0].data.selected, Texts{"a"});
    EXPECT_EQ(log.back().data.position, 3);

    LmListSetAddMode(list, False);
    EXPECT_EQ(SelectedRows(list), std::vector{2}) << "the cursor's row, where none was selected";
    LmListSetAddMode(list, True);
    EXPECT_TRUE(SelectedRows(list).empty());
    EXPECT_EQ(log.size(), 4u);
    EXPECT_TRUE(PartOf(list).add_mode);
    Set(list, {{XmNselectionPolicy, XmBROWSE_SELECT}});
    LmListSetAddMode(list, True);
    EXPECT_FALSE(PartOf(list).add_mode) << "refused";
}

// What the callback of a selection does to the list: after it nothing may touch what is gone.
TEST_F(ItemTest, LetsCallbacksDoAnything) {
    Strings others(Numbered(2, "other "));
    const std::vector<std::function<void(Widget)>> deeds = {
        [](Widget list) { LmListDeletePos(list, 3); },
        [](Widget list) { LmListDeleteAllItems(list); },
        [](Widget list) { LmListDeleteItemsPos(list, highest, 1); },
        [&](Widget list) { LmListReplaceItemsPos(list, others.data(), 2, 3); },
        [&](Widget list) { Set(list, others.Items()); },
        [](Widget list) { LmListSelectPos(list, 1, False); },
        [](Widget list) { XtDestroyWidget(list); }};
    for (const auto &deed : deeds)
        for (const bool add_mode : {false, true}) {
            Widget list = MakeScrolled(Numbered(4), {{XmNselectionPolicy, XmEXTENDED_SELECT}});
            Show();
            CallbackLog<int> deaths([](XtPointer) { return 0; });
            deaths.Add(list, XmNdestroyCallback);
            LmListSelectPos(list, 3, False);
            CallbackLog<> log;
            log.Add(list, XmNextendedSelectionCallback);
            log.OnEach([&](const auto &) { deed(list); });
            add_mode ? LmListSetAddMode(list, True) : LmListSelectPos(list, 3, True);
            EXPECT_EQ(log.size(), 1u);
            if (!deaths.empty())
                continue;
            Pump();
            ExpectInOrder(list);
            XtDestroyWidget(list);
        }
}

} // namespace
