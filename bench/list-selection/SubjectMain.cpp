/* Takes a scrolled list of one class with one number of rows through all cases, and writes a line for each:
 *
 *     CASE SECONDS REQUESTS ROUND_TRIPS
 *
 * of the process's CPU time and of what was sent and waited for, for a single action of the case. Under
 * callgrind with --collect-atstart=no each case leaves a profile of its own, of all its actions. */

#include <bench/list-selection/Cases.h>
#include <bench/support/ClientDesk.h>
#include <bench/support/Costs.h>

#include <tests/support/Interpose.h>
#include <tests/support/Traffic.h>

#include <corvidlmw/list/LmList.h>

#include <X11/IntrinsicP.h>
#include <Xm/List.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace corvidlmw;
using namespace corvidlmw::bench;

namespace {

// ---- Lists of both classes ---------------------------------------------------------------------------

// The calls of one class of lists; those of both take the same.
struct ListCalls {
    std::string_view name;
    Widget (*create_scrolled)(Widget, char *, ArgList, Cardinal);
    void (*add_items)(Widget, XmString *, int, int);
    void (*select_position)(Widget, int, Boolean);
    void (*select_item)(Widget, XmString, Boolean);
    void (*deselect_all)(Widget);
    void (*set_bottom)(Widget, int);
    Boolean (*get_selected)(Widget, int **, int *);
};

constexpr ListCalls all_calls[] = {
    {"LmList", LmCreateScrolledList, LmListAddItems, LmListSelectPos, LmListSelectItem,
     LmListDeselectAllItems, LmListSetBottomPos, LmListGetSelectedPos},
    {"XmList", XmCreateScrolledList, XmListAddItems, XmListSelectPos, XmListSelectItem,
     XmListDeselectAllItems, XmListSetBottomPos, XmListGetSelectedPos},
};

class Session {
public:
    Session(const ClientDesk &desk, const ListCalls &calls, int rows);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    void Browse() { Begin(XmBROWSE_SELECT); }
    void SelectMany() { Begin(XmMULTIPLE_SELECT); }
    void Extend() { Begin(XmEXTENDED_SELECT); }
    void SelectFew();
    void SelectEach();

    void SelectNext();
    void ToggleNext();
    void ExtendToTheEnd();
    void SelectAll();
    void AskForSelected();
    void SelectLastByString();

private:
    void Begin(int policy);
    void Act(const char *action, int type, int y, unsigned state);

    const ClientDesk &desk_;
    const ListCalls &calls_;
    int rows_;
    Widget list_;
    XmString last_ = nullptr;
    int next_ = 0;
};

void TakeNote(Widget, XtPointer, XtPointer) {}

Session::Session(const ClientDesk &desk, const ListCalls &calls, int rows)
    : desk_(desk), calls_(calls), rows_(rows) {
    Arg args[] = {{const_cast<char *>(XmNvisibleItemCount), 40},
                  {const_cast<char *>(XmNlistSizePolicy), XmCONSTANT},
                  {const_cast<char *>(XmNwidth), 400}};
    list_ = calls.create_scrolled(desk.parent, const_cast<char *>("list"), args, XtNumber(args));
    std::vector<XmString> items;
    for (int i = 0; i < rows; i++) {
        std::string text = "A file of the name " + std::to_string(i);
        items.push_back(XmStringCreateLocalized(text.data()));
    }
    calls.add_items(list_, items.data(), rows, 0);
    last_ = XmStringCopy(items.back());
    std::for_each(items.begin(), items.end(), XmStringFree);
    for (const char *name : {XmNsingleSelectionCallback, XmNmultipleSelectionCallback,
                             XmNextendedSelectionCallback, XmNbrowseSelectionCallback}) {
        XtAddCallback(list_, name, TakeNote, nullptr);
    }
    XtManageChild(list_);
    Pump(desk_);
}

Session::~Session() {
    XmStringFree(last_);
    XtDestroyWidget(XtParent(list_));
    Pump(desk_);
}

// ---- Before a case -----------------------------------------------------------------------------------

void Session::Begin(int policy) {
    calls_.deselect_all(list_);
    XtVaSetValues(list_, XmNselectionPolicy, policy, XmNtopItemPosition, 1, nullptr);
    next_ = 0;
    Pump(desk_);
}

void Session::SelectFew() {
    SelectMany();
    for (int i = 1; i <= 10; i++) {
        calls_.select_position(list_, i * rows_ / 10, False);
    }
}

void Session::SelectEach() {
    Extend();
    SelectAll();
}

// ---- What is measured ----------------------------------------------------------------------------------

// Far apart, so that most rows are out of view.
void Session::SelectNext() {
    next_ = (next_ + 7919) % rows_;
    calls_.select_position(list_, next_ + 1, True);
}

void Session::ToggleNext() {
    SelectNext();
}

void Session::Act(const char *action, int type, int y, unsigned state) {
    XEvent event{};
    event.xbutton.type = type;
    event.xbutton.display = desk_.display;
    event.xbutton.window = XtWindow(list_);
    event.xbutton.x = 50;
    event.xbutton.y = y;
    event.xbutton.state = state;
    event.xbutton.button = Button1;
    event.xbutton.same_screen = True;
    XtCallActionProc(list_, action, &event, nullptr, 0);
}

void Session::ExtendToTheEnd() {
    XtVaSetValues(list_, XmNtopItemPosition, 1, nullptr);
    Act("ListBeginSelect", ButtonPress, 10, 0);
    Act("ListEndSelect", ButtonRelease, 10, Button1Mask);
    calls_.set_bottom(list_, rows_);
    Act("ListBeginExtend", ButtonPress, list_->core.height - 20, ShiftMask);
    Act("ListEndExtend", ButtonRelease, list_->core.height - 20, ShiftMask | Button1Mask);
}

void Session::SelectAll() {
    XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.display = desk_.display;
    event.xkey.window = XtWindow(list_);
    XtCallActionProc(list_, "ListKbdSelectAll", &event, nullptr, 0);
}

void Session::AskForSelected() {
    int *positions = nullptr;
    int count = 0;
    if (calls_.get_selected(list_, &positions, &count)) {
        XtFree(reinterpret_cast<char *>(positions));
    }
}

void Session::SelectLastByString() {
    calls_.select_item(list_, last_, True);
}

// ---- Cases ---------------------------------------------------------------------------------------------

// In the order of the names.
struct Case {
    void (Session::*prepare)(); // not measured
    void (Session::*act)();
    int times;
};

constexpr Case cases[] = {
    {&Session::Browse, &Session::SelectNext, 100},
    {&Session::SelectMany, &Session::ToggleNext, 10},
    {&Session::SelectMany, &Session::ToggleNext, toggles},
    {&Session::Extend, &Session::ExtendToTheEnd, 1},
    {&Session::Extend, &Session::SelectAll, 1},
    {&Session::SelectFew, &Session::AskForSelected, 10},
    {&Session::SelectEach, &Session::AskForSelected, 10},
    {&Session::Browse, &Session::SelectLastByString, 10},
};
static_assert(std::size(cases) == std::size(case_names));

void Measure(const ClientDesk &desk, const Case &one, Session &session, const char *name,
             int times) {
    (session.*one.prepare)();
    Pump(desk);
    test::RequestCounter counter(desk.display);
    test::interpose::SyncUnseen(desk.display);
    counter.Restart();
    const double start = CpuSeconds();
    CALLGRIND_TOGGLE_COLLECT;
    for (int time = 0; time < times; time++) {
        (session.*one.act)();
    }
    Pump(desk);
    CALLGRIND_TOGGLE_COLLECT;
    const double seconds = CpuSeconds() - start;
    std::printf("%s %.9f %.3f %.3f\n", name, seconds / times,
                static_cast<double>(counter.requests()) / times,
                static_cast<double>(counter.round_trips()) / times);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv) {
    const auto *calls =
        std::find_if(std::begin(all_calls), std::end(all_calls), [&](const ListCalls &one) {
            return argc == 4 && one.name == std::string_view(argv[1]);
        });
    const int rows = argc == 4 ? std::atoi(argv[2]) : 0;
    if (calls == std::end(all_calls) || rows < 100) {
        std::fputs("usage: bench-list-selection-subject LmList|XmList ROWS CASE|all\n", stderr);
        return 2;
    }
    const std::string_view wanted = argv[3];
    const ClientDesk desk = OpenDesk();
    Session session(desk, *calls, rows);
    for (std::size_t i = 0; i < std::size(cases); i++) {
        if (wanted == case_names[i] || wanted == "all") {
            CALLGRIND_ZERO_STATS;
            Measure(desk, cases[i], session, case_names[i], cases[i].times);
            CALLGRIND_DUMP_STATS_AT(case_names[i]);
        }
    }
    return EXIT_SUCCESS;
}
