// What the tests of the pointer machine share: its fields, and pointer events that the server knows nothing
// of, which are dispatched like its own and cost no round trip.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/graph/GraphI.h>

#include <tests/graph/GraphTest.h>

#include <set>

namespace corvidlmw::test {

inline XmManagerPart &ManagerPartOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->manager;
}

// The machine, the manager and the shared list name only what is alive. Without a graph there is nothing
// left that the list could name.
inline void ExpectNothingDangles(Widget graph) {
    std::set<const void *> nodes, records, arcs;
    if (graph) {
        const auto &composite = CompositeOf(graph);
        for (Widget child :
             Widgets(composite.children, composite.children + composite.num_children)) {
            nodes.insert(child);
            records.insert(NodeRecOf(child));
        }
        for (Widget arc : ArcsOf(graph))
            arcs.insert(arc);
    }
    for (NodePtr node : EntriesOf<NodePtr>(graph::subgraph_nodes))
        EXPECT_TRUE(records.contains(node)) << "subgraph_nodes names a dead node";
    if (!graph)
        return;
    const auto &part = GraphPartOf(graph);
    auto names = [](const std::set<const void *> &living, const void *object) {
        return !object || living.contains(object);
    };
    EXPECT_TRUE(names(nodes, part.indicated) || names(arcs, part.indicated)) << "indicated";
    EXPECT_TRUE(names(records, part.current_node)) << "current_node";
    EXPECT_TRUE(names(records, part.current_subtree)) << "current_subtree";
    EXPECT_TRUE(names(arcs, part.current_arc)) << "current_arc";
    EXPECT_TRUE(names(arcs, part.armed_gadget)) << "armed_gadget";
    const void *pressed = ManagerPartOf(graph).selected_gadget;
    EXPECT_TRUE(names(nodes, pressed) || names(arcs, pressed)) << "selected_gadget";
    for (NodePtr node : EntriesOf<NodePtr>(part.selected_nodes))
        EXPECT_TRUE(records.contains(node)) << "selected_nodes names a dead node";
    for (Widget arc : ArcsIn(part.selected_arcs))
        EXPECT_TRUE(arcs.contains(arc)) << "selected_arcs names a dead arc";
}

class GestureTest : public GraphTest {
protected:
    Place pointer;
    unsigned held = 0; // buttons, as an event's state has them
    unsigned modifiers = 0;
    Time now = 1000;

    static unsigned MaskOf(unsigned button) { return Button1Mask << (button - Button1); }

    // Windows of nodes do not overlap in the tests.
    Window WindowUnderPointer() const {
        for (Widget node : NodesOf(graph)) {
            const auto &core = node->core;
            const int size = 2 * core.border_width;
            if (XtIsWidget(node) && core.window && XtIsManaged(node) && pointer.x >= core.x &&
                pointer.x < core.x + core.width + size && pointer.y >= core.y &&
                pointer.y < core.y + core.height + size)
                return core.window;
        }
        return None;
    }

    XEvent PointerEvent(int type, unsigned button = 0) const {
        XEvent event{};
        auto &data = event.xbutton;
        data.type = type;
        data.display = display;
        data.window = XtWindow(graph);
        data.root = RootWindowOfScreen(XtScreen(graph));
        data.subwindow = WindowUnderPointer();
        data.time = now;
        data.x = data.x_root = pointer.x;
        data.y = data.y_root = pointer.y;
        data.state = held | modifiers;
        if (type == MotionNotify) {
            event.xmotion.same_screen = True;
        } else {
            data.button = button;
            data.same_screen = True;
        }
        return event;
    }

    // The next event of this pointer, which is then as after it.
    XEvent NextEvent(int type, Place at, unsigned button = 0) {
        pointer = at;
        now += 10;
        const XEvent event = PointerEvent(type, button);
        if (type == ButtonPress)
            held |= MaskOf(button);
        else if (type == ButtonRelease)
            held &= ~MaskOf(button);
        return event;
    }
};

} // namespace corvidlmw::test
