#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "Colors.h"
#include "DotGraph.h"
#include "NodeIcons.h"

namespace graph_browser {

struct Spacing {
    int child;
    int sibling;
    bool operator==(const Spacing &) const = default;
};

// A DOT graph in a scrolled XmGraph: a push button or icon gadget for each node, an arc for each edge. What
// can be changed is kept in the widget's resources, and nowhere else.
//
// In the butterfly style the widget holds only the selected node and its neighbours: the style
// places no others, and would leave them lying where they were.
class GraphView {
public:
    // `on_change` is called after another graph, node or style is shown. The view lives until its
    // widget dies.
    GraphView(Widget parent, std::function<void()> on_change);
    ~GraphView();
    GraphView(const GraphView &) = delete;
    GraphView &operator=(const GraphView &) = delete;

    Widget GraphWidget() const { return graph_widget; }
    Graph &Shown() { return model; }
    const Graph &Shown() const { return model; }
    std::optional<int> Selected() const { return selected; }
    bool TooBig() const { return too_big; } // larger than a window can be
    // Another graph is to be shown and the old one still stands: its widgets mean nothing.
    bool AboutToChange() const { return rebuild.has_value(); }

    void Show(Graph graph);
    void Select(std::optional<int> node);
    // The node of this name, else the first with this label; false if there is none.
    bool SelectByName(const std::string &name);
    // Brings the selected node into sight, or the first one; a realised view only.
    void ScrollToSelected();

    // In edit mode the gestures are the widget's, and so is the selection.
    bool Editing() const;
    void SetEditing(bool on);

    // The node or edge, by index, that a gadget or an arc stands for.
    static int IndexOf(Widget object);
    Widget WidgetOfNode(int index) { return WidgetOf(index); }
    // Lets what a gesture has made stand for a node or edge that was added to Shown().
    void AdoptNode(Widget gadget, int index);
    void AdoptArc(Widget arc, int index);
    // Show what has changed.
    void RefreshNode(int index);
    void RefreshArc(Widget arc);
    // The node's gadget is about to be destroyed.
    void ForgetNode(int index);
    // Notes the places of all nodes in Shown() if the user has put any of them somewhere.
    void KeepPlaces();
    void LayOutAgain();

    Orientation GetOrientation() const;
    void SetOrientation(Orientation orientation);
    unsigned char ArcDrawMode() const;
    void SetArcDrawMode(unsigned char mode);
    unsigned char LayoutStyle() const;
    void SetLayoutStyle(unsigned char style);
    Spacing GetSpacing() const;
    void SetSpacing(Spacing spacing);
    void Zoom(float factor); // XmGraphZoom
    bool TwinsVisible() const;
    void SetTwinsVisible(bool visible);
    bool Icons() const;
    void SetIcons(bool icons);
    bool ArcLabels() const { return arc_labels; }
    void SetArcLabels(bool labels);

private:
    static void NodeActivated(Widget gadget, XtPointer view, XtPointer);
    static void ButtonPressed(Widget, XtPointer view, XEvent *event, Boolean *);
    static void GraphTooBig(Widget, XtPointer view, XtPointer);
    static Boolean RebuildLater(XtPointer view);

    void ScheduleRebuild();
    void Rebuild();
    void Clear();
    void CreateNodes(const std::vector<int> &nodes);
    void CreateArcs(const std::vector<int> &edges);
    Widget CreateNode(int index);
    bool HidesChildren(int index) const;
    Widget CreateArc(int index);
    void LayOut(unsigned char style);
    void RestorePlaces();
    void TakeOrientation(Orientation orientation);
    void TakeEditing(bool on);
    void TakeLayoutStyle(unsigned char style);
    std::optional<int> OnlySelected() const;
    void UnselectAll();
    void MarkSelected();
    void UnmarkSelected();
    void SetSides();
    Widget &WidgetOf(int node) { return widgets[static_cast<std::size_t>(node)]; }

    std::function<void()> changed;
    Widget graph_widget;
    Colors colors;
    NodeIcons node_icons;
    Graph model;
    std::vector<Widget> widgets;      // by node; null for one that is not in the widget now
    std::vector<bool> hides_children; // by node
    std::optional<int> selected;
    std::optional<Shades> own_shades; // of the selected node
    bool arc_labels = true;
    bool too_big = false;
    std::optional<XtWorkProcId> rebuild;
};

} // namespace graph_browser
