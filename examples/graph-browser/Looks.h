#pragma once

#include <array>
#include <optional>

#include <Xm/Xm.h>

#include "Colors.h"
#include "DotGraph.h"
#include "Text.h"

// What a node or an edge says of its look, as resources of its widget.
namespace graph_browser {

// Resources for one XtCreateWidget or XtSetValues; more than fit are a mistake in these files.
class Arguments {
public:
    template <typename Value>
    void Add(const char *name, Value value) {
        XtSetArg(arguments[count], Name(name), value);
        ++count;
    }
    void Add(const Shades &shades);
    ArgList Get() { return arguments.data(); }
    Cardinal Count() const { return count; }

private:
    std::array<Arg, 16> arguments;
    Cardinal count = 0;
};

template <typename Value>
Value GetResource(Widget widget, const char *name) {
    Value value{};
    XtVaGetValues(widget, Name(name), &value, nullptr);
    return value;
}

// The rendition that the browser's text is in: Application.cpp.
inline constexpr const char *text_rendition = "text";

Shades ShadesIn(Widget widget);
void SetShades(Widget widget, const Shades &shades);

// The sides of their nodes at which arcs begin and end: they run with the levels of the layout.
struct Sides {
    short from;
    short to;
};
Sides SidesFor(Orientation orientation);

// The label's string lives as long as the look.
class NodeLook : public Arguments {
public:
    NodeLook(Colors &colors, const Node &node);

private:
    Text label;
};

class ArcLook : public Arguments {
public:
    ArcLook(Colors &colors, const Edge &edge, Orientation orientation, bool show_label);

private:
    Text label;
};

} // namespace graph_browser
