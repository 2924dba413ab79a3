#include <tests/graph/GraphTest.h>

#include <X11/StringDefs.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <climits>
#include <map>
#include <memory>
#include <utility>

namespace {

using namespace corvidlmw::test;

class DeathTest : public GraphTest {
protected:
    Widget a = nullptr;
    Widget b = nullptr;
    Widget c = nullptr;
    Widgets arcs;                 // a to b twice, b to a, a to a, b to c
    std::map<Widget, int> deaths; // of all that is alive or died in this test

    void On(Widget widget, const char *callback_list, std::function<void()> act) {
        acts.push_back(std::make_unique<std::function<void()>>(std::move(act)));
        XtAddCallback(
            widget, callback_list,
            [](Widget, XtPointer closure, XtPointer) {
                (*static_cast<std::function<void()> *>(closure))();
            },
            acts.back().get());
    }

    void OnDeath(Widget widget, std::function<void()> act) {
        On(widget, XtNdestroyCallback, std::move(act));
    }

    void Watch(Widget widget) {
        deaths[widget] = 0;
        OnDeath(widget, [this, widget] { deaths[widget] += 1; });
    }

    // For the next life in the same test.
    void Forget() {
        RunWorkProcs();
        deaths.clear();
    }

    void DestroyLiving(Widget widget) {
        if (deaths[widget] == 0)
            XtDestroyWidget(widget);
    }

    // Graph and window take each other along.
    void MakeScrolledGraph() {
        XtManageChild(graph = XmCreateScrolledGraph(shell, Name("graph"), nullptr, 0));
        Watch(XtParent(XtParent(graph)));
    }

    void Populate() {
        a = MakeButton("a", 20, 20);
        b = MakeButton("b", 200, 20);
        c = MakeButton("c", 200, 200);
        arcs = {Arc(a, b), Arc(a, b), Arc(b, a), Arc(a, a), Arc(b, c)};
        for (Widget widget : {graph, a, b, c})
            Watch(widget);
        for (Widget arc : arcs)
            Watch(arc);
        XmGraphInsertRoots(graph, &b, 1);
    }

    void ExpectDead(const Widgets &dead) {
        for (const auto &[widget, count] : deaths)
            EXPECT_EQ(count, std::count(dead.begin(), dead.end(), widget) ? 1 : 0);
    }

    void ExpectAllDead() {
        for (const auto &[widget, count] : deaths)
            EXPECT_EQ(count, 1);
    }

    // The graph still serves, also from the memory of what died.
    void ExpectUsable() {
        ExpectConsistent(graph);
        Widgets fresh;
        for (int i = 0; i < 12; i++)
            fresh.push_back(MakeButton("fresh"));
        for (size_t i = 0; i < fresh.size(); i++)
            Arc(fresh[i], fresh[i * 5 % 7]);
        XmGraphLayout(graph);
        Pump();
        ExpectConsistent(graph);
    }

private:
    std::vector<std::unique_ptr<std::function<void()>>> acts;
};

// ---- Every order, in each situation that the toolkit destroys in ------------------------

enum class Situation { BeforeRealisation, BetweenEvents, InADispatch, InAScrolledGraph };

class DeathOrderTest : public DeathTest, public ::testing::WithParamInterface<Situation> {
protected:
    void SetUp() override {
        DeathTest::SetUp();
        if (GetParam() == Situation::InAScrolledGraph)
            MakeScrolledGraph();
        else
            MakeGraph();
        Populate();
        XmGraphLayout(graph);
        if (GetParam() != Situation::BeforeRealisation)
            Show();
    }

    void Do(const std::function<void()> &act) {
        if (GetParam() == Situation::InADispatch)
            InDispatch(act);
        else
            act();
    }
};

INSTANTIATE_TEST_SUITE_P(Each, DeathOrderTest,
                         ::testing::Values(Situation::BeforeRealisation, Situation::BetweenEvents,
                                           Situation::InADispatch, Situation::InAScrolledGraph));

TEST_P(DeathOrderTest, ANodeDetachesItsArcsAtOnceAndAWorkProcedureDestroysThem) {
    Do([&] { XtDestroyWidget(b); });
    EXPECT_EQ(ArcsOf(graph), Widgets{arcs[3]});
    ExpectDead({b});
    ExpectConsistent(graph);
    for (size_t i : {0U, 1U, 2U, 4U})
        EXPECT_FALSE(ArcPartOf(arcs[i]).to || ArcPartOf(arcs[i]).siblings);
    EXPECT_EQ(GraphPartOf(graph).user_roots.count, 0);

    RunWorkProcs();
    ExpectDead({b, arcs[0], arcs[1], arcs[2], arcs[4]});
    ExpectUsable();
}

TEST_P(DeathOrderTest, ArcsMayDieBeforeTheirNodesAndBeforeTheirTurn) {
    Do([&] {
        for (size_t i : {1U, 0U, 3U})
            XtDestroyWidget(arcs[i]);
        XtDestroyWidget(a);
        XtDestroyWidget(arcs[2]);
    });
    RunWorkProcs();
    ExpectDead({a, arcs[0], arcs[1], arcs[2], arcs[3]});
    XtDestroyWidget(b);
    Do([&] { XtDestroyWidget(arcs[4]); });
    RunWorkProcs();
    ExpectDead({a, b, arcs[0], arcs[1], arcs[2], arcs[3], arcs[4]});
    ExpectUsable();
}

TEST_P(DeathOrderTest, AGraphTakesAllAlongAtOnce) {
    Do([&] { XtDestroyWidget(graph); });
    ExpectAllDead();
    RunWorkProcs();
}

TEST_P(DeathOrderTest, ADestroyCallbackMayDestroyTheGraph) {
    OnDeath(arcs[1], [&] { XtDestroyWidget(graph); });
    Do([&] { XtDestroyWidget(arcs[1]); });
    RunWorkProcs();
    ExpectAllDead();
}

TEST_P(DeathOrderTest, WaitingArcsGoWithTheirGraphOrItsShell) {
    XtDestroyWidget(b);
    Do([&] {
        XtDestroyWidget(a);
        XtDestroyWidget(GetParam() == Situation::BetweenEvents ? shell : graph);
    });
    ExpectAllDead();
    RunWorkProcs();
}

TEST_P(DeathOrderTest, AllArcsOrAllNodesMayGoAtOnce) {
    Do([&] { XmGraphDestroyAllArcs(graph); });
    EXPECT_TRUE(ArcsOf(graph).empty());
    ExpectDead(arcs);
    ExpectConsistent(graph);
    Arc(a, b);
    Do([&] { XmGraphDestroyAllNodes(graph); });
    RunWorkProcs();
    EXPECT_TRUE(NodesOf(graph).empty() && ArcsOf(graph).empty());
    ExpectUsable();
}

TEST_P(DeathOrderTest, DestroyCallbacksMayDestroyNeighbours) {
    const std::function<void()> beginnings[] = {
        [&] { XtDestroyWidget(a); },
        [&] { XmGraphDestroyAllNodes(graph); },
        [&] { XmGraphDestroyAllArcs(graph); },
    };
    for (const auto &begin : beginnings) {
        for (Widget first : {a, arcs[0]})
            OnDeath(first, [&] { DestroyLiving(arcs[4]); });
        OnDeath(arcs[4], [&] { DestroyLiving(c); });
        OnDeath(c, [&] { DestroyLiving(b); });
        Do(begin);
        RunWorkProcs();
        EXPECT_EQ(deaths[b] + deaths[c], 2);
        for (Widget arc : {arcs[0], arcs[1], arcs[2], arcs[4]})
            EXPECT_EQ(deaths[arc], 1);
        ExpectUsable();
        XmGraphDestroyAllNodes(graph);
        RunWorkProcs();
        Populate();
    }
}

// ---- The toolkit's order of destruction in a dispatch -------------------------------------

// Arcs are no children in the toolkit's eyes: it may come to them after their graph.
TEST_F(DeathTest, ArcsMayOutliveTheirGraphInADispatch) {
    MakeGraph();
    Show();
    const std::function<void()> orders[] = {
        [&] {
            for (Widget widget : {graph, arcs[1], arcs[4], arcs[3]})
                XtDestroyWidget(widget);
        },
        [&] {
            XtDestroyWidget(arcs[1]);
            InDispatch([&] { XtDestroyWidget(graph); });
        },
        [&] {
            XmGraphDestroyAllArcs(graph);
            InDispatch([&] { XtDestroyWidget(graph); });
        },
        [&] {
            XtDestroyWidget(b);
            XtDestroyWidget(arcs[4]);
            InDispatch([&] { XtDestroyWidget(graph); });
        },
    };
    for (const auto &destroy : orders) {
        Populate();
        XtDestroyWidget(c);
        InDispatch(destroy);
        RunWorkProcs();
        ExpectAllDead();
        deaths.clear();
        MakeGraph();
    }
}

// ---- In callbacks of the graph and of its nodes --------------------------------------

TEST_F(DeathTest, AButtonMayDestroyItselfWhenActivated) {
    for (WidgetClass node_class : {xmPushButtonGadgetClass, xmPushButtonWidgetClass}) {
        MakeGraph();
        Populate();
        Widget button =
            XtVaCreateManagedWidget("ok", node_class, graph, XmNx, 20, XmNy, 200, nullptr);
        Arc(button, a);
        Arc(b, button);
        Watch(button);
        On(button, XmNactivateCallback, [&] { XtDestroyWidget(button); });
        Show();
        Click(button, 5, 5);
        EXPECT_EQ(deaths[button], 1);
        MoveTo(graph, 25, 205);
        Press();
        Release();
        RunWorkProcs();
        EXPECT_EQ(ArcsOf(graph), arcs);
        ExpectUsable();
        XtDestroyWidget(graph);
        deaths.clear();
    }
}

TEST_F(DeathTest, ANodeMayDieInAnyGraphChangedCallback) {
    MakeGraph();
    Show();
    const std::function<void()> entries[] = {
        [&] { XmGraphLayout(graph); },
        [&] { XtUnmanageChild(a); },
        [&] { XtManageChild(MakeButton("d")); },
        [&] { XtDestroyWidget(arcs[0]); },
        [&] { XtDestroyWidget(a); },
        [&] { XmGraphRelaySubgraph(graph, a); },
        [&] { XtVaSetValues(graph, XmNreorient, True, nullptr); },
        [&] { XmGraphDestroyAllArcs(graph); },
        [&] { XmGraphDestroyAllNodes(graph); },
    };
    for (const auto &enter : entries)
        for (Widget *victim : {&b, &c}) {
            Populate();
            XmGraphMoveNode(graph, a, 1000, 900);
            bool acted = false;
            On(graph, XmNgraphChangedCallback, [&] {
                if (!std::exchange(acted, true))
                    XtDestroyWidget(*victim);
            });
            enter();
            XtRemoveAllCallbacks(graph, XmNgraphChangedCallback);
            EXPECT_TRUE(acted);
            RunWorkProcs();
            ExpectUsable();
            XmGraphDestroyAllNodes(graph);
            Forget();
        }
}

TEST_F(DeathTest, AGraphMayDieInItsOwnCallbackOutsideOfADispatch) {
    const std::function<void()> entries[] = {
        [&] { XmGraphLayout(graph); },
        [&] { XmGraphRelaySubgraph(graph, a); },
        [&] { XmGraphMoveArc(graph, arcs[0], b, c); },
        [&] {
            XmGraphMoveNode(graph, a, 1000, 900);
            XmGraphAdjustSize(graph);
        },
    };
    for (const auto &enter : entries) {
        MakeGraph(XmNautoLayoutMode, XmPARTIAL);
        Populate();
        XmGraphMoveNode(graph, c, 1000, 900);
        Show();
        bool acted = false;
        On(graph, XmNgraphChangedCallback, [&] {
            if (!std::exchange(acted, true))
                XtDestroyWidget(graph);
        });
        enter();
        EXPECT_TRUE(acted);
        EXPECT_EQ(deaths[graph], 1);
        Forget();
    }
}

// ---- Scrolled windows ------------------------------------------------------------------

TEST_F(DeathTest, AClientsScrolledWindowForgetsItsGraph) {
    Widget window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, shell,
                                            XmNscrollingPolicy, XmAUTOMATIC, nullptr);
    Show();
    for (int round = 0; round < 3; round++) {
        graph = XmCreateManagedGraph(window, Name("graph"), nullptr, 0);
        Populate();
        MakeButton("far", 2000, 2000);
        XmGraphAdjustSize(graph);
        CallbackLog<> log;
        log.Add(graph, XmNgraphChangedCallback);
        auto bar = reinterpret_cast<Widget>(ValueOf(window, XmNverticalScrollBar));
        XmScrollBarSetValues(bar, 30, 0, 0, 0, True);
        EXPECT_EQ(log.reasons(), std::vector<int>{XmCR_GRAPH_SCROLLED});
        XtDestroyWidget(graph);
        log.Clear();
        for (const char *name : {XmNverticalScrollBar, XmNhorizontalScrollBar}) {
            bar = reinterpret_cast<Widget>(ValueOf(window, name));
            for (const char *list : {XmNvalueChangedCallback, XmNdragCallback, XmNincrementCallback,
                                     XmNdecrementCallback, XmNpageIncrementCallback})
                XtCallCallbacks(bar, list, nullptr);
        }
        XtVaSetValues(shell, XtNwidth, 500 - 50 * round, XtNheight, 300, nullptr);
        Pump();
        EXPECT_TRUE(log.empty());
    }
}

TEST_F(DeathTest, BarsThatAreOlderThanTheirGraphMayDieFirst) {
    Widget window = XtVaCreateManagedWidget("window", xmScrolledWindowWidgetClass, shell, nullptr);
    for (const char *name : {XmNverticalScrollBar, XmNhorizontalScrollBar})
        XtVaSetValues(window, name,
                      XtVaCreateManagedWidget("bar", xmScrollBarWidgetClass, window, nullptr),
                      nullptr);
    graph = XmCreateManagedGraph(window, Name("graph"), nullptr, 0);
    Show();
    Watch(graph);
    XtDestroyWidget(window);
    ExpectAllDead();
}

TEST_F(DeathTest, AllThatXmNchildrenNamesMayDieAlsoWhatIsNoNode) {
    MakeGraph();
    Widget object = XtCreateWidget("object", objectClass, graph, nullptr, 0);
    Populate();
    EXPECT_EQ(NodesOf(graph), (Widgets{a, b, c}));
    Show();
    ExpectUsable();
    XtDestroyWidget(object);
    auto children = reinterpret_cast<WidgetList>(ValueOf(graph, XmNchildren));
    for (Widget child : Widgets(children, children + CompositeOf(graph).num_children))
        XtDestroyWidget(child);
    EXPECT_EQ(XmGraphNumNodes(graph), 0);
    ExpectUsable();
}

TEST_F(DeathTest, NeitherAWaitingArcNorOneToADyingNodeIsAttached) {
    MakeGraph();
    Populate();
    Show();
    Widget late = nullptr;
    OnDeath(a, [&] { late = Arc(a, c); });
    XtDestroyWidget(a);
    ASSERT_TRUE(late);
    EXPECT_FALSE(ArcPartOf(late).from || ArcPartOf(late).to);
    XtVaSetValues(arcs[0], XmNfrom, c, XmNto, b, nullptr);
    EXPECT_FALSE(ArcPartOf(arcs[0]).from);
    EXPECT_EQ(ArcsIn(NodeRecOf(c)->to_arcs), Widgets{arcs[4]});
    XtDestroyWidget(c);
    ExpectUsable();
}

// Each life has colours of its own, so that no shared GC serves two of them. The foreground is set
// first: after the background it makes the toolkit's gadgets lose a GC, in its own managers too.
TEST_F(DeathTest, AGraphGivesAllItsServerResourcesBack) {
    Pixel color = 0x100;
    auto live = [&](bool scrolled) {
        scrolled ? MakeScrolledGraph() : MakeGraph();
        Populate();
        for (Widget arc : arcs)
            XtVaSetValues(arc, XmNforeground, ++color, XmNmapLabel, True, XmNfontList, nullptr,
                          nullptr);
        const char *const resources[] = {XmNforeground, XmNbackground, XmNhighlightColor,
                                         XmNoverviewLineColor, XmNoverviewNodeColor};
        for (const char *resource : resources)
            XtVaSetValues(graph, resource, ++color, nullptr);
        XmGraphLayout(graph);
        Show();
        XtDestroyWidget(scrolled ? XtParent(XtParent(graph)) : graph);
        ExpectAllDead();
        Forget();
    };
    live(true);
    live(false);
    const ServerResources before = ServerResources::Of(display);
    for (int i = 0; i < 50; i++)
        live(i % 2 == 0);
    EXPECT_EQ(ServerResources::Of(display), before);
}

// ---- Odd children ----------------------------------------------------------------------

Cardinal wild_position = 0;

TEST_F(DeathTest, AnInsertPositionProcedureMaySayAnything) {
    XtOrderProc wild = [](Widget) { return wild_position; };
    for (Cardinal position : {0U, 1U, 2U, 77U, UINT_MAX}) {
        wild_position = position;
        MakeGraph(XmNinsertPosition, wild);
        Populate();
        EXPECT_EQ(GraphPartOf(graph).root, NodeRecOf(CompositeOf(graph).children[0]));
        const Widgets expected = position < 2    ? Widgets{c, b, a}
                                 : position == 2 ? Widgets{a, c, b}
                                                 : Widgets{a, b, c};
        EXPECT_EQ(NodesOf(graph), expected) << position;
        ExpectUsable();
        XtDestroyWidget(graph);
        deaths.clear();
    }
}

// An arc of a subclass stands among the children, without a record.
TEST_F(DeathTest, AnArcOfASubclassLivesAmongTheChildren) {
    static XmArcClassRec subclass{.core_class = {
                                      .superclass = xmArcWidgetClass,
                                      .class_name = Name("FineArc"),
                                      .widget_size = sizeof(XmArcRec) + 64,
                                      .realize = XtInheritRealize,
                                      .xrm_class = NULLQUARK,
                                      .resize = XtInheritResize,
                                      .expose = XtInheritExpose,
                                      .set_values_almost = XtInheritSetValuesAlmost,
                                      .version = XtVersion,
                                  }};
    auto fine_class = reinterpret_cast<WidgetClass>(&subclass);
    for (Situation situation : {Situation::BeforeRealisation, Situation::BetweenEvents}) {
        MakeGraph();
        Populate();
        if (situation == Situation::BetweenEvents)
            Show();
        Widgets fine;
        for (Widget from : {a, b, c})
            for (Widget to : {a, c})
                fine.push_back(XtVaCreateManagedWidget("fine", fine_class, graph, XmNfrom, from,
                                                       XmNto, to, nullptr));
        EXPECT_EQ(CompositeOf(graph).num_children, 1U + 3U + 6U);
        EXPECT_EQ(ArcsOf(graph), arcs);
        EXPECT_EQ(SiblingsOf(arcs[3]), (Widgets{arcs[3], fine[0]}));
        XmGraphMoveAll(graph, 3, 3);
        XtVaSetValues(graph, XmNeditable, True, nullptr);
        ExpectUsable();
        Show();
        XtDestroyWidget(fine[0]);
        EXPECT_EQ(ArcPartOf(arcs[3]).siblings, nullptr);
        XtDestroyWidget(a);
        RunWorkProcs();
        EXPECT_EQ(CompositeOf(graph).num_children, 1U + 2U + 2U + 12U);
        ExpectUsable();
        XtDestroyWidget(graph);
        deaths.clear();
    }
}

} // namespace
