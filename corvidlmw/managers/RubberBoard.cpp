// XmRubberBoard: class record, recording, and the children on their lines.
//
// The board is active once all four recorded extents of its own are known; then geometry belongs to
// the lines, and children's requests are refused. A child managed after the recordings has no line: it
// stands at (0, 0) in its own size.

#include <corvidlmw/managers/DialogShell.h>
#include <corvidlmw/managers/ManagersI.h>
#include <corvidlmw/managers/Placing.h>
#include <corvidlmw/managers/RubberBoardP.h>
#include <corvidlmw/managers/RubberGeometry.h>

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
Boolean ConstraintSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                            Cardinal *num_args);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define BOARD(field) static_cast<Cardinal>(offsetof(XmRubberBoardRec, field))
#define LINE(field) static_cast<Cardinal>(offsetof(XmRubberBoardConstraintRec, rubber_board.field))
#define IMMEDIATE(value) Name(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))

XtResource resources[] = {
    // Unset: an XmBulletinBoard's own default is taken.
    {Name(XmNmarginWidth), Name(XmCMarginWidth), Name(XmRHorizontalDimension), sizeof(Dimension), BOARD(bulletin_board.margin_width), IMMEDIATE(XmINVALID_DIMENSION)},
    {Name(XmNmarginHeight), Name(XmCMarginHeight), Name(XmRVerticalDimension), sizeof(Dimension), BOARD(bulletin_board.margin_height), IMMEDIATE(XmINVALID_DIMENSION)},
    {Name(XmNinitialParentHeight), Name(XmCInitialHeight), Name(XmRVerticalDimension), sizeof(Dimension), BOARD(rubber_board.initial_parent_height), IMMEDIATE(0)},
    {Name(XmNfinalParentHeight), Name(XmCFinalHeight), Name(XmRVerticalDimension), sizeof(Dimension), BOARD(rubber_board.final_parent_height), IMMEDIATE(0)},
    {Name(XmNfinalParentWidth), Name(XmCFinalWidth), Name(XmRHorizontalDimension), sizeof(Dimension), BOARD(rubber_board.final_parent_width), IMMEDIATE(0)},
    {Name(XmNinitialParentWidth), Name(XmCInitialWidth), Name(XmRHorizontalDimension), sizeof(Dimension), BOARD(rubber_board.initial_parent_width), IMMEDIATE(0)},
    {Name(XmNsetInitial), Name(XmCSetInitial), Name(XmRBoolean), sizeof(Boolean), BOARD(rubber_board.set_initial), IMMEDIATE(False)},
    {Name(XmNsetFinal), Name(XmCSetFinal), Name(XmRBoolean), sizeof(Boolean), BOARD(rubber_board.set_final), IMMEDIATE(False)},
};

XtResource constraint_resources[] = {
    {Name(XmNinitialX), Name(XmCPosition), Name(XmRPosition), sizeof(Position), LINE(initial_x), IMMEDIATE(0)},
    {Name(XmNinitialY), Name(XmCPosition), Name(XmRPosition), sizeof(Position), LINE(initial_y), IMMEDIATE(0)},
    {Name(XmNfinalX), Name(XmCPosition), Name(XmRPosition), sizeof(Position), LINE(final_x), IMMEDIATE(0)},
    {Name(XmNfinalY), Name(XmCPosition), Name(XmRPosition), sizeof(Position), LINE(final_y), IMMEDIATE(0)},
    {Name(XmNinitialWidth), Name(XmCDimension), Name(XmRDimension), sizeof(Dimension), LINE(initial_width), IMMEDIATE(0)},
    {Name(XmNinitialHeight), Name(XmCDimension), Name(XmRDimension), sizeof(Dimension), LINE(initial_height), IMMEDIATE(0)},
    {Name(XmNfinalWidth), Name(XmCDimension), Name(XmRDimension), sizeof(Dimension), LINE(final_width), IMMEDIATE(0)},
    {Name(XmNfinalHeight), Name(XmCDimension), Name(XmRDimension), sizeof(Dimension), LINE(final_height), IMMEDIATE(0)},
};
// clang-format on

} // namespace

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmRubberBoardClassRec xmRubberBoardClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmBulletinBoardClassRec),
            .class_name = Name("XmRubberBoard"),
            .widget_size = sizeof(XmRubberBoardRec),
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
            .constraint_size = sizeof(XmRubberBoardConstraintRec),
            .set_values = ConstraintSetValues,
        },
    .manager_class =
        {
            .translations = XtInheritTranslations,
            .parent_process = XmInheritParentProcess,
        },
    .bulletin_board_class = {.focus_moved_proc = XmInheritFocusMovedProc},
    .rubber_board_class = {.extension = nullptr},
};

WidgetClass xmRubberBoardWidgetClass = reinterpret_cast<WidgetClass>(&xmRubberBoardClassRec);

} // extern "C"

namespace {

// ---- Records --------------------------------------------------------------------------------------

XmRubberBoardPart &RubberOf(Widget w) {
    return reinterpret_cast<XmRubberBoardWidget>(w)->rubber_board;
}

XmRubberBoardConstraintPart &ConstraintOf(Widget child) {
    return static_cast<XmRubberBoardConstraintPtr>(child->core.constraints)->rubber_board;
}

bool IsActive(const XmRubberBoardPart &rubber) {
    return rubber.initial_parent_width != 0 && rubber.initial_parent_height != 0 &&
           rubber.final_parent_width != 0 && rubber.final_parent_height != 0;
}

// ---- Life -----------------------------------------------------------------------------------------

void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmMANAGER_BIT);
}

// The toolkit's bulletin board does not do it in this release.
void FindMargins(Widget w) {
    constexpr Dimension usual_margin = 10;
    auto &board = reinterpret_cast<XmRubberBoardWidget>(w)->bulletin_board;
    for (Dimension *margin : {&board.margin_width, &board.margin_height}) {
        if (*margin == XmINVALID_DIMENSION) {
            *margin = usual_margin;
        }
    }
}

void Initialize(Widget, Widget new_w, ArgList, Cardinal *) {
    FindMargins(new_w);
    ReplaceEmptySize(new_w);
    NoteShadow(new_w);
}

// ---- Geometry -------------------------------------------------------------------------------------

Rectangle PlaceOf(Widget w, Widget child) {
    const auto &rubber = RubberOf(w);
    const auto &line = ConstraintOf(child);
    const auto [from_width, to_width] =
        std::pair{rubber.initial_parent_width, rubber.final_parent_width};
    const auto [from_height, to_height] =
        std::pair{rubber.initial_parent_height, rubber.final_parent_height};
    const int x = Stretch({line.initial_x, from_width}, {line.final_x, to_width}, w->core.width);
    const int y = Stretch({line.initial_y, from_height}, {line.final_y, to_height}, w->core.height);
    const Dimension width =
        StretchExtent({line.initial_width, from_width}, {line.final_width, to_width}, w->core.width,
                      child->core.width);
    const Dimension height =
        StretchExtent({line.initial_height, from_height}, {line.final_height, to_height},
                      w->core.height, child->core.height);
    return {CutToPosition(x), CutToPosition(y), width, height};
}

void PositionChildren(Widget w) {
    if (IsActive(RubberOf(w))) {
        Placing placing(w);
        ForEachRectangle(w, [&](Widget child) { placing.Place(child, PlaceOf(w, child)); });
    }
}

// The shadow is drawn here only where no exposure follows, since a board that shrinks gets none.
void Resize(Widget w) {
    const Size before{BoardOf(w).old_width, BoardOf(w).old_height};
    ClearNotedShadow(w);
    NoteShadow(w);
    PositionChildren(w);
    if (w->core.width < before.width || w->core.height < before.height) {
        DrawShadow(w, XmSHADOW_OUT);
    }
}

Size NaturalSize(Widget w) {
    const auto &board = BoardOf(w);
    const int shadow = ManagerOf(w).shadow_thickness;
    return {CutToDimension(RubberOf(w).initial_parent_width + 2 * (board.margin_width + shadow)),
            CutToDimension(RubberOf(w).initial_parent_height + 2 * (board.margin_height + shadow))};
}

XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *preferred) {
    return AnswerQuery(w, NaturalSize(w), *intended, *preferred);
}

// A query has no treatment of its own: it moves a child in the record.
XtGeometryResult GeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *) {
    if (IsActive(RubberOf(XtParent(child)))) {
        return XtGeometryNo;
    }
    const XtGeometryMask mode = request->request_mode;
    if (mode & CWX && request->x >= 0) {
        child->core.x = request->x;
    }
    if (mode & CWY && request->y >= 0) {
        child->core.y = request->y;
    }
    if (mode & CWWidth && request->width != 0) {
        child->core.width = request->width;
    }
    if (mode & CWHeight && request->height != 0) {
        child->core.height = request->height;
    }
    return XtGeometryYes;
}

void ChangeManaged(Widget w) {
    PositionChildren(w);
    XmeNavigChangeManaged(w);
}

// ---- Recording ------------------------------------------------------------------------------------

void NoteInitial(Widget child, const Rectangle &place) {
    auto &line = ConstraintOf(child);
    line.initial_x = CutToPosition(place.x);
    line.initial_y = CutToPosition(place.y);
    line.initial_width = CutToDimension(place.width);
    line.initial_height = CutToDimension(place.height);
}

void NoteFinal(Widget child, const Rectangle &place) {
    auto &line = ConstraintOf(child);
    line.final_x = CutToPosition(place.x);
    line.final_y = CutToPosition(place.y);
    line.final_width = CutToDimension(place.width);
    line.final_height = CutToDimension(place.height);
}

// Records the present geometries, or forgets what was recorded.
void RecordInitial(Widget w, bool record) {
    const Size size = record ? SizeOf(w) : Size{};
    RubberOf(w).initial_parent_width = size.width;
    RubberOf(w).initial_parent_height = size.height;
    ForEachRectangle(
        w, [&](Widget child) { NoteInitial(child, record ? RectangleOf(child) : Rectangle{}); });
}

void RecordFinal(Widget w, bool record) {
    const Size size = record ? SizeOf(w) : Size{};
    RubberOf(w).final_parent_width = size.width;
    RubberOf(w).final_parent_height = size.height;
    ForEachRectangle(
        w, [&](Widget child) { NoteFinal(child, record ? RectangleOf(child) : Rectangle{}); });
}

bool IsSet(Boolean flag) {
    return flag != False;
}

bool SameExtents(const XmRubberBoardPart &a, const XmRubberBoardPart &b) {
    return a.initial_parent_width == b.initial_parent_width &&
           a.initial_parent_height == b.initial_parent_height &&
           a.final_parent_width == b.final_parent_width &&
           a.final_parent_height == b.final_parent_height;
}

// Forgetting the final geometries ends it: whatever else was set is then placed by no line.
Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    const auto &before = RubberOf(current);
    const auto &after = RubberOf(new_w);
    bool changed = false;
    if (IsSet(before.set_initial) != IsSet(after.set_initial)) {
        RecordInitial(new_w, after.set_initial);
        changed = true;
    }
    if (IsSet(before.set_final) != IsSet(after.set_final)) {
        RecordFinal(new_w, after.set_final);
        changed = true;
        if (!after.set_final) {
            return True;
        }
    }
    if (!IsActive(after) || SameExtents(before, after)) {
        return changed;
    }
    PositionChildren(new_w);
    return True;
}

Boolean ConstraintSetValues(Widget, Widget, Widget, ArgList, Cardinal *) {
    return False;
}

} // namespace

// ---- Public functions -----------------------------------------------------------------------------

extern "C" {

Widget XmCreateRubberBoard(Widget parent, char *name, ArgList args, Cardinal num_args) {
    return XtCreateWidget(name, xmRubberBoardWidgetClass, parent, args, num_args);
}

Widget XmCreateRubberBoardDialog(Widget parent, char *name, ArgList args, Cardinal num_args) {
    return CreateInDialogShell(parent, name, xmRubberBoardWidgetClass, args, num_args);
}

} // extern "C"
