/* Three nodes and two arcs, laid out by the graph. */
#include <Xm/PushBG.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

static void Join(Widget graph, Widget from, Widget to) {
    Widget arc = XmCreateAttachedArc(graph, "arc", from, to, NULL, 0);

    XtVaSetValues(arc, XmNarcDirection, XmDIRECTED, NULL);
    XtManageChild(arc);
}

static void Fill(Widget graph) {
    Widget nodes[] = {
        XmCreatePushButtonGadget(graph, "egg", NULL, 0),
        XmCreatePushButtonGadget(graph, "chick", NULL, 0),
        XmCreatePushButtonGadget(graph, "raven", NULL, 0),
    };

    XtManageChildren(nodes, XtNumber(nodes));
    Join(graph, nodes[0], nodes[1]);
    Join(graph, nodes[1], nodes[2]);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 300, XmNheight, 120, NULL);

    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    Fill(graph);
    XmGraphLayout(graph);
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
