/* Measures XmGraph beside the toolkit's XmTree and XmContainer, on a private X server, and prints a
 * table and whether the goals are met. */

#include <bench/graph/DotLayout.h>
#include <bench/graph/Goals.h>
#include <bench/graph/Table.h>

#include <tests/support/XServer.h>

#include <cstdlib>
#include <iostream>
#include <unistd.h>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

constexpr const char *legend = R"(
build          creates, manages and places all, not yet realised
layout         places all once more, not yet realised
first expose   realises, and dispatches until nothing is left to do
full redraw    dispatches one exposure of the whole widget, and of each node that has a window
redraw         after a window that hid 1,000 by 800 pixels has gone
relayout       places all by another spacing, and dispatches until nothing is left to do
add node       one node and what joins it to the node in the middle, managed and placed: by the client
               beside its parent in XmGraph, by themselves in the others
add, automatic the same with XmGraph's own layout, XmNautoLayoutMode XmALWAYS
teardown       destroys all
B/node         memory of the client after build; trips: waits for the server; -: not measured, or no
               such case, or too slow. Beyond 32,767 pixels nodes lie upon one another, as with
               5,000 in a column.
)";

// A directory of our own for the profiles, removed at the end unless the user named one to keep.
class ProfileDirectory {
public:
    explicit ProfileDirectory(const char *kept) : keep_(kept != nullptr) {
        path_ = keep_ ? std::filesystem::path(kept)
                      : std::filesystem::temp_directory_path() /
                            ("bench-graph-" + std::to_string(getpid()));
        std::filesystem::create_directories(path_);
    }
    ~ProfileDirectory() {
        std::error_code ignored;
        if (!keep_) {
            std::filesystem::remove_all(path_, ignored);
        }
    }
    ProfileDirectory(const ProfileDirectory &) = delete;
    ProfileDirectory &operator=(const ProfileDirectory &) = delete;

    const std::filesystem::path &path() const { return path_; }

private:
    std::filesystem::path path_;
    bool keep_;
};

int Usage() {
    std::cerr << "usage: bench-graph [--profiles DIRECTORY]    (where to keep callgrind's)\n";
    return 2;
}

} // namespace

int main(int argc, char **argv) {
    const bool keeps = argc == 3 && std::string_view(argv[1]) == "--profiles";
    if (argc != 1 && !keeps) {
        return Usage();
    }
    const ProfileDirectory profiles(keeps ? argv[2] : nullptr);
    setenv("DISPLAY", test::XServer::Instance().name().c_str(), 1);
    const auto program =
        std::filesystem::read_symlink("/proc/self/exe").parent_path() / "bench-graph-subject";
    const auto results = MeasureAll(program, profiles.path());
    if (!results) {
        std::cerr << "bench: a measurement failed\n";
        return EXIT_FAILURE;
    }
    PrintTable(std::cout, *results);
    std::cout << legend;
    PrintGoals(std::cout, *results, TimeOfDotLayout(MakeShape("tree", 1000)));
    return EXIT_SUCCESS;
}
