#include <tests/storm/Play.h>

#include <tests/storm/Invariants.h>
#include <tests/storm/Storm.h>
#include <tests/support/DisplayTest.h>
#include <tests/support/GoogleTest.h>
#include <tests/support/XServer.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// There where a sanitizer is.
extern "C" __attribute__((weak)) void __sanitizer_print_stack_trace();

namespace corvidlmw::storm {

namespace {

constexpr int broken_invariant = 3;
constexpr int hung = 4;
constexpr std::size_t longest_log = 1 << 20;

// Written by the child, read by its parent.
struct Progress {
    volatile int step = 0;
    volatile int done = 0;
};

Progress &SharedProgress() {
    static auto *const progress = new (mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                                            MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Progress;
    return *progress;
}

// ---- In the child -----------------------------------------------------------------------------------

void TellWhereItHangs(int) {
    if (__sanitizer_print_stack_trace)
        __sanitizer_print_stack_trace();
    _exit(hung);
}

void EndIfBroken() {
    if (!::testing::Test::HasFailure())
        return;
    std::fflush(nullptr);
    _exit(broken_invariant);
}

void PlayAll(const Steps &steps, const Manner &manner) {
    Storm storm;
    Progress &progress = SharedProgress();
    for (std::size_t i = 0; i < steps.size(); i++) {
        progress.step = static_cast<int>(i);
        if (storm.Do(steps[i]))
            progress.done = progress.done + 1;
        const bool pumped = steps[i].verb() == "pump";
        if (pumped || i % static_cast<std::size_t>(manner.check_every) == 0) {
            CheckWidgets(storm.world());
            CheckComplaints();
            EndIfBroken();
        }
    }
    if (manner.to_the_end) {
        CheckRest(storm.world());
        CheckWidgets(storm.world());
        CheckComplaints();
        EndIfBroken();
    }
}

int TellWhereItErrs(Display *, XErrorEvent *) {
    if (__sanitizer_print_stack_trace)
        __sanitizer_print_stack_trace();
    _exit(broken_invariant);
}

// To find who sent a request that the server refuses: slow, since each is waited for.
void SynchroniseIfAsked() {
    if (!std::getenv("CORVIDLMW_STORM_SYNC"))
        return;
    XSynchronize(test::Client::Shared().display, True);
    XSetErrorHandler(TellWhereItErrs);
}

[[noreturn]] void BecomePlayer(const Steps &steps, const Manner &manner, int log) {
    setpgid(0, 0);
    dup2(log, STDOUT_FILENO);
    dup2(log, STDERR_FILENO);
    std::signal(SIGUSR1, TellWhereItHangs);
    const rlimit no_core{0, 0};
    setrlimit(RLIMIT_CORE, &no_core);
    test::XServer::Instance().ReopenRobot();
    SynchroniseIfAsked();
    PlayAll(steps, manner);
    CheckComplaints();
    CheckBelongings();
    EndIfBroken();
    if (!manner.to_the_end)
        _exit(EXIT_SUCCESS);
    std::exit(EXIT_SUCCESS);
}

// ---- In the parent ----------------------------------------------------------------------------------

class Watchdog {
public:
    explicit Watchdog(int seconds) : patience_(seconds) {}

    // Whether no step has ended for too long.
    bool Barks() {
        const auto now = std::chrono::steady_clock::now();
        if (const int step = SharedProgress().step; step != step_) {
            step_ = step;
            since_ = now;
        }
        return now - since_ > patience_;
    }

private:
    std::chrono::seconds patience_;
    int step_ = -1;
    std::chrono::steady_clock::time_point since_ = std::chrono::steady_clock::now();
};

void ReadSome(int from, std::string &log) {
    std::array<char, 4096> chunk{};
    pollfd wait{.fd = from, .events = POLLIN, .revents = 0};
    if (poll(&wait, 1, 100) <= 0)
        return;
    const ssize_t got = read(from, chunk.data(), chunk.size());
    if (got > 0 && log.size() < longest_log)
        log.append(chunk.data(), static_cast<std::size_t>(got));
}

int Await(pid_t child, int from, int seconds, std::string &log) {
    Watchdog watchdog(seconds);
    int status = 0;
    int warned = 0;
    while (waitpid(child, &status, WNOHANG) == 0) {
        ReadSome(from, log);
        if (watchdog.Barks() && ++warned == 1)
            kill(child, SIGUSR1);
        if (warned > 20)
            kill(child, SIGKILL);
    }
    for (std::size_t before = log.size() + 1; before != log.size();) {
        before = log.size();
        ReadSome(from, log);
    }
    return status;
}

// ---- What kind of fault ----------------------------------------------------------------------------

std::string WithoutNumbers(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c); }, '#');
    text.erase(std::unique(text.begin(), text.end(),
                           [](char one, char next) { return one == '#' && next == '#'; }),
               text.end());
    return text;
}

std::string LineWith(const std::string &log, const std::string &part) {
    const auto at = log.find(part);
    if (at == std::string::npos)
        return "";
    const auto begin = log.rfind('\n', at);
    const auto end = log.find('\n', at);
    return log.substr(begin + 1, end - begin - 1);
}

std::string KindOf(const std::string &log, int status) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == hung)
        return "hung";
    if (const auto failure = log.find(": Failure\n"); failure != std::string::npos) {
        const auto from =
            log.find("Failed\n", failure) == failure + 10 ? failure + 17 : failure + 10;
        auto line = log.substr(from, log.find('\n', from) - from);
        if (line.starts_with("Expected equality")) // what of stands in the next line
            line = log.substr(from + line.size() + 1,
                              log.find('\n', from + line.size() + 1) - from - line.size() - 1);
        return WithoutNumbers(LineWith(log, ": Failure") + " " + line);
    }
    if (log.find("LeakSanitizer") != std::string::npos)
        return WithoutNumbers("leak" + LineWith(log, " ../../corvidlmw/"));
    for (const char *part : {"fatal toolkit error", "runtime error:", "SUMMARY:", "Assertion"})
        if (const auto line = LineWith(log, part); !line.empty())
            return WithoutNumbers(line);
    if (WIFSIGNALED(status))
        return "signal " + std::to_string(WTERMSIG(status));
    return "exit status " + std::to_string(WEXITSTATUS(status));
}

} // namespace

Outcome Play(const Steps &steps, const Manner &manner) {
    test::XServer::Instance();
    new (&SharedProgress()) Progress;
    std::fflush(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        std::abort();
    const pid_t child = fork();
    if (child == 0)
        BecomePlayer(steps, manner, ends[1]);
    close(ends[1]);
    Outcome outcome;
    const int status = Await(child, ends[0], manner.watchdog_seconds, outcome.log);
    close(ends[0]);
    outcome.clean = WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    outcome.last_step = SharedProgress().step;
    outcome.done = SharedProgress().done;
    if (!outcome.clean)
        outcome.kind = KindOf(outcome.log, status);
    return outcome;
}

} // namespace corvidlmw::storm
