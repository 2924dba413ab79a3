// The line that says what the library is.
#pragma once

#include <corvidlmw/common/BuildStamp.h>

namespace corvidlmw {

// Hands a format and its arguments to `print`, which is a printf to somewhere.
template <class Print>
void PrintVersionLine(const BuildStamp &stamp, Print print) {
    constexpr int name_width = 33;
    if (stamp.note[0] == '\0') {
        print("%-*s %s (%s)\n", name_width, stamp.name, stamp.version, stamp.built);
    } else {
        print("%-*s %s \"%s\" (%s)\n", name_width, stamp.name, stamp.version, stamp.note,
              stamp.built);
    }
}

} // namespace corvidlmw
