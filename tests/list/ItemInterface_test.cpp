// Rows added, deleted, replaced, selected, scrolled to and asked for by function: what a model of rows,
// selection, top and cursor leaves out.
#include <tests/list/ItemTest.h>

#include <numeric>

namespace {

using namespace corvidlmw::test;

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
    for (const int position : {1, 2, 4})
        LmListSelectPos(list, position, False);
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
