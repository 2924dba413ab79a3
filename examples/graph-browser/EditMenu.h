#pragma once

#include "Editor.h"
#include "Menus.h"
#include "Search.h"

namespace graph_browser {

// Appends the menu of what can be done to a graph. The editor, its view and the
// search outlive the menus.
void AddEditMenu(Menus &menus, GraphView &view, Editor &editor, Search &search);

} // namespace graph_browser
