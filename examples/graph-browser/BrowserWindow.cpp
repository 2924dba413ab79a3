#include "BrowserWindow.h"

#include <algorithm>
#include <utility>
#include <variant>

#include <Xm/FileSB.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/MessageB.h>
#include <Xm/Protocols.h>
#include <Xm/RowColumn.h>

#include <corvidlmw/graph/Graph.h>

#include "DotReader.h"
#include "Text.h"
#include "ViewMenu.h"

namespace graph_browser {
namespace {

// Above this many nodes a graph opens with compact spacing: a window is at most 32767 pixels high.
constexpr std::size_t many_nodes = 40;

// Labels on arcs want room between the levels.
Spacing SpacingFor(const Graph &graph) {
    if (graph.nodes.size() > many_nodes)
        return compact_spacing;
    const auto labelled = [](const Edge &edge) { return !edge.label.empty(); };
    return std::any_of(graph.edges.begin(), graph.edges.end(), labelled) ? wide_spacing
                                                                         : normal_spacing;
}

std::string Count(std::size_t count, const char *what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string OneLine(std::string text) {
    for (char &c : text)
        if (c == '\n')
            c = ' ';
    return text;
}

} // namespace

// ---- Life ------------------------------------------------------------------

BrowserWindow::BrowserWindow(Widget of_shell) : shell(of_shell) {
    const Widget main_window =
        XtCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr, 0);
    const Widget menu_bar = XmCreateMenuBar(main_window, Name("menuBar"), nullptr, 0);
    view = std::make_unique<GraphView>(main_window, [this] { UpdateStatus(); });
    const Text nothing{" "};
    status = XtVaCreateManagedWidget("status", xmLabelWidgetClass, main_window, XmNlabelString,
                                     nothing.Get(), XmNalignment, XmALIGNMENT_BEGINNING, nullptr);
    menus = std::make_unique<Menus>(menu_bar);
    AddFileMenu();
    AddViewMenu(*menus, *view);
    XtManageChild(menu_bar);
    // The scrolled window stands around the graph's clip window.
    XtVaSetValues(main_window, XmNmenuBar, menu_bar, XmNworkWindow,
                  XtParent(XtParent(view->GraphWidget())), XmNmessageWindow, status, nullptr);
    mark = std::make_unique<ShownMark>(shell, view->GraphWidget());
    // Closing the window is quitting: nothing of the toolkit's may end the program on the way.
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
    XmAddWMProtocolCallback(shell, XmInternAtom(XtDisplay(shell), Name("WM_DELETE_WINDOW"), False),
                            CloseWindow, this);
}

void BrowserWindow::Quit() {
    XtAppSetExitFlag(XtWidgetToApplicationContext(shell));
}

void BrowserWindow::CloseWindow(Widget, XtPointer window, XtPointer) {
    static_cast<BrowserWindow *>(window)->Quit();
}

// ---- Menus -----------------------------------------------------------------

void BrowserWindow::AddFileMenu() {
    menus->AddMenu("File", 'F');
    menus->AddCommand({"Open...", 'O', "Ctrl<Key>o", "Ctrl+O", [this] { ShowOpenDialog(); }});
    menus->AddSeparator();
    menus->AddCommand({"Quit", 'Q', "Ctrl<Key>q", "Ctrl+Q", [this] { Quit(); }});
}

// ---- Files -----------------------------------------------------------------

void BrowserWindow::Show(const std::string &file, Graph graph) {
    path = file;
    if (view->GetSpacing() == normal_spacing)
        view->SetSpacing(SpacingFor(graph));
    mark->Expect(path);
    XtVaSetValues(shell, XmNtitle, ("graph-browser: " + path).c_str(), nullptr);
    view->Show(std::move(graph));
}

void BrowserWindow::Open(const std::string &file) {
    auto result = ReadDotFile(file);
    if (const auto *error = std::get_if<ReadError>(&result))
        return ShowError(Describe(file, *error));
    Show(file, std::move(std::get<Graph>(result)));
}

void BrowserWindow::ShowOpenDialog() {
    if (!open_dialog) {
        open_dialog = XmCreateFileSelectionDialog(shell, Name("openDialog"), nullptr, 0);
        XtUnmanageChild(XtNameToWidget(open_dialog, "Help"));
        XtAddCallback(open_dialog, XmNokCallback, FileChosen, this);
        XtAddCallback(open_dialog, XmNcancelCallback, CloseDialog, nullptr);
    }
    XtManageChild(open_dialog);
}

void BrowserWindow::FileChosen(Widget dialog, XtPointer window, XtPointer call_data) {
    const auto *chosen = static_cast<XmFileSelectionBoxCallbackStruct *>(call_data);
    auto *name = static_cast<char *>(XmStringUnparse(chosen->value, nullptr, XmCHARSET_TEXT,
                                                     XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    const std::string file = name ? name : "";
    XtFree(name);
    XtUnmanageChild(dialog);
    static_cast<BrowserWindow *>(window)->Open(file);
}

void BrowserWindow::CloseDialog(Widget dialog, XtPointer, XtPointer) {
    XtUnmanageChild(dialog);
}

void BrowserWindow::ShowError(const std::string &message) {
    if (!error_dialog) {
        error_dialog = XmCreateErrorDialog(shell, Name("errorDialog"), nullptr, 0);
        XtUnmanageChild(XtNameToWidget(error_dialog, "Cancel"));
        XtUnmanageChild(XtNameToWidget(error_dialog, "Help"));
    }
    const Text text{message};
    XtVaSetValues(error_dialog, XmNmessageString, text.Get(), nullptr);
    XtManageChild(error_dialog);
}

// ---- Status ----------------------------------------------------------------

std::string BrowserWindow::StatusText() const {
    const Graph &graph = view->Shown();
    std::string text =
        path + ": " + Count(graph.nodes.size(), "node") + ", " + Count(graph.edges.size(), "arc");
    if (graph.graphs_in_file > 1)
        text += " (the first of " + std::to_string(graph.graphs_in_file) + " graphs)";
    if (view->TooBig())
        text += " - larger than a window can be, some nodes are out of place";
    if (const auto selected = view->Selected()) {
        const Node &node = graph.nodes[static_cast<std::size_t>(*selected)];
        const bool butterfly = view->LayoutStyle() == XmBUTTERFLY;
        text += (butterfly ? " - around " : " - selected: ") +
                (node.label.empty() ? node.name : node.label);
        if (!node.cluster.empty())
            text += " in " + OneLine(node.cluster);
    }
    return text;
}

void BrowserWindow::UpdateStatus() {
    const Text text{OneLine(StatusText())};
    XtVaSetValues(status, XmNlabelString, text.Get(), nullptr);
    menus->Refresh();
}

} // namespace graph_browser
