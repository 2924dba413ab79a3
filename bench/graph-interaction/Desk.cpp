#include <bench/graph-interaction/Desk.h>

#include <tests/support/Interpose.h>

#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace corvidlmw::bench {

namespace {

constexpr int node_step_x = 100;
constexpr int node_step_y = 45;

unsigned MaskOf(unsigned button) {
    return static_cast<unsigned>(Button1Mask) << (button - 1);
}

// One for all desks, and never closed: the toolkit keeps GCs of a closed connection, and gives them to the
// next one that comes to lie at the same address.
Display *SharedDisplay() {
    static Display *const shared = [] {
        int argc = 0;
        return XtOpenDisplay(XtCreateApplicationContext(), nullptr, "bench", "Bench", nullptr, 0,
                             &argc, nullptr);
    }();
    if (!shared) {
        std::fprintf(stderr, "bench: no connection to the X server\n");
        std::exit(EXIT_FAILURE);
    }
    return shared;
}

} // namespace

Desk::Desk(int nodes)
    : display_(SharedDisplay()), context_(XtDisplayToApplicationContext(display_)) {
    shell_ =
        XtVaAppCreateShell("bench", "Bench", topLevelShellWidgetClass, display_, XmNx, 0, XmNy, 0,
                           XmNwidth, 1030, XmNheight, 830, XmNoverrideRedirect, True, nullptr);
    Widget scrolled =
        XtVaCreateManagedWidget("scrolled", xmScrolledWindowWidgetClass, shell_, XmNscrollingPolicy,
                                XmAUTOMATIC, XmNvisualPolicy, XmCONSTANT, nullptr);
    graph_ = XtVaCreateWidget("graph", xmGraphWidgetClass, scrolled, XmNeditable, True, nullptr);
    CreateNodes(nodes);
    CreateArcs();
    XmGraphAdjustSize(graph_);
    XtManageChild(graph_);
    XtRealizeWidget(shell_);
    Pump();
}

Desk::~Desk() {
    XtDestroyWidget(shell_);
}

void Desk::CreateNodes(int count) {
    for (int i = 0; i < count; i++) {
        const std::string name = "node " + std::to_string(i);
        nodes_.push_back(XtVaCreateWidget(name.c_str(), xmPushButtonGadgetClass, graph_, XmNx,
                                          20 + i % columns * node_step_x, XmNy,
                                          20 + i / columns * node_step_y, nullptr));
    }
    XtManageChildren(nodes_.data(), static_cast<Cardinal>(nodes_.size()));
}

void Desk::CreateArcs() {
    const int count = static_cast<int>(nodes_.size());
    for (int i = 0; i < count; i++) {
        Join(i, (i + 1) % count);
        Join(i, (i + columns) % count);
    }
    // With the four to its neighbours these are ten.
    for (int step : {-columns - 1, -columns + 1, columns - 1, columns + 1, -2, 2}) {
        Join(hub_index, hub_index + step);
    }
    XtManageChildren(arcs_.data(), static_cast<Cardinal>(arcs_.size()));
}

void Desk::Join(int from, int to) {
    auto node = [&](int i) { return nodes_[static_cast<std::size_t>(i)]; };
    arcs_.push_back(
        XmCreateAttachedArc(graph_, const_cast<char *>("arc"), node(from), node(to), nullptr, 0));
}

void Desk::Dispatch(int type, unsigned button, unsigned state, int x, int y) {
    static Time time = 1000;
    XEvent event{};
    event.xbutton.type = type;
    event.xbutton.display = display_;
    event.xbutton.window = XtWindow(graph_);
    event.xbutton.root = DefaultRootWindow(display_);
    event.xbutton.time = time += 1000;
    event.xbutton.x = x;
    event.xbutton.y = y;
    event.xbutton.state = state;
    event.xbutton.same_screen = True;
    if (type != MotionNotify) {
        event.xbutton.button = button;
    }
    XtDispatchEvent(&event);
}

void Desk::Press(unsigned button, int x, int y) {
    Dispatch(ButtonPress, button, 0, x, y);
}

void Desk::Drag(unsigned button, int x, int y) {
    Dispatch(MotionNotify, button, MaskOf(button), x, y);
}

void Desk::Release(unsigned button, int x, int y) {
    Dispatch(ButtonRelease, button, MaskOf(button), x, y);
}

void Desk::Pump() {
    test::interpose::SyncUnseen(display_);
    while (XtAppPending(context_) != 0) {
        while (XtAppPending(context_) != 0) {
            XtAppProcessEvent(context_, XtIMAll);
        }
        test::interpose::SyncUnseen(display_);
    }
}

} // namespace corvidlmw::bench
