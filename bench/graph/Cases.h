/* The cases, in an order in which one subject can go through all of them. */

#ifndef CORVIDLMW_BENCH_GRAPH_CASES_H
#define CORVIDLMW_BENCH_GRAPH_CASES_H

#include <bench/graph/Session.h>

#include <span>

namespace corvidlmw::bench {

struct Case {
    const char *name; // without blanks: the two programs tell it to each other
    Stage needs;
    // Not measured, before and after each time; may be NULL.
    void (*prepare)(Session &);
    // Measured. False if the subject has no such thing.
    bool (*act)(Session &);
    void (*restore)(Session &);
    // How much more often it is timed than a build, being shorter.
    int repeat;
    bool ends = false; // takes the session back to its beginning
};

std::span<const Case> Cases();

} // namespace corvidlmw::bench

#endif
