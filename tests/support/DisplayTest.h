/* The fixture of every display test: a fresh application context, connection and shell. */

#ifndef CORVIDLMW_TESTS_SUPPORT_DISPLAYTEST_H
#define CORVIDLMW_TESTS_SUPPORT_DISPLAYTEST_H

#include <tests/support/Complaints.h>

#include <Xm/Xm.h>
#include <tests/support/GoogleTest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::test {

// An application with one shell at 0, 0 that overrides redirection (there is no window manager).
// The fixture holds one; a test of several clients makes more.
struct Application {
    Application(int width, int height);
    ~Application();
    Application(const Application &) = delete;
    Application &operator=(const Application &) = delete;

    XtAppContext context = nullptr;
    Display *display = nullptr;
    Widget shell = nullptr;
};

// A further shell of the same kind on a display.
Widget MakeShell(Display *display, const char *name, int width, int height);

class DisplayTest : public ::testing::Test {
protected:
    explicit DisplayTest(int width = 640, int height = 480) : width_(width), height_(height) {}

    void SetUp() override;
    void TearDown() override;

    XtAppContext app = nullptr;
    Display *display = nullptr;
    Widget shell = nullptr;

    // Sets a line of the resource database, such as "*background: white"; before widgets are made.
    void SetResource(const char *line);

    // Realises the shell, waits until it is mapped, gives it the keyboard and pumps.
    void Show() { Show(shell); }
    void Show(Widget any_shell);

    // Dispatches X events until the server has no more for us. Timers and work procedures stay.
    void Pump();
    // Runs events, timers and work procedures until the predicate holds; false after the timeout,
    // which is there only for tests that fail.
    bool PumpUntil(const std::function<bool()> &predicate,
                   std::chrono::milliseconds timeout = std::chrono::seconds(10));
    // Runs everything that is due: events, elapsed timers, and work procedures until none is left.
    void RunWorkProcs();

    // Real input, through the server. Coordinates are the widget's (or gadget's) own. Each call is
    // followed by a pump, unless a HoldEvents is in scope.
    void MoveTo(Widget widget, int x, int y);
    void Press(unsigned int button = Button1);
    void Release(unsigned int button = Button1);
    void Click(Widget widget, int x, int y, unsigned int button = Button1,
               unsigned int modifiers = 0);
    // Presses at the first point, moves in `steps` steps to the second and releases there.
    void Drag(Widget widget, XPoint from, XPoint to, unsigned int button = Button1,
              unsigned int modifiers = 0, int steps = 4);
    // Types a key with modifiers: a sum of ShiftMask, ControlMask, Mod1Mask (the toolkit's Meta).
    void Key(KeySym keysym, unsigned int modifiers = 0);
    // Holds and releases modifiers over several calls.
    void PressModifiers(unsigned int modifiers);
    void ReleaseModifiers(unsigned int modifiers);

    // Each takes back one captured complaint (the text is a part of the warning's).
    void ExpectWarning(std::string_view part);
    void ExpectXError(int error_code);
    const std::vector<std::string> &warnings() const { return Complaints::Current().warnings; }

    // While one is in scope input queues up undispatched, as when a client is busy.
    class HoldEvents {
    public:
        explicit HoldEvents(DisplayTest &test) : test_(test) { ++test_.held_; }
        ~HoldEvents() { --test_.held_; }
        HoldEvents(const HoldEvents &) = delete;
        HoldEvents &operator=(const HoldEvents &) = delete;

    private:
        DisplayTest &test_;
    };

private:
    void AfterInput();

    int width_;
    int height_;
    int held_ = 0;
    std::unique_ptr<Application> application_;
};

// The toolkit's creation functions take `char *` and do not write to it.
inline char *Name(const char *text) { return const_cast<char *>(text); }

// Where an object's own origin is in the window that it draws on: 0, 0 for a widget, its place in
// the parent for a gadget.
XPoint OriginInWindow(Widget object);
Window WindowOf(Widget object);

}  // namespace corvidlmw::test

#endif
