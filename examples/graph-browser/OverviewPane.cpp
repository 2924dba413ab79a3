#include "OverviewPane.h"

#include <Xm/Form.h>
#include <Xm/Frame.h>

#include <corvidlmw/graph/Graph.h>

#include "Text.h"

namespace graph_browser {

OverviewPane::OverviewPane(Widget form, Widget of_view, Widget graph)
    : view(of_view),
      frame(XtVaCreateManagedWidget("overviewFrame", xmFrameWidgetClass, form, XmNtopAttachment,
                                    XmATTACH_FORM, XmNbottomAttachment, XmATTACH_FORM,
                                    XmNrightAttachment, XmATTACH_FORM, nullptr)) {
    XtManageChild(XmGraphCreateOverView(graph, frame));
    SetShown(true);
}

bool OverviewPane::Shown() const {
    return XtIsManaged(frame);
}

void OverviewPane::SetShown(bool shown) {
    if (shown)
        XtManageChild(frame);
    XtVaSetValues(view, XmNrightAttachment, shown ? XmATTACH_WIDGET : XmATTACH_FORM, XmNrightWidget,
                  shown ? frame : nullptr, nullptr);
    if (!shown)
        XtUnmanageChild(frame);
}

} // namespace graph_browser
