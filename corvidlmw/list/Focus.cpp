// The keyboard's coming and going, and the pointer's where the keyboard follows it: the location cursor is
// shown while the list has the keyboard.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

bool FollowsPointer(Widget w) {
    return _XmGetFocusPolicy(w) == XmPOINTER && PrimitiveOf(w).highlight_on_enter;
}

void Take(Widget w) {
    ListOf(w).traversing = True;
    ShowCursor(w);
}

void Lose(Widget w) {
    EraseCursor(w);
    ListOf(w).traversing = False;
}

// The toolkit's actions read the event, without which a client can call any action.
void PassOn(Action *action, Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (event) {
        action(w, event, params, num_params);
    }
}

} // namespace

void ListFocusIn(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (PrimitiveOf(w).traversal_on && _XmGetFocusPolicy(w) == XmEXPLICIT && event &&
        event->xany.send_event) {
        ListOf(w).traversing = True;
    }
    ShowCursor(w);
    PassOn(_XmPrimitiveFocusIn, w, event, params, num_params);
}

void ListFocusOut(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (ListOf(w).traversing) {
        Lose(w);
        PassOn(_XmPrimitiveFocusOut, w, event, params, num_params);
    }
}

void ListEnter(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    StopScrolling(ListOf(w));
    if (FollowsPointer(w)) {
        Take(w);
    }
    PassOn(_XmPrimitiveEnter, w, event, params, num_params);
}

void ListLeave(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (FollowsPointer(w)) {
        Lose(w);
    }
    if (LeaveHolding(w, event)) {
        PassOn(_XmPrimitiveLeave, w, event, params, num_params);
    }
}

} // namespace corvidlmw::list
