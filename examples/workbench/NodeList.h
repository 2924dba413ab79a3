// The nodes in a list: a picture of the kind, the name, the kind, the numbers of arcs. Its scroll bar shows
// where the hits of the search are.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include <Xm/Xm.h>

#include "Document.h"
#include "History.h"
#include "Pictures.h"
#include "Worker.h"

namespace workbench {

class NodeList {
public:
    NodeList(Widget parent, const Document &document);
    NodeList(const NodeList &) = delete;
    NodeList &operator=(const NodeList &) = delete;

    Widget window() const { return XtParent(list_); }
    Widget list() const { return list_; }
    Widget header() const { return header_; }

    // Another document. The rows come with the worker.
    void Show(Worker &worker);
    // After an edit or its undoing.
    void Update(Worker &worker, const Touched &touched);

    std::vector<int> Selected() const;
    // Brings the first one into sight. Many are selected by the worker.
    void Select(Worker &worker, const std::vector<int> &nodes);
    // The hits of the search, in ascending order; the first one comes into sight.
    void Mark(std::vector<int> hits);
    void BringIntoSight(int node);

    // The user has selected.
    void WhenSelected(std::function<void()> call) { selected_ = std::move(call); }

private:
    static void RowsSelected(Widget, XtPointer closure, XtPointer);
    static void DrawMarks(Widget bar, XtPointer closure, XtPointer call_data);

    void AddRows(std::size_t from, std::size_t to);
    void UpdateRow(int node);
    void SetPolicy(unsigned char policy);
    void SelectRow(int node);
    void SetIcons(const std::vector<int> &nodes);
    void Number(); // positions of all rows
    std::string RowText(int node) const;
    Pixmap IconOf(int node);
    bool IsHit(int node) const;
    int PositionOf(int node) const; // 0 for none

    const Document &document_;
    Widget header_;
    Widget list_;
    Pictures pictures_;
    XmRenderTable table_;
    Pixel background_ = 0;
    Pixel mark_ = 0;
    std::vector<int> rows_; // the node of each, in ascending order
    std::vector<std::string> texts_;
    std::vector<int> positions_; // for each node, from 1; 0 for none
    std::vector<Degree> degrees_;
    std::vector<int> hits_;
    std::function<void()> selected_ = [] {};
};

} // namespace workbench
