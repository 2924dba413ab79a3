/* Tells of a graph's selection. */
#ifndef GUIDE_SELECTION_H
#define GUIDE_SELECTION_H

#include <Xm/Xm.h>

/* Calls `tell` when the selection has changed, once for all changes of a gesture. */
void ListenToSelection(Widget graph, void (*tell)(Widget graph));

#endif
