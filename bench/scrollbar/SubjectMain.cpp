/* Takes a hundred bars of one class through all cases, several times unless told "once", and writes a
 * line for each case, of what it cost for one bar:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS BYTES
 *
 * of the process's CPU time, the median, of what was sent and waited for, and of memory that the process
 * now has more. Under callgrind with --collect-atstart=no each case leaves a profile of its own. */

#include <bench/scrollbar/Bars.h>
#include <bench/support/ClientDesk.h>
#include <bench/support/Costs.h>

#include <tests/support/Interpose.h>
#include <tests/support/Traffic.h>

#include <Xm/ScrollBar.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// ---- Cases -------------------------------------------------------------------------------------

// Vertical bars of 16 by 300 pixels beside one another. All events are made here and dispatched, so
// that nothing of the server's own timing is measured.
class Session {
public:
    Session(const ClientDesk &desk, WidgetClass bar_class)
        : desk_(desk), class_(bar_class), ours_(bar_class == svScrollBarWidgetClass) {}

    void Create() {
        for (int i = 0; i < bars_at_once; ++i) {
            Arg args[] = {{const_cast<char *>(XmNx), i * 12 % 1180},
                          {const_cast<char *>(XmNy), i / 98 * 310},
                          {const_cast<char *>(XmNwidth), 16},
                          {const_cast<char *>(XmNheight), 300},
                          {const_cast<char *>(XmNmaximum), maximum},
                          {const_cast<char *>(XmNsliderSize), maximum / 10},
                          {const_cast<char *>(XmNrepeatDelay), 1},
                          {const_cast<char *>(XmNinitialDelay), 1}};
            bars_.push_back(XtCreateWidget("bar", class_, desk_.parent, args, XtNumber(args)));
        }
    }

    void Show() {
        XtManageChildren(bars_.data(), bars_at_once);
        Pump(desk_, XtIMXEvent);
    }

    // The slider moves by about 80 pixels.
    void SetValues() {
        far_ = !far_;
        SetAll(far_ ? maximum * 7 / 10 : maximum * 4 / 10);
    }

    void SetSamePixel() {
        ++nudge_;
        SetAll(maximum * 7 / 10 + nudge_ % 2);
    }

    void PressSliders() {
        SetAll(maximum / 2);
        step_ = 0;
        Dispatch(ButtonPress, slider_y, 0);
    }
    void Drag() {
        ++step_;
        Dispatch(MotionNotify, slider_y + step_ * 5, Button1Mask);
    }
    void Release() { Dispatch(ButtonRelease, slider_y, Button1Mask); }

    // Only one timer runs at a time, with the first firing, which takes no step, behind it.
    void PressArrow() {
        DispatchTo(bars_.front(), ButtonPress, 292, 0);
        XtAppProcessEvent(desk_.context, XtIMTimer);
    }
    void WaitForTimer() {
        while ((XtAppPending(desk_.context) & XtIMTimer) == 0) {
        }
    }
    void Repeat() { XtAppProcessEvent(desk_.context, XtIMTimer); }
    void ReleaseArrow() {
        DispatchTo(bars_.front(), ButtonRelease, 292, Button1Mask);
        XtAppProcessEvent(desk_.context, XtIMTimer);
    }

    void Destroy() {
        for (Widget bar : bars_) {
            XtDestroyWidget(bar);
        }
        bars_.clear();
        Pump(desk_, XtIMXEvent);
    }

private:
    static constexpr int maximum = 1000000;
    static constexpr int slider_y = 150;

    void SetAll(int value) {
        const auto set = ours_ ? SvScrollBarSetValues : XmScrollBarSetValues;
        for (Widget bar : bars_) {
            set(bar, value, maximum / 10, maximum / 1000, maximum / 10, False);
        }
    }

    void DispatchTo(Widget bar, int type, int y, unsigned state) const {
        XEvent event{};
        event.xbutton.type = type;
        event.xbutton.display = desk_.display;
        event.xbutton.window = XtWindow(bar);
        event.xbutton.x = 8;
        event.xbutton.y = y;
        event.xbutton.state = state;
        event.xbutton.same_screen = True;
        if (type != MotionNotify) {
            event.xbutton.button = Button1;
        }
        XtDispatchEvent(&event);
    }

    void Dispatch(int type, int y, unsigned state) const {
        for (Widget bar : bars_) {
            DispatchTo(bar, type, y, state);
        }
    }

    const ClientDesk &desk_;
    WidgetClass class_;
    bool ours_;
    std::vector<Widget> bars_;
    bool far_ = false;
    int nudge_ = 0;
    int step_ = 0;
};

struct Case {
    const char *name;
    void (Session::*prepare)(); // once, not measured
    void (Session::*wait)();    // before each time, not measured
    void (Session::*act)();
    void (Session::*restore)(); // once, not measured
    int times;                  // how often in a session
    int bars;                   // how many each time
};

constexpr Case cases[] = {
    {"create", nullptr, nullptr, &Session::Create, nullptr, 1, bars_at_once},
    {"show", nullptr, nullptr, &Session::Show, nullptr, 1, bars_at_once},
    {"set-values", nullptr, nullptr, &Session::SetValues, nullptr, 6, bars_at_once},
    {"set-same-pixel", &Session::SetSamePixel, nullptr, &Session::SetSamePixel, nullptr, 6,
     bars_at_once},
    {"drag-step", &Session::PressSliders, nullptr, &Session::Drag, &Session::Release, 6,
     bars_at_once},
    {"repeat-step", &Session::PressArrow, &Session::WaitForTimer, &Session::Repeat,
     &Session::ReleaseArrow, 20, 1},
    {"destroy", nullptr, nullptr, &Session::Destroy, nullptr, 1, bars_at_once},
};

// ---- Measuring ---------------------------------------------------------------------------------

struct Cost {
    std::vector<double> seconds;
    double requests = 0;
    double round_trips = 0;
    double bytes = 0;
};

// The last time counts: by then all that is made once is there.
void ActOnce(const Case &one, Session &session, Cost &cost, test::RequestCounter &counter) {
    if (one.wait) {
        (session.*one.wait)();
    }
    const long bytes = AllocatedBytes();
    counter.Restart();
    const double start = CpuSeconds();
    CALLGRIND_TOGGLE_COLLECT;
    (session.*one.act)();
    CALLGRIND_TOGGLE_COLLECT;
    cost.seconds.push_back((CpuSeconds() - start) / one.bars);
    cost.requests = static_cast<double>(counter.requests()) / one.bars;
    cost.round_trips = static_cast<double>(counter.round_trips()) / one.bars;
    cost.bytes = static_cast<double>(AllocatedBytes() - bytes) / one.bars;
}

void RunSession(const ClientDesk &desk, WidgetClass bar_class, bool once,
                std::vector<Cost> &costs) {
    Session session(desk, bar_class);
    test::RequestCounter counter(desk.display);
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        const Case &one = cases[i];
        if (one.prepare) {
            (session.*one.prepare)();
        }
        test::interpose::SyncUnseen(desk.display);
        for (int time = 0; time < (once ? 1 : one.times); ++time) {
            ActOnce(one, session, costs[i], counter);
        }
        if (once) {
            CALLGRIND_DUMP_STATS_AT(one.name);
        }
        if (one.restore) {
            (session.*one.restore)();
        }
        Pump(desk, XtIMXEvent);
    }
}

void Print(const Case &one, Cost &cost) {
    std::printf("%s %.9f %.2f %.2f %.0f\n", one.name, Median(cost.seconds), cost.requests,
                cost.round_trips, cost.bytes);
}

int Usage() {
    std::fprintf(stderr, "usage: bench-scrollbar-subject SvScrollBar|XmScrollBar once|often\n");
    return 2;
}

} // namespace

int main(int argc, char **argv) {
    const std::string_view name = argc == 3 ? argv[1] : "";
    if (name != "SvScrollBar" && name != "XmScrollBar") {
        return Usage();
    }
    const WidgetClass bar_class =
        name == "SvScrollBar" ? svScrollBarWidgetClass : xmScrollBarWidgetClass;
    const bool once = std::string_view(argv[2]) == "once";
    const ClientDesk desk = OpenDesk();
    std::vector<Cost> unused(std::size(cases));
    RunSession(desk, bar_class, false, unused);
    // A bar that stays keeps what is shared by all, as in a client that has many.
    XtVaCreateWidget("other", bar_class, desk.parent, XmNmaximum, 10, nullptr);
    CALLGRIND_ZERO_STATS;
    std::vector<Cost> costs(std::size(cases));
    for (int session = 0; session < (once ? 1 : 9); ++session) {
        RunSession(desk, bar_class, once, costs);
    }
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        Print(cases[i], costs[i]);
    }
    return EXIT_SUCCESS;
}
