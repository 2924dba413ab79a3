#include <tests/endurance/HeapInUse.h>

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)

extern "C" std::size_t __sanitizer_get_current_allocated_bytes();

namespace corvidlmw::test {

// The sanitizer's own malloc stands where the count of blocks would.
Heap Heap::Now() {
    return {.blocks = 0, .bytes = static_cast<long>(__sanitizer_get_current_allocated_bytes())};
}

} // namespace corvidlmw::test

#else

namespace {
std::atomic<long> live_blocks = 0;

template <class Block>
Block *Counted(Block *block) {
    if (block)
        live_blocks.fetch_add(1, std::memory_order_relaxed);
    return block;
}
} // namespace

namespace corvidlmw::test {

// Small blocks that malloc keeps at hand for the next caller count as in use, unless
// GLIBC_TUNABLES=glibc.malloc.tcache_count=0.
Heap Heap::Now() {
    malloc_trim(0);
    const auto figures = mallinfo2();
    return {.blocks = live_blocks, .bytes = static_cast<long>(figures.uordblks + figures.hblkhd)};
}

} // namespace corvidlmw::test

// ---- The program's malloc: the C library's, counted -------------------------------------------------

extern "C" {

void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void *__libc_memalign(std::size_t, std::size_t);
void __libc_free(void *);

#pragma GCC visibility push(default)

void *malloc(std::size_t size) {
    return Counted(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size) {
    return Counted(__libc_calloc(count, size));
}

void *realloc(void *old, std::size_t size) {
    void *block = __libc_realloc(old, size);
    if (old && size == 0)
        live_blocks.fetch_sub(1, std::memory_order_relaxed);
    return old ? block : Counted(block);
}

void *memalign(std::size_t alignment, std::size_t size) {
    return Counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(std::size_t alignment, std::size_t size) {
    return Counted(__libc_memalign(alignment, size));
}

int posix_memalign(void **block, std::size_t alignment, std::size_t size) {
    *block = Counted(__libc_memalign(alignment, size));
    return *block ? 0 : ENOMEM;
}

void free(void *block) {
    if (block)
        live_blocks.fetch_sub(1, std::memory_order_relaxed);
    __libc_free(block);
}

#pragma GCC visibility pop

} // extern "C"

#endif
