// What waits for its turn: timers, work procedures and callbacks of the library under test. The program stands
// between the toolkit and its clients to know. Timers run fifty times as fast as they were asked for,
// and after a second of theirs at the latest: a client may ask for weeks.
#pragma once

#include <X11/Intrinsic.h>

#include <string>
#include <vector>

namespace corvidlmw::storm {

int WaitingTimers();
int WaitingWorkProcs();
// The procedures of both, for a message.
std::string WaitingNames();

// To be called once for a display, so that deaths of its widgets are known.
void FollowLives(Display *display);
// Those of all three that name a widget that is gone, and those that are there twice.
std::vector<std::string> Strays();

// Whether an event is being handled: widgets that are ended then are gone only afterwards.
bool IsDispatching();

// Called when the toolkit asks in vain whether there is anything to do: its drags do so in a loop without an end.
void WhenNothingIsPending(void (*act)(void *closure), void *closure);

} // namespace corvidlmw::storm
