#include <tests/support/Harness.h>

#include <X11/Xlib-xcb.h>
#include <X11/Xutil.h>
#include <Xm/DrawingA.h>
#include <Xm/Label.h>

namespace {

using namespace corvidlmw::test;

class RecorderTest : public DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, shell, nullptr);
    }

    Widget area = nullptr;
};

TEST_F(RecorderTest, ADrawingIsRecordedWithItsColourAndClip) {
    Show();
    const Window window = XtWindow(area);
    GC gc = XCreateGC(display, window, 0, nullptr);
    XRectangle box{10, 20, 30, 40};
    Region region = XCreateRegion();
    XUnionRectWithRegion(&box, region, region);
    XPoint relative[]{{1, 2}, {3, 4}, {-1, 5}};

    Recorder recorder;
    XSetForeground(display, gc, 0x123456);
    XSetRegion(display, gc, region);
    XDrawLine(display, window, gc, 1, 2, -3, 4);
    XSetClipMask(display, gc, None);
    XDrawLines(display, window, gc, relative, 3, CoordModePrevious);
    recorder.Stop();
    XClearWindow(display, window);

    const auto lines = recorder.Calls("XDrawLine", window);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].numbers, (std::vector<long>{1, 2, -3, 4}));
    EXPECT_EQ(lines[0].foreground, 0x123456u);
    EXPECT_EQ(lines[0].clip_box, box);
    EXPECT_EQ(lines[0].gc, gc);
    EXPECT_FALSE(lines[0].FromToolkit()) << lines[0];
    const auto drawing = recorder.Drawing(window);
    ASSERT_EQ(drawing.size(), 2u);
    EXPECT_EQ(drawing[1].numbers, (std::vector<long>{1, 2, 4, 6, 3, 11}));
    EXPECT_FALSE(drawing[1].clip_box);
    XDestroyRegion(region);
    XFreeGC(display, gc);
}

TEST_F(RecorderTest, TheToolkitsOwnTextIsRecordedWithItsColour) {
    SetResource("*renderTable: plain");
    SetResource("*plain.fontType: FONT_IS_XFT");
    SetResource("*plain.fontName: DejaVu Sans");
    SetResource("*plain.fontSize: 10");
    SetResource("*foreground: #0000ff");
    Recorder recorder;
    Widget label = XtVaCreateManagedWidget("words", xmLabelWidgetClass, area, nullptr);
    Show();

    const auto drawing = recorder.Drawing(XtWindow(label));
    const auto text = std::find_if(drawing.begin(), drawing.end(), [](const Call &call) {
        return call.function.starts_with("XftDrawString");
    });
    ASSERT_NE(text, drawing.end());
    EXPECT_EQ(text->text, "words");
    EXPECT_EQ(text->foreground, 0x0000ffu);
    EXPECT_TRUE(text->FromToolkit()) << *text;
    const auto compound = recorder.Calls("XmStringDraw", XtWindow(label));
    ASSERT_FALSE(compound.empty());
    EXPECT_EQ(compound[0].text, "words");
    EXPECT_TRUE(recorder.Calls("XSync").empty()) << "the harness's own calls are left out";
}

TEST_F(RecorderTest, RequestsAndRoundTripsAreCountedWithoutTheHarnesss) {
    Show();
    RequestCounter counter(display);
    Pump();
    MoveTo(area, 5, 5);
    Picture::Of(area);
    EXPECT_EQ(counter.requests(), 0);
    EXPECT_EQ(counter.round_trips(), 0);

    XClearWindow(display, XtWindow(area));
    XWindowAttributes attributes;
    XGetWindowAttributes(display, XtWindow(area), &attributes);
    // Xlib asks for the attributes by two requests and waits once.
    EXPECT_EQ(counter.requests(), 3);
    EXPECT_EQ(counter.round_trips(), 1);

    counter.Restart();
    xcb_connection_t *connection = XGetXCBConnection(display);
    const auto first = xcb_get_geometry(connection, static_cast<xcb_window_t>(XtWindow(area)));
    const auto second = xcb_get_geometry(connection, static_cast<xcb_window_t>(XtWindow(shell)));
    free(xcb_get_geometry_reply(connection, first, nullptr));
    free(xcb_get_geometry_reply(connection, second, nullptr));
    EXPECT_EQ(counter.requests(), 2);
    EXPECT_EQ(counter.replies(), 2);
    EXPECT_EQ(counter.round_trips(), 1);
}

TEST_F(RecorderTest, ServerResourcesShowWhatIsNotGivenBack) {
    Show();
    const auto before = ServerResources::Of(display);
    EXPECT_GE(before.windows(), 2);

    const Pixmap pixmap = XCreatePixmap(display, XtWindow(area), 4, 4, 24);
    GC gc = XCreateGC(display, XtWindow(area), 0, nullptr);
    const auto during = ServerResources::Of(display);
    EXPECT_EQ(during.pixmaps(), before.pixmaps() + 1);
    EXPECT_EQ(during.gcs(), before.gcs() + 1);
    XFreeGC(display, gc);
    XFreePixmap(display, pixmap);
    EXPECT_EQ(ServerResources::Of(display), before);
}

} // namespace
