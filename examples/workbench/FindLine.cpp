#include "FindLine.h"

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/TextF.h>

#include <Text.h>

namespace workbench {

using graph_browser::Name;

FindLine::FindLine(Widget form)
    : line_(XtVaCreateManagedWidget("findLine", xmFormWidgetClass, form, XmNtopAttachment,
                                    XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                                    XmNrightAttachment, XmATTACH_FORM, nullptr)) {
    const graph_browser::Text prompt("Find:");
    const graph_browser::Text room("0000 nodes");
    const Widget label =
        XtVaCreateManagedWidget("findLabel", xmLabelWidgetClass, line_, XmNlabelString,
                                prompt.Get(), XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    count_ = XtVaCreateManagedWidget("hits", xmLabelWidgetClass, line_, XmNlabelString, room.Get(),
                                     XmNrecomputeSize, False, XmNalignment, XmALIGNMENT_BEGINNING,
                                     XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                                     XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    field_ = XtVaCreateManagedWidget("find", xmTextFieldWidgetClass, line_, XmNtopAttachment,
                                     XmATTACH_FORM, XmNleftAttachment, XmATTACH_WIDGET,
                                     XmNleftWidget, label, XmNrightAttachment, XmATTACH_WIDGET,
                                     XmNrightWidget, count_, nullptr);
    XtAddCallback(field_, XmNvalueChangedCallback, Typed, this);
    XtAddCallback(field_, XmNactivateCallback, Activated, this);
    ShowCount(0);
}

std::string FindLine::Text() const {
    char *text = XmTextFieldGetString(field_);
    std::string copy = text ? text : "";
    XtFree(text);
    return copy;
}

void FindLine::SetText(const std::string &text) {
    XmTextFieldSetString(field_, Name(text.c_str()));
}

void FindLine::TakeKeyboard() {
    XmProcessTraversal(field_, XmTRAVERSE_CURRENT);
    XmTextFieldSetSelection(field_, 0, XmTextFieldGetLastPosition(field_),
                            XtLastTimestampProcessed(XtDisplay(field_)));
}

void FindLine::ShowCount(int hits) {
    const std::string number = std::to_string(hits) + (hits == 1 ? " node" : " nodes");
    const graph_browser::Text label(Text().empty() ? " " : hits == 0 ? "not found" : number);
    XtVaSetValues(count_, XmNlabelString, label.Get(), nullptr);
}

void FindLine::Typed(Widget, XtPointer closure, XtPointer) {
    static_cast<FindLine *>(closure)->typed_();
}

void FindLine::Activated(Widget, XtPointer closure, XtPointer) {
    static_cast<FindLine *>(closure)->next_();
}

} // namespace workbench
