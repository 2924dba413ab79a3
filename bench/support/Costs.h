/* What a case costs the process that it runs in. */

#ifndef CORVIDLMW_BENCH_SUPPORT_COSTS_H
#define CORVIDLMW_BENCH_SUPPORT_COSTS_H

#include <vector>

namespace corvidlmw::bench {

// Both of the process, up to now.
double CpuSeconds();
long AllocatedBytes();

double Median(std::vector<double> numbers);

} // namespace corvidlmw::bench

#endif
