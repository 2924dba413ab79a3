#include <tests/graph/GraphTest.h>

#include <Xm/Screen.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <optional>

namespace {

using namespace corvidlmw::test;

struct Converter {
    const char *name;
    XtConverter convert;
    const char *warned_type;
    std::vector<std::pair<std::string, unsigned>> values;
};

// clang-format off
const Converter converters[] = {
    {"ArcDirection", _XmCvtStringToArcDirection, "_XmCvtStringToArcDirection",
     {{"directed", 1}, {"bidirected", 0}, {"undirected", 2}}},
    {"AutoLayoutType", _XmCvtStringToAutoLayoutType, "ArcDirection",
     {{"never", 0}, {"false", 0}, {"always", 1}, {"true", 1}, {"arcs_only", 2}, {"nodes_only", 3}, {"partial", 4}}},
    // The last two are the toolkit's own.
    {"LineStyle", _XmCvtStringToLineStyle, "_XmCvtStringToLineStyle",
     {{"linesolid", 0}, {"lineonoffdash", 1}, {"linedoubledash", 2}, {"no_line", 0}, {"single", 1}}},
    {"CapStyle", _XmCvtStringToCapStyle, "_XmCvtStringToCapStyle",
     {{"capnotlast", 0}, {"capbutt", 1}, {"capround", 2}, {"capprojecting", 3}}},
    {"LayoutStyle", _XmCvtStringToLayoutStyle, "CapStyle", {{"graph", 0}, {"butterfly", 1}}},
    {"ArcDrawMode", _XmCvtStringToArcDrawMode, "_XmCvtStringToArcDrawMode",
     {{"position_fixed", 0}, {"position_relative", 1}, {"position_proportional", 2}}},
};
// clang-format on

std::optional<XtArgVal> Convert(const Converter &converter, const std::string &text) {
    XrmValue from{static_cast<unsigned>(text.size() + 1), const_cast<char *>(text.c_str())};
    XrmValue to{99, const_cast<char *>("untouched")};
    converter.convert(nullptr, nullptr, &from, &to);
    if (!to.addr) {
        EXPECT_EQ(to.size, 0u);
        return std::nullopt;
    }
    XtArgVal value = 0;
    std::memcpy(&value, to.addr, to.size);
    return value;
}

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), ::toupper);
    return text;
}

using Refused = std::vector<std::pair<std::string, std::string>>; // each string and its type

// Xt puts no words together for a program that root runs, so its messages are taken in parts.
class ConvertersTest : public GraphTest {
protected:
    static inline Refused refused;

    void SetUp() override {
        GraphTest::SetUp();
        refused.clear();
        old_handler = XtAppSetWarningMsgHandler(
            app, [](String name, String, String, String, String *params, Cardinal *count) {
                ASSERT_EQ(*count, 2u);
                EXPECT_STREQ(name, "conversionError");
                refused.emplace_back(params[0], params[1]);
            });
    }
    void TearDown() override {
        XtAppSetWarningMsgHandler(app, old_handler);
        GraphTest::TearDown();
    }
    XtErrorMsgHandler old_handler = nullptr;
};

TEST_F(ConvertersTest, TakeEachNameInAnyCaseWithAndWithoutThePrefix) {
    for (const Converter &converter : converters)
        for (const auto &[text, value] : converter.values)
            for (const std::string &spelling :
                 {text, Upper(text), "Xm" + text, "xm" + Upper(text), "xM" + text})
                EXPECT_EQ(Convert(converter, spelling), value) << converter.name << " " << spelling;
}

TEST_F(ConvertersTest, WarnOfAnythingElseUnderTheNameThatTheyKnow) {
    for (const Converter &converter : converters)
        for (const std::string &text :
             {std::string("Xm"), std::string(), "xmxm" + converter.values[0].first,
              converter.values[0].first + "s", " " + converter.values[0].first}) {
            refused.clear();
            EXPECT_FALSE(Convert(converter, text)) << converter.name << " " << text;
            EXPECT_EQ(refused, (Refused{{text, converter.warned_type}}));
        }
}

TEST_F(ConvertersTest, ServeTheResourceDatabaseAndLeaveTheDefaultWhereItHoldsNonsense) {
    SetResource("*autoLayoutMode: sometimes");
    SetResource("*layoutStyle: moth");
    SetResource("*arcDrawMode: XmPosition_Fixed");
    SetResource("*arcDirection: DIRECTED");
    SetResource("*style: LineOnOffDash");
    MakeGraph();
    Widget arc = XmCreateArc(graph, Name("arc"), nullptr, 0);
    EXPECT_EQ(refused, (Refused{{"sometimes", "ArcDirection"}, {"moth", "CapStyle"}}));
    EXPECT_EQ(ValueOf(graph, XmNautoLayoutMode), 0u);
    EXPECT_EQ(ValueOf(graph, XmNlayoutStyle), 0u);
    EXPECT_EQ(ValueOf(graph, XmNarcDrawMode), XmPOSITION_FIXED);
    EXPECT_EQ(ValueOf(arc, XmNarcDirection), XmDIRECTED);
    EXPECT_EQ(ValueOf(arc, XmNstyle), LineOnOffDash);
}

// ---- Units -----------------------------------------------------------------------

// One font unit is 10 pixels wide and 20 high, so that each axis tells itself. The toolkit forgets it
// with the last shell.
class SpacingUnitsTest : public ConvertersTest {
protected:
    void SetUp() override {
        ConvertersTest::SetUp();
        XtVaSetValues(XmGetXmScreen(XtScreen(shell)), XmNhorizontalFontUnit, 10,
                      XmNverticalFontUnit, 20, nullptr);
    }
};

TEST_F(SpacingUnitsTest, AreTurnedIntoPixelsByTheAxisOfTheOrientationAndReadBackByTheOther) {
    SetResource("*childSpacing: 400");
    SetResource("*siblingSpacing: 200");
    struct Row {
        unsigned char orientation;
        int child, sibling;
        XtArgVal child_read, sibling_read;
    };
    for (const Row &row :
         {Row{XmHORIZONTAL, 40, 40, 200, 400}, Row{XmVERTICAL, 80, 20, 800, 100}}) {
        graph = XtVaCreateWidget("graph", xmGraphWidgetClass, shell, XmNorientation,
                                 row.orientation, XmNunitType, Xm100TH_FONT_UNITS, nullptr);
        EXPECT_EQ(GraphPartOf(graph).child_spacing, row.child);
        EXPECT_EQ(GraphPartOf(graph).sibling_spacing, row.sibling);
        EXPECT_EQ(GraphPartOf(graph).child_spacing_units, 400);
        EXPECT_EQ(GraphPartOf(graph).sibling_spacing_units, 200);
        EXPECT_EQ(ValueOf(graph, XmNchildSpacing), row.child_read);
        EXPECT_EQ(ValueOf(graph, XmNsiblingSpacing), row.sibling_read);
        XtDestroyWidget(graph);
    }
    // Arguments are converted twice: first by the other axis to 200 and 100, then these as units.
    graph = XtVaCreateWidget("graph", xmGraphWidgetClass, shell, XmNunitType, Xm100TH_FONT_UNITS,
                             XmNchildSpacing, 1000, XmNsiblingSpacing, 1000, nullptr);
    EXPECT_EQ(GraphPartOf(graph).child_spacing, 20);
    EXPECT_EQ(GraphPartOf(graph).sibling_spacing, 20);
}

} // namespace
