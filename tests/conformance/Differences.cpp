#include <tests/conformance/Differences.h>

#include <set>

namespace corvidlmw::test {

const std::vector<Difference> differences = {
    {.pair = "XmGraph",
     .check = "WidgetTree",
     .findings = {"child dummy: Core window / none"},
     .reason = "The root of all trees is a hidden child."},
    {.pair = "XmGraph",
     .check = "UnitsAtCreation",
     .findings = {"height in pixels: 120 / 200", "width in pixels: 70 / 301"},
     .reason = "A change of unit lays the nodes out anew, and the graph fits itself to them."},
    {.pair = "XmGraph",
     .check = "UnitsAfterwards",
     .findings = {"height in inches: 896 / 1992", "height in pixels: 93 / 200",
                  "width in inches: 697 / 2998", "width in pixels: 70 / 301"},
     .reason = "A change of unit lays the nodes out anew, and the graph fits itself to them."},
    {.pair = "XmGraph",
     .check = "ColoursSetAfterwards",
     .findings = {"highlightColor drawn: 0 / 1", "highlightColor: ffffff / 000000"},
     .reason = "The highlight colour is that of selected nodes and arcs, white unless the client "
               "says otherwise."},
    {.pair = "XmGraph",
     .check = "GadgetInside",
     .findings = {"1 clicked: before 11 10 12 / gadget 11 10 12",
                  "3 space: gadget / gadget 11 10 12"},
     .reason =
         "A press is the graph's, and moves no focus; keys for gadgets are added by clients."},
    {.pair = "XmArc",
     .check = "WidgetTree",
     .findings = {"depth: none / 4", "kind: none / object"},
     .reason = "Arcs are no children of the composite, which holds the nodes alone."},
    {.pair = "XmArc",
     .check = "ChangeColor",
     .findings = {"background drawn: 0 / 1", "background: f5deb3 / 4682b4",
                  "foreground drawn: 1 / 0", "foreground: 000000 / ffffff"},
     .reason = "An arc has one colour, that of its line, and stands on the graph's background."},
    {.pair = "XmArc",
     .check = "ColoursSetAfterwards",
     .findings = {"background drawn: 0 / 1", "foreground drawn: 1 / 0"},
     .reason = "An arc has one colour, that of its line, and stands on the graph's background."},
    {.pair = "XmArc",
     .check = "TraversalByFunction",
     .findings = {"visibility: 2 / 0"},
     .reason = "An arc has no rectangle that could be seen."},
    {.pair = "LmList",
     .check = "ResourcesByEditres",
     .findings =
         {"automaticSelection: AutomaticSelection of Boolean / AutomaticSelection of "
          "AutomaticSelection",
          "horizontalScrollBar: HorizontalScrollBar of Window / HorizontalScrollBar of Widget",
          "topItemPosition: TopItemPosition of Int / TopItemPosition of TopItemPosition",
          "verticalScrollBar: VerticalScrollBar of Window / VerticalScrollBar of Widget"},
     .reason = "Automatic selection is on or off; the position and the bars are set by programs."},
    {.pair = "LmList",
     .check = "GeometryByEditres",
     .findings = {"height: 146 / 135"},
     .reason = "Rows are higher than the toolkit's, and the height is that of whole rows."},
    {.pair = "LmList",
     .check = "IsDragged",
     .findings = {"dropped: one\n / one"},
     .reason = "Rows are dropped as lines, each with its end."},
    {.pair = "LmList",
     .check = "UnitsAtCreation",
     .findings = {"height in inches: 1753 / 1882", "height in pixels: 176 / 189"},
     .reason = "Rows are higher than the toolkit's, and the height is that of whole rows."},
    {.pair = "LmList",
     .check = "UnitsAfterwards",
     .findings = {"height in inches: 5518 / 5109", "height in pixels: 554 / 513"},
     .reason = "Rows are higher than the toolkit's, and the height is that of whole rows."},
    {.pair = "LmList",
     .check = "RightToLeftLooks",
     .findings = {"ink, alone: left / right"},
     .reason = "The direction is that of the strings of the parent."},
    {.pair = "LmList",
     .check = "Insensitive",
     .findings = {"looks different: 0 / 1"},
     .reason = "Insensitive rows look as sensitive ones do."},
    {.pair = "SvScrollBar",
     .check = "ResourcesByEditres",
     .findings = {"showArrows: ShowArrows of Boolean / ShowArrows of ShowArrows"},
     .reason = "Arrows are shown on both ends or not at all."},
    {.pair = "SvScrollBar",
     .check = "RightToLeftLooks",
     .findings = {"processing, alone: 3 / 2", "processing, as its parent: 3 / 2"},
     .reason = "The maximum is on the right unless the client says otherwise."},
    {.pair = "XmGrid",
     .check = "GeometryByEditres",
     .findings = {"height: 66 / 150", "width: 38 / 200"},
     .reason = "A grid takes its natural size when it is realised."},
    {.pair = "XmGrid",
     .check = "UnitsAtCreation",
     .findings = {"height in inches: 1454 / 1992", "height in pixels: 146 / 200",
                  "width in inches: 1175 / 2998", "width in pixels: 118 / 301"},
     .reason = "A grid takes its natural size when it is realised."},
    {.pair = "XmGrid",
     .check = "RightToLeftLooks",
     .findings = {"one, alone: both / right", "one, as its parent: both / right",
                  "two, alone: both / right", "two, as its parent: both / right"},
     .reason = "A child fills its cell, and columns are counted from the left."},
    {.pair = "XmHorzPanedWindow",
     .check = "WidgetTree",
     .findings = {"child Sash: none / XmSash window",
                  "child Separator: none / XmSeparatorGadget object",
                  "child sash: XmSash window / none",
                  "child separator: XmSeparatorGadget object / none"},
     .reason = "Resource files know the parts by these names."},
    {.pair = "XmHorzPanedWindow",
     .check = "UnitsAfterwards",
     .findings = {"height in inches: 2330 / 1195", "height in pixels: 234 / 120",
                  "width in inches: 1195 / 3336", "width in pixels: 120 / 335"},
     .reason = "A new spacing or margin gives the width that the panes need; a new margin adds to "
               "the height."},
    {.pair = "XmRubberBoard",
     .check = "UnitsAfterwards",
     .findings = {"height in inches: 1992 / 1344", "height in pixels: 200 / 135",
                  "width in inches: 2998 / 896", "width in pixels: 301 / 90"},
     .reason = "The children follow the board's size, not the board theirs."},
    {.pair = "XmSpringBox",
     .check = "GeometryByEditres",
     .findings = {"height: 25 / 150", "width: 62 / 200"},
     .reason = "A spring box takes its natural size when it is realised."},
    {.pair = "XmSpringBox",
     .check = "UnitsAtCreation",
     .findings = {"height in inches: 1045 / 1992", "height in pixels: 105 / 200",
                  "width in inches: 1414 / 2998", "width in pixels: 142 / 301"},
     .reason = "A spring box takes its natural size when it is realised."},
    {.pair = "XmSpringBox",
     .check = "RightToLeftLooks",
     .findings = {"one, alone: left / right", "one, as its parent: left / right"},
     .reason = "The children stand in their order from the left."},
    {.pair = "XmvIconGadget",
     .check = "ResourcesByEditres",
     .findings = {"labelInsensitivePixmap: LabelInsensitivePixmap of GadgetPixmap / "
                  "LabelInsensitivePixmap of DynamicPixmap",
                  "labelPixmap: LabelPixmap of GadgetPixmap / LabelPixmap of DynamicPixmap"},
     .reason = "A picture is made as gadgets' pictures are, once."},
    {.pair = "XmvIconGadget",
     .check = "FocusLooks",
     .findings = {"2 here: 0 / 1", "3 here, exposed: 0 / 1"},
     .reason = "The highlight is that of all gadgets, in the manager's colour."},
};

namespace {

std::string Of(const Answer &answer, const std::string &name) {
    const auto found = answer.find(name);
    return found == answer.end() ? "none" : found->second;
}

std::set<std::string> Findings(const Answer &ours, const Answer &toolkits) {
    std::set<std::string> findings;
    Answer all = ours;
    all.insert(toolkits.begin(), toolkits.end());
    for (const auto &[name, finding] : all)
        if (Of(ours, name) != Of(toolkits, name))
            findings.insert(name + ": " + Of(ours, name) + " / " + Of(toolkits, name));
    return findings;
}

} // namespace

void ExpectNoOtherDifferences(const std::string &pair, const std::string &check, const Answer &ours,
                              const Answer &toolkits) {
    auto found = Findings(ours, toolkits);
    for (const auto &row : differences) {
        if (row.pair != pair || row.check != check)
            continue;
        for (const std::string &finding : row.findings)
            EXPECT_EQ(found.erase(finding), 1u) << "no longer so: " << finding;
    }
    for (const auto &finding : found)
        ADD_FAILURE() << "ours / the toolkit's: " << finding;
}

} // namespace corvidlmw::test
