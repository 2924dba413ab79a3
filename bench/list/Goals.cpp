#include <bench/list/Goals.h>

#include <bench/support/Verdict.h>

namespace corvidlmw::bench {

namespace {

// Ours to theirs, or as it grows from one number of rows to another.
struct Goal {
    const char *form;
    int rows;
    const char *case_name;
    const char *what;
    double Cost::*field;
    double limit;
    int fewer_rows = 0;
};

constexpr Goal shares[] = {
    {"plain", 100000, "add-at-once", "instructions", &Cost::instructions, 0.7},
    {"plain", 100000, "add-at-once", "memory", &Cost::bytes, 1.3},
    {"scrolled", 100000, "add-at-once", "instructions", &Cost::instructions, 0.7},
    {"scrolled", 100000, "add-at-once", "memory", &Cost::bytes, 1.3},
    {"scrolled", 30000, "add-each", "CPU", &Cost::seconds, 0.5},
    {"scrolled", 30000, "add-each", "requests", &Cost::requests, 0.3},
    {"plain", 10000, "redraw", "requests", &Cost::requests, 0.9},
    {"scrolled", 10000, "redraw", "requests", &Cost::requests, 0.9},
    {"scrolled", 10000, "scroll-step", "requests", &Cost::requests, 0.7},
    {"scrolled", 10000, "next-position", "requests", &Cost::requests, 0.7},
    {"plain", 30000, "delete-front", "CPU", &Cost::seconds, 0.8},
    {"scrolled", 30000, "delete-front", "CPU", &Cost::seconds, 0.8},
};

constexpr Goal exponents[] = {
    {"scrolled", 10000, "add-each", "instructions", &Cost::instructions, 1.15, 1000},
    {"scrolled", 100000, "add-each", "CPU", &Cost::seconds, 1.15, 10000},
    {"scrolled", 30000, "delete-front", "CPU", &Cost::seconds, 1.2, 1000},
    {"scrolled", 100000, "delete-front", "CPU", &Cost::seconds, 1.2, 10000},
};

constexpr Goal differences[] = {
    {"scrolled", 100000, "scroll-step", "requests", &Cost::requests, 0, 1000},
    {"scrolled", 100000, "next-position", "requests", &Cost::requests, 0, 1000},
};

std::string TitleOf(const Goal &goal) {
    const std::string from = goal.fewer_rows ? std::to_string(goal.fewer_rows) + " to " : "";
    return std::string(goal.form) + ", " + from + std::to_string(goal.rows) + " rows, " +
           goal.case_name + ": " + goal.what;
}

double ValueOf(const Results &results, const Goal &goal, const char *list, int rows) {
    return results.Of({list, goal.form, rows}, goal.case_name).*goal.field;
}

} // namespace

void PrintGoals(const Results &results) {
    std::printf("\nLmList : XmList\n");
    for (const Goal &goal : shares) {
        PrintVerdict(TitleOf(goal),
                     ValueOf(results, goal, "LmList", goal.rows) /
                         ValueOf(results, goal, "XmList", goal.rows),
                     goal.limit);
    }
    std::printf("\nGrowth of LmList: e, where its cost grows as rows^e does\n");
    for (const Goal &goal : exponents) {
        const double growth = ValueOf(results, goal, "LmList", goal.rows) /
                              ValueOf(results, goal, "LmList", goal.fewer_rows);
        PrintVerdict(TitleOf(goal),
                     std::log(growth) / std::log(static_cast<double>(goal.rows) / goal.fewer_rows),
                     goal.limit);
    }
    std::printf("\nMore of it in a longer LmList\n");
    for (const Goal &goal : differences) {
        PrintVerdict(TitleOf(goal),
                     ValueOf(results, goal, "LmList", goal.rows) -
                         ValueOf(results, goal, "LmList", goal.fewer_rows),
                     goal.limit);
    }
}

} // namespace corvidlmw::bench
