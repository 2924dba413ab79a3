#pragma once

#include "Editor.h"
#include "Menus.h"

namespace graph_browser {

// Appends the menu of what can be done to a graph. The editor and its view outlive the menus.
void AddEditMenu(Menus &menus, GraphView &view, Editor &editor);

} // namespace graph_browser
