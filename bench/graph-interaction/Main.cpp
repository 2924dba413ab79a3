/* What one step under the user's hands costs in graphs of several sizes: CPU time, requests and waits for
 * the server, and whether a step costs more where there are more nodes elsewhere. */

#include <bench/graph-interaction/Desk.h>

#include <tests/support/Traffic.h>
#include <tests/support/XServer.h>

#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr int sizes[] = {500, 1000, 2000, 5000};

// ---- Cases -------------------------------------------------------------------------------------

struct Case {
    const char *name;
    const char *what;
    int steps;
    void (*prepare)(Desk &);
    void (*step)(Desk &, int);
    void (*finish)(Desk &);
};

void Nothing(Desk &) {}

Position XOf(Widget w) {
    Position x = 0;
    XtVaGetValues(w, XmNx, &x, nullptr);
    return x;
}

Position YOf(Widget w) {
    Position y = 0;
    XtVaGetValues(w, XmNy, &y, nullptr);
    return y;
}

// On the arc between the two nodes to the right of the hub.
void PickArc(Desk &desk, int) {
    Widget from = desk.hub();
    benchmark::DoNotOptimize(XmGraphInputOverArc(desk.graph(), XOf(from) + 85, YOf(from) + 12));
}

void PickNothing(Desk &desk, int) {
    benchmark::DoNotOptimize(XmGraphInputOverArc(desk.graph(), 2, 2));
}

void GrabHub(Desk &desk) {
    desk.Press(2, XOf(desk.hub()) + 5, YOf(desk.hub()) + 5);
}

void DragHub(Desk &desk, int i) {
    desk.Drag(2, 930 + i % 7 * 5, 390 + i % 5 * 4);
    desk.Pump();
}

void DropHub(Desk &desk) {
    desk.Release(2, 930, 390);
    desk.Pump();
}

void Deselect(Desk &desk) {
    desk.Press(1, 2, 2);
    desk.Release(1, 2, 2);
    desk.Pump();
}

void SweepAll(Desk &desk, int) {
    desk.Press(1, 2, 2);
    desk.Drag(1, 16000, 16000);
    desk.Release(1, 16000, 16000);
    desk.Pump();
}

void SelectAll(Desk &desk, int) {
    std::vector<Widget> nodes = desk.nodes();
    std::vector<Widget> arcs = desk.arcs();
    XmGraphSelectNodes(desk.graph(), nodes.data(), static_cast<int>(nodes.size()), True);
    XmGraphSelectArcs(desk.graph(), arcs.data(), static_cast<int>(arcs.size()), True);
    desk.Pump();
}

constexpr Case cases[] = {
    {"pick-arc", "XmGraphInputOverArc on an arc", 500, Nothing, PickArc, Nothing},
    {"pick-nothing", "XmGraphInputOverArc where no box is", 500, Nothing, PickNothing, Nothing},
    {"drag-step", "one motion of a node with 10 arcs, and its exposures", 400, GrabHub, DragHub,
     DropHub},
    {"sweep-all", "press, sweep over everything, release", 5, Nothing, SweepAll, Deselect},
    {"select-all", "all nodes, then all arcs, by function", 5, Nothing, SelectAll, Deselect},
};

// ---- Measuring ---------------------------------------------------------------------------------

struct Cost {
    double microseconds = 0;
    double requests = 0;
    double round_trips = 0;
};
using Costs = std::map<std::pair<std::string, int>, Cost>;

void Measure(benchmark::State &state, const Case &one, Desk &desk) {
    one.prepare(desk);
    one.step(desk, 0); // the first fills what later ones find
    test::RequestCounter counter(desk.display());
    int i = 0;
    for ([[maybe_unused]] auto _ : state) {
        one.step(desk, ++i);
    }
    state.counters["requests"] = static_cast<double>(counter.requests()) / one.steps;
    state.counters["round_trips"] = static_cast<double>(counter.round_trips()) / one.steps;
    one.finish(desk);
}

class Collector final : public benchmark::BenchmarkReporter {
public:
    Collector(Costs &costs, int nodes) : costs_(costs), nodes_(nodes) {}
    bool ReportContext(const Context &) override { return true; }
    void ReportRuns(const std::vector<Run> &runs) override {
        for (const Run &run : runs) {
            costs_[{run.run_name.function_name, nodes_}] = {
                run.cpu_accumulated_time * 1e6 / static_cast<double>(run.iterations),
                run.counters.at("requests").value, run.counters.at("round_trips").value};
        }
    }

private:
    Costs &costs_;
    int nodes_;
};

void MeasureSize(Costs &costs, int nodes) {
    Desk desk(nodes);
    benchmark::ClearRegisteredBenchmarks();
    for (const Case &one : cases) {
        benchmark::RegisterBenchmark(one.name,
                                     [&](benchmark::State &state) { Measure(state, one, desk); })
            ->Iterations(one.steps)
            ->MeasureProcessCPUTime();
    }
    Collector collector(costs, nodes);
    benchmark::RunSpecifiedBenchmarks(&collector);
}

// ---- Report ------------------------------------------------------------------------------------

void PrintTable(const Costs &costs) {
    std::printf("%-14s %6s %12s %10s %8s\n", "step", "nodes", "CPU us", "requests", "trips");
    for (const Case &one : cases) {
        for (int nodes : sizes) {
            const Cost &cost = costs.at({one.name, nodes});
            std::printf("%-14s %6d %12.1f %10.1f %8.2f\n", one.name, nodes, cost.microseconds,
                        cost.requests, cost.round_trips);
        }
    }
    for (const Case &one : cases) {
        std::printf("%-14s %s\n", one.name, one.what);
    }
}

void PrintGoals(const Costs &costs) {
    const double ratio =
        costs.at({"drag-step", 5000}).microseconds / costs.at({"drag-step", 500}).microseconds;
    std::printf("drag step at 5,000 nodes / at 500: %.2f (goal: at most 1.5) %s\n", ratio,
                ratio <= 1.5 ? "met" : "MISSED");
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    XtToolkitInitialize();
    Costs costs;
    for (int nodes : sizes) {
        MeasureSize(costs, nodes);
    }
    PrintTable(costs);
    PrintGoals(costs);
    return EXIT_SUCCESS;
}
