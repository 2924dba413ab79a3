#include "Worker.h"

#include <memory>
#include <utility>

#include "Stopwatch.h"

namespace workbench {

namespace {

constexpr double slice_milliseconds = 15;

} // namespace

Worker::Worker(XtAppContext app, std::function<void()> progressed)
    : app_(app), progressed_(std::move(progressed)) {}

Worker::~Worker() {
    if (waiting_) {
        XtRemoveWorkProc(*waiting_);
    }
}

void Worker::Add(std::string name, Step step) {
    tasks_.push_back({std::move(name), std::move(step)});
    if (!waiting_) {
        waiting_ = XtAppAddWorkProc(app_, Slice, this);
    }
}

void Worker::AddForEach(std::string name, int count, std::function<void(int)> act) {
    const auto next = std::make_shared<int>(0);
    total_ += count;
    Add(std::move(name), [this, next, count, act = std::move(act)] {
        if (*next < count) {
            act((*next)++);
            done_++;
        }
        return *next < count;
    });
}

// The step that runs is kept until it returns.
void Worker::GiveUp() {
    if (running_) {
        given_up_ = true;
        tasks_.resize(1);
    } else {
        tasks_.clear();
    }
}

void Worker::RunSlice() {
    const auto begin = Clock::now();
    while (!tasks_.empty() && MillisecondsSince(begin) < slice_milliseconds) {
        const auto step_begin = Clock::now();
        running_ = true;
        const bool more = tasks_.front().step();
        running_ = false;
        NoteStay(step_begin, tasks_.front().name);
        if (std::exchange(given_up_, false) || !more) {
            tasks_.pop_front();
        }
    }
    if (tasks_.empty()) {
        total_ = done_ = 0;
    }
    const std::string name = Name();
    progressed_();
    NoteStay(begin, name.empty() ? "the last slice" : "a slice of " + name);
}

Boolean Worker::Slice(XtPointer closure) {
    auto &worker = *static_cast<Worker *>(closure);
    worker.RunSlice();
    if (!worker.tasks_.empty()) {
        return False;
    }
    worker.waiting_.reset();
    return True;
}

} // namespace workbench
