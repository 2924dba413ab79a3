/* What a resource change sets in motion, and the input that an editable graph takes from its nodes. */

#include <tests/graph/GraphTest.h>

#include <Xm/BulletinB.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>

namespace corvidlmw::test {
namespace {

constexpr long hidden_events =
    KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | ButtonMotionMask;

int layouts = 0;

class Redisplay : public DrawnPair {
protected:
    void SetUp() override {
        DrawnPair::SetUp();
        XtVaSetValues(
            graph, XmNlayoutProc, +[](Widget) { layouts++; }, nullptr);
        arc = Arc(left, right);
    }

    XGCValues ColoursOf(GC gc) {
        XGCValues values{};
        XGetGCValues(display, gc, GCForeground | GCBackground, &values);
        return values;
    }

    Widget arc = nullptr;
};

TEST_F(Redisplay, EachResourceLaysOutOrRepaintsAsItShould) {
    Show();
    const struct {
        const char *name;
        XtArgVal value;
        int layouts;
        size_t repaints;
    } changes[] = {
        {XmNorientation, XmVERTICAL, 1, 0},
        {XmNchildSpacing, 60, 1, 0},
        {XmNunitType, Xm100TH_MILLIMETERS, 1, 0},
        {XmNautoLayoutMode, XmALWAYS, 1, 0},
        {XmNautoLayoutMode, XmNEVER, 0, 0},
        {XmNreLayout, True, 1, 0},
        {XmNreLayout, True, 1, 0},
        {XmNreorient, True, 1, 0},
        {XmNlayoutStyle, XmBUTTERFLY, 0, 0}, // no root yet
        {XmNlayoutStyle, XmGRAPH, 1, 0},
        {XmNarcDrawMode, XmPOSITION_FIXED, 0, 1},
        {XmNtwinsVisible, False, 0, 1},
        {XmNbackground, static_cast<XtArgVal>(Colour("yellow")), 0, 1},
        {XmNshowCrossingArcs, False, 0, 0},
        {XmNeditable, True, 0, 0},
        {XmNptrCursor, ValueOf(graph, XmNmotionCursor), 0, 0},
    };
    Recorder cursors;
    for (const auto &change : changes) {
        layouts = 0;
        Recorder recorder;
        XtVaSetValues(graph, change.name, change.value, nullptr);
        EXPECT_EQ(layouts, change.layouts) << change.name << ' ' << change.value;
        EXPECT_EQ(recorder.Calls("XClearArea", XtWindow(graph)).size(), change.repaints)
            << change.name << ' ' << change.value;
    }
    EXPECT_EQ(cursors.Calls("XDefineCursor", XtWindow(graph)).size(), 1u);
    EXPECT_FALSE(ValueOf(graph, XmNreLayout));
    EXPECT_FALSE(ValueOf(graph, XmNreorient));
    EXPECT_EQ(ValueOf(graph, XmNorientation), XmHORIZONTAL) << "turned back";

    layouts = 0;
    XmGraphSetButterflyRoot(graph, left);
    XtVaSetValues(graph, XmNlayoutStyle, XmBUTTERFLY, nullptr);
    EXPECT_EQ(layouts, 1);
}

TEST_F(Redisplay, ColoursReachTheGCsThatShowThem) {
    Show();
    const XmGraphPart &part = GraphPartOf(graph);
    const Pixel red = Colour("red");
    const Pixel yellow = Colour("yellow");
    XtVaSetValues(graph, XmNforeground, red, XmNhighlightColor, red, nullptr);
    EXPECT_EQ(ColoursOf(part.gc).foreground, red);
    EXPECT_EQ(ColoursOf(part.highlight_gc).foreground, red);

    XtVaSetValues(graph, XmNbackground, yellow, nullptr);
    Pump();
    for (GC gc : {part.gc, part.highlight_gc, ArcPartOf(arc).gc})
        EXPECT_EQ(ColoursOf(gc).background, yellow);
    EXPECT_EQ(ColoursOf(part.xor_gc).foreground, red ^ yellow);
    EXPECT_EQ(Picture::Of(graph).At(180, 120), Black());
    _EraseArc(arc);
    EXPECT_EQ(Picture::Of(graph).At(180, 120), yellow);
}

TEST_F(Redisplay, OnlyGadgetsThatAnExposureTouchesArePainted) {
    Node({50, 300, 80, 30}, xmPushButtonGadgetClass, "one");
    Node({300, 300, 80, 30}, xmPushButtonGadgetClass, "two");
    Show();
    auto texts = [&](XRectangle exposed) {
        std::string all;
        Recorder recorder;
        Uncover(exposed);
        for (const Call &call : recorder.Drawing(XtWindow(graph)))
            all += call.text;
        return all;
    };
    EXPECT_EQ(texts({40, 290, 11, 11}), "one");
    EXPECT_EQ(texts({370, 320, 100, 1}), "two");
    EXPECT_EQ(texts({0, 290, 600, 50}), "onetwo");
    EXPECT_EQ(texts({40, 290, 10, 10}), "");
}

TEST_F(Redisplay, ManagingAnArcDoesNotRealiseIt) {
    Show();
    int realised = 0;
    auto count = [](Widget, XtPointer closure, XtPointer call_data) {
        const auto *change = static_cast<XtChangeHookData>(call_data);
        if (change->type == std::string_view(XtHrealizeWidget) && XmIsArc(change->widget))
            ++*static_cast<int *>(closure);
    };
    Widget hooks = XtHooksOfDisplay(display);
    XtAddCallback(hooks, XtNchangeHook, count, &realised);
    auto expect_bare = [&](std::initializer_list<Widget> arcs) {
        Pump();
        EXPECT_EQ(realised, 0);
        for (Widget each : arcs)
            EXPECT_EQ(each->core.window, None);
    };
    Widget alone = Arc(left, right);
    expect_bare({arc, alone});

    Widget node = XtVaCreateWidget("node", xmPushButtonWidgetClass, graph, nullptr);
    Widget other = XtVaCreateWidget("other", xmPushButtonWidgetClass, graph, nullptr);
    Widget first = UnmanagedArc(node, other);
    Widget second = UnmanagedArc(other, left);
    Widget mixed[] = {first, node, second, other};
    for (int i = 0; i < 2; i++) {
        XtManageChildren(mixed, XtNumber(mixed));
        expect_bare({first, second});
        EXPECT_TRUE(XtIsRealized(node) && XtIsRealized(other));
        XtUnmanageChildren(mixed, XtNumber(mixed));
        expect_bare({first, second});
    }
    XtManageChildren(mixed, XtNumber(mixed));
    for (Widget dying : {alone, second, node})
        XtDestroyWidget(dying);
    expect_bare({arc});
    XtRemoveCallback(hooks, XtNchangeHook, count, &realised);
    XWindowAttributes attributes{};
    EXPECT_TRUE(XGetWindowAttributes(display, XtWindow(graph), &attributes));
    EXPECT_EQ(attributes.map_state, IsViewable);
}

class EditMode : public DrawnGraph {
protected:
    XWindowAttributes AttributesOf(Widget w) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(display, XtWindow(w), &attributes);
        return attributes;
    }

    void ExpectMode(Widget w, bool takes_input) {
        const long full = static_cast<long>(XtBuildEventMask(w));
        ASSERT_NE(full & hidden_events, 0) << XtName(w);
        EXPECT_EQ(AttributesOf(w).your_event_mask, takes_input ? full : full & ~hidden_events)
            << XtName(w) << (takes_input ? " in a read-only graph" : " in an editable graph");
    }

    void AddNodes() {
        button = Node({20, 20, 60, 30}, xmPushButtonWidgetClass, "button");
        board = Node({120, 20, 100, 80}, xmBulletinBoardWidgetClass, "board");
        inner_board =
            XtVaCreateManagedWidget("inner board", xmBulletinBoardWidgetClass, board, nullptr);
        inner = XtVaCreateManagedWidget("inner", xmPushButtonWidgetClass, inner_board, nullptr);
        Node({20, 200, 60, 30}, xmPushButtonGadgetClass, "gadget");
    }

    // Managing nodes without a window of their own events.
    long RoundTripsFor(int count) {
        RequestCounter counter(display);
        for (int i = 0; i < count; i++)
            Node({static_cast<short>(10 * i), 300, 9, 9}, widgetClass, "plain");
        if (!XtIsRealized(shell))
            XtRealizeWidget(shell);
        Pump();
        return counter.round_trips();
    }

    Widget button = nullptr;
    Widget board = nullptr;
    Widget inner_board = nullptr;
    Widget inner = nullptr;
};

TEST_F(EditMode, AnEditableGraphTakesTheInputOfItsNodesWhenEverTheyCome) {
    for (bool inside_keeps : {true, false}) {
        XtVaSetValues(graph, XmNallowGrandchildInput, inside_keeps, XmNeditable, True, nullptr);
        AddNodes();
        Show();
        for (bool editable : {true, false, true}) {
            XtVaSetValues(graph, XmNeditable, editable, nullptr);
            for (Widget node : {button, board})
                ExpectMode(node, !editable);
            for (Widget w : {inner_board, inner})
                ExpectMode(w, !editable || inside_keeps);
        }
        XmGraphDestroyAllNodes(graph);
        Pump();
    }
}

TEST_F(EditMode, WhatANodeKeepsFromItsParentIsLimitedToo) {
    AddNodes();
    Show();
    XSetWindowAttributes attributes{};
    attributes.do_not_propagate_mask = ButtonPressMask | KeyPressMask | PointerMotionMask;
    XChangeWindowAttributes(display, XtWindow(button), CWDontPropagate, &attributes);
    XtVaSetValues(graph, XmNeditable, True, nullptr);
    EXPECT_EQ(AttributesOf(button).do_not_propagate_mask, PointerMotionMask);
    XtVaSetValues(graph, XmNeditable, False, nullptr);
    EXPECT_EQ(AttributesOf(button).do_not_propagate_mask, 0);
}

TEST_F(EditMode, RoundTripsDoNotGrowWithTheNodes) {
    const long few = RoundTripsFor(10);
    XtDestroyWidget(shell);
    DrawnGraph::SetUp();
    EXPECT_EQ(RoundTripsFor(50), few) << "with the realisation";
    for (bool editable : {false, true}) {
        XtVaSetValues(graph, XmNeditable, editable, nullptr);
        const long few_more = RoundTripsFor(10);
        EXPECT_EQ(RoundTripsFor(50), few_more) << editable;
    }
}

TEST_F(EditMode, AModeThatAWindowHasIsNotAppliedAgain) {
    // Without traversal the toolkit asks the server nothing when a child is managed.
    XtVaSetValues(graph, XmNeditable, True, XmNallowGrandchildInput, False, XmNtraversalOn, False,
                  nullptr);
    AddNodes();
    Show();
    Recorder recorder;
    RequestCounter counter(display);
    XtUnmanageChild(board);
    XtManageChild(board);
    Pump();
    EXPECT_TRUE(recorder.Calls("XSelectInput").empty());
    EXPECT_TRUE(recorder.Calls("XChangeWindowAttributes").empty());
    EXPECT_EQ(counter.round_trips(), 0);

    Widget late = XtVaCreateManagedWidget("late", xmPushButtonWidgetClass, inner_board, nullptr);
    Pump();
    recorder.Clear();
    Node({20, 260, 60, 30}, xmPushButtonGadgetClass, "another");
    ExpectMode(late, false);
    EXPECT_EQ(recorder.Calls("XSelectInput").size(), 1u);
}

} // namespace
} // namespace corvidlmw::test
