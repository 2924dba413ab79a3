// Widgets that end where no client should end them: in the middle of a gesture, within their own callbacks, or
// with their application context, which takes nobody along.

#include <tests/conformance/Bed.h>
#include <tests/endurance/Lives.h>

#include <corvidlmw/gadget/IconG.h>
#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>
#include <corvidlmw/list/LmList.h>

#include <X11/keysym.h>
#include <Xm/PushBG.h>

#include <deque>
#include <functional>

namespace corvidlmw::test {
namespace {

class SuddenEnds : public Stage, public ::testing::WithParamInterface<Pair> {
protected:
    void TearDown() override {
        input::Reset();
        Stage::TearDown();
    }

    bool IsGraph() const { return GetParam().our_class == xmGraphWidgetClass; }

    // Its nodes are gadgets: the toolkit's buttons begin drags of their own.
    static Widget MakeGraph(Widget parent, ArgList args, Cardinal count) {
        Widget graph = XmCreateGraph(parent, Name("subject"), args, count);
        XtVaSetValues(graph, XmNeditable, True, XmNmovableNodes, True, nullptr);
        std::vector<Widget> nodes;
        for (const char *name : {"one", "two", "three"})
            nodes.push_back(XtVaCreateManagedWidget(name, xmPushButtonGadgetClass, graph, nullptr));
        XtManageChild(XmCreateAttachedArc(graph, Name("arc"), nodes[0], nodes[1], nullptr, 0));
        XmGraphLayout(graph);
        return graph;
    }

    // In a shell of its own.
    Widget Make() {
        end_ = MakeShell(display, "end", 400, 300);
        ground_ = XtVaCreateManagedWidget("ground", xmBulletinBoardWidgetClass, end_,
                                          XmNmarginWidth, 0, XmNmarginHeight, 0, nullptr);
        Arg args[] = {
            {Name(XmNx), 10}, {Name(XmNy), 10}, {Name(XmNwidth), 200}, {Name(XmNheight), 150}};
        Widget w = IsGraph() ? MakeGraph(ground_, args, XtNumber(args))
                             : GetParam().ours(ground_, Name("subject"), args, XtNumber(args));
        XtManageChild(w);
        Show(end_);
        return w;
    }
    Widget CanvasOf(Widget w) const { return GetParam().is_line ? XtParent(w) : w; }

    static std::vector<const char *> CallbacksOf(Widget w) {
        std::vector<const char *> names;
        XtResourceList list = nullptr;
        Cardinal count = 0;
        XtGetResourceList(XtClass(w), &list, &count);
        for (Cardinal i = 0; i < count; i++)
            if (std::strcmp(list[i].resource_type, XmRCallback) == 0)
                names.push_back(list[i].resource_name);
        XtFree(reinterpret_cast<char *>(list));
        return names;
    }

    // Everything that a hand does with it; ends where the widget has.
    void Handle(Widget w) {
        Widget canvas = CanvasOf(w);
        const unsigned last_button = IsGraph() ? Button2 : Button1;
        const std::vector<std::function<void()>> deeds = {
            [&] { MoveTo(canvas, 12, 12); },
            [&] { Press(Button1); },
            [&] { MoveTo(canvas, 40, 60); },
            [&] { MoveTo(canvas, 40, 400); },
            [&] { Pump(); },
            [&] { Release(Button1); },
            [&] { Key(XK_Down); },
            [&] { Key(XK_space); },
            [&] { Key(XK_Return); },
            [&] {
                InDispatch(end_, [w] { XtVaSetValues(w, XmNwidth, 120, XmNheight, 90, nullptr); });
            },
            [&] { MoveTo(canvas, 12, 12); },
            [&] { Press(last_button); },
            [&] { MoveTo(canvas, 40, 60); },
            [&] { Release(last_button); },
        };
        for (const auto &deed : deeds)
            if (ground_)
                deed();
    }

    static void End(Widget, XtPointer test, XtPointer) {
        auto *ends = static_cast<SuddenEnds *>(test);
        if (Widget ground = std::exchange(ends->ground_, nullptr))
            XtDestroyWidget(ground);
    }
    static void ClearList(Widget w, XtPointer list, XtPointer) {
        XtRemoveAllCallbacks(w, static_cast<const char *>(list));
        XtAddCallback(w, static_cast<const char *>(list), Nothing, nullptr);
    }
    static void Nothing(Widget, XtPointer, XtPointer) {}

    // The toolkit does not stand the end of the shell itself while a button is held.
    void EndTheRest() {
        End(nullptr, this, nullptr);
        input::Reset();
        Pump();
        XtDestroyWidget(end_);
        Pump();
        Complaints::Current().warnings.clear();
    }

    Widget end_ = nullptr;
    Widget ground_ = nullptr;
};

} // namespace

TEST_P(SuddenEnds, InEachPlaceOfAGesture) {
    for (const unsigned button : {Button1, Button2, Button3})
        for (int place = 0; place < 4; place++) {
            SCOPED_TRACE(std::to_string(button) + " at " + std::to_string(place));
            // Nor a drag of its own.
            if (button == Button2 && place > 0 && !IsGraph())
                continue;
            Widget w = Make();
            MoveTo(CanvasOf(w), 15, 15);
            if (place > 0)
                Press(button);
            if (place > 1)
                MoveTo(CanvasOf(w), 45, 35);
            if (place > 2)
                MoveTo(CanvasOf(w), 45, 400);
            EndTheRest();
        }
}

TEST_P(SuddenEnds, InEachOfItsCallbacks) {
    Widget any = Make();
    const auto names = CallbacksOf(any);
    EndTheRest();
    for (const char *name : names) {
        SCOPED_TRACE(name);
        Widget w = Make();
        XtAddCallback(w, name, End, static_cast<SuddenEnds *>(this));
        Handle(w);
        EndTheRest();
        w = Make();
        XtAddCallback(w, name, ClearList, Name(name));
        XtAddCallback(w, name, Nothing, nullptr);
        Handle(w);
        EndTheRest();
    }
}

// The widgets are lost, as they are to the toolkit; those of other connections are not.
//
// All connections open before the first one ends: the toolkit keeps pixmaps by the address of their screen,
// and would hand those of a dead one to a screen that comes to lie in its place.
TEST_P(SuddenEnds, WithTheirApplicationContext) {
    static std::deque<Client> doomed(2 * pairs.size());
    for (int round = 0; round < 2; round++) {
        UseClient(doomed.front());
        Make();
        Pump();
        XtDestroyApplicationContext(doomed.front().context);
        doomed.pop_front();
        ground_ = nullptr;
        shell = nullptr;
        UseClient(Client::Shared());
        Widget w = Make();
        Handle(w);
        EndTheRest();
    }
}

INSTANTIATE_TEST_SUITE_P(Each, SuddenEnds, ::testing::ValuesIn(pairs),
                         [](const auto &instance) { return instance.param.name; });

} // namespace corvidlmw::test
