#include <bench/managers/Subject.h>

#include <Xm/DrawingA.h>
#include <Xm/PanedW.h>
#include <X11/IntrinsicP.h>
#include <Xm/SashP.h>

#include <corvidlmw/managers/HPanedW.h>

#include <string>

namespace corvidlmw::bench {

namespace {

// Panes side by side, in either class. They paint nothing: what they show would cost the same in both.
class PaneSubject final : public Subject {
public:
    explicit PaneSubject(WidgetClass widget_class) : widget_class_(widget_class) {}

    void Create(Widget parent, int count) override {
        manager_ =
            XtVaCreateWidget("panes", widget_class_, parent, XmNorientation, XmHORIZONTAL, nullptr);
        for (int i = 0; i < count; ++i) {
            children_.push_back(XtVaCreateWidget(
                std::to_string(i).c_str(), xmDrawingAreaWidgetClass, manager_, XmNwidth, narrow,
                XmNheight, narrow, XmNallowResize, True, nullptr));
        }
    }

    void AskForOtherSize() override {
        is_wide_ = !is_wide_;
        XtVaSetValues(children_[children_.size() / 2], XmNwidth, is_wide_ ? wide : narrow, nullptr);
    }

    // The sash in the middle, by a few pixels in several steps.
    bool Drag() override {
        constexpr int steps = 5;
        Widget sash = MiddleSash();
        if (!sash) {
            return false;
        }
        Act(sash, ButtonPress, "Start", 0);
        for (int step = 1; step <= steps; ++step) {
            Act(sash, MotionNotify, "Move", direction_ * step);
        }
        Act(sash, ButtonRelease, "Commit", direction_ * steps);
        direction_ = -direction_;
        return true;
    }

private:
    Widget MiddleSash() const {
        WidgetList children = nullptr;
        Cardinal count = 0;
        XtVaGetValues(manager_, XmNchildren, &children, XmNnumChildren, &count, nullptr);
        std::vector<Widget> sashes;
        for (Cardinal i = 0; i < count; ++i) {
            if (XmIsSash(children[i]) && XtIsManaged(children[i])) {
                sashes.push_back(children[i]);
            }
        }
        return sashes.empty() ? nullptr : sashes[sashes.size() / 2];
    }

    static void Act(Widget sash, int type, const char *what, int x) {
        constexpr int start = 500;
        XEvent event{};
        event.type = type;
        event.xany.display = XtDisplay(sash);
        event.xany.window = XtWindow(sash);
        if (type == MotionNotify) {
            event.xmotion.x_root = start + x;
        } else {
            event.xbutton.x_root = start + x;
        }
        String params[] = {const_cast<String>(what)};
        XtCallActionProc(sash, "SashAction", &event, params, 1);
    }

    static constexpr int narrow = 20;
    static constexpr int wide = 60;

    WidgetClass widget_class_;
    bool is_wide_ = false;
    int direction_ = 1;
};

} // namespace

std::unique_ptr<Subject> MakePaneSubject(std::string_view name) {
    if (name == "horz-paned-window") {
        return std::make_unique<PaneSubject>(xmHorzPanedWindowWidgetClass);
    }
    return name == "paned-window" ? std::make_unique<PaneSubject>(xmPanedWindowWidgetClass)
                                  : nullptr;
}

} // namespace corvidlmw::bench
