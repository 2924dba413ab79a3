#include "FileList.h"

#include <corvidlmw/list/LmList.h>

#include <algorithm>

namespace file_list {

namespace {

constexpr int indent_step = 16;
constexpr int name_width = 330;
constexpr int size_width = 100;
constexpr int date_width = 140;

char *Text(const char *text) {
    return const_cast<char *>(text);
}

XmTab MakeTab(int pixels) {
    return XmTabCreate(static_cast<float>(pixels), XmPIXELS, XmABSOLUTE, XmALIGNMENT_BEGINNING,
                       Text("."));
}

XmTabList MakeTabs(int depth) {
    XmTab tabs[] = {MakeTab(name_width - depth * indent_step),
                    MakeTab(name_width + size_width - depth * indent_step)};
    XmTabList list = XmTabListInsertTabs(nullptr, tabs, 2, 0);
    std::for_each(std::begin(tabs), std::end(tabs), XmTabFree);
    return list;
}

XmRenderTable MakeTable(Widget w, int depth) {
    XmTabList tabs = MakeTabs(depth);
    Arg args[] = {{Text(XmNfontType), XmFONT_IS_XFT},
                  {Text(XmNfontName), reinterpret_cast<XtArgVal>("DejaVu Sans")},
                  {Text(XmNfontSize), 9},
                  {Text(XmNtabList), reinterpret_cast<XtArgVal>(tabs)}};
    XmRendition rendition =
        XmRenditionCreate(w, Text(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args));
    XmTabListFree(tabs);
    XmRenderTable table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_NEW);
    XmRenditionFree(rendition);
    return table;
}

// A tab or a new line in a name would part the row.
std::string InOneField(std::string text) {
    const auto parts = [](unsigned char character) { return character < ' ' || character == 0x7f; };
    std::replace_if(text.begin(), text.end(), parts, '?');
    return text;
}

std::string RowText(const Entry &entry) {
    const std::string arrow = entry.target.empty() ? "" : " \xe2\x86\x92 " + entry.target;
    return InOneField(entry.name + arrow) + "\t" + SizeText(entry) + "\t" + DateText(entry);
}

Pixel Colour(Widget w, const char *name) {
    XColor screen{};
    XColor exact{};
    XAllocNamedColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), name, &screen, &exact);
    return screen.pixel;
}

Widget CreateList(Widget parent) {
    Arg args[] = {{Text(XmNshowIcons), True},
                  {Text(XmNvisibleItemCount), 24},
                  {Text(XmNlistSizePolicy), XmCONSTANT},
                  {Text(XmNwidth), name_width + size_width + date_width + 40},
                  {Text(XmNselectionPolicy), XmBROWSE_SELECT}};
    return LmCreateScrolledList(parent, Text("files"), args, XtNumber(args));
}

int Deepest(const std::vector<Entry> &entries) {
    int deepest = 0;
    for (const Entry &entry : entries) {
        deepest = std::max(deepest, entry.depth);
    }
    return deepest;
}

} // namespace

FileList::FileList(Widget parent, std::vector<Entry> entries)
    : entries_(std::move(entries)), list_(CreateList(parent)), icons_(list_) {
    MakeTables(Deepest(entries_));
    XtVaSetValues(list_, XmNfontList, tables_.front(), nullptr);
    FillRows();
    DressRows();
    XtManageChild(list_);
}

FileList::~FileList() {
    std::for_each(tables_.begin(), tables_.end(), XmRenderTableFree);
}

void FileList::MakeTables(int deepest) {
    for (int depth = 0; depth <= deepest; depth++) {
        tables_.push_back(MakeTable(list_, depth));
    }
}

void FileList::FillRows() {
    std::vector<XmString> rows;
    for (const Entry &entry : entries_) {
        rows.push_back(XmStringCreateLocalized(Text(RowText(entry).c_str())));
    }
    XtVaSetValues(list_, XmNitems, rows.data(), XmNitemCount, static_cast<int>(rows.size()),
                  nullptr);
    std::for_each(rows.begin(), rows.end(), XmStringFree);
    int widths[] = {name_width, size_width, date_width};
    LmListSetFields(list_, widths, 3);
}

void FileList::DressRows() {
    const Pixel link = Colour(list_, "blue3");
    const Pixel closed = Colour(list_, "red3");
    std::vector<LmListIconEntry> icons;
    for (std::size_t i = 0; i < entries_.size(); i++) {
        const Entry &entry = entries_[i];
        const auto position = static_cast<int>(i) + 1;
        icons.push_back({position, icons_.Of(entry.kind)});
        LmListSetPositionIndent(list_, position, static_cast<Dimension>(entry.depth * indent_step));
        const Pixel colour = entry.kind == Kind::Link     ? link
                             : entry.kind == Kind::Closed ? closed
                                                          : 0;
        if (entry.depth > 0 || colour != 0) {
            LmListSetPositionAttributes(list_, position,
                                        tables_[static_cast<std::size_t>(entry.depth)], colour, 0);
        }
    }
    LmListSetPositionIcons(list_, icons.data(), static_cast<int>(icons.size()));
}

} // namespace file_list
