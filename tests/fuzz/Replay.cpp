// Runs a fuzzer once for each file of the given directories: what was once found stays tested where there
// is no fuzzing engine.
#include <tests/fuzz/Input.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int *argc, char ***argv);

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(int count, char **directories) {
    std::vector<fs::path> files;
    for (int i = 0; i < count; i++) {
        for (const auto &entry : fs::directory_iterator(directories[i])) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

int main(int argc, char **argv) {
    if (LLVMFuzzerInitialize) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    const std::vector<fs::path> files = FilesIn(argc - 1, argv + 1);
    for (const fs::path &file : files) {
        std::fprintf(stderr, "%s\n", file.c_str());
        std::ifstream in(file, std::ios::binary);
        const std::vector<char> bytes(std::istreambuf_iterator<char>(in), {});
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    }
    // A corpus that is not found must not pass.
    return files.empty() ? EXIT_FAILURE : EXIT_SUCCESS;
}
