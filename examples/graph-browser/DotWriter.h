#pragma once

#include <string>

#include "DotGraph.h"

namespace graph_browser {

// The text of a file with this graph and whatever else was in the file it was read from: its other
// graphs, the attributes that the browser does not show. Comments are not kept.
std::string WriteDot(const Graph &graph);

} // namespace graph_browser
