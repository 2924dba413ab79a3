// A scrolled list of files: icons by kind that can be checked, columns, links in a colour, indents for what
// is deeper. Rows can be dragged and copied as text.
#pragma once

#include "Directory.h"
#include "Icons.h"

#include <Xm/Xm.h>

#include <functional>
#include <set>
#include <vector>

namespace file_list {

class FileList {
public:
    explicit FileList(Widget parent);
    ~FileList();
    FileList(const FileList &) = delete;
    FileList &operator=(const FileList &) = delete;

    // Entries that were selected or checked before stay so.
    void Show(std::vector<Entry> entries);
    void Sort(Column column);

    Widget list() const { return list_; }
    const std::vector<Entry> &entries() const { return entries_; }
    std::vector<Entry> Selected() const;
    int num_checked() const;
    // Where the pointer last selected.
    Column column() const { return column_; }

    // Something was selected or checked.
    void WhenChanged(std::function<void()> call) { changed_ = std::move(call); }
    // A row was double-clicked.
    void WhenOpened(std::function<void(Entry)> call) { opened_ = std::move(call); }

private:
    static void RowsSelected(Widget, XtPointer closure, XtPointer call_data);
    static void RowOpened(Widget, XtPointer closure, XtPointer call_data);
    static void IconPressed(Widget, XtPointer closure, XtPointer call_data);

    void MakeTables();
    void FillRows();
    void DressRows();
    void Select(const std::set<std::filesystem::path> &paths);
    void ShowIcon(int position, bool pressed);
    void ReleaseIcon();
    Look LookOf(const Entry &entry) const;
    const Entry *At(int position) const;

    Widget list_;
    Icons icons_;
    // For each depth.
    std::vector<XmRenderTable> tables_;
    std::vector<Entry> entries_;
    std::set<std::filesystem::path> checked_;
    int armed_ = 0; // the position whose icon was pressed
    Column column_ = Column::Name;
    std::function<void()> changed_ = [] {};
    std::function<void(Entry)> opened_ = [](const Entry &) {};
};

} // namespace file_list
