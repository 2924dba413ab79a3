// Plays steps in a process of their own, and tells how that ended.
#pragma once

#include <tests/storm/Step.h>

#include <string>

namespace corvidlmw::storm {

struct Outcome {
    bool clean = false;
    int last_step = 0; // where it ended, if it did not end well
    int done = 0;      // steps that had something to do
    std::string kind;  // the same for the same fault, as far as one can tell: "" if clean
    std::string log;
};

struct Manner {
    // After how many steps the widgets are looked at.
    int check_every = 1;
    // At the end all is taken down, and the leak checker has its say.
    bool to_the_end = true;
    int watchdog_seconds = 40; // for one step
};

Outcome Play(const Steps &steps, const Manner &manner = {});

} // namespace corvidlmw::storm
