/* A client as a stranger would write it: a graph of two nodes and an arc, laid out before it is
 * shown. It fails when the nodes do not stand where the default layout puts them. */
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include <Xm/PushBG.h>

#include <stdio.h>
#include <stdlib.h>

static Widget CreateNode(Widget graph, char *name) {
    return XtVaCreateManagedWidget(name, xmPushButtonGadgetClass, graph, XmNrecomputeSize, False,
                                   XmNwidth, 60, XmNheight, 30, NULL);
}

static int StandsAt(Widget node, int x, int y) {
    Position at_x = 0, at_y = 0;
    XtVaGetValues(node, XmNx, &at_x, XmNy, &at_y, NULL);
    if (at_x == x && at_y == y)
        return 1;
    fprintf(stderr, "%s stands at (%d, %d), not at (%d, %d)\n", XtName(node), at_x, at_y, x, y);
    return 0;
}

int main(int argc, char **argv) {
    XtAppContext app;
    Widget shell =
        XtVaOpenApplication(&app, "Client", NULL, 0, &argc, argv, NULL, sessionShellWidgetClass,
                            XmNwidth, 300, XmNheight, 200, NULL);
    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    Widget parent = CreateNode(graph, "parent");
    Widget child = CreateNode(graph, "child");
    Widget arc = XmCreateAttachedArc(graph, "arc", parent, child, NULL, 0);
    XtManageChild(arc);

    XmGraphLayout(graph);
    XtManageChild(graph);
    XtRealizeWidget(shell);

    int failed = !XmIsGraph(graph) || !XmIsArc(arc);
    failed |= XmGraphNumNodes(graph) != 2 || XmGraphNumArcs(graph) != 1;
    failed |= !StandsAt(parent, 40, 40);
    failed |= !StandsAt(child, 140, 40);

    XtDestroyWidget(shell);
    XtDestroyApplicationContext(app);
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}
