/* Graphs of plain nodes whose places are told to the pixel. */

#ifndef CORVIDLMW_TESTS_GRAPH_PLACEDNODES_H
#define CORVIDLMW_TESTS_GRAPH_PLACEDNODES_H

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <tests/support/Harness.h>

#include <Xm/SeparatoG.h>

#include <ostream>
#include <string>
#include <vector>

namespace corvidlmw::test {

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

template <class... Values>
Widget MakeGraph(Widget parent, Values... resources) {
    return XtVaCreateManagedWidget("graph", xmGraphWidgetClass, parent, resources..., nullptr);
}

// Without a border a gadget, else a window.
inline Widget UnmanagedNode(Widget graph, Extent size = {}, Place at = {}) {
    return XtVaCreateWidget("node", size.border ? coreWidgetClass : xmSeparatorGadgetClass, graph,
                            XtNwidth, size.width, XtNheight, size.height, XtNborderWidth,
                            size.border, XtNx, at.x, XtNy, at.y, nullptr);
}
inline Widget Node(Widget graph, Extent size = {}, Place at = {}) {
    Widget node = UnmanagedNode(graph, size, at);
    XtManageChild(node);
    return node;
}
inline Widget Arc(Widget graph, Widget from, Widget to) {
    return XmCreateAttachedArc(graph, Name("arc"), from, to, nullptr, 0);
}

inline Place PlaceOf(Widget node) {
    Position x = 0, y = 0;
    XtVaGetValues(node, XtNx, &x, XtNy, &y, nullptr);
    return {x, y};
}
inline Places PlacesOf(const std::vector<Widget> &nodes) {
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

using GraphLog = CallbackLog<XmGraphCallbackStruct>;

} // namespace corvidlmw::test

#endif
