#include <corvidlmw/toolkit/Memory.h>

#include <cstdlib>
#include <limits>

namespace corvidlmw {

namespace {

// As the toolkit says it of its own requests.
[[noreturn]] void SayThereIsNone() {
    char function[] = "malloc";
    String parameters[] = {function};
    Cardinal count = 1;
    XtErrorMsg("allocError", "malloc", "XtToolkitError", "Cannot perform %s", parameters, &count);
    std::abort();
}

} // namespace

// The toolkit's functions take 32 bits; XtCalloc multiplies beyond them. A handler of the client's that returns
// from an error of the toolkit's gets no block to go on with.
void *AllocateBlock(std::size_t count, std::size_t size) {
    constexpr std::size_t most = std::numeric_limits<Cardinal>::max();
    if (count > most || size > most) {
        SayThereIsNone();
    }
    char *block = count * size <= most
                      ? XtMalloc(static_cast<Cardinal>(count * size))
                      : XtCalloc(static_cast<Cardinal>(count), static_cast<Cardinal>(size));
    if (!block) {
        std::abort();
    }
    return block;
}

} // namespace corvidlmw
