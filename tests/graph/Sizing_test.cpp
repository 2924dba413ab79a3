// The size of the graph: what its nodes need, what its parent grants, what its clip window shows.
#include <tests/graph/GraphTest.h>

#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <functional>

namespace corvidlmw::test {
namespace {

// ---- A parent that answers as the test says ------------------------------------------------------

Places requests;
std::function<XtGeometryResult(XtWidgetGeometry *offer)> answer;

XtGeometryResult Answer(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *offer) {
    requests.push_back({request->width, request->height});
    *offer = *request;
    const XtGeometryResult result = answer ? answer(offer) : XtGeometryYes;
    if (result == XtGeometryYes)
        XtResizeWidget(child, request->width, request->height, 0);
    return result == XtGeometryYes ? XtGeometryDone : result;
}

CompositeClassRec judge_class = {
    .core_class = {.superclass = reinterpret_cast<WidgetClass>(&compositeClassRec),
                   .class_name = const_cast<char *>("Judge"),
                   .widget_size = sizeof(CompositeRec),
                   .realize = XtInheritRealize,
                   .set_values_almost = XtInheritSetValuesAlmost,
                   .version = XtVersion},
    .composite_class = {.geometry_manager = Answer,
                        .change_managed = [](Widget) {},
                        .insert_child = XtInheritInsertChild,
                        .delete_child = XtInheritDeleteChild},
};

class SizingTest : public GraphTest {
protected:
    GraphLog log;

    // A managed graph of that size below the answering parent.
    void Judged(Place size) {
        requests.clear();
        answer = nullptr;
        Widget judge = XtVaCreateManagedWidget("judge", reinterpret_cast<WidgetClass>(&judge_class),
                                               shell, XtNwidth, 400, XtNheight, 300, nullptr);
        MakeGraphIn(judge, XtNwidth, size.x, XtNheight, size.y);
        // Below a parent without a window the toolkit grants all by itself.
        Show();
        log.Add(graph, XmNgraphChangedCallback);
        log.Add(graph, XmNgraphTooBigCallback);
    }
};

TEST_F(SizingTest, TheGraphFitsItsNodesAndShrinksOnlyPast50Pixels) {
    // clang-format off
    const struct {
        const char *what;
        Place before;
        Extent node;
        Place at, after, node_after;
    } examples[] = {
        {"grows", {100, 100}, {60, 30}, {90, 110}, {150, 140}, {90, 110}},
        {"grows one way, follows the other", {100, 100}, {60, 30}, {41, 30}, {101, 60}, {41, 30}},
        {"borders count twice", {50, 50}, {60, 30, 3}, {10, 30}, {76, 66}, {10, 30}},
        {"50 less", {150, 150}, {60, 60}, {40, 40}, {150, 150}, {40, 40}},
        {"51 less in width", {151, 149}, {60, 60}, {40, 40}, {100, 100}, {40, 40}},
        {"51 less in height", {149, 151}, {60, 60}, {40, 40}, {100, 100}, {40, 40}},
        {"the hidden root takes no room", {100, 100}, {10, 10}, {0, 0}, {10, 10}, {0, 0}},
        {"pulled to the origin", {100, 100}, {60, 60}, {-10, -20}, {100, 100}, {0, 0}},
        {"pulled along one axis", {100, 100}, {60, 60}, {20, -20}, {100, 100}, {20, 0}},
        {"as large as can be", {100, 100}, {67, 60}, {32500, 0}, {32567, 60}, {32500, 0}},
        {"too wide", {100, 100}, {68, 60}, {32500, 0}, {32567, 60}, {32500, 0}},
    };
    // clang-format on
    for (const auto &example : examples) {
        SCOPED_TRACE(example.what);
        Judged(example.before);
        Widget node = Node(example.node, example.at, false);
        XmGraphAdjustSize(graph);
        const bool resized = example.after != example.before;
        const bool moved = example.node_after != example.at;
        EXPECT_EQ(SizeOf(graph), example.after);
        EXPECT_EQ(PlaceOf(node), example.node_after);
        EXPECT_EQ(requests, resized ? Places{example.after} : Places{});
        std::vector<std::string> told;
        if (example.at.x + example.node.width > 32567)
            told.push_back(XmNgraphTooBigCallback);
        if (resized || moved)
            told.push_back(XmNgraphChangedCallback);
        EXPECT_EQ(log.lists(), told);
        for (const auto &entry : log.entries())
            EXPECT_EQ(entry.data.widget, entry.list == XmNgraphTooBigCallback ? graph : nullptr);
        EXPECT_EQ(log.reasons(), std::vector<int>(told.size(), XmCR_SIZE_CHANGED));
        log.Clear();
        XtDestroyWidget(XtParent(graph));
    }
}

TEST_F(SizingTest, TakesWhatItsParentOffersAndTellsNoRefusal) {
    Judged({200, 200});
    answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    XmGraphAdjustSize(graph);
    EXPECT_EQ(requests, (Places{{1, 1}})) << "no empty size for an empty graph";
    EXPECT_EQ(SizeOf(graph), (Place{200, 200}));
    EXPECT_TRUE(log.empty());

    answer = [](XtWidgetGeometry *offer) {
        if (offer->width == 80)
            return XtGeometryYes;
        offer->width = 80;
        offer->height = 90;
        return XtGeometryAlmost;
    };
    XmGraphAdjustSize(graph);
    EXPECT_EQ(requests, (Places{{1, 1}, {1, 1}, {80, 90}}));
    EXPECT_EQ(SizeOf(graph), (Place{80, 90}));
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_SIZE_CHANGED}));
}

TEST_F(SizingTest, AGraphToldSoKeepsItsSizeUntilItIsFreedAgain) {
    Judged({50, 50});
    Widget node = Node({}, {-5, 100});
    XmGraphDontAdjustSize(graph);
    _XmGraphAdjustSize(graph);
    EXPECT_EQ(PlaceOf(node), (Place{-5, 100}));
    XmGraphLayout(graph);
    EXPECT_EQ(SizeOf(graph), (Place{50, 50}));
    XmGraphAdjustSize(graph);
    EXPECT_EQ(SizeOf(graph), (Place{100, 70}));
}

TEST_F(SizingTest, MoveAllMovesEveryNodeAndWrapsAt16Bits) {
    Judged({50, 50});
    Widget a = Node({}, {10, 20}), b = Node({60, 30, 1}, {30000, 5}, false);
    XmGraphMoveAll(graph, 10000, -25);
    EXPECT_EQ(PlacesOf({a, b}), (Places{{10010, -5}, {40000 - 65536, -20}}));
    EXPECT_EQ(PlaceOf(XtNameToWidget(graph, "dummy")), (Place{10000, -25}));
    EXPECT_EQ(SizeOf(graph), (Place{50, 50}));
}

// ---- Requests and queries -----------------------------------------------------------------------

TEST_F(SizingTest, ChildrenGetWhatTheyAskFor) {
    Judged({50, 50});
    for (WidgetClass kind : {xmPushButtonWidgetClass, xmPushButtonGadgetClass})
        XtVaCreateManagedWidget("x", kind, graph, XtNx, 7, XtNy, 8, nullptr);
    int count = 0;
    WidgetList nodes = XmGraphGetNodes(graph, &count);
    ASSERT_EQ(count, 2);
    EXPECT_EQ(log.reasons(), (std::vector<int>(2, XmCR_LAYOUT_CHANGED))) << "by managing them";
    for (int i = 0; i < count; ++i) {
        SCOPED_TRACE(i);
        const int height = SizeOf(nodes[i]).y;
        XtWidgetGeometry request{};
        request.x = -30;
        request.width = 222;
        request.request_mode = CWX | CWWidth | XtCWQueryOnly;
        EXPECT_EQ(XtMakeGeometryRequest(nodes[i], &request, nullptr), XtGeometryYes);
        EXPECT_EQ(PlaceOf(nodes[i]), (Place{7, 8}));
        request.request_mode = CWX | CWWidth;
        EXPECT_EQ(XtMakeGeometryRequest(nodes[i], &request, nullptr), XtGeometryYes);
        EXPECT_EQ(PlaceOf(nodes[i]), (Place{-30, 8}));
        EXPECT_EQ(SizeOf(nodes[i]), (Place{222, height}));
    }
    EXPECT_EQ(SizeOf(graph), (Place{50, 50}));
}

TEST_F(SizingTest, PrefersRoomForItsNodesAndAtLeastItsSize) {
    // The reply holds 0 where it asks for nothing.
    const struct {
        XtGeometryMask mode;
        Place intended, preferred;
    } queries[] = {
        {0, {}, {150, 80}},
        {CWWidth | CWHeight, {200, 100}, {0, 100}},
        {CWWidth | CWHeight, {120, 90}, {150, 90}},
        {CWWidth, {120, 0}, {150, 80}},
        {CWWidth, {150, 0}, {0, 80}},
        {CWHeight, {0, 30}, {150, 80}},
        {CWHeight, {0, 60}, {150, 0}},
    };
    Judged({100, 80});
    Node({40, 36, 2}, {106, 0});
    for (const auto &[mode, wish, preferred] : queries) {
        SCOPED_TRACE(::testing::Message() << mode << " " << wish);
        XtWidgetGeometry intended{}, reply{};
        intended.request_mode = mode;
        intended.width = static_cast<Dimension>(wish.x);
        intended.height = static_cast<Dimension>(wish.y);
        EXPECT_EQ(XtQueryGeometry(graph, &intended, &reply), XtGeometryAlmost);
        const bool width = reply.request_mode & CWWidth, height = reply.request_mode & CWHeight;
        EXPECT_EQ((Place{width * reply.width, height * reply.height}), preferred);
    }
    XtWidgetGeometry elsewhere{}, reply{};
    elsewhere.request_mode = CWX | CWWidth;
    EXPECT_EQ(XtQueryGeometry(graph, &elsewhere, &reply), XtGeometryYes);
    Judged({10, 10});
    EXPECT_EQ(XtQueryGeometry(graph, nullptr, &reply), XtGeometryAlmost);
    EXPECT_EQ((Place{reply.width, reply.height}), (Place{60, 30})) << "the hidden root counts";
}

TEST_F(SizingTest, AGraphLivesInAShellOrInAForm) {
    for (bool in_form : {false, true}) {
        Widget top = MakeShell(display, "top", 50, 50);
        Widget parent = in_form ? XmCreateForm(top, Name("form"), nullptr, 0) : top;
        MakeGraphIn(parent);
        if (in_form)
            XtManageChild(parent);
        Show(top);
        Node({400, 300});
        XmGraphLayout(graph);
        Pump();
        EXPECT_EQ(SizeOf(graph), (Place{440, 340}));
        EXPECT_EQ(SizeOf(top), (Place{440, 340}));
        XmGraphShowCoverWindow(graph);
        XmGraphHideCoverWindow(graph);
        EXPECT_EQ(GraphPartOf(graph).cover_window, None);
        XtDestroyWidget(top);
    }
}

// ---- Scrolled windows -----------------------------------------------------------------------------

class ScrolledGraphTest : public SizingTest {
protected:
    Widget clip = nullptr;
    Widget bars[2] = {};

    void ShowScrolled(const std::string &bar_policy = "static") {
        SetResource("*scrollBarDisplayPolicy: " + bar_policy);
        graph = XmCreateScrolledGraph(shell, Name("graph"), nullptr, 0);
        EXPECT_FALSE(XtIsManaged(graph));
        XtManageChild(graph);
        XtVaGetValues(ScrolledWindow(), XmNclipWindow, &clip, XmNverticalScrollBar, &bars[0],
                      XmNhorizontalScrollBar, &bars[1], nullptr);
        Show();
        log.Add(graph, XmNgraphChangedCallback);
    }
    Widget ScrolledWindow() { return XtNameToWidget(shell, "graphSW"); }
    Window Cover() { return GraphPartOf(graph).cover_window; }
    bool IsMapped(Window window) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(display, window, &attributes);
        return attributes.map_state != IsUnmapped;
    }
    void ResizeShell(int width, int height) {
        XtVaSetValues(shell, XtNwidth, width, XtNheight, height, nullptr);
        Pump();
    }
};

TEST_F(ScrolledGraphTest, TheGraphIsNeverSmallerThanItsClipWindow) {
    ShowScrolled();
    Widget node = Node();
    XmGraphLayout(graph);
    const Place before = SizeOf(clip);
    EXPECT_EQ(SizeOf(graph), before);
    XtVaSetValues(node, XtNwidth, 2000, nullptr);
    XmGraphLayout(graph);
    EXPECT_EQ(SizeOf(graph), (Place{2040, before.y}));
    XtDestroyWidget(node);
    XmGraphAdjustSize(graph);
    EXPECT_EQ(SizeOf(graph), before);

    ASSERT_GT(SizeOf(ScrolledWindow()).x - before.x, 5);
    log.Clear();
    ResizeShell(645, 485);
    EXPECT_EQ(SizeOf(clip), (Place{before.x + 5, before.y + 5}));
    EXPECT_EQ(SizeOf(graph), before) << "less than the room of the bars";
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_SIZE_CHANGED}));
    ResizeShell(745, 485);
    EXPECT_EQ(SizeOf(graph), SizeOf(clip));

    Node({2000, 30});
    XmGraphDontAdjustSize(graph);
    ResizeShell(800, 700);
    XmGraphLayout(graph);
    EXPECT_EQ(SizeOf(graph), SizeOf(clip));
}

// ---- Bars as needed ------------------------------------------------------------------------------

class BarsAsNeededTest : public ScrolledGraphTest {
protected:
    void SetUp() override {
        ScrolledGraphTest::SetUp();
        SetResource("*graph.background: white");
        ShowScrolled("as_needed");
    }

    // The toolkit puts a bar that is not needed beyond the window's edge.
    bool Shows(Widget bar) {
        const Place at = PlaceOf(bar);
        const Place room = SizeOf(ScrolledWindow());
        return at.x < room.x && at.y < room.y;
    }
    // The bars that are shown and the clip window share the whole of the scrolled window, and what the clip
    // window shows is the graph.
    void ExpectWholeLayout() {
        const Place room = SizeOf(ScrolledWindow());
        const Place inner = {Shows(bars[0]) ? PlaceOf(bars[0]).x : room.x,
                             Shows(bars[1]) ? PlaceOf(bars[1]).y : room.y};
        constexpr int most_between = 8; // spacing, shadows and the frame for the focus
        EXPECT_LE(inner.x - PlaceOf(clip).x - SizeOf(clip).x, most_between);
        EXPECT_LE(inner.y - PlaceOf(clip).y - SizeOf(clip).y, most_between);
        EXPECT_LE(inner.y - SizeOf(bars[0]).y, most_between) << "vertical bar";
        EXPECT_LE(inner.x - SizeOf(bars[1]).x, most_between) << "horizontal bar";

        const Place size = SizeOf(graph);
        const Place view = SizeOf(clip);
        EXPECT_TRUE(Shows(bars[1]) || size.x <= view.x) << "more than is shown, and no bar";
        EXPECT_TRUE(Shows(bars[0]) || size.y <= view.y) << "more than is shown, and no bar";
        EXPECT_GE(size.x, view.x - most_between);
        EXPECT_GE(size.y, view.y - most_between);
    }
};

TEST_F(BarsAsNeededTest, ABarThatGoesLeavesItsRoomToTheGraph) {
    Node({600, 1500});
    XmGraphLayout(graph);
    ResizeShell(400, 300);
    ASSERT_TRUE(Shows(bars[0]) && Shows(bars[1]));
    const Place bar = PlaceOf(bars[1]);
    for (const Place &size : {Place{900, 500}, Place{900, 300}}) {
        ResizeShell(size.x, size.y);
        EXPECT_FALSE(Shows(bars[1]));
        EXPECT_EQ(SizeOf(graph).x, SizeOf(clip).x);
        ExpectWholeLayout();
        const auto strip = Picture::Of(clip, {0, static_cast<short>(SizeOf(clip).y - 20),
                                              static_cast<unsigned short>(SizeOf(clip).x), 20});
        EXPECT_EQ(strip.Count(WhitePixelOfScreen(XtScreen(shell))), strip.area().width * 20);
        ResizeShell(400, 300);
        EXPECT_EQ(PlaceOf(bars[1]), bar);
    }
    ResizeShell(900, 1600);
    EXPECT_FALSE(Shows(bars[0]) || Shows(bars[1]));
    EXPECT_EQ(SizeOf(graph), SizeOf(clip));
}

TEST_F(BarsAsNeededTest, NoResizingLeavesTheWindowHalfLaidOut) {
    Widgets nodes;
    for (int i = 0; i < 12; i++)
        nodes.push_back(Node({90, 40}));
    for (int i = 1; i < 12; i++)
        Arc(nodes[i / 2], nodes[i]);
    XmGraphLayout(graph);
    Widget top = MakeShell(display, "top", 200, 150);
    XmGraphCreateOverView(graph, top);
    Show(top);
    Random random(7);
    for (int round = 0; round < 150; round++) {
        SCOPED_TRACE(round);
        if (round % 10 == 0)
            XtVaSetValues(graph, XmNeditable, round % 20 == 0, nullptr);
        // Nodes that grow and shrink take no room before the next adjustment, which may be that of a resize.
        if (round % 7 == 0)
            XtResizeWidget(nodes[11], static_cast<Dimension>(random.Between(30, 500)),
                           static_cast<Dimension>(random.Between(30, 300)), 0);
        const Place old = SizeOf(shell);
        const int kind = random.Between(0, 2);
        ResizeShell(kind == 0 ? old.x : random.Between(60, 900),
                    kind == 1 ? old.y : random.Between(60, 700));
        ExpectWholeLayout();
    }
    XtDestroyWidget(top);
}

TEST_F(ScrolledGraphTest, TheBarsStepByTheGraphsIncrementAndEachStepIsTold) {
    ShowScrolled();
    Node({3000, 3000});
    XmGraphLayout(graph);
    Pump();
    log.Clear();
    Click(bars[0], SizeOf(bars[0]).x / 2, SizeOf(bars[0]).y - 5);
    ASSERT_EQ(log.reasons(), (std::vector<int>{XmCR_GRAPH_SCROLLED}));
    EXPECT_EQ(log.back().data.widget, nullptr);
    EXPECT_EQ(PlaceOf(graph), (Place{0, -10}));

    XtVaSetValues(graph, XmNincrement, 25, nullptr);
    for (Widget bar : bars) {
        XmScrollBarSetValues(bar, 40, 0, 7, 99, True);
        _XmGraphFixScrollBarInc(graph);
        int value = 0, slider = 0, increment = 0, page = 0;
        XmScrollBarGetValues(bar, &value, &slider, &increment, &page);
        EXPECT_EQ((std::vector{value, increment, page}), (std::vector{40, 25, 99}));
    }
}

TEST_F(ScrolledGraphTest, ThereIsOneCoverHoweverOftenTheGraphIsRealised) {
    ShowScrolled();
    for (Widget unrealised : {graph, shell}) {
        XtUnrealizeWidget(unrealised);
        XmGraphShowCoverWindow(graph);
        XmGraphHideCoverWindow(graph);
        ResizeShell(unrealised == graph ? 500 : 450, 400);
        XtRealizeWidget(unrealised);
        Pump();
        Window root = None, parent = None, *windows = nullptr;
        unsigned count = 0;
        XQueryTree(display, XtWindow(clip), &root, &parent, &windows, &count);
        EXPECT_EQ(count, 2u) << "the graph and its cover";
        XFree(windows);
        EXPECT_FALSE(IsMapped(Cover()));
    }
}

TEST_F(ScrolledGraphTest, TheCoverIsShownAsOftenAsItIsAskedForAndHiddenOtherwise) {
    ShowScrolled();
    ASSERT_NE(Cover(), None);
    EXPECT_FALSE(IsMapped(Cover())) << "from the start";
    Recorder recorder;
    XmGraphShowCoverWindow(graph);
    XmGraphShowCoverWindow(graph);
    XmGraphHideCoverWindow(graph);
    EXPECT_TRUE(IsMapped(Cover()));
    EXPECT_EQ(recorder.Calls("XMapRaised", Cover()).size(), 1u);
    XmGraphHideCoverWindow(graph);
    EXPECT_FALSE(IsMapped(Cover()));
    XMapWindow(display, Cover());
    XmGraphHideCoverWindow(graph);
    EXPECT_FALSE(IsMapped(Cover())) << "hidden without having been shown";
    XmGraphShowCoverWindow(graph);
    EXPECT_TRUE(IsMapped(Cover()));
    XmGraphHideCoverWindow(graph);

    Node();
    recorder.Clear();
    XmGraphLayout(graph);
    EXPECT_EQ(recorder.Calls("XMapRaised", Cover()).size(), 1u);
    EXPECT_EQ(recorder.Calls("XUnmapWindow", Cover()).size(), 1u);

    ResizeShell(700, 600);
    XWindowAttributes attributes{};
    XGetWindowAttributes(display, Cover(), &attributes);
    EXPECT_EQ((Place{attributes.width, attributes.height}), SizeOf(clip));
}

} // namespace
} // namespace corvidlmw::test
