#include "BrowserWindowTest.h"

namespace graph_browser {
namespace {

TEST_F(BrowserWindowTest, AFileBecomesNodesAndArcsWithItsAttributes) {
    ExpectSize(6, 5);
    EXPECT_TRUE(StatusHas("family.dot: 6 nodes, 5 arcs"));
    EXPECT_EQ(Get<unsigned char>(Arc(0), XmNarcDirection), XmDIRECTED);
    EXPECT_EQ(Get<unsigned char>(Arc(2), XmNarcDirection), XmBIDIRECTED);
    EXPECT_EQ(Get<unsigned char>(Arc(4), XmNarcDirection), XmUNDIRECTED);
    EXPECT_EQ(Get<int>(Arc(0), XmNarcWidth), 3);
    EXPECT_EQ(Get<Boolean>(Arc(0), XmNmapLabel), True);
    EXPECT_EQ(Get<unsigned char>(Arc(1), XmNstyle), LineOnOffDash);
    EXPECT_EQ(Get<Widget>(Arc(0), XmNfrom), Node("grandmother"));
    EXPECT_EQ(Get<Widget>(Arc(0), XmNto), Node("mother"));
    EXPECT_LT(X("grandmother"), X("mother"));
    EXPECT_LT(X("mother"), X("son"));
}

TEST_F(BrowserWindowTest, AClickedNodeIsSelectedAndLooksIt) {
    const Pixel plain = Get<Pixel>(Node("son"), XmNbackground);
    ClickNode("son");
    EXPECT_TRUE(StatusHas("selected: son"));
    EXPECT_NE(Get<Pixel>(Node("son"), XmNbackground), plain);
    EXPECT_TRUE(window->View().SelectByName("mother"));
    EXPECT_FALSE(window->View().SelectByName("nobody"));
    EXPECT_TRUE(StatusHas("selected: mother"));
    EXPECT_EQ(Get<Pixel>(Node("son"), XmNbackground), plain);
}

TEST_F(BrowserWindowTest, TheButterflyHoldsTheSelectedNodeAndItsNeighbours) {
    Type(XK_b);
    EXPECT_TRUE(StatusHas("around grandmother")) << "the first node, without a selection";
    EXPECT_EQ(XmGraphNumNodes(graph), 2);
    ClickNode("mother");
    EXPECT_TRUE(IsSet("*Butterfly"));
    EXPECT_EQ(Get<unsigned char>(graph, XmNlayoutStyle), XmBUTTERFLY);
    ExpectSize(5, 4);
    EXPECT_LT(X("grandmother"), X("mother"));
    EXPECT_EQ(X("grandmother"), X("father"));
    EXPECT_GT(X("daughter"), X("mother"));
    EXPECT_EQ(X("daughter"), X("son"));

    ClickNode("daughter");
    EXPECT_TRUE(StatusHas("around daughter"));
    ExpectSize(3, 2);
    EXPECT_LT(X("mother"), X("daughter"));

    Type(XK_g);
    EXPECT_EQ(XmGraphNumNodes(graph), 6);
    EXPECT_TRUE(StatusHas("selected: daughter"));
}

TEST_F(BrowserWindowTest, TheViewMenuChangesAndShowsTheWidgetsResources) {
    EXPECT_TRUE(IsSet("*Horizontal"));
    Type(XK_v);
    EXPECT_EQ(Get<unsigned char>(graph, XmNorientation), XmVERTICAL);
    EXPECT_FALSE(IsSet("*Horizontal"));
    EXPECT_EQ(Get<short>(Arc(0), XmNfromSide), XmARC_BOTTOM);

    Type(XK_t);
    EXPECT_EQ(Get<Boolean>(graph, XmNtwinsVisible), False);
    for (bool shown : {false, true}) {
        Type(XK_l);
        EXPECT_EQ(Get<Boolean>(Arc(0), XmNmapLabel), shown);
    }
    EXPECT_EQ(Get<Boolean>(Arc(1), XmNmapLabel), False) << "it has no label to show";

    EXPECT_TRUE(IsSet("*Wide")) << "labels want room";
    window->View().SetSpacing({80, 6});
    EXPECT_TRUE(IsSet("*Compact"));
    XtVaSetValues(graph, XmNchildSpacing, 33, nullptr);
    window->View().SetArcDrawMode(XmPOSITION_FIXED);
    window->View().Select(0);
    EXPECT_FALSE(IsSet("*Compact"));
    EXPECT_TRUE(IsSet("*Fixed"));
}

TEST_F(BrowserWindowTest, AFileThatCannotBeReadLeavesTheGraphStanding) {
    ClickNode("son");
    const std::string bad = File("bad.dot", "digraph {\n a -> }\n");
    Choose(bad);
    const Widget dialog = XtNameToWidget(shell, "*errorDialog");
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(XtIsManaged(dialog));
    EXPECT_EQ(Label(XtNameToWidget(dialog, "Message")), bad + ":2: syntax error near '}'");
    EXPECT_EQ(XmGraphNumNodes(graph), 6);
    EXPECT_TRUE(StatusHas("family.dot"));
    EXPECT_TRUE(StatusHas("selected: son"));
}

TEST_F(BrowserWindowTest, AClickOnAGraphThatIsAboutToGoSelectsNothing) {
    const Widget cat = Node("cat");
    window->Open(File("one.dot", "digraph { one }"));
    Click(cat, 5, 5);
    RunWorkProcs();
    EXPECT_EQ(XmGraphNumNodes(graph), 1);
    EXPECT_FALSE(StatusHas("selected"));
}

TEST_F(BrowserWindowTest, ClosingTheWindowQuits) {
    Close();
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(XmGraphNumNodes(graph), 6) << "the widgets die later";
}

TEST_F(BrowserWindowTest, AnotherFileTakesTheWholePlace) {
    ClickNode("son");
    Choose(File("two.dot", "graph { rankdir=TB; one -- two; one -- one }"));
    ExpectSize(2, 2);
    EXPECT_EQ(Get<unsigned char>(graph, XmNorientation), XmVERTICAL);
    EXPECT_TRUE(StatusHas("two.dot: 2 nodes, 2 arcs"));
    EXPECT_FALSE(StatusHas("selected"));
    window->Open(File("none.dot", "digraph { }"));
    Type(XK_b);
    ExpectSize(0, 0);
}

} // namespace
} // namespace graph_browser
