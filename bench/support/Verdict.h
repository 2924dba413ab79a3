/* Whether a goal is met, as a line for people. */

#ifndef CORVIDLMW_BENCH_SUPPORT_VERDICT_H
#define CORVIDLMW_BENCH_SUPPORT_VERDICT_H

#include <string>

namespace corvidlmw::bench {

// Met if the value is at most the limit. A value that is no number was not measured.
void PrintVerdict(const std::string &what, double value, double limit);

} // namespace corvidlmw::bench

#endif
