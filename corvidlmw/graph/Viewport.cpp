// What a graph shows: the node that a butterfly is laid out around.

#include <corvidlmw/graph/GraphI.h>

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

void butterflyDestroyed(Widget, XtPointer graph, XtPointer) {
    GraphOf(static_cast<Widget>(graph)).butterfly_root = nullptr;
}

} // namespace

namespace corvidlmw::graph {

void ForgetButterflyRoot(Widget w) {
    Widget &root = GraphOf(w).butterfly_root;
    if (root) {
        XtRemoveCallback(root, XmNdestroyCallback, butterflyDestroyed, w);
        root = nullptr;
    }
}

} // namespace corvidlmw::graph

extern "C" void XmGraphSetButterflyRoot(Widget w, Widget node) {
    if (!w || !XmIsGraph(w)) {
        return;
    }
    ForgetButterflyRoot(w);
    // Of one that is in its destroy callbacks already nobody would tell the end.
    if (node && !IsBeingDestroyed(node)) {
        GraphOf(w).butterfly_root = node;
        XtAddCallback(node, XmNdestroyCallback, butterflyDestroyed, w);
    }
}
