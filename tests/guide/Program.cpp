#include "Program.h"

#include <tests/support/Editres.h>
#include <tests/support/Input.h>
#include <tests/support/XServer.h>

#include <X11/Xatom.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace corvidlmw::test {

namespace {

using namespace std::chrono_literals;

// For programs that fail: nothing waits as long as that for one that works.
constexpr auto patience = 30s;

Display *Robot() {
    return XServer::Instance().robot();
}

bool Await(const std::function<bool()> &done) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

// The server's time, from a change that it tells of.
Time Now() {
    const Window window =
        XCreateSimpleWindow(Robot(), DefaultRootWindow(Robot()), 0, 0, 1, 1, 0, 0, 0);
    XSelectInput(Robot(), window, PropertyChangeMask);
    XChangeProperty(Robot(), window, XA_WM_NAME, XA_STRING, 8, PropModeAppend, nullptr, 0);
    XEvent event;
    XWindowEvent(Robot(), window, PropertyChangeMask, &event);
    XDestroyWindow(Robot(), window);
    return event.xproperty.time;
}

// A window may go while one looks at it.
class NoErrors {
public:
    NoErrors() : before_(XSetErrorHandler([](Display *, XErrorEvent *) { return 0; })) {}
    ~NoErrors() { XSetErrorHandler(before_); }
    NoErrors(const NoErrors &) = delete;
    NoErrors &operator=(const NoErrors &) = delete;

private:
    XErrorHandler before_;
};

// A window on the screen that a program has named.
Window ShownWindow() {
    const NoErrors while_looking;
    Window root = None;
    Window parent = None;
    Window *windows = nullptr;
    unsigned count = 0;
    Window found = None;
    XQueryTree(Robot(), DefaultRootWindow(Robot()), &root, &parent, &windows, &count);
    for (unsigned i = 0; i < count && !found; ++i) {
        XWindowAttributes attributes{};
        char *name = nullptr;
        XGetWindowAttributes(Robot(), windows[i], &attributes);
        if (attributes.map_state == IsViewable && XFetchName(Robot(), windows[i], &name)) {
            found = windows[i];
            XFree(name);
        }
    }
    XFree(windows);
    return found;
}

Bool NotesReply(Display *, XEvent *event, XPointer found) {
    if (event->type == SelectionRequest || event->type == SelectionClear ||
        event->type == SelectionNotify)
        *reinterpret_cast<bool *>(found) = true;
    return False;
}

std::string Contents(std::FILE *file) {
    std::rewind(file);
    std::string text;
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        text += static_cast<char>(c);
    return text;
}

} // namespace

// ---- Life ------------------------------------------------------------------------------------

Program::Program(const std::string &directory, const Words &command, const Words &environment)
    : complaints_(std::tmpfile()), pump_([this] { AwaitReply(); }) {
    input::Reset();
    time_ = Now();
    Start(directory, command, environment);
    if (process_ < 0)
        ADD_FAILURE() << "no terminal for the program: " << std::strerror(errno);
    else
        AwaitWindow();
}

// A terminal, so that each line comes when it is written, and as it is.
void Program::Start(const std::string &directory, const Words &command, const Words &environment) {
    termios raw{};
    cfmakeraw(&raw);
    process_ = forkpty(&terminal_, nullptr, &raw, nullptr);
    if (process_ != 0)
        return;
    std::vector<char *> words;
    for (const auto &word : command)
        words.push_back(const_cast<char *>(word.c_str()));
    words.push_back(nullptr);
    for (const auto &variable : environment)
        putenv(const_cast<char *>(variable.c_str()));
    dup2(fileno(complaints_), STDERR_FILENO);
    if (chdir(directory.c_str()) == 0)
        execv(words[0], words.data());
    std::perror(words[0]);
    std::_Exit(127);
}

// The pointer enters and leaves it: then the program has seen an event with a time.
void Program::AwaitWindow() {
    if (!Await([this] { return (window_ = ShownWindow()) != None; })) {
        ADD_FAILURE() << "no window came up; " << Complaints();
        return;
    }
    MovePointer({1, 1});
    input::Reset();
    Settle();
}

Program::~Program() {
    input::Reset();
    if (process_ > 0) {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    // The next program's window must not be taken for this one's.
    Await([] { return ShownWindow() == None; });
    close(terminal_);
    std::fclose(complaints_);
}

int Program::Close() {
    const NoErrors if_it_is_gone;
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window_;
    event.xclient.message_type = XInternAtom(Robot(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(Robot(), "WM_DELETE_WINDOW", False));
    XSendEvent(Robot(), window_, False, NoEventMask, &event);
    XSync(Robot(), False);
    return Wait();
}

int Program::CloseBy(KeySym key, unsigned modifiers) {
    Focus();
    input::TypeKey(key, modifiers);
    return Wait();
}

int Program::Wait() {
    int status = 0;
    if (!Await([&] { return waitpid(process_, &status, WNOHANG) == process_; }))
        return -1;
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// ---- Editres ---------------------------------------------------------------------------------

bool Program::AwaitReply() {
    return Await([] {
        bool found = false;
        XEvent event;
        XCheckIfEvent(Robot(), &event, NotesReply, reinterpret_cast<XPointer>(&found));
        return found;
    });
}

std::vector<Program::Object> Program::Objects() {
    auto tree = AskEditres(window_, time_, EditresCommand::WidgetTree, {}, pump_);
    std::vector<Object> objects;
    for (auto left = tree.Get(2); left > 0 && !tree.bad(); --left) {
        Object object;
        object.path = tree.GetWidget();
        object.name = tree.GetString();
        object.class_name = tree.GetString();
        tree.Get(4);
        objects.push_back(std::move(object));
    }
    return objects;
}

int Program::Count(std::string_view class_name) {
    const auto objects = Objects();
    return static_cast<int>(
        std::count_if(objects.begin(), objects.end(),
                      [&](const Object &object) { return object.class_name == class_name; }));
}

XRectangle Program::Place(std::string_view name) {
    std::vector<Object> found;
    for (const auto &object : Objects())
        if (object.name == name)
            found.push_back(object);
    EXPECT_EQ(found.size(), 1u) << name;
    if (found.empty())
        return {};
    EditresStream question;
    question.Put(1, 2).Put(static_cast<uint32_t>(found[0].path.size()), 2);
    for (const uint32_t id : found[0].path)
        question.Put(id, 4);
    auto answer = AskEditres(window_, time_, EditresCommand::Geometry, question, pump_);
    answer.Get(2);
    answer.GetWidget();
    EXPECT_EQ(answer.Get(1), 0u) << name << ": " << answer.GetString();
    EXPECT_EQ(answer.Get(1), 1u) << name << " is not to be seen";
    XRectangle place{};
    place.x = static_cast<short>(answer.GetSigned16());
    place.y = static_cast<short>(answer.GetSigned16());
    place.width = static_cast<unsigned short>(answer.Get(2));
    place.height = static_cast<unsigned short>(answer.Get(2));
    return place;
}

XPoint Program::Middle(std::string_view name) {
    const XRectangle place = Place(name);
    return {static_cast<short>(place.x + place.width / 2),
            static_cast<short>(place.y + place.height / 2)};
}

// The first answer comes when what was sent before is worked off; the second, when what follows from that is.
void Program::Settle() {
    if (answers) {
        Objects();
        Objects();
    } else {
        Await([this] { return LooksTheSameAgain(); });
    }
}

bool Program::LooksTheSameAgain() {
    const Picture before = Picture::OfWindow(window_);
    std::this_thread::sleep_for(100ms);
    return before == Picture::OfWindow(window_);
}

// ---- Hands -----------------------------------------------------------------------------------

void Program::MovePointer(XPoint to) {
    input::MovePointer(window_, to.x, to.y);
}

void Program::Click(XPoint at, unsigned button, unsigned modifiers) {
    Drag(at, at, button, modifiers);
}

void Program::Drag(XPoint from, XPoint to, unsigned button, unsigned modifiers) {
    constexpr int steps = 4;
    MovePointer(from);
    input::SetModifiers(modifiers, true);
    input::SetButton(button, true);
    Settle();
    for (int step = 1; step <= steps && (from.x != to.x || from.y != to.y); ++step) {
        MovePointer({static_cast<short>(from.x + (to.x - from.x) * step / steps),
                     static_cast<short>(from.y + (to.y - from.y) * step / steps)});
        Settle();
    }
    input::SetButton(button, false);
    input::SetModifiers(modifiers, false);
    Settle();
    // Further than two clicks of a double click.
    std::this_thread::sleep_for(300ms);
}

// Without a window manager nobody else gives the window the keyboard.
void Program::Focus() {
    XSetInputFocus(Robot(), window_, RevertToPointerRoot, CurrentTime);
    XSync(Robot(), False);
    Settle();
}

void Program::Key(KeySym key, unsigned modifiers) {
    Focus();
    input::TypeKey(key, modifiers);
    Settle();
}

// The keysyms of ASCII are its codes.
void Program::Type(std::string_view text) {
    for (const char c : text)
        Key(c == '\n' ? XK_Return : static_cast<KeySym>(c));
}

// ---- Looking and listening -------------------------------------------------------------------

// Without a pointer over it, which would show in what it is over.
Picture Program::Look() {
    input::Reset();
    Settle();
    return Picture::OfWindow(window_);
}

std::string Program::Said() {
    std::string text;
    Await([&] {
        pollfd wait{.fd = terminal_, .events = POLLIN, .revents = 0};
        while (poll(&wait, 1, 0) > 0 && (wait.revents & POLLIN)) {
            char block[4096];
            const ssize_t count = read(terminal_, block, sizeof block);
            if (count <= 0)
                break;
            text.append(block, static_cast<size_t>(count));
        }
        return text.ends_with('\n');
    });
    return text;
}

std::string Program::Complaints() {
    return Contents(complaints_);
}

} // namespace corvidlmw::test
