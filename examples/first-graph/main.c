/* Two nodes and an arc, laid out by the graph. */
#include <Xm/PushBG.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

int main(int argc, char **argv) {
    XtAppContext app;
    Widget shell, graph, nodes[2], arc;
    Arg args[2];

    XtSetArg(args[0], XmNwidth, 300);
    XtSetArg(args[1], XmNheight, 150);
    shell = XtOpenApplication(&app, "FirstGraph", NULL, 0, &argc, argv, NULL,
                              applicationShellWidgetClass, args, 2);
    graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);

    nodes[0] = XmCreatePushButtonGadget(graph, "hello", NULL, 0);
    nodes[1] = XmCreatePushButtonGadget(graph, "world", NULL, 0);
    XtManageChildren(nodes, 2);

    XtSetArg(args[0], XmNarcDirection, XmDIRECTED);
    arc = XmCreateAttachedArc(graph, "arc", nodes[0], nodes[1], args, 1);
    XtManageChild(arc);

    XmGraphLayout(graph);
    XtManageChild(graph);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
