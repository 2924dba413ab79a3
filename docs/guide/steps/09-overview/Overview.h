/* The whole of a graph beside it. */
#ifndef GUIDE_OVERVIEW_H
#define GUIDE_OVERVIEW_H

#include <Xm/Xm.h>

/* Makes an unmanaged frame, a pane of `panes`, around the graph's overview. */
Widget CreateOverview(Widget panes, Widget graph);

#endif
