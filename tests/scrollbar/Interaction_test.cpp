/* Pointer and keys, through the server: what moves, who is called, and with what. */

#include <tests/scrollbar/ScrollBarTest.h>

#include <X11/keysym.h>
#include <Xm/MessageB.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBarP.h>

namespace corvidlmw::test {
namespace {

class InteractionTest : public ScrollBarTest {
protected:
    // Shown, with the focus, and with all its lists in the log unless told otherwise.
    Widget MakeShown(const Settings &settings = {}, bool all_lists = true) {
        Widget bar = Make(settings);
        XtVaSetValues(bar, XmNtraversalOn, True, nullptr);
        if (all_lists)
            LogAll(bar);
        Show();
        XmProcessTraversal(bar, XmTRAVERSE_CURRENT);
        Pump();
        return bar;
    }

    void LogAll(Widget bar) {
        for (const char *list : bar_lists)
            log.Add(bar, list);
    }

    // reason and value of each callback since the last call
    using Calls = std::vector<std::pair<int, int>>;
    Calls Called() {
        Calls calls;
        for (const auto &entry : log.entries())
            calls.emplace_back(entry.data.reason, entry.data.value);
        log.Clear();
        return calls;
    }

    void PressAt(Widget bar, int x, int y, unsigned button = Button1) {
        MoveTo(bar, x, y);
        Press(button);
    }

    bool KeyboardIsFree() {
        Display *robot = XServer::Instance().robot();
        const int status = XGrabKeyboard(robot, DefaultRootWindow(robot), False, GrabModeAsync,
                                         GrabModeAsync, CurrentTime);
        XUngrabKeyboard(robot, CurrentTime);
        XSync(robot, False);
        return status == GrabSuccess;
    }

    BarLog log;
};

// ---- Steps and their repetition -----------------------------------------------------------------

constexpr XtArgVal at_once = 1;
constexpr XtArgVal never = 100000;

TEST_F(InteractionTest, AHeldArrowStepsUntilTheRelease) {
    Widget bar = MakeShown({{XmNinitialDelay, at_once}, {XmNrepeatDelay, at_once}});
    const Picture plain = Picture::Of(bar, {2, 190, 11, 12});
    PressAt(bar, 7, 195);
    EXPECT_EQ(log.entries()[0].reason, XmCR_INCREMENT);
    EXPECT_EQ(log.entries()[0].data.event, nullptr);
    EXPECT_EQ(log.entries()[0].data.pixel, 0);
    EXPECT_FALSE(Picture::Of(bar, {2, 190, 11, 12}) == plain);
    EXPECT_FALSE(KeyboardIsFree());
    ASSERT_TRUE(PumpUntil([&] { return log.size() >= 4; }));
    Release();
    EXPECT_TRUE(KeyboardIsFree());
    EXPECT_TRUE(Picture::Of(bar, {2, 190, 11, 12}) == plain);
    const auto calls = Called();
    for (size_t i = 0; i < calls.size(); i++)
        EXPECT_EQ(calls[i], std::pair(int{XmCR_INCREMENT}, static_cast<int>(i + 1)));
    ASSERT_TRUE(PumpUntil([&] { return PartOf(bar).timer == 0; }));
    EXPECT_TRUE(Called().empty());
}

TEST_F(InteractionTest, ThereAreBothDelaysBeforeTheSecondStep) {
    Widget bar = MakeShown({{XmNinitialDelay, at_once}, {XmNrepeatDelay, never}});
    PressAt(bar, 7, 195);
    ASSERT_TRUE(PumpUntil([&] { return (PartOf(bar).flags & SV_FIRST_SCROLL) == 0; }));
    EXPECT_NE(PartOf(bar).timer, 0u);
    EXPECT_EQ(Called(), (Calls{{XmCR_INCREMENT, 1}}));

    // A press before the last firing goes on with the same timer.
    const XtIntervalId timer = PartOf(bar).timer;
    Release();
    EXPECT_TRUE(PartOf(bar).flags & SV_END_TIMER);
    PressAt(bar, 7, 150);
    EXPECT_EQ(PartOf(bar).timer, timer);
    EXPECT_FALSE(PartOf(bar).flags & SV_END_TIMER);
    EXPECT_EQ(Called(), (Calls{{XmCR_PAGE_INCREMENT, 11}}));
    Release();
}

TEST_F(InteractionTest, TheRepetitionEndsAtTheLimit) {
    Widget bar = MakeShown({{XmNinitialDelay, at_once},
                            {XmNrepeatDelay, at_once},
                            {XmNminimum, INT_MAX - 50},
                            {XmNmaximum, INT_MAX},
                            {XmNpageIncrement, INT_MAX},
                            {XmNincrement, INT_MAX - 1},
                            {XmNvalue, INT_MAX - 20}});
    PressAt(bar, 7, 185);
    ASSERT_TRUE(PumpUntil([&] { return PartOf(bar).timer == 0; }));
    EXPECT_EQ(Called(), (Calls{{XmCR_PAGE_INCREMENT, INT_MAX - 5}}));
    EXPECT_FALSE(KeyboardIsFree()) << "the button is still down";
    Release();
    const Picture plain = Picture::Of(bar);
    PressAt(bar, 7, 195);
    EXPECT_TRUE(Called().empty());
    EXPECT_EQ(PartOf(bar).timer, 0u);
    EXPECT_FALSE(Picture::Of(bar) == plain) << "pressed all the same";
    Release();
    EXPECT_TRUE(Picture::Of(bar) == plain);
    Key(XK_Up);
    EXPECT_EQ(Called(), (Calls{{XmCR_DECREMENT, INT_MAX - 50}}));
}

// ---- Drag ---------------------------------------------------------------------------------------

TEST_F(InteractionTest, ADragFollowsThePointerAndEndsWithAChange) {
    Widget bar = MakeShown({{XmNvalue, 20}});
    const short start = SliderOf(bar).y;
    PressAt(bar, 7, start + 5);
    MoveTo(bar, 7, start + 5);
    EXPECT_TRUE(Called().empty());
    MoveTo(bar, 7, start + 45);
    EXPECT_EQ(SliderOf(bar).y, start + 40);
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log.back().list, XmNdragCallback);
    EXPECT_NE(log.back().data.event, nullptr);
    EXPECT_EQ(log.back().data.pixel, start + 45);
    // 49 + 40 pixels after the trough's start less one: 36 + 40 of 158, of 90 values
    EXPECT_EQ(Called(), (Calls{{XmCR_DRAG, 43}}));
    MoveTo(bar, 200, 400);
    EXPECT_EQ(SliderOf(bar).y, 14 + 176 - 18);
    EXPECT_EQ(Called(), (Calls{{XmCR_DRAG, 90}}));
    MoveTo(bar, 0, 300);
    EXPECT_TRUE(Called().empty());
    Release();
    EXPECT_EQ(Called(), (Calls{{XmCR_VALUE_CHANGED, 90}}));
    MoveTo(bar, 7, 100);
    EXPECT_TRUE(Called().empty());
}

TEST_F(InteractionTest, CancelBringsTheValueBack) {
    Widget bar = MakeShown({{XmNinitialDelay, at_once}, {XmNrepeatDelay, never}});
    XtVaSetValues(bar, XmNvalue, 20, nullptr);
    const XRectangle slider = SliderOf(bar);
    PressAt(bar, 7, slider.y + 5);
    MoveTo(bar, 7, 150);
    log.Clear();
    Key(XK_Escape);
    EXPECT_EQ(log.back().data.event, nullptr);
    EXPECT_EQ(log.back().data.pixel, slider.y);
    EXPECT_EQ(Called(), (Calls{{XmCR_VALUE_CHANGED, 20}}));
    EXPECT_EQ(SliderOf(bar), slider);
    EXPECT_TRUE(KeyboardIsFree());
    MoveTo(bar, 7, 160);
    Release();
    EXPECT_TRUE(Called().empty());

    PressAt(bar, 7, 195);
    XtVaSetValues(bar, XmNmaximum, 25, XmNvalue, 0, nullptr);
    Key(XK_Escape);
    EXPECT_TRUE(PartOf(bar).flags & SV_END_TIMER);
    Release();
    EXPECT_EQ(Called(), (Calls{{XmCR_INCREMENT, 21}, {XmCR_VALUE_CHANGED, 15}}))
        << "as near as the new range allows";
}

TEST_F(InteractionTest, ACancelWithoutAPressIsTheDialogs) {
    Show();
    Widget dialog = XmCreateMessageDialog(shell, Name("dialog"), nullptr, 0);
    board = dialog;
    CallbackLog<> cancelled;
    cancelled.Add(dialog, XmNcancelCallback);
    Widget bar = Make({{XmNtraversalOn, True}});
    LogAll(bar);
    XtManageChild(dialog);
    Show(XtParent(dialog));
    XmProcessTraversal(bar, XmTRAVERSE_CURRENT);
    Pump();
    Key(XK_Escape);
    EXPECT_EQ(cancelled.size(), 1u);
    EXPECT_TRUE(Called().empty());
}

// ---- Actions ------------------------------------------------------------------------------------

// As a client's own bindings may do.
TEST_F(InteractionTest, ActionsNeedNoParameterAndNoEvent) {
    Widget bar = MakeShown({{XmNvalue, 50}});
    for (const char *action : {"IncrementUpOrLeft", "PageDownOrRight", "Select", "Moved",
                               "TopOrBottom", "Release", "CancelDrag"})
        XtCallActionProc(bar, action, nullptr, nullptr, 0);
    EXPECT_EQ(Called(), (Calls{{XmCR_DECREMENT, 49}, {XmCR_PAGE_INCREMENT, 59}}));
    String horizontal_only[] = {Name("1")};
    XtCallActionProc(bar, "PageUpOrLeft", nullptr, horizontal_only, 1);
    EXPECT_TRUE(Called().empty());
}

// ---- Who is called ------------------------------------------------------------------------------

TEST_F(InteractionTest, AStepNobodyListensToIsAChangeOfTheValueButADragIsNot) {
    Widget bar = MakeShown({{XmNinitialDelay, never}}, false);
    log.Add(bar, XmNvalueChangedCallback);
    XtAddCallback(
        bar, XmNincrementCallback, [](Widget, XtPointer, XtPointer) {}, nullptr);
    XtRemoveAllCallbacks(bar, XmNincrementCallback);
    Click(bar, 7, 195);
    Click(bar, 7, 150);
    Key(XK_Up);
    Key(XK_End);
    const int changed = XmCR_VALUE_CHANGED;
    EXPECT_EQ(Called(), (Calls{{changed, 1}, {changed, 11}, {changed, 10}, {changed, 90}}));
    Drag(bar, {7, 185}, {7, 20});
    EXPECT_EQ(Called(), (Calls{{changed, 0}}));
}

TEST_F(InteractionTest, AFullSliderReactsToNothing) {
    Widget bar = MakeShown({{XmNsliderSize, 100}});
    const Picture before = Picture::Of(bar);
    for (const int y : {5, 100, 195})
        for (const unsigned modifiers : {0u, unsigned{ControlMask}})
            Click(bar, 7, y, Button1, modifiers);
    Drag(bar, {7, 60}, {7, 160});
    Key(XK_Down);
    Key(XK_End);
    EXPECT_TRUE(Called().empty());
    EXPECT_TRUE(KeyboardIsFree());
    EXPECT_TRUE(SamePicture(before, Picture::Of(bar)));
}

// A drag in which the client fills the slider up ends with it, but tells nobody.
TEST_F(InteractionTest, ADragOfASliderThatFillsUpEndsWithTheRelease) {
    Widget bar = MakeShown();
    PressAt(bar, 7, 20);
    MoveTo(bar, 7, 60);
    log.Clear();
    XtVaSetValues(bar, XmNvalue, 0, XmNsliderSize, 100, nullptr);
    Release();
    XtVaSetValues(bar, XmNsliderSize, 10, nullptr);
    PressAt(bar, 7, 5); // on an arrow at its limit
    MoveTo(bar, 7, 100);
    Release();
    EXPECT_TRUE(Called().empty());
}

// It sees no release, and everybody else wants the keyboard back.
TEST_F(InteractionTest, AnInsensitiveBarEndsWhatAPressBegan) {
    Widget bar = MakeShown({{XmNinitialDelay, at_once}, {XmNrepeatDelay, at_once}});
    PressAt(bar, 7, 195);
    XtSetSensitive(board, False);
    Pump();
    EXPECT_TRUE(KeyboardIsFree());
    Release();
    log.Clear();
    ASSERT_TRUE(PumpUntil([&] { return PartOf(bar).timer == 0; }));
    XtSetSensitive(board, True);
    EXPECT_TRUE(Called().empty());

    PressAt(bar, 7, SliderOf(bar).y + 5);
    XtSetSensitive(bar, False);
    Release();
    XtSetSensitive(bar, True);
    PressAt(bar, 7, 5); // on an arrow
    log.Clear();
    MoveTo(bar, 7, 100);
    Release();
    EXPECT_TRUE(Called().empty()) << "that drag is over";
}

// The server takes the keyboard from it, of which the toolkit must hear.
TEST_F(InteractionTest, AHiddenBarEndsWhatAPressBegan) {
    Widget button = XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, board, XmNx, 200,
                                            XmNy, 300, nullptr);
    CallbackLog<> activated;
    activated.Add(button, XmNactivateCallback);
    Widget bar = MakeShown({{XmNinitialDelay, at_once}, {XmNrepeatDelay, at_once}});
    for (const int y : {195, 20}) {
        PressAt(bar, 7, y);
        XtUnmanageChild(bar);
        Pump();
        Release();
        log.Clear();
        XmProcessTraversal(button, XmTRAVERSE_CURRENT);
        Key(XK_space);
        EXPECT_EQ(activated.size(), 1u);
        activated.Clear();
        ASSERT_TRUE(PumpUntil([&] { return PartOf(bar).timer == 0; }));
        EXPECT_TRUE(Called().empty());
        XtManageChild(bar);
        Pump();
    }
}

// ---- As the toolkit's bar -----------------------------------------------------------------------

struct Seen {
    std::string list;
    int reason, value, pixel;
    bool operator==(const Seen &) const = default;
};

void PrintTo(const Seen &seen, std::ostream *out) {
    *out << seen.list << ' ' << seen.reason << ' ' << seen.value << " at " << seen.pixel;
}

// The pixel past the slider's end, as the toolkit counts on the slider and we do not.
int SliderEnd(Widget bar, bool horizontal) {
    auto end = [&](const auto &part) {
        return horizontal ? part.slider_x + part.slider_width : part.slider_y + part.slider_height;
    };
    return XtClass(bar) == svScrollBarWidgetClass
               ? end(PartOf(bar))
               : end(reinterpret_cast<XmScrollBarWidget>(bar)->scrollBar);
}

// The same input to one of each class: the same calls in the same order, with the same data.
TEST_F(InteractionTest, ItAnswersAsTheToolkitsBarDoes) {
    for (const int direction : {XmMAX_ON_TOP, XmMAX_ON_BOTTOM, XmMAX_ON_LEFT, XmMAX_ON_RIGHT}) {
        std::vector<Seen> seen[2];
        for (int k = 0; k < 2; k++) {
            const bool horizontal = direction >= XmMAX_ON_LEFT;
            Widget bar = Make({{XmNorientation, horizontal ? XmHORIZONTAL : XmVERTICAL},
                               {XmNwidth, horizontal ? 204 : 15},
                               {XmNheight, horizontal ? 15 : 204},
                               {XmNprocessingDirection, direction},
                               {XmNmaximum, 170},
                               {XmNvalue, 55},
                               {XmNtraversalOn, True},
                               {XmNinitialDelay, never}},
                              k ? svScrollBarWidgetClass : xmScrollBarWidgetClass);
            BarLog own;
            for (const char *list : bar_lists)
                own.Add(bar, list);
            Show();
            XmProcessTraversal(bar, XmTRAVERSE_CURRENT);
            MoveTo(bar, 1, 1);
            Random random(static_cast<uint64_t>(direction + 1));
            for (int i = 0; i < 60; i++) {
                auto point = [&] {
                    auto along = static_cast<short>(random.Between(2, 201));
                    along = static_cast<short>(along + (along == SliderEnd(bar, horizontal)));
                    return horizontal ? XPoint{along, 7} : XPoint{7, along};
                };
                const XPoint from = point(), to = point();
                const KeySym keys[] = {XK_Up,   XK_Down, XK_Left, XK_Right,
                                       XK_Home, XK_End,  XK_Next, XK_Prior};
                const unsigned modifiers = random.Chance(0.2) ? ControlMask : 0;
                if (random.Chance(0.3))
                    Key(keys[random.Between(0, 7)], modifiers);
                else if (random.Chance(0.5))
                    Click(bar, from.x, from.y, Button1, modifiers);
                else
                    Drag(bar, from, to, random.Chance(0.5) ? Button1 : Button2);
            }
            for (const auto &entry : own.entries())
                seen[k].push_back(
                    {entry.list, entry.data.reason, entry.data.value, entry.data.pixel});
            XtDestroyWidget(bar);
        }
        EXPECT_EQ(seen[0], seen[1]) << direction;
        EXPECT_GT(seen[1].size(), 30u);
    }
}

} // namespace
} // namespace corvidlmw::test
