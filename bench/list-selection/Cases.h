/* What both programs of the bench have to know of one another. */

#ifndef CORVIDLMW_BENCH_LIST_SELECTION_CASES_H
#define CORVIDLMW_BENCH_LIST_SELECTION_CASES_H

namespace corvidlmw::bench {

inline constexpr int toggles = 10000;

inline constexpr const char *case_names[] = {"select",       "toggle",     "toggle-many",
                                             "extend-all",   "select-all", "selected-few",
                                             "selected-all", "by-string"};

} // namespace corvidlmw::bench

#endif
