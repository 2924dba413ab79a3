#pragma once

#include <string>

#include <Xm/Xm.h>

namespace editor_session {

// The hands of a user: what it does goes through the server, from a connection of its own, and
// reaches the program as real input. Each call returns when the program has worked it off.
class Robot {
public:
    Robot(XtAppContext of_app, const std::string &display_name);
    ~Robot();
    Robot(const Robot &) = delete;
    Robot &operator=(const Robot &) = delete;

    // Without a window manager nobody else gives a window the keyboard.
    void Focus(Widget widget);
    // Coordinates are those of the widget's window.
    void MoveTo(Widget widget, int x, int y);
    void Press(unsigned button);
    void Release(unsigned button);
    void Hold(KeySym modifier);
    void LetGo(KeySym modifier);
    void Key(KeySym key);
    void Type(const std::string &ascii);
    // Lets the program work off events, timers and idle work.
    void Wait(unsigned milliseconds);

private:
    void SetKey(KeySym key, bool down);

    XtAppContext app;
    Display *display;
};

} // namespace editor_session
