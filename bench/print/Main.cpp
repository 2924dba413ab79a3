/* What writing a graph to paper costs: 5,000 nodes as bytes per second, and what the time grows with
 * when the same nodes are spread over more sheets, or more nodes stand on the same sheets. */

#include <bench/graph-interaction/Desk.h>

#include <tests/support/XServer.h>

#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <unistd.h>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

double CpuMilliseconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

struct Print {
    int nodes = 0;
    int sheets = 0;
    long written = 0; // boxes and arrows
    double megabytes = 0;
    double milliseconds = 0;
};

int Count(const std::string &text, const std::string &part) {
    int count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) {
        count++;
    }
    return count;
}

// The median of some runs.
Print Measure(const Desk &desk, const std::filesystem::path &file) {
    std::vector<double> times;
    for (int i = 0; i < 9; i++) {
        const double start = CpuMilliseconds();
        XmGraphPrint(desk.graph(), file.c_str());
        times.push_back(CpuMilliseconds() - start);
    }
    std::nth_element(times.begin(), times.begin() + 4, times.end());
    std::ifstream in(file);
    const std::string text((std::istreambuf_iterator<char>(in)), {});
    return {.nodes = static_cast<int>(desk.nodes().size()),
            .sheets = Count(text, "\nshowpage\n"),
            .written = Count(text, " square\n") + Count(text, " arrow\n"),
            .megabytes = static_cast<double>(text.size()) / 1e6,
            .milliseconds = times[4]};
}

// The nodes in rows of twenty, these distances apart. The arcs between neighbours go along.
void Spread(const Desk &desk, int step_x, int step_y) {
    int i = 0;
    for (Widget node : desk.nodes()) {
        XmGraphMoveNodeQuietly(desk.graph(), node, static_cast<Position>(i % 20 * step_x),
                               static_cast<Position>(i / 20 * step_y));
        i++;
    }
}

void Report(const char *what, const Print &print) {
    std::printf("%-22s %6d %7d %9ld %8.2f %8.1f %8.1f %12.2f\n", what, print.nodes, print.sheets,
                print.written, print.megabytes, print.milliseconds,
                print.megabytes / print.milliseconds * 1e3,
                print.milliseconds * 1e3 / static_cast<double>(print.written));
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    XtToolkitInitialize();
    const auto file = std::filesystem::temp_directory_path() /
                      ("corvidlmw-bench-" + std::to_string(getpid()) + ".ps");
    std::printf("%-22s %6s %7s %9s %8s %8s %8s %12s\n", "graph", "nodes", "sheets", "figures", "MB",
                "CPU ms", "MB/s", "us/figure");
    for (int nodes : {500, 1000, 2000, 5000}) {
        const Desk desk(nodes);
        Spread(desk, 100, 45);
        Report("100 by 45 apart", Measure(desk, file));
    }
    const Desk desk(5000);
    std::vector<Print> spread;
    for (const auto &[step_x, step_y] : {std::pair{100, 45}, {400, 60}, {800, 90}, {1600, 125}}) {
        Spread(desk, step_x, step_y);
        spread.push_back(Measure(desk, file));
        Report((std::to_string(step_x) + " by " + std::to_string(step_y) + " apart").c_str(),
               spread.back());
    }
    std::filesystem::remove(file);
    const Print &dense = spread.front();
    const Print &wide = spread.back();
    const double figures = static_cast<double>(wide.written) / static_cast<double>(dense.written);
    const double time = wide.milliseconds / dense.milliseconds;
    std::printf("%.0f times the sheets, %.2f times the figures on them: %.2f times the CPU time "
                "(goal: no more than the figures) %s\n",
                static_cast<double>(wide.sheets) / dense.sheets, figures, time,
                time <= figures ? "met" : "MISSED");
    return EXIT_SUCCESS;
}
