/* Takes a list of one class with one number of rows through some cases, several times unless told "once",
 * and writes a line for each case:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS BYTES
 *
 * of the process's CPU time, the median, of what was sent and waited for, and of memory that the process
 * now has more. Under callgrind with --collect-atstart=no each case leaves a profile of its own. */

#include <bench/list/Cases.h>
#include <bench/list/Session.h>
#include <bench/support/Costs.h>

#include <tests/support/Interpose.h>
#include <tests/support/Traffic.h>

#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// In the order of the titles.
struct Case {
    void (Session::*prepare)(); // not measured
    void (Session::*ready)();   // nor this but for the memory, as restore is
    void (Session::*act)();
    void (Session::*restore)() = nullptr;
    bool repeats = false; // without being prepared anew
};

constexpr Case cases[] = {
    {&Session::Empty, &Session::MakeRows, &Session::SetItems, &Session::FreeRows},
    {&Session::Empty, &Session::MakeRows, &Session::AddAtOnce, &Session::FreeRows},
    {&Session::Fill, &Session::MakeOtherRows, &Session::ReplaceAll, &Session::FreeRows},
    {&Session::Fill, &Session::MakeOtherRows, &Session::ReplaceOne, &Session::FreeRows},
    {&Session::Fill, nullptr, &Session::DeleteAll},
    {&Session::Fill, nullptr, &Session::Redraw, nullptr, true},
    {&Session::Fill, nullptr, &Session::PressArrow, &Session::ReleaseArrow, true},
    {&Session::Fill, nullptr, &Session::SetNextPosition, nullptr, true},
    {&Session::Empty, &Session::MakeRows, &Session::AddEach, &Session::FreeRows},
    {&Session::Fill, nullptr, &Session::DeleteFront},
};
static_assert(std::size(cases) == std::size(case_titles));

struct Cost {
    std::vector<double> seconds;
    long requests = 0;
    long round_trips = 0;
    long bytes = 0;
};

void Do(Session &session, void (Session::*what)()) {
    if (what) {
        (session.*what)();
    }
}

// The last time counts: by then all that is made once is there. Of the client's strings the list keeps
// what it needs.
void ActOnce(const Case &one, Session &session, Cost &cost, test::RequestCounter &counter) {
    const long bytes = AllocatedBytes();
    Do(session, one.ready);
    counter.Restart();
    const double start = CpuSeconds();
    CALLGRIND_TOGGLE_COLLECT;
    (session.*one.act)();
    CALLGRIND_TOGGLE_COLLECT;
    cost.seconds.push_back(CpuSeconds() - start);
    cost.requests = counter.requests();
    cost.round_trips = counter.round_trips();
    Do(session, one.restore);
    cost.bytes = AllocatedBytes() - bytes;
}

Cost Measure(const ClientDesk &desk, const Case &one, Session &session, int times) {
    test::RequestCounter counter(desk.display);
    Cost cost;
    for (int time = 0; time < times; time++) {
        if (time == 0 || !one.repeats) {
            Do(session, one.prepare);
        }
        test::interpose::SyncUnseen(desk.display);
        ActOnce(one, session, cost, counter);
    }
    return cost;
}

int TimesFor(int rows, const Case &one, const CaseTitle &title) {
    constexpr int rows_in_all = 30000;
    if (one.repeats) {
        return 9;
    }
    return title.by_row ? 1 : std::clamp(rows_in_all / rows, 1, 9);
}

bool IsWanted(std::string_view which, const CaseTitle &title, const Session &session) {
    const bool named = which == title.name || (which == "at-once" && !title.by_row);
    return named && (session.scrolled() || !title.needs_bar);
}

void RunCases(const ClientDesk &desk, Session &session, std::string_view which, int rows,
              bool once) {
    for (std::size_t i = 0; i < std::size(cases); i++) {
        if (!IsWanted(which, case_titles[i], session)) {
            continue;
        }
        const int times = once ? 1 : TimesFor(rows, cases[i], case_titles[i]);
        const Cost cost = Measure(desk, cases[i], session, times);
        if (once) {
            CALLGRIND_DUMP_STATS_AT(case_titles[i].name);
        }
        std::printf("%s %.9f %ld %ld %ld\n", case_titles[i].name, Median(cost.seconds),
                    cost.requests, cost.round_trips, cost.bytes);
        // The reader may lose patience with what comes next.
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char **argv) {
    const ListCalls *calls = argc == 6 ? FindListCalls(argv[1]) : nullptr;
    const int rows = calls ? std::atoi(argv[3]) : 0;
    if (rows < 1) {
        std::fprintf(stderr, "usage: bench-list-subject LmList|XmList plain|scrolled ROWS "
                             "CASE|at-once once|often\n");
        return 2;
    }
    const bool scrolled = std::string_view(argv[2]) == "scrolled";
    const bool once = std::string_view(argv[5]) == "once";
    const ClientDesk desk = OpenDesk();
    {
        // What is made once for a display or a class costs nothing here.
        Session first(desk, *calls, scrolled, 2 * rows_in_view);
        for (std::size_t i = 0; i < std::size(cases); i++) {
            if (scrolled || !case_titles[i].needs_bar) {
                Measure(desk, cases[i], first, 1);
            }
        }
    }
    CALLGRIND_ZERO_STATS;
    Session session(desk, *calls, scrolled, rows);
    RunCases(desk, session, argv[4], rows, once);
    return EXIT_SUCCESS;
}
