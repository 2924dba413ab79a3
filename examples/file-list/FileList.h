// A scrolled list of files: icons by kind, columns, links in a colour, indents for what is deeper.
#pragma once

#include "Directory.h"
#include "Icons.h"

#include <Xm/Xm.h>

#include <vector>

namespace file_list {

class FileList {
public:
    FileList(Widget parent, std::vector<Entry> entries);
    ~FileList();
    FileList(const FileList &) = delete;
    FileList &operator=(const FileList &) = delete;

    Widget list() const { return list_; }
    const std::vector<Entry> &entries() const { return entries_; }

private:
    void MakeTables(int deepest);
    void FillRows();
    void DressRows();

    std::vector<Entry> entries_;
    Widget list_;
    Icons icons_;
    // A row's indent moves its tab stops along: each depth has stops that are nearer by so much.
    std::vector<XmRenderTable> tables_;
};

} // namespace file_list
