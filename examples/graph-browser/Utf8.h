#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace graph_browser {

// Bytes that are not UTF-8 are taken for Latin-1, all of them if `latin1` says so; control
// characters other than the line break go.
std::string CleanUtf8(std::string_view text, bool latin1);

// Cuts what no screen could show: a window coordinate has 16 bits.
std::string LimitedLines(std::string_view text);

void AppendCodePoint(std::string &out, std::uint32_t code);

} // namespace graph_browser
