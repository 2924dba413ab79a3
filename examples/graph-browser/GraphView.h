#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "Colors.h"
#include "DotGraph.h"

namespace graph_browser {

struct Spacing {
    int child;
    int sibling;
    bool operator==(const Spacing &) const = default;
};

// A DOT graph in a scrolled XmGraph: a push button gadget for each node, an arc for each edge. What
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
    const Graph &Shown() const { return model; }
    std::optional<int> Selected() const { return selected; }
    bool TooBig() const { return too_big; } // larger than a window can be

    void Show(Graph graph);
    void Select(std::optional<int> node);
    // The node of this name, else the first with this label; false if there is none.
    bool SelectByName(const std::string &name);
    // Brings the selected node into sight, or the first one; a realised view only.
    void ScrollToSelected();

    Orientation GetOrientation() const;
    void SetOrientation(Orientation orientation);
    unsigned char ArcDrawMode() const;
    void SetArcDrawMode(unsigned char mode);
    unsigned char LayoutStyle() const;
    void SetLayoutStyle(unsigned char style);
    Spacing GetSpacing() const;
    void SetSpacing(Spacing spacing);
    bool TwinsVisible() const;
    void SetTwinsVisible(bool visible);
    bool ArcLabels() const { return arc_labels; }
    void SetArcLabels(bool labels);

private:
    static void NodeActivated(Widget gadget, XtPointer view, XtPointer);
    static void GraphTooBig(Widget, XtPointer view, XtPointer);
    static Boolean RebuildLater(XtPointer view);

    void ScheduleRebuild();
    void Rebuild();
    void Clear();
    void CreateNodes(const std::vector<int> &nodes);
    void CreateArcs(const std::vector<int> &edges);
    Widget CreateNode(int index);
    Widget CreateArc(const Edge &edge);
    void LayOut(unsigned char style);
    void MarkSelected();
    void UnmarkSelected();
    void SetSides();
    Widget &WidgetOf(int node) { return widgets[static_cast<std::size_t>(node)]; }

    std::function<void()> changed;
    Widget graph_widget;
    Colors colors;
    Graph model;
    std::vector<Widget> widgets; // by node; null for one that is not in the widget now
    std::optional<int> selected;
    std::optional<Shades> own_shades; // of the selected node
    bool arc_labels = true;
    bool too_big = false;
    std::optional<XtWorkProcId> rebuild;
};

} // namespace graph_browser
