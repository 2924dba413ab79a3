// Scrolling and zooming by function: what the scroll bars are set to.
#include <tests/graph/ScrolledGraph.h>

#include <limits>

namespace corvidlmw::test {
namespace {

class Viewport : public ScrolledGraph {
protected:
    void SetUp() override {
        ScrolledGraph::SetUp();
        XtVaSetValues(graph, XmNincrement, 7, nullptr);
        nodes = Grid(12, 12);
        ShowGraph();
        clip = SizeOf(XtParent(graph));
    }

    Place Spacing() const {
        return {static_cast<int>(ValueOf(graph, XmNchildSpacing)),
                static_cast<int>(ValueOf(graph, XmNsiblingSpacing))};
    }

    Widgets nodes;
    Place clip;
};

TEST_F(Viewport, CentresANodeAsFarAsTheBarsGo) {
    GraphLog log;
    log.Add(graph, XmNgraphChangedCallback);
    XmGraphCenterAroundWidget(graph, nodes[5 * 12 + 6]);
    EXPECT_EQ(Scrolled(), (Place{630 - clip.x / 2, 315 - clip.y / 2}));
    EXPECT_EQ(PlaceOf(graph), (Place{-Scrolled().x, -Scrolled().y}));
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_GRAPH_SCROLLED, XmCR_GRAPH_SCROLLED}));
    EXPECT_EQ(StateOf(XmNverticalScrollBar).increment, 7);

    XmGraphCenterAroundWidget(graph, nodes.front());
    EXPECT_EQ(Scrolled(), (Place{0, 0}));
    XmGraphCenterAroundWidget(graph, nodes.back());
    EXPECT_EQ(Scrolled(), FarEnd());
    XmGraphCenterAroundWidget(graph, nullptr);
    EXPECT_EQ(Scrolled(), FarEnd());
}

TEST_F(Viewport, ScrollsOnlyToWhatIsNotInViewAndNeverPastTheRightEdge) {
    XmGraphMakeWidgetVisible(graph, nodes[2 * 12 + 11]);
    EXPECT_EQ(Scrolled(), (Place{0, 0})) << "past the right edge alone";
    XmGraphMakeWidgetVisible(graph, nodes[1 * 12 + 1]);
    EXPECT_EQ(Scrolled(), (Place{0, 0})) << "in view";
    XmGraphMakeWidgetVisible(graph, nodes[8 * 12 + 8]);
    const Place centred = {830 - clip.x / 2, 495 - clip.y / 2};
    EXPECT_EQ(Scrolled(), centred) << "below";
    ScrollBars({500, 255});
    XmGraphMakeWidgetVisible(graph, nodes[4 * 12 + 8]);
    EXPECT_EQ(Scrolled(), (Place{centred.x, 255 - clip.y / 2})) << "half out at the top";
    ScrollBars({700, 200});
    XmGraphMakeWidgetVisible(graph, nodes[5 * 12 + 7]);
    EXPECT_EQ(Scrolled(), (Place{730 - clip.x / 2, 315 - clip.y / 2})) << "touches the left edge";
}

TEST_F(Viewport, TakesTheSameShareOfTheBarsAsOfTheGraph) {
    const Place size = SizeOf(graph);
    XmGraphCenterAtPos(graph, size.x / 4, size.y / 2);
    EXPECT_EQ(Scrolled(), (Place{FarEnd().x / 4, FarEnd().y / 2}));
    XmGraphCenterAtPos(graph, size.x, size.y);
    EXPECT_EQ(Scrolled(), FarEnd());
    XmGraphCenterAtPos(graph, -5, -5);
    EXPECT_EQ(Scrolled(), (Place{0, 0}));
}

TEST_F(Viewport, ZoomScalesTheSpacingsAndKeepsTheShareOfTheView) {
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const struct {
        Place before;
        float factor;
        Place after;
    } examples[] = {
        {{40, 30}, 2, {80, 60}},      {{40, 30}, -2, {20, 15}},    {{40, 30}, 0.5, {20, 15}},
        {{40, 30}, -1, {40, 30}},     {{40, 30}, 0, {1, 1}},       {{41, 31}, -2, {20, 15}},
        {{40, 30}, 0.01F, {1, 1}},    {{4097, 30}, 2, {4097, 30}}, {{40, 4097}, 0.5, {40, 4097}},
        {{4097, 30}, -2, {2048, 15}}, {{4096, 30}, 2, {8192, 60}}, {{40, 30}, nan, {40, 30}},
    };
    XtVaSetValues(
        graph, XmNlayoutProc, +[](Widget) {}, nullptr);
    for (const auto &example : examples) {
        XtVaSetValues(graph, XmNchildSpacing, example.before.x, XmNsiblingSpacing, example.before.y,
                      nullptr);
        XmGraphZoom(graph, example.factor);
        EXPECT_EQ(Spacing(), example.after) << example.before << " by " << example.factor;
    }

    // The layout makes the graph twice as large, so the middle of the view stays in proportion.
    XtVaSetValues(graph, XmNchildSpacing, 40, XmNsiblingSpacing, 30, nullptr);
    ScrollBars({200, 100});
    const Place old_size = SizeOf(graph);
    XtVaSetValues(
        graph, XmNlayoutProc,
        +[](Widget g) { XtResizeWidget(g, static_cast<Dimension>(2 * g->core.width), 1500, 0); },
        nullptr);
    XmGraphZoom(graph, 2);
    const float share_x = static_cast<float>(200 + clip.x / 2) / static_cast<float>(old_size.x);
    const int middle = static_cast<int>(static_cast<float>(2 * old_size.x) * share_x);
    const float product = static_cast<float>(FarEnd().x * middle);
    EXPECT_EQ(Scrolled().x, static_cast<int>(product / static_cast<float>(2 * old_size.x)));
}

TEST_F(Viewport, DoesNothingOutsideOfAScrolledWindow) {
    Widget scrolled_graph = graph;
    MakeGraphIn(board, XmNx, 450);
    Widget node = MakeButton("node", 10, 10);
    for (Widget each : {graph, node, static_cast<Widget>(nullptr)}) {
        XmGraphCenterAroundWidget(each, node);
        XmGraphMakeWidgetVisible(each, node);
        XmGraphCenterAtPos(each, 500, 500);
        XmGraphZoom(each, 2);
    }
    EXPECT_EQ(Spacing(), (Place{80, 60})) << "zoomed all the same";
    graph = scrolled_graph;
    EXPECT_EQ(Scrolled(), (Place{0, 0}));
}

} // namespace
} // namespace corvidlmw::test
