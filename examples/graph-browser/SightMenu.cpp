#include "SightMenu.h"

namespace graph_browser {
namespace {

// A spacing of a single pixel still doubles.
constexpr float zoom_factor = 2;

} // namespace

void AddSightCommands(Menus &menus, GraphView &view, OverviewPane &overview, Search &search) {
    // clang-format off
    menus.AddSeparator();
    menus.AddToggle({"Overview", 'w', "Ctrl<Key>w", "Ctrl+W",
                     [&overview] { overview.SetShown(!overview.Shown()); },
                     [&overview] { return overview.Shown(); }});
    menus.AddSeparator();
    menus.AddCommand({"Zoom In", 'Z', "Ctrl<Key>plus", "Ctrl++",
                      [&view] { view.Zoom(zoom_factor); }});
    menus.AddCommand({"Zoom Out", 'u', "Ctrl<Key>minus", "Ctrl+-",
                      [&view] { view.Zoom(-zoom_factor); }});
    menus.AddSeparator();
    menus.AddCommand({"Find...", 'F', "Ctrl<Key>f", "Ctrl+F",
                      [&search] { search.TakeKeyboard(); }});
    menus.AddCommand({"Find Next", 'x', "<Key>F3", "F3",
                      [&search] { search.GoToNext(); }});
    // clang-format on
}

} // namespace graph_browser
