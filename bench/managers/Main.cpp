/* Measures the managers beside what a user would pick instead, on a private X server, and prints a
 * table and whether the goals are met. */

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
#include <optional>
#include <sstream>
#include <tuple>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// ---- What is measured ------------------------------------------------------------------------------

struct Family {
    const char *title;
    std::vector<const char *> subjects; // ours first
    std::vector<int> counts;
};

const std::vector<Family> families = {
    {"label gadgets in a table", {"grid", "form-by-position", "row-column"}, {100, 900}},
    {"panes side by side", {"horz-paned-window", "paned-window"}, {3, 30, 100}},
    {"label gadgets in a row", {"spring-box", "form-in-a-row"}, {10, 100}},
    {"label gadgets along the diagonal", {"rubber-board", "form-as-a-stair"}, {10, 100}},
};

constexpr const char *case_names[] = {"create", "manage", "resize", "ask", "drag", "destroy"};

struct Cost {
    double seconds = 0;
    double instructions = 0;
    double requests = 0;
    double round_trips = 0;
};

struct Goal {
    const char *subject, *peer; // the cheapest of several peers, parted by blanks
    int count;
    const char *case_name;
    const char *what;
    double Cost::*field;
    double limit;
};

const std::vector<Goal> goals = {
    {"grid", "form-by-position", 900, "manage", "instructions", &Cost::instructions, 0.6},
    {"grid", "form-by-position", 900, "resize", "instructions", &Cost::instructions, 0.8},
    {"grid", "form-by-position", 900, "ask", "CPU", &Cost::seconds, 0.15},
    {"horz-paned-window", "paned-window", 30, "resize", "instructions", &Cost::instructions, 0.7},
    {"horz-paned-window", "paned-window", 30, "resize", "requests", &Cost::requests, 0.8},
    {"horz-paned-window", "paned-window", 100, "drag", "requests", &Cost::requests, 0.6},
    {"spring-box", "form-in-a-row", 10, "manage", "requests", &Cost::requests, 1.0},
    {"spring-box", "form-in-a-row", 10, "resize", "requests", &Cost::requests, 1.0},
    {"spring-box", "form-in-a-row", 100, "manage", "requests", &Cost::requests, 1.0},
    {"spring-box", "form-in-a-row", 100, "resize", "requests", &Cost::requests, 1.0},
    {"rubber-board", "form-as-a-stair", 10, "manage", "requests", &Cost::requests, 1.0},
    {"rubber-board", "form-as-a-stair", 10, "resize", "requests", &Cost::requests, 1.0},
    {"rubber-board", "form-as-a-stair", 100, "manage", "requests", &Cost::requests, 1.0},
    {"rubber-board", "form-as-a-stair", 100, "resize", "requests", &Cost::requests, 1.0},
};

constexpr const char *legend = R"(
create   the manager and its children, not yet managed
manage   all children in one call, in a manager that is on the screen
resize   the manager becomes larger or smaller
ask      one child asks for another size
drag     one sash, by the pointer
destroy  the manager with all
Each until nothing is left to do. -: there is no such case.
)";

// ---- Measuring -------------------------------------------------------------------------------------

using Key = std::tuple<std::string, int, std::string>; // subject, children, case
using Results = std::map<Key, Cost>;

constexpr std::chrono::seconds patience{180};

std::optional<Cost> Find(const Results &results, const std::string &subject, int count,
                         const std::string &case_name) {
    const auto found = results.find({subject, count, case_name});
    return found == results.end() ? std::nullopt : std::optional(found->second);
}

bool MeasureTimes(Results &results, const std::string &program, const std::string &subject,
                  int count) {
    const Output output = RunProgram({program, subject, std::to_string(count), "often"}, patience);
    for (const std::string &line : output.lines) {
        std::istringstream stream(line);
        std::string name;
        Cost cost;
        if (stream >> name >> cost.seconds >> cost.requests >> cost.round_trips) {
            results[{subject, count, name}] = cost;
        }
    }
    return !output.failed;
}

bool TakeInstructions(Results &results, const std::string &program, const std::string &subject,
                      int count) {
    const auto instructions =
        CountInstructions({program, subject, std::to_string(count), "once"}, patience);
    for (auto &[key, cost] : results) {
        const auto &[of_subject, of_count, name] = key;
        if (instructions && of_subject == subject && of_count == count) {
            const auto found = instructions->find(name);
            cost.instructions = found == instructions->end() ? 0 : found->second;
        }
    }
    return instructions.has_value();
}

std::optional<Results> MeasureAll(const std::string &program) {
    Results results;
    for (const Family &family : families) {
        for (const char *subject : family.subjects) {
            for (const int count : family.counts) {
                std::cerr << "bench: " << subject << ' ' << count << '\n';
                if (!MeasureTimes(results, program, subject, count) ||
                    !TakeInstructions(results, program, subject, count)) {
                    return {};
                }
            }
        }
    }
    return results;
}

// ---- Printing --------------------------------------------------------------------------------------

void PrintRow(const Results &results, const Family &family, const char *case_name, int count) {
    for (const char *subject : family.subjects) {
        const auto cost = Find(results, subject, count, case_name);
        if (cost) {
            std::printf("%-8s %-18s %5d %11.0f %13.0f %9.0f %6.0f\n", case_name, subject, count,
                        cost->seconds * 1e6, cost->instructions, cost->requests, cost->round_trips);
        }
    }
}

void PrintTable(const Results &results) {
    for (const Family &family : families) {
        std::printf("\n%s\n%-8s %-18s %5s %11s %13s %9s %6s\n", family.title, "case", "manager",
                    "n", "cpu us", "instructions", "requests", "trips");
        for (const char *case_name : case_names) {
            for (const int count : family.counts) {
                PrintRow(results, family, case_name, count);
            }
        }
    }
    std::fputs(legend, stdout);
}

double CheapestPeer(const Results &results, const Goal &goal) {
    std::istringstream peers(goal.peer);
    double least = NAN;
    for (std::string peer; peers >> peer;) {
        if (const auto cost = Find(results, peer, goal.count, goal.case_name)) {
            least = std::fmin(least, (*cost).*goal.field);
        }
    }
    return least;
}

void PrintGoals(const Results &results) {
    std::printf("\nOurs : theirs\n");
    for (const Goal &goal : goals) {
        const auto ours = Find(results, goal.subject, goal.count, goal.case_name);
        PrintVerdict(std::string(goal.subject) + " : " + goal.peer + ", " +
                         std::to_string(goal.count) + ", " + goal.case_name + ": " + goal.what,
                     ours ? (*ours).*goal.field / CheapestPeer(results, goal) : NAN, goal.limit);
    }
}

// e in instructions = c * n^e, and the round trips that more children cost.
void PrintGrowth(const Results &results) {
    std::printf("\nGrowth from the fewest to the most children\n");
    for (const Family &family : families) {
        const char *subject = family.subjects.front();
        const int few = family.counts.front();
        const int many = family.counts.back();
        for (const char *case_name : case_names) {
            const auto a = Find(results, subject, few, case_name);
            const auto b = Find(results, subject, many, case_name);
            if (!a || !b) {
                continue;
            }
            const std::string what = std::string(subject) + ", " + case_name;
            if (std::string_view(case_name) == "manage") {
                PrintVerdict(what + ": exponent of the instructions",
                             std::log(b->instructions / a->instructions) /
                                 std::log(static_cast<double>(many) / few),
                             1.1);
            }
            PrintVerdict(what + ": more round trips", b->round_trips - a->round_trips, 0);
        }
    }
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "bench-managers-subject";
    const auto results = MeasureAll(program.string());
    if (!results) {
        std::cerr << "bench: a measurement failed\n";
        return EXIT_FAILURE;
    }
    PrintTable(*results);
    PrintGoals(*results);
    PrintGrowth(*results);
    return EXIT_SUCCESS;
}
