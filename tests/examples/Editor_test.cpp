#include <algorithm>
#include <iterator>
#include <sstream>
#include <sys/resource.h>
#include <vector>

#include <Xm/SelectioB.h>
#include <Xm/Text.h>

#include "BrowserWindowTest.h"

namespace graph_browser {
namespace {

std::string Contents(const std::string &path) {
    std::ifstream stream{path};
    return {std::istreambuf_iterator<char>{stream}, {}};
}

class EditorTest : public BrowserWindowTest {
protected:
    void SetUp() override {
        BrowserWindowTest::SetUp();
        path = directory / "family.dot";
        Type(XK_e);
        ASSERT_TRUE(window->View().Editing());
    }

    Widget Dialog(const char *name) const { return XtNameToWidget(shell, name); }

    void Answer(const char *dialog, const char *button) {
        const Widget asked = Dialog(dialog);
        ASSERT_NE(asked, nullptr) << dialog;
        Click(XtNameToWidget(asked, button), 5, 5);
        RunWorkProcs();
    }

    void AnswerText(const char *text) {
        const Widget prompt = Dialog("*textPrompt");
        ASSERT_NE(prompt, nullptr);
        XmTextSetString(XmSelectionBoxGetChild(prompt, XmDIALOG_TEXT), corvidlmw::test::Name(text));
        Answer("*textPrompt", "OK");
        EXPECT_EQ(Dialog("*textPrompt"), nullptr);
    }

    // Shift and button 2 on the background, and a name for what comes of it.
    void AddNode(XPoint at, const char *name) {
        Drag(graph, {at.x, at.y}, at, Button2, ShiftMask);
        AnswerText(name);
    }

    XPoint Middle(const std::string &label) const {
        const Widget node = Node(label);
        return {
            static_cast<short>(Get<Position>(node, XmNx) + Get<Dimension>(node, XmNwidth) / 2),
            static_cast<short>(Get<Position>(node, XmNy) + Get<Dimension>(node, XmNheight) / 2)};
    }

    void Connect(const std::string &from, const std::string &to) {
        Drag(graph, Middle(from), Middle(to), Button2, ShiftMask, 8);
        RunWorkProcs();
    }

    // All that can be seen of the nodes and arcs in the widget; where the nodes are only if the user
    // put them there, since libcgraph writes them in an order of its own.
    std::vector<std::string> Seen() const {
        std::vector<std::string> seen;
        int count = 0;
        for (const WidgetList nodes = XmGraphGetNodes(graph, &count); count > 0; --count)
            seen.push_back(SeenOfNode(nodes[count - 1], window->View().Shown().placed));
        for (const WidgetList arcs = XmGraphGetArcs(graph, &count); count > 0; --count)
            seen.push_back(SeenOfArc(arcs[count - 1]));
        std::sort(seen.begin(), seen.end());
        return seen;
    }

    // Lets no file grow beyond this while it is in scope.
    struct SmallDisk {
        rlimit before{};
        explicit SmallDisk(rlim_t bytes) {
            getrlimit(RLIMIT_FSIZE, &before);
            const rlimit small{bytes, before.rlim_max};
            setrlimit(RLIMIT_FSIZE, &small);
        }
        ~SmallDisk() { setrlimit(RLIMIT_FSIZE, &before); }
    };

    std::string path;

private:
    static std::string SeenOfNode(Widget node, bool placed) {
        std::ostringstream out;
        if (placed)
            out << Get<Position>(node, XmNx) << ',' << Get<Position>(node, XmNy) << ' ';
        out << Label(node) << ' ' << Get<Dimension>(node, XmNwidth) << 'x'
            << Get<Dimension>(node, XmNheight) << std::hex << ' ' << Get<Pixel>(node, XmNbackground)
            << ' ' << Get<Pixel>(node, XmNforeground) << ' ' << XtIsManaged(node)
            << int{Get<unsigned char>(node, XmNalignment)};
        return out.str();
    }
    static std::string SeenOfArc(Widget arc) {
        const bool labelled = Get<Boolean>(arc, XmNmapLabel) != False;
        std::ostringstream out;
        out << Label(Get<Widget>(arc, XmNfrom)) << " -> " << Label(Get<Widget>(arc, XmNto)) << ' '
            << (labelled ? Label(arc) : "") << ' ' << Get<int>(arc, XmNarcWidth)
            << int{Get<unsigned char>(arc, XmNstyle)} << Get<int>(arc, XmNdashes)
            << int{Get<unsigned char>(arc, XmNarcDirection)} << std::hex << ' '
            << Get<Pixel>(arc, XmNforeground) << ' ' << XtIsManaged(arc)
            << Get<short>(arc, XmNfromSide) << Get<short>(arc, XmNtoSide);
        return out.str();
    }
};

TEST_F(EditorTest, WhatGesturesMakeIsSavedAndComesBack) {
    AddNode({20, 300}, "aunt\\nof all");
    EXPECT_TRUE(StatusHas("7 nodes, 5 arcs, changed"));
    Connect("aunt\nof all", "mother");
    EXPECT_EQ(Get<unsigned char>(Arc(5), XmNarcDirection), XmDIRECTED);
    Drag(graph, Middle("cat"), {300, 330}, Button2);
    XmGraphSelectArc(graph, Arc(2), True);
    Key(XK_F2);
    AnswerText("child & \\\\ heir");
    XmGraphUnselectArc(graph, Arc(2), True);
    XmGraphSelectNode(graph, Node("father"), True);
    Key(XK_Delete);
    RunWorkProcs();
    ExpectSize(6, 5);
    Type(XK_s);
    EXPECT_FALSE(StatusHas("changed"));
    const auto before = Seen();
    window->Open(path);
    RunWorkProcs();
    EXPECT_EQ(Seen(), before);
    EXPECT_EQ(Label(Arc(2)), "child & \\ heir");

    Type(XK_r);
    EXPECT_TRUE(StatusHas("changed")) << "the places are the layout's again";
    Type(XK_s);
    EXPECT_EQ(Contents(path).find("browserpos=\"3"), std::string::npos);
}

TEST_F(EditorTest, EveryDataFileLooksTheSameAfterSaving) {
    path = directory / "copy.dot";
    for (const auto &entry : std::filesystem::directory_iterator{EXAMPLE_DATA}) {
        if (entry.path().extension() != ".dot")
            continue;
        SCOPED_TRACE(entry.path().string());
        std::filesystem::copy_file(entry.path(), path,
                                   std::filesystem::copy_options::overwrite_existing);
        window->Open(path);
        RunWorkProcs();
        const auto before = Seen();
        // A label that comes and goes again is a change, and a reason to write the file.
        XmGraphSelectArc(graph, Arc(0), False);
        const std::string label = Get<Boolean>(Arc(0), XmNmapLabel) ? Label(Arc(0)) : "";
        for (const std::string &text : {std::string{"interim"}, label}) {
            Key(XK_F2);
            AnswerText(text.c_str());
        }
        Type(XK_s);
        EXPECT_NE(Contents(path), Contents(entry.path()));
        window->Open(path);
        RunWorkProcs();
        EXPECT_EQ(Seen(), before);
    }
}

TEST_F(EditorTest, AMovedArcEndAndAStrictGraph) {
    window->Open(File("strict.dot", "strict digraph { rankdir=LR; a -> b; a -> c; d }"));
    RunWorkProcs();
    path = directory / "strict.dot";
    Connect("a", "b");
    ASSERT_NE(Dialog("*errorDialog"), nullptr);
    Answer("*errorDialog", "OK");
    ExpectSize(4, 2);
    EXPECT_FALSE(StatusHas("changed"));
    Connect("b", "c");
    ExpectSize(4, 3);

    const XPoint from = Middle("a");
    const XPoint to = Middle("c");
    const XPoint grasp{static_cast<short>((from.x + 3 * to.x) / 4),
                       static_cast<short>((from.y + 3 * to.y) / 4)};
    ASSERT_EQ(XmGraphInputOverArc(graph, grasp.x, grasp.y), Arc(1));
    Drag(graph, grasp, Middle("d"), Button2);
    RunWorkProcs();
    EXPECT_EQ(Get<Widget>(Arc(1), XmNto), Node("d"));
    Type(XK_s);
    window->Open(path);
    RunWorkProcs();
    ExpectSize(4, 3);
    EXPECT_EQ(Get<Widget>(Arc(1), XmNto), Node("d"));
}

TEST_F(EditorTest, UnsavedChangesAreAskedForBeforeTheyGo) {
    AddNode({20, 300}, "aunt");
    for (const bool by_manager : {true, false}) {
        by_manager ? Close() : Type(XK_q);
        Close(); // impatient: the first question gives way
        Answer("*question", "Cancel");
        EXPECT_EQ(Dialog("*question"), nullptr);
        EXPECT_EQ(quits, 0);
    }
    window->Open(File("other.dot", "digraph { one }"));
    EXPECT_TRUE(StatusHas("family.dot"));
    Answer("*question", "Discard");
    EXPECT_TRUE(StatusHas("other.dot: 1 node"));
    EXPECT_EQ(Contents(path), family);

    AddNode({20, 300}, "two");
    Close();
    Answer("*question", "OK");
    EXPECT_EQ(quits, 1);
    EXPECT_NE(Contents(directory / "other.dot").find("two"), std::string::npos);
}

TEST_F(EditorTest, AFileThatCannotBeSavedStaysAndSoDoTheChanges) {
    AddNode({20, 300}, "aunt");
    {
        const SmallDisk disk{10};
        Close();
        Answer("*question", "OK");
    }
    EXPECT_EQ(quits, 0);
    const Widget error = Dialog("*errorDialog");
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(Label(XtNameToWidget(error, "Message")), path + " was not saved: File too large");
    Answer("*errorDialog", "OK");
    EXPECT_TRUE(StatusHas("changed"));
    EXPECT_EQ(Contents(path), family);
}

TEST_F(EditorTest, AFileThatAnotherProgramWroteIsAskedFor) {
    AddNode({20, 300}, "aunt");
    File("family.dot", "digraph { theirs }");
    Type(XK_s);
    Answer("*question", "Cancel");
    EXPECT_EQ(Contents(path), "digraph { theirs }");
    Type(XK_s);
    Answer("*question", "OK");
    EXPECT_NE(Contents(path).find("aunt"), std::string::npos);
}

TEST_F(EditorTest, TheSelectionGoesAlongIntoAndOutOfEditMode) {
    ClickNode("son");
    EXPECT_TRUE(StatusHas("1 node and 0 arcs selected"));
    Type(XK_e);
    EXPECT_TRUE(StatusHas("selected: son"));
    EXPECT_EQ(XmGraphNumSelectedNodes(graph), 0);
    Type(XK_b);
    EXPECT_TRUE(StatusHas("around son"));
    Type(XK_e);
    ExpectSize(6, 5);
    EXPECT_TRUE(XmGraphIsSelectedNode(graph, Node("son"))) << "only the whole graph is edited";
    Type(XK_a);
    EXPECT_TRUE(StatusHas("6 nodes and 5 arcs selected"));
    Type(XK_b);
    EXPECT_FALSE(window->View().Editing());
    Type(XK_e);
    Type(XK_a);
    Key(XK_Delete);
    RunWorkProcs();
    ExpectSize(0, 0);
    Type(XK_n);
    AnswerText("first");
    ExpectSize(1, 0);
}

} // namespace
} // namespace graph_browser
