#include "Files.h"

#include <filesystem>
#include <system_error>
#include <utility>

#include <Xm/FileSB.h>

#include <Dialogs.h>
#include <PrintFile.h>
#include <Text.h>

#include "WorkbenchWindow.h"
#include "WriteDocument.h"

namespace workbench {

using graph_browser::Ask;
using graph_browser::Name;
using graph_browser::ShowError;
using graph_browser::Text;

Files::Files(WorkbenchWindow &window, Widget shell, Step quit)
    : window_(window), shell_(shell), quit_(std::move(quit)) {}

void Files::Shown() {
    const Document &document = window_.document();
    saved_as_ = document.source == Source::DotFile ? document.path : "";
    stamp_ = graph_browser::FileStamp(saved_as_);
}

// ---- Leaving a document -----------------------------------------------------------------------------

void Files::UnlessChanged(Step next) {
    window_.properties().Commit();
    if (!window_.history().IsChanged()) {
        return next();
    }
    Ask(shell_, window_.document().path + " has unsaved changes.",
        {{"Save", [this, next] { Save(next); }}, {"Discard", next}});
}

void Files::Quit() {
    UnlessChanged(quit_);
}

void Files::AskOpen(Source source) {
    const char *titles[] = {"Open Directory", "Open DOT File", "Open Include Graph"};
    AskFile(titles[static_cast<int>(source)], source != Source::DotFile,
            [this, source](const std::string &path) { window_.Open(source, path); });
}

// ---- Saving -----------------------------------------------------------------------------------------

// A file that says all already is left alone: writing it would only lose its comments.
void Files::Save(const Step &next) {
    window_.properties().Commit();
    if (saved_as_.empty()) {
        return SaveAs(next);
    }
    if (!window_.history().IsChanged()) {
        return next ? next() : void();
    }
    if (stamp_ == graph_browser::FileStamp(saved_as_)) {
        return Write(saved_as_, next);
    }
    Ask(shell_, saved_as_ + " was changed by another program since it was read.",
        {{"Save over it", [this, next] { Write(saved_as_, next); }},
         {"Save As...", [this, next] { SaveAs(next); }}});
}

void Files::SaveAs(const Step &next) {
    AskFile("Save As", false, [this, next](const std::string &file) {
        UnlessThere(file, [this, file, next] { Write(file, next); });
    });
}

void Files::UnlessThere(const std::string &file, const Step &next) {
    std::error_code error;
    if (!std::filesystem::exists(file, error)) {
        return next();
    }
    Ask(shell_, file + " exists.", {{"Replace it", next}});
}

void Files::Write(const std::string &file, const Step &next) {
    const auto written = WriteDocument(window_.document());
    if (const auto *failure = std::get_if<Failure>(&written)) {
        return ShowError(shell_, file + " was not saved: " + failure->message);
    }
    if (const auto error = graph_browser::SaveFile(file, std::get<std::string>(written))) {
        return ShowError(shell_, file + " was not saved: " + *error);
    }
    saved_as_ = file;
    stamp_ = graph_browser::FileStamp(file);
    window_.history().MarkSaved();
    window_.UpdateStatus();
    if (next) {
        next();
    }
}

// ---- Printing ---------------------------------------------------------------------------------------

void Files::Print() {
    AskFile("Print to File", false, [this](const std::string &file) {
        UnlessThere(file, [this, file] { PrintTo(file); });
    });
}

void Files::PrintTo(const std::string &file) {
    window_.Later("printing", [this, file] {
        if (const auto error = graph_browser::PrintToFile(window_.pane().graph(), file)) {
            ShowError(shell_, file + " was not printed: " + *error);
        }
    });
}

// ---- The dialogs ------------------------------------------------------------------------------------

Widget Files::Dialog(bool directory) {
    Widget &dialog = dialogs_[directory ? 1 : 0];
    if (dialog) {
        return dialog;
    }
    Arg args[] = {
        {Name(XmNfileTypeMask), directory ? XmFILE_DIRECTORY : XmFILE_REGULAR},
        {Name(XmNdialogStyle), XmDIALOG_FULL_APPLICATION_MODAL},
    };
    dialog = XmCreateFileSelectionDialog(shell_, Name(directory ? "directories" : "files"), args,
                                         XtNumber(args));
    XtUnmanageChild(XtNameToWidget(dialog, "Help"));
    XtAddCallback(dialog, XmNokCallback, FileChosen, this);
    XtAddCallback(
        dialog, XmNcancelCallback,
        [](Widget cancelled, XtPointer, XtPointer) { XtUnmanageChild(cancelled); }, nullptr);
    return dialog;
}

void Files::AskFile(const char *title, bool directory, TakeFile take) {
    take_file_ = std::move(take);
    const Text text(title);
    XtVaSetValues(Dialog(directory), XmNdialogTitle, text.Get(), nullptr);
    XmFileSelectionDoSearch(Dialog(directory), nullptr); // it would show the files of its last time
    XtManageChild(Dialog(directory));
}

void Files::FileChosen(Widget dialog, XtPointer closure, XtPointer call_data) {
    const auto *chosen = static_cast<XmFileSelectionBoxCallbackStruct *>(call_data);
    auto *name = static_cast<char *>(XmStringUnparse(chosen->value, nullptr, XmCHARSET_TEXT,
                                                     XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    const std::string file = name ? name : "";
    XtFree(name);
    XtUnmanageChild(dialog);
    const auto take = static_cast<Files *>(closure)->take_file_;
    if (!file.empty()) {
        take(file);
    }
}

} // namespace workbench
