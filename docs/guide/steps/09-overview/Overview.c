#include "Overview.h"

#include <Xm/Frame.h>

#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/managers/HPanedW.h>

Widget CreateOverview(Widget panes, Widget graph) {
    Widget frame = XmCreateFrame(panes, "frame", NULL, 0);

    XtManageChild(XmGraphCreateOverView(graph, frame));
    XtVaSetValues(frame, XmNwidth, 150, XmNskipAdjust, True, NULL);
    return frame;
}
