#include "Selection.h"

#include <corvidlmw/graph/Graph.h>

static void (*tell)(Widget graph);
static XtWorkProcId pending;

static Boolean TellLater(XtPointer graph) {
    pending = 0;
    tell(graph);
    return True;
}

/* What leaves the selection is still in it while this is called. */
static void SelectionChanges(Widget graph, XtPointer closure, XtPointer call_data) {
    (void)closure, (void)call_data;
    if (!pending)
        pending = XtAppAddWorkProc(XtWidgetToApplicationContext(graph), TellLater, graph);
}

void ListenToSelection(Widget graph, void (*tell_selection)(Widget graph)) {
    tell = tell_selection;
    XtAddCallback(graph, XmNselectNodeCallback, SelectionChanges, NULL);
    XtAddCallback(graph, XmNselectArcCallback, SelectionChanges, NULL);
    XtAddCallback(graph, XmNselectSubgraphCallback, SelectionChanges, NULL);
    XtAddCallback(graph, XmNdeselectCallback, SelectionChanges, NULL);
}
