#include <tests/storm/Values.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/LabelG.h>
#include <Xm/List.h>
#include <Xm/PanedW.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/RowColumn.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xm/SeparatoG.h>
#include <Xm/ToggleB.h>

namespace corvidlmw::storm {

namespace {

struct Entry {
    Creator create;
    WidgetClass *widget_class;
};

const std::map<std::string, Entry> &Entries() {
    static const std::map<std::string, Entry> entries = {
        {"XmGraph", {XmCreateGraph, &xmGraphWidgetClass}},
        {"XmScrolledGraph", {XmCreateScrolledGraph, &xmGraphWidgetClass}},
        {"XmArc", {XmCreateArc, &xmArcWidgetClass}},
        {"LmList", {LmCreateList, &lmListWidgetClass}},
        {"LmScrolledList", {LmCreateScrolledList, &lmListWidgetClass}},
        {"SvScrollBar", {SvCreateScrollBar, &svScrollBarWidgetClass}},
        {"XmGrid", {XmCreateGrid, &xmGridWidgetClass}},
        {"XmHorzPanedWindow", {XmCreateHorzPanedWindow, &xmHorzPanedWindowWidgetClass}},
        {"XmRubberBoard", {XmCreateRubberBoard, &xmRubberBoardWidgetClass}},
        {"XmSpringBox", {XmCreateSpringBox, &xmSpringBoxWidgetClass}},
        {"XmvIconGadget", {XmvCreateIconGadget, &xmvIconGadgetClass}},
        {"XmBulletinBoard", {XmCreateBulletinBoard, &xmBulletinBoardWidgetClass}},
        {"XmDrawingArea", {XmCreateDrawingArea, &xmDrawingAreaWidgetClass}},
        {"XmForm", {XmCreateForm, &xmFormWidgetClass}},
        {"XmFrame", {XmCreateFrame, &xmFrameWidgetClass}},
        {"XmLabelGadget", {XmCreateLabelGadget, &xmLabelGadgetClass}},
        {"XmList", {XmCreateList, &xmListWidgetClass}},
        {"XmPanedWindow", {XmCreatePanedWindow, &xmPanedWindowWidgetClass}},
        {"XmPushButton", {XmCreatePushButton, &xmPushButtonWidgetClass}},
        {"XmPushButtonGadget", {XmCreatePushButtonGadget, &xmPushButtonGadgetClass}},
        {"XmRowColumn", {XmCreateRowColumn, &xmRowColumnWidgetClass}},
        {"XmScrollBar", {XmCreateScrollBar, &xmScrollBarWidgetClass}},
        {"XmScrolledWindow", {XmCreateScrolledWindow, &xmScrolledWindowWidgetClass}},
        {"XmSeparatorGadget", {XmCreateSeparatorGadget, &xmSeparatorGadgetClass}},
        {"XmToggleButton", {XmCreateToggleButton, &xmToggleButtonWidgetClass}},
    };
    return entries;
}

} // namespace

Creator CreatorOf(const std::string &name) {
    const auto found = Entries().find(name);
    return found == Entries().end() ? nullptr : found->second.create;
}

WidgetClass ClassOf(const std::string &name) {
    const auto found = Entries().find(name);
    return found == Entries().end() ? nullptr : *found->second.widget_class;
}

} // namespace corvidlmw::storm
