#include <tests/support/ProtocolCounter.h>

#include <X11/X.h>
#include <X11/Xproto.h>

#include <algorithm>
#include <cstring>

namespace corvidlmw::test {

namespace {

constexpr std::size_t longest_head = 12;

template <class Number>
Number At(const Bytes &bytes, std::size_t offset) {
    Number number{};
    std::memcpy(&number, bytes.data() + offset, sizeof number);
    return number;
}

std::size_t Padded(std::size_t size) {
    return (size + 3) / 4 * 4;
}

std::size_t RequestLength(const Bytes &begun, bool first) {
    if (first)
        return begun.size() < 12
                   ? 0
                   : 12 + Padded(At<uint16_t>(begun, 6)) + Padded(At<uint16_t>(begun, 8));
    if (begun.size() < 4)
        return 0;
    if (const auto words = At<uint16_t>(begun, 2))
        return std::size_t{words} * 4;
    // A big request has its length in the next word.
    return begun.size() < 8 ? 0 : std::size_t{At<uint32_t>(begun, 4)} * 4;
}

std::size_t AnswerLength(const Bytes &begun, bool first) {
    if (begun.size() < 8)
        return 0;
    if (first)
        return 8 + std::size_t{At<uint16_t>(begun, 6)} * 4;
    const bool has_more = begun[0] == X_Reply || (begun[0] & 0x7f) == GenericEvent;
    return 32 + (has_more ? std::size_t{At<uint32_t>(begun, 4)} * 4 : 0);
}

} // namespace

void PacketReader::Read(const Bytes &bytes) {
    const unsigned char *data = bytes.data();
    std::size_t size = bytes.size();
    while (size > 0) {
        if (length_ == 0) {
            head_.push_back(*data);
            length_ = rule_(head_, first_);
            seen_++;
            data++;
            size--;
        }
        const std::size_t part = length_ == 0 ? 0 : std::min(size, length_ - seen_);
        for (std::size_t i = 0; i < part && head_.size() < longest_head; i++)
            head_.push_back(data[i]);
        seen_ += part;
        data += part;
        size -= part;
        if (length_ == 0 || seen_ < length_)
            continue;
        on_packet_(head_);
        head_.clear();
        length_ = seen_ = 0;
        first_ = false;
    }
}

ProtocolCounter::ProtocolCounter()
    : requests_in_(RequestLength, [this](const Bytes &) { requests_++; }),
      replies_in_(AnswerLength, [this](const Bytes &head) { NoteReply(head); }) {}

// Of a request's number the reply has the lower 16 bits.
void ProtocolCounter::NoteReply(const Bytes &head) {
    if (!set_up_) {
        set_up_ = true;
        return;
    }
    if (head[0] != X_Reply)
        return;
    const auto behind = static_cast<uint16_t>(requests_ - At<uint16_t>(head, 2));
    if (requests_ - behind > covered_) {
        round_trips_++;
        covered_ = requests_;
    }
}

} // namespace corvidlmw::test
