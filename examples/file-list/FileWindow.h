// The list of a directory's files, with what is selected told below, a button that sorts by the column that
// was clicked, and a text in which to collect rows that are dragged or copied there.
#pragma once

#include "FileList.h"

#include <filesystem>
#include <memory>

namespace file_list {

class FileWindow {
public:
    FileWindow(Widget shell, const std::filesystem::path &directory);
    ~FileWindow();
    FileWindow(const FileWindow &) = delete;
    FileWindow &operator=(const FileWindow &) = delete;

    FileList &files() { return *files_; }
    Widget status() const { return status_; }
    Widget sort() const { return sort_; }
    Widget notes() const { return notes_; }

    // A directory takes the place of the one that is shown; a file is shown in a window of its own.
    void Open(const Entry &entry);

private:
    static void SortPressed(Widget, XtPointer closure, XtPointer);
    static void UpPressed(Widget, XtPointer closure, XtPointer);
    static Boolean OpenWhenIdle(XtPointer closure);

    void OpenDirectory(const std::filesystem::path &directory);
    void TellState();

    Widget shell_;
    Widget form_;
    Widget buttons_;
    Widget up_;
    Widget sort_;
    Widget status_;
    Widget notes_;
    std::unique_ptr<FileList> files_;
    std::filesystem::path directory_;
    std::filesystem::path wanted_; // a directory to open when the list's callback has returned
    XtWorkProcId waiting_ = 0;
};

} // namespace file_list
