#include <bench/support/Verdict.h>

#include <cmath>
#include <cstdio>

namespace corvidlmw::bench {

void PrintVerdict(const std::string &what, double value, double limit) {
    std::printf("  %-8s %-62s %8.3f  goal <= %.2f\n",
                std::isnan(value) ? "no value"
                : value <= limit  ? "met"
                                  : "MISSED",
                what.c_str(), value, limit);
}

} // namespace corvidlmw::bench
