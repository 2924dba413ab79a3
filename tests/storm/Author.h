// Writes the steps of a storm: the same from the same seed.
#pragma once

#include <tests/storm/Cast.h>
#include <tests/storm/Scenes.h>
#include <tests/storm/Step.h>

#include <cstdint>

namespace corvidlmw::storm {

Steps WriteSteps(const Scene &scene, std::uint64_t seed, int count);

} // namespace corvidlmw::storm
