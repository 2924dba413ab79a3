/* Selection, structure and picking by function: order and data of callbacks, warnings, who owns what. */

#include <tests/graph/EditTest.h>

#include <algorithm>
#include <cstring>

namespace corvidlmw::test {
namespace {

class Selecting : public EditTest {
protected:
    void SetUp() override {
        EditTest::SetUp();
        tell_highlights = true;
        p = named["p"], q = named["q"], r = named["r"];
        Listen();
    }

    Widget p = nullptr, q = nullptr, r = nullptr;
};

// ---- Order and data --------------------------------------------------------------------------------

TEST_F(Selecting, EachFunctionTellsInItsOwnOrderOfHighlightListAndCallback) {
    Widget nodes[] = {b, a};
    Widget arcs[] = {q, p};
    const struct {
        const char *name, *before;
        std::function<void(Boolean)> act;
        Lines heard;
        const char *after;
    } cases[] = {
        // clang-format off
        {"node", "p", [&](Boolean n) { XmGraphSelectNode(graph, a, n); }, {"selectNode 47 a [a|p] (a p)"}, "[a|p]"},
        {"node again", "a", [&](Boolean n) { XmGraphSelectNode(graph, a, n); }, {"selectNode 47 a [a|] (a)"}, "[a|]"},
        {"nodes", "a", [&](Boolean n) { XmGraphSelectNodes(graph, nodes, 2, n); }, {"selectNode 61 b [a b|] (a b)"}, "[a b|]"},
        {"no nodes", "a", [&](Boolean n) { XmGraphSelectNodes(graph, nodes, 0, n); }, {}, "[a|]"},
        {"arc", "a", [&](Boolean n) { XmGraphSelectArc(graph, p, n); }, {"selectArc 48 p [a|p] (a p)"}, "[a|p]"},
        {"arcs", "p", [&](Boolean n) { XmGraphSelectArcs(graph, arcs, 2, n); }, {"selectArc 62 q [|p q] (p q)"}, "[|p q]"},
        {"NULL arcs", "p", [&](Boolean n) { XmGraphSelectArcs(graph, nullptr, 0, n); }, {}, "[|p]"},
        {"no node", "a b p", [&](Boolean n) { XmGraphUnselectNode(graph, a, n); }, {"deselect 59 a [a b|p] (b p)"}, "[b|p]"},
        {"unselected", "b", [&](Boolean n) { XmGraphUnselectNode(graph, a, n); }, {"deselect 59 a [b|] (b)"}, "[b|]"},
        {"off nodes", "c a b", [&](Boolean n) { XmGraphUnselectNodes(graph, nodes, 2, n); }, {"deselect 59 b [c a b|] (a b c)"}, "[c|]"},
        {"off none", "a", [&](Boolean n) { XmGraphUnselectNodes(graph, nullptr, 2, n); }, {}, "[a|]"},
        {"off arc", "a p q", [&](Boolean n) { XmGraphUnselectArc(graph, p, n); }, {"deselect 59 p [a|p q] (a q)"}, "[a|q]"},
        {"off arcs", "p q r", [&](Boolean n) { XmGraphUnselectArcs(graph, arcs, 2, n); }, {"deselect 59 q [|p q r] (p q r)"}, "[|r]"},
        {"off 0 arcs", "p", [&](Boolean n) { XmGraphUnselectArcs(graph, arcs, 0, n); }, {"deselect 59 q [|p] (p)"}, "[|p]"},
        {"off NULL arcs", "p", [&](Boolean n) { XmGraphUnselectArcs(graph, nullptr, 0, n); }, {"deselect 59 - [|p] (p)"}, "[|p]"},
        // clang-format on
    };
    XtVaSetValues(graph, XmNselectableArcs, False, XmNallowMultipleSelections, False, nullptr);
    for (bool shown : {false, true}) {
        if (shown)
            Show();
        for (const auto &each : cases)
            for (bool notify : {true, false}) {
                SCOPED_TRACE(each.name + std::string(shown ? ", shown" : ""));
                Preselect(each.before);
                each.act(notify ? True : False);
                EXPECT_EQ(Heard(), notify ? each.heard : Lines{});
                EXPECT_EQ(Selection(), each.after);
            }
    }
}

TEST_F(Selecting, ASubtreeIsAddedWithAWordForEachArcAndForAllThatWereAskedForBefore) {
    tell_highlights = false;
    Attach("loop", a, a);
    Show();
    Preselect("d");
    const Lines arcs = {"selectArc 48 r [d w|r]", "selectArc 48 r [d w|r]"};
    XmGraphSelectSubtree(graph, w, False);
    EXPECT_EQ(Heard(), arcs);
    EXPECT_EQ(Selection(), "[d w box|r]");
    Preselect("");
    XmGraphSelectSubtree(graph, b, True);
    EXPECT_EQ(Heard(), (Lines{"selectArc 48 r [b w|r]", "selectSubgraph 49 b [b w box|r] i"}));
    EXPECT_EQ(Highlighted(), (Widgets{b, w, r}));

    // The list is shared: what another graph's call finds there is not its own, and may be gone.
    Widget other =
        XtVaCreateManagedWidget("other", xmGraphWidgetClass, graph, XmNeditable, True, nullptr);
    Widget from = XtVaCreateManagedWidget("from", xmPushButtonGadgetClass, other, nullptr);
    Widget to = XtVaCreateManagedWidget("to", xmPushButtonGadgetClass, other, nullptr);
    XmCreateAttachedArc(other, Name("arc"), from, to, nullptr, 0);
    XtAddCallback(
        other, XmNselectArcCallback,
        [](Widget, XtPointer node, XtPointer) {
            if (Widget dying = std::exchange(*static_cast<Widget *>(node), nullptr))
                XtDestroyWidget(dying);
        },
        &box);
    XmGraphSelectSubtree(other, from, True);
    EXPECT_EQ(XmGraphNumSelectedNodes(other), 2);
    EXPECT_EQ(Selection(), "[b w|]");
    RunWorkProcs();
    EXPECT_EQ(XmGraphNumSelectedArcs(other), 1);
}

// ---- Ownership -------------------------------------------------------------------------------------

TEST_F(Selecting, ListsAreSharedAsTheyAreToldToBeAndMayBeGivenBack) {
    int count = -1;
    EXPECT_EQ(XmGraphGetSelectedNodes(graph, &count), nullptr);
    EXPECT_EQ(XmGraphGetSelectedArcs(graph, nullptr), nullptr);
    EXPECT_EQ(XmGraphGetRoots(graph, &count), nullptr);
    EXPECT_EQ(count, 0);
    Preselect("b a p q");
    WidgetList nodes = XmGraphGetSelectedNodes(graph, &count);
    EXPECT_EQ(Widgets(nodes, nodes + count), (Widgets{b, a}));
    XmGraphInsertRoots(graph, nodes, count);
    XmGraphInsertRoots(graph, nodes, count);
    EXPECT_EQ(XmGraphNumRoots(graph), 2);
    XmGraphUnselectNode(graph, b, False);
    EXPECT_EQ(XmGraphGetSelectedNodes(graph, &count), nodes) << "it replaces the earlier one";
    EXPECT_EQ(nodes[0], a);
    EXPECT_EQ(XmGraphGetRoots(graph, &count), nodes);
    XmGraphRemoveRoots(graph, &c, 1);
    XmGraphRemoveRoots(graph, nodes, 0);
    XmGraphRemoveRoots(graph, nodes, 1);
    EXPECT_EQ(Widgets(1, XmGraphGetRoots(graph, &count)[0]), Widgets{a});

    auto &part = GraphPartOf(graph);
    EXPECT_EQ(static_cast<void *>(XmGraphGetSelectedArcs(graph, &count)), part.selected_arcs.items);
    XmGraphUnselectArcs(graph, XmGraphGetSelectedArcs(graph, &count), count, False);
    XmGraphUnselectNodes(graph, XmGraphGetSelectedNodes(graph, &count), count, True);
    EXPECT_EQ(Selection(), "[|]");
    EXPECT_EQ(XmGraphGetArcs(graph, &count), part.arcs);
    EXPECT_EQ(XmGraphGetNodes(graph, &count), CompositeOf(graph).children + 1);
    EXPECT_EQ(count, XmGraphNumNodes(graph));

    WidgetList from = nullptr, to = nullptr;
    int num_from = -1, num_to = -1;
    XmGraphGetNodeArcs(graph, w, &from, &to, &num_from, &num_to);
    EXPECT_EQ(static_cast<void *>(from), NodeRecOf(w)->from_arcs.items);
    EXPECT_EQ(Widgets(to, to + num_to), Widgets{q});
    num_from = -1;
    XmGraphNumNodeArcs(graph, nullptr, &num_from, &num_to);
    EXPECT_EQ(num_from, -1) << "they stay unset";
    Widget twin = Attach("twin", a, b);
    Attach("back", b, a);
    WidgetList between = XmGraphGetArcsBetweenNodes(graph, a, b, &count);
    EXPECT_EQ(Widgets(between, between + count), (Widgets{p, twin})) << "this direction only";
    XtFree(reinterpret_cast<char *>(between));
    EXPECT_EQ(XmGraphGetArcsBetweenNodes(graph, a, c, &count), nullptr);
    XmGraphRemoveArcBetweenNodes(graph, a, b);
    RunWorkProcs();
    EXPECT_EQ(XmGraphNumArcs(graph), 3);
    XmGraphGetArcNodes(graph, q, &nodes[0], &nodes[1]);
    EXPECT_EQ(nodes[1], w);

    Widget fresh = XtVaCreateWidget("fresh", xmGraphWidgetClass, graph, nullptr);
    EXPECT_EQ(XmGraphNumNodes(fresh), 0);
    EXPECT_EQ(XmGraphGetNodes(fresh, &count), nullptr);
}

TEST_F(Selecting, AnArcThatWaitsForItsDeathIsNotSelected) {
    Preselect("p q");
    XtDestroyWidget(a);
    EXPECT_EQ(Selection(), "[|]");
    Widget dying[] = {p, q};
    XmGraphSelectArc(graph, p, True);
    XmGraphSelectArcs(graph, dying, 2, True);
    EXPECT_EQ(XmGraphNumSelectedArcs(graph), 0);
    EXPECT_TRUE(Heard().empty());
    RunWorkProcs();
}

// ---- Warnings --------------------------------------------------------------------------------------

TEST_F(Selecting, AWrongWidgetGetsTheWordsOfItsFunction) {
    int n = -1, m = -1;
    WidgetList list = nullptr, other = nullptr;
    const std::pair<const char *, std::function<long(Widget)>> calls[] = {
        // clang-format off
        {"XmGetRoots requires an XmGraph widget", [&](Widget x) { return XmGraphGetRoots(x, &n) != nullptr; }},
        {"XmGraphGetRoots requires an XmGraph widget", [&](Widget x) { return XmGraphGetSelectedNodes(x, &n) != nullptr; }},
        {"XmGraphDestroyAllArcs requires an XmGraph widget", [&](Widget x) { return XmGraphDestroyAllArcs(x), 0; }},
        {"XmGraphDestroyAllNodes requires an XmGraph widget", [&](Widget x) { return XmGraphDestroyAllNodes(x), 0; }},
        {"XmGraphRemoveArcBetweenNodes requires an XmGraph widget", [&](Widget x) { return XmGraphRemoveArcBetweenNodes(x, a, b), 0; }},
        {"XmGraphMoveNode requires an XmGraph widget", [&](Widget x) { return XmGraphMoveNode(x, a, 1, 1); }},
        {" XmGraphMoveArcrequires an XmGraph widget", [&](Widget x) { return XmGraphMoveArc(x, p, a, c); }},
        {" XmGraphNumNodeArcs requires an XmGraph widget", [&](Widget x) { return XmGraphNumNodeArcs(x, a, &n, &m), 0; }},
        {" XmGraphGetNodeArcs requires an XmGraph widget", [&](Widget x) { return XmGraphGetNodeArcs(x, a, &list, &other, &n, &m), list != nullptr; }},
        {"XmGraphSelectArc requires an XmGraph widget", [&](Widget x) { return XmGraphSelectArc(x, p, True), 0; }},
        {"XmGraphSelectArcs requires an XmGraph widget", [&](Widget x) { return XmGraphSelectArcs(x, &p, 1, True), 0; }},
        {"XmGraphUnselectArc requires an XmGraph widget", [&](Widget x) { return XmGraphUnselectArc(x, p, True), 0; }},
        {"XmGraphUnselectArcs requires an XmGraph widget", [&](Widget x) { return XmGraphUnselectArcs(x, &p, 1, True), 0; }},
        {"XmGraphNumSelectedArcs requires an XmGraph widget", [&](Widget x) { return XmGraphNumSelectedArcs(x); }},
        {"XmGraphGetSelectedArcs requires an XmGraph widget", [&](Widget x) { return XmGraphGetSelectedArcs(x, &n) != nullptr; }},
        {"XmGraphIsSelectedArc requires an XmGraph widget", [&](Widget x) { return XmGraphIsSelectedArc(x, p); }},
        {"XmGraphNumArcs requires an XmGraph widget", [&](Widget x) { return XmGraphNumArcs(x); }},
        {"XmGraphGetArcs requires an XmGraph widget", [&](Widget x) { return XmGraphGetArcs(x, &n) != nullptr; }},
        {"XmGraphGetNodes requires an XmGraph widget", [&](Widget x) { return XmGraphGetNodes(x, &n) != nullptr; }},
        {"XmGraphInputOverArc requires an XmGraph widget", [&](Widget x) { return XmGraphInputOverArc(x, 120, 60) != nullptr; }},
        // clang-format on
    };
    Preselect("p");
    for (Widget wrong : {box, a, Widget{}})
        for (const auto &[words, call] : calls) {
            EXPECT_EQ(call(wrong), 0) << words;
            EXPECT_EQ(warnings(), Lines{words});
            Complaints::Current().warnings.clear();
        }
    EXPECT_EQ(Selection(), "[|p]");
    EXPECT_EQ(XmGraphNumArcs(graph), 3);
    EXPECT_TRUE(Heard().empty());
}

// ---- Changes ---------------------------------------------------------------------------------------

TEST_F(Selecting, NodesMoveWithOrWithoutBounds) {
    Show();
    EXPECT_FALSE(XmGraphMoveNode(graph, nullptr, 1, 1));
    EXPECT_FALSE(XmGraphMoveNode(graph, in, 1, 1));
    EXPECT_FALSE(XmGraphMoveNode(graph, p, 1, 1));
    EXPECT_TRUE(XmGraphMoveNodeQuietly(graph, nullptr, 1, 1));
    for (Widget node : {a, w}) {
        EXPECT_TRUE(XmGraphMoveNode(graph, node, -10, 3));
        EXPECT_EQ(PlaceOf(node), (Place{-10, 3}));
        Recorder recorder;
        EXPECT_TRUE(XmGraphMoveNodeQuietly(graph, node, -10, 7));
        EXPECT_EQ(PlaceOf(node), (Place{0, 7}));
        EXPECT_TRUE(recorder.Drawing(XtWindow(graph)).empty());
    }
    EXPECT_TRUE(Heard().empty());
    InDispatch([&] {
        XtDestroyWidget(a);
        EXPECT_TRUE(XmGraphMoveNode(graph, a, 99, 99));
        EXPECT_EQ(PlaceOf(a), (Place{0, 7}));
    });
}

TEST_F(Selecting, AMovedArcChangesItsNodesAndItsTwins) {
    Widget twins[] = {Attach("t1", a, b), Attach("t2", b, a)};
    Widget lone = XmCreateArc(graph, Name("lone"), nullptr, 0);
    Show();
    Recorder recorder;
    EXPECT_FALSE(XmGraphMoveArc(graph, p, a, b));
    EXPECT_TRUE(XmGraphMoveArc(graph, lone, a, b));
    EXPECT_TRUE(recorder.Drawing(XtWindow(graph)).empty());
    EXPECT_EQ(ArcPartOf(lone).from, nullptr);
    EXPECT_TRUE(XmGraphMoveArc(graph, twins[0], c, d));
    EXPECT_EQ(SiblingsOf(p), (Widgets{p, twins[1]}));
    EXPECT_EQ(SiblingsOf(twins[0]), Widgets{});
    EXPECT_TRUE(XmGraphMoveArc(graph, p, d, c));
    EXPECT_EQ(SiblingsOf(p), (Widgets{twins[0], p}));
    EXPECT_EQ(SiblingsOf(twins[1]), Widgets{});
    EXPECT_EQ(NodesIn(NodeRecOf(d)->children), Widgets{c});
    EXPECT_EQ(NodesIn(NodeRecOf(d)->parents), Widgets{c});
    EXPECT_EQ(NodesIn(NodeRecOf(a)->children), Widgets{w});
    EXPECT_EQ(ArcsIn(NodeRecOf(c)->to_arcs), Widgets{p});
    ExpectConsistent(graph);
    Pump();
    EXPECT_TRUE(Heard().empty()) << "no layout, and no callback of its own";
    Widget to = b;
    for (int mode : {XmALWAYS, XmARCS_ONLY, XmPARTIAL, XmNODES_ONLY}) {
        GraphPartOf(graph).auto_layout_mode = mode;
        XmGraphMoveNode(graph, to, 240, 300);
        EXPECT_TRUE(XmGraphMoveArc(graph, p, c, to));
        EXPECT_EQ(PlaceOf(to).x == 440 + 40 + 40, mode != XmNODES_ONLY) << mode;
        to = to == b ? a : b;
    }
}

TEST_F(Selecting, AnAddedNodeStandsInTheMiddleOfWhatIsSeenByTheSizeOfTheOneBefore) {
    Show();
    tell_highlights = false;
    XmGraphAddNode(graph);
    const Place size = SizeOf(NodesOf(graph).back());
    const Place middle = {640 / 2 - size.x / 2, 480 / 2 - size.y / 2};
    log.Clear();
    XmGraphAddNode(graph);
    EXPECT_EQ(Heard(), (Lines{"newNode 42 Node i", "graphChanged 64 -", "graphChanged 42 Node i"}));
    EXPECT_EQ(PlaceOf(NodesOf(graph).back()), middle);
    const Widgets nodes = NodesOf(graph);
    Place refused;
    answer = [&](XmGraphCallbackStruct &data) {
        refused = PlaceOf(data.widget);
        data.doit = False;
    };
    XmGraphAddNode(graph);
    EXPECT_EQ(Heard(), Lines{"newNode 42 Node i"});
    EXPECT_EQ(refused, middle);
    EXPECT_EQ(NodesOf(graph), nodes);
}

// ---- Managing --------------------------------------------------------------------------------------

TEST_F(Selecting, AllAreManagedAndUnmanagedAtOnce) {
    Show();
    tell_highlights = false;
    const Picture before = Picture::Of(shell);
    Widget late =
        XtVaCreateWidget("late", xmPushButtonWidgetClass, graph, XmNx, 300, XmNy, 300, nullptr);
    log.Clear();
    XmGraphUnmanageAll(graph);
    Pump();
    EXPECT_EQ(Heard(), Lines{"graphChanged 64 -"});
    EXPECT_EQ(Picture::Of(graph).Count(White()), 640 * 480);
    Widget several[] = {a, b, p, w, q};
    XmGraphManageChildren(several, 0);
    XmGraphManageChild(nullptr);
    EXPECT_TRUE(Heard().empty());
    XmGraphManageChildren(several, XtNumber(several));
    XmGraphManageChild(d);
    Pump();
    EXPECT_EQ(Heard(), (Lines{"graphChanged 64 -", "graphChanged 64 -"}));
    EXPECT_TRUE(XtIsManaged(q) && !XtIsManaged(r) && !XtIsManaged(box));
    XtDestroyWidget(late);
    XmGraphManageAll(graph);
    Pump();
    EXPECT_TRUE(SamePicture(before, Picture::Of(shell)));
    EXPECT_FALSE(XtIsManaged(CompositeOf(graph).children[0]));
    for (Widget arc : {q, r})
        XtDestroyWidget(arc);
    RunWorkProcs();
    XmGraphUnmanageAll(graph);
    EXPECT_TRUE(XtIsManaged(p)) << "a single arc stays";
}

// ---- Picking ---------------------------------------------------------------------------------------

TEST_F(Selecting, APickReachesFivePixelsAndBothFunctionsAgree) {
    Attach("twin", a, b);
    Attach("loop", c, c);
    XtVaSetValues(r, XmNmapLabel, True, nullptr);
    Show();
    EXPECT_EQ(XmGraphInputOverArc(graph, 170, 54), nullptr) << "a plain arc's box";
    Random random;
    int hits = 0;
    for (int i = 0; i < 4000; i++) {
        const int x = random.Between(20, 560), y = random.Between(-20, 260);
        Widget first = nullptr;
        for (Widget arc : ArcsOf(graph))
            if (XmGraphIsPointInArc(arc, x, y) && !first)
                first = arc;
        ASSERT_EQ(XmGraphInputOverArc(graph, x, y), first) << x << ' ' << y;
        hits += first ? 1 : 0;
    }
    EXPECT_GT(hits, 100);
}

} // namespace
} // namespace corvidlmw::test
