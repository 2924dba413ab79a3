// Takes steps away for as long as the same fault is seen.
#pragma once

#include <tests/storm/Play.h>

namespace corvidlmw::storm {

// `outcome` is that of `steps`. Gives up at the time limit with what it has.
Steps Shrink(const Steps &steps, const Outcome &outcome, int seconds);

} // namespace corvidlmw::storm
