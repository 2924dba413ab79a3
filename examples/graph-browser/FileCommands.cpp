#include "FileCommands.h"

#include <filesystem>
#include <system_error>
#include <utility>
#include <variant>

#include <Xm/FileSB.h>

#include "BrowserWindow.h"
#include "Dialogs.h"
#include "DotReader.h"
#include "DotWriter.h"
#include "PrintFile.h"
#include "Text.h"

namespace graph_browser {
namespace {

// Nothing takes the place of a file that could not be read again.
std::optional<std::string> WriteFile(const std::string &file, const Graph &graph) {
    const std::string text = WriteDot(graph);
    const auto again = ReadDotText(text);
    if (const auto *error = std::get_if<ReadError>(&again))
        return "this graph cannot be written as DOT: " + error->message;
    return SaveFile(file, text);
}

bool SameFile(const std::string &a, const std::string &b) {
    std::error_code error;
    return a == b || std::filesystem::equivalent(a, b, error);
}

bool Exists(const std::string &file) {
    std::error_code error;
    return std::filesystem::exists(file, error);
}

} // namespace

FileCommands::FileCommands(BrowserWindow &of_window, Widget of_shell, Step on_quit)
    : window(of_window), shell(of_shell), quit(std::move(on_quit)) {}

void FileCommands::AddMenu(Menus &menus) {
    const auto open = [this](const std::string &file) { Open(file); };
    menus.AddMenu("File", 'F');
    menus.AddCommand(
        {"Open...", 'O', "Ctrl<Key>o", "Ctrl+O", [this, open] { AskFile("Open", open); }});
    menus.AddCommand({"Save", 'S', "Ctrl<Key>s", "Ctrl+S", [this] { Save(nullptr); }});
    menus.AddCommand({"Save As...", 'A', nullptr, nullptr, [this] { SaveAs(nullptr); }});
    menus.AddCommand({"Print to File...", 'P', "Ctrl<Key>p", "Ctrl+P", [this] { Print(); }});
    menus.AddSeparator();
    menus.AddCommand({"Quit", 'Q', "Ctrl<Key>q", "Ctrl+Q", [this] { Quit(); }});
}

// ---- Leaving a graph -------------------------------------------------------

void FileCommands::UnlessChanged(Step next) {
    if (!window.View().Shown().changed)
        return next();
    Ask(shell, path + " has unsaved changes.",
        {{"Save", [this, next] { Save(next); }}, {"Discard", next}});
}

void FileCommands::Open(const std::string &file) {
    UnlessChanged([this, file] { Read(file); });
}

void FileCommands::Read(const std::string &file) {
    auto result = ReadDotFile(file);
    if (const auto *error = std::get_if<ReadError>(&result))
        return ShowError(shell, Describe(file, *error));
    window.Show(file, std::move(std::get<Graph>(result)));
}

void FileCommands::Quit() {
    UnlessChanged(quit);
}

// ---- Saving ----------------------------------------------------------------

void FileCommands::Shown(const std::string &file) {
    path = file;
    stamp = FileStamp{path};
}

// A file that says all already is left alone: writing it would only lose its comments.
void FileCommands::Save(const Step &next) {
    if (!window.View().Shown().changed)
        return next ? next() : void();
    if (stamp == FileStamp{path})
        return Write(path, next);
    Ask(shell, path + " was changed by another program since it was read.",
        {{"Save over it", [this, next] { Write(path, next); }},
         {"Save As...", [this, next] { SaveAs(next); }}});
}

void FileCommands::SaveAs(const Step &next) {
    AskFile("Save As", [this, next](const std::string &file) { SaveTo(file, next); });
}

void FileCommands::SaveTo(const std::string &file, const Step &next) {
    if (SameFile(file, path))
        return Save(next);
    if (!Exists(file))
        return Write(file, next);
    Ask(shell, file + " exists.", {{"Replace it", [this, file, next] { Write(file, next); }}});
}

void FileCommands::Write(const std::string &file, const Step &next) {
    window.View().KeepPlaces();
    Graph &graph = window.View().Shown();
    if (const auto error = WriteFile(file, graph))
        return ShowError(shell, file + " was not saved: " + *error);
    graph.changed = false;
    Shown(file);
    window.UpdateStatus();
    if (next)
        next();
}

// ---- Printing --------------------------------------------------------------

void FileCommands::Print() {
    AskFile("Print to File", [this](const std::string &file) {
        if (!Exists(file))
            return PrintTo(file);
        Ask(shell, file + " exists.", {{"Replace it", [this, file] { PrintTo(file); }}});
    });
}

void FileCommands::PrintTo(const std::string &file) {
    if (const auto error = PrintToFile(window.View().GraphWidget(), file))
        ShowError(shell, file + " was not printed: " + *error);
}

// ---- The file dialog -------------------------------------------------------

void FileCommands::AskFile(const char *title, TakeFile take) {
    take_file = std::move(take);
    if (!file_dialog) {
        file_dialog = XmCreateFileSelectionDialog(shell, Name("fileDialog"), nullptr, 0);
        XtUnmanageChild(XtNameToWidget(file_dialog, "Help"));
        XtVaSetValues(file_dialog, XmNdialogStyle, XmDIALOG_FULL_APPLICATION_MODAL, nullptr);
        XtAddCallback(file_dialog, XmNokCallback, FileChosen, this);
        XtAddCallback(
            file_dialog, XmNcancelCallback,
            [](Widget dialog, XtPointer, XtPointer) { XtUnmanageChild(dialog); }, nullptr);
    }
    const Text text{title};
    XtVaSetValues(file_dialog, XmNdialogTitle, text.Get(), nullptr);
    XmFileSelectionDoSearch(file_dialog, nullptr); // it would show the files of its last time
    XtManageChild(file_dialog);
}

void FileCommands::FileChosen(Widget dialog, XtPointer commands, XtPointer call_data) {
    const auto *chosen = static_cast<XmFileSelectionBoxCallbackStruct *>(call_data);
    auto *name = static_cast<char *>(XmStringUnparse(chosen->value, nullptr, XmCHARSET_TEXT,
                                                     XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    const std::string file = name ? name : "";
    XtFree(name);
    XtUnmanageChild(dialog);
    const auto take = static_cast<FileCommands *>(commands)->take_file;
    if (!file.empty())
        take(file);
}

} // namespace graph_browser
