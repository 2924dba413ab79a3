// The draws of a storm: the same from the same seed on every machine.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <vector>

namespace corvidlmw::storm {

class Chance {
public:
    explicit Chance(std::uint64_t seed) : engine_(seed) {}

    // Both ends included.
    int Between(int low, int high) {
        const auto span = static_cast<std::uint64_t>(static_cast<std::int64_t>(high) - low + 1);
        return static_cast<int>(low + static_cast<std::int64_t>(engine_() % span));
    }
    bool OneIn(int odds) { return Between(1, odds) == 1; }
    bool Percent(int percent) { return Between(1, 100) <= percent; }

    template <class Container>
    const auto &Of(const Container &container) {
        return *std::next(std::begin(container),
                          Between(0, static_cast<int>(std::size(container)) - 1));
    }
    std::string Of(std::initializer_list<const char *> words) {
        return words.begin()[Between(0, static_cast<int>(words.size()) - 1)];
    }

private:
    std::mt19937_64 engine_;
};

} // namespace corvidlmw::storm
