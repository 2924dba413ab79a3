// Two displays and two application contexts in one process: the second server has another depth, size and
// resolution. Nothing of one may reach the other.

#include <tests/endurance/Lives.h>

#include <corvidlmw/graph/Graph.h>

#include <array>
#include <memory>
#include <ostream>

namespace corvidlmw::test {
namespace {

// One of the two sides, with a stage of its own.
class Side : public Stage {
public:
    Side(XServer &server)
        : server_(server), turn_(std::make_unique<XServer::Turn>(server)), client_(server.name()) {
        UseClient(client_);
        MakeBoard();
        turn_.reset();
    }
    void TestBody() override {}

    void Live(const Life &life) {
        const XServer::Turn turn(server_);
        life.live(*this, Whose::ours);
        input::Reset();
    }

    // Its widgets, its display, its context.
    void Close() {
        const XServer::Turn turn(server_);
        FreeIcon();
        XtDestroyWidget(shell);
        RunWorkProcs();
        XtDestroyApplicationContext(app);
    }

    ServerResources Resources() {
        const XServer::Turn turn(server_);
        Pump();
        return ServerResources::Of(display);
    }

    XServer &server() { return server_; }

private:
    XServer &server_;
    std::unique_ptr<XServer::Turn> turn_;
    Client client_;
};

class TwoDisplays : public ::testing::TestWithParam<Life> {
protected:
    static XServer &Other() {
        static XServer other("900x700x16", 75);
        return other;
    }

    void TearDown() override {
        for (const auto &error : Complaints::Current().x_errors)
            ADD_FAILURE() << error.text << ", request " << error.request_code << ", resource 0x"
                          << std::hex << error.resource;
        for (const auto &warning : Complaints::Current().warnings)
            ADD_FAILURE() << warning;
        Complaints::Current() = {};
    }
};

} // namespace

// What a class keeps for the whole process would be the first display's on the second one: an X error, or a
// resource that stays behind.
TEST_P(TwoDisplays, LiveSideBySideAndOneOutlivesTheOther) {
    Complaints::Current() = {};
    XServer &first_server = XServer::Instance();
    const auto first = std::make_unique<Side>(first_server);
    const auto second = std::make_unique<Side>(Other());
    if (GetParam().share <
        100) // the toolkit drags on one display at a time, and none after a close
        GTEST_SKIP();
    for (Side *side : {first.get(), second.get(), first.get(), second.get()})
        side->Live(GetParam());
    const ServerResources before = first->Resources();
    second->Live(GetParam());
    EXPECT_EQ(first->Resources(), before);
    second->Close();
    first->display_was_closed = true;
    first->Live(GetParam());
    const auto third = std::make_unique<Side>(Other());
    third->display_was_closed = true;
    third->Live(GetParam());
    first->Live(GetParam());
    first->Close();
    third->Live(GetParam());
    third->Close();
}

INSTANTIATE_TEST_SUITE_P(Each, TwoDisplays, ::testing::ValuesIn(lives), [](const auto &instance) {
    std::string name = instance.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(c); });
    return name;
});

} // namespace corvidlmw::test
