// editor-session FILE DIRECTORY: edits a DOT file as a user would, and leaves pictures.
//
// Everything goes through the server's test extension; only where things are is asked of the
// widgets. FILE is saved over: hand it a copy. The pictures editor-1-... to editor-5-... go to
// DIRECTORY. The exit status is 0 if every step had its effect and the saved file says the same.

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <stdexcept>
#include <variant>

#include <X11/keysym.h>
#include <Xm/Xm.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

#include <Application.h>
#include <BrowserWindow.h>
#include <DotReader.h>

#include "Robot.h"

namespace editor_session {
namespace {

using graph_browser::BrowserWindow;
using graph_browser::Edge;
using graph_browser::Graph;

struct Point {
    int x;
    int y;
};

void Check(bool held, const std::string &what) {
    if (!held)
        throw std::runtime_error{what};
}

Point PlaceOf(Widget node) {
    Position x = 0;
    Position y = 0;
    XtVaGetValues(node, XmNx, &x, XmNy, &y, nullptr);
    return {x, y};
}

Point MiddleOf(Widget node) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(node, XmNwidth, &width, XmNheight, &height, nullptr);
    const Point place = PlaceOf(node);
    return {place.x + width / 2, place.y + height / 2};
}

// ---- The session -------------------------------------------------------------

class Session {
public:
    Session(XtAppContext app, Widget of_shell, std::string of_file, std::string directory)
        : shell(of_shell), file(std::move(of_file)), pictures(std::move(directory)),
          window(shell, [this] { quit = true; }), robot(app, DisplayString(XtDisplay(shell))) {
        auto result = graph_browser::ReadDotFile(file);
        auto *read = std::get_if<Graph>(&result);
        Check(read != nullptr, "cannot read " + file);
        window.Show(file, std::move(*read));
        XtRealizeWidget(shell);
        graph = window.View().GraphWidget();
        robot.Wait(500);
        robot.Focus(shell);
    }

    void Run();

private:
    Graph &Shown() { return window.View().Shown(); }
    int Index(const std::string &label);
    Widget NodeWidget(const std::string &label) { return window.View().WidgetOfNode(Index(label)); }
    Widget ArcBetween(const std::string &from, const std::string &to);
    bool OverNode(Point at); // or near one
    bool IsFree(Point at);
    Point FreePlaceBelow(Widget node);
    Point NearHead(Widget arc, Widget from, Widget to);

    void Command(KeySym key);
    void MoveTo(Point at) { robot.MoveTo(graph, at.x, at.y); }
    void Drag(Point from, Point to, unsigned button);
    void Picture(const char *name);
    std::size_t Nodes() { return NodesOf(Shown()).size(); }
    std::size_t Arcs() { return EdgesOf(Shown()).size(); }

    void Select();
    void Sweep();
    void DragNode();
    void DragArcEnd();
    void AddNode();
    void AddArc();
    void Delete();
    void Save();

    Widget shell;
    Widget graph = nullptr;
    std::string file;
    std::string pictures;
    bool quit = false;
    BrowserWindow window;
    Robot robot;
};

int Session::Index(const std::string &label) {
    for (const int index : NodesOf(Shown()))
        if (Shown().NodeAt(index).label == label)
            return index;
    throw std::runtime_error{"no node " + label};
}

Widget Session::ArcBetween(const std::string &from, const std::string &to) {
    int count = 0;
    const WidgetList arcs =
        XmGraphGetArcsBetweenNodes(graph, NodeWidget(from), NodeWidget(to), &count);
    const Widget arc = count > 0 ? arcs[0] : nullptr;
    XtFree(reinterpret_cast<char *>(arcs));
    Check(arc != nullptr, "no arc from " + from + " to " + to);
    return arc;
}

bool Session::OverNode(Point at) {
    constexpr int margin = 12;
    int count = 0;
    const WidgetList nodes = XmGraphGetNodes(graph, &count);
    for (int i = 0; i < count; ++i) {
        const Point corner = PlaceOf(nodes[i]);
        const Point middle = MiddleOf(nodes[i]);
        if (std::abs(at.x - middle.x) < middle.x - corner.x + margin &&
            std::abs(at.y - middle.y) < middle.y - corner.y + margin)
            return true;
    }
    return false;
}

bool Session::IsFree(Point at) {
    return !OverNode(at) && !XmGraphInputOverArc(graph, at.x, at.y);
}

Point Session::FreePlaceBelow(Widget node) {
    Point at = MiddleOf(node);
    while (!IsFree(at) || !IsFree({at.x + 100, at.y}))
        at.y += 8;
    return at;
}

// A point of the arc that is nearer to its head, and over no node.
Point Session::NearHead(Widget arc, Widget from, Widget to) {
    const Point start = MiddleOf(from);
    const Point end = MiddleOf(to);
    for (int percent = 90; percent > 50; --percent) {
        const Point at{start.x + (end.x - start.x) * percent / 100,
                       start.y + (end.y - start.y) * percent / 100};
        for (int dy = -60; dy <= 60; ++dy)
            if (const Point near{at.x, at.y + dy};
                XmGraphInputOverArc(graph, near.x, near.y) == arc && !OverNode(near))
                return near;
    }
    throw std::runtime_error{"the arc is nowhere to be grasped"};
}

// ---- Input -------------------------------------------------------------------

void Session::Command(KeySym key) {
    robot.Hold(XK_Control_L);
    robot.Key(key);
    robot.LetGo(XK_Control_L);
    robot.Wait(50);
}

void Session::Drag(Point from, Point to, unsigned button) {
    constexpr int steps = 8;
    MoveTo(from);
    robot.Press(button);
    for (int step = 1; step <= steps; ++step)
        MoveTo({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
}

void Session::Picture(const char *name) {
    char window_id[32];
    std::snprintf(window_id, sizeof window_id, "0x%lx", XtWindow(shell));
    const std::string target = pictures + "/" + name + ".png";
    robot.Wait(100);
    setenv("SESSION_PICTURE", target.c_str(), 1);
    setenv("SESSION_WINDOW", window_id, 1);
    Check(std::system("import -window \"$SESSION_WINDOW\" \"$SESSION_PICTURE\"") == 0,
          "no picture " + target);
    std::cout << target << '\n';
}

// ---- Steps -------------------------------------------------------------------

void Session::Select() {
    const Widget node = NodeWidget("corvidlmw_objects");
    MoveTo(MiddleOf(node));
    robot.Press(Button1);
    robot.Release(Button1);
    Check(XmGraphNumSelectedNodes(graph) == 1 && XmGraphIsSelectedNode(graph, node),
          "a click selects the node");
}

void Session::Sweep() {
    const Point first = PlaceOf(NodeWidget("X11::ICE"));
    const Point last = MiddleOf(NodeWidget("X11::SM"));
    Drag({first.x + 120, first.y - 30}, {last.x - 60, last.y + 60}, Button1);
    Picture("editor-2-sweep");
    robot.Release(Button1);
    Check(XmGraphNumSelectedNodes(graph) > 1, "a sweep selects the nodes in it");
}

void Session::DragNode() {
    const Widget node = NodeWidget("Threads::Threads");
    const Point before = PlaceOf(node);
    const Point middle = MiddleOf(node);
    Drag(middle, {middle.x + 90, middle.y - 40}, Button2);
    robot.Release(Button2);
    const Point after = PlaceOf(node);
    Check(after.x == before.x + 90 && after.y == before.y - 40, "a drag moves the node");
}

void Session::DragArcEnd() {
    const Widget arc = ArcBetween("X11::Xt", "X11::SM");
    const Point grasp = NearHead(arc, NodeWidget("X11::Xt"), NodeWidget("X11::SM"));
    Drag(grasp, MiddleOf(NodeWidget("X11::xcb")), Button2);
    Picture("editor-3-arc-end");
    robot.Release(Button2);
    const Edge &edge = Shown().EdgeAt(graph_browser::GraphView::IndexOf(arc));
    Check(edge.to == Index("X11::xcb"), "a drag of an arc's end moves it");
}

void Session::AddNode() {
    const std::size_t before = Nodes();
    const Point place = FreePlaceBelow(NodeWidget("X11::SM"));
    robot.Hold(XK_Shift_L);
    Drag({place.x - 20, place.y}, place, Button2);
    robot.Release(Button2);
    robot.LetGo(XK_Shift_L);
    const Widget prompt = XtNameToWidget(shell, "*textPrompt");
    Check(prompt != nullptr && Nodes() == before + 1, "Shift and button 2 add a node");
    robot.Wait(100);
    robot.Focus(XtParent(prompt));
    robot.Type("X11::Xcursor");
    robot.Key(XK_Return);
    robot.Wait(100);
    robot.Focus(shell);
    Check(Shown().nodes.back().name == "X11::Xcursor", "the node takes the name typed");
}

void Session::AddArc() {
    const std::size_t before = Arcs();
    robot.Hold(XK_Shift_L);
    Drag(MiddleOf(NodeWidget("X11::Xt")), MiddleOf(NodeWidget("X11::Xcursor")), Button2);
    robot.Release(Button2);
    robot.LetGo(XK_Shift_L);
    Check(Arcs() == before + 1, "Shift and button 2 from node to node add an arc");
}

void Session::Delete() {
    const std::size_t before = Nodes();
    const Widget node = NodeWidget("Custom Target");
    MoveTo(MiddleOf(node));
    robot.Press(Button1);
    robot.Release(Button1);
    robot.Wait(50);
    robot.Key(XK_Delete);
    robot.Wait(50);
    Check(Nodes() == before - 1, "Delete removes what is selected");
}

void Session::Save() {
    Check(Shown().changed, "the graph counts as changed");
    Command(XK_s);
    Check(!Shown().changed, "Ctrl+S saves");
    const auto again = graph_browser::ReadDotFile(file);
    const auto *saved = std::get_if<Graph>(&again);
    Check(saved != nullptr, "the saved file can be read");
    Check(saved->nodes.size() == Nodes() && saved->edges.size() == Arcs(),
          "the saved file has the same nodes and arcs");
}

void Session::Run() {
    Command(XK_e);
    Check(window.View().Editing(), "Ctrl+E turns edit mode on");
    Picture("editor-1-before");
    Select();
    Sweep();
    DragNode();
    DragArcEnd();
    AddNode();
    AddArc();
    Delete();
    Picture("editor-4-after");
    Save();
    Command(XK_q);
    Check(quit, "Ctrl+Q quits without a question");
}

int Main(int argc, char **argv) {
    XtAppContext app = nullptr;
    const Widget shell = graph_browser::OpenApplication(app, nullptr, 0, argc, argv);
    if (argc != 3) {
        std::cerr << "usage: editor-session FILE DIRECTORY\n";
        return 2;
    }
    Session session{app, shell, argv[1], argv[2]};
    session.Run();
    XtDestroyWidget(shell);
    return 0;
}

} // namespace
} // namespace editor_session

int main(int argc, char **argv) {
    try {
        return editor_session::Main(argc, argv);
    } catch (const std::exception &error) {
        std::cerr << "editor-session: not so: " << error.what() << '\n';
        return 1;
    }
}
