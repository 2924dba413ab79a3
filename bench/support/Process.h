/* Another program, run for what it prints. */

#ifndef CORVIDLMW_BENCH_SUPPORT_PROCESS_H
#define CORVIDLMW_BENCH_SUPPORT_PROCESS_H

#include <chrono>
#include <string>
#include <vector>

namespace corvidlmw::bench {

struct Output {
    std::vector<std::string> lines;
    bool failed = false; // it ended by itself, and not well
};

// Runs a program and reads its standard output. It is killed when it takes longer than the patience.
Output RunProgram(const std::vector<std::string> &command, std::chrono::seconds patience);

} // namespace corvidlmw::bench

#endif
