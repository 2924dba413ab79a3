/* Measures how LmList and the toolkit's XmList select, on a private X server, and prints a table and whether
 * the goals are met. */

#include <bench/list-selection/Cases.h>
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
#include <string_view>
#include <tuple>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr int sizes[] = {1000, 10000, 100000};
constexpr const char *classes[] = {"LmList", "XmList"};
constexpr std::chrono::seconds patience{300};

// All toggles are too long for callgrind.
constexpr std::string_view too_long = "toggle-many";

constexpr const char *legend = R"(
A scrolled list with 40 rows in view and a selection callback; times and numbers are those of one action.
select        another row of a browse list, with notice, far from the last one
toggle        a row of a multiple list, with notice: 10 of them
toggle-many   the same, 10,000 of them
extend-all    a click on the first row, and one with Shift on the last
select-all    by the key
selected-few  the positions of the 10 rows that are selected
selected-all  the positions of all rows
by-string     the last row, found by its string, with notice
-: not measured
)";

// No number stands where nothing was measured.
struct Cost {
    double seconds = NAN; // of the CPU
    double instructions = NAN;
    double requests = NAN;
    double round_trips = NAN;
};

using Key = std::tuple<std::string, int, std::string>; // class, rows, case
using Results = std::map<Key, Cost>;

int TimesOf(std::string_view case_name) {
    return case_name == "select"                                    ? 100
           : case_name == "extend-all" || case_name == "select-all" ? 1
                                                                    : 10;
}

bool MeasureTimes(Results &results, const std::string &program, const char *list, int rows) {
    const Output output = RunProgram({program, list, std::to_string(rows), "all"}, patience);
    for (const std::string &line : output.lines) {
        std::istringstream stream(line);
        std::string name;
        Cost cost;
        if (stream >> name >> cost.seconds >> cost.requests >> cost.round_trips) {
            results[{list, rows, name}] = cost;
        }
    }
    return !output.failed;
}

bool MeasureInstructions(Results &results, const std::string &program, const char *list, int rows) {
    for (const char *name : case_names) {
        if (name == too_long) {
            continue;
        }
        const auto counted =
            CountInstructions({program, list, std::to_string(rows), name}, patience);
        if (!counted) {
            return false;
        }
        const auto found = counted->find(name);
        if (found != counted->end()) {
            results[{list, rows, name}].instructions = found->second / TimesOf(name);
        }
    }
    return true;
}

bool MeasureAll(Results &results, const std::string &program) {
    for (const int rows : sizes) {
        for (const char *list : classes) {
            std::cerr << "bench: " << list << ", " << rows << " rows\n";
            if (!MeasureTimes(results, program, list, rows) ||
                !MeasureInstructions(results, program, list, rows)) {
                return false;
            }
        }
    }
    return true;
}

void PrintNumber(int width, int digits, double number) {
    if (std::isnan(number)) {
        std::printf(" %*s", width, "-");
    } else {
        std::printf(" %*.*f", width, digits, number);
    }
}

void PrintTable(Results &results) {
    std::printf("%-13s %-6s %7s %11s %13s %9s %6s\n", "case", "list", "rows", "cpu us",
                "instructions", "requests", "trips");
    for (const char *name : case_names) {
        for (const int rows : sizes) {
            for (const char *list : classes) {
                const Cost cost = results[{list, rows, name}];
                std::printf("%-13s %-6s %7d", name, list, rows);
                PrintNumber(11, 1, cost.seconds * 1e6);
                PrintNumber(13, 0, cost.instructions);
                PrintNumber(9, 1, cost.requests);
                PrintNumber(6, 1, cost.round_trips);
                std::putchar('\n');
            }
        }
    }
    std::fputs(legend, stdout);
}

double Share(Results &results, const char *name, double Cost::*field) {
    return results[{"LmList", 100000, name}].*field / results[{"XmList", 100000, name}].*field;
}

void PrintGoals(Results &results) {
    std::printf("\nLmList : XmList, 100000 rows\n");
    PrintVerdict("select: CPU", Share(results, "select", &Cost::seconds), 0.05);
    PrintVerdict("select: instructions", Share(results, "select", &Cost::instructions), 0.05);
    PrintVerdict("toggle-many: CPU", Share(results, "toggle-many", &Cost::seconds), 0.2);
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path() /
                         "bench-list-selection-subject";
    Results results;
    if (!MeasureAll(results, program.string())) {
        std::cerr << "bench: a measurement failed\n";
        return EXIT_FAILURE;
    }
    PrintTable(results);
    PrintGoals(results);
    return EXIT_SUCCESS;
}
