/* The table, for people. */

#ifndef CORVIDLMW_BENCH_GRAPH_TABLE_H
#define CORVIDLMW_BENCH_GRAPH_TABLE_H

#include <bench/graph/Measuring.h>

#include <ostream>

namespace corvidlmw::bench {

// The cases as the subject program names them, in its order, and what the table calls them.
struct CaseTitle {
    std::string_view name;
    std::string_view title;
};

inline constexpr CaseTitle case_titles[] = {
    {"build", "build"},
    {"layout", "layout"},
    {"first-expose", "first expose"},
    {"full-redraw", "full redraw"},
    {"view-redraw", "redraw 1000x800"},
    {"relayout", "relayout"},
    {"add", "add node"},
    {"add-automatic", "add, automatic"},
    {"teardown", "teardown"},
};

void PrintTable(std::ostream &out, const Results &results);

} // namespace corvidlmw::bench

#endif
