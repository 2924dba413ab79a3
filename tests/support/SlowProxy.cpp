#include <tests/support/SlowProxy.h>

#include <tests/support/ProtocolCounter.h>
#include <tests/support/XServer.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <deque>
#include <fcntl.h>
#include <list>
#include <mutex>
#include <poll.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace corvidlmw::test {

namespace {

using Clock = std::chrono::steady_clock;

// The socket of a display, without a file: there the client library looks first.
template <class Function>
int Socket(Function *use, int display_number) {
    const std::string path = "/tmp/.X11-unix/X" + std::to_string(display_number);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path + 1, sizeof address.sun_path - 1);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + path.size());
    const int descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (use(descriptor, reinterpret_cast<const sockaddr *>(&address), size) != 0) {
        const int error = errno;
        close(descriptor);
        errno = error;
        return -1;
    }
    return descriptor;
}

// One direction of one connection: what has come in waits here until it is due.
struct Pipe {
    struct Piece {
        Clock::time_point due;
        Bytes bytes;
    };

    int from;
    int to;
    bool ended = false;
    std::deque<Piece> under_way;

    // Returns what came in.
    Bytes TakeIn(std::chrono::microseconds delay) {
        std::array<unsigned char, 65536> chunk;
        const ssize_t got = recv(from, chunk.data(), chunk.size(), MSG_DONTWAIT);
        ended = got == 0 || (got < 0 && errno != EAGAIN && errno != EINTR);
        if (got <= 0)
            return {};
        const Bytes bytes(chunk.data(), chunk.data() + got);
        under_way.push_back({Clock::now() + delay, bytes});
        return bytes;
    }

    void HandOut(const unsigned char *data, std::size_t size) const {
        while (size > 0) {
            const ssize_t sent = send(to, data, size, MSG_NOSIGNAL);
            if (sent < 0 && errno != EINTR)
                return;
            data += std::max<ssize_t>(sent, 0);
            size -= static_cast<std::size_t>(std::max<ssize_t>(sent, 0));
        }
    }
};

struct Connection {
    Pipe to_server;
    Pipe to_client;
    ProtocolCounter counter;

    Connection(int client, int server)
        : to_server{.from = client, .to = server, .under_way = {}}, to_client{.from = server,
                                                                              .to = client,
                                                                              .under_way = {}} {}
    ~Connection() {
        close(to_server.from);
        close(to_server.to);
    }
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    bool Over() const {
        return (to_server.ended && to_server.under_way.empty()) ||
               (to_client.ended && to_client.under_way.empty());
    }
};

} // namespace

class SlowProxy::Carrier {
public:
    explicit Carrier(std::chrono::milliseconds round_trip) : delay_(round_trip / 2) {
        // Servers begin to count from 0.
        int number = 20000 + getpid() % 20000;
        while ((listener_ = Socket(&bind, number)) < 0 && errno == EADDRINUSE)
            number++;
        name_ = ":" + std::to_string(number);
        if (listener_ < 0 || listen(listener_, 8) != 0 || pipe2(wake_, O_CLOEXEC | O_NONBLOCK) != 0)
            throw std::runtime_error("no socket for a proxy");
        thread_ = std::thread([this] { Run(); });
    }

    ~Carrier() {
        Change([this] { stop_ = true; });
        thread_.join();
        StopListening();
        close(wake_[0]);
        close(wake_[1]);
    }

    const std::string &name() const { return name_; }

    Figures figures() {
        std::lock_guard lock(mutex_);
        Figures sum = figures_;
        for (const Connection &connection : connections_)
            Add(sum, connection);
        return sum;
    }

    void SetRoundTrip(std::chrono::milliseconds round_trip) {
        Change([&] { delay_ = round_trip / 2; });
    }

    void CutAfter(Direction direction, long bytes) {
        Change([&] { allowance_[static_cast<std::size_t>(direction)] = bytes; });
    }

private:
    static constexpr long unlimited = -1;

    template <class Act>
    void Change(Act act) {
        {
            std::lock_guard lock(mutex_);
            act();
        }
        [[maybe_unused]] const ssize_t woken = write(wake_[1], "", 1);
    }

    static void Add(Figures &sum, const Connection &connection) {
        sum.requests += std::max(connection.counter.requests(), 0L);
        sum.round_trips += connection.counter.round_trips();
    }

    void StopListening() {
        if (listener_ >= 0)
            close(std::exchange(listener_, -1));
    }

    void Run() {
        std::unique_lock lock(mutex_);
        while (!stop_) {
            auto wanted = WhatToWaitFor();
            const int timeout = MillisecondsToNext();
            lock.unlock();
            poll(wanted.data(), wanted.size(), timeout);
            lock.lock();
            std::array<char, 64> woken;
            while (read(wake_[0], woken.data(), woken.size()) > 0)
                continue;
            TakeConnections();
            Carry();
        }
        connections_.clear();
    }

    std::vector<pollfd> WhatToWaitFor() const {
        std::vector<pollfd> wanted = {{wake_[0], POLLIN, 0}};
        if (listener_ >= 0)
            wanted.push_back({listener_, POLLIN, 0});
        for (const Connection &connection : connections_)
            for (const Pipe *pipe : {&connection.to_server, &connection.to_client})
                if (!pipe->ended)
                    wanted.push_back({pipe->from, POLLIN, 0});
        return wanted;
    }

    int MillisecondsToNext() const {
        auto next = Clock::now() + std::chrono::hours(1);
        for (const Connection &connection : connections_)
            for (const Pipe *pipe : {&connection.to_server, &connection.to_client})
                if (!pipe->under_way.empty())
                    next = std::min(next, pipe->under_way.front().due);
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(next - Clock::now());
        return static_cast<int>(std::max<long>(left.count(), 0));
    }

    void TakeConnections() {
        pollfd ready{listener_, POLLIN, 0};
        if (listener_ < 0 || poll(&ready, 1, 0) != 1)
            return;
        const int client = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        const int server = Socket(&connect, std::stoi(server_.substr(1)));
        if (client >= 0 && server >= 0)
            connections_.emplace_back(client, server);
    }

    void Carry() {
        for (Connection &connection : connections_) {
            // Requests count from when the client sent them, replies when it gets them.
            if (!connection.to_server.ended)
                connection.counter.FromClient(connection.to_server.TakeIn(delay_));
            if (!connection.to_client.ended)
                connection.to_client.TakeIn(delay_);
            HandOutDue(connection, Direction::to_server);
            HandOutDue(connection, Direction::to_client);
        }
        if (cut_)
            StopListening();
        std::erase_if(connections_, [this](const Connection &connection) {
            if (!cut_ && !connection.Over())
                return false;
            Add(figures_, connection);
            return true;
        });
    }

    void HandOutDue(Connection &connection, Direction direction) {
        const bool up = direction == Direction::to_server;
        Pipe &pipe = up ? connection.to_server : connection.to_client;
        long &allowance = allowance_[static_cast<std::size_t>(direction)];
        const auto now = Clock::now();
        cut_ = cut_ || allowance == 0;
        while (!cut_ && !pipe.under_way.empty() && pipe.under_way.front().due <= now) {
            Bytes bytes = std::move(pipe.under_way.front().bytes);
            pipe.under_way.pop_front();
            if (allowance != unlimited) {
                bytes.resize(std::min(bytes.size(), static_cast<std::size_t>(allowance)));
                allowance -= static_cast<long>(bytes.size());
                cut_ = allowance == 0;
            }
            Count(connection, direction, bytes);
            pipe.HandOut(bytes.data(), bytes.size());
        }
    }

    void Count(Connection &connection, Direction direction, const Bytes &bytes) {
        if (direction == Direction::to_server) {
            figures_.bytes_to_server += static_cast<long>(bytes.size());
        } else {
            connection.counter.ToClient(bytes);
            figures_.bytes_to_client += static_cast<long>(bytes.size());
        }
    }

    std::chrono::microseconds delay_;
    const std::string server_ = XServer::Instance().name();
    std::string name_;
    int listener_ = -1;
    int wake_[2] = {-1, -1};
    std::thread thread_;

    std::mutex mutex_;
    bool stop_ = false;
    bool cut_ = false;
    std::array<long, 2> allowance_ = {unlimited, unlimited};
    Figures figures_; // requests and round trips only of connections that are over
    std::list<Connection> connections_;
};

SlowProxy::SlowProxy(std::chrono::milliseconds round_trip)
    : carrier_(std::make_unique<Carrier>(round_trip)) {}

SlowProxy::~SlowProxy() = default;

const std::string &SlowProxy::name() const {
    return carrier_->name();
}

SlowProxy::Figures SlowProxy::figures() const {
    return carrier_->figures();
}

void SlowProxy::SetRoundTrip(std::chrono::milliseconds round_trip) {
    carrier_->SetRoundTrip(round_trip);
}

void SlowProxy::CutAfter(Direction direction, long bytes) {
    carrier_->CutAfter(direction, bytes);
}

} // namespace corvidlmw::test
