// Two displays and two application contexts in one process: the second server has another depth, size and
// resolution. Nothing of one may reach the other.

#include <tests/endurance/Lives.h>

#include <memory>
#include <vector>

namespace corvidlmw::test {
namespace {

// One of the two sides, with a stage of its own.
class Side : public Stage {
public:
    explicit Side(XServer &server)
        : server_(server), turn_(std::make_unique<XServer::Turn>(server)), client_(server.name()) {
        UseClient(client_);
        MakeBoard();
        turn_.reset();
    }
    void TestBody() override {}

    void Live(const Life &life) {
        const XServer::Turn turn(server_);
        // Two sides share a server: each has the keyboard in its turn.
        Display *robot = server_.robot();
        XSetInputFocus(robot, XtWindow(shell), RevertToPointerRoot, CurrentTime);
        XRaiseWindow(robot, XtWindow(shell));
        XSync(robot, False);
        Pump();
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

private:
    XServer &server_;
    std::unique_ptr<XServer::Turn> turn_;
    Client client_;
};

void ExpectNoComplaint() {
    for (const auto &error : Complaints::Current().x_errors)
        ADD_FAILURE() << error.text << ", request " << error.request_code << ", resource 0x"
                      << std::hex << error.resource;
    for (const auto &warning : Complaints::Current().warnings)
        ADD_FAILURE() << warning;
    Complaints::Current() = {};
}

// All classes in turn, each on all sides, there and back; drags are the toolkit's, which has one at a time.
void LiveAll(const std::vector<Side *> &sides, bool display_was_closed = false) {
    for (const Life &life : lives) {
        if (life.share < 100)
            continue;
        SCOPED_TRACE(life.name);
        for (int round = 0; round < 2; round++) {
            for (Side *side : sides) {
                side->display_was_closed = display_was_closed;
                side->Live(life);
            }
        }
        ExpectNoComplaint();
    }
}

} // namespace

// What a class keeps for the whole process would be another display's: an X error, or a resource that stays
// behind. All displays are opened before one is closed: to one that comes to lie at the same address the toolkit
// gives pixmaps of the other.
TEST(TwoDisplays, LiveSideBySideAndOneOutlivesTheOther) {
    Complaints::Current() = {};
    XServer &near_server = XServer::Instance();
    XServer other_server("900x700x16", 75);
    Side first(near_server);
    Side second(other_server);
    Side third(other_server);
    LiveAll({&first, &second, &third});
    const ServerResources before = first.Resources();
    LiveAll({&second, &third});
    EXPECT_EQ(first.Resources(), before);
    second.Close();
    LiveAll({&first, &third}, true);
    first.Close();
    LiveAll({&third}, true);
    third.Close();
}

} // namespace corvidlmw::test
