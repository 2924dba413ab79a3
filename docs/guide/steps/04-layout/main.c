/* A graph that is turned, and laid out around the node that is pressed. */
#include <Xm/MainW.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleBG.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

/* ---- The layout ---- */

static void Turn(Widget toggle, XtPointer graph, XtPointer call_data) {
    (void)toggle, (void)call_data;
    XtVaSetValues((Widget)graph, XmNreorient, True, NULL);
}

/* Only what has an arc to or from the node in the middle. */
static void ManageNeighbours(Widget graph, Widget node) {
    WidgetList out, in;
    int out_count, in_count;
    Widget from, to;

    XmGraphGetNodeArcs(graph, node, &out, &in, &out_count, &in_count);
    XtManageChild(node);
    for (int i = 0; i < out_count; i++) {
        XmGraphGetArcNodes(graph, out[i], &from, &to);
        XtManageChild(to);
        XtManageChild(out[i]);
    }
    for (int i = 0; i < in_count; i++) {
        XmGraphGetArcNodes(graph, in[i], &from, &to);
        XtManageChild(from);
        XtManageChild(in[i]);
    }
}

static void ShowAround(Widget graph, Widget node) {
    XmGraphUnmanageAll(graph);
    ManageNeighbours(graph, node);
    XmGraphSetButterflyRoot(graph, node);
    XmGraphLayout(graph);
}

static void Press(Widget node, XtPointer graph, XtPointer call_data) {
    unsigned char style;

    (void)call_data;
    XtVaGetValues((Widget)graph, XmNlayoutStyle, &style, NULL);
    if (style == XmBUTTERFLY)
        ShowAround((Widget)graph, node);
}

static void ChangeStyle(Widget toggle, XtPointer graph, XtPointer call_data) {
    const XmToggleButtonCallbackStruct *call = call_data;

    (void)toggle;
    XtVaSetValues((Widget)graph, XmNlayoutStyle, call->set ? XmBUTTERFLY : XmGRAPH, NULL);
    if (call->set) {
        ShowAround((Widget)graph, XtNameToWidget((Widget)graph, "review"));
    } else {
        XmGraphManageAll((Widget)graph);
        XmGraphLayout((Widget)graph);
    }
}

/* ---- The graph ---- */

enum { EDIT, BUILD, TEST, REVIEW, RELEASE, NODES };

static char *const names[NODES] = {"edit", "build", "test", "review", "release"};

static const int arcs[][2] = {{EDIT, BUILD}, {BUILD, TEST},   {EDIT, REVIEW},
                              {TEST, EDIT},  {TEST, RELEASE}, {REVIEW, RELEASE}};

static void Fill(Widget graph) {
    Widget nodes[NODES];

    for (int i = 0; i < NODES; i++) {
        nodes[i] = XmCreatePushButtonGadget(graph, names[i], NULL, 0);
        XtAddCallback(nodes[i], XmNactivateCallback, Press, graph);
    }
    XtManageChildren(nodes, NODES);
    for (size_t i = 0; i < XtNumber(arcs); i++) {
        Widget arc =
            XmCreateAttachedArc(graph, "arc", nodes[arcs[i][0]], nodes[arcs[i][1]], NULL, 0);
        XtVaSetValues(arc, XmNarcDirection, XmDIRECTED, NULL);
        XtManageChild(arc);
    }
    XmGraphInsertRoots(graph, &nodes[EDIT], 1);
}

/* ---- The window ---- */

static void AddToggle(Widget row, char *name, XtCallbackProc changed, Widget graph) {
    Widget toggle = XmCreateToggleButtonGadget(row, name, NULL, 0);

    XtAddCallback(toggle, XmNvalueChangedCallback, changed, graph);
    XtManageChild(toggle);
}

static void MakeWindow(Widget shell) {
    Widget window = XmCreateMainWindow(shell, "window", NULL, 0);
    Widget graph = XmCreateScrolledGraph(window, "graph", NULL, 0);
    Widget row = XmCreateRowColumn(window, "row", NULL, 0);

    AddToggle(row, "vertical", Turn, graph);
    AddToggle(row, "butterfly", ChangeStyle, graph);
    XtVaSetValues(row, XmNorientation, XmHORIZONTAL, NULL);
    XtManageChild(row);
    Fill(graph);
    XmGraphLayout(graph);
    XtManageChild(graph);
    XtVaSetValues(window, XmNcommandWindow, row, XmNworkWindow, XtParent(XtParent(graph)), NULL);
    XtManageChild(window);
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 380, XmNheight, 220, NULL);
    MakeWindow(shell);
    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
