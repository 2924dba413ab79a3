#pragma once

#include <optional>
#include <string>

#include <Xm/Xm.h>

namespace graph_browser {

// Prints the graph to a file as PostScript, in one step: a file that was there is replaced only when
// all is written. Returns what went wrong, if anything did.
std::optional<std::string> PrintToFile(Widget graph, const std::string &file);

} // namespace graph_browser
