// Entries of one type in blocks of many, so that an entry costs neither a call of the allocator nor the
// head of an allocation. Entries stay where they are; a block goes back with its last entry.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

#include <X11/Intrinsic.h>

#include <algorithm>
#include <functional>
#include <type_traits>
#include <utility>

namespace corvidlmw::list {

// The sanitizer watches over allocations: there each entry is one.
#ifdef __SANITIZE_ADDRESS__
inline constexpr int entries_in_block = 1;
#else
inline constexpr int entries_in_block = 1024;
#endif

template <typename T, int largest_block = entries_in_block>
class BlockPool {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    BlockPool() = default;
    ~BlockPool() {
        for (const Block &block : blocks_) {
            Free(block);
        }
    }
    BlockPool(const BlockPool &) = delete;
    BlockPool &operator=(const BlockPool &) = delete;

    int size() const { return size_; }

    // So many entries are about to be taken.
    void Expect(int count) { expected_ = count; }

    // What stands in it is for the caller to say.
    T *Take() {
        if constexpr (largest_block == 1) {
            size_++;
            return &Allocate(1)->entry;
        }
        Block &block = BlockWithRoom();
        Slot *slot = block.freed ? std::exchange(block.freed, block.freed->next_freed)
                                 : block.slots + block.fresh++;
        block.used++;
        size_++;
        expected_ = std::max(expected_ - 1, 0);
        return &slot->entry;
    }

    void Give(T *entry) {
        auto *slot = reinterpret_cast<Slot *>(entry);
        size_--;
        if constexpr (largest_block == 1) {
            XtFree(reinterpret_cast<char *>(slot));
            return;
        }
        const auto block = BlockOf(slot);
        block->used--;
        if (block->used > 0) {
            slot->next_freed = std::exchange(block->freed, slot);
            open_ = static_cast<std::size_t>(block - blocks_.begin());
        } else {
            Free(*block);
            blocks_.erase(block);
            open_ = 0;
        }
    }

private:
    union Slot {
        T entry;
        Slot *next_freed;
    };

    struct Block {
        Slot *slots;
        int capacity;
        int fresh = 0; // how many slots were ever used
        int used = 0;
        Slot *freed = nullptr;

        bool HasRoom() const { return used < capacity; }
    };
    using Blocks = Vector<Block>; // by address

    static Slot *Allocate(int count) {
        return static_cast<Slot *>(static_cast<void *>(
            XtMalloc(static_cast<Cardinal>(count) * static_cast<Cardinal>(sizeof(Slot)))));
    }
    static void Free(const Block &block) { XtFree(reinterpret_cast<char *>(block.slots)); }

    static bool IsBefore(const Slot *slot, const Block &block) {
        return std::less<const Slot *>()(slot, block.slots);
    }

    typename Blocks::iterator BlockOf(const Slot *slot) {
        return std::upper_bound(blocks_.begin(), blocks_.end(), slot, IsBefore) - 1;
    }

    Block &BlockWithRoom() {
        if (open_ >= blocks_.size() || !blocks_[open_].HasRoom()) {
            auto found = std::find_if(blocks_.begin(), blocks_.end(),
                                      [](const Block &block) { return block.HasRoom(); });
            if (found == blocks_.end()) {
                found = AddBlock();
            }
            open_ = static_cast<std::size_t>(found - blocks_.begin());
        }
        return blocks_[open_];
    }

    // For the many that are expected; where they come one by one, for a quarter of what there is.
    typename Blocks::iterator AddBlock() {
        constexpr int least = 8;
        const int wanted = expected_ > least ? expected_ : std::max(size_ / 4, least);
        const int capacity = std::min(wanted, largest_block);
        Slot *slots = Allocate(capacity);
        const auto place = std::upper_bound(blocks_.begin(), blocks_.end(), slots, IsBefore);
        return blocks_.insert(place, Block{.slots = slots, .capacity = capacity});
    }

    Blocks blocks_;
    std::size_t open_ = 0; // where there was room last
    int size_ = 0;
    int expected_ = 0;
};

} // namespace corvidlmw::list
