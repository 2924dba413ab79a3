#include "Search.h"

#include <string.h>

#include <Xm/Form.h>
#include <Xm/TextF.h>

#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include "Dot.h"

typedef struct {
    Widget graph, form, field, list, bar;
    Pixel mark;
    int row;             /* of the hit shown last, counted from 1 */
    XtWorkProcId refill; /* 0 if the rows are up to date */
} Search;

static const Pixel no_mark = (Pixel)-1;

/* ---- Rows ---- */

/* Row i + 1 shows node i of the graph. */
static void FillList(Search *search) {
    int count, top;
    WidgetList nodes = XmGraphGetNodes(search->graph, &count);

    XtVaGetValues(search->list, XmNtopItemPosition, &top, NULL);
    XtVaSetValues(search->list, XmNupdate, False, NULL);
    LmListDeleteAllItems(search->list);
    for (int i = 0; i < count; i++) {
        XmString text = XmStringCreateLocalized((char *)LabelOf(NodeOf(nodes[i])));
        LmListAddItemUnselected(search->list, text, 0);
        XmStringFree(text);
    }
    XtVaSetValues(search->list, XmNupdate, True, NULL);
    LmListSetPos(search->list, top);
}

static Boolean Refill(XtPointer closure) {
    Search *search = closure;

    search->refill = 0;
    FillList(search);
    SvScrollBarRedisplay(search->bar);
    return True;
}

/* Nodes that are about to go may have lost their data already: the rows follow when all is done. */
static void NodesChanged(Widget graph, XtPointer closure, XtPointer call_data) {
    const XmGraphCallbackStruct *call = call_data;
    Search *search = closure;

    if (call->reason == XmCR_LAYOUT_CHANGED && !search->refill)
        search->refill = XtAppAddWorkProc(XtWidgetToApplicationContext(graph), Refill, search);
}

static void ShowRow(Search *search, int row) {
    int count;
    WidgetList nodes = XmGraphGetNodes(search->graph, &count);

    if (row > count)
        return;
    search->row = row;
    XmGraphCenterAroundWidget(search->graph, nodes[row - 1]);
    LmListSelectPos(search->list, row, False);
    LmListSetKbdItemPos(search->list, row);
}

static void RowSelected(Widget list, XtPointer closure, XtPointer call_data) {
    const LmListCallbackStruct *call = call_data;

    (void)list;
    ShowRow(closure, call->item_position);
}

/* ---- Hits ---- */

static Boolean IsHit(Widget node) {
    Pixel mark;

    XtVaGetValues(node, XmNmarkColor, &mark, NULL);
    return mark != no_mark;
}

static void TextChanged(Widget field, XtPointer closure, XtPointer call_data) {
    Search *search = closure;
    char *text = XmTextFieldGetString(field);
    int count;
    WidgetList nodes = XmGraphGetNodes(search->graph, &count);

    (void)call_data;
    for (int i = 0; i < count; i++) {
        const Boolean hit = text[0] && strstr(LabelOf(NodeOf(nodes[i])), text);
        if (hit != IsHit(nodes[i]))
            XtVaSetValues(nodes[i], XmNmarkColor, hit ? search->mark : no_mark, NULL);
    }
    XtFree(text);
    search->row = 0;
    SvScrollBarRedisplay(search->bar);
}

static void ShowNextHit(Widget field, XtPointer closure, XtPointer call_data) {
    Search *search = closure;
    int count;
    WidgetList nodes = XmGraphGetNodes(search->graph, &count);

    (void)field, (void)call_data;
    for (int i = 0; i < count; i++) {
        const int row = (search->row + i) % count;
        if (IsHit(nodes[row])) {
            ShowRow(search, row + 1);
            return;
        }
    }
}

/* ---- Marks in the scroll bar ---- */

static void DrawMarks(Widget bar, XtPointer closure, XtPointer call_data) {
    const Search *search = closure;
    const SvTroughPixmapCallbackStruct *trough = call_data;
    GC gc = XCreateGC(XtDisplay(bar), trough->pixmap, 0, NULL);
    int count;
    WidgetList nodes = XmGraphGetNodes(search->graph, &count);

    XSetForeground(XtDisplay(bar), gc, search->mark);
    for (int i = 0; i < count; i++)
        if (IsHit(nodes[i]))
            XFillRectangle(XtDisplay(bar), trough->pixmap, gc, 0,
                           i * trough->height / trough->maximum, (unsigned)trough->width, 3);
    XFreeGC(XtDisplay(bar), gc);
}

/* ---- The pane ---- */

static Pixel ColorOf(Widget w, const char *name) {
    XColor color, exact;

    if (!XAllocNamedColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), name, &color, &exact))
        return BlackPixelOfScreen(XtScreen(w));
    return color.pixel;
}

static void Forget(Widget form, XtPointer closure, XtPointer call_data) {
    Search *search = closure;

    (void)form, (void)call_data;
    if (search->refill)
        XtRemoveWorkProc(search->refill);
    XtRemoveCallback(search->graph, XmNgraphChangedCallback, NodesChanged, search);
    XtFree(closure);
}

static void MakeParts(Search *search) {
    Arg args[] = {{XmNlistSizePolicy, XmCONSTANT}, {XmNshadowThickness, 1}};

    search->field = XmCreateTextField(search->form, "find", NULL, 0);
    search->list = LmCreateScrolledList(search->form, "nodes", args, XtNumber(args));
    XtVaGetValues(search->list, XmNverticalScrollBar, &search->bar, NULL);
    XtVaSetValues(search->field, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM,
                  XmNrightAttachment, XmATTACH_FORM, NULL);
    XtVaSetValues(XtParent(search->list), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget,
                  search->field, XmNbottomAttachment, XmATTACH_FORM, XmNleftAttachment,
                  XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, NULL);
    XtManageChild(search->field);
    XtManageChild(search->list);
}

Widget CreateSearch(Widget panes, Widget graph) {
    Search *search = (Search *)XtCalloc(1, sizeof *search);

    search->graph = graph;
    search->form = XmCreateForm(panes, "search", NULL, 0);
    search->mark = ColorOf(panes, "firebrick");
    MakeParts(search);
    FillList(search);
    XtVaSetValues(search->form, XmNwidth, 150, XmNskipAdjust, True, NULL);
    XtAddCallback(search->field, XmNvalueChangedCallback, TextChanged, search);
    XtAddCallback(search->field, XmNactivateCallback, ShowNextHit, search);
    XtAddCallback(search->list, XmNbrowseSelectionCallback, RowSelected, search);
    XtAddCallback(search->bar, XmNtroughPixmapCallback, DrawMarks, search);
    XtAddCallback(graph, XmNgraphChangedCallback, NodesChanged, search);
    XtAddCallback(search->form, XmNdestroyCallback, Forget, search);
    return search->form;
}
