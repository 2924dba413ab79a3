#pragma once

#include <map>
#include <string>
#include <utility>

#include <Xm/Xm.h>

#include "DotGraph.h"
#include "Looks.h"

namespace graph_browser {

// Nodes as icon gadgets: beside its text each has its shape, small, and an arrow where children of it
// are not shown.
class NodeIcons {
public:
    explicit NodeIcons(Widget graph_widget);
    ~NodeIcons();
    NodeIcons(const NodeIcons &) = delete;
    NodeIcons &operator=(const NodeIcons &) = delete;

    // What makes an icon of a node's look.
    void AddTo(NodeLook &look, const Node &node, bool hides_children);

private:
    struct Outline {
        int corners; // 0: it is round
        int rings;
        bool operator<(const Outline &other) const {
            return std::pair(corners, rings) < std::pair(other.corners, other.rings);
        }
    };

    static Outline OutlineOf(const std::string &shape);
    Pixmap PictureOf(Outline outline);
    Pixmap Draw(Outline outline) const;

    Display *display; // outlives the graph
    Window root;
    XmRenderTable fonts;
    std::map<Outline, Pixmap> pictures;
};

} // namespace graph_browser
