/* Says what is selected: main FILE */
#include <stdio.h>

#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>

#include "Icons.h"
#include "Selection.h"

/* ---- What is selected ---- */

static void TellSelection(Widget graph) {
    int node_count, arc_count;
    WidgetList nodes = XmGraphGetSelectedNodes(graph, &node_count);
    WidgetList arcs = XmGraphGetSelectedArcs(graph, &arc_count);

    printf("selected:");
    for (int i = 0; i < node_count; i++)
        printf(" %s", agnameof(NodeOf(nodes[i])));
    for (int i = 0; i < arc_count; i++)
        printf(" %s->%s", agnameof(agtail(EdgeOf(arcs[i]))), agnameof(aghead(EdgeOf(arcs[i]))));
    printf("\n");
}

/* ---- The window ---- */

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 480, XmNheight, 330, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;

    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    XtVaSetValues(graph, XmNdefaultNodeClass, xmvIconGadgetClass, NULL);
    ShowDot(graph, data, DressIcon);
    XtVaSetValues(graph, XmNeditable, True, XmNokToAdd, False, XmNmovableNodes, False,
                  XmNeditableArcs, False, NULL);
    ListenToSelection(graph, TellSelection);
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
