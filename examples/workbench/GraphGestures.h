// Makes edits of what the user does to the graph with the pointer.
#pragma once

#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

namespace workbench {

class WorkbenchWindow;

class GraphGestures {
public:
    explicit GraphGestures(WorkbenchWindow &window);
    GraphGestures(const GraphGestures &) = delete;
    GraphGestures &operator=(const GraphGestures &) = delete;

private:
    using Call = XmGraphCallbackStruct;
    template <void (GraphGestures::*handle)(Call &)>
    static void Deliver(Widget, XtPointer closure, XtPointer call_data);
    template <void (GraphGestures::*handle)(Call &)>
    void Listen(const char *list);

    void NewNode(Call &call);
    void NewArc(Call &call);
    void ArcMoved(Call &call);
    void NodesMoved(Call &call);
    void SelectionChanged(Call &call);
    void DoubleClicked(Call &call);

    WorkbenchWindow &window_;
};

} // namespace workbench
