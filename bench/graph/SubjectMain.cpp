/* Takes one subject in one shape and size through all cases, and writes a line for each:
 *
 *     CASE NANOSECONDS REQUESTS ROUND_TRIPS BYTES
 *
 * of the process's CPU time, of what was sent and waited for, and of memory that it now has more. With
 * "once" each case is done one single time, and under callgrind with --collect-atstart=no leaves a profile
 * of its own. */

#include <bench/graph/Cases.h>
#include <bench/support/Costs.h>

#include <tests/support/Traffic.h>

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string_view>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

struct Request {
    std::string subject;
    Shape shape;
    bool once = false;
    bool teardown = true;
};

struct Counts {
    long requests = 0;
    long round_trips = 0;
    long bytes = 0;
};

// What is made once for a display or a class is no cost of a node.
void WarmUp(Desk &desk, const Request &request) {
    constexpr int few = 8;
    Session session(desk, request.subject, MakeShape(request.shape.name, few));
    for (const Case &one : Cases()) {
        session.BringTo(one.needs);
        if (one.prepare) {
            one.prepare(session);
        }
        one.act(session);
        if (one.restore) {
            one.restore(session);
        }
    }
}

// ---- Measuring ---------------------------------------------------------------------------------

int Iterations(const Case &one, const Request &request) {
    constexpr int nodes_in_all = 4000;
    constexpr int most = 100;
    if (request.once || request.shape.nodes > nodes_in_all) {
        return 1;
    }
    return std::min(nodes_in_all * one.repeat / request.shape.nodes, most);
}

bool ActUnderCallgrind(const Case &one, Session &session) {
    CALLGRIND_TOGGLE_COLLECT;
    const bool done = one.act(session);
    CALLGRIND_TOGGLE_COLLECT;
    return done;
}

// The clock runs when it begins and when it ends.
bool ActOnce(benchmark::State &state, const Case &one, Session &session, Counts &counts,
             test::RequestCounter &counter) {
    state.PauseTiming();
    session.BringTo(one.needs);
    if (one.prepare) {
        one.prepare(session);
    }
    const long bytes = AllocatedBytes();
    counter.Restart();
    state.ResumeTiming();
    const bool done = ActUnderCallgrind(one, session);
    state.PauseTiming();
    counts = {counter.requests(), counter.round_trips(), AllocatedBytes() - bytes};
    if (one.restore) {
        one.restore(session);
    }
    state.ResumeTiming();
    return done;
}

void Measure(benchmark::State &state, const Case &one, Session &session,
             test::RequestCounter &counter) {
    // The first time counts: later ones find memory that an earlier one left in the toolkit's and the
    // widgets' own pools.
    Counts counts;
    Counts later;
    bool first = true;
    for ([[maybe_unused]] auto _ : state) {
        if (!ActOnce(state, one, session, first ? counts : later, counter)) {
            state.SkipWithError("the widget has no such case");
            break;
        }
        first = false;
    }
    CALLGRIND_DUMP_STATS_AT(one.name);
    state.counters["requests"] = static_cast<double>(counts.requests);
    state.counters["round_trips"] = static_cast<double>(counts.round_trips);
    state.counters["bytes"] = static_cast<double>(counts.bytes);
}

class LineReporter final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context &) override { return true; }

    // Each line goes out at once: the reader may lose patience with what comes after it.
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                continue;
            }
            auto counter = [&](const char *name) { return run.counters.at(name).value; };
            std::printf("%s %.0f %.0f %.0f %.0f\n", run.run_name.function_name.c_str(),
                        run.cpu_accumulated_time * 1e9 / static_cast<double>(run.iterations),
                        counter("requests"), counter("round_trips"), counter("bytes"));
            std::fflush(stdout);
        }
    }
};

// One session goes through all cases, since most of the time of a run is building and tearing down.
void MeasureAll(const Desk &desk, Session &session, const Request &request) {
    test::RequestCounter counter(desk.display);
    for (const Case &one : Cases()) {
        if (!request.teardown && one.ends) {
            continue;
        }
        benchmark::RegisterBenchmark(
            one.name, [&](benchmark::State &state) { Measure(state, one, session, counter); })
            ->Iterations(Iterations(one, request))
            ->MeasureProcessCPUTime();
    }
    LineReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
}

// ---- Arguments ---------------------------------------------------------------------------------

[[noreturn]] void Usage() {
    std::fprintf(stderr, "usage: bench-graph-subject SUBJECT SHAPE NODES once|often "
                         "teardown|no-teardown\n");
    std::exit(2);
}

// Which of the two words it is.
bool IsFirst(std::string_view word, std::string_view first, std::string_view second) {
    if (word != first && word != second) {
        Usage();
    }
    return word == first;
}

Request RequestFrom(std::span<char *> arguments) {
    if (arguments.size() != 6 || !MakeSubject(arguments[1])) {
        Usage();
    }
    const int nodes = std::atoi(arguments[3]);
    Request request{.subject = arguments[1],
                    .shape = MakeShape(arguments[2], nodes),
                    .once = IsFirst(arguments[4], "once", "often"),
                    .teardown = IsFirst(arguments[5], "teardown", "no-teardown")};
    if (nodes < 2 || request.shape.edges.empty()) {
        Usage();
    }
    return request;
}

} // namespace

// Without teardown nothing is destroyed at the end, either.
int main(int argc, char **argv) {
    const Request request = RequestFrom({argv, static_cast<std::size_t>(argc)});
    Desk desk;
    WarmUp(desk, request);
    Session session(desk, request.subject, request.shape);
    MeasureAll(desk, session, request);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}
