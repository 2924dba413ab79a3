/* What arcs paint, erase and paint again. */

#include <tests/graph/GraphTest.h>

#include <Xm/PushBG.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

namespace corvidlmw::test {
namespace {

using Numbers = std::vector<long>;

// Between the two nodes.
const Numbers line = {110, 120, 250, 120};

class ArcDrawing : public DrawnPair {
protected:
    // Numbers of the calls of one function.
    static std::vector<Numbers> Of(const std::vector<Call> &calls, const char *function) {
        std::vector<Numbers> all;
        for (const Call &call : calls)
            if (call.function == function)
                all.push_back(call.numbers);
        return all;
    }

    // Made once: the toolkit leaks a part of each such table that is freed.
    XmRenderTable XftFont() {
        static XmRenderTable table = nullptr;
        if (!table) {
            Arg args[] = {{Name(XmNfontType), XmFONT_IS_XFT},
                          {Name(XmNfontName), reinterpret_cast<XtArgVal>("DejaVu Serif")},
                          {Name(XmNfontSize), 14}};
            XmRendition rendition =
                XmRenditionCreate(graph, Name(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args));
            table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_REPLACE);
            XmRenditionFree(rendition);
        }
        return table;
    }

    // Arcs of every kind, crossing one another, two nodes with text, and one node in the way.
    void BuildScene() {
        XtVaSetValues(graph, XmNhighlightColor, Colour("green"), nullptr);
        Widget up = Node({140, 20, 70, 30}, xmPushButtonGadgetClass, "up");
        Widget down = Node({300, 260, 90, 40}, xmPushButtonGadgetClass, "down");
        Node({170, 105, 30, 30}, xmPushButtonGadgetClass, "in the way");
        auto arc = [&](Widget from, Widget to, auto... args) {
            all.push_back(Arc(from, to, args...));
        };
        arc(left, right, XmNmapLabel, True, XmNarcDirection, XmDIRECTED);
        arc(right, left, XmNarcDirection, XmBIDIRECTED, XmNarcWidth, 3, XmNmapLabel, True);
        arc(left, right, XmNstyle, LineOnOffDash, XmNarcWidth, 2);
        arc(up, down, XmNarcWidth, 7, XmNcapStyle, CapProjecting, XmNforeground, Colour("red"));
        arc(up, right, XmNhighlight, True, XmNmapLabel, True, XmNarcDirection, XmDIRECTED);
        arc(down, left, XmNmapLabel, True, XmNforeground, Colour("blue"), XmNstyle, LineDoubleDash);
        for (int i = 0; i < 5; i++)
            arc(down, down, XmNarcDirection, XmBIDIRECTED, XmNmapLabel, i != 2);
    }

    void ExpectExactPartialRepaints();

    Widgets all;
};

TEST_F(ArcDrawing, AnArcIsALineWithAnArrowHeadAtEachEndItsDirectionNames) {
    Widget arc = Arc(left, right);
    Show();
    const Numbers at_end = {250, 120, 244, 117, 244, 123};
    const Numbers at_start = {110, 120, 116, 123, 116, 117};
    const struct {
        int direction;
        std::vector<Numbers> heads;
    } cases[] = {{XmUNDIRECTED, {}}, {XmDIRECTED, {at_end}}, {XmBIDIRECTED, {at_end, at_start}}};
    for (const auto &expected : cases) {
        XtVaSetValues(arc, XmNarcDirection, expected.direction, nullptr);
        const auto calls = Repaint();
        EXPECT_EQ(Of(calls, "XDrawLine"), std::vector<Numbers>{line}) << expected.direction;
        EXPECT_EQ(Of(calls, "XFillPolygon"), expected.heads) << expected.direction;
        EXPECT_TRUE(Of(calls, "_XmStringDraw").empty());
    }
    Recorder recorder;
    Uncover({244, 117, 2, 2});
    EXPECT_FALSE(ByArcs(recorder).empty()) << "the head is wider than the line";
    XtVaSetValues(arc, XmNmapLabel, True, nullptr);
    const XmArcPart &part = ArcPartOf(arc);
    EXPECT_EQ(Of(Repaint(), "_XmStringDraw"),
              (std::vector<Numbers>{
                  {180, 120 - part.label_height, part.label_width, XmALIGNMENT_CENTER, 0}}));
}

TEST_F(ArcDrawing, ParallelArcsBowToAlternateSidesWhereTwinsAreVisible) {
    for (int i = 0; i < 3; i++)
        Arc(i == 1 ? left : right, i == 1 ? right : left, XmNmapLabel, i == 2, XmNarcDirection,
            i == 1 ? XmDIRECTED : XmUNDIRECTED);
    Show();
    auto calls = Repaint();
    EXPECT_EQ(Of(calls, "XDrawLine"), (std::vector<Numbers>{{250, 120, 110, 120}}));
    const auto curves = Of(calls, "XDrawLines");
    ASSERT_EQ(curves.size(), 2u);
    for (const Numbers &points : curves)
        ASSERT_EQ(points.size(), 40u);
    // The control points lie 40 pixels beside the line, the middle of a curve half as far.
    EXPECT_NEAR(static_cast<double>(curves[0][21]), 100, 1);
    EXPECT_NEAR(static_cast<double>(curves[1][21]), 140, 1);
    EXPECT_EQ(curves[0][38], 243) << "a curve stops at 95 percent of its way";
    const auto heads = Of(calls, "XFillPolygon");
    ASSERT_EQ(heads.size(), 1u);
    EXPECT_NEAR(static_cast<double>(heads[0][3] + heads[0][5]) / 2, 117, 1)
        << "it comes from the control point";
    const auto labels = Of(calls, "_XmStringDraw");
    ASSERT_EQ(labels.size(), 1u);
    EXPECT_LT(labels[0][1], curves[1][21] - 5) << "it stands on the curve";

    XtVaSetValues(graph, XmNtwinsVisible, False, nullptr);
    calls = Repaint();
    EXPECT_EQ(Of(calls, "XDrawLine").size(), 3u);
    EXPECT_EQ(Of(calls, "XDrawLines").size(), 0u);
}

TEST_F(ArcDrawing, EndsFollowTheDrawMode) {
    for (int i = 0; i < 2; i++)
        Arc(left, right, XmNfromSide, XmARC_BOTTOM, XmNfromPosition, 25, XmNtoSide, XmARC_TOP,
            XmNtoPosition, i ? 75 : 50);
    Show();
    XtVaSetValues(graph, XmNarcDrawMode, XmPOSITION_PROPORTIONAL, nullptr);
    EXPECT_EQ(Of(Repaint(), "XDrawLine"),
              (std::vector<Numbers>{{65, 140, 280, 100}, {65, 140, 295, 100}}));
    XtVaSetValues(graph, XmNarcDrawMode, XmPOSITION_FIXED, XmNtwinsVisible, False, nullptr);
    EXPECT_EQ(Of(Repaint(), "XDrawLine"), (std::vector<Numbers>{line, line}));
    XtVaSetValues(
        graph, XmNlayoutProc, +[](Widget) {}, XmNorientation, XmVERTICAL, nullptr);
    const Numbers from_bottom = {80, 140, 280, 100};
    EXPECT_EQ(Of(Repaint(), "XDrawLine"), (std::vector<Numbers>{from_bottom, from_bottom}));
}

TEST_F(ArcDrawing, FourLoopsStandOnFourSidesAndTheFifthOnTheFirst) {
    for (int i = 0; i < 5; i++)
        Arc(left, left);
    Show();
    const Numbers above = {65, 60, 30, 60, -1920, 15360};
    EXPECT_EQ(Of(Repaint(), "XDrawArc"), (std::vector<Numbers>{above,
                                                               {14, 80, 60, 80, 1920, 20864},
                                                               {65, 120, 30, 60, 1920, -15360},
                                                               {86, 80, 60, 80, 9600, -19200},
                                                               above}));
}

TEST_F(ArcDrawing, AHighlightAndAClipLastNoLongerThanTheDrawing) {
    XtVaSetValues(graph, XmNhighlightColor, Colour("red"), nullptr);
    Widget arc = Arc(left, right, XmNarcDirection, XmDIRECTED, XmNmapLabel, True);
    Widget other = Arc(right, left);
    Show();
    ASSERT_EQ(ArcPartOf(arc).gc, ArcPartOf(other).gc);
    _XmHighlightArc(arc);
    const XRectangle exposed = {120, 60, 100, 100};
    Recorder recorder;
    Uncover(exposed);
    XDrawLine(display, XtWindow(graph), ArcPartOf(arc).gc, 0, 400, 600, 400);
    const auto calls = ByArcs(recorder);
    ASSERT_EQ(calls.size(), 5u);
    for (size_t i = 0; i < 3; i++)
        EXPECT_EQ(calls[i].foreground, Colour("red")) << calls[i];
    for (size_t i = 0; i < 4; i++)
        EXPECT_EQ(calls[i].clip_box, exposed) << calls[i];
    EXPECT_EQ(calls[3].function, "XDrawLines");
    EXPECT_EQ(calls[3].foreground, Black()) << "the highlight reached an arc with the same GC";
    EXPECT_EQ(calls[4].foreground, Black());
    EXPECT_FALSE(calls[4].clip_box);
}

TEST_F(ArcDrawing, ErasingLeavesExactlyTheBackground) {
    BuildScene();
    for (Widget arc : all)
        XtVaSetValues(arc, XmNfontList, XftFont(), nullptr);
    XtUnmanageChildren(all.data(), static_cast<Cardinal>(all.size()));
    Show();
    const Picture empty = Picture::Of(graph);
    EXPECT_TRUE(Repaint().empty());
    for (Widget arc : all) {
        XtManageChild(arc);
        Pump();
        ASSERT_NE(Picture::Of(graph), empty);
        _EraseArc(arc);
        _RefreshGadgets(graph, nullptr);
        EXPECT_TRUE(SamePicture(empty, Picture::Of(graph)));
        XtUnmanageChild(arc);
        Pump();
    }
}

TEST_F(ArcDrawing, AChangedLookLeavesNothingOfTheOldOne) {
    Widget arc = Arc(left, right, XmNarcWidth, 9, XmNmapLabel, True, XmNstyle, LineOnOffDash);
    XtVaSetValues(graph, XmNhighlightColor, Colour("green"), nullptr);
    XmString longer = XmStringCreateLocalized(Name("a longer label"));
    Show();
    const std::pair<const char *, XtArgVal> changes[] = {
        {XmNforeground, static_cast<XtArgVal>(Colour("red"))},
        {XmNdashes, 11},
        {XmNarcWidth, 1},
        {XmNhighlight, True},
        {XmNlabelString, reinterpret_cast<XtArgVal>(longer)},
        {XmNmapLabel, False},
    };
    for (const auto &[name, value] : changes) {
        const Picture before = Picture::Of(graph);
        XtVaSetValues(arc, name, value, nullptr);
        const Picture changed = Picture::Of(graph);
        EXPECT_NE(changed, before) << name;
        Uncover();
        EXPECT_TRUE(SamePicture(Picture::Of(graph), changed)) << name;
    }
    XmStringFree(longer);
}

TEST_F(ArcDrawing, MovingANodeTakesItsArcsAlong) {
    for (Widget from : {left, left, right})
        Arc(from, right, XmNarcDirection, XmDIRECTED, XmNmapLabel, True);
    Arc(right, left);
    Show();
    EXPECT_TRUE(XmGraphMoveNode(graph, right, 250, 300));
    Pump();
    const Picture moved = Picture::Of(graph);
    Uncover();
    EXPECT_TRUE(SamePicture(Picture::Of(graph), moved));
}

TEST_F(ArcDrawing, TheTwinsBehindARemovedOneAreErasedAsTheyWereDrawnAndMoveUp) {
    Widget first = Arc(left, right);
    Widget second = Arc(left, right);
    Widget third = Arc(left, right);
    Show();
    Recorder recorder;
    XtDestroyWidget(second);
    const auto calls = ByArcs(recorder);
    ASSERT_EQ(calls.size(), 2u);
    EXPECT_EQ(calls[0].foreground, White());
    EXPECT_GT(calls[0].numbers[21], 120) << "the third was below";
    EXPECT_EQ(calls[1].foreground, Black());
    EXPECT_LT(calls[1].numbers[21], 120);
    XtDestroyWidget(first);
    EXPECT_EQ(Of(Repaint(), "XDrawLine"), std::vector<Numbers>{line});
    recorder.Clear();
    _EraseArc(third);
    _EraseArc(third);
    EXPECT_EQ(ByArcs(recorder).size(), 1u) << "an erased arc is not erased again";
}

void ArcDrawing::ExpectExactPartialRepaints() {
    Random random;
    Uncover();
    const Picture whole = Picture::Of(graph);
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    for (int i = 0; i < 40; i++) {
        // Around something painted, so that few rectangles meet many edges.
        XRectangle r[2];
        for (XRectangle &each : r) {
            XPoint p;
            do {
                p = {static_cast<short>(random.Between(0, 470)),
                     static_cast<short>(random.Between(0, 350))};
            } while (whole.At(p.x, p.y) == White());
            const int reach = i % 4 ? 6 : 90;
            each = {static_cast<short>(p.x - random.Between(0, reach)),
                    static_cast<short>(p.y - random.Between(0, reach)),
                    static_cast<unsigned short>(random.Between(1, 2 * reach)),
                    static_cast<unsigned short>(random.Between(1, 2 * reach))};
        }
        if (i % 2) {
            XClearArea(display, XtWindow(graph), r[0].x, r[0].y, r[0].width, r[0].height, True);
            Uncover(r[1]);
        } else {
            const Window over = XCreateWindow(
                display, DefaultRootWindow(display), r[0].x, r[0].y, r[0].width, r[0].height, 0,
                CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
            XMapRaised(display, over);
            Pump();
            XDestroyWindow(display, over);
            Pump();
        }
        ASSERT_TRUE(SamePicture(whole, Picture::Of(graph))) << r[0] << ' ' << r[1];
    }
}

// Antialiased labels would get bolder if they were painted where nothing was exposed.
TEST_F(ArcDrawing, APartialExposureGivesTheSamePictureAsAWholeOne) {
    BuildScene();
    Show();
    ExpectExactPartialRepaints();
    for (Widget arc : all)
        XtVaSetValues(arc, XmNfontList, XftFont(), nullptr);
    ExpectExactPartialRepaints();
}

TEST_F(ArcDrawing, ACrossingArcOutOfViewStaysAwayUntilItIsAskedFor) {
    XtDestroyWidget(graph);
    graph = XmCreateScrolledGraph(shell, Name("graph"), nullptr, 0);
    XtVaSetValues(graph, XmNshowCrossingArcs, False, nullptr);
    XtManageChild(graph);
    Widget far = Node({2000, 1500, 60, 40});
    Widget arc = Arc(Node({0, 0, 60, 40}), far);
    XmGraphAdjustSize(graph);
    Show();
    Widget scrolled = XtParent(XtParent(graph));
    for (const char *name : {XmNhorizontalScrollBar, XmNverticalScrollBar}) {
        Widget bar = nullptr;
        int slider = 0;
        XtVaGetValues(scrolled, name, &bar, nullptr);
        XtVaGetValues(bar, XmNsliderSize, &slider, nullptr);
        XmScrollBarSetValues(bar, 700, slider, 10, 100, True);
    }
    Pump();
    EXPECT_TRUE(Repaint().empty());
    Recorder recorder;
    XtVaSetValues(graph, XmNshowCrossingArcs, True, nullptr);
    EXPECT_EQ(ByArcs(recorder).size(), 1u) << "the arc is drawn by itself";
    EXPECT_GT(Picture::Of(XtParent(graph)).Count(Black()), 100);

    recorder.Clear();
    XtVaSetValues(graph, XmNshowCrossingArcs, False, nullptr);
    EXPECT_EQ(recorder.Calls("XClearArea", XtWindow(graph)).size(), 1u)
        << "what it crossed comes back";
    EXPECT_FALSE(ArcPartOf(arc).drawn);
    EXPECT_EQ(Picture::Of(XtParent(graph)).Count(Black()), 0);
}

} // namespace
} // namespace corvidlmw::test
