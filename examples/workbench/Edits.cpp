// The edits of the window's document by commands, and what follows from an edit.

#include "WorkbenchWindow.h"

#include <utility>

#include <GraphView.h>

namespace workbench {

void WorkbenchWindow::Later(const char *name, std::function<void()> act) {
    worker_.Add(name, [act = std::move(act)] {
        act();
        return false;
    });
}

// ---- Commands ---------------------------------------------------------------------------------------

// As the gesture does, in the middle of what can be seen.
void WorkbenchWindow::AddNode() {
    if (!IsBusy()) {
        XmGraphAddNode(pane_->graph());
    }
}

void WorkbenchWindow::DeleteSelected() {
    int num_arcs = 0;
    const WidgetList arcs = XmGraphGetSelectedArcs(pane_->graph(), &num_arcs);
    if (IsBusy() || (selected_.empty() && num_arcs == 0)) {
        return;
    }
    history_.Begin("Delete");
    for (int i = 0; i < num_arcs; i++) {
        history_.RemoveEdge(graph_browser::GraphView::IndexOf(arcs[i]));
    }
    for (const int node : selected_) {
        history_.RemoveNode(node);
    }
    Select({});
    ShowEdit(history_.Commit(), true);
}

// What was typed is not lost because an edit before it is still being shown; but another document has no
// such node.
void WorkbenchWindow::Rename(int node, const std::string &label) {
    const auto rename = [this, node, label] {
        history_.Begin("Rename");
        history_.ChangeNode(node).label = label;
        ShowEdit(history_.Commit(), true);
    };
    if (!IsBusy()) {
        rename();
    } else if (!reader_) {
        Later("renaming", rename);
    }
}

void WorkbenchWindow::LayOutAgain() {
    if (!IsBusy()) {
        pane_->LayOut();
        TakeMoves("Lay Out");
    }
}

void WorkbenchWindow::Undo() {
    if (!IsBusy()) {
        properties_->Commit();
        ShowEdit(history_.Undo(), true);
    }
}

void WorkbenchWindow::Redo() {
    if (!IsBusy()) {
        ShowEdit(history_.Redo(), true);
    }
}

// ---- Gestures ---------------------------------------------------------------------------------------

void WorkbenchWindow::TakeMoves(const std::string &name) {
    history_.Begin(name);
    for (const int node : graph_browser::NodesOf(document_.graph)) {
        if (const auto place = pane_->PlaceOf(node);
            place && place != document_.graph.NodeAt(node).place) {
            history_.ChangeNode(node).place = place;
        }
    }
    const Touched touched = history_.Commit();
    if (!touched.nodes.empty()) {
        document_.graph.placed = true;
        UpdateStatus();
    }
}

void WorkbenchWindow::TakeSelection() {
    Select(pane_->Selected());
}

void WorkbenchWindow::CommitEdit() {
    ShowEdit(history_.Commit(), false);
}

// ---- Showing ----------------------------------------------------------------------------------------

// Rows that are made anew come unselected, and what came back unmarked.
void WorkbenchWindow::ShowEdit(const Touched &touched, bool also_in_graph) {
    if (touched.nodes.empty() && touched.edges.empty()) {
        return;
    }
    std::erase_if(selected_, [this](int node) { return document_.graph.NodeAt(node).removed; });
    list_->Update(worker_, touched);
    if (also_in_graph) {
        pane_->Update(touched);
    }
    Later("the selection", [this] {
        FindAgain();
        Select(selected_);
    });
    UpdateStatus();
}

} // namespace workbench
