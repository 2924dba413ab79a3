// Which rows are selected, and the snapshots of them that clients read.
//
// A row's `selected` and `last_selected` are set here alone, so that the rows whose flags are set are known
// without a look at all the others. The snapshots lag behind until they are rebuilt.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

template <typename T>
T *NewArray(int count) {
    // NOLINTNEXTLINE(bugprone-sizeof-expression): the entries themselves are pointers
    return static_cast<T *>(static_cast<void *>(XtCalloc(static_cast<Cardinal>(count), sizeof(T))));
}

void FreePositions(LmListPart &list) {
    XtFree(reinterpret_cast<char *>(list.selected_positions));
    list.selected_positions = nullptr;
}

void RememberSelection(LmListPart &list) {
    StateOf(list).unsettled.ForEach(
        [&list](int row) { SetLastSelected(list, row, ElementOf(list, row).selected != False); });
}

void DeselectAll(LmListPart &list) {
    const auto &state = StateOf(list);
    for (const RowSet *rows : {&state.selected, &state.unsettled}) {
        rows->ForEach([&list](int row) { SetBothSelected(list, row, false); });
    }
}

} // namespace

// ---- Rows -----------------------------------------------------------------------------------------

void SetSelected(LmListPart &list, int row, bool selected) {
    auto &state = StateOf(list);
    LmListElement &element = ElementOf(list, row);
    element.selected = selected;
    state.selected.Put(row, selected);
    state.unsettled.Put(row, element.selected != element.last_selected);
}

void SetLastSelected(LmListPart &list, int row, bool selected) {
    LmListElement &element = ElementOf(list, row);
    element.last_selected = selected;
    StateOf(list).unsettled.Put(row, element.selected != element.last_selected);
}

void SelectByMembership(LmListPart &list) {
    const int wanted = list.selected_item_count > 0 ? list.element_count : 0;
    const SelectedStrings strings(list, wanted);
    DeselectAll(list);
    for (int row = 0; row < wanted; row++) {
        SetBothSelected(list, row, strings.Contain(list.items[row]));
    }
}

// ---- Strings --------------------------------------------------------------------------------------

SelectedStrings::SelectedStrings(const LmListPart &list, int lookups)
    : strings_(list.selected_items,
               static_cast<std::size_t>(list.selected_items ? std::max(list.selected_item_count, 0)
                                                            : 0)) {
    constexpr int few = 8;
    if (lookups > few && strings_.size() > few) {
        std::for_each(strings_.begin(), strings_.end(),
                      [this](XmString string) { bag_.Add(string); });
    }
}

bool SelectedStrings::Contain(XmString string) const {
    return bag_.empty() ? std::any_of(strings_.begin(), strings_.end(),
                                      [string](XmString one) {
                                          return XmStringCompare(one, string) != False;
                                      })
                        : bag_.Contains(string);
}

// ---- Snapshots --------------------------------------------------------------------------------------

void ClearSelectedList(LmListPart &list) {
    for (int i = 0; list.selected_items && i < list.selected_item_count; i++) {
        XmStringFree(list.selected_items[i]);
    }
    XtFree(reinterpret_cast<char *>(list.selected_items));
    FreePositions(list);
    list.selected_items = nullptr;
    list.selected_item_count = 0;
}

void BuildSelectedList(LmListPart &list, bool remember) {
    ClearSelectedList(list);
    if (remember) {
        RememberSelection(list);
    }
    const int count = StateOf(list).selected.size();
    if (count == 0) {
        return;
    }
    list.selected_item_count = count;
    list.selected_items = NewArray<XmString>(count);
    list.selected_positions = NewArray<int>(count);
    StateOf(list).selected.ForEach([&list, i = 0](int row) mutable {
        list.selected_items[i] = XmStringCopy(list.items[row]);
        list.selected_positions[i++] = row + 1;
    });
}

void UpdateSelectedIndices(LmListPart &list) {
    FreePositions(list);
    const int count = StateOf(list).selected.size();
    if (count > 0) {
        list.selected_positions = NewArray<int>(count);
        StateOf(list).selected.ForEach(
            [next = list.selected_positions](int row) mutable { *next++ = row + 1; });
    }
}

void UpdateSelectedIndicesFrom(LmListPart &list, int row) {
    if (StateOf(list).selected.LastBefore(list.element_count) >= row) {
        UpdateSelectedIndices(list);
    }
}

// ---- Anchors and cursor -------------------------------------------------------------------------------

void SetSelectionParams(Widget w) {
    auto &list = ListOf(w);
    const RowSet &selected = StateOf(list).selected;
    if (list.element_count == 0) {
        return;
    }
    list.old_end_item = list.end_item;
    list.old_start_item = list.start_item;
    const int last = selected.LastBefore(list.element_count);
    if (last < 0) {
        list.end_item = list.start_item = list.last_highlighted = 0;
        return;
    }
    list.end_item = list.last_highlighted = list.start_item = last;
    while (selected.Contains(list.start_item - 1)) {
        list.start_item--;
    }
    PlaceCursor(w, last);
}

} // namespace corvidlmw::list
