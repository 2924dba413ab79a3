/* A browser window on a small family, and what a test asks of it. */

#ifndef CORVIDLMW_TESTS_EXAMPLES_BROWSERWINDOWTEST_H
#define CORVIDLMW_TESTS_EXAMPLES_BROWSERWINDOWTEST_H

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

#include <Xm/Label.h>
#include <Xm/ToggleBG.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <tests/support/Harness.h>

#include <X11/keysym.h>

#include <BrowserWindow.h>

namespace graph_browser {

inline constexpr const char *family =
    "digraph { \"grandmother\" -> mother [label=\"has\", penwidth=3];"
    " mother -> daughter [style=dashed]; mother -> son [dir=both];"
    " father -> mother [dir=none]; daughter -> cat; }";

template <typename Value>
Value Get(Widget widget, const char *resource) {
    Value value{};
    XtVaGetValues(widget, resource, &value, nullptr);
    return value;
}

// Walked by hand: XmStringUnparse loses memory over strings of several lines.
inline std::string TextOf(XmString string) {
    std::string text;
    XmStringContext context = nullptr;
    XmStringInitContext(&context, string);
    unsigned int length = 0;
    XtPointer value = nullptr;
    for (XmStringComponentType type = XmSTRING_COMPONENT_UNKNOWN;
         (type = XmStringGetNextTriple(context, &length, &value)) != XmSTRING_COMPONENT_END;
         XtFree(static_cast<char *>(value))) {
        if (type == XmSTRING_COMPONENT_TEXT || type == XmSTRING_COMPONENT_LOCALE_TEXT)
            text.append(static_cast<char *>(value), length);
        else if (type == XmSTRING_COMPONENT_SEPARATOR)
            text += '\n';
    }
    XmStringFreeContext(context);
    return text;
}

inline std::string Label(Widget widget) {
    XmString label = Get<XmString>(widget, XmNlabelString);
    std::string text = TextOf(label);
    XmStringFree(label);
    return text;
}

class BrowserWindowTest : public corvidlmw::test::DisplayTest {
protected:
    BrowserWindowTest() : DisplayTest(900, 600) {}

    void SetUp() override {
        DisplayTest::SetUp();
        directory =
            std::filesystem::temp_directory_path() / ("browser_test." + std::to_string(getpid()));
        std::filesystem::create_directories(directory);
        window = std::make_unique<BrowserWindow>(shell, [this] { ++quits; });
        window->Open(File("family.dot", family));
        Show();
        RunWorkProcs();
        graph = window->View().GraphWidget();
    }

    void TearDown() override {
        XtDestroyWidget(shell);
        window.reset();
        std::filesystem::remove_all(directory);
        DisplayTest::TearDown();
    }

    std::string File(const char *name, const std::string &text) const {
        std::ofstream{directory / name} << text;
        return directory / name;
    }

    // The node with this label, among those now in the widget.
    Widget Node(const std::string &label) const {
        int count = 0;
        const WidgetList nodes = XmGraphGetNodes(graph, &count);
        for (int i = 0; i < count; ++i)
            if (Label(nodes[i]) == label)
                return nodes[i];
        ADD_FAILURE() << "no node " << label;
        return nullptr;
    }

    Widget Arc(int index) const {
        int count = 0;
        const WidgetList arcs = XmGraphGetArcs(graph, &count);
        return index < count ? arcs[index] : nullptr;
    }

    int X(const std::string &label) const { return Get<Position>(Node(label), XmNx); }

    bool IsSet(const char *item) const {
        return XmToggleButtonGadgetGetState(XtNameToWidget(shell, item)) != False;
    }

    void ClickNode(const std::string &label) {
        Click(Node(label), 5, 5);
        RunWorkProcs();
    }

    // By the Open dialog.
    void Choose(const std::string &file) {
        Type(XK_o);
        const Widget dialog = XtNameToWidget(shell, "*fileDialog");
        ASSERT_NE(dialog, nullptr);
        XmString name = XmStringCreateLocalized(const_cast<char *>(file.c_str()));
        XtVaSetValues(dialog, XmNdirSpec, name, nullptr);
        XmStringFree(name);
        Click(XtNameToWidget(dialog, "OK"), 5, 5);
        RunWorkProcs();
        EXPECT_FALSE(XtIsManaged(dialog));
    }

    void Type(KeySym key) {
        Key(key, ControlMask);
        RunWorkProcs();
    }

    // As a window manager does.
    void Close() {
        XEvent close{};
        close.xclient.type = ClientMessage;
        close.xclient.window = XtWindow(shell);
        close.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
        close.xclient.format = 32;
        close.xclient.data.l[0] =
            static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
        XSendEvent(display, XtWindow(shell), False, NoEventMask, &close);
        Pump();
    }

    bool StatusHas(const std::string &part) const {
        return Label(XtNameToWidget(shell, "*status")).find(part) != std::string::npos;
    }
    void ExpectSize(int nodes, int arcs) const {
        EXPECT_EQ(XmGraphNumNodes(graph), nodes);
        EXPECT_EQ(XmGraphNumArcs(graph), arcs);
    }

    int quits = 0;
    std::filesystem::path directory;
    std::unique_ptr<BrowserWindow> window;
    Widget graph = nullptr;
};

} // namespace graph_browser

#endif
