// Placing the panes of an XmHorzPanedWindow.
#include <corvidlmw/managers/HPanedWI.h>
#include <corvidlmw/managers/Placing.h>

#include <algorithm>

namespace corvidlmw::managers {

// ---- Panes ----------------------------------------------------------------------------------------

int PositionOf(Widget w, Widget pane) {
    const auto &paned = PanedOf(w);
    Widget *end = paned.managed_children + paned.pane_count;
    Widget *found = std::find(paned.managed_children, end, pane);
    return found == end ? -1 : static_cast<int>(found - paned.managed_children);
}

bool HasFixedWidth(Widget pane) {
    return ConstraintOf(pane).min == ConstraintOf(pane).max;
}

// ---- Desired places ---------------------------------------------------------------------------------

namespace {

Vector<Pane> PanesOf(Widget w) {
    Vector<Pane> panes;
    panes.reserve(static_cast<std::size_t>(PanedOf(w).pane_count));
    ForEachPane(w, [&](Widget child) {
        const auto &constraint = ConstraintOf(child);
        panes.push_back({constraint.dwidth, constraint.dx, child->core.border_width, constraint.min,
                         constraint.max, constraint.skip_adjust != False});
    });
    return panes;
}

} // namespace

PaneRow RowOf(Widget w) {
    return {w->core.width, PanedOf(w).margin_width, PanedOf(w).spacing};
}

int NeededWidth(Widget w) {
    return UsedWidth(RowOf(w), PanesOf(w));
}

void DesirePresentWidths(Widget w) {
    ForEachPane(w, [](Widget pane) { ConstraintOf(pane).dwidth = pane->core.width; });
}

void RefigureLocations(Widget w, int index, Direction direction, FitRules rules) {
    if (!PanedOf(w).refiguremode) {
        return;
    }
    Vector<Pane> panes = PanesOf(w);
    FitPanes(RowOf(w), panes, index, direction, rules);
    auto fitted = panes.cbegin();
    ForEachPane(w, [&](Widget pane) {
        ConstraintOf(pane).dwidth = fitted->width;
        ConstraintOf(pane).dx = CutToPosition(fitted->x);
        ++fitted;
    });
}

// ---- Applying them ----------------------------------------------------------------------------------

namespace {

SashRules SashRulesOf(Widget w) {
    const auto &paned = PanedOf(w);
    return {w->core.height, paned.spacing, paned.sash_indent, paned.sash_offset};
}

int EndOf(Widget pane) {
    return pane->core.x + pane->core.width + 2 * pane->core.border_width;
}

// The border that counts is the pane's, or the window's where the pane has no sash.
Dimension PaneHeight(Widget w, Widget pane) {
    const int border = ConstraintOf(pane).sash ? pane->core.border_width : w->core.border_width;
    return CutToDimension(std::max(w->core.height - 2 * (PanedOf(w).margin_height + border), 1));
}

// A separator that is hidden moves as well.
void PlaceSeparator(Widget w, Widget pane, Widget separator, Placing &placing) {
    const int x = SeparatorPlace(SashRulesOf(w), EndOf(pane), separator->core.width,
                                 separator->core.border_width);
    placing.Place(separator, {x, separator->core.y, separator->core.width, w->core.height});
}

// A sash that stays is on top already: it was raised when it, or a window beside it, was made.
void PlaceSash(Widget pane, Widget sash) {
    const Point place = SashPlaceBehind(pane);
    if (place == Point{sash->core.x, sash->core.y}) {
        return;
    }
    sash->core.x = CutToPosition(place.x);
    sash->core.y = CutToPosition(place.y);
    if (HasWindow(sash)) {
        XWindowChanges changes{};
        changes.x = place.x;
        changes.y = place.y;
        changes.stack_mode = Above;
        XConfigureWindow(XtDisplay(sash), XtWindow(sash), CWX | CWY | CWStackMode, &changes);
    }
}

} // namespace

Point SashPlaceBehind(Widget pane) {
    Widget sash = ConstraintOf(pane).sash;
    return SashPlace(SashRulesOf(XtParent(pane)), EndOf(pane), sash->core.width, sash->core.height,
                     sash->core.border_width);
}

// Moving and resizing a pane is one request.
void CommitNewLocations(Widget w, Widget instigator) {
    EraseTrack(w);
    Placing placing(w);
    ForEachPane(w, [&](Widget pane) {
        if (pane != instigator) {
            const auto &constraint = ConstraintOf(pane);
            placing.Place(pane, {constraint.dx, PanedOf(w).margin_height, constraint.dwidth,
                                 PaneHeight(w, pane)});
        }
    });
    // Apart from the panes, which may go in callbacks of their own.
    ForEachPane(w, [&](Widget pane) {
        if (Widget separator = ConstraintOf(pane).separator) {
            PlaceSeparator(w, pane, separator, placing);
        }
        if (Widget sash = ConstraintOf(pane).sash) {
            PlaceSash(pane, sash);
        }
    });
    StateOf(w).clip_is_stale = true;
}

void RefigureLocationsAndCommit(Widget w, int index, Direction direction, bool keep_limits) {
    if (PanedOf(w).refiguremode) {
        RefigureLocations(w, index, direction, {.keep_limits = keep_limits});
        CommitNewLocations(w, nullptr);
    }
}

void PanedResize(Widget w) {
    RefigureLocationsAndCommit(w, PanedOf(w).pane_count - 1, Direction::Left, true);
}

} // namespace corvidlmw::managers
