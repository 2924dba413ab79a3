// What stands on the stage when a storm begins, and stands up again while it lasts.
#pragma once

#include <tests/storm/Chance.h>
#include <tests/storm/Step.h>

#include <X11/Intrinsic.h>

#include <string>
#include <vector>

namespace corvidlmw::storm {

struct Scene {
    const char *name;
    WidgetClass *subject; // NULL for all classes
    Steps (*set)(Chance &chance);
};

const std::vector<Scene> &Scenes();
const Scene *SceneOf(const std::string &name);

// The numbers below this are the scenes' own.
constexpr int first_free_id = 100;

} // namespace corvidlmw::storm
