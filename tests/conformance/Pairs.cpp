// Our classes, each with the toolkit's nearest one, both filled alike.

#include <tests/conformance/Bed.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/Grid.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/managers/RubberBoard.h>
#include <corvidlmw/managers/SpringBox.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/LabelG.h>
#include <Xm/List.h>
#include <Xm/PanedW.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>
#include <Xm/SeparatoG.h>

namespace corvidlmw::test {

namespace {

template <Creator create>
Widget WithRows(Widget parent, char *name, ArgList args, Cardinal count) {
    XmString rows[] = {XmStringCreateLocalized(Name("one")), XmStringCreateLocalized(Name("two")),
                       XmStringCreateLocalized(Name("three"))};
    Widget list = create(parent, name, args, count);
    XtVaSetValues(list, XmNitems, rows, XmNitemCount, 3, nullptr);
    for (XmString row : rows)
        XmStringFree(row);
    return list;
}

// In a grid the two are in cells one above the other; other managers read nothing of that.
template <Creator create>
Widget WithButtons(Widget parent, char *name, ArgList args, Cardinal count) {
    Widget manager = create(parent, name, args, count);
    if (XmIsGrid(manager))
        XtVaSetValues(manager, XmNnumRows, 2, nullptr);
    int row = 0;
    for (const char *button : {"one", "two"}) {
        XtVaCreateManagedWidget(button, xmPushButtonWidgetClass, manager, XmNx, 20, XmNy,
                                20 + 50 * row, XmNrow, row, XmNcolumn, 0, nullptr);
        row++;
    }
    return manager;
}

Widget HorizontalPanes(Widget parent, char *name, ArgList args, Cardinal count) {
    Widget panes = XmCreatePanedWindow(parent, name, args, count);
    XtVaSetValues(panes, XmNorientation, XmHORIZONTAL, nullptr);
    return panes;
}

// An arc stands in a graph of its own that has the subject's place; so does its counterpart on a board.
Widget ArcInGraph(Widget parent, char *name, ArgList args, Cardinal count) {
    Widget graph = WithButtons<XmCreateGraph>(parent, Name("holder"), args, Bed::place_settings);
    XtManageChild(graph);
    return XmCreateAttachedArc(graph, name, XtNameToWidget(graph, "one"),
                               XtNameToWidget(graph, "two"), args + Bed::place_settings,
                               count - Bed::place_settings);
}

Widget SeparatorOnBoard(Widget parent, char *name, ArgList args, Cardinal count) {
    Widget holder =
        WithButtons<XmCreateBulletinBoard>(parent, Name("holder"), args, Bed::place_settings);
    XtManageChild(holder);
    return XmCreateSeparatorGadget(holder, name, args + Bed::place_settings,
                                   count - Bed::place_settings);
}

} // namespace

const std::vector<Pair> pairs = {
    {.name = "XmGraph",
     .our_class = xmGraphWidgetClass,
     .ours = WithButtons<XmCreateGraph>,
     .toolkits_class = xmDrawingAreaWidgetClass,
     .toolkits = WithButtons<XmCreateDrawingArea>},
    {.name = "XmArc",
     .our_class = xmArcWidgetClass,
     .ours = ArcInGraph,
     .toolkits_class = xmSeparatorGadgetClass,
     .toolkits = SeparatorOnBoard,
     .is_line = true},
    {.name = "LmList",
     .our_class = lmListWidgetClass,
     .ours = WithRows<LmCreateList>,
     .toolkits_class = xmListWidgetClass,
     .toolkits = WithRows<XmCreateList>},
    {.name = "SvScrollBar",
     .our_class = svScrollBarWidgetClass,
     .ours = SvCreateScrollBar,
     .toolkits_class = xmScrollBarWidgetClass,
     .toolkits = XmCreateScrollBar},
    {.name = "XmGrid",
     .our_class = xmGridWidgetClass,
     .ours = WithButtons<XmCreateGrid>,
     .toolkits_class = xmFormWidgetClass,
     .toolkits = WithButtons<XmCreateForm>},
    {.name = "XmHorzPanedWindow",
     .our_class = xmHorzPanedWindowWidgetClass,
     .ours = WithButtons<XmCreateHorzPanedWindow>,
     .toolkits_class = xmPanedWindowWidgetClass,
     .toolkits = WithButtons<HorizontalPanes>},
    {.name = "XmRubberBoard",
     .our_class = xmRubberBoardWidgetClass,
     .ours = WithButtons<XmCreateRubberBoard>,
     .toolkits_class = xmBulletinBoardWidgetClass,
     .toolkits = WithButtons<XmCreateBulletinBoard>},
    {.name = "XmSpringBox",
     .our_class = xmSpringBoxWidgetClass,
     .ours = WithButtons<XmCreateSpringBox>,
     .toolkits_class = xmFormWidgetClass,
     .toolkits = WithButtons<XmCreateForm>},
    {.name = "XmvIconGadget",
     .our_class = xmvIconGadgetClass,
     .ours = XmvCreateIconGadget,
     .toolkits_class = xmLabelGadgetClass,
     .toolkits = XmCreateLabelGadget},
};

} // namespace corvidlmw::test
