// For code that needs its widget after client code ran: outside of a dispatch, in a timer say, a client's
// XtDestroyWidget frees a widget at once.
#pragma once

#include <Xm/Xm.h>

namespace corvidlmw {

// Tells whether a widget was freed since.
class LifeWatch {
public:
    explicit LifeWatch(Widget w) : widget_(w) {
        XtAddCallback(w, XmNdestroyCallback, NoteDeath, this);
    }
    ~LifeWatch() {
        if (widget_) {
            XtRemoveCallback(widget_, XmNdestroyCallback, NoteDeath, this);
        }
    }
    LifeWatch(const LifeWatch &) = delete;
    LifeWatch &operator=(const LifeWatch &) = delete;

    bool Ended() const { return !widget_; }

private:
    static void NoteDeath(Widget, XtPointer watch, XtPointer) {
        static_cast<LifeWatch *>(watch)->widget_ = nullptr;
    }

    Widget widget_;
};

} // namespace corvidlmw
