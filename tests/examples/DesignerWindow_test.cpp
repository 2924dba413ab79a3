// The form designer, used by the pointer and the keyboard.
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/resource.h>
#include <unistd.h>

#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <X11/IntrinsicP.h>
#include <X11/CoreP.h>

#include <corvidlmw/managers/Grid.h>
#include <tests/support/Harness.h>

#include <X11/keysym.h>

#include <DesignerWindow.h>
#include <FormFile.h>

namespace form_designer {
namespace {

using namespace corvidlmw::test;

class DesignerWindowTest : public DisplayTest {
protected:
    DesignerWindowTest() : DisplayTest(1000, 700) {}

    void SetUp() override {
        DisplayTest::SetUp();
        directory = std::filesystem::temp_directory_path() /
                    ("designer_window_test." + std::to_string(getpid()));
        std::filesystem::create_directories(directory);
        window = std::make_unique<DesignerWindow>(shell);
        Show();
        XtVaSetValues(shell, XmNwidth, 1000, XmNheight, 700, nullptr);
        Pump();
    }

    void TearDown() override {
        XtDestroyWidget(shell);
        window.reset();
        std::filesystem::remove_all(directory);
        DisplayTest::TearDown();
    }

    const Form &TheForm() { return window->TheCanvas().Shown(); }
    Widget Grid() { return window->TheCanvas().Grid(); }
    std::string Value(const char *item, const char *property) {
        const Item *found = TheForm().Find(item);
        if (!found || !found->values.contains(property))
            return "none";
        return found->values.at(property);
    }
    static std::string Read(const std::string &file) {
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    }
    std::string File(const char *name) const { return directory / name; }

    XPoint CentreOf(int row, int column) {
        auto middle = [](auto at, int wanted) {
            int first = -1, last = -1;
            for (int i = 0; i < 1000; ++i)
                if (at(static_cast<Position>(i)) == wanted)
                    last = i, first = first < 0 ? i : first;
            return static_cast<short>((first + last) / 2);
        };
        return {middle([&](Position x) { return XmGridPositionToColumn(Grid(), x, 0); }, column),
                middle([&](Position y) { return XmGridPositionToRow(Grid(), 0, y); }, row)};
    }
    void Place(const char *class_name, XPoint at) {
        window->TheCanvas().Arm(FindKind(class_name));
        Click(Grid(), at.x, at.y);
    }
    void Type(const char *property, const char *text) {
        Widget editor = window->TheSidePane().Editor(property);
        ASSERT_TRUE(editor) << property;
        XmTextFieldSetString(editor, Name(text));
        Click(editor, 5, 5);
        Key(XK_Return);
    }

    std::filesystem::path directory;
    std::unique_ptr<DesignerWindow> window;
};

TEST_F(DesignerWindowTest, WidgetsArePlacedMovedAndResizedWithThePointer) {
    Place("XmPushButton", CentreOf(2, 1));
    EXPECT_EQ(Value("pushbutton1", "row"), "2");
    EXPECT_EQ(Value("pushbutton1", "column"), "1");
    Place("XmTextField", CentreOf(2, 1));
    EXPECT_EQ(Value("textfield1", "column"), "1");
    EXPECT_EQ(Value("pushbutton1", "row"), "0") << "it made way";

    Drag(Grid(), CentreOf(0, 0), CentreOf(3, 2));
    EXPECT_EQ(Value("pushbutton1", "row"), "3");
    EXPECT_EQ(Value("pushbutton1", "column"), "2");
    EXPECT_EQ(window->TheCanvas().Selected(), "pushbutton1");
    Drag(Grid(), CentreOf(3, 2), CentreOf(2, 1));
    EXPECT_EQ(Value("textfield1", "row"), "3") << "they change places";

    Widget button = window->TheCanvas().WidgetOf("pushbutton1");
    const short right = static_cast<short>(button->core.x + button->core.width - 3);
    const short bottom = static_cast<short>(button->core.y + button->core.height - 3);
    Drag(Grid(), {right, bottom},
         {static_cast<short>(button->core.x + 50), static_cast<short>(button->core.y + 30)});
    EXPECT_EQ(Value("pushbutton1", "width"), "50");
    EXPECT_EQ(button->core.width, 50);
    EXPECT_EQ(button->core.height, 30);
    Key(XK_d, ControlMask);
    EXPECT_FALSE(TheForm().Find("pushbutton1"));
}

TEST_F(DesignerWindowTest, PropertiesAreEditedInTheSidePane) {
    Type("numColumns", "1");
    Place("XmSpringBox", CentreOf(0, 0));
    Place("XmPushButton", CentreOf(0, 0));
    EXPECT_EQ(TheForm().Find("pushbutton1")->container, "springbox1");
    Widget button = window->TheCanvas().WidgetOf("pushbutton1");
    const int natural = button->core.width;
    Type("horizontalSpring", "100");
    EXPECT_EQ(Value("pushbutton1", "horizontalSpring"), "100");
    EXPECT_GT(button->core.width, natural);
    Type("leftSpring", "many");
    EXPECT_EQ(window->Message(), "leftSpring must be a whole number from 0 to 1000");
    EXPECT_EQ(Value("pushbutton1", "leftSpring"), "none");
    Type("labelString", "two\\nlines");
    EXPECT_EQ(Value("pushbutton1", "labelString"), "two\nlines");

    window->TheCanvas().Select("");
    Type("numColumns", "3");
    Place("XmRubberBoard", CentreOf(1, 1));
    Place("XmLabel", CentreOf(1, 1));
    Type("initialX", "0");
    Type("finalX", "0");
    EXPECT_EQ(window->TheCanvas().WidgetOf("label1")->core.x, 0);

    window->TheCanvas().Select("rubberboard1");
    Type("row", "9");
    EXPECT_EQ(window->Message(), "row is outside of the form");
    Widget toggle = window->TheSidePane().Editor("resizeVertical");
    Click(toggle, 8, toggle->core.height / 2);
    EXPECT_EQ(Value("rubberboard1", "resizeVertical"), "False");

    // What was typed and not confirmed belongs to the widget that was shown.
    XmTextFieldSetString(window->TheSidePane().Editor("column"), Name("2"));
    Click(Grid(), CentreOf(3, 0).x, CentreOf(3, 0).y);
    EXPECT_EQ(Value("rubberboard1", "column"), "2");
    Type("numColumns", "1");
    EXPECT_EQ(window->Message(), "rubberboard1: row 1, column 2 is outside of the form");
    Type("numRows", "6");
    EXPECT_EQ(TheForm().Rows(), 6);
}

TEST_F(DesignerWindowTest, WhatIsSavedComesBackTheSame) {
    Place("XmLabel", CentreOf(0, 0));
    Place("XmTextField", CentreOf(0, 1));
    Place("XmSpringBox", CentreOf(3, 2));
    Place("XmPushButton", CentreOf(3, 2));
    Place("XmRubberBoard", CentreOf(2, 2));
    Place("XmToggleButton", CentreOf(2, 2));
    Drag(Grid(), CentreOf(0, 1), CentreOf(1, 1));
    window->TheCanvas().Select("label1");
    Type("width", "70");
    EXPECT_TRUE(window->IsChanged());
    ASSERT_TRUE(window->SaveTo(File("form.ad")));
    EXPECT_FALSE(window->IsChanged());
    window->TheCanvas().Select("");
    Pump();
    const std::string text = WriteForm(TheForm());
    EXPECT_EQ(Read(File("form.ad")), text);
    const Picture before = Picture::Of(Grid());

    window->Show("", NewForm());
    Pump();
    ASSERT_TRUE(window->Open(File("form.ad")));
    RunWorkProcs();
    EXPECT_EQ(WriteForm(TheForm()), text);
    EXPECT_TRUE(SamePicture(before, Picture::Of(Grid())));
}

TEST_F(DesignerWindowTest, ABrokenFileLeavesTheFormAndAFailedSaveTheFile) {
    Place("XmLabel", CentreOf(0, 0));
    ASSERT_TRUE(window->SaveTo(File("form.ad")));
    const std::string text = Read(File("form.ad"));
    std::ofstream(File("broken.ad")) << text << "*form.label1.row: 1\n";
    EXPECT_FALSE(window->Open(File("broken.ad")));
    EXPECT_EQ(WriteForm(TheForm()), text);

    Place("XmPushButton", CentreOf(1, 1));
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small = {16, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_FALSE(window->SaveTo(File("form.ad")));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(Read(File("form.ad")), text);
    EXPECT_TRUE(window->IsChanged());
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory), {}), 2)
        << "nothing else is left behind";
}

} // namespace
} // namespace form_designer
