/* Grooves and drop shadows: which rectangles are drawn, and what they look like. */

#include <corvidlmw/common/WidgetUtils.h>
#include <tests/support/Harness.h>

#include <Xm/BulletinB.h>
#include <Xm/DrawP.h>
#include <Xm/LabelG.h>

#include <set>
#include <utility>

namespace corvidlmw::test {
namespace {

using Numbers = std::vector<long>;

class ShadowTest : public DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNbackground,
                                        grey, nullptr);
        Show();
        light = MakeGC(0xffffff);
        dark = MakeGC(0x303030);
    }

    void TearDown() override {
        XFreeGC(display, light);
        XFreeGC(display, dark);
        DisplayTest::TearDown();
    }

    GC MakeGC(unsigned long color) {
        XGCValues values{};
        values.foreground = color;
        return XCreateGC(display, XtWindow(board), GCForeground, &values);
    }

    static constexpr Pixel grey = 0x909090;
    Widget board = nullptr;
    GC light = nullptr;
    GC dark = nullptr;
};

// The rings by hand: a pixel of ring d is above and left, or below and right, of the diagonal that
// leaves out the far corners.
TEST_F(ShadowTest, AGrooveIsTwoRingsOfOppositeLightInTwoRequests) {
    Recorder recorder;
    RequestCounter counter(display);
    _XmDrawEtchedShadow(display, XtWindow(board), light, dark, 2, 10, 20, 30, 15);
    EXPECT_EQ(counter.requests(), 2);
    const auto calls = recorder.Drawing(XtWindow(board));
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].gc, dark);
    EXPECT_EQ(calls[0].numbers,
              (Numbers{10, 34, 30, 1, 39, 20, 1, 15, 11, 21, 27, 1, 11, 21, 1, 12}));
    EXPECT_EQ(calls[1].gc, light);
    EXPECT_EQ(calls[1].numbers,
              (Numbers{10, 20, 29, 1, 10, 20, 1, 14, 11, 33, 28, 1, 38, 21, 1, 13}));
}

TEST_F(ShadowTest, AGrooveIsAsWideAsThereIsRoomForAndEven) {
    const struct {
        Dimension size, width, height;
        int e;
    } cases[] = {{0, 40, 40, 0}, {1, 40, 40, 0},   {3, 40, 40, 2}, {10, 40, 6, 2},
                 {10, 40, 3, 0}, {40, 40, 30, 14}, {2, 40, 40, 2}, {60, 300, 300, 60},
                 {9, 0, 40, 0},  {5, 5, 5, 2}};
    for (const auto &one : cases) {
        SCOPED_TRACE(one.size);
        Recorder recorder;
        _XmDrawEtchedShadow(display, XtWindow(board), light, dark, one.size, 0, 0, one.width,
                            one.height);
        const auto calls = recorder.Drawing(XtWindow(board));
        ASSERT_EQ(calls.size(), one.e > 0 ? 2u : 0u);
        for (const Call &call : calls)
            EXPECT_EQ(call.numbers.size(), 8u * static_cast<unsigned>(one.e));
    }
}

// With the GCs the other way round it is what the toolkit etches, pixel for pixel.
TEST_F(ShadowTest, AGrooveLooksAsTheToolkitsDoes) {
    Random random;
    for (int i = 0; i < 60; ++i) {
        const auto width = static_cast<Dimension>(random.Between(4, 60));
        const auto height = static_cast<Dimension>(random.Between(4, 60));
        const auto size = static_cast<Dimension>(random.Between(2, std::min(width, height) / 2));
        SCOPED_TRACE(std::to_string(size) + " in " + std::to_string(width) + "x" +
                     std::to_string(height));
        XClearWindow(display, XtWindow(board));
        _XmDrawEtchedShadow(display, XtWindow(board), light, dark, size, 10, 10, width, height);
        const Picture ours = Picture::Of(board, {0, 0, 80, 80});
        XClearWindow(display, XtWindow(board));
        XmeDrawShadows(display, XtWindow(board), light, dark, 10, 10, width, height, size,
                       XmSHADOW_ETCHED_OUT);
        EXPECT_TRUE(SamePicture(Picture::Of(board, {0, 0, 80, 80}), ours));
    }
}

TEST_F(ShadowTest, ADropShadowLiesAtTheRightAndBelow) {
    XFillRectangle(display, XtWindow(board), light, 0, 0, 100, 100);
    _XmDrawDropShadow(display, XtWindow(board), dark, 4, 10, 10, 50, 30);
    const Picture shown = Picture::Of(board, {0, 0, 100, 100});
    EXPECT_EQ(shown.Box(0x303030), (XRectangle{14, 14, 46, 26}));
    EXPECT_EQ(shown.Count(0x303030), 4 * 26 + 46 * 4 - 16);
    EXPECT_EQ(shown.Count(grey), 2 * 16) << "the corners that the shadow leaves out";
    EXPECT_EQ(shown.At(59, 13), grey);
    EXPECT_EQ(shown.At(13, 39), grey);
    EXPECT_EQ(shown.At(20, 20), 0xffffffu);
}

// A width of 0 would clear to the edge of the window.
TEST_F(ShadowTest, ADropShadowOfNothingIsNothing) {
    Recorder recorder;
    _XmDrawDropShadow(display, XtWindow(board), dark, 0, 10, 10, 50, 30);
    _XmDrawDropShadow(display, XtWindow(board), dark, 4, 10, 10, 0, 30);
    _XmDrawDropShadow(display, XtWindow(board), dark, 4, 10, 10, 50, 0);
    EXPECT_TRUE(recorder.Drawing(XtWindow(board)).empty());
    _XmDrawDropShadow(display, XtWindow(board), dark, 60, 10, 10, 50, 30);
    for (const Call &call : recorder.Calls("XFillRectangle"))
        EXPECT_EQ(call.numbers[call.numbers[2] == 60 ? 3 : 2], 0) << call;
    _XmDrawGadgetShadowType(nullptr);
    _XmDrawGadgetShadowType(board);
    Widget label = XtVaCreateManagedWidget("label", xmLabelGadgetClass, board, nullptr);
    Recorder later;
    _XmDrawGadgetShadowType(label);
    EXPECT_TRUE(later.Drawing(XtWindow(board)).empty());
}

} // namespace
} // namespace corvidlmw::test
