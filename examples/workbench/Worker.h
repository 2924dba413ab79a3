// Long work in small slices, between which the program follows its user.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>

#include <X11/Intrinsic.h>

namespace workbench {

class Worker {
public:
    // A little of the work, some milliseconds at most; false when all of it is done.
    using Step = std::function<bool()>;

    // `progressed` is called after each slice, and when all is done.
    Worker(XtAppContext app, std::function<void()> progressed);
    ~Worker();
    Worker(const Worker &) = delete;
    Worker &operator=(const Worker &) = delete;

    // Behind what is to be done already. A step may add others, and may give up.
    void Add(std::string name, Step step);
    // For each number from 0 to below `count`.
    void AddForEach(std::string name, int count, std::function<void(int)> act);
    // What is left is not done.
    void GiveUp();

    bool IsBusy() const { return !tasks_.empty(); }
    // How much of what can be counted is done, in percent.
    int Percent() const { return total_ > 0 ? done_ * 100 / total_ : 0; }
    // What is being done now.
    std::string Name() const { return IsBusy() ? tasks_.front().name : ""; }

private:
    struct Task {
        std::string name;
        Step step;
    };

    static Boolean Slice(XtPointer closure);
    void RunSlice();

    XtAppContext app_;
    std::function<void()> progressed_;
    std::deque<Task> tasks_;
    std::optional<XtWorkProcId> waiting_;
    int total_ = 0; // of what AddForEach goes through, since the last rest
    int done_ = 0;
    bool running_ = false;
    bool given_up_ = false; // by the step that runs
};

} // namespace workbench
