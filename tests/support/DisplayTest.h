/* The fixture of every display test: a fresh shell, pumping, input, and what a test must not leave. */

#ifndef CORVIDLMW_TESTS_SUPPORT_DISPLAYTEST_H
#define CORVIDLMW_TESTS_SUPPORT_DISPLAYTEST_H

#include <tests/support/Complaints.h>
#include <tests/support/XServer.h>

#include <Xm/Xm.h>
#include <tests/support/GoogleTest.h>

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::test {

// A connection to the private server, or to another display, with its application context. It is never closed: Motif's
// caches keep GCs and pixmaps of a closed connection, and give them to the next one that comes to
// lie at the same address.
struct Client {
    explicit Client(const std::string &display_name = XServer::Instance().name());
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    // The one that all tests of a program share.
    static Client &Shared();

    XtAppContext context;
    Display *display;
};

// A shell at 0, 0 that overrides redirection: there is no window manager.
Widget MakeShell(Display *display, const char *shell_name, int width, int height);

// Dispatches X events until the server has no more for us. Timers and work procedures stay.
void PumpEvents(XtAppContext app, Display *display);
// Runs everything that is due: events, elapsed timers, and work procedures until none is left.
void RunAllDue(XtAppContext app, Display *display);

class DisplayTest : public ::testing::Test {
protected:
    explicit DisplayTest(int width = 640, int height = 480) : width_(width), height_(height) {}

    void SetUp() override;
    void TearDown() override;

    // Goes on with a shell of this client's; the old shell is destroyed.
    void UseClient(const Client &client);

    XtAppContext app = nullptr;
    Display *display = nullptr;
    Widget shell = nullptr;

    // Adds a line of the resource database, beginning with '*' or '.', for the widgets of this
    // test's shell: "*background: white". To be called before they are made.
    void SetResource(const std::string &line);

    // Realises the shell, waits until it is mapped, gives it the keyboard and pumps. TearDown
    // destroys the shell that the fixture made; a test destroys further ones itself.
    void Show() { Show(shell); }
    void Show(Widget any_shell);

    // PumpEvents and RunAllDue of this test's client.
    void Pump();
    // Runs events, timers and work procedures until the predicate holds; false after the timeout,
    // which is there only for tests that fail.
    bool PumpUntil(const std::function<bool()> &predicate,
                   std::chrono::milliseconds timeout = std::chrono::seconds(10));
    void RunWorkProcs();
    // Runs `act` inside of the dispatch of an event, where the toolkit puts off all destruction until
    // the dispatch ends; may be nested. The shell is shown.
    void InDispatch(const std::function<void()> &act) { InDispatch(shell, act); }
    static void InDispatch(Widget any_shell, const std::function<void()> &act);

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
    // Drags and drops with the toolkit's own machinery, which may run its own loops meanwhile; ends when
    // `dropped` holds, or fails.
    void DragAndDrop(Widget from, XPoint start, Widget to, XPoint end, unsigned int button,
                     const std::function<bool()> &dropped,
                     std::chrono::milliseconds step = std::chrono::milliseconds(30));
    void Key(KeySym keysym, unsigned int modifiers = 0);
    // The next event comes at least this much later by the server's clock: for clicks that must not
    // make a double click. A pause is a part of what a user does, never a way to wait for a result.
    void LetTimePass(std::chrono::milliseconds pause);
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
};

// The toolkit's creation functions take `char *` and do not write to it.
inline char *Name(const char *text) {
    return const_cast<char *>(text);
}

// Where an object's own origin is in the window that it draws on: 0, 0 for a widget, its place in
// the parent for a gadget.
XPoint OriginInWindow(Widget object);
Window WindowOf(Widget object);

} // namespace corvidlmw::test

#endif
