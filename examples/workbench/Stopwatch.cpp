#include "Stopwatch.h"

#include <array>
#include <utility>

namespace workbench {

namespace {

// The toolkit's dispatchers have no client data.
Stay longest;
std::array<XtEventDispatchProc, LASTEvent> dispatchers{};

Boolean TimeDispatch(XEvent *event) {
    const auto begin = Clock::now();
    const int type = event->type;
    const Boolean dispatched = dispatchers[static_cast<std::size_t>(type)](event);
    NoteStay(begin, "event " + std::to_string(type));
    return dispatched;
}

} // namespace

void WatchEvents(Display *display) {
    for (int type = KeyPress; type < GenericEvent; type++) {
        dispatchers[static_cast<std::size_t>(type)] =
            XtSetEventDispatcher(display, type, TimeDispatch);
    }
}

double MillisecondsSince(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

void NoteStay(Clock::time_point begin, const std::string &at) {
    const double milliseconds = MillisecondsSince(begin);
    if (milliseconds > longest.milliseconds) {
        longest = {milliseconds, at};
    }
}

Stay TakeLongestStay() {
    return std::exchange(longest, {});
}

} // namespace workbench
