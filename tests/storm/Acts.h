// The verbs of steps.
#pragma once

#include <tests/storm/Step.h>
#include <tests/storm/Values.h>

namespace corvidlmw::storm {

class Storm;

// False where the verb is unknown, a word is missing, or a widget is dead.
bool Act(Storm &storm, const Step &step);

// ---- Families of verbs, each in a source of its own

// "call": a function of the public interface with its arguments.
bool CallFunction(World &world, const Step &step);
// "event", "send", "action": events that never happened.
bool MakeEvent(World &world, const Step &step);

} // namespace corvidlmw::storm
