// Presses in the icon column. They select nothing: the row is armed, and activated if the button is let go
// of over its icon column again. That is the row itself, wherever others that come and go move it to.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

bool HasListeners(Widget w, const char *callbacks) {
    return XtHasCallbacks(w, callbacks) == XtCallbackHasSome;
}

LmListCallbackStruct DataOf(const LmListPart &list, XEvent *event, int row) {
    LmListCallbackStruct data{};
    data.event = event;
    data.item = XmStringCopy(list.items[row]);
    data.item_length = ElementOf(list, row).length;
    data.item_position = row + 1;
    data.field = -1;
    return data;
}

bool Call(Widget w, const char *callbacks, int reason, LmListCallbackStruct &data) {
    data.reason = reason;
    const auto call = [&] { XtCallCallbacks(w, callbacks, &data); };
    return CallClient(w, std::ref(call));
}

// Motion compares with the row that is selected, which is not the one that was armed.
void RememberBrowsedRow(LmListPart &list) {
    const int selected = StateOf(list).selected.Next(0);
    if (list.selection_policy == XmBROWSE_SELECT && selected >= 0) {
        list.last_highlighted = selected;
    }
}

} // namespace

bool IsInIconColumn(const LmListPart &list, int row, int x) {
    const int indent = list.indent_icons ? ElementOf(list, row).indent : 0;
    return list.show_icons && !list.keyboard_selection && x < list.icon_column_width + indent;
}

// The copy of the item is the client's to free, if there is one to do so.
void ArmIcon(Widget w, XEvent *event, int row) {
    auto &list = ListOf(w);
    list.armed_item = row;
    StateOf(list).armed = &ElementOf(list, row);
    RememberBrowsedRow(list);
    LmListCallbackStruct data = DataOf(list, event, row);
    const bool is_taken = HasListeners(w, XmNarmCallback);
    Call(w, XmNarmCallback,
         HasIcon(ElementOf(list, row)) ? LmCR_ITEM_ICON_ARM : LmCR_ITEM_BLANK_ARM, data);
    if (!is_taken) {
        XmStringFree(data.item);
    }
}

// Both callbacks get one copy of the item. The last of them that a client listens to frees it.
void DisarmIcon(Widget w, XEvent *event, int row) {
    auto &list = ListOf(w);
    LmListCallbackStruct data = DataOf(list, event, row);
    const XmString item = data.item;
    bool is_alive = true;
    bool is_taken = false;
    if (StateOf(list).armed == &ElementOf(list, row)) {
        is_taken = HasListeners(w, XmNactivateCallback) && !HasListeners(w, XmNdisarmCallback);
        is_alive =
            Call(w, XmNactivateCallback,
                 HasIcon(ElementOf(list, row)) ? LmCR_ITEM_ICON_ACTIVATE : LmCR_ITEM_BLANK_ACTIVATE,
                 data);
    }
    if (is_alive) {
        is_taken = is_taken || HasListeners(w, XmNdisarmCallback);
        Call(w, XmNdisarmCallback, LmCR_ITEM_DISARM, data);
    }
    if (!is_taken) {
        XmStringFree(item);
    }
}

} // namespace corvidlmw::list
