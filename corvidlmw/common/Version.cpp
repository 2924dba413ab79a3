// The version stamp, and the ways that it takes to the reader.

#include <corvidlmw/common/Version.h>

#include <corvidlmw/common/VersionLine.h>

#include <cstdio>

// A program may have these: its own output for messages. The number before the arguments is theirs, and
// no argument of the format.
extern "C" {
[[gnu::weak]] void imsg_print(void *destination, const char *format, int number, ...);
[[gnu::weak]] void imsg_sprintf(char *buffer, const char *format, int number, ...);
}

using namespace corvidlmw;

namespace {

constexpr int no_number = -1;

} // namespace

extern "C" {

void libcorvidlmw_print_verid(void) {
    if (imsg_print) {
        PrintVersionLine(build_stamp, [](const char *format, auto... arguments) {
            imsg_print(nullptr, format, no_number, arguments...);
        });
    } else {
        PrintVersionLine(build_stamp, [](const char *format, auto... arguments) {
            std::printf(format, arguments...);
        });
    }
}

void libcorvidlmw_sprintf_verid(char *buffer) {
    if (!buffer) {
        return;
    }
    if (imsg_sprintf) {
        PrintVersionLine(build_stamp, [buffer](const char *format, auto... arguments) {
            imsg_sprintf(buffer, format, no_number, arguments...);
        });
    } else {
        PrintVersionLine(build_stamp, [buffer](const char *format, auto... arguments) {
            std::sprintf(buffer, format, arguments...);
        });
    }
}

} // extern "C"
