/* Menus, zoom and printing for a DOT file: main FILE */
#include <Xm/MainW.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>

#include "Commands.h"
#include "Icons.h"

static Widget MakeMenuBar(Widget window, Widget graph) {
    const Command file[] = {{"print", Print, graph}, {"quit", Quit, NULL}};
    const Command view[] = {
        {"zoomIn", ZoomIn, graph}, {"zoomOut", ZoomOut, graph}, {"turn", Turn, graph}};
    Widget bar = XmCreateMenuBar(window, "bar", NULL, 0);

    AddMenu(bar, "fileMenu", file, XtNumber(file));
    AddMenu(bar, "viewMenu", view, XtNumber(view));
    XtManageChild(bar);
    return bar;
}

static void MakeWindow(Widget shell, Agraph_t *data) {
    Widget window = XmCreateMainWindow(shell, "window", NULL, 0);
    Widget graph = XmCreateScrolledGraph(window, "graph", NULL, 0);
    Widget bar = MakeMenuBar(window, graph);

    XtVaSetValues(graph, XmNdefaultNodeClass, xmvIconGadgetClass, NULL);
    ShowDot(graph, data, DressIcon);
    XtManageChild(graph);
    XtVaSetValues(window, XmNmenuBar, bar, XmNworkWindow, XtParent(XtParent(graph)), NULL);
    XtManageChild(window);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "GuideBrowser", NULL, 0, &argc, argv, NULL,
                            applicationShellWidgetClass, XmNwidth, 480, XmNheight, 330, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;

    MakeWindow(shell, data);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
