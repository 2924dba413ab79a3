// Scrolling by function. The list stays where it is if it is there already.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>
#include <limits>

namespace corvidlmw::list {

namespace {

void SetTop(Widget w, int top) {
    EraseCursor(w);
    ListOf(w).top_item_position = top;
    DrawList(w);
    SetVerticalScrollbar(w);
}

int OriginInRange(const LmListPart &list, int position) {
    return std::min(std::max(position, list.horizontal_minimum), LastOrigin(list));
}

void SetOrigin(Widget w, int origin) {
    auto &list = ListOf(w);
    if (list.horizontal_origin == origin) {
        return;
    }
    EraseCursor(w);
    list.horizontal_origin = origin;
    list.x_origin = CutToPosition(origin);
    SetHorizontalScrollbar(w);
    DrawList(w);
}

} // namespace

int LastOrigin(const LmListPart &list) {
    return std::min<int>(list.horizontal_maximum - list.horizontal_extent,
                         std::numeric_limits<Position>::max());
}

void ScrollToTop(Widget w, int row) {
    const auto &list = ListOf(w);
    if (!IsRow(list, row)) {
        return;
    }
    if (list.top_item_position != row) {
        SetTop(w, row);
    } else {
        // It can show less rows than there are.
        SetVerticalScrollbar(w);
    }
}

void ScrollToBottom(Widget w, int row) {
    const auto &list = ListOf(w);
    const int top = std::max(row + 1 - list.visible_item_count, 0);
    if (IsRow(list, row) && list.top_item_position != top) {
        SetTop(w, top);
    }
}

void BringIntoView(Widget w, int row) {
    const auto &list = ListOf(w);
    if (!list.vertical_scroll_bar) {
        return;
    }
    if (row < list.top_item_position) {
        ScrollToTop(w, row);
    } else if (!IsAboveBottom(list, row)) {
        ScrollToBottom(w, row);
    }
}

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListSetPos(Widget w, int position) {
    if (IsList(w)) {
        ScrollToTop(w, RowAtPosition(ListOf(w), position));
    }
}

void LmListSetBottomPos(Widget w, int position) {
    if (IsList(w)) {
        ScrollToBottom(w, RowAtPosition(ListOf(w), position));
    }
}

void LmListSetItem(Widget w, XmString item) {
    if (IsList(w)) {
        ScrollToTop(w, FindRow(ListOf(w), item));
    }
}

void LmListSetBottomItem(Widget w, XmString item) {
    if (IsList(w)) {
        ScrollToBottom(w, FindRow(ListOf(w), item));
    }
}

void LmListSetHorizPos(Widget w, int position) {
    if (!IsList(w) || ListOf(w).item_count == 0 || !ListOf(w).horizontal_scroll_bar) {
        return;
    }
    SetOrigin(w, OriginInRange(ListOf(w), position));
}

} // extern "C"
