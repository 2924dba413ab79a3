/* Takes one subject with one number of children through all cases, several times unless told "once",
 * and writes a line for each case:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS
 *
 * of the process's CPU time, the median, and of what was sent and waited for. Under callgrind with
 * --collect-atstart=no each case leaves a profile of its own. */

#include <bench/managers/Subject.h>
#include <bench/support/ClientDesk.h>
#include <bench/support/Costs.h>

#include <tests/support/Traffic.h>

#include <X11/IntrinsicP.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <string>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// ---- Cases -------------------------------------------------------------------------------------

struct Session {
    const ClientDesk &desk;
    Subject &subject;
    int count;
    bool wide = false;
};

bool Create(Session &session) {
    session.subject.Create(session.desk.parent, session.count);
    return true;
}

// The manager is on the screen, still without children.
void ShowManager(Session &session) {
    XtManageChild(session.subject.manager());
    Pump(session.desk);
}

bool Manage(Session &session) {
    const auto children = session.subject.children();
    XtManageChildren(children.data(), static_cast<Cardinal>(children.size()));
    Pump(session.desk);
    return true;
}

bool Resize(Session &session) {
    session.wide = !session.wide;
    XtResizeWidget(session.subject.manager(), session.wide ? 1100 : 900, session.wide ? 800 : 700,
                   0);
    Pump(session.desk);
    return true;
}

void ResizeAndForget(Session &session) {
    Resize(session);
}

bool Ask(Session &session) {
    session.subject.AskForOtherSize();
    Pump(session.desk);
    return true;
}

bool Drag(Session &session) {
    const bool dragged = session.subject.Drag();
    Pump(session.desk);
    return dragged;
}

bool Destroy(Session &session) {
    XtDestroyWidget(session.subject.manager());
    Pump(session.desk);
    return true;
}

struct Case {
    const char *name;
    void (*prepare)(Session &); // not measured
    bool (*act)(Session &);
    int times; // how often in a session
};

constexpr Case cases[] = {
    {"create", nullptr, Create, 1},
    {"manage", ShowManager, Manage, 1},
    {"resize", ResizeAndForget, Resize, 4},
    {"ask", ResizeAndForget, Ask, 4},
    {"drag", nullptr, Drag, 4},
    {"destroy", nullptr, Destroy, 1},
};

// ---- Measuring ---------------------------------------------------------------------------------

struct Cost {
    std::vector<double> seconds;
    long requests = 0;
    long round_trips = 0;
};

// The last time counts: by then all colours and fonts are there.
void ActOnce(const Case &one, Session &session, Cost &cost, test::RequestCounter &counter) {
    if (one.prepare) {
        one.prepare(session);
    }
    counter.Restart();
    const double start = CpuSeconds();
    CALLGRIND_TOGGLE_COLLECT;
    const bool done = one.act(session);
    CALLGRIND_TOGGLE_COLLECT;
    if (done) {
        cost.seconds.push_back(CpuSeconds() - start);
        cost.requests = counter.requests();
        cost.round_trips = counter.round_trips();
    }
}

void RunSession(const ClientDesk &desk, std::string_view name, int count, bool once,
                std::span<Cost> costs) {
    // An earlier child may have made it larger than the screen shows.
    XtResizeWidget(desk.parent, desk.shell->core.width, desk.shell->core.height, 0);
    const auto subject = MakeSubject(name);
    Session session{desk, *subject, count};
    test::RequestCounter counter(desk.display);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        for (int time = 0; time < (once ? 1 : cases[i].times); ++time) {
            ActOnce(cases[i], session, costs[i], counter);
        }
        if (once) {
            CALLGRIND_DUMP_STATS_AT(cases[i].name);
        }
    }
}

void Print(const Case &one, Cost &cost) {
    if (cost.seconds.empty()) {
        return;
    }
    std::printf("%s %.9f %ld %ld\n", one.name, Median(cost.seconds), cost.requests,
                cost.round_trips);
}

} // namespace

int main(int argc, char **argv) {
    const int count = argc == 4 ? std::atoi(argv[2]) : 0;
    if (count < 1 || !MakeSubject(argv[1])) {
        std::fprintf(stderr, "usage: bench-managers-subject SUBJECT CHILDREN once|often\n");
        return 2;
    }
    const bool once = std::string_view(argv[3]) == "once";
    const ClientDesk desk = OpenDesk();
    std::vector<Cost> unused(std::size(cases));
    RunSession(desk, argv[1], 4, false,
               unused); // what is made once for a display costs nothing here
    std::vector<Cost> costs(std::size(cases));
    for (int session = 0; session < (once ? 1 : 9); ++session) {
        RunSession(desk, argv[1], count, once, costs);
    }
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        Print(cases[i], costs[i]);
    }
    return EXIT_SUCCESS;
}
