/* What is measured, and what came out. */

#ifndef CORVIDLMW_BENCH_GRAPH_MEASURING_H
#define CORVIDLMW_BENCH_GRAPH_MEASURING_H

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace corvidlmw::bench {

inline constexpr int sizes[] = {100, 1000, 5000};
inline constexpr std::string_view shapes[] = {"chain", "tree", "star", "dag"};

// What a case cost. Nothing stands where nothing was measured.
struct Cost {
    std::optional<double> seconds; // of the CPU
    std::optional<double> instructions;
    std::optional<double> requests;
    std::optional<double> round_trips;
    std::optional<double> bytes;
};

struct Combination {
    std::string subject;
    std::string shape;
    int nodes = 0;

    friend bool operator<(const Combination &a, const Combination &b) {
        return std::tie(a.subject, a.shape, a.nodes) < std::tie(b.subject, b.shape, b.nodes);
    }
};

class Results {
public:
    Cost &At(const Combination &combination, std::string_view case_name) {
        return costs_[{combination, std::string(case_name)}];
    }
    // All empty if it was not measured.
    Cost Of(const Combination &combination, std::string_view case_name) const;

private:
    std::map<std::pair<Combination, std::string>, Cost> costs_;
};

// Everything that there is for the table. Says on standard error what it is at, and leaves callgrind's
// profiles in the directory. Nothing if a program failed.
std::optional<Results> MeasureAll(const std::filesystem::path &subject_program,
                                  const std::filesystem::path &profiles);

} // namespace corvidlmw::bench

#endif
