/* What both programs of the bench have to know of one another. */

#ifndef CORVIDLMW_BENCH_SCROLLBAR_BARS_H
#define CORVIDLMW_BENCH_SCROLLBAR_BARS_H

namespace corvidlmw::bench {

// A case is for so many bars, and its cost is told for one; but a profile counts all of them.
inline constexpr int bars_at_once = 100;

struct CaseTitle {
    const char *name;
    const char *title;
    int bars;
};

inline constexpr CaseTitle case_titles[] = {
    {"create", "create", bars_at_once},
    {"show", "first expose", bars_at_once},
    {"set-values", "set values", bars_at_once},
    {"set-same-pixel", "set values, same pixel", bars_at_once},
    {"drag-step", "drag step", bars_at_once},
    {"repeat-step", "repeat step", 1},
    {"destroy", "destroy", bars_at_once},
};

} // namespace corvidlmw::bench

#endif
