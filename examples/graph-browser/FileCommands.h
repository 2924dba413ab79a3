#pragma once

#include <functional>
#include <string>

#include <Xm/Xm.h>

#include "DotGraph.h"
#include "Menus.h"
#include "SaveFile.h"

namespace graph_browser {

class BrowserWindow;

// The File menu. Whatever would lose changes asks first.
class FileCommands {
public:
    using Step = std::function<void()>;

    FileCommands(BrowserWindow &of_window, Widget of_shell, Step on_quit);
    FileCommands(const FileCommands &) = delete;
    FileCommands &operator=(const FileCommands &) = delete;

    void AddMenu(Menus &menus);
    const std::string &Path() const { return path; }

    // The graph of this file is shown now, unchanged.
    void Shown(const std::string &file);
    // Reads the file and shows it; if it cannot be read, says why and leaves all as it was.
    void Open(const std::string &file);
    void Quit();
    // Asks for a file and writes PostScript to it.
    void Print();

private:
    using TakeFile = std::function<void(const std::string &)>;

    static void FileChosen(Widget dialog, XtPointer commands, XtPointer call_data);

    void UnlessChanged(Step next);
    void Read(const std::string &file);
    void Save(const Step &next);
    void SaveAs(const Step &next);
    void SaveTo(const std::string &file, const Step &next);
    void Write(const std::string &file, const Step &next);
    void PrintTo(const std::string &file);
    void AskFile(const char *title, TakeFile take);

    BrowserWindow &window;
    Widget shell;
    Step quit;
    std::string path;
    FileStamp stamp{""};
    Widget file_dialog = nullptr;
    TakeFile take_file;
};

} // namespace graph_browser
