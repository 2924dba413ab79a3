/* Nodes as icons: pictures of their shapes, and arrows where children are not shown. */

#include "BrowserWindowTest.h"

#include <corvidlmw/gadget/IconG.h>

namespace graph_browser {
namespace {

class NodeIconsTest : public BrowserWindowTest {
protected:
    bool HasArrow(const std::string &label) const {
        return Get<Boolean>(Node(label), XmNshowArrow) != False;
    }
    Pixmap PictureOf(const std::string &label) const {
        return Get<Pixmap>(Node(label), XmNlabelPixmap);
    }
    void ShowIcons() {
        Type(XK_i);
        ASSERT_TRUE(IsSet("*Icons"));
    }
};

TEST_F(NodeIconsTest, HaveAPictureOfTheirShape) {
    window->Open(File("shapes.dot",
                      "digraph { node [shape=box]; a; b; c [shape=octagon];"
                      " d [shape=tripleoctagon]; e [shape=ellipse]; f [shape=odd] }"));
    RunWorkProcs();
    ShowIcons();
    EXPECT_TRUE(XmvIsIconGadget(Node("a")));
    EXPECT_NE(PictureOf("a"), XmUNSPECIFIED_PIXMAP);
    EXPECT_EQ(PictureOf("a"), PictureOf("b"));
    EXPECT_EQ(PictureOf("a"), PictureOf("f"));
    EXPECT_NE(PictureOf("a"), PictureOf("c"));
    EXPECT_NE(PictureOf("c"), PictureOf("d"));
    EXPECT_NE(PictureOf("a"), PictureOf("e"));
    Type(XK_i);
    EXPECT_FALSE(XmvIsIconGadget(Node("a")));
}

TEST_F(NodeIconsTest, HaveAnArrowWhereChildrenAreNotShown) {
    ShowIcons();
    for (const char *name : {"grandmother", "mother", "daughter", "son", "cat"})
        EXPECT_FALSE(HasArrow(name)) << name;
    Type(XK_b);
    EXPECT_TRUE(HasArrow("mother"));
    EXPECT_FALSE(HasArrow("grandmother"));
    ClickNode("mother");
    EXPECT_TRUE(StatusHas("around mother"));
    EXPECT_FALSE(HasArrow("mother"));
    EXPECT_TRUE(HasArrow("daughter"));
    EXPECT_FALSE(HasArrow("son"));
    EXPECT_FALSE(HasArrow("father"));
    window->Open(File("hidden.dot", "digraph { a -> b; b -> c; c [style=invis] }"));
    Type(XK_g);
    EXPECT_TRUE(HasArrow("b"));
    EXPECT_FALSE(HasArrow("a"));
}

TEST_F(NodeIconsTest, AreSelectedByAClickAndMadeByGestures) {
    ShowIcons();
    const Pixel plain = Get<Pixel>(Node("son"), XmNbackground);
    ClickNode("son");
    EXPECT_TRUE(StatusHas("selected: son"));
    EXPECT_NE(Get<Pixel>(Node("son"), XmNbackground), plain);
    ClickNode("cat");
    EXPECT_EQ(Get<Pixel>(Node("son"), XmNbackground), plain);

    Type(XK_e);
    Drag(graph, {5, 300}, {5, 300}, Button2, ShiftMask);
    RunWorkProcs();
    ASSERT_EQ(XmGraphNumNodes(graph), 7);
    int count = 0;
    const WidgetList nodes = XmGraphGetNodes(graph, &count);
    EXPECT_TRUE(XmvIsIconGadget(nodes[count - 1]));
    EXPECT_NE(Get<Pixmap>(nodes[count - 1], XmNlabelPixmap), XmUNSPECIFIED_PIXMAP);
}

} // namespace
} // namespace graph_browser
