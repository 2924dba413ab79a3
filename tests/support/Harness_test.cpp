#include <tests/support/Harness.h>

#include <gtest/gtest-spi.h>

#include <X11/keysym.h>
#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/Text.h>

namespace {

using namespace corvidlmw::test;

class HarnessTest : public DisplayTest {
protected:
    Widget MakeButton(const char *label) {
        return XtVaCreateManagedWidget(label, xmPushButtonWidgetClass, shell, nullptr);
    }
};

// ---- Input ---------------------------------------------------------------------

TEST_F(HarnessTest, AClickActivatesAButtonWithTheServersTime) {
    Widget button = MakeButton("press");
    CallbackLog<Time> log([](XtPointer data) {
        return static_cast<XmPushButtonCallbackStruct *>(data)->event->xbutton.time;
    });
    for (const char *list : {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback})
        log.Add(button, list);
    Show();

    Click(button, 5, 5);

    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_ARM, XmCR_ACTIVATE, XmCR_DISARM}));
    EXPECT_EQ(log.lists().front(), XmNarmCallback);
    const Time first = log.entries()[1].data;
    EXPECT_GT(first, 0u);
    LetTimePass(std::chrono::milliseconds(20));
    Click(button, 5, 5);
    EXPECT_GE(log.entries()[4].data, first + 20);
}

TEST_F(HarnessTest, AClickReachesAGadgetAtItsPlace) {
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    Widget gadget = XtVaCreateManagedWidget("gadget", xmPushButtonGadgetClass, board, XmNx, 120,
                                            XmNy, 90, nullptr);
    CallbackLog<> log;
    log.Add(gadget, XmNactivateCallback);
    Show();

    Click(gadget, 3, 3);
    Click(board, 3, 3);

    EXPECT_EQ(log.size(), 1u);
}

struct ButtonEvents {
    std::vector<unsigned int> states;
    std::vector<int> motions_x;
    std::vector<KeySym> keys;

    static void Note(Widget, XtPointer closure, XEvent *event, Boolean *) {
        auto *events = static_cast<ButtonEvents *>(closure);
        if (event->type == ButtonPress)
            events->states.push_back(event->xbutton.state);
        else if (event->type == MotionNotify)
            events->motions_x.push_back(event->xmotion.x);
        else
            events->keys.push_back(XLookupKeysym(&event->xkey, 0));
    }

    explicit ButtonEvents(Widget widget) {
        XtAddEventHandler(widget, ButtonPressMask | ButtonMotionMask | KeyPressMask, False, Note,
                          this);
    }
};

TEST_F(HarnessTest, ModifiersAndDragsArriveAsPerformed) {
    Widget area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, shell, nullptr);
    ButtonEvents events(area);
    Show();

    Click(area, 5, 5, Button2, ShiftMask | ControlMask);
    Click(area, 5, 5, Button2, Mod1Mask);
    Drag(area, {10, 10}, {50, 10}, Button3, 0, 4);

    EXPECT_EQ(events.states, (std::vector<unsigned int>{ShiftMask | ControlMask, Mod1Mask, 0u}));
    EXPECT_EQ(events.motions_x, (std::vector<int>{20, 30, 40, 50}));
}

TEST_F(HarnessTest, HeldEventsAreDispatchedTogether) {
    Widget button = MakeButton("target");
    ButtonEvents events(button);
    Show();
    {
        HoldEvents hold(*this);
        Drag(button, {10, 10}, {50, 10}, Button1, 0, 4);
        EXPECT_TRUE(events.states.empty());
    }
    Pump();
    EXPECT_EQ(events.states.size(), 1u);
}

TEST_F(HarnessTest, KeysAreTypedIntoTheFocus) {
    Widget text = XtVaCreateManagedWidget("text", xmTextWidgetClass, shell, nullptr);
    Show();

    for (KeySym key : {XK_a, XK_B, XK_exclam, XK_Greek_lambda, XK_BackSpace})
        Key(key);
    Key(XK_c, ShiftMask);

    char *value = XmTextGetString(text);
    EXPECT_STREQ(value, "aB!C");
    XtFree(value);
}

// ---- Pumping --------------------------------------------------------------------

TEST_F(HarnessTest, WorkProceduresRunOnlyWhenAsked) {
    int left = 3;
    Show();
    XtAppAddWorkProc(
        app, [](XtPointer closure) -> Boolean { return --*static_cast<int *>(closure) == 0; },
        &left);
    Pump();
    EXPECT_EQ(left, 3);
    RunWorkProcs();
    EXPECT_EQ(left, 0);
}

TEST_F(HarnessTest, PumpUntilRunsTimersAndEndsInTime) {
    bool rang = false;
    XtAppAddTimeOut(
        app, 5, [](XtPointer closure, XtIntervalId *) { *static_cast<bool *>(closure) = true; },
        &rang);
    EXPECT_TRUE(PumpUntil([&] { return rang; }));
    EXPECT_FALSE(PumpUntil([] { return false; }, std::chrono::milliseconds(5)));
}

// ---- Complaints ------------------------------------------------------------------

TEST_F(HarnessTest, WarningsAndXErrorsAreCaptured) {
    XtWarning("first");
    XtVaCreateManagedWidget("odd", xmPushButtonWidgetClass, shell, XmNlabelType, 77, nullptr);
    ExpectWarning("first");
    EXPECT_EQ(warnings().size(), 1u);
    ExpectWarning("LabelType");
    Show();
    XMapWindow(display, XtWindow(shell) + 0x1234);
    ExpectXError(BadWindow);
}

TEST_F(HarnessTest, AFatalErrorEndsTheChildOnly) {
    ExpectFatal([](Widget other_shell) { XtCreateWidget("x", nullptr, other_shell, nullptr, 0); },
                "widget class");
}

TEST(Complaints, WhatIsLeftFailsTheTest) {
    class Careless : public DisplayTest {
    public:
        void TestBody() override {
            SetUp();
            XtWarning("left behind");
            TearDown();
        }
    };
    EXPECT_NONFATAL_FAILURE({ Careless().TestBody(); }, "left behind");
}

// ---- Pictures -----------------------------------------------------------------------

TEST_F(HarnessTest, PicturesShowWhatWasDrawn) {
    SetResource("*background: #ffffff");
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell,
                                           XmNshadowThickness, 0, nullptr);
    Show();
    const Picture before = Picture::Of(board);
    GC gc = XCreateGC(display, XtWindow(board), 0, nullptr);
    XSetForeground(display, gc, 0xff0000);
    XFillRectangle(display, XtWindow(board), gc, 30, 40, 5, 6);
    XFreeGC(display, gc);

    const Picture after = Picture::Of(board);
    EXPECT_EQ(after.At(30, 40), 0xff0000u);
    EXPECT_EQ(after.At(29, 40), 0xffffffu);
    EXPECT_EQ(after.Count(0xff0000), 30);
    EXPECT_EQ(after.Difference(before), (XRectangle{30, 40, 5, 6}));
    EXPECT_EQ(after.BoxOfOthers(0xffffff), (XRectangle{30, 40, 5, 6}));
    EXPECT_EQ(after.At(-1, 0), Picture::nowhere);
    EXPECT_TRUE(SamePicture(after, Picture::Of(board)));

    const std::string file = ::testing::TempDir() + "harness_picture.png";
    ASSERT_TRUE(SavePng(board, file));
    EXPECT_EQ(std::remove(file.c_str()), 0);
}

// ---- Callbacks -------------------------------------------------------------------------

TEST_F(HarnessTest, ALogAndItsWidgetMayDieInEitherOrder) {
    Widget first = MakeButton("first");
    CallbackLog<> outlives;
    outlives.Add(first, XmNactivateCallback);
    outlives.Add(first, XtNdestroyCallback);
    XtDestroyWidget(first);
    Pump();
    EXPECT_EQ(outlives.lists(), (std::vector<std::string>{XtNdestroyCallback}));

    Widget second = MakeButton("second");
    {
        CallbackLog<> dies_first;
        dies_first.Add(second, XmNactivateCallback);
    }
    Show();
    Click(second, 5, 5);
}

} // namespace
