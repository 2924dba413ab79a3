#include <tests/storm/Deferred.h>

#include <tests/support/Interpose.h>

#include <X11/Intrinsic.h>

#include <cstring>
#include <map>
#include <memory>

namespace corvidlmw::storm {

namespace {

struct Timer {
    XtTimerCallbackProc act;
    XtPointer closure;
    XtIntervalId id = 0;
};

struct Work {
    XtWorkProc act;
    XtPointer closure;
    XtWorkProcId id = 0;
};

template <class Deferred>
using Register = std::map<decltype(Deferred::id), std::unique_ptr<Deferred>>;

Register<Timer> &Timers() {
    static auto &timers = *new Register<Timer>;
    return timers;
}

Register<Work> &Works() {
    static auto &works = *new Register<Work>;
    return works;
}

bool IsOurs(const void *caller) {
    Dl_info info{};
    return dladdr(caller, &info) && info.dli_fname && std::strstr(info.dli_fname, "libcorvidlmw");
}

// A timer is off the register before it acts: it may ask for the next one.
void RunTimer(XtPointer closure, XtIntervalId *id) {
    const Timer timer = *static_cast<Timer *>(closure);
    Timers().erase(timer.id);
    timer.act(timer.closure, id);
}

Boolean RunWork(XtPointer closure) {
    const Work work = *static_cast<Work *>(closure);
    const Boolean done = work.act(work.closure);
    if (done)
        Works().erase(work.id);
    return done;
}

struct Waiter {
    void (*act)(void *closure) = nullptr;
    void *closure = nullptr;
};
Waiter waiter;

} // namespace

void WhenNothingIsPending(void (*act)(void *closure), void *closure) {
    waiter = {act, closure};
}

int WaitingTimers() {
    return static_cast<int>(Timers().size());
}

int WaitingWorkProcs() {
    return static_cast<int>(Works().size());
}

} // namespace corvidlmw::storm

#pragma GCC visibility push(default)
extern "C" {

using namespace corvidlmw::storm;

XtIntervalId XtAppAddTimeOut(XtAppContext app, unsigned long interval, XtTimerCallbackProc act,
                             XtPointer closure) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtAppAddTimeOut, "XtAppAddTimeOut");
    if (!IsOurs(__builtin_return_address(0)))
        return next(app, interval, act, closure);
    auto timer = std::make_unique<Timer>(Timer{act, closure});
    timer->id = next(app, interval, RunTimer, timer.get());
    const XtIntervalId id = timer->id;
    Timers()[id] = std::move(timer);
    return id;
}

void XtRemoveTimeOut(XtIntervalId id) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtRemoveTimeOut, "XtRemoveTimeOut");
    next(id);
    Timers().erase(id);
}

XtInputMask XtAppPending(XtAppContext app) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtAppPending, "XtAppPending");
    const XtInputMask pending = next(app);
    if (!pending && waiter.act)
        waiter.act(waiter.closure);
    return pending;
}

XtWorkProcId XtAppAddWorkProc(XtAppContext app, XtWorkProc act, XtPointer closure) {
    static auto *const next =
        corvidlmw::test::interpose::Next(&XtAppAddWorkProc, "XtAppAddWorkProc");
    if (!IsOurs(__builtin_return_address(0)))
        return next(app, act, closure);
    auto work = std::make_unique<Work>(Work{act, closure});
    work->id = next(app, RunWork, work.get());
    const XtWorkProcId id = work->id;
    Works()[id] = std::move(work);
    return id;
}

void XtRemoveWorkProc(XtWorkProcId id) {
    static auto *const next =
        corvidlmw::test::interpose::Next(&XtRemoveWorkProc, "XtRemoveWorkProc");
    next(id);
    Works().erase(id);
}

} // extern "C"
#pragma GCC visibility pop
