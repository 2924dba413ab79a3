// What the tests of selection by pointer and by keys share: a list that tells all that its client hears.
#pragma once

#include <corvidlmw/toolkit/LifeWatch.h>
#include <tests/list/ListTest.h>

#include <Xm/List.h>

#include <map>
#include <sstream>

namespace corvidlmw::test {

using Rows = std::vector<int>;

// Items of the icon column's callbacks are the client's, the last of which is the disarm callback.
inline void FreeIfMine(const LmListCallbackStruct &data) {
    if (data.reason == LmCR_ITEM_DISARM || data.reason == LmCR_ITEM_ICON_ARM ||
        data.reason == LmCR_ITEM_BLANK_ARM)
        XmStringFree(data.item);
}

// What a client is told, in short: "browse 3", "extended 4 (2 3 4) initial", "default 1 (1) column 0".
inline std::string Told(XtPointer call_data) {
    const auto &data = *static_cast<LmListCallbackStruct *>(call_data);
    static const std::map<int, const char *> reasons = {
        {XmCR_SINGLE_SELECT, "single"},        {XmCR_MULTIPLE_SELECT, "multiple"},
        {XmCR_EXTENDED_SELECT, "extended"},    {XmCR_BROWSE_SELECT, "browse"},
        {XmCR_DEFAULT_ACTION, "default"},      {LmCR_ITEM_ICON_ARM, "arm"},
        {LmCR_ITEM_BLANK_ARM, "arm blank"},    {LmCR_ITEM_DISARM, "disarm"},
        {LmCR_ITEM_ICON_ACTIVATE, "activate"}, {LmCR_ITEM_BLANK_ACTIVATE, "activate blank"}};
    std::ostringstream told;
    told << reasons.at(data.reason) << ' ' << data.item_position;
    EXPECT_EQ(data.item_length, XmStringLength(data.item));
    if (data.selected_items) {
        told << " (";
        for (int i = 0; i < data.selected_item_count; i++) {
            told << (i ? " " : "") << data.selected_item_positions[i];
            EXPECT_EQ(TextOf(data.selected_items[i]),
                      "row " + std::to_string(data.selected_item_positions[i] - 1));
        }
        told << ')';
    }
    if (data.reason == XmCR_EXTENDED_SELECT && data.selection_type != XmINITIAL)
        told << (data.selection_type == XmADDITION ? " added" : " modified");
    if (data.field >= 0)
        told << " column " << data.field;
    FreeIfMine(data);
    return told.str();
}

inline const char *const all_callbacks[] = {
    XmNsingleSelectionCallback, XmNmultipleSelectionCallback, XmNextendedSelectionCallback,
    XmNbrowseSelectionCallback, XmNdefaultActionCallback,     XmNarmCallback,
    XmNdisarmCallback,          XmNactivateCallback};

class SelectionTest : public ListTest {
protected:
    explicit SelectionTest(CallbackLog<std::string>::Copier copier = Told)
        : log(std::move(copier)) {}

    // The double click is off but where a test is about it. Without a highlight no location cursor is
    // drawn over the edges of bars.
    void Start(int policy, bool automatic = false, int count = 8, Settings settings = {}) {
        settings.insert(settings.begin(), {{XmNselectionPolicy, policy},
                                           {XmNautomaticSelection, automatic},
                                           {XmNdoubleClickInterval, 0},
                                           {XmNhighlightThickness, 0},
                                           {XmNlistSpacing, 4},
                                           {XmNlistSizePolicy, XmCONSTANT},
                                           {XmNwidth, 200},
                                           {XmNvisibleItemCount, 8}});
        list = MakeScrolled(Numbered(count), settings);
        for (const char *name : all_callbacks)
            log.Add(list, name);
        Show();
    }

    static int MiddleOf(int row) { return 2 + 17 * row + 6; }
    void MoveToRow(int row, int x = 40) { MoveTo(list, x, MiddleOf(row)); }
    void PressRow(int row, int x = 40) {
        MoveToRow(row, x);
        Press();
    }
    void ClickRow(int row, int x = 40) {
        PressRow(row, x);
        Release();
    }
    void ClickRowWith(unsigned int modifiers, int row) {
        PressModifiers(modifiers);
        ClickRow(row);
        ReleaseModifiers(modifiers);
    }
    Texts TakeTold() {
        Texts told;
        for (const auto &entry : log.entries())
            told.push_back(entry.data);
        log.Clear();
        return told;
    }
    Rows Selected() { return SelectedRows(list); }
    // What the window shows is what the rows say.
    void ExpectDrawn() {
        const Picture shown = Picture::Of(list);
        XClearArea(display, XtWindow(list), 0, 0, 0, 0, True);
        Pump();
        EXPECT_TRUE(SamePicture(Picture::Of(list), shown));
    }

    Widget list = nullptr;
    CallbackLog<std::string> log;
};

} // namespace corvidlmw::test
