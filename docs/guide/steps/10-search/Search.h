/* A list of a graph's nodes with a line for a text to look for. */
#ifndef GUIDE_SEARCH_H
#define GUIDE_SEARCH_H

#include <Xm/Xm.h>

/* Makes an unmanaged form with both, a pane of `panes`. It goes before the graph does. */
Widget CreateSearch(Widget panes, Widget graph);

#endif
