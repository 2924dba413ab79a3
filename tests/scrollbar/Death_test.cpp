/* Bars that die in the middle of something, and what is left of them: nothing. */

#include <tests/scrollbar/ScrollBarTest.h>

#include <X11/keysym.h>
#include <Xm/PushB.h>

#include <functional>
#include <memory>

namespace corvidlmw::test {
namespace {

constexpr XtArgVal at_once = 1;

class DeathTest : public ScrollBarTest {
protected:
    void SetUp() override {
        ScrollBarTest::SetUp();
        button =
            XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, board, XmNx, 200, nullptr);
        Show();
        MakeAndDestroy(); // what the toolkit makes once for all bars
    }

    Widget MakeBar() {
        Widget bar = Make({{XmNtraversalOn, True},
                           {XmNinitialDelay, at_once},
                           {XmNrepeatDelay, at_once},
                           {XmNvalue, 30}});
        XmProcessTraversal(bar, XmTRAVERSE_CURRENT);
        XtAddCallback(
            bar, XmNdestroyCallback,
            [](Widget, XtPointer flag, XtPointer) { *static_cast<bool *>(flag) = true; }, &dead);
        dead = false;
        Pump();
        return bar;
    }

    void MakeAndDestroy() {
        Widget bar = MakeBar();
        PressArrow(bar);
        XtDestroyWidget(bar);
        Release();
        RunWorkProcs();
    }

    void PressArrow(Widget bar) {
        MoveTo(bar, 7, 195);
        Press();
    }

    // All of it is on its way before any is dispatched.
    void DragAtOnce(Widget bar, unsigned pressed) {
        {
            const HoldEvents hold(*this);
            Drag(bar, {7, 75}, {7, 120}, pressed);
        }
        Pump();
    }

    // The callback number `after` of any list destroys the bar.
    void DestroyAfter(Widget bar, int after) {
        calls_left = after;
        for (const char *list : bar_lists)
            XtAddCallback(
                bar, list,
                [](Widget w, XtPointer test, XtPointer) {
                    if (--static_cast<DeathTest *>(test)->calls_left == 0)
                        XtDestroyWidget(w);
                },
                this);
    }

    // The keyboard is free, the toolkit sends keys to who is left, and no timer fires.
    void ExpectNothingLeft(const ServerResources &before) {
        EXPECT_TRUE(dead);
        Release();
        CallbackLog<> log;
        log.Add(button, XmNactivateCallback);
        XmProcessTraversal(button, XmTRAVERSE_CURRENT);
        Pump();
        Key(XK_space);
        EXPECT_EQ(log.size(), 1u);
        LetTimePass(std::chrono::milliseconds(20));
        RunWorkProcs();
        EXPECT_EQ(ServerResources::Of(display), before);
    }

    Widget button = nullptr;
    bool dead = false;
    int calls_left = 0;
};

TEST_F(DeathTest, InsideOfAnyCallback) {
    const std::pair<int, std::function<void(Widget)>> ways[] = {
        {1, [&](Widget bar) { PressArrow(bar); }},
        {3, [&](Widget bar) { PressArrow(bar), PumpUntil([&] { return dead; }); }},
        {1,
         [&](Widget bar) {
             Drag(bar, {7, 70}, {7, 100});
         }},
        {5,
         [&](Widget bar) {
             Drag(bar, {7, 70}, {7, 100});
         }}, // after 4 steps the release
        {1,
         [&](Widget bar) {
             Drag(bar, {7, 150}, {7, 150}, Button2);
         }},
        {2,
         [&](Widget bar) {
             PressArrow(bar);
             Key(XK_Escape);
         }},
        {1, [&](Widget) { Key(XK_Down); }},
        {1, [&](Widget) { Key(XK_End); }},
        {1, [&](Widget bar) { Click(bar, 7, 195, Button1, ControlMask); }},
        {1, [&](Widget bar) { SvScrollBarSetValues(bar, 50, 10, 1, 1, True); }},
    };
    const auto before = ServerResources::Of(display);
    for (const auto &[calls, way] : ways) {
        SCOPED_TRACE(&way - &ways[0].second);
        Widget bar = MakeBar();
        DestroyAfter(bar, calls);
        way(bar);
        ExpectNothingLeft(before);
    }
}

TEST_F(DeathTest, InTheMiddleOfAGesture) {
    const auto before = ServerResources::Of(display);
    for (const int y : {195, 150, 70}) { // timer and grab, the same, drag and grab
        Widget bar = MakeBar();
        MoveTo(bar, 7, y);
        Press();
        XtDestroyWidget(bar);
        ExpectNothingLeft(before);
    }
}

// Who destroys a bar may close its display next.
TEST_F(DeathTest, InsideOfARepeatedStepItTalksNoMoreToTheServer) {
    Widget bar = MakeBar();
    RequestCounter counter(display);
    XtAddCallback(
        bar, XmNincrementCallback,
        [](Widget w, XtPointer after, XtPointer value) {
            if (static_cast<XmScrollBarCallbackStruct *>(value)->value == 33) {
                XtDestroyWidget(w);
                static_cast<RequestCounter *>(after)->Restart();
            }
        },
        &counter);
    PressArrow(bar);
    while (!dead)
        XtAppProcessEvent(app, XtIMTimer);
    EXPECT_EQ(counter.requests(), 0);
    Release();
}

// ---- While the picture is asked for -------------------------------------------------------------

TEST_F(DeathTest, InsideOfThePicturesCallback) {
    const std::function<void(Widget)> ways[] = {
        [&](Widget) { Pump(); }, // the exposure
        [&](Widget bar) { SvScrollBarRedisplay(bar); },
        [&](Widget bar) { XtResizeWidget(bar, 20, 100, 0); },
    };
    const auto before = ServerResources::Of(display);
    for (const auto &way : ways) {
        Widget bar = MakeBar();
        XtAddCallback(
            bar, XmNtroughPixmapCallback,
            [](Widget w, XtPointer, XtPointer) { XtDestroyWidget(w); }, nullptr);
        XClearArea(display, XtWindow(bar), 0, 0, 0, 0, True);
        way(bar);
        ExpectNothingLeft(before);
    }
}

TEST_F(DeathTest, WithAPictureAndAMask) {
    const auto before = ServerResources::Of(display);
    Widget bar = MakeBar();
    XtAddCallback(
        bar, XmNtroughPixmapCallback, [](Widget, XtPointer, XtPointer) {}, nullptr);
    SvScrollBarRedisplay(bar);
    XtResizeWidget(bar, 20, 100, 0);
    XtSetSensitive(bar, False);
    Pump();
    EXPECT_EQ(ServerResources::Of(display).pixmaps(), before.pixmaps() + 3);
    XtDestroyWidget(bar);
    ExpectNothingLeft(before);
}

// ---- Events of the client's own -----------------------------------------------------------------

// As a dialog that waits for its answer: the release comes while the step is still being told.
TEST_F(DeathTest, AReleaseInsideOfACallbackEndsTheRepetition) {
    Widget bar = MakeBar();
    int calls = 0;
    std::function<void()> act = [&] {
        if (++calls == 1)
            Release();
    };
    XtAddCallback(
        bar, XmNincrementCallback,
        [](Widget, XtPointer closure, XtPointer) {
            (*static_cast<std::function<void()> *>(closure))();
        },
        &act);
    PressArrow(bar);
    ASSERT_TRUE(
        PumpUntil([&] { return PartOf(bar).timer == 0 && !(PartOf(bar).flags & SV_END_TIMER); }));
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace corvidlmw::test
