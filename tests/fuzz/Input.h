// What a fuzzer reads its input with: whole numbers in plain text, so that a corpus can be read and
// written by hand. Everything that is not a number divides numbers; where the text ends there are zeros.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace corvidlmw::fuzz {

// A condition that does not hold ends the process, which the fuzzer reports together with the input.
inline void Require(bool holds, const char *file = __builtin_FILE(), int line = __builtin_LINE()) {
    if (!holds) {
        std::fprintf(stderr, "%s:%d: a requirement does not hold\n", file, line);
        std::abort();
    }
}

class Input {
public:
    explicit Input(std::string_view text) : text_(text) {}
    Input(const std::uint8_t *data, std::size_t size)
        : text_(reinterpret_cast<const char *>(data), size) {}

    bool AtEnd() const { return text_.find_first_of("0123456789") == std::string_view::npos; }

    // A number in the range stands for itself, others are folded into it; both ends included.
    int Between(int low, int high) {
        const std::int64_t count = std::int64_t{high} - low + 1;
        const std::int64_t number = Next();
        if (number >= low && number <= high) {
            return static_cast<int>(number);
        }
        const std::int64_t rest = number % count;
        return static_cast<int>(low + (rest < 0 ? rest + count : rest));
    }
    bool Flag() { return Between(0, 1) != 0; }

    // What the toolkit's types hold.
    int Whole() {
        return Between(std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    }
    int Position() { return Between(-32768, 32767); }
    int Dimension() { return Between(0, 65535); }
    Point Place() {
        const int x = Position();
        return {x, Position()};
    }
    Rectangle Box() {
        const auto [x, y] = Place();
        const int width = Dimension();
        return {x, y, width, Dimension()};
    }

private:
    std::int64_t Next() {
        const std::size_t start = text_.find_first_of("0123456789");
        if (start == std::string_view::npos) {
            text_ = {};
            return 0;
        }
        const bool negative = start > 0 && text_[start - 1] == '-';
        text_.remove_prefix(start);
        constexpr std::int64_t enough = std::int64_t{1} << 40;
        std::int64_t number = 0;
        while (!text_.empty() && text_[0] >= '0' && text_[0] <= '9') {
            number = number < enough ? 10 * number + (text_[0] - '0') : number;
            text_.remove_prefix(1);
        }
        return negative ? -number : number;
    }

    std::string_view text_;
};

} // namespace corvidlmw::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
