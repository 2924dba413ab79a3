/* Waits for replies: Xlib's all pass through _XReply, a client's own through xcb. */

#include <tests/support/Interpose.h>
#include <tests/support/Recorder.h>

#include <X11/Xlib-xcb.h>
#include <X11/Xproto.h>
#include <xcb/xcbext.h>

#include <cstdint>
#include <map>

namespace corvidlmw::test::interpose {

namespace {

struct Connection {
    Counts counts;
    uint32_t last_sent_by_xcb = 0;
    // Every request up to this one was sent before the last wait began.
    uint32_t covered = 0;
};

std::map<xcb_connection_t *, Connection> &Connections() {
    static std::map<xcb_connection_t *, Connection> connections;
    return connections;
}

int xlib_waits = 0;

bool IsAfter(uint32_t a, uint32_t b) {
    return static_cast<int32_t>(a - b) > 0;
}

void NoteWait(xcb_connection_t *c, uint32_t awaited, uint32_t last_sent) {
    auto &connection = Connections()[c];
    const bool travels = IsAfter(awaited, connection.covered);
    if (travels)
        connection.covered = IsAfter(last_sent, awaited) ? last_sent : awaited;
    if (Unseen::Active()) {
        connection.counts.ignored_round_trips += travels ? 1 : 0;
        return;
    }
    ++connection.counts.replies;
    connection.counts.round_trips += travels ? 1 : 0;
}

void NoteXcbWait(xcb_connection_t *c, uint64_t awaited) {
    if (xlib_waits == 0)
        NoteWait(c, static_cast<uint32_t>(awaited), Connections()[c].last_sent_by_xcb);
}

} // namespace

Counts CountsOf(Display *display) {
    return Connections()[XGetXCBConnection(display)].counts;
}

void SendUnseen(Display *display, int (*request)(Display *)) {
    Unseen harness;
    request(display);
    ++Connections()[XGetXCBConnection(display)].counts.ignored_requests;
}

void SyncUnseen(Display *display) {
    SendUnseen(display, [](Display *client) { return XSync(client, False); });
}

} // namespace corvidlmw::test::interpose

#pragma GCC visibility push(default)
extern "C" {

using namespace corvidlmw::test;

Status _XReply(Display *display, xReply *reply, int extra, Bool discard) {
    static auto *const next = interpose::Next(&_XReply, "_XReply");
    const auto awaited = static_cast<uint32_t>(NextRequest(display) - 1);
    interpose::NoteWait(XGetXCBConnection(display), awaited, awaited);
    ++interpose::xlib_waits;
    const Status status = next(display, reply, extra, discard);
    --interpose::xlib_waits;
    return status;
}

uint64_t xcb_send_request_with_fds64(xcb_connection_t *c, int flags, iovec *vector,
                                     const xcb_protocol_request_t *request, unsigned int count,
                                     int *descriptors) {
    static auto *const next =
        interpose::Next(&xcb_send_request_with_fds64, "xcb_send_request_with_fds64");
    const uint64_t sequence = next(c, flags, vector, request, count, descriptors);
    interpose::Connections()[c].last_sent_by_xcb = static_cast<uint32_t>(sequence);
    return sequence;
}

// The next connection may come to lie at the same address.
void xcb_disconnect(xcb_connection_t *c) {
    static auto *const next = interpose::Next(&xcb_disconnect, "xcb_disconnect");
    interpose::Connections().erase(c);
    next(c);
}

void *xcb_wait_for_reply(xcb_connection_t *c, unsigned int request, xcb_generic_error_t **error) {
    static auto *const next = interpose::Next(&xcb_wait_for_reply, "xcb_wait_for_reply");
    interpose::NoteXcbWait(c, request);
    return next(c, request, error);
}

void *xcb_wait_for_reply64(xcb_connection_t *c, uint64_t request, xcb_generic_error_t **error) {
    static auto *const next = interpose::Next(&xcb_wait_for_reply64, "xcb_wait_for_reply64");
    interpose::NoteXcbWait(c, request);
    return next(c, request, error);
}

} // extern "C"
