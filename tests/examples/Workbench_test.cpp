// The workbench, used by the pointer and the keyboard.

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include <X11/keysym.h>
#include <Xm/FileSB.h>

#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <tests/support/Harness.h>

#include <GraphView.h>
#include <Looks.h>
#include <PrintFile.h>
#include <WorkbenchWindow.h>

namespace workbench {
namespace {

using namespace corvidlmw::test;
using graph_browser::GetResource;

class WorkbenchTest : public DisplayTest {
protected:
    WorkbenchTest() : DisplayTest(1200, 700) {}

    void SetUp() override {
        DisplayTest::SetUp();
        top = std::filesystem::temp_directory_path() / ("workbench." + std::to_string(getpid()));
        std::filesystem::create_directories(top / "project/lib");
        SetResource("*mainWindow.width: 1200");
        SetResource("*mainWindow.height: 700");
        window = std::make_unique<WorkbenchWindow>(shell, [this] { quits++; });
        Show();
        Open(Source::DotFile, File("family.dot", "digraph { mother -> daughter; mother -> son;"
                                                 " son -> cat }"));
    }

    void TearDown() override {
        XtDestroyWidget(shell);
        window.reset();
        std::filesystem::remove_all(top);
        DisplayTest::TearDown();
    }

    std::string File(const std::string &name, const std::string &text) const {
        std::ofstream(top / name) << text;
        return top / name;
    }
    static std::string Contents(const std::string &file) {
        std::ifstream in(file);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void Open(Source source, const std::string &path) {
        window->Open(source, path);
        Settle();
    }
    void Settle() {
        EXPECT_TRUE(PumpUntil([this] { return !window->IsBusy(); }));
        RunWorkProcs();
    }
    void Command(KeySym key) {
        Key(key, ControlMask);
        Settle();
    }

    Widget Graph() const { return window->pane().graph(); }
    Widget List() const { return window->list().list(); }
    int Rows() const { return GetResource<int>(List(), XmNitemCount); }
    Widget Gadget(int node) const {
        int count = 0;
        const WidgetList nodes = XmGraphGetNodes(Graph(), &count);
        for (int i = 0; i < count; i++) {
            if (graph_browser::GraphView::IndexOf(nodes[i]) == node) {
                return nodes[i];
            }
        }
        return nullptr;
    }
    void ClickRow(int position, unsigned int modifiers = 0) {
        Position y = 0;
        while (LmListYToPos(List(), y) < position - 1) {
            y++;
        }
        Click(List(), 60, y + 5, Button1, modifiers);
        Settle();
    }
    void ExpectAll(int nodes, int arcs) const {
        EXPECT_EQ(Rows(), nodes);
        EXPECT_EQ(XmGraphNumNodes(Graph()), nodes);
        EXPECT_EQ(XmGraphNumArcs(Graph()), arcs);
    }
    std::string Property(int row) const { return Label(Property("value", row)); }
    std::string StatusLine() const { return Label(window->status()); }
    static std::string Label(Widget w) {
        XmString label = nullptr;
        XtVaGetValues(w, XmNlabelString, &label, nullptr);
        char *text = static_cast<char *>(XmStringUnparse(label, nullptr, XmCHARSET_TEXT,
                                                         XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
        const std::string copy = text ? text : "";
        XtFree(text);
        XmStringFree(label);
        return copy;
    }
    Widget Property(const char *name, int row) const {
        WidgetList children = nullptr;
        Cardinal count = 0;
        XtVaGetValues(window->properties().grid(), XmNchildren, &children, XmNnumChildren, &count,
                      nullptr);
        for (Cardinal i = 0; i < count; i++) {
            if (GetResource<int>(children[i], "row") == row &&
                XtName(children[i]) == std::string(name)) {
                return children[i];
            }
        }
        return nullptr;
    }

    std::filesystem::path top;
    std::unique_ptr<WorkbenchWindow> window;
    int quits = 0;
};

TEST_F(WorkbenchTest, OpensTheThreeSourcesAndLeavesWhatIsShownIfItCannot) {
    ExpectAll(4, 3);
    File("project/main.c", "#include \"lib/a.h\"\n#include <lib/a.h>");
    File("project/lib/a.h", "");
    Open(Source::Directory, top / "project");
    ExpectAll(4, 3);
    Open(Source::Includes, top / "project");
    ExpectAll(2, 1);
    Open(Source::DotFile, top / "none.dot");
    ExpectAll(2, 1);
    Key(XK_Return); // the message
    Settle();
}

TEST_F(WorkbenchTest, SelectsInStepInListAndGraph) {
    ClickRow(2);
    EXPECT_EQ(window->pane().Selected(), (std::vector<int>{1}));
    EXPECT_EQ(Property(0), "daughter");
    LetTimePass(std::chrono::milliseconds(XtGetMultiClickTime(display) + 50));
    ClickRow(4, ShiftMask);
    EXPECT_EQ(window->pane().Selected(), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(Property(0), "3 nodes selected");
    Click(Gadget(0), 5, 5);
    Settle();
    EXPECT_EQ(window->list().Selected(), (std::vector<int>{0}));
    EXPECT_EQ(Property(2), "root");
    Command(XK_a);
    EXPECT_EQ(window->list().Selected().size(), 4u);
    Click(Graph(), 2, 2);
    Settle();
    EXPECT_TRUE(window->list().Selected().empty());
}

TEST_F(WorkbenchTest, MarksHitsWhileTheUserTypes) {
    std::string text = "digraph { mother -> daughter; mother -> son";
    for (int i = 0; i < 60; i++) {
        text += "; son -> g" + std::to_string(i);
    }
    Open(Source::DotFile, File("large.dot", text + "}"));
    const Widget bar = GetResource<Widget>(List(), XmNverticalScrollBar);
    const Pixel mark = graph_browser::Colors(List()).Find("#d4500c").value();
    Command(XK_f);
    for (const KeySym key : {XK_o, XK_n}) {
        Key(key);
    }
    EXPECT_EQ(window->hits(), (std::vector<int>{2}));
    Pump();
    const auto one = Picture::Of(bar).Count(mark);
    EXPECT_GT(one, 0);
    EXPECT_EQ(GetResource<Pixel>(Gadget(2), XmNmarkColor), mark);
    Key(XK_BackSpace);
    EXPECT_EQ(window->hits(), (std::vector<int>{0, 2}));
    EXPECT_GT(Picture::Of(bar).Count(mark), one);
    Key(XK_Return);
    EXPECT_EQ(window->selected(), (std::vector<int>{0}));
    Key(XK_Return);
    EXPECT_EQ(window->selected(), (std::vector<int>{2}));
    EXPECT_EQ(window->pane().Selected(), (std::vector<int>{2}));
    Key(XK_z);
    EXPECT_EQ(Picture::Of(bar).Count(mark), 0);
    EXPECT_NE(GetResource<Pixel>(Gadget(2), XmNmarkColor), mark);
}

TEST_F(WorkbenchTest, UndoesEditsOfAllKinds) {
    const Place place = window->pane().PlaceOf(2).value();
    Drag(Gadget(2), {5, 5}, {45, 65}, Button2);
    Settle();
    const Place moved = window->pane().PlaceOf(2).value();
    EXPECT_NE(moved, place);
    Command(XK_z);
    EXPECT_EQ(window->pane().PlaceOf(2), place);
    Command(XK_y);
    EXPECT_EQ(window->pane().PlaceOf(2), moved);

    window->Select({2});
    Command(XK_d);
    ExpectAll(3, 1);
    Command(XK_z);
    ExpectAll(4, 3);
    EXPECT_EQ(window->pane().PlaceOf(2), moved);
    Command(XK_n);
    ExpectAll(5, 3);
    EXPECT_EQ(window->selected(), (std::vector<int>{4}));
    Command(XK_z);
    ExpectAll(4, 3);

    window->Select({1});
    Key(XK_F2);
    Key(XK_x);
    Key(XK_Return);
    Settle();
    EXPECT_EQ(window->document().graph.NodeAt(1).label, "xdaughter");
    Command(XK_z);
    EXPECT_EQ(window->document().graph.NodeAt(1).label, "daughter");
    EXPECT_TRUE(window->history().IsChanged());
    Command(XK_z);
    EXPECT_EQ(window->pane().PlaceOf(2), place);
    EXPECT_FALSE(window->history().IsChanged());
    Command(XK_q);
    EXPECT_EQ(quits, 1);
}

TEST_F(WorkbenchTest, PrintsAndSavesWhatIsShown) {
    window->Rename(1, "maiden");
    Settle();
    const std::string paper = top / "family.ps";
    EXPECT_EQ(graph_browser::PrintToFile(Graph(), paper), std::nullopt);
    EXPECT_NE(Contents(paper).find("(maiden) show"), std::string::npos);
    Command(XK_s);
    EXPECT_FALSE(window->history().IsChanged());
    EXPECT_NE(Contents(top / "family.dot").find("label=maiden"), std::string::npos);
    Command(XK_z);
    EXPECT_TRUE(window->history().IsChanged());
}

TEST_F(WorkbenchTest, ListsTheFilesThatAreThereNow) {
    Command(XK_o);
    const Widget dialog = XtNameToWidget(shell, "*files");
    ASSERT_NE(dialog, nullptr);
    XmString directory = XmStringCreateLocalized((top.string() + "/").data());
    XtVaSetValues(dialog, XmNdirectory, directory, nullptr);
    XmStringFree(directory);
    EXPECT_EQ(GetResource<int>(dialog, XmNfileListItemCount), 1);
    Click(XtNameToWidget(dialog, "Cancel"), 5, 5);
    File("neighbours.dot", "digraph {}");
    Command(XK_o);
    EXPECT_EQ(GetResource<int>(dialog, XmNfileListItemCount), 2);
    Click(XtNameToWidget(dialog, "Cancel"), 5, 5);
}

TEST_F(WorkbenchTest, TellsAfterEachCommandWhetherTheGraphIsTooLarge) {
    std::string text = "digraph {";
    for (int i = 0; i < 800; i++) {
        text += "son -> g" + std::to_string(i) + ";";
    }
    const auto is_too_large = [this] {
        return StatusLine().find("larger than a window") != std::string::npos;
    };
    Open(Source::DotFile, File("large.dot", text + "}"));
    EXPECT_FALSE(is_too_large());
    Command(XK_t);
    EXPECT_TRUE(is_too_large());
    Command(XK_t);
    EXPECT_FALSE(is_too_large());
    Command(XK_t);
    Command(XK_a);
    Command(XK_d);
    EXPECT_FALSE(is_too_large());
}

TEST_F(WorkbenchTest, StopsReadingAndKeepsWhatIsShown) {
    window->Open(Source::Directory, "/usr");
    EXPECT_TRUE(window->IsBusy());
    window->DeleteSelected();
    window->AddNode();
    Command(XK_c);
    ExpectAll(4, 3);
    Command(XK_n);
    ExpectAll(5, 3);
}

TEST_F(WorkbenchTest, ManyNodesComeAndGoInSlices) {
    std::string text = "digraph {";
    for (int i = 0; i < 600; i++) {
        text += "n" + std::to_string(i / 10) + " -> n" + std::to_string(i) + ";";
    }
    Open(Source::DotFile, File("many.dot", text + "}"));
    ExpectAll(600, 600);
    Command(XK_a);
    EXPECT_EQ(window->list().Selected().size(), 600u);
    Key(XK_d, ControlMask);
    EXPECT_TRUE(window->IsBusy());
    Settle();
    ExpectAll(0, 0);
    Command(XK_z);
    ExpectAll(600, 600);
    EXPECT_FALSE(window->history().IsChanged());
}

} // namespace
} // namespace workbench
