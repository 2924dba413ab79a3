/* What both programs of the bench have to know of one another. */

#ifndef CORVIDLMW_BENCH_GADGET_GADGETS_H
#define CORVIDLMW_BENCH_GADGET_GADGETS_H

namespace corvidlmw::bench {

struct CaseTitle {
    const char *name;
    const char *title;
};

inline constexpr CaseTitle case_titles[] = {
    {"create", "create"},
    {"lay-out", "lay out"},
    {"draw", "draw"},
    {"destroy", "destroy"},
};

} // namespace corvidlmw::bench

#endif
