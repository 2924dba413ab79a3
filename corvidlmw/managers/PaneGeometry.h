// Panes side by side: how desired widths are fitted to the window's, and where separators and sashes
// stand. Arithmetic only.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <span>

namespace corvidlmw::managers {

struct Pane {
    int width = 0; // desired
    int x = 0;
    int border = 0;
    int least = 1;
    int most = 1000;
    bool skip_adjust = false;
};

struct PaneRow {
    int width = 0;
    int margin = 0;
    int spacing = 0;
};

// Where the others first give up or take room.
enum class Direction { Right = 1, Left = -1 };

struct FitRules {
    bool keep_limits = false; // also when both directions are used up
    bool adjust_all = false;  // also those that ask to be skipped
};

// What the panes need with gaps and margins; the margins alone without a pane.
int UsedWidth(const PaneRow &row, std::span<const Pane> panes);

// Brings each width into its limits, then changes the widths of the panes in that direction from pane
// `index` on, nearest first, and then of those in the other one, until they fill the row; and places
// all. Those that cannot fill it are placed as they are.
void FitPanes(const PaneRow &row, std::span<Pane> panes, int index, Direction direction,
              FitRules rules);

int Within(int width, int least, int most);

// ---- Separators and sashes --------------------------------------------------------------------------

struct SashRules {
    int height = 0; // of the window
    int spacing = 0;
    int indent = 0;
    int offset = 0;
};

// The upper left corner of a sash behind the pane that ends at x `pane_end`.
Point SashPlace(const SashRules &rules, int pane_end, int width, int height, int border);

// The x of a separator there.
int SeparatorPlace(const SashRules &rules, int pane_end, int width, int border);

// The x of the line that is tracked before a pane, between its separator and the gap.
int TrackPlace(int pane_x, int separator_width, int spacing);

} // namespace corvidlmw::managers
