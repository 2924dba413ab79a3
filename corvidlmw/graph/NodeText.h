// What a node says in text: asked of widgets and gadgets of any class, which need not have a label or a
// font at all.
#pragma once

#include <corvidlmw/toolkit/Toolkit.h>

namespace corvidlmw::graph {

// Ascent and descent of the first font of a node, or a usual size for one without fonts.
int FontSizeOf(Widget node);

// The text of each segment of a node's XmNlabelString. One is kept for the length of a walk over many
// nodes, since it remembers what it found out of their classes.
class Labels {
public:
    Vector<Text> Of(Widget node);

private:
    struct Source {
        bool can_ask;
        bool copied; // a query gives a copy, to be freed
    };
    Source SourceFor(WidgetClass node_class);

    UnorderedMap<WidgetClass, Source> sources_;
};

} // namespace corvidlmw::graph
