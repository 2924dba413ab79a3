// The display dies in the middle of a widget's life: the client ends the toolkit's way, or goes on without the
// display where it wants to, and touches nothing that is gone.
//
// Each client is a process of its own. CORVIDLMW_CUTS in the environment says how many places are tried for each
// class and way of handling it, CORVIDLMW_TEST_SEED which.

#include <tests/endurance/Lives.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <optional>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace corvidlmw::test {
namespace {

using Direction = SlowProxy::Direction;

struct Cut {
    Direction direction;
    long bytes;
};

struct Ending {
    int status = 0;
    bool hung = false;
    std::string said;
    // From "ready" on.
    long bytes_to_server = 0;
    long bytes_to_client = 0;

    bool Says(const char *text) const { return said.find(text) != std::string::npos; }
};

class Process {
public:
    Process(const std::vector<std::string> &words,
            const std::vector<std::string> &more_environment) {
        int in[2], out[2];
        EXPECT_EQ(pipe(in), 0);
        EXPECT_EQ(pipe(out), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, out[1], STDERR_FILENO);
        for (int end : {in[0], in[1], out[0], out[1]})
            posix_spawn_file_actions_addclose(&actions, end);
        std::vector<char *> arguments, environment;
        for (const std::string &word : words)
            arguments.push_back(Name(word.c_str()));
        for (const std::string &setting : more_environment)
            environment.push_back(Name(setting.c_str()));
        for (char **setting = environ; *setting; setting++)
            environment.push_back(*setting);
        arguments.push_back(nullptr);
        environment.push_back(nullptr);
        EXPECT_EQ(posix_spawn(&process_, arguments[0], &actions, nullptr, arguments.data(),
                              environment.data()),
                  0);
        posix_spawn_file_actions_destroy(&actions);
        close(in[0]);
        close(out[1]);
        to_ = in[1];
        from_ = out[0];
    }
    ~Process() {
        close(to_);
        close(from_);
    }
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    void Say(char word) const { EXPECT_EQ(write(to_, &word, 1), 1); }

    // Until it has said that, or has ended; false after too long a time.
    bool Hear(std::string &said, const char *until) const {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (!until || said.find(until) == std::string::npos) {
            pollfd wait{from_, POLLIN, 0};
            if (std::chrono::steady_clock::now() > deadline)
                return false;
            if (poll(&wait, 1, 1000) <= 0)
                continue;
            std::array<char, 4096> chunk;
            const ssize_t got = read(from_, chunk.data(), chunk.size());
            if (got <= 0)
                return true;
            said.append(chunk.data(), static_cast<std::size_t>(got));
        }
        return true;
    }

    int End(bool by_force) const {
        if (by_force)
            kill(process_, SIGKILL);
        int status = 0;
        waitpid(process_, &status, 0);
        return status;
    }

private:
    pid_t process_ = 0;
    int to_ = -1;
    int from_ = -1;
};

Ending EndingOf(const Life &life, const char *handling, std::optional<Cut> cut) {
    SlowProxy proxy;
    Process client({CORVIDLMW_DOOMED_CLIENT, proxy.name(), life.name, handling},
                   {"CORVIDLMW_TEST_SERVER=" + XServer::Instance().name(),
                    "ASAN_OPTIONS=exitcode=86:detect_leaks=0", "UBSAN_OPTIONS=exitcode=86"});
    Ending ending;
    ending.hung = !client.Hear(ending.said, "ready");
    const auto ready = proxy.figures();
    if (cut)
        proxy.CutAfter(cut->direction, cut->bytes);
    client.Say('!');
    ending.hung = ending.hung || !client.Hear(ending.said, nullptr);
    ending.status = client.End(ending.hung);
    const auto end = proxy.figures();
    ending.bytes_to_server = end.bytes_to_server - ready.bytes_to_server;
    ending.bytes_to_client = end.bytes_to_client - ready.bytes_to_client;
    return ending;
}

int Cuts() {
    const char *given = std::getenv("CORVIDLMW_CUTS");
    return given ? std::atoi(given) : 2;
}

class DeadDisplay : public ::testing::TestWithParam<Life> {};

// The life may be over before the place is reached.
void ExpectEnd(const Ending &ending, const char *handling) {
    EXPECT_FALSE(ending.hung);
    EXPECT_FALSE(ending.Says("Sanitizer") || ending.Says("runtime error"));
    ASSERT_TRUE(WIFEXITED(ending.status)) << "signal " << WTERMSIG(ending.status);
    const int code = WEXITSTATUS(ending.status);
    if (handling == std::string("go-on")) {
        EXPECT_EQ(code, 43);
        EXPECT_TRUE(ending.Says("lived again"));
    } else if (ending.Says("lived")) {
        EXPECT_EQ(code, 0);
    } else if (handling == std::string("save")) {
        EXPECT_EQ(code, 42);
        EXPECT_TRUE(ending.Says("saved"));
    } else {
        EXPECT_EQ(code, 1);
        EXPECT_TRUE(ending.Says("fatal IO error") || ending.Says("X connection to"));
    }
}

} // namespace

TEST_P(DeadDisplay, EndsTheClientTheToolkitsWay) {
    Random random;
    const Ending whole = EndingOf(GetParam(), "exit", {});
    ASSERT_EQ(whole.status, 0) << whole.said;
    for (int i = 0; i < Cuts(); i++) {
        for (const char *handling : {"exit", "save", "go-on"}) {
            // The hand that drags is a thread, which no jump ends.
            if (GetParam().share < 100 && handling == std::string("go-on"))
                continue;
            const bool up = random.Chance(0.6);
            const long all = up ? whole.bytes_to_server : whole.bytes_to_client;
            const Cut cut = {up ? Direction::to_server : Direction::to_client,
                             static_cast<long>(random.Fraction() * static_cast<double>(all))};
            const Ending ending = EndingOf(GetParam(), handling, cut);
            ExpectEnd(ending, handling);
            if (HasFailure())
                FAIL() << handling << ", cut after " << cut.bytes << " of " << all
                       << " bytes to the " << (up ? "server" : "client") << '\n'
                       << ending.said;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Each, DeadDisplay, ::testing::ValuesIn(lives), [](const auto &instance) {
    std::string name = instance.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(c); });
    return name;
});

} // namespace corvidlmw::test
