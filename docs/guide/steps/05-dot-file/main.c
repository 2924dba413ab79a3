/* Shows a DOT file: main FILE */
#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include "Dot.h"

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 400, XmNheight, 320, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;

    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    ShowDot(graph, data, DressNode);
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
