/* Takes gadgets of one class through all cases and writes a line for each case, of what it cost for one
 * gadget:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS BYTES
 *
 * of the process's CPU time, of what was sent and waited for, and of memory that the process now has more.
 * Under callgrind with --collect-atstart=no each case leaves a profile of its own. */

#include <bench/gadget/Gadgets.h>

#include <tests/support/Interpose.h>
#include <tests/support/Traffic.h>

#include <X11/IntrinsicP.h>
#include <Xm/DrawingA.h>
#include <Xm/IconG.h>
#include <Xm/LabelG.h>
#include <corvidlmw/gadget/IconG.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <malloc.h>
#include <string_view>
#include <vector>

using namespace corvidlmw;

namespace {

// ---- Desk --------------------------------------------------------------------------------------

struct Subject {
    const char *name;
    WidgetClass *gadget_class;
    const char *pixmap; // its resource for a picture
};

const Subject subjects[] = {
    {"XmvIconGadget", &xmvIconGadgetClass, XmNlabelPixmap},
    {"XmLabelGadget", &xmLabelGadgetClass, XmNlabelPixmap},
    {"XmIconGadget", &xmIconGadgetClass, XmNlargeIconPixmap},
};

struct Desk {
    XtAppContext context;
    Display *display;
    Widget shell;
    Pixmap picture;
};

void Pump(const Desk &desk) {
    test::interpose::SyncUnseen(desk.display);
    while ((XtAppPending(desk.context) & XtIMXEvent) != 0) {
        XtAppProcessEvent(desk.context, XtIMXEvent);
        if ((XtAppPending(desk.context) & XtIMXEvent) == 0) {
            test::interpose::SyncUnseen(desk.display);
        }
    }
}

Desk OpenDesk() {
    XtToolkitInitialize();
    Desk desk{};
    desk.context = XtCreateApplicationContext();
    int argc = 0;
    desk.display =
        XtOpenDisplay(desk.context, nullptr, "bench", "Bench", nullptr, 0, &argc, nullptr);
    if (!desk.display) {
        std::fprintf(stderr, "bench: no connection to the X server\n");
        std::exit(EXIT_FAILURE);
    }
    desk.shell =
        XtVaAppCreateShell("bench", "Bench", topLevelShellWidgetClass, desk.display, XtNwidth, 1200,
                           XtNheight, 900, XtNoverrideRedirect, True, nullptr);
    const int screen = DefaultScreen(desk.display);
    desk.picture = XCreatePixmap(desk.display, DefaultRootWindow(desk.display), 16, 16,
                                 static_cast<unsigned>(DefaultDepth(desk.display, screen)));
    return desk;
}

// ---- Cases -------------------------------------------------------------------------------------

enum class Looks { equal, margins, colors };

class Session {
public:
    Session(const Desk &desk, const Subject &subject, int count, Looks looks, bool picture)
        : desk_(desk), subject_(subject), count_(count), looks_(looks), picture_(picture),
          label_(XmStringCreateLocalized(const_cast<char *>("a gadget"))) {
        parent_ = XtVaCreateManagedWidget("parent", xmDrawingAreaWidgetClass, desk.shell,
                                          XmNresizePolicy, XmRESIZE_NONE, nullptr);
        XtRealizeWidget(desk.shell);
        Pump(desk);
        // What stays keeps what is shared, as in a client that has many.
        CreateOne(-1);
        gadgets_.reserve(static_cast<std::size_t>(count));
    }
    ~Session() { XmStringFree(label_); }
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    void Create() {
        for (int i = 0; i < count_; ++i) {
            gadgets_.push_back(CreateOne(i));
        }
    }

    // Each is asked for its size and put into its place, as a manager does it.
    void LayOut() {
        for (std::size_t i = 0; i < gadgets_.size(); ++i) {
            XtWidgetGeometry wanted{};
            XtQueryGeometry(gadgets_[i], nullptr, &wanted);
            XtConfigureWidget(gadgets_[i], static_cast<Position>(i % 12 * 100),
                              static_cast<Position>(i / 12 % 30 * 30), wanted.width, wanted.height,
                              0);
        }
    }

    void Draw() {
        for (Widget gadget : gadgets_) {
            XExposeEvent event{};
            event.type = Expose;
            event.display = desk_.display;
            event.window = XtWindow(parent_);
            event.width = 1200;
            event.height = 900;
            XtClass(gadget)->core_class.expose(gadget, reinterpret_cast<XEvent *>(&event), nullptr);
        }
    }

    void Destroy() { XtDestroyWidget(parent_); }

private:
    Widget CreateOne(int number) {
        std::vector<Arg> args = {{const_cast<char *>(XmNlabelString), XtArgVal(label_)}};
        if (picture_) {
            args.push_back(
                {const_cast<char *>(subject_.pixmap), static_cast<XtArgVal>(desk_.picture)});
        }
        if (looks_ == Looks::margins) {
            args.push_back({const_cast<char *>(XmNmarginWidth), number % 100});
            args.push_back({const_cast<char *>(XmNmarginHeight), number / 100});
        } else if (looks_ == Looks::colors) {
            args.push_back({const_cast<char *>(XmNforeground), number});
        }
        return XtCreateWidget(const_cast<char *>("gadget"), *subject_.gadget_class, parent_,
                              args.data(), static_cast<Cardinal>(args.size()));
    }

    const Desk &desk_;
    const Subject &subject_;
    int count_;
    Looks looks_;
    bool picture_;
    XmString label_;
    Widget parent_;
    std::vector<Widget> gadgets_;
};

struct Case {
    const char *name;
    void (Session::*act)();
};

constexpr Case cases[] = {
    {"create", &Session::Create},
    {"lay-out", &Session::LayOut},
    {"draw", &Session::Draw},
    {"destroy", &Session::Destroy},
};

// ---- Measuring ---------------------------------------------------------------------------------

double CpuSeconds() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

long AllocatedBytes() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<long>(info.uordblks + info.hblkhd);
}

void Measure(const Desk &desk, const Case &one, Session &session, int count) {
    test::RequestCounter counter(desk.display);
    const long bytes = AllocatedBytes();
    const double start = CpuSeconds();
    CALLGRIND_TOGGLE_COLLECT;
    (session.*one.act)();
    CALLGRIND_TOGGLE_COLLECT;
    const double seconds = CpuSeconds() - start;
    std::printf("%s %.9f %.2f %.4f %.0f\n", one.name, seconds / count,
                static_cast<double>(counter.requests()) / count,
                static_cast<double>(counter.round_trips()) / count,
                static_cast<double>(AllocatedBytes() - bytes) / count);
    CALLGRIND_DUMP_STATS_AT(one.name);
}

int Usage() {
    std::fprintf(stderr, "usage: bench-gadget-subject CLASS COUNT equal|margins|colors "
                         "with-picture|without-picture\n");
    return 2;
}

} // namespace

int main(int argc, char **argv) {
    if (argc != 5) {
        return Usage();
    }
    const Subject *subject = nullptr;
    for (const Subject &one : subjects) {
        subject = std::strcmp(one.name, argv[1]) == 0 ? &one : subject;
    }
    const int count = std::atoi(argv[2]);
    const std::string_view looks_name = argv[3];
    const Looks looks = looks_name == "margins"  ? Looks::margins
                        : looks_name == "colors" ? Looks::colors
                                                 : Looks::equal;
    if (!subject || count < 1) {
        return Usage();
    }
    const Desk desk = OpenDesk();
    Session session(desk, *subject, count, looks, std::string_view(argv[4]) == "with-picture");
    CALLGRIND_ZERO_STATS;
    for (const Case &one : cases) {
        Measure(desk, one, session, count);
    }
    return EXIT_SUCCESS;
}
