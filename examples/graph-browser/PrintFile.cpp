// The widget writes to a file of its own name and tells nobody what went wrong. So it writes to a
// temporary one, of which can be seen whether it is whole.

#include "PrintFile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <unistd.h>

#include <corvidlmw/graph/Graph.h>

#include "SaveFile.h"

namespace graph_browser {
namespace {

class TemporaryName {
public:
    TemporaryName() : name((std::filesystem::temp_directory_path() / "graph.XXXXXX").string()) {
        descriptor = mkstemp(name.data());
    }
    ~TemporaryName() {
        if (descriptor < 0)
            return;
        close(descriptor);
        unlink(name.c_str());
    }
    TemporaryName(const TemporaryName &) = delete;
    TemporaryName &operator=(const TemporaryName &) = delete;

    bool Exists() const { return descriptor >= 0; }
    const char *Get() const { return name.c_str(); }

private:
    std::string name;
    int descriptor;
};

std::string Contents(const char *file) {
    std::ifstream in{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{in}, {}};
}

} // namespace

std::optional<std::string> PrintToFile(Widget graph, const std::string &file) {
    if (XmGraphNumNodes(graph) == 0)
        return "there is nothing to print";
    const TemporaryName temporary;
    if (!temporary.Exists())
        return std::strerror(errno);
    XmGraphPrint(graph, temporary.Get());
    const std::string text = Contents(temporary.Get());
    if (!text.ends_with("showpage\n"))
        return "the temporary file could not be written";
    return SaveFile(file, text);
}

} // namespace graph_browser
