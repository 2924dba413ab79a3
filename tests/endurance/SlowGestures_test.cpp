// Gestures of a user on a slow line: events come late and in bursts, grabs are under way while the button is up
// again. What comes of them is the same as on a near display.

#include <tests/endurance/Lives.h>

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>
#include <corvidlmw/managers/HPanedW.h>
#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/ArrowB.h>
#include <Xm/ArrowBG.h>
#include <Xm/SashP.h>
#include <Xm/Text.h>

#include <atomic>
#include <functional>
#include <thread>

namespace corvidlmw::test {
namespace {

using std::chrono::milliseconds;
using Lines = std::vector<std::string>;

struct Step {
    enum { move, press, release, hold, let_go } what;
    int x = 0; // or the button, or the modifiers
    int y = 0;
};
using Script = std::vector<Step>;

Script Dragging(unsigned button, XPoint from, XPoint to, unsigned modifiers = 0) {
    Script script = {{Step::hold, static_cast<int>(modifiers)},
                     {Step::move, from.x, from.y},
                     {Step::press, static_cast<int>(button)}};
    for (int i = 1; i <= 5; i++)
        script.push_back(
            {Step::move, from.x + (to.x - from.x) * i / 5, from.y + (to.y - from.y) * i / 5});
    script.push_back({Step::release, static_cast<int>(button)});
    script.push_back({Step::let_go, static_cast<int>(modifiers)});
    return script;
}

Script Clicking(unsigned button, XPoint at, unsigned modifiers = 0) {
    return {{Step::hold, static_cast<int>(modifiers)},
            {Step::move, at.x, at.y},
            {Step::press, static_cast<int>(button)},
            {Step::release, static_cast<int>(button)},
            {Step::let_go, static_cast<int>(modifiers)}};
}

void Do(const Step &step, XPoint origin) {
    static const auto root = [] { return DefaultRootWindow(XServer::Instance().robot()); };
    const auto number = static_cast<unsigned>(step.x);
    switch (step.what) {
    case Step::move: return input::MovePointer(root(), origin.x + step.x, origin.y + step.y);
    case Step::press: return input::SetButton(number, true);
    case Step::release: return input::SetButton(number, false);
    case Step::hold: return input::SetModifiers(number, true);
    case Step::let_go: return input::SetModifiers(number, false);
    }
}

// How far away the display is, and how fast the user: without a pause each step waits for the client.
struct Way {
    const char *name;
    milliseconds round_trip;
    milliseconds pause;
};
constexpr Way near = {"near", milliseconds(0), milliseconds(0)};
constexpr Way at_once = {"slow, all before the first answer", milliseconds(100), milliseconds(2)};
constexpr Way one_by_one = {"slow, one by one", milliseconds(100), milliseconds(130)};

class SlowGestures : public Stage {
protected:
    using Scene = std::function<Lines()>; // makes it, acts, and tells what has come of it

    // The scene plays near, and in these ways.
    void ExpectTheSame(const Scene &scene, const std::vector<Way> &ways = {at_once, one_by_one}) {
        const Lines expected = Play(near, scene);
        EXPECT_FALSE(expected.empty());
        for (const Way &way : ways) {
            SCOPED_TRACE(way.name);
            EXPECT_EQ(Play(way, scene), expected);
        }
    }

    Lines Play(const Way &way, const Scene &scene) {
        SlowProxy proxy;
        way_ = &way;
        proxy_ = &proxy;
        UseClient(Client(proxy.name()));
        MakeBoard();
        const Lines lines = scene();
        FreeIcon();
        UseClient(Client::Shared());
        return lines;
    }

    // Coordinates are the canvas's, as it lies when the script begins.
    void Run(Widget canvas, const Script &script) {
        Pump();
        Display *robot = XServer::Instance().robot();
        int x = 0;
        int y = 0;
        Window child = None;
        XTranslateCoordinates(robot, XtWindow(canvas), DefaultRootWindow(robot), 0, 0, &x, &y,
                              &child);
        const XPoint origin = {static_cast<short>(x), static_cast<short>(y)};
        proxy_->SetRoundTrip(way_->round_trip);
        if (way_->pause == milliseconds(0)) {
            for (const Step &step : script) {
                Do(step, origin);
                Pump();
            }
        } else {
            RunByHand(script, origin);
        }
        Pump();
        proxy_->SetRoundTrip({});
    }

    void Listen(Widget w, std::initializer_list<const char *> lists) {
        for (const char *list : lists)
            log_.Add(w, list);
    }

    // What was told, without what a drag tells under way: that depends on how many events came at once.
    Lines Heard() {
        Lines lines;
        for (const auto &entry : log_.entries())
            if (entry.list != XmNdragCallback)
                lines.push_back(entry.list + ' ' + std::to_string(entry.reason));
        log_.Clear();
        return lines;
    }

    static std::string PlaceOf(Widget w) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        XtVaGetValues(w, XmNx, &x, XmNy, &y, XmNwidth, &width, XmNheight, &height, nullptr);
        return std::to_string(width) + 'x' + std::to_string(height) + '+' + std::to_string(x) +
               '+' + std::to_string(y);
    }

    const Way *way_ = &near;
    SlowProxy *proxy_ = nullptr;

private:
    void RunByHand(const Script &script, XPoint origin) {
        std::atomic<bool> done = false;
        std::thread hand([&] {
            for (const Step &step : script) {
                Do(step, origin);
                std::this_thread::sleep_for(way_->pause);
            }
            done = true;
        });
        EXPECT_TRUE(PumpUntil([&] {
            Pump();
            return done.load();
        }));
        hand.join();
    }

    CallbackLog<> log_;
};

// ---- Graph ------------------------------------------------------------------------------------------

class SlowGraph : public SlowGestures {
protected:
    // Two rows of three nodes 120 by 100 apart, and an arc from the first to the second.
    void MakeGraph(bool scrolled = false) {
        Arg size[] = {{Name(XmNwidth), 400}, {Name(XmNheight), 300}};
        graph = scrolled ? XmCreateScrolledGraph(board, Name("graph"), nullptr, 0)
                         : XmCreateGraph(board, Name("graph"), size, 2);
        if (scrolled)
            XtSetValues(XtParent(XtParent(graph)), size, 2);
        nodes.clear();
        for (int i = 0; i < 6; i++)
            nodes.push_back(XtVaCreateManagedWidget(
                "node", i == 1 ? xmArrowButtonWidgetClass : xmArrowButtonGadgetClass, graph, XmNx,
                20 + i % 3 * 120, XmNy, 20 + i / 3 * 100, XmNwidth, 60, XmNheight, 40, nullptr));
        XtManageChild(XmCreateAttachedArc(graph, Name("arc"), nodes[0], nodes[1], nullptr, 0));
        Set(graph, {{XmNeditable, True}, {XmNdoubleClickInterval, 0}});
        XtManageChild(graph);
        Listen(graph, {XmNnewArcCallback, XmNnodeMovedCallback, XmNselectNodeCallback,
                       XmNdeselectCallback, XmNselectArcCallback, XmNdefaultActionCallback});
        Pump();
    }

    Lines Result() {
        Lines lines = Heard();
        int count = 0;
        WidgetList all = XmGraphGetNodes(graph, &count);
        for (int i = 0; i < count; i++)
            lines.push_back(PlaceOf(all[i]) +
                            (XmGraphIsSelectedNode(graph, all[i]) ? " selected" : ""));
        WidgetList arcs = XmGraphGetArcs(graph, &count);
        for (int i = 0; i < count; i++) {
            Position x1, y1, x2, y2;
            XmArcGetPos(arcs[i], &x1, &y1, &x2, &y2);
            lines.push_back("arc " + std::to_string(x1) + ' ' + std::to_string(y1) + ' ' +
                            std::to_string(x2) + ' ' + std::to_string(y2));
        }
        return lines;
    }

    Widget graph = nullptr;
    std::vector<Widget> nodes;
};

TEST_F(SlowGraph, SelectsAndDeletes) {
    ExpectTheSame([this] {
        MakeGraph();
        Run(graph, Clicking(Button1, {30, 30}));
        Run(graph, Clicking(Button1, {30, 130}, ControlMask));
        Lines lines = Result();
        XmGraphDestroySelectedArcsOrNodes(graph);
        RunWorkProcs();
        for (const std::string &line : Result())
            lines.push_back(line);
        return lines;
    });
}

TEST_F(SlowGraph, SweepsOutARegion) {
    ExpectTheSame([this] {
        MakeGraph();
        Run(graph, Dragging(Button1, {10, 5}, {230, 90}));
        return Result();
    });
}

TEST_F(SlowGraph, MovesANodeAndASelection) {
    ExpectTheSame([this] {
        MakeGraph();
        Run(graph, Dragging(Button2, {30, 30}, {60, 80}));
        Run(graph, Dragging(Button1, {200, 5}, {390, 90}));
        Run(graph, Dragging(Button2, {270, 40}, {280, 60}));
        return Result();
    });
}

TEST_F(SlowGraph, AddsANode) {
    ExpectTheSame([this] {
        MakeGraph();
        Run(graph, Dragging(Button2, {30, 200}, {150, 220}, ShiftMask));
        return Result();
    });
}

// The line counts once it was seen over the background. Of motions that come all at once a graph takes the last.
TEST_F(SlowGraph, AddsAnArc) {
    ExpectTheSame(
        [this] {
            MakeGraph();
            Run(graph, Dragging(Button2, {30, 130}, {290, 130}, ShiftMask));
            return Result();
        },
        {one_by_one});
}

TEST_F(SlowGraph, FollowsItsOverview) {
    ExpectTheSame([this] {
        MakeGraph(true);
        Set(nodes[5], {{XmNx, 1500}, {XmNy, 1200}});
        XmGraphAdjustSize(graph);
        Widget overview = XmGraphCreateOverView(graph, board);
        Set(overview, {{XmNx, 500}, {XmNwidth, 200}, {XmNheight, 150}});
        XtManageChild(overview);
        Run(overview, Dragging(Button1, {10, 10}, {110, 80}));
        return Lines{PlaceOf(graph)};
    });
}

// ---- List and scroll bar ----------------------------------------------------------------------------

class SlowList : public SlowGestures {
protected:
    Widget MakeList() {
        Widget list = LmCreateScrolledList(board, Name("list"), nullptr, 0);
        for (int i = 0; i < 60; i++) {
            const std::string text = "row " + std::to_string(i);
            const Strings row({text.c_str()});
            LmListAddItem(list, row[0], 0);
        }
        Set(list, {{XmNselectionPolicy, XmEXTENDED_SELECT}, {XmNvisibleItemCount, 10}});
        XtManageChild(list);
        Listen(list, {XmNextendedSelectionCallback});
        Pump();
        return list;
    }
    Lines Selected(Widget list) {
        Lines lines = Heard();
        int *positions = nullptr;
        int count = 0;
        if (LmListGetSelectedPos(list, &positions, &count))
            for (int i = 0; i < count; i++)
                lines.push_back(std::to_string(positions[i]));
        XtFree(reinterpret_cast<char *>(positions));
        return lines;
    }
    static Widget BarOf(Widget list) {
        Widget bar = nullptr;
        XtVaGetValues(list, XmNverticalScrollBar, &bar, nullptr);
        return bar;
    }
    static std::string ValueOf(Widget bar) {
        int value = 0;
        XtVaGetValues(bar, XmNvalue, &value, nullptr);
        return std::to_string(value);
    }
};

TEST_F(SlowList, SelectsARangeByADrag) {
    ExpectTheSame([this] {
        Widget list = MakeList();
        Run(list, Dragging(Button1, {20, 25}, {20, 80}));
        Run(list, Clicking(Button1, {20, 120}, ControlMask));
        return Selected(list);
    });
}

TEST_F(SlowList, ScrollsByADrag) {
    ExpectTheSame([this] {
        Widget list = MakeList();
        Widget bar = BarOf(list);
        Listen(bar, {XmNvalueChangedCallback, XmNdragCallback});
        Run(bar, Dragging(Button1, {7, 25}, {7, 75}));
        Lines lines = Heard();
        int top = 0;
        XtVaGetValues(list, XmNtopItemPosition, &top, nullptr);
        lines.push_back(ValueOf(bar) + ' ' + std::to_string(top));
        return lines;
    });
}

// How many steps it takes depends on when the release arrives; that it ends does not.
TEST_F(SlowList, RepetitionEndsWithTheRelease) {
    ExpectTheSame([this] {
        Widget bar = SvCreateScrollBar(board, Name("bar"), nullptr, 0);
        Set(bar, {{XmNwidth, 15},
                  {XmNheight, 200},
                  {XmNinitialDelay, 20},
                  {XmNrepeatDelay, 5},
                  {XmNmaximum, 30000}});
        XtManageChild(bar);
        Run(bar, {{Step::move, 7, 195}, {Step::press, Button1}});
        const bool began = PumpUntil([&] { return std::stoi(ValueOf(bar)) > 5; });
        Run(bar, {{Step::release, Button1}});
        RunWorkProcs();
        const std::string value = ValueOf(bar);
        LetTimePass(milliseconds(60));
        RunWorkProcs();
        return Lines{began ? "repeated" : "stood still",
                     ValueOf(bar) == value ? "ended" : "goes on"};
    });
}

TEST_F(SlowList, IsDraggedAndDropped) {
    ExpectTheSame([this] {
        Widget list = MakeList();
        Widget text =
            XtVaCreateManagedWidget("text", xmTextWidgetClass, board, XmNx, 300, XmNeditMode,
                                    XmMULTI_LINE_EDIT, XmNrows, 10, XmNcolumns, 30, nullptr);
        Pump();
        proxy_->SetRoundTrip(way_->round_trip);
        DragAndDrop(
            list, {20, 25}, text, {40, 40}, Button2,
            [&] { return XmTextGetLastPosition(text) != 0; },
            milliseconds(30) + 3 * way_->round_trip);
        proxy_->SetRoundTrip({});
        char *dropped = XmTextGetString(text);
        const Lines lines = {dropped};
        XtFree(dropped);
        return lines;
    });
}

// ---- Paned window -----------------------------------------------------------------------------------

TEST_F(SlowGestures, ASashIsDragged) {
    ExpectTheSame([this] {
        Arg size[] = {{Name(XmNwidth), 300}, {Name(XmNheight), 100}};
        Widget panes = XmCreateHorzPanedWindow(board, Name("panes"), size, 2);
        std::vector<Widget> children;
        for (int i = 0; i < 3; i++)
            children.push_back(XtVaCreateManagedWidget("pane", xmArrowButtonWidgetClass, panes,
                                                       XmNwidth, 90, nullptr));
        XtManageChild(panes);
        Pump();
        WidgetList all = nullptr;
        Cardinal count = 0;
        XtVaGetValues(panes, XmNchildren, &all, XmNnumChildren, &count, nullptr);
        Widget sash =
            *std::find_if(all, all + count, [](Widget w) { return XmIsSash(w) && XtIsManaged(w); });
        Run(sash, Dragging(Button1, {3, 3}, {33, 3}));
        Lines lines;
        for (Widget child : children)
            lines.push_back(PlaceOf(child));
        return lines;
    });
}

} // namespace
} // namespace corvidlmw::test
