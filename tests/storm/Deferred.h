// The timers and work procedures that are waiting, by who asked for them. The program stands between the
// toolkit and its clients to know.
#pragma once

#include <string>

namespace corvidlmw::storm {

// Of the library under test.
int WaitingTimers();
int WaitingWorkProcs();

// Called when the toolkit asks in vain whether there is anything to do: its drags do so in a loop without an end.
void WhenNothingIsPending(void (*act)(void *closure), void *closure);

} // namespace corvidlmw::storm
