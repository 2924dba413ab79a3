// What the first two buttons do: they select, or start to drag rows, as the display's
// XmNenableBtn1Transfer says. Where the first button does both, a press on a selected row waits until it
// is clear which of the two it is.

#include <corvidlmw/list/LmListI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <Xm/DisplayP.h>

#include <cstdlib>

namespace corvidlmw::list {

namespace {

constexpr int motion_to_drag = 4; // pixels

XtEnum Btn1TransferOf(Widget w) {
    return ResourceOf<XtEnum>(XmGetXmDisplay(XtDisplay(w)), XmNenableBtn1Transfer, XmOFF);
}

void Call(Widget w, const Text &action, XEvent *event) {
    XtCallActionProc(w, action.c_str(), event, nullptr, 0);
}

// ---- A press that waits -------------------------------------------------------------------------------

void DragWaiting(Widget w) {
    XEvent press = StateOf(w).waiting_press->event;
    StateOf(w).waiting_press.reset();
    ListProcessDrag(w, &press, nullptr, nullptr);
}

// The release can have gone to another action, or to nobody: a drag without a button down would not end.
void DragAfterWait(XtPointer closure, XtIntervalId *) {
    const auto w = static_cast<Widget>(closure);
    StateOf(w).waiting_press->timer = 0;
    if (HasWindow(w) && (HeldButtons(w) & Button1Mask)) {
        DragWaiting(w);
    } else {
        StateOf(w).waiting_press.reset();
    }
}

void Wait(Widget w, XEvent *press, const Text &action) {
    auto &waiting = StateOf(w).waiting_press.emplace();
    waiting.event = *press;
    waiting.action = action;
    waiting.timer = XtAppAddTimeOut(XtWidgetToApplicationContext(w),
                                    static_cast<unsigned long>(XtGetMultiClickTime(XtDisplay(w))),
                                    DragAfterWait, w);
}

bool HasMovedAway(const WaitingPress &waiting, const XMotionEvent &motion) {
    const XButtonEvent &press = waiting.event.xbutton;
    return std::abs(motion.x - press.x) >= motion_to_drag ||
           std::abs(motion.y - press.y) >= motion_to_drag;
}

void PressAfterAll(Widget w, const Text &release_action, XEvent *release) {
    const LifeWatch life(w);
    XEvent press = StateOf(w).waiting_press->event;
    const Text action = StateOf(w).waiting_press->action;
    StateOf(w).waiting_press.reset();
    Call(w, action, &press);
    if (!life.Ended()) {
        Call(w, release_action, release);
    }
}

// ---- Events of the first button -------------------------------------------------------------------------

void Button1Pressed(Widget w, XEvent *event, const Text &action) {
    StateOf(w).waiting_press.reset();
    const int row = RowFromY(w, event->xbutton.y);
    if (IsRow(ListOf(w), row) && ElementOf(ListOf(w), row).selected) {
        Wait(w, event, action);
    } else {
        Call(w, action, event);
    }
}

void Button1Moved(Widget w, XEvent *event, const Text &action) {
    const auto &waiting = StateOf(w).waiting_press;
    if (!waiting) {
        Call(w, action, event);
    } else if (HasMovedAway(*waiting, event->xmotion)) {
        DragWaiting(w);
    }
}

void Button1Released(Widget w, XEvent *event, const Text &action) {
    if (StateOf(w).waiting_press) {
        PressAfterAll(w, action, event);
    } else {
        Call(w, action, event);
    }
}

} // namespace

unsigned HeldButtons(Widget w) {
    Window root, child;
    int root_x, root_y, x, y;
    unsigned modifiers = 0;
    XQueryPointer(XtDisplay(w), RootWindowOfScreen(XtScreen(w)), &root, &child, &root_x, &root_y,
                  &x, &y, &modifiers);
    return modifiers & (Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask);
}

void ListProcessBtn1(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (!params || !num_params || *num_params != 1 || !event) {
        return;
    }
    const Text action = params[0];
    const bool transfers = Btn1TransferOf(w) != XmOFF;
    if (transfers && event->type == ButtonPress) {
        Button1Pressed(w, event, action);
    } else if (transfers && event->type == MotionNotify) {
        Button1Moved(w, event, action);
    } else if (transfers && event->type == ButtonRelease) {
        Button1Released(w, event, action);
    } else {
        Call(w, action, event);
    }
}

void ListProcessBtn2(Widget w, XEvent *event, String *params, Cardinal *num_params) {
    if (!params || !num_params || *num_params != 1 || !event) {
        return;
    }
    if (Btn1TransferOf(w) == XmBUTTON2_ADJUST) {
        Call(w, params[0], event);
    } else if (event->type == ButtonPress) {
        ListProcessDrag(w, event, nullptr, nullptr);
    }
}

} // namespace corvidlmw::list
