// What the build knows of itself. BuildStamp.cmake writes the source of it.
#pragma once

namespace corvidlmw {

struct BuildStamp {
    const char *name;
    const char *version; // four numbers
    const char *note;    // of a variant of the library; empty in an ordinary one
    const char *built;   // weekday, month, day, time, zone, year
};

extern const BuildStamp build_stamp;

} // namespace corvidlmw
