/* What the overview of graphs of several sizes costs: a full repaint, and one step of a scroll. */

#include <bench/graph-interaction/Desk.h>

#include <tests/support/Traffic.h>
#include <tests/support/XServer.h>

#include <Xm/ScrollBar.h>
#include <X11/IntrinsicP.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr int sizes[] = {500, 1000, 2000, 5000};

struct Cost {
    double microseconds = 0;
    double requests = 0;
    double round_trips = 0;
};

double CpuMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// The median of several rounds of `steps` steps; `between` is not measured.
Cost Measure(
    Desk &desk, int steps, const std::function<void(int)> &step,
    const std::function<void(int)> &between = [](int) {}) {
    constexpr int rounds = 7;
    std::vector<double> times;
    Cost cost;
    for (int round = 0; round < rounds; round++) {
        cost = {};
        for (int i = 0; i < steps; i++) {
            between(i);
            const test::RequestCounter counter(desk.display());
            const double start = CpuMicroseconds();
            step(i);
            XFlush(desk.display());
            cost.microseconds += (CpuMicroseconds() - start) / steps;
            cost.requests += static_cast<double>(counter.requests()) / steps;
            cost.round_trips += static_cast<double>(counter.round_trips()) / steps;
        }
        times.push_back(cost.microseconds);
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    cost.microseconds = times[rounds / 2];
    return cost;
}

// ---- The overview ------------------------------------------------------------------------------------

Widget ShowOverview(Desk &desk) {
    Widget shell = XtVaAppCreateShell("overview", "Bench", topLevelShellWidgetClass, desk.display(),
                                      XmNx, 0, XmNy, 0, XmNwidth, 300, XmNheight, 400,
                                      XmNoverrideRedirect, True, nullptr);
    Widget overview = XmGraphCreateOverView(desk.graph(), shell);
    XtManageChild(overview);
    XtRealizeWidget(shell);
    desk.Pump();
    return overview;
}

void DispatchExposure(Widget overview) {
    XEvent event{};
    event.type = Expose;
    event.xexpose.display = XtDisplay(overview);
    event.xexpose.window = XtWindow(overview);
    event.xexpose.width = 300;
    event.xexpose.height = 400;
    XtDispatchEvent(&event);
}

// Up and down: far enough that the frame moves at any size, and both within the smallest graph.
int PlaceOf(int step) {
    return step % 2 ? 100 : 250;
}

void Scroll(Desk &desk, int step) {
    Widget scrolled = XtParent(XtParent(desk.graph()));
    Widget bar = nullptr;
    XtVaGetValues(scrolled, XmNverticalScrollBar, &bar, nullptr);
    int value = 0;
    int slider_size = 0;
    int increment = 0;
    int page_increment = 0;
    XmScrollBarGetValues(bar, &value, &slider_size, &increment, &page_increment);
    XmScrollBarSetValues(bar, PlaceOf(step), slider_size, increment, page_increment, True);
}

void TellScroll(Desk &desk) {
    XmGraphCallbackStruct call_data{};
    call_data.reason = XmCR_GRAPH_SCROLLED;
    XtCallCallbacks(desk.graph(), const_cast<char *>(XmNgraphChangedCallback), &call_data);
}

// ---- Cases ----------------------------------------------------------------------------------------------

struct Costs {
    int nodes = 0;
    int arcs = 0;
    Cost scroll_without, scroll_with, scroll_share, repaint;
};

Costs MeasureSize(int nodes) {
    Desk desk(nodes);
    Costs costs;
    costs.nodes = nodes;
    costs.arcs = static_cast<int>(desk.arcs().size());
    auto scroll = [&](int i) {
        Scroll(desk, i);
        desk.Pump();
    };
    costs.scroll_without = Measure(desk, 20, scroll);
    Widget overview = ShowOverview(desk);
    costs.scroll_with = Measure(desk, 20, scroll);
    // The overview's part alone: the graph stands elsewhere, and the overview is told.
    costs.scroll_share = Measure(
        desk, 300, [&](int) { TellScroll(desk); },
        [&](int i) {
            XtMoveWidget(desk.graph(), 0, static_cast<Position>(-PlaceOf(i)));
            desk.Pump();
        });
    costs.repaint = Measure(desk, 20, [&](int) { DispatchExposure(overview); });
    XtDestroyWidget(XtParent(overview));
    return costs;
}

void Print(const char *name, const Costs &costs, const Cost &cost) {
    std::printf("%-16s %6d %6d %12.1f %10.1f %8.2f\n", name, costs.nodes, costs.arcs,
                cost.microseconds, cost.requests, cost.round_trips);
}

const char *Verdict(bool met) {
    return met ? "met" : "MISSED";
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    XtToolkitInitialize();
    std::vector<Costs> all;
    for (int nodes : sizes) {
        all.push_back(MeasureSize(nodes));
    }
    std::printf("%-16s %6s %6s %12s %10s %8s\n", "step", "nodes", "arcs", "CPU us", "requests",
                "trips");
    for (const Costs &costs : all) {
        Print("repaint", costs, costs.repaint);
        Print("scroll-share", costs, costs.scroll_share);
        Print("scroll-with", costs, costs.scroll_with);
        Print("scroll-without", costs, costs.scroll_without);
    }
    std::printf(
        "repaint          the overview's whole picture after an exposure\n"
        "scroll-share     what the overview does in one scroll step\n"
        "scroll-with      a whole step of the scroll bar with its exposures, the graph's own\n"
        "                 painting included\n"
        "scroll-without   the same without an overview\n");
    for (const Costs &costs : all) {
        const double goal = costs.nodes / 200.0 + costs.arcs / 200.0 + 20;
        std::printf("repaint of %d nodes, %d arcs: %.0f requests (goal: at most %.0f) %s\n",
                    costs.nodes, costs.arcs, costs.repaint.requests, goal,
                    Verdict(costs.repaint.requests <= goal));
    }
    const Cost &small = all.front().scroll_share;
    const Cost &large = all.back().scroll_share;
    std::printf("scroll step at 5,000 nodes / at 500: %.2f in CPU time, %.2f in requests (goal: at "
                "most 1.5) %s\n",
                large.microseconds / small.microseconds, large.requests / small.requests,
                Verdict(large.microseconds <= 1.5 * small.microseconds &&
                        large.requests <= 1.5 * small.requests));
    return EXIT_SUCCESS;
}
