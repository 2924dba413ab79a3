// Layouts worked out by hand: which nodes are roots, who stands below whom, and where.
#include <tests/graph/GraphTest.h>

#include <climits>

namespace corvidlmw::test {
namespace {

class LayoutTest : public GraphTest {};

// ---- Trees --------------------------------------------------------------------------------------

struct TreeExample {
    const char *what;
    int orientation;
    std::vector<Extent> sizes;
    std::vector<std::pair<size_t, size_t>> arcs;
    Places places;
    int sibling_spacing = 30;
};

constexpr int across = XmHORIZONTAL, down = XmVERTICAL;
const std::vector<Extent> two(2),
    three(3), tall{{60, 101}, {}, {}}, odd{{60, 31}, {}, {}}, bordered{{60, 30, 5}, {}, {}};

// clang-format off
const TreeExample tree_examples[] = {
    {"two roots", across, two, {}, {{40, 40}, {40, 100}}},
    {"two roots, downwards", down, two, {}, {{40, 50}, {130, 50}}},
    {"two children", across, three, {{0, 1}, {0, 2}}, {{40, 70}, {140, 40}, {140, 100}}},
    {"two children, downwards", down, three, {{0, 1}, {0, 2}}, {{85, 50}, {40, 120}, {130, 120}}},
    {"a tall parent", across, tall, {{0, 1}}, {{40, 40}, {140, 40}, {40, 171}}},
    {"borders count in extents, not in the centring",
     across, bordered, {{0, 1}}, {{40, 45}, {150, 40}, {40, 110}}},
    {"half pixels are cut off", across, odd, {{0, 1}, {0, 2}}, {{40, 70}, {140, 40}, {140, 100}}},
    {"a negative place is 0 and shifts nothing", down, two, {{0, 1}}, {{40, 0}, {40, 50}}, 100},
    {"a spacing past all bounds is cut", across, two, {}, {{40, 40}, {40, 69}}, INT_MAX},
    {"order of attachment", across, three, {{0, 2}, {0, 1}}, {{40, 70}, {140, 100}, {140, 40}}},
    {"the first visitor is the parent",
     across, three, {{0, 1}, {0, 2}, {1, 2}}, {{40, 40}, {140, 40}, {240, 40}}},
    {"the nearer one, if it comes first",
     across, three, {{0, 2}, {1, 2}, {0, 1}}, {{40, 70}, {140, 100}, {140, 40}}},
    {"a cycle is rooted in its first node", across, two, {{1, 0}, {0, 1}}, {{40, 40}, {140, 40}}},
    {"cycles come after true roots",
     across, three, {{0, 1}, {1, 0}}, {{40, 100}, {140, 100}, {40, 40}}},
    {"a loop takes no part", across, two, {{0, 0}, {0, 1}}, {{40, 40}, {140, 40}}},
    {"parallel arcs are one", across, two, {{0, 1}, {0, 1}, {1, 0}}, {{40, 40}, {140, 40}}},
};
// clang-format on

TEST_F(LayoutTest, PlacesTrees) {
    for (const TreeExample &example : tree_examples) {
        SCOPED_TRACE(example.what);
        MakeGraph(XmNorientation, example.orientation, XmNsiblingSpacing, example.sibling_spacing);
        std::vector<Widget> nodes;
        for (const Extent &size : example.sizes)
            nodes.push_back(Node(size));
        for (auto [from, to] : example.arcs)
            UnmanagedArc(nodes[from], nodes[to]);
        XmGraphLayout(graph);
        EXPECT_EQ(PlacesOf(nodes), example.places);
        XtDestroyWidget(graph);
    }
}

TEST_F(LayoutTest, TakesNeitherTheHiddenRootNorTheDyingForANode) {
    MakeGraph(XmNlayoutStyle, XmBUTTERFLY);
    Widget a = Node(), dummy = XtNameToWidget(graph, "dummy");
    Widget arc = UnmanagedArc(a, dummy);
    EXPECT_FALSE(ArcPartOf(arc).to);
    XmGraphInsertRoots(graph, &dummy, 1);
    EXPECT_EQ(XmGraphNumRoots(graph), 0);
    auto center = [](Widget w, XtPointer, XtPointer) { XmGraphSetButterflyRoot(XtParent(w), w); };
    XtAddCallback(a, XmNdestroyCallback, center, nullptr);
    XtDestroyWidget(a);
    EXPECT_FALSE(GraphPartOf(graph).butterfly_root);
    XtDestroyWidget(graph);
}

// ---- Butterflies ---------------------------------------------------------------------------------

TEST_F(LayoutTest, PlacesAButterflyWithItsParentsAndItsChildrenOnly) {
    MakeGraph(XmNlayoutStyle, XmBUTTERFLY);
    Widget p = Node({40, 20}), q = Node({80, 30}), n = Node();
    Widget child = Node({50, 40}), stranger = Node({}, {3, 4});
    for (auto [from, to] : {std::pair{p, n}, {q, n}, {n, child}, {child, stranger}})
        UnmanagedArc(from, to);
    XmGraphLayout(graph);
    EXPECT_EQ(PlacesOf({p, q, n, child, stranger}), (Places{{}, {}, {}, {}, {3, 4}}));
    XmGraphSetButterflyRoot(graph, n);
    XmGraphLayout(graph);
    EXPECT_EQ(PlacesOf({p, q, n, child, stranger}),
              (Places{{40, 30}, {40, 80}, {160, 60}, {260, 50}, {3, 4}}));

    // The parent of a root is the hidden root, 60 by 30.
    Widget top = Node({60, 31}), below = Node({50, 50});
    UnmanagedArc(top, below);
    XmGraphSetButterflyRoot(graph, top);
    XmGraphLayout(graph);
    EXPECT_EQ(PlacesOf({top, below}), (Places{{140, 45}, {240, 30}}));
}

// ---- One subgraph --------------------------------------------------------------------------------

TEST_F(LayoutTest, ARelaidNodeKeepsItsPlaceAndItsSubtreeHangsFromIt) {
    MakeGraph();
    Widget a = Node({}, {200, 150}), b = Node(), c = Node({60, 30, 2});
    Widget parent = Node({}, {11, 12});
    for (auto [from, to] : {std::pair{a, b}, {a, b}, {a, c}, {a, a}, {b, a}, {parent, a}})
        UnmanagedArc(from, to);
    GraphLog log;
    log.Add(graph, XmNgraphChangedCallback);
    for (Widget top : {a, c, Widget{}, shell})
        XmGraphRelaySubgraph(graph, top);
    EXPECT_EQ(PlacesOf({a, b, parent}), (Places{{200, 150}, {300, 118}, {11, 12}}));
    EXPECT_TRUE(c->core.mapped_when_managed);
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_SIZE_CHANGED})) << "no layout is told";
}

TEST_F(LayoutTest, NodesMayBePlainRectangles) {
    MakeGraph();
    Arg sizes[] = {{Name(XtNwidth), 60}, {Name(XtNheight), 30}, {Name(XtNborderWidth), 0}};
    Widget a = XtCreateManagedWidget("a", rectObjClass, graph, sizes, XtNumber(sizes));
    Widget b = XtCreateManagedWidget("b", rectObjClass, graph, sizes, XtNumber(sizes));
    UnmanagedArc(a, b);
    Show();
    XmGraphLayout(graph);
    EXPECT_EQ(PlacesOf({a, b}), (Places{{40, 40}, {140, 40}}));
    XmGraphRelaySubgraph(graph, b);
}

// ---- When a layout runs ---------------------------------------------------------------------------

int layouts = 0;
void CountLayout(Widget) {
    ++layouts;
}

TEST_F(LayoutTest, TheModeSaysWhichChangesLayOut) {
    for (int mode : {XmNEVER, XmALWAYS, XmARCS_ONLY, XmNODES_ONLY, XmPARTIAL}) {
        SCOPED_TRACE(mode);
        MakeGraph(XmNautoLayoutMode, mode, XmNlayoutProc, CountLayout);
        Show(); // without a window the toolkit does not tell the graph of its children
        layouts = 0;
        XmGraphLayout(graph);
        EXPECT_EQ(layouts, 0) << "without nodes";
        Widget a = Node({}, {100, 100}), b = Node({}, {1, 2});
        Widget c = Node({}, {}, false);
        EXPECT_EQ(layouts, mode == XmALWAYS ? 2 : 0);
        layouts = 0;
        EXPECT_TRUE(XmGraphMoveArc(graph, UnmanagedArc(a, c), a, b));
        const bool relaid = mode == XmALWAYS || mode == XmARCS_ONLY || mode == XmPARTIAL;
        EXPECT_EQ(PlaceOf(b), relaid ? (Place{200, 100}) : (Place{1, 2}));
        XtVaSetValues(graph, XmNautoLayoutMode, XmNEVER, nullptr);
        EXPECT_EQ(layouts, 0) << "a relay is no layout";
        XtVaSetValues(graph, XmNautoLayoutMode, mode, nullptr);
        EXPECT_EQ(layouts, mode == XmNEVER ? 0 : 1);
        XtDestroyWidget(graph);
    }
}

TEST_F(LayoutTest, ALayoutIsToldOnceAndMayBeAskedForAgainFromThere) {
    MakeGraph(XtNwidth, 120, XtNheight, 90);
    Widget node = Node();
    GraphLog log;
    log.Add(graph, XmNgraphChangedCallback);
    XmGraphLayout(graph);
    ASSERT_EQ(log.reasons(), (std::vector<int>{XmCR_LAYOUT_CHANGED}));
    log.OnEach([&](const auto &) {
        if (log.size() > 2)
            return;
        XtVaSetValues(node, XtNx, 1, nullptr);
        XmGraphLayout(graph);
    });
    XmGraphLayout(graph);
    EXPECT_EQ(log.size(), 3u);
    EXPECT_EQ(PlaceOf(node), (Place{40, 40}));
    log.OnEach([&](const auto &) { XmGraphLayout(graph); });
    XmGraphLayout(graph); // comes to an end
    EXPECT_GT(log.size(), 4u);
}

TEST_F(LayoutTest, OnlyAGraphIsLaidOut) {
    XmGraphLayout(shell);
    ExpectWarning("XmGraphLayout requires an XmGraph widget");
    XmGraphRelaySubgraph(shell, shell);
    ExpectWarning("XmGraphRelaySubgraph requires an XmGraph widget");
}

} // namespace
} // namespace corvidlmw::test
