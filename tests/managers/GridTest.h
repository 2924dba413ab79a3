// What the tests of XmGrid share: short ways to grids, children, and what their records hold.
#pragma once

#include <corvidlmw/managers/GridP.h>
#include <tests/support/Harness.h>

#include <Xm/LabelG.h>
#include <Xm/PushB.h>

#include <initializer_list>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

inline XmGridPart &GridPartOf(Widget grid) {
    return reinterpret_cast<XmGridWidget>(grid)->grid;
}

inline XmGridConstraintPart &GridConstraintOf(Widget child) {
    return static_cast<XmGridConstraintPtr>(child->core.constraints)->grid;
}

struct Cell {
    int row = XmGRID_UNSET;
    int column = XmGRID_UNSET;
    friend bool operator==(const Cell &, const Cell &) = default;
};

inline std::ostream &operator<<(std::ostream &out, const Cell &cell) {
    return out << '(' << cell.row << ", " << cell.column << ')';
}

inline Cell NameOf(Widget child) {
    int row = 0, column = 0;
    XtVaGetValues(child, XmNrow, &row, XmNcolumn, &column, nullptr);
    return {row, column};
}

inline Widget ChildIn(Widget grid, Cell cell) {
    const auto &part = GridPartOf(grid);
    return part.cells[cell.row * part.num_columns + cell.column];
}

inline XRectangle PlaceOf(Widget child) {
    XRectangle place{};
    XtVaGetValues(child, XmNx, &place.x, XmNy, &place.y, XmNwidth, &place.width, XmNheight,
                  &place.height, nullptr);
    return place;
}

inline XRectangle Preferred(Widget child) {
    XtWidgetGeometry preferred;
    XtQueryGeometry(child, nullptr, &preferred);
    return {0, 0, preferred.width, preferred.height};
}

class GridTest : public DisplayTest {
protected:
    explicit GridTest(int width = 640, int height = 480) : DisplayTest(width, height) {}

    Widget MakeGrid(int rows, int columns) {
        return XtVaCreateManagedWidget("grid", xmGridWidgetClass, shell, XmNnumRows, rows,
                                       XmNnumColumns, columns, XmNshadowThickness, 0, nullptr);
    }
    // The shell comes up in the grid's natural size, and then gets one that is easy to divide and that
    // no child changes.
    void ShowLarge() {
        Show();
        XtVaSetValues(shell, XmNwidth, 640, XmNheight, 480, XmNallowShellResize, False, nullptr);
        Pump();
    }
    // Has no natural size of its own: it prefers what it has.
    Widget MakeBox(Widget grid, Cell cell = {}, int width = 30, int height = 20) {
        return XtVaCreateManagedWidget("box", coreWidgetClass, grid, XmNrow, cell.row, XmNcolumn,
                                       cell.column, XmNwidth, width, XmNheight, height,
                                       XmNborderWidth, 0, nullptr);
    }
    Widget MakeButton(Widget grid, const char *name, Cell cell = {}) {
        return XtVaCreateManagedWidget(name, xmPushButtonWidgetClass, grid, XmNrow, cell.row,
                                       XmNcolumn, cell.column, nullptr);
    }
};

} // namespace corvidlmw::test
