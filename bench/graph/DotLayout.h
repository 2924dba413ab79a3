/* The same tree laid out by Graphviz. */

#ifndef CORVIDLMW_BENCH_GRAPH_DOTLAYOUT_H
#define CORVIDLMW_BENCH_GRAPH_DOTLAYOUT_H

#include <bench/graph/Shape.h>

namespace corvidlmw::bench {

// CPU seconds that the layout "dot" takes for the shape, reading and drawing left out.
double TimeOfDotLayout(const Shape &shape);

} // namespace corvidlmw::bench

#endif
