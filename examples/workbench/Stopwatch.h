// How long the program stays away from its event loop.
#pragma once

#include <chrono>
#include <string>

#include <X11/Intrinsic.h>

namespace workbench {

using Clock = std::chrono::steady_clock;

struct Stay {
    double milliseconds = 0;
    std::string at; // what went on
};

// Times the dispatch of each event of this display from now on.
void WatchEvents(Display *display);

// Counts a stay from `begin` to now.
void NoteStay(Clock::time_point begin, const std::string &at);

// Of all that was noted since the last call.
Stay TakeLongestStay();

double MillisecondsSince(Clock::time_point begin);

} // namespace workbench
