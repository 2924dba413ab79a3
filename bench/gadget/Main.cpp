/* Measures XmvIconGadget beside the toolkit's XmLabelGadget and XmIconGadget, on a private X server, and
 * prints a table and whether the goals are met. */

#include <bench/gadget/Gadgets.h>
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
#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr const char *legend = R"(
For one gadget of all, with a text of 8 letters.
create   not yet managed
lay out  each is asked for its size and put into its place
draw     one exposure
destroy  with the parent
bytes: memory of the client that is there afterwards; trips: waits for the server
looks: all the same, each with margins of its own, each with a foreground of its own
)";

struct Cost {
    double seconds = NAN;
    double instructions = NAN;
    double requests = NAN;
    double round_trips = NAN;
    double bytes = NAN;
};

using Results = std::map<std::string, Cost>; // by case

constexpr std::chrono::seconds patience{600};
constexpr int few = 1000;
constexpr int many = 10000;

// ---- Measuring ---------------------------------------------------------------------------------

struct Setup {
    std::string subject;
    int count;
    std::string looks;
    std::string picture;

    std::vector<std::string> Command(const std::string &program) const {
        return {program, subject, std::to_string(count), looks, picture};
    }
};

bool MeasureTimes(Results &results, const std::string &program, const Setup &setup) {
    const Output output = RunProgram(setup.Command(program), patience);
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

Results Measure(const std::string &program, const Setup &setup) {
    std::cerr << "bench: " << setup.count << ' ' << setup.subject << ", " << setup.looks << ", "
              << setup.picture << '\n';
    Results results;
    const auto instructions = CountInstructions(setup.Command(program), patience);
    if (!MeasureTimes(results, program, setup) || !instructions) {
        std::cerr << "bench: a measurement failed\n";
        std::exit(EXIT_FAILURE);
    }
    for (const auto &[name, count] : *instructions) {
        results[name].instructions = count / setup.count;
    }
    return results;
}

// ---- Printing ----------------------------------------------------------------------------------

void PrintRow(const char *title, const Setup &setup, const Cost &cost) {
    std::printf("%-8s %-14s %9.2f %9.0f %9.2f %7.2f %7.0f\n", title, setup.subject.c_str(),
                cost.seconds * 1e6, cost.instructions, cost.requests, cost.round_trips, cost.bytes);
}

// ---- Comparisons ---------------------------------------------------------------------------------

void CompareEqual(const std::string &program, const std::string &picture) {
    std::map<std::string, Results> all;
    for (const char *subject : {"XmvIconGadget", "XmLabelGadget", "XmIconGadget"}) {
        all[subject] = Measure(program, {subject, many, "equal", picture});
    }
    std::printf("\n%d gadgets that look the same, %s\n%-8s %-14s %9s %9s %9s %7s %7s\n", many,
                picture.c_str(), "case", "gadget", "cpu us", "instr", "requests", "trips", "bytes");
    for (const CaseTitle &one : case_titles) {
        for (auto &[subject, results] : all) {
            PrintRow(one.title, {subject, many, "equal", picture}, results[one.name]);
        }
    }
    auto ratio = [&](const char *name, double Cost::*field) {
        return all["XmvIconGadget"][name].*field / all["XmIconGadget"][name].*field;
    };
    std::printf("\nXmvIconGadget : XmIconGadget\n");
    PrintVerdict("create: instructions", ratio("create", &Cost::instructions), 0.7);
    PrintVerdict("create: memory", ratio("create", &Cost::bytes), 1.0);
    PrintVerdict("draw: requests", ratio("draw", &Cost::requests), 0.6);
}

double Growth(const std::string &program, const char *subject, const char *looks) {
    Results small = Measure(program, {subject, few, looks, "without-picture"});
    Results large = Measure(program, {subject, many, looks, "without-picture"});
    const double exponent =
        1 + std::log10(large["create"].instructions / small["create"].instructions);
    std::printf("%-14s %-8s create: %8.0f instructions of %d, %8.0f of %d; bytes %.0f\n", subject,
                looks, small["create"].instructions, few, large["create"].instructions, many,
                large["create"].bytes);
    return exponent;
}

void CompareGrowth(const std::string &program) {
    std::printf("\nGadgets of many looks\n");
    const double equal = Growth(program, "XmvIconGadget", "equal");
    const double margins = Growth(program, "XmvIconGadget", "margins");
    const double colors = Growth(program, "XmvIconGadget", "colors");
    const double theirs = Growth(program, "XmIconGadget", "margins");
    std::printf("\nGrowth of what all of them cost to create, from %d to %d: exponent\n", few,
                many);
    PrintVerdict("all the same", equal, 1.1);
    PrintVerdict("different margins", margins, 1.1);
    PrintVerdict("different foregrounds", colors, 1.1);
    std::printf("  %-8s %-62s %8.3f\n", "", "XmIconGadget of different margins", theirs);
}

} // namespace

int main() {
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "bench-gadget-subject")
            .string();
    CompareEqual(program, "without-picture");
    CompareEqual(program, "with-picture");
    CompareGrowth(program);
    std::fputs(legend, stdout);
    return EXIT_SUCCESS;
}
