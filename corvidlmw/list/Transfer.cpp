// What the list hands to other programs: the selected rows to the clipboard, and dragged rows to wherever
// they are dropped. Either way as compound text, with a newline behind each row.

#include <corvidlmw/list/LmListI.h>

#include <Xm/AtomMgr.h>
#include <Xm/CutPaste.h>
#include <Xm/DragDrop.h>

#include <X11/Xatom.h>

#include <cstring>

namespace corvidlmw::list {

namespace {

constexpr char compound_text[] = "COMPOUND_TEXT";

Atom AtomOf(Widget w, const char *name) {
    return XInternAtom(XtDisplayOfObject(w), name, False);
}

// False if a string cannot be converted.
bool AppendLine(Text &text, XmString string) {
    if (!string) {
        return false;
    }
    XrmValue from{0, reinterpret_cast<XPointer>(string)};
    XrmValue to{0, nullptr};
    if (!_XmCvtXmStringToCT(&from, &to)) {
        return false;
    }
    const OwnedXtBlock<char> converted(to.addr);
    if (to.addr) {
        text.append(to.addr, to.size);
    }
    text.push_back('\n');
    return true;
}

// ---- Clipboard --------------------------------------------------------------------------------------

Time TimeOf(Widget w, XEvent *event) {
    switch (event ? event->type : 0) {
    case KeyPress:
    case KeyRelease: return event->xkey.time;
    case ButtonPress:
    case ButtonRelease: return event->xbutton.time;
    default: return XtLastTimestampProcessed(XtDisplay(w));
    }
}

// The terminating zero goes along.
void PutOnClipboard(Widget w, Time time, Text &text) {
    Display *const display = XtDisplay(w);
    const Window window = XtWindow(w);
    const OwnedXmString label(
        XmStringCreateLtoR(Name("XM_LIST"), const_cast<char *>(XmFONTLIST_DEFAULT_TAG)));
    long item = 0;
    long data = 0;
    if (XmClipboardStartCopy(display, window, label.get(), time, w, nullptr, &item) !=
        XmClipboardSuccess) {
        return;
    }
    if (XmClipboardCopy(display, window, item, Name(compound_text), text.data(), text.size() + 1, 0,
                        &data) == XmClipboardSuccess) {
        XmClipboardEndCopy(display, window, item);
    } else {
        XmClipboardCancelCopy(display, window, item);
    }
}

// ---- Drag and drop ------------------------------------------------------------------------------------

// What a drag carries. It can outlive the list, so the list is not asked again.
struct LmListTransfer {
    Widget widget;
    XmString *strings;
    int count;
    bool *ended; // while the drag starts
};

void Free(LmListTransfer *transfer) {
    for (int i = 0; i < transfer->count; i++) {
        XmStringFree(transfer->strings[i]);
    }
    XtFree(reinterpret_cast<char *>(transfer->strings));
    XtFree(reinterpret_cast<char *>(transfer));
}

// A selected row takes all selected rows along.
Vector<int> RowsToDrag(const LmListPart &list, int row) {
    const RowSet &selected = StateOf(list).selected;
    return selected.Contains(row) ? selected.Rows() : Vector<int>{row};
}

LmListTransfer *NewTransfer(Widget w, const Vector<int> &rows) {
    auto *transfer =
        static_cast<LmListTransfer *>(static_cast<void *>(XtCalloc(1, sizeof(LmListTransfer))));
    transfer->widget = w;
    transfer->strings = static_cast<XmString *>(
        static_cast<void *>(XtCalloc(static_cast<Cardinal>(rows.size()), sizeof(XmString))));
    for (const int row : rows) {
        transfer->strings[transfer->count++] = XmStringCopy(ListOf(w).items[row]);
    }
    return transfer;
}

bool OfferTargets(Widget context, Atom *type, XtPointer *value, unsigned long *length,
                  int *format) {
    auto *targets = static_cast<Atom *>(static_cast<void *>(XtMalloc(3 * sizeof(Atom))));
    targets[0] = AtomOf(context, "TARGETS");
    targets[1] = AtomOf(context, "TIMESTAMP");
    targets[2] = AtomOf(context, compound_text);
    *type = XA_ATOM;
    *value = targets;
    *length = 3;
    *format = 32;
    return true;
}

// What cannot be converted is left out; but if that is the last string, there is no answer at all.
bool ConvertRows(const LmListTransfer &transfer, Text &text) {
    bool converted = false;
    for (int i = 0; i < transfer.count; i++) {
        converted = AppendLine(text, transfer.strings[i]);
    }
    return converted;
}

// The terminating zero stays out of the length.
char *CopyForToolkit(const Text &text) {
    char *copy = XtMalloc(static_cast<Cardinal>(text.size() + 1));
    std::memcpy(copy, text.c_str(), text.size() + 1);
    return copy;
}

// TIMESTAMP is offered and refused.
Boolean ListConvert(Widget context, Atom *selection, Atom *target, Atom *type, XtPointer *value,
                    unsigned long *length, int *format) {
    if (*selection != AtomOf(context, "_MOTIF_DROP")) {
        return False;
    }
    const auto *transfer = ResourceOf<LmListTransfer *>(context, XmNclientData, nullptr);
    if (*target == AtomOf(context, "TARGETS")) {
        return OfferTargets(context, type, value, length, format);
    }
    Text text;
    if (*target != AtomOf(context, compound_text) || !transfer || !ConvertRows(*transfer, text)) {
        return False;
    }
    *type = *target;
    *value = CopyForToolkit(text);
    *length = text.size();
    *format = 8;
    return True;
}

void DragDropFinished(Widget, XtPointer client_data, XtPointer) {
    auto *transfer = static_cast<LmListTransfer *>(client_data);
    if (transfer->ended) {
        *transfer->ended = true;
    }
    Free(transfer);
}

// The toolkit handles events before it comes back: the drag can be over by then, and the list gone.
void StartDrag(Widget w, XEvent *event, LmListTransfer *transfer) {
    bool ended = false;
    transfer->ended = &ended;
    Atom target = AtomOf(w, compound_text);
    XtCallbackRec finish[] = {{DragDropFinished, transfer}, {nullptr, nullptr}};
    Arg args[] = {
        {Name(XmNcursorForeground), static_cast<XtArgVal>(PrimitiveOf(w).foreground)},
        {Name(XmNcursorBackground), static_cast<XtArgVal>(w->core.background_pixel)},
        {Name(XmNsourceCursorIcon), reinterpret_cast<XtArgVal>(XmeGetTextualDragIcon(w))},
        {Name(XmNexportTargets), reinterpret_cast<XtArgVal>(&target)},
        {Name(XmNnumExportTargets), 1},
        {Name(XmNconvertProc), reinterpret_cast<XtArgVal>(ListConvert)},
        {Name(XmNclientData), reinterpret_cast<XtArgVal>(transfer)},
        {Name(XmNdragDropFinishCallback), reinterpret_cast<XtArgVal>(finish)},
        {Name(XmNdragOperations), XmDROP_COPY},
    };
    const Widget context = XmDragStart(w, event, args, XtNumber(args));
    if (ended) {
        return;
    }
    transfer->ended = nullptr;
    if (!context) {
        Free(transfer);
    }
}

} // namespace

// ---- Actions --------------------------------------------------------------------------------------------

void ListCopyToClipboard(Widget w, XEvent *event, String *, Cardinal *) {
    const auto &list = ListOf(w);
    Text text;
    for (int i = 0; list.selected_items && i < list.selected_item_count; i++) {
        AppendLine(text, list.selected_items[i]);
    }
    if (list.element_count > 0 && !text.empty() && HasWindow(w)) {
        PutOnClipboard(w, TimeOf(w, event), text);
    }
}

// The toolkit starts drags at presses alone.
void ListProcessDrag(Widget w, XEvent *event, String *, Cardinal *) {
    const auto &list = ListOf(w);
    if (!event || event->type != ButtonPress) {
        return;
    }
    const int row = RowFromY(w, event->xbutton.y);
    if (IsRow(list, row)) {
        StartDrag(w, event, NewTransfer(w, RowsToDrag(list, row)));
    }
}

} // namespace corvidlmw::list
