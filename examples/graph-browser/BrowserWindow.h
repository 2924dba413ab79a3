#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include <Xm/Xm.h>

#include "DotGraph.h"
#include "Editor.h"
#include "FileCommands.h"
#include "GraphView.h"
#include "Menus.h"
#include "OverviewPane.h"
#include "Search.h"
#include "ShownMark.h"

namespace graph_browser {

// The application's window: a menu bar, the graph, and a line that says what is shown.
class BrowserWindow {
public:
    // `on_quit` is called when the user has quit, or closed the window, and nothing is unsaved.
    BrowserWindow(Widget shell, std::function<void()> on_quit);
    ~BrowserWindow();
    BrowserWindow(const BrowserWindow &) = delete;
    BrowserWindow &operator=(const BrowserWindow &) = delete;

    GraphView &View() { return *view; }
    Search &Finder() { return *search; }

    void Show(const std::string &path, Graph graph);
    // As the File menu does.
    void Open(const std::string &path) { files->Open(path); }
    void UpdateStatus();

private:
    static void CloseWindow(Widget, XtPointer window, XtPointer);
    static Boolean UpdateLater(XtPointer window);

    Widget AddSight(Widget main_window);
    void UpdateStatusSoon();
    std::string StatusText() const;
    std::string SelectionText() const;

    Widget shell;
    Widget status = nullptr;
    std::unique_ptr<Menus> menus;
    std::unique_ptr<GraphView> view;
    std::unique_ptr<OverviewPane> overview;
    std::unique_ptr<Search> search;
    std::unique_ptr<Editor> editor;
    std::unique_ptr<FileCommands> files;
    std::unique_ptr<ShownMark> mark;
    std::optional<XtWorkProcId> update;
};

} // namespace graph_browser
