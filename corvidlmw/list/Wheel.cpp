// Scrolling by the wheel, a row at a time.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

// To where the vertical bar could scroll as well.
void ScrollBy(Widget w, int rows) {
    auto &list = ListOf(w);
    const int top = list.top_item_position + rows;
    if (top < 0 || (rows > 0 && top > list.element_count - list.visible_item_count)) {
        return;
    }
    EraseCursor(w);
    list.top_item_position = top;
    DrawList(w);
    SetVerticalScrollbar(w);
}

} // namespace

void ListScrollUp(Widget w, XEvent *, String *, Cardinal *) {
    ScrollBy(w, -1);
}

void ListScrollDown(Widget w, XEvent *, String *, Cardinal *) {
    ScrollBy(w, 1);
}

} // namespace corvidlmw::list
