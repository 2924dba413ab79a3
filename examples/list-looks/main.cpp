// list-looks: what a list can look like, each look in a frame with its name.

#include "../graph-browser/ShownMark.h"

#include <corvidlmw/list/LmList.h>

#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

char *fallback_resources[] = {
#include <ListLooksResources.inc>
    nullptr,
};

char *Name(const char *text) {
    return const_cast<char *>(text);
}

Pixel Colour(Widget w, const char *name) {
    XColor screen{};
    XColor exact{};
    XAllocNamedColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), name, &screen, &exact);
    return screen.pixel;
}

// ---- Lists in frames --------------------------------------------------------------------------------

using Rows = std::vector<std::string>;
using Settings = std::vector<Arg>;

// A list of a size that its rows do not change.
Widget AddList(Widget gallery, const char *title, bool scrolled, const Rows &rows,
               Settings settings = {}) {
    Widget frame = XtVaCreateManagedWidget("frame", xmFrameWidgetClass, gallery, XmNmarginWidth, 4,
                                           XmNmarginHeight, 4, nullptr);
    XtVaCreateManagedWidget(title, xmLabelWidgetClass, frame, XmNframeChildType,
                            XmFRAME_TITLE_CHILD, nullptr);
    settings.push_back({Name(XmNlistSizePolicy), XmCONSTANT});
    settings.push_back({Name(XmNwidth), 230});
    settings.push_back({Name(XmNvisibleItemCount), 6});
    Widget list = (scrolled ? LmCreateScrolledList : LmCreateList)(
        frame, Name("list"), settings.data(), static_cast<Cardinal>(settings.size()));
    std::vector<XmString> strings;
    for (const std::string &row : rows) {
        strings.push_back(XmStringCreateLocalized(Name(row.c_str())));
    }
    LmListAddItems(list, strings.data(), static_cast<int>(strings.size()), 0);
    std::for_each(strings.begin(), strings.end(), XmStringFree);
    XtManageChild(list);
    return list;
}

const Rows birds = {"Carrion crow", "Rook", "Jackdaw", "Raven", "Magpie", "Jay"};

// ---- Icons and indents --------------------------------------------------------------------------------

// A disc before the list's background.
Pixmap MakeIcon(Widget list, const char *colour) {
    constexpr unsigned size = 14;
    Display *display = XtDisplay(list);
    Pixel background = 0;
    int depth = 0;
    XtVaGetValues(list, XmNbackground, &background, XmNdepth, &depth, nullptr);
    Pixmap icon = XCreatePixmap(display, RootWindowOfScreen(XtScreen(list)), size, size,
                                static_cast<unsigned>(depth));
    GC gc = XCreateGC(display, icon, 0, nullptr);
    XSetForeground(display, gc, background);
    XFillRectangle(display, icon, gc, 0, 0, size, size);
    XSetForeground(display, gc, Colour(list, colour));
    XFillArc(display, icon, gc, 1, 2, size - 3, size - 3, 0, 360 * 64);
    XFreeGC(display, gc);
    return icon;
}

// The list takes no care of them: they live as long as the program.
void GiveIcons(Widget list) {
    const Pixmap dark = MakeIcon(list, "gray25");
    const Pixmap light = MakeIcon(list, "steelblue");
    LmListIconEntry icons[] = {{1, dark}, {2, dark}, {3, light}, {4, dark}, {5, light}};
    LmListSetPositionIcons(list, icons, XtNumber(icons));
}

void GiveIndents(Widget list) {
    const Dimension indents[] = {0, 18, 36, 36, 18, 0};
    for (int i = 0; i < static_cast<int>(XtNumber(indents)); i++) {
        LmListSetPositionIndent(list, i + 1, indents[i]);
    }
}

void AddIcons(Widget gallery) {
    AddList(gallery, "without icons", false, birds);
    GiveIcons(AddList(gallery, "icons", false, birds, {{Name(XmNshowIcons), True}}));
    Widget tree =
        AddList(gallery, "indents, with the icons", false, birds, {{Name(XmNshowIcons), True}});
    GiveIcons(tree);
    GiveIndents(tree);
    Widget column = AddList(gallery, "indents, without the icons", false, birds,
                            {{Name(XmNshowIcons), True}, {Name(XmNindentIcons), False}});
    GiveIcons(column);
    GiveIndents(column);
    for (Widget list : {tree, column}) {
        LmListSelectPos(list, 3, False);
    }
}

// ---- Looks ----------------------------------------------------------------------------------------------

XmRenderTable MakeTable(Widget w, XtArgVal font_type, const char *font, Settings settings = {}) {
    settings.push_back({Name(XmNfontType), font_type});
    settings.push_back({Name(XmNfontName), reinterpret_cast<XtArgVal>(font)});
    XmRendition rendition = XmRenditionCreate(w, Name(XmFONTLIST_DEFAULT_TAG), settings.data(),
                                              static_cast<Cardinal>(settings.size()));
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_NEW);
    XmRenditionFree(rendition);
    return table;
}

void AddLooks(Widget gallery) {
    Widget list =
        AddList(gallery, "looks of rows, two selected", false, birds,
                {{Name(XmNshowIcons), True}, {Name(XmNselectionPolicy), XmMULTIPLE_SELECT}});
    GiveIcons(list);
    XmRenderTable bold = MakeTable(list, XmFONT_IS_FONT, "7x13bold");
    LmListSetPositionAttributes(list, 2, nullptr, Colour(list, "red3"), 0);
    LmListSetPositionAttributes(list, 3, nullptr, Colour(list, "navy"),
                                Colour(list, "lightyellow2"));
    LmListSetPositionAttributes(list, 4, bold, 0, 0);
    LmListSetPositionAttributes(list, 6, bold, Colour(list, "darkgreen"),
                                Colour(list, "honeydew2"));
    XmRenderTableFree(bold);
    LmListSelectPos(list, 4, False);
    LmListSelectPos(list, 6, False);
}

void AddText(Widget gallery) {
    XmRenderTable smooth =
        MakeTable(gallery, XmFONT_IS_XFT, "DejaVu Sans", {{Name(XmNfontSize), 11}});
    Widget list = AddList(gallery, "antialiased", false,
                          {"Rabenkr\u00e4he", "\u0413\u0440\u0430\u0447", "Choucas",
                           "\u039a\u03cc\u03c1\u03b1\u03ba\u03b1\u03c2",
                           "Vr\u00e1na \u0161ed\u00e1", "\u2190 \u221e \u2192"},
                          {{Name(XmNfontList), reinterpret_cast<XtArgVal>(smooth)}});
    LmListSelectPos(list, 2, False);
    XmRenderTableFree(smooth);
    AddList(gallery, "rows of two lines", false, {"Raven\nCorvus corax", "Rook", "Jay\nGarrulus"});
}

// ---- Columns --------------------------------------------------------------------------------------------

XmRenderTable MakeColumns(Widget w, const int *widths, int count) {
    XmTabList tabs = nullptr;
    int end = 0;
    for (int i = 0; i + 1 < count; i++) {
        end += widths[i];
        XmTab tab = XmTabCreate(static_cast<float>(end), XmPIXELS, XmABSOLUTE,
                                XmALIGNMENT_BEGINNING, Name("."));
        tabs = XmTabListInsertTabs(tabs, &tab, 1, i);
        XmTabFree(tab);
    }
    XmRenderTable table = MakeTable(w, XmFONT_IS_FONT, "7x13",
                                    {{Name(XmNtabList), reinterpret_cast<XtArgVal>(tabs)}});
    XmTabListFree(tabs);
    return table;
}

Widget AddColumns(Widget gallery) {
    int widths[] = {90, 80, 50};
    XmRenderTable table = MakeColumns(gallery, widths, XtNumber(widths));
    std::vector<std::string> rows;
    for (const char *row : {"Raven\tcorax\t64 cm", "Rook\tfrugilegus\t46 cm",
                            "Jackdaw\tmonedula\t33 cm", "Carrion crow\tcorone\t47 cm"}) {
        rows.emplace_back(row);
    }
    Widget list = AddList(gallery, "columns, one current", false, rows,
                          {{Name(XmNfontList), reinterpret_cast<XtArgVal>(table)}});
    LmListSetFields(list, widths, XtNumber(widths));
    XmRenderTableFree(table);
    return list;
}

// As a user would, at the second row's second column.
void ClickColumn(Widget list) {
    Position x = 0;
    Position y = 0;
    Dimension height = 0;
    if (!LmListPosToBounds(list, 1, &x, &y, nullptr, &height)) {
        return;
    }
    XEvent event{};
    event.xbutton.type = ButtonPress;
    event.xbutton.display = XtDisplay(list);
    event.xbutton.window = XtWindow(list);
    event.xbutton.button = Button1;
    event.xbutton.x = x + 110;
    event.xbutton.y = y + height / 2;
    event.xbutton.same_screen = True;
    XtCallActionProc(list, "ListBeginSelect", &event, nullptr, 0);
    event.xbutton.type = ButtonRelease;
    event.xbutton.state = Button1Mask;
    XtCallActionProc(list, "ListEndSelect", &event, nullptr, 0);
}

// ---- Directions and bars ----------------------------------------------------------------------------------

void AddBars(Widget gallery) {
    Widget list = AddList(gallery, "from right to left", false, birds,
                          {{Name(XmNstringDirection), XmSTRING_DIRECTION_R_TO_L}});
    LmListSelectPos(list, 2, False);
    Rows many;
    for (int i = 1; i <= 40; i++) {
        many.push_back("Crow number " + std::to_string(i));
    }
    AddList(gallery, "bars as needed: none", true, birds);
    LmListSetPos(AddList(gallery, "bars as needed: one", true, many), 12);
    many.emplace_back("A crow whose name is longer than this list is wide, so that it scrolls");
    AddList(gallery, "bars as needed: both", true, many);
    AddList(gallery, "bars always", true, birds, {{Name(XmNscrollBarDisplayPolicy), XmSTATIC}});
    XtSetSensitive(AddList(gallery, "insensitive", true, birds), False);
}

} // namespace

int main(int argc, char **argv) {
    XtSetLanguageProc(nullptr, nullptr, nullptr);
    XtAppContext app = nullptr;
    Widget shell =
        XtVaOpenApplication(&app, "ListLooks", nullptr, 0, &argc, argv, fallback_resources,
                            applicationShellWidgetClass, XmNtitle, "looks of a list", nullptr);
    std::setlocale(LC_CTYPE, "C.UTF-8");
    Widget gallery = XtVaCreateManagedWidget("gallery", xmRowColumnWidgetClass, shell, XmNpacking,
                                             XmPACK_COLUMN, XmNnumColumns, 4, nullptr);
    AddIcons(gallery);
    AddLooks(gallery);
    AddText(gallery);
    Widget columns = AddColumns(gallery);
    AddBars(gallery);
    graph_browser::ShownMark mark(shell, columns);
    mark.Expect("list-looks");
    XtRealizeWidget(shell);
    ClickColumn(columns);
    XtAppMainLoop(app);
    return EXIT_SUCCESS;
}
