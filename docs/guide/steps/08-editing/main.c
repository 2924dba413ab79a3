/* Edits a DOT file: main FILE */
#include <stdio.h>

#include <Xm/MainW.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Graph.h>

#include "Editing.h"

static const char *path;

static void Delete(Widget button, XtPointer graph, XtPointer call_data) {
    (void)button, (void)call_data;
    DeleteSelected(graph);
}

static void Save(Widget button, XtPointer data, XtPointer call_data) {
    (void)button, (void)call_data;
    if (SaveDot(data, path))
        printf("saved: %s\n", path);
}

static void AddButton(Widget row, char *name, XtCallbackProc pressed, XtPointer closure) {
    Widget button = XmCreatePushButtonGadget(row, name, NULL, 0);

    XtAddCallback(button, XmNactivateCallback, pressed, closure);
    XtManageChild(button);
}

static void MakeWindow(Widget shell, Agraph_t *data) {
    Widget window = XmCreateMainWindow(shell, "window", NULL, 0);
    Widget graph = XmCreateScrolledGraph(window, "graph", NULL, 0);
    Widget row = XmCreateRowColumn(window, "row", NULL, 0);

    AddButton(row, "delete", Delete, graph);
    AddButton(row, "save", Save, data);
    XtVaSetValues(row, XmNorientation, XmHORIZONTAL, NULL);
    XtManageChild(row);
    AllowEditing(graph, data);
    ShowDot(graph, data, DressIcon);
    XtManageChild(graph);
    XtVaSetValues(window, XmNcommandWindow, row, XmNworkWindow, XtParent(XtParent(graph)), NULL);
    XtManageChild(window);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 480, XmNheight, 370, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;
    path = argv[1];

    MakeWindow(shell, data);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
