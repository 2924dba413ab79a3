// What the tests of records and lives share: short ways to graphs, nodes and arcs, and to what their
// records hold.
#pragma once

#include <corvidlmw/graph/ArcP.h>
#include <tests/support/Harness.h>

#include <Xm/PushBG.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Widgets = std::vector<Widget>;

inline XmGraphPart &GraphPartOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->graph;
}

inline CompositePart &CompositeOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->composite;
}

inline XmArcPart &ArcPartOf(Widget arc) {
    return reinterpret_cast<XmArcWidget>(arc)->arc;
}

inline XmGraphConstraintPart &ConstraintPartOf(Widget child) {
    return static_cast<XmGraphConstraintPtr>(child->core.constraints)->graph;
}

inline NodePtr NodeRecOf(Widget node) {
    return ConstraintPartOf(node).node;
}

template <class Entry>
std::vector<Entry> EntriesOf(const XmGraphNodeList &list) {
    auto *items = reinterpret_cast<Entry *>(list.items);
    return {items, items + list.count};
}

inline Widgets ArcsIn(const XmGraphNodeList &list) {
    return EntriesOf<Widget>(list);
}

// A list of nodes as their widgets.
inline Widgets NodesIn(const XmGraphNodeList &list) {
    Widgets widgets;
    for (NodePtr node : EntriesOf<NodePtr>(list))
        widgets.push_back(node->widget);
    return widgets;
}

// The list that an arc shares with its parallels; empty for one that is alone.
inline Widgets SiblingsOf(Widget arc) {
    const XmGraphNodeList *siblings = ArcPartOf(arc).siblings;
    return siblings ? ArcsIn(*siblings) : Widgets{};
}

inline Widgets ArcsOf(Widget graph) {
    int count = 0;
    WidgetList arcs = XmGraphGetArcs(graph, &count);
    return {arcs, arcs + count};
}

inline Widgets NodesOf(Widget graph) {
    int count = 0;
    WidgetList nodes = XmGraphGetNodes(graph, &count);
    return {nodes, nodes + count};
}

// A resource of up to 8 bytes, widened with zeros.
inline XtArgVal ValueOf(Widget object, const char *resource) {
    XtArgVal value = 0;
    XtVaGetValues(object, resource, &value, nullptr);
    return value;
}

// Expects that all lists of a graph agree with one another and name only what is alive.
void ExpectConsistent(Widget graph);

class GraphLifeTest : public DisplayTest {
protected:
    Widget graph = nullptr;

    void MakeGraph() { graph = XmCreateManagedGraph(shell, Name("graph"), nullptr, 0); }

    Widget MakeNode(const char *name, Position x = 0, Position y = 0) {
        return XtVaCreateManagedWidget(name, xmPushButtonGadgetClass, graph, XmNx, x, XmNy, y,
                                       nullptr);
    }

    // Runs `act` inside of the dispatch of an event, where the toolkit puts off all destruction until
    // the dispatch ends; may be nested. The shell is shown.
    void InDispatch(std::function<void()> act) {
        auto run = [](Widget, XtPointer closure, XEvent *event, Boolean *) {
            auto *once = static_cast<std::function<void()> *>(closure);
            if (auto todo = event->type == ClientMessage ? std::exchange(*once, {}) : nullptr)
                todo();
        };
        XtAddEventHandler(shell, NoEventMask, True, run, &act);
        XEvent event{};
        event.xclient.type = ClientMessage;
        event.xclient.display = display;
        event.xclient.window = XtWindow(shell);
        event.xclient.format = 32;
        XtDispatchEvent(&event);
        if (shell)
            XtRemoveEventHandler(shell, NoEventMask, True, run, &act);
    }

    Widget MakeArc(Widget from, Widget to) {
        Widget arc = XmCreateAttachedArc(graph, Name("arc"), from, to, nullptr, 0);
        XtManageChild(arc);
        return arc;
    }
};

} // namespace corvidlmw::test
