#include "Editor.h"

#include <utility>

#include <corvidlmw/graph/Arc.h>

#include "Dialogs.h"
#include "GraphEdit.h"

namespace graph_browser {
namespace {

constexpr const char *strict_message =
    "The graph is strict: there can be no second arc between these nodes.";

std::string Count(std::size_t count, const char *what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

// ---- Life ------------------------------------------------------------------

template <void (Editor::*handle)(Editor::Call &)>
void Editor::Deliver(Widget, XtPointer editor, XtPointer call_data) {
    auto &self = *static_cast<Editor *>(editor);
    auto &call = *static_cast<Call *>(call_data);
    // The objects on the screen are those of a graph that is about to go.
    if (self.view.AboutToChange())
        call.doit = False;
    else
        (self.*handle)(call);
}

template <void (Editor::*handle)(Editor::Call &)>
void Editor::Listen(const char *list) {
    XtAddCallback(graph, list, Deliver<handle>, this);
}

Editor::Editor(GraphView &of_view, Widget of_shell, std::function<void()> on_change)
    : view(of_view), shell(of_shell), graph(of_view.GraphWidget()), changed(std::move(on_change)) {
    Listen<&Editor::NewNode>(XmNnewNodeCallback);
    Listen<&Editor::NewArc>(XmNnewArcCallback);
    Listen<&Editor::ArcMoved>(XmNarcMovedCallback);
    Listen<&Editor::NodesMoved>(XmNnodeMovedCallback);
    Listen<&Editor::SelectionChanged>(XmNselectNodeCallback);
    Listen<&Editor::SelectionChanged>(XmNselectArcCallback);
    Listen<&Editor::SelectionChanged>(XmNselectSubgraphCallback);
    Listen<&Editor::SelectionChanged>(XmNdeselectCallback);
    Listen<&Editor::DoubleClicked>(XmNdefaultActionCallback);
}

// ---- Gestures --------------------------------------------------------------

void Editor::NewNode(Call &call) {
    SetPlaced(view.Shown(), true);
    const int node = graph_browser::AddNode(view.Shown(), std::nullopt);
    view.AdoptNode(call.widget, node);
    AskNodeLabel(node, "Name of the new node:");
    changed();
}

void Editor::NewArc(Call &call) {
    const auto edge =
        AddEdge(view.Shown(), GraphView::IndexOf(call.new_from), GraphView::IndexOf(call.new_to));
    if (!edge)
        return Refuse(call);
    view.AdoptArc(call.widget, *edge);
    changed();
}

void Editor::ArcMoved(Call &call) {
    if (!MoveEdge(view.Shown(), GraphView::IndexOf(call.widget), GraphView::IndexOf(call.new_from),
                  GraphView::IndexOf(call.new_to)))
        return Refuse(call);
    changed();
}

void Editor::Refuse(Call &call) {
    call.doit = False;
    ShowError(shell, strict_message);
}

void Editor::NodesMoved(Call &) {
    SetPlaced(view.Shown(), true);
    changed();
}

void Editor::SelectionChanged(Call &) {
    changed();
}

void Editor::DoubleClicked(Call &call) {
    if (call.widget)
        LabelObject(call.widget);
}

// ---- Selection -------------------------------------------------------------

std::vector<Widget> Editor::SelectedNodes() const {
    int count = 0;
    const WidgetList nodes = XmGraphGetSelectedNodes(graph, &count);
    return {nodes, nodes + count};
}

std::vector<Widget> Editor::SelectedArcs() const {
    int count = 0;
    const WidgetList arcs = XmGraphGetSelectedArcs(graph, &count);
    return {arcs, arcs + count};
}

bool Editor::HasSelection() const {
    return XmGraphNumSelectedNodes(graph) > 0 || XmGraphNumSelectedArcs(graph) > 0;
}

std::string Editor::Describe() const {
    if (!HasSelection())
        return "button 1 selects, 2 moves, Shift+2 adds a node or an arc";
    return Count(SelectedNodes().size(), "node") + " and " + Count(SelectedArcs().size(), "arc") +
           " selected";
}

void Editor::SelectAll() {
    int count = 0;
    const WidgetList nodes = XmGraphGetNodes(graph, &count);
    XmGraphSelectNodes(graph, nodes, count, True);
    const WidgetList arcs = XmGraphGetArcs(graph, &count);
    XmGraphSelectArcs(graph, arcs, count, True);
}

// ---- Commands --------------------------------------------------------------

void Editor::AddNode() {
    XmGraphAddNode(graph);
}

// The arcs of a node go with it, here and in the widget.
void Editor::DeleteSelected() {
    if (!HasSelection() || view.AboutToChange())
        return;
    Graph &shown = view.Shown();
    for (const Widget arc : SelectedArcs())
        RemoveEdge(shown, GraphView::IndexOf(arc));
    for (const Widget gadget : SelectedNodes()) {
        const int node = GraphView::IndexOf(gadget);
        RemoveNode(shown, node);
        view.ForgetNode(node);
    }
    XmGraphDestroySelectedArcsOrNodes(graph);
    changed();
}

void Editor::LabelSelected() {
    if (const auto nodes = SelectedNodes(); !nodes.empty())
        LabelObject(nodes.front());
    else if (const auto arcs = SelectedArcs(); !arcs.empty())
        LabelObject(arcs.front());
}

void Editor::LabelObject(Widget object) {
    if (XmIsArc(object))
        AskArcLabel(object);
    else
        AskNodeLabel(GraphView::IndexOf(object), "Name of the node (\\n begins a new line):");
}

// The dialog holds up all else, so that the object is still there when it is answered.
void Editor::AskNodeLabel(int node, const char *question) {
    const std::string before = view.Shown().NodeAt(node).label;
    AskText(shell, question, before, [this, node, before](const std::string &text) {
        if (text == before)
            return;
        LabelNode(view.Shown(), node, text);
        view.RefreshNode(node);
        changed();
    });
}

void Editor::AskArcLabel(Widget arc) {
    const int edge = GraphView::IndexOf(arc);
    const std::string before = view.Shown().EdgeAt(edge).label;
    AskText(shell, "Label of the arc (\\n begins a new line):", before,
            [this, arc, edge, before](const std::string &text) {
                if (text == before)
                    return;
                LabelEdge(view.Shown(), edge, text);
                view.RefreshArc(arc);
                changed();
            });
}

} // namespace graph_browser
