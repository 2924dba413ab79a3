#include <tests/storm/Deferred.h>

#include <tests/support/Interpose.h>

#include <X11/IntrinsicP.h>
#include <X11/StringDefs.h>

#include <algorithm>
#include <map>
#include <memory>
#include <set>
#include <sstream>
#include <vector>

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

// ---- Callbacks --------------------------------------------------------------------------------------

struct Callback {
    Widget owner;
    std::string list;
    XtCallbackProc act;
    XtPointer closure;
    bool operator==(const Callback &) const = default;
};

std::vector<Callback> &Callbacks() {
    static auto &callbacks = *new std::vector<Callback>;
    return callbacks;
}

// Addresses of widgets; one that is made anew at such a place lives.
std::set<const void *> &Dead() {
    static auto &dead = *new std::set<const void *>;
    return dead;
}

void NoteLife(Widget, XtPointer, XtPointer data) {
    const Widget born = static_cast<XtCreateHookData>(data)->widget;
    Dead().erase(born);
    std::erase_if(Callbacks(), [born](const Callback &one) { return one.owner == born; });
}

void NoteDeath(Widget, XtPointer, XtPointer data) {
    Dead().insert(static_cast<XtDestroyHookData>(data)->widget);
}

template <class Procedure>
std::string NameOf(const std::string &where, Procedure *act) {
    Dl_info info{};
    dladdr(reinterpret_cast<void *>(act), &info);
    std::ostringstream name;
    name << where << ": " << (info.dli_sname ? info.dli_sname : "a procedure") << " at 0x"
         << std::hex << reinterpret_cast<char *>(act) - static_cast<char *>(info.dli_fbase);
    return name.str();
}

void FindStrayCallbacks(std::vector<std::string> &strays) {
    auto &callbacks = Callbacks();
    std::erase_if(callbacks, [](const Callback &one) { return Dead().contains(one.owner); });
    for (const Callback &one : callbacks) {
        if (Dead().contains(one.closure))
            strays.push_back(NameOf(one.list, one.act) + ", for a dead widget");
        if (std::count(callbacks.begin(), callbacks.end(), one) > 1)
            strays.push_back(NameOf(one.list, one.act) + ", more than once");
    }
}

template <class Deferred>
void FindStrays(const Register<Deferred> &waiting, const char *kind,
                std::vector<std::string> &strays) {
    std::set<std::pair<decltype(Deferred::act), XtPointer>> seen;
    for (const auto &[id, one] : waiting) {
        if (Dead().contains(one->closure))
            strays.push_back(NameOf(kind, one->act) + ", for a dead widget");
        if (!seen.insert({one->act, one->closure}).second)
            strays.push_back(NameOf(kind, one->act) + ", more than once");
    }
}

// ---- Idleness -----------------------------------------------------------------------------------------

struct Waiter {
    void (*act)(void *closure) = nullptr;
    void *closure = nullptr;
};
Waiter waiter;

// ---- Events -------------------------------------------------------------------------------------------

int dispatches = 0;

} // namespace

bool IsDispatching() {
    return dispatches > 0;
}

void WhenNothingIsPending(void (*act)(void *closure), void *closure) {
    waiter = {act, closure};
}

void FollowLives(Display *display) {
    Widget hooks = XtHooksOfDisplay(display);
    XtAddCallback(hooks, XtNcreateHook, NoteLife, nullptr);
    XtAddCallback(hooks, XtNdestroyHook, NoteDeath, nullptr);
}

std::vector<std::string> Strays() {
    std::vector<std::string> strays;
    FindStrayCallbacks(strays);
    FindStrays(Timers(), "a timer", strays);
    FindStrays(Works(), "a work procedure", strays);
    return strays;
}

int WaitingTimers() {
    return static_cast<int>(Timers().size());
}

std::string WaitingNames() {
    std::string names;
    for (const auto &[id, timer] : Timers())
        names += NameOf("a timer", timer->act) + "\n";
    for (const auto &[id, work] : Works())
        names += NameOf("a work procedure", work->act) + "\n";
    return names;
}

int WaitingWorkProcs() {
    return static_cast<int>(Works().size());
}

} // namespace corvidlmw::storm

#pragma GCC visibility push(default)
extern "C" {

using namespace corvidlmw::storm;

Boolean XtDispatchEvent(XEvent *event) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtDispatchEvent, "XtDispatchEvent");
    ++dispatches;
    const Boolean handled = next(event);
    --dispatches;
    return handled;
}

XtIntervalId XtAppAddTimeOut(XtAppContext app, unsigned long interval, XtTimerCallbackProc act,
                             XtPointer closure) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtAppAddTimeOut, "XtAppAddTimeOut");
    if (!corvidlmw::test::interpose::IsLibrary(__builtin_return_address(0)))
        return next(app, interval, act, closure);
    auto timer = std::make_unique<Timer>(Timer{act, closure});
    timer->id = next(app, std::min(interval / 50, 20UL), RunTimer, timer.get());
    const XtIntervalId id = timer->id;
    Timers()[id] = std::move(timer);
    return id;
}

void XtRemoveTimeOut(XtIntervalId id) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtRemoveTimeOut, "XtRemoveTimeOut");
    next(id);
    Timers().erase(id);
}

void XtAddCallback(Widget w, const char *list, XtCallbackProc act, XtPointer closure) {
    static auto *const next = corvidlmw::test::interpose::Next(&XtAddCallback, "XtAddCallback");
    if (corvidlmw::test::interpose::IsLibrary(__builtin_return_address(0)))
        Callbacks().push_back({w, list, act, closure});
    next(w, list, act, closure);
}

void XtRemoveCallback(Widget w, const char *list, XtCallbackProc act, XtPointer closure) {
    static auto *const next =
        corvidlmw::test::interpose::Next(&XtRemoveCallback, "XtRemoveCallback");
    std::erase(Callbacks(), Callback{w, list, act, closure});
    next(w, list, act, closure);
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
    if (!corvidlmw::test::interpose::IsLibrary(__builtin_return_address(0)))
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
