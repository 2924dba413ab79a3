#include <bench/graph/Session.h>

#include <tests/support/Interpose.h>

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/PushB.h>
#include <Xm/PushBG.h>
#include <Xm/ScrolledW.h>

#include <cstdio>
#include <cstdlib>
#include <span>
#include <utility>

namespace corvidlmw::bench {

namespace {

// Around the view there are the scroll bars.
constexpr int shell_width = view_width + 32;
constexpr int shell_height = view_height + 32;

void DispatchWholeExposure(Widget widget) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(widget, XtNwidth, &width, XtNheight, &height, nullptr);
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.display = XtDisplay(widget);
    event.xexpose.window = XtWindow(widget);
    event.xexpose.width = width;
    event.xexpose.height = height;
    XtDispatchEvent(&event);
}

Widget MakeShell(Display *display) {
    return XtVaAppCreateShell("bench", "Bench", topLevelShellWidgetClass, display, XtNx, 0, XtNy, 0,
                              XtNwidth, shell_width, XtNheight, shell_height, XtNoverrideRedirect,
                              True, nullptr);
}

Display *OpenOrGiveUp(Display *display) {
    if (!display) {
        std::fprintf(stderr, "bench: no connection to the X server\n");
        std::exit(EXIT_FAILURE);
    }
    return display;
}

} // namespace

Widget MakeScrolledWindow(Widget shell) {
    return XtVaCreateManagedWidget("scrolled", xmScrolledWindowWidgetClass, shell,
                                   XmNscrollingPolicy, XmAUTOMATIC, XmNvisualPolicy, XmCONSTANT,
                                   nullptr);
}

void Subject::RemoveAddedNode() {
    for (Widget widget : added_) {
        XtDestroyWidget(widget);
    }
    added_.clear();
}

std::unique_ptr<Subject> MakeSubject(std::string_view name) {
    if (name == "graph") {
        return MakeGraphSubject(xmPushButtonGadgetClass);
    }
    if (name == "graph-windows") {
        return MakeGraphSubject(xmPushButtonWidgetClass);
    }
    if (name == "tree") {
        return MakeTreeSubject();
    }
    return name == "container" ? MakeContainerSubject() : nullptr;
}

Desk::Desk() {
    XtToolkitInitialize();
    context = XtCreateApplicationContext();
    int argc = 0;
    display =
        OpenOrGiveUp(XtOpenDisplay(context, nullptr, "bench", "Bench", nullptr, 0, &argc, nullptr));
    robot = OpenOrGiveUp(XOpenDisplay(nullptr));
}

Session::Session(Desk &desk, std::string subject_name, Shape shape)
    : desk_(desk), subject_name_(std::move(subject_name)), shape_(std::move(shape)) {}

Session::~Session() {
    TearDown();
}

void Session::BringTo(Stage stage) {
    if (stage_ > stage) {
        TearDown();
    }
    if (stage_ < Stage::Shell && stage >= Stage::Shell) {
        subject_ = MakeSubject(subject_name_);
        shell_ = MakeShell(desk_.display);
        stage_ = Stage::Shell;
    }
    if (stage_ < Stage::Built && stage >= Stage::Built) {
        Build();
    }
    if (stage_ < Stage::Shown && stage >= Stage::Shown) {
        Show();
    }
    test::interpose::SyncUnseen(desk_.display);
}

void Session::Build() {
    subject_->Build(shell_, shape_);
    stage_ = Stage::Built;
}

void Session::Show() {
    XtRealizeWidget(shell_);
    Pump();
    stage_ = Stage::Shown;
}

void Session::TearDown() {
    if (stage_ != Stage::Nothing) {
        XtDestroyWidget(shell_);
        Pump();
        stage_ = Stage::Nothing;
    }
}

void Session::Pump() {
    test::interpose::SyncUnseen(desk_.display);
    while (XtAppPending(desk_.context) != 0) {
        do {
            XtAppProcessEvent(desk_.context, XtIMAll);
        } while (XtAppPending(desk_.context) != 0);
        test::interpose::SyncUnseen(desk_.display);
    }
}

void Session::UncoverView() {
    Display *robot = desk_.robot;
    XSetWindowAttributes attributes{};
    attributes.override_redirect = True;
    Window cover =
        XCreateWindow(robot, DefaultRootWindow(robot), 0, 0, view_width, view_height, 0,
                      CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect, &attributes);
    XMapRaised(robot, cover);
    XSync(robot, False);
    Pump();
    XDestroyWindow(robot, cover);
    XSync(robot, False);
}

void Session::ExposeEverything() {
    Widget work = subject_->work();
    DispatchWholeExposure(work);
    WidgetList children = nullptr;
    Cardinal count = 0;
    XtVaGetValues(work, XtNchildren, &children, XtNnumChildren, &count, nullptr);
    for (Widget child : std::span(children, count)) {
        if (XtIsWidget(child) && XtIsManaged(child) && XtWindow(child) != None) {
            DispatchWholeExposure(child);
        }
    }
    XFlush(desk_.display);
}

} // namespace corvidlmw::bench
