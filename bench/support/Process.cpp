#include <bench/support/Process.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace corvidlmw::bench {

namespace {

using Clock = std::chrono::steady_clock;

pid_t Start(const std::vector<std::string> &command, int output) {
    std::vector<char *> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string &word : command) {
        arguments.push_back(const_cast<char *>(word.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t process = 0;
    const int error =
        posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? process : -1;
}

// True when the output ended before the deadline.
bool ReadAll(int input, std::string &text, Clock::time_point deadline) {
    while (true) {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
        pollfd wait{.fd = input, .events = POLLIN, .revents = 0};
        const int ready = left.count() > 0 ? poll(&wait, 1, static_cast<int>(left.count())) : 0;
        if (ready < 0 && errno == EINTR) {
            continue;
        }
        if (ready <= 0) {
            return false;
        }
        std::array<char, 4096> chunk{};
        const ssize_t got = read(input, chunk.data(), chunk.size());
        if (got <= 0) {
            return true;
        }
        text.append(chunk.data(), static_cast<std::size_t>(got));
    }
}

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

} // namespace

Output RunProgram(const std::vector<std::string> &command, std::chrono::seconds patience) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        return {.lines = {}, .failed = true};
    }
    const pid_t process = Start(command, ends[1]);
    close(ends[1]);
    std::string text;
    const bool ended = process > 0 && ReadAll(ends[0], text, Clock::now() + patience);
    close(ends[0]);
    if (process < 0) {
        return {.lines = {}, .failed = true};
    }
    if (!ended) {
        kill(process, SIGKILL);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return {.lines = Lines(text),
            .failed = ended && !(WIFEXITED(status) && WEXITSTATUS(status) == 0)};
}

} // namespace corvidlmw::bench
