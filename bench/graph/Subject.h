/* What is measured: a widget that shows a shape in a scrolled window, each built in its best way. */

#ifndef CORVIDLMW_BENCH_GRAPH_SUBJECT_H
#define CORVIDLMW_BENCH_GRAPH_SUBJECT_H

#include <bench/graph/Shape.h>

#include <X11/Intrinsic.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::bench {

class Subject {
public:
    virtual ~Subject() = default;

    // Creates all below `shell`, managed and placed, so that it only has to be realised.
    virtual void Build(Widget shell, const Shape &shape) = 0;
    // Places all nodes anew, by the other one of two spacings, so that most of them move.
    virtual void Layout() = 0;
    // Adds one node below the given one, and what joins them, and places it.
    virtual void AddNode(int parent) = 0;
    // The same, the widget having been told to place all nodes by itself. False if it cannot be told.
    virtual bool AddNodeInAutomaticLayout(int) { return false; }
    // Takes away what was added last.
    virtual void RemoveAddedNode();

    // The widget that holds the nodes.
    Widget work() const { return work_; }

protected:
    // Nodes are named by their numbers, and the names are their labels.
    static std::string NameOf(int node) { return "node " + std::to_string(node); }

    // Narrow, so that a column of 1,000 nodes fits into the 32,767 pixels that a window can have.
    int NextSpacing() { return spacing_ = spacing_ == 2 ? 3 : 2; }

    Widget work_ = nullptr;
    std::vector<Widget> nodes_;
    // What joins the added node comes before it.
    std::vector<Widget> added_;

private:
    int spacing_ = 2;
};

// An automatic scrolled window that fills the shell.
Widget MakeScrolledWindow(Widget shell);

// "graph": XmGraph with gadgets as nodes; "graph-windows": with widgets as nodes; "tree": XmTree;
// "container": XmContainer. NULL for any other name.
std::unique_ptr<Subject> MakeSubject(std::string_view name);
std::unique_ptr<Subject> MakeGraphSubject(WidgetClass node_class);
std::unique_ptr<Subject> MakeTreeSubject();
std::unique_ptr<Subject> MakeContainerSubject();

} // namespace corvidlmw::bench

#endif
