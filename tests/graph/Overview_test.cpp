// The overview: what it shows, that it stays true, and how its frame is dragged.
#include <tests/graph/ScrolledGraph.h>

#include <Xm/DrawingA.h>

namespace corvidlmw::test {
namespace {

class Overview : public ScrolledGraph {
protected:
    void MakeOverview(int width = 300, int height = 200) {
        overview = XmGraphCreateOverView(graph, board);
        XtVaSetValues(overview, XmNx, 450, XmNy, 10, XmNwidth, width, XmNheight, height, nullptr);
        XtManageChild(overview);
        Pump();
    }

    Pixel Colour(const char *name) const {
        XColor exact{};
        XColor near{};
        XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(shell)), name, &near, &exact);
        return near.pixel;
    }
    Pixel Black() const { return BlackPixelOfScreen(XtScreen(shell)); }
    void Mark(Widget node, Pixel colour) { XtVaSetValues(node, XmNmarkColor, colour, nullptr); }

    Picture Shown() { return Picture::Of(overview); }
    // What a new overview of the same size shows.
    Picture Fresh() {
        const Place size = SizeOf(overview);
        XtDestroyWidget(overview);
        MakeOverview(size.x, size.y);
        return Shown();
    }

    XRectangle Frame() const {
        const auto &part = GraphPartOf(graph);
        return {part.viewport_x, part.viewport_y, part.viewport_width, part.viewport_height};
    }
    static XRectangle At(int x, int y, XRectangle size) {
        return {static_cast<short>(x), static_cast<short>(y), size.width, size.height};
    }

    Widget overview = nullptr;
};

TEST_F(Overview, ShowsNodesArcsMarksAndTheFrame) {
    Widgets nodes = Grid(12, 10); // 1160 by 570
    Mark(nodes[25], Colour("red"));
    ShowGraph();
    MakeOverview(290, 200); // a scale of 1/4
    EXPECT_EQ(XtName(overview), std::string("overview"));
    EXPECT_TRUE(XmIsDrawingArea(overview));
    EXPECT_EQ(XmGraphCreateOverView(graph, shell), overview);
    Picture picture = Shown();
    EXPECT_EQ(picture.At(200, 180), Colour("grey90"));
    EXPECT_EQ(*picture.Box(Colour("red")), (XRectangle{24, 29, 15, 7}));
    EXPECT_EQ(picture.At(100 + 8, 60 + 3), Colour("blue"));
    EXPECT_EQ(picture.At(100 + 20, 60 + 3), Black()) << "an arc";

    XtVaSetValues(graph, XmNskewOverviewScale, True, XmNshowOverviewArcs, False, nullptr);
    Pump();
    picture = Shown();
    // The centre at trunc(135 * 200/570), the height as before.
    EXPECT_EQ(*picture.Box(Colour("red")), (XRectangle{24, 43, 15, 7}));
    EXPECT_EQ(picture.Count(Black()), 0);

    const auto [x, y, width, height] = Frame();
    const Place clip = SizeOf(XtParent(graph));
    EXPECT_EQ(Frame(), At(1, 1,
                          {0, 0, static_cast<Dimension>(clip.x / 4),
                           static_cast<Dimension>(clip.y * 200 / 570)}));
    const Pixel light = ValueOf(overview, XmNtopShadowColor);
    const Pixel dark = ValueOf(overview, XmNbottomShadowColor);
    EXPECT_EQ(picture.At(x + width - 20, y + height - 1), dark);
    EXPECT_EQ(picture.At(x + 20, y), light);
    EXPECT_EQ(picture.At(x + width, y), light);
    EXPECT_EQ(picture.At(x + width, y + 1), dark);
    XtVaSetValues(overview, XmNbackground, Colour("yellow"), nullptr);
    Pump();
    EXPECT_EQ(Shown().At(x + 20, y), light) << "a client colours it only after it is made";
}

TEST_F(Overview, BatchesItsFiguresAndPutsTheLastNodesOverTheLines) {
    Grid(25, 18, 70, 40);
    ShowGraph();
    MakeOverview();
    Recorder recorder;
    XClearArea(display, XtWindow(overview), 5, 5, 10, 10, True);
    Pump();
    std::vector<std::pair<std::string, size_t>> batches;
    for (const Call &call : recorder.Drawing(XtWindow(overview)))
        if (call.function != "XDrawLine" && call.function != "XClearArea")
            batches.emplace_back(call.function, call.numbers.size() / 4);
    EXPECT_EQ(batches, (std::vector<std::pair<std::string, size_t>>{{"XClearWindow", 0},
                                                                    {"XFillRectangles", 199},
                                                                    {"XFillRectangles", 199},
                                                                    {"XDrawSegments", 199},
                                                                    {"XDrawSegments", 199},
                                                                    {"XDrawSegments", 51},
                                                                    {"XFillRectangles", 52}}));
    EXPECT_EQ(recorder.Calls("XDrawLine", XtWindow(overview)).size(), 8u);

    recorder.Clear();
    ScrollBars({100, 0});
    EXPECT_EQ(recorder.Drawing(XtWindow(overview)).size(), 16u) << "the frame alone";
    recorder.Clear();
    Mark(NodesOf(graph)[200], Black());
    EXPECT_EQ(recorder.Drawing(XtWindow(overview)).size(), 1u) << "the node alone";
}

TEST_F(Overview, StaysTrueAfterEveryChange) {
    Widgets nodes = Grid(12, 10);
    Mark(nodes[13], Colour("red"));
    Widget unmanaged = Node({}, {300, 500}, false);
    ShowGraph();
    MakeOverview();
    const std::pair<const char *, std::function<void()>> changes[] = {
        {"scrolled",
         [&] {
             ScrollBars({345, 123});
         }},
        {"a mark under the frame, then scrolled",
         [&] {
             Mark(nodes[12 * 2 + 3], Colour("green"));
             Mark(nodes[12 * 2 + 4], Colour("green"));
             Mark(nodes[12 * 2 + 4], static_cast<Pixel>(-1));
             ScrollBars({367, 140});
         }},
        {"marks on what has none to show",
         [&] {
             Mark(unmanaged, Colour("red"));
             XtVaSetValues(ArcsOf(graph)[0], XmNmarkColor, 7, nullptr);
         }},
        {"dragged, then scrolled",
         [&] {
             Drag(overview, {60, 50}, {100, 80});
             ScrollBars({200, 200});
         }},
        {"dragged out of the picture",
         [&] {
             Drag(overview, {60, 50}, {280, 199});
         }},
        {"changed in the middle of a node's drag, which the end of the editing cuts short",
         [&] {
             ScrollBars({0, 0});
             XtVaSetValues(graph, XmNeditable, True, nullptr);
             MoveTo(nodes[1], 5, 5);
             Press(Button2);
             MoveTo(nodes[1], 15, 45);
             XmGraphMoveNodeQuietly(graph, nodes[2], 300, 540);
             Pump();
             EXPECT_EQ(Shown().At(85, 143), Colour("blue")) << "and not when the drag ends";
             XtVaSetValues(graph, XmNeditable, False, nullptr);
             Release(Button2);
         }},
        {"hidden, and let go of, in the middle of a drag",
         [&] {
             MoveTo(overview, 60, 50);
             Press();
             XtUnmanageChild(overview);
             Release();
             XtManageChild(overview);
         }},
        {"made insensitive in the middle of a drag, then scrolled",
         [&] {
             MoveTo(overview, 60, 50);
             Press();
             XtSetSensitive(overview, False);
             Release();
             ScrollBars({150, 150});
         }},
        {"exposed in the middle of a drag",
         [&] {
             MoveTo(overview, 60, 50);
             Press();
             const Picture before = Shown();
             XClearArea(display, XtWindow(overview), 50, 40, 40, 30, True);
             Pump();
             EXPECT_TRUE(SamePicture(before, Shown()));
             MoveTo(overview, 90, 70);
             XtVaSetValues(nodes[5], XmNx, 530, nullptr);
             Pump();
             MoveTo(overview, 99, 99);
             Release();
             ScrollBars({300, 100});
         }},
        {"covered in part and uncovered",
         [&] {
             Widget cover =
                 XtVaCreateManagedWidget("cover", xmDrawingAreaWidgetClass, board, XmNx, 500, XmNy,
                                         30, XmNwidth, 60, XmNheight, 60, nullptr);
             XRaiseWindow(display, XtWindow(cover));
             Pump();
             ScrollBars({310, 110});
             XtDestroyWidget(cover);
             Pump();
         }},
        {"a node moved", [&] { XtVaSetValues(nodes[40], XmNx, 777, XmNy, 333, nullptr); }},
        {"a node moved by function", [&] { XmGraphMoveNode(graph, nodes[42], 700, 200); }},
        {"a node moved quietly", [&] { XmGraphMoveNodeQuietly(graph, nodes[43], 20, 540); }},
        {"an arc moved", [&] { XmGraphMoveArc(graph, ArcsOf(graph)[6], nodes[0], nodes[119]); }},
        {"a node resized", [&] { XtVaSetValues(nodes[41], XmNwidth, 90, nullptr); }},
        {"all moved", [&] { XmGraphMoveAll(graph, 7, 9); }},
        {"a node destroyed", [&] { XtDestroyWidget(nodes[50]); }},
        {"an unmanaged node destroyed", [&] { XtDestroyWidget(unmanaged); }},
        {"a node and an arc made",
         [&] {
             UnmanagedArc(Node({}, {10, 560}, false), nodes[0]);
         }},
        {"an arc destroyed", [&] { XtDestroyWidget(ArcsOf(graph)[4]); }},
        {"laid out", [&] { XmGraphLayout(graph); }},
        {"laid out by the client",
         [&] {
             XtVaSetValues(
                 graph, XmNlayoutProc, +[](Widget w) { XtMoveWidget(NodesOf(w)[7], 999, 222); },
                 nullptr);
             XmGraphLayout(graph);
         }},
        {"smaller", [&] { XtResizeWidget(overview, 200, 150, 0); }},
        {"larger", [&] { XtResizeWidget(overview, 320, 210, 0); }},
        {"the view is smaller", [&] { XtResizeWidget(scrolled, 300, 250, 0); }},
        {"nothing managed", [&] { XtUnmanageChildren(nodes.data(), 5); }},
    };
    for (const auto &[what, change] : changes) {
        SCOPED_TRACE(what);
        change();
        Pump();
        const Picture shown = Shown();
        EXPECT_TRUE(SamePicture(Fresh(), shown));
    }
}

TEST_F(Overview, TheFrameFollowsThePointerAndTheGraphFollowsTheFrame) {
    Grid(12, 10);
    ShowGraph();
    MakeOverview(290, 200);
    GraphLog log;
    log.Add(graph, XmNgraphChangedCallback);
    const XRectangle before = Frame();
    MoveTo(overview, 80, 40);
    Press();
    EXPECT_EQ(Frame(), At(80, 40, before));
    EXPECT_EQ(Scrolled(), (Place{0, 0})) << "not yet";
    MoveTo(overview, 100, 30);
    EXPECT_EQ(Scrolled(), (Place{400, 120}));
    EXPECT_EQ(log.reasons().back(), XmCR_GRAPH_SCROLLED);
    EXPECT_EQ(Shown().At(120, 30), ValueOf(overview, XmNtopShadowColor));
    MoveTo(overview, 288, 199);
    EXPECT_EQ(Frame(), At(290 - before.width + 1, 200 - before.height + 1, before));
    EXPECT_EQ(Scrolled(), FarEnd());
    MoveTo(overview, 100, 30);
    Release();
    EXPECT_EQ(Scrolled(), (Place{400, 120}));
    EXPECT_EQ(Frame().x, 100);
}

TEST_F(Overview, FromRightToLeftTheSamePlaceIsShown) {
    XtDestroyWidget(graph);
    SetResource("*layoutDirection: right_to_left");
    MakeScrolledGraph();
    const Widgets nodes = Grid(12, 10);
    ShowGraph();
    MakeOverview(290, 200);
    EXPECT_EQ(PlaceOf(graph).x, -FarEnd().x) << "its right end";
    Drag(overview, {10, 10}, {100, 30});
    EXPECT_EQ(PlaceOf(graph), (Place{-400, -120}));
    EXPECT_EQ(Frame().x, 100);
    XmGraphCenterAroundWidget(graph, nodes[5 * 12 + 6]);
    EXPECT_EQ(PlaceOf(graph).x, SizeOf(XtParent(graph)).x / 2 - 630);
    XmGraphCenterAtPos(graph, 0, 0);
    EXPECT_EQ(PlaceOf(graph), (Place{0, 0}));
}

TEST_F(Overview, WithoutAPictureThereIsNoFrame) {
    Widget node = Node({}, {5, 5}, false);
    ShowGraph();
    MakeOverview();
    auto expect_empty = [&] {
        XmGraphCallbackStruct scroll{};
        scroll.reason = XmCR_GRAPH_SCROLLED;
        XtCallCallbacks(graph, XmNgraphChangedCallback, &scroll);
        Drag(overview, {20, 20}, {60, 60});
        XmGraphCreateOverView(graph, board);
        Pump();
        EXPECT_FALSE(Shown().BoxOfOthers(Colour("grey90")));
    };
    expect_empty();
    XtManageChild(node);
    Pump();
    EXPECT_TRUE(Shown().BoxOfOthers(Colour("grey90")));
    XtUnmanageChild(node);
    Pump();
    expect_empty();
    XtDestroyWidget(node);
    expect_empty();
}

TEST_F(Overview, EitherMayDieFirst) {
    Grid(12, 10);
    ShowGraph();
    const ServerResources before = ServerResources::Of(display);
    for (int i = 0; i < 3; i++) {
        MakeOverview();
        MoveTo(overview, 50, 50);
        Press();
        XtDestroyWidget(overview);
        EXPECT_EQ(GraphPartOf(graph).overview, nullptr);
        ScrollBars({100 * i, 50});
        Release();
    }
    EXPECT_EQ(ServerResources::Of(display), before);

    MakeOverview();
    MoveTo(overview, 50, 50);
    Press();
    XtDestroyWidget(graph);
    Pump();
    EXPECT_FALSE(Shown().BoxOfOthers(Colour("grey90"))) << "nothing is left to show";
    MoveTo(overview, 70, 70);
    Release();
    XtVaSetValues(overview, XmNwidth, 100, nullptr);
    Pump();
}

TEST_F(Overview, ACallbackMayEndTheGraphOrTheOverviewInADrag) {
    for (bool end_graph : {false, true}) {
        if (!GraphPartOf(graph).num_arcs) {
            Grid(12, 10);
            ShowGraph();
        }
        MakeOverview();
        Widget victim = end_graph ? graph : overview;
        XtAddCallback(
            graph, XmNgraphChangedCallback,
            [](Widget w, XtPointer closure, XtPointer) {
                XtRemoveAllCallbacks(w, XmNgraphChangedCallback);
                XtDestroyWidget(static_cast<Widget>(closure));
            },
            victim);
        Drag(overview, {10, 10}, {80, 60});
        if (!end_graph) {
            EXPECT_EQ(GraphPartOf(graph).overview_dragging, 0);
        }
    }
}

TEST_F(Overview, ACallbackMayEndTheGraphAtOnce) {
    Grid(12, 10);
    ShowGraph();
    XtAddCallback(
        graph, XmNgraphChangedCallback, [](Widget w, XtPointer, XtPointer) { XtDestroyWidget(w); },
        nullptr);
    MakeOverview(); // its own callback comes after the client's
    XmGraphMoveNodeQuietly(graph, NodesOf(graph)[5], 3000, 3000);
    XmGraphAdjustSize(graph);
    EXPECT_FALSE(Shown().BoxOfOthers(Colour("grey90")));
}

} // namespace
} // namespace corvidlmw::test
