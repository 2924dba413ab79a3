#include "GraphGestures.h"

#include <corvidlmw/graph/Arc.h>

#include <GraphView.h>

#include "WorkbenchWindow.h"

namespace workbench {

using graph_browser::GraphView;

// While the window is busy, objects on the screen may stand for nothing any more.
template <void (GraphGestures::*handle)(GraphGestures::Call &)>
void GraphGestures::Deliver(Widget, XtPointer closure, XtPointer call_data) {
    auto &self = *static_cast<GraphGestures *>(closure);
    auto &call = *static_cast<Call *>(call_data);
    if (self.window_.IsBusy()) {
        call.doit = False;
    } else {
        (self.*handle)(call);
    }
}

template <void (GraphGestures::*handle)(GraphGestures::Call &)>
void GraphGestures::Listen(const char *list) {
    XtAddCallback(window_.pane().graph(), list, Deliver<handle>, this);
}

GraphGestures::GraphGestures(WorkbenchWindow &window) : window_(window) {
    Listen<&GraphGestures::NewNode>(XmNnewNodeCallback);
    Listen<&GraphGestures::NewArc>(XmNnewArcCallback);
    Listen<&GraphGestures::ArcMoved>(XmNarcMovedCallback);
    Listen<&GraphGestures::NodesMoved>(XmNnodeMovedCallback);
    Listen<&GraphGestures::SelectionChanged>(XmNselectNodeCallback);
    Listen<&GraphGestures::SelectionChanged>(XmNselectArcCallback);
    Listen<&GraphGestures::SelectionChanged>(XmNselectSubgraphCallback);
    Listen<&GraphGestures::SelectionChanged>(XmNdeselectCallback);
    Listen<&GraphGestures::DoubleClicked>(XmNdefaultActionCallback);
}

// The widget places the node after this call.
void GraphGestures::NewNode(Call &call) {
    History &history = window_.history();
    history.Begin("Add Node");
    const std::string name = "node" + std::to_string(window_.document().graph.nodes.size() + 1);
    const int node = history.AddNode({.name = name, .label = name});
    window_.pane().AdoptNode(call.widget, node);
    window_.Later("a new node", [this, node] {
        window_.history().ChangeNode(node).place = window_.pane().PlaceOf(node);
        window_.CommitEdit();
        window_.Select({node});
    });
}

void GraphGestures::NewArc(Call &call) {
    window_.history().Begin("Add Arc");
    const int edge = window_.history().AddEdge(GraphView::IndexOf(call.new_from),
                                               GraphView::IndexOf(call.new_to));
    window_.pane().AdoptArc(call.widget, edge);
    window_.CommitEdit();
}

void GraphGestures::ArcMoved(Call &call) {
    window_.history().Begin("Move Arc");
    Edge &edge = window_.history().ChangeEdge(GraphView::IndexOf(call.widget));
    edge.from = GraphView::IndexOf(call.new_from);
    edge.to = GraphView::IndexOf(call.new_to);
    window_.CommitEdit();
}

void GraphGestures::NodesMoved(Call &) {
    window_.Later("moved nodes", [this] { window_.TakeMoves("Move"); });
}

void GraphGestures::SelectionChanged(Call &) {
    window_.Later("the selection", [this] { window_.TakeSelection(); });
}

void GraphGestures::DoubleClicked(Call &call) {
    if (call.widget && !XmIsArc(call.widget)) {
        window_.properties().TakeKeyboard();
    }
}

} // namespace workbench
