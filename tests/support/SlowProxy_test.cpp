#include <tests/support/Harness.h>

#include <Xm/PushB.h>

namespace corvidlmw::test {
namespace {

using std::chrono::milliseconds;

class SlowProxyTest : public DisplayTest {};

TEST_F(SlowProxyTest, ARoundTripTakesItsTimeAndIsCounted) {
    SlowProxy proxy(milliseconds(40));
    Display *slow = XOpenDisplay(proxy.name().c_str());
    ASSERT_TRUE(slow);
    XSync(slow, False);
    const auto before = proxy.figures();
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 3; i++) {
        XNoOp(slow);
        XSync(slow, False);
    }
    EXPECT_GE(std::chrono::steady_clock::now() - start, milliseconds(120));
    EXPECT_EQ(proxy.figures().round_trips - before.round_trips, 3);
    EXPECT_EQ(proxy.figures().requests - before.requests, 6);
    EXPECT_EQ(proxy.figures().bytes_to_server - before.bytes_to_server, 24);
    EXPECT_EQ(proxy.figures().bytes_to_client - before.bytes_to_client, 96);
    XCloseDisplay(slow);
}

TEST_F(SlowProxyTest, AClientWorksThroughItAndBothCountTheSame) {
    SlowProxy proxy;
    UseClient(Client(proxy.name()));
    XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, shell, nullptr);
    const long unseen_before = RequestCounter::UnseenRoundTrips(display);
    const auto before = proxy.figures();
    const RequestCounter counter(display);
    CallbackLog<> log;
    Show();
    log.Add(XtNameToWidget(shell, "button"), XmNactivateCallback);
    Click(XtNameToWidget(shell, "button"), 5, 5);
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_ACTIVATE}));
    const long unseen = RequestCounter::UnseenRoundTrips(display) - unseen_before;
    EXPECT_EQ(proxy.figures().round_trips - before.round_trips, counter.round_trips() + unseen);
    UseClient(Client::Shared());
}

TEST_F(SlowProxyTest, CutAnywhereItIsADeadServer) {
    for (auto direction : {SlowProxy::Direction::to_server, SlowProxy::Direction::to_client}) {
        SlowProxy proxy;
        Display *doomed = XOpenDisplay(proxy.name().c_str());
        ASSERT_TRUE(doomed);
        static int deaths;
        deaths = 0;
        XSetIOErrorHandler([](Display *) { return 0; });
        XSetIOErrorExitHandler(
            doomed, [](Display *, void *) { deaths++; }, nullptr);
        proxy.CutAfter(direction, 70); // in the third request, or reply
        for (int i = 0; i < 40; i++)
            XSync(doomed, False);
        EXPECT_GT(deaths, 0);
        EXPECT_EQ(XOpenDisplay(proxy.name().c_str()), nullptr);
        XCloseDisplay(doomed);
        XSetIOErrorHandler(nullptr);
    }
}

} // namespace
} // namespace corvidlmw::test
