#include "Colors.h"

namespace graph_browser {
namespace {

Colormap ColormapOf(Widget widget) {
    Colormap colormap = None;
    XtVaGetValues(widget, XmNcolormap, &colormap, nullptr);
    return colormap;
}

} // namespace

std::optional<Pixel> Colors::Find(const std::string &name) {
    if (name.empty())
        return std::nullopt;
    const auto [entry, added] = known.try_emplace(name);
    XColor shown{};
    XColor exact{};
    if (added &&
        XAllocNamedColor(XtDisplay(widget), ColormapOf(widget), name.c_str(), &shown, &exact))
        entry->second = shown.pixel;
    return entry->second;
}

Shades Colors::ShadesOf(Pixel background) const {
    Shades shades{.background = background};
    XmGetColors(XtScreen(widget), ColormapOf(widget), background, &shades.foreground,
                &shades.top_shadow, &shades.bottom_shadow, &shades.arm);
    return shades;
}

} // namespace graph_browser
