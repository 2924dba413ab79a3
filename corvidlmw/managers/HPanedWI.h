// What the sources of XmHorzPanedWindow share.
//
// `children` holds all panes first, then sashes and separators. `managed_children` is rebuilt from it
// in that order. Each pane's desired place is in `dx` and `dwidth`: FitPanes computes it, only
// CommitNewLocations applies it.
#pragma once

#include <corvidlmw/managers/ManagersI.h>

#include <corvidlmw/managers/HPanedWP.h>
#include <corvidlmw/managers/PaneGeometry.h>

#include <span>

namespace corvidlmw::managers {

// ---- Records ------------------------------------------------------------------------------------

// `olddx` of a pane without a track line.
inline constexpr Position no_line = -99;

struct PanedState {
    bool makes_own = false; // children that come now are sashes and separators
    XtIntervalId key_timer = 0;
    Widget key_sash = nullptr; // whose timer it is
    bool lines_shown = false;  // track lines are on the screen, at `olddx` of each pane
    Dimension line_height = 0;
    bool clip_is_stale = true; // of flipgc: sashes may have moved
};

inline XmHorzPanedWindowPart &PanedOf(Widget w) {
    return reinterpret_cast<XmHorzPanedWindowWidget>(w)->horz_paned_window;
}

inline PanedState &StateOf(Widget w) {
    return *static_cast<PanedState *>(PanedOf(w).internal);
}

inline XmHorzPanedWindowConstraintPtr RecordOf(Widget child) {
    return static_cast<XmHorzPanedWindowConstraintPtr>(child->core.constraints);
}

inline XmHorzPanedWindowConstraintPart &ConstraintOf(Widget child) {
    return RecordOf(child)->horz_paned_window;
}

inline std::span<Widget> Children(Widget w) {
    return {ChildrenOf(w), NumChildrenOf(w)};
}

// ---- Panes ----------------------------------------------------------------------------------------

inline Widget PaneAt(Widget w, int position) {
    return PanedOf(w).managed_children[position];
}

// Visits the managed panes. A visit may run callbacks that destroy panes: the list is read anew at each
// step.
template <class Visit>
void ForEachPane(Widget w, Visit visit) {
    for (int i = 0; i < PanedOf(w).pane_count;) {
        Widget pane = PaneAt(w, i);
        visit(pane);
        if (i < PanedOf(w).pane_count && PaneAt(w, i) == pane) {
            ++i;
        }
    }
}

// The place of a pane among the managed ones; -1 for any other child.
int PositionOf(Widget w, Widget pane);
bool HasFixedWidth(Widget pane);

// Panes among the children, managed or not.
int CountPanes(Widget w);
void RebuildManagedChildren(Widget w);
void ForgetManagedChild(Widget w, Widget child);
// Writes each child's index into its constraint.
void RenumberChildren(Widget w);
bool IsLastPane(Widget w, Widget pane);

// ---- Layout ---------------------------------------------------------------------------------------

PaneRow RowOf(Widget w);
// The sum of the desired widths with gaps and margins.
int NeededWidth(Widget w);
// Desires what the panes have.
void DesirePresentWidths(Widget w);

void RefigureLocations(Widget w, int index, Direction direction, FitRules rules);
// Applies what is desired to all but one pane, and brings sashes and separators along.
void CommitNewLocations(Widget w, Widget instigator);
void RefigureLocationsAndCommit(Widget w, int index, Direction direction, bool keep_limits);

Point SashPlaceBehind(Widget pane);

void PanedResize(Widget w);
XtGeometryResult PanedGeometryManager(Widget child, XtWidgetGeometry *request,
                                      XtWidgetGeometry *reply);

// ---- Children -------------------------------------------------------------------------------------

// Children that are made meanwhile are the window's own, and their coming and going starts no layout.
class OwnWork {
public:
    explicit OwnWork(Widget w)
        : w_(w), made_own_(StateOf(w).makes_own), was_at_work_(PanedOf(w).recursively_called) {
        StateOf(w).makes_own = true;
        PanedOf(w).recursively_called = True;
    }
    ~OwnWork() {
        StateOf(w_).makes_own = made_own_;
        PanedOf(w_).recursively_called = was_at_work_;
    }
    OwnWork(const OwnWork &) = delete;
    OwnWork &operator=(const OwnWork &) = delete;

private:
    Widget w_;
    bool made_own_;
    Boolean was_at_work_;
};

void MakeSeparator(Widget w, Widget pane);
void MakeSash(Widget w, Widget pane);

// No request is sent where the size is the same.
void ResizePane(Widget pane, int width, int height);
void KeepWidthInLimits(Widget pane);

Cardinal InsertOrder(Widget child);
void InsertChild(Widget child);
void ChangeManaged(Widget w);
void ConstraintInit(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void ConstraintDestroy(Widget child);
Boolean PaneSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                      Cardinal *num_args);

// ---- Sashes ---------------------------------------------------------------------------------------

// The callback of a sash; `closure` is its pane.
void HandleSash(Widget sash, XtPointer closure, XtPointer call_data);
void MakeFlipGC(Widget w);
void FreeFlipGC(Widget w);
// Takes the track lines off the screen: their panes are about to change by other ways than the drag.
void EraseTrack(Widget w);
// Keys that this sash, or any for NULL, was asked for are not applied any more.
void CancelKeys(Widget w, Widget sash);

} // namespace corvidlmw::managers
