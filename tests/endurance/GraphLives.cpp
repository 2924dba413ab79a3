#include <tests/endurance/Lives.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include <X11/keysym.h>
#include <Xm/ArrowB.h>
#include <Xm/DrawingA.h>
#include <Xm/ScrolledW.h>
#include <Xm/SeparatoG.h>

#include <string>

namespace corvidlmw::test {

namespace {

using Nodes = std::vector<Widget>;

// Six nodes, windows and gadgets, in two rows. Only our gadgets have text: for the toolkit's it makes a
// drawable in each window that it never frees.
Nodes AddNodes(Stage &stage, Widget parent) {
    Nodes nodes;
    const Strings label({"a node"});
    for (int i = 0; i < 6; i++) {
        WidgetClass node_class = i == 1   ? xmArrowButtonWidgetClass
                                 : i == 2 ? xmvIconGadgetClass
                                          : xmSeparatorGadgetClass;
        nodes.push_back(XtVaCreateManagedWidget(
            "node", node_class, parent, XmNlabelString, label[0], XmNlabelPixmap, stage.icon, XmNx,
            20 + i % 3 * 120, XmNy, 20 + i / 3 * 100, XmNwidth, 60, XmNheight, 40, XmNrecomputeSize,
            False, nullptr));
    }
    return nodes;
}

void UseByPointer(Stage &stage, Widget w, const Nodes &nodes) {
    stage.Click(nodes[0], 5, 5);
    stage.Click(nodes[1], 5, 5);
    stage.Drag(w, {5, 5}, {200, 150});
    stage.Click(nodes[0], 5, 5, Button1, ControlMask);
    Set(w, {{XmNwidth, 900}, {XmNheight, 700}});
    stage.Pump();
    stage.Click(w, 8, 60, Button3);
}

// What the second button does in an editable graph; on a button it would start a drag to elsewhere.
void EditByPointer(Stage &stage, Widget graph, const Nodes &nodes) {
    Set(graph, {{XmNeditable, True},
                {XmNdoubleClickInterval, 0},
                {XmNdefaultNodeClass, reinterpret_cast<XtArgVal>(xmSeparatorGadgetClass)}});
    UseByPointer(stage, graph, nodes);
    stage.Drag(nodes[3], {5, 5}, {45, 25}, Button2);
    stage.Drag(nodes[4], {5, 5}, {125, 5}, Button2, ShiftMask);
    stage.Drag(graph, {10, 100}, {10, 110}, Button2, ShiftMask);
}

void AddArcs(Widget graph, const Nodes &nodes) {
    for (std::size_t i = 1; i < nodes.size(); i++) {
        Widget arc =
            XmCreateAttachedArc(graph, Name("arc"), nodes[(i - 1) / 2], nodes[i], nullptr, 0);
        XtManageChild(arc);
    }
    Widget twin = XmCreateAttachedArc(graph, Name("twin"), nodes[0], nodes[1], nullptr, 0);
    Widget loop = XmCreateAttachedArc(graph, Name("loop"), nodes[5], nodes[5], nullptr, 0);
    XtManageChild(twin);
    XtManageChild(loop);
}

void UseGraphResources(Widget graph) {
    SetByText(graph, {{XmNhighlightColor, "red"},
                      {XmNorientation, "vertical"},
                      {XmNarcDrawMode, "position_relative"},
                      {XmNlayoutStyle, "butterfly"},
                      {XmNlayoutStyle, "graph"},
                      {XmNptrCursor, "hand1"},
                      {XmNmotionCursor, "gobbler"},
                      {XmNtwinsVisible, "False"},
                      {XmNtwinsVisible, "True"},
                      {XmNchildSpacing, "30"},
                      {XmNautoLayoutMode, "never"}});
}

void UseGraphFunctions(Stage &stage, Widget graph, const Nodes &nodes) {
    XmGraphInsertRoots(graph, const_cast<WidgetList>(nodes.data()), 1);
    XmGraphLayout(graph);
    XmGraphRelaySubgraph(graph, nodes[1]);
    XmGraphSelectSubtree(graph, nodes[0], True);
    XmGraphMoveAll(graph, 10, 10);
    XmGraphCenterAroundWidget(graph, nodes[5]);
    XmGraphZoom(graph, 2);
    XmGraphShowCoverWindow(graph);
    XmGraphHideCoverWindow(graph);
    int count = 0;
    XtFree(reinterpret_cast<char *>(XmGraphGetArcsBetweenNodes(graph, nodes[0], nodes[1], &count)));
    static const std::string paper = ::testing::TempDir() + "corvidlmw_endurance.ps";
    XmGraphPrint(graph, paper.c_str());
    std::remove(paper.c_str());
    stage.Pump();
}

Widget UseOverview(Stage &stage, Widget graph) {
    Widget overview = XmGraphCreateOverView(graph, stage.board);
    XtVaSetValues(overview, XmNx, 500, XmNwidth, 200, XmNheight, 150, nullptr);
    XtManageChild(overview);
    stage.Pump();
    stage.Drag(overview, {10, 10}, {90, 60});
    SetByText(graph, {{XmNoverviewNodeColor, "blue"}, {XmNshowOverviewArcs, "False"}});
    stage.Pump();
    return overview;
}

// Ends with a part of it gone and the rest to go with the graph.
void LiveOurGraph(Stage &stage) {
    Widget graph = XmCreateScrolledGraph(stage.board, Name("graph"), nullptr, 0);
    Set(XtParent(XtParent(graph)), {{XmNwidth, 400}, {XmNheight, 300}});
    const Nodes nodes = AddNodes(stage, graph);
    AddArcs(graph, nodes);
    XtManageChild(graph);
    stage.Pump();
    UseCommonResources(graph);
    UseGraphResources(graph);
    SetByText(nodes[2], {{XmNmarkColor, "red"}});
    UseByPointer(stage, graph, nodes);
    EditByPointer(stage, graph, nodes);
    UseGraphFunctions(stage, graph, nodes);
    Widget overview = UseOverview(stage, graph);
    UseKeyboard(stage, graph);
    XmGraphDestroySelectedArcsOrNodes(graph);
    XmGraphAddNode(graph);
    stage.RunWorkProcs();
    XtDestroyWidget(overview);
    End(stage, XtParent(XtParent(graph)));
}

void LiveDrawingArea(Stage &stage) {
    Widget scrolled =
        XtVaCreateManagedWidget("graphSW", xmScrolledWindowWidgetClass, stage.board, XmNwidth, 400,
                                XmNheight, 300, XmNscrollingPolicy, XmAUTOMATIC, nullptr);
    Widget area = XmCreateDrawingArea(scrolled, Name("area"), nullptr, 0);
    const Nodes nodes = AddNodes(stage, area);
    XtManageChild(area);
    stage.Pump();
    UseCommonResources(area);
    UseByPointer(stage, area, nodes);
    UseByPointer(stage, area, nodes);
    UseKeyboard(stage, area);
    XtDestroyWidget(nodes[3]);
    stage.RunWorkProcs();
    End(stage, scrolled);
}

// ---- Arcs -------------------------------------------------------------------------------------------

const char *const both_ends[] = {"one", "two"};

// The board of the lines stands for all rounds, its buttons too.
Widget BoardOfLines(Stage &stage, const char *name, WidgetClass board_class) {
    if (Widget known = XtNameToWidget(stage.board, name))
        return known;
    Widget board = XtVaCreateManagedWidget(name, board_class, stage.board, XmNwidth, 400, XmNheight,
                                           300, nullptr);
    Position x = 20;
    for (const char *end : both_ends) {
        XtVaCreateManagedWidget(end, xmSeparatorGadgetClass, board, XmNx, x, XmNy, 50, nullptr);
        x = static_cast<Position>(x + 200);
    }
    stage.Pump();
    return board;
}

void UseArcResources(Stage &stage, Widget arc) {
    const Strings label({"a label"});
    SetByText(arc, {{XmNforeground, "navy"},
                    {XmNhighlight, "True"},
                    {XmNfontList, "9x15"},
                    {XmNarcDirection, "bidirected"},
                    {XmNstyle, "LineOnOffDash"},
                    {XmNcapStyle, "CapRound"},
                    {XmNarcWidth, "4"}});
    Set(arc, {{XmNlabelString, label.Value()}, {XmNmapLabel, True}, {XmNdashes, 3}});
    stage.Pump();
    SetByText(arc, {{XmNstyle, "LineSolid"}, {XmNfontList, "fixed"}});
    stage.Pump();
}

void LiveOurArc(Stage &stage) {
    Widget graph = BoardOfLines(stage, "arcs", xmGraphWidgetClass);
    Widget ends[] = {XtNameToWidget(graph, both_ends[0]), XtNameToWidget(graph, both_ends[1])};
    Widget arc = XmCreateAttachedArc(graph, Name("arc"), ends[0], ends[1], nullptr, 0);
    Widget twin = XmCreateAttachedArc(graph, Name("arc"), ends[0], ends[1], nullptr, 0);
    XtManageChild(arc);
    XtManageChild(twin);
    stage.Pump();
    UseArcResources(stage, arc);
    Position x1, y1, x2, y2;
    XmArcGetPos(twin, &x1, &y1, &x2, &y2);
    stage.Click(graph, (x1 + x2) / 2, (y1 + y2) / 2);
    XmGraphSelectArc(graph, arc, True);
    XDestroyRegion(XmArcGetRegion(arc));
    Set(arc, {{XmNto, reinterpret_cast<XtArgVal>(ends[0])}});
    stage.Pump();
    XtDestroyWidget(twin);
    End(stage, arc);
}

void LiveSeparators(Stage &stage) {
    Widget board = BoardOfLines(stage, "lines", xmBulletinBoardWidgetClass);
    for (int i = 0; i < 2; i++) {
        Widget line = XtVaCreateManagedWidget("line", xmSeparatorGadgetClass, board, XmNx, 100,
                                              XmNy, 60 + 10 * i, XmNwidth, 100, nullptr);
        Set(line, {{XmNseparatorType, XmSINGLE_DASHED_LINE}});
        Set(line, {{XmNseparatorType, XmSHADOW_ETCHED_IN}});
        stage.Click(board, 150, 60);
        End(stage, line);
    }
}

} // namespace

void LiveGraph(Stage &stage, Whose whose) {
    whose == Whose::ours ? LiveOurGraph(stage) : LiveDrawingArea(stage);
}

void LiveArc(Stage &stage, Whose whose) {
    whose == Whose::ours ? LiveOurArc(stage) : LiveSeparators(stage);
}

} // namespace corvidlmw::test
