// The workbench: a list of nodes, their graph with its overview, and the properties of what is selected. The
// window holds the document, its history and the selection; the panes show them.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include <Menus.h>
#include <ShownMark.h>

#include "Document.h"
#include "FindLine.h"
#include "Files.h"
#include "GraphGestures.h"
#include "GraphPane.h"
#include "History.h"
#include "NodeList.h"
#include "PropertyPane.h"
#include "Reader.h"
#include "Worker.h"

namespace workbench {

class WorkbenchWindow {
public:
    // `on_quit` is called when the user has quit, or closed the window, and nothing is unsaved. The object
    // outlives its widgets.
    WorkbenchWindow(Widget shell, std::function<void()> on_quit);
    ~WorkbenchWindow();
    WorkbenchWindow(const WorkbenchWindow &) = delete;
    WorkbenchWindow &operator=(const WorkbenchWindow &) = delete;

    // Reads and shows it, little by little; asks first if there are changes that would be lost.
    void Open(Source source, const std::string &path);
    // What takes long goes on. Meanwhile the document cannot be changed.
    bool IsBusy() const { return worker_.IsBusy(); }
    void Stop();
    // Once, when what is being opened is on the screen.
    void WhenShown(std::function<void()> call) { shown_ = std::move(call); }

    Document &document() { return document_; }
    History &history() { return history_; }
    NodeList &list() { return *list_; }
    GraphPane &pane() { return *pane_; }
    PropertyPane &properties() { return *properties_; }
    FindLine &finder() { return *finder_; }
    Files &files() { return *files_; }
    Widget status() const { return status_; }
    const std::vector<int> &selected() const { return selected_; }
    const std::vector<int> &hits() const { return hits_; }

    // In ascending order. All panes follow.
    void Select(std::vector<int> nodes);
    void Find(const std::string &text) { finder_->SetText(text); }
    void GoToNextHit();

    // Edits by commands. While the window is busy there are none, but a name is taken afterwards.
    void AddNode();
    void DeleteSelected();
    void Rename(int node, const std::string &label);
    void LayOutAgain();
    void Undo();
    void Redo();

    // The graph is on the screen as a gesture has left it: the document follows.
    void TakeMoves(const std::string &name);
    void TakeSelection();
    // Ends an edit, and shows it. The gesture that made it has shown it in the graph already.
    void CommitEdit();
    // After the event, when nothing is busy.
    void Later(const char *name, std::function<void()> act);

    void UpdateStatus();

private:
    static void CloseWindow(Widget, XtPointer closure, XtPointer);

    void BuildPanes(Widget main_window);
    Widget BuildRightPane(Widget panes);
    void BuildStatus(Widget main_window);
    void ShowDocument(Document document);
    void Read(Source source, const std::string &path);
    void TakeRead();
    void ShowEdit(const Touched &touched, bool also_in_graph);
    void TellWhenDrawn();
    void TakeListSelection();
    void FindAgain();
    void ShowProgress();
    std::string StatusText() const;

    Widget shell_;
    Document document_;
    History history_{document_};
    Worker worker_;
    std::unique_ptr<Reader> reader_;
    std::function<void()> shown_;
    std::vector<int> selected_;
    std::vector<int> hits_;
    Widget status_ = nullptr;
    Widget progress_ = nullptr;
    std::unique_ptr<graph_browser::Menus> menus_;
    std::unique_ptr<NodeList> list_;
    std::unique_ptr<FindLine> finder_;
    std::unique_ptr<GraphPane> pane_;
    std::unique_ptr<PropertyPane> properties_;
    std::unique_ptr<GraphGestures> gestures_;
    std::unique_ptr<Files> files_;
    std::unique_ptr<graph_browser::ShownMark> mark_;
};

// The commands of the window.
void AddMenus(graph_browser::Menus &menus, WorkbenchWindow &window);

} // namespace workbench
