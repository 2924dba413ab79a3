// What shows more or less of a graph: search, overview, zoom, and paper.

#include <Xm/TextF.h>

#include "BrowserWindowTest.h"

#include <PrintFile.h>

namespace graph_browser {
namespace {

class Sight : public BrowserWindowTest {
protected:
    void Type(const char *text) {
        for (const char *c = text; *c; ++c)
            Key(static_cast<KeySym>(*c));
        RunWorkProcs();
    }
    using BrowserWindowTest::Type;

    Widget Find(const char *name) const { return XtNameToWidget(shell, name); }
    bool IsMarked(const std::string &label) const {
        return static_cast<int>(Get<Pixel>(Node(label), XmNmarkColor)) != -1;
    }
};

TEST_F(Sight, FindMarksNodesAndGoesFromOneToTheNext) {
    Type(XK_f);
    Type("other");
    EXPECT_EQ(Label(Find("*hits")), "2 nodes");
    EXPECT_TRUE(IsMarked("mother") && IsMarked("grandmother"));
    EXPECT_FALSE(IsMarked("cat"));
    auto go = [&] {
        Key(XK_Return);
        RunWorkProcs();
        return window->View().Shown().NodeAt(*window->View().Selected()).name;
    };
    EXPECT_EQ(go(), "grandmother");
    EXPECT_EQ(go(), "mother");
    EXPECT_EQ(go(), "grandmother");

    // The marks stand on the gadgets of another layout style, too, and go with the text.
    Type(XK_b);
    EXPECT_TRUE(IsMarked("mother"));
    Type(XK_g);
    XmTextFieldSetString(Find("*find"), const_cast<char *>("CAT"));
    EXPECT_EQ(Label(Find("*hits")), "1 node");
    EXPECT_TRUE(IsMarked("cat"));
    EXPECT_FALSE(IsMarked("mother"));
    XmTextFieldSetString(Find("*find"), const_cast<char *>("dog"));
    EXPECT_EQ(Label(Find("*hits")), "not found");
    Choose(File("other.dot", "digraph { dog }"));
    EXPECT_TRUE(IsMarked("dog"));
}

TEST_F(Sight, KeysForTheTextDoNotReachTheGraph) {
    Type(XK_e);
    Type(XK_a);
    Click(Find("*find"), 10, 10);
    Type("cat");
    Key(XK_Home);
    Key(XK_Delete);
    RunWorkProcs();
    EXPECT_EQ(XmGraphNumNodes(graph), 6);
    char *text = XmTextFieldGetString(Find("*find"));
    EXPECT_STREQ(text, "at");
    XtFree(text);
    ClickNode("cat");
    Key(XK_Delete);
    RunWorkProcs();
    EXPECT_EQ(XmGraphNumNodes(graph), 5);
}

TEST_F(Sight, ZoomsAndPutsTheOverviewAway) {
    const int spacing = Get<int>(graph, XmNchildSpacing);
    Type(XK_equal); // the key of the plus sign
    EXPECT_EQ(Get<int>(graph, XmNchildSpacing), 2 * spacing);
    Type(XK_minus);
    Type(XK_minus);
    EXPECT_EQ(Get<int>(graph, XmNchildSpacing), spacing / 2);

    const Widget view = XtParent(XtParent(graph));
    const int narrow = Get<Dimension>(view, XmNwidth);
    EXPECT_TRUE(XtIsManaged(XtParent(Find("*overview"))));
    Type(XK_w);
    EXPECT_FALSE(XtIsManaged(XtParent(Find("*overview"))));
    EXPECT_GT(Get<Dimension>(view, XmNwidth), narrow);
    Type(XK_w);
    EXPECT_EQ(Get<Dimension>(view, XmNwidth), narrow);
}

TEST_F(Sight, PrintsWholeFilesOnly) {
    const auto contents = [&](const std::string &file) {
        std::ifstream in{file};
        return std::string{std::istreambuf_iterator<char>{in}, {}};
    };
    const std::string file = File("family.ps", "old");
    EXPECT_EQ(PrintToFile(graph, file), std::nullopt);
    const std::string text = contents(file);
    EXPECT_TRUE(text.starts_with("%!\n"));
    EXPECT_NE(text.find("(grandmother) show"), std::string::npos);
    EXPECT_TRUE(PrintToFile(graph, directory / "none" / "family.ps"));
    XmGraphDestroyAllNodes(graph);
    EXPECT_TRUE(PrintToFile(graph, file));
    EXPECT_EQ(contents(file), text);
}

} // namespace
} // namespace graph_browser
