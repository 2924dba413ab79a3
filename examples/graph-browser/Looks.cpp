#include "Looks.h"

#include <corvidlmw/graph/Arc.h>
#include <corvidlmw/graph/Graph.h>

namespace graph_browser {
namespace {

constexpr int dash_length = 6;
constexpr int dot_length = 2;

int DashesOf(LineKind line) {
    return line == LineKind::Dotted ? dot_length : dash_length;
}

int ArcDirectionOf(Direction direction) {
    switch (direction) {
    case Direction::Both: return XmBIDIRECTED;
    case Direction::Forward: return XmDIRECTED;
    case Direction::Neither: return XmUNDIRECTED;
    }
    return XmUNDIRECTED;
}

} // namespace

void Arguments::Add(const Shades &shades) {
    Add(XmNbackground, shades.background);
    Add(XmNforeground, shades.foreground);
    Add(XmNtopShadowColor, shades.top_shadow);
    Add(XmNbottomShadowColor, shades.bottom_shadow);
    Add(XmNarmColor, shades.arm);
}

Shades ShadesIn(Widget widget) {
    return Shades{.background = GetResource<Pixel>(widget, XmNbackground),
                  .foreground = GetResource<Pixel>(widget, XmNforeground),
                  .top_shadow = GetResource<Pixel>(widget, XmNtopShadowColor),
                  .bottom_shadow = GetResource<Pixel>(widget, XmNbottomShadowColor),
                  .arm = GetResource<Pixel>(widget, XmNarmColor)};
}

void SetShades(Widget widget, const Shades &shades) {
    Arguments arguments;
    arguments.Add(shades);
    XtSetValues(widget, arguments.Get(), arguments.Count());
}

Sides SidesFor(Orientation orientation) {
    return orientation == Orientation::Horizontal ? Sides{XmARC_RIGHT, XmARC_LEFT}
                                                  : Sides{XmARC_BOTTOM, XmARC_TOP};
}

NodeLook::NodeLook(Colors &colors, const Node &node) : label(node.label, text_rendition) {
    Add(XmNlabelString, label.Get());
    if (node.left_aligned)
        Add(XmNalignment, XmALIGNMENT_BEGINNING);
    std::optional<Shades> shades;
    if (const auto fill = colors.Find(node.fill))
        shades = colors.ShadesOf(*fill);
    const auto text_color = colors.Find(node.text_color);
    if (shades && text_color)
        shades->foreground = *text_color;
    if (shades)
        Add(*shades);
    else if (text_color)
        Add(XmNforeground, *text_color);
}

ArcLook::ArcLook(Colors &colors, const Edge &edge, Orientation orientation, bool show_label)
    : label(edge.label) {
    const Sides sides = SidesFor(orientation);
    Add(XmNfromSide, sides.from);
    Add(XmNtoSide, sides.to);
    Add(XmNarcDirection, ArcDirectionOf(edge.direction));
    Add(XmNarcWidth, edge.width);
    Add(XmNstyle, edge.line == LineKind::Solid ? LineSolid : LineOnOffDash);
    Add(XmNdashes, DashesOf(edge.line));
    if (const auto color = colors.Find(edge.color))
        Add(XmNforeground, *color);
    Add(XmNmapLabel, show_label && !edge.label.empty());
    if (!edge.label.empty())
        Add(XmNlabelString, label.Get());
}

} // namespace graph_browser
