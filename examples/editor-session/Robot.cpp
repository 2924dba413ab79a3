#include "Robot.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

namespace editor_session {
namespace {

// Long enough for idle work, short enough for a script.
constexpr unsigned pause = 15;

bool NeedsShift(Display *display, KeySym key) {
    return XkbKeycodeToKeysym(display, XKeysymToKeycode(display, key), 0, 0) != key;
}

void TimeIsUp(XtPointer up, XtIntervalId *) {
    *static_cast<bool *>(up) = true;
}

} // namespace

Robot::Robot(XtAppContext of_app, const std::string &display_name)
    : app(of_app), display(XOpenDisplay(display_name.c_str())) {}

Robot::~Robot() {
    XCloseDisplay(display);
}

void Robot::Wait(unsigned milliseconds) {
    XSync(display, False);
    bool up = false;
    XtAppAddTimeOut(app, milliseconds, TimeIsUp, &up);
    while (!up)
        XtAppProcessEvent(app, XtIMAll);
}

void Robot::Focus(Widget widget) {
    XSetInputFocus(display, XtWindow(widget), RevertToPointerRoot, CurrentTime);
    Wait(pause);
}

void Robot::MoveTo(Widget widget, int x, int y) {
    int root_x = 0;
    int root_y = 0;
    Window child = None;
    XTranslateCoordinates(display, XtWindow(widget), DefaultRootWindow(display), x, y, &root_x,
                          &root_y, &child);
    XTestFakeMotionEvent(display, DefaultScreen(display), root_x, root_y, CurrentTime);
    Wait(pause);
}

void Robot::Press(unsigned button) {
    XTestFakeButtonEvent(display, button, True, CurrentTime);
    Wait(pause);
}

void Robot::Release(unsigned button) {
    XTestFakeButtonEvent(display, button, False, CurrentTime);
    Wait(pause);
}

void Robot::SetKey(KeySym key, bool down) {
    XTestFakeKeyEvent(display, XKeysymToKeycode(display, key), down, CurrentTime);
}

void Robot::Hold(KeySym modifier) {
    SetKey(modifier, true);
    Wait(pause);
}

void Robot::LetGo(KeySym modifier) {
    SetKey(modifier, false);
    Wait(pause);
}

void Robot::Key(KeySym key) {
    const bool shift = NeedsShift(display, key);
    if (shift)
        SetKey(XK_Shift_L, true);
    SetKey(key, true);
    SetKey(key, false);
    if (shift)
        SetKey(XK_Shift_L, false);
    Wait(pause);
}

// The keysyms of ASCII are its codes.
void Robot::Type(const std::string &ascii) {
    for (const char c : ascii)
        Key(static_cast<KeySym>(c));
}

} // namespace editor_session
