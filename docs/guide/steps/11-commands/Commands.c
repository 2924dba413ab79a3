#include "Commands.h"

#include <stdio.h>

#include <Xm/CascadeBG.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>

#include <corvidlmw/graph/Graph.h>

/* ---- Menus ---- */

static void AddItem(Widget menu, const Command *command) {
    Widget item = XmCreatePushButtonGadget(menu, command->name, NULL, 0);

    XtAddCallback(item, XmNactivateCallback, command->chosen, command->closure);
    XtManageChild(item);
}

void AddMenu(Widget bar, char *name, const Command *commands, int count) {
    Widget menu = XmCreatePulldownMenu(bar, "menu", NULL, 0);
    Widget button = XmCreateCascadeButtonGadget(bar, name, NULL, 0);

    for (int i = 0; i < count; i++)
        AddItem(menu, &commands[i]);
    XtVaSetValues(button, XmNsubMenuId, menu, NULL);
    XtManageChild(button);
}

/* ---- What they do ---- */

void ZoomIn(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    XmGraphZoom(graph, 1.5F);
}

void ZoomOut(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    XmGraphZoom(graph, -1.5F);
}

void Turn(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    XtVaSetValues(graph, XmNreorient, True, NULL);
}

void Print(Widget item, XtPointer graph, XtPointer call_data) {
    (void)item, (void)call_data;
    XmGraphPrint(graph, "graph.ps");
    printf("printed: graph.ps\n");
}

void Quit(Widget item, XtPointer closure, XtPointer call_data) {
    (void)closure, (void)call_data;
    XtAppSetExitFlag(XtWidgetToApplicationContext(item));
}
