/* A read-only graph hands input to its nodes and arcs, as the toolkit's own managers do. */

#include <tests/graph/GraphTest.h>

#include <X11/keysym.h>
#include <Xm/BulletinB.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>

namespace corvidlmw::test {
namespace {

class ReadOnlyInput : public DrawnGraph {
protected:
    void SetUp() override {
        DrawnGraph::SetUp();
        gadget = Node({50, 100, 60, 40}, xmPushButtonGadgetClass, "gadget");
        other = Node({250, 100, 60, 40}, xmPushButtonGadgetClass, "other");
        arc = Arc(gadget, other);
        clicks.Add(gadget, XmNarmCallback);
        clicks.Add(gadget, XmNactivateCallback);
    }

    Widget gadget = nullptr;
    Widget other = nullptr;
    Widget arc = nullptr;
    CallbackLog<> clicks;
};

TEST_F(ReadOnlyInput, AGadgetIsActivatedByAClickUnlessTheGraphIsEditable) {
    Show();
    const std::vector<int> click = {XmCR_ARM, XmCR_ACTIVATE};
    Click(gadget, 5, 5);
    EXPECT_EQ(clicks.reasons(), click);
    Click(gadget, 5, 5, Button1, ShiftMask);
    EXPECT_EQ(clicks.reasons(), click);
    XtVaSetValues(graph, XmNeditable, True, nullptr);
    Click(gadget, 5, 5);
    EXPECT_EQ(clicks.reasons(), click);
    XtVaSetValues(graph, XmNeditable, False, nullptr);

    Widget over = Node({50, 100, 60, 40}, xmPushButtonGadgetClass, "over");
    clicks.Add(over, XmNactivateCallback);
    Pump();
    Click(gadget, 5, 5);
    EXPECT_EQ(clicks.back().widget, over) << "the one managed last is above";
    XtUnmanageChild(over);
    Click(gadget, 5, 5);
    EXPECT_EQ(clicks.back().widget, gadget);
}

TEST_F(ReadOnlyInput, AClientAddsKeysForGadgets) {
    Show();
    XmProcessTraversal(other, XmTRAVERSE_CURRENT);
    XmProcessTraversal(gadget, XmTRAVERSE_CURRENT);
    Pump();
    ASSERT_EQ(XmGetFocusWidget(shell), gadget);
    Key(XK_space);
    EXPECT_TRUE(clicks.empty());
    XtAugmentTranslations(graph, XtParseTranslationTable("<Key>space: ManagerGadgetSelect()"));
    Key(XK_space);
    EXPECT_EQ(clicks.reasons(), (std::vector<int>{XmCR_ARM, XmCR_ACTIVATE}));
}

TEST_F(ReadOnlyInput, AnArcIsArmedBetweenPressAndRelease) {
    Widget crossing = Arc(Node({170, 20, 20, 20}), Node({170, 200, 20, 20}));
    Show();
    const XmGraphPart &part = GraphPartOf(graph);
    MoveTo(graph, 140, 120);
    Press();
    EXPECT_TRUE(ArcPartOf(arc).armed);
    MoveTo(graph, 145, 121);
    EXPECT_EQ(part.armed_gadget, arc);
    MoveTo(graph, 180, 60);
    EXPECT_EQ(part.armed_gadget, arc) << "over another arc nothing happens";
    MoveTo(graph, 140, 200);
    EXPECT_EQ(part.armed_gadget, nullptr);
    Recorder recorder;
    Release();
    EXPECT_FALSE(ArcPartOf(arc).armed);
    EXPECT_EQ(ByArcs(recorder).size(), 2u);
    EXPECT_FALSE(ArcPartOf(crossing).armed);

    XtVaSetValues(arc, XmNsensitive, False, nullptr);
    MoveTo(graph, 140, 120);
    Press();
    EXPECT_FALSE(ArcPartOf(arc).armed);
    Release();
    XtVaSetValues(arc, XmNsensitive, True, nullptr);
    XtVaSetValues(graph, XmNeditable, True, nullptr);
    Press();
    EXPECT_FALSE(ArcPartOf(arc).armed);
}

TEST_F(ReadOnlyInput, WhatDiesWhileItIsPressedIsForgotten) {
    Show();
    Widget next = Node({50, 100, 60, 40}, xmPushButtonGadgetClass, "next");
    Widget line = Arc(next, other);
    for (Widget dying : {line, next}) {
        Pump();
        MoveTo(graph, dying == line ? 180 : 60, 120);
        Press();
        XtDestroyWidget(dying);
        MoveTo(graph, 182, 121);
        Release();
    }
    EXPECT_EQ(XmGraphNumNodes(graph), 2);
}

TEST_F(ReadOnlyInput, ButtonThreeTellsWhatItIsOver) {
    Widget plain = Node({50, 300, 60, 40}, widgetClass, "plain");
    GraphLog log;
    log.Add(graph, XmNuserButtonCallback);
    log.OnEach([&](const auto &entry) {
        EXPECT_EQ(entry.data.event->xbutton.button, Button3);
        EXPECT_EQ(entry.data.selected_widgets, nullptr);
    });
    Show();
    const struct {
        Widget at;
        int x, y, reason;
        Widget told;
    } cases[] = {
        {gadget, 5, 5, XmCR_BUTTON_OVER_GADGET, gadget},
        {graph, 20, 20, XmCR_BUTTON_OVER_GRAPH, graph},
        {graph, 180, 120, XmCR_BUTTON_OVER_GRAPH, graph}, // an arc is not looked for
        {plain, 5, 5, XmCR_BUTTON_OVER_OTHER, graph},
    };
    for (bool editable : {false, true}) {
        XtVaSetValues(graph, XmNeditable, editable, nullptr);
        for (const auto &expected : cases) {
            log.Clear();
            Click(expected.at, expected.x, expected.y, Button3);
            ASSERT_EQ(log.reasons(), std::vector<int>{expected.reason});
            EXPECT_EQ(log.back().data.widget, expected.told);
        }
    }
    EXPECT_TRUE(clicks.empty());
}

// Where the focus goes and what is called. A graph binds no key that activates gadgets.
class Traversal : public DisplayTest {
protected:
    std::vector<std::string> Walk(WidgetClass manager_class) {
        std::vector<std::string> heard;
        Widget frame = XtVaCreateManagedWidget("frame", xmBulletinBoardWidgetClass, shell, nullptr);
        Widget manager =
            XtVaCreateManagedWidget("manager", manager_class, frame, XmNwidth, 400, XmNheight, 300,
                                    XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        XtVaCreateManagedWidget("outside", xmPushButtonWidgetClass, frame, XmNy, 350,
                                XmNnavigationType, XmTAB_GROUP, nullptr);
        Widget first = nullptr;
        CallbackLog<> log;
        int x = 10;
        for (WidgetClass child_class :
             {xmPushButtonGadgetClass, xmPushButtonWidgetClass, xmPushButtonGadgetClass}) {
            const std::string name = "node " + std::to_string(x);
            Widget child = XtVaCreateManagedWidget(name.c_str(), child_class, manager, XmNx, x,
                                                   XmNy, 10, nullptr);
            log.Add(child, XmNhelpCallback);
            if (XtIsWidget(child))
                log.Add(child, XmNactivateCallback);
            first = first ? first : child;
            x += 100;
        }
        log.OnEach([&](const auto &entry) {
            heard.push_back(XtName(entry.widget) + (" calls " + entry.list));
        });
        Show();
        XmProcessTraversal(first, XmTRAVERSE_CURRENT);
        Pump();
        for (KeySym key : {XK_space, XK_F1, XK_Right, XK_space, XK_Right, XK_Right, XK_Left, XK_F1,
                           XK_Tab, XK_space, XK_Tab, XK_F1}) {
            Key(key);
            RunWorkProcs();
            heard.push_back(XtName(XmGetFocusWidget(frame)));
        }
        XtDestroyWidget(frame);
        return heard;
    }
};

TEST_F(Traversal, KeysReachNodesAsTheyReachTheChildrenOfABoard) {
    const auto in_board = Walk(xmBulletinBoardWidgetClass);
    EXPECT_GE(in_board.size(), 12u + 4) << ::testing::PrintToString(in_board);
    EXPECT_EQ(Walk(xmGraphWidgetClass), in_board);
}

} // namespace
} // namespace corvidlmw::test
