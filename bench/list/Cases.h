/* What both programs of the bench have to know of one another. */

#ifndef CORVIDLMW_BENCH_LIST_CASES_H
#define CORVIDLMW_BENCH_LIST_CASES_H

namespace corvidlmw::bench {

struct CaseTitle {
    const char *name;
    bool by_row = false;
    bool needs_bar = false;
};

inline constexpr CaseTitle case_titles[] = {
    {.name = "set-items"},
    {.name = "add-at-once"},
    {.name = "replace-all"},
    {.name = "replace-one"},
    {.name = "delete-all"},
    {.name = "redraw"},
    {.name = "scroll-step", .needs_bar = true},
    {.name = "next-position"},
    {.name = "add-each", .by_row = true},
    {.name = "delete-front", .by_row = true},
};

// Cases that go together: those with a call for each row can take very long.
inline constexpr const char *case_groups[] = {"at-once", "add-each", "delete-front"};

} // namespace corvidlmw::bench

#endif
