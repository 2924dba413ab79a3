/* What we promise, held against what was measured. */

#ifndef CORVIDLMW_BENCH_GRAPH_GOALS_H
#define CORVIDLMW_BENCH_GRAPH_GOALS_H

#include <bench/graph/Measuring.h>

#include <ostream>

namespace corvidlmw::bench {

void PrintGoals(std::ostream &out, const Results &results, double seconds_of_dot);

} // namespace corvidlmw::bench

#endif
