// What the tests of the room share: bars on a bulletin board, and what their records hold.
#pragma once

#include <corvidlmw/scrollbar/SvScrollBarP.h>
#include <tests/support/Harness.h>

#include <Xm/BulletinB.h>
#include <Xm/ScrollBar.h>

#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using BarLog = CallbackLog<XmScrollBarCallbackStruct>;
using Settings = std::vector<std::pair<const char *, XtArgVal>>;

constexpr const char *bar_lists[] = {
    "incrementCallback", "decrementCallback", "pageIncrementCallback", "pageDecrementCallback",
    "toTopCallback",     "toBottomCallback",  "dragCallback",          "valueChangedCallback"};

inline SvScrollBarPart &PartOf(Widget bar) {
    return reinterpret_cast<SvScrollBarWidget>(bar)->scroll_bar;
}

inline void Set(Widget w, const Settings &settings) {
    std::vector<Arg> args;
    for (const auto &[name, value] : settings)
        args.push_back({Name(name), value});
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
}

inline int Get(Widget w, const char *resource) {
    int value = 0;
    XtVaGetValues(w, resource, &value, nullptr);
    return value;
}

inline XRectangle SliderOf(Widget bar) {
    const auto &part = PartOf(bar);
    return {part.slider_x, part.slider_y, static_cast<unsigned short>(part.slider_width),
            static_cast<unsigned short>(part.slider_height)};
}

class ScrollBarTest : public DisplayTest {
protected:
    ScrollBarTest() : DisplayTest(640, 480) {}

    void SetUp() override {
        DisplayTest::SetUp();
        board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNmarginWidth,
                                        0, XmNmarginHeight, 0, nullptr);
    }

    // 15 by 204 with arrows of 11 and a trough of 176 pixels from 14 on, unless told otherwise.
    Widget Make(Settings settings = {}, WidgetClass widget_class = svScrollBarWidgetClass) {
        settings.insert(settings.begin(),
                        {{XmNx, 10}, {XmNy, 10}, {XmNwidth, 15}, {XmNheight, 204}});
        std::vector<Arg> args;
        for (const auto &[name, value] : settings)
            args.push_back({Name(name), value});
        Widget bar = XtCreateManagedWidget("bar", widget_class, board, args.data(),
                                           static_cast<Cardinal>(args.size()));
        return bar;
    }

    void ExpectWarnings(const std::vector<std::string> &parts) {
        EXPECT_EQ(warnings().size(), parts.size());
        for (const std::string &part : parts)
            ExpectWarning(part);
    }

    Widget board = nullptr;
};

} // namespace corvidlmw::test
