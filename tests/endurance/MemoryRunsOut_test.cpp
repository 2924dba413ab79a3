// Memory runs out in a request of the library's: the client ends by the toolkit's message.
//
// The program stands between the library and the toolkit's allocator. At each request a forked client fares
// as if there were none.

#include <tests/endurance/Lives.h>
#include <tests/support/Interpose.h>

#include <array>
#include <functional>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace corvidlmw::test {
namespace {

constexpr unsigned int too_much = 0xfffffff0;

struct Fates {
    int requests = 0;
    // What ended otherwise.
    std::vector<std::string> failures;
};
Fates *watched = nullptr;

int message_pipe = -1;

[[noreturn]] void EndWithMessage(String message) {
    const ssize_t written = write(message_pipe, message, std::strlen(message));
    std::_Exit(written > 0 ? EXIT_SUCCESS : EXIT_FAILURE);
}

// In the forked client: what the toolkit's function then gives to the library must not be used.
[[noreturn]] void RunOut(const std::function<void()> &ask_for_too_much) {
#ifndef __SANITIZE_ADDRESS__ // which needs memory of its own, and is told a limit
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_AS, &none);
#endif
    XtAppSetErrorHandler(Client::Shared().context, EndWithMessage);
    ask_for_too_much();
    std::_Exit(EXIT_FAILURE);
}

std::string MessageOfClient(const std::function<void()> &ask_for_too_much) {
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t client = fork();
    if (client == 0) {
        message_pipe = ends[1];
        RunOut(ask_for_too_much);
    }
    close(ends[1]);
    std::array<char, 256> text{};
    const ssize_t got = read(ends[0], text.data(), text.size() - 1);
    close(ends[0]);
    int status = 0;
    waitpid(client, &status, 0);
    const bool ended = got > 0 && WIFEXITED(status) && WEXITSTATUS(status) == EXIT_SUCCESS;
    return ended ? text.data() : "status " + std::to_string(status);
}

void Asked(const void *caller, const std::function<void()> &ask_for_too_much) {
    if (!watched || !interpose::IsLibrary(caller))
        return;
    Fates &fates = *watched;
    fates.requests++;
    watched = nullptr;
    const std::string message = MessageOfClient(ask_for_too_much);
    if (!message.starts_with("Cannot perform "))
        fates.failures.push_back(message);
    watched = &fates;
}

} // namespace
} // namespace corvidlmw::test

extern "C" {

char *XtMalloc(Cardinal size) {
    static auto *const next = reinterpret_cast<decltype(&XtMalloc)>(dlsym(RTLD_NEXT, "XtMalloc"));
    corvidlmw::test::Asked(__builtin_return_address(0), [] { next(corvidlmw::test::too_much); });
    return next(size);
}

char *XtCalloc(Cardinal count, Cardinal size) {
    static auto *const next = reinterpret_cast<decltype(&XtCalloc)>(dlsym(RTLD_NEXT, "XtCalloc"));
    corvidlmw::test::Asked(__builtin_return_address(0), [] { next(1, corvidlmw::test::too_much); });
    return next(count, size);
}

char *XtRealloc(char *block, Cardinal size) {
    static auto *const next = reinterpret_cast<decltype(&XtRealloc)>(dlsym(RTLD_NEXT, "XtRealloc"));
    corvidlmw::test::Asked(__builtin_return_address(0),
                           [block] { next(block, corvidlmw::test::too_much); });
    return next(block, size);
}

} // extern "C"

namespace corvidlmw::test {
namespace {

class MemoryRunsOut : public Stage, public ::testing::WithParamInterface<Life> {
protected:
    void SetUp() override {
        Stage::SetUp();
        MakeBoard();
    }
    void TearDown() override {
        FreeIcon();
        Stage::TearDown();
    }
};

TEST_P(MemoryRunsOut, TheClientEndsByTheToolkitsMessage) {
    Fates fates;
    watched = &fates;
    GetParam().live(*this, Whose::ours);
    watched = nullptr;
    // A scroll bar has nothing outside of its record.
    EXPECT_EQ(fates.requests > 0, GetParam().live != LiveScrollBar);
    for (const std::string &failure : fates.failures)
        ADD_FAILURE() << failure;
    RecordProperty("requests", fates.requests);
}

std::vector<Life> Undragged() {
    std::vector<Life> undragged = lives;
    std::erase_if(undragged, [](const Life &life) { return life.share != 100; });
    return undragged;
}

INSTANTIATE_TEST_SUITE_P(Each, MemoryRunsOut, ::testing::ValuesIn(Undragged()),
                         [](const auto &instance) { return std::string(instance.param.name); });

} // namespace
} // namespace corvidlmw::test
