#include "Dot.h"

#include <stdio.h>
#include <string.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

/* ---- The file ---- */

Agraph_t *ReadDot(const char *path) {
    FILE *file = fopen(path, "r");
    Agraph_t *data = NULL;

    if (!file) {
        perror(path);
        return NULL;
    }
    agattr(NULL, AGNODE, "label", "\\N");
    agattr(NULL, AGNODE, "shape", "ellipse");
    agattr(NULL, AGEDGE, "label", "");
    agattr(NULL, AGEDGE, "style", "");
    data = agread(file, NULL);
    if (!data)
        fprintf(stderr, "%s: no graph\n", path);
    fclose(file);
    return data;
}

Agraph_t *ReadArgument(int argc, char **argv) {
    if (argc == 2)
        return ReadDot(argv[1]);
    fprintf(stderr, "usage: %s FILE\n", argv[0]);
    return NULL;
}

const char *LabelOf(void *object) {
    const char *label = agget(object, "label");

    return strcmp(label, "\\N") == 0 ? agnameof(object) : label;
}

/* ---- Data and widgets ---- */

typedef struct {
    Agrec_t header; /* libcgraph's own; it comes first */
    Widget widget;
} Shown;

static void Bind(Widget widget, Agnode_t *node) {
    Shown *shown = agbindrec(node, "shown", sizeof *shown, True);

    shown->widget = widget;
    XtVaSetValues(widget, XmNuserData, node, NULL);
}

Widget WidgetOf(Agnode_t *node) {
    const Shown *shown = (const Shown *)aggetrec(node, "shown", False);

    return shown ? shown->widget : NULL;
}

static void *DataOf(Widget widget) {
    XtPointer data = NULL;

    XtVaGetValues(widget, XmNuserData, &data, NULL);
    return data;
}

Agnode_t *NodeOf(Widget widget) {
    return DataOf(widget);
}

Agedge_t *EdgeOf(Widget arc) {
    return DataOf(arc);
}

/* ---- Looks ---- */

void DressNode(Widget widget, Agnode_t *node) {
    XmString text = XmStringCreateLocalized((char *)LabelOf(node));

    XtVaSetValues(widget, XmNlabelString, text, NULL);
    XmStringFree(text);
    Bind(widget, node);
}

void DressArc(Widget arc, Agedge_t *edge) {
    const char *label = LabelOf(edge);
    const Boolean dashed = strcmp(agget(edge, "style"), "dashed") == 0;
    XmString text = XmStringCreateLocalized((char *)label);

    XtVaSetValues(arc, XmNlabelString, text, XmNmapLabel, label[0] != '\0', XmNstyle,
                  dashed ? LineOnOffDash : LineSolid, XmNarcDirection,
                  agisdirected(agraphof(edge)) ? XmDIRECTED : XmUNDIRECTED, XmNuserData, edge,
                  NULL);
    XmStringFree(text);
}

/* ---- The graph ---- */

static void MakeNodes(Widget graph, Agraph_t *data, WidgetList nodes, Dresser dress) {
    WidgetClass node_class = NULL;

    XtVaGetValues(graph, XmNdefaultNodeClass, &node_class, NULL);
    for (Agnode_t *node = agfstnode(data); node; node = agnxtnode(data, node)) {
        *nodes = XtCreateWidget(agnameof(node), node_class, graph, NULL, 0);
        dress(*nodes++, node);
    }
}

static void MakeArcs(Widget graph, Agraph_t *data, WidgetList arcs) {
    for (Agnode_t *node = agfstnode(data); node; node = agnxtnode(data, node))
        for (Agedge_t *edge = agfstout(data, node); edge; edge = agnxtout(data, edge)) {
            *arcs = XmCreateAttachedArc(graph, "arc", WidgetOf(agtail(edge)),
                                        WidgetOf(aghead(edge)), NULL, 0);
            DressArc(*arcs++, edge);
        }
}

void ShowDot(Widget graph, Agraph_t *data, Dresser dress) {
    const int node_count = agnnodes(data);
    const int count = node_count + agnedges(data);
    WidgetList children = (WidgetList)XtMalloc((Cardinal)count * sizeof(Widget));

    MakeNodes(graph, data, children, dress);
    MakeArcs(graph, data, children + node_count);
    XmGraphManageChildren(children, count);
    XmGraphLayout(graph);
    XtFree((char *)children);
}
