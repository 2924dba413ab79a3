// What XmGrid paints itself: the margins or the marked cell for interface builders, and its shadow.

#include <corvidlmw/managers/GridI.h>

using namespace corvidlmw;
using namespace corvidlmw::grid;

namespace corvidlmw::grid {

namespace {

// The toolkit repaints those gadgets that the exposed area touches: all of them, here.
void RedisplayAllGadgets(Widget w) {
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.display = XtDisplay(w);
    event.xexpose.window = XtWindow(w);
    event.xexpose.width = w->core.width;
    event.xexpose.height = w->core.height;
    XmeRedisplayGadgets(w, &event, nullptr);
}

// Xlib joins the rectangles of one GC into few requests.
void FillMargin(Widget w, const Rectangle &strip) {
    XFillRectangle(XtDisplay(w), XtWindow(w), ManagerOf(w).bottom_shadow_GC, strip.x, strip.y,
                   static_cast<unsigned>(strip.width), static_cast<unsigned>(strip.height));
}

void FillMargins(Widget w) {
    auto &grid = GridOf(w);
    const int start = ManagerOf(w).shadow_thickness + w->core.border_width;
    int x = start;
    for (const XmGridSlot &column : ColumnsOf(grid)) {
        FillMargin(w, {x, 0, column.margin, w->core.height});
        x = Advance(x, column.size + column.margin);
        FillMargin(w, {x, 0, column.margin, w->core.height});
        x = Advance(x, column.margin);
    }
    int y = start;
    for (const XmGridSlot &row : RowsOf(grid)) {
        FillMargin(w, {0, y, w->core.width, row.margin});
        y = Advance(y, row.size + row.margin);
        FillMargin(w, {0, y, w->core.width, row.margin});
        y = Advance(y, row.margin);
    }
}

// At the running sums of the sizes alone.
void DrawLines(Widget w) {
    auto &grid = GridOf(w);
    auto line = [w, gc = ManagerOf(w).bottom_shadow_GC](int x1, int y1, int x2, int y2) {
        XDrawLine(XtDisplay(w), XtWindow(w), gc, x1, y1, x2, y2);
    };
    int x = 0;
    for (const XmGridSlot &column : ColumnsOf(grid)) {
        x = Advance(x, column.size);
        line(x, 0, x, w->core.height);
    }
    int y = 0;
    for (const XmGridSlot &row : RowsOf(grid)) {
        y = Advance(y, row.size);
        line(0, y, w->core.width, y);
    }
}

int SumOfSizes(ConstSlots slots) {
    int sum = 0;
    for (const XmGridSlot &slot : slots) {
        sum = Advance(sum, slot.size);
    }
    return sum;
}

// The width comes from the row and the height from the column, on purpose.
void MarkCell(Widget w, std::size_t row, std::size_t column) {
    auto &grid = GridOf(w);
    const Slots rows = RowsOf(grid);
    const Slots columns = ColumnsOf(grid);
    XDrawRectangle(XtDisplay(w), XtWindow(w), ManagerOf(w).top_shadow_GC,
                   SumOfSizes(columns.first(column)), SumOfSizes(rows.first(row)), rows[row].size,
                   columns[column].size);
}

bool IsIndex(int index, ConstSlots slots) {
    return index >= 0 && static_cast<std::size_t>(index) < slots.size();
}

} // namespace

// With the margins shown, all is painted anew, since the whole window is cleared first.
void GridRedisplay(Widget w, XEvent *event, Region region) {
    if (!HasWindow(w)) {
        return;
    }
    if (GridOf(w).show_grid) {
        XClearWindow(XtDisplay(w), XtWindow(w));
        FillMargins(w);
        RedisplayAllGadgets(w);
    } else if (event) {
        XmeRedisplayGadgets(w, event, region);
    }
    managers::DrawShadow(w, XmSHADOW_OUT);
}

void RedrawWholly(Widget w) {
    if (XtIsRealized(w)) {
        XtClass(w)->core_class.expose(w, nullptr, nullptr);
    }
}

} // namespace corvidlmw::grid

extern "C" void XmGridHighlightCell(Widget w, int row, int column) {
    if (!w || !XmIsGrid(w) || !GridOf(w).show_grid || !HasWindow(w) ||
        !IsIndex(row, RowsOf(GridOf(w))) || !IsIndex(column, ColumnsOf(GridOf(w)))) {
        return;
    }
    XClearWindow(XtDisplay(w), XtWindow(w));
    DrawLines(w);
    MarkCell(w, static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    RedisplayAllGadgets(w);
    managers::DrawShadow(w, XmSHADOW_OUT);
}
