/* Measures LmList beside the toolkit's XmList, on a private X server, and prints a table and whether the
 * goals are met. */

#include <bench/list/Cases.h>
#include <bench/list/Goals.h>
#include <bench/list/Measuring.h>

#include <tests/support/XServer.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr const char *legend = R"(
40 rows are in view, of a width that does not change.
set-items      all rows as the attribute
add-at-once    all rows in one call
replace-all    all rows in one call
replace-one    the one in the middle, out of view
delete-all     all rows in one call
redraw         the whole window was covered
scroll-step    an arrow of the vertical bar is pressed
next-position  another row is put at the top, by a call
add-each       all rows in a call each, at the end
delete-front   all rows in a call each, from the first on
Each until nothing is left to do. -: not measured, or not within the patience.
b/row: memory of the client that is there afterwards, its own strings being freed; trips: waits for the
server
)";

void PrintNumber(int width, int digits, double number) {
    if (std::isnan(number)) {
        std::printf(" %*s", width, "-");
    } else {
        std::printf(" %*.*f", width, digits, number);
    }
}

void PrintRow(const char *case_name, const Combination &one, const Cost &cost) {
    std::printf("%-14s %-8s %-6s %7d", case_name, one.form.c_str(), one.list.c_str(), one.rows);
    PrintNumber(11, 0, cost.seconds * 1e6);
    PrintNumber(12, 0, cost.instructions);
    PrintNumber(9, 0, cost.requests);
    PrintNumber(6, 0, cost.round_trips);
    PrintNumber(7, 1, cost.bytes / one.rows);
    std::putchar('\n');
}

void PrintCase(const Results &results, const CaseTitle &title) {
    for (const char *form : forms) {
        for (const int rows : sizes) {
            for (const char *list : classes) {
                const Combination one{list, form, rows};
                if (!title.needs_bar || one.form == "scrolled") {
                    PrintRow(title.name, one, results.Of(one, title.name));
                }
            }
        }
    }
}

void PrintTable(const Results &results) {
    std::printf("%-14s %-8s %-6s %7s %11s %12s %9s %6s %7s\n", "case", "", "list", "rows", "cpu us",
                "instructions", "requests", "trips", "b/row");
    for (const CaseTitle &title : case_titles) {
        PrintCase(results, title);
    }
    std::fputs(legend, stdout);
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "bench-list-subject";
    const auto results = MeasureAll(program.string());
    if (!results) {
        std::cerr << "bench: a measurement failed\n";
        return EXIT_FAILURE;
    }
    PrintTable(*results);
    PrintGoals(*results);
    return EXIT_SUCCESS;
}
