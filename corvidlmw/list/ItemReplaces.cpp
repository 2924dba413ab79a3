// Rows that become others by function. They keep their places, and lose icons, indents and looks.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

// One call, which can replace many rows.
class Replacement {
public:
    Replacement(Widget w, Selection selection) : widget_(w), selection_(selection) {}

    void Put(int row, const OwnedXmString &string) {
        auto &list = ListOf(widget_);
        const Boolean was_selected = ElementOf(list, row).selected;
        if (row == list.current_keyboard_item) {
            // It stands where the row's indent ends.
            EraseCursor(widget_);
        }
        ReplaceRow(widget_, row, string.get(), selection_);
        RaiseMaxWidth(list, row, 1);
        selection_changed_ = selection_changed_ || ElementOf(list, row).selected != was_selected;
        in_view_ = in_view_ || IsAboveBottom(list, row);
    }

    void Close() {
        if (selection_changed_) {
            UpdateSelectedIndices(ListOf(widget_));
        }
        CloseChange(widget_);
        if (in_view_) {
            DrawList(widget_);
        }
    }

private:
    Widget widget_;
    Selection selection_;
    bool selection_changed_ = false;
    bool in_view_ = false;
};

// Each is looked up after those before it were replaced, and can be what one of those became.
void ReplaceItems(Widget w, const XmString *old_items, int count, const XmString *new_items,
                  Selection selection) {
    if (!IsList(w) || !old_items || !new_items || count < 1 || ListOf(w).item_count == 0) {
        return;
    }
    const Vector<OwnedXmString> old_copies = CopiesOf(old_items, count);
    const Vector<OwnedXmString> new_copies = CopiesOf(new_items, count);
    Replacement replacement(w, selection);
    for (std::size_t i = 0; i < old_copies.size(); i++) {
        const int row = FindRow(ListOf(w), old_copies[i].get());
        if (row >= 0) {
            replacement.Put(row, new_copies[i]);
        }
    }
    replacement.Close();
}

void ReplaceItemsPos(Widget w, const XmString *items, int count, int position,
                     Selection selection) {
    if (!IsList(w) || !items || position < 1 || position > ListOf(w).item_count || count < 1) {
        return;
    }
    count = std::min(count, ListOf(w).item_count - position + 1);
    Replacement replacement(w, selection);
    int row = position - 1;
    for (const OwnedXmString &copy : CopiesOf(items, count)) {
        replacement.Put(row++, copy);
    }
    replacement.Close();
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListReplaceItems(Widget w, XmString *old_items, int count, XmString *new_items) {
    ReplaceItems(w, old_items, count, new_items, Selection::ByMembership);
}

void LmListReplaceItemsUnselected(Widget w, XmString *old_items, int count, XmString *new_items) {
    ReplaceItems(w, old_items, count, new_items, Selection::Nothing);
}

void LmListReplaceItemsPos(Widget w, XmString *items, int count, int position) {
    ReplaceItemsPos(w, items, count, position, Selection::ByMembership);
}

void LmListReplaceItemsPosUnselected(Widget w, XmString *items, int count, int position) {
    ReplaceItemsPos(w, items, count, position, Selection::Nothing);
}

void LmListReplacePositions(Widget w, int *positions, XmString *items, int count) {
    if (!IsList(w) || !positions || !items || count < 1 || ListOf(w).item_count == 0) {
        return;
    }
    Replacement replacement(w, Selection::ByMembership);
    for (const OwnedXmString &copy : CopiesOf(items, count)) {
        const int position = *positions++;
        if (IsPosition(ListOf(w), position)) {
            replacement.Put(position - 1, copy);
        } else {
            WarnOfMissingItem(w);
        }
    }
    replacement.Close();
}

} // extern "C"
