// What the tests of the list share: short ways to lists and strings, and what their records hold.
#pragma once

#include <corvidlmw/list/LmListP.h>
#include <tests/support/Harness.h>

#include <Xm/BulletinB.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace corvidlmw::test {

using Settings = std::vector<std::pair<const char *, XtArgVal>>;
using Texts = std::vector<std::string>;

inline LmListPart &PartOf(Widget list) {
    return reinterpret_cast<LmListWidget>(list)->list;
}

inline const LmListElement &RowOf(Widget list, int row) {
    return *PartOf(list).elements[row];
}

inline std::vector<Arg> ArgsOf(const Settings &settings) {
    std::vector<Arg> args;
    for (const auto &[name, value] : settings)
        args.push_back({Name(name), value});
    return args;
}

inline void Set(Widget w, const Settings &settings) {
    std::vector<Arg> args = ArgsOf(settings);
    XtSetValues(w, args.data(), static_cast<Cardinal>(args.size()));
}

template <typename T = int>
T Get(Widget w, const char *resource) {
    T value{};
    XtVaGetValues(w, resource, &value, nullptr);
    return value;
}

// Compound strings for as long as this lives.
class Strings {
public:
    explicit Strings(const Texts &texts) {
        for (const auto &text : texts)
            strings_.push_back(XmStringCreateLocalized(Name(text.c_str())));
    }
    ~Strings() {
        for (XmString string : strings_)
            XmStringFree(string);
    }
    Strings(const Strings &) = delete;
    Strings &operator=(const Strings &) = delete;

    XmString operator[](std::size_t i) const { return strings_[i]; }
    XmString *data() { return strings_.data(); }
    // The two settings that give them to a list.
    Settings As(const char *strings, const char *count) {
        return {{strings, reinterpret_cast<XtArgVal>(strings_.data())},
                {count, static_cast<XtArgVal>(strings_.size())}};
    }
    Settings Items() { return As(XmNitems, XmNitemCount); }
    Settings Selected() { return As(XmNselectedItems, XmNselectedItemCount); }

private:
    std::vector<XmString> strings_;
};

inline std::string TextOf(XmString string) {
    char *text = nullptr;
    XmStringGetLtoR(string, const_cast<char *>(XmFONTLIST_DEFAULT_TAG), &text);
    std::string copy = text ? text : "";
    XtFree(text);
    return copy;
}

inline Texts ItemsOf(Widget list) {
    Texts texts;
    const auto *items = Get<XmString *>(list, XmNitems);
    for (int i = 0; i < Get(list, XmNitemCount); i++)
        texts.push_back(TextOf(items[i]));
    return texts;
}

inline Texts Numbered(int count, const std::string &stem = "row ") {
    Texts texts;
    for (int i = 0; i < count; i++)
        texts.push_back(stem + std::to_string(i));
    return texts;
}

inline std::vector<int> SelectedRows(Widget list) {
    std::vector<int> rows;
    for (int row = 0; row < PartOf(list).item_count; row++)
        if (RowOf(list, row).selected)
            rows.push_back(row);
    return rows;
}

// What holds of the rows while a client has control, unless `update` is off.
inline void ExpectRowsInOrder(Widget w) {
    const auto &list = PartOf(w);
    ASSERT_EQ(list.item_count, list.element_count);
    ASSERT_EQ(list.items == nullptr, list.item_count == 0);
    ASSERT_EQ(list.elements == nullptr, list.item_count == 0);
    for (int row = 0; row < list.item_count; row++) {
        const LmListElement &element = RowOf(w, row);
        ASSERT_TRUE(XmStringCompare(list.items[row], element.name)) << row;
        ASSERT_EQ(element.width, XmStringWidth(list.font_list, list.items[row])) << row;
        ASSERT_EQ(element.length, XmStringLength(list.items[row])) << row;
        const int pitch = list.max_item_height + list.item_spacing;
        const int expected =
            row ? RowOf(w, row - 1).cumulative_height + pitch : list.max_item_height;
        ASSERT_EQ(element.cumulative_height, static_cast<Dimension>(expected)) << row;
    }
}

// The tallest of them counts too, but after a call that a bad entry ended.
inline void ExpectInOrder(Widget w) {
    ExpectRowsInOrder(w);
    for (int row = 0; row < PartOf(w).item_count; row++)
        ASSERT_GE(PartOf(w).max_item_height, RowOf(w, row).height);
}

class ListTest : public DisplayTest {
protected:
    ListTest() : DisplayTest(640, 480) {}

    void SetUp() override {
        DisplayTest::SetUp();
        // Rows are 13 pixels high and 6 for each character.
        SetResource("*fontList: fixed");
        SetResource("*foreground: black");
        SetResource("*background: gray75");
        board = XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNmarginWidth,
                                        0, XmNmarginHeight, 0, nullptr);
    }

    Widget Make(const Texts &rows, Settings settings = {}) {
        return Create(LmCreateList, rows, std::move(settings));
    }
    Widget MakeScrolled(const Texts &rows, Settings settings = {}) {
        return Create(LmCreateScrolledList, rows, std::move(settings));
    }

    // How many there were since the last call.
    int TakeWarnings() {
        int count = 0;
        for (; !warnings().empty(); count++)
            ExpectWarning(warnings().front());
        return count;
    }

    Pixel Colour(const char *name) {
        XColor screen, exact;
        XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(shell)), name, &screen, &exact);
        return screen.pixel;
    }

    Widget board = nullptr;

private:
    using Creator = decltype(LmCreateList);

    Widget Create(Creator *create, const Texts &rows, Settings settings) {
        Strings strings(rows);
        if (!rows.empty())
            for (const auto &setting : strings.Items())
                settings.push_back(setting);
        std::vector<Arg> args = ArgsOf(settings);
        Widget list = create(board, Name("list"), args.data(), static_cast<Cardinal>(args.size()));
        XtManageChild(list);
        return list;
    }
};

} // namespace corvidlmw::test
