// How tall and wide rows are, and what is kept of it for all of them together.
//
// The list's own fonts measure every row, whatever fonts a row is drawn in.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

int NeedOf(const LmListPart &list, const LmListElement &element) {
    return element.width + (list.indent_icons ? element.indent : 0);
}

void MeasureAllAnew(LmListPart &list) {
    auto &state = StateOf(list);
    state.heights.Clear();
    state.needs.Clear();
    state.icon_widths.Clear();
    for (LmListElement *element : ElementsOf(list)) {
        MeasureText(list, *element);
        Count(list, *element);
    }
    state.stale_fonts = false;
}

} // namespace

// ---- One row --------------------------------------------------------------------------------------

void MeasureText(const LmListPart &list, LmListElement &element) {
    if (const auto line = StateOf(list).text_widths.Measure(element.name)) {
        element.width = line->width;
        element.height = line->height;
        element.length = line->length;
        element.line_count = 1;
    } else {
        _XmStringExtent(list.font_list, element.name, &element.width, &element.height);
        element.length = element.name ? XmStringLength(element.name) : 0;
        element.line_count = CutToDimension(_XmStringLineCount(element.name));
    }
    element.height =
        std::max(element.height, CutToDimension(std::max<int>(element.icon_height, 0)));
}

void Count(LmListPart &list, const LmListElement &element) {
    auto &state = StateOf(list);
    state.heights.Add(element.height);
    state.needs.Add(NeedOf(list, element));
    if (element.icon_width != 0) {
        state.icon_widths.Add(element.icon_width);
    }
}

void Discount(LmListPart &list, const LmListElement &element) {
    auto &state = StateOf(list);
    state.heights.Remove(element.height);
    state.needs.Remove(NeedOf(list, element));
    if (element.icon_width != 0) {
        state.icon_widths.Remove(element.icon_width);
    }
}

void SetRowIcon(Widget w, int row, Pixmap icon, Dimension width, Dimension height) {
    auto &list = ListOf(w);
    LmListElement &element = ElementOf(list, row);
    Discount(list, element);
    element.icon = icon;
    element.icon_width = CutToPosition(width);
    element.icon_height = CutToPosition(height);
    MeasureText(list, element);
    Count(list, element);
}

void SetRowIndent(Widget w, int row, Dimension indent) {
    auto &list = ListOf(w);
    LmListElement &element = ElementOf(list, row);
    Discount(list, element);
    element.indent = CutToPosition(indent);
    Count(list, element);
}

// ---- All rows -------------------------------------------------------------------------------------

void RecountNeeds(Widget w) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    state.needs.Clear();
    for (const LmListElement *element : ElementsOf(list)) {
        state.needs.Add(NeedOf(list, *element));
    }
}

void RebuildHeights(LmListPart &list) {
    const int pitch = PitchOf(list);
    unsigned height = list.max_item_height;
    for (LmListElement *element : ElementsOf(list)) {
        element->cumulative_height = static_cast<Dimension>(height);
        height += static_cast<unsigned>(pitch);
    }
    StateOf(list).pitch = pitch;
}

void ClearForHeight(Widget w) {
    if (ListOf(w).update) {
        ClearRows(w, True);
    }
}

void ResetHeight(Widget w) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    if (!list.update || list.element_count == 0) {
        return;
    }
    if (state.stale_fonts) {
        MeasureAllAnew(list);
    }
    const Dimension tallest = CutToDimension(state.heights.HighestOr(0));
    if (tallest != list.max_item_height) {
        ClearForHeight(w);
        list.max_item_height = tallest;
    }
    if (state.pitch != PitchOf(list)) {
        RebuildHeights(list);
    }
}

void RecomputeMaxWidth(LmListPart &list) {
    const int need = StateOf(list).needs.HighestOr(0) + list.icon_column_width;
    list.max_width = CutToDimension(std::max(need, 0));
}

// Without icons and indents: new rows have none.
void RaiseMaxWidth(LmListPart &list, int row, int count) {
    for (int i = row; i < row + count; i++) {
        list.max_width = std::max(list.max_width, ElementOf(list, i).width);
    }
}

} // namespace corvidlmw::list
