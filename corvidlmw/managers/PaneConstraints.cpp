// The constraints of an XmHorzPanedWindow's children: limits, places, and who forgets whom.
#include <corvidlmw/managers/HPanedWI.h>

#include <algorithm>

namespace corvidlmw::managers {

// ---- Creation ------------------------------------------------------------------------------------

namespace {

void MendLimits(Widget w, XmHorzPanedWindowConstraintPart &constraint) {
    if (constraint.min == 0) {
        XmeWarning(w, Name(_XmMsgPanedW_0000));
        constraint.min = 1;
    }
    if (constraint.max == 0) {
        XmeWarning(w, Name(_XmMsgPanedW_0001));
        constraint.max = CutToDimension(constraint.min + 1);
    }
    if (constraint.min > constraint.max) {
        XmeWarning(w, Name(_XmMsgPanedW_0002));
        constraint.max = CutToDimension(constraint.min + 1);
    }
    // Above the largest minimum there is no room for a larger maximum.
    constraint.max = std::max(constraint.min, constraint.max);
}

} // namespace

void ConstraintInit(Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return;
    }
    auto &constraint = ConstraintOf(new_w);
    constraint.position = constraint.dwidth = 0;
    constraint.dx = 0;
    constraint.olddx = no_line;
    constraint.is_pane = False;
    constraint.sash = constraint.separator = nullptr;
    if (StateOf(XtParent(new_w)).makes_own) {
        constraint.position_index = XmLAST_POSITION;
    }
    MendLimits(new_w, constraint);
    if (XtIsManaged(new_w)) {
        KeepWidthInLimits(new_w);
    }
}

// ---- Death ------------------------------------------------------------------------------------------

void ConstraintDestroy(Widget child) {
    if (!XtIsRectObj(child)) {
        return;
    }
    Widget w = XtParent(child);
    auto &paned = PanedOf(w);
    auto &constraint = ConstraintOf(child);
    ForgetManagedChild(w, child);
    CancelKeys(w, constraint.is_pane ? constraint.sash : child);
    for (auto *side : {&paned.left_pane, &paned.right_pane}) {
        if (*side == RecordOf(child)) {
            *side = nullptr;
        }
    }
    // Either may go first, by the client's hand or with the window. A pane takes its own along.
    const Widget others[] = {constraint.sash, constraint.separator};
    constraint.sash = constraint.separator = nullptr;
    for (Widget other : others) {
        if (!other) {
            continue;
        }
        auto &its = ConstraintOf(other);
        if (its.sash == child) {
            its.sash = nullptr;
        }
        if (its.separator == child) {
            its.separator = nullptr;
        }
        if (constraint.is_pane) {
            XtDestroyWidget(other);
        }
    }
}

// ---- Resource changes -------------------------------------------------------------------------------

namespace {

// After a layout that may have changed a child in the midst of its XtSetValues: the toolkit is about
// to ask for that change, and gets it without a word. Without a request the mark would let a later one
// pass.
void LetOwnGeometryPass(Widget current, Widget new_w, const Rectangle &before_layout) {
    const Rectangle now = RectangleOf(new_w);
    const bool is_asked_for =
        now != RectangleOf(current) && XtIsManaged(new_w) && XtIsRealized(XtParent(new_w));
    if (now != before_layout && is_asked_for) {
        ConstraintOf(new_w).position_index = XmLAST_POSITION;
    }
}

void MovePane(Widget current, Widget new_w) {
    Widget w = XtParent(new_w);
    auto &constraint = ConstraintOf(new_w);
    const int panes = CountPanes(w);
    const int last = panes - 1;
    const int wanted =
        constraint.position_index == XmLAST_POSITION ? last : constraint.position_index;
    const auto children = Children(w).first(static_cast<std::size_t>(panes));
    const auto from = std::ranges::find(children, new_w);
    if (wanted < 0 || wanted >= panes || from == children.end()) {
        constraint.position_index = ConstraintOf(current).position_index;
        return;
    }
    const auto to = children.begin() + wanted;
    if (from < to) {
        std::rotate(from, from + 1, to + 1);
    } else {
        std::rotate(to, from, from + 1);
    }
    RenumberChildren(w);
    const Rectangle before = RectangleOf(new_w);
    ChangeManaged(w);
    LetOwnGeometryPass(current, new_w, before);
}

void KeepOldLimits(Widget w, const XmHorzPanedWindowConstraintPart &before,
                   XmHorzPanedWindowConstraintPart &after) {
    if (after.min < 1) {
        XmeWarning(w, Name(_XmMsgPanedW_0000));
        after.min = before.min;
    }
    if (after.max < 1) {
        XmeWarning(w, Name(_XmMsgPanedW_0001));
        after.max = before.max;
    }
    if (after.min > after.max) {
        XmeWarning(w, Name(_XmMsgPanedW_0002));
        after.min = before.min;
        after.max = before.max;
    }
}

// Makes what a client destroyed anew.
void MakeMissing(Widget w, Widget pane) {
    if (!ConstraintOf(pane).separator) {
        MakeSeparator(w, pane);
    }
    if (!ConstraintOf(pane).sash) {
        MakeSash(w, pane);
    }
}

void ShowOrHideSash(Widget w, Widget pane) {
    const auto &constraint = ConstraintOf(pane);
    if (HasFixedWidth(pane)) {
        if (constraint.sash) {
            XtUnmanageChild(constraint.sash);
        }
        return;
    }
    if (PositionOf(w, pane) < 0 || IsLastPane(w, pane)) {
        return;
    }
    MakeMissing(w, pane);
    if (PanedOf(w).separator_on) {
        XtManageChild(constraint.separator);
    }
    if (constraint.sash) {
        XtManageChild(constraint.sash);
    }
}

} // namespace

Boolean PaneSetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return False;
    }
    auto &before = ConstraintOf(current);
    auto &after = ConstraintOf(new_w);
    if (before.position_index != after.position_index) {
        MovePane(current, new_w);
    }
    if (before.min == after.min && before.max == after.max) {
        return False;
    }
    KeepOldLimits(new_w, before, after);
    if (after.is_pane) {
        const Rectangle place = RectangleOf(new_w);
        ShowOrHideSash(XtParent(new_w), new_w);
        LetOwnGeometryPass(current, new_w, place);
    }
    new_w->core.width = CutToDimension(Within(new_w->core.width, after.min, after.max));
    before.min = after.min;
    before.max = after.max;
    return True;
}

} // namespace corvidlmw::managers
