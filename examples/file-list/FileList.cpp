#include "FileList.h"

#include <Utf8.h>

#include <corvidlmw/list/LmList.h>

#include <algorithm>
#include <utility>

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

// A deeper name begins at a tab stop of its depth's own. The rows' own indents would move all columns.
XmTabList MakeTabs(int depth) {
    std::vector<XmTab> tabs;
    if (depth > 0) {
        tabs.push_back(MakeTab(depth * indent_step));
    }
    tabs.push_back(MakeTab(name_width));
    tabs.push_back(MakeTab(name_width + size_width));
    XmTabList list =
        XmTabListInsertTabs(nullptr, tabs.data(), static_cast<Cardinal>(tabs.size()), 0);
    std::for_each(tabs.begin(), tabs.end(), XmTabFree);
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

// A tab or a new line in a name would part the row, and its bytes need not be UTF-8.
std::string InOneField(std::string text) {
    const auto parts = [](unsigned char character) { return character < ' ' || character == 0x7f; };
    std::replace_if(text.begin(), text.end(), parts, '?');
    return graph_browser::CleanUtf8(text, false);
}

std::string RowText(const Entry &entry) {
    const std::string arrow = entry.target.empty() ? "" : " \xe2\x86\x92 " + entry.target;
    const std::string indent = entry.depth > 0 ? "\t" : "";
    return indent + InOneField(entry.name + arrow) + "\t" + SizeText(entry) + "\t" +
           DateText(entry);
}

Pixel Colour(Widget w, const char *name) {
    XColor screen{};
    XColor exact{};
    XAllocNamedColor(XtDisplay(w), DefaultColormapOfScreen(XtScreen(w)), name, &screen, &exact);
    return screen.pixel;
}

Widget CreateList(Widget parent) {
    Arg args[] = {{Text(XmNshowIcons), True},
                  {Text(XmNvisibleItemCount), 20},
                  {Text(XmNdefaultIconWidth), 28},
                  {Text(XmNlistSizePolicy), XmCONSTANT},
                  {Text(XmNwidth), name_width + size_width + date_width + 40},
                  {Text(XmNselectionPolicy), XmEXTENDED_SELECT}};
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

// ---- Life -------------------------------------------------------------------------------------------

FileList::FileList(Widget parent) : list_(CreateList(parent)), icons_(list_) {
    tables_.push_back(MakeTable(list_, 0));
    XtVaSetValues(list_, XmNfontList, tables_.front(), nullptr);
    XtAddCallback(list_, XmNextendedSelectionCallback, RowsSelected, this);
    XtAddCallback(list_, XmNdefaultActionCallback, RowOpened, this);
    for (const char *name : {XmNarmCallback, XmNactivateCallback, XmNdisarmCallback}) {
        XtAddCallback(list_, name, IconPressed, this);
    }
    XtManageChild(list_);
}

FileList::~FileList() {
    std::for_each(tables_.begin(), tables_.end(), XmRenderTableFree);
}

// ---- Rows -------------------------------------------------------------------------------------------

void FileList::Show(std::vector<Entry> entries) {
    std::set<std::filesystem::path> selected;
    for (const Entry &entry : Selected()) {
        selected.insert(entry.path);
    }
    entries_ = std::move(entries);
    MakeTables();
    XtVaSetValues(list_, XmNupdate, False, nullptr);
    FillRows();
    DressRows();
    Select(selected);
    XtVaSetValues(list_, XmNupdate, True, nullptr);
    changed_();
}

void FileList::Sort(Column column) {
    Show(SortedBy(column, entries_));
}

void FileList::MakeTables() {
    for (int depth = static_cast<int>(tables_.size()); depth <= Deepest(entries_); depth++) {
        tables_.push_back(MakeTable(list_, depth));
    }
}

void FileList::FillRows() {
    std::vector<XmString> rows;
    for (const Entry &entry : entries_) {
        rows.push_back(XmStringCreateLocalized(Text(RowText(entry).c_str())));
    }
    LmListDeleteAllItems(list_);
    LmListAddItemsUnselected(list_, rows.data(), static_cast<int>(rows.size()), 0);
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
        icons.push_back({position, icons_.Of(entry.kind, LookOf(entry))});
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

// In extended selection LmListSelectPos would select one row and no other.
void FileList::Select(const std::set<std::filesystem::path> &paths) {
    LmListDeselectAllItems(list_);
    XtVaSetValues(list_, XmNselectionPolicy, XmMULTIPLE_SELECT, nullptr);
    for (std::size_t i = 0; i < entries_.size(); i++) {
        if (paths.contains(entries_[i].path)) {
            LmListSelectPos(list_, static_cast<int>(i) + 1, False);
        }
    }
    XtVaSetValues(list_, XmNselectionPolicy, XmEXTENDED_SELECT, nullptr);
}

// ---- Questions --------------------------------------------------------------------------------------

const Entry *FileList::At(int position) const {
    const auto row = static_cast<std::size_t>(position) - 1;
    return row < entries_.size() ? &entries_[row] : nullptr;
}

std::vector<Entry> FileList::Selected() const {
    int *positions = nullptr;
    int count = 0;
    std::vector<Entry> selected;
    if (LmListGetSelectedPos(list_, &positions, &count)) {
        for (int i = 0; i < count; i++) {
            if (const Entry *entry = At(positions[i])) {
                selected.push_back(*entry);
            }
        }
        XtFree(reinterpret_cast<char *>(positions));
    }
    return selected;
}

int FileList::num_checked() const {
    return static_cast<int>(checked_.size());
}

Look FileList::LookOf(const Entry &entry) const {
    return checked_.contains(entry.path) ? Look::Checked : Look::Plain;
}

// ---- Callbacks --------------------------------------------------------------------------------------

void FileList::RowsSelected(Widget, XtPointer closure, XtPointer call_data) {
    auto *files = static_cast<FileList *>(closure);
    const int field = static_cast<LmListCallbackStruct *>(call_data)->field;
    if (field >= 0) {
        files->column_ = static_cast<Column>(field);
    }
    files->ReleaseIcon();
    files->changed_();
}

void FileList::RowOpened(Widget, XtPointer closure, XtPointer call_data) {
    auto *files = static_cast<FileList *>(closure);
    const int position = static_cast<LmListCallbackStruct *>(call_data)->item_position;
    if (const Entry *entry = files->At(position)) {
        files->opened_(*entry);
    }
}

void FileList::ShowIcon(int position, bool pressed) {
    if (const Entry *entry = At(position)) {
        LmListSetPositionIcon(list_, position,
                              icons_.Of(entry->kind, pressed ? Look::Pressed : LookOf(*entry)));
    }
}

// A button pressed on an icon can be let go of over the text, which selects and tells of no end.
void FileList::ReleaseIcon() {
    ShowIcon(std::exchange(armed_, 0), false);
}

// A press and a release on the same icon check the row, or take the mark away. The item is ours: that of a
// release goes to both of its callbacks, of which the last one is told of the end.
void FileList::IconPressed(Widget, XtPointer closure, XtPointer call_data) {
    auto *files = static_cast<FileList *>(closure);
    const auto *data = static_cast<LmListCallbackStruct *>(call_data);
    const Entry *entry = files->At(data->item_position);
    switch (data->reason) {
    case LmCR_ITEM_ICON_ARM:
        files->armed_ = data->item_position;
        files->ShowIcon(files->armed_, true);
        break;
    case LmCR_ITEM_ICON_ACTIVATE:
        if (entry && !files->checked_.insert(entry->path).second) {
            files->checked_.erase(entry->path);
        }
        return;
    case LmCR_ITEM_DISARM:
        files->ReleaseIcon();
        files->changed_();
        break;
    default: break;
    }
    XmStringFree(data->item);
}

} // namespace file_list
