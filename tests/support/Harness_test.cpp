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

class HarnessTest : public DisplayTest {};

TEST_F(HarnessTest, AClickReachesAWidgetOrAGadgetAtItsPlace) {
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, board, nullptr);
    Widget gadget = XtVaCreateManagedWidget("gadget", xmPushButtonGadgetClass, board, XmNx, 120,
                                            XmNy, 90, nullptr);
    CallbackLog<> log;
    for (const char *list : {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback})
        log.Add(button, list);
    log.Add(gadget, XmNactivateCallback);
    Show();
    Click(button, 5, 5);
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_ARM, XmCR_ACTIVATE, XmCR_DISARM}));
    EXPECT_EQ(log.lists().front(), XmNarmCallback);
    Click(gadget, 3, 3);
    EXPECT_EQ(log.back().widget, gadget);
    Click(board, 3, 3);
    EXPECT_EQ(log.size(), 4u);
}

struct ButtonEvents {
    std::vector<unsigned int> states;
    std::vector<int> motions_x;

    static void Note(Widget, XtPointer closure, XEvent *event, Boolean *) {
        auto *events = static_cast<ButtonEvents *>(closure);
        if (event->type == ButtonPress)
            events->states.push_back(event->xbutton.state);
        else
            events->motions_x.push_back(event->xmotion.x);
    }

    explicit ButtonEvents(Widget widget) {
        XtAddEventHandler(widget, ButtonPressMask | ButtonMotionMask, False, Note, this);
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
    {
        HoldEvents hold(*this);
        Click(area, 5, 5);
        EXPECT_EQ(events.states.size(), 3u);
    }
    Pump();
    EXPECT_EQ(events.states.size(), 4u);
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

TEST_F(HarnessTest, ALogAndItsWidgetMayDieInEitherOrder) {
    Widget first = XtCreateWidget("first", xmPushButtonWidgetClass, shell, nullptr, 0);
    CallbackLog<> outlives;
    outlives.Add(first, XmNactivateCallback);
    outlives.Add(first, XtNdestroyCallback);
    XtDestroyWidget(first);
    Pump();
    EXPECT_EQ(outlives.lists(), (std::vector<std::string>{XtNdestroyCallback}));

    Widget second = XtVaCreateManagedWidget("second", xmPushButtonWidgetClass, shell, nullptr);
    {
        CallbackLog<> dies_first;
        dies_first.Add(second, XmNactivateCallback);
    }
    Show();
    Click(second, 5, 5);
}

} // namespace
