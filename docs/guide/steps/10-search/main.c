/* Looks for nodes of a DOT file: main FILE */
#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/managers/HPanedW.h>

#include "Icons.h"
#include "Overview.h"
#include "Search.h"

static void MakeWindow(Widget shell, Agraph_t *data) {
    Widget panes = XmCreateHorzPanedWindow(shell, "panes", NULL, 0);
    Widget graph = XmCreateScrolledGraph(panes, "graph", NULL, 0);

    XtVaSetValues(graph, XmNdefaultNodeClass, xmvIconGadgetClass, XmNsiblingSpacing, 10, NULL);
    ShowDot(graph, data, DressIcon);
    XtManageChild(graph);
    Widget search = CreateSearch(panes, graph);
    XtVaSetValues(search, XmNpositionIndex, 0, NULL);
    XtManageChild(search);
    XtManageChild(CreateOverview(panes, graph));
    XtManageChild(panes);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 700, XmNheight, 360, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;

    MakeWindow(shell, data);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
