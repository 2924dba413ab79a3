#include "Editing.h"

#include <stdio.h>
#include <string.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

/* ---- What the user makes ---- */

static Agnode_t *AddNode(Agraph_t *data) {
    char name[32];
    int number = 0;

    do {
        snprintf(name, sizeof name, "new%d", ++number);
    } while (agnode(data, name, False));
    return agnode(data, name, True);
}

static void NewNode(Widget graph, XtPointer data, XtPointer call_data) {
    const XmGraphCallbackStruct *call = call_data;

    (void)graph;
    DressIcon(call->widget, AddNode(data));
}

/* A new edge, or none where the two have one already or are the same. */
static Agedge_t *AddEdge(Agraph_t *data, Agnode_t *from, Agnode_t *to) {
    if (from == to || agedge(data, from, to, NULL, False)) {
        printf("refused: %s->%s\n", agnameof(from), agnameof(to));
        return NULL;
    }
    Agedge_t *edge = agedge(data, from, to, NULL, True);
    DressIcon(WidgetOf(from), from);
    return edge;
}

static void NewArc(Widget graph, XtPointer data, XtPointer call_data) {
    XmGraphCallbackStruct *call = call_data;
    Agedge_t *edge = AddEdge(data, NodeOf(call->new_from), NodeOf(call->new_to));

    (void)graph;
    if (edge)
        DressArc(call->widget, edge);
    else
        call->doit = False;
}

/* ---- What the user changes ---- */

static void RemoveEdge(Agedge_t *edge) {
    Agnode_t *from = agtail(edge);

    agdelete(agraphof(from), edge);
    DressIcon(WidgetOf(from), from);
}

static void ArcMoves(Widget graph, XtPointer data, XtPointer call_data) {
    XmGraphCallbackStruct *call = call_data;
    Agedge_t *old = EdgeOf(call->widget);
    Agedge_t *edge = AddEdge(data, NodeOf(call->new_from), NodeOf(call->new_to));

    (void)graph;
    if (edge) {
        agcopyattr(old, edge);
        DressArc(call->widget, edge);
        RemoveEdge(old);
    } else {
        call->doit = False;
    }
}

static void RemoveNode(Agnode_t *node) {
    Agraph_t *data = agraphof(node);
    Agedge_t *edge;

    while ((edge = agfstedge(data, node)))
        RemoveEdge(edge);
    agdelete(data, node);
}

/* The graph's own list is shared: dressing a node may ask for one again. */
static WidgetList CopySelectedNodes(Widget graph, int *count) {
    WidgetList nodes = XmGraphGetSelectedNodes(graph, count);
    const size_t size = (size_t)*count * sizeof *nodes;
    WidgetList copy = (WidgetList)XtMalloc((Cardinal)size);

    if (*count > 0)
        memcpy(copy, nodes, size);
    return copy;
}

void DeleteSelected(Widget graph) {
    int count;
    WidgetList arcs = XmGraphGetSelectedArcs(graph, &count);

    for (int i = 0; i < count; i++)
        RemoveEdge(EdgeOf(arcs[i]));
    WidgetList nodes = CopySelectedNodes(graph, &count);
    for (int i = 0; i < count; i++)
        RemoveNode(NodeOf(nodes[i]));
    XtFree((char *)nodes);
    XmGraphDestroySelectedArcsOrNodes(graph);
}

void AllowEditing(Widget graph, Agraph_t *data) {
    XtVaSetValues(graph, XmNeditable, True, XmNdefaultNodeClass, xmvIconGadgetClass,
                  XmNinteractiveArcDirection, XmDIRECTED, NULL);
    XtAddCallback(graph, XmNnewNodeCallback, NewNode, data);
    XtAddCallback(graph, XmNnewArcCallback, NewArc, data);
    XtAddCallback(graph, XmNarcMovedCallback, ArcMoves, data);
}

/* ---- The file ---- */

static Boolean WriteDot(Agraph_t *data, const char *path) {
    FILE *file = fopen(path, "w");

    if (!file)
        return False;
    const Boolean written = agwrite(data, file) == 0 && !ferror(file);
    return fclose(file) == 0 && written;
}

Boolean SaveDot(Agraph_t *data, const char *path) {
    char new_path[4096];

    snprintf(new_path, sizeof new_path, "%s.new", path);
    if (WriteDot(data, new_path) && rename(new_path, path) == 0)
        return True;
    perror(path);
    remove(new_path);
    return False;
}
