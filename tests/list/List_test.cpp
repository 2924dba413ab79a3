// LmList's resources and its life: what it accepts, keeps and gives back.
#include <tests/list/ListTest.h>

#include <Xm/PushB.h>

#include <X11/keysym.h>

namespace {

using namespace corvidlmw::test;

// ---- Creation ---------------------------------------------------------------------------------------

TEST_F(ListTest, PassesForAListAndCountsPositionsFromOne) {
    Widget list = Make(Numbered(3));
    EXPECT_TRUE(LmIsList(list) && XmIsList(list) && XmIsPrimitive(list));
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
    EXPECT_EQ(Get<unsigned char>(list, XmNselectionPolicy), XmBROWSE_SELECT);
    EXPECT_EQ(Get<unsigned char>(list, XmNnavigationType), XmTAB_GROUP);
    EXPECT_EQ(Get(list, XmNdoubleClickInterval), XtGetMultiClickTime(display));
    EXPECT_EQ(Get<unsigned char>(list, XmNstringDirection), XmSTRING_DIRECTION_L_TO_R);
    EXPECT_EQ(ItemsOf(list), Numbered(3));
    Show();
    EXPECT_TRUE(warnings().empty()) << "all actions of the translations are there";
}

TEST_F(ListTest, PutsRightWhatACreationGets) {
    Widget list = Make(Numbered(2), {{XmNlistSpacing, 0},
                                     {XmNtopItemPosition, 0},
                                     {XmNvisibleItemCount, static_cast<XtArgVal>(-4)},
                                     {XmNlistMarginWidth, 0},
                                     {XmNselectionPolicy, 77}});
    EXPECT_EQ(PartOf(list).list_spacing, 1);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
    EXPECT_EQ(PartOf(list).last_set_visible_count, 1);
    EXPECT_EQ(PartOf(list).list_margin_width, 0) << "only later changes have a least margin";
    EXPECT_EQ(PartOf(list).selection_policy, XmBROWSE_SELECT);
    EXPECT_EQ(warnings().size(), 4u);
    while (!warnings().empty())
        ExpectWarning(warnings().front());
}

// A count without items, and items without a count, are none; nothing of the client's is kept.
TEST_F(ListTest, TakesArraysOnlyWithTheirCounts) {
    Strings strings(Numbered(2));
    const XtArgVal array = strings.Items()[0].second;
    for (const Settings &bad :
         {Settings{{XmNitemCount, 2}}, Settings{{XmNitems, array}},
          Settings{{XmNitems, array}, {XmNitemCount, static_cast<XtArgVal>(-3)}}}) {
        Widget list = Make({}, bad);
        ASSERT_EQ(warnings().size(), 1u);
        ExpectWarning(warnings().front());
        EXPECT_EQ(Get(list, XmNitemCount), 0);
        EXPECT_EQ(Get<XmString *>(list, XmNitems), nullptr);
        ExpectInOrder(list);
    }
    Widget list = Make(Numbered(3), {{XmNselectedItemCount, 2}});
    EXPECT_EQ(Get(list, XmNselectedItemCount), 0);
}

TEST_F(ListTest, SelectsByEqualStrings) {
    Strings selected({"b", "nowhere"});
    Settings settings = selected.Selected();
    settings.push_back({XmNselectionPolicy, XmEXTENDED_SELECT});
    Widget list = Make({"a", "b", "c", "b"}, settings);
    EXPECT_EQ(SelectedRows(list), (std::vector{1, 3}));
    EXPECT_EQ(Get(list, XmNselectedItemCount), 2);
    EXPECT_EQ(PartOf(list).selected_positions[1], 4);
    EXPECT_EQ(PartOf(list).current_keyboard_item, 3);
    EXPECT_EQ(PartOf(list).start_item, 3);

    Strings others({"c", "nowhere", "nowhere either"});
    Set(list, others.Selected());
    EXPECT_EQ(SelectedRows(list), std::vector{2});
    EXPECT_EQ(Get(list, XmNselectedItemCount), 3) << "as given, until the next rebuild";
    EXPECT_EQ(PartOf(list).selected_positions[0], 3);
    Set(list, {{XmNselectedItemCount, 0}});
    EXPECT_TRUE(SelectedRows(list).empty());
    EXPECT_EQ(PartOf(list).selected_items, nullptr);
}

// ---- Changes ------------------------------------------------------------------------------------------

TEST_F(ListTest, TakesNewRowsAndDropsColumnsAndScrolling) {
    Widget list = Make(Numbered(30), {{XmNvisibleItemCount, 10}, {XmNtopItemPosition, 25}});
    int widths[] = {10, 20};
    LmListSetFields(list, widths, 2);
    PartOf(list).x_origin = 5;
    Strings shorter(Numbered(12, "other "));
    Set(list, shorter.Items());
    ExpectInOrder(list);
    EXPECT_EQ(ItemsOf(list), Numbered(12, "other "));
    EXPECT_EQ(PartOf(list).field_count, 0);
    EXPECT_EQ(PartOf(list).x_origin, 0);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 3) << "the last ten rows";
    Strings eleven(Numbered(11));
    Settings with_bad_top = eleven.Items();
    with_bad_top.push_back({XmNtopItemPosition, 0});
    Set(list, with_bad_top);
    ASSERT_EQ(warnings().size(), 1u);
    ExpectWarning(warnings().front());
    EXPECT_EQ(Get(list, XmNtopItemPosition), 2) << "what it had, among the new rows";
    Set(list, {{XmNitemCount, 0}});
    ExpectInOrder(list);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
}

// The array that XtGetValues gives can come back, whole, in part or too long.
TEST_F(ListTest, TakesItsOwnArrays) {
    Widget list = Make(Numbered(6));
    auto *own = Get<XmString *>(list, XmNitems);
    Set(list, {{XmNitems, reinterpret_cast<XtArgVal>(own + 2)}, {XmNitemCount, 3}});
    EXPECT_EQ(ItemsOf(list), (Texts{"row 2", "row 3", "row 4"}));
    Set(list, {{XmNitemCount, 2}});
    EXPECT_EQ(ItemsOf(list), (Texts{"row 2", "row 3"}));
    Set(list, {{XmNitemCount, 5}});
    ASSERT_EQ(warnings().size(), 1u);
    ExpectWarning(warnings().front());
    EXPECT_EQ(Get(list, XmNitemCount), 2);
    own = Get<XmString *>(list, XmNitems);
    Set(list, {{XmNselectedItems, reinterpret_cast<XtArgVal>(own)}, {XmNselectedItemCount, 1}});
    EXPECT_EQ(SelectedRows(list), std::vector{0});
    auto *selected = Get<XmString *>(list, XmNselectedItems);
    Set(list, {{XmNitems, reinterpret_cast<XtArgVal>(selected)}, {XmNitemCount, 1}});
    EXPECT_EQ(ItemsOf(list), Texts{"row 2"});
    EXPECT_EQ(SelectedRows(list), std::vector{0});

    // All rows but the selected ones go, and the selection with them.
    Strings rows(Numbered(6));
    Set(list, rows.Items());
    selected = Get<XmString *>(list, XmNselectedItems);
    Set(list, {{XmNitems, reinterpret_cast<XtArgVal>(selected)},
               {XmNitemCount, 1},
               {XmNselectedItems, 0},
               {XmNselectedItemCount, 0}});
    EXPECT_EQ(ItemsOf(list), Texts{"row 2"});
    EXPECT_TRUE(SelectedRows(list).empty());
}

TEST_F(ListTest, RefusesBadChangesAndKeepsWhatItHas) {
    Widget list = Make(Numbered(3), {{XmNvisibleItemCount, 4}});
    const auto none = static_cast<XtArgVal>(-2);
    for (const Settings &bad :
         {Settings{{XmNitemCount, none}}, Settings{{XmNitems, 0}},
          Settings{{XmNvisibleItemCount, 0}}, Settings{{XmNtopItemPosition, 0}},
          Settings{{XmNlistSizePolicy, XmCONSTANT}}, Settings{{XmNselectedItemCount, none}},
          Settings{{XmNselectedItemCount, 4}}, Settings{{XmNlistSpacing, 0}},
          Settings{{XmNselectionPolicy, 99}}}) {
        Set(list, bad);
        ASSERT_EQ(warnings().size(), 1u) << bad[0].first;
        ExpectWarning(warnings().front());
    }
    EXPECT_EQ(ItemsOf(list), Numbered(3));
    EXPECT_EQ(Get(list, XmNvisibleItemCount), 4);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
    EXPECT_EQ(PartOf(list).list_size_policy, XmVARIABLE);
    EXPECT_EQ(PartOf(list).list_spacing, 1);
    EXPECT_EQ(Get(list, XmNselectedItemCount), 0);
    ExpectInOrder(list);
}

TEST_F(ListTest, HasALeastMarginFromTheFirstChangeOn) {
    Widget list = Make(Numbered(2));
    Set(list, {{XmNlistMarginWidth, 0}});
    EXPECT_EQ(Get<Dimension>(list, XmNlistMarginWidth), 2);
    Set(list, {{XmNlistMarginWidth, 6}, {XmNlistMarginHeight, 1}});
    EXPECT_EQ(PartOf(list).base_x, 6 + 3 + 2);
    EXPECT_EQ(PartOf(list).base_y, 1 + 3 + 2);
    Set(list, {{XmNhighlightThickness, 0}, {XmNshadowThickness, 4}});
    EXPECT_EQ(PartOf(list).base_x, 6 + 4);
    EXPECT_EQ(PartOf(list).item_spacing, 1);
    ExpectInOrder(list);
}

TEST_F(ListTest, AddsAlwaysInPoliciesWithoutRanges) {
    Widget list = Make(Numbered(2), {{XmNselectionPolicy, XmMULTIPLE_SELECT}});
    EXPECT_TRUE(PartOf(list).add_mode);
    Set(list, {{XmNselectionPolicy, XmEXTENDED_SELECT}});
    EXPECT_FALSE(PartOf(list).add_mode);
    Set(list, {{XmNselectionPolicy, XmSINGLE_SELECT}});
    EXPECT_TRUE(PartOf(list).add_mode);
}

TEST_F(ListTest, SpeaksTheUnitsOfItsClient) {
    Widget list = Make(Numbered(2), {{XmNunitType, Xm100TH_POINTS}, {XmNlistMarginWidth, 7200}});
    EXPECT_GT(PartOf(list).list_margin_width, 50) << "an inch";
    Set(list, {{XmNlistSpacing, 3600}});
    EXPECT_GT(PartOf(list).list_spacing, 25);
    EXPECT_EQ(Get<unsigned char>(list, XmNunitType), Xm100TH_POINTS);
}

// While updates are off nothing is drawn, measured or resized; then all of it is done.
TEST_F(ListTest, MakesUpForWhatItHeldBack) {
    Widget list = Make(Numbered(3));
    Show();
    Set(list, {{XmNupdate, False}});
    const Dimension width = list->core.width;
    XmFontListEntry entry =
        XmFontListEntryLoad(display, Name("10x20"), XmFONT_IS_FONT, Name(XmFONTLIST_DEFAULT_TAG));
    XmFontList fonts = XmFontListAppendEntry(nullptr, entry);
    XmFontListEntryFree(&entry);
    Recorder recorder;
    Set(list, {{XmNfontList, reinterpret_cast<XtArgVal>(fonts)}});
    Pump();
    EXPECT_TRUE(recorder.Calls("XDrawImageString", XtWindow(list)).empty());
    EXPECT_EQ(PartOf(list).max_item_height, 13);
    Set(list, {{XmNupdate, True}});
    EXPECT_EQ(PartOf(list).max_item_height, 20);
    EXPECT_GT(list->core.width, width);
    ExpectInOrder(list);
    XmFontListFree(fonts);
}

// ---- Death --------------------------------------------------------------------------------------------

TEST_F(ListTest, GivesBackAllThatItMade) {
    Show();
    const auto live = [this](bool scrolled) {
        Widget list = scrolled ? MakeScrolled(Numbered(20), {{XmNlistSizePolicy, XmCONSTANT}})
                               : Make(Numbered(20));
        LmListSetPositionAttributes(list, 3, nullptr, Colour("red"), 0);
        int widths[] = {30, 40};
        LmListSetFields(list, widths, 2);
        Set(list, {{XmNarmColor, Colour("blue")}});
        Pump();
        XtDestroyWidget(list);
        Pump();
    };
    live(true);
    live(false);
    const auto before = ServerResources::Of(display);
    live(true);
    live(false);
    EXPECT_EQ(ServerResources::Of(display), before);
}

TEST_F(ListTest, DiesWithItsScrolledWindowAndTheOtherWayAround) {
    Widget list = MakeScrolled(Numbered(40));
    EXPECT_STREQ(XtName(XtParent(list)), "listSW");
    Show();
    CallbackLog<int> deaths([](XtPointer) { return 0; });
    deaths.Add(XtParent(list), XmNdestroyCallback);
    XtDestroyWidget(list);
    EXPECT_EQ(deaths.size(), 1u);
    list = MakeScrolled(Numbered(40));
    XtDestroyWidget(XtParent(list));
    Pump();
}

// The bars stay behind in a scrolled window of the client's own.
TEST_F(ListTest, ItsBarsOutliveItAndItOutlivesThem) {
    Widget window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, board,
                                            XmNvisualPolicy, XmVARIABLE, nullptr);
    Widget list =
        XtVaCreateManagedWidget("list", lmListWidgetClass, window, XmNvisibleItemCount, 5, nullptr);
    Strings rows(Numbered(50));
    Set(list, rows.Items());
    Show();
    Widget bar = PartOf(list).vertical_scroll_bar;
    ASSERT_TRUE(bar && XtIsManaged(bar));
    XtDestroyWidget(list);
    Click(bar, 7, bar->core.height - 5);

    // Nor does one reach it that the client exchanged.
    list =
        XtVaCreateManagedWidget("list", lmListWidgetClass, window, XmNvisibleItemCount, 5, nullptr);
    Set(list, rows.Items());
    bar = PartOf(list).vertical_scroll_bar;
    Set(list, {{XmNverticalScrollBar, 0}});
    XtVaSetValues(bar, XmNvalue, 7, nullptr);
    Click(bar, 7, bar->core.height - 5);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
    XtDestroyWidget(list);
    Click(bar, 7, bar->core.height - 5);

    list =
        XtVaCreateManagedWidget("list", lmListWidgetClass, window, XmNvisibleItemCount, 5, nullptr);
    XtDestroyWidget(PartOf(list).vertical_scroll_bar);
    EXPECT_EQ(PartOf(list).vertical_scroll_bar, nullptr);
    Set(list, rows.Items());
    Pump();
}

// ---- Keyboard -------------------------------------------------------------------------------------------

TEST_F(ListTest, IsReachedByTabAndShowsItsCursor) {
    Widget list = Make(Numbered(4), {{XmNvisibleItemCount, 4}});
    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, board, XmNy, 200,
                                            XmNnavigationType, XmTAB_GROUP, nullptr);
    Show();
    XmProcessTraversal(button, XmTRAVERSE_CURRENT);
    Pump();
    EXPECT_FALSE(PartOf(list).traversing);
    const Picture without = Picture::Of(list);
    Key(XK_Tab);
    EXPECT_EQ(XmGetFocusWidget(shell), list);
    EXPECT_TRUE(PartOf(list).traversing);
    const auto cursor = without.Difference(Picture::Of(list));
    ASSERT_TRUE(cursor);
    EXPECT_EQ(*cursor, (XRectangle{4, 2, static_cast<unsigned short>(list->core.width - 10), 20}));
    Set(list, {{XmNsensitive, False}});
    EXPECT_FALSE(PartOf(list).traversing);
}

TEST_F(ListTest, TakesEveryActionWithoutAnEvent) {
    XtActionList actions = nullptr;
    Cardinal count = 0;
    for (const int rows : {0, 9})
        for (const int policy : {XmEXPLICIT, XmPOINTER}) {
            Widget list = MakeScrolled(Numbered(rows), {{XmNselectionPolicy, XmEXTENDED_SELECT}});
            XtVaSetValues(shell, XmNkeyboardFocusPolicy, policy, nullptr);
            Show();
            XtGetActionList(lmListWidgetClass, &actions, &count);
            for (Cardinal i = 0; i < count; i++)
                XtCallActionProc(list, actions[i].string, nullptr, nullptr, 0);
            XtFree(reinterpret_cast<char *>(actions));
            ExpectInOrder(list);
            XtDestroyWidget(list);
        }
    EXPECT_EQ(count, 65u + 5);
}

} // namespace
