// storm: long random lives of the library's widgets, checked at each turn.
#include <tests/storm/Author.h>
#include <tests/storm/Play.h>
#include <tests/storm/Shrink.h>
#include <tests/storm/Words.h>

#include <tests/support/GoogleTest.h>

#include <X11/Intrinsic.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace corvidlmw::storm;
using Clock = std::chrono::steady_clock;

constexpr const char *usage =
    "usage: storm SCENE SEED [STEPS]       one storm, STEPS long or as long as seeds are\n"
    "       storm --print SCENE SEED [STEPS]   its steps\n"
    "       storm --shrink SCENE SEED [STEPS], storm --shrink FILE [SECONDS]\n"
    "                                      as few of its steps as show the same fault\n"
    "       storm --replay FILE...         steps that were kept; a directory stands for its files\n"
    "       storm --soak SECONDS DIRECTORY [SCENE]  storms of all scenes in turn, with fresh "
    "seeds;\n"
    "                                      those that fail are shrunk and kept in the directory\n"
    "A scene is a class, all, or workbench.\n";

constexpr int steps_of_a_storm = 1500;
constexpr int shrinking_seconds = 90;

int NumberAt(const std::vector<std::string> &words, std::size_t i, int preset) {
    return i < words.size() ? std::atoi(words[i].c_str()) : preset;
}

struct Wanted {
    const Scene *scene = nullptr;
    std::uint64_t seed = 0;
    Steps steps;
};

Wanted WantedBy(const std::vector<std::string> &words) {
    Wanted wanted;
    wanted.scene = words.size() > 1 ? SceneOf(words[0]) : nullptr;
    if (!wanted.scene)
        return wanted;
    wanted.seed = std::strtoull(words[1].c_str(), nullptr, 0);
    wanted.steps = WriteSteps(*wanted.scene, wanted.seed, NumberAt(words, 2, steps_of_a_storm));
    return wanted;
}

void Report(const std::string &name, const Outcome &outcome) {
    std::cout << outcome.log << "storm: " << name << ": " << outcome.kind << " at step "
              << outcome.last_step << std::endl;
}

void Write(std::ostream &out, const Steps &steps) {
    for (const Step &step : steps)
        out << ToLine(step) << '\n';
}

int PlayOne(const std::vector<std::string> &words) {
    const Wanted wanted = WantedBy(words);
    if (!wanted.scene)
        return 2;
    const auto begin = Clock::now();
    const Outcome outcome = Play(wanted.steps);
    const std::chrono::duration<double> took = Clock::now() - begin;
    if (!outcome.clean)
        Report(words[0] + " " + words[1], outcome);
    std::cout << words[0] << " " << wanted.seed << ": " << outcome.done << " of "
              << wanted.steps.size() << " steps in " << took.count() << " s" << std::endl;
    return outcome.clean ? EXIT_SUCCESS : EXIT_FAILURE;
}

int Print(const std::vector<std::string> &words) {
    const Wanted wanted = WantedBy(words);
    Write(std::cout, wanted.steps);
    return wanted.scene ? EXIT_SUCCESS : 2;
}

int ShrinkOne(const std::vector<std::string> &words) {
    Wanted wanted = WantedBy(words);
    const bool is_file = !words.empty() && std::filesystem::is_regular_file(words[0]);
    if (is_file) {
        std::ifstream in(words[0]);
        wanted.steps = ReadSteps(in);
    }
    if (wanted.steps.empty())
        return 2;
    const Outcome outcome = Play(wanted.steps);
    if (outcome.clean) {
        std::cout << "# this storm ends well\n";
        return EXIT_SUCCESS;
    }
    std::cout << "# " << words.front() << " " << words.back() << ": " << outcome.kind << '\n';
    Write(std::cout, Shrink(wanted.steps, outcome,
                            is_file ? NumberAt(words, 1, shrinking_seconds) : shrinking_seconds));
    return EXIT_FAILURE;
}

// ---- Kept steps -------------------------------------------------------------------------------------

std::vector<std::string> FilesOf(const std::vector<std::string> &words) {
    std::vector<std::string> files;
    for (const auto &word : words)
        if (std::filesystem::is_directory(word))
            for (const auto &entry : std::filesystem::directory_iterator(word))
                files.push_back(entry.path());
        else
            files.push_back(word);
    std::sort(files.begin(), files.end());
    return files;
}

int Replay(const std::vector<std::string> &words) {
    int failed = 0;
    for (const auto &file : FilesOf(words)) {
        std::ifstream in(file);
        Manner manner;
        manner.check_every = 1;
        const Steps steps = ReadSteps(in);
        const Outcome outcome = Play(steps, manner);
        if (!outcome.clean)
            Report(file, outcome);
        failed += !outcome.clean;
        std::cout << (outcome.clean ? "well    " : "FAILED  ") << file << ", " << outcome.done
                  << " of " << steps.size() << " steps" << std::endl;
    }
    return failed ? EXIT_FAILURE : EXIT_SUCCESS;
}

// ---- Soaking ----------------------------------------------------------------------------------------

struct Tally {
    long steps = 0;
    int seeds = 0;
    double seconds = 0;
    int reports = 0;
};

class Soak {
public:
    Soak(int seconds, std::string directory)
        : end_(Clock::now() + std::chrono::seconds(seconds)), directory_(std::move(directory)),
          seed_(FirstSeed()) {
        std::filesystem::create_directories(directory_);
    }

    int Run(const std::string &only) {
        while (Clock::now() < end_)
            for (const Scene &scene : Scenes())
                if ((only.empty() || only == scene.name) && Clock::now() < end_)
                    PlayNext(scene);
        return PrintTable();
    }

private:
    // The clock's, unless the environment asks for one.
    static std::uint64_t FirstSeed() {
        if (const char *given = std::getenv("CORVIDLMW_SOAK_SEED"))
            return std::strtoull(given, nullptr, 10);
        return static_cast<std::uint64_t>(
                   std::chrono::system_clock::now().time_since_epoch().count()) %
               1000000007;
    }

    void PlayNext(const Scene &scene) {
        const std::uint64_t seed = seed_++;
        const Steps steps = WriteSteps(scene, seed, steps_of_a_storm);
        Tally &tally = tallies_[scene.name];
        const auto begin = Clock::now();
        const Outcome outcome = Play(steps);
        tally.seconds += std::chrono::duration<double>(Clock::now() - begin).count();
        tally.steps += outcome.done;
        tally.seeds++;
        if (!outcome.clean) {
            tally.reports++;
            Keep(scene, seed, steps, outcome);
        }
    }

    // One of each kind is shrunk.
    void Keep(const Scene &scene, std::uint64_t seed, const Steps &steps, const Outcome &outcome) {
        const std::string name = std::string(scene.name) + "-" + std::to_string(seed);
        std::cout << "storm: " << name << ": " << outcome.kind << std::endl;
        std::ofstream(directory_ + "/" + name + ".log") << outcome.log;
        std::ofstream out(directory_ + "/" + name + ".steps");
        out << "# storm " << scene.name << " " << seed << ": " << outcome.kind << '\n';
        const bool is_new = kinds_[outcome.kind]++ == 0;
        Write(out, is_new ? Shrink(steps, outcome, shrinking_seconds) : steps);
    }

    int PrintTable() const {
        Tally all;
        std::printf("%-20s %9s %7s %9s %8s %8s\n", "storm", "steps", "seeds", "seconds", "steps/s",
                    "reports");
        for (const auto &[name, tally] : tallies_) {
            PrintRow(name, tally);
            all.steps += tally.steps;
            all.seeds += tally.seeds;
            all.seconds += tally.seconds;
            all.reports += tally.reports;
        }
        PrintRow("all", all);
        return all.reports ? EXIT_FAILURE : EXIT_SUCCESS;
    }

    static void PrintRow(const std::string &name, const Tally &tally) {
        std::printf("%-20s %9ld %7d %9.1f %8.0f %8d\n", name.c_str(), tally.steps, tally.seeds,
                    tally.seconds,
                    tally.seconds > 0 ? static_cast<double>(tally.steps) / tally.seconds : 0,
                    tally.reports);
    }

    Clock::time_point end_;
    std::string directory_;
    std::uint64_t seed_;
    std::map<std::string, Tally> tallies_;
    std::map<std::string, int> kinds_;
};

int RunSoak(const std::vector<std::string> &words) {
    if (words.size() < 2 || (words.size() > 2 && !SceneOf(words[2])))
        return 2;
    return Soak(NumberAt(words, 0, 0), words[1]).Run(words.size() > 2 ? words[2] : "");
}

int Run(const std::string &command, const std::vector<std::string> &words) {
    if (command == "--print")
        return Print(words);
    if (command == "--shrink")
        return ShrinkOne(words);
    if (command == "--replay")
        return Replay(words);
    return command == "--soak" ? RunSoak(words) : 2;
}

} // namespace

int main(int argc, char **argv) {
    ::testing::InitGoogleTest(&argc, argv);
    XtToolkitInitialize();
    ReadResources();
    std::vector<std::string> words(argv + 1, argv + argc);
    const bool command = !words.empty() && words.front().starts_with("--");
    const std::string first = command ? words.front() : "";
    if (command)
        words.erase(words.begin());
    const int status = command ? Run(first, words) : PlayOne(words);
    if (status == 2)
        std::cerr << usage;
    return status;
}
