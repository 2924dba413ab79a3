// Tables of text in a list, read back. The first line says how many columns and how many rows fewer the
// second table has; the others are the rows.
#include <tests/fuzz/Client.h>

#include <corvidlmw/list/LmListP.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::fuzz;

namespace {

LmListPart &PartOf(Widget list) {
    return reinterpret_cast<LmListWidget>(list)->list;
}

// As far as there are texts in a row: tabs that follow one another part two of them once.
std::vector<std::string> TextsIn(const std::string &row) {
    std::vector<std::string> texts(1);
    for (const char c : row) {
        if (c != '\t') {
            texts.back() += c;
        } else if (!texts.back().empty()) {
            texts.emplace_back();
        }
    }
    if (texts.back().empty()) {
        texts.pop_back();
    }
    return texts;
}

int WidthOf(Widget list, const std::string &text) {
    XmString string = XmStringCreateLocalized(Name(text.c_str()));
    const int width = XmStringWidth(PartOf(list).font_list, string);
    XmStringFree(string);
    return width;
}

void CheckItems(Widget list, const std::vector<std::string> &rows) {
    XmStringTable items = nullptr;
    int count = -1;
    XtVaGetValues(list, XmNitems, &items, XmNitemCount, &count, nullptr);
    Require(count == static_cast<int>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); i++) {
        XmString expected = XmStringCreateLocalized(Name(rows[i].c_str()));
        Require(XmStringCompare(items[i], expected));
        Require(LmListItemExists(list, expected) &&
                LmListItemPos(list, expected) <= static_cast<int>(i) + 1);
        XmStringFree(expected);
    }
}

void CheckColumns(Widget list, const std::vector<std::string> &rows, int columns) {
    const LmListPart &part = PartOf(list);
    if (columns <= 1 || rows.empty()) {
        Require(part.field_count == 0 && part.field_widths == nullptr);
        return;
    }
    Require(part.field_count == columns);
    std::vector<int> widths(static_cast<std::size_t>(columns));
    for (const std::string &row : rows) {
        const auto texts = TextsIn(row);
        for (std::size_t i = 0; i < std::min(texts.size(), widths.size()); i++) {
            widths[i] = std::max(widths[i], WidthOf(list, texts[i]));
        }
    }
    Require(std::equal(widths.begin(), widths.end(), part.field_widths));
}

void SetAndCheck(Widget list, const std::vector<std::string> &rows, int columns) {
    std::vector<char *> table;
    for (const std::string &row : rows) {
        table.push_back(Name(row.c_str()));
    }
    LmListSetTable(list, table.data(), static_cast<int>(table.size()), columns);
    CheckItems(list, rows);
    CheckColumns(list, rows, columns);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto lines = LinesOf(data, size);
    if (lines.empty()) {
        return 0;
    }
    Input numbers(lines[0]);
    std::vector<std::string> rows(lines.begin() + 1, lines.end());
    const int columns = numbers.Between(-10, 2000);
    const int fewer = numbers.Between(0, static_cast<int>(rows.size()));

    const Owned list(LmCreateList(Stage(), Name("list"), nullptr, 0));
    XtManageChild(list);
    SetAndCheck(list, rows, columns);
    Settle();
    rows.resize(rows.size() - static_cast<std::size_t>(fewer));
    SetAndCheck(list, rows, numbers.Between(-10, 2000));
    const int count = numbers.Whole();
    LmListSetTable(list, nullptr, count, numbers.Between(-10, 2000));
    CheckItems(list, {});
    return 0;
}
