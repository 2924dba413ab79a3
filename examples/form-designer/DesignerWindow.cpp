#include "DesignerWindow.h"

#include <tuple>
#include <utility>

#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/Protocols.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <corvidlmw/managers/HPanedW.h>

#include <Dialogs.h>
#include <Text.h>

#include "FormFile.h"

namespace form_designer {

using graph_browser::Name;
using graph_browser::Text;

Form NewForm() {
    return {.values = {{"numRows", "4"}, {"numColumns", "3"}}, .items = {}};
}

// ---- Building --------------------------------------------------------------

DesignerWindow::DesignerWindow(Widget of_shell, std::function<void()> on_quit)
    : shell(of_shell), quit(std::move(on_quit)) {
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
    XmAddWMProtocolCallback(shell, XInternAtom(XtDisplay(shell), "WM_DELETE_WINDOW", False), Closed,
                            this);
    Widget main_window =
        XtVaCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr);
    BuildMenus(main_window);
    Widget panes = XmCreateHorzPanedWindow(main_window, Name("panes"), nullptr, 0);
    BuildPalette(panes);
    canvas = std::make_unique<Canvas>(
        panes, Canvas::Listener{.selected = [this] { ShowSelected(); },
                                .changed = [this] { ShowTitle(); },
                                .say = [this](const std::string &text) { Say(text); }});
    pane = std::make_unique<SidePane>(
        panes, [this](const std::string &item, const Property &property, const std::string &value) {
            Take(item, property, value);
        });
    message = XtVaCreateManagedWidget("message", xmLabelWidgetClass, main_window, XmNalignment,
                                      XmALIGNMENT_BEGINNING, XmNrecomputeSize, False, nullptr);
    XtVaSetValues(main_window, XmNworkWindow, panes, XmNmessageWindow, message, nullptr);
    mark = std::make_unique<graph_browser::ShownMark>(shell, message);
    ArrangePanes(panes);
    XtManageChild(panes);
    Show("", NewForm());
}

DesignerWindow::~DesignerWindow() = default;

void DesignerWindow::BuildMenus(Widget main_window) {
    Widget bar = XmCreateMenuBar(main_window, Name("menuBar"), nullptr, 0);
    menus = std::make_unique<graph_browser::Menus>(bar);
    menus->AddMenu("File", 'F');
    menus->AddCommand({"New", 'N', "Ctrl<Key>n", "Ctrl+N",
                       [this] { UnlessChanged([this] { Show("", NewForm()); }); }});
    menus->AddCommand({"Open...", 'O', "Ctrl<Key>o", "Ctrl+O", [this] {
                           UnlessChanged([this] {
                               AskFile("Open", [this](const std::string &file) { Open(file); });
                           });
                       }});
    menus->AddCommand({"Save", 'S', "Ctrl<Key>s", "Ctrl+S", [this] { Save([] {}); }});
    menus->AddCommand({"Save As...", 'A', nullptr, nullptr, [this] { SaveAs([] {}); }});
    menus->AddSeparator();
    menus->AddCommand({"Quit", 'Q', "Ctrl<Key>q", "Ctrl+Q",
                       [this] { UnlessChanged([this] { quit ? quit() : void(); }); }});
    menus->AddMenu("Edit", 'E');
    menus->AddCommand(
        {"Delete", 'D', "Ctrl<Key>d", "Ctrl+D", [this] { canvas->RemoveSelected(); }});
    menus->AddCommand({"Select Form", 'F', nullptr, nullptr, [this] { canvas->Select(""); }});
    XtManageChild(bar);
}

void DesignerWindow::BuildPalette(Widget parent) {
    Widget palette = XtVaCreateManagedWidget("palette", xmRowColumnWidgetClass, parent, nullptr);
    for (const Kind &kind : Kinds()) {
        const Text title(kind.title);
        Widget button =
            XtVaCreateManagedWidget("kind", xmPushButtonWidgetClass, palette, XmNlabelString,
                                    title.Get(), XmNuserData, &kind, nullptr);
        XtAddCallback(button, XmNactivateCallback, Pressed, this);
    }
}

// What the window has more or less, the form gets or gives. The properties of another widget may need
// more room than those that are shown first.
void DesignerWindow::ArrangePanes(Widget panes) {
    for (const auto &[name, least, keeps] :
         std::initializer_list<std::tuple<const char *, int, Boolean>>{
             {"palette", 60, True}, {"canvas", 100, False}, {"sidePane", 230, True}})
        XtVaSetValues(XtNameToWidget(panes, name), XmNpaneMinimum, least, XmNskipAdjust, keeps,
                      nullptr);
}

// ---- What is shown ---------------------------------------------------------

// What was typed last belongs to what was selected before.
void DesignerWindow::ShowSelected() {
    if (!pane)
        return;
    pane->Commit();
    const Form &form = canvas->Shown();
    if (const Item *item = form.Find(canvas->Selected()))
        pane->Show(item->name, item->name + ": " + item->kind->class_name, form.PropertiesOf(*item),
                   item->values);
    else
        pane->Show("", "The form", form.Properties(), form.values);
}

void DesignerWindow::ShowTitle() {
    const std::string name = path.empty() ? "untitled" : path;
    const std::string title = "form-designer: " + name + (IsChanged() ? " (changed)" : "");
    XtVaSetValues(shell, XmNtitle, title.c_str(), nullptr);
}

void DesignerWindow::Say(const std::string &text) {
    const Text line(text.empty() ? " " : text);
    XtVaSetValues(message, XmNlabelString, line.Get(), nullptr);
}

std::string DesignerWindow::Message() const {
    XmString line = nullptr;
    XtVaGetValues(message, XmNlabelString, &line, nullptr);
    auto *text = static_cast<char *>(
        XmStringUnparse(line, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    std::string copy = text ? text : "";
    XtFree(text);
    XmStringFree(line);
    return copy;
}

// A value that cannot be taken gives way to the old one.
void DesignerWindow::Take(const std::string &item, const Property &property,
                          const std::string &value) {
    if (!item.empty() && !canvas->Shown().Find(item))
        return;
    const auto problem = canvas->Set(item, property, value);
    Say(problem.value_or(""));
    if (problem)
        ShowSelected();
}

bool DesignerWindow::IsChanged() {
    return WriteForm(canvas->Shown()) != saved_text;
}

// ---- Files -----------------------------------------------------------------

void DesignerWindow::Show(const std::string &file, Form form) {
    path = file;
    mark->Expect(file);
    saved_text = WriteForm(form);
    canvas->Show(std::move(form));
    Say(" ");
    ShowTitle();
}

bool DesignerWindow::Open(const std::string &file) {
    auto result = ReadFormFile(file);
    if (const auto *error = std::get_if<FileError>(&result)) {
        graph_browser::ShowError(shell, Describe(file, *error));
        return false;
    }
    Show(file, std::move(std::get<Form>(result)));
    return true;
}

bool DesignerWindow::SaveTo(const std::string &file) {
    pane->Commit();
    const std::string text = WriteForm(canvas->Shown());
    if (const auto problem = graph_browser::SaveFile(file, text)) {
        graph_browser::ShowError(shell, file + ": " + *problem);
        return false;
    }
    path = file;
    saved_text = text;
    ShowTitle();
    Say("Saved.");
    return true;
}

void DesignerWindow::Save(const Step &next) {
    if (path.empty())
        return SaveAs(next);
    if (SaveTo(path))
        next();
}

void DesignerWindow::SaveAs(const Step &next) {
    AskFile("Save As", [this, next](const std::string &file) {
        if (SaveTo(file))
            next();
    });
}

void DesignerWindow::UnlessChanged(Step next) {
    pane->Commit();
    if (!IsChanged())
        return next();
    graph_browser::Ask(shell, "The form has changes that are not saved.",
                       {{"Save", [this, next] { Save(next); }}, {"Discard", next}});
}

void DesignerWindow::AskFile(const char *title, std::function<void(const std::string &)> use) {
    use_file = std::move(use);
    if (!file_dialog) {
        file_dialog = XmCreateFileSelectionDialog(shell, Name("files"), nullptr, 0);
        XtUnmanageChild(XtNameToWidget(file_dialog, "Help"));
        XtAddCallback(file_dialog, XmNokCallback, FileChosen, this);
        XtAddCallback(
            file_dialog, XmNcancelCallback,
            [](Widget dialog, XtPointer, XtPointer) { XtUnmanageChild(dialog); }, nullptr);
    }
    XtVaSetValues(XtParent(file_dialog), XmNtitle, title, nullptr);
    XmFileSelectionDoSearch(file_dialog, nullptr); // it would show the files of its last time
    XtManageChild(file_dialog);
}

// ---- Callbacks -------------------------------------------------------------

void DesignerWindow::Pressed(Widget button, XtPointer client_data, XtPointer) {
    const Kind *kind = nullptr;
    XtVaGetValues(button, XmNuserData, &kind, nullptr);
    static_cast<DesignerWindow *>(client_data)->canvas->Arm(kind);
}

void DesignerWindow::Closed(Widget, XtPointer client_data, XtPointer) {
    auto &window = *static_cast<DesignerWindow *>(client_data);
    window.UnlessChanged([&window] { window.quit ? window.quit() : void(); });
}

void DesignerWindow::FileChosen(Widget dialog, XtPointer client_data, XtPointer call_data) {
    XtUnmanageChild(dialog);
    char *name = static_cast<char *>(
        XmStringUnparse(static_cast<XmFileSelectionBoxCallbackStruct *>(call_data)->value, nullptr,
                        XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    const std::string file = name ? name : "";
    XtFree(name);
    if (!file.empty())
        static_cast<DesignerWindow *>(client_data)->use_file(file);
}

} // namespace form_designer
