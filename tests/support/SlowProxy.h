/* A way to the private X server that is as slow as a test wants it, counts what goes over it, and can be
 * cut. Clients open `name()`; the robot's connection stays direct. */

#ifndef CORVIDLMW_TESTS_SUPPORT_SLOWPROXY_H
#define CORVIDLMW_TESTS_SUPPORT_SLOWPROXY_H

#include <chrono>
#include <memory>
#include <string>

namespace corvidlmw::test {

class SlowProxy {
public:
    enum class Direction { to_server, to_client };

    struct Figures {
        long requests = 0;
        // Times that a client stood still for a reply: it had sent nothing after the request.
        long round_trips = 0;
        long bytes_to_server = 0;
        long bytes_to_client = 0;
    };

    // Each way takes half of the round trip.
    explicit SlowProxy(std::chrono::milliseconds round_trip = {});
    ~SlowProxy();
    // For what is sent from now on.
    void SetRoundTrip(std::chrono::milliseconds round_trip);
    SlowProxy(const SlowProxy &) = delete;
    SlowProxy &operator=(const SlowProxy &) = delete;

    const std::string &name() const;

    // Of all connections so far.
    Figures figures() const;

    // After this many more bytes in one direction all connections end, and no new one is taken: to clients
    // the server is dead.
    void CutAfter(Direction direction, long bytes);
    void CutNow() { CutAfter(Direction::to_server, 0); }

private:
    class Carrier;
    std::unique_ptr<Carrier> carrier_;
};

} // namespace corvidlmw::test

#endif
