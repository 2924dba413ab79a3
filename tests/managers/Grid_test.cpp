// XmGrid as its clients see it: sizes and places, moves, negotiation, drawing, death.
#include <tests/managers/GridTest.h>

#include <Xm/DialogS.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/RowColumn.h>
#include <Xm/ScrolledW.h>
#include <Xm/TextF.h>

#include <X11/keysym.h>

#include <algorithm>

namespace {

using namespace corvidlmw::test;

constexpr int unset = XmGRID_UNSET;

void SetLabel(Widget label, const char *text) {
    XmString string = XmStringCreateLocalized(Name(text));
    XtVaSetValues(label, XmNlabelString, string, nullptr);
    XmStringFree(string);
}

// ---- Resources --------------------------------------------------------------------------------------

TEST_F(GridTest, TakesItsResourcesFromTheDatabase) {
    SetResource("*grid.numRows: 2");
    SetResource("*grid.numColumns: 3");
    SetResource("*grid.defaultSpacing: 7");
    SetResource("*grid.showGrid: true");
    SetResource("*box.gravity: SouthEast");
    SetResource("*box.resizeHorizontal: false");
    SetResource("*box.row: 1");
    Widget grid = XtVaCreateManagedWidget("grid", xmGridWidgetClass, shell, nullptr);
    Widget box =
        XtVaCreateManagedWidget("box", coreWidgetClass, grid, XmNwidth, 5, XmNheight, 5, nullptr);
    const auto &part = GridPartOf(grid);
    const auto &constraint = GridConstraintOf(box);
    EXPECT_EQ(part.num_rows, 2);
    EXPECT_EQ(part.num_columns, 3);
    EXPECT_TRUE(part.show_grid && part.auto_layout && !part.build_mode);
    EXPECT_EQ(part.columns[2].margin, 7);
    EXPECT_EQ(part.rows[1].resizability, 100);
    EXPECT_EQ(constraint.gravity, SouthEastGravity);
    EXPECT_TRUE(constraint.resize_vertical && !constraint.resize_horizontal);
    EXPECT_TRUE(!constraint.move_only && !constraint.builder_action);
    EXPECT_EQ(constraint.cursor_x, unset);
    EXPECT_EQ(constraint.cursor_y, unset);
    EXPECT_EQ(NameOf(box), (Cell{1, 0}));
    EXPECT_TRUE(XmIsGrid(grid) && XmIsManager(grid));
}

TEST_F(GridTest, CountsBelowOneAndCountsThatFillAllMemoryAreRepaired) {
    Widget grid = MakeGrid(0, -7);
    ExpectWarning("Grid must have at least one row");
    ExpectWarning("Grid must have at least one column");
    EXPECT_EQ(GridPartOf(grid).num_rows, 1);
    EXPECT_EQ(GridPartOf(grid).num_columns, 1);
    XtVaSetValues(grid, XmNnumRows, 2'000'000'000, XmNnumColumns, 2'000'000'000, nullptr);
    ExpectWarning("Grid has too many rows and columns");
    EXPECT_EQ(GridPartOf(grid).num_rows, 4096);
}

// ---- Places -----------------------------------------------------------------------------------------

TEST_F(GridTest, ASingleChildFillsAllButTheMargins) {
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    Widget grid = XtVaCreateManagedWidget("grid", xmGridWidgetClass, board, XmNshadowThickness, 3,
                                          XmNborderWidth, 2, nullptr);
    Widget box = MakeBox(grid);
    Show();
    XtResizeWidget(grid, 300, 200, 2);
    EXPECT_EQ(PlaceOf(box), (XRectangle{9, 9, 300 - 2 * 2 - 8, 200 - 2 * 2 - 8}))
        << "the shadow is not taken off";
}

// Two columns of labels that share 640 - 4 * 4 pixels by their natural widths, a row that is fixed, and
// one that is empty.
TEST_F(GridTest, RowsAndColumnsShareByTheirChildren) {
    Widget grid = MakeGrid(3, 2);
    Widget narrow = MakeButton(grid, "ok", {0, 0});
    Widget wide = MakeButton(grid, "a much longer label", {1, 1});
    const int a = Preferred(narrow).width, b = Preferred(wide).width, high = Preferred(wide).height;
    XmGridSetRowResizability(grid, 1, 0);
    XmGridSetRowMargin(grid, 0, 10);
    Show();
    EXPECT_EQ(PlaceOf(grid).width, a + b + 16);
    EXPECT_EQ(PlaceOf(grid).height, 2 * high + 20 + 16);
    ShowLarge();
    XtVaSetValues(grid, XmNautoLayout, False, nullptr);
    XtVaSetValues(grid, XmNautoLayout, True, nullptr);
    const int left = 480 - 20 - 16 - high; // of which one natural row, the rest being empty's
    const XRectangle first = PlaceOf(narrow), second = PlaceOf(wide);
    EXPECT_EQ(first.x, 4);
    EXPECT_EQ(first.y, 10);
    EXPECT_EQ(first.width, a * (640 - 16) / (a + b));
    EXPECT_EQ(second.x, 4 + first.width + 8);
    EXPECT_EQ(second.width, b * (640 - 16) / (a + b));
    EXPECT_EQ(second.height, high) << "a row of weight 0";
    const int share = GridPartOf(grid).rows[2].resizability;
    EXPECT_EQ(first.height, high * left / (high + share));

    XmGridSetRowResizability(grid, -1, 5);
    XmGridSetColumnMargin(grid, -2, 5);
    XmGridSetColumnResizability(grid, 1, 0);
    EXPECT_EQ(PlaceOf(wide).width, b);
    EXPECT_EQ(PlaceOf(narrow).width, 640 - 16 - b) << "the only one left with a weight";
    XtVaSetValues(grid, XmNdefaultSpacing, 1, nullptr);
    EXPECT_EQ(GridPartOf(grid).rows[0].margin, 10) << "not the default";
    EXPECT_EQ(PlaceOf(narrow).x, 1);
}

TEST_F(GridTest, SettersBeyondTheTableAreFatal) {
    struct {
        void (*set)(Widget);
        const char *message;
    } const cases[] = {
        {[](Widget w) { XmGridSetRowResizability(w, 1, 0); },
         "XmGridSetRowResize: Specified row is out of range"},
        {[](Widget w) { XmGridSetColumnResizability(w, 2, 0); },
         "XmGridSetColumnResize: Specified column is out of range"},
        {[](Widget w) { XmGridSetRowMargin(w, 1, 0); },
         "XmGridSetRowMargin: Specified row is out of range"},
        {[](Widget w) { XmGridSetColumnMargin(w, 2, 0); },
         "XmGridSetColumnMargin: Specified column is out of range"},
    };
    for (const auto &row : cases)
        ExpectFatal(
            [&](Widget own) {
                row.set(
                    XtVaCreateWidget("grid", xmGridWidgetClass, own, XmNnumColumns, 2, nullptr));
            },
            row.message);
}

TEST_F(GridTest, PositionsNameRowsAndColumns) {
    Widget grid = MakeGrid(2, 2);
    for (int i = 0; i < 4; ++i)
        MakeBox(grid);
    ShowLarge();
    EXPECT_EQ(XmGridPositionToRow(grid, -99, 1), 0);
    EXPECT_EQ(XmGridPositionToRow(grid, 5, 240), -1) << "the boundary";
    EXPECT_EQ(XmGridPositionToRow(grid, 5, 241), 1);
    EXPECT_EQ(XmGridPositionToColumn(grid, 319, -99), 0);
    EXPECT_EQ(XmGridPositionToColumn(grid, 0, 5), -1);
    EXPECT_EQ(XmGridRowToYPosition(grid, 1), 0);
    EXPECT_EQ(XmGridRowToYPosition(grid, 0), 480);
    for (Widget no_grid : {Widget{}, shell}) {
        EXPECT_EQ(XmGridPositionToRow(no_grid, 1, 1), -1);
        XmGridSetRowMargin(no_grid, 9, 9);
        XmGridHighlightCell(no_grid, 0, 0);
    }
}

// ---- Builders ---------------------------------------------------------------------------------------

TEST_F(GridTest, MoveOnlyHandsAChildToTheCellUnderThePointer) {
    Widget grid = MakeGrid(2, 2);
    Widget child = MakeBox(grid);
    MakeBox(grid, {0, 1});
    MakeBox(grid, {1, 0});
    ShowLarge();
    auto move_to = [child](int x, int y) {
        XtVaSetValues(child, XmNmoveOnly, True, XmNcursorX, x, XmNcursorY, y, XmNx, x - 9, nullptr);
    };
    // Each request of the child for another place makes its cell's size its own, and moves this.
    auto boundary = [grid] {
        const auto &part = GridPartOf(grid);
        return XPoint{static_cast<short>(part.columns[0].size + 8),
                      static_cast<short>(part.rows[0].size + 8)};
    };
    move_to(500, 400);
    EXPECT_EQ(NameOf(child), (Cell{1, 1}));
    EXPECT_EQ(PlaceOf(child).x, boundary().x + 4);
    EXPECT_FALSE(GridConstraintOf(child).move_only);
    EXPECT_EQ(GridConstraintOf(child).cursor_x, unset);
    XtVaSetValues(child, XmNcursorX, 9, XmNcursorY, 9, XmNx, 7, nullptr);
    EXPECT_EQ(NameOf(child), (Cell{1, 1})) << "not told to move";

    move_to(boundary().x, boundary().y);
    EXPECT_EQ(NameOf(child), (Cell{-1, -1}));
    EXPECT_EQ(ChildIn(grid, {1, 1}), child);
    move_to(9, 9);
    EXPECT_EQ(ChildIn(grid, {0, 0}), child);
    EXPECT_EQ(ChildIn(grid, {1, 1}), nullptr) << "a child is in one cell only";

    Widget dropped = XtVaCreateManagedWidget(
        "dropped", coreWidgetClass, grid, XmNwidth, 9, XmNheight, 9, XmNmoveOnly, True, XmNcursorX,
        boundary().x + 1, XmNcursorY, boundary().y + 1, nullptr);
    EXPECT_EQ(NameOf(dropped), (Cell{1, 1}));
}

TEST_F(GridTest, BuilderActionMakesASizeThePreferredOne) {
    Widget grid = MakeGrid(1, 2);
    Widget child = MakeBox(grid);
    MakeBox(grid);
    XtVaSetValues(child, XmNresizeHorizontal, False, XmNresizeVertical, False, nullptr);
    ShowLarge();
    XtVaSetValues(child, XmNbuilderAction, True, XmNwidth, 77, nullptr);
    EXPECT_EQ(GridConstraintOf(child).preferred_width, 77);
    EXPECT_EQ(PlaceOf(child).width, 77);
    EXPECT_EQ(PlaceOf(child).height, 20);
    EXPECT_FALSE(GridConstraintOf(child).builder_action);
}

// ---- Negotiation ------------------------------------------------------------------------------------

// Below a bulletin board, which gives a child what it asks for.
class GridInBoardTest : public GridTest {
protected:
    void SetUp() override {
        GridTest::SetUp();
        Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
        grid = XtVaCreateManagedWidget("grid", xmGridWidgetClass, board, XmNnumRows, 1,
                                       XmNnumColumns, 2, XmNmarginWidth, 5, nullptr);
    }
    // Where the only row and both columns are, by the children's own wishes.
    void ExpectNaturalSize() {
        int width = 2 * 5 + 4 * 4, height = 0;
        for (int i = 0; i < 2; ++i) {
            const XRectangle child = Preferred(ChildIn(grid, {0, i}));
            width += child.width;
            height = std::max<int>(height, child.height);
        }
        EXPECT_EQ(PlaceOf(grid).width, width);
        EXPECT_EQ(PlaceOf(grid).height, height + 8);
    }
    Widget grid = nullptr;
};

TEST_F(GridInBoardTest, FollowsItsChildrenButForgetsADestroyedOneLate) {
    Widget gadget = XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, grid, nullptr);
    Widget button = MakeButton(grid, "button");
    Show();
    ExpectNaturalSize();
    SetLabel(gadget, "a longer text than before");
    ExpectNaturalSize();
    XtUnmanageChild(gadget);
    ExpectNaturalSize(); // what is not managed counts as well
    const XRectangle with_gadget = PlaceOf(grid);
    XtDestroyWidget(gadget);
    EXPECT_EQ(PlaceOf(grid), with_gadget);
    XtUnmanageChild(button);
    EXPECT_LT(PlaceOf(grid).width, with_gadget.width);
}

// The layout puts it back into its cell before the toolkit looks whether it became larger.
TEST_F(GridInBoardTest, ALabelThatFillsItsCellGrowsWithTheNextChangeOfChildren) {
    XtVaSetValues(grid, XmNnumColumns, 1, XmNmarginWidth, 0, nullptr);
    Widget button = MakeButton(grid, "button");
    Show();
    const XRectangle before = PlaceOf(grid);
    SetLabel(button, "a text that is much longer");
    EXPECT_EQ(PlaceOf(grid), before);
    EXPECT_EQ(GridPartOf(grid).columns[0].resizability, Preferred(button).width);
    XtUnmanageChild(button);
    XtManageChild(button);
    EXPECT_EQ(PlaceOf(grid).width, Preferred(button).width + 8);
}

TEST_F(GridInBoardTest, AnswersQueries) {
    MakeBox(grid, {}, 30, 20);
    MakeBox(grid, {}, 40, 20);
    Show();
    const Dimension width = 30 + 40 + 16 + 10, height = 20 + 8;
    struct {
        XtGeometryMask mode;
        Dimension width, height;
        XtGeometryResult at_natural, elsewhere;
    } const cases[] = {
        {CWWidth | CWHeight, width, height, XtGeometryNo, XtGeometryYes},
        {CWWidth | CWHeight, 9, height, XtGeometryNo, XtGeometryAlmost},
        {CWWidth, width, 0, XtGeometryNo, XtGeometryAlmost},
        {CWHeight, 0, height, XtGeometryNo, XtGeometryAlmost},
        {0, 0, 0, XtGeometryAlmost, XtGeometryAlmost},
        {CWX | CWWidth, 9, 0, XtGeometryYes, XtGeometryYes},
    };
    for (const bool natural : {true, false}) {
        if (!natural)
            XtResizeWidget(grid, 300, 200, 0);
        for (const auto &row : cases) {
            XtWidgetGeometry intended{}, reply{};
            intended.request_mode = row.mode;
            intended.width = row.width;
            intended.height = row.height;
            const bool one = row.mode == CWWidth || row.mode == CWHeight;
            const auto expected = natural && !one ? row.at_natural : row.elsewhere;
            auto *query = XtClass(grid)->core_class.query_geometry;
            EXPECT_EQ(query(grid, &intended, &reply), expected) << row.mode << natural;
            if (expected == XtGeometryAlmost) {
                EXPECT_EQ(reply.width, width);
                EXPECT_EQ(reply.height, height);
            }
        }
    }
}

TEST_F(GridTest, ManagingManyTakesNoRoundTrip) {
    Widget grid = MakeGrid(8, 8);
    Show();
    std::vector<Widget> gadgets;
    for (int i = 0; i < 64; ++i)
        gadgets.push_back(XtVaCreateWidget("gadget", xmLabelGadgetClass, grid, nullptr));
    XtManageChild(gadgets.back());
    XSync(display, False);
    const RequestCounter counter(display);
    XtManageChildren(gadgets.data(), 63);
    EXPECT_EQ(counter.round_trips(), 0);
}

// ---- Drawing ----------------------------------------------------------------------------------------

TEST_F(GridTest, ShowsItsMarginsBelowItsGadgets) {
    Widget grid = MakeGrid(1, 2);
    XtVaSetValues(grid, XmNshowGrid, True, XmNdefaultSpacing, 10, nullptr);
    XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, grid, nullptr);
    ShowLarge();
    const Pixel shade = GridPartOf(grid).show_grid
                            ? reinterpret_cast<XmGridWidget>(grid)->manager.bottom_shadow_color
                            : 0;
    const Picture picture = Picture::Of(grid);
    const XRectangle first = PlaceOf(ChildIn(grid, {0, 0}));
    EXPECT_EQ(picture.Count(shade, {0, 0, 10, 480}), 10 * 480);
    EXPECT_EQ(picture.Count(shade, {static_cast<short>(10 + first.width), 0, 20, 480}), 20 * 480);
    EXPECT_EQ(picture.Count(shade, {0, 470, 640, 10}), 10 * 640);
    EXPECT_EQ(picture.At(600, 200), grid->core.background_pixel);
    const Picture text = Picture::Of(ChildIn(grid, {0, 0}));
    EXPECT_TRUE(text.BoxOfOthers(grid->core.background_pixel)) << "the gadget is there";

    XmGridHighlightCell(grid, 0, 1);
    XmGridHighlightCell(grid, 1, 0);
    XmGridHighlightCell(grid, 0, -1);
    const Picture marked = Picture::Of(grid);
    const int size = GridPartOf(grid).columns[0].size, high = GridPartOf(grid).rows[0].size;
    EXPECT_EQ(marked.At(5, 200), grid->core.background_pixel) << "the margins are gone";
    EXPECT_EQ(marked.At(5, high), shade) << "a line at the sum of the sizes";
    EXPECT_EQ(marked.At(size + 1, 0),
              reinterpret_cast<XmGridWidget>(grid)->manager.top_shadow_color);
    EXPECT_EQ(marked.At(size + high, 100), marked.At(size + 1, 0)) << "as wide as the row is high";
    XtVaSetValues(grid, XmNshowGrid, False, nullptr);
    Pump();
    const Picture plain = Picture::Of(grid);
    XmGridHighlightCell(grid, 0, 0);
    EXPECT_EQ(Picture::Of(grid), plain);
}

// The grid clears what gadgets leave and take itself: a redraw of everything must show the same.
TEST_F(GridTest, GadgetsThatMoveLeaveNoTrace) {
    Random random;
    Widget grid = MakeGrid(3, 3);
    std::vector<Widget> gadgets;
    for (int i = 0; i < 7; ++i)
        gadgets.push_back(XtVaCreateWidget(("label " + std::to_string(i)).c_str(),
                                           xmLabelGadgetClass, grid, XmNresizeHorizontal, i % 2,
                                           nullptr));
    Show();
    XtVaSetValues(shell, XmNwidth, 400, XmNheight, 150, XmNallowShellResize, False, nullptr);
    XtManageChildren(gadgets.data(), 7);
    for (int step = 0; step < 30 && !HasFailure(); ++step) {
        Widget gadget = gadgets[static_cast<size_t>(random.Between(0, 6))];
        if (random.Chance(0.4))
            SetLabel(gadget, random.Chance(0.5) ? "x" : "another text");
        else if (random.Chance(0.5))
            XtVaSetValues(gadget, XmNrow, random.Between(0, 2), XmNcolumn, random.Between(0, 2),
                          nullptr);
        else
            XtIsManaged(gadget) ? XtUnmanageChild(gadget) : XtManageChild(gadget);
        Pump();
        const Picture shown = Picture::Of(grid);
        XClearArea(display, XtWindow(grid), 0, 0, 0, 0, True);
        Pump();
        EXPECT_TRUE(SamePicture(Picture::Of(grid), shown)) << step;
    }
}

// The shadow follows the size, outwards and inwards.
TEST_F(GridTest, TheShadowFollowsTheSize) {
    Widget board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, nullptr);
    Widget grid = XtVaCreateManagedWidget("grid", xmGridWidgetClass, board, XmNshadowThickness, 2,
                                          XmNdefaultSpacing, 12, nullptr);
    MakeBox(grid);
    Show();
    for (const int width : {200, 90}) {
        XtResizeWidget(grid, static_cast<Dimension>(width), 100, 0);
        Pump();
        const Pixel dark = reinterpret_cast<XmGridWidget>(grid)->manager.bottom_shadow_color;
        const Picture picture = Picture::Of(grid);
        EXPECT_EQ(picture.Count(dark, {static_cast<short>(width - 2), 0, 2, 100}), 2 * 100 - 3);
        EXPECT_EQ(picture.Count(dark, {0, 98, static_cast<unsigned short>(width), 2}),
                  2 * width - 3);
    }
}

// ---- Children of all kinds --------------------------------------------------------------------------

TEST_F(GridTest, TheKeyboardWalksThroughTheCells) {
    Widget grid = MakeGrid(1, 2);
    Widget field = XtVaCreateManagedWidget("field", xmTextFieldWidgetClass, grid, nullptr);
    Widget button = MakeButton(grid, "button");
    Show();
    Click(field, 5, 5);
    Key(XK_a);
    EXPECT_EQ(XmGetFocusWidget(shell), field);
    Key(XK_Tab);
    EXPECT_EQ(XmGetFocusWidget(shell), button);
    XtDestroyWidget(button);
    EXPECT_EQ(ChildIn(grid, {0, 1}), nullptr);
}

TEST_F(GridTest, TheDialogDiesWithItsShell) {
    Arg args[] = {{Name(XmNnumColumns), 3}};
    Widget grid = XmCreateGridDialog(shell, Name("palette"), args, 1);
    Widget dialog = XtParent(grid);
    EXPECT_STREQ(XtName(dialog), "palette_popup");
    EXPECT_TRUE(XmIsDialogShell(dialog) && !XtIsManaged(grid));
    EXPECT_EQ(GridPartOf(grid).num_columns, 3);
    Boolean allows = False;
    XtVaGetValues(dialog, XmNallowShellResize, &allows, nullptr);
    EXPECT_TRUE(allows);
    Show();
    MakeButton(grid, "one");
    XtManageChild(grid);
    Pump();
    EXPECT_TRUE(XtIsRealized(grid));
    bool gone = false;
    XtAddCallback(
        dialog, XmNdestroyCallback,
        [](Widget, XtPointer flag, XtPointer) { *static_cast<bool *>(flag) = true; }, &gone);
    XtDestroyWidget(grid);
    EXPECT_TRUE(gone);
}

// Labels change, children of every kind come, go and change cells, before and after realisation. The
// places are compared with a second computation from the record's slots; the sanitizers watch the rest.
class GridLifeTest : public GridTest {
protected:
    Widget MakeAny(Widget grid, Random &random) {
        const std::pair<WidgetClass, bool> kinds[] = {{xmPushButtonWidgetClass, false},
                                                      {xmLabelGadgetClass, false},
                                                      {xmTextFieldWidgetClass, false},
                                                      {xmRowColumnWidgetClass, true},
                                                      {xmFormWidgetClass, true},
                                                      {xmFrameWidgetClass, true},
                                                      {xmGridWidgetClass, true},
                                                      {xmScrolledWindowWidgetClass, true},
                                                      {objectClass, false}};
        const auto [kind, holds] = kinds[random.Between(0, 8)];
        Widget child = XtVaCreateWidget("child", kind, grid, XmNgravity, random.Between(-1, 11),
                                        XmNresizeHorizontal, random.Chance(0.5), nullptr);
        if (holds)
            XtVaCreateManagedWidget("inner", xmPushButtonWidgetClass, child, nullptr);
        return child;
    }
    void Change(Widget child, Random &random) {
        switch (random.Between(0, 5)) {
        case 0: return XtDestroyWidget(child);
        case 1: return XtIsRectObj(child) ? XtUnmanageChild(child) : void();
        case 2: return XtIsRectObj(child) ? XtManageChild(child) : void();
        case 3:
            return XtVaSetValues(child, XmNrow, random.Between(0, 2), XmNcolumn,
                                 random.Between(0, 2), nullptr);
        case 4:
            return XtIsRectObj(child)
                       ? XtVaSetValues(child, XmNwidth, random.Between(1, 90), nullptr)
                       : void();
        default:
            return XmIsLabel(child) || XmIsLabelGadget(child)
                       ? SetLabel(child, random.Chance(0.5) ? "" : "text of a label")
                       : void();
        }
    }
    void ExpectPlaced(Widget grid) {
        const auto &part = GridPartOf(grid);
        int y = 0;
        for (int row = 0; row < 3; ++row) {
            int x = 0;
            for (int column = 0; column < 3; ++column) {
                if (Widget child = ChildIn(grid, {row, column})) {
                    const XRectangle place = PlaceOf(child);
                    const int width = std::max<int>(part.columns[column].size, 1);
                    const int height = std::max<int>(part.rows[row].size, 1);
                    EXPECT_EQ(place.y, y + part.rows[row].margin);
                    EXPECT_EQ(place.height, height);
                    EXPECT_LE(place.width, width);
                    if (GridConstraintOf(child).resize_horizontal) {
                        EXPECT_EQ(place.x, x + part.columns[column].margin);
                        EXPECT_EQ(place.width, width);
                    }
                }
                x += part.columns[column].size + 2 * part.columns[column].margin;
            }
            y += part.rows[row].size + 2 * part.rows[row].margin;
        }
    }
};

TEST_F(GridLifeTest, RandomChildrenStandInTheirCells) {
    Random random;
    for (int life = 0; life < 12 && !HasFailure(); ++life) {
        Widget grid = MakeGrid(3, 3);
        const int shown_at = random.Between(0, 20);
        for (int step = 0; step < 50 && !HasFailure(); ++step) {
            SCOPED_TRACE("life " + std::to_string(life) + ", step " + std::to_string(step));
            auto &composite = reinterpret_cast<CompositeWidget>(grid)->composite;
            if (composite.num_children < 3 || (composite.num_children < 9 && random.Chance(0.4))) {
                // The grid does not take plain objects among its children: nobody else destroys them.
                Widget child = MakeAny(grid, random);
                XtIsRectObj(child) ? XtManageChild(child) : XtDestroyWidget(child);
            } else {
                Change(
                    composite
                        .children[random.Between(0, static_cast<int>(composite.num_children) - 1)],
                    random);
            }
            if (step == shown_at)
                Show();
            Pump();
            XtResizeWidget(grid, static_cast<Dimension>(random.Between(1, 700)), 300, 0);
            if (step >= shown_at)
                ExpectPlaced(grid);
        }
        XtDestroyWidget(grid);
    }
}

// Until the event that destroyed it is done, a child stands in the table: it counts in the rows'
// weights but not in the columns', nobody moves it, and nobody changes places with it.
TEST_F(GridTest, ADyingChildStillHoldsItsCell) {
    Widget grid = MakeGrid(2, 2);
    static Widget dying, other;
    Widget button = MakeButton(grid, "button", {0, 0});
    dying = MakeBox(grid, {1, 1}, 33, 44);
    other = MakeBox(grid, {1, 0});
    ShowLarge();
    XtAddCallback(
        button, XmNactivateCallback,
        [](Widget w, XtPointer, XtPointer) {
            Widget parent = XtParent(w);
            const XRectangle place = PlaceOf(dying);
            const int high = GridConstraintOf(dying).preferred_height;
            XtDestroyWidget(other);
            XtDestroyWidget(dying);
            XtVaSetValues(parent, XmNautoLayout, False, nullptr);
            XtVaSetValues(parent, XmNautoLayout, True, nullptr);
            const auto &part = GridPartOf(parent);
            EXPECT_EQ(part.rows[1].resizability, high);
            EXPECT_NE(part.columns[1].resizability, place.width);
            XmGridSetRowResizability(parent, 1, 0);
            EXPECT_EQ(part.rows[1].size, 0);
            EXPECT_EQ(PlaceOf(dying), place);
            XtVaSetValues(w, XmNrow, 1, XmNcolumn, 1, nullptr);
            EXPECT_EQ(NameOf(dying), (Cell{1, 1}));
            EXPECT_EQ(ChildIn(parent, {1, 1}), w);
        },
        nullptr);
    Click(button, 5, 5);
    EXPECT_EQ(ChildIn(grid, {1, 1}), button);
    EXPECT_EQ(ChildIn(grid, {1, 0}), nullptr);
    Widget late = XtVaCreateWidget("late", xmPushButtonWidgetClass, grid, nullptr);
    EXPECT_EQ(GridConstraintOf(late).preferred_width, Preferred(late).width);
}

// A client's destroy callback comes when the child has left the children, but not yet its cell.
TEST_F(GridTest, ATableMayChangeWhileAChildDies) {
    Widget grid = MakeGrid(2, 2);
    Widget child = MakeBox(grid, {1, 1});
    MakeBox(grid, {0, 0});
    Show();
    XtAddCallback(
        child, XmNdestroyCallback,
        [](Widget dying, XtPointer, XtPointer) {
            Widget parent = XtParent(dying);
            XtVaSetValues(dying, XmNrow, 0, XmNcolumn, 1, nullptr);
            XtVaSetValues(parent, XmNnumRows, 3, nullptr);
            XtVaSetValues(dying, XmNrow, -1, nullptr);
        },
        nullptr);
    XtDestroyWidget(child);
    for (int cell = 0; cell < 6; ++cell)
        EXPECT_NE(GridPartOf(grid).cells[cell], child);
    XtResizeWidget(grid, 200, 200, 0);
}

} // namespace
