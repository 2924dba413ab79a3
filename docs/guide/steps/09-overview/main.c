/* Shows a DOT file and the whole of it beside: main FILE */
#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/managers/HPanedW.h>

#include "Icons.h"
#include "Overview.h"

static void MakeWindow(Widget shell, Agraph_t *data) {
    Widget panes = XmCreateHorzPanedWindow(shell, "panes", NULL, 0);
    Widget graph = XmCreateScrolledGraph(panes, "graph", NULL, 0);

    XtVaSetValues(graph, XmNdefaultNodeClass, xmvIconGadgetClass, XmNsiblingSpacing, 10, NULL);
    ShowDot(graph, data, DressIcon);
    XtManageChild(graph);
    XtManageChild(CreateOverview(panes, graph));
    XtManageChild(panes);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 560, XmNheight, 360, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;

    MakeWindow(shell, data);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
