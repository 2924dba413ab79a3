// XmGrid's negotiation and layout: natural size, weights, and the one loop that moves children.
//
// A child counts by the size that it asked for last (preferred_width, preferred_height), managed or
// not. Children on their way out are told apart on purpose: the natural size counts them, the weights
// of rows do and those of columns do not, and placing passes them over.

#include <corvidlmw/managers/GridI.h>
#include <corvidlmw/managers/Placing.h>

#include <algorithm>

namespace corvidlmw::grid {

namespace {

enum class Dying { Count, Skip };

// For each row and column the largest extent of its children, borders included.
struct Extents {
    Vector<int> rows;
    Vector<int> columns;
};

Extents LargestExtents(Widget w, Dying in_rows, Dying in_columns) {
    auto &grid = GridOf(w);
    Extents largest{Vector<int>(RowsOf(grid).size()), Vector<int>(ColumnsOf(grid).size())};
    Widget *cell = grid.cells;
    for (int &row : largest.rows) {
        for (int &column : largest.columns) {
            Widget child = *cell++;
            if (!child) {
                continue;
            }
            const auto &constraint = ConstraintOf(child);
            const bool dying = IsBeingDestroyed(child);
            if (in_rows == Dying::Count || !dying) {
                row = std::max(row, constraint.preferred_height + 2 * child->core.border_width);
            }
            if (in_columns == Dying::Count || !dying) {
                column =
                    std::max(column, constraint.preferred_width + 2 * child->core.border_width);
            }
        }
    }
    return largest;
}

Size NaturalSize(Widget w) {
    auto &grid = GridOf(w);
    const auto &board = BoardOf(w);
    const int shadow = ManagerOf(w).shadow_thickness;
    const Extents largest = LargestExtents(w, Dying::Count, Dying::Count);
    return {NaturalExtent(ColumnsOf(grid), largest.columns, 2 * (shadow + board.margin_width)),
            NaturalExtent(RowsOf(grid), largest.rows, 2 * (shadow + board.margin_height))};
}

// ---- Placing ------------------------------------------------------------------------------------

Tenant TenantOf(Widget child) {
    const auto &constraint = ConstraintOf(child);
    return {.gravity = constraint.gravity,
            .fills_width = constraint.resize_horizontal != False,
            .fills_height = constraint.resize_vertical != False,
            .preferred_width = constraint.preferred_width,
            .preferred_height = constraint.preferred_height,
            .border = child->core.border_width};
}

// Configuring a child runs its resize method, and what that calls may come back and lay out anew or
// rebuild the tables: all is read from the record again for each child.
void PlaceChildren(Widget w) {
    auto &grid = GridOf(w);
    const int start = ManagerOf(w).shadow_thickness + w->core.border_width;
    const bool cuts = BoardOf(w).resize_policy != XmRESIZE_NONE;
    Placing placing(w);
    std::optional<Point> previous;
    int y = start;
    for (int row = 0; row < grid.num_rows; ++row) {
        y = Advance(y, grid.rows[row].margin);
        int x = start;
        for (int column = 0; column < grid.num_columns && row < grid.num_rows; ++column) {
            x = Advance(x, grid.columns[column].margin);
            Widget child = grid.cells[row * grid.num_columns + column];
            const Rectangle cell = {x, y, grid.columns[column].size, grid.rows[row].size};
            x = Advance(x, grid.columns[column].margin + cell.width);
            if (child && !IsBeingDestroyed(child)) {
                const Rectangle place = PlaceInCell(cell, TenantOf(child), cuts, previous);
                previous = {place.x, place.y};
                placing.Place(child, place);
            }
        }
        if (row < grid.num_rows) {
            y = Advance(y, grid.rows[row].size + grid.rows[row].margin);
        }
    }
}

// ---- Children that come -----------------------------------------------------------------------------

int CountManagedGadgets(Widget w) {
    const std::span children(ChildrenOf(w), NumChildrenOf(w));
    return static_cast<int>(std::count_if(children.begin(), children.end(), [](Widget child) {
        return child && XtIsRectObj(child) && !XtIsWidget(child) && XtIsManaged(child);
    }));
}

// The toolkit is about to clear the place of each new gadget. Where these are many, one exposure of
// all that comes first saves the joining of the many, as in Placing.
void ExposeNewGadgets(Widget w) {
    int &before = StateOf(GridOf(w)).managed_gadgets;
    const int now = CountManagedGadgets(w);
    if (now > before + 1 && HasWindow(w)) {
        XClearArea(XtDisplay(w), XtWindow(w), 0, 0, 0, 0, True);
    }
    before = now;
}

// ---- Requests -------------------------------------------------------------------------------------

bool AsksForChange(Widget child, const XtWidgetGeometry &request) {
    const XtGeometryMask mode = request.request_mode;
    return ((mode & CWWidth) && request.width != child->core.width) ||
           ((mode & CWHeight) && request.height != child->core.height) ||
           ((mode & CWX) && request.x != child->core.x) ||
           ((mode & CWY) && request.y != child->core.y);
}

} // namespace

// ---- Weights and sizes -----------------------------------------------------------------------------

// The columns pass a dying child over, and the rows do not.
void ComputeAuto(Widget w) {
    auto &grid = GridOf(w);
    if (!grid.auto_layout) {
        return;
    }
    const Extents largest = LargestExtents(w, Dying::Count, Dying::Skip);
    const int frame = 2 * (ManagerOf(w).shadow_thickness + w->core.border_width);
    DeriveWeights(RowsOf(grid), largest.rows, w->core.height, frame);
    DeriveWeights(ColumnsOf(grid), largest.columns, w->core.width, frame);
}

// The shadow is not taken off what is shared out, although the children start behind it: they can
// overrun the far edge by it. The bulletin board's margins take no part at all.
void PositionChildren(Widget w) {
    auto &grid = GridOf(w);
    const Extents largest = LargestExtents(w, Dying::Skip, Dying::Skip);
    const int border = w->core.border_width;
    ShareExtent(RowsOf(grid), largest.rows, w->core.height - 2 * border);
    ShareExtent(ColumnsOf(grid), largest.columns, w->core.width - 2 * border);
    PlaceChildren(w);
}

void AdjustSize(Widget w) {
    managers::AdjustSizeTo(w, NaturalSize(w));
}

void RenewPreferredSize(Widget child) {
    const Size preferred = managers::PreferredSizeOf(child);
    ConstraintOf(child).preferred_width = preferred.width;
    ConstraintOf(child).preferred_height = preferred.height;
}

// ---- Class methods ------------------------------------------------------------------------------------

void GridResize(Widget w) {
    const auto &board = BoardOf(w);
    managers::ClearNotedShadow(w);
    const bool shrank = w->core.height < board.old_height || w->core.width < board.old_width;
    managers::NoteShadow(w);
    if (!XtIsRealized(w)) {
        return;
    }
    PositionChildren(w);
    // The exposure that follows would bring it as well; a smaller grid has it at once.
    if (shrank) {
        managers::DrawShadow(w, XmSHADOW_OUT);
    }
}

void GridChangeManaged(Widget w) {
    if (IsBeingDestroyed(w)) {
        return;
    }
    for (Cardinal i = 0; i < NumChildrenOf(w); ++i) {
        Widget child = ChildrenOf(w)[i];
        if (child && XtIsRectObj(child) && !IsBeingDestroyed(child)) {
            RenewPreferredSize(child);
        }
    }
    AdjustSize(w);
    ComputeAuto(w);
    PositionChildren(w);
    ExposeNewGadgets(w);
    RedrawWholly(w);
    XmeNavigChangeManaged(w);
}

XtGeometryResult GridGeometryManager(Widget child, XtWidgetGeometry *request, XtWidgetGeometry *) {
    if (request->request_mode & XtCWQueryOnly) {
        return XtGeometryYes;
    }
    auto &constraint = ConstraintOf(child);
    constraint.preferred_width =
        (request->request_mode & CWWidth) ? request->width : child->core.width;
    constraint.preferred_height =
        (request->request_mode & CWHeight) ? request->height : child->core.height;
    if (!AsksForChange(child, *request)) {
        return XtGeometryYes;
    }
    child->core.width = constraint.preferred_width;
    child->core.height = constraint.preferred_height;
    Widget w = XtParent(child);
    AdjustSize(w);
    ComputeAuto(w);
    PositionChildren(w);
    return XtGeometryYes;
}

XtGeometryResult GridQueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply) {
    return managers::AnswerQuery(w, NaturalSize(w), *intended, *reply);
}

} // namespace corvidlmw::grid
