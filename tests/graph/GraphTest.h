// What the tests of the room share: short ways to graphs, nodes and arcs, to their places, and to what
// their records hold.
#pragma once

#include <corvidlmw/graph/ArcP.h>
#include <tests/support/Harness.h>

#include <Xm/LabelG.h>
#include <Xm/PushBG.h>
#include <Xm/SeparatoG.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Widgets = std::vector<Widget>;
using GraphLog = CallbackLog<XmGraphCallbackStruct>;

// ---- Records ------------------------------------------------------------------------------------

inline XmGraphPart &GraphPartOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->graph;
}

inline CompositePart &CompositeOf(Widget graph) {
    return reinterpret_cast<XmGraphWidget>(graph)->composite;
}

inline XmArcPart &ArcPartOf(Widget arc) {
    return reinterpret_cast<XmArcWidget>(arc)->arc;
}

inline NodePtr NodeRecOf(Widget node) {
    return static_cast<XmGraphConstraintPtr>(node->core.constraints)->graph.node;
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

// Expects that all lists of a graph agree with one another and name only what is alive; the second, also
// that no gesture is under way.
void ExpectConsistentLists(Widget graph);
void ExpectConsistent(Widget graph);

// A resource of up to 8 bytes, widened with zeros.
inline XtArgVal ValueOf(Widget object, const char *resource) {
    XtArgVal value = 0;
    XtVaGetValues(object, resource, &value, nullptr);
    return value;
}

// ---- Places -------------------------------------------------------------------------------------

struct Place {
    int x = 0;
    int y = 0;
    bool operator==(const Place &) const = default;
};
using Places = std::vector<Place>;

inline std::ostream &operator<<(std::ostream &out, const Place &place) {
    return out << '(' << place.x << ", " << place.y << ')';
}

struct Extent {
    int width = 60;
    int height = 30;
    int border = 0;
};

inline Place PlaceOf(Widget node) {
    Position x = 0, y = 0;
    XtVaGetValues(node, XtNx, &x, XtNy, &y, nullptr);
    return {x, y};
}

inline Places PlacesOf(const Widgets &nodes) {
    Places places;
    for (Widget node : nodes)
        places.push_back(PlaceOf(node));
    return places;
}

inline Place SizeOf(Widget widget) {
    Dimension width = 0, height = 0;
    XtVaGetValues(widget, XtNwidth, &width, XtNheight, &height, nullptr);
    return {width, height};
}

// ---- Fixtures -----------------------------------------------------------------------------------

class GraphTest : public DisplayTest {
protected:
    using DisplayTest::DisplayTest;

    Widget graph = nullptr;

    template <class... Args>
    void MakeGraphIn(Widget parent, Args... args) {
        graph = XtVaCreateManagedWidget("graph", xmGraphWidgetClass, parent, args..., nullptr);
    }
    template <class... Args>
    void MakeGraph(Args... args) {
        MakeGraphIn(shell, args...);
    }

    Widget MakeButton(const char *name, Position x = 0, Position y = 0) {
        return XtVaCreateManagedWidget(name, xmPushButtonGadgetClass, graph, XmNx, x, XmNy, y,
                                       nullptr);
    }

    // Without a border a gadget, else a window.
    Widget Node(Extent size = {}, Place at = {}, bool managed = true) {
        Widget node =
            XtVaCreateWidget("node", size.border ? coreWidgetClass : xmSeparatorGadgetClass, graph,
                             XtNwidth, size.width, XtNheight, size.height, XtNborderWidth,
                             size.border, XtNx, at.x, XtNy, at.y, nullptr);
        if (managed)
            XtManageChild(node);
        return node;
    }

    template <class... Args>
    Widget Arc(Widget from, Widget to, Args... args) {
        return XtVaCreateManagedWidget("arc", xmArcWidgetClass, graph, XmNfrom, from, XmNto, to,
                                       args..., nullptr);
    }
    Widget UnmanagedArc(Widget from, Widget to) {
        return XmCreateAttachedArc(graph, Name("arc"), from, to, nullptr, 0);
    }
};

// A graph in known colours, whose nodes stand where the test puts them.
class DrawnGraph : public GraphTest {
protected:
    void SetUp() override {
        GraphTest::SetUp();
        SetResource("*background: white");
        SetResource("*foreground: black");
        MakeGraph(XmNarcDrawMode, XmPOSITION_RELATIVE);
    }

    // A managed node; a label gadget paints nothing where its name is empty.
    Widget Node(XRectangle place, WidgetClass node_class = xmLabelGadgetClass,
                const char *name = "") {
        return XtVaCreateManagedWidget(name, node_class, graph, XmNx, place.x, XmNy, place.y,
                                       XmNwidth, place.width, XmNheight, place.height,
                                       XmNborderWidth, 0, XmNrecomputeSize, False, nullptr);
    }

    // Paints what a rectangle shows anew, the whole window for one without a size.
    void Uncover(XRectangle r = {}) {
        XClearArea(display, XtWindow(graph), r.x, r.y, r.width, r.height, True);
        Pump();
    }

    // The arcs' own drawing calls while the whole window is painted.
    std::vector<Call> Repaint() {
        Recorder recorder;
        Uncover();
        return ByArcs(recorder);
    }
    std::vector<Call> ByArcs(const Recorder &recorder) const {
        auto calls = recorder.On(XtWindow(graph));
        std::erase_if(calls, [](const Call &call) {
            const bool paints = call.function.starts_with("XDraw") ||
                                call.function.starts_with("XFill") ||
                                call.function == "_XmStringDraw";
            return call.FromToolkit() || !paints;
        });
        return calls;
    }

    Pixel Black() const { return BlackPixelOfScreen(XtScreen(graph)); }
    Pixel White() const { return WhitePixelOfScreen(XtScreen(graph)); }
    Pixel Colour(const char *name) const {
        XColor exact{};
        XColor near{};
        XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(graph)), name, &near, &exact);
        return near.pixel;
    }
};

// Two nodes on one level, 140 pixels apart.
class DrawnPair : public DrawnGraph {
protected:
    void SetUp() override {
        DrawnGraph::SetUp();
        left = Node({50, 100, 60, 40});
        right = Node({250, 100, 60, 40});
    }

    Widget left = nullptr;
    Widget right = nullptr;
};

} // namespace corvidlmw::test
