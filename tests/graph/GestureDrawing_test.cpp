/* After a gesture every pixel is what a full exposure paints, whatever came between. */

#include <tests/graph/EditTest.h>

#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

namespace corvidlmw::test {
namespace {

class GestureDrawing : public EditTest {
protected:
    struct Gesture {
        const char *name, *start, *rest;
    };
    // Each leads to nothing, and crosses nodes of all kinds and arcs.
    const Gesture gestures[4] = {
        {"sweep", "s1 1 s2 s3", "s4"},
        {"new node", "^S q 2 w2", "n2 n3"},
        {"new arc", "^S c 2 s2 t2", "t3 -"},
        {"arc end", "p 2 s2 t2", "t3 -"},
    };

    void SetUp() override {
        EditTest::SetUp();
        XtVaSetValues(shell, XmNallowShellResize, False, nullptr);
        Prepare();
    }

    void Prepare() {
        answer = [](XmGraphCallbackStruct &data) { data.doit = False; };
        Listen({XmNnewNodeCallback});
        places.insert({{"s1", {20, 100}},
                       {"s2", {320, 190}},
                       {"s3", {300, 180}},
                       {"s4", {30, 120}},
                       {"w2", {80, 190}},
                       {"n2", {230, 180}},
                       {"n3", {150, 130}},
                       {"t2", {60, 230}},
                       {"o", {2, 2}},
                       {"t3", {60, 130}}});
    }

    void UncoverAll() {
        for (Widget each : {w, box, in})
            if (XtIsRealized(each))
                XClearArea(display, XtWindow(each), 0, 0, 0, 0, True);
        Uncover();
    }

    void ExpectAsExposed(const char *when) {
        Pump();
        const Picture left = Picture::Of(shell);
        UncoverAll();
        EXPECT_TRUE(SamePicture(Picture::Of(shell), left)) << when;
    }

    // Covers a rectangle of the screen with a window for a moment.
    void Cover(XRectangle r) {
        XSetWindowAttributes attributes{};
        attributes.override_redirect = True;
        const Window over = XCreateWindow(display, DefaultRootWindow(display), r.x, r.y, r.width,
                                          r.height, 0, CopyFromParent, InputOutput, CopyFromParent,
                                          CWOverrideRedirect, &attributes);
        XMapRaised(display, over);
        Pump();
        XDestroyWindow(display, over);
    }
};

TEST_F(GestureDrawing, ARubberFigureIsRemovedExactlyWhateverCameBetween) {
    Show();
    auto set = [](Widget object, const char *resource, auto value) {
        XtVaSetValues(object, resource, static_cast<XtArgVal>(value), nullptr);
    };
    const std::pair<const char *, std::function<void()>> events[] = {
        {"nothing", [] {}},
        {"a clearing", [&] { XClearArea(display, XtWindow(graph), 60, 90, 200, 110, True); }},
        {"a window",
         [&] {
             Cover({90, 90, 300, 110});
         }},
        {"a gadget moved", [&] { XmGraphMoveNode(graph, d, 300, 110); }},
        {"a window moved", [&] { XmGraphMoveNode(graph, w, 60, 150); }},
        {"a window moved by its resource", [&] { set(w, XmNx, 30); }},
        {"a gadget moved by its resource", [&] { set(d, XmNx, 395); }},
        {"background", [&] { set(graph, XmNbackground, Colour("yellow")); }},
        {"foreground", [&] { set(graph, XmNforeground, Colour("blue")); }},
        {"arc", [&] { set(named["q"], XmNforeground, Colour("green")); }},
        {"label", [&] { set(named["r"], XmNmapLabel, True); }},
        {"gadget's colour", [&] { set(d, XmNforeground, Colour("red")); }},
        {"selected",
         [&] {
             XmGraphSelectNode(graph, b, True);
             XmGraphSelectArc(graph, named["r"], True);
         }},
        {"layout", [&] { XmGraphLayout(graph); }},
        {"a dead arc", [&] { XtDestroyWidget(named["p"]); }},
        {"unmanaged", [&] { XtUnmanageChild(b); }},
        {"read only",
         [&] {
             set(graph, XmNeditable, False);
             set(graph, XmNeditable, True);
         }},
        {"unmapped",
         [&] {
             XtUnmanageChild(graph);
             XtManageChild(graph);
         }},
    };
    for (const auto &gesture : gestures)
        for (const auto &[event, act] : events)
            for (bool busy : {false, true}) {
                SCOPED_TRACE(std::string(gesture.name) + ", " + event + (busy ? ", busy" : ""));
                Run(gesture.start);
                EXPECT_GE(GraphPartOf(graph).gesture_state, GESTURE_MOVE_ARC) << "it runs";
                if (busy) {
                    HoldEvents hold(*this);
                    Run(std::string(gesture.rest) + " . _");
                    act();
                } else {
                    act();
                    Pump();
                    Run(std::string(gesture.rest) + " . _");
                }
                ExpectAsExposed("after the gesture");
                XtDestroyWidget(graph);
                MakeGraph();
                Build();
                Prepare();
                Pump();
            }
}

TEST_F(GestureDrawing, AFigureScrollsWithItsGraph) {
    XtDestroyWidget(graph);
    graph = XmCreateScrolledGraph(shell, Name("graph"), nullptr, 0);
    Build();
    Prepare();
    Node({900, 700, 40, 40}, xmPushButtonGadgetClass, "far");
    XtManageChild(graph);
    XmGraphAdjustSize(graph);
    Show();
    Widget bar = nullptr;
    XtVaGetValues(XtParent(XtParent(graph)), XmNhorizontalScrollBar, &bar, nullptr);
    int value = 0, slider = 0, increment = 0, page = 0;
    XmScrollBarGetValues(bar, &value, &slider, &increment, &page);
    for (const auto &gesture : gestures) {
        SCOPED_TRACE(gesture.name);
        Run(gesture.start);
        for (int to : {100, 180, 10, 0}) {
            XmScrollBarSetValues(bar, to, slider, increment, page, True);
            Pump();
        }
        Run(std::string(gesture.rest) + " . _");
        ExpectAsExposed("scrolled");
    }
}

// ---- Arcs over one another --------------------------------------------------------------------------

class CrossedArcs : public GestureDrawing {
protected:
    void SetUp() override {
        GestureDrawing::SetUp();
        XtVaSetValues(named["q"], XmNmapLabel, True, XmNarcWidth, 5, nullptr);
        for (auto [from, to] : {std::pair{d, w}, std::pair{c, box}, std::pair{a, box}}) {
            Widget arc = Attach("cross", from, to);
            XtVaSetValues(arc, XmNmapLabel, True, XmNarcDirection, XmDIRECTED, XmNforeground,
                          Colour("blue"), nullptr);
        }
        for (int i = 0; i < 2; i++)
            XtVaSetValues(Attach("loop", b, b), XmNmapLabel, True, XmNarcWidth, 2, nullptr);
        Node({200, 130, 60, 25}, xmLabelGadgetClass, "label");
        under = Attach("under", a, c);
        XtVaSetValues(under, XmNmapLabel, True, XmNforeground, Colour("green"), nullptr);
    }

    // Antialiased, in which what is painted twice is bolder.
    void UseXft() {
        static XmRenderTable table = nullptr; // the toolkit leaks a part of each that is freed
        if (!table) {
            Arg args[] = {{Name(XmNfontType), XmFONT_IS_XFT},
                          {Name(XmNfontName), reinterpret_cast<XtArgVal>("DejaVu Serif")},
                          {Name(XmNfontSize), 14}};
            XmRendition rendition =
                XmRenditionCreate(graph, Name(XmFONTLIST_DEFAULT_TAG), args, XtNumber(args));
            table = XmRenderTableAddRenditions(nullptr, &rendition, 1, XmMERGE_REPLACE);
            XmRenditionFree(rendition);
        }
        for (Widget arc : ArcsOf(graph))
            XtVaSetValues(arc, XmNfontList, table, nullptr);
        for (Widget node : NodesOf(graph))
            if (XmIsGadget(node) || XmIsPrimitive(node))
                XtVaSetValues(node, XmNrenderTable, table, nullptr);
    }

    Widget under = nullptr; // behind b
};

TEST_F(CrossedArcs, AHighlightLeavesWhatItCrossedAsItWas) {
    Show();
    for (bool xft : {false, true}) {
        if (xft)
            UseXft();
        UncoverAll();
        const Picture before = Picture::Of(shell);
        for (const char *script : {"p 1 - p -", "^C q 1 -", "p 1", "^S a 1 a2 -", "^S a 1 a2 d"}) {
            SCOPED_TRACE(script + std::string(xft ? ", Xft" : ""));
            Run(script);
            ExpectAsExposed("while the button is down");
            Run(". _");
            ExpectAsExposed("selected or not");
            Run("m 1 .");
            EXPECT_TRUE(SamePicture(before, Picture::Of(shell)));
        }
    }
}

TEST_F(CrossedArcs, ADragLeavesWhatAnExposurePaints) {
    Show();
    for (bool xft : {false, true}) {
        if (xft)
            UseXft();
        UncoverAll();
        for (const char *script : {"c 2 .", "c 2 m - c .", "w 2 q w .", "p 2 q .", "p2 2 - d .",
                                   "^S c 2 - d . _", "c 2 o o ."}) {
            SCOPED_TRACE(script + std::string(xft ? ", Xft" : ""));
            Run(script);
            ExpectAsExposed("dragged");
        }
        Preselect("a c w");
        Run("a 2 p a .");
        ExpectAsExposed("several dragged");
    }
}

} // namespace
} // namespace corvidlmw::test
