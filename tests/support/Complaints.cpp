#include <tests/support/Complaints.h>

#include <tests/support/DisplayTest.h>
#include <tests/support/XServer.h>

#include <tests/support/GoogleTest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/wait.h>
#include <unistd.h>

namespace corvidlmw::test {

namespace {

// The child of ExpectFatal tells how it ended by its exit status, and the message through a pipe.
constexpr int ended_fatally = 77;
int fatal_message_pipe = -1;

void NoteWarning(String message) {
    Complaints::Current().warnings.emplace_back(message);
}

// To clang the standard attribute is no part of the type, which the toolkit asks for.
__attribute__((noreturn)) void EndFatally(String message) {
    if (fatal_message_pipe >= 0) {
        const ssize_t written = write(fatal_message_pipe, message, std::strlen(message));
        std::_Exit(written < 0 ? EXIT_FAILURE : ended_fatally);
    }
    std::fprintf(stderr, "fatal toolkit error: %s\n", message);
    std::abort();
}

int NoteXError(Display *display, XErrorEvent *event) {
    std::array<char, 256> text{};
    XGetErrorText(display, event->error_code, text.data(), text.size());
    Complaints::Current().x_errors.push_back({.text = text.data(),
                                              .error_code = event->error_code,
                                              .request_code = event->request_code,
                                              .minor_code = event->minor_code,
                                              .resource = event->resourceid,
                                              .serial = event->serial});
    return 0;
}

[[noreturn]] void RunFatalChild(const std::function<void(Widget)> &act, int message_pipe) {
    fatal_message_pipe = message_pipe;
    XServer::Instance().ReopenRobot();
    const Client client;
    act(MakeShell(client.display, "fatal", 640, 480));
    std::_Exit(EXIT_SUCCESS);
}

std::string ReadAll(int descriptor) {
    std::string all;
    std::array<char, 512> chunk{};
    for (ssize_t got; (got = read(descriptor, chunk.data(), chunk.size())) > 0;)
        all.append(chunk.data(), static_cast<size_t>(got));
    return all;
}

} // namespace

Complaints &Complaints::Current() {
    static Complaints complaints;
    return complaints;
}

// The toolkit's own handlers for messages with parameters format them and pass them to these.
void InstallComplaintHandlers(XtAppContext app) {
    XtAppSetWarningHandler(app, NoteWarning);
    XtAppSetErrorHandler(app, EndFatally);
    XSetErrorHandler(NoteXError);
}

void ExpectFatal(const std::function<void(Widget shell)> &act, std::string_view part) {
    XServer::Instance();
    std::fflush(nullptr);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
        RunFatalChild(act, ends[1]);
    close(ends[1]);
    const std::string message = ReadAll(ends[0]);
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status)) << "died of signal " << WTERMSIG(status);
    ASSERT_EQ(WEXITSTATUS(status), ended_fatally) << "there was no fatal error";
    EXPECT_NE(message.find(part), std::string::npos)
        << "the fatal error was: " << message << "\nexpected in it: " << part;
}

} // namespace corvidlmw::test
