#pragma once

#include <functional>
#include <string>

#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include "GraphView.h"

namespace graph_browser {

// Carries what the user's gestures do to the widget over to the graph that is shown, and the
// commands of the Edit menu to both. The gestures are the widget's own.
class Editor {
public:
    // `on_change` is called when the graph or the selection has changed or is about to: what it
    // looks at counts only after the event.
    Editor(GraphView &view, Widget shell, std::function<void()> on_change);
    Editor(const Editor &) = delete;
    Editor &operator=(const Editor &) = delete;

    bool HasSelection() const;
    // "2 nodes and 1 arc selected", or what the buttons do.
    std::string Describe() const;

    void AddNode(); // in the middle of what can be seen
    void SelectAll();
    void DeleteSelected();
    // Asks for the text of the first selected node, else of the first selected arc.
    void LabelSelected();

private:
    using Call = XmGraphCallbackStruct;
    template <void (Editor::*handle)(Call &)>
    static void Deliver(Widget, XtPointer editor, XtPointer call_data);
    template <void (Editor::*handle)(Call &)>
    void Listen(const char *list);

    void NewNode(Call &call);
    void NewArc(Call &call);
    void ArcMoved(Call &call);
    void NodesMoved(Call &call);
    void SelectionChanged(Call &call);
    void DoubleClicked(Call &call);

    void Refuse(Call &call);
    void LabelObject(Widget object);
    void AskNodeLabel(int node, const char *question);
    void AskArcLabel(Widget arc);
    std::vector<Widget> SelectedNodes() const;
    std::vector<Widget> SelectedArcs() const;

    GraphView &view;
    Widget shell;
    Widget graph;
    std::function<void()> changed;
};

} // namespace graph_browser
