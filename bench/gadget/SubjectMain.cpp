/* Takes gadgets of one class through all cases and writes a line for each case, of what it cost for one
 * gadget:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS BYTES
 *
 * of the process's CPU time, of what was sent and waited for, and of memory that the process now has more.
 * Under callgrind with --collect-atstart=no each case leaves a profile of its own. */

#include <bench/gadget/Gadgets.h>
#include <bench/support/ClientDesk.h>
#include <bench/support/Costs.h>

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
#include <string_view>
#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// ---- Subjects ----------------------------------------------------------------------------------

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

// ---- Cases -------------------------------------------------------------------------------------

enum class Looks { equal, margins, colors };

class Session {
public:
    Session(const ClientDesk &desk, const Subject &subject, int count, Looks looks, bool picture)
        : desk_(desk), subject_(subject), count_(count), looks_(looks), picture_(picture),
          label_(XmStringCreateLocalized(const_cast<char *>("a gadget"))) {
        XtVaSetValues(desk.parent, XmNresizePolicy, XmRESIZE_NONE, nullptr);
        const int screen = DefaultScreen(desk.display);
        pixmap_ = XCreatePixmap(desk.display, RootWindow(desk.display, screen), 16, 16,
                                static_cast<unsigned>(DefaultDepth(desk.display, screen)));
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
            event.window = XtWindow(desk_.parent);
            event.width = 1200;
            event.height = 900;
            XtClass(gadget)->core_class.expose(gadget, reinterpret_cast<XEvent *>(&event), nullptr);
        }
    }

    void Destroy() { XtDestroyWidget(desk_.parent); }

private:
    Widget CreateOne(int number) {
        std::vector<Arg> args = {{const_cast<char *>(XmNlabelString), XtArgVal(label_)}};
        if (picture_) {
            args.push_back({const_cast<char *>(subject_.pixmap), static_cast<XtArgVal>(pixmap_)});
        }
        if (looks_ == Looks::margins) {
            args.push_back({const_cast<char *>(XmNmarginWidth), number % 100});
            args.push_back({const_cast<char *>(XmNmarginHeight), number / 100});
        } else if (looks_ == Looks::colors) {
            args.push_back({const_cast<char *>(XmNforeground), number});
        }
        return XtCreateWidget(const_cast<char *>("gadget"), *subject_.gadget_class, desk_.parent,
                              args.data(), static_cast<Cardinal>(args.size()));
    }

    const ClientDesk &desk_;
    const Subject &subject_;
    int count_;
    Looks looks_;
    bool picture_;
    XmString label_;
    Pixmap pixmap_ = None;
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

void Measure(const ClientDesk &desk, const Case &one, Session &session, int count) {
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
    const ClientDesk desk = OpenDesk();
    Session session(desk, *subject, count, looks, std::string_view(argv[4]) == "with-picture");
    CALLGRIND_ZERO_STATS;
    for (const Case &one : cases) {
        Measure(desk, one, session, count);
    }
    return EXIT_SUCCESS;
}
