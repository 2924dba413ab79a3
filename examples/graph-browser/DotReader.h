#pragma once

#include <string>
#include <variant>

#include "DotGraph.h"

namespace graph_browser {

struct ReadError {
    int line = 0; // 0 when the fault lies in the file as a whole
    std::string message;
};

// Reads the first graph of a DOT file. The whole file must be well formed, further graphs in it as
// well: they are only counted.
std::variant<Graph, ReadError> ReadDotFile(const std::string &path);

// The same for text in memory.
std::variant<Graph, ReadError> ReadDotText(const std::string &text);

// "FILE:LINE: message", or "FILE: message" without a line.
std::string Describe(const std::string &path, const ReadError &error);

} // namespace graph_browser
