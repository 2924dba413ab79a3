#pragma once

#include "GraphView.h"
#include "Menus.h"
#include "OverviewPane.h"
#include "Search.h"

namespace graph_browser {

// Appends what shows more or less of the graph to the View menu, which was added last.
void AddSightCommands(Menus &menus, GraphView &view, OverviewPane &overview, Search &search);

} // namespace graph_browser
