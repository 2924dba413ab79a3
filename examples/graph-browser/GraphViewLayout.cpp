// Where the nodes of a view are, and the resources that say how it is laid out and drawn.

#include "GraphView.h"

#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include "GraphEdit.h"
#include "Looks.h"

namespace graph_browser {
namespace {

constexpr Dimension scroll_margin = 20;

} // namespace

// ---- Layout ----------------------------------------------------------------

void GraphView::LayOut(unsigned char style) {
    const bool butterfly = style == XmBUTTERFLY && selected;
    XmGraphSetButterflyRoot(graph_widget, butterfly ? WidgetOf(*selected) : nullptr);
    XmGraphLayout(graph_widget);
    if (style == XmGRAPH && model.placed)
        RestorePlaces();
}

void GraphView::LayOutAgain() {
    SetPlaced(model, false);
    XmGraphLayout(graph_widget);
    changed();
}

// Only the style that shows all nodes has places of the user's.
void GraphView::KeepPlaces() {
    if (!model.placed || rebuild || LayoutStyle() != XmGRAPH)
        return;
    for (const int index : NodesOf(model))
        if (const Widget node = WidgetOf(index))
            model.NodeAt(index).place =
                Place{GetResource<Position>(node, XmNx), GetResource<Position>(node, XmNy)};
}

void GraphView::RestorePlaces() {
    for (const int index : NodesOf(model))
        if (const auto &place = model.NodeAt(index).place)
            XmGraphMoveNodeQuietly(graph_widget, WidgetOf(index), static_cast<Position>(place->x),
                                   static_cast<Position>(place->y));
    XmGraphAdjustSize(graph_widget);
    if (XtIsRealized(graph_widget))
        XClearArea(XtDisplay(graph_widget), XtWindow(graph_widget), 0, 0, 0, 0, True);
}

void GraphView::GraphTooBig(Widget, XtPointer view, XtPointer) {
    static_cast<GraphView *>(view)->too_big = true;
}

void GraphView::ScrollToSelected() {
    if (!XtIsRealized(graph_widget))
        return;
    const std::vector<int> nodes = NodesOf(model);
    if (nodes.empty())
        return;
    const Widget node = WidgetOf(selected.value_or(nodes.front()));
    const Widget scrolled_window = XtParent(XtParent(graph_widget));
    if (node && XtIsManaged(node))
        XmScrollVisible(scrolled_window, node, scroll_margin, scroll_margin);
}

// ---- The view's resources --------------------------------------------------

Orientation GraphView::GetOrientation() const {
    const bool vertical = GetResource<unsigned char>(graph_widget, XmNorientation) == XmVERTICAL;
    return vertical ? Orientation::Vertical : Orientation::Horizontal;
}

void GraphView::SetOrientation(Orientation orientation) {
    if (orientation == GetOrientation())
        return;
    SetPlaced(model, false);
    TakeOrientation(orientation);
}

void GraphView::TakeOrientation(Orientation orientation) {
    if (orientation == GetOrientation())
        return;
    too_big = false;
    XtVaSetValues(graph_widget, XmNorientation,
                  orientation == Orientation::Vertical ? XmVERTICAL : XmHORIZONTAL, nullptr);
    SetSides();
    changed();
}

void GraphView::SetSides() {
    const Sides sides = SidesFor(GetOrientation());
    int count = 0;
    const WidgetList arcs = XmGraphGetArcs(graph_widget, &count);
    for (int i = 0; i < count; ++i)
        XtVaSetValues(arcs[i], XmNfromSide, sides.from, XmNtoSide, sides.to, nullptr);
}

unsigned char GraphView::ArcDrawMode() const {
    return GetResource<unsigned char>(graph_widget, XmNarcDrawMode);
}

void GraphView::SetArcDrawMode(unsigned char mode) {
    XtVaSetValues(graph_widget, XmNarcDrawMode, mode, nullptr);
}

unsigned char GraphView::LayoutStyle() const {
    return GetResource<unsigned char>(graph_widget, XmNlayoutStyle);
}

void GraphView::SetLayoutStyle(unsigned char style) {
    if (style == XmBUTTERFLY && Editing())
        TakeEditing(false);
    TakeLayoutStyle(style);
}

void GraphView::TakeLayoutStyle(unsigned char style) {
    if (style == LayoutStyle())
        return;
    KeepPlaces();
    // Without a root the change lays nothing out; the new contents are laid out when they stand.
    XmGraphSetButterflyRoot(graph_widget, nullptr);
    XtVaSetValues(graph_widget, XmNlayoutStyle, style, nullptr);
    ScheduleRebuild();
}

Spacing GraphView::GetSpacing() const {
    return {GetResource<int>(graph_widget, XmNchildSpacing),
            GetResource<int>(graph_widget, XmNsiblingSpacing)};
}

void GraphView::SetSpacing(Spacing spacing) {
    SetPlaced(model, false);
    too_big = false;
    XtVaSetValues(graph_widget, XmNchildSpacing, spacing.child, XmNsiblingSpacing, spacing.sibling,
                  nullptr);
    changed();
}

void GraphView::Zoom(float factor) {
    SetPlaced(model, false);
    too_big = false;
    XmGraphZoom(graph_widget, factor);
    changed();
}

bool GraphView::TwinsVisible() const {
    return GetResource<Boolean>(graph_widget, XmNtwinsVisible) != False;
}

void GraphView::SetTwinsVisible(bool visible) {
    XtVaSetValues(graph_widget, XmNtwinsVisible, visible ? True : False, nullptr);
}

// The class of new nodes says it, those that the user makes by gesture included.
bool GraphView::Icons() const {
    return GetResource<WidgetClass>(graph_widget, XmNdefaultNodeClass) == xmvIconGadgetClass;
}

void GraphView::SetIcons(bool icons) {
    if (icons == Icons())
        return;
    KeepPlaces();
    XtVaSetValues(graph_widget, XmNdefaultNodeClass,
                  icons ? xmvIconGadgetClass : xmPushButtonGadgetClass, nullptr);
    ScheduleRebuild();
}

void GraphView::SetArcLabels(bool labels) {
    arc_labels = labels;
    int count = 0;
    const WidgetList arcs = XmGraphGetArcs(graph_widget, &count);
    for (int i = 0; i < count; ++i)
        if (!model.EdgeAt(IndexOf(arcs[i])).label.empty())
            XtVaSetValues(arcs[i], XmNmapLabel, labels ? True : False, nullptr);
}

} // namespace graph_browser
