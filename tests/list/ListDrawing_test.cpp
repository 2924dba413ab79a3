// What a list shows: rows, bars, cells, icons, looks of their own, in each kind of font; and that none of
// it touches what others draw with.
#include <tests/list/ListTest.h>

#include <Xm/ScrollBar.h>

#include <limits>

namespace {

using namespace corvidlmw::test;

class ListDrawingTest : public ListTest {
protected:
    // All rows in view, unless told otherwise, and no location cursor.
    Widget Make(const Texts &rows, const Settings &settings = {}) {
        Settings all = {{XmNvisibleItemCount, std::max<int>(1, static_cast<int>(rows.size()))},
                        {XmNtraversalOn, False}};
        all.insert(all.end(), settings.begin(), settings.end());
        return ListTest::Make(rows, all);
    }

    // Each call's rectangle, or place and text, in order.
    std::vector<std::vector<long>> NumbersOf(const Recorder &recorder, Widget list,
                                             const char *function) {
        std::vector<std::vector<long>> all;
        for (const Call &call : recorder.Calls(function, XtWindow(list)))
            all.push_back(call.numbers);
        return all;
    }

    void ShowAnew(Widget list) {
        XClearArea(display, XtWindow(list), 0, 0, 0, 0, True);
        Pump();
    }

    Pixmap MakeIcon(unsigned width, unsigned height, Pixel colour) {
        Pixmap icon = XCreatePixmap(display, XtWindow(shell), width, height,
                                    static_cast<unsigned>(DefaultDepthOfScreen(XtScreen(shell))));
        GC gc = XCreateGC(display, icon, 0, nullptr);
        XSetForeground(display, gc, colour);
        XFillRectangle(display, icon, gc, 0, 0, width, height);
        XFreeGC(display, gc);
        return icon;
    }

    Widget MakeWithSelection(const Texts &rows, const Texts &selected, Settings settings = {}) {
        Strings strings(selected);
        for (const auto &setting : strings.Selected())
            settings.push_back(setting);
        settings.push_back({XmNselectionPolicy, XmEXTENDED_SELECT});
        return Make(rows, settings);
    }
};

// Rows of 13 and gaps of 4, from 7, 5 on; the text two pixels lower and the boxes four pixels taller.
TEST_F(ListDrawingTest, PaintsRowsThenTheRestThenBars) {
    Widget list = MakeWithSelection({"one", "two"}, {"two"}, {{XmNvisibleItemCount, 4}});
    Show();
    Recorder recorder;
    ShowAnew(list);
    const long w = list->core.width, h = list->core.height;
    EXPECT_EQ(NumbersOf(recorder, list, "XClearArea"),
              (std::vector<std::vector<long>>{{0, 0, 0, 0, 1},
                                              {7, 5, w - 11, 34, 0},
                                              {7, 37, w - 11, h - 5 - 37, 0},
                                              {7, 22, w - 9, 17, 0}}));
    EXPECT_EQ(NumbersOf(recorder, list, "XFillRectangle"),
              (std::vector<std::vector<long>>{{7, 22, w - 7, 13}}));
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text, "one");
    EXPECT_EQ(texts[0].foreground, Colour("black"));
    EXPECT_EQ(texts[0].numbers[0], 7);
    EXPECT_EQ(texts[0].numbers[1], 7 + 11) << "the ascent below the text's top";
    EXPECT_EQ(texts[1].text, "two");
    EXPECT_EQ(texts[1].foreground, Colour("black")) << "not inverse";
    EXPECT_EQ(texts[0].clip_box, (XRectangle{7, 5, static_cast<unsigned short>(w - 14),
                                             static_cast<unsigned short>(h - 10)}));

    // A bar is raised, and the list's frame is sunken.
    const Picture picture = Picture::Of(list);
    const Pixel light = Get<Pixel>(list, XmNtopShadowColor);
    const Pixel dark = Get<Pixel>(list, XmNbottomShadowColor);
    const int middle = static_cast<int>(w) / 2;
    EXPECT_EQ(picture.At(middle, 0), dark);
    EXPECT_EQ(picture.At(middle, static_cast<int>(h) - 1), light);
    EXPECT_EQ(picture.At(middle, 22), light);
    EXPECT_EQ(picture.At(middle, 38), dark) << "the bar's lower edge is whole";
}

// Boxes of rows reach below and beside the list where there is no highlight around rows or they run from
// right to left, and the cursor does in a list that is scrolled sideways.
TEST_F(ListDrawingTest, LeavesItsFrameWhole) {
    const auto frame_of = [](Widget list, const Picture &picture) {
        std::vector<Pixel> frame;
        for (int y = 0; y < list->core.height; y++)
            for (int x = list->core.width - 2; x < list->core.width; x++)
                frame.push_back(picture.At(x, y));
        for (int x = 0; x < list->core.width; x++)
            frame.push_back(picture.At(x, list->core.height - 2));
        return frame;
    };
    for (const Settings &settings :
         {Settings{{XmNhighlightThickness, 0}},
          Settings{{XmNstringDirection, XmSTRING_DIRECTION_R_TO_L}, {XmNwidth, 200}},
          Settings{{XmNtraversalOn, True}}}) {
        Widget list = MakeWithSelection(Numbered(3, "long row "), {"long row 2"}, settings);
        Show();
        PartOf(list).x_origin = settings[0].first == XmNtraversalOn ? 6 : 0;
        XmProcessTraversal(list, XmTRAVERSE_CURRENT);
        ShowAnew(list);
        Set(list, {{XmNtopItemPosition, 2}});
        const Picture drawn = Picture::Of(list);
        Set(list, {{XmNupdate, False}});
        ShowAnew(list);
        EXPECT_EQ(frame_of(list, drawn), frame_of(list, Picture::Of(list))) << settings[0].first;
        XtDestroyWidget(list);
    }
}

TEST_F(ListDrawingTest, ScrollsSidewaysWithinItsInnerArea) {
    Widget list = MakeWithSelection({"a long row without an end", "b"}, {"b"});
    Show();
    PartOf(list).x_origin = 30;
    Recorder recorder;
    ShowAnew(list);
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].numbers[0], 7 - 30);
    EXPECT_EQ(texts[0].clip_box->x, 7);
}

TEST_F(ListDrawingTest, ShowsTheCurrentColumnOfASelectedRow) {
    Widget list = MakeWithSelection({"aaa bbb ccc", "ddd eee fff"}, {"ddd eee fff"},
                                    {{XmNarmColor, static_cast<XtArgVal>(Colour("orange"))}});
    int widths[] = {24, 24, 24};
    LmListSetFields(list, widths, 3);
    Show();
    const Pixel orange = Colour("orange");
    EXPECT_EQ(Picture::Of(list).Count(orange), 0) << "no column is the current one";
    PartOf(list).current_field = 1;
    ShowAnew(list);
    const Picture picture = Picture::Of(list);
    // From 11 to the left of the column on, 13 high, within a shadow of 2.
    EXPECT_EQ(picture.Box(orange), (XRectangle{22, 24, 20, 9}));
    EXPECT_EQ(picture.At(30, 22), Get<Pixel>(list, XmNbottomShadowColor)) << "sunken";
    EXPECT_GT(picture.Count(Colour("black"), {20, 22, 24, 13}), 4) << "the text is over the cell";
    LmListSetFields(list, widths, 1);
    ShowAnew(list);
    EXPECT_EQ(Picture::Of(list).Count(orange), 0) << "there is no such column any more";
}

// A cell begins to the left of its column, bars end in the margin, and text beside a bar is clipped as that
// one is: where rows do not clear.
TEST_F(ListDrawingTest, LeavesNothingOfABarBehind) {
    struct Case {
        bool icons;
        int margin;
        int field;
    };
    for (const auto &[icons, margin, field] :
         {Case{false, 8, 0}, Case{true, 8, 0}, Case{false, 2, -1}}) {
        Widget list = MakeWithSelection(Numbered(6), {"row 1"},
                                        {{XmNarmColor, static_cast<XtArgVal>(Colour("orange"))},
                                         {XmNvisibleItemCount, 4},
                                         {XmNlistMarginWidth, margin},
                                         {XmNshowIcons, icons}});
        int width = 24;
        LmListSetFields(list, &width, 1);
        PartOf(list).current_field = field;
        Show();
        for (const int origin : {8, 0}) {
            PartOf(list).x_origin = static_cast<Position>(origin);
            for (const int top : {2, 1})
                Set(list, {{XmNtopItemPosition, top}});
        }
        const Picture scrolled = Picture::Of(list);
        EXPECT_EQ(scrolled.Count(Colour("orange")) > 0, field == 0);
        ShowAnew(list);
        EXPECT_TRUE(SamePicture(Picture::Of(list), scrolled));
        LmListSetPositionAttributes(list, 2, nullptr, 0, 0);
        const Picture unselected = Picture::Of(list);
        ShowAnew(list);
        EXPECT_TRUE(SamePicture(Picture::Of(list), unselected));
        XtDestroyWidget(list);
    }
}

TEST_F(ListDrawingTest, CopiesIconsIntoTheirColumn) {
    Widget list = Make({"one", "two", "three"}, {{XmNshowIcons, True}});
    Show();
    const Pixel red = Colour("red"), blue = Colour("blue");
    const Pixmap small = MakeIcon(8, 8, red), large = MakeIcon(20, 30, blue);
    EXPECT_EQ(PartOf(list).icon_column_width, 16);
    LmListSetPositionIcon(list, 2, small);
    Pump();
    EXPECT_EQ(PartOf(list).icon_column_width, 18);
    EXPECT_EQ(Picture::Of(list).Box(red), (XRectangle{7, 22, 8, 8}));
    Strings three({"three"});
    LmListSetItemIcon(list, three[0], large);
    Pump();
    EXPECT_EQ(PartOf(list).icon_column_width, 22);
    EXPECT_EQ(PartOf(list).max_item_height, 30);
    EXPECT_EQ(Picture::Of(list).Box(blue), (XRectangle{7, 5 + 2 * 34, 20, 30}));
    LmListSetPositionIndent(list, 2, 10);
    Pump();
    EXPECT_EQ(Picture::Of(list).Box(red), (XRectangle{17, 5 + 34, 8, 8}));
    Set(list, {{XmNindentIcons, False}});
    Pump();
    EXPECT_EQ(Picture::Of(list).Box(red), (XRectangle{7, 5 + 34, 8, 8}));
    LmListIconEntry none[] = {{3, None}, {2, XmUNSPECIFIED_PIXMAP}};
    LmListSetPositionIcons(list, none, 2);
    Pump();
    EXPECT_EQ(Picture::Of(list).Count(red) + Picture::Of(list).Count(blue), 0);
    EXPECT_EQ(PartOf(list).max_item_height, 13);
    ExpectInOrder(list);
    XFreePixmap(display, small);
    XFreePixmap(display, large);
}

// Many rows with few icons: each pixmap is asked for its size once.
TEST_F(ListDrawingTest, AsksForAPixmapsSizeOnce) {
    Widget list = Make(Numbered(50), {{XmNshowIcons, True},
                                      {XmNvisibleItemCount, 5},
                                      {XmNlistSizePolicy, XmCONSTANT},
                                      {XmNwidth, 100}});
    Show();
    const Pixmap icon = MakeIcon(12, 12, Colour("red"));
    std::vector<LmListIconEntry> entries;
    for (int position = 1; position <= 50; position++)
        entries.push_back({position, icon});
    RequestCounter counter(display);
    LmListSetPositionIcons(list, entries.data(), 50);
    EXPECT_EQ(counter.round_trips(), 1);
    entries[20].position = 99;
    LmListSetPositionIcons(list, entries.data(), 50);
    ExpectWarning("Invalid item.");
    LmListSetPositionIcon(list, 0, icon);
    ExpectWarning("Invalid item.");
    for (const int position : {51, std::numeric_limits<int>::min()}) {
        LmListSetPositionIndent(list, position, 3);
        ExpectWarning("Invalid item.");
    }
    XtDestroyWidget(list);
    XFreePixmap(display, icon);
}

TEST_F(ListDrawingTest, GivesRowsLooksOfTheirOwn) {
    Widget list = MakeWithSelection({"one", "two", "three"}, {"two"});
    Show();
    const Pixel red = Colour("red"), yellow = Colour("yellow");
    LmListSetPositionAttributes(list, 2, nullptr, red, yellow);
    Pump();
    EXPECT_TRUE(SelectedRows(list).empty()) << "a look deselects";
    EXPECT_EQ(Get(list, XmNselectedItemCount), 1) << "without a word to the snapshots";
    // Drawn alone, a row keeps the list's foreground from then on, on its own background.
    Picture picture = Picture::Of(list);
    EXPECT_EQ(picture.Count(red), 0);
    const auto filled = picture.Box(yellow);
    ASSERT_TRUE(filled);
    EXPECT_EQ(filled->y, 22);
    EXPECT_EQ(filled->height, 17);

    Set(list, {{XmNselectedItemCount, 0}});
    LmListSetPositionAttributes(list, 3, nullptr, red, 0);
    PartOf(list).elements[2]->drawn_selected = False;
    Strings three({"three"});
    Set(list, three.Selected());
    Pump();
    EXPECT_EQ(Picture::Of(list).Count(red), 0);
    LmListSetPositionAttributes(list, 2, nullptr, 0, 0);
    LmListSetPositionAttributes(list, 2, nullptr, 0, 0);
    ShowAnew(list);
    EXPECT_EQ(Picture::Of(list).Count(yellow), 0);
    LmListSetPositionAttributes(list, 4, nullptr, red, 0);
    ExpectWarning("Invalid item(s) to highlight.");
    Strings nowhere({"nowhere"});
    LmListSetItemAttributes(list, nowhere[0], nullptr, red, 0);
    ExpectWarning("Invalid item(s) to highlight.");
}

TEST_F(ListDrawingTest, TakesAPositionForItsPixel) {
    Widget list = Make({"one", "two", "three"});
    Show();
    LmListAttributeEntry entries[] = {{1, {}}, {9, {}}, {3, {}}};
    Recorder recorder;
    XmListSetAttributes(list, entries, 3);
    ExpectWarning("Invalid item(s) to highlight.");
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts[0].foreground, 1u);
    EXPECT_EQ(texts[1].foreground, Colour("black"));
    EXPECT_EQ(texts[2].foreground, 3u);
}

// A list changes the colours and clips of its GCs in place, and clips the shadows' shared ones for its
// bars. Another list and a scroll bar with the same colours, drawn in between, look as ever.
TEST_F(ListDrawingTest, LeavesItsNeighboursAlone) {
    Widget other = MakeWithSelection({"x", "yy", "zzz"}, {"yy"}, {{XmNx, 300}});
    Widget bar = XtVaCreateManagedWidget("bar", xmScrollBarWidgetClass, board, XmNx, 500, XmNheight,
                                         200, nullptr);
    Widget list = MakeWithSelection({"one", "two", "three"}, {"three"}, {{XmNheight, 20}});
    Show();
    const Pixel red = Colour("red");
    LmListSetPositionAttributes(other, 1, nullptr, red, 0);
    ShowAnew(other);
    const Picture other_before = Picture::Of(other), bar_before = Picture::Of(bar);
    LmListSetPositionAttributes(list, 1, nullptr, red, 0);
    LmListSetPositionAttributes(list, 2, nullptr, red, 0);
    ShowAnew(list);
    ShowAnew(other);
    XClearArea(display, XtWindow(bar), 0, 0, 0, 0, True);
    Pump();
    EXPECT_TRUE(SamePicture(other_before, Picture::Of(other)));
    EXPECT_TRUE(SamePicture(bar_before, Picture::Of(bar)));
}

TEST_F(ListDrawingTest, DrawsFromRightToLeft) {
    Widget list = Make({"a", "longest of all"}, {{XmNstringDirection, XmSTRING_DIRECTION_R_TO_L}});
    Show();
    Recorder recorder;
    ShowAnew(list);
    const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].numbers[0], list->core.width - 14 - 6);
    EXPECT_EQ(texts[1].numbers[0], list->core.width - 14 - 14 * 6);
}

TEST_F(ListDrawingTest, DrawsFromRightToLeftInAListWiderThanItsRows) {
    Widget list = Make({"a"}, {{XmNstringDirection, XmSTRING_DIRECTION_R_TO_L},
                               {XmNlistSizePolicy, XmCONSTANT},
                               {XmNwidth, 200}});
    Show();
    XtVaSetValues(list, XmNwidth, 220, nullptr);
    Recorder recorder;
    ShowAnew(list);
    EXPECT_EQ(recorder.Calls("XDrawImageString", XtWindow(list)).at(0).numbers[0], 220 - 14 - 6);
}

// The sum of the heights passes 65,536 sixteen times on the way to the end.
TEST_F(ListDrawingTest, DrawsEveryRegionOfALongList) {
    Widget list = Make(Numbered(65'000), {{XmNvisibleItemCount, 6}});
    Show();
    for (const int top : {2, 3850, 3854, 3856, 7710, 40'000, 64'995}) {
        Recorder recorder;
        Set(list, {{XmNtopItemPosition, top}});
        const auto texts = recorder.Calls("XDrawImageString", XtWindow(list));
        ASSERT_EQ(texts.size(), 6u) << top;
        for (int i = 0; i < 6; i++) {
            EXPECT_EQ(texts[static_cast<std::size_t>(i)].text,
                      "row " + std::to_string(top - 1 + i));
            EXPECT_EQ(texts[static_cast<std::size_t>(i)].numbers[1], 5 + 2 + 11 + 17 * i);
        }
    }
}

// What the list's GCs are clipped to already is not sent again.
TEST_F(ListDrawingTest, SendsNoClipTwice) {
    Widget list = Make(Numbered(4));
    Show();
    Recorder recorder;
    ShowAnew(list);
    EXPECT_TRUE(recorder.Calls("XSetClipRectangles").empty());
    XtResizeWidget(list, 200, 100, 0);
    EXPECT_EQ(recorder.Calls("XSetClipRectangles").size(), 5u);
}

// ---- Fonts ------------------------------------------------------------------------------------------------

class ListFontTest : public ListDrawingTest {
protected:
    XmRenderTable Antialiased() {
        static XmRenderTable table = nullptr; // the toolkit leaks a part of each that is freed
        if (!table) {
            std::vector<Arg> args =
                ArgsOf({{XmNfontType, XmFONT_IS_XFT},
                        {XmNfontName, reinterpret_cast<XtArgVal>("DejaVu Sans")},
                        {XmNfontSize, 12}});
            XmRendition rendition = XmRenditionCreate(
                shell, const_cast<char *>(XmFONTLIST_DEFAULT_TAG), args.data(), 3);
            table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_NEW);
            XmRenditionFree(rendition);
        }
        return table;
    }
};

TEST_F(ListFontTest, DrawsAntialiasedTextWithinItsArea) {
    const auto fonts = reinterpret_cast<XtArgVal>(Antialiased());
    Widget empty = Make({}, {{XmNfontList, fonts}, {XmNvisibleItemCount, 3}, {XmNx, 300}});
    EXPECT_GT(empty->core.height, 3 * 12) << "as high as three rows of that font";
    Widget list = MakeWithSelection({"a rather long row", "b", "\xc3\xa4\xc3\xb6"}, {"b"},
                                    {{XmNfontList, fonts}});
    Show();
    const Picture first = Picture::Of(list);
    ShowAnew(list);
    EXPECT_TRUE(SamePicture(first, Picture::Of(list))) << "it gets no bolder";
    PartOf(list).x_origin = 10;
    ShowAnew(list);
    const Picture scrolled = Picture::Of(list);
    for (int y = 5; y < PartOf(list).max_item_height + 5; y++)
        for (int x = 2; x < 7; x++)
            ASSERT_EQ(scrolled.At(x, y), Colour("gray75")) << x << ", " << y;
    EXPECT_GT(PartOf(list).max_item_height, 10);
}

// Most strings are measured without the toolkit, in tables of one font.
TEST_F(ListFontTest, MeasuresAsTheToolkitDoes) {
    Texts texts = {"", "plain ~ text!",       "\xc3\xa4\xc3\xb6", "a\tb", "a\nb",
                   "", std::string(900, 'W'), "\x01\x7f"};
    // Where the bytes that lengths take become more.
    for (const std::size_t size : {96, 97, 98, 99, 100, 126, 127, 128})
        texts.push_back(std::string(size, 'i'));
    for (const char *font : {"fixed", "variable", "10x20", "9x15bold", "fixed,variable=other"}) {
        SetResource(std::string("*measured.fontList: ") + font);
        Strings strings(texts);
        std::vector<Arg> args = ArgsOf(strings.Items());
        Widget list = LmCreateList(board, Name("measured"), args.data(), 2);
        XmString mixed = XmStringConcatAndFree(XmStringCreate(Name("one "), Name("other")),
                                               XmStringCreateLocalized(Name("two")));
        XtVaSetValues(list, XmNitems, &mixed, XmNitemCount, 1, nullptr);
        ExpectInOrder(list);
        Set(list, strings.Items());
        ExpectInOrder(list);
        EXPECT_EQ(PartOf(list).max_item_height,
                  2 * XmStringHeight(PartOf(list).font_list, strings[1]))
            << font;
        EXPECT_EQ(RowOf(list, 1).height, XmStringHeight(PartOf(list).font_list, strings[1]));
        EXPECT_EQ(RowOf(list, 0).height, XmStringHeight(PartOf(list).font_list, strings[0]));
        XmStringFree(mixed);
        XtDestroyWidget(list);
    }
}

TEST_F(ListFontTest, SaysHowLongItsStringsAre) {
    Texts texts;
    for (const std::size_t size : {0, 32735, 32736, 32766, 32767, 32768, 65535, 65536, 200000})
        texts.push_back(std::string(size, 'i'));
    Strings strings(texts);
    Widget list = Make(texts);
    for (int row = 0; row < PartOf(list).item_count; row++)
        EXPECT_EQ(RowOf(list, row).length, XmStringLength(strings[row])) << row;
}

TEST_F(ListFontTest, MeasuresRowsOfSeveralLines) {
    Widget list = Make({"one\ntwo\nthree", "four"});
    Show();
    EXPECT_EQ(PartOf(list).max_item_height, 39);
    EXPECT_EQ(RowOf(list, 0).line_count, 3);
    EXPECT_EQ(RowOf(list, 1).line_count, 1);
    Recorder recorder;
    ShowAnew(list);
    EXPECT_EQ(recorder.Calls("XDrawImageString", XtWindow(list)).size(), 4u);
    ExpectInOrder(list);
}

// ---- Tables -----------------------------------------------------------------------------------------------

TEST_F(ListDrawingTest, MakesColumnsAsWideAsTheirTexts) {
    Widget list = Make(Numbered(2));
    const std::string endless(3000, 'w');
    const std::string long_row = "a\t" + endless;
    char *rows[] = {Name("name\tsize"), Name("x\t\t12345678\tdate"), Name("alone"),
                    Name(long_row.c_str()), nullptr};
    LmListSetTable(list, rows, 5, 3);
    EXPECT_EQ(Get(list, XmNitemCount), 5);
    ASSERT_EQ(PartOf(list).field_count, 3);
    EXPECT_EQ(PartOf(list).field_widths[0], 5 * 6) << "alone";
    EXPECT_EQ(PartOf(list).field_widths[1], 3000 * 6);
    EXPECT_EQ(PartOf(list).field_widths[2], 4 * 6) << "two tabs are one";
    LmListSetTable(list, rows, 2, 1);
    EXPECT_EQ(Get(list, XmNitemCount), 2);
    EXPECT_EQ(PartOf(list).field_count, 0);
    LmListSetTable(list, rows, 0, 3);
    LmListSetTable(list, nullptr, 7, 3);
    LmListSetTable(list, rows, -1, 3);
    EXPECT_EQ(Get(list, XmNitemCount), 0);
    LmListSetFields(list, nullptr, 5);
    LmListSetFields(list, nullptr, -5);
    LmListSetFields(nullptr, nullptr, 0);
    EXPECT_EQ(PartOf(list).field_count, 0);
    ExpectInOrder(list);
}

} // namespace
