#include <bench/support/Profiles.h>

#include <bench/support/Process.h>

#include <fstream>
#include <unistd.h>

namespace corvidlmw::bench {

namespace {

namespace fs = std::filesystem;

// A profile names the case that it was dumped for, and ends with the sum of all costs. The last one,
// dumped at the end of the program, is for no case.
void TakeProfile(Instructions &instructions, const fs::path &profile) {
    constexpr std::string_view case_key = "desc: Trigger: Client Request: ";
    constexpr std::string_view sum_key = "totals: ";
    std::ifstream file(profile);
    std::string name;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(case_key)) {
            name = line.substr(case_key.size());
        } else if (line.starts_with(sum_key) && !name.empty()) {
            instructions[name] = std::stod(line.substr(sum_key.size()));
        }
    }
}

} // namespace

std::optional<Instructions> CountInstructions(const std::vector<std::string> &command,
                                              std::chrono::seconds patience,
                                              const fs::path &directory, const std::string &name) {
    std::vector<std::string> words = {"valgrind", "--quiet", "--tool=callgrind",
                                      "--collect-atstart=no",
                                      "--callgrind-out-file=" + (directory / name).string()};
    words.insert(words.end(), command.begin(), command.end());
    if (RunProgram(words, patience).failed) {
        return {};
    }
    Instructions instructions;
    for (const auto &entry : fs::directory_iterator(directory)) {
        if (entry.path().filename().string().starts_with(name + ".")) {
            TakeProfile(instructions, entry.path());
        }
    }
    return instructions;
}

std::optional<Instructions> CountInstructions(const std::vector<std::string> &command,
                                              std::chrono::seconds patience) {
    const fs::path directory =
        fs::temp_directory_path() / ("bench-profiles-" + std::to_string(getpid()));
    fs::create_directories(directory);
    auto instructions = CountInstructions(command, patience, directory, "profile");
    std::error_code ignored;
    fs::remove_all(directory, ignored);
    return instructions;
}

} // namespace corvidlmw::bench
