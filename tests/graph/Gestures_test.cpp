/* The pointer machine of an editable graph, by real input: states, highlights, cursors, and what is told.
 * EditTest says how scripts and expectations read. */

#include <tests/graph/EditTest.h>

namespace corvidlmw::test {
namespace {

class Gestures : public EditTest {
protected:
    struct Row {
        const char *selected; // before
        const char *script;
        std::string trace;
        Lines heard;
        std::string left; // selected after
    };

    void SetUp() override {
        EditTest::SetUp();
        Listen();
        Show();
        log.Clear();
    }

    void Expect(const std::vector<Row> &rows, bool highlights = true) {
        for (const Row &row : rows) {
            SCOPED_TRACE((subject ? XtName(subject) : "") + std::string(": ") + row.selected +
                         " / " + row.script);
            Preselect(row.selected);
            std::string trace = row.trace;
            if (!highlights)
                for (const char *shown : {"(x)", " x"})
                    for (size_t at; (at = trace.find(shown)) != std::string::npos;)
                        trace.erase(at, std::string(shown).size());
            EXPECT_EQ(Run(row.script), trace);
            EXPECT_EQ(Heard(), row.heard);
            EXPECT_EQ(Selection(), row.left);
        }
    }

    // For a gadget, a window, and a board with children, whose border the toolkit does not highlight.
    void ExpectForEachNode(const std::vector<Row> &rows) {
        for (const char *name : {"c", "w", "box"}) {
            subject = named[name];
            places["x"] = places[name];
            Expect(rows, subject != box);
        }
        subject = nullptr;
    }

    Widget Last() { return NodesOf(graph).back(); }
};

// ---- Selecting -----------------------------------------------------------------------------------

TEST_F(Gestures, APlainPressIndicatesANodeAndTheReleaseOverItSelects) {
    ExpectForEachNode({
        {"", "x 1 .", "1(x)indicate 0(x)ptr", {"selectNode 47 x [x|]"}, "[x|]"},
        {"", "x 1 - - x .", "1(x)indicate 2 2 1(x) 0(x)ptr", {"selectNode 47 x [x|]"}, "[x|]"},
        {"", "x 1 a x .", "1(x)indicate 2 1(x) 0(x)ptr", {"selectNode 47 x [x|]"}, "[x|]"},
        {"", "x 1 p .", "1(x)indicate 2 0ptr", {}, "[|]"},
        {"a q", "x 1 - .", "1(a x q)indicate 2(a q) 0(a q)ptr", {}, "[a|q]"},
        {"a q",
         "x 1 .",
         "1(a x q)indicate 0(x)ptr",
         {"deselect 58 - [a|q] i", "deselect 57 - [|q] i", "selectNode 47 x [x|]"},
         "[x|]"},
        {"a x q",
         "x 1 - a x .",
         "16(x) 16(x) 16(x) 16(x) 0(x)ptr",
         {"deselect 58 - [a x|q] i", "deselect 57 - [|q] i", "selectNode 47 x [x|]"},
         "[x|]"},
    });
}

TEST_F(Gestures, AnArcIsSelectedAsANodeIsButDeselectsArcsFirst) {
    Expect({
        {"", "p 1 .", "5(p)indicate 0(p)ptr", {"selectArc 48 p [|p]"}, "[|p]"},
        {"", "p 1 - - p2 .", "5(p)indicate 6 6 5(p) 0(p)ptr", {"selectArc 48 p [|p]"}, "[|p]"},
        {"", "p 1 q .", "5(p)indicate 6 0ptr", {}, "[|]"},
        {"", "p 1 a p w .", "5(p)indicate 6 5(p) 6 0ptr", {}, "[|]"},
        {"b q",
         "p 1 .",
         "5(b p q)indicate 0(p)ptr",
         {"deselect 57 - [b|q] i", "deselect 58 - [b|] i", "selectArc 48 p [|p]"},
         "[|p]"},
        {"b p q",
         "p 1 - .",
         "16(p) 16(p) 0(p)ptr",
         {"deselect 58 - [b|p q] i", "deselect 57 - [|p q] i", "selectArc 48 p [|p]"},
         "[|p]"},
    });
}

TEST_F(Gestures, WithCtrlOneIsAddedAndNothingTakenAway) {
    ExpectForEachNode({
        {"a p",
         "^C x 1 . _",
         "3(a x p)indicate 13(a x p)ptr",
         {"selectNode 47 x [a x|p]"},
         "[a x|p]"},
        {"", "^C x 1 - x . _", "3(x)indicate 4 3(x) 13(x)ptr", {"selectNode 47 x [x|]"}, "[x|]"},
        {"", "^C x 1 a p x a . _", "3(x)indicate 4 4 3(x) 4 0ptr", {}, "[|]"},
        {"a x", "^C x 1 - . _", "16(a x) 16(a x) 0(a x)ptr", {}, "[a x|]"},
    });
    Expect({
        {"b", "^C p 1 . _", "7(b p)indicate 15(b p)ptr", {"selectArc 48 p [b|p]"}, "[b|p]"},
        {"p q", "^C p 1 . _", "7(p q)indicate 15(p q)ptr", {"selectArc 48 p [|p q]"}, "[|p q]"},
        {"", "^C p 1 q a p - . _", "7(p)indicate 8 8 7(p) 8 0ptr", {}, "[|]"},
        {"b", "^C - 1 . _", "0(b) 0(b)ptr", {}, "[b|]"},
    });
}

TEST_F(Gestures, WithShiftTheSubgraphIsSelectedTentativelyWhileThePointerMovesOverItsRoot) {
    const Lines released = {"selectNode 47 a [a|]",
                            "selectArc 48 p [a|p]",
                            "selectArc 48 q [a|p q]",
                            "selectNode 47 a [a|p q]",
                            "selectArc 48 p [a|p q]",
                            "selectArc 48 q [a|p q]",
                            "selectNode 47 b [a b|p q]",
                            "selectNode 47 w [a b w|p q]",
                            "selectArc 48 r [a b w|p q r]",
                            "selectNode 47 box [a b w box|p q r]",
                            "selectSubgraph 49 a [a b w box|p q r] i e"};
    const Lines moved = {"selectArc 48 p [a|p]", "selectArc 48 q [a|p q]", "selectArc 48 p [a|p q]",
                         "selectArc 48 q [a|p q]", "selectArc 48 r [a b w|p q r]"};
    auto then = [](Lines first, const Lines &second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    };
    const Lines deselected = {"deselect 58 - [a b w box|p q r] i", "deselect 57 - [|p q r] i"};
    Expect({
        {"", "^S a 1 . _", "17indicate 0(a b w p q r)ptr", released, "[a b w box|p q r]"},
        {"", "^S a 1 a2 a . _", "17indicate 17(a b w p q r) 17(a b w p q r) 0(a b w p q r)ptr",
         then(then(moved, {"selectArc 48 p [a b w box|p q r]", "selectArc 48 q [a b w box|p q r]",
                           "selectArc 48 p [a b w box|p q r]", "selectArc 48 q [a b w box|p q r]",
                           "selectArc 48 r [a b w box|p q r]"}),
              then(deselected, released)),
         "[a b w box|p q r]"},
        {"c",
         "^S a 1 a2 - . _",
         "17(c)indicate 17(a b w c p q r) 17(c) 0(c)ptr",
         {"selectArc 48 p [c a|p]", "selectArc 48 q [c a|p q]", "selectArc 48 p [c a|p q]",
          "selectArc 48 q [c a|p q]", "selectArc 48 r [c a b w|p q r]"},
         "[c|]"},
        {"b r", "^S a 1 d . _", "17(b r)indicate 18 0ptr", {}, "[|]"},
        {"", "^S a 1 a2 b - a . _",
         "17indicate 17(a b w p q r) 18 18 17(a b w p q r) 0(a b w p q r)ptr",
         then(then(moved, moved), then(deselected, released)), "[a b w box|p q r]"},
        {"b", "^S p 1 . _", "0(b) 0(b)ptr", {}, "[b|]"}, // arcs are no roots
    });
    EXPECT_EQ(GraphPartOf(graph).current_subtree, nullptr);
}

TEST_F(Gestures, WhereTwinsShowOneBehindTheFirstStaysSelected) {
    named["p'"] = Attach("p'", a, b);
    Attach("loop", a, a);
    XtUnmapWidget(w);
    XtSetMappedWhenManaged(w, False); // a gadget at the other end counts all the same
    Pump();
    log.Clear();
    Expect(
        {{"",
          "^S a 1 a2 d . _",
          "17indicate 17(a b p q p') 18(p') 0(p')ptr",
          {"selectArc 48 p [a|p]", "selectArc 48 q [a|p q]", "selectArc 48 p' [a|p q p']",
           "selectArc 48 p [a|p q p']", "selectArc 48 q [a|p q p']", "selectArc 48 p' [a|p q p']"},
          "[|p']"}});
    XtVaSetValues(graph, XmNtwinsVisible, False, nullptr);
    Expect({{"p p'", "^S a 1 d . _", "17(p p')indicate 18 0ptr", {}, "[|]"}});
}

// ---- Double click ---------------------------------------------------------------------------------

TEST_F(Gestures, TwoReleasesInTimeAreADoubleClick) {
    XtVaSetValues(graph, XmNdoubleClickInterval, 60000, nullptr);
    auto start = [&] { GraphPartOf(graph).last_click_time = 0; };
    auto expect = [&](const char *script, const Lines &heard, const char *left) {
        SCOPED_TRACE(script);
        Preselect("");
        start();
        Run(script);
        EXPECT_EQ(Heard(), heard);
        EXPECT_EQ(Selection(), left);
    };
    const std::string select = "selectNode 47 a [a|]";
    const std::string collapse = "deselect 58 - [a|] i";
    const std::string twice = "defaultAction 54 a [a|] i e";
    expect("a 1 . 1 .", {select, collapse, select, twice}, "[a|]");
    expect("a 1 . 1 . 1 .", {select, collapse, select, twice, collapse, select}, "[a|]");
    expect("p 1 . 1 .",
           {"selectArc 48 p [|p]", "deselect 57 - [|p] i", "selectArc 48 p [|p]",
            "defaultAction 55 p [|p] i e"},
           "[|p]");
    expect("a 1 . 1 - .", {select, collapse, select, "defaultAction 56 - [a|] i e"}, "[a|]");
    expect("b 1 . a 1 .", {"selectNode 47 b [b|]", "defaultAction 54 a [b|] i e"}, "[b|]");
    EXPECT_EQ(Highlighted(), (Widgets{a, b})) << "the second was indicated, and is not selected";
    XmGraphUnselectNode(graph, a, False);
    // What does not reach Select neither starts nor breaks a pair.
    expect("- 1 . a 1 .", {select}, "[a|]");
    expect("a 1 . - 1 . a 1 .", {select, collapse, "defaultAction 54 a i e"}, "[|]");
    expect("^C a 1 . _ a 1 .", {select, collapse, select}, "[a|]");
    expect("a 1 . ^C a 1 . _", {select, twice}, "[a|]");
    expect("b 1 - . a 1 .", {select}, "[a|]");
    // The server's clock wraps.
    Preselect("a");
    XtVaSetValues(graph, XmNdoubleClickInterval, 0x7FFFFFFF, nullptr);
    GraphPartOf(graph).last_click_time = 0xFFFFFFF0;
    Run("a 1 .");
    EXPECT_EQ(Heard().back(), twice);

    XtVaSetValues(graph, XmNdoubleClickInterval, 1, nullptr);
    start();
    Preselect("a");
    Run("a 1 .");
    LetTimePass(std::chrono::milliseconds(20));
    Run("a 1 .");
    EXPECT_EQ(Heard(), (Lines{collapse, select, collapse, select}));
    EXPECT_NE(GraphPartOf(graph).last_click_time, 0u) << "it is the first of another pair";
}

// ---- Sweeping -------------------------------------------------------------------------------------

TEST_F(Gestures, ASweepSelectsWhatLiesWhollyInside) {
    places["ab"] = {20, 20}, places["ab'"] = {310, 90};  // a, b and p
    places["p1"] = {95, 30}, places["p1'"] = {245, 70};  // p, and no node wholly
    places["c1"] = {430, 30}, places["c1'"] = {485, 90}; // c
    places["cd'"] = {550, 90};                           // d too
    places["far"] = {380, 130}, places["origin"] = {0, 0};
    Expect({
        {"",
         "ab 1 ab' .",
         "26topleft 26topleft 0(a b p)ptr",
         {"selectNode 63 a [a b|p] i e", "selectArc 63 p [a b|p] i e"},
         "[a b|p]"},
        {"",
         "c1 1 cd' .",
         "26topleft 26topleft 0(c d)ptr",
         {"selectNode 61 c [c d|] i e"},
         "[c d|]"},
        {"",
         "cd' 1 c1 .",
         "26topleft 26topleft 0(c d)ptr",
         {"selectNode 61 c [c d|] i e"},
         "[c d|]"},
        {"", "c1 1 c1' .", "26topleft 26topleft 0(c)ptr", {"selectNode 47 c [c|] i e"}, "[c|]"},
        {"", "p1 1 p1' .", "26topleft 26topleft 0(p)ptr", {"selectArc 48 p [|p] i e"}, "[|p]"},
        {"c q",
         "m 1 - .",
         "26topleft 26topleft 0ptr",
         {"deselect 58 - [c|q] i", "deselect 57 - [|q] i"},
         "[|]"},
        {"", "m 1 . ", "26topleft 0ptr", {}, "[|]"},
        {"",
         "far 1 origin .",
         "26topleft 26topleft 0(a b p)ptr",
         {"selectNode 63 dummy [dummy a b|p] i e", "selectArc 63 p [dummy a b|p] i e"},
         "[dummy a b|p]"},
    });
    XmGraphDestroySelectedArcsOrNodes(graph);
    Pump();
    EXPECT_EQ(GraphPartOf(graph).root, NodeRecOf(CompositeOf(graph).children[0]));
    EXPECT_STREQ(XtName(CompositeOf(graph).children[0]), "dummy");
    EXPECT_EQ(Selection(), "[dummy|]");
    EXPECT_EQ(XmGraphNumNodes(graph), 5);
}

TEST_F(Gestures, ASweepsEndsAreTakenWithTheBoundsAndItsCursorFollowsTheMotionBefore) {
    places["o"] = {400, 300}, places["se"] = {410, 310}, places["ne"] = {410, 290};
    places["sw"] = {390, 310}, places["e"] = {410, 300};
    Expect({{"",
             "o 1 se ne sw e - o .",
             "26topleft 26topleft 26bottomright 26topright 26bottomleft 26topright 26bottomright "
             "0ptr",
             {},
             "[|]"}});
    // The ends of p are (100, 60) and (239, 60): on the bounds, and a pixel inside of them.
    const Place start = {ArcPartOf(named["p"]).from ? named["p"]->core.x : 0, 60};
    const int end = static_cast<Position>(named["p"]->core.width);
    for (int short_by : {0, 1}) {
        places["1"] = {static_cast<short>(start.x), 30};
        places["2"] = {static_cast<short>(end - short_by), 60};
        Preselect("");
        MoveTo(graph, places["1"].x, places["1"].y);
        Press();
        MoveTo(graph, places["2"].x, places["2"].y);
        Release();
        EXPECT_EQ(Selection(), short_by ? "[|]" : "[|p]");
    }
}

TEST_F(Gestures, SeveralArcsAloneAreToldToNobodyAndArcsAreToldOnlyWhereNodesAre) {
    Attach("p'", a, b);
    Preselect("");
    places["p1"] = {95, 30}, places["p1'"] = {245, 70}, places["c1"] = {430, 30};
    places["c1'"] = {485, 90};
    Run("p1 1 p1' .");
    EXPECT_EQ(Selection(), "[|p p']");
    EXPECT_TRUE(Heard().empty());
    XtVaSetValues(graph, XmNselectableArcs, False, nullptr);
    Run("p1 1 p1' .");
    EXPECT_EQ(Heard(), (Lines{"deselect 57 - [|p p'] i"}));
    EXPECT_EQ(Selection(), "[|]");
    XtVaSetValues(graph, XmNselectableArcs, True, nullptr);
    XtDestroyWidget(ArcsOf(graph).back());
    RunWorkProcs();
    XtRemoveAllCallbacks(graph, XmNselectNodeCallback);
    log.Clear();
    for (const char *script : {"c1 1 c1' .", "p1 1 p1' ."})
        Run(script);
    EXPECT_EQ(Heard(), (Lines{"deselect 58 - [c|] i"}));
    EXPECT_EQ(Selection(), "[|p]");
}

// ---- What may not be done ---------------------------------------------------------------------------

TEST_F(Gestures, ResourcesForbid) {
    Attach("p'", a, b);
    const struct {
        const char *resource;
        const char *selected, *script, *trace;
        Lines heard;
    } rows[] = {
        {XmNeditable, "c", "a 1 - .", "0(c) 0(c) 0(c)ptr", {}},
        {XmNeditable, "c", "^C a 1 - . _", "0(c) 0(c) 0(c)ptr", {}},
        {XmNeditable, "c", "^S a 1 - . _", "0(c) 0(c) 0(c)ptr", {}},
        {XmNeditable, "c", "^S - 2 m . _", "0(c) 0(c) 0(c)ptr", {}},
        {XmNeditable, "c", "a 2 - .", "0(c) 0(c) 0(c)ptr", {}},
        {XmNallowMultipleSelections, "c", "- 1 m .", "0 0 0ptr", {"deselect 58 - [c|] i"}},
        {XmNallowMultipleSelections, "c", "^C a 1 . _", "0(c) 0(c)ptr", {}},
        {XmNallowMultipleSelections, "c", "^S a 1 a2 . _", "0(c) 0(c) 0(c)ptr", {}},
        {XmNallowMultipleSelections, "", "a 1 .", "1(a)indicate 0(a)ptr", {"selectNode 47 a [a|]"}},
        {XmNselectableArcs, "c", "q 1 - .", "0(c) 0(c) 0(c)ptr", {}},
        {XmNselectableArcs, "c", "^C q 1 - . _", "0(c) 0(c) 0(c)ptr", {}},
        {XmNselectableArcs,
         "",
         "a 2 . q 1 .",
         "9motion 1ptr 1 0ptr",
         {"nodeMoved 43 a i e", "graphChanged 43 a i"}},
        {XmNmovableNodes, "", "a 2 - .", "0 0 0ptr", {}},
        {XmNmovableNodes, "", "w 2 - .", "0 0 0ptr", {}},
        {XmNmovableNodes, "", "q 2 .", "10parent 10ptr", {}},
        {XmNeditableArcs, "", "q 2 - .", "0 0 0ptr", {}},
        {XmNeditableArcs, "", "^S a 2 - . _", "0 0 0ptr", {}},
        {XmNeditableArcs,
         "",
         "^S m 2 . _",
         "23motion 0ptr",
         {"newNode 42 Node i e", "graphChanged 42 Node i", "graphChanged 64 -"}},
        {XmNokToAdd, "", "^S a 2 - . _", "0 0 0ptr", {}},
        {XmNokToAdd, "", "^S - 2 m . _", "0 0 0ptr", {}},
        {XmNuserData, "c", "^M a 1 - . _", "0(c) 0(c) 0(c)", {}}, // Meta is bound to nothing
        {XmNuserData, "c", "- 2 a .", "0(c) 0(c) 0(c)ptr", {}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(std::string(row.resource) + ": " + row.script);
        XtVaSetValues(graph, row.resource, False, nullptr);
        Preselect(row.selected);
        GraphPartOf(graph).gesture_state = GESTURE_NONE;
        EXPECT_EQ(Run(row.script), row.trace);
        EXPECT_EQ(Heard(), row.heard);
        XtVaSetValues(graph, row.resource, True, nullptr);
    }
}

TEST_F(Gestures, ABoardsButtonsWorkOnlyIfGrandchildrenKeepTheirInput) {
    CallbackLog<> clicks;
    clicks.Add(in, XmNactivateCallback);
    Run("in 1 .");
    EXPECT_EQ(clicks.size(), 1u);
    EXPECT_EQ(Selection(), "[|]");
    XtVaSetValues(graph, XmNeditable, False, nullptr);
    XtVaSetValues(graph, XmNallowGrandchildInput, False, XmNeditable, True, nullptr);
    Expect({{"", "in 1 box in .", "1indicate 1 1 0ptr", {"selectNode 47 box [box|]"}, "[box|]"}});
    EXPECT_EQ(clicks.size(), 1u);
}

// ---- Dragging ---------------------------------------------------------------------------------------

TEST_F(Gestures, ADraggedNodeTrailsThePointerByOneMotion) {
    places["step"] = {380, 300}, places["goal"] = {390, 330};
    for (const char *name : {"c", "w", "box"}) {
        SCOPED_TRACE(name);
        Widget node = named[name];
        Preselect("a");
        const Place from = PlaceOf(node);
        const XPoint grip = places[name];
        EXPECT_EQ(Run(std::string(name) + " 2"), "9(a)motion");
        Places passed;
        for (const char *place : {"step", "goal"}) {
            EXPECT_EQ(Run(place), "9(a)");
            passed.push_back(PlaceOf(node));
        }
        EXPECT_EQ(Run("."), "1(a)ptr");
        passed.push_back(PlaceOf(node));
        auto under = [&](const char *place) {
            return Place{places[place].x - grip.x + from.x, places[place].y - grip.y + from.y};
        };
        EXPECT_EQ(passed, (Places{from, under("step"), under("goal")}));
        EXPECT_EQ(Heard(), (Lines{std::string("nodeMoved 43 ") + name + " [a|] i e",
                                  std::string("graphChanged 43 ") + name + " i"}));
        XmGraphMoveNode(graph, node, static_cast<Position>(from.x), static_cast<Position>(from.y));
        Pump();
    }
    Preselect("a");
    EXPECT_EQ(Run("a 2 ."), "9(a)motion 1(a)ptr") << "one that is selected alone";
    EXPECT_EQ(PlaceOf(a), (Place{40, 40}));
    EXPECT_EQ(Heard(), (Lines{"nodeMoved 43 a [a|] i e", "graphChanged 43 a i"}));
    // The state that stands selects nothing, but counts clicks.
    XtVaSetValues(graph, XmNdoubleClickInterval, 60000, nullptr);
    GraphPartOf(graph).last_click_time = 0;
    EXPECT_EQ(Run("- 2 . 2 ."), "1(a) 0(a)ptr 0(a) 0(a)ptr");
    EXPECT_EQ(Selection(), "[a|]");
}

TEST_F(Gestures, AllSelectedNodesMoveTogetherWithThePointer) {
    places["step"] = {80, 90}, places["goal"] = {60, 110};
    Preselect("c a w");
    const Places from = PlacesOf({c, a, w, b});
    auto moved = [&](int dx, int dy) {
        Places places_now = from;
        for (size_t i = 0; i < 3; i++)
            places_now[i] = {from[i].x + dx, from[i].y + dy};
        return places_now;
    };
    EXPECT_EQ(Run("w 2"), "11(a w c)motion");
    EXPECT_EQ(Run("step"), "11(a w c)");
    EXPECT_EQ(PlacesOf({c, a, w, b}), moved(30, -80)) << "at once, also above the graph";
    Run("w step goal");
    EXPECT_EQ(PlacesOf({c, a, w, b}), moved(10, -60));
    EXPECT_EQ(Run("."), "1(a w c)ptr");
    EXPECT_EQ(PlacesOf({c, a, w, b}), (Places{{450, 0}, {50, 0}, {50, 120}, {240, 60}}));
    EXPECT_EQ(Heard(),
              (Lines{"graphChanged 66 -", "nodeMoved 60 c [c a w|] i e", "graphChanged 60 - i"}));
    Preselect("c w");
    places["a"] = {60, 10};
    EXPECT_EQ(Run("a 2 ."), "9(w c)motion 1(w c)ptr") << "one that is not selected moves alone";
    EXPECT_EQ(Heard(), (Lines{"nodeMoved 43 a [c w|] i e", "graphChanged 43 a i"}));
}

// ---- Arc ends -----------------------------------------------------------------------------------------

TEST_F(Gestures, AnArcsNearerEndMovesToTheNodeThatItIsDroppedOn) {
    Widget p = named["p"];
    auto ends = [&] {
        return XtName(ArcPartOf(p).from) + std::string(">") + XtName(ArcPartOf(p).to);
    };
    places["mid"] = {170, 60};
    places["near b"] = {171, 60};
    const struct {
        const char *script, *trace;
        Lines heard;
        const char *ends;
    } rows[] = {
        {"p 2 - w .",
         "10(c)parent 10(c) 10(c) 5(c)ptr",
         {"arcMoved 44 p [c|] a>b w>b i e", "graphChanged 44 p i"},
         "w>b"},
        {"p2 2 c .",
         "10(c)child 10(c) 5(c)ptr",
         {"arcMoved 44 p [c|] a>b a>c i e", "graphChanged 44 p i"},
         "a>c"},
        {"mid 2 box .",
         "10(c)parent 10(c) 5(c)ptr",
         {"arcMoved 44 p [c|] a>b box>b i e", "graphChanged 44 p i"},
         "box>b"},
        {"p 2 b .",
         "10(c)parent 10(c) 5(c)ptr",
         {"arcMoved 44 p [c|] a>b b>b i e", "graphChanged 44 p i"},
         "b>b"},
        {"p 2 - .", "10(c)parent 10(c) 10(c)ptr", {}, "a>b"},
        {"p 2 q .", "10(c)parent 10(c) 10(c)ptr", {}, "a>b"},
        {"p2 2 - b .", "10(c)child 10(c) 10(c) 10(c)ptr", {}, "a>b"},
    };
    XmGraphSelectNode(graph, c, False);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.script);
        GraphPartOf(graph).gesture_state = GESTURE_NONE;
        EXPECT_EQ(Run(row.script), row.trace);
        EXPECT_EQ(Heard(), row.heard);
        EXPECT_EQ(ends(), row.ends);
        XmGraphMoveArc(graph, p, a, b);
        Pump();
        ExpectConsistent(graph);
    }
    std::string at_callback;
    answer = [&](XmGraphCallbackStruct &data) {
        at_callback = ends();
        data.doit = False;
    };
    EXPECT_EQ(Run("p 2 w ."), "10(c)parent 10(c) 10(c)ptr");
    EXPECT_EQ(Heard(), (Lines{"arcMoved 44 p [c|] a>b w>b i e"}));
    answer = [&](XmGraphCallbackStruct &) { at_callback += ", " + ends(); };
    Run("p 2 w .");
    EXPECT_EQ(at_callback, "a>b, a>b, a>b") << "told before it is done, also by graphChanged";
}

// ---- New nodes and arcs ---------------------------------------------------------------------------------

TEST_F(Gestures, ANewNodeStandsWhereTheButtonWasReleased) {
    auto outline = [&](const char *place) {
        Recorder recorder;
        Run(std::string("^S ") + place + " 2");
        const auto calls = recorder.Calls("XDrawRectangles", XtWindow(graph));
        return calls.empty() ? std::vector<long>{} : calls.back().numbers;
    };
    XtVaSetValues(graph, XmNdefaultNodeClass, xmPushButtonWidgetClass, nullptr);
    EXPECT_EQ(outline("-").size(), 4u);
    EXPECT_EQ(Run("m ."), "23 0ptr");
    Run("_");
    EXPECT_EQ(Heard(),
              (Lines{"newNode 42 Node i e", "graphChanged 42 Node i", "graphChanged 64 -"}));
    EXPECT_EQ(PlaceOf(Last()), (Place{400, 300}));
    EXPECT_TRUE(XtIsSubclass(Last(), xmPushButtonWidgetClass) && XtIsRealized(Last()));
    const Place size = SizeOf(Last());
    places["o"] = {420, 400}, places["o'"] = {430, 410};
    // The client makes it larger; the next outline has the size before that. What is refused counts too.
    bool managed = true;
    answer = [&](XmGraphCallbackStruct &data) {
        managed = XtIsManaged(data.widget);
        XtVaSetValues(data.widget, XmNwidth, 200, XmNheight, 99, nullptr);
        data.doit = False;
    };
    EXPECT_EQ(outline("o"), (std::vector<long>{420, 400, size.x, size.y}));
    EXPECT_EQ(Run("o' ."), "23 0ptr");
    Run("_");
    EXPECT_EQ(Heard(), (Lines{"newNode 42 Node i e"}));
    EXPECT_FALSE(managed);
    EXPECT_EQ(XmGraphNumNodes(graph), 8);
    answer = nullptr;
    EXPECT_EQ(outline("q")[2], size.x) << "an arc is nothing";
    Run(".");
    EXPECT_EQ(XmGraphNumNodes(graph), 9);
}

TEST_F(Gestures, ANewArcMustLeaveItsSourceAndMayComeBack) {
    XtVaSetValues(graph, XmNinteractiveArcDirection, XmDIRECTED, nullptr);
    const struct {
        const char *script, *trace;
        Lines heard;
    } rows[] = {
        {"^S a 2 a2 - c . _",
         "25parent 25 24child 24 0ptr",
         {"newArc 41 arc a>c i e", "graphChanged 64 -", "graphChanged 41 arc i"}},
        {"^S w 2 - box . _",
         "25parent 24child 24 0ptr",
         {"newArc 41 arc w>box i e", "graphChanged 64 -", "graphChanged 41 arc i"}},
        {"^S a 2 - a . _",
         "25parent 24child 24 0ptr",
         {"newArc 41 arc a>a i e", "graphChanged 64 -", "graphChanged 41 arc i"}},
        {"^S a 2 b . _", "25parent 25 25ptr", {}},
        {"^S a 2 p . _", "25parent 24child 0ptr", {}},
    };
    size_t arcs = 3;
    for (const auto &row : rows) {
        SCOPED_TRACE(row.script);
        EXPECT_EQ(Run(row.script), row.trace);
        arcs += row.heard.empty() ? 0 : 1;
        EXPECT_EQ(Heard(), row.heard);
        ASSERT_EQ(ArcsOf(graph).size(), arcs);
    }
    Widget loop = ArcsOf(graph).back(), twin = ArcsOf(graph)[4];
    EXPECT_EQ(ArcPartOf(loop).arc_direction, XmDIRECTED);
    EXPECT_TRUE(XtIsManaged(loop));
    EXPECT_EQ(SiblingsOf(twin), (Widgets{named["r"], twin}));
    GraphPartOf(graph).current_node = nullptr;
    ExpectConsistent(graph);

    bool managed = true;
    answer = [&](XmGraphCallbackStruct &data) {
        managed = XtIsManaged(data.widget);
        data.doit = False;
    };
    Run("^S a 2 - c . _");
    EXPECT_EQ(Heard(), (Lines{"newArc 41 arc a>c i e"}));
    EXPECT_FALSE(managed);
    EXPECT_EQ(ArcsOf(graph).size(), arcs);
    RunWorkProcs();
    ExpectConsistent(graph);
}

TEST_F(Gestures, TheLayoutModeChangesForTheLengthOfAnAddition) {
    const struct {
        int mode, node, arc;
    } rows[] = {{XmNEVER, 0, 0},
                {XmALWAYS, 1, 1},
                {XmARCS_ONLY, 0, 1},
                {XmNODES_ONLY, 1, 0},
                {XmPARTIAL, 0, 0}};
    int &mode = GraphPartOf(graph).auto_layout_mode;
    XtVaSetValues(
        graph, XmNlayoutProc, +[](Widget) {}, nullptr);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.mode);
        std::vector<int> during;
        bool refuse = true;
        answer = [&](XmGraphCallbackStruct &data) {
            if (data.reason == XmCR_NEW_NODE || data.reason == XmCR_NEW_ARC)
                during.push_back(mode);
            data.doit = !refuse;
        };
        mode = row.mode;
        for (int round = 0; round < 2; round++, refuse = false) {
            XmGraphAddNode(graph);
            EXPECT_EQ(mode, row.mode);
            Run("^S m 2 . c 2 - d .");
            EXPECT_EQ(mode, row.mode);
        }
        // A node is told of twice within, an arc for the second time after, if they are not refused.
        EXPECT_EQ(during, (std::vector<int>{row.node, row.node, row.arc, row.node, row.node,
                                            row.node, row.node, row.arc, row.mode}));
        Run("^S c 2 - . _");
        EXPECT_EQ(mode, row.arc) << "an arc that is dropped on nothing leaves it";
        mode = row.mode;
        XmGraphMoveNode(graph, d, 500, 40);
        while (XmGraphNumNodes(graph) > 7)
            XtDestroyWidget(Last());
    }
}

TEST_F(Gestures, ASourceThatWasLeftBehindIsWhatTheNextArcDragMoves) {
    Run("^S c 2 - . _");
    EXPECT_EQ(GraphPartOf(graph).current_node, NodeRecOf(c));
    Heard();
    EXPECT_EQ(Run("p 2 m ."), "10parent 10 1ptr");
    EXPECT_EQ(Heard(), (Lines{"nodeMoved 43 c i e", "graphChanged 43 c i"}));
    EXPECT_EQ(ArcPartOf(named["p"]).from, a);
    EXPECT_EQ(GraphPartOf(graph).current_node, nullptr);
}

TEST_F(Gestures, InPartialModeANewArcLaysOutItsSourcesSubgraphOnly) {
    GraphPartOf(graph).auto_layout_mode = XmPARTIAL;
    const Places others = PlacesOf({b, w, box, d});
    Run("^S c 2 - d . _");
    EXPECT_EQ(PlaceOf(c), (Place{440, 40}));
    EXPECT_EQ(PlaceOf(d).x, 440 + 40 + 40) << "a child stands beside its parent, with its spacing";
    EXPECT_EQ(PlacesOf({b, w, box}), Places(others.begin(), others.begin() + 3));
    EXPECT_EQ(Heard().front(), "newArc 41 arc c>d i e");
}

} // namespace
} // namespace corvidlmw::test
