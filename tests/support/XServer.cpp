#include <tests/support/XServer.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvidlmw::test {

namespace {

constexpr int start_timeout_ms = 30000;

[[noreturn]] void GiveUp(const char *what) {
    std::fprintf(stderr, "the display harness cannot go on: %s\n", what);
    std::_Exit(EXIT_FAILURE);
}

// What a developer keeps in the home directory or the environment must not decide a test.
void MakeEnvironmentNeutral() {
    if (const char *home = std::getenv("HOME"); home && !std::getenv("XDG_CACHE_HOME"))
        setenv("XDG_CACHE_HOME", (std::string(home) + "/.cache").c_str(), 1);
    setenv("HOME", "/nonexistent", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    for (const char *variable : {"XENVIRONMENT", "XAPPLRESDIR", "XUSERFILESEARCHPATH",
                                 "XFILESEARCHPATH", "XMBINDDIR", "RESOURCE_NAME"})
        unsetenv(variable);
}

[[noreturn]] void BecomeServer(int display_pipe, pid_t parent, const std::string &screen,
                               int dots_per_inch) {
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (getppid() != parent)
        std::_Exit(EXIT_FAILURE);
    // Interrupting the tests from a terminal must not take the server from under them.
    setpgid(0, 0);
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    for (int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nowhere, descriptor);
    fcntl(display_pipe, F_SETFD, 0);
    const std::string descriptor = std::to_string(display_pipe);
    execlp("Xvfb", "Xvfb", "-displayfd", descriptor.c_str(), "-screen", "0", screen.c_str(), "-dpi",
           std::to_string(dots_per_inch).c_str(), "-noreset", "-nolisten", "tcp", "-ac",
           static_cast<char *>(nullptr));
    std::_Exit(EXIT_FAILURE);
}

// The server writes its display number and a newline once it accepts connections.
std::string ReadDisplayNumber(int display_pipe) {
    std::string number;
    while (number.empty() || number.back() != '\n') {
        pollfd wait{.fd = display_pipe, .events = POLLIN, .revents = 0};
        const int ready = poll(&wait, 1, start_timeout_ms);
        if (ready < 0 && errno == EINTR)
            continue;
        std::array<char, 16> chunk{};
        const ssize_t got = ready > 0 ? read(display_pipe, chunk.data(), chunk.size()) : 0;
        if (got <= 0)
            GiveUp("Xvfb did not start (is the package xvfb installed?)");
        number.append(chunk.data(), static_cast<size_t>(got));
    }
    number.pop_back();
    return number;
}

Display *OpenRobot(const std::string &name) {
    Display *robot = XOpenDisplay(name.c_str());
    if (!robot)
        GiveUp("no connection to the private X server");
    fcntl(ConnectionNumber(robot), F_SETFD, FD_CLOEXEC);
    return robot;
}

} // namespace

XServer &XServer::Instance() {
    if (turn_)
        return *turn_;
    static XServer server;
    return server;
}

XServer::XServer() : owner_(getpid()) {
    MakeEnvironmentNeutral();
    if (const char *shared = std::getenv("CORVIDLMW_TEST_SERVER")) {
        name_ = shared;
        robot_ = OpenRobot(name_);
    } else {
        Start(std::to_string(width) + "x" + std::to_string(height) + "x24", 100);
    }
    setenv("DISPLAY", name_.c_str(), 1);
}

XServer::XServer(const std::string &screen, int dots_per_inch) : owner_(getpid()) {
    Start(screen, dots_per_inch);
}

void XServer::Start(const std::string &screen, int dots_per_inch) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        GiveUp("no pipe");
    process_ = fork();
    if (process_ < 0)
        GiveUp("no process for the X server");
    if (process_ == 0)
        BecomeServer(ends[1], owner_, screen, dots_per_inch);
    close(ends[1]);
    name_ = ":" + ReadDisplayNumber(ends[0]);
    close(ends[0]);
    robot_ = OpenRobot(name_);
}

XServer::~XServer() {
    if (getpid() != owner_)
        return;
    XCloseDisplay(robot_);
    if (process_ == 0)
        return;
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
}

// Closing the parent's connection would speak to the server for the parent; it stays as it is.
void XServer::ReopenRobot() {
    [[maybe_unused]] static Display *const inherited = robot_;
    robot_ = OpenRobot(name_);
}

} // namespace corvidlmw::test
