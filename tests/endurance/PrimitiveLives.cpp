#include <tests/endurance/Lives.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/LabelG.h>
#include <Xm/DisplayP.h>
#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <Xm/ScrollBar.h>

namespace corvidlmw::test {

// ---- List -------------------------------------------------------------------------------------------

namespace {

struct ListCalls {
    Widget (*create_scrolled)(Widget, char *, ArgList, Cardinal);
    Widget (*create)(Widget, char *, ArgList, Cardinal);
    void (*add)(Widget, XmString *, int count, int position);
    void (*replace)(Widget, XmString *, int count, int position);
    void (*remove)(Widget, int count, int position);
    void (*select)(Widget, int position, Boolean notify);
    void (*show)(Widget, int position);
    Boolean (*selected)(Widget, int **positions, int *count);
    void (*remove_all)(Widget);
};

const ListCalls our_calls = {LmCreateScrolledList,  LmCreateList,         LmListAddItems,
                             LmListReplaceItemsPos, LmListDeleteItemsPos, LmListSelectPos,
                             LmListSetBottomPos,    LmListGetSelectedPos, LmListDeleteAllItems};
const ListCalls toolkits_calls = {
    XmCreateScrolledList,  XmCreateList,         XmListAddItems,
    XmListReplaceItemsPos, XmListDeleteItemsPos, XmListSelectPos,
    XmListSetBottomPos,    XmListGetSelectedPos, XmListDeleteAllItems};

const ListCalls &CallsOf(Whose whose) {
    return whose == Whose::ours ? our_calls : toolkits_calls;
}

void UseRows(const ListCalls &calls, Widget list) {
    Strings rows({"apple", "pear", "a plum of some length", "fig", "date", "quince", "medlar",
                  "sorb", "damson", "mulberry", "apple"});
    Set(list, {{XmNitems, reinterpret_cast<XtArgVal>(rows.data())}, {XmNitemCount, rows.count()}});
    for (int i = 0; i < 3; i++)
        calls.add(list, rows.data(), rows.count(), 4);
    calls.replace(list, rows.data(), 3, 7);
    calls.remove(list, 5, 2);
    calls.select(list, 3, True);
    Set(list,
        {{XmNselectedItems, reinterpret_cast<XtArgVal>(rows.data())}, {XmNselectedItemCount, 3}});
    calls.show(list, 20);
    int *positions = nullptr;
    int count = 0;
    if (calls.selected(list, &positions, &count))
        XtFree(reinterpret_cast<char *>(positions));
    SetByText(list, {{XmNfontList, "9x15"}, {XmNlistSpacing, "3"}, {XmNfontList, "fixed"}});
}

void UseDecoratedRows(Stage &stage, Widget list) {
    LmListIconEntry icons[] = {{1, stage.icon}, {2, stage.icon}};
    LmListSetPositionIcons(list, icons, 2);
    LmListSetPositionIcon(list, 3, stage.icon);
    LmListSetPositionIndent(list, 2, 20);
    SetByText(list, {{XmNshowIcons, "True"}, {XmNindentIcons, "True"}});
    XmFontList fonts = nullptr;
    Pixel pixel = 0;
    XtVaGetValues(list, XmNfontList, &fonts, XmNforeground, &pixel, nullptr);
    LmListSetPositionAttributes(list, 4, fonts, pixel + 1, pixel);
    LmListAttributeEntry entry = {.position = 5, .reserved = {}};
    XmListSetAttributes(list, &entry, 1);
    stage.Pump();
    const char *table[] = {"one\ttwo", "three\tfour", "five\tsix"};
    LmListSetTable(list, const_cast<char **>(table), 3, 2);
    stage.Pump();
    int widths[] = {60, 90};
    LmListSetFields(list, widths, 2);
    stage.Pump();
}

void UseListByInput(Stage &stage, Widget list) {
    SetByText(list, {{XmNselectionPolicy, "extended_select"}, {XmNautomaticSelection, "True"}});
    stage.Drag(list, {20, 10}, {20, 60});
    stage.Click(list, 20, 30, Button1, ControlMask);
    stage.Click(list, 20, 50, Button1, ShiftMask);
    UseKeyboard(stage, list);
    if (stage.display_was_closed)
        return;
    XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.display = stage.display;
    event.xkey.window = XtWindow(list);
    event.xkey.time = XtLastTimestampProcessed(stage.display);
    XtCallActionProc(list, "ListCopyToClipboard", &event, nullptr, 0);
}

void LiveListBy(Stage &stage, const ListCalls &calls, bool decorated) {
    Widget list = calls.create_scrolled(stage.board, Name("list"), nullptr, 0);
    Set(list, {{XmNvisibleItemCount, 8}});
    XtManageChild(list);
    stage.Pump();
    UseCommonResources(list);
    UseRows(calls, list);
    stage.Pump();
    UseListByInput(stage, list);
    if (decorated)
        UseDecoratedRows(stage, list);
    calls.remove_all(list);
    UseRows(calls, list);
    End(stage, XtParent(list));
}

} // namespace

void LiveList(Stage &stage, Whose whose) {
    LiveListBy(stage, CallsOf(whose), whose == Whose::ours);
}

void LiveDraggedList(Stage &stage, Whose whose) {
    const ListCalls &calls = CallsOf(whose);
    Widget list = calls.create(stage.board, Name("list"), nullptr, 0);
    Strings rows({"apple", "pear", "plum"});
    calls.add(list, rows.data(), rows.count(), 0);
    XtManageChild(list);
    stage.Pump();
    DragToText(stage, list, {20, 10});
    End(stage, list);
}

// ---- Scroll bar -------------------------------------------------------------------------------------

namespace {

void DrawTrough(Widget w, XtPointer, XtPointer call_data) {
    auto &data = *static_cast<SvTroughPixmapCallbackStruct *>(call_data);
    XDrawLine(XtDisplay(w), data.pixmap, DefaultGCOfScreen(XtScreen(w)), 0, 0, data.width,
              data.height);
}

} // namespace

void LiveScrollBar(Stage &stage, Whose whose) {
    const bool ours = whose == Whose::ours;
    Widget bar = XtVaCreateManagedWidget(
        "bar", ours ? svScrollBarWidgetClass : xmScrollBarWidgetClass, stage.board, XmNx, 10, XmNy,
        10, XmNwidth, 20, XmNheight, 200, XmNtraversalOn, True, XmNinitialDelay, 1, XmNrepeatDelay,
        1, nullptr);
    if (ours)
        XtAddCallback(bar, XmNtroughPixmapCallback, DrawTrough, nullptr);
    stage.Pump();
    UseCommonResources(bar);
    SetByText(bar, {{XmNtroughColor, "gray50"}, {XmNshowArrows, "False"}, {XmNshowArrows, "True"}});
    (ours ? SvScrollBarSetValues : XmScrollBarSetValues)(bar, 20, 30, 1, 10, True);
    stage.Drag(bar, {10, 70}, {10, 120});
    stage.MoveTo(bar, 10, 190);
    stage.Press();
    stage.RunWorkProcs();
    stage.Release();
    stage.Click(bar, 10, 30, Button2);
    UseKeyboard(stage, bar);
    if (ours)
        SvScrollBarRedisplay(bar);
    Set(bar, {{XmNheight, 120}, {XmNsliderSize, 50}});
    stage.Pump();
    End(stage, bar);
}

// ---- Icon gadget ------------------------------------------------------------------------------------

namespace {

void UseOurs(Stage &stage, Widget gadget) {
    Set(gadget, {{XmNiconPlacement, XmICON_RIGHT}, {XmNshowArrow, True}});
    SetByText(gadget, {{XmNlabelBitmap, "50_foreground"}, {XmNlabelBitmap, "unspecified_pixmap"}});
    Set(gadget, {{XmNiconPlacement, XmICON_TOP}});
    Dimension *baselines = nullptr;
    int lines = 0;
    if (XmvIconGadgetGetBaselines(gadget, &baselines, &lines))
        XtFree(reinterpret_cast<char *>(baselines));
    stage.Pump();
}

Widget MakeGadget(Stage &stage, Widget parent, Whose whose) {
    const Strings label({"an icon"});
    return XtVaCreateManagedWidget(
        "icon", whose == Whose::ours ? xmvIconGadgetClass : xmLabelGadgetClass, parent,
        XmNlabelString, label[0], XmNlabelPixmap, stage.icon, nullptr);
}

} // namespace

void LiveIconGadget(Stage &stage, Whose whose) {
    Widget row = XtVaCreateManagedWidget(
        "row", stage.display_was_closed ? xmBulletinBoardWidgetClass : xmRowColumnWidgetClass,
        stage.board, nullptr);
    Widget first = MakeGadget(stage, row, whose);
    Widget gadget = MakeGadget(stage, row, whose);
    stage.Pump();
    UseCommonResources(gadget);
    const Strings text({"another\nlabel"});
    Set(gadget, {{XmNlabelString, text.Value()}, {XmNtraversalOn, True}});
    SetByText(gadget, {{XmNfontList, "9x15"}});
    Set(gadget, {{XmNalignment, XmALIGNMENT_END}, {XmNmarginLeft, 7}, {XmNforeground, 1}});
    if (whose == Whose::ours)
        UseOurs(stage, gadget);
    stage.Click(gadget, 5, 5);
    UseKeyboard(stage, gadget);
    XmString copy = nullptr;
    XtVaGetValues(gadget, XmNlabelString, &copy, nullptr);
    XmStringFree(copy);
    XtDestroyWidget(first);
    End(stage, row);
}

void LiveDraggedIconGadget(Stage &stage, Whose whose) {
    auto *toolkit = reinterpret_cast<XmDisplay>(XmGetXmDisplay(stage.display));
    toolkit->display.enable_unselectable_drag = True;
    Widget gadget = MakeGadget(stage, stage.board, whose);
    stage.Pump();
    const XPoint middle = Middle(gadget);
    DragToText(stage, gadget, middle);
    End(stage, gadget);
}

} // namespace corvidlmw::test
