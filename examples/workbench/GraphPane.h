// The nodes of a document as icon gadgets in an editable XmGraph, its edges as arcs. What takes long is done
// by the worker.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <Xm/Xm.h>

#include <corvidlmw/graph/Graph.h>

#include <Colors.h>

#include "Document.h"
#include "History.h"
#include "Pictures.h"
#include "Worker.h"

namespace workbench {

class GraphPane {
public:
    GraphPane(Widget parent, Document &document, Worker &worker);
    GraphPane(const GraphPane &) = delete;
    GraphPane &operator=(const GraphPane &) = delete;

    Widget graph() const { return graph_; }
    Widget window() const { return XtParent(XtParent(graph_)); }
    bool is_too_big() const { return too_big_; } // larger than a window can be

    // Destroys all that is shown, before the document becomes another one.
    void Clear();
    // Another document. Node places become those of the layout, unless the document has its own.
    void Show();
    // After an edit or its undoing.
    void Update(const Touched &touched);
    // New places for all nodes; they are on the screen then, and not yet in the document.
    void LayOut();
    void Zoom(float factor);
    void Turn(); // from left to right, or from top to bottom
    bool IsHorizontal() const;

    std::vector<int> Selected() const;
    void Select(const std::vector<int> &nodes);
    void Mark(const std::vector<int> &hits);
    void BringIntoSight(int node);

    // What a gesture has made stands for this node or edge from now on.
    void AdoptNode(Widget gadget, int node);
    void AdoptArc(Widget arc, int edge);
    // Where the node is on the screen; none without a gadget.
    std::optional<Place> PlaceOf(int node) const;
    // The document takes over the places on the screen, as no edit.
    void KeepPlaces();

private:
    static void TooBig(Widget, XtPointer closure, XtPointer);

    void HideRemoved(const Touched &touched);
    void RemoveArc(int edge);
    void RemoveNode(int node);
    void MakeNode(int node);
    void MakeArc(int edge);
    void ManageNew();
    void Arrange();
    void PutInPlace(int node);
    Widget NodeAt(int node) const;
    Widget ArcAt(int edge) const;
    void FitTables();
    graph_browser::Orientation GetOrientation() const;

    Document &document_;
    Worker &worker_;
    Widget graph_;
    graph_browser::Colors colors_;
    Pictures pictures_;
    Pixel background_ = 0;
    Pixel mark_ = 0;
    std::vector<Widget> nodes_; // by node; null for one that is not shown
    std::vector<Widget> arcs_;
    std::vector<Widget> unmanaged_; // new gadgets and arcs
    std::vector<Degree> degrees_;
    std::vector<int> hits_;
    bool too_big_ = false;
};

} // namespace workbench
