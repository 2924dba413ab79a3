#pragma once

#include <string>
#include <vector>

#include "DotGraph.h"

namespace graph_browser {

// The nodes whose name or label has the text in it, whatever the case of its ASCII letters.
std::vector<int> FindNodes(const Graph &graph, const std::string &text);

} // namespace graph_browser
