// The spring box as a client sees it.
#include <tests/managers/ManagerTest.h>

#include <corvidlmw/managers/SpringBoxP.h>

#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/TextF.h>

namespace corvidlmw::test {
namespace {

class SpringBoxTest : public ManagerTest {
protected:
    template <class... Args>
    void MakeBox(Args... args) {
        Make(xmSpringBoxWidgetClass, args...);
    }
};

TEST_F(SpringBoxTest, SpreadsItsChildrenAlongEitherDirection) {
    MakeBox(XmNshadowThickness, 0);
    Widgets children{Child(50, 20), Child(50, 20), Child(50, 20)};
    Show();
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 154, 20})) << "as small as it may be";
    Resize(300, 40);
    EXPECT_EQ(BoxesOf(children),
              (std::vector<Box>{{24, 10, 50, 20}, {124, 10, 50, 20}, {224, 10, 50, 20}}));
    XtVaSetValues(manager, XmNorientation, XmVERTICAL, nullptr);
    Resize(100, 124);
    EXPECT_EQ(BoxesOf(children),
              (std::vector<Box>{{25, 10, 50, 20}, {25, 52, 50, 20}, {25, 94, 50, 20}}));
}

TEST_F(SpringBoxTest, MarginsShadowAndEverySideHaveTheirOwnNumbers) {
    MakeBox(XmNshadowThickness, 3, XmNmarginWidth, 10, XmNmarginHeight, 20, XmNminSpacing, 7);
    Widget a = Child(50, 20, XmNleftSpring, 10, XmNrightSpring, 20, XmNhorizontalSpring, 30,
                     XmNtopSpring, 5, XmNbottomSpring, 15, XmNverticalSpring, 20);
    Widget b = Child(40, 30, XmNleftSpring, 0, XmNrightSpring, 40, XmNtopSpring, 0);
    Show();
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 97 + 26, 30 + 46}));
    Resize(223, 136);
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{23, 24, 80, 58}, {130, 20, 40, 30}}));
    XtVaSetValues(manager, XmNorientation, XmVERTICAL, nullptr);
    Resize(146, 203);
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{16, 28, 88, 42}, {10, 93, 40, 30}}));
}

TEST_F(SpringBoxTest, GrowsWithWhatItsChildrenAskFor) {
    MakeBox(XmNshadowThickness, 0);
    Widget a = Child(50, 20), b = Child(50, 20);
    Show();
    EXPECT_EQ(XtMakeResizeRequest(a, 80, 20, nullptr, nullptr), XtGeometryYes);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 132, 20}));
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{0, 0, 80, 20}, {82, 0, 50, 20}}));

    Judge::answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    XtMakeResizeRequest(b, 50, 90, nullptr, nullptr);
    EXPECT_EQ(BoxOf(manager), (Box{0, 0, 132, 20}));
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{0, 0, 80, 20}, {82, 0, 50, 20}}));

    XtUnmanageChild(a);
    Judge::requests.clear();
    Judge::answer = [](XtWidgetGeometry *offer) {
        const bool fits = offer->height == 50;
        offer->height = 50;
        return fits ? XtGeometryYes : XtGeometryAlmost;
    };
    XtMakeResizeRequest(b, 50, 90, nullptr, nullptr);
    EXPECT_EQ(Judge::requests, (std::vector<Box>{{0, 0, 132, 90}, {0, 0, 132, 50}}))
        << "unmanaged children count";
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{0, 15, 80, 20}, {82, 0, 50, 50}}));
}

// The box lays out before the toolkit asks for the new size, and what it left is asked for: all of it
// where nothing may shrink.
TEST_F(SpringBoxTest, ASizeSetByResourceIsSquashedBeforeItIsAskedFor) {
    for (const auto &[policy, width] : {std::pair{XmRESIZE_NONE, 132}, {XmRESIZE_ANY, 113}}) {
        MakeBox(XmNshadowThickness, 0, XmNresizePolicy, policy);
        Widget a = Child(50, 20);
        Child(50, 20);
        Show();
        XtVaSetValues(a, XtNwidth, 80, nullptr);
        EXPECT_EQ(BoxOf(manager), (Box{0, 0, width, 20}));
        XtDestroyWidget(XtParent(manager));
    }
}

// A stretching label is put back before it can ask; when children are managed next it is heard.
TEST_F(SpringBoxTest, ALabelsNewTextIsHeardWhenChildrenAreManaged) {
    MakeBox();
    Widget label = XtVaCreateManagedWidget("label", xmLabelWidgetClass, manager,
                                           XmNhorizontalSpring, 1, nullptr);
    Widget other = Child(30, 10);
    Show();
    const int before = BoxOf(manager).width;
    XmString text = XmStringCreateLocalized(Name("a much longer text than before"));
    XtVaSetValues(label, XmNlabelString, text, nullptr);
    XmStringFree(text);
    EXPECT_EQ(BoxOf(manager).width, before);
    XtUnmanageChild(other);
    EXPECT_GT(BoxOf(manager).width, before);
}

TEST_F(SpringBoxTest, ASpringSetLaterMovesTheChildAndAsksOnlyForTheNaturalSize) {
    MakeBox(XmNshadowThickness, 0);
    Widget a = Child(50, 20), b = Child(50, 20);
    Show();
    Resize(202, 20);
    Judge::requests.clear();
    Judge::answer = [](XtWidgetGeometry *) { return XtGeometryNo; };
    XtVaSetValues(a, XmNleftSpring, 0, XmNrightSpring, 0, XmNhorizontalSpring, 100, nullptr);
    EXPECT_EQ(BoxOf(manager).width, 202);
    // What it was stretched to is now what it prefers.
    EXPECT_EQ(BoxesOf({a, b}), (std::vector<Box>{{0, 0, 125, 20}, {139, 0, 50, 20}}));
    EXPECT_EQ(Judge::requests, (std::vector<Box>{{0, 0, 152, 20}}));
}

TEST_F(SpringBoxTest, AnswersQueriesWithItsNaturalSize) {
    MakeBox(XmNshadowThickness, 0);
    Box preferred;
    EXPECT_EQ(Query(0, 0, 0, preferred), XtGeometryAlmost);
    EXPECT_EQ(preferred, (Box{0, 0, 65534, 1})) << "an empty box";
    Child(50, 20);
    Show();
    Resize(80, 30);
    constexpr XtGeometryMask both = CWWidth | CWHeight;
    EXPECT_EQ(Query(both | CWX, 50, 20, preferred), XtGeometryYes);
    EXPECT_EQ(Query(CWWidth, 50, 20, preferred), XtGeometryAlmost);
    EXPECT_EQ(preferred, (Box{0, 0, 50, 20}));
    EXPECT_EQ(Query(both, 50, 20, preferred), XtGeometryYes);
    EXPECT_EQ(Query(both, 50, 21, preferred), XtGeometryAlmost);
    Resize(50, 20);
    EXPECT_EQ(Query(both, 50, 21, preferred), XtGeometryNo);
    EXPECT_EQ(Query(0, 0, 0, preferred), XtGeometryAlmost);
    reinterpret_cast<XmSpringBoxWidget>(manager)->spring_box.orientation = XmNO_ORIENTATION;
    Resize(77, 33);
    EXPECT_EQ(Query(0, 0, 0, preferred), XtGeometryAlmost);
    EXPECT_EQ(preferred, (Box{0, 0, 77, 33})) << "no orientation, no natural size";
}

// Widgets, gadgets, fields, boxes in boxes; destroyed and unmanaged before and after realisation.
TEST_F(SpringBoxTest, HoldsChildrenOfAllKindsAndForgetsThoseThatDie) {
    const auto fill = [this](Widget into) {
        manager = into;
        Widgets made{Child(50, 20)};
        for (WidgetClass kind :
             {xmLabelGadgetClass, xmPushButtonWidgetClass, xmTextFieldWidgetClass})
            made.push_back(XtVaCreateManagedWidget("child", kind, into, nullptr));
        return made;
    };
    MakeBox(XmNorientation, XmVERTICAL);
    Widget outer = manager;
    const Widgets first = fill(outer);
    XtDestroyWidget(first[0]);
    XtUnmanageChild(first[1]);
    Widget inner = XtVaCreateManagedWidget("inner", xmSpringBoxWidgetClass, outer, nullptr);
    Show();
    const Widgets second = fill(inner);
    const int full = BoxOf(outer).width;
    XtUnmanageChild(second[1]);
    XtDestroyWidget(second[3]);
    XtDestroyWidget(second[2]);
    XtManageChild(second[1]);
    EXPECT_LT(BoxOf(outer).width, full);
    EXPECT_EQ(BoxOf(inner).x, (BoxOf(outer).width - BoxOf(inner).width) / 2);
    for (Widget child : {first[1], first[2], first[3], inner})
        EXPECT_GE(BoxOf(child).x, 0);
}

TEST_F(SpringBoxTest, AChildMayDieInAResizeOfAnother) {
    MakeBox(XmNshadowThickness, 0);
    Widget first = Child(20, 20);
    Widget area = XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, manager, XmNwidth, 20,
                                          XmNheight, 20, XmNhorizontalSpring, 10, XmNresizePolicy,
                                          XmRESIZE_NONE, nullptr);
    Widget last = Child(20, 20);
    Show();
    XtAddCallback(
        area, XmNresizeCallback,
        [](Widget, XtPointer victim, XtPointer) {
            auto *child = static_cast<Widget *>(victim);
            if (*child)
                XtDestroyWidget(std::exchange(*child, nullptr));
        },
        &first);
    XtVaSetValues(manager, XmNwidth, 300, nullptr);
    EXPECT_EQ(first, nullptr);
    EXPECT_GT(BoxOf(last).x, BoxOf(area).x + BoxOf(area).width);
}

TEST_F(SpringBoxTest, ItsShadowFollowsItsSize) {
    ExpectShadowToFollow(xmSpringBoxWidgetClass);
}

TEST_F(SpringBoxTest, ADialogGoesWithItsBoxAndNothingStays) {
    Show();
    const auto before = ServerResources::Of(display);
    for (int round = 0; round < 2; ++round) {
        Arg arg;
        XtSetArg(arg, Name(XmNminSpacing), 9);
        Widget box = XmCreateSpringBoxDialog(shell, Name("box"), &arg, 1);
        EXPECT_STREQ(XtName(XtParent(box)), "box_popup");
        EXPECT_TRUE(XmIsManager(box));
        Boolean resizable = False;
        XtVaGetValues(XtParent(box), XmNallowShellResize, &resizable, nullptr);
        EXPECT_TRUE(resizable);
        manager = box;
        Child(50, 20);
        Child(50, 20);
        XtManageChild(box);
        Pump();
        EXPECT_TRUE(XtIsRealized(box));
        EXPECT_EQ(BoxOf(box).width, 111) << "a dialog's shadow is 1";
        XtDestroyWidget(box);
        Pump();
    }
    EXPECT_EQ(ServerResources::Of(display).windows(), before.windows());
    EXPECT_EQ(ServerResources::Of(display).pixmaps(), before.pixmaps());
}

} // namespace
} // namespace corvidlmw::test
