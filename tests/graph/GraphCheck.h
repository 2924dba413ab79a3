#pragma once

#include <X11/Intrinsic.h>

namespace corvidlmw::test {

// Expects that all lists of a graph agree with one another and name only what is alive.
void ExpectConsistent(Widget graph);

} // namespace corvidlmw::test
