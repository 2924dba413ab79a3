/* What the gadget draws. */

#include <tests/gadget/GadgetTest.h>

#include <Xm/DrawP.h>

namespace corvidlmw::test {
namespace {

using Numbers = std::vector<long>;

class GadgetDrawingTest : public GadgetTest {
protected:
    std::vector<Call> Redraw(Widget gadget) {
        Recorder recorder;
        XtClass(gadget)->core_class.expose(gadget, nullptr, nullptr);
        return recorder.Drawing(XtWindow(board));
    }

    int InkOfPicture(Widget gadget) {
        const auto &part = PartOf(gadget);
        return Picture::Of(gadget).Count(ink, {part.pixmap_x, part.pixmap_y, 8, 8});
    }

    XmRenderTable XftFont() {
        static XmRenderTable table = nullptr; // the toolkit leaks a part of each that is freed
        if (!table) {
            Arg args[] = {{Name(XmNfontType), XmFONT_IS_XFT},
                          {Name(XmNfontName), reinterpret_cast<XtArgVal>("DejaVu Sans")},
                          {Name(XmNfontSize), 12}};
            XmRendition rendition =
                XmRenditionCreate(board, Name(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args));
            table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_REPLACE);
            XmRenditionFree(rendition);
        }
        return table;
    }
};

TEST_F(GadgetDrawingTest, DrawsGroundTextPictureShadowAndArrowInTurn) {
    const Pixmap picture = MakePicture(16, 16);
    Widget gadget = Make({{XmNlabelPixmap, picture}, {XmNshowArrow, True}});
    Show();
    const auto calls = Redraw(gadget);
    std::vector<std::string> names;
    for (const Call &call : calls)
        names.push_back(call.function);
    EXPECT_EQ(names.front(), "XFillRectangle");
    EXPECT_EQ(calls.front().numbers, (Numbers{10, 10, gadget->core.width, gadget->core.height}));
    EXPECT_EQ(calls.front().foreground, grey);
    ASSERT_EQ(names.size(), 6u) << ::testing::PrintToString(names);
    EXPECT_EQ(names[2], "XCopyArea");
    EXPECT_EQ(calls[2].numbers,
              (Numbers{static_cast<long>(picture), 0, 0, 16, 16, 10 + 5 + 28 + 4, 14}));
    EXPECT_EQ(names[3], "XFillRectangles");
    EXPECT_EQ(names[5], "XCopyArea");
    const int arrow = PartOf(gadget).arrow_width;
    EXPECT_EQ(calls[5].numbers,
              (Numbers{static_cast<long>(PartOf(gadget).arrow_pixmap), 0, 0, arrow, arrow,
                       10 + gadget->core.width - arrow - 4, 10 + (23 - arrow) / 2}));
    const Picture shown = Picture::Of(gadget);
    EXPECT_EQ(shown.Box(green), (XRectangle{37, 4, 8, 16}));
    EXPECT_EQ(shown.Box(red), (XRectangle{45, 4, 8, 16}));
    const auto ink_box = shown.Box(ink);
    ASSERT_TRUE(ink_box);
    EXPECT_GE(ink_box->x, 5);
    EXPECT_LE(ink_box->x + ink_box->width, 5 + 28);
    EXPECT_GT(shown.Count(PartOf(gadget).cache->bottom_shadow_color, {50, 3, 40, 17}), 3)
        << "the arrow";
    XFreePixmap(display, picture);
}

TEST_F(GadgetDrawingTest, ItsShadowLooksAsTheToolkitsOfThatType) {
    Show();
    for (const int type :
         std::vector<int>{XmSHADOW_ETCHED_IN, XmSHADOW_ETCHED_OUT, XmSHADOW_IN, XmSHADOW_OUT, 0, 9})
        for (const int thickness : {0, 1, 2, 3, 4, 5, 20}) {
            SCOPED_TRACE(std::to_string(type) + " of " + std::to_string(thickness));
            Widget gadget = Make({{XmNshadowType, type},
                                  {XmNshadowThickness, thickness},
                                  {XmNhighlightThickness, 2},
                                  {XmNlabelString, Label("")},
                                  {XmNwidth, 50},
                                  {XmNheight, 31}});
            Pump();
            const Picture shown = Picture::Of(gadget);
            XClearWindow(display, XtWindow(board));
            if (thickness > 0 && type >= XmSHADOW_ETCHED_IN && type <= XmSHADOW_OUT)
                XmeDrawShadows(display, XtWindow(board), PartOf(gadget).top_shadow_gc,
                               PartOf(gadget).bottom_shadow_gc, 12, 12, 46, 27,
                               static_cast<Dimension>(thickness), static_cast<unsigned>(type));
            EXPECT_TRUE(SamePicture(Picture::Of(gadget), shown));
            XtDestroyWidget(gadget);
        }
}

TEST_F(GadgetDrawingTest, ADropShadowLiesInsideOfTheHighlight) {
    Widget gadget = Make({{XmNshadowType, XmSHADOW_DROP},
                          {XmNshadowThickness, 4},
                          {XmNhighlightThickness, 2},
                          {XmNwidth, 60},
                          {XmNheight, 40}});
    Show();
    const Pixel dark = PartOf(gadget).cache->bottom_shadow_color;
    EXPECT_EQ(Picture::Of(gadget).Box(dark), (XRectangle{2 + 4, 2 + 4, 60 - 4 - 4, 40 - 4 - 4}));
}

TEST_F(GadgetDrawingTest, AnInsensitiveOneIsDimAndShowsItsOtherPicture) {
    const Pixmap picture = MakePicture(16, 16);
    const Pixmap other = MakePicture(16, 16);
    XGCValues values{};
    values.foreground = 0x123456;
    GC gc = XCreateGC(display, other, GCForeground, &values);
    XFillRectangle(display, other, gc, 0, 0, 16, 16);
    XFreeGC(display, gc);
    Widget gadget = Make({{XmNlabelPixmap, picture}});
    Show();
    const int sharp = Picture::Of(gadget).Count(ink);
    XtSetSensitive(gadget, False);
    Pump();
    Picture shown = Picture::Of(gadget);
    EXPECT_EQ(shown.Count(ink), 0) << "the tile is in the parent's colours";
    EXPECT_GT(shown.Count(0), sharp / 4);
    EXPECT_LT(shown.Count(0), sharp * 3 / 4);
    EXPECT_EQ(shown.Count(red), 0);
    Set(gadget, {{XmNlabelInsensitivePixmap, other}});
    XtSetSensitive(gadget, True);
    XtSetSensitive(gadget, False);
    Pump();
    EXPECT_EQ(Picture::Of(gadget).Count(0x123456), 256);
    XtSetSensitive(board, False);
    XtSetSensitive(gadget, True);
    Pump();
    EXPECT_EQ(Picture::Of(gadget).Count(0x123456), 256);
    Set(gadget, {{XmNlabelPixmap, None}});
    Pump();
    EXPECT_EQ(Picture::Of(gadget).Count(0x123456), 0);
    XFreePixmap(display, picture);
    XFreePixmap(display, other);
}

TEST_F(GadgetDrawingTest, ABitmapIsDrawnInTheGadgetsColours) {
    const char bits[] = "\xff\x81\x81\x81\x81\x81\x81\xff";
    const Pixmap bitmap =
        XCreateBitmapFromData(display, RootWindowOfScreen(XtScreen(shell)), bits, 8, 8);
    Widget told = Make({{XmNlabelPixmap, bitmap}, {XmNlabelBitmap, bitmap}, {XmNheight, 30}});
    Show();
    EXPECT_EQ(InkOfPicture(told), 28);
    XtDestroyWidget(told);
    Widget untold = Make({{XmNlabelPixmap, bitmap}, {XmNheight, 30}});
    Pump();
    EXPECT_EQ(InkOfPicture(untold), 28) << "the server would refuse it as an area";
    // Of another depth, as neither.
    const Pixmap odd = XCreatePixmap(display, bitmap, 8, 8, 8);
    Set(untold, {{XmNlabelPixmap, odd}});
    Pump();
    EXPECT_EQ(InkOfPicture(untold), 0);
    XFreePixmap(display, bitmap);
    XFreePixmap(display, odd);
}

TEST_F(GadgetDrawingTest, WhatHasNoRoomIsCutOffInsideOfTheShadow) {
    const Label label("WWWWWWWWWWWWWWWW");
    for (const bool xft : {false, true}) {
        SCOPED_TRACE(xft);
        Settings settings = {{XmNlabelString, label}, {XmNwidth, 40}, {XmNshadowThickness, 3}};
        if (xft)
            settings.push_back({XmNfontList, reinterpret_cast<XtArgVal>(XftFont())});
        Widget narrow = Make(settings);
        Show();
        EXPECT_LT(PartOf(narrow).text_x, 4);
        const Picture shown = Picture::Of(board);
        const Pixel dark = PartOf(narrow).cache->bottom_shadow_color;
        const Pixel light = PartOf(narrow).cache->top_shadow_color;
        for (int x = 0; x < shown.area().width; ++x)
            if (x < 10 + 4 || x >= 10 + 40 - 4)
                for (int y = 0; y < 10 + narrow->core.height; ++y) {
                    const Pixel pixel = shown.At(x, y);
                    ASSERT_TRUE(pixel == grey || pixel == dark || pixel == light) << x << ", " << y;
                }
        EXPECT_GT(shown.Count(ink), 15);
        // The clip does not stay on the GC, which others share.
        Widget other = Make({{XmNx, 300}, {XmNlabelString, Label("W")}});
        Pump();
        EXPECT_GT(Picture::Of(other).Count(ink), 10);
        XtDestroyWidget(narrow);
        XtDestroyWidget(other);
    }
}

TEST_F(GadgetDrawingTest, AntialiasedTextInUtf8OfSeveralLinesIsDrawnAndDimmed) {
    XmString text =
        XmStringGenerate(Name("Dvo\xc5\x99\xc3\xa1k\n\xce\xa9"), nullptr, XmCHARSET_TEXT, nullptr);
    Widget gadget = Make({{XmNlabelString, reinterpret_cast<XtArgVal>(text)},
                          {XmNfontList, reinterpret_cast<XtArgVal>(XftFont())}});
    Show();
    XmStringFree(text);
    const Picture shown = Picture::Of(gadget);
    EXPECT_GT(shown.Count(ink), 20);
    EXPECT_GT(PartOf(gadget).text_height, 24);
    XtSetSensitive(gadget, False);
    Pump();
    const Picture dim = Picture::Of(gadget);
    EXPECT_EQ(dim.Count(ink), 0);
    EXPECT_NE(dim, shown);
}

TEST_F(GadgetDrawingTest, FollowsItsResources) {
    Widget gadget = Make();
    Show();
    Set(gadget, {{XmNbackground, 0xffff00}});
    Pump();
    EXPECT_GT(Picture::Of(gadget).Count(0xffff00), 300);
    // The foreground waits for another background.
    Set(gadget, {{XmNforeground, red}});
    Pump();
    EXPECT_EQ(Picture::Of(gadget).Count(red), 0);
    Set(gadget, {{XmNbackground, 0xffff80}});
    Pump();
    EXPECT_GT(Picture::Of(gadget).Count(red), 20);
    Set(gadget, {{XmNtraversalOn, True}});
    XmProcessTraversal(gadget, XmTRAVERSE_CURRENT);
    Pump();
    EXPECT_TRUE(reinterpret_cast<XmvIconGadget>(gadget)->gadget.highlighted);
    const Picture highlighted = Picture::Of(gadget);
    EXPECT_NE(highlighted.At(0, 0), 0xffff80u);
    XClearArea(display, XtWindow(board), 0, 0, 0, 0, True);
    Pump();
    EXPECT_EQ(Picture::Of(gadget), highlighted);
}

TEST_F(GadgetDrawingTest, OneRedrawTakesFewRequests) {
    const Pixmap picture = MakePicture(16, 16);
    Widget gadget = Make({{XmNlabelPixmap, picture}});
    Show();
    Redraw(gadget);
    RequestCounter counter(display);
    XtClass(gadget)->core_class.expose(gadget, nullptr, nullptr);
    EXPECT_EQ(counter.requests(), 5);
    EXPECT_EQ(counter.round_trips(), 0);
    XFreePixmap(display, picture);
}

} // namespace
} // namespace corvidlmw::test
