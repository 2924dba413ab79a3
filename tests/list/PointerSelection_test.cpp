// Selecting with the pointer: the four policies, ranges, columns, the icon column, the double click,
// scrolling while the pointer is held outside, and clients that turn the list upside down in between.
#include <tests/list/SelectionTest.h>

#include <Xm/MessageB.h>

#include <X11/keysym.h>

namespace {

using corvidlmw::LifeWatch;
using namespace corvidlmw::test;

class PointerSelectionTest : public SelectionTest {};

// ---- Policies ---------------------------------------------------------------------------------------

TEST_F(PointerSelectionTest, ExtendedSelectionDragsRanges) {
    Start(XmEXTENDED_SELECT);
    PressRow(3);
    for (int row : {4, 5, 6, 5})
        MoveToRow(row);
    EXPECT_EQ(Selected(), (Rows{3, 4, 5}));
    for (int row : {2, 1, 2})
        MoveToRow(row);
    EXPECT_EQ(Selected(), (Rows{2, 3}));
    Release();
    EXPECT_EQ(TakeTold(), Texts{"extended 3 (3 4)"});
    ClickRowWith(ShiftMask, 6);
    EXPECT_EQ(Selected(), (Rows{3, 4, 5, 6})) << "the other side of the anchor";
    ClickRowWith(ShiftMask, 4);
    EXPECT_EQ(Selected(), (Rows{3, 4, 5, 6})) << "what a release remembered is not undone";
    EXPECT_EQ(TakeTold(),
              (Texts{"extended 7 (4 5 6 7) modified", "extended 5 (4 5 6 7) modified"}));
    ExpectDrawn();
    ClickRow(0);
    EXPECT_EQ(TakeTold(), Texts{"extended 1 (1)"});
}

TEST_F(PointerSelectionTest, ControlAddsRangesAndGivesBackWhatItPassed) {
    Start(XmEXTENDED_SELECT);
    ClickRow(4);
    PressModifiers(ControlMask);
    PressRow(1);
    for (int row : {2, 5, 2})
        MoveToRow(row);
    EXPECT_EQ(Selected(), (Rows{1, 2})) << "a range that shrinks deselects";
    Release();
    PressRow(2);
    for (int row : {4, 3})
        MoveToRow(row);
    Release();
    EXPECT_EQ(Selected(), Rows{1}) << "toggled off, and the range with it";
    ReleaseModifiers(ControlMask);
    EXPECT_EQ(TakeTold(),
              (Texts{"extended 5 (5)", "extended 3 (2 3) added", "extended 4 (2) added"}));
    ExpectDrawn();
}

TEST_F(PointerSelectionTest, IgnoresWhereNoRowIs) {
    Start(XmEXTENDED_SELECT, false, 3);
    for (int row : {3, 7})
        ClickRowWith(row == 3 ? ShiftMask : 0u, row);
    MoveTo(list, 40, list->core.height - 2);
    Press();
    Release();
    EXPECT_TRUE(log.empty());
    ClickRow(1);
    ClickRow(2);
    EXPECT_EQ(TakeTold(), (Texts{"extended 2 (2)", "extended 3 (3)"}))
        << "no modifier is left over";
    Set(list, {{XmNitemCount, 0}});
    ClickRow(0);
    Strings rows(Numbered(30));
    Set(list, rows.Items());
    Set(list, {{XmNtopItemPosition, 9}});
    MoveTo(list, 40, 1);
    Press();
    Release();
    EXPECT_TRUE(log.empty()) << "above the first row in view";
    ClickRow(0);
    EXPECT_EQ(TakeTold(), Texts{"extended 9 (9)"});
}

TEST_F(PointerSelectionTest, AModifierWhoseReleaseIsLostIsForgotten) {
    Start(XmEXTENDED_SELECT, true);
    ClickRow(1);
    log.OnEach([this](const auto &) { XtSetSensitive(list, False); });
    ClickRowWith(ControlMask, 3);
    log.OnEach(nullptr);
    XtSetSensitive(list, True);
    EXPECT_EQ(Selected(), (Rows{1, 3}));
    ClickRow(5);
    EXPECT_EQ(Selected(), Rows{5});
}

TEST_F(PointerSelectionTest, AModalDialogCanTakeTheRelease) {
    Start(XmBROWSE_SELECT, true);
    ClickRow(1);
    log.OnEach([this](const auto &) {
        Widget dialog = XmCreateMessageDialog(shell, Name("ask"), nullptr, 0);
        XtVaSetValues(dialog, XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL, nullptr);
        XtManageChild(dialog);
        Pump();
        Release();
        XtDestroyWidget(XtParent(dialog));
    });
    PressRow(3);
    log.OnEach(nullptr);
    TakeTold();
    XmProcessTraversal(list, XmTRAVERSE_CURRENT);
    Pump();
    Key(XK_Escape);
    EXPECT_EQ(Selected(), Rows{3}) << "no gesture to take back";
    EXPECT_TRUE(log.empty());
}

// ---- Clicks -----------------------------------------------------------------------------------------

TEST_F(PointerSelectionTest, ADoubleClickIsTheDefaultAction) {
    Start(XmEXTENDED_SELECT, false, 8, {{XmNdoubleClickInterval, 5000}});
    ClickRow(2);
    PressRow(3);
    EXPECT_EQ(Selected(), Rows{2}) << "the second press selects nothing";
    Release();
    EXPECT_EQ(TakeTold(), (Texts{"extended 3 (3)", "default 3 (3)"}));
    EXPECT_EQ(PartOf(list).current_keyboard_item, 3);
    ClickRow(3);
    EXPECT_EQ(TakeTold(), Texts{"extended 4 (4)"}) << "a third press begins anew";
    PressRow(3);
    MoveToRow(4);
    Release();
    EXPECT_EQ(TakeTold(), Texts{"extended 5 (4 5)"}) << "motion is no click";
    Set(list, {{XmNdoubleClickInterval, 20}});
    LetTimePass(std::chrono::milliseconds(60));
    ClickRow(1);
    LetTimePass(std::chrono::milliseconds(60));
    ClickRow(1);
    EXPECT_EQ(TakeTold(), (Texts{"extended 2 (2)", "extended 2 (2)"}));
}

TEST_F(PointerSelectionTest, TellsTheColumnOfTheRelease) {
    Start(XmBROWSE_SELECT);
    int widths[] = {40, 50, 60};
    LmListSetFields(list, widths, 3);
    ClickRow(3, 60);
    EXPECT_EQ(PartOf(list).current_field, 1);
    PressRow(3, 60);
    MoveToRow(3, 120);
    EXPECT_EQ(Selected(), Rows{3});
    EXPECT_EQ(PartOf(list).current_field, 2);
    ExpectDrawn();
    Release();
    ClickRow(5, 180);
    EXPECT_EQ(TakeTold(), (Texts{"browse 4 column 1", "browse 4 column 2", "browse 6"}));
    PressRow(0, 60);
    MoveToRow(0, 120);
    EXPECT_EQ(Selected(), Rows{}) << "the first row is lost at the edge of a column";
    Release();
    Set(list, {{XmNselectionPolicy, XmEXTENDED_SELECT}});
    PressRow(0, 60);
    MoveToRow(0, 120);
    EXPECT_EQ(Selected(), Rows{0});
    ExpectDrawn();
}

// ---- The icon column --------------------------------------------------------------------------------

TEST_F(PointerSelectionTest, TheIconColumnArmsAndActivates) {
    Start(XmBROWSE_SELECT, false, 8, {{XmNshowIcons, True}});
    const Pixmap icon = XCreatePixmap(display, XtWindow(list), 10, 10, list->core.depth);
    LmListSetPositionIcon(list, 2, icon);
    ClickRow(4);
    TakeTold();
    ClickRow(1, 15);
    ClickRow(2, 15);
    EXPECT_EQ(TakeTold(), (Texts{"arm 2", "activate 2", "disarm 2", "arm blank 3",
                                 "activate blank 3", "disarm 3"}));
    PressRow(1, 3);
    MoveToRow(2, 3);
    EXPECT_EQ(Selected(), Rows{2}) << "motion selects as ever, and deselects what was";
    Release();
    EXPECT_EQ(TakeTold(), (Texts{"arm 2", "disarm 3"}));
    PressRow(3, 3);
    MoveToRow(3, 60);
    Release();
    EXPECT_EQ(TakeTold(), (Texts{"arm blank 4", "browse 4"}));
    ClickRow(6, 18);
    EXPECT_EQ(Selected(), Rows{6});
    EXPECT_EQ(TakeTold(), Texts{"disarm 7"}) << "between the limits of press and release";
    LmListSetPositionIndent(list, 2, 30);
    ClickRow(1, 45);
    EXPECT_EQ(TakeTold(), (Texts{"arm 2", "activate 2", "disarm 2"}));
    for (const bool comes : {false, true}) {
        Strings fresh({"row 5"});
        log.OnEach([&](const auto &) {
            comes ? LmListAddItem(list, fresh[0], 1) : LmListDeletePos(list, 5);
            log.OnEach(nullptr);
        });
        ClickRow(4, 3);
        EXPECT_EQ(TakeTold(), (Texts{"arm blank 5", "disarm 5"})) << "another row by then";
    }
    log.OnEach([this](const auto &) { XtDestroyWidget(list); });
    ClickRow(1, 3);
    EXPECT_EQ(TakeTold().size(), 1u);
    XFreePixmap(display, icon);
}

// ---- Outside ----------------------------------------------------------------------------------------

TEST_F(PointerSelectionTest, ScrollsWhileThePointerIsHeldOutside) {
    Start(XmEXTENDED_SELECT, false, 30);
    Set(PartOf(list).vertical_scroll_bar, {{XmNinitialDelay, 10}, {XmNrepeatDelay, 5}});
    PressRow(5);
    MoveTo(list, 40, list->core.height + 20);
    ASSERT_TRUE(PumpUntil([this] { return Get(list, XmNtopItemPosition) == 23; }));
    EXPECT_EQ(Selected().size(), 25u) << "from the anchor to the last row";
    EXPECT_EQ(Get(PartOf(list).vertical_scroll_bar, XmNvalue), 22);
    ASSERT_TRUE(PumpUntil([this] { return PartOf(list).drag_timer == 0; })) << "nothing to scroll";
    MoveTo(list, 40, -20);
    ASSERT_TRUE(PumpUntil([this] { return Get(list, XmNtopItemPosition) < 20; }));
    MoveToRow(4);
    EXPECT_EQ(PartOf(list).drag_timer, 0u) << "back inside";
    MoveTo(list, 40, -20);
    ASSERT_TRUE(PumpUntil([this] { return Get(list, XmNtopItemPosition) == 1; }));
    EXPECT_EQ(Selected(), (Rows{0, 1, 2, 3, 4, 5}));
    MoveTo(list, 40, list->core.height + 20);
    EXPECT_NE(PartOf(list).drag_timer, 0u);
    Release();
    EXPECT_EQ(PartOf(list).drag_timer, 0u);
    EXPECT_EQ(log.size(), 1u);
    ExpectDrawn();
}

TEST_F(PointerSelectionTest, ScrollsSidewaysToo) {
    Start(XmBROWSE_SELECT, false, 5);
    LmListSetPositionIndent(list, 3, 200);
    Set(list, {}); // brings the bars up to date
    PressRow(1);
    MoveTo(list, 600, MiddleOf(1));
    auto &part = PartOf(list);
    ASSERT_TRUE(PumpUntil([&part] {
        return part.x_origin > 0 &&
               part.x_origin == part.horizontal_maximum - part.horizontal_extent;
    }));
    MoveTo(list, -30, MiddleOf(1));
    ASSERT_TRUE(PumpUntil([&part] { return part.x_origin == 0; }));
    Release();
    EXPECT_EQ(Get(part.horizontal_scroll_bar, XmNvalue), 0);
    LmListAddItem(list, Strings({std::string(6000, 'm')})[0], 0);
    LmListSetHorizPos(list, 32762);
    PressRow(1);
    MoveTo(list, 600, MiddleOf(1));
    ASSERT_TRUE(PumpUntil([&part] { return part.drag_timer == 0; }));
    EXPECT_EQ(part.x_origin, 32767) << "as far as it reaches";
    Release();
}

TEST_F(PointerSelectionTest, NoTimerOutlivesTheList) {
    for (const bool by_callback : {true, false}) {
        Start(XmBROWSE_SELECT, true, 60);
        const LifeWatch life(list);
        PressRow(3);
        MoveTo(list, 40, list->core.height + 20);
        if (by_callback)
            log.OnEach([this](const auto &) { XtDestroyWidget(list); });
        else
            XtDestroyWidget(list);
        ASSERT_TRUE(PumpUntil([&life] { return life.Ended(); }));
        log.OnEach(nullptr);
        LetTimePass(std::chrono::milliseconds(300));
        RunWorkProcs();
        Release();
    }
}

// A list that the pointer leaves and enters in a shell whose keyboard follows it.
TEST_F(PointerSelectionTest, TheKeyboardCanFollowThePointer) {
    XtVaSetValues(shell, XmNkeyboardFocusPolicy, XmPOINTER, nullptr);
    Start(XmBROWSE_SELECT, false, 8, {{XmNhighlightOnEnter, True}});
    MoveToRow(1);
    EXPECT_TRUE(PartOf(list).traversing);
    MoveTo(list, 40, list->core.height + 40);
    EXPECT_FALSE(PartOf(list).traversing);
    ExpectDrawn();
}

} // namespace
