/* What a bar makes of its resources, at creation and later, and what a client reads. */

#include <tests/scrollbar/ScrollBarTest.h>

#include <Xm/NavigatorT.h>
#include <Xm/ScrolledW.h>
#include <Xm/TraitP.h>

#include <climits>
#include <cstring>

namespace corvidlmw::test {
namespace {

class ValuesTest : public ScrollBarTest {
protected:
    // minimum, maximum, sliderSize, value, increment, pageIncrement, initialDelay, repeatDelay
    static std::vector<int> Numbers(Widget bar) {
        std::vector<int> numbers;
        for (const char *name : {"minimum", "maximum", "sliderSize", "value", "increment",
                                 "pageIncrement", "initialDelay", "repeatDelay"})
            numbers.push_back(Get(bar, name));
        return numbers;
    }
    static int Direction(Widget bar) { return PartOf(bar).processing_direction; }
};

struct Repaired {
    Settings settings;
    std::vector<int> numbers;
    std::vector<std::string> warnings;
    int direction = XmMAX_ON_BOTTOM;
};

TEST_F(ValuesTest, CreationRepairsToConstants) {
    const Repaired cases[] = {
        {{}, {0, 100, 10, 0, 1, 10, 250, 50}, {}},
        {{{XmNminimum, 7}, {XmNmaximum, 9}}, {7, 9, 1, 7, 1, 10, 250, 50}, {}},
        {{{XmNminimum, 5}, {XmNmaximum, 5}, {XmNvalue, 40}},
         {0, 100, 10, 40, 1, 10, 250, 50},
         {"minimum"}},
        {{{XmNminimum, static_cast<XtArgVal>(-2)}, {XmNmaximum, INT_MAX}},
         {0, 100, 10, 0, 1, 10, 250, 50},
         {"minimum"}},
        {{{XmNsliderSize, 0}, {XmNvalue, 100}}, {0, 100, 1, 0, 1, 10, 250, 50}, {"size", "value"}},
        {{{XmNsliderSize, 500}}, {0, 100, 100, 0, 1, 10, 250, 50}, {"size"}},
        {{{XmNvalue, static_cast<XtArgVal>(-1)}}, {0, 100, 10, 0, 1, 10, 250, 50}, {"value"}},
        {{{XmNincrement, 0}, {XmNpageIncrement, 0}, {XmNinitialDelay, 0}, {XmNrepeatDelay, 0}},
         {0, 100, 10, 0, 1, 10, 250, 75},
         {"increment", "increment", "delay", "delay"}},
        {{{XmNorientation, 9}, {XmNprocessingDirection, XmMAX_ON_LEFT}},
         {0, 100, 10, 0, 1, 10, 250, 50},
         {"Orientation", "processing direction"}},
        {{{XmNorientation, XmHORIZONTAL}, {XmNprocessingDirection, XmMAX_ON_TOP}},
         {0, 100, 10, 0, 1, 10, 250, 50},
         {"processing direction"},
         XmMAX_ON_RIGHT},
    };
    for (const Repaired &one : cases) {
        Widget bar = Make(one.settings);
        EXPECT_EQ(Numbers(bar), one.numbers);
        EXPECT_EQ(Direction(bar), one.direction);
        ExpectWarnings(one.warnings);
        XtDestroyWidget(bar);
    }
}

TEST_F(ValuesTest, ChangesAreRepairedFromTheOldValues) {
    const Settings start = {{XmNvalue, 30}, {XmNincrement, 3}, {XmNrepeatDelay, 60}};
    const Repaired cases[] = {
        {{{XmNminimum, 100}}, {0, 100, 10, 30, 3, 10, 250, 60}, {"minimum"}},
        {{{XmNminimum, static_cast<XtArgVal>(INT_MIN)}},
         {0, 100, 10, 30, 3, 10, 250, 60},
         {"minimum"}},
        {{{XmNsliderSize, 500}}, {0, 100, 10, 30, 3, 10, 250, 60}, {"size"}},
        {{{XmNsliderSize, 0}, {XmNmaximum, 5}}, {0, 5, 5, 0, 3, 10, 250, 60}, {"size", "value"}},
        {{{XmNvalue, 95}}, {0, 100, 10, 90, 3, 10, 250, 60}, {"value"}},
        {{{XmNminimum, 50}}, {50, 100, 10, 50, 3, 10, 250, 60}, {"value"}},
        {{{XmNincrement, 0}, {XmNrepeatDelay, static_cast<XtArgVal>(-4)}},
         {0, 100, 10, 30, 3, 10, 250, 60},
         {"increment", "delay"}},
        {{{XmNorientation, 7}}, {0, 100, 10, 30, 3, 10, 250, 60}, {"Orientation"}},
        {{{XmNorientation, XmHORIZONTAL}}, {0, 100, 10, 30, 3, 10, 250, 60}, {}, XmMAX_ON_RIGHT},
        {{{XmNorientation, XmHORIZONTAL}, {XmNprocessingDirection, XmMAX_ON_TOP}},
         {0, 100, 10, 30, 3, 10, 250, 60},
         {"processing direction"},
         XmMAX_ON_RIGHT},
        {{{XmNprocessingDirection, 9}}, {0, 100, 10, 30, 3, 10, 250, 60}, {"processing direction"}},
    };
    for (const Repaired &one : cases) {
        Widget bar = Make(start);
        Set(bar, one.settings);
        EXPECT_EQ(Numbers(bar), one.numbers);
        EXPECT_EQ(Direction(bar), one.direction);
        ExpectWarnings(one.warnings);
        XtDestroyWidget(bar);
    }
}

TEST_F(ValuesTest, AnInvertedBarCountsFromTheOtherEndForItsClient) {
    Widget bar = Make({{XmNvalue, 30}, {XmNprocessingDirection, XmMAX_ON_TOP}});
    EXPECT_EQ(PartOf(bar).value, 60);
    EXPECT_EQ(Get(bar, XmNvalue), 30);
    Set(bar, {{XmNincrement, 2}}); // not the first change, either, may turn it round
    EXPECT_EQ(Get(bar, XmNvalue), 30);
    Set(bar, {{XmNvalue, 10}});
    EXPECT_EQ(PartOf(bar).value, 80);
    Set(bar, {{XmNprocessingDirection, XmMAX_ON_BOTTOM}});
    EXPECT_EQ(PartOf(bar).value, 10);
    EXPECT_EQ(Get(bar, XmNvalue), 10);
    Set(bar, {{XmNorientation, XmHORIZONTAL}, {XmNprocessingDirection, XmMAX_ON_LEFT}});
    EXPECT_EQ(PartOf(bar).value, 80);
    Set(bar, {{XmNorientation, XmVERTICAL}});
    EXPECT_EQ(Direction(bar), XmMAX_ON_TOP);
    EXPECT_EQ(Get(bar, XmNvalue), 10);
    Set(bar, {{XmNmaximum, 200}}); // the slider stays, and so the client's value does not
    EXPECT_EQ(PartOf(bar).value, 80);
    EXPECT_EQ(Get(bar, XmNvalue), 110);

    BarLog log;
    log.Add(bar, XmNvalueChangedCallback);
    SvScrollBarSetValues(bar, 150, 20, 0, 7, True);
    SvScrollBarSetValues(bar, 150, 20, 4, 0, True);
    SvScrollBarSetValues(bar, 0, 30, 0, 0, False);
    ASSERT_EQ(log.size(), 1u);
    EXPECT_EQ(log.back().data.value, 150);
    EXPECT_EQ(log.back().data.event, nullptr);
    int value = -1, size = -1, increment = -1, page = -1;
    SvScrollBarGetValues(bar, &value, &size, &increment, &page);
    EXPECT_EQ((std::vector<int>{value, size, increment, page}), (std::vector<int>{0, 30, 4, 7}));

    // Who watches all changes of the display sees these, too.
    int changes = 0;
    auto count = [](Widget, XtPointer seen, XtPointer) { ++*static_cast<int *>(seen); };
    XtAddCallback(XtHooksOfDisplay(display), XtNchangeHook, count, &changes);
    SvScrollBarSetValues(bar, 3, 30, 5, 0, True);
    EXPECT_GT(changes, 0);
    XtRemoveCallback(XtHooksOfDisplay(display), XtNchangeHook, count, &changes);
    EXPECT_EQ(Get(bar, XmNvalue), 3);
    EXPECT_EQ(Get(bar, XmNincrement), 5);
    EXPECT_EQ(log.size(), 2u);

    SvScrollBarGetValues(board, &value, nullptr, nullptr, nullptr);
    SvScrollBarSetValues(board, 5, 5, 5, 5, True);
    SvScrollBarRedisplay(board);
    _SvSetEtchedSlider(board);
    EXPECT_EQ(value, 0);
}

// Whatever a client sets, the bar ends with a value in a range, a slider in its trough, and an
// inverse of its value that is right; and each change ends.
TEST_F(ValuesTest, NoChangeLeavesTheBarOutOfRange) {
    Random random;
    Widget bar = Make();
    Show();
    const char *const names[] = {XmNvalue,      XmNminimum,       XmNmaximum,
                                 XmNsliderSize, XmNorientation,   XmNprocessingDirection,
                                 XmNincrement,  XmNpageIncrement, XmNshowArrows};
    for (int i = 0; i < 3000; i++) {
        Settings settings;
        for (const char *name : names) {
            const bool small = std::string(name) == XmNorientation ||
                               std::string(name) == XmNprocessingDirection ||
                               std::string(name) == XmNshowArrows;
            const int most = small ? 4 : random.Chance(0.2) ? INT_MAX : 300;
            if (random.Chance(0.3))
                settings.push_back({name, static_cast<XtArgVal>(random.Between(
                                              small || random.Chance(0.5) ? 0 : -most, most))});
        }
        Set(bar, settings);
        Complaints::Current().warnings.clear();
        const auto &part = PartOf(bar);
        ASSERT_LT(part.minimum, part.maximum);
        ASSERT_GE(part.slider_size, 1);
        ASSERT_LE(part.slider_size, part.maximum - part.minimum);
        ASSERT_GE(part.value, part.minimum);
        ASSERT_LE(part.value, part.maximum - part.slider_size);
        const bool inverted = part.processing_direction % 2 == 0;
        ASSERT_EQ(Get(bar, XmNvalue),
                  inverted ? static_cast<int>(std::int64_t{part.maximum} + part.minimum -
                                              part.value - part.slider_size)
                           : part.value);
        ASSERT_EQ(part.processing_direction / 2, part.orientation - 1);
    }
}

// ---- As the toolkit's bar -----------------------------------------------------------------------

TEST_F(ValuesTest, ItHasTheToolkitsSizesAndColours) {
    for (const int orientation : {XmVERTICAL, XmHORIZONTAL}) {
        Widget bars[2];
        for (int i = 0; i < 2; i++) {
            Arg orient = {Name(XmNorientation), orientation};
            bars[i] = i ? SvCreateScrollBar(board, Name("bar"), &orient, 1)
                        : XmCreateScrollBar(board, Name("bar"), &orient, 1);
        }
        EXPECT_TRUE(XmIsScrollBar(bars[1]));
        for (const char *name :
             {XmNbackground, XmNtroughColor, XmNtopShadowColor, XmNnavigationType, XmNtraversalOn,
              XmNshadowThickness, XmNwidth, XmNheight, XmNprocessingDirection}) {
            XtArgVal values[2] = {};
            for (int i = 0; i < 2; i++)
                XtVaGetValues(bars[i], name, &values[i], nullptr);
            EXPECT_EQ(values[0], values[1]) << name;
        }
    }
}

// A scrolled window warns of a bar that it cannot steer.
TEST_F(ValuesTest, AScrolledWindowTakesItForItsBar) {
    for (const int policy : {XmAPPLICATION_DEFINED, XmAUTOMATIC}) {
        Widget window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, board,
                                                XmNscrollingPolicy, policy, nullptr);
        Widget bar = SvCreateScrollBar(window, Name("bar"), nullptr, 0);
        XtManageChild(bar);
        EXPECT_EQ(XmIsScrollBar(bar), true);
        EXPECT_EQ(Get(bar, XmNtraversalOn) & 0xff, policy == XmAUTOMATIC);
        Widget taken = nullptr;
        XtVaGetValues(window, XmNverticalScrollBar, &taken, nullptr);
        EXPECT_EQ(taken == bar, policy == XmAPPLICATION_DEFINED);
        Pixel colours[2];
        XtVaSetValues(window, XmNbackground, 0x123456, nullptr);
        Widget later = SvCreateScrollBar(window, Name("later"), nullptr, 0);
        XtVaGetValues(later, XmNbackground, &colours[0], XmNforeground, &colours[1], nullptr);
        EXPECT_EQ(colours[0], 0x123456u);
        EXPECT_EQ(colours[1], 0x123456u);
    }
    EXPECT_EQ(Get(Make(), XmNtraversalOn) & 0xff, True) << "it sticks";
    Show();
}

// The numbers that a bar gives a scrolled window for x and y, of those that it is asked for.
std::vector<int> Navigated(Widget bar, Mask asked) {
    auto *trait = static_cast<XmNavigatorTrait>(XmeTraitGet(XtClass(bar), XmQTnavigator));
    XmNavigatorDataRec data;
    std::memset(&data, 0x55, sizeof data);
    data.valueMask = asked;
    trait->getValue(bar, &data);
    std::vector<int> numbers = {static_cast<int>(data.dimMask)};
    for (const TwoDIntRec &pair : {data.value, data.minimum, data.maximum, data.slider_size,
                                   data.increment, data.page_increment})
        numbers.insert(numbers.end(), {pair.x, pair.y});
    return numbers;
}

TEST_F(ValuesTest, ItIsNavigatedAsTheToolkitsBar) {
    std::vector<std::vector<int>> answers[2];
    for (int k = 0; k < 2; k++) {
        Widget bar = Make({{XmNorientation, XmHORIZONTAL}, {XmNprocessingDirection, XmMAX_ON_LEFT}},
                          k ? svScrollBarWidgetClass : xmScrollBarWidgetClass);
        auto *trait = static_cast<XmNavigatorTrait>(XmeTraitGet(XtClass(bar), XmQTnavigator));
        BarLog log;
        log.Add(bar, XmNvalueChangedCallback);
        int moves = 0;
        auto count = [](Widget, XtPointer seen, XtPointer) { ++*static_cast<int *>(seen); };
        trait->changeMoveCB(bar, count, &moves, True);
        XmNavigatorDataRec data{};
        auto set = [&](Mask values, Mask dimensions, Boolean notify) {
            data.valueMask = values;
            data.dimMask = dimensions;
            trait->setValue(bar, &data, notify);
            answers[k].push_back(Navigated(bar, 0x7f));
            answers[k].push_back({static_cast<int>(log.size()), moves});
        };
        set(NavDimMask, NavigDimensionX, True);
        data.value = {20, 30};
        data.maximum = {200, 300};
        data.slider_size = {7, 8};
        set(NavValue | NavMaximum | NavSliderSize, NavigDimensionX, True);
        data.value = {21, 31};
        set(NavValue, NavigDimensionY, True); // another bar's
        set(NavValue, NavigDimensionX | NavigDimensionY, False);
        data.increment = {4, 5};
        data.page_increment = {40, 50};
        set(NavIncrement | NavPageIncrement, NavigDimensionX, True);
        set(NavDimMask, NavigDimensionY, True);
        data.minimum = {2, 3};
        set(NavMinimum | NavValue, NavigDimensionY, True);
        answers[k].push_back(Navigated(bar, NavMaximum | NavIncrement));
        trait->changeMoveCB(bar, count, &moves, False);
        set(NavValue, NavigDimensionX | NavigDimensionY, True);
    }
    EXPECT_EQ(answers[0], answers[1]);
}

} // namespace
} // namespace corvidlmw::test
