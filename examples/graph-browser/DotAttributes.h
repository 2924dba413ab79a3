#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <graphviz/cgraph.h>

#include "DotGraph.h"
#include "DotText.h"

// The attributes of DOT that the browser shows, read from libcgraph's objects.
namespace graph_browser {

// How the text of one graph is to be read.
struct TextRules {
    bool latin1 = false;
    std::string graph_name;
};

TextRules RulesOf(Agraph_t *graph);
std::optional<Orientation> OrientationOf(Agraph_t *graph);
std::string ClusterLabel(Agraph_t *cluster, const TextRules &rules);

// A colour of DOT (a name, #rrggbb, three HSV numbers, the first of a list) as Xlib writes it;
// empty for transparent ones and none.
std::string XColorName(std::string_view color);

// Attribute names are looked up once for all nodes, not once for each.
class NodeAttributes {
public:
    NodeAttributes(Agraph_t *graph, const TextRules &text_rules);
    Node Read(Agnode_t *node) const;

private:
    LabelText Label(Agnode_t *node, std::string_view name) const;

    const TextRules &rules;
    Agsym_t *label, *shape, *style, *color, *fill_color, *font_color, *place;
};

class EdgeAttributes {
public:
    EdgeAttributes(Agraph_t *graph, const TextRules &text_rules);
    Edge Read(Agedge_t *edge) const; // its ends are left to the caller

private:
    std::string Label(Agedge_t *edge) const;

    const TextRules &rules;
    bool directed;
    Agsym_t *label, *external_label, *style, *color, *pen_width, *dir;
};

} // namespace graph_browser
