// Rows that come by function. A place that there is not appends, and draws no warning.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

struct Place {
    int row;
    bool appended; // not inserted, not even behind the last row
};

Place PlaceAt(const LmListPart &list, int position) {
    const bool appended = position < 1 || position - 1 > list.item_count;
    return {appended ? list.item_count : position - 1, appended};
}

void MoveCursor(LmListPart &list, int count) {
    const int last = list.item_count - 1;
    list.current_keyboard_item = std::min(list.current_keyboard_item + count, last);
    if (list.automatic_selection && SelectsRanges(list)) {
        list.last_highlighted = std::min(list.last_highlighted + count, last);
    }
}

void Insert(Widget w, const Place &place, std::span<const XmString> items, Selection selection) {
    auto &list = ListOf(w);
    const bool was_empty = list.item_count == 0;
    const int count = static_cast<int>(items.size());
    InsertRows(w, place.row, items.data(), count, selection);
    RaiseMaxWidth(list, place.row, count);
    UpdateSelectedIndicesFrom(list, place.row);
    if (was_empty) {
        // An empty list can have kept the top of what it was.
        list.top_item_position = std::min(list.top_item_position, count - 1);
    }
}

// The cursor is taken away only where it moves: elsewhere it is drawn over itself.
template <typename Close>
void Add(Widget w, std::span<const XmString> items, int position, Selection selection,
         Close close) {
    auto &list = ListOf(w);
    const Place place = PlaceAt(list, position);
    const bool moves_cursor = !place.appended && place.row <= list.current_keyboard_item;
    if (moves_cursor) {
        EraseCursor(w);
    }
    Insert(w, place, items, selection);
    if (moves_cursor) {
        MoveCursor(list, static_cast<int>(items.size()));
    }
    close(w);
    if (moves_cursor || IsAboveBottom(list, place.row)) {
        DrawChange(w, IsAboveBottom(list, place.row));
    }
}

void AddMany(Widget w, const XmString *items, int count, int position, Selection selection) {
    if (IsList(w) && items && count > 0) {
        Add(w, {items, static_cast<std::size_t>(count)}, position, selection, CloseChange);
    }
}

// Neither the list's size nor the vertical bar: those wait for the next change that asks for them.
void CloseAddedItem(Widget w) {
    if (!IsVariable(ListOf(w))) {
        SetHorizontalScrollbar(w);
    }
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListAddItem(Widget w, XmString item, int position) {
    if (IsList(w)) {
        Add(w, {&item, 1}, position, Selection::ByMembership, CloseAddedItem);
    }
}

void LmListAddItemUnselected(Widget w, XmString item, int position) {
    AddMany(w, &item, 1, position, Selection::Nothing);
}

void LmListAddItems(Widget w, XmString *items, int count, int position) {
    AddMany(w, items, count, position, Selection::ByMembership);
}

void LmListAddItemsUnselected(Widget w, XmString *items, int count, int position) {
    AddMany(w, items, count, position, Selection::Nothing);
}

} // extern "C"
