#include <bench/list/Session.h>

#include <Xm/List.h>
#include <Xm/ScrolledW.h>
#include <X11/IntrinsicP.h>
#include <corvidlmw/list/LmList.h>

#include <algorithm>
#include <string>

namespace corvidlmw::bench {

namespace {

constexpr ListCalls all_calls[] = {
    {"LmList", LmCreateList, LmCreateScrolledList, LmListAddItem, LmListAddItems,
     LmListReplaceItemsPos, LmListDeleteAllItems, LmListDeletePos, LmListSetPos},
    {"XmList", XmCreateList, XmCreateScrolledList, XmListAddItem, XmListAddItems,
     XmListReplaceItemsPos, XmListDeleteAllItems, XmListDeletePos, XmListSetPos},
};

std::vector<XmString> MakeStrings(const char *what, int count) {
    std::vector<XmString> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; i++) {
        std::string text = what + std::to_string(i);
        rows.push_back(XmStringCreateLocalized(text.data()));
    }
    return rows;
}

} // namespace

const ListCalls *FindListCalls(std::string_view name) {
    const auto *const found =
        std::find_if(std::begin(all_calls), std::end(all_calls),
                     [name](const ListCalls &calls) { return calls.name == name; });
    return found == std::end(all_calls) ? nullptr : found;
}

// ---- Life ------------------------------------------------------------------------------------------

Session::Session(const ClientDesk &desk, const ListCalls &calls, bool scrolled, int count)
    : desk_(desk), calls_(calls), scrolled_(scrolled), count_(count) {
    Arg args[] = {{const_cast<char *>(XmNvisibleItemCount), rows_in_view},
                  {const_cast<char *>(XmNlistSizePolicy), XmCONSTANT},
                  {const_cast<char *>(XmNwidth), 400}};
    list_ = (scrolled ? calls.create_scrolled : calls.create)(
        desk.parent, const_cast<char *>("list"), args, XtNumber(args));
    XtManageChild(list_);
    Pump(desk_);
}

Session::~Session() {
    XtDestroyWidget(scrolled_ ? XtParent(list_) : list_);
    Pump(desk_);
    FreeRows();
}

// ---- Before and after -------------------------------------------------------------------------------

void Session::Empty() {
    XtVaSetValues(list_, XmNitemCount, 0, XmNitems, nullptr, nullptr);
    KeepSize();
}

void Session::Fill() {
    MakeRows();
    SetItems();
    FreeRows();
    XtVaSetValues(list_, XmNtopItemPosition, 1, nullptr);
    KeepSize();
    position_ = 1;
}

// An LmList that is emptied and filled loses one row of its height.
void Session::KeepSize() {
    XtVaSetValues(list_, XmNvisibleItemCount, rows_in_view, nullptr);
    Pump(desk_);
}

void Session::MakeRows() {
    rows_ = MakeStrings("A file of the name ", count_);
}

void Session::MakeOtherRows() {
    rows_ = MakeStrings("Another file of the name ", count_);
}

void Session::FreeRows() {
    std::for_each(rows_.begin(), rows_.end(), XmStringFree);
    rows_ = {};
}

void Session::ReleaseArrow() {
    DispatchButton(ButtonRelease, Button1Mask);
    Pump(desk_);
}

// ---- What is measured -------------------------------------------------------------------------------

void Session::SetItems() {
    XtVaSetValues(list_, XmNitems, rows_.data(), XmNitemCount, count_, nullptr);
    Pump(desk_);
}

void Session::AddAtOnce() {
    calls_.add_items(list_, rows_.data(), count_, 0);
    Pump(desk_);
}

void Session::AddEach() {
    for (XmString row : rows_) {
        calls_.add_item(list_, row, 0);
    }
    Pump(desk_);
}

void Session::ReplaceAll() {
    calls_.replace_items(list_, rows_.data(), count_, 1);
    Pump(desk_);
}

void Session::ReplaceOne() {
    calls_.replace_items(list_, rows_.data(), 1, count_ / 2);
    Pump(desk_);
}

void Session::DeleteAll() {
    calls_.delete_all(list_);
    Pump(desk_);
}

void Session::DeleteFront() {
    for (int i = 0; i < count_; i++) {
        calls_.delete_position(list_, 1);
    }
    Pump(desk_);
}

void Session::Redraw() {
    XEvent event{};
    event.xexpose.type = Expose;
    event.xexpose.width = list_->core.width;
    event.xexpose.height = list_->core.height;
    Dispatch(list_, event);
    Pump(desk_);
}

// The bar's timer is left alone.
void Session::PressArrow() {
    DispatchButton(ButtonPress, 0);
    Pump(desk_, XtIMXEvent);
}

void Session::SetNextPosition() {
    calls_.set_position(list_, ++position_);
    Pump(desk_);
}

// ---- Events -----------------------------------------------------------------------------------------

Widget Session::Bar() const {
    Widget bar = nullptr;
    XtVaGetValues(list_, XmNverticalScrollBar, &bar, nullptr);
    return bar;
}

void Session::Dispatch(Widget w, XEvent &event) const {
    event.xany.display = desk_.display;
    event.xany.window = XtWindow(w);
    XtDispatchEvent(&event);
}

void Session::DispatchButton(int type, unsigned state) const {
    Widget bar = Bar();
    XEvent event{};
    event.xbutton.type = type;
    event.xbutton.x = bar->core.width / 2;
    event.xbutton.y = bar->core.height - 8;
    event.xbutton.state = state;
    event.xbutton.button = Button1;
    event.xbutton.same_screen = True;
    Dispatch(bar, event);
}

} // namespace corvidlmw::bench
