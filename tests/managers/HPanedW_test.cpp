// The horizontal paned window as a client sees it: layout, negotiation, children.
#include <tests/managers/HPanedWTest.h>

#include <Xm/PushB.h>
#include <Xm/SeparatoG.h>
#include <Xm/TextF.h>

#include <utility>

namespace corvidlmw::test {
namespace {

using PanedTest = HorzPanedWindowTest;

TEST_F(PanedTest, LaysPanesOutWithSashesAndSeparatorsBetweenThem) {
    MakeThree();
    EXPECT_TRUE(XmIsPanedWindow(manager));
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 252, 66}));
    EXPECT_EQ(BoxesOf(panes),
              (std::vector<Box>{{3, 3, 100, 60}, {111, 3, 50, 60}, {169, 3, 80, 60}}));
    EXPECT_EQ(BoxesOf({SashOf(panes[0]), SashOf(panes[1])}),
              (std::vector<Box>{{103 + 4 - 5, 66 - 10 - 10, 10, 10}, {160, 46, 10, 10}}));
    EXPECT_EQ(BoxesOf({PaneOf(panes[0]).separator, PaneOf(panes[1]).separator}),
              (std::vector<Box>{{106, 0, 2, 66}, {164, 0, 2, 66}}));
    EXPECT_FALSE(XtIsManaged(SashOf(panes[2])));
    EXPECT_FALSE(XtIsManaged(PaneOf(panes[2]).separator));

    Resize(300, 100);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 128})) << "the last pane gives and takes first";
    EXPECT_EQ(BoxOf(panes[0]).height, 94);
    EXPECT_EQ(BoxOf(SashOf(panes[0])).y, 80);
    EXPECT_EQ(BoxOf(PaneOf(panes[0]).separator).height, 100);
    Resize(150, 100);
    EXPECT_EQ(Widths(), (Numbers{100, 27, 1}));
    Resize(10, 12);
    EXPECT_EQ(Widths(), (Numbers{1, 1, 1}));
    EXPECT_EQ(BoxOf(SashOf(panes[0])).y, 0) << "the indent is too large now";
}

TEST_F(PanedTest, PanesKeepTheirLimitsAndBorders) {
    MakePaned(XmNspacing, 9, XmNmarginWidth, 5, XmNmarginHeight, 7, XmNsashOffset, 3, XmNsashIndent,
              20, XmNsashWidth, 11);
    Widget fixed = Child(10, 60, XmNpaneMinimum, 40, XmNpaneMaximum, 40);
    Widget bordered = Child(60, 50, XmNborderWidth, 4, XmNpaneMaximum, 50);
    Widget last = Child(1200, 60);
    Show();
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 40 + 58 + 1000 + 18 + 10, 60 + 14}));
    EXPECT_EQ(BoxesOf({fixed, bordered, last}),
              (std::vector<Box>{{5, 7, 40, 60}, {54, 7, 50, 52}, {121, 7, 1000, 60}}));
    EXPECT_FALSE(XtIsManaged(SashOf(fixed)));
    EXPECT_TRUE(XtIsManaged(PaneOf(fixed).separator));
    EXPECT_EQ(BoxOf(SashOf(bordered)), (Box{112 + 4 - 5 + 3, 20, 11, 10}));
}

TEST_F(PanedTest, PanesComeGoAndChangePlaces) {
    MakeThree();
    XtUnmanageChild(panes[1]);
    EXPECT_EQ(BoxOf(manager).width, 194);
    EXPECT_FALSE(XtIsManaged(SashOf(panes[1])));
    EXPECT_EQ(BoxOf(panes[2]).x, 111);
    XtManageChild(panes[1]);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
    Widget first = Child(30, 20, XmNpositionIndex, 0);
    EXPECT_EQ(BoxesOf({first, panes[0]}), (std::vector<Box>{{3, 3, 30, 60}, {41, 3, 100, 60}}));

    const auto order = [&] {
        Numbers xs;
        for (Widget pane : {first, panes[0], panes[1], panes[2]})
            xs.push_back(BoxOf(pane).x);
        return xs;
    };
    XtVaSetValues(first, XmNpositionIndex, XmLAST_POSITION, nullptr);
    EXPECT_EQ(order(), (Numbers{257, 3, 111, 169}));
    EXPECT_TRUE(XtIsManaged(SashOf(panes[2])));
    EXPECT_FALSE(XtIsManaged(SashOf(first)));
    XtVaSetValues(first, XmNpositionIndex, 1, nullptr);
    EXPECT_EQ(order(), (Numbers{111, 3, 149, 207}));
    short index = 0;
    for (int wrong : {4, -2}) {
        XtVaSetValues(first, XmNpositionIndex, wrong, nullptr);
        XtVaGetValues(first, XmNpositionIndex, &index, nullptr);
        EXPECT_EQ(index, 1);
    }
    XtDestroyWidget(panes[0]);
    panes[0] = first;
    EXPECT_EQ(BoxesOf(panes), (std::vector<Box>{{3, 3, 30, 60}, {41, 3, 50, 60}, {99, 3, 80, 60}}));
    for (Widget pane : Widgets(panes))
        XtDestroyWidget(pane);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 6, 7})) << "the margins alone";
    EXPECT_EQ(reinterpret_cast<CompositeWidget>(manager)->composite.num_children, 0u);
}

TEST_F(PanedTest, NothingIsLaidOutUntilRefigureModeIsTrueAgain) {
    MakeThree(XmNrefigureMode, True);
    XtVaSetValues(manager, XmNrefigureMode, False, nullptr);
    Resize(300, 66);
    Widget fourth = Child(20, 60);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
    EXPECT_EQ(BoxOf(fourth).x, 0);
    Resize(280, 90);
    EXPECT_EQ(BoxOf(SashOf(panes[0])).y, 46);
    Resize(280, 66);
    EXPECT_EQ(BoxOf(manager).width, 280);
    XtVaSetValues(manager, XmNrefigureMode, True, nullptr);
    EXPECT_EQ(BoxOf(fourth).x, 257) << "also where the width is right already";
    XtVaSetValues(manager, XmNrefigureMode, False, nullptr);
    Resize(400, 66);
    XtVaSetValues(manager, XmNrefigureMode, True, nullptr);
    EXPECT_EQ(BoxOf(manager).width, 280) << "the width that the panes need";
}

TEST_F(PanedTest, ChangedResourcesMoveWhatTheyTouch) {
    MakeThree();
    XtVaSetValues(manager, XmNsashWidth, 20, XmNsashHeight, 0, XmNsashIndent, 5, XmNsashOffset, -2,
                  XmNsashShadowThickness, 3, nullptr);
    EXPECT_EQ(BoxOf(SashOf(panes[0])), (Box{103 + 4 - 10 - 2, 5, 20, 10}));
    EXPECT_EQ(BoxOf(SashOf(panes[2])).width, 20) << "hidden ones too";
    XtVaSetValues(manager, XmNspacing, 18, nullptr);
    EXPECT_EQ(BoxOf(manager).width, 272);
    EXPECT_EQ(BoxOf(panes[2]).x, 189);
    XtVaSetValues(manager, XmNmarginWidth, 13, XmNmarginHeight, 8, nullptr);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 292, 76}));
    EXPECT_EQ(BoxOf(panes[0]), (Box{13, 8, 100, 60}));
    for (bool on : {false, true}) {
        XtVaSetValues(manager, XmNseparatorOn, on ? True : False, nullptr);
        EXPECT_EQ(XtIsManaged(PaneOf(panes[1]).separator) != False, on);
        EXPECT_FALSE(XtIsManaged(PaneOf(panes[2]).separator));
    }
    // Widths in tenths of a millimetre; the server has 100 dots per inch, or says what it has.
    Dimension width = 0;
    XtVaSetValues(manager, XmNunitType, Xm100TH_MILLIMETERS, XmNspacing, 1000, nullptr);
    XtVaGetValues(manager, XmNspacing, &width, nullptr);
    EXPECT_NEAR(width, 1000, 40);
    EXPECT_GT(PanedOf(manager).spacing, 20);
}

TEST_F(PanedTest, LimitsThatCannotBeAreMended) {
    MakePaned();
    panes = {Child(30, 30, XmNpaneMinimum, 0), Child(30, 30, XmNpaneMaximum, 0),
             Child(30, 30, XmNpaneMinimum, 70, XmNpaneMaximum, 60)};
    ExpectWarning(_XmMsgPanedW_0000);
    ExpectWarning(_XmMsgPanedW_0001);
    ExpectWarning(_XmMsgPanedW_0002);
    Show();
    EXPECT_EQ(PaneOf(panes[0]).min, 1);
    EXPECT_EQ(PaneOf(panes[1]).max, 2);
    EXPECT_EQ(PaneOf(panes[2]).max, 71);
    EXPECT_EQ(Widths(), (Numbers{30, 2, 70}));

    XtVaSetValues(panes[0], XmNpaneMinimum, 0, nullptr);
    ExpectWarning(_XmMsgPanedW_0000);
    XtVaSetValues(panes[0], XmNpaneMaximum, 0, nullptr);
    ExpectWarning(_XmMsgPanedW_0001);
    XtVaSetValues(panes[0], XmNpaneMinimum, 80, XmNpaneMaximum, 20, nullptr);
    ExpectWarning(_XmMsgPanedW_0002);
    EXPECT_EQ(PaneOf(panes[0]).min, 1);
    EXPECT_EQ(PaneOf(panes[0]).max, 1000);
}

// A pane whose width gets fixed loses its sash, and gets one again later, also after the client took
// both of the window's children away.
TEST_F(PanedTest, NewLimitsShowAndHideTheSash) {
    MakeThree();
    XtVaSetValues(panes[0], XmNpaneMinimum, 100, XmNpaneMaximum, 100, nullptr);
    EXPECT_FALSE(XtIsManaged(SashOf(panes[0])));
    EXPECT_TRUE(XtIsManaged(PaneOf(panes[0]).separator));
    XtVaSetValues(panes[0], XmNpaneMaximum, 200, nullptr);
    EXPECT_TRUE(XtIsManaged(SashOf(panes[0])));

    XtDestroyWidget(SashOf(panes[0]));
    XtDestroyWidget(PaneOf(panes[0]).separator);
    EXPECT_EQ(SashOf(panes[0]), nullptr);
    Resize(300, 100);
    EXPECT_EQ(BoxOf(panes[0]).height, 94);
    XtVaSetValues(panes[0], XmNpaneMinimum, 20, nullptr);
    EXPECT_EQ(BoxOf(SashOf(panes[0])), (Box{102, 80, 10, 10}));
    EXPECT_EQ(BoxOf(PaneOf(panes[0]).separator), (Box{106, 0, 2, 100}));

    // The width follows only where the pane may ask for one; what a layout in between made of it stays.
    XtVaSetValues(panes[1], XmNpaneMinimum, 70, nullptr);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 128}));
    XtVaSetValues(panes[1], XmNpaneMinimum, 60, XmNpaneMaximum, 60, nullptr);
    EXPECT_EQ(Widths(), (Numbers{100, 60, 128}));
    XtVaSetValues(panes[2], XmNpaneMaximum, 90, XmNallowResize, True, nullptr);
    EXPECT_EQ(BoxOf(panes[2]).width, 90);
}

// ---- Negotiation ------------------------------------------------------------------------------------

struct Answer {
    XtGeometryResult result;
    int width;
    int height;
    bool operator==(const Answer &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Answer &answer) {
    return out << answer.result << ' ' << answer.width << 'x' << answer.height;
}

Answer Ask(Widget pane, XtGeometryMask mode, int width, int height) {
    XtWidgetGeometry request{};
    request.request_mode = mode;
    request.x = 33;
    request.width = static_cast<Dimension>(width);
    request.height = static_cast<Dimension>(height);
    XtWidgetGeometry reply{};
    const XtGeometryResult result = XtMakeGeometryRequest(pane, &request, &reply);
    return {result, reply.width, reply.height};
}

TEST_F(PanedTest, APaneThatMayResizeNegotiatesForTheWindow) {
    MakeThree();
    EXPECT_EQ(Ask(panes[0], CWWidth, 120, 0).result, XtGeometryNo);
    for (Widget pane : panes)
        XtVaSetValues(pane, XmNallowResize, True, nullptr);
    Judge::requests.clear();
    EXPECT_EQ(Ask(panes[0], CWX, 0, 0).result, XtGeometryNo);
    EXPECT_EQ(Ask(panes[0], CWWidth | XtCWQueryOnly, 120, 0).result, XtGeometryYes);
    EXPECT_EQ(Widths(), (Numbers{100, 50, 80}));
    EXPECT_EQ(Ask(panes[0], CWWidth, 120, 0).result, XtGeometryYes);
    EXPECT_EQ(Widths(), (Numbers{120, 50, 80}));
    EXPECT_EQ(BoxOf(manager).width, 272);
    EXPECT_EQ(Ask(panes[1], CWHeight, 0, 90).result, XtGeometryYes);
    EXPECT_EQ(BoxOf(manager).height, 96);
    EXPECT_EQ(BoxOf(panes[2]).height, 90);
    EXPECT_EQ(Judge::requests,
              (std::vector<Box>{{0, 0, 272, 66}, {0, 0, 272, 66}, {0, 0, 272, 96}}));

    const Numbers before = Widths();
    EXPECT_EQ(Ask(panes[1], CWHeight, 0, 40), (Answer{XtGeometryAlmost, 50, 90}));
    EXPECT_EQ(Ask(panes[1], CWX | CWWidth, 70, 0), (Answer{XtGeometryAlmost, 70, 90}));
    EXPECT_EQ(Ask(panes[1], CWWidth, 1500, 0), (Answer{XtGeometryAlmost, 1000, 90}));
    EXPECT_EQ(Ask(panes[1], CWWidth | CWHeight, 70, 40), (Answer{XtGeometryAlmost, 70, 90}));
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 272, 96})) << "it has not grown for an offer";
    Judge::answer = [](XtWidgetGeometry *offer) {
        offer->width = 280;
        offer->height = 110;
        return XtGeometryAlmost;
    };
    EXPECT_EQ(Ask(panes[1], CWWidth, 70, 0), (Answer{XtGeometryAlmost, 58, 90}));
    EXPECT_EQ(Ask(panes[1], CWHeight, 0, 200), (Answer{XtGeometryAlmost, 50, 104}));
    Judge::answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    EXPECT_EQ(Ask(panes[1], CWWidth, 70, 0), (Answer{XtGeometryAlmost, 50, 90}));
    EXPECT_EQ(Ask(panes[1], CWHeight, 0, 200), (Answer{XtGeometryAlmost, 50, 96}));
    EXPECT_EQ(Widths(), before);
    // Even where nothing may change outside, a request that needs no other width is met.
    XtVaSetValues(panes[1], XtNwidth, 50, XmNpaneMaximum, 60, nullptr);
    EXPECT_EQ(Widths(), before);
}

// The window and its panes disagree while nothing is laid out.
TEST_F(PanedTest, APaneAndTheWindowDoNotMakeOffersForEver) {
    MakeThree();
    XtVaSetValues(panes[1], XmNallowResize, True, nullptr);
    XtVaSetValues(manager, XmNrefigureMode, False, nullptr);
    Resize(272, 30);
    XtResizeWidget(panes[1], 50, 20, 0);
    Judge::answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    XtVaSetValues(panes[1], XtNheight, 80, nullptr);
    EXPECT_EQ(BoxOf(panes[1]).height, 60) << "as tall as the tallest";
    Judge::answer = [](XtWidgetGeometry *offer) {
        offer->width = 150;
        return XtGeometryAlmost;
    };
    XtVaSetValues(panes[1], XtNwidth, 1, nullptr);
    EXPECT_EQ(Ask(panes[1], CWWidth, 1, 0).result, XtGeometryNo);
    EXPECT_EQ(BoxOf(panes[1]).width, 50);
}

TEST_F(PanedTest, AsksItsParentForWhatItsPanesNeedAndLivesWithLess) {
    MakeThree();
    Judge::answer = [](XtWidgetGeometry *offer) {
        const bool fits = offer->width == 260;
        offer->width = 260;
        return fits ? XtGeometryYes : XtGeometryAlmost;
    };
    Judge::requests.clear();
    panes.push_back(Child(40, 90));
    EXPECT_EQ(Judge::requests[0], (Box{0, 0, 300, 96}));
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 260, 96}));
    EXPECT_EQ(Widths(), (Numbers{100, 50, 79, 1}));
    Judge::answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    XtUnmanageChild(panes[3]);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 260, 96}));
}

TEST_F(PanedTest, NeverAsksForAnExtentThatWrapsToNothing) {
    MakePaned(XmNmarginHeight, (65536 - 60) / 2, XmNmarginWidth, (65536 - 100) / 2);
    Child(100, 60);
    Show();
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 1, 1}));
}

// ---- Children of all kinds --------------------------------------------------------------------------

TEST_F(PanedTest, HoldsGadgetsFieldsAndPanedWindows) {
    MakePaned(XmNheight, 0);
    Widget object = XtCreateWidget("no rectangle", objectClass, manager, nullptr, 0);
    Widget outer = manager;
    Widget gadget = XtVaCreateManagedWidget("gadget", xmLabelGadgetClass, outer, nullptr);
    Widget doomed = Child(20, 20);
    manager = XtVaCreateManagedWidget("inner", xmHorzPanedWindowWidgetClass, outer, nullptr);
    Widget inner = manager;
    panes = {XtVaCreateManagedWidget("button", xmPushButtonWidgetClass, inner, nullptr),
             Child(60, 70)};
    XtDestroyWidget(doomed);
    Show();
    Widget field = XtVaCreateManagedWidget("field", xmTextFieldWidgetClass, inner, nullptr);
    EXPECT_EQ(BoxOf(field).height, 70);
    EXPECT_EQ(BoxOf(outer).height, 82);
    EXPECT_EQ(BoxOf(inner).x, 3 + gadget->core.width + 8);
    EXPECT_EQ(BoxOf(outer).width, BoxOf(inner).x + BoxOf(inner).width + 3);
    XtVaSetValues(inner, XmNallowResize, True, nullptr);
    const int width = BoxOf(outer).width;
    XtDestroyWidget(panes[0]);
    EXPECT_LT(BoxOf(outer).width, width);
    XtDestroyWidget(inner);
    EXPECT_EQ(BoxOf(outer).width, gadget->core.width + 6);
    XtDestroyWidget(object);
}

TEST_F(PanedTest, APaneMayDieInAResizeOfAnother) {
    MakePaned();
    for (int i = 0; i < 3; ++i)
        panes.push_back(XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, manager, XmNwidth,
                                                50, XmNheight, 50, nullptr));
    Show();
    const auto destroy = [](Widget, XtPointer victim, XtPointer) {
        if (Widget *child = static_cast<Widget *>(victim); *child)
            XtDestroyWidget(std::exchange(*child, nullptr));
    };
    XtAddCallback(panes[2], XmNresizeCallback, destroy, &panes[1]);
    XtVaSetValues(manager, XmNwidth, 300, nullptr);
    EXPECT_EQ(panes[1], nullptr);
    XtAddCallback(panes[2], XmNresizeCallback, destroy, &panes[0]);
    XtVaSetValues(manager, XmNwidth, 400, nullptr);
    EXPECT_EQ(panes[0], nullptr);
    EXPECT_EQ(BoxOf(panes[2]).x, 3);
}

TEST_F(PanedTest, TakesAllItMadeAlong) {
    Show();
    const auto before = ServerResources::Of(display);
    for (int round = 0; round < 2; ++round) {
        manager = XmCreateHorzPanedWindow(shell, Name("manager"), nullptr, 0);
        Child(30, 30);
        Child(30, 30);
        XtManageChild(manager);
        Pump();
        EXPECT_TRUE(XtIsRealized(manager));
        XtDestroyWidget(manager);
        Pump();
    }
    EXPECT_EQ(ServerResources::Of(display).windows(), before.windows());
    EXPECT_EQ(ServerResources::Of(display).pixmaps(), before.pixmaps());
}

} // namespace
} // namespace corvidlmw::test
