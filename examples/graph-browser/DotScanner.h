#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace graph_browser {

struct ScanFault {
    std::size_t at = 0; // of the byte where it begins
    std::string message;
};

// What libcgraph's scanner would take without a word: a file that ends in the middle of a string or a comment,
// with which it then goes on in the next file, and an '@', which is the end of the file to it.
std::optional<ScanFault> FindScanFault(std::string_view text);

} // namespace graph_browser
