// The rubber board as a client sees it.
#include <tests/managers/ManagerTest.h>

#include <corvidlmw/managers/RubberBoardP.h>

#include <Xm/TextF.h>

namespace corvidlmw::test {
namespace {

class RubberBoardTest : public ManagerTest {
protected:
    template <class... Args>
    void MakeBoard(Args... args) {
        Make(xmRubberBoardWidgetClass, XmNshadowThickness, 2, args...);
    }
    // With the two sizes of 200 by 100 and 400 by 300.
    void MakeActiveBoard() {
        MakeBoard(XmNinitialParentWidth, 200, XmNinitialParentHeight, 100, XmNfinalParentWidth, 400,
                  XmNfinalParentHeight, 300, XmNwidth, 200, XmNheight, 100);
    }
    template <class... Args>
    Widget Stretched(Args... args) {
        return Child(30, 20, XmNinitialX, 10, XmNfinalX, 30, XmNinitialY, 5, XmNfinalY, 105,
                     args...);
    }
};

TEST_F(RubberBoardTest, RecordsTwoLayoutsAndFollowsTheLineThroughThem) {
    MakeBoard(XmNwidth, 200, XmNheight, 100);
    Widget widget = Child(30, 20, XmNx, 10, XmNy, 5);
    Widget gadget =
        XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, manager, XmNx, 50, XmNy, 50, XmNwidth,
                                60, XmNheight, 30, XmNrecomputeSize, False, nullptr);
    Show();
    EXPECT_EQ(BoxOf(widget), (Box{10, 5, 30, 20})) << "free until recorded";
    XtVaSetValues(manager, XmNsetInitial, True, nullptr);
    Resize(400, 300);
    EXPECT_EQ(BoxOf(widget), (Box{10, 5, 30, 20}));
    XtVaSetValues(widget, XmNx, 30, XmNy, 105, XmNwidth, 70, nullptr);
    XtVaSetValues(gadget, XmNy, 250, XmNheight, 40, nullptr);
    XtVaSetValues(manager, XmNsetFinal, True, nullptr);

    Resize(300, 200);
    EXPECT_EQ(BoxesOf({widget, gadget}), (std::vector<Box>{{20, 55, 50, 20}, {50, 150, 60, 35}}));
    Resize(100, 100);
    EXPECT_EQ(BoxOf(widget), (Box{0, 5, 10, 20}));
    XtVaSetValues(widget, XmNx, 77, nullptr);
    EXPECT_EQ(BoxOf(widget), (Box{0, 5, 10, 20})) << "geometry belongs to the lines";

    // Only a change of the flag records.
    XtVaSetValues(manager, XmNsetFinal, True, nullptr);
    Resize(300, 200);
    EXPECT_EQ(BoxOf(widget), (Box{20, 55, 50, 20}));
    XtVaSetValues(manager, XmNsetFinal, False, nullptr);
    const auto &line =
        static_cast<XmRubberBoardConstraintPtr>(widget->core.constraints)->rubber_board;
    EXPECT_EQ(line.final_x + line.final_y + line.final_width + line.final_height, 0);
    EXPECT_EQ(line.initial_x, 10);
    XtVaSetValues(widget, XmNx, 77, nullptr);
    EXPECT_EQ(BoxOf(widget).x, 77);
    XtVaSetValues(manager, XmNsetInitial, False, nullptr);
    EXPECT_EQ(line.initial_x, 0);
}

TEST_F(RubberBoardTest, TakesTheTwoLayoutsFromResourcesAndPlacesUnmanagedChildrenToo) {
    MakeActiveBoard();
    Widget plain = Stretched();
    Widget wide = Stretched(XmNinitialWidth, 40, XmNfinalWidth, 140, XmNinitialHeight, 10,
                            XmNfinalHeight, 10);
    Widget hidden = Stretched();
    XtUnmanageChild(hidden);
    Show();
    Resize(300, 200);
    EXPECT_EQ(BoxesOf({plain, wide}), (std::vector<Box>{{20, 55, 30, 20}, {20, 55, 90, 10}}));
    EXPECT_EQ(hidden->core.x, 20);
    // A changed size of the board moves them at once, a changed constraint does not.
    XtVaSetValues(plain, XmNfinalX, 50, nullptr);
    EXPECT_EQ(BoxOf(plain).x, 20);
    XtVaSetValues(manager, XmNinitialParentWidth, 300, nullptr);
    EXPECT_EQ(BoxesOf({plain, wide}), (std::vector<Box>{{10, 55, 30, 20}, {10, 55, 40, 10}}));
    Widget late = XtVaCreateManagedWidget("late", xmTextFieldWidgetClass, manager, nullptr);
    EXPECT_EQ(BoxOf(late).x, 0);
    EXPECT_GT(BoxOf(late).width, 20);
}

TEST_F(RubberBoardTest, ThingsToldAtCreationRecordNothing) {
    MakeBoard(XmNsetInitial, True, XmNsetFinal, True, XmNwidth, 0);
    Widget child = Child(30, 20, XmNx, 10, XmNy, 5);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 10, 10}));
    Show();
    XtVaSetValues(manager, XmNsetInitial, True, nullptr);
    Resize(300, 200);
    EXPECT_EQ(BoxOf(child), (Box{10, 5, 30, 20}));
}

TEST_F(RubberBoardTest, AnswersQueriesWithTheInitialSizeAndItsMargins) {
    MakeBoard(XmNmarginWidth, 5, XmNmarginHeight, 7, XmNinitialParentWidth, 200,
              XmNinitialParentHeight, 100);
    Show();
    Box preferred;
    EXPECT_EQ(Query(0, 0, 0, preferred), XtGeometryAlmost);
    EXPECT_EQ(preferred, (Box{0, 0, 214, 118}));
    EXPECT_EQ(Query(CWWidth | CWHeight, 214, 118, preferred), XtGeometryYes);
    XtVaSetValues(manager, XmNinitialParentWidth, 65535, nullptr);
    EXPECT_EQ(Query(CWHeight, 0, 0, preferred), XtGeometryAlmost);
    EXPECT_EQ(preferred.width, 13) << "modulo 65536";

    Widget usual = XmCreateRubberBoard(manager, Name("usual"), nullptr, 0);
    Dimension margins[2] = {};
    XtVaGetValues(usual, XmNmarginWidth, &margins[0], XmNmarginHeight, &margins[1], nullptr);
    EXPECT_EQ(margins[0], 10);
    EXPECT_EQ(margins[1], 10);
}

// A board that shrinks gets no exposure, so it draws its shadow itself.
TEST_F(RubberBoardTest, ItsShadowFollowsItsSize) {
    ExpectShadowToFollow(xmRubberBoardWidgetClass);
}

TEST_F(RubberBoardTest, ADialogGoesWithItsBoard) {
    Show();
    const int windows = ServerResources::Of(display).windows();
    Widget board = XmCreateRubberBoardDialog(shell, Name("board"), nullptr, 0);
    EXPECT_STREQ(XtName(XtParent(board)), "board_popup");
    EXPECT_TRUE(XmIsRubberBoard(board));
    XtManageChild(XmCreateRubberBoard(board, Name("nested"), nullptr, 0));
    XtManageChild(board);
    Pump();
    EXPECT_TRUE(XtIsRealized(XtNameToWidget(board, "nested")));
    XtDestroyWidget(board);
    Pump();
    EXPECT_EQ(ServerResources::Of(display).windows(), windows);
}

} // namespace
} // namespace corvidlmw::test
