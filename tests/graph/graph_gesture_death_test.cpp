// Whatever happens in the middle of a gesture, nothing names the dead afterwards, and the gesture goes on.
// Each gesture is met by each act in each way that a program comes to act: between two events, from a timer
// or in the dispatch of an event that another client caused, and in any callback on the way, inside of a
// dispatch or, where an action was called from a timer, outside.

#include <tests/graph/GestureTest.h>

#include <X11/Xatom.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <sstream>

namespace {

using namespace corvidlmw::test;

// Steps are words: "S2n" presses button 2 with Shift over the node, ">b" moves to the background, "^n"
// releases over the node. Places: n the node, o another node, a an arc between them, e near its end, b bare.
struct Gesture {
    const char *name;
    int state; // once the first steps are done
    const char *first, *rest;
    bool editable = true, selected = false;
};

constexpr Gesture gestures[] = {
    {"node indicated", GESTURE_NODE_INDICATED, "1n", ">b >n ^n"},
    {"node cancelled", GESTURE_NODE_CANCELLED, "1n >b", ">n ^n"},
    {"node to be selected instead", GESTURE_NODE_INDICATED, "C1o ^o C1a ^a 1n", "^n"},
    {"node to be added", GESTURE_ADD_NODE_INDICATED, "C1n", ">b >n ^n"},
    {"node not to be added", GESTURE_ADD_NODE_CANCELLED, "C1n >b", ">n ^n"},
    {"arc indicated", GESTURE_ARC_INDICATED, "1a", ">b >a ^a"},
    {"arc to be selected instead", GESTURE_ARC_INDICATED, "C1o ^o 1a", "^a"},
    {"arc cancelled", GESTURE_ARC_CANCELLED, "1a >n", ">a ^a"},
    {"arc to be added", GESTURE_ADD_ARC_INDICATED, "C1a", ">n >a ^a"},
    {"arc not to be added", GESTURE_ADD_ARC_CANCELLED, "C1a >n", ">a ^a"},
    {"node moves", GESTURE_MOVE_NODE, "2n >b", ">o >f ^f"},
    {"arc's end moves", GESTURE_MOVE_ARC, "2e >b", ">o ^b 2e >o ^o"},
    {"selection moves", GESTURE_MOVE_SELECTION, "2n >b", ">o >f ^f", true, true},
    {"collapsed to one", GESTURE_RESELECT, "1n", "^n", true, true},
    {"collapsed to an arc", GESTURE_RESELECT, "1a", "^a", true, true},
    {"double click", GESTURE_RESELECT, "1n ^n 1n", "^n"},
    {"subgraph", GESTURE_SUBTREE_INDICATED, "S1n >n", ">b >n ^n"},
    {"subgraph at once", GESTURE_SUBTREE_INDICATED, "S1n", "^n", true, true},
    {"subgraph cancelled", GESTURE_SUBTREE_CANCELLED, "S1n >n >o", ">n ^n"},
    {"node placed", GESTURE_PLACE_NODE, "S2b", ">n ^b"},
    {"arc drawn", GESTURE_DRAW_ARC, "S2n >b", ">o ^o"},
    {"arc drawn in source", GESTURE_DRAW_ARC_IN_SOURCE, "S2n >n", ">b ^o"},
    {"swept", GESTURE_SWEEP_REGION, "1z >f", ">n >f ^f", true, true},
    {"node pressed", GESTURE_NONE, "1n", ">b >n ^n", false},
    {"arc pressed", GESTURE_NONE, "1a >a", ">n >a ^a", false},
};

class GestureDeathTest : public GestureTest {
protected:
    struct Act {
        const char *name;
        std::function<void()> run;
        bool scrolled = false;
    };

    // Each is cleared when it dies.
    Widget node = nullptr, other = nullptr, third = nullptr, arc = nullptr, window = nullptr;
    int deliveries = 0; // to the client
    int fatal_delivery = -1;
    const Act *act = nullptr;
    bool actions_from_timer = false;

    const std::vector<Act> acts = {
        {"nothing", [] {}},
        {"the node dies", [this] { Destroy(node); }},
        {"another node dies", [this] { Destroy(other); }},
        {"the arc dies", [this] { Destroy(arc); }},
        {"all nodes die", [this] { XmGraphDestroyAllNodes(graph); }},
        {"all arcs die", [this] { XmGraphDestroyAllArcs(graph); }, true},
        {"the selected die", [this] { XmGraphDestroySelectedArcsOrNodes(graph); }},
        {"node and arc die and others come",
         [this] {
             Destroy(arc);
             Destroy(node);
             Arc(MakeButton("new", 20, 20), third);
         }},
        {"the graph dies", [this] { Destroy(graph); }},
        {"a scrolled graph dies", [this] { Destroy(graph); }, true},
        {"the scrolled window dies", [this] { Destroy(window); }, true},
        {"the shell dies", [this] { Destroy(shell); }},
        {"it becomes read-only or editable",
         [this] { XtVaSetValues(graph, XmNeditable, !GraphPartOf(graph).editable, nullptr); }},
        {"it is unmanaged", [this] { XtUnmanageChild(graph); }},
        {"the node is unmanaged", [this] { node ? XtUnmanageChild(node) : void(); }},
        {"the scrolled window is resized",
         [this] { XtVaSetValues(window, XtNwidth, 150, XtNheight, 120, nullptr); }, true},
        {"it is scrolled",
         [this] {
             auto bar = reinterpret_cast<Widget>(ValueOf(window, XmNverticalScrollBar));
             int value, slider, increment, page;
             XmScrollBarGetValues(bar, &value, &slider, &increment, &page);
             XmScrollBarSetValues(bar, 0, slider, increment, page, True);
         },
         true},
        {"it is laid out anew", [this] { XtVaSetValues(graph, XmNreorient, True, nullptr); }},
        {"selection and subgraph grow",
         [this] {
             if (node)
                 XmGraphSelectSubtree(graph, node, True);
         }},
    };

    static void Destroy(Widget object) {
        if (object)
            XtDestroyWidget(object);
    }

    static void Know(Widget &field, Widget object) {
        field = object;
        XtAddCallback(
            object, XtNdestroyCallback,
            [](Widget dying, XtPointer named, XtPointer) {
                auto *widget = static_cast<Widget *>(named);
                *widget = *widget == dying ? nullptr : *widget;
            },
            &field);
    }

    static void Deliver(Widget widget, XtPointer test, XtPointer data) {
        auto *self = static_cast<GestureDeathTest *>(test);
        if (widget == self->graph)
            ExpectLiving(*static_cast<XmGraphCallbackStruct *>(data));
        if (self->deliveries++ == self->fatal_delivery && self->graph)
            self->act->run();
    }

    // A node that died lies in freed memory, an arc in memory that was cleared.
    static void ExpectLiving(const XmGraphCallbackStruct &data) {
        for (Widget told : {data.widget, data.old_to, data.old_from, data.new_to, data.new_from})
            EXPECT_TRUE(!told || told->core.self == told) << data.reason;
        EXPECT_TRUE(data.widget || data.reason != XmCR_NODE_MOVED);
    }

    void ListenToAll() {
        for (const char *list : std::initializer_list<const char *>{
                 XmNgraphChangedCallback, XmNnewArcCallback, XmNnewNodeCallback,
                 XmNnodeMovedCallback, XmNarcMovedCallback, XmNdefaultActionCallback,
                 XmNselectNodeCallback, XmNdeselectCallback, XmNselectArcCallback,
                 XmNselectSubgraphCallback})
            XtAddCallback(graph, list, Deliver, this);
        // A gadget of the toolkit does not survive its own death in its callbacks but in a dispatch.
        if (!actions_from_timer && !XtIsWidget(node))
            for (const char *list : {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback})
                XtAddCallback(node, list, Deliver, this);
    }

    void MakeScene(const Gesture &gesture, bool node_is_window, int layout_mode) {
        if (!shell) {
            SetUp();
            Show();
        }
        if (act->scrolled)
            XtManageChild(graph = XmCreateScrolledGraph(shell, Name("graph"), nullptr, 0));
        else
            MakeGraph();
        Know(graph, graph);
        Know(window, act->scrolled ? XtParent(XtParent(graph)) : graph);
        Know(node, Node({60, 30, node_is_window ? 1 : 0}, {20, 20}));
        if (!node_is_window) {
            XtDestroyWidget(node);
            Know(node, MakeButton("node", 20, 20));
            XtVaSetValues(node, XmNrecomputeSize, False, XtNwidth, 60, XtNheight, 30, nullptr);
        }
        Know(other, Node({60, 30}, {200, 20}));
        Know(third, Node({60, 30, 1}, {200, 200}));
        Know(arc, Arc(node, other));
        for (Widget from : {node, other, third})
            Arc(from, from == third ? node : third);
        XtVaSetValues(graph, XmNeditable, gesture.editable, XmNautoLayoutMode, layout_mode,
                      nullptr);
        if (gesture.selected) {
            Widget nodes[] = {node, third, other};
            XmGraphSelectNodes(graph, nodes, 3, False);
            XmGraphSelectArc(graph, arc, False);
        }
        Pump();
        ListenToAll();
        held = modifiers = deliveries = 0;
        now += 10000;
    }

    static Place At(char place) {
        switch (place) {
        case 'n': return {50, 35};
        case 'o': return {230, 35};
        case 'a': return {140, 35};
        case 'e': return {185, 36};
        case 'z': return {1, 1};
        case 'f': return {330, 330};
        default: return {30, 150};
        }
    }

    static std::vector<const char *> ActionsFor(const XEvent &event) {
        const unsigned button = event.type == MotionNotify        ? 0
                                : event.xbutton.button == Button1 ? 1
                                                                  : 2;
        const unsigned state = event.xbutton.state;
        switch (event.type) {
        case ButtonPress:
            if (button == 2)
                return {state & ShiftMask ? "StartAddNode" : "SelectForMotion"};
            if (state & (ControlMask | ShiftMask))
                return {state & ControlMask ? "AddIndicate" : "IndicateSubtree"};
            return {"Indicate", "Arm"};
        case MotionNotify: return {"HandleMotion", "EnterLeaveMotion"};
        default: return {"EndButtonAction", "Activate"};
        }
    }

    void FromTimer(std::function<void()> todo) {
        XtAppAddTimeOut(
            app, 0,
            [](XtPointer closure, XtIntervalId *) {
                std::exchange(*static_cast<std::function<void()> *>(closure), {})();
            },
            &todo);
        while (todo)
            XtAppProcessEvent(app, XtIMTimer);
    }

    // Another client changes a property of the shell, and this one acts on the event.
    void FromOtherClient(std::function<void()> todo) {
        auto run = [](Widget, XtPointer closure, XEvent *, Boolean *) {
            auto *once = static_cast<std::function<void()> *>(closure);
            if (auto act_now = std::exchange(*once, {}))
                act_now();
        };
        XtAddEventHandler(shell, PropertyChangeMask, False, run, &todo);
        Pump();
        Display *robot = XServer::Instance().robot();
        XChangeProperty(robot, XtWindow(shell), XA_CUT_BUFFER0, XA_STRING, 8, PropModeReplace,
                        nullptr, 0);
        XSync(robot, False);
        PumpUntil([&] { return !todo; });
        if (shell)
            XtRemoveEventHandler(shell, PropertyChangeMask, False, run, &todo);
    }

    void Give(XEvent event) {
        if (!actions_from_timer) {
            XtDispatchEvent(&event);
            return;
        }
        for (const char *action : ActionsFor(event))
            if (graph)
                FromTimer([&] { XtCallActionProc(graph, action, &event, nullptr, 0); });
    }

    void Do(const std::string &steps) {
        std::istringstream words(steps);
        for (std::string word; graph && words >> word; ExpectNothingDangles(graph)) {
            const Place at = At(word.back());
            if (word[0] == '>') {
                Give(NextEvent(MotionNotify, at));
            } else if (word[0] == '^') {
                Give(NextEvent(ButtonRelease, at, held & Button1Mask ? Button1 : Button2));
                modifiers = 0;
            } else {
                modifiers = word[0] == 'S' ? ShiftMask : word[0] == 'C' ? ControlMask : 0;
                Give(
                    NextEvent(ButtonPress, at, word[modifiers ? 1 : 0] == '1' ? Button1 : Button2));
            }
        }
    }

    // What is left still serves, and goes.
    void EndScene() {
        fatal_delivery = -1;
        actions_from_timer = false;
        RunWorkProcs();
        ExpectNothingDangles(graph);
        if (graph)
            Do("1n >b >n ^n S1o >o ^o 2n >b ^b");
        Destroy(window ? window : graph);
        RunWorkProcs();
        ExpectNothingDangles(nullptr);
        EXPECT_TRUE(warnings().empty()) << warnings().front();
    }
};

TEST_F(GestureDeathTest, NothingDanglesAfterAnActBetweenTwoEvents) {
    Show();
    for (const Gesture &gesture : gestures)
        for (const Act &each : acts)
            for (int way = 0; way < 4; way++) {
                SCOPED_TRACE(std::string(gesture.name) + ", " + each.name + ", " +
                             std::to_string(way));
                act = &each;
                MakeScene(gesture, way & 1, XmNEVER);
                Do(gesture.first);
                ASSERT_EQ(GraphPartOf(graph).gesture_state, gesture.state);
                way & 2 ? FromTimer(act->run) : FromOtherClient(act->run);
                ExpectNothingDangles(graph);
                Do(gesture.rest);
                EndScene();
                if (HasFailure())
                    return;
            }
}

TEST_F(GestureDeathTest, NothingDanglesAfterAnActInAnyCallback) {
    Show();
    for (const Gesture &gesture : gestures)
        for (const Act &each : acts)
            for (int way = 0; way < 4; way++)
                for (int at = 0, told = 1; at < told; at++) {
                    SCOPED_TRACE(std::string(gesture.name) + ", " + each.name + ", " +
                                 std::to_string(way) + ", delivery " + std::to_string(at));
                    act = &each;
                    actions_from_timer = way & 2;
                    MakeScene(gesture, way & 1, at % 2 ? XmPARTIAL : XmALWAYS);
                    fatal_delivery = at;
                    Do(std::string(gesture.first) + " " + gesture.rest);
                    told = deliveries > told ? deliveries : told;
                    EndScene();
                    if (HasFailure())
                        return;
                }
}

// ---- Odd moments ---------------------------------------------------------------------------------

class GestureOddDeathTest : public GestureDeathTest {
protected:
    std::function<void()> on_death;

    void SetUp() override {
        GestureDeathTest::SetUp();
        if (act)
            return;
        Show();
        act = &acts.front();
        MakeScene(gestures[0], true, XmNEVER);
    }
    void OnDeath(Widget object, std::function<void()> todo) {
        on_death = std::move(todo);
        XtAddCallback(
            object, XtNdestroyCallback,
            [](Widget, XtPointer test, XtPointer) {
                static_cast<GestureOddDeathTest *>(test)->on_death();
            },
            this);
    }
};

TEST_F(GestureOddDeathTest, WhatIsDyingIsNeitherPickedNorSelectedAgain) {
    for (Widget *victim : {&arc, &node}) {
        Widget dying = *victim;
        OnDeath(dying, [&] {
            XmGraphSelectArc(graph, dying, True);
            XmGraphSelectNode(graph, dying, True);
            XmGraphSelectArcs(graph, &dying, 1, False);
            XmGraphSelectNodes(graph, &dying, 1, False);
            for (const char *press : {"1n", "S1n", "C1n ^n", "2n", "S2n"}) {
                pointer = At('n');
                Do(press);
                XEvent event = PointerEvent(ButtonPress, press[0] == '2' ? Button2 : Button1);
                event.xbutton.subwindow = XtIsWidget(dying) ? XtWindow(dying) : None;
                event.xbutton.state = modifiers;
                XtDispatchEvent(&event);
            }
        });
        XtDestroyWidget(dying);
        EXPECT_EQ(XmGraphIsSelectedArc(graph, dying) + XmGraphIsSelectedNode(graph, dying), 0);
        ExpectNothingDangles(graph);
        held = modifiers = 0;
    }
    EndScene();
}

TEST_F(GestureOddDeathTest, AnArcThatWaitsForItsDeathIsNotSelected) {
    Widget waiting = arc;
    XtDestroyWidget(node);
    ASSERT_TRUE(arc);
    XmGraphSelectArc(graph, waiting, True);
    XmGraphSelectArcs(graph, &waiting, 1, True);
    RunWorkProcs();
    ExpectNothingDangles(graph);
    XmGraphUnselectArc(graph, XmCreateArc(graph, Name("new"), nullptr, 0), False);
    EndScene();
}

// The list of the subgraph is shared: while this graph's gesture runs another one's nodes enter it.
TEST_F(GestureOddDeathTest, NodesOfAnotherGraphMayDieDuringAGesture) {
    for (const char *rest : {">n >b >n ^n", "^n"}) {
        for (bool from_timer : {false, true}) {
            Widget far_graph = XtCreateManagedWidget("far", xmGraphWidgetClass, shell, nullptr, 0);
            Widget far =
                XtCreateManagedWidget("far", xmPushButtonGadgetClass, far_graph, nullptr, 0);
            actions_from_timer = from_timer;
            Do("S1n");
            XmGraphSelectSubtree(far_graph, far, False);
            const Act kill = {"", [&] { XtDestroyWidget(far_graph); }};
            act = &kill;
            deliveries = fatal_delivery = 0;
            Do(rest);
            EXPECT_GT(deliveries, 0);
            fatal_delivery = -1;
            ExpectNothingDangles(graph);
        }
    }
    EndScene();
}

} // namespace
