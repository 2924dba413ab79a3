// How big a list is, which bars it shows, and what they say.
#include <tests/list/ListTest.h>

#include <Xm/Form.h>
#include <Xm/ScrollBar.h>

namespace {

using namespace corvidlmw::test;

struct Shown {
    int value = 0;
    int slider = 0;
    int maximum = 0;
    friend bool operator==(const Shown &, const Shown &) = default;
};

class ListSizingTest : public ListTest {
protected:
    static constexpr int pitch = 17;
    static constexpr int frame = 10; // highlight 3 and shadow 2, above and below

    Shown BarOf(Widget bar) {
        return {Get(bar, XmNvalue), Get(bar, XmNsliderSize), Get(bar, XmNmaximum)};
    }
    bool HasVertical(Widget list) {
        return PartOf(list).vertical_scroll_bar && XtIsManaged(PartOf(list).vertical_scroll_bar);
    }
    bool HasHorizontal(Widget list) {
        return PartOf(list).horizontal_scroll_bar &&
               XtIsManaged(PartOf(list).horizontal_scroll_bar);
    }
};

// ---- Preferred size -----------------------------------------------------------------------------------

TEST_F(ListSizingTest, IsAsBigAsItsRows) {
    Widget list = Make({"1234567890", "x"}, {{XmNvisibleItemCount, 4}});
    EXPECT_EQ(list->core.width, 60 + 2 * 7);
    EXPECT_EQ(list->core.height, 4 * pitch + frame);
    Widget empty = Make({}, {{XmNvisibleItemCount, 4}});
    EXPECT_EQ(empty->core.height, 4 * pitch - 4 + frame) << "the last gap is missing";
    EXPECT_EQ(empty->core.width, (4 * pitch - 4) / 2 + 14);
    Widget high = Make({"x"}, {{XmNheight, 100}});
    EXPECT_EQ(Get(high, XmNvisibleItemCount), 5);
    Widget flat = Make({"x"}, {{XmNheight, 1}, {XmNwidth, 1}});
    EXPECT_EQ(Get(flat, XmNvisibleItemCount), 1);
    Widget huge = Make({"x"}, {{XmNvisibleItemCount, 2'000'000'000}});
    EXPECT_EQ(huge->core.height, 32767);
    Set(huge, {{XmNlistSpacing, 65'530}});
    EXPECT_EQ(huge->core.height, 32767);
}

TEST_F(ListSizingTest, FollowsItsRowsAsItsPolicySays) {
    Strings longer({"a much longer row than before", "b"});
    for (const int policy : {XmVARIABLE, XmCONSTANT, XmRESIZE_IF_POSSIBLE}) {
        Widget list = Make({"short"}, {{XmNlistSizePolicy, policy}, {XmNvisibleItemCount, 3}});
        const int width = list->core.width;
        Set(list, longer.Items());
        if (policy == XmCONSTANT)
            EXPECT_EQ(list->core.width, width);
        else
            EXPECT_EQ(list->core.width, 29 * 6 + 14) << policy;
        EXPECT_EQ(list->core.height, 3 * pitch + frame) << policy;
    }
}

TEST_F(ListSizingTest, KnowsItsWidestRowWhileIconsAndIndentsChange) {
    Widget list =
        Make({"1234567890", "x"}, {{XmNshowIcons, True}, {XmNlistSizePolicy, XmCONSTANT}});
    LmListSetPositionIndent(list, 2, 200);
    LmListSetPositionIcon(list, 1, None);
    EXPECT_EQ(PartOf(list).max_width, 6 + 200 + 18);
    Set(list, {{XmNindentIcons, False}});
    LmListSetPositionIcon(list, 1, None);
    EXPECT_EQ(PartOf(list).max_width, 60 + 18);
}

// What the list made of the size that it asked for would leave the last rows out of reach.
TEST_F(ListSizingTest, ShowsWhatFitsWhereItsParentRefuses) {
    Widget form =
        XtVaCreateManagedWidget("form", xmFormWidgetClass, board, XmNresizePolicy, XmRESIZE_NONE,
                                XmNwidth, 200, XmNheight, 8 * pitch + frame, nullptr);
    board = form;
    Widget list = MakeScrolled(Numbered(30), {{XmNvisibleItemCount, 8}});
    for (const char *side : {XmNtopAttachment, XmNbottomAttachment})
        Set(XtParent(list), {{side, XmATTACH_FORM}});
    Show();
    Set(list, {{XmNvisibleItemCount, 20}});
    EXPECT_EQ(list->core.height, 8 * pitch + frame);
    EXPECT_EQ(Get(list, XmNvisibleItemCount), 8);
    EXPECT_EQ(BarOf(PartOf(list).vertical_scroll_bar), (Shown{0, 8, 30}));
}

// ---- Bars -----------------------------------------------------------------------------------------------

TEST_F(ListSizingTest, HasBarsInTheRightParentOnly) {
    Widget plain = Make(Numbered(20), {{XmNvisibleItemCount, 5}});
    EXPECT_EQ(PartOf(plain).scrolled_window, nullptr);
    EXPECT_EQ(PartOf(plain).vertical_scroll_bar, nullptr);
    Widget window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, board,
                                            XmNscrollingPolicy, XmAUTOMATIC, nullptr);
    Widget inside = XtVaCreateManagedWidget("list", lmListWidgetClass, window, nullptr);
    EXPECT_EQ(PartOf(inside).scrolled_window, nullptr);
    Widget variable = MakeScrolled(Numbered(2));
    EXPECT_TRUE(PartOf(variable).vertical_scroll_bar);
    EXPECT_EQ(PartOf(variable).horizontal_scroll_bar, nullptr);
}

TEST_F(ListSizingTest, ShowsTheVerticalBarAsNeeded) {
    Widget list = MakeScrolled(Numbered(5), {{XmNvisibleItemCount, 5}});
    Show();
    EXPECT_FALSE(HasVertical(list));
    Strings more(Numbered(20));
    Set(list, more.Items());
    EXPECT_TRUE(HasVertical(list));
    EXPECT_EQ(BarOf(PartOf(list).vertical_scroll_bar), (Shown{0, 5, 20}));
    EXPECT_EQ(Get(PartOf(list).vertical_scroll_bar, XmNpageIncrement), 4);
    Set(list, {{XmNtopItemPosition, 18}});
    EXPECT_EQ(BarOf(PartOf(list).vertical_scroll_bar), (Shown{17, 3, 20}))
        << "past the last full window";
    Set(list, {{XmNitemCount, 0}});
    EXPECT_FALSE(HasVertical(list));
}

TEST_F(ListSizingTest, AStaticListKeepsBothBars) {
    Widget list = MakeScrolled({}, {{XmNvisibleItemCount, 5},
                                    {XmNlistSizePolicy, XmCONSTANT},
                                    {XmNwidth, 100},
                                    {XmNscrollBarDisplayPolicy, XmSTATIC}});
    Show();
    EXPECT_TRUE(HasVertical(list) && HasHorizontal(list));
    EXPECT_EQ(BarOf(PartOf(list).vertical_scroll_bar), (Shown{0, 1, 1}));
    EXPECT_EQ(BarOf(PartOf(list).horizontal_scroll_bar), (Shown{0, 1, 1}));
    Strings wide({std::string(100, 'x'), "y"});
    Set(list, wide.Items());
    const Shown bar = BarOf(PartOf(list).horizontal_scroll_bar);
    EXPECT_EQ(bar, (Shown{0, list->core.width, 614}));
    // The wide row goes while the list is scrolled to its end.
    Click(PartOf(list).horizontal_scroll_bar, PartOf(list).horizontal_scroll_bar->core.width - 5,
          6);
    EXPECT_EQ(PartOf(list).x_origin, 10);
    Set(list, {{XmNitems, reinterpret_cast<XtArgVal>(Get<XmString *>(list, XmNitems) + 1)},
               {XmNitemCount, 1}});
    EXPECT_EQ(PartOf(list).x_origin, 0);
    EXPECT_EQ(PartOf(list).horizontal_extent, PartOf(list).horizontal_maximum);
}

// A vertical bar narrows the list, and a horizontal one leaves fewer rows in sight.
TEST_F(ListSizingTest, OneBarCanBringTheOther) {
    Widget list = MakeScrolled(Numbered(4, std::string(14, 'x')),
                               {{XmNlistSizePolicy, XmCONSTANT}, {XmNvisibleItemCount, 4}});
    Widget window = XtParent(list);
    Show();
    EXPECT_FALSE(HasVertical(list) || HasHorizontal(list));
    XtVaSetValues(window, XmNwidth, window->core.width - 20, nullptr);
    Pump();
    EXPECT_TRUE(HasHorizontal(list));
    EXPECT_TRUE(HasVertical(list));
    EXPECT_EQ(BarOf(PartOf(list).vertical_scroll_bar).slider, Get(list, XmNvisibleItemCount));
    XtVaSetValues(window, XmNwidth, 400, XmNheight, 300, nullptr);
    Pump();
    EXPECT_FALSE(HasVertical(list) || HasHorizontal(list));
}

TEST_F(ListSizingTest, PullsTheTopBackWhenItGrows) {
    Widget list = Make(Numbered(20), {{XmNvisibleItemCount, 5}, {XmNtopItemPosition, 16}});
    Show();
    XtResizeWidget(list, 100, 10 * pitch + frame, 0);
    EXPECT_EQ(Get(list, XmNvisibleItemCount), 10);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 11);
    XtResizeWidget(list, 100, 30 * pitch + frame, 0);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 1);
}

// ---- Scrolling --------------------------------------------------------------------------------------------

TEST_F(ListSizingTest, ScrollsByItsBars) {
    Widget list =
        MakeScrolled(Numbered(100'000, std::string(30, 'w')),
                     {{XmNvisibleItemCount, 5}, {XmNlistSizePolicy, XmCONSTANT}, {XmNwidth, 120}});
    Show();
    Widget vertical = PartOf(list).vertical_scroll_bar;
    Widget horizontal = PartOf(list).horizontal_scroll_bar;
    ASSERT_TRUE(HasVertical(list) && HasHorizontal(list));
    const int rows = Get(list, XmNvisibleItemCount);
    Click(vertical, 7, vertical->core.height - 6);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 2);
    Click(horizontal, horizontal->core.width - 6, 6);
    EXPECT_EQ(PartOf(list).x_origin, 10);
    Click(vertical, 7, vertical->core.height - 6, Button1, ControlMask);
    EXPECT_EQ(Get(list, XmNtopItemPosition), 100'000 - rows + 1) << "the end";
    RequestCounter counter(display);
    Recorder recorder;
    Click(vertical, 7, 6);
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_EQ(static_cast<int>(texts.size()), rows);
    EXPECT_TRUE(texts[0].text.ends_with("w" + std::to_string(100'000 - rows - 1)));
    EXPECT_EQ(texts[0].numbers[0], 7 - 10);
}

TEST_F(ListSizingTest, ShowsItsRowsWhereTheBarIsWhenTheWidestGoes) {
    Widget list = MakeScrolled({"a short one", "another", std::string(40, 'w')},
                               {{XmNlistSizePolicy, XmCONSTANT},
                                {XmNscrollBarDisplayPolicy, XmSTATIC},
                                {XmNvisibleItemCount, 2},
                                {XmNwidth, 100}});
    Show();
    Widget bar = PartOf(list).horizontal_scroll_bar;
    Click(bar, bar->core.width - 6, 6);
    Recorder recorder;
    LmListDeletePos(list, 3);
    Pump();
    EXPECT_EQ(PartOf(list).x_origin, 0);
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_FALSE(texts.empty());
    EXPECT_EQ(texts.back().numbers[0], 7);
}

// The place is kept in 16 bits.
TEST_F(ListSizingTest, ScrollsAsFarAsItCountsSideways) {
    Widget list = MakeScrolled({std::string(10'000, 'w')},
                               {{XmNlistSizePolicy, XmCONSTANT}, {XmNwidth, 120}});
    Show();
    Widget bar = PartOf(list).horizontal_scroll_bar;
    Click(bar, bar->core.width - 6, 6, Button1, ControlMask);
    EXPECT_EQ(PartOf(list).x_origin, 32767);
}

// What a change leaves as it was is not said again.
TEST_F(ListSizingTest, TellsItsBarsOnlyNews) {
    Widget list = MakeScrolled(Numbered(50), {{XmNvisibleItemCount, 5}});
    Show();
    Recorder recorder;
    LmListSetPositionIcon(list, 50, None);
    Pump();
    EXPECT_TRUE(recorder.On(XtWindow(PartOf(list).vertical_scroll_bar)).empty());
    EXPECT_TRUE(recorder.On(XtWindow(list)).empty());
}

// A client brings a bar of another class along, and takes it away again.
TEST_F(ListSizingTest, WorksWithABarOfTheClients) {
    Widget list = MakeScrolled(Numbered(50), {{XmNvisibleItemCount, 5}});
    Show();
    Widget bar = XtVaCreateManagedWidget("bar", xmScrollBarWidgetClass, XtParent(list), nullptr);
    Set(list, {{XmNverticalScrollBar, reinterpret_cast<XtArgVal>(bar)}, {XmNtopItemPosition, 7}});
    EXPECT_EQ(BarOf(bar), (Shown{6, 5, 50}));
    XtDestroyWidget(bar);
    Pump();
    EXPECT_EQ(PartOf(list).vertical_scroll_bar, nullptr);
    Set(list, {{XmNtopItemPosition, 9}});
    Pump();
}

} // namespace
