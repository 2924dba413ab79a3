/* What a client costs the server: requests, waits for replies, resources held. */

#ifndef CORVIDLMW_TESTS_SUPPORT_TRAFFIC_H
#define CORVIDLMW_TESTS_SUPPORT_TRAFFIC_H

#include <X11/Intrinsic.h>

#include <map>
#include <ostream>
#include <string>

namespace corvidlmw::test {

// Counts from its construction on. What the harness itself sends does not count.
class RequestCounter {
public:
    explicit RequestCounter(Display *display);

    // Requests sent, through Xlib or xcb.
    long requests() const;
    // Times that the client stood still for the server. Several replies asked for together and
    // then collected are one round trip.
    long round_trips() const;
    // Requests whose reply was waited for.
    long replies() const;
    void Restart();

    // What the harness itself waited for on this connection, ever.
    static long UnseenRoundTrips(Display *display);

private:
    Display *display_;
    long requests_at_start_ = 0;
    long round_trips_at_start_ = 0;
    long replies_at_start_ = 0;
};

// The resources that the server holds for a client, by the server's names for their types.
struct ServerResources {
    std::map<std::string, int> counts;

    // Of the client that owns the connection.
    static ServerResources Of(Display *display);

    int windows() const { return Count("WINDOW"); }
    int pixmaps() const { return Count("PIXMAP"); }
    int gcs() const { return Count("GC"); }
    int cursors() const { return Count("CURSOR"); }
    int fonts() const { return Count("FONT"); }
    int Count(const std::string &type) const;

    bool operator==(const ServerResources &) const = default;
};

std::ostream &operator<<(std::ostream &, const ServerResources &);

} // namespace corvidlmw::test

#endif
