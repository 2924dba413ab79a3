// XmSpringBox: class record, negotiation, and the two directions in which SpringGeometry's row can run.
//
// `preferred_width` and `preferred_height` of a child are what it asked for; its core size is what the
// springs made of that. They are renewed when children are managed, when a child's resources are set,
// and by each of its geometry requests. Unmanaged children take room like the others.

#include <corvidlmw/managers/DialogShell.h>
#include <corvidlmw/managers/ManagersI.h>
#include <corvidlmw/managers/Placing.h>
#include <corvidlmw/managers/SpringBoxP.h>
#include <corvidlmw/managers/SpringGeometry.h>

#include <cstddef>

using namespace corvidlmw;
using namespace corvidlmw::managers;

namespace {

void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Resize(Widget w);
XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *preferred);
XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *reply);
void ChangeManaged(Widget w);
void ConstraintInitialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
Boolean ConstraintSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                            Cardinal *num_args);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define BOX(field) static_cast<Cardinal>(offsetof(XmSpringBoxRec, field))
#define SPRING(field) static_cast<Cardinal>(offsetof(XmSpringBoxConstraintRec, spring_box.field))
#define IMMEDIATE(value) Name(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))

XtResource resources[] = {
    {Name(XmNorientation), Name(XmCOrientation), Name(XmROrientation), sizeof(unsigned char), BOX(spring_box.orientation), IMMEDIATE(XmHORIZONTAL)},
    {Name(XmNmarginWidth), Name(XmCMarginWidth), Name(XmRHorizontalDimension), sizeof(Dimension), BOX(bulletin_board.margin_width), IMMEDIATE(0)},
    {Name(XmNmarginHeight), Name(XmCMarginHeight), Name(XmRVerticalDimension), sizeof(Dimension), BOX(bulletin_board.margin_height), IMMEDIATE(0)},
    {Name(XmNminSpacing), Name(XmCSpacing), Name(XmRDimension), sizeof(Dimension), BOX(spring_box.min_spacing), IMMEDIATE(2)},
};

XtResource constraint_resources[] = {
    {Name(XmNleftSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(left_spring), IMMEDIATE(50)},
    {Name(XmNrightSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(right_spring), IMMEDIATE(50)},
    {Name(XmNtopSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(top_spring), IMMEDIATE(50)},
    {Name(XmNbottomSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(bottom_spring), IMMEDIATE(50)},
    {Name(XmNverticalSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(vertical_spring), IMMEDIATE(0)},
    {Name(XmNhorizontalSpring), Name(XmCSpring), Name(XmRInt), sizeof(int), SPRING(horizontal_spring), IMMEDIATE(0)},
};
// clang-format on

} // namespace

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmSpringBoxClassRec xmSpringBoxClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmBulletinBoardClassRec),
            .class_name = Name("XmSpringBox"),
            .widget_size = sizeof(XmSpringBoxRec),
            .class_part_initialize = ClassPartInitialize,
            .initialize = Initialize,
            .realize = XtInheritRealize,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = False,
            .compress_exposure = XtExposeCompressMaximal,
            .compress_enterleave = False,
            .visible_interest = False,
            .resize = Resize,
            .expose = RedisplayBoard,
            .set_values = SetValues,
            .set_values_almost = XtInheritSetValuesAlmost,
            .version = XtVersion,
            .tm_table = XtInheritTranslations,
            .query_geometry = QueryGeometry,
        },
    .composite_class =
        {
            .geometry_manager = GeometryManager,
            .change_managed = ChangeManaged,
            .insert_child = XtInheritInsertChild,
            .delete_child = XtInheritDeleteChild,
        },
    .constraint_class =
        {
            .resources = constraint_resources,
            .num_resources = XtNumber(constraint_resources),
            .constraint_size = sizeof(XmSpringBoxConstraintRec),
            .initialize = ConstraintInitialize,
            .set_values = ConstraintSetValues,
        },
    .manager_class =
        {
            .translations = XtInheritTranslations,
            .parent_process = XmInheritParentProcess,
        },
    .bulletin_board_class = {.focus_moved_proc = XmInheritFocusMovedProc},
    .spring_box_class = {.extension = nullptr},
};

WidgetClass xmSpringBoxWidgetClass = reinterpret_cast<WidgetClass>(&xmSpringBoxClassRec);

} // extern "C"

namespace {

// ---- Records --------------------------------------------------------------------------------------

XmSpringBoxPart &BoxOf(Widget w) {
    return reinterpret_cast<XmSpringBoxWidget>(w)->spring_box;
}

XmSpringBoxConstraintPart &ConstraintOf(Widget child) {
    return static_cast<XmSpringBoxConstraintPtr>(child->core.constraints)->spring_box;
}

bool IsHorizontal(Widget w) {
    return BoxOf(w).orientation == XmHORIZONTAL;
}

void RenewPreferredSize(Widget child) {
    const Size preferred = PreferredSizeOf(child);
    ConstraintOf(child).preferred_width = preferred.width;
    ConstraintOf(child).preferred_height = preferred.height;
}

// ---- Life -----------------------------------------------------------------------------------------

void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmMANAGER_BIT);
}

void Initialize(Widget, Widget new_w, ArgList, Cardinal *) {
    ReplaceEmptySize(new_w);
    NoteShadow(new_w);
}

// ---- The two directions ---------------------------------------------------------------------------

// All that looks at the orientation: here, and in NaturalSize.
SpringChild Describe(Widget child, bool horizontal) {
    const auto &constraint = ConstraintOf(child);
    const Springs sideways{constraint.left_spring, constraint.horizontal_spring,
                           constraint.right_spring};
    const Springs upright{constraint.top_spring, constraint.vertical_spring,
                          constraint.bottom_spring};
    if (horizontal) {
        return {sideways, upright, constraint.preferred_width, constraint.preferred_height};
    }
    return {upright, sideways, constraint.preferred_height, constraint.preferred_width};
}

SpringFrame FrameOf(Widget w) {
    const auto &board = BoardOf(w);
    const bool horizontal = IsHorizontal(w);
    return {.length = horizontal ? w->core.width : w->core.height,
            .thickness = horizontal ? w->core.height : w->core.width,
            .margin_along = horizontal ? board.margin_width : board.margin_height,
            .margin_across = horizontal ? board.margin_height : board.margin_width,
            .shadow = ManagerOf(w).shadow_thickness,
            .spacing = BoxOf(w).min_spacing,
            .may_shrink = board.resize_policy != XmRESIZE_NONE};
}

Rectangle RectangleFor(const SpringPlace &place, bool horizontal) {
    if (horizontal) {
        return {place.along, place.across, place.length, place.thickness};
    }
    return {place.across, place.along, place.thickness, place.length};
}

// ---- Geometry -------------------------------------------------------------------------------------

SpringSums SumsOf(Widget w) {
    SpringSums sums;
    const bool horizontal = IsHorizontal(w);
    ForEachRectangle(w, [&](Widget child) { sums.Add(Describe(child, horizontal)); });
    return sums;
}

// An orientation that is neither has no natural size.
Size NaturalSize(Widget w) {
    const auto orientation = BoxOf(w).orientation;
    if (orientation != XmHORIZONTAL && orientation != XmVERTICAL) {
        return SizeOf(w);
    }
    const auto [length, thickness] = NaturalSpringSize(SumsOf(w), FrameOf(w));
    return IsHorizontal(w) ? Size{length, thickness} : Size{thickness, length};
}

void PositionChildren(Widget w) {
    SpringRow row(FrameOf(w), SumsOf(w));
    if (!row.PlacesAnything()) {
        return;
    }
    const bool horizontal = IsHorizontal(w);
    Placing placing(w);
    ForEachRectangle(w, [&](Widget child) {
        placing.Place(child, RectangleFor(row.Next(Describe(child, horizontal)), horizontal));
    });
}

// A box that shrinks gets no exposure by itself, and the shadow is drawn by exposures alone.
void ExposeShadow(Widget w) {
    const Dimension thickness = ManagerOf(w).shadow_thickness;
    if (thickness > 0 && HasWindow(w)) {
        XClearArea(XtDisplay(w), XtWindow(w), w->core.width - thickness, w->core.height - thickness,
                   thickness, thickness, True);
    }
}

// The shadow of the old size would stay inside of a larger box; the edges of the new one are cleared
// for the shadow to come.
void Resize(Widget w) {
    const Size before{BoardOf(w).old_width, BoardOf(w).old_height};
    ClearNotedShadow(w);
    NoteShadow(w);
    PositionChildren(w);
    ClearNotedShadow(w);
    if (w->core.width < before.width || w->core.height < before.height) {
        ExposeShadow(w);
    }
}

XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *preferred) {
    return AnswerQuery(w, NaturalSize(w), *intended, *preferred);
}

bool AsksForChange(Widget child, const XtWidgetGeometry &request) {
    const XtGeometryMask mode = request.request_mode;
    return (mode & CWX && request.x != child->core.x) ||
           (mode & CWY && request.y != child->core.y) ||
           (mode & CWWidth && request.width != child->core.width) ||
           (mode & CWHeight && request.height != child->core.height);
}

// A child gets the size that it asks for to begin with; what the springs make of it follows at once.
XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *) {
    const XtGeometryMask mode = request->request_mode;
    if (mode & XtCWQueryOnly) {
        return XtGeometryYes;
    }
    auto &constraint = ConstraintOf(child);
    constraint.preferred_width = mode & CWWidth ? request->width : child->core.width;
    constraint.preferred_height = mode & CWHeight ? request->height : child->core.height;
    if (!AsksForChange(child, *request)) {
        return XtGeometryYes;
    }
    child->core.width = constraint.preferred_width;
    child->core.height = constraint.preferred_height;
    Widget w = XtParent(child);
    AdjustSizeTo(w, NaturalSize(w));
    PositionChildren(w);
    return XtGeometryYes;
}

void ChangeManaged(Widget w) {
    if (IsBeingDestroyed(w)) {
        return;
    }
    ForEachRectangle(w, [](Widget child) {
        if (!IsBeingDestroyed(child)) {
            RenewPreferredSize(child);
        }
    });
    AdjustSizeTo(w, NaturalSize(w));
    PositionChildren(w);
    XmeNavigChangeManaged(w);
}

// ---- Resource changes -------------------------------------------------------------------------------

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    const auto &before = BoxOf(current);
    const auto &after = BoxOf(new_w);
    if (before.orientation == after.orientation && before.min_spacing == after.min_spacing) {
        return False;
    }
    PositionChildren(new_w);
    return True;
}

void ConstraintInitialize(Widget, Widget new_w, ArgList, Cardinal *) {
    if (XtIsRectObj(new_w)) {
        RenewPreferredSize(new_w);
    }
}

// The toolkit has not asked for the child's new size yet, and compares the record with the old one only
// now: a label that fills its place is put back before it could ask, and does not make the box grow.
Boolean ConstraintSetValues(Widget, Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return False;
    }
    RenewPreferredSize(new_w);
    if (HasWindow(XtParent(new_w))) {
        PositionChildren(XtParent(new_w));
    }
    return True;
}

} // namespace

// ---- Public functions -----------------------------------------------------------------------------

extern "C" {

Widget XmCreateSpringBox(Widget parent, char *name, ArgList args, Cardinal num_args) {
    return XtCreateWidget(name, xmSpringBoxWidgetClass, parent, args, num_args);
}

Widget XmCreateSpringBoxDialog(Widget parent, char *name, ArgList args, Cardinal num_args) {
    return CreateInDialogShell(parent, name, xmSpringBoxWidgetClass, args, num_args);
}

} // extern "C"
