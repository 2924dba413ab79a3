// The children of an XmHorzPanedWindow: how they come, and what the managed ones get.
#include <corvidlmw/managers/HPanedWI.h>

#include <Xm/SashP.h>
#include <Xm/SeparatoG.h>

#include <algorithm>
#include <iterator>
#include <limits>

namespace corvidlmw::managers {

// ---- Lists ------------------------------------------------------------------------------------------

namespace {

bool IsPane(Widget child) {
    return XtIsRectObj(child) && ConstraintOf(child).is_pane;
}

// The list counts in 16 bits: children beyond are left where they are.
void AddManagedChild(Widget w, Widget child) {
    constexpr int more_slots = 10;
    constexpr int most_slots = std::numeric_limits<short>::max();
    auto &paned = PanedOf(w);
    if (paned.num_managed_children == most_slots) {
        return;
    }
    if (paned.num_managed_children == paned.num_slots) {
        paned.num_slots = static_cast<short>(std::min(paned.num_slots + more_slots, most_slots));
        paned.managed_children = reinterpret_cast<Widget *>(XtRealloc(
            reinterpret_cast<char *>(paned.managed_children),
            static_cast<Cardinal>(sizeof(Widget)) * static_cast<Cardinal>(paned.num_slots)));
    }
    paned.managed_children[paned.num_managed_children++] = child;
}

} // namespace

int CountPanes(Widget w) {
    const auto children = Children(w);
    const auto end = std::ranges::find_if_not(children, IsPane);
    return static_cast<int>(end - children.begin());
}

void RebuildManagedChildren(Widget w) {
    auto &paned = PanedOf(w);
    paned.num_managed_children = paned.pane_count = 0;
    for (Widget child : Children(w)) {
        if (XtIsManaged(child)) {
            AddManagedChild(w, child);
        }
    }
    const std::span<Widget> managed(paned.managed_children,
                                    static_cast<std::size_t>(paned.num_managed_children));
    paned.pane_count =
        static_cast<short>(std::ranges::find_if_not(managed, IsPane) - managed.begin());
}

void ForgetManagedChild(Widget w, Widget child) {
    auto &paned = PanedOf(w);
    Widget *end = paned.managed_children + paned.num_managed_children;
    Widget *found = std::find(paned.managed_children, end, child);
    if (found == end) {
        return;
    }
    if (found - paned.managed_children < paned.pane_count) {
        paned.pane_count -= 1;
    }
    std::copy(found + 1, end, found);
    paned.num_managed_children -= 1;
}

void RenumberChildren(Widget w) {
    short index = 0;
    for (Widget child : Children(w)) {
        ConstraintOf(child).position_index = index++;
    }
}

bool IsLastPane(Widget w, Widget pane) {
    const int panes = PanedOf(w).pane_count;
    return panes > 0 && PaneAt(w, panes - 1) == pane;
}

// ---- Coming -----------------------------------------------------------------------------------------

void MakeSeparator(Widget w, Widget pane) {
    const OwnWork own(w);
    Widget separator = XtVaCreateWidget(
        "separator", xmSeparatorGadgetClass, w, XmNheight, w->core.height, XmNborderWidth, 0,
        XmNhighlightThickness, 0, XmNseparatorType, XmSHADOW_ETCHED_IN, XmNmargin, 0,
        XmNorientation, XmVERTICAL, XmNnavigationType, XmNONE, nullptr);
    ConstraintOf(separator).separator = pane;
    ConstraintOf(pane).separator = separator;
}

void MakeSash(Widget w, Widget pane) {
    const OwnWork own(w);
    const auto &paned = PanedOf(w);
    XtCallbackRec callbacks[] = {{HandleSash, pane}, {nullptr, nullptr}};
    Widget sash =
        XtVaCreateWidget("sash", xmSashWidgetClass, w, XmNwidth, paned.sash_width, XmNheight,
                         paned.sash_height, XmNshadowThickness, paned.sash_shadow_thickness,
                         XmNcallback, callbacks, XmNunitType, XmPIXELS, nullptr);
    ConstraintOf(sash).sash = pane;
    ConstraintOf(pane).sash = sash;
}

// Panes go before the window's own children.
Cardinal InsertOrder(Widget child) {
    const int panes = CountPanes(XtParent(child));
    const int wanted = ConstraintOf(child).position_index;
    return static_cast<Cardinal>(wanted < 0 ? panes : std::min(panes, wanted));
}

void InsertChild(Widget child) {
    auto &constraint = ConstraintOf(child);
    constraint.is_pane = False;
    if (!XtIsRectObj(child)) {
        return;
    }
    xmManagerClassRec.composite_class.insert_child(child);
    Widget w = XtParent(child);
    if (StateOf(w).makes_own) {
        return;
    }
    constraint.is_pane = True;
    const OwnWork own(w);
    MakeSeparator(w, child);
    MakeSash(w, child);
    XtVaSetValues(child, XmNnavigationType, XmTAB_GROUP, nullptr);
    if (constraint.position_index != static_cast<int>(NumChildrenOf(w))) {
        RenumberChildren(w);
    }
}

// ---- Managed children ---------------------------------------------------------------------------------

void ResizePane(Widget child, int width, int height) {
    if (width != child->core.width || height != child->core.height) {
        _XmResizeObject(child, CutToExtent(width), CutToExtent(height), child->core.border_width);
    }
}

void KeepWidthInLimits(Widget pane) {
    const auto &constraint = ConstraintOf(pane);
    ResizePane(pane, Within(pane->core.width, constraint.min, constraint.max), pane->core.height);
}

namespace {

// What stands behind the panes: shown or hidden all at once, since each call costs a pass over all
// children.
class Trimmings {
public:
    void Show(Widget own) {
        if (own) {
            shown_.push_back(own);
        }
    }
    void Hide(Widget own) {
        if (own && XtIsManaged(own)) {
            hidden_.push_back(own);
        }
    }
    // New windows lie above those that stay; what was hidden may have missed some.
    void Apply(bool has_new_windows) {
        XtUnmanageChildren(hidden_.data(), static_cast<Cardinal>(hidden_.size()));
        Vector<Widget> new_ones;
        std::ranges::copy_if(shown_, std::back_inserter(new_ones),
                             [](Widget own) { return !XtIsManaged(own); });
        XtManageChildren(new_ones.data(), static_cast<Cardinal>(new_ones.size()));
        for (Widget own : has_new_windows ? shown_ : new_ones) {
            if (HasWindow(own)) {
                XRaiseWindow(XtDisplay(own), XtWindow(own));
            }
        }
    }

private:
    Vector<Widget> shown_;
    Vector<Widget> hidden_;
};

void Trim(Widget w, Widget pane, Trimmings &trimmings) {
    const auto &constraint = ConstraintOf(pane);
    const bool separator_on = PanedOf(w).separator_on != False;
    const bool trimmed = XtIsManaged(pane) && !IsLastPane(w, pane);
    if (separator_on && trimmed) {
        trimmings.Show(constraint.separator);
    } else if (separator_on) {
        trimmings.Hide(constraint.separator);
    }
    if (trimmed && !HasFixedWidth(pane)) {
        trimmings.Show(constraint.sash);
    } else {
        trimmings.Hide(constraint.sash);
    }
}

struct Tallness {
    int height = 0; // of the tallest pane, without its border
    int border = 0; // of the last pane
};

// The borders that are weighed in are the candidate's and that of the pane before it, not the
// tallest's: with different borders the order of the panes counts.
Tallness MeasurePanes(Widget w) {
    Tallness tall;
    ForEachPane(w, [&](Widget pane) {
        if (pane->core.height + pane->core.border_width > tall.height + tall.border) {
            tall.height = pane->core.height;
        }
        tall.border = pane->core.border_width;
        KeepWidthInLimits(pane);
    });
    tall.height = std::max(tall.height, 1);
    return tall;
}

int SumOfWidths(Widget w) {
    int sum = 0;
    ForEachPane(w, [&](Widget pane) { sum += pane->core.width + 2 * pane->core.border_width; });
    return std::max(sum, 1);
}

// Realises the panes and makes them equally tall. True if that made new windows.
bool PreparePanes(Widget w, const Tallness &tall) {
    bool has_new_windows = false;
    ForEachRectangle(w, [&](Widget child) {
        auto &constraint = ConstraintOf(child);
        if (!constraint.is_pane) {
            return;
        }
        if (XtIsRealized(w) && XtIsManaged(child) && XtIsWidget(child) && !HasWindow(child)) {
            XtRealizeWidget(child);
            has_new_windows = true;
        }
        constraint.dwidth = child->core.width;
        if (XtIsManaged(child)) {
            const int border = child->core.border_width;
            ResizePane(child, child->core.width,
                       std::max(tall.height + 2 * (tall.border - border), 1));
        }
    });
    return has_new_windows;
}

void TrimPanes(Widget w, bool has_new_windows) {
    Trimmings trimmings;
    ForEachRectangle(w, [&](Widget child) {
        if (ConstraintOf(child).is_pane) {
            Trim(w, child, trimmings);
        }
    });
    trimmings.Apply(has_new_windows);
}

// The sizes that panes get on the way to a granted one may make them need another width.
void RequestNeededSize(Widget w, const Tallness &tall, int sum) {
    const auto &paned = PanedOf(w);
    const int gaps = paned.spacing * std::max(paned.pane_count - 1, 0);
    const int width = sum + gaps + 2 * paned.margin_width;
    const int height = tall.height + 2 * (paned.margin_height + tall.border);
    if (!RequestSize(w, {CutToExtent(width), CutToExtent(height)})) {
        PanedOf(w).resize_at_realize = False;
        return;
    }
    const Dimension needed = CutToExtent(NeededWidth(w));
    if (needed != w->core.width) {
        RequestSize(w, {needed, w->core.height});
    }
}

} // namespace

void ChangeManaged(Widget w) {
    auto &paned = PanedOf(w);
    if (paned.recursively_called) {
        return;
    }
    paned.recursively_called = True;
    EraseTrack(w);
    RebuildManagedChildren(w);
    const Tallness tall = MeasurePanes(w);
    const int sum = SumOfWidths(w);
    TrimPanes(w, PreparePanes(w, tall));
    paned.recursively_called = False;
    RebuildManagedChildren(w);
    int position = 0;
    ForEachPane(w, [&](Widget pane) { ConstraintOf(pane).position = position++; });
    RequestNeededSize(w, tall, sum);
    DesirePresentWidths(w);
    if (XtIsRealized(w)) {
        RefigureLocationsAndCommit(w, 0, Direction::Right, false);
    }
    XmeNavigChangeManaged(w);
}

} // namespace corvidlmw::managers
