#include "FileWindow.h"

#include "Viewer.h"

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Text.h>

#include <X11/Shell.h>

#include <numeric>

namespace file_list {

namespace {

constexpr int levels = 3;

const char *NameOf(Column column) {
    switch (column) {
    case Column::Size: return "Sort by Size";
    case Column::Date: return "Sort by Date";
    case Column::Name: break;
    }
    return "Sort by Name";
}

void SetLabel(Widget w, const std::string &text) {
    XmString label = XmStringCreateLocalized(const_cast<char *>(text.c_str()));
    XmString present = nullptr;
    XtVaGetValues(w, XmNlabelString, &present, nullptr);
    if (!XmStringCompare(label, present)) {
        XtVaSetValues(w, XmNlabelString, label, nullptr);
    }
    XmStringFree(present);
    XmStringFree(label);
}

Widget CreateButtons(Widget form) {
    return XtVaCreateManagedWidget("buttons", xmRowColumnWidgetClass, form, XmNorientation,
                                   XmHORIZONTAL, XmNtopAttachment, XmATTACH_FORM, XmNleftAttachment,
                                   XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
}

Widget CreateNotes(Widget form) {
    return XtVaCreateManagedWidget("notes", xmTextWidgetClass, form, XmNeditMode, XmMULTI_LINE_EDIT,
                                   XmNrows, 4, XmNbottomAttachment, XmATTACH_FORM,
                                   XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment,
                                   XmATTACH_FORM, nullptr);
}

Widget CreateStatus(Widget form, Widget notes) {
    return XtVaCreateManagedWidget("status", xmLabelWidgetClass, form, XmNalignment,
                                   XmALIGNMENT_BEGINNING, XmNbottomAttachment, XmATTACH_WIDGET,
                                   XmNbottomWidget, notes, XmNleftAttachment, XmATTACH_FORM,
                                   XmNrightAttachment, XmATTACH_FORM, nullptr);
}

std::string StateText(const FileList &files) {
    const std::vector<Entry> selected = files.Selected();
    const std::uintmax_t size =
        std::accumulate(selected.begin(), selected.end(), std::uintmax_t{0},
                        [](std::uintmax_t sum, const Entry &entry) { return sum + entry.size; });
    return std::to_string(files.entries().size()) + " entries, " + std::to_string(selected.size()) +
           " selected with " + Grouped(size) + " bytes, " + std::to_string(files.num_checked()) +
           " checked";
}

} // namespace

FileWindow::FileWindow(Widget shell, const std::filesystem::path &directory)
    : shell_(shell), form_(XtVaCreateWidget("form", xmFormWidgetClass, shell, nullptr)),
      buttons_(CreateButtons(form_)),
      up_(XtVaCreateManagedWidget("up", xmPushButtonWidgetClass, buttons_, nullptr)),
      sort_(XtVaCreateManagedWidget("sort", xmPushButtonWidgetClass, buttons_, nullptr)),
      notes_(CreateNotes(form_)) {
    status_ = CreateStatus(form_, notes_);
    files_ = std::make_unique<FileList>(form_);
    XtVaSetValues(XtParent(files_->list()), XmNtopAttachment, XmATTACH_WIDGET, XmNtopWidget,
                  buttons_, XmNbottomAttachment, XmATTACH_WIDGET, XmNbottomWidget, status_,
                  XmNleftAttachment, XmATTACH_FORM, XmNrightAttachment, XmATTACH_FORM, nullptr);
    XtAddCallback(up_, XmNactivateCallback, UpPressed, this);
    XtAddCallback(sort_, XmNactivateCallback, SortPressed, this);
    files_->WhenChanged([this] { TellState(); });
    files_->WhenOpened([this](const Entry &entry) { Open(entry); });
    OpenDirectory(directory);
    XtVaSetValues(form_, XmNinitialFocus, XtParent(files_->list()), nullptr);
    XtManageChild(form_);
}

FileWindow::~FileWindow() {
    if (waiting_) {
        XtRemoveWorkProc(waiting_);
    }
}

// ---- Directories ------------------------------------------------------------------------------------

void FileWindow::OpenDirectory(const std::filesystem::path &directory) {
    directory_ = directory;
    const std::string title = "file-list: " + directory.string();
    XtVaSetValues(shell_, XmNtitle, title.c_str(), nullptr);
    files_->Show(ReadTree(directory, levels));
}

// Called from the list: its rows are replaced when it is done with the gesture.
void FileWindow::Open(const Entry &entry) {
    if (entry.kind == Kind::File || entry.kind == Kind::Program) {
        ShowFile(shell_, entry.path);
    } else if (entry.kind == Kind::Directory) {
        wanted_ = entry.path;
        if (!waiting_) {
            waiting_ = XtAppAddWorkProc(XtWidgetToApplicationContext(shell_), OpenWhenIdle, this);
        }
    }
}

Boolean FileWindow::OpenWhenIdle(XtPointer closure) {
    auto *window = static_cast<FileWindow *>(closure);
    window->waiting_ = 0;
    window->OpenDirectory(window->wanted_);
    return True;
}

void FileWindow::UpPressed(Widget, XtPointer closure, XtPointer) {
    auto *window = static_cast<FileWindow *>(closure);
    window->OpenDirectory(
        std::filesystem::absolute(window->directory_).lexically_normal().parent_path());
}

// ---- What is shown ----------------------------------------------------------------------------------

void FileWindow::SortPressed(Widget, XtPointer closure, XtPointer) {
    auto &files = *static_cast<FileWindow *>(closure)->files_;
    files.Sort(files.column());
}

void FileWindow::TellState() {
    SetLabel(status_, StateText(*files_));
    SetLabel(sort_, NameOf(files_->column()));
}

} // namespace file_list
