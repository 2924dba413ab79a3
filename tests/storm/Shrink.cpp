#include <tests/storm/Shrink.h>

#include <algorithm>
#include <chrono>

namespace corvidlmw::storm {

namespace {

class Shrinker {
public:
    Shrinker(const Outcome &outcome, int seconds)
        : kind_(outcome.kind), end_(Clock::now() + std::chrono::seconds(seconds)) {
        manner_.check_every = 1;
        manner_.watchdog_seconds = 5;
        manner_.to_the_end = false;
    }

    // Without what comes after the fault, if it does not show at the very end only.
    Steps CutOff(const Steps &steps, int last_step) {
        Steps begin(steps.begin(),
                    steps.begin() + std::min<std::ptrdiff_t>(last_step + 1, std::ssize(steps)));
        if (Fails(begin))
            return begin;
        manner_.to_the_end = true;
        return Fails(begin) ? begin : steps;
    }

    // ddmin: takes out ever smaller parts.
    Steps Minimal(Steps steps) {
        for (auto size = std::max<std::ptrdiff_t>(std::ssize(steps) / 2, 1); !IsLate();) {
            const bool any = TakeOutParts(steps, size);
            if (size == 1 && !any)
                break;
            size = std::max<std::ptrdiff_t>(any && size == 1 ? 1 : size / 2, 1);
        }
        return steps;
    }

private:
    using Clock = std::chrono::steady_clock;

    bool IsLate() const { return Clock::now() > end_; }

    // A step may still fail where the fault shows only with its neighbours' help: by its last line.
    bool Fails(const Steps &steps) {
        const Outcome outcome = Play(steps, manner_);
        return !outcome.clean && outcome.kind == kind_;
    }

    bool TakeOutParts(Steps &steps, std::ptrdiff_t size) {
        bool any = false;
        for (std::ptrdiff_t end = std::ssize(steps); end > 0 && !IsLate(); end -= size) {
            const auto from = std::max<std::ptrdiff_t>(end - size, 0);
            Steps rest(steps.begin(), steps.begin() + from);
            rest.insert(rest.end(), steps.begin() + end, steps.end());
            if (!Fails(rest))
                continue;
            steps = std::move(rest);
            any = true;
        }
        return any;
    }

    std::string kind_;
    Clock::time_point end_;
    Manner manner_;
};

} // namespace

Steps Shrink(const Steps &steps, const Outcome &outcome, int seconds) {
    Shrinker shrinker(outcome, seconds);
    return shrinker.Minimal(shrinker.CutOff(steps, outcome.last_step));
}

} // namespace corvidlmw::storm
