#include <tests/support/DisplayTest.h>

#include <tests/support/Input.h>
#include <tests/support/Interpose.h>
#include <tests/support/XServer.h>

#include <X11/Shell.h>
#include <X11/StringDefs.h>

#include <algorithm>
#include <atomic>
#include <clocale>
#include <string>
#include <thread>

namespace corvidlmw::test {

namespace {

void InitialiseToolkitOnce() {
    [[maybe_unused]] static const bool done = [] {
        XServer::Instance();
        XtSetLanguageProc(nullptr, nullptr, nullptr);
        XtToolkitInitialize();
        return true;
    }();
}

void RunOnce(Widget w, XtPointer act, XEvent *event, Boolean *) {
    if (event->type != ClientMessage)
        return;
    XtRemoveEventHandler(w, NoEventMask, True, RunOnce, act);
    (*static_cast<std::function<void()> *>(act))();
}

bool HasComeUp(Widget widget) {
    Display *robot = XServer::Instance().robot();
    XWindowAttributes attributes;
    return XGetWindowAttributes(robot, XtWindow(widget), &attributes) &&
           attributes.map_state == IsViewable;
}

// Xt tells when it is about to wait, which is when nothing is due any more. Each context gets one hook for
// good: Xt keeps some memory for each that is taken back.
class IdleWatch {
public:
    static void Hook(XtAppContext app) { XtAppAddBlockHook(app, NoteIdle, nullptr); }

    explicit IdleWatch(Display *any_display) : display(any_display) { current = this; }
    ~IdleWatch() { current = nullptr; }
    IdleWatch(const IdleWatch &) = delete;
    IdleWatch &operator=(const IdleWatch &) = delete;

    bool idle = false;

private:
    // An event that means nothing to anybody keeps Xt from waiting.
    static void NoteIdle(XtPointer) {
        if (!current)
            return;
        current->idle = true;
        Display *display = current->display;
        XEvent event{};
        event.xnoexpose.type = NoExpose;
        event.xnoexpose.display = display;
        event.xnoexpose.drawable = DefaultRootWindow(display);
        XPutBackEvent(display, &event);
    }

    static inline IdleWatch *current = nullptr;
    Display *display;
};

struct Deadline {
    bool passed = false;
    XtIntervalId timer;

    Deadline(XtAppContext app, std::chrono::milliseconds timeout)
        : timer(XtAppAddTimeOut(app, static_cast<unsigned long>(timeout.count()), NotePassed,
                                this)) {}
    ~Deadline() {
        if (!passed)
            XtRemoveTimeOut(timer);
    }
    Deadline(const Deadline &) = delete;
    Deadline &operator=(const Deadline &) = delete;

    static void NotePassed(XtPointer closure, XtIntervalId *) {
        static_cast<Deadline *>(closure)->passed = true;
    }
};

} // namespace

// ---- Client --------------------------------------------------------------------

Client::Client(const std::string &display_name) {
    InitialiseToolkitOnce();
    context = XtCreateApplicationContext();
    InstallComplaintHandlers(context);
    IdleWatch::Hook(context);
    int argc = 0;
    display =
        XtOpenDisplay(context, display_name.c_str(), "test", "Test", nullptr, 0, &argc, nullptr);
    if (!display)
        XtAppError(context, "the private X server takes no connection");
}

Client &Client::Shared() {
    static auto *const client = new Client;
    return *client;
}

Widget MakeShell(Display *display, const char *shell_name, int width, int height) {
    return XtVaAppCreateShell(shell_name, "Test", applicationShellWidgetClass, display,
                              XtNoverrideRedirect, True, XtNwaitForWm, False, XtNx, 0, XtNy, 0,
                              XtNwidth, width, XtNheight, height, XtNallowShellResize, True,
                              nullptr);
}

// ---- Fixture -------------------------------------------------------------------

void DisplayTest::SetUp() {
    Complaints::Current() = {};
    UseClient(Client::Shared());
}

// Each shell has a name of its own, so that one test's resources do not reach the next.
void DisplayTest::UseClient(const Client &client) {
    static int shells_made = 0;
    if (shell) {
        XtDestroyWidget(shell);
        RunWorkProcs();
    }
    app = client.context;
    display = client.display;
    shell = MakeShell(display, ("test" + std::to_string(++shells_made)).c_str(), width_, height_);
    XtAddCallback(
        shell, XtNdestroyCallback,
        [](Widget, XtPointer field, XtPointer) { *static_cast<Widget *>(field) = nullptr; },
        &shell);
}

// What outlives its widget (a work procedure, an event) is run here, so that it fails its own test.
void DisplayTest::TearDown() {
    input::Reset();
    Pump();
    if (shell)
        XtDestroyWidget(shell);
    RunWorkProcs();
    for (const auto &warning : Complaints::Current().warnings)
        ADD_FAILURE() << "unexpected warning: " << warning;
    for (const auto &error : Complaints::Current().x_errors)
        ADD_FAILURE() << "unexpected X error: " << error.text << ", request " << error.request_code
                      << "." << error.minor_code << ", resource 0x" << std::hex << error.resource;
}

void DisplayTest::SetResource(const std::string &line) {
    XrmDatabase database = XtDatabase(display);
    XrmPutLineResource(&database, (XtName(shell) + line).c_str());
}

void DisplayTest::Show(Widget any_shell) {
    XtRealizeWidget(any_shell);
    EXPECT_TRUE(PumpUntil([&] {
        interpose::SyncUnseen(display);
        return HasComeUp(any_shell);
    })) << "the shell was not mapped";
    Display *robot = XServer::Instance().robot();
    XSetInputFocus(robot, XtWindow(any_shell), RevertToPointerRoot, CurrentTime);
    XSync(robot, False);
    Pump();
}

// ---- Pumping -------------------------------------------------------------------

// An answer to what the dispatched events made the client send may come with the second round trip
// only: another client's (the robot's) work lies between.
void PumpEvents(XtAppContext app, Display *display) {
    for (int quiet_trips = 0; quiet_trips < 2; ++quiet_trips) {
        interpose::SyncUnseen(display);
        while (XEventsQueued(display, QueuedAlready) > 0) {
            XtAppProcessEvent(app, XtIMXEvent);
            quiet_trips = -1;
        }
    }
}

void RunAllDue(XtAppContext app, Display *display) {
    PumpEvents(app, display);
    for (IdleWatch watch(display); !watch.idle;)
        XtAppProcessEvent(app, XtIMAll);
    PumpEvents(app, display);
}

void DisplayTest::Pump() {
    PumpEvents(app, display);
}

bool DisplayTest::PumpUntil(const std::function<bool()> &predicate,
                            std::chrono::milliseconds timeout) {
    Deadline deadline(app, timeout);
    Pump();
    while (!predicate()) {
        if (deadline.passed)
            return false;
        XtAppProcessEvent(app, XtIMAll);
    }
    return true;
}

void DisplayTest::RunWorkProcs() {
    RunAllDue(app, display);
}

void DisplayTest::InDispatch(Widget any_shell, const std::function<void()> &act) {
    XtAddEventHandler(any_shell, NoEventMask, True, RunOnce,
                      const_cast<std::function<void()> *>(&act));
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.display = XtDisplay(any_shell);
    event.xclient.window = XtWindow(any_shell);
    event.xclient.format = 32;
    XtDispatchEvent(&event);
}

// ---- Input ---------------------------------------------------------------------

void DisplayTest::AfterInput() {
    if (held_ == 0)
        Pump();
}

void DisplayTest::MoveTo(Widget widget, int x, int y) {
    interpose::SyncUnseen(display);
    const XPoint origin = OriginInWindow(widget);
    input::MovePointer(WindowOf(widget), origin.x + x, origin.y + y);
    AfterInput();
}

void DisplayTest::Press(unsigned int button) {
    input::SetButton(button, true);
    AfterInput();
}

void DisplayTest::Release(unsigned int button) {
    input::SetButton(button, false);
    AfterInput();
}

void DisplayTest::Click(Widget widget, int x, int y, unsigned int button, unsigned int modifiers) {
    PressModifiers(modifiers);
    MoveTo(widget, x, y);
    Press(button);
    Release(button);
    ReleaseModifiers(modifiers);
}

// The way is computed in the window's coordinates once: a drag may move the widget itself.
void DisplayTest::Drag(Widget widget, XPoint from, XPoint to, unsigned int button,
                       unsigned int modifiers, int steps) {
    interpose::SyncUnseen(display);
    int root_x = 0;
    int root_y = 0;
    Window child = None;
    Display *robot = XServer::Instance().robot();
    const Window root = DefaultRootWindow(robot);
    const XPoint origin = OriginInWindow(widget);
    XTranslateCoordinates(robot, WindowOf(widget), root, origin.x, origin.y, &root_x, &root_y,
                          &child);
    PressModifiers(modifiers);
    input::MovePointer(root, root_x + from.x, root_y + from.y);
    AfterInput();
    Press(button);
    for (int step = 1; step <= steps; ++step) {
        input::MovePointer(root, root_x + from.x + (to.x - from.x) * step / steps,
                           root_y + from.y + (to.y - from.y) * step / steps);
        AfterInput();
    }
    Release(button);
    ReleaseModifiers(modifiers);
}

// The toolkit's loops wait for input, so it comes from a thread of its own, at a person's pace.
void DisplayTest::DragAndDrop(Widget from, XPoint start, Widget to, XPoint end, unsigned int button,
                              const std::function<bool()> &dropped,
                              std::chrono::milliseconds step_time) {
    const Window source = WindowOf(from);
    const Window target = WindowOf(to);
    MoveTo(from, start.x, start.y);
    std::atomic<bool> let_go = false;
    std::thread hand([=, &let_go] {
        const auto pause = [=] { std::this_thread::sleep_for(step_time); };
        input::SetButton(button, true);
        for (short step = 1; step <= 4; step++) {
            pause();
            input::MovePointer(source, start.x + 4 * step, start.y);
        }
        for (short step = 2; step >= 0; step--) {
            pause();
            input::MovePointer(target, end.x + 4 * step, end.y);
        }
        pause();
        input::SetButton(button, false);
        let_go = true;
    });
    EXPECT_TRUE(PumpUntil([&] { return let_go && dropped(); })) << "nothing was dropped";
    hand.join();
    RunWorkProcs();
}

void DisplayTest::Key(KeySym keysym, unsigned int modifiers) {
    input::TypeKey(keysym, modifiers);
    AfterInput();
}

void DisplayTest::LetTimePass(std::chrono::milliseconds pause) {
    std::this_thread::sleep_for(pause + std::chrono::milliseconds(1));
}

void DisplayTest::PressModifiers(unsigned int modifiers) {
    input::SetModifiers(modifiers, true);
    AfterInput();
}

void DisplayTest::ReleaseModifiers(unsigned int modifiers) {
    input::SetModifiers(modifiers, false);
    AfterInput();
}

// ---- Complaints ----------------------------------------------------------------

void DisplayTest::ExpectWarning(std::string_view part) {
    auto &warnings = Complaints::Current().warnings;
    const auto found = std::find_if(warnings.begin(), warnings.end(), [&](const auto &warning) {
        return warning.find(part) != std::string::npos;
    });
    if (found == warnings.end())
        ADD_FAILURE() << "no warning with: " << part
                      << "\nbut: " << ::testing::PrintToString(warnings);
    else
        warnings.erase(found);
}

void DisplayTest::ExpectXError(int error_code) {
    interpose::SyncUnseen(display);
    auto &errors = Complaints::Current().x_errors;
    const auto found = std::find_if(errors.begin(), errors.end(), [&](const auto &error) {
        return error.error_code == error_code;
    });
    if (found == errors.end())
        ADD_FAILURE() << "no X error " << error_code;
    else
        errors.erase(found);
}

// ---- Objects and windows --------------------------------------------------------

XPoint OriginInWindow(Widget object) {
    if (XtIsWidget(object))
        return {0, 0};
    Position x = 0;
    Position y = 0;
    XtVaGetValues(object, XtNx, &x, XtNy, &y, nullptr);
    return {x, y};
}

Window WindowOf(Widget object) {
    return XtWindowOfObject(object);
}

} // namespace corvidlmw::test
