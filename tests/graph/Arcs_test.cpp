#include <tests/graph/GraphTest.h>

namespace {

using namespace corvidlmw::test;

class ArcsTest : public GraphTest {
protected:
    Widget a = nullptr;
    Widget b = nullptr;
    Widget c = nullptr;

    void SetUp() override {
        GraphTest::SetUp();
        MakeGraph();
        a = MakeButton("a", 20, 20);
        b = MakeButton("b", 200, 20);
        c = MakeButton("c", 200, 200);
    }

    static void ExpectDetached(Widget arc) {
        EXPECT_EQ(ArcPartOf(arc).to, nullptr);
        EXPECT_EQ(ArcPartOf(arc).from, nullptr);
        EXPECT_EQ(ArcPartOf(arc).siblings, nullptr);
    }

    void ExpectOnlyWarning(const char *warning) {
        EXPECT_EQ(warnings(), std::vector<std::string>{warning});
        ExpectWarning(warning);
    }

    static std::vector<int> RanksOf(const Widgets &arcs) {
        std::vector<int> ranks;
        for (Widget arc : arcs)
            ranks.push_back(_sibling_rank(arc));
        return ranks;
    }
    static std::vector<int> DrawnRanksOf(const Widgets &arcs) {
        std::vector<int> ranks;
        for (Widget arc : arcs)
            ranks.push_back(ArcPartOf(arc).sibling_rank);
        return ranks;
    }
};

using Ranks = std::vector<int>;

TEST_F(ArcsTest, ParallelArcsInEitherDirectionShareOneListAndKeepItsRanks) {
    const Widgets all = {Arc(a, b), Arc(b, a), Arc(a, b)};
    EXPECT_EQ(ArcsOf(graph), all);
    EXPECT_EQ(ValueOf(all[0], XmNmappedWhenManaged), False);
    EXPECT_EQ(NodesIn(NodeRecOf(a)->tree_children), Widgets{b});
    EXPECT_EQ(ArcPartOf(all[0]).siblings, ArcPartOf(all[1]).siblings);
    EXPECT_EQ(RanksOf(all), (Ranks{0, 1, 2}));
    XtVaSetValues(graph, XmNtwinsVisible, False, nullptr);
    EXPECT_EQ(RanksOf(all), (Ranks{0, 0, 0}));
    XtVaSetValues(graph, XmNtwinsVisible, True, nullptr);
    XtDestroyWidget(all[1]);
    EXPECT_EQ(RanksOf({all[0], all[2]}), (Ranks{0, 1}));
    XtDestroyWidget(all[0]);
    EXPECT_EQ(_sibling_rank(all[2]), 0);
}

TEST_F(ArcsTest, ADyingTwinCountsForNoRank) {
    const Widgets all = {Arc(a, b), Arc(a, b), Arc(a, b)};
    Show();
    InDispatch([&] {
        XtDestroyWidget(all[0]);
        EXPECT_EQ(SiblingsOf(all[2]), all);
        EXPECT_EQ(RanksOf({all[1], all[2]}), (Ranks{0, 1}));
    });
    EXPECT_EQ(SiblingsOf(all[2]), (Widgets{all[1], all[2]}));
}

// The arcs of three lists of siblings take turns in the order of drawing.
TEST_F(ArcsTest, EachRepaintGivesEveryTwinItsOwnRank) {
    Widgets all;
    for (int i = 0; i < 4; i++)
        all.insert(all.end(), {Arc(a, b), Arc(b, c), Arc(c, c)});
    Show();
    const Ranks in_order = {0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3};
    EXPECT_EQ(DrawnRanksOf(all), in_order);
    XmGraphMoveNode(graph, c, 220, 220);
    EXPECT_EQ(DrawnRanksOf(all), in_order);
    XmGraphSelectArcs(graph, Widgets(all.rbegin(), all.rend()).data(), 12, False);
    EXPECT_EQ(DrawnRanksOf(all), in_order);
    InDispatch([&] {
        XtDestroyWidget(all[0]);
        XtDestroyWidget(all[5]);
        XmGraphMoveAll(graph, 5, 5);
        EXPECT_EQ(DrawnRanksOf(all), (Ranks{0, 0, 0, 0, 1, 1, 1, 2, 1, 2, 3, 2}));
    });
    EXPECT_EQ(DrawnRanksOf(ArcsOf(graph)), (Ranks{0, 0, 0, 1, 1, 2, 1, 2, 3, 2}));
}

TEST_F(ArcsTest, AnArcWithoutBothEndsIsDetached) {
    ExpectDetached(XmCreateArc(graph, Name("none"), nullptr, 0));
    ExpectDetached(XtVaCreateWidget("from", xmArcWidgetClass, graph, XmNfrom, a, nullptr));
    EXPECT_TRUE(warnings().empty());
    ExpectDetached(XtVaCreateWidget("to", xmArcWidgetClass, graph, XmNto, a, nullptr));
    ExpectOnlyWarning("You must specify both a to and from widget when creating an XmArcWidget");
    EXPECT_EQ(NodeRecOf(a)->from_arcs.count + NodeRecOf(a)->to_arcs.count, 0);
    Show();
    XtManageChildren(ArcsOf(graph).data(), 3);
    Pump();
    XtDestroyWidget(a);
}

TEST_F(ArcsTest, AnEndMovesAloneButNotToNothing) {
    Widget arc = Arc(a, b);
    XtVaSetValues(arc, XmNto, c, XmNforeground, Pixel{0x44}, nullptr);
    EXPECT_EQ(ArcPartOf(arc).from, a);
    EXPECT_EQ(NodesIn(NodeRecOf(a)->children), Widgets{c});
    EXPECT_EQ(NodeRecOf(b)->to_arcs.count + NodeRecOf(b)->parents.count, 0);
    EXPECT_EQ(ArcPartOf(arc).foreground, 0x44u);
    Position x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    XmArcGetPos(arc, &x1, &y1, &x2, &y2);
    EXPECT_EQ(arc->core.x, x1);
    EXPECT_EQ(static_cast<Position>(arc->core.height), y2);

    XtVaSetValues(arc, XmNto, nullptr, nullptr);
    ExpectOnlyWarning("Arc widget should have non-null to and from widgets");
    EXPECT_EQ(ArcPartOf(arc).from, a);
    EXPECT_EQ(ArcsIn(NodeRecOf(c)->to_arcs), Widgets{arc});
}

TEST_F(ArcsTest, EndsThatAreNoNodesOfThisGraphAttachNothing) {
    Widget other = XmCreateGraph(XtVaCreateWidget("box", xmGraphWidgetClass, graph, nullptr),
                                 Name("other"), nullptr, 0);
    Widget foreign = XtVaCreateWidget("node", xmPushButtonGadgetClass, other, nullptr);
    Widget arc = Arc(a, b);
    Widget popup = XtVaCreatePopupShell("popup", transientShellWidgetClass, graph, nullptr);
    for (Widget end : {foreign, graph, arc, shell, popup}) {
        ExpectDetached(Arc(end, b));
        ExpectDetached(Arc(a, end));
        XtVaSetValues(arc, XmNto, end, nullptr);
        EXPECT_EQ(ArcPartOf(arc).to, b);
    }
    EXPECT_EQ(ArcsIn(NodeRecOf(a)->from_arcs), Widgets{arc});
    EXPECT_EQ(ArcsIn(NodeRecOf(b)->to_arcs), Widgets{arc});
    EXPECT_EQ(NodeRecOf(foreign)->from_arcs.count + NodeRecOf(foreign)->to_arcs.count, 0);
}

TEST_F(ArcsTest, AnArcOutsideOfAGraphIsFatal) {
    ExpectFatal([](Widget any_shell) { XmCreateArc(any_shell, Name("arc"), nullptr, 0); },
                "Arc widget can only be managed by an XmGraph widget");
}

} // namespace
