/* A small browser and editor of DOT files: main FILE */
#include <stdio.h>

#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/managers/HPanedW.h>

#include "Commands.h"
#include "Editing.h"
#include "Overview.h"
#include "Search.h"
#include "Selection.h"

static const char *path;
static Widget status;

/* ---- The status line ---- */

static void SetStatus(const char *text) {
    XmString string = XmStringCreateLocalized((char *)text);

    XtVaSetValues(status, XmNlabelString, string, NULL);
    XmStringFree(string);
}

static void TellSelection(Widget graph) {
    char text[80];

    snprintf(text, sizeof text, "%d nodes and %d arcs, %d and %d selected", XmGraphNumNodes(graph),
             XmGraphNumArcs(graph), XmGraphNumSelectedNodes(graph), XmGraphNumSelectedArcs(graph));
    SetStatus(text);
}

/* ---- Commands ---- */

static void Save(Widget item, XtPointer data, XtPointer call_data) {
    (void)item, (void)call_data;
    SetStatus(SaveDot(data, path) ? "saved" : "not saved");
}

static void Delete(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    DeleteSelected(graph);
    TellSelection(graph);
}

static void LayOut(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    XmGraphLayout(graph);
}

/* ---- The window ---- */

static Widget MakeMenuBar(Widget window, Widget graph, Agraph_t *data) {
    const Command file[] = {{"save", Save, data}, {"print", Print, graph}, {"quit", Quit, NULL}};
    const Command edit[] = {{"delete", Delete, graph}, {"layOut", LayOut, graph}};
    const Command view[] = {
        {"zoomIn", ZoomIn, graph}, {"zoomOut", ZoomOut, graph}, {"turn", Turn, graph}};
    Widget bar = XmCreateMenuBar(window, "bar", NULL, 0);

    AddMenu(bar, "fileMenu", file, XtNumber(file));
    AddMenu(bar, "editMenu", edit, XtNumber(edit));
    AddMenu(bar, "viewMenu", view, XtNumber(view));
    XtManageChild(bar);
    return bar;
}

static void FillGraph(Widget graph, Agraph_t *data) {
    AllowEditing(graph, data);
    ShowDot(graph, data, DressIcon);
    ListenToSelection(graph, TellSelection);
    TellSelection(graph);
    XtManageChild(graph);
}

static void MakeWindow(Widget shell, Agraph_t *data) {
    Widget window = XmCreateMainWindow(shell, "window", NULL, 0);
    Widget panes = XmCreateHorzPanedWindow(window, "panes", NULL, 0);
    Widget graph = XmCreateScrolledGraph(panes, "graph", NULL, 0);
    Widget bar = MakeMenuBar(window, graph, data);

    status = XmCreateLabel(window, "status", NULL, 0);
    XtVaSetValues(status, XmNalignment, XmALIGNMENT_BEGINNING, NULL);
    FillGraph(graph, data);
    Widget search = CreateSearch(panes, graph);
    XtVaSetValues(search, XmNpositionIndex, 0, NULL);
    XtManageChild(search);
    XtManageChild(CreateOverview(panes, graph));
    XtManageChild(panes);
    XtManageChild(status);
    XtVaSetValues(window, XmNmenuBar, bar, XmNworkWindow, panes, XmNmessageWindow, status, NULL);
    XtManageChild(window);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "GuideBrowser", NULL, 0, &argc, argv, NULL,
                            applicationShellWidgetClass, XmNwidth, 760, XmNheight, 460, NULL);
    Agraph_t *data = ReadArgument(argc, argv);
    if (!data)
        return 1;
    path = argv[1];

    MakeWindow(shell, data);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
