// An array in one block with room to spare at either end, so that rows which come or go one at a time at
// the end or at the front cost no reallocation and no move of all others.
#pragma once

#include <X11/Intrinsic.h>

#include <algorithm>
#include <type_traits>

namespace corvidlmw::list {

template <typename T>
class SlackArray {
    static_assert(std::is_trivially_copyable_v<T>);

public:
    SlackArray() = default;
    ~SlackArray() { Free(); }
    SlackArray(const SlackArray &) = delete;
    SlackArray &operator=(const SlackArray &) = delete;

    // NULL without entries.
    T *data() const { return size_ == 0 ? nullptr : block_ + front_; }
    int size() const { return size_; }

    // Opens room for `count` entries; what stands in them is for the caller to say.
    void Open(int at, int count) {
        const bool in_front = at < size_ - at;
        const int room = in_front ? front_ : capacity_ - front_ - size_;
        if (room < count) {
            Reallocate(at, count, in_front);
        } else if (in_front) {
            Move(front_ - count, front_, at);
            front_ -= count;
        } else {
            Move(front_ + at + count, front_ + at, size_ - at);
        }
        size_ += count;
    }

    void Close(int at, int count) {
        const int behind = size_ - at - count;
        if (at < behind) {
            Move(front_ + count, front_, at);
            front_ += count;
        } else {
            Move(front_ + at, front_ + at + count, behind);
        }
        size_ -= count;
        Shrink();
    }

    void Free() {
        XtFree(reinterpret_cast<char *>(block_));
        block_ = nullptr;
        capacity_ = front_ = size_ = 0;
    }

private:
    static constexpr int least_spare = 16;

    // Within the block; either place can be the first.
    void Move(int to, int from, int count) {
        T *const first = block_ + from;
        if (to < from) {
            std::copy(first, first + count, block_ + to);
        } else {
            std::copy_backward(first, first + count, block_ + to + count);
        }
    }

    // Many at once get what they need; few at a time a quarter more than there are.
    int Spare(int count) const { return count > size_ / 4 ? 0 : size_ / 4 + least_spare; }

    // The toolkit's plain allocation takes a size of 32 bits.
    static T *Allocate(int count) {
        return static_cast<T *>(
            // NOLINTNEXTLINE(bugprone-sizeof-expression): the entries themselves are pointers
            static_cast<void *>(XtCalloc(static_cast<Cardinal>(count), sizeof(T))));
    }

    void Reallocate(int at, int count, bool in_front) {
        const int spare = size_ == 0 && count <= least_spare ? least_spare : Spare(count);
        const int capacity = size_ + count + spare;
        T *block = Allocate(capacity);
        const int front = in_front ? spare : 0;
        std::copy_n(block_ + front_, at, block + front);
        std::copy_n(block_ + front_ + at, size_ - at, block + front + at + count);
        XtFree(reinterpret_cast<char *>(block_));
        block_ = block;
        capacity_ = capacity;
        front_ = front;
    }

    void Shrink() {
        if (size_ == 0) {
            Free();
        } else if (capacity_ > 4 * least_spare && size_ < capacity_ / 4) {
            const int capacity = 2 * size_ + least_spare;
            T *block = Allocate(capacity);
            std::copy_n(block_ + front_, size_, block);
            XtFree(reinterpret_cast<char *>(block_));
            block_ = block;
            capacity_ = capacity;
            front_ = 0;
        }
    }

    T *block_ = nullptr;
    int capacity_ = 0;
    int front_ = 0; // entries of room before the first
    int size_ = 0;
};

} // namespace corvidlmw::list
