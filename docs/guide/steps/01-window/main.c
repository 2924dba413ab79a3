/* A window with a graph of one node. */
#include <Xm/PushBG.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 300, XmNheight, 120, NULL);

    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    Widget node = XmCreatePushButtonGadget(graph, "raven", NULL, 0);
    XtManageChild(node);
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
