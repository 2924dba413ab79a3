/* Shows a DOT file with icons: main FILE */
#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>

#include "Icons.h"

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
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
