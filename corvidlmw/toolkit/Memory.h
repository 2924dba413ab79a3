// The library's own memory. All of it comes from the toolkit's allocator: where there is none left the client
// ends as with the toolkit's own widgets, by XtErrorMsg. An exception, which is what the standard allocator
// gives, could not pass through the toolkit's frames.
#pragma once

#include <X11/Intrinsic.h>

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <new>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace corvidlmw {

// Room for `count` objects of `size` bytes, from XtMalloc or XtCalloc: XtFree gives it back. Never NULL.
void *AllocateBlock(std::size_t count, std::size_t size);

template <typename T>
struct XtAllocator {
    using value_type = T;

    XtAllocator() = default;
    // Allocators of other types become this one in the containers' inner nodes.
    template <typename Other>
    XtAllocator(const XtAllocator<Other> &) {}

    // NOLINTNEXTLINE(bugprone-sizeof-expression): the elements themselves can be pointers
    T *allocate(std::size_t count) { return static_cast<T *>(AllocateBlock(count, sizeof(T))); }
    void deallocate(T *block, std::size_t) {
        XtFree(static_cast<char *>(static_cast<void *>(block)));
    }

    template <typename Other>
    bool operator==(const XtAllocator<Other> &) const {
        return true;
    }
};

// ---- The standard containers over it ------------------------------------------------------------------

template <typename T>
using Vector = std::vector<T, XtAllocator<T>>;
template <typename T>
using Deque = std::deque<T, XtAllocator<T>>;
using Text = std::basic_string<char, std::char_traits<char>, XtAllocator<char>>;
template <typename Key, typename Value>
using Map = std::map<Key, Value, std::less<Key>, XtAllocator<std::pair<const Key, Value>>>;
template <typename Key>
using UnorderedSet = std::unordered_set<Key, std::hash<Key>, std::equal_to<Key>, XtAllocator<Key>>;
template <typename Key, typename Value, typename Hash = std::hash<Key>>
using UnorderedMap = std::unordered_map<Key, Value, Hash, std::equal_to<Key>,
                                        XtAllocator<std::pair<const Key, Value>>>;
template <typename Key, typename Value>
using UnorderedMultimap = std::unordered_multimap<Key, Value, std::hash<Key>, std::equal_to<Key>,
                                                  XtAllocator<std::pair<const Key, Value>>>;

// ---- Single objects -------------------------------------------------------------------------------------

template <typename T, typename... Parts>
T *New(Parts &&...parts) {
    return new (AllocateBlock(1, sizeof(T))) T{std::forward<Parts>(parts)...};
}

template <typename T>
void Delete(T *object) {
    if (object) {
        object->~T();
        XtFree(static_cast<char *>(static_cast<void *>(object)));
    }
}

} // namespace corvidlmw
