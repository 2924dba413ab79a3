/* A graph whose nodes stand where the test puts them, with arcs between them. */
#pragma once

#include <corvidlmw/graph/ArcP.h>
#include <tests/support/Harness.h>

#include <Xm/LabelG.h>

namespace corvidlmw::graph {

class DrawnGraph : public test::DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        SetResource("*background: white");
        SetResource("*foreground: black");
        graph = XtVaCreateManagedWidget("graph", xmGraphWidgetClass, shell, XmNarcDrawMode,
                                        XmPOSITION_RELATIVE, nullptr);
    }

    // A managed node; a label gadget paints nothing where its name is empty.
    template <class... Args>
    Widget Node(XRectangle place, WidgetClass node_class, const char *name, Args... args) {
        return XtVaCreateManagedWidget(
            name, node_class, graph, XmNx, place.x, XmNy, place.y, XmNwidth, place.width, XmNheight,
            place.height, XmNborderWidth, 0, XmNrecomputeSize, False, args..., nullptr);
    }
    Widget Node(XRectangle place) { return Node(place, xmLabelGadgetClass, ""); }

    template <class... Args>
    Widget Arc(Widget from, Widget to, Args... args) {
        return XtVaCreateManagedWidget("arc", xmArcWidgetClass, graph, XmNfrom, from, XmNto, to,
                                       args..., nullptr);
    }

    static XmArcPart &PartOf(Widget arc) { return reinterpret_cast<XmArcWidget>(arc)->arc; }
    static XmGraphPart &PartOfGraph(Widget g) { return reinterpret_cast<XmGraphWidget>(g)->graph; }

    // Paints what a rectangle shows anew, the whole window for one without a size.
    void Uncover(XRectangle r = {}) {
        XClearArea(display, XtWindow(graph), r.x, r.y, r.width, r.height, True);
        Pump();
    }

    // The arcs' own drawing calls while the whole window is painted.
    std::vector<test::Call> Repaint() {
        test::Recorder recorder;
        Uncover();
        return ByArcs(recorder);
    }
    std::vector<test::Call> ByArcs(const test::Recorder &recorder) const {
        auto calls = recorder.On(XtWindow(graph));
        std::erase_if(calls, [](const test::Call &call) {
            const bool paints = call.function.starts_with("XDraw") ||
                                call.function.starts_with("XFill") ||
                                call.function == "_XmStringDraw";
            return call.FromToolkit() || !paints;
        });
        return calls;
    }

    Pixel Black() const { return BlackPixelOfScreen(XtScreen(graph)); }
    Pixel White() const { return WhitePixelOfScreen(XtScreen(graph)); }
    Pixel Colour(const char *name) const {
        XColor exact{};
        XColor near{};
        XAllocNamedColor(display, DefaultColormapOfScreen(XtScreen(graph)), name, &near, &exact);
        return near.pixel;
    }

    Widget graph = nullptr;
};

} // namespace corvidlmw::graph
