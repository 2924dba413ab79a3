#pragma once

#include <Xm/Xm.h>

namespace graph_browser {

// The whole graph, small, at the right of the window; it can be put away.
class OverviewPane {
public:
    // `form` also holds `view`, the graph's scrolled window, which keeps clear of the pane.
    OverviewPane(Widget form, Widget view, Widget graph);
    OverviewPane(const OverviewPane &) = delete;
    OverviewPane &operator=(const OverviewPane &) = delete;

    bool Shown() const;
    void SetShown(bool shown);

private:
    Widget view;
    Widget frame;
};

} // namespace graph_browser
