// What each class waits for the server, beside the toolkit's nearest one: each on a connection of its own,
// through a proxy that counts by itself. CORVIDLMW_ROUND_TRIP_MS in the environment makes it slow.

#include <tests/conformance/Bed.h>
#include <tests/endurance/Lives.h>

#include <corvidlmw/graph/Graph.h>

#include <X11/keysym.h>
#include <Xm/PushB.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <iomanip>
#include <iostream>

namespace corvidlmw::test {
namespace {

std::chrono::milliseconds RoundTrip() {
    const char *given = std::getenv("CORVIDLMW_ROUND_TRIP_MS");
    return std::chrono::milliseconds(given ? std::atoi(given) : 0);
}

struct Phase {
    const char *name;
    long round_trips = 0;
};

struct Waits {
    std::vector<Phase> phases;
    double seconds = 0;
};

class RoundTrips : public Stage, public ::testing::WithParamInterface<Pair> {
protected:
    void TearDown() override {
        UseClient(Client::Shared());
        Stage::TearDown();
    }

    // A client that has shown some other widget already.
    Waits Measure(Creator create) {
        SlowProxy proxy(RoundTrip());
        UseClient(Client(proxy.name()));
        MakeBoard();
        XtVaCreateManagedWidget("other", xmPushButtonWidgetClass, board, XmNx, 600, nullptr);
        Pump();
        // The first key makes a client look at the keyboard.
        Key(XK_Tab, ControlMask);
        Waits waits;
        const auto start = std::chrono::steady_clock::now();
        Widget subject = nullptr;
        Count(waits, proxy, "first", [&] { Make(create); });
        Count(waits, proxy, "further", [&] { subject = Make(create); });
        Count(waits, proxy, "shown", [&] { Pump(); });
        Count(waits, proxy, "resources", [&] { UseResources(subject); });
        Count(waits, proxy, "input", [&] { UseInput(subject); });
        Count(waits, proxy, "destroyed", [&] { End(*this, subject); });
        waits.seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        FreeIcon();
        // The connection stays, as all of this toolkit's do, and so its widgets end before the proxy.
        UseClient(Client::Shared());
        return waits;
    }

    // Each of the two graphs asks once, for all its nodes that are windows, which events these let through.
    static long PriceOf(const Phase &phase) {
        const bool in_graph = GetParam().our_class == xmGraphWidgetClass || GetParam().is_line;
        return in_graph && phase.name == std::string("shown") ? 2 : 0;
    }

private:
    template <class Act>
    void Count(Waits &waits, const SlowProxy &proxy, const char *name, Act act) {
        const RequestCounter counter(display);
        const long unseen = RequestCounter::UnseenRoundTrips(display);
        const long passed = proxy.figures().round_trips;
        act();
        waits.phases.push_back({name, counter.round_trips()});
        EXPECT_EQ(proxy.figures().round_trips - passed,
                  counter.round_trips() + RequestCounter::UnseenRoundTrips(display) - unseen)
            << name << ": the proxy counts otherwise";
    }

    Widget Make(Creator create) {
        Arg args[] = {
            {Name(XmNx), 10}, {Name(XmNy), 60}, {Name(XmNwidth), 200}, {Name(XmNheight), 150}};
        static_assert(XtNumber(args) == Bed::place_settings);
        Widget w = create(board, Name("subject"), args, XtNumber(args));
        XtManageChild(w);
        return w;
    }

    void UseResources(Widget w) {
        if (!GetParam().is_line)
            UseCommonResources(w);
        Set(w, {{XmNwidth, 150}, {XmNheight, 100}});
        Pump();
    }

    void UseInput(Widget w) {
        Widget canvas = GetParam().is_line ? XtParent(w) : w;
        const XPoint middle = Middle(canvas);
        Click(canvas, middle.x, middle.y);
        Drag(canvas, middle, {3, 3});
        Click(canvas, middle.x, middle.y, Button1, ControlMask);
        if (!GetParam().is_line)
            UseKeyboard(*this, w);
    }
};

void PrintHead() {
    [[maybe_unused]] static const bool once = [] {
        std::cout
            << "| Class | First | Further | Shown | Resources | Input | Destroyed | Seconds |\n"
               "|---|---:|---:|---:|---:|---:|---:|---:|\n";
        return true;
    }();
}

void Print(const char *name, const Waits &waits) {
    PrintHead();
    std::cout << "| " << name;
    for (const Phase &phase : waits.phases)
        std::cout << " | " << phase.round_trips;
    std::cout << " | " << std::fixed << std::setprecision(1) << waits.seconds << " |\n";
}

} // namespace

TEST_P(RoundTrips, NotMoreThanTheToolkitsOwnClassNeeds) {
    const Waits toolkits = Measure(GetParam().toolkits);
    const Waits ours = Measure(GetParam().ours);
    Print(GetParam().name, ours);
    Print(GetParam().toolkits_class->core_class.class_name, toolkits);
    for (std::size_t i = 0; i < ours.phases.size(); i++)
        EXPECT_LE(ours.phases[i].round_trips,
                  toolkits.phases[i].round_trips + PriceOf(ours.phases[i]))
            << ours.phases[i].name;
}

INSTANTIATE_TEST_SUITE_P(Each, RoundTrips, ::testing::ValuesIn(pairs),
                         [](const auto &instance) { return instance.param.name; });

} // namespace corvidlmw::test
