// A graph in a scrolled window of 400 by 300, beside which there is room for an overview.
#pragma once

#include <tests/graph/GraphTest.h>

#include <Xm/BulletinB.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

namespace corvidlmw::test {

struct BarState {
    int value = 0;
    int slider_size = 0;
    int increment = 0;
    int page_increment = 0;
    int last = 0; // the largest value
};

class ScrolledGraph : public GraphTest {
protected:
    explicit ScrolledGraph(int width = 800, int height = 500) : GraphTest(width, height) {}

    void SetUp() override {
        GraphTest::SetUp();
        for (const char *line : {"*background: white", "*foreground: black",
                                 "*overview.background: grey90", "*graph.overviewNodeColor: blue"})
            SetResource(line);
        board =
            XtVaCreateManagedWidget("board", xmBulletinBoardWidgetClass, shell, XmNmarginWidth, 0,
                                    XmNmarginHeight, 0, XmNresizePolicy, XmRESIZE_NONE, nullptr);
        MakeScrolledGraph();
    }

    void MakeScrolledGraph() {
        graph = XmCreateScrolledGraph(board, Name("graph"), nullptr, 0);
        scrolled = XtParent(XtParent(graph));
        XtVaSetValues(scrolled, XmNwidth, 400, XmNheight, 300, nullptr);
    }

    // A grid of nodes of 60 by 30, each with an arc to the next one.
    Widgets Grid(int columns, int rows, int step_x = 100, int step_y = 60) {
        Widgets nodes;
        for (int i = 0; i < columns * rows; i++)
            nodes.push_back(Node({}, {i % columns * step_x, i / columns * step_y}, false));
        XtManageChildren(nodes.data(), static_cast<Cardinal>(nodes.size()));
        Widgets arcs;
        for (size_t i = 1; i < nodes.size(); i++)
            arcs.push_back(UnmanagedArc(nodes[i - 1], nodes[i]));
        if (!arcs.empty())
            XtManageChildren(arcs.data(), static_cast<Cardinal>(arcs.size()));
        return nodes;
    }

    void ShowGraph() {
        XmGraphAdjustSize(graph);
        XtManageChild(graph);
        Show();
    }

    Widget Bar(const char *which) { return reinterpret_cast<Widget>(ValueOf(scrolled, which)); }
    BarState StateOf(const char *which) {
        BarState state;
        XmScrollBarGetValues(Bar(which), &state.value, &state.slider_size, &state.increment,
                             &state.page_increment);
        state.last = static_cast<int>(ValueOf(Bar(which), XmNmaximum)) - state.slider_size;
        return state;
    }
    // What the bars stand at.
    Place Scrolled() {
        return {StateOf(XmNhorizontalScrollBar).value, StateOf(XmNverticalScrollBar).value};
    }
    Place FarEnd() {
        return {StateOf(XmNhorizontalScrollBar).last, StateOf(XmNverticalScrollBar).last};
    }
    void ScrollBars(Place to) {
        const BarState x = StateOf(XmNhorizontalScrollBar);
        const BarState y = StateOf(XmNverticalScrollBar);
        XmScrollBarSetValues(Bar(XmNverticalScrollBar), to.y, y.slider_size, y.increment,
                             y.page_increment, True);
        XmScrollBarSetValues(Bar(XmNhorizontalScrollBar), to.x, x.slider_size, x.increment,
                             x.page_increment, True);
        Pump();
    }

    Widget board = nullptr;
    Widget scrolled = nullptr;
};

} // namespace corvidlmw::test
