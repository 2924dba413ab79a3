/* What we promise, held against what was measured. */

#ifndef CORVIDLMW_BENCH_LIST_GOALS_H
#define CORVIDLMW_BENCH_LIST_GOALS_H

#include <bench/list/Measuring.h>

namespace corvidlmw::bench {

void PrintGoals(const Results &results);

} // namespace corvidlmw::bench

#endif
