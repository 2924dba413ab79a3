// Which child gets which cell, step by step and against a model over random lives.
#include <tests/managers/GridTest.h>

#include <algorithm>
#include <map>
#include <optional>

namespace {

using namespace corvidlmw::test;

constexpr int unset = XmGRID_UNSET;

class GridCellsTest : public GridTest {};

TEST_F(GridCellsTest, ChildrenWithoutAFullNameTakeEmptyCells) {
    Widget grid = MakeGrid(3, 2);
    EXPECT_EQ(NameOf(MakeBox(grid)), (Cell{0, 0}));
    EXPECT_EQ(NameOf(MakeBox(grid)), (Cell{0, 1}));
    EXPECT_EQ(NameOf(MakeBox(grid, {2, unset})), (Cell{2, 0}));
    EXPECT_EQ(NameOf(MakeBox(grid, {2, unset})), (Cell{2, 1}));
    EXPECT_EQ(NameOf(MakeBox(grid, {2, unset})), (Cell{1, 0})) << "its row is full";
    Widget flat = MakeBox(grid, {unset, 1});
    EXPECT_EQ(NameOf(flat), (Cell{0, 3})) << "along the table, from column 1 on";
    EXPECT_EQ(ChildIn(grid, {1, 1}), flat);
    EXPECT_EQ(NameOf(MakeBox(grid)), (Cell{unset, unset})) << "there is no cell left";
    EXPECT_EQ(NameOf(MakeBox(grid, {unset, 4})), (Cell{unset, 4}));
}

TEST_F(GridCellsTest, AChildThatNamesATakenCellPushesTheOtherAwayAndASetOneSwaps) {
    Widget grid = MakeGrid(1, 3);
    Widget first = MakeBox(grid, {0, 1});
    Widget second = MakeBox(grid, {0, 1});
    EXPECT_EQ(NameOf(second), (Cell{0, 1}));
    EXPECT_EQ(NameOf(first), (Cell{0, 0}));
    Show();
    XtVaSetValues(second, XmNcolumn, 0, nullptr);
    EXPECT_EQ(NameOf(first), (Cell{0, 1}));
    EXPECT_GT(PlaceOf(first).x, PlaceOf(second).x);
    Widget third = MakeBox(grid);
    MakeBox(grid, {0, 2});
    EXPECT_EQ(NameOf(third), (Cell{unset, unset})) << "nowhere left to go";
}

TEST_F(GridCellsTest, FullNamesOutOfTheTableAreFatal) {
    for (const Cell beyond : {Cell{2, 0}, Cell{0, 2}, Cell{1, 2'000'000'000}}) {
        const char *message = "XmGrid: Row/column specification out of range. ";
        ExpectFatal(
            [&](Widget own_shell) {
                XtVaCreateWidget("child", coreWidgetClass,
                                 XtVaCreateWidget("grid", xmGridWidgetClass, own_shell, XmNnumRows,
                                                  2, XmNnumColumns, 2, nullptr),
                                 XmNrow, beyond.row, XmNcolumn, beyond.column, nullptr);
            },
            message);
        ExpectFatal(
            [&](Widget own_shell) {
                Widget grid = XtVaCreateWidget("grid", xmGridWidgetClass, own_shell, XmNnumRows, 2,
                                               XmNnumColumns, 2, nullptr);
                Widget child = XtVaCreateWidget("child", coreWidgetClass, grid, nullptr);
                XtVaSetValues(child, XmNrow, beyond.row, XmNcolumn, beyond.column, nullptr);
            },
            message);
    }
}

// A grid of one cell starts anew; one that shrinks unsets the names in the lost corner only.
TEST_F(GridCellsTest, AnotherNumberOfCells) {
    Widget single = MakeGrid(1, 1);
    Widget only = MakeBox(single);
    XmGridSetRowMargin(single, 0, 17);
    XtVaSetValues(single, XmNnumRows, 2, XmNnumColumns, 2, nullptr);
    EXPECT_EQ(NameOf(only), (Cell{0, 0}));
    EXPECT_EQ(ChildIn(single, {0, 0}), nullptr);
    EXPECT_EQ(GridPartOf(single).rows[0].margin, 4);

    std::vector<Widget> boxes;
    XtDestroyWidget(only);
    for (int i = 0; i < 4; ++i)
        boxes.push_back(MakeBox(single));
    XmGridSetColumnMargin(single, 0, 9);
    XmGridSetColumnResizability(single, 0, 0);
    XtVaSetValues(single, XmNnumRows, 1, XmNnumColumns, 1, nullptr);
    ExpectWarning("Grid widget: More children than cells");
    EXPECT_EQ(ChildIn(single, {0, 0}), boxes[0]);
    EXPECT_EQ(NameOf(boxes[1]), (Cell{0, 1}));
    EXPECT_EQ(NameOf(boxes[2]), (Cell{1, 0}));
    EXPECT_EQ(NameOf(boxes[3]), (Cell{unset, unset}));
    EXPECT_EQ(GridPartOf(single).columns[0].margin, 9);
    EXPECT_EQ(GridPartOf(single).columns[0].resizability, 0);
}

// ---- Random lives ---------------------------------------------------------------------------------

// Written from what a client is told about cells, with one list of (cell, child) instead of a table.
struct Model {
    int rows, columns;
    std::map<int, Widget> holders; // by flat index
    std::map<Widget, Cell> names;

    std::optional<int> FirstEmpty(int begin, int end) const {
        for (int cell = std::max(begin, 0); begin >= 0 && cell < std::min(end, rows * columns);
             ++cell)
            if (!holders.contains(cell))
                return cell;
        return {};
    }
    void Leave(Widget child) {
        std::erase_if(holders, [child](const auto &entry) { return entry.second == child; });
    }
    void Put(Widget child, int cell, Cell name) {
        Leave(child);
        holders[cell] = child;
        names[child] = name;
    }
    std::optional<int> Named(Cell name) const {
        if (name.row < 0 || name.row >= rows || name.column < 0 || name.column >= columns)
            return {};
        return name.row * columns + name.column;
    }
    void Assign(Widget child) {
        const Cell name = names[child];
        if (name.column != unset && name.row != unset) {
            if (const auto cell = Named(name))
                Put(child, *cell, name);
        } else if (name.column != unset) {
            if (const auto cell = FirstEmpty(name.column, rows * columns))
                Put(child, *cell, {0, *cell});
        } else {
            const bool row_exists = name.row >= 0 && name.row < rows;
            auto cell = row_exists ? FirstEmpty(name.row * columns, (name.row + 1) * columns)
                                   : std::nullopt;
            if (!cell)
                cell = FirstEmpty(0, rows * columns);
            if (cell)
                Put(child, *cell, {*cell / columns, *cell % columns});
        }
    }
    Widget OtherIn(Cell name, Widget child) const {
        const auto cell = Named(name);
        const auto found = cell ? holders.find(*cell) : holders.end();
        return found == holders.end() || found->second == child ? nullptr : found->second;
    }
    void Create(Widget child, Cell name) {
        names[child] = name;
        if (name.row != unset && name.column != unset)
            if (Widget other = OtherIn(name, child)) {
                names[other] = {};
                Assign(other);
            }
        Assign(child);
    }
    void Rename(Widget child, Cell name) {
        const Cell old = std::exchange(names[child], name);
        if (old == name || name.row == unset || name.column == unset || !Named(name))
            return;
        if (Widget other = OtherIn(name, child)) {
            names[other] = old;
            const bool flat = old.row == 0 && old.column >= columns && old.column < rows * columns;
            if (flat && old.column != unset)
                Put(other, old.column, old);
            else
                Assign(other);
        }
        Assign(child);
    }
    void Resize(int new_rows, int new_columns) {
        std::map<int, Widget> kept;
        for (const auto &[cell, child] : holders) {
            const int row = cell / columns, column = cell % columns;
            if (row >= new_rows && column >= new_columns)
                names[child] = {};
            else if (row < new_rows && column < new_columns && rows * columns > 1)
                kept[row * new_columns + column] = child;
        }
        holders = kept;
        rows = new_rows;
        columns = new_columns;
    }
};

class Life {
public:
    Life(Widget grid, Random &random)
        : grid_(grid),
          random_(random), model_{GridPartOf(grid).num_rows, GridPartOf(grid).num_columns, {}, {}} {
    }

    void Step() {
        const int kind = random_.Between(0, 9);
        if (kind < 3 || model_.names.empty())
            Create();
        else if (kind < 7)
            Rename(Any());
        else if (kind < 9)
            Destroy(Any());
        else
            Resize();
        Check();
    }

private:
    Widget Any() {
        return std::next(model_.names.begin(),
                         random_.Between(0, static_cast<int>(model_.names.size()) - 1))
            ->first;
    }
    int AnyIndex(int count) {
        const int kind = random_.Between(0, 9);
        return kind == 0 ? -1 : kind < 3 ? unset : random_.Between(0, count - 1);
    }
    // Beyond the table only where that is not fatal.
    Cell AnyName() {
        Cell name = {AnyIndex(model_.rows), AnyIndex(model_.columns)};
        if (name.row == unset && random_.Chance(0.5))
            name.column = random_.Between(-2, model_.rows * model_.columns + 1);
        if (name.column == unset && random_.Chance(0.5))
            name.row = random_.Between(-2, model_.rows + 2);
        return name;
    }
    void Create() {
        const Cell name = AnyName();
        Widget child = XtVaCreateWidget("child", coreWidgetClass, grid_, XmNrow, name.row,
                                        XmNcolumn, name.column, XmNwidth, 9, XmNheight, 9, nullptr);
        model_.Create(child, name);
        if (random_.Chance(0.8))
            XtManageChild(child);
    }
    void Rename(Widget child) {
        const Cell name = AnyName();
        XtVaSetValues(child, XmNrow, name.row, XmNcolumn, name.column, nullptr);
        model_.Rename(child, name);
    }
    void Destroy(Widget child) {
        XtDestroyWidget(child);
        model_.Leave(child);
        model_.names.erase(child);
    }
    void Resize() {
        const int rows = random_.Between(1, 4), columns = random_.Between(1, 4);
        XtVaSetValues(grid_, XmNnumRows, rows, XmNnumColumns, columns, nullptr);
        if (rows != model_.rows || columns != model_.columns)
            model_.Resize(rows, columns);
        Complaints::Current().warnings.clear();
    }
    void Check() {
        for (int cell = 0; cell < model_.rows * model_.columns; ++cell) {
            const auto found = model_.holders.find(cell);
            ASSERT_EQ(GridPartOf(grid_).cells[cell],
                      found == model_.holders.end() ? nullptr : found->second);
        }
        for (const auto &[child, name] : model_.names)
            ASSERT_EQ(NameOf(child), name);
    }

    Widget grid_;
    Random &random_;
    Model model_;
};

TEST_F(GridCellsTest, RandomLivesFollowTheModel) {
    Random random;
    for (int life = 0; life < 40; ++life) {
        Widget grid = MakeGrid(random.Between(1, 4), random.Between(1, 4));
        if (life % 2 == 0)
            Show();
        Life one(grid, random);
        for (int step = 0; step < 60 && !HasFatalFailure(); ++step) {
            SCOPED_TRACE("life " + std::to_string(life) + ", step " + std::to_string(step));
            one.Step();
        }
        XtDestroyWidget(grid);
    }
}

} // namespace
