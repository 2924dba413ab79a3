#pragma once

#include <optional>
#include <string>

#include <Xm/Xm.h>

namespace graph_browser {

// Tells other programs when a graph stands on the screen: the window then bears the property
// GRAPH_BROWSER_SHOWN with the file's name. A script that takes pictures waits for it.
class ShownMark {
public:
    ShownMark(Widget shell, Widget graph);
    ~ShownMark();
    ShownMark(const ShownMark &) = delete;
    ShownMark &operator=(const ShownMark &) = delete;

    // Another graph is about to be drawn.
    void Expect(const std::string &file);

private:
    static void Exposed(Widget, XtPointer mark, XEvent *, Boolean *);
    static Boolean SetWhenIdle(XtPointer mark);

    Widget shell;
    Widget graph;
    std::optional<std::string> expected;
    std::optional<XtWorkProcId> waiting;
};

} // namespace graph_browser
