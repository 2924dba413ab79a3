/* The shapes that are measured. Needs no display. */

#ifndef CORVIDLMW_BENCH_GRAPH_SHAPE_H
#define CORVIDLMW_BENCH_GRAPH_SHAPE_H

#include <string>
#include <string_view>
#include <vector>

namespace corvidlmw::bench {

struct Edge {
    int from = 0;
    int to = 0;
};

// Edges lead from a lower node to a higher one, and stand in the order of the higher one.
struct Shape {
    std::string name;
    int nodes = 0;
    std::vector<Edge> edges;
    // Whether its levels run from top to bottom, where more of them fit into the 32,767 pixels that a
    // window can have.
    bool downward = false;

    // Of a shape that is a tree: the node that leads to each, -1 for the root.
    std::vector<int> Parents() const;
};

// "chain", "tree" (each node leads to four), "star" or "dag": as many nodes as asked for and twice as
// many arcs, the same ones each time.
Shape MakeShape(std::string_view name, int nodes);

} // namespace corvidlmw::bench

#endif
