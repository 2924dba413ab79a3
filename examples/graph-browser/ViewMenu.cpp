#include "ViewMenu.h"

#include <corvidlmw/graph/Graph.h>

namespace graph_browser {
namespace {

// One line of a radio menu: it gives the view this value, and is set while the view has it.
template <auto set, auto get, typename Value>
MenuItem Choice(GraphView &view, Value value, MenuItem item) {
    item.act = [&view, value] { (view.*set)(value); };
    item.is_set = [&view, value] { return (view.*get)() == value; };
    return item;
}

template <auto set, auto get>
MenuItem Toggle(GraphView &view, MenuItem item) {
    item.act = [&view] { (view.*set)(!(view.*get)()); };
    item.is_set = [&view] { return (view.*get)(); };
    return item;
}

constexpr auto orientation =
    Choice<&GraphView::SetOrientation, &GraphView::GetOrientation, Orientation>;
constexpr auto arcs = Choice<&GraphView::SetArcDrawMode, &GraphView::ArcDrawMode, unsigned char>;
constexpr auto layout = Choice<&GraphView::SetLayoutStyle, &GraphView::LayoutStyle, unsigned char>;
constexpr auto spacing = Choice<&GraphView::SetSpacing, &GraphView::GetSpacing, Spacing>;
constexpr auto twins = Toggle<&GraphView::SetTwinsVisible, &GraphView::TwinsVisible>;
constexpr auto icons = Toggle<&GraphView::SetIcons, &GraphView::Icons>;
constexpr auto labels = Toggle<&GraphView::SetArcLabels, &GraphView::ArcLabels>;

} // namespace

void AddViewMenu(Menus &menus, GraphView &view) {
    // clang-format off
    menus.AddMenu("View", 'V');
    menus.AddRadioMenu("Orientation", 'O', {
        orientation(view, Orientation::Horizontal, {"Horizontal", 'H', "Ctrl<Key>h", "Ctrl+H"}),
        orientation(view, Orientation::Vertical, {"Vertical", 'V', "Ctrl<Key>v", "Ctrl+V"})});
    menus.AddRadioMenu("Arcs", 'A', {
        arcs(view, XmPOSITION_FIXED, {"Fixed", 'F'}),
        arcs(view, XmPOSITION_RELATIVE, {"Relative", 'R'}),
        arcs(view, XmPOSITION_PROPORTIONAL, {"Proportional", 'P'})});
    menus.AddRadioMenu("Layout", 'L', {
        layout(view, XmGRAPH, {"Graph", 'G', "Ctrl<Key>g", "Ctrl+G"}),
        layout(view, XmBUTTERFLY, {"Butterfly", 'B', "Ctrl<Key>b", "Ctrl+B"})});
    menus.AddRadioMenu("Spacing", 'S', {
        spacing(view, compact_spacing, {"Compact", 'C'}),
        spacing(view, normal_spacing, {"Normal", 'N'}),
        spacing(view, wide_spacing, {"Wide", 'W'})});
    menus.AddSeparator();
    menus.AddToggle(twins(view, {"Twins Apart", 'T', "Ctrl<Key>t", "Ctrl+T"}));
    menus.AddToggle(icons(view, {"Icons", 'I', "Ctrl<Key>i", "Ctrl+I"}));
    menus.AddToggle(labels(view, {"Arc Labels", 'b', "Ctrl<Key>l", "Ctrl+L"}));
    // clang-format on
}

} // namespace graph_browser
