#include "ShownMark.h"

#include <X11/Xatom.h>

namespace graph_browser {
namespace {

Atom MarkAtom(Display *display) {
    return XInternAtom(display, "GRAPH_BROWSER_SHOWN", False);
}

} // namespace

ShownMark::ShownMark(Widget of_shell, Widget of_graph) : shell(of_shell), graph(of_graph) {
    XtAddEventHandler(graph, ExposureMask, False, Exposed, this);
}

ShownMark::~ShownMark() {
    if (waiting)
        XtRemoveWorkProc(*waiting);
}

void ShownMark::Expect(const std::string &file) {
    expected = file;
    if (XtIsRealized(shell))
        XDeleteProperty(XtDisplay(shell), XtWindow(shell), MarkAtom(XtDisplay(shell)));
}

void ShownMark::Exposed(Widget, XtPointer client_data, XEvent *, Boolean *) {
    auto &mark = *static_cast<ShownMark *>(client_data);
    if (mark.expected && !mark.waiting)
        mark.waiting =
            XtAppAddWorkProc(XtWidgetToApplicationContext(mark.shell), SetWhenIdle, client_data);
}

// The server has drawn all that was asked for, and nothing more is waiting to be drawn.
Boolean ShownMark::SetWhenIdle(XtPointer client_data) {
    auto &mark = *static_cast<ShownMark *>(client_data);
    Display *display = XtDisplay(mark.shell);
    XSync(display, False);
    if (XPending(display) > 0)
        return False;
    const std::string file = *mark.expected;
    mark.expected.reset();
    XChangeProperty(display, XtWindow(mark.shell), MarkAtom(display), XA_STRING, 8, PropModeReplace,
                    reinterpret_cast<const unsigned char *>(file.data()),
                    static_cast<int>(file.size()));
    XFlush(display);
    mark.waiting.reset();
    return True;
}

} // namespace graph_browser
