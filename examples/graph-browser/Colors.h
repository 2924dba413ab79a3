#pragma once

#include <optional>
#include <string>
#include <unordered_map>

#include <Xm/Xm.h>

namespace graph_browser {

// A background with what goes with it.
struct Shades {
    Pixel background, foreground, top_shadow, bottom_shadow, arm;
};

// Colours by name. Each name costs the server one question, however often it is used.
class Colors {
public:
    explicit Colors(Widget of) : widget(of) {}

    // None for a name that the server does not know.
    std::optional<Pixel> Find(const std::string &name);

    // The toolkit's choice of a legible foreground and of shadows.
    Shades ShadesOf(Pixel background) const;

private:
    Widget widget;
    std::unordered_map<std::string, std::optional<Pixel>> known;
};

} // namespace graph_browser
