#pragma once

#include <functional>
#include <memory>
#include <string>

#include <Xm/Xm.h>

#include <Menus.h>
#include <SaveFile.h>
#include <ShownMark.h>

#include "Canvas.h"
#include "SidePane.h"

namespace form_designer {

// The window: a menu bar, then palette, form and properties side by side, and a line of messages.
class DesignerWindow {
public:
    explicit DesignerWindow(Widget shell, std::function<void()> on_quit = nullptr);
    ~DesignerWindow();
    DesignerWindow(const DesignerWindow &) = delete;
    DesignerWindow &operator=(const DesignerWindow &) = delete;

    // The form of this file; of none for a new one.
    void Show(const std::string &file, Form form);
    // Reads the file and shows it; if it cannot be read, says why and leaves all as it was.
    bool Open(const std::string &file);
    // False if it could not be written; then the user knows why.
    bool SaveTo(const std::string &file);

    Canvas &TheCanvas() { return *canvas; }
    SidePane &TheSidePane() { return *pane; }
    bool IsChanged();
    std::string Message() const;

private:
    using Step = std::function<void()>;

    static void Pressed(Widget button, XtPointer window, XtPointer);
    static void Closed(Widget, XtPointer window, XtPointer);
    static void FileChosen(Widget dialog, XtPointer window, XtPointer call_data);

    void BuildMenus(Widget main_window);
    void BuildPalette(Widget parent);
    void ArrangePanes(Widget panes);
    void ShowSelected();
    void ShowTitle();
    void Say(const std::string &text);
    void Take(const std::string &item, const Property &property, const std::string &value);
    void UnlessChanged(Step next);
    void Save(const Step &next);
    void SaveAs(const Step &next);
    void AskFile(const char *title, std::function<void(const std::string &)> use);

    Widget shell;
    Widget message = nullptr;
    Widget file_dialog = nullptr;
    Step quit;
    std::function<void(const std::string &)> use_file;
    std::string path;
    std::string saved_text;
    std::unique_ptr<graph_browser::Menus> menus;
    std::unique_ptr<Canvas> canvas;
    std::unique_ptr<SidePane> pane;
    std::unique_ptr<graph_browser::ShownMark> mark;
};

Form NewForm();

} // namespace form_designer
