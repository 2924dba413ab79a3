#include "BrowserWindow.h"

#include <algorithm>
#include <utility>

#include <Xm/Form.h>
#include <Xm/Label.h>
#include <Xm/MainW.h>
#include <Xm/Protocols.h>
#include <Xm/RowColumn.h>

#include <corvidlmw/graph/Graph.h>

#include "EditMenu.h"
#include "SightMenu.h"
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

BrowserWindow::BrowserWindow(Widget of_shell, std::function<void()> on_quit) : shell(of_shell) {
    const Widget main_window =
        XtCreateManagedWidget("mainWindow", xmMainWindowWidgetClass, shell, nullptr, 0);
    const Widget menu_bar = XmCreateMenuBar(main_window, Name("menuBar"), nullptr, 0);
    const Widget work = AddSight(main_window);
    const Text nothing{" "};
    status = XtVaCreateManagedWidget("status", xmLabelWidgetClass, main_window, XmNlabelString,
                                     nothing.Get(), XmNalignment, XmALIGNMENT_BEGINNING, nullptr);
    menus = std::make_unique<Menus>(menu_bar);
    editor = std::make_unique<Editor>(*view, shell, [this] { UpdateStatusSoon(); });
    files = std::make_unique<FileCommands>(*this, shell, std::move(on_quit));
    files->AddMenu(*menus);
    AddEditMenu(*menus, *view, *editor, *search);
    AddViewMenu(*menus, *view);
    AddSightCommands(*menus, *view, *overview, *search);
    XtManageChild(menu_bar);
    XtVaSetValues(main_window, XmNmenuBar, menu_bar, XmNcommandWindow, search->Line(),
                  XmNworkWindow, work, XmNmessageWindow, status, nullptr);
    mark = std::make_unique<ShownMark>(shell, view->GraphWidget());
    // Closing the window is quitting: nothing of the toolkit's may end the program on the way.
    XtVaSetValues(shell, XmNdeleteResponse, XmDO_NOTHING, nullptr);
    XmAddWMProtocolCallback(shell, XmInternAtom(XtDisplay(shell), Name("WM_DELETE_WINDOW"), False),
                            CloseWindow, this);
}

// The graph with its overview, and the line that finds nodes in both.
Widget BrowserWindow::AddSight(Widget main_window) {
    const Widget work = XtVaCreateManagedWidget("work", xmFormWidgetClass, main_window,
                                                XmNresizePolicy, XmRESIZE_NONE, nullptr);
    view = std::make_unique<GraphView>(work, [this] { UpdateStatus(); });
    // The scrolled window stands around the graph's clip window.
    const Widget scrolled_window = XtParent(XtParent(view->GraphWidget()));
    XtVaSetValues(scrolled_window, XmNtopAttachment, XmATTACH_FORM, XmNbottomAttachment,
                  XmATTACH_FORM, XmNleftAttachment, XmATTACH_FORM, nullptr);
    overview = std::make_unique<OverviewPane>(work, scrolled_window, view->GraphWidget());
    search = std::make_unique<Search>(main_window, *view, [this] { menus->Refresh(); });
    return work;
}

BrowserWindow::~BrowserWindow() {
    if (update)
        XtRemoveWorkProc(*update);
}

void BrowserWindow::CloseWindow(Widget, XtPointer window, XtPointer) {
    static_cast<BrowserWindow *>(window)->files->Quit();
}

void BrowserWindow::Show(const std::string &path, Graph graph) {
    files->Shown(path);
    if (view->GetSpacing() == normal_spacing)
        view->SetSpacing(SpacingFor(graph));
    mark->Expect(path);
    view->Show(std::move(graph));
}

// ---- Status ----------------------------------------------------------------

std::string BrowserWindow::SelectionText() const {
    if (view->Editing())
        return " - " + editor->Describe();
    const auto selected = view->Selected();
    if (!selected)
        return {};
    const Node &node = view->Shown().NodeAt(*selected);
    const bool butterfly = view->LayoutStyle() == XmBUTTERFLY;
    return (butterfly ? " - around " : " - selected: ") +
           (node.label.empty() ? node.name : node.label) +
           (node.cluster.empty() ? "" : " in " + OneLine(node.cluster));
}

std::string BrowserWindow::StatusText() const {
    const Graph &graph = std::as_const(*view).Shown();
    std::string text = files->Path() + ": " + Count(NodesOf(graph).size(), "node") + ", " +
                       Count(EdgesOf(graph).size(), "arc");
    if (graph.graphs_in_file > 1)
        text += " (the first of " + std::to_string(graph.graphs_in_file) + " graphs)";
    if (graph.changed)
        text += ", changed";
    if (view->TooBig())
        text += " - larger than a window can be, some nodes are out of place";
    return text + SelectionText();
}

void BrowserWindow::UpdateStatus() {
    const Text text{OneLine(StatusText())};
    XtVaSetValues(status, XmNlabelString, text.Get(), nullptr);
    const std::string title = "graph-browser: " + files->Path();
    XtVaSetValues(shell, XmNtitle, (title + (view->Shown().changed ? " *" : "")).c_str(), nullptr);
    search->Refresh();
    menus->Refresh();
}

// While a gesture runs, its many small changes are shown at once.
void BrowserWindow::UpdateStatusSoon() {
    if (!update)
        update = XtAppAddWorkProc(XtWidgetToApplicationContext(shell), UpdateLater, this);
}

Boolean BrowserWindow::UpdateLater(XtPointer window) {
    auto &self = *static_cast<BrowserWindow *>(window);
    self.update.reset();
    self.UpdateStatus();
    return True;
}

} // namespace graph_browser
