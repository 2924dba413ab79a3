// The sashes of the horizontal paned window, by pointer and by keyboard.
#include <tests/managers/HPanedWTest.h>

#include <chrono>

namespace corvidlmw::test {
namespace {

class SashTest : public HorzPanedWindowTest {
protected:
    void SetUp() override {
        HorzPanedWindowTest::SetUp();
        needs_focus = true;
        SetResource("*background: white");
    }

    // Presses on the sash behind that pane and moves it without letting go.
    void Pull(int pane, int distance) {
        MoveTo(SashOf(panes[static_cast<std::size_t>(pane)]), 5, 5);
        Press();
        MoveTo(SashOf(panes[static_cast<std::size_t>(pane)]), 5 + distance, 5);
    }
    void DragBy(int pane, int distance) {
        Pull(pane, distance);
        Release();
    }

    // Gives the sash the keyboard and types keys within one double click's time.
    void Type(int pane, const std::vector<KeySym> &keys, unsigned modifiers = 0) {
        XmProcessTraversal(SashOf(panes[static_cast<std::size_t>(pane)]), XmTRAVERSE_CURRENT);
        Pump();
        XtSetMultiClickTime(display, 300);
        for (KeySym key : keys)
            Key(key, modifiers);
    }
    bool KeysAreApplied() {
        return PumpUntil([this] { return PanedOf(manager).increment_count == 0; });
    }
};

TEST_F(SashTest, ADragShiftsWidthBetweenNeighbours) {
    MakeThree();
    DragBy(0, 20);
    EXPECT_EQ(Widths(), (Numbers{120, 30, 80}));
    EXPECT_EQ(BoxOf(SashOf(panes[0])).x, 122);
    DragBy(1, -15);
    EXPECT_EQ(Widths(), (Numbers{120, 15, 95}));
    DragBy(0, 30);
    EXPECT_EQ(Widths(), (Numbers{150, 1, 79})) << "the next but one gives what is missing";
    DragBy(1, -100);
    EXPECT_EQ(Widths(), (Numbers{50, 1, 179}));
    EXPECT_EQ(BoxOf(manager).width, 252);
}

// The far side shrinks too, since all that is left is the dragged pane's.
TEST_F(SashTest, AFarDragLeavesOnePixelToAllOthers) {
    MakeThree();
    DragBy(1, 380);
    EXPECT_EQ(Widths(), (Numbers{1, 228, 1}));
}

TEST_F(SashTest, LimitsStopADragAndFixedPanesArePassed) {
    MakePaned();
    panes = {Child(100, 60, XmNpaneMaximum, 110),
             Child(50, 60, XmNpaneMinimum, 50, XmNpaneMaximum, 50),
             Child(80, 60, XmNskipAdjust, True), Child(40, 60)};
    Show();
    EXPECT_FALSE(XtIsManaged(SashOf(panes[1])));
    DragBy(0, 50);
    EXPECT_EQ(Widths(), (Numbers{110, 50, 70, 40}))
        << "a drag asks also those that skip adjustment";
    DragBy(0, -60);
    EXPECT_EQ(Widths(), (Numbers{50, 50, 130, 40}));
    DragBy(2, 10);
    EXPECT_EQ(Widths(), (Numbers{50, 50, 140, 30}));
}

TEST_F(SashTest, LinesShowWhereThePanesWillStandAndGoWithoutATrace) {
    MakeThree();
    const Picture before = Picture::Of(manager);
    Pull(0, 20);
    const auto changed = before.Difference(Picture::Of(manager));
    ASSERT_TRUE(changed);
    // From the second pane's line, 5 pixels before it, to that of the third one, which stays.
    EXPECT_EQ(*changed, (XRectangle{126, 0, 39, 66}));
    MoveTo(SashOf(panes[0]), 5 + 33, 5);
    EXPECT_EQ(before.Difference(Picture::Of(manager))->x, 139);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80})) << "nothing moves before the release";
    MoveTo(SashOf(panes[0]), 5, 5);
    Release();
    EXPECT_TRUE(SamePicture(before, Picture::Of(manager)));

    // A layout that comes in between takes them along, also when the sash goes itself.
    Pull(0, 20);
    Resize(252, 66);
    XtVaSetValues(manager, XmNsashOffset, 1, nullptr);
    XtVaSetValues(manager, XmNsashOffset, 0, nullptr);
    EXPECT_TRUE(SamePicture(before, Picture::Of(manager)));
    MoveTo(SashOf(panes[0]), 5 + 10, 5);
    XtDestroyWidget(panes[0]);
    Release();
    XClearArea(display, XtWindow(manager), 0, 0, 0, 0, True);
    Pump();
    const Picture after = Picture::Of(manager);
    EXPECT_EQ(after.Count(BlackPixelOfScreen(XtScreen(manager))), 0);
}

TEST_F(SashTest, WithoutRefigureModeADragMovesNothing) {
    MakeThree(XmNrefigureMode, True);
    XtVaSetValues(manager, XmNrefigureMode, False, nullptr);
    const Picture before = Picture::Of(manager);
    DragBy(0, 20);
    EXPECT_TRUE(SamePicture(before, Picture::Of(manager)));
    XtVaSetValues(manager, XmNrefigureMode, True, nullptr);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
}

TEST_F(SashTest, AnyPaneMayDieInADrag) {
    for (int victim = 0; victim < 3; ++victim) {
        MakeThree();
        Pull(1, 10);
        XtDestroyWidget(panes[static_cast<std::size_t>(victim)]);
        if (victim != 1)
            MoveTo(SashOf(panes[1]), 9, 5);
        Release();
        EXPECT_EQ(PanedOf(manager).pane_count, 2);
        Pull(victim == 0 ? 1 : 0, 5);
        XtDestroyWidget(XtParent(manager));
        Release();
    }
}

TEST_F(SashTest, KeysOfOneMultiClickTimeMoveTheSashAtOnce) {
    MakeThree();
    Type(0, {XK_Right, XK_Right, XK_Right});
    EXPECT_EQ(PanedOf(manager).increment_count, 3);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
    EXPECT_TRUE(KeysAreApplied());
    EXPECT_EQ(Widths(), (Numbers{103, 47, 80}));
    Type(1, {XK_Left}, ControlMask);
    EXPECT_TRUE(KeysAreApplied());
    EXPECT_EQ(Widths(), (Numbers{103, 37, 90}));
    Type(0, {XK_Up, XK_Down, XK_Left});
    EXPECT_EQ(PanedOf(manager).increment_count, 1) << "up and down are to the right";
    EXPECT_TRUE(KeysAreApplied());
    EXPECT_EQ(Widths(), (Numbers{104, 36, 90}));
}

TEST_F(SashTest, KeysDieWithTheirSashAndTheirWindow) {
    MakeThree();
    Type(0, {XK_Right});
    XtDestroyWidget(panes[0]);
    EXPECT_EQ(PanedOf(manager).increment_count, 0);
    Type(1, {XK_Left});
    XtDestroyWidget(XtParent(manager));
    LetTimePass(std::chrono::milliseconds(320));
    RunWorkProcs();
}

TEST_F(SashTest, TheKeyboardWalksFromPaneToSashToPane) {
    MakePaned();
    for (int i = 0; i < 2; ++i)
        panes.push_back(XtVaCreateManagedWidget("pane", xmDrawingAreaWidgetClass, manager, XmNwidth,
                                                50, nullptr));
    Show();
    XmProcessTraversal(panes[0], XmTRAVERSE_CURRENT);
    Widgets met;
    for (int i = 0; i < 3; ++i) {
        met.push_back(XmGetFocusWidget(shell));
        XmProcessTraversal(met.back(), XmTRAVERSE_NEXT_TAB_GROUP);
    }
    EXPECT_EQ(met, (Widgets{panes[0], SashOf(panes[0]), panes[1]}));
}

TEST_F(SashTest, BadParametersOfAnActionGiveWarnings) {
    MakeThree();
    XEvent event{};
    event.type = KeyPress;
    const auto act = [&](std::vector<const char *> params) {
        SashCallDataRec call{&event, const_cast<String *>(params.data()),
                             static_cast<Cardinal>(params.size())};
        XtCallCallbacks(SashOf(panes[0]), XmNcallback, &call);
    };
    act({});
    ExpectWarning(_XmMsgPanedW_0004);
    act({"Key", "DefaultIncr"});
    ExpectWarning(_XmMsgPanedW_0004);
    event.type = KeyRelease;
    act({"Nonsense"});
    event.type = ButtonPress;
    act({"Nonsense"});
    ExpectWarning(_XmMsgPanedW_0005);
    act({"move"});
    act({"Commit"});
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
}

} // namespace
} // namespace corvidlmw::test
