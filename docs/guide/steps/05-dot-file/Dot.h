/* A DOT file as libcgraph's graph, and that graph in an XmGraph. */
#ifndef GUIDE_DOT_H
#define GUIDE_DOT_H

#include <Xm/Xm.h>
#include <graphviz/cgraph.h>

/* Reads the first graph of a file. Returns NULL, and says why on standard error, if there is none; what
 * it returns goes with agclose. */
Agraph_t *ReadDot(const char *path);

/* The same for the file that a program's only argument names. */
Agraph_t *ReadArgument(int argc, char **argv);

/* The label of a node or an edge; a node that has none shows its name. */
const char *LabelOf(void *object);

/* The widget that shows a node, and the node or edge that a widget shows. */
Widget WidgetOf(Agnode_t *node);
Agnode_t *NodeOf(Widget widget);
Agedge_t *EdgeOf(Widget arc);

/* Gives a new widget, node or arc, its looks and binds it to its data. */
typedef void (*Dresser)(Widget widget, Agnode_t *node);
void DressNode(Widget widget, Agnode_t *node);
void DressArc(Widget arc, Agedge_t *edge);

/* Makes nodes, of the graph's XmNdefaultNodeClass, and arcs for all of the data, and lays them out. */
void ShowDot(Widget graph, Agraph_t *data, Dresser dress);

#endif
