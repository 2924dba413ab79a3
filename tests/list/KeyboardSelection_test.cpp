// Selecting, moving about and scrolling with keys.
#include <tests/list/SelectionTest.h>

#include <Xm/PushB.h>

#include <X11/keysym.h>

namespace {

using namespace corvidlmw::test;

class KeyboardSelectionTest : public SelectionTest {
protected:
    void Start(int policy, bool automatic = false, int count = 8, Settings settings = {}) {
        // What the toolkit binds to no key.
        SetResource(
            "*list.translations: #override\\nCtrl<Key>osfUp: ListAddPrevItem()\\nCtrl<Key>osfDown: "
            "ListAddNextItem()\\n<Key>F2: ListScrollCursorVisible(100)\\n<Key>F3: "
            "ListScrollCursorVisible( 25%)\\n<Key>F4: ListScrollCursorVisible(top)\\n<Key>F5: "
            "ListScrollCursorVisible()\\nMeta<Key>osfDown: ListExtendAddNextItem()\\n<KeyDown>F6: "
            "ListKbdBeginToggle()\\n<KeyUp>F6: ListKbdEndToggle()");
        SelectionTest::Start(policy, automatic, count, std::move(settings));
        XmProcessTraversal(list, XmTRAVERSE_CURRENT);
        Pump();
        ASSERT_TRUE(PartOf(list).traversing);
    }
    void Keys(std::initializer_list<KeySym> keysyms, unsigned int modifiers = 0) {
        for (const KeySym keysym : keysyms)
            Key(keysym, modifiers);
    }
    int Cursor() { return LmListGetKbdItemPos(list) - 1; }
    int Top() { return Get(list, XmNtopItemPosition) - 1; }
};

// ---- Policies ---------------------------------------------------------------------------------------

TEST_F(KeyboardSelectionTest, ExtendedSelectionFollowsTheCursor) {
    Start(XmEXTENDED_SELECT);
    Keys({XK_Down, XK_Down});
    Keys({XK_Down, XK_Down, XK_Up}, ShiftMask);
    EXPECT_EQ(TakeTold(), (Texts{"extended 2 (2)", "extended 3 (3)", "extended 4 (3 4) modified",
                                 "extended 5 (3 4 5) modified", "extended 4 (3 4) modified"}));
    Keys({XK_Up, XK_Up}, ShiftMask);
    EXPECT_EQ(Selected(), (Rows{1, 2})) << "the other side of the anchor";
    Keys({XK_Down}, ControlMask);
    EXPECT_EQ(Selected(), Rows{2});
    EXPECT_EQ(log.back().data, "extended 3 (3) added");
    Key(XK_slash, ControlMask);
    Key(XK_backslash, ControlMask);
    EXPECT_EQ(Selected(), Rows{2}) << "the cursor's row stays";
    Key(XK_End, ControlMask);
    Key(XK_Home, ControlMask | ShiftMask);
    EXPECT_EQ(Selected().size(), 8u);
    EXPECT_EQ(PartOf(list).event_flags, 0);
    ExpectDrawn();
}

TEST_F(KeyboardSelectionTest, AddModePartsTheCursorFromTheSelection) {
    Start(XmEXTENDED_SELECT);
    Key(XK_Down);
    TakeTold();
    Key(XK_F8, ShiftMask);
    EXPECT_EQ(TakeTold(), Texts{"extended 2"}) << "the cursor's row alone was selected";
    Keys({XK_Down, XK_space, XK_Down, XK_Down, XK_space});
    EXPECT_EQ(TakeTold(), (Texts{"extended 3 (3) added", "extended 5 (3 5) added"}));
    Keys({XK_Down, XK_Down, XK_Up}, ShiftMask);
    EXPECT_EQ(Selected(), (Rows{2, 4, 5})) << "a range is added";
    Key(XK_Down, Mod1Mask);
    EXPECT_EQ(Selected(), (Rows{2, 4, 5, 6}));
    Key(XK_F6);
    EXPECT_EQ(Selected(), (Rows{2, 4, 5})) << "toggled";
    Key(XK_space, ShiftMask);
    Key(XK_F8, ShiftMask);
    Key(XK_space);
    EXPECT_EQ(Selected(), Rows{Cursor()});
    EXPECT_EQ(PartOf(list).append_in_progress, False);
    ExpectDrawn();
}

TEST_F(KeyboardSelectionTest, ReturnIsTheDefaultActionAndGoesOnToTheDialog) {
    CallbackLog<> buttons;
    Widget accept =
        XtVaCreateManagedWidget("accept", xmPushButtonWidgetClass, board, XmNy, 400, nullptr);
    Widget cancel = XtVaCreateManagedWidget("cancel", xmPushButtonWidgetClass, board, XmNx, 100,
                                            XmNy, 400, nullptr);
    XtVaSetValues(board, XmNdefaultButton, accept, XmNcancelButton, cancel, nullptr);
    buttons.Add(accept, XmNactivateCallback);
    buttons.Add(cancel, XmNactivateCallback);
    Start(XmBROWSE_SELECT);
    Keys({XK_Down});
    Key(XK_Return);
    EXPECT_EQ(TakeTold(), (Texts{"browse 2", "default 2 (2)"}));
    ASSERT_EQ(buttons.size(), 1u);
    Key(XK_Escape);
    ASSERT_EQ(buttons.size(), 2u);
    EXPECT_EQ(buttons.back().widget, cancel);
    PressRow(4);
    Key(XK_Escape);
    EXPECT_EQ(buttons.size(), 2u) << "it cancels the gesture first";
    Release();
    Set(list, {{XmNitemCount, 0}});
    Keys({XK_Return, XK_Down, XK_space, XK_Next, XK_Home});
    Key(XK_slash, ControlMask);
    EXPECT_EQ(buttons.size(), 2u) << "an empty list has no default action";
    EXPECT_EQ(log.size(), 0u);
}

// ---- Scrolling --------------------------------------------------------------------------------------

TEST_F(KeyboardSelectionTest, ScrollsToTheCursor) {
    Start(XmBROWSE_SELECT, false, 30);
    for (int i = 0; i < 9; i++)
        Key(XK_Down);
    EXPECT_EQ(Top(), 2) << "the last row in view";
    Key(XK_Prior);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(Cursor(), 2);
    Key(XK_Prior);
    EXPECT_EQ(Cursor(), 2) << "at the top there is no page above";
    Keys({XK_Next, XK_Next, XK_Next});
    EXPECT_EQ(Top(), 21);
    EXPECT_EQ(Cursor(), 23);
    Key(XK_Next);
    EXPECT_EQ(Top(), 22);
    EXPECT_EQ(Cursor(), 29);
    Set(list, {{XmNtopItemPosition, 3}});
    Key(XK_Up);
    EXPECT_EQ(Top(), 21) << "far below the window";
    Key(XK_Home, ControlMask);
    EXPECT_EQ(Top(), 0);
    EXPECT_EQ(Selected(), Rows{0});
    Key(XK_End, ControlMask);
    EXPECT_EQ(Top(), 22);
    EXPECT_EQ(log.back().data, "browse 30");
    EXPECT_EQ(Get(PartOf(list).vertical_scroll_bar, XmNvalue), 22);
    Key(XK_F2);
    EXPECT_EQ(Top(), 22) << "99 percent of 8 rows";
    Key(XK_F3);
    EXPECT_EQ(Top(), 27);
    Key(XK_F4);
    EXPECT_EQ(Top(), 27) << "no number";
    MoveToRow(1);
    Key(XK_F5);
    EXPECT_EQ(Top(), 28) << "where the pointer is";
    ExpectDrawn();
}

TEST_F(KeyboardSelectionTest, ScrollsSideways) {
    Start(XmBROWSE_SELECT);
    LmListSetPositionIndent(list, 3, 400);
    Set(list, {}); // brings the bars up to date
    const auto &part = PartOf(list);
    const int last = part.horizontal_maximum - part.horizontal_extent;
    ASSERT_GT(last, 200);
    Keys({XK_Left, XK_Right, XK_Right});
    EXPECT_EQ(part.x_origin, 20);
    Key(XK_Right, ControlMask);
    EXPECT_EQ(part.x_origin, 20 + 200 - 2 * 4 - 10);
    Key(XK_Left, ControlMask);
    EXPECT_EQ(part.x_origin, 20);
    Key(XK_End);
    EXPECT_EQ(part.x_origin, last);
    Key(XK_Right);
    EXPECT_EQ(Get(part.horizontal_scroll_bar, XmNvalue), last);
    Key(XK_Home);
    EXPECT_EQ(part.x_origin, 0);
}

TEST_F(KeyboardSelectionTest, StaysInAWindowThatDoesNotScroll) {
    Start(XmEXTENDED_SELECT);
    XtDestroyWidget(list);
    list = Make(Numbered(20), {{XmNselectionPolicy, XmEXTENDED_SELECT}, {XmNvisibleItemCount, 4}});
    Set(list, {{XmNtopItemPosition, 3}});
    XmProcessTraversal(list, XmTRAVERSE_CURRENT);
    Pump();
    Key(XK_Home, ControlMask);
    EXPECT_EQ(Selected(), Rows{2});
    Key(XK_Up);
    EXPECT_EQ(Cursor(), 2);
    Key(XK_End, ControlMask);
    EXPECT_EQ(Selected(), Rows{5});
    Keys({XK_Down, XK_Next});
    EXPECT_EQ(Cursor(), 5);
    Key(XK_Home, ControlMask | ShiftMask);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5}));
    Key(XK_End, ControlMask | ShiftMask);
    EXPECT_EQ(Selected(), (Rows{5, 6})) << "one row further than without extending";
    EXPECT_EQ(Top(), 2);
}

// ---- The cursor -------------------------------------------------------------------------------------

TEST_F(KeyboardSelectionTest, TheCursorIsWholeWhereverRowsAreDrawn) {
    Start(XmBROWSE_SELECT, false, 20, {{XmNhighlightThickness, 2}, {XmNlistSpacing, 6}});
    Keys({XK_Down, XK_Down, XK_Up, XK_Next, XK_Down});
    ExpectDrawn();
    Key(XK_End, ControlMask);
    Key(XK_Prior);
    ExpectDrawn();
}

} // namespace

TEST_F(KeyboardSelectionTest, TypingGoesToTheNextRowThatBeginsSo) {
    Start(XmBROWSE_SELECT);
    Strings names({"Ash", "beech",
                   "\xc3\x84"
                   "pfel",
                   "birch", "", "ash"});
    Set(list, names.Items());
    Set(list, {{XmNvisibleItemCount, 2}});
    const auto typed = [this](KeySym keysym, unsigned modifiers = 0) {
        Key(keysym, modifiers);
        EXPECT_EQ(SelectedRows(list), Rows{Cursor()});
        return Cursor();
    };
    EXPECT_EQ(typed(XK_b), 1);
    EXPECT_EQ(typed(XK_b, ShiftMask), 3);
    EXPECT_EQ(typed(XK_b), 1) << "around";
    EXPECT_EQ(typed(XK_a), 5);
    EXPECT_EQ(Top(), 4) << "in view";
    EXPECT_EQ(typed(XK_a), 0);
    EXPECT_EQ(typed(XK_x), 0);
    EXPECT_EQ(typed(XK_b, ControlMask), 0);
    Set(list, {{XmNitemCount, 0}});
    Key(XK_a);
}
