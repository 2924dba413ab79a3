// The rows: `items`, which clients read, and `elements` beside it, with what drawing and selection need.
//
// Whenever a client has control, elements[i] belongs to items[i], both arrays have item_count entries and
// are NULL without any, each string in `items` is the list's own, and the difference between the running
// heights of two rows is the number of rows between them times the pitch, modulo 65536. The running
// height of row 0 itself is the height of a row, but in a long list that lost or got rows near its
// front: there the rows in front take the shift, which are fewer.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>
#include <iterator>

namespace corvidlmw::list {

namespace {

// ---- Arrays ---------------------------------------------------------------------------------------

void ShowArrays(LmListPart &list) {
    auto &state = StateOf(list);
    list.items = state.items.data();
    list.item_count = state.items.size();
    list.elements = state.elements.data();
    list.element_count = state.elements.size();
}

// ---- Running heights ------------------------------------------------------------------------------

// Up to this many rows behind a change are shifted even if fewer stand before it.
constexpr int short_tail = 1024;

void AddToHeights(std::span<LmListElement *const> elements, int change) {
    for (LmListElement *element : elements) {
        element->cumulative_height = CutToDimension(element->cumulative_height + change);
    }
}

// Makes room for `rows` rows before `row`, or takes it away, by moving those behind it down or those
// before it up.
void ShiftHeights(LmListPart &list, int row, int rows) {
    const auto elements = ElementsOf(list);
    const auto head = static_cast<std::size_t>(row);
    const auto change = static_cast<int>(
        (static_cast<unsigned>(rows) * static_cast<unsigned>(StateOf(list).pitch)) & 0xffff);
    const std::size_t tail = elements.size() - head;
    if (tail <= short_tail || tail <= head) {
        AddToHeights(elements.subspan(head), change);
    } else {
        AddToHeights(elements.first(head), -change);
    }
}

// Of the first of `count` new rows from `row` on, which are in the arrays already.
unsigned FirstHeight(const LmListPart &list, int row, int count) {
    const auto pitch = static_cast<unsigned>(StateOf(list).pitch);
    if (row > 0) {
        return ElementOf(list, row - 1).cumulative_height + pitch;
    }
    if (count < list.element_count) {
        return ElementOf(list, count).cumulative_height - static_cast<unsigned>(count) * pitch;
    }
    return list.max_item_height;
}

void NumberHeights(LmListPart &list, int row, int count) {
    unsigned height = FirstHeight(list, row, count);
    for (int i = row; i < row + count; i++) {
        ElementOf(list, i).cumulative_height = static_cast<Dimension>(height);
        height += static_cast<unsigned>(StateOf(list).pitch);
    }
}

// ---- Elements -------------------------------------------------------------------------------------

LmListElement *MakeElement(LmListPart &list, XmString item) {
    LmListElement *element = StateOf(list).pool.Take();
    *element = {};
    element->name = _XmStringCreate(item);
    MeasureText(list, *element);
    // The window does not show it yet.
    element->drawn_selected = True;
    Count(list, *element);
    return element;
}

void FreeElement(Widget w, LmListElement *element) {
    auto &state = StateOf(w);
    if (state.armed == element) {
        state.armed = nullptr;
    }
    DropLook(w, *element);
    Discount(ListOf(w), *element);
    _XmStringFree(element->name);
    StateOf(w).pool.Give(element);
}

// A taller row makes all rows taller, at once.
void GrowRows(Widget w) {
    auto &list = ListOf(w);
    const Dimension tallest = CutToDimension(StateOf(list).heights.HighestOr(0));
    if (tallest > list.max_item_height) {
        ClearForHeight(w);
        list.max_item_height = tallest;
    }
    if (StateOf(list).pitch != PitchOf(list)) {
        RebuildHeights(list);
    }
}

void SelectNewRow(LmListPart &list, int row, bool selected) {
    SetBothSelected(list, row, selected);
    ElementOf(list, row).drawn_selected = !selected;
}

void SelectNewRows(LmListPart &list, int row, int count) {
    const SelectedStrings strings(list, count);
    for (int i = row; i < row + count; i++) {
        SelectNewRow(list, i, strings.Contain(list.items[i]));
    }
}

} // namespace

// ---- Rows come ------------------------------------------------------------------------------------

void InsertRows(Widget w, int row, const XmString *strings, int count, Selection selection) {
    Vector<OwnedXmString> copies = CopiesOf(strings, std::max(count, 0));
    AdoptRows(w, row, copies, selection);
}

void AdoptRows(Widget w, int row, std::span<OwnedXmString> strings, Selection selection) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    const auto count = static_cast<int>(strings.size());
    if (count < 1) {
        return;
    }
    ShiftHeights(list, row, count);
    state.items.Open(row, count);
    state.elements.Open(row, count);
    state.pool.Expect(count);
    state.selected.InsertRows(row, count);
    state.unsettled.InsertRows(row, count);
    ShowArrays(list);
    for (int i = 0; i < count; i++) {
        list.items[row + i] = strings[static_cast<std::size_t>(i)].release();
        list.elements[row + i] = MakeElement(list, list.items[row + i]);
    }
    NumberHeights(list, row, count);
    GrowRows(w);
    if (selection == Selection::ByMembership) {
        SelectNewRows(list, row, count);
    }
}

// ---- Rows go --------------------------------------------------------------------------------------

void RemoveRows(Widget w, int row, int count) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    if (count < 1) {
        return;
    }
    for (int i = row; i < row + count; i++) {
        FreeElement(w, list.elements[i]);
        XmStringFree(list.items[i]);
    }
    state.items.Close(row, count);
    state.elements.Close(row, count);
    state.selected.EraseRows(row, count);
    state.unsettled.EraseRows(row, count);
    ShowArrays(list);
    ShiftHeights(list, row, -count);
}

// Rows that follow each other are a run. Others take one pass over the arrays, whose rows all move anyhow.
void RemoveRowSet(Widget w, const RowSet &rows) {
    auto &list = ListOf(w);
    const int first = rows.Next(0);
    if (rows.empty() || rows.LastBefore(list.element_count) - first + 1 == rows.size()) {
        RemoveRows(w, first, rows.size());
        return;
    }
    auto &state = StateOf(list);
    RowSet selected;
    RowSet unsettled;
    int kept = 0;
    for (int row = 0; row < list.item_count; row++) {
        if (rows.Contains(row)) {
            FreeElement(w, list.elements[row]);
            XmStringFree(list.items[row]);
            continue;
        }
        list.items[kept] = list.items[row];
        list.elements[kept] = list.elements[row];
        selected.Put(kept, state.selected.Contains(row));
        unsettled.Put(kept, state.unsettled.Contains(row));
        kept++;
    }
    state.items.Close(kept, list.item_count - kept);
    state.elements.Close(kept, list.element_count - kept);
    state.selected = std::move(selected);
    state.unsettled = std::move(unsettled);
    ShowArrays(list);
    RebuildHeights(list);
}

void RemoveAllRows(Widget w) {
    auto &list = ListOf(w);
    if (list.item_count == 0) {
        return;
    }
    RemoveRows(w, 0, list.item_count);
    list.last_highlighted = list.top_item_position = list.current_keyboard_item = 0;
    list.x_origin = 0;
}

// ---- A row changes ----------------------------------------------------------------------------------

void ReplaceRow(Widget w, int row, XmString string, Selection selection) {
    auto &list = ListOf(w);
    LmListElement &element = ElementOf(list, row);
    XmString copy = XmStringCopy(string);
    Discount(list, element);
    DropLook(w, element);
    _XmStringFree(element.name);
    XmStringFree(list.items[row]);
    list.items[row] = copy;
    element.icon = None;
    element.icon_width = element.icon_height = element.indent = 0;
    element.name = _XmStringCreate(copy);
    MeasureText(list, element);
    Count(list, element);
    SetBothSelected(list, row, false);
    element.drawn_selected = True;
    if (selection == Selection::ByMembership) {
        SelectNewRows(list, row, 1);
    }
    if (element.height > list.max_item_height) {
        GrowRows(w);
    }
}

void DropLook(Widget w, LmListElement &element) {
    if (element.gc) {
        XFreeGC(XtDisplay(w), element.gc);
        StateOf(w).looks--;
        element.gc = nullptr;
    }
    if (element.font_list) {
        XmFontListFree(element.font_list);
        element.font_list = nullptr;
    }
}

// ---- Strings --------------------------------------------------------------------------------------

Vector<OwnedXmString> CopiesOf(const XmString *strings, int count) {
    Vector<OwnedXmString> copies;
    copies.reserve(static_cast<std::size_t>(count));
    std::transform(strings, strings + count, std::back_inserter(copies),
                   [](XmString string) { return OwnedXmString(XmStringCopy(string)); });
    return copies;
}

int FindRow(const LmListPart &list, XmString string, int from) {
    for (int row = std::max(from, 0); row < list.item_count; row++) {
        if (XmStringCompare(list.items[row], string)) {
            return row;
        }
    }
    return -1;
}

} // namespace corvidlmw::list
