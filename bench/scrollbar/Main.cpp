/* Measures SvScrollBar beside the toolkit's XmScrollBar, on a private X server, and prints a table and
 * whether the goals are met. */

#include <bench/scrollbar/Bars.h>
#include <bench/support/Process.h>
#include <bench/support/Profiles.h>
#include <bench/support/Verdict.h>

#include <tests/support/XServer.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <sstream>
#include <string>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr const char *legend = R"(
Without a trough picture; all for one bar of 16 by 300 pixels.
create        not yet managed; the attributes of a place, a size and a range are given
first expose  managed in a parent that is on the screen, until nothing is left to do
set values    all four by ...ScrollBarSetValues, without notification
drag step     one motion of the pointer with the slider
repeat step   one firing of the timer, an arrow being pressed
bytes: memory of the client that is there afterwards; trips: waits for the server
)";

struct Cost {
    double seconds = NAN;
    double instructions = NAN;
    double requests = NAN;
    double round_trips = NAN;
    double bytes = NAN;
};

using Results = std::map<std::string, Cost>; // by case

constexpr std::chrono::seconds patience{180};

// ---- Measuring ---------------------------------------------------------------------------------

bool MeasureTimes(Results &results, const std::string &program, const std::string &subject) {
    const Output output = RunProgram({program, subject, "often"}, patience);
    for (const std::string &line : output.lines) {
        std::istringstream stream(line);
        std::string name;
        Cost cost;
        if (stream >> name >> cost.seconds >> cost.requests >> cost.round_trips >> cost.bytes) {
            results[name] = cost;
        }
    }
    return !output.failed;
}

bool TakeInstructions(Results &results, const std::string &program, const std::string &subject) {
    const auto instructions = CountInstructions({program, subject, "once"}, patience);
    for (const CaseTitle &one : case_titles) {
        const auto found =
            instructions ? instructions->find(one.name) : Instructions::const_iterator();
        if (instructions && found != instructions->end()) {
            results[one.name].instructions = found->second / one.bars;
        }
    }
    return instructions.has_value();
}

// ---- Printing ----------------------------------------------------------------------------------

void PrintRow(const char *title, const char *subject, const Cost &cost) {
    std::printf("%-24s %-12s %9.2f %9.0f %9.2f %7.2f %7.0f\n", title, subject, cost.seconds * 1e6,
                cost.instructions, cost.requests, cost.round_trips, cost.bytes);
}

void PrintTable(Results &ours, Results &theirs) {
    std::printf("%-24s %-12s %9s %9s %9s %7s %7s\n", "case", "bar", "cpu us", "instr", "requests",
                "trips", "bytes");
    for (const CaseTitle &one : case_titles) {
        PrintRow(one.title, "SvScrollBar", ours[one.name]);
        PrintRow(one.title, "XmScrollBar", theirs[one.name]);
    }
    std::fputs(legend, stdout);
}

struct Goal {
    const char *case_name;
    const char *what;
    double Cost::*field;
    double limit;
};

constexpr Goal goals[] = {
    {"create", "create: instructions", &Cost::instructions, 0.8},
    {"create", "create: memory", &Cost::bytes, 0.75},
    {"drag-step", "drag step: instructions", &Cost::instructions, 1.0},
    {"drag-step", "drag step: requests", &Cost::requests, 1.0},
    {"set-values", "set values: instructions", &Cost::instructions, 0.6},
};

void PrintGoals(Results &ours, Results &theirs) {
    std::printf("\nSvScrollBar : XmScrollBar\n");
    for (const Goal &goal : goals) {
        PrintVerdict(goal.what,
                     ours[goal.case_name].*goal.field / theirs[goal.case_name].*goal.field,
                     goal.limit);
    }
    std::printf("\nSvScrollBar\n");
    PrintVerdict("set values, same pixel: requests", ours["set-same-pixel"].requests, 0);
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "bench-scrollbar-subject")
            .string();
    Results ours;
    Results theirs;
    for (auto &[results, subject] : {std::pair<Results &, const char *>{ours, "SvScrollBar"},
                                     std::pair<Results &, const char *>{theirs, "XmScrollBar"}}) {
        std::cerr << "bench: " << subject << '\n';
        if (!MeasureTimes(results, program, subject) ||
            !TakeInstructions(results, program, subject)) {
            std::cerr << "bench: a measurement failed\n";
            return EXIT_FAILURE;
        }
    }
    PrintTable(ours, theirs);
    PrintGoals(ours, theirs);
    return EXIT_SUCCESS;
}
