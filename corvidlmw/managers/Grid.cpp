// XmGrid: class record, resources, life, and what its children's constraints do.
//
// The layout is told in GridLayout.cpp, the table of cells in GridCells.cpp. What a child's XtSetValues
// changes here is laid out at once, while the toolkit still holds the child's new geometry in the
// record; the toolkit then sends what the layout left there as a geometry request.

#include <corvidlmw/managers/DialogShell.h>
#include <corvidlmw/managers/GridI.h>

#include <Xm/LabelP.h>

#include <algorithm>
#include <cstddef>

using namespace corvidlmw;
using namespace corvidlmw::grid;

namespace {

void ClassPartInitialize(WidgetClass widget_class);
void Initialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes);
void Destroy(Widget w);
Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void ConstraintInitialize(Widget request, Widget new_w, ArgList args, Cardinal *num_args);
void ConstraintDestroy(Widget child);
Boolean ConstraintSetValues(Widget current, Widget request, Widget new_w, ArgList args,
                            Cardinal *num_args);

// ---- Resources ------------------------------------------------------------------------------------

// clang-format off
#define GRID(field) static_cast<Cardinal>(offsetof(XmGridRec, grid.field))
#define BOARD(field) static_cast<Cardinal>(offsetof(XmGridRec, bulletin_board.field))
#define CONSTRAINT(field) static_cast<Cardinal>(offsetof(XmGridConstraintRec, grid.field))
#define ROW(name, class, type, ctype, offset, value) \
    {Name(name), Name(class), Name(type), sizeof(ctype), offset, Name(XmRImmediate), reinterpret_cast<XtPointer>(static_cast<XtArgVal>(value))}

XtResource resources[] = {
    ROW(XmNautoLayout, XmCAutoLayout, XmRBoolean, Boolean, GRID(auto_layout), True),
    ROW(XmNnumRows, XmCNumRows, XmRInt, int, GRID(num_rows), 1),
    ROW(XmNnumColumns, XmCNumColumns, XmRInt, int, GRID(num_columns), 1),
    ROW(XmNmarginWidth, XmCMarginWidth, XmRHorizontalDimension, Dimension, BOARD(margin_width), 0),
    ROW(XmNmarginHeight, XmCMarginHeight, XmRVerticalDimension, Dimension, BOARD(margin_height), 0),
    ROW(XmNdefaultSpacing, XmCDefaultSpacing, XmRDimension, Dimension, GRID(default_spacing), 4),
    ROW(XmNshowGrid, XmCShowGrid, XmRBoolean, Boolean, GRID(show_grid), False),
    ROW(XmNbuildMode, XmCBuildMode, XmRBoolean, Boolean, GRID(build_mode), False),
};

XtResource constraint_resources[] = {
    ROW(XmNgravity, XmCGravity, XmRGravity, int, CONSTRAINT(gravity), NorthWestGravity),
    ROW(XmNresizeVertical, XmCResizeVertical, XmRBoolean, Boolean, CONSTRAINT(resize_vertical), True),
    ROW(XmNresizeHorizontal, XmCResizeHorizontal, XmRBoolean, Boolean, CONSTRAINT(resize_horizontal), True),
    ROW(XmNrow, XmCRow, XmRInt, int, CONSTRAINT(row), XmGRID_UNSET),
    ROW(XmNcolumn, XmCColumn, XmRInt, int, CONSTRAINT(column), XmGRID_UNSET),
    ROW(XmNcursorX, XmCCursorX, XmRInt, int, CONSTRAINT(cursor_x), XmGRID_UNSET),
    ROW(XmNcursorY, XmCCursorY, XmRInt, int, CONSTRAINT(cursor_y), XmGRID_UNSET),
    ROW(XmNmoveOnly, XmCMoveOnly, XmRBoolean, Boolean, CONSTRAINT(move_only), False),
    ROW(XmNbuilderAction, XmCBuilderAction, XmRBoolean, Boolean, CONSTRAINT(builder_action), False),
};
// clang-format on

} // namespace

// ---- Class record --------------------------------------------------------------------------------

extern "C" {

XmGridClassRec xmGridClassRec = {
    .core_class =
        {
            .superclass = reinterpret_cast<WidgetClass>(&xmBulletinBoardClassRec),
            .class_name = Name("XmGrid"),
            .widget_size = sizeof(XmGridRec),
            .class_initialize = nullptr,
            .class_part_initialize = ClassPartInitialize,
            .class_inited = False,
            .initialize = Initialize,
            .initialize_hook = nullptr,
            .realize = Realize,
            .actions = nullptr,
            .num_actions = 0,
            .resources = resources,
            .num_resources = XtNumber(resources),
            .xrm_class = NULLQUARK,
            .compress_motion = False,
            .compress_exposure = XtExposeCompressMultiple | XtExposeGraphicsExposeMerged,
            .compress_enterleave = False,
            .visible_interest = False,
            .destroy = Destroy,
            .resize = GridResize,
            .expose = GridRedisplay,
            .set_values = SetValues,
            .set_values_hook = nullptr,
            .set_values_almost = XtInheritSetValuesAlmost,
            .get_values_hook = nullptr,
            .accept_focus = nullptr,
            .version = XtVersion,
            .callback_private = nullptr,
            .tm_table = XtInheritTranslations,
            .query_geometry = GridQueryGeometry,
            .display_accelerator = nullptr,
            .extension = nullptr,
        },
    .composite_class =
        {
            .geometry_manager = GridGeometryManager,
            .change_managed = GridChangeManaged,
            .insert_child = XtInheritInsertChild,
            .delete_child = XtInheritDeleteChild,
            .extension = nullptr,
        },
    .constraint_class =
        {
            .resources = constraint_resources,
            .num_resources = XtNumber(constraint_resources),
            .constraint_size = sizeof(XmGridConstraintRec),
            .initialize = ConstraintInitialize,
            .destroy = ConstraintDestroy,
            .set_values = ConstraintSetValues,
            .extension = nullptr,
        },
    .manager_class =
        {
            .translations = XtInheritTranslations,
            .syn_resources = nullptr,
            .num_syn_resources = 0,
            .syn_constraint_resources = nullptr,
            .num_syn_constraint_resources = 0,
            .parent_process = XmInheritParentProcess,
            .extension = nullptr,
        },
    .bulletin_board_class =
        {
            .always_install_accelerators = False,
            .geo_matrix_create = nullptr,
            .focus_moved_proc = XmInheritFocusMovedProc,
            .extension = nullptr,
        },
    .grid_class = {.extension = nullptr},
};

WidgetClass xmGridWidgetClass = reinterpret_cast<WidgetClass>(&xmGridClassRec);

} // extern "C"

namespace {

// ---- Life ------------------------------------------------------------------------------------------

void ClassPartInitialize(WidgetClass widget_class) {
    SetFastSubclass(widget_class, XmMANAGER_BIT);
}

void RepairCounts(Widget w) {
    auto &grid = GridOf(w);
    if (grid.num_rows < 1) {
        Warn(w, "Grid must have at least one row");
        grid.num_rows = 1;
    }
    if (grid.num_columns < 1) {
        Warn(w, "Grid must have at least one column");
        grid.num_columns = 1;
    }
    if (grid.num_rows > most_cells / grid.num_columns) {
        Warn(w, "Grid has too many rows and columns");
        grid.num_rows = std::min(grid.num_rows, most_slots_of_both);
        grid.num_columns = std::min(grid.num_columns, most_slots_of_both);
    }
}

void Initialize(Widget, Widget new_w, ArgList, Cardinal *) {
    managers::ReplaceEmptySize(new_w);
    RepairCounts(new_w);
    managers::NoteShadow(new_w);
    GridOf(new_w).internal = New<GridState>();
    CreateTables(GridOf(new_w));
}

void Realize(Widget w, XtValueMask *mask, XSetWindowAttributes *attributes) {
    managers::ReplaceEmptySize(w);
    ComputeAuto(w);
    AdjustSize(w);
    PositionChildren(w);
    attributes->bit_gravity = ForgetGravity;
    attributes->do_not_propagate_mask =
        KeyPressMask | KeyReleaseMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask;
    XtCreateWindow(w, InputOutput, CopyFromParent, *mask | CWBitGravity | CWDontPropagate,
                   attributes);
}

void Destroy(Widget w) {
    auto &grid = GridOf(w);
    FreeTables(grid);
    Delete(&StateOf(grid));
    grid.internal = nullptr;
}

// ---- Changes of the grid's resources ---------------------------------------------------------------

void LayOutIfRealized(Widget w) {
    if (XtIsRealized(w)) {
        ComputeAuto(w);
        PositionChildren(w);
    }
}

void ReplaceMargins(Slots slots, Dimension old_margin, Dimension margin) {
    for (XmGridSlot &slot : slots) {
        if (slot.margin == old_margin) {
            slot.margin = margin;
        }
    }
}

void TakeDefaultSpacing(Widget w, Dimension old_spacing) {
    auto &grid = GridOf(w);
    ReplaceMargins(RowsOf(grid), old_spacing, grid.default_spacing);
    ReplaceMargins(ColumnsOf(grid), old_spacing, grid.default_spacing);
    ComputeAuto(w);
    if (XtIsRealized(w)) {
        AdjustSize(w);
        PositionChildren(w);
    }
}

Boolean SetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    auto &grid = GridOf(new_w);
    const auto &old = GridOf(current);
    bool redisplay = grid.show_grid != old.show_grid;
    RepairCounts(new_w);
    if (grid.num_rows != old.num_rows || grid.num_columns != old.num_columns) {
        ResetGridSize(new_w, current);
        LayOutIfRealized(new_w);
        redisplay = true;
    }
    if (XtIsManaged(new_w) && grid.auto_layout && !old.auto_layout) {
        LayOutIfRealized(new_w);
        redisplay = true;
    }
    if (grid.default_spacing != old.default_spacing) {
        TakeDefaultSpacing(new_w, old.default_spacing);
        redisplay = true;
    }
    return redisplay;
}

// ---- Constraints -----------------------------------------------------------------------------------

bool HasCursor(const XmGridConstraintPart &constraint) {
    return IsSet(constraint.cursor_x) && IsSet(constraint.cursor_y);
}

void MoveToCursor(Widget w, XmGridConstraintPart &constraint) {
    const Position x = CutToPosition(constraint.cursor_x);
    const Position y = CutToPosition(constraint.cursor_y);
    constraint.move_only = False;
    constraint.cursor_x = constraint.cursor_y = XmGRID_UNSET;
    constraint.row = XmGridPositionToRow(w, x, y);
    constraint.column = XmGridPositionToColumn(w, x, y);
}

void ConstraintInitialize(Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return;
    }
    Widget w = XtParent(new_w);
    auto &constraint = ConstraintOf(new_w);
    constraint.internal = nullptr;
    if (constraint.move_only && HasCursor(constraint) && !IsSet(constraint.row) &&
        !IsSet(constraint.column)) {
        MoveToCursor(w, constraint);
    }
    SettleNewChild(w, new_w);
    RenewPreferredSize(new_w);
    if (XtIsRealized(w)) {
        ComputeAuto(w);
    }
}

bool HasMoved(Widget current, Widget new_w) {
    const Rectangle before = RectangleOf(current);
    const Rectangle now = RectangleOf(new_w);
    return (now.x != before.x || now.y != before.y) && now.width == before.width &&
           now.height == before.height;
}

// True if the child has to be placed anew, as below.
bool TakeCell(Widget current, Widget new_w) {
    Widget w = XtParent(new_w);
    auto &constraint = ConstraintOf(new_w);
    const auto &old = ConstraintOf(current);
    if (constraint.move_only && HasCursor(constraint) && HasMoved(current, new_w)) {
        MoveToCursor(w, constraint);
    }
    if (constraint.row == old.row && constraint.column == old.column) {
        return false;
    }
    MoveToNewCell(w, new_w, old.row, old.column);
    return true;
}

bool TakeBuilderSize(Widget current, Widget new_w) {
    auto &constraint = ConstraintOf(new_w);
    constraint.builder_action = False;
    if (new_w->core.width != current->core.width) {
        constraint.preferred_width = new_w->core.width;
    }
    if (new_w->core.height != current->core.height) {
        constraint.preferred_height = new_w->core.height;
    }
    return true;
}

bool TakeAlignment(Widget current, Widget new_w) {
    const auto &constraint = ConstraintOf(new_w);
    const auto &old = ConstraintOf(current);
    if (constraint.resize_vertical == old.resize_vertical &&
        constraint.resize_horizontal == old.resize_horizontal &&
        constraint.gravity == old.gravity) {
        return false;
    }
    RenewPreferredSize(new_w);
    return true;
}

bool TakeLabelSize(Widget label) {
    if (reinterpret_cast<XmLabelWidget>(label)->label.recompute_size) {
        RenewPreferredSize(label);
        return true;
    }
    ConstraintOf(label).preferred_width = label->core.width;
    ConstraintOf(label).preferred_height = label->core.height;
    return false;
}

Boolean ConstraintSetValues(Widget current, Widget, Widget new_w, ArgList, Cardinal *) {
    if (!XtIsRectObj(new_w)) {
        return False;
    }
    bool changed = TakeCell(current, new_w);
    changed |= ConstraintOf(new_w).builder_action ? TakeBuilderSize(current, new_w)
                                                  : TakeAlignment(current, new_w);
    if (XmIsLabel(new_w)) {
        changed |= TakeLabelSize(new_w);
    }
    Widget w = XtParent(new_w);
    if (changed && XtIsRealized(w)) {
        ComputeAuto(w);
        PositionChildren(w);
        RedrawWholly(w);
    }
    return False;
}

void ConstraintDestroy(Widget child) {
    if (XtIsRectObj(child)) {
        VacateCells(XtParent(child), child);
    }
}

// ---- Setting one row or column ---------------------------------------------------------------------

// The slot at the index, or none: silently if it is negative, else with the message.
XmGridSlot *SlotOf(Widget w, Slots slots, int index, const char *message) {
    if (index < 0) {
        return nullptr;
    }
    if (static_cast<std::size_t>(index) >= slots.size()) {
        XtAppError(XtWidgetToApplicationContext(w), message);
        return nullptr;
    }
    return &slots[static_cast<std::size_t>(index)];
}

void PositionIfRealized(Widget w) {
    if (XtIsRealized(w)) {
        PositionChildren(w);
    }
}

void SetWeight(Widget w, XmGridSlot *slot, int weight) {
    if (slot) {
        slot->resizability = weight;
        PositionIfRealized(w);
    }
}

void SetMargin(Widget w, XmGridSlot *slot, Dimension margin) {
    if (slot) {
        slot->margin = margin;
        PositionIfRealized(w);
    }
}

bool IsGrid(Widget w) {
    return w && XmIsGrid(w);
}

} // namespace

// ---- Public functions --------------------------------------------------------------------------------

extern "C" {

Widget XmCreateGrid(Widget parent, String name, ArgList args, Cardinal argcount) {
    return XtCreateWidget(name, xmGridWidgetClass, parent, args, argcount);
}

Widget XmCreateGridDialog(Widget parent, String name, ArgList args, Cardinal argcount) {
    return CreateInDialogShell(parent, name, xmGridWidgetClass, args, argcount);
}

void XmGridSetRowResizability(Widget w, int row, int weight) {
    if (IsGrid(w)) {
        SetWeight(
            w,
            SlotOf(w, RowsOf(GridOf(w)), row, "XmGridSetRowResize: Specified row is out of range"),
            weight);
    }
}

void XmGridSetColumnResizability(Widget w, int column, int weight) {
    if (IsGrid(w)) {
        SetWeight(w,
                  SlotOf(w, ColumnsOf(GridOf(w)), column,
                         "XmGridSetColumnResize: Specified column is out of range"),
                  weight);
    }
}

void XmGridSetRowMargin(Widget w, int row, Dimension margin) {
    if (IsGrid(w)) {
        SetMargin(
            w,
            SlotOf(w, RowsOf(GridOf(w)), row, "XmGridSetRowMargin: Specified row is out of range"),
            margin);
    }
}

void XmGridSetColumnMargin(Widget w, int column, Dimension margin) {
    if (IsGrid(w)) {
        SetMargin(w,
                  SlotOf(w, ColumnsOf(GridOf(w)), column,
                         "XmGridSetColumnMargin: Specified column is out of range"),
                  margin);
    }
}

int XmGridPositionToRow(Widget w, Position, Position y) {
    return IsGrid(w) ? SlotAt(RowsOf(GridOf(w)), y) : -1;
}

int XmGridPositionToColumn(Widget w, Position x, Position) {
    return IsGrid(w) ? SlotAt(ColumnsOf(GridOf(w)), x) : -1;
}

Position XmGridRowToYPosition(Widget w, int row) {
    return IsGrid(w) ? SumFrom(RowsOf(GridOf(w)), row) : Position{0};
}

} // extern "C"
