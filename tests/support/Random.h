/* Random input whose seed stands in every failure message. Needs no display. */

#ifndef CORVIDLMW_TESTS_SUPPORT_RANDOM_H
#define CORVIDLMW_TESTS_SUPPORT_RANDOM_H

#include <tests/support/GoogleTest.h>

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>

namespace corvidlmw::test {

// The same input on each run. CORVIDLMW_TEST_SEED in the environment replaces the seed, to look
// for new trouble or to repeat what a failure printed.
class Random {
public:
    explicit Random(uint64_t seed = 1, const char *file = __builtin_FILE(),
                    int line = __builtin_LINE())
        : seed_(SeedOr(seed)), engine_(seed_),
          trace_(file, line, "CORVIDLMW_TEST_SEED=" + std::to_string(seed_)) {}

    uint64_t seed() const { return seed_; }
    std::mt19937_64 &engine() { return engine_; }

    // Both ends included.
    int Between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine_);
    }
    double Fraction() { return std::uniform_real_distribution<double>(0.0, 1.0)(engine_); }
    bool Chance(double probability) { return Fraction() < probability; }

private:
    static uint64_t SeedOr(uint64_t seed) {
        const char *given = std::getenv("CORVIDLMW_TEST_SEED");
        return given ? std::strtoull(given, nullptr, 0) : seed;
    }

    uint64_t seed_;
    std::mt19937_64 engine_;
    ::testing::ScopedTrace trace_;
};

} // namespace corvidlmw::test

#endif
