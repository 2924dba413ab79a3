// The File menu's commands. Whatever would lose changes asks first.
#pragma once

#include <functional>
#include <string>

#include <Xm/Xm.h>

#include <SaveFile.h>

#include "Reader.h"

namespace workbench {

class WorkbenchWindow;

class Files {
public:
    using Step = std::function<void()>;

    Files(WorkbenchWindow &window, Widget shell, Step quit);
    Files(const Files &) = delete;
    Files &operator=(const Files &) = delete;

    void AskOpen(Source source);
    // To the DOT file that was opened; what came from elsewhere needs a file of its own.
    void Save(const Step &next);
    void SaveAs(const Step &next);
    void Print();
    void Quit();
    void UnlessChanged(Step next);

    // Another document is shown.
    void Shown();

private:
    using TakeFile = std::function<void(const std::string &)>;

    static void FileChosen(Widget dialog, XtPointer closure, XtPointer call_data);

    void UnlessThere(const std::string &file, const Step &next);
    void Write(const std::string &file, const Step &next);
    void PrintTo(const std::string &file);
    void AskFile(const char *title, bool directory, TakeFile take);
    Widget Dialog(bool directory);

    WorkbenchWindow &window_;
    Widget shell_;
    Step quit_;
    std::string saved_as_; // empty for a document that has no file
    graph_browser::FileStamp stamp_{""};
    Widget dialogs_[2] = {nullptr, nullptr}; // for files, for directories
    TakeFile take_file_;
};

} // namespace workbench
