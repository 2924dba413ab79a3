#include <tests/graph/GraphTest.h>

#include <X11/StringDefs.h>
#include <Xm/PushB.h>

#include <algorithm>
#include <map>
#include <tuple>

namespace {

using namespace corvidlmw::test;

// What a resource is without an argument, and another value that it takes and gives back.
struct Row {
    const char *name, *class_name, *type;
    unsigned size;
    XtArgVal preset, other;
};

constexpr XtArgVal built = ~XtArgVal{0}; // made by the widget: not zero, and no more is said
constexpr XtArgVal black = built - 1;
constexpr XtArgVal white = built - 2;
constexpr XtArgVal copied = built - 3; // handed out as a copy: tested below

void PlaceNowhere(Widget) {}

XtArgVal ArgOf(auto *pointer) {
    return reinterpret_cast<XtArgVal>(pointer);
}

// clang-format off
const Row graph_rows[] = {
    {"autoLayoutMode", "AutoLayoutMode", "AutoLayoutType", 4, 0, 3},
    {"reLayout", "ReLayout", "Boolean", 1, 0, 0},
    {"reorient", "Reorient", "Boolean", 1, 0, 0},
    {"twinsVisible", "TwinsVisible", "Boolean", 1, 1, 0},
    {"orientation", "Orientation", "Orientation", 1, 2, 1},
    {"layoutStyle", "LayoutStyle", "LayoutStyle", 1, 0, 1},
    {"arcDrawMode", "ArcDrawMode", "ArcDrawMode", 1, 1, 2},
    {"childSpacing", "ChildSpacing", "Int", 4, 40, 5},
    {"siblingSpacing", "SiblingSpacing", "Int", 4, 30, 6},
    {"layoutProc", "LayoutProc", "Pointer", 8, built, ArgOf(PlaceNowhere)},
    {"layoutKey", "LayoutKey", "Atom", 8, 0, 7},
    {"editable", "Editable", "Boolean", 1, 0, 1},
    {"okToAdd", "OkToAdd", "Boolean", 1, 1, 0},
    {"movableNodes", "MovableNodes", "Boolean", 1, 1, 0},
    {"selectableArcs", "SelectableArcs", "Boolean", 1, 1, 0},
    {"editableArcs", "EditableArcs", "Boolean", 1, 1, 0},
    {"allowMultipleSelections", "AllowMultipleSelections", "Boolean", 1, 1, 0},
    {"allowGrandchildInput", "AllowGrandchildInput", "Boolean", 1, 1, 0},
    {"interactiveArcDirection", "InteractiveArcDirection", "ArcDirection", 1, 2, 0},
    {"defaultNodeClass", "DefaultNodeClass", "Int", 8, ArgOf(xmPushButtonGadgetClass), ArgOf(xmPushButtonWidgetClass)},
    {"doubleClickInterval", "DoubleClickInterval", "Int", 4, 250, 300},
    {"increment", "Increment", "Int", 4, 10, 15},
    {"showCrossingArcs", "ShowCrossingArcs", "Boolean", 1, 1, 0},
    {"ptrCursor", "Cursor", "Cursor", 8, built, None},
    {"motionCursor", "Cursor", "Cursor", 8, built, None},
    {"indicateCursor", "Cursor", "Cursor", 8, built, None},
    {"indicateChildCursor", "Cursor", "Cursor", 8, built, None},
    {"indicateParentCursor", "Cursor", "Cursor", 8, built, None},
    {"highlightColor", "HighlightColor", "Pixel", 8, white, 0xff},
    {"overviewLineColor", "OverviewColor", "Pixel", 8, black, 0xff},
    {"overviewNodeColor", "OverviewColor", "Pixel", 8, white, 0xff},
    {"overviewViewportBottomShadowColor", "OverviewViewportColor", "Pixel", 8, white, 0xff},
    {"overviewViewportTopShadowColor", "OverviewViewportColor", "Pixel", 8, white, 0xff},
    {"showOverviewArcs", "ShowOverviewArcs", "Boolean", 1, 1, 0},
    {"skewOverviewScale", "SkewOverviewScale", "Boolean", 1, 0, 1},
};

const char *const graph_callbacks[] = {
    "graphTooBigCallback", "graphChangedCallback", "userButtonCallback", "newArcCallback", "newNodeCallback",
    "nodeMovedCallback", "arcMovedCallback", "defaultActionCallback", "selectNodeCallback", "deselectCallback",
    "selectArcCallback", "selectSubgraphCallback",
};

const Row arc_rows[] = {
    {"to", "To", "Pointer", 8, 0, 0},
    {"from", "From", "Pointer", 8, 0, 0},
    {"toPosition", "Position", "Short", 2, 50, 10},
    {"fromPosition", "Position", "Short", 2, 50, 20},
    {"fromSide", "Side", "Short", 2, 1, 2},
    {"toSide", "Side", "Short", 2, 0, 3},
    {"arcDirection", "Direction", "ArcDirection", 1, 2, 0},
    {"foreground", "Foreground", "Pixel", 8, black, 0xff},
    {"highlight", "Highlight", "Boolean", 1, 0, 1},
    {"fontList", "FontList", "FontList", 8, built, built},
    {"labelString", "LabelString", "XmString", 8, copied, copied},
    {"mapLabel", "MapLabel", "Boolean", 1, 0, 1},
    {"arcWidth", "ArcWidth", "Int", 4, 0, 3},
    {"style", "Style", "LineStyle", 1, LineSolid, LineDoubleDash},
    {"capStyle", "CapStyle", "CapStyle", 1, CapNotLast, CapProjecting},
    {"dashes", "Dashes", "Int", 4, 4, 9},
    {"dashOffset", "DashOffset", "Int", 4, 0, 2},
    {"userData", "UserData", "Pointer", 8, 0, 0x1234},
    {"attribute", "Attribute", "Atom", 8, 0, 39},
};

const char *const arc_callbacks[] = {"armCallback", "disarmCallback", "activateCallback"};
// clang-format on

class ResourcesTest : public GraphTest {
protected:
    static std::map<std::string, XtResource> Declared(WidgetClass widget_class) {
        XtInitializeWidgetClass(widget_class);
        XtResourceList list = nullptr;
        Cardinal count = 0;
        XtGetResourceList(widget_class, &list, &count);
        std::map<std::string, XtResource> declared;
        for (Cardinal i = 0; i < count; i++)
            declared[list[i].resource_name] = list[i];
        XtFree(reinterpret_cast<char *>(list));
        return declared;
    }

    void ExpectValue(Widget object, const Row &row, XtArgVal expected) {
        const XtArgVal value = ValueOf(object, row.name);
        if (expected == black)
            expected = BlackPixelOfScreen(XtScreen(shell));
        if (expected == white)
            expected = WhitePixelOfScreen(XtScreen(shell));
        EXPECT_TRUE(expected == built ? value : value == expected) << row.name << " is " << value;
    }

    template <size_t rows, size_t callbacks>
    void ExpectResources(Widget object, const Row (&table)[rows],
                         const char *const (&lists)[callbacks]) {
        auto declared = Declared(XtClass(object));
        for (const Row &row : table) {
            const XtResource &resource = declared[row.name];
            ASSERT_TRUE(resource.resource_name) << row.name;
            EXPECT_STREQ(resource.resource_class, row.class_name) << row.name;
            EXPECT_STREQ(resource.resource_type, row.type) << row.name;
            EXPECT_EQ(resource.resource_size, row.size) << row.name;
            if (row.preset != copied)
                ExpectValue(object, row, row.preset);
            if (row.other != built && row.other != copied) {
                XtVaSetValues(object, row.name, row.other, nullptr);
                ExpectValue(object, row, row.other);
            }
        }
        for (const char *name : lists) {
            EXPECT_STREQ(declared[name].resource_class, "Callback") << name;
            EXPECT_EQ(XtHasCallbacks(object, name), XtCallbackHasNone) << name;
        }
    }
};

TEST_F(ResourcesTest, TheGraphHas47WithTheirDefaultsAndTakesOthers) {
    static_assert(std::size(graph_rows) + std::size(graph_callbacks) == 47);
    MakeGraph();
    ExpectResources(graph, graph_rows, graph_callbacks);
}

TEST_F(ResourcesTest, TheArcHas22WithTheirDefaultsAndTakesOthers) {
    static_assert(std::size(arc_rows) + std::size(arc_callbacks) == 22);
    MakeGraph();
    // The table speaks of a detached arc, and warns of ends set to nothing.
    ExpectResources(XmCreateArc(graph, Name("loose"), nullptr, 0), arc_rows, arc_callbacks);
    while (!warnings().empty())
        ExpectWarning("Arc widget should have non-null to and from widgets");
}

TEST_F(ResourcesTest, AGraphStartsSmallAndLaidOutOnlyIfItNeverLaysItselfOut) {
    for (int mode = XmNEVER; mode <= XmPARTIAL; mode++) {
        graph =
            XtVaCreateWidget("graph", xmGraphWidgetClass, shell, XmNautoLayoutMode, mode, nullptr);
        EXPECT_EQ(GraphPartOf(graph).layed_out, mode == XmNEVER ? True : False) << mode;
        EXPECT_EQ(ValueOf(graph, XmNwidth), 50u);
        EXPECT_EQ(ValueOf(graph, XmNheight), 50u);
        EXPECT_STREQ(XtName(CompositeOf(graph).children[0]), "dummy");
        EXPECT_EQ(XmGraphNumNodes(graph) + XmGraphNumArcs(graph), 0);
    }
}

// The toolkit's manager has a resource of this name too, with a field of its own.
TEST_F(ResourcesTest, HighlightColorReachesTheGraphItself) {
    graph = XtVaCreateWidget("graph", xmGraphWidgetClass, shell, XmNhighlightColor, Pixel{0x11},
                             nullptr);
    EXPECT_EQ(GraphPartOf(graph).highlight_color, 0x11u);
    XtVaSetValues(graph, XmNwidth, 70, XmNhighlightColor, Pixel{0x22}, nullptr);
    XtVaSetValues(graph, XmNwidth, 80, nullptr);
    EXPECT_EQ(ValueOf(graph, XmNhighlightColor), 0x22u);
}

TEST_F(ResourcesTest, AMarkIsNoneAtFirstAndItsChangeIsTold) {
    MakeGraph();
    Widget node = MakeButton("a");
    GraphLog log;
    log.Add(graph, XmNgraphChangedCallback);
    EXPECT_EQ(static_cast<int>(ValueOf(node, XmNmarkColor)), -1);

    for (Pixel color : {5, 5, 6})
        XtVaSetValues(node, XmNmarkColor, color, nullptr);

    EXPECT_EQ(ValueOf(node, XmNmarkColor), 6u);
    EXPECT_EQ(log.reasons(), (std::vector<int>{XmCR_MARK_CHANGED, XmCR_MARK_CHANGED}));
    EXPECT_EQ(log.back().data.widget, node);
    EXPECT_EQ(log.back().data.event, nullptr);
}

// ---- Labels and fonts --------------------------------------------------------------

// A client gets a copy of its own.
std::string LabelOf(Widget arc) {
    auto *label = reinterpret_cast<XmString>(ValueOf(arc, XmNlabelString));
    auto *text = static_cast<char *>(
        XmStringUnparse(label, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    XmStringFree(label);
    std::string copy = text ? text : "";
    XtFree(text);
    return copy;
}

TEST_F(ResourcesTest, AnArcCopiesItsLabelAndWithoutOneShowsItsName) {
    MakeGraph();
    XmString given = XmStringCreateLocalized(Name("a rather long label"));
    Widget arc = XtVaCreateManagedWidget("edge", xmArcWidgetClass, graph, XmNlabelString, given,
                                         XmNto, MakeButton("b"), XmNfrom, MakeButton("a"), nullptr);
    XmStringFree(given);
    EXPECT_EQ(LabelOf(arc), "a rather long label");
    const Dimension long_width = ArcPartOf(arc).label_width;
    XtVaSetValues(arc, XmNlabelString, nullptr, nullptr);
    EXPECT_EQ(LabelOf(arc), "edge");
    EXPECT_LT(ArcPartOf(arc).label_width, long_width);
    EXPECT_EQ(LabelOf(XmCreateArc(graph, Name("bare"), nullptr, 0)), "bare");
}

TEST_F(ResourcesTest, AnArcCopiesItsFontsAndMeasuresItsLabelInThem) {
    MakeGraph();
    Widget arc = Arc(MakeButton("a"), MakeButton("b"));
    XFontStruct *font = XLoadQueryFont(display, "6x13");
    ASSERT_TRUE(font);
    XmFontList fonts = XmFontListCreate(font, Name(XmFONTLIST_DEFAULT_TAG));
    XtVaSetValues(arc, XmNfontList, fonts, nullptr);
    EXPECT_NE(reinterpret_cast<XmFontList>(ValueOf(arc, XmNfontList)), fonts);
    XmFontListFree(fonts);
    EXPECT_EQ(ArcPartOf(arc).label_width, 3 * 6);
    EXPECT_EQ(ArcPartOf(arc).label_height, 13);

    XtVaSetValues(arc, XmNfontList, nullptr, nullptr); // means the font "fixed"
    EXPECT_NE(ValueOf(arc, XmNfontList), 0);
    EXPECT_GT(ArcPartOf(arc).label_width, 0);
    XFreeFont(display, font);
}

TEST_F(ResourcesTest, AnArcKeepsItsLookInTwoGCs) {
    MakeGraph();
    Widget arc = XtVaCreateWidget("arc", xmArcWidgetClass, graph, XmNforeground, Pixel{0x33},
                                  XmNarcWidth, 3, XmNstyle, LineOnOffDash, XmNdashOffset, 2, XmNto,
                                  MakeButton("a"), XmNfrom, MakeButton("b"), nullptr);
    const Pixel ground = static_cast<Pixel>(ValueOf(graph, XmNbackground));
    auto expect = [&](GC gc, Pixel foreground, Pixel background, int width, int cap) {
        XGCValues got{};
        XGetGCValues(display, gc,
                     GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCCapStyle |
                         GCDashOffset,
                     &got);
        EXPECT_EQ(std::tie(got.foreground, got.background, got.line_width, got.cap_style),
                  std::tie(foreground, background, width, cap));
        EXPECT_EQ(got.line_style, LineOnOffDash);
        EXPECT_EQ(got.dash_offset, 2);
    };
    // At creation, and then only, CapNotLast becomes CapButt.
    expect(ArcPartOf(arc).gc, 0x33, ground, 3, CapButt);
    expect(ArcPartOf(arc).clear_gc, ground, 0x33, 3, CapButt);
    XtVaSetValues(arc, XmNarcWidth, 4, nullptr);
    expect(ArcPartOf(arc).gc, 0x33, ground, 4, CapNotLast);
    XtVaSetValues(arc, XmNcapStyle, CapRound, nullptr);
    expect(ArcPartOf(arc).gc, 0x33, ground, 4, CapRound);
}

} // namespace
