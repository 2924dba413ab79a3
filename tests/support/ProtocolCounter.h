/* Reads along on a connection of the X protocol, in whatever pieces it comes. Not for tests. */

#ifndef CORVIDLMW_TESTS_SUPPORT_PROTOCOLCOUNTER_H
#define CORVIDLMW_TESTS_SUPPORT_PROTOCOLCOUNTER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace corvidlmw::test {

using Bytes = std::vector<unsigned char>;

// Cuts a stream into packets.
class PacketReader {
public:
    // Told the bytes at hand, a rule says how long the packet is that they begin with; 0 if it takes more
    // to know.
    using LengthRule = std::size_t (*)(const Bytes &begun, bool first);

    PacketReader(LengthRule rule, std::function<void(const Bytes &head)> on_packet)
        : rule_(rule), on_packet_(std::move(on_packet)) {}
    void Read(const Bytes &bytes);

private:
    LengthRule rule_;
    std::function<void(const Bytes &)> on_packet_;
    Bytes head_;
    std::size_t length_ = 0; // of the packet that `head_` begins; 0 while it is not known
    std::size_t seen_ = 0;
    bool first_ = true;
};

// Counts one connection's requests and the waits for their replies. The client's byte order is this
// machine's.
class ProtocolCounter {
public:
    ProtocolCounter();

    void FromClient(const Bytes &bytes) { requests_in_.Read(bytes); }
    void ToClient(const Bytes &bytes) { replies_in_.Read(bytes); }

    long requests() const { return requests_; }
    long round_trips() const { return round_trips_; }

private:
    void NoteReply(const Bytes &head);

    long requests_ = -1; // the first packet sets the connection up
    long round_trips_ = 0;
    long covered_ = 0; // up to this request all were sent before the last wait ended
    bool set_up_ = false;
    PacketReader requests_in_;
    PacketReader replies_in_;
};

} // namespace corvidlmw::test

#endif
