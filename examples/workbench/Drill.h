// Goes through the commands of a window, as a user would, and tells how long each took and how long the
// program stayed away from its event loop.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "Stopwatch.h"
#include "WorkbenchWindow.h"

namespace workbench {

class Drill {
public:
    // `start` is when the program began.
    Drill(WorkbenchWindow &window, Clock::time_point start);
    ~Drill();
    Drill(const Drill &) = delete;
    Drill &operator=(const Drill &) = delete;

    // Quits at the end.
    void Begin();

private:
    struct Exercise {
        std::string name;
        std::function<void()> act;
    };

    static void Look(XtPointer closure, XtIntervalId *);

    void LookAgain();
    void Tell();
    void GoOn();

    WorkbenchWindow &window_;
    XtAppContext app_;
    Clock::time_point start_;
    std::vector<Exercise> exercises_;
    std::size_t next_ = 0;
    XtIntervalId timer_ = 0;
};

} // namespace workbench
