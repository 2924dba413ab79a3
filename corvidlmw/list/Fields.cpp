// Columns: widths that hold for all rows. And tables of text, whose columns are as wide as their widest
// text. A row stays one string; columns only say where a click and a selected row's cell are.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

void InstallFields(LmListPart &list, std::span<const int> widths) {
    DropFields(list);
    if (widths.empty()) {
        return;
    }
    list.field_widths = static_cast<int *>(
        static_cast<void *>(XtCalloc(static_cast<Cardinal>(widths.size()), sizeof(int))));
    list.field_count = static_cast<int>(widths.size());
    std::copy(widths.begin(), widths.end(), list.field_widths);
}

// ---- Tables -----------------------------------------------------------------------------------------

using Strings = Vector<OwnedXmString>;

XmString Localized(const char *text) {
    return XmStringCreateLocalized(Name(text ? text : ""));
}

// The list takes copies.
void ReplaceItems(Widget w, const Strings &strings) {
    Vector<XmString> items;
    items.reserve(strings.size());
    for (const OwnedXmString &string : strings) {
        items.push_back(string.get());
    }
    XtVaSetValues(w, XmNitems, items.empty() ? nullptr : items.data(), XmNitemCount,
                  static_cast<int>(items.size()), nullptr);
}

Strings RowsAsStrings(std::span<char *const> rows) {
    Strings strings;
    strings.reserve(rows.size());
    for (const char *row : rows) {
        strings.emplace_back(Localized(row));
    }
    return strings;
}

void WidenTo(int &width, XmFontList fonts, const Text &text) {
    const OwnedXmString string(Localized(text.c_str()));
    width = std::max<int>(width, XmStringWidth(fonts, string.get()));
}

// Tabs that follow each other part two texts once, so an empty column does not count.
void WidenToRow(std::span<int> widths, XmFontList fonts, const Text &row) {
    std::size_t end = 0;
    for (int &width : widths) {
        const std::size_t start = row.find_first_not_of('\t', end);
        if (start == Text::npos) {
            return;
        }
        end = std::min(row.find('\t', start), row.size());
        WidenTo(width, fonts, row.substr(start, end - start));
    }
}

Vector<int> ColumnWidths(XmFontList fonts, std::span<char *const> rows, int columns) {
    Vector<int> widths(static_cast<std::size_t>(columns));
    for (const char *row : rows) {
        WidenToRow(widths, fonts, row ? row : "");
    }
    return widths;
}

} // namespace

void DropFields(LmListPart &list) {
    XtFree(reinterpret_cast<char *>(list.field_widths));
    list.field_widths = nullptr;
    list.field_count = 0;
}

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListSetFields(Widget w, int *widths, int count) {
    if (IsList(w)) {
        const bool any = widths && count > 0;
        InstallFields(ListOf(w), any ? std::span<const int>(widths, static_cast<std::size_t>(count))
                                     : std::span<const int>());
    }
}

// New items take the columns away, so those come last.
void LmListSetTable(Widget w, char **rows, int row_count, int column_count) {
    if (!IsList(w)) {
        return;
    }
    const bool any = rows && row_count > 0;
    const std::span<char *const> table(rows, static_cast<std::size_t>(any ? row_count : 0));
    ReplaceItems(w, RowsAsStrings(table));
    if (any && column_count > 1) {
        InstallFields(ListOf(w), ColumnWidths(ListOf(w).font_list, table, column_count));
    } else {
        DropFields(ListOf(w));
    }
}

} // extern "C"
