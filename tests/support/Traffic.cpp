#include <tests/support/Traffic.h>

#include <tests/support/Interpose.h>
#include <tests/support/XServer.h>

#include <X11/extensions/XRes.h>

namespace corvidlmw::test {

namespace {

// Requests that went through xcb enter Xlib's own count only with Xlib's next request.
long RequestsSent(Display *display) {
    interpose::SendUnseen(display, XNoOp);
    return static_cast<long>(XNextRequest(display)) - interpose::CountsOf(display).ignored_requests;
}

} // namespace

RequestCounter::RequestCounter(Display *display) : display_(display) {
    Restart();
}

void RequestCounter::Restart() {
    requests_at_start_ = RequestsSent(display_);
    round_trips_at_start_ = interpose::CountsOf(display_).round_trips;
    replies_at_start_ = interpose::CountsOf(display_).replies;
}

long RequestCounter::requests() const {
    return RequestsSent(display_) - requests_at_start_;
}

long RequestCounter::round_trips() const {
    return interpose::CountsOf(display_).round_trips - round_trips_at_start_;
}

long RequestCounter::UnseenRoundTrips(Display *display) {
    return interpose::CountsOf(display).ignored_round_trips;
}

long RequestCounter::replies() const {
    return interpose::CountsOf(display_).replies - replies_at_start_;
}

// The server names a client by any identifier of its range, used or not.
ServerResources ServerResources::Of(Display *display) {
    interpose::SyncUnseen(display);
    Display *robot = XServer::Instance().robot();
    int count = 0;
    XResType *types = nullptr;
    ServerResources resources;
    if (!XResQueryClientResources(robot, XAllocID(display), &count, &types))
        return resources;
    for (int i = 0; i < count; ++i) {
        char *type = XGetAtomName(robot, types[i].resource_type);
        resources.counts[type] += static_cast<int>(types[i].count);
        XFree(type);
    }
    XFree(types);
    return resources;
}

int ServerResources::Count(const std::string &type) const {
    const auto found = counts.find(type);
    return found == counts.end() ? 0 : found->second;
}

std::ostream &operator<<(std::ostream &out, const ServerResources &resources) {
    for (const auto &[type, count] : resources.counts)
        out << type << ' ' << count << "  ";
    return out;
}

} // namespace corvidlmw::test
