#pragma once

#include "GraphView.h"
#include "Menus.h"

namespace graph_browser {

constexpr Spacing compact_spacing{80, 6};
constexpr Spacing normal_spacing{40, 30}; // the widget's own
constexpr Spacing wide_spacing{140, 60};

// Appends the menu of what can be changed about a view. The view outlives the menus.
void AddViewMenu(Menus &menus, GraphView &view);

} // namespace graph_browser
