/* What arcs can look like: labels, directions, widths, dashes, colours, twins and loops. */
#include <Xm/PushBG.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

static Widget Join(Widget graph, Widget from, Widget to, const char *label) {
    XmString text = XmStringCreateLocalized((char *)label);
    Widget arc = XmCreateAttachedArc(graph, "arc", from, to, NULL, 0);

    XtVaSetValues(arc, XmNlabelString, text, XmNmapLabel, True, XmNarcDirection, XmDIRECTED, NULL);
    XmStringFree(text);
    XtManageChild(arc);
    return arc;
}

static void SetColor(Widget arc, const char *color) {
    XtVaSetValues(arc, XtVaTypedArg, XmNforeground, XmRString, color, (int)strlen(color) + 1, NULL);
}

static void Fill(Widget graph) {
    Widget parents = XmCreatePushButtonGadget(graph, "parents", NULL, 0);
    Widget nest = XmCreatePushButtonGadget(graph, "nest", NULL, 0);
    Widget egg = XmCreatePushButtonGadget(graph, "egg", NULL, 0);
    Widget chick = XmCreatePushButtonGadget(graph, "chick", NULL, 0);
    Widget nodes[] = {parents, nest, egg, chick};

    XtManageChildren(nodes, XtNumber(nodes));

    XtVaSetValues(Join(graph, parents, nest, "build"), XmNarcWidth, 3, NULL);
    XtVaSetValues(Join(graph, parents, nest, "guard"), XmNarcDirection, XmBIDIRECTED, NULL);
    XtVaSetValues(Join(graph, nest, egg, "holds"), XmNarcDirection, XmUNDIRECTED, NULL);
    XtVaSetValues(Join(graph, egg, chick, "hatches"), XmNstyle, LineOnOffDash, XmNdashes, 6, NULL);
    SetColor(Join(graph, chick, chick, "begs"), "firebrick");
}

int main(int argc, char **argv) {
    XtAppContext app;

    XtSetLanguageProc(NULL, NULL, NULL);
    Widget shell =
        XtVaOpenApplication(&app, "Guide", NULL, 0, &argc, argv, NULL, applicationShellWidgetClass,
                            XmNwidth, 520, XmNheight, 160, NULL);

    Widget graph = XmCreateScrolledGraph(shell, "graph", NULL, 0);
    XtVaSetValues(graph, XmNchildSpacing, 80, NULL);
    Fill(graph);
    XmGraphLayout(graph);
    XtManageChild(graph);

    XtRealizeWidget(shell);
    XtAppMainLoop(app);
    return 0;
}
