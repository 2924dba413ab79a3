#pragma once

namespace corvidlmw::test {

// What the program has from malloc and has not given back.
struct Heap {
    long blocks = 0;
    long bytes = 0;

    static Heap Now();

    // Of the bytes, in all. The sanitizer counts what was asked for; malloc rounds each block up to what
    // happened to be free for it.
#if defined(__SANITIZE_ADDRESS__)
    static constexpr double imprecision = 256;
#else
    static constexpr double imprecision = 8192;
#endif
};

} // namespace corvidlmw::test
