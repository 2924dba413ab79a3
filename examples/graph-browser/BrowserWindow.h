#pragma once

#include <memory>
#include <optional>
#include <string>

#include <Xm/Xm.h>

#include "DotGraph.h"
#include "GraphView.h"
#include "Menus.h"
#include "ShownMark.h"

namespace graph_browser {

// The application's window: a menu bar, the graph, and a line that says what is shown.
class BrowserWindow {
public:
    explicit BrowserWindow(Widget shell);
    BrowserWindow(const BrowserWindow &) = delete;
    BrowserWindow &operator=(const BrowserWindow &) = delete;

    GraphView &View() { return *view; }

    void Show(const std::string &path, Graph graph);
    // Reads the file and shows it; if it cannot be read, says why and leaves all as it was.
    void Open(const std::string &path);

private:
    static void FileChosen(Widget dialog, XtPointer window, XtPointer call_data);
    static void CloseWindow(Widget, XtPointer window, XtPointer);
    static void CloseDialog(Widget dialog, XtPointer, XtPointer);

    void Quit();
    void AddFileMenu();
    void ShowOpenDialog();
    void ShowError(const std::string &message);
    void UpdateStatus();
    std::string StatusText() const;

    Widget shell;
    Widget status = nullptr;
    Widget open_dialog = nullptr;
    Widget error_dialog = nullptr;
    std::string path;
    std::unique_ptr<Menus> menus;
    std::unique_ptr<GraphView> view;
    std::unique_ptr<ShownMark> mark;
};

} // namespace graph_browser
