// The shared parts of gadgets in many short lists in place of the toolkit's one long: a client with
// thousands of looks must not search through all of them for each gadget.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

#include <array>
#include <cstdint>

namespace corvidlmw::icon_gadget {

// Mixes one value after the other.
class Hash {
public:
    Hash &Add(uint64_t value) {
        state_ = (state_ ^ value) * 0x9e3779b97f4a7c15;
        state_ ^= state_ >> 32;
        return *this;
    }
    uint64_t Value() const { return state_; }

private:
    uint64_t state_ = 0;
};

// The parts are the toolkit's: _XmCacheDelete gives one back.
class SharedParts {
public:
    // Equal parts have equal hashes.
    template <class Part>
    Part *Share(Part *part, uint64_t hash, XmCacheCompareProc compare) {
        XmCacheClassPart &list = lists_[hash % lists_.size()];
        list.cache_copy = _XmCacheCopy;
        list.cache_delete = _XmCacheDelete;
        list.cache_compare = compare;
        return static_cast<Part *>(_XmCachePart(&list, part, sizeof *part));
    }

private:
    std::array<XmCacheClassPart, 1024> lists_;
};

} // namespace corvidlmw::icon_gadget
