/* What callgrind counts of a program that leaves a profile for each of its cases. */

#ifndef CORVIDLMW_BENCH_SUPPORT_PROFILES_H
#define CORVIDLMW_BENCH_SUPPORT_PROFILES_H

#include <chrono>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::bench {

using Instructions = std::map<std::string, double>; // by case

// Runs a program under callgrind, which collects only where the program says so. A case that was not
// reached within the patience is missing. Nothing if the program failed.
std::optional<Instructions> CountInstructions(const std::vector<std::string> &command,
                                              std::chrono::seconds patience);
// The same, the profiles being left in a directory, under names that begin with this one.
std::optional<Instructions> CountInstructions(const std::vector<std::string> &command,
                                              std::chrono::seconds patience,
                                              const std::filesystem::path &directory,
                                              const std::string &name);

} // namespace corvidlmw::bench

#endif
