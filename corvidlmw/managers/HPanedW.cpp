// XmHorzPanedWindow: class record, resources, life.
//
// Beside this stand PaneChildren and PaneConstraints (what becomes of children), PaneLayout (placing
// them), PaneNegotiation (what they ask for), SashInput (drag and keys), and PaneGeometry (arithmetic).

#include <corvidlmw/managers/HPanedWI.h>

#include <algorithm>
#include <cstddef>

using namespace corvidlmw;
using namespace corvidlmw::managers;

namespace {

void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes);
void Destroy(Widget w);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define PANED(field) static_cast<Cardinal>(offsetof(XmHorzPanedWindowRec, horz_paned_window.field))
#define PANE(field) static_cast<Cardinal>(offsetof(XmHorzPanedWindowConstraintRec, horz_paned_window.field))
#define IMMEDIATE(value) Name(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))

// The spacing has a vertical type and horizontal units, the indent of a y a horizontal type: in the
// synthetic resources below the units decide.
XtResource resources[] = {
    {Name(XmNmarginWidth), Name(XmCMarginWidth), Name(XmRHorizontalDimension), sizeof(Dimension), PANED(margin_width), IMMEDIATE(3)},
    {Name(XmNmarginHeight), Name(XmCMarginHeight), Name(XmRVerticalDimension), sizeof(Dimension), PANED(margin_height), IMMEDIATE(3)},
    {Name(XmNspacing), Name(XmCSpacing), Name(XmRVerticalDimension), sizeof(Dimension), PANED(spacing), IMMEDIATE(8)},
    {Name(XmNrefigureMode), Name(XmCBoolean), Name(XmRBoolean), sizeof(Boolean), PANED(refiguremode), IMMEDIATE(True)},
    {Name(XmNseparatorOn), Name(XmCSeparatorOn), Name(XmRBoolean), sizeof(Boolean), PANED(separator_on), IMMEDIATE(True)},
    {Name(XmNsashIndent), Name(XmCSashIndent), Name(XmRHorizontalPosition), sizeof(Position), PANED(sash_indent), IMMEDIATE(-10)},
    {Name(XmNsashWidth), Name(XmCSashWidth), Name(XmRHorizontalDimension), sizeof(Dimension), PANED(sash_width), IMMEDIATE(10)},
    {Name(XmNsashHeight), Name(XmCSashHeight), Name(XmRVerticalDimension), sizeof(Dimension), PANED(sash_height), IMMEDIATE(10)},
    {Name(XmNsashOffset), Name(XmCSashOffset), Name(XmRHorizontalPosition), sizeof(Position), PANED(sash_offset), IMMEDIATE(0)},
    {Name(XmNsashShadowThickness), Name(XmCShadowThickness), Name(XmRHorizontalDimension), sizeof(Dimension), PANED(sash_shadow_thickness), IMMEDIATE(2)},
    {Name(XmNinsertPosition), Name(XmCInsertPosition), Name(XmRFunction), sizeof(XtOrderProc), static_cast<Cardinal>(offsetof(XmHorzPanedWindowRec, composite.insert_position)), Name(XmRImmediate), reinterpret_cast<XtPointer>(InsertOrder)},
};

XtResource constraint_resources[] = {
    {Name(XmNallowResize), Name(XmCBoolean), Name(XmRBoolean), sizeof(Boolean), PANE(allow_resize), IMMEDIATE(False)},
    {Name(XmNpaneMinimum), Name(XmCPaneMinimum), Name(XmRHorizontalDimension), sizeof(Dimension), PANE(min), IMMEDIATE(1)},
    {Name(XmNpaneMaximum), Name(XmCPaneMaximum), Name(XmRHorizontalDimension), sizeof(Dimension), PANE(max), IMMEDIATE(1000)},
    {Name(XmNskipAdjust), Name(XmCBoolean), Name(XmRBoolean), sizeof(Boolean), PANE(skip_adjust), IMMEDIATE(False)},
    {Name(XmNpositionIndex), Name(XmCPositionIndex), Name(XmRShort), sizeof(short), PANE(position_index), IMMEDIATE(XmLAST_POSITION)},
};

XmSyntheticResource synthetic_resources[] = {
    {Name(XmNmarginWidth), sizeof(Dimension), PANED(margin_width), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNmarginHeight), sizeof(Dimension), PANED(margin_height), XmeFromVerticalPixels, XmeToVerticalPixels},
    {Name(XmNspacing), sizeof(Dimension), PANED(spacing), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNsashIndent), sizeof(Position), PANED(sash_indent), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNsashWidth), sizeof(Dimension), PANED(sash_width), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNsashHeight), sizeof(Dimension), PANED(sash_height), XmeFromVerticalPixels, XmeToVerticalPixels},
    {Name(XmNsashShadowThickness), sizeof(Dimension), PANED(sash_shadow_thickness), XmeFromHorizontalPixels, XmeToHorizontalPixels},
};

XmSyntheticResource synthetic_constraint_resources[] = {
    {Name(XmNpaneMinimum), sizeof(Dimension), PANE(min), XmeFromHorizontalPixels, XmeToHorizontalPixels},
    {Name(XmNpaneMaximum), sizeof(Dimension), PANE(max), XmeFromHorizontalPixels, XmeToHorizontalPixels},
};
// clang-format on

} // namespace

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmHorzPanedWindowClassRec xmHorzPanedWindowClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmManagerClassRec),
            .class_name = Name("XmHorzPanedWindow"),
            .widget_size = sizeof(XmHorzPanedWindowRec),
            .class_part_initialize = ClassPartInitialize,
            .initialize = Initialize,
            .realize = Realize,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = True,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = True,
            .visible_interest = False,
            .destroy = Destroy,
            .resize = PanedResize,
            .expose = XmeRedisplayGadgets,
            .set_values = SetValues,
            .set_values_almost = XtInheritSetValuesAlmost,
            .version = XtVersion,
            .tm_table = XtInheritTranslations,
            .query_geometry = nullptr,
        },
    .composite_class =
        {
            .geometry_manager = PanedGeometryManager,
            .change_managed = ChangeManaged,
            .insert_child = InsertChild,
            .delete_child = XtInheritDeleteChild,
        },
    .constraint_class =
        {
            .resources = constraint_resources,
            .num_resources = XtNumber(constraint_resources),
            .constraint_size = sizeof(XmHorzPanedWindowConstraintRec),
            .initialize = ConstraintInit,
            .destroy = ConstraintDestroy,
            .set_values = PaneSetValues,
        },
    .manager_class =
        {
            .translations = XtInheritTranslations,
            .syn_resources = synthetic_resources,
            .num_syn_resources = XtNumber(synthetic_resources),
            .syn_constraint_resources = synthetic_constraint_resources,
            .num_syn_constraint_resources = XtNumber(synthetic_constraint_resources),
            .parent_process = XmInheritParentProcess,
        },
    .horz_paned_window_class = {.extension = nullptr},
};

WidgetClass xmHorzPanedWindowWidgetClass =
    reinterpret_cast<WidgetClass>(&xmHorzPanedWindowClassRec);

} // extern "C"

namespace {

// ---- Life -----------------------------------------------------------------------------------------

void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmPANED_WINDOW_BIT);
}

void Initialize(Widget, Widget new_w, ArgList, Cardinal *) {
    constexpr short first_slots = 10;
    auto &paned = PanedOf(new_w);
    paned.startx = 0;
    paned.increment_count = 0;
    paned.pane_count = 0;
    paned.num_slots = first_slots;
    paned.num_managed_children = 0;
    paned.recursively_called = False;
    paned.resize_at_realize = True;
    paned.left_pane = paned.right_pane = nullptr;
    paned.flipgc = nullptr;
    paned.managed_children =
        reinterpret_cast<Widget *>(XtMalloc(sizeof(Widget) * static_cast<Cardinal>(first_slots)));
    paned.internal = New<PanedState>();
    ReplaceEmptySize(new_w);
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes) {
    *mask |= CWBitGravity | CWDontPropagate;
    attributes->bit_gravity = NorthWestGravity;
    attributes->do_not_propagate_mask =
        KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    XtCreateWindow(w, InputOutput, CopyFromParent, *mask, attributes);
    MakeFlipGC(w);
    if (PanedOf(w).resize_at_realize) {
        XtClass(w)->core_class.resize(w);
    }
    RebuildManagedChildren(w);
    for (int i = 0; i < PanedOf(w).num_managed_children; ++i) {
        if (XtIsWidget(PaneAt(w, i))) {
            XtRealizeWidget(PaneAt(w, i));
        }
    }
}

void Destroy(Widget w) {
    auto &paned = PanedOf(w);
    CancelKeys(w, nullptr);
    FreeFlipGC(w);
    XtFree(reinterpret_cast<char *>(paned.managed_children));
    paned.managed_children = nullptr;
    paned.pane_count = paned.num_managed_children = 0;
    Delete(&StateOf(w));
    paned.internal = nullptr;
}

// ---- Resource changes -------------------------------------------------------------------------------

// What the sashes are told, with the values of 0 mended before.
Vector<Arg> ChangedSashArgs(const XmHorzPanedWindowPart &before,
                            const XmHorzPanedWindowPart &after) {
    Vector<Arg> args;
    const auto add = [&](const char *name, Dimension old_value, Dimension new_value) {
        if (old_value != new_value) {
            args.push_back({Name(name), static_cast<XtArgVal>(new_value)});
        }
    };
    add(XmNwidth, before.sash_width, after.sash_width);
    add(XmNheight, before.sash_height, after.sash_height);
    add(XmNshadowThickness, before.sash_shadow_thickness, after.sash_shadow_thickness);
    return args;
}

void KeepSashesVisible(const XmHorzPanedWindowPart &before, XmHorzPanedWindowPart &after) {
    if (after.sash_width == 0) {
        after.sash_width = before.sash_width;
    }
    if (after.sash_height == 0) {
        after.sash_height = before.sash_height;
    }
}

// The last pane's separator is among them: it ends unmanaged by the ChangeManaged that runs in here.
void ShowSeparators(Widget w) {
    Vector<Widget> separators;
    ForEachRectangle(w, [&](Widget child) {
        const auto &constraint = ConstraintOf(child);
        if (constraint.is_pane && constraint.separator && XtIsManaged(child)) {
            separators.push_back(constraint.separator);
        }
    });
    const auto count = static_cast<Cardinal>(separators.size());
    if (PanedOf(w).separator_on) {
        XtManageChildren(separators.data(), count);
    } else {
        XtUnmanageChildren(separators.data(), count);
    }
}

void ChangeSashes(Widget w, Vector<Arg> &args) {
    ForEachRectangle(w, [&](Widget child) {
        Widget sash = ConstraintOf(child).sash;
        if (!ConstraintOf(child).is_pane || !sash) {
            return;
        }
        if (!args.empty()) {
            XtSetValues(sash, args.data(), static_cast<Cardinal>(args.size()));
        }
        const Point place = SashPlaceBehind(child);
        _XmMoveObject(sash, CutToPosition(place.x), CutToPosition(place.y));
    });
    StateOf(w).clip_is_stale = true;
}

bool SashesMove(const XmHorzPanedWindowPart &before, const XmHorzPanedWindowPart &after) {
    return before.sash_indent != after.sash_indent || before.sash_offset != after.sash_offset ||
           before.margin_width != after.margin_width ||
           before.margin_height != after.margin_height || before.spacing != after.spacing;
}

// The panes follow by the Resize that the new width brings; where it is the right one already, nothing
// would, and panes that were left alone for a while are laid out here.
Boolean FitWidth(Widget w, bool refigures_again) {
    const Dimension needed = CutToExtent(NeededWidth(w));
    if (needed != w->core.width) {
        w->core.width = needed;
        return True;
    }
    if (refigures_again) {
        RefigureLocationsAndCommit(w, 0, Direction::Right, false);
    }
    return False;
}

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    const auto &before = PanedOf(current);
    auto &after = PanedOf(new_w);
    Boolean redisplay = False;
    if (current->core.background_pixel != new_w->core.background_pixel && after.flipgc) {
        EraseTrack(new_w);
        MakeFlipGC(new_w);
        redisplay = True;
    }
    KeepSashesVisible(before, after);
    Vector<Arg> args = ChangedSashArgs(before, after);
    if (before.separator_on != after.separator_on && NumChildrenOf(new_w) >= 3) {
        ShowSeparators(new_w);
    }
    if (!args.empty() || SashesMove(before, after)) {
        EraseTrack(new_w);
        ChangeSashes(new_w, args);
    }
    if (before.margin_height != after.margin_height) {
        const int height = new_w->core.height + 2 * (after.margin_height - before.margin_height);
        new_w->core.height = CutToExtent(std::max(height, 1));
        redisplay = True;
    }
    const bool refigures_again = !before.refiguremode && after.refiguremode;
    if ((before.spacing != after.spacing || before.margin_width != after.margin_width ||
         refigures_again) &&
        XtIsRealized(new_w)) {
        redisplay |= FitWidth(new_w, refigures_again);
    }
    return redisplay;
}

} // namespace

// ---- Public functions -----------------------------------------------------------------------------

extern "C" Widget XmCreateHorzPanedWindow(Widget parent, char *name, ArgList args,
                                          Cardinal num_args) {
    return XtCreateWidget(name, xmHorzPanedWindowWidgetClass, parent, args, num_args);
}
