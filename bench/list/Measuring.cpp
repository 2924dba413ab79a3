#include <bench/list/Measuring.h>

#include <bench/list/Cases.h>
#include <bench/support/Process.h>
#include <bench/support/Profiles.h>

#include <algorithm>
#include <iostream>
#include <sstream>
#include <vector>

namespace corvidlmw::bench {

namespace {

// Cases that are not reached by then stay empty.
constexpr std::chrono::seconds patience{240};

// What makes a call for each row takes its time under callgrind, above all where each call draws.
constexpr int largest_counted_add = 10000;
constexpr int largest_counted_delete = 1000;

using Command = std::vector<std::string>;

Command CommandFor(const std::string &program, const Combination &one, const char *which,
                   const char *repetition) {
    return {program, one.list, one.form, std::to_string(one.rows), which, repetition};
}

void Announce(const char *what, const Combination &one, const char *which) {
    std::cerr << "bench: " << what << " of " << one.list << ", " << one.form << ", " << one.rows
              << " rows, " << which << '\n';
}

void TakeLine(Results &results, const Combination &one, const std::string &line) {
    std::istringstream stream(line);
    std::string name;
    Cost cost;
    if (stream >> name >> cost.seconds >> cost.requests >> cost.round_trips >> cost.bytes) {
        results.At(one, name) = cost;
    }
}

bool MeasureTimes(Results &results, const std::string &program, const Combination &one,
                  const char *which) {
    Announce("time", one, which);
    const Output output = RunProgram(CommandFor(program, one, which, "often"), patience);
    for (const std::string &line : output.lines) {
        TakeLine(results, one, line);
    }
    return !output.failed;
}

bool TakeInstructions(Results &results, const std::string &program, const Combination &one,
                      const char *which) {
    Announce("instructions", one, which);
    const auto instructions = CountInstructions(CommandFor(program, one, which, "once"), patience);
    if (!instructions) {
        return false;
    }
    for (const auto &[name, count] : *instructions) {
        results.At(one, name).instructions = count;
    }
    return true;
}

bool IsCounted(const Combination &one, const char *which) {
    const std::string_view group = which;
    return group == "at-once" ||
           one.rows <= (group == "add-each" ? largest_counted_add : largest_counted_delete);
}

bool MeasureOne(Results &results, const std::string &program, const Combination &one) {
    return std::all_of(std::begin(case_groups), std::end(case_groups), [&](const char *which) {
        return MeasureTimes(results, program, one, which) &&
               (!IsCounted(one, which) || TakeInstructions(results, program, one, which));
    });
}

} // namespace

Cost Results::Of(const Combination &one, const std::string &case_name) const {
    const auto found = costs_.find({one, case_name});
    return found == costs_.end() ? Cost{} : found->second;
}

std::optional<Results> MeasureAll(const std::string &subject_program) {
    Results results;
    for (const char *form : forms) {
        for (const int rows : sizes) {
            for (const char *list : classes) {
                if (!MeasureOne(results, subject_program, {list, form, rows})) {
                    return {};
                }
            }
        }
    }
    return results;
}

} // namespace corvidlmw::bench
