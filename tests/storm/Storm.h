// Does what steps say, also from within callbacks, timers and the dispatch of an event.
#pragma once

#include <tests/storm/Step.h>
#include <tests/storm/World.h>

#include <memory>
#include <vector>

namespace corvidlmw::storm {

class Storm {
public:
    Storm() = default;
    Storm(const Storm &) = delete;
    Storm &operator=(const Storm &) = delete;

    // False where there was nothing to do: its widget is dead, say.
    bool Do(const Step &step);
    // One that stands in another; a client ends such a chain some day.
    bool DoInner(const Step &step);

    World &world() { return world_; }
    // `list` of the widget does the step the first `times` times that it is called.
    bool DoOnCallback(Widget w, const std::string &list, int times, Step step);
    void DoLater(unsigned long milliseconds, Step step);
    // Whether a callback is at work, and the toolkit goes on after it with the widgets at hand.
    bool IsInCallback() const { return callbacks_ > 0; }
    bool IsInToolkit() const { return toolkit_ > 0; }
    // Within the dispatch of an event.
    bool DoInside(const Step &step);

private:
    struct Waiting {
        Storm *storm;
        Step step;
        int times;
        WidgetClass of = nullptr; // its widget may be gone when it is called
    };

    static void OnCallback(Widget, XtPointer waiting, XtPointer call_data);
    static void OnTimer(XtPointer waiting, XtIntervalId *);
    static void OnMessage(Widget, XtPointer storm, XEvent *event, Boolean *);

    static constexpr int deepest = 4;
    static constexpr int most_inner_steps = 60;

    // Its widgets are gone before what their callbacks refer to.
    std::vector<std::unique_ptr<Waiting>> waiting_;
    World world_;
    int depth_ = 0;
    int callbacks_ = 0;
    int toolkit_ = 0;
    int inner_steps_ = 0;
    const Step *inside_ = nullptr;
};

} // namespace corvidlmw::storm
