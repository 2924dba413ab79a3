// Drops on the subject, and drags from it.

#include <tests/conformance/Bed.h>

#include <Xm/DisplayP.h>
#include <Xm/DragDrop.h>
#include <Xm/List.h>
#include <Xm/Text.h>

namespace corvidlmw::test {

namespace {

struct Drop {
    Widget site = nullptr;
    int operation = 0;
    int x = 0;
    int y = 0;
};
Drop drop;

void TakeDrop(Widget w, XtPointer, XtPointer call_data) {
    const auto *data = static_cast<XmDropProcCallbackStruct *>(call_data);
    drop = {w, data->operation, data->x, data->y};
    Arg args[] = {{Name(XmNtransferStatus), XmTRANSFER_FAILURE}};
    XmDropTransferStart(data->dragContext, args, 1);
}

} // namespace

void Bed::TakesADrop() {
    Make();
    Widget source = XtVaCreateManagedWidget("source", xmListWidgetClass, board, XmNx, 300, nullptr);
    XmString row = XmStringCreateLocalized(Name("a row to drag"));
    XmListAddItem(source, row, 0);
    XmStringFree(row);
    Atom text = XInternAtom(display, "COMPOUND_TEXT", False);
    Arg args[] = {{Name(XmNimportTargets), reinterpret_cast<XtArgVal>(&text)},
                  {Name(XmNnumImportTargets), 1},
                  {Name(XmNdropSiteOperations), XmDROP_COPY},
                  {Name(XmNdropProc), reinterpret_cast<XtArgVal>(TakeDrop)}};
    XmDropSiteRegister(subject, args, 4);
    Show();
    drop = {};
    DragAndDrop(source, {20, 8}, subject, Middle(), Button2, [] { return drop.site; });
    Note("site", NameOf(drop.site));
    Note("operation", drop.operation);
    const XPoint middle = Middle();
    Note("x", drop.x - middle.x);
    Note("y", drop.y - middle.y);
    XmDropSiteUnregister(subject);
}

void Bed::IsDragged() {
    Make({{XmNmarginWidth, 20}, {XmNmarginHeight, 20}});
    Widget text = XtVaCreateManagedWidget("text", xmTextWidgetClass, board, XmNx, 300, XmNeditMode,
                                          XmMULTI_LINE_EDIT, XmNrows, 10, XmNcolumns, 30, nullptr);
    Widget toolkit = XmGetXmDisplay(display);
    auto &draggable = reinterpret_cast<XmDisplay>(toolkit)->display.enable_unselectable_drag;
    const auto was_draggable = std::exchange(draggable, static_cast<decltype(+draggable)>(True));
    CallbackLog<> starts;
    starts.Add(toolkit, XmNdragStartCallback);
    Show();
    const auto content = [text] {
        char *value = XmTextGetString(text);
        const std::string copy = value;
        XtFree(value);
        return copy;
    };
    const XPoint origin = OriginInWindow(subject);
    // On a manager itself, in its margin.
    const int inset = XtIsComposite(subject) ? 1 : 12;
    const XPoint from = {static_cast<short>(origin.x + inset),
                         static_cast<short>(origin.y + inset)};
    DragAndDrop(subject, from, text, {40, 40}, Button2,
                [&] { return starts.empty() || content() != ""; });
    Note("drags", static_cast<long>(starts.size()));
    Note("dropped", content());
    draggable = was_draggable;
}

} // namespace corvidlmw::test
