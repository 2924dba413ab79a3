/* What a bar looks like, and what it sends to the server for that. */

#include <tests/scrollbar/ScrollBarTest.h>

#include <Xm/ScrollBarP.h>

#include <utility>

namespace corvidlmw::test {
namespace {

constexpr Pixel red = 0xff0000;

// Stripes along the bar's sides, which show where the picture stands.
void PaintStripes(Widget bar, XtPointer, XtPointer call_data) {
    const auto &data = *static_cast<SvTroughPixmapCallbackStruct *>(call_data);
    XGCValues values{};
    values.foreground = red;
    GC gc = XCreateGC(XtDisplay(bar), data.pixmap, GCForeground, &values);
    for (int i = 0; i < data.width + data.height; i += 7)
        XDrawLine(XtDisplay(bar), data.pixmap, gc, i, 0, 0, i);
    XFreeGC(XtDisplay(bar), gc);
}

class DrawingTest : public ScrollBarTest {
protected:
    Picture FullyRedrawn(Widget bar) {
        XClearArea(display, XtWindow(bar), 0, 0, 0, 0, True);
        Pump();
        return Picture::Of(bar);
    }

    Widget MakeWithPicture(const Settings &settings = {}) {
        Widget bar = Make(settings);
        XtAddCallback(bar, XmNtroughPixmapCallback, PaintStripes, nullptr);
        return bar;
    }

    XtArgVal Value(Widget w, const char *resource) {
        XtArgVal value = 0;
        XtVaGetValues(w, resource, &value, nullptr);
        return value;
    }
};

// ---- Pictures -----------------------------------------------------------------------------------

// The toolkit's record in terms of ours.
std::vector<int> PlacesOf(Widget w) {
    auto places = [](const auto &part) {
        std::vector<int> all = {part.slider_area_x, part.slider_area_y,      part.slider_area_width,
                                part.slider_x,      part.slider_area_height, part.slider_y,
                                part.slider_width,  part.slider_height,      part.arrow_width,
                                part.arrow_height};
        if (part.show_arrows)
            all.insert(all.end(), {part.arrow1_x, part.arrow1_y, part.arrow2_x, part.arrow2_y,
                                   part.arrow1_orientation, part.arrow2_orientation});
        return all;
    };
    return XtClass(w) == xmScrollBarWidgetClass
               ? places(reinterpret_cast<XmScrollBarWidget>(w)->scrollBar)
               : places(PartOf(w));
}

// Where trough, slider or arrows have no room, only their places are compared: there the toolkit
// leaves out what does not fit.
TEST_F(DrawingTest, WithoutAPictureItLooksLikeTheToolkitsBar) {
    Random random;
    Show();
    for (int i = 0; i < 100; i++) {
        const bool horizontal = random.Chance(0.5);
        const int thickness = random.Between(1, 30);
        const int length = i == 0 ? 3000 : random.Between(1, random.Chance(0.3) ? 40 : 300);
        const int maximum = random.Between(2, 1000);
        const int size = random.Between(1, maximum);
        const int shadow = random.Between(0, 5);
        const int highlight = random.Between(0, 2);
        const Settings settings = {
            {XmNwidth, horizontal ? length : thickness},
            {XmNheight, horizontal ? thickness : length},
            {XmNorientation, horizontal ? XmHORIZONTAL : XmVERTICAL},
            {XmNprocessingDirection, (horizontal ? 2 : 0) + random.Between(0, 1)},
            {XmNshadowThickness, shadow},
            {XmNhighlightThickness, highlight},
            {XmNshowArrows, random.Chance(0.8)},
            {XmNsensitive, random.Chance(0.8)},
            {XmNmaximum, maximum},
            {XmNsliderSize, size},
            {XmNvalue, random.Between(0, maximum - size)}};
        std::string what;
        for (const auto &[name, value] : settings)
            what += std::string(name) + ' ' + std::to_string(value) + ", ";
        Picture pictures[2];
        std::vector<int> places[2];
        for (int k = 0; k < 2; k++) {
            Widget bar = Make(settings, k ? svScrollBarWidgetClass : xmScrollBarWidgetClass);
            Pump();
            places[k] = PlacesOf(bar);
            pictures[k] = Picture::Of(bar);
            XtDestroyWidget(bar);
        }
        EXPECT_EQ(places[0], places[1]) << what;
        if (thickness > 2 * (shadow + highlight) && places[1][horizontal ? 2 : 4] >= 6) {
            EXPECT_TRUE(SamePicture(pictures[0], pictures[1])) << what;
        }
    }
}

TEST_F(DrawingTest, ThePictureShowsInTheTroughAndThroughTheSlider) {
    Widget bar = Make({{XmNwidth, 31}, {XmNsliderSize, 50}, {XmNvalue, 20}});
    XtAddCallback(
        bar, XmNtroughPixmapCallback,
        [](Widget w, XtPointer, XtPointer call_data) {
            const auto &data = *static_cast<SvTroughPixmapCallbackStruct *>(call_data);
            XGCValues values{};
            values.foreground = red;
            GC gc = XCreateGC(XtDisplay(w), data.pixmap, GCForeground, &values);
            XFillRectangle(XtDisplay(w), data.pixmap, gc, 0, 0, 1000, 1000);
            XFreeGC(XtDisplay(w), gc);
        },
        nullptr);
    Show();
    const XRectangle slider = SliderOf(bar);
    ASSERT_EQ(slider.width, 27);
    const Picture picture = Picture::Of(bar);
    auto short_of = [](int n) { return static_cast<short>(n); };
    auto inset = [&](int by) {
        return XRectangle{short_of(slider.x + by), short_of(slider.y + by),
                          static_cast<unsigned short>(slider.width - 2 * by),
                          static_cast<unsigned short>(slider.height - 2 * by)};
    };
    const XRectangle hole = inset(4);
    EXPECT_EQ(picture.Count(red, hole), hole.width * hole.height);
    EXPECT_EQ(picture.Count(red, inset(0)), hole.width * hole.height);
    EXPECT_EQ(picture.At(slider.x + 1, slider.y + 1), Value(bar, XmNtopShadowColor));
    EXPECT_EQ(picture.At(slider.x + 2, slider.y + 2), Value(bar, XmNbottomShadowColor));
    EXPECT_EQ(picture.At(slider.x, slider.y - 1), red);

    XtVaSetValues(bar, XmNshadowThickness, 8, nullptr); // no room for a hole
    Pump();
    const XRectangle thick = SliderOf(bar);
    ASSERT_LE(thick.width, 32);
    EXPECT_EQ(Picture::Of(bar).Count(red, thick), 0);
}

TEST_F(DrawingTest, EtchedLinesAppearWhenTheSliderIsDrawnNext) {
    for (const int orientation : {XmVERTICAL, XmHORIZONTAL}) {
        Widget bar = Make({{XmNorientation, orientation}, {XmNwidth, 60}, {XmNheight, 60}});
        Show();
        const Picture before = Picture::Of(bar);
        _SvSetEtchedSlider(bar);
        Pump();
        EXPECT_TRUE(SamePicture(before, Picture::Of(bar)));
        const Picture etched = FullyRedrawn(bar);
        const XRectangle s = SliderOf(bar);
        const bool wide = orientation == XmHORIZONTAL;
        const int middle = (wide ? s.width : s.height) / 2;
        const auto expected =
            wide ? XRectangle{static_cast<short>(s.x + middle - 1), static_cast<short>(s.y + 1), 2,
                              static_cast<unsigned short>(s.height - 2)}
                 : XRectangle{static_cast<short>(s.x + 1), static_cast<short>(s.y + middle - 1),
                              static_cast<unsigned short>(s.width - 2), 2};
        // On the slider's own shadow one of the two lines is not seen.
        const auto changed = etched.Difference(before);
        ASSERT_TRUE(changed);
        EXPECT_EQ(*changed, expected);
        EXPECT_EQ(etched.At(expected.x + 4 * !wide, expected.y + 4 * wide),
                  Value(bar, XmNbottomShadowColor));
        XtDestroyWidget(bar);
    }
}

// Whatever happened, and in whatever order: what stands on the screen is what a fresh drawing gives.
TEST_F(DrawingTest, NoChangeLeavesATraceOfWhatStoodThere) {
    Random random;
    for (const bool with_picture : {false, true}) {
        Widget bar = with_picture ? MakeWithPicture() : Make();
        Show();
        const char *const names[] = {XmNvalue, XmNmaximum, XmNsliderSize, XmNprocessingDirection};
        for (int i = 0; i < 150; i++) {
            const char *name = names[random.Between(0, 3)];
            const int most = name == names[3] ? 1 : name == names[1] ? 400 : 90;
            if (random.Chance(0.3))
                SvScrollBarSetValues(bar, random.Between(0, 400), random.Between(1, 50), 1, 0,
                                     True);
            else
                XtVaSetValues(bar, name, random.Between(0, most), nullptr);
            if (random.Chance(0.05))
                XtVaSetValues(bar, XmNsensitive, random.Chance(0.7), nullptr);
            if (random.Chance(0.05))
                XtVaSetValues(bar, XmNbackground, random.Between(0, 0xffffff), nullptr);
            if (random.Chance(0.05))
                XtVaSetValues(bar, XmNshowArrows, random.Chance(0.5), nullptr);
            if (random.Chance(0.05))
                XtVaSetValues(bar, XmNheight, random.Between(60, 300), nullptr);
            if (random.Chance(0.3)) {
                const auto y = static_cast<short>(random.Between(20, 60));
                Drag(bar, {7, y}, {7, static_cast<short>(random.Between(0, 250))},
                     random.Chance(0.5) ? Button1 : Button2);
            }
            Pump();
            const Picture shown = Picture::Of(bar);
            ASSERT_TRUE(SamePicture(FullyRedrawn(bar), shown)) << name << " in change " << i;
        }
        Complaints::Current().warnings.clear();
        XtDestroyWidget(bar);
    }
}

// ---- Asking for the picture ---------------------------------------------------------------------

struct Asked {
    std::vector<SvTroughPixmapCallbackStruct> data;
    Pixmap other = None; // to be handed back in the place of the one offered
    bool replaces = false;
    bool asks_again = false;
};

void NoteAsked(Widget bar, XtPointer closure, XtPointer call_data) {
    auto &asked = *static_cast<Asked *>(closure);
    auto &data = *static_cast<SvTroughPixmapCallbackStruct *>(call_data);
    asked.data.push_back(data);
    if (asked.asks_again)
        SvScrollBarRedisplay(bar);
    if (asked.replaces) {
        XFreePixmap(XtDisplay(bar), data.pixmap);
        data.pixmap = asked.other;
    }
}

TEST_F(DrawingTest, ThePictureIsAskedForWhenItsSizeChangesOrOnRequest) {
    Asked asked;
    Widget bar = Make({{XmNmaximum, 300}});
    XtAddCallback(bar, XmNtroughPixmapCallback, NoteAsked, &asked);
    SvScrollBarRedisplay(bar);
    EXPECT_EQ(asked.data.size(), 1u) << "also without a window";
    Show();
    EXPECT_EQ(asked.data.size(), 1u);
    asked.data.clear();
    Widget shown = std::exchange(bar, Make({{XmNmaximum, 300}}));
    XtDestroyWidget(shown);
    XtAddCallback(bar, XmNtroughPixmapCallback, NoteAsked, &asked);
    Pump();
    ASSERT_EQ(asked.data.size(), 1u);
    const auto first = asked.data[0];
    EXPECT_EQ(first.reason, 99);
    EXPECT_NE(first.event, nullptr);
    EXPECT_EQ(first.width, 11);
    EXPECT_EQ(first.height, 176);
    EXPECT_EQ(first.depth, DefaultDepth(display, DefaultScreen(display)));
    EXPECT_EQ(first.maximum, 300);

    FullyRedrawn(bar);
    XtVaSetValues(bar, XmNvalue, 50, XmNmaximum, 400, nullptr);
    EXPECT_EQ(asked.data.size(), 1u) << "neither an exposure nor a value makes it old";
    XtVaSetValues(bar, XmNheight, 100, nullptr);
    Pump();
    ASSERT_EQ(asked.data.size(), 2u);
    EXPECT_EQ(asked.data[1].event, nullptr);
    EXPECT_EQ(asked.data[1].height, 72);
    EXPECT_EQ(asked.data[1].maximum, 400);
    asked.asks_again = true;
    SvScrollBarRedisplay(bar);
    EXPECT_EQ(asked.data.size(), 3u);
    EXPECT_EQ(asked.data[2].event, nullptr);
    asked.asks_again = false;

    asked.replaces = true;
    SvScrollBarRedisplay(bar);
    EXPECT_EQ(PartOf(bar).trough_pixmap, None);
    FullyRedrawn(bar);
    EXPECT_EQ(asked.data.size(), 5u) << "without a picture each drawing asks";
    asked.other = XCreatePixmap(display, XtWindow(bar), 11, 72, static_cast<unsigned>(first.depth));
    SvScrollBarRedisplay(bar);
    EXPECT_EQ(PartOf(bar).trough_pixmap, asked.other);
    XtRemoveAllCallbacks(bar, XmNtroughPixmapCallback);
    XtVaSetValues(bar, XmNvalue, 90, nullptr);
    EXPECT_TRUE(SamePicture(
        FullyRedrawn(
            Make({{XmNmaximum, 400}, {XmNsliderSize, 30}, {XmNheight, 100}, {XmNvalue, 90}})),
        FullyRedrawn(bar)))
        << "without its callback it is a plain bar, although it still holds a picture";
}

// ---- Requests -----------------------------------------------------------------------------------

TEST_F(DrawingTest, AChangeThatMovesNoPixelSendsNothing) {
    Widget bar = Make({{XmNmaximum, 100000}, {XmNsliderSize, 10000}, {XmNvalue, 50000}});
    Show();
    RequestCounter counter(display);
    SvScrollBarSetValues(bar, 50001, 10001, 3, 30, True);
    XtVaSetValues(bar, XmNvalue, 50001, XmNtroughColor, PartOf(bar).trough_color, nullptr);
    XtVaSetValues(bar, XmNmaximum, 99999, XmNsensitive, True, nullptr);
    XtVaSetValues(bar, XmNsliderSize, 99999, nullptr); // reacts no more
    Pump();
    counter.Restart();
    XtVaSetValues(bar, XmNmaximum, 70000, XmNsliderSize, 70000, nullptr);
    EXPECT_EQ(counter.requests(), 0);
    ExpectWarnings({"value"});
}

TEST_F(DrawingTest, AStepOfADragIsACopyAndAClear) {
    Widget bar = Make();
    Show();
    MoveTo(bar, 7, 20);
    Press();
    for (const int y : {40, 30}) {
        Recorder recorder;
        RequestCounter counter(display);
        MoveTo(bar, 7, y);
        const auto drawing = recorder.Drawing(XtWindow(bar));
        ASSERT_EQ(drawing.size(), 2u);
        EXPECT_EQ(drawing[0].function, "XCopyArea");
        EXPECT_EQ(drawing[1].function, "XClearArea");
        EXPECT_EQ(drawing[1].numbers, (y == 40 ? std::vector<long>{2, 14, 11, 20, False}
                                               : std::vector<long>{2, 42, 11, 10, False}));
        EXPECT_EQ(counter.requests(), 2);
    }
    Release();
}

TEST_F(DrawingTest, TheTroughKeepsItsColourWhenTheBackgroundChanges) {
    Widget bar = Make({{XmNtroughColor, red}});
    Show();
    XtVaSetValues(bar, XmNbackground, 0x00ff00, nullptr);
    Pump();
    const Picture shown = Picture::Of(bar);
    EXPECT_EQ(shown.At(7, 150), red);
    EXPECT_EQ(shown.At(7, 20), 0x00ff00u) << "the slider";
    XtVaSetValues(bar, XmNtroughColor, 0x0000ff, nullptr);
    Pump();
    EXPECT_EQ(Picture::Of(bar).At(7, 150), 0x0000ffu);
}

} // namespace
} // namespace corvidlmw::test
