// Lives again and again: neither the client nor the server may hold more for it.
//
// Blocks and bytes are counted at five points after a fifth of the rounds, so that what is made once, at the
// first use or when a table of the toolkit's doubles, is told from what is lost in each round.
// CORVIDLMW_ROUNDS in the environment says how many rounds there are.

#include <tests/endurance/HeapInUse.h>
#include <tests/endurance/Lives.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace corvidlmw::test {
namespace {

constexpr std::size_t spans = 4;

int Rounds() {
    const char *given = std::getenv("CORVIDLMW_ROUNDS");
    return given ? std::atoi(given) : CORVIDLMW_DEFAULT_ROUNDS;
}

struct Growth {
    int span = 0; // in rounds
    std::array<Heap, spans + 1> heap;
    ServerResources before;
    ServerResources after;

    int Rounds() const { return span * static_cast<int>(spans + 1); }

    // Per round, in most of the spans.
    double Steady(long Heap::*figure) const {
        std::array<long, spans> grown{};
        for (std::size_t i = 0; i < spans; i++)
            grown[i] = heap[i + 1].*figure - heap[i].*figure;
        std::sort(grown.begin(), grown.end());
        return static_cast<double>(grown[1]) / span;
    }
    double Average(long Heap::*figure) const {
        return static_cast<double>(heap[spans].*figure - heap[0].*figure) / (span * spans);
    }

    double OfResource(const std::string &type) const {
        return static_cast<double>(after.Count(type) - before.Count(type)) / (span * spans);
    }
    std::string Resources() const {
        std::ostringstream text;
        for (const auto &[type, count] : after.counts)
            if (OfResource(type) != 0)
                text << type << " " << OfResource(type) << ", ";
        return text.str().empty() ? "none" : text.str().substr(0, text.str().size() - 2);
    }
};

void PrintHead() {
    [[maybe_unused]] static const bool once = [] {
        std::cout << "| Class | Rounds | Blocks per round | Bytes per round | Bytes, average | "
                     "Server resources per round |\n|---|---:|---:|---:|---:|---|\n";
        return true;
    }();
}

void Print(const char *name, const Growth &growth) {
    std::cout << std::fixed << std::setprecision(1) << "| " << name << " | " << growth.Rounds()
              << " | " << growth.Steady(&Heap::blocks) << " | " << growth.Steady(&Heap::bytes)
              << " | " << growth.Average(&Heap::bytes) << " | " << growth.Resources() << " |\n";
}

class Leaks : public Stage, public ::testing::WithParamInterface<Life> {
protected:
    void SetUp() override {
        Stage::SetUp();
        MakeBoard();
    }
    void TearDown() override {
        FreeIcon();
        Stage::TearDown();
    }

    void LiveTimes(int rounds, Whose whose) {
        for (int i = 0; i < rounds; i++)
            GetParam().live(*this, whose);
        input::Reset();
        RunWorkProcs();
    }

    Growth Measure(Whose whose) {
        Growth growth;
        growth.span = std::max(Rounds() * GetParam().share / 100 / static_cast<int>(spans + 1), 1);
        LiveTimes(growth.span, whose);
        growth.before = ServerResources::Of(display);
        growth.heap[0] = Heap::Now();
        for (std::size_t i = 1; i <= spans; i++) {
            LiveTimes(growth.span, whose);
            growth.heap[i] = Heap::Now();
        }
        growth.after = ServerResources::Of(display);
        return growth;
    }
};

} // namespace

// What the toolkit loses in each round, and so below our classes too, counts once for each.
TEST_P(Leaks, NoMoreStaysBehindThanOfTheToolkitsOwnClass) {
    const Growth toolkits = Measure(Whose::toolkits);
    const Growth ours = Measure(Whose::ours);
    PrintHead();
    Print(GetParam().name, ours);
    Print(GetParam().toolkits_name, toolkits);

    // The toolkit's look-up tables grow by a block now and then.
    EXPECT_LE(ours.Steady(&Heap::blocks), std::max(toolkits.Steady(&Heap::blocks), 0.0) + 0.4);
    EXPECT_LE(ours.Steady(&Heap::bytes),
              std::max(toolkits.Steady(&Heap::bytes), 0.0) + Heap::imprecision / ours.span);
    for (const auto &[type, count] : ours.after.counts)
        EXPECT_LE(ours.OfResource(type), toolkits.OfResource(type)) << type;
}

INSTANTIATE_TEST_SUITE_P(Each, Leaks, ::testing::ValuesIn(lives), [](const auto &instance) {
    std::string name = instance.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(c); });
    return name;
});

} // namespace corvidlmw::test
