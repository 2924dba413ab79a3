#include <bench/graph/Measuring.h>

#include <bench/support/Process.h>
#include <bench/support/Profiles.h>

#include <iostream>
#include <sstream>

namespace corvidlmw::bench {

namespace {

using std::chrono::seconds;

constexpr int usual = 1000;
constexpr int large = 5000;

// Where a cost explodes the table stays empty from that case on.
constexpr seconds patience{60};

struct Plan {
    std::vector<Combination> timed;
    std::vector<Combination> counted; // under callgrind
};

// XmTree and XmContainer show no node that has two parents. The largest chain of XmTree, and peers of
// that size under callgrind, take too long to be of use.
Plan MakePlan() {
    Plan plan;
    for (const std::string_view shape : shapes) {
        for (const int nodes : sizes) {
            for (const std::string_view subject : {"graph", "graph-windows", "tree", "container"}) {
                const bool ours = subject.starts_with("graph");
                const bool chain_of_tree = subject == "tree" && shape == "chain";
                if ((!ours && shape == "dag") || (chain_of_tree && nodes >= large)) {
                    continue;
                }
                Combination one{std::string(subject), std::string(shape), nodes};
                const bool only_counted = subject == "graph-windows";
                if (!(only_counted && nodes >= large)) {
                    plan.timed.push_back(one);
                }
                if (subject == "graph" || (nodes < large && !only_counted)) {
                    plan.counted.push_back(one);
                }
            }
        }
    }
    return plan;
}

std::string NameOf(const Combination &one) {
    return one.subject + '-' + one.shape + '-' + std::to_string(one.nodes);
}

// XmContainer takes quadratic time to destroy its icons.
bool IsTornDown(const Combination &one, int largest) {
    return one.subject != "container" || one.nodes <= largest;
}

std::vector<std::string> CommandFor(const std::filesystem::path &program, const Combination &one,
                                    const char *repetition, int largest_torn_down) {
    return {program.string(), one.subject,
            one.shape,        std::to_string(one.nodes),
            repetition,       IsTornDown(one, largest_torn_down) ? "teardown" : "no-teardown"};
}

void Announce(const char *what, const Combination &one) {
    std::cerr << "bench: " << what << ' ' << NameOf(one) << '\n';
}

void TakeLine(Results &results, const Combination &one, const std::string &line) {
    std::istringstream stream(line);
    std::string case_name;
    double nanoseconds = 0;
    double requests = 0;
    double round_trips = 0;
    double bytes = 0;
    if (stream >> case_name >> nanoseconds >> requests >> round_trips >> bytes) {
        results.At(one, case_name) = {.seconds = nanoseconds * 1e-9,
                                      .instructions = {},
                                      .requests = requests,
                                      .round_trips = round_trips,
                                      .bytes = bytes};
    }
}

bool CountOne(Results &results, const std::filesystem::path &program, const Combination &one,
              const std::filesystem::path &profiles) {
    Announce("instructions of", one);
    const auto instructions = CountInstructions(CommandFor(program, one, "once", sizes[0]),
                                                patience, profiles, NameOf(one));
    if (!instructions) {
        return false;
    }
    for (const auto &[case_name, count] : *instructions) {
        // An empty case was dumped as well.
        Cost &cost = results.At(one, case_name);
        if (cost.requests) {
            cost.instructions = count;
        }
    }
    return true;
}

} // namespace

Cost Results::Of(const Combination &combination, std::string_view case_name) const {
    const auto found = costs_.find({combination, std::string(case_name)});
    return found == costs_.end() ? Cost{} : found->second;
}

std::optional<Results> MeasureAll(const std::filesystem::path &subject_program,
                                  const std::filesystem::path &profiles) {
    const Plan plan = MakePlan();
    Results results;
    for (const Combination &one : plan.timed) {
        Announce("time of", one);
        const Output output =
            RunProgram(CommandFor(subject_program, one, "often", usual), patience);
        if (output.failed) {
            return {};
        }
        for (const std::string &line : output.lines) {
            TakeLine(results, one, line);
        }
    }
    // One after the other as well: a second window on the screen would hide the first.
    for (const Combination &one : plan.counted) {
        if (!CountOne(results, subject_program, one, profiles)) {
            return {};
        }
    }
    return results;
}

} // namespace corvidlmw::bench
