// A random walk of a user and a program over one graph, beside a model of the machine. A share of the
// gestures comes through the server, the rest is dispatched at once.

#include <tests/graph/GestureModel.h>

#include <deque>
#include <memory>
#include <sstream>

namespace {

using namespace corvidlmw::test;

class GestureWalkTest : public GestureTest {
protected:
    static GestureWalkTest *running; // a layout procedure has no closure
    std::unique_ptr<GestureModel> model;
    std::vector<Heard> heard;
    std::deque<std::string> history;
    Random *random = nullptr;
    bool real = false; // the gesture that runs comes through the server

    // ---- What the client hears -------------------------------------------------------------------

    Widget Told(Widget object) const {
        return !object || object == graph || model->Knows(object) ? object : fresh;
    }
    void Hear(const XmGraphCallbackStruct &data, bool changed) {
        heard.push_back(
            {.reason = data.reason,
             .changed = changed,
             .widget = Told(data.widget),
             .event = data.event != nullptr,
             .interactive = data.interactive == True,
             .doit = data.doit == True,
             .nodes = {data.selected_widgets, data.selected_widgets + data.num_selected_widgets},
             .arcs = {data.selected_arcs, data.selected_arcs + data.num_selected_arcs},
             .ends = {data.old_from, data.old_to, data.new_from, data.new_to}});
    }
    void Listen() {
        auto hear = [](Widget, XtPointer test, XtPointer data) {
            auto *self = static_cast<GestureWalkTest *>(test);
            auto *call_data = static_cast<XmGraphCallbackStruct *>(data);
            self->Hear(*call_data, false);
            if (call_data->doit)
                call_data->doit = self->model->refuse ? False : True;
        };
        for (const char *list :
             {"newArcCallback", "newNodeCallback", "nodeMovedCallback", "arcMovedCallback",
              "defaultActionCallback", "selectNodeCallback", "deselectCallback",
              "selectArcCallback", "selectSubgraphCallback", "userButtonCallback"})
            XtAddCallback(graph, list, hear, this);
        XtAddCallback(
            graph, XmNgraphChangedCallback,
            [](Widget, XtPointer test, XtPointer data) {
                static_cast<GestureWalkTest *>(test)->Hear(
                    *static_cast<XmGraphCallbackStruct *>(data), true);
            },
            this);
        XtInsertEventHandler(
            graph, ButtonPressMask | ButtonReleaseMask | ButtonMotionMask, False,
            [](Widget, XtPointer test, XEvent *event, Boolean *) {
                static_cast<GestureWalkTest *>(test)->model->Take(*event);
            },
            this, XtListHead);
    }

    // ---- Building --------------------------------------------------------------------------------

    bool Chance(double probability) { return random->Chance(probability); }
    int Between(int low, int high) { return random->Between(low, high); }
    Place AnyPlace() { return {Between(0, 560), Between(0, 420)}; }

    Widget AnyNode() {
        const Widgets nodes = NodesOf(graph);
        return nodes.empty()
                   ? nullptr
                   : nodes[static_cast<size_t>(Between(0, static_cast<int>(nodes.size()) - 1))];
    }
    Widget AnyArc() {
        const Widgets arcs = ArcsOf(graph);
        return arcs.empty()
                   ? nullptr
                   : arcs[static_cast<size_t>(Between(0, static_cast<int>(arcs.size()) - 1))];
    }
    // A gadget may lie over others, a window may not.
    void NewNode() {
        const Place at = AnyPlace();
        bool free = true;
        for (const auto &[node, p] : model->places)
            free = free && (std::abs(p.x - at.x) > 70 || std::abs(p.y - at.y) > 40);
        const int windows = static_cast<int>(std::ranges::count_if(
            NodesOf(graph), [](Widget node) { return bool(XtIsWidget(node)); }));
        Widget node = Node({60, 30, free && windows < 3 && Chance(0.5) ? 1 : 0}, at);
        model->places[node] = at;
    }
    void NewArc() {
        Widget from = AnyNode();
        Widget to = Chance(0.1) ? from : AnyNode();
        model->ends[Arc(from, to)] = {from, to};
    }

    void Begin() {
        running = this;
        MakeGraph(
            XmNeditable, True, XmNlayoutProc,
            +[](Widget) { running->heard.push_back({.reason = layout_ran}); });
        model = std::make_unique<GestureModel>(graph);
        model->places[CompositeOf(graph).children[0]] = {};
        for (int i = 0; i < 5; i++)
            NewNode();
        for (int i = 0; i < 6; i++)
            NewArc();
        Pump();
        Listen();
    }

    // ---- A user ----------------------------------------------------------------------------------

    Place AnyTarget() {
        Widget node = AnyNode(), arc = AnyArc();
        if (node && Chance(0.5))
            return {node->core.x + Between(1, 50), node->core.y + Between(1, 25)};
        if (arc && Chance(0.5)) {
            const int part = Between(1, 9);
            const auto end_x = static_cast<short>(arc->core.width);
            const auto end_y = static_cast<short>(arc->core.height);
            return {arc->core.x + (end_x - arc->core.x) * part / 10,
                    arc->core.y + (end_y - arc->core.y) * part / 10};
        }
        return AnyPlace();
    }
    static bool OnScreen(Place p) { return p.x >= 0 && p.y >= 0 && p.x < 630 && p.y < 470; }

    void Say(const std::string &step) {
        history.push_back(step);
        if (history.size() > 12)
            history.pop_front();
    }
    void Send(int type, Place at, unsigned button = 0) {
        XEvent event = NextEvent(type, at, button);
        std::ostringstream words;
        words << (real ? "real " : "") << type << " button " << button << " state " << std::hex
              << event.xbutton.state << " at " << std::dec << at;
        Say(words.str());
        if (!real) {
            XtDispatchEvent(&event);
        } else if (type == MotionNotify) {
            MoveTo(graph, at.x, at.y);
        } else if (type == ButtonPress) {
            PressModifiers(modifiers);
            MoveTo(graph, at.x, at.y);
            Press(button);
        } else {
            Release(button);
            ReleaseModifiers(modifiers);
        }
    }

    unsigned AnyModifiers() {
        constexpr unsigned often[] = {0, 0, 0, 0, ShiftMask, ShiftMask, ControlMask, Mod1Mask};
        return often[Between(0, 7)] | (Chance(0.05) ? ControlMask : 0);
    }

    void UserStep() {
        Place at = AnyTarget();
        if (held == 0) {
            real = Chance(0.15) && OnScreen(at);
            modifiers = AnyModifiers();
            now += Chance(0.3) ? 300 : 0;
            model->refuse = Chance(0.2);
            return Send(ButtonPress, at, Chance(0.55) ? Button1 : Chance(0.9) ? Button2 : Button3);
        }
        if (real && !OnScreen(at))
            at = {5, 5};
        if (Chance(0.6))
            return Send(MotionNotify, at);
        const unsigned button = held & Button1Mask   ? Button1
                                : held & Button2Mask ? Button2
                                                     : Button3;
        if (real)
            return Send(ButtonRelease, pointer, button);
        if (Chance(0.05)) { // it goes elsewhere
            held = 0;
            return;
        }
        modifiers = Chance(0.1) ? AnyModifiers() : modifiers;
        Send(ButtonRelease, Chance(0.8) ? pointer : at, button);
    }

    // ---- A program -------------------------------------------------------------------------------

    void Set(const char *resource, bool &value, double truth) {
        value = Chance(truth);
        XtVaSetValues(graph, resource, value, nullptr);
        Say(std::string(resource) + (value ? " on" : " off"));
    }
    void SetAny() {
        switch (Between(0, 8)) {
        case 0:
        case 1: return Set(XmNeditable, model->editable, 0.8);
        case 2: return Set(XmNallowMultipleSelections, model->multiple, 0.85);
        case 3: return Set(XmNselectableArcs, model->selectable, 0.85);
        case 4: return Set(XmNeditableArcs, model->editable_arcs, 0.85);
        case 5: return Set(XmNmovableNodes, model->movable, 0.85);
        case 6: return Set(XmNokToAdd, model->may_add, 0.85);
        case 7:
            model->interval = Between(0, 400);
            XtVaSetValues(graph, XmNdoubleClickInterval, model->interval, nullptr);
            return;
        default:
            model->mode = Between(XmNEVER, XmPARTIAL);
            XtVaSetValues(graph, XmNautoLayoutMode, model->mode, nullptr);
            Say("autoLayoutMode " + std::to_string(model->mode));
        }
    }

    void SelectAny() {
        const bool notify = Chance(0.7), one = Chance(0.5);
        Widgets objects;
        const bool arcs = AnyArc() && Chance(0.5);
        for (int i = one ? 1 : Between(1, 3); i > 0; i--)
            objects.push_back(arcs ? AnyArc() : AnyNode());
        const int count = static_cast<int>(objects.size());
        Say("select or unselect");
        if (Chance(0.4)) {
            model->Unselect(objects, notify);
            if (one)
                (arcs ? XmGraphUnselectArc : XmGraphUnselectNode)(graph, objects[0], notify);
            else
                (arcs ? XmGraphUnselectArcs : XmGraphUnselectNodes)(graph, objects.data(), count,
                                                                    notify);
            return;
        }
        if (one) {
            arcs ? model->SelectArcBy(objects[0], notify) : model->SelectNodeBy(objects[0], notify);
            (arcs ? XmGraphSelectArc : XmGraphSelectNode)(graph, objects[0], notify);
            return;
        }
        for (Widget object : objects)
            arcs ? model->SelectArcBy(object, false) : model->SelectNodeBy(object, false);
        if (notify)
            arcs ? model->SelectArcBy(objects[0], true, XmCR_SELECT_ARCS)
                 : model->SelectNodeBy(objects[0], true, XmCR_SELECT_NODES);
        (arcs ? XmGraphSelectArcs : XmGraphSelectNodes)(graph, objects.data(), count, notify);
    }

    void MoveAny() {
        Widget node = AnyNode();
        const Place to = {Between(-60, 560), Between(-40, 420)};
        const bool quietly = Chance(0.3);
        Say(quietly ? "move a node quietly" : "move a node");
        (quietly ? XmGraphMoveNodeQuietly : XmGraphMoveNode)(
            graph, node, static_cast<Position>(to.x), static_cast<Position>(to.y));
        model->places[node] = quietly ? Place{std::max(to.x, 0), std::max(to.y, 0)} : to;
        if (quietly || !XtIsManaged(node)) { // its arcs are not drawn anew by themselves
            XClearArea(display, XtWindow(graph), 0, 0, 0, 0, True);
            Pump();
        }
    }

    void DestroyAny() {
        Say("destroy");
        if (Chance(0.15)) {
            const Widgets nodes = model->nodes, arcs = model->arcs;
            XmGraphDestroySelectedArcsOrNodes(graph);
            for (Widget node : nodes)
                if (node != CompositeOf(graph).children[0])
                    model->Die(node);
            for (Widget arc : arcs)
                if (model->IsArc(arc))
                    model->Die(arc);
        } else {
            Widget object = AnyArc() && Chance(0.5) ? AnyArc() : AnyNode();
            XtDestroyWidget(object);
            model->Die(object);
        }
        RunWorkProcs();
    }

    // True if all that the client hears follows from the machine.
    bool ProgramStep() {
        if (model->places.size() < 4)
            return NewNode(), false;
        if (model->ends.size() < 4)
            return NewArc(), false;
        switch (Between(0, 12)) {
        case 0:
        case 1: return SetAny(), false;
        case 2:
        case 3:
        case 4: return SelectAny(), false;
        case 5:
        case 6: return MoveAny(), false;
        case 7: return model->places.size() < 9 ? NewNode() : DestroyAny(), false;
        case 8: return model->ends.size() < 12 ? NewArc() : DestroyAny(), false;
        case 9: return Chance(0.5) ? DestroyAny() : void(), false;
        case 10: {
            Widget arc = AnyArc(), from = AnyNode(), to = AnyNode();
            Say("move an arc");
            model->MoveArc(arc, from, to);
            XmGraphMoveArc(graph, arc, from, to);
            return false;
        }
        case 11: {
            Widget root = AnyNode();
            Say("select a subtree");
            const bool notify = Chance(0.5);
            model->SelectSubtreeBy(root, notify);
            XmGraphSelectSubtree(graph, root, notify);
            return false;
        }
        default:
            if (Chance(0.5)) {
                Widget node = AnyNode();
                Say("manage or unmanage a node");
                (XtIsManaged(node) ? XtUnmanageChild : XtManageChild)(node);
                return false;
            }
            if (model->places.size() > 8)
                return false;
            Say("add a node");
            model->AddNodeBy({graph->core.width / 2 - corvidlmw::graph::nn_width / 2,
                              graph->core.height / 2 - corvidlmw::graph::nn_height / 2});
            XmGraphAddNode(graph);
            return true;
        }
    }

    // ---- Comparing -------------------------------------------------------------------------------

    void AdoptWhatCame() {
        if (std::exchange(model->adds_node, false)) {
            Widget node = NodesOf(graph).back();
            EXPECT_FALSE(model->Knows(node));
            EXPECT_TRUE(XtClass(node) == xmPushButtonGadgetClass && XtIsManaged(node));
            model->places[node] = model->added_at;
        }
        if (std::exchange(model->adds_arc, false)) {
            Widget arc = ArcsOf(graph).back();
            EXPECT_FALSE(model->Knows(arc));
            EXPECT_TRUE(XtIsManaged(arc));
            model->ends[arc] = model->added_ends;
        }
    }

    std::set<int> states, reasons; // that the walks came by

    void CompareHeard(bool all) {
        for (const Heard &h : heard)
            reasons.insert(h.reason);
        states.insert(model->state);
        auto not_of_the_machine = [](const Heard &h) {
            return h.reason == layout_ran || (h.changed && h.reason >= XmCR_LAYOUT_CHANGED);
        };
        if (!all || model->relaid) {
            std::erase_if(heard, not_of_the_machine);
            std::erase_if(model->heard, not_of_the_machine);
        }
        EXPECT_EQ(heard, model->heard);
        heard.clear();
        model->heard.clear();
    }

    static Widget WidgetOf(NodePtr node) { return node ? node->widget : nullptr; }

    void Compare(bool all) {
        CompareHeard(all);
        AdoptWhatCame();
        ExpectNothingDangles(graph);
        const auto &part = GraphPartOf(graph);
        EXPECT_EQ(part.gesture_state, model->state);
        EXPECT_EQ(part.indicated, model->indicated);
        EXPECT_EQ(WidgetOf(part.current_node), model->moving);
        EXPECT_EQ(WidgetOf(part.current_subtree), model->subtree);
        EXPECT_EQ(part.current_arc, model->arc);
        EXPECT_EQ(part.armed_gadget, model->armed);
        EXPECT_EQ(reinterpret_cast<Widget>(ManagerPartOf(graph).selected_gadget), model->pressed);
        EXPECT_EQ(static_cast<uint32_t>(part.last_click_time), model->last_click);
        EXPECT_EQ(part.auto_layout_mode, model->mode);
        EXPECT_EQ(NodesIn(part.selected_nodes), model->nodes);
        EXPECT_EQ(ArcsIn(part.selected_arcs), model->arcs);
        EXPECT_EQ(NodesIn(corvidlmw::graph::subgraph_nodes), model->subgraph);
        std::map<Widget, Place> places;
        std::map<Widget, std::pair<Widget, Widget>> ends;
        std::set<Widget> lit;
        for (Cardinal i = 0; i < CompositeOf(graph).num_children; i++) {
            Widget child = CompositeOf(graph).children[i];
            places[child] = {child->core.x, child->core.y};
        }
        for (Widget arc : ArcsOf(graph)) {
            ends[arc] = {ArcPartOf(arc).from, ArcPartOf(arc).to};
            if (ArcPartOf(arc).highlight)
                lit.insert(arc);
        }
        if (std::exchange(model->relaid, false))
            model->places = places;
        EXPECT_EQ(places, model->places);
        EXPECT_EQ(ends, model->ends);
        EXPECT_EQ(lit, model->lit);
    }
};

GestureWalkTest *GestureWalkTest::running = nullptr;

TEST_F(GestureWalkTest, TheMachineAgreesWithItsModelAtEachStep) {
    Show();
    for (uint64_t seed = 1; seed <= 15 && !HasFailure(); seed++) {
        Random any(seed);
        random = &any;
        Begin();
        for (int step = 0; step < 1000; step++) {
            const bool user = Chance(held ? 0.8 : 0.65);
            bool all = true;
            if (user)
                UserStep();
            else
                all = ProgramStep();
            Compare(all);
            Pump();
            heard.clear(); // what came by requests, such as another size
            if (HasFailure()) {
                ADD_FAILURE() << "seed " << seed << " step " << step << " after "
                              << ::testing::PrintToString(history);
                break;
            }
        }
        if (real && held)
            Release(held & Button1Mask ? Button1 : held & Button2Mask ? Button2 : Button3);
        ReleaseModifiers(ShiftMask | ControlMask | Mod1Mask);
        held = modifiers = 0;
        XtDestroyWidget(graph);
        history.clear();
        heard.clear();
        RunWorkProcs();
    }
    for (int state : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 13, 15, 16, 17, 18, 23, 24, 25, 26})
        EXPECT_TRUE(states.contains(state)) << state;
    for (int reason : {layout_ran, 41, 42, 43, 44, 47, 48, 49, 54, 55, 56, 57,
                       58,         59, 60, 61, 62, 63, 64, 66, 69, 70, 71})
        EXPECT_TRUE(reasons.contains(reason)) << reason;
}

} // namespace
