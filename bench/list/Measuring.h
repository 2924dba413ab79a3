/* What is measured, and what came out. */

#ifndef CORVIDLMW_BENCH_LIST_MEASURING_H
#define CORVIDLMW_BENCH_LIST_MEASURING_H

#include <cmath>
#include <map>
#include <optional>
#include <string>
#include <tuple>

namespace corvidlmw::bench {

inline constexpr int sizes[] = {1000, 10000, 30000, 100000};
inline constexpr const char *classes[] = {"LmList", "XmList"};
inline constexpr const char *forms[] = {"plain", "scrolled"};

// No number stands where nothing was measured.
struct Cost {
    double seconds = NAN; // of the CPU
    double instructions = NAN;
    double requests = NAN;
    double round_trips = NAN;
    double bytes = NAN;
};

struct Combination {
    std::string list; // its class
    std::string form;
    int rows = 0;

    friend bool operator<(const Combination &a, const Combination &b) {
        return std::tie(a.list, a.form, a.rows) < std::tie(b.list, b.form, b.rows);
    }
};

class Results {
public:
    Cost &At(const Combination &one, const std::string &case_name) {
        return costs_[{one, case_name}];
    }
    Cost Of(const Combination &one, const std::string &case_name) const;

private:
    std::map<std::pair<Combination, std::string>, Cost> costs_;
};

// Everything that there is for the table. Says on standard error what it is at. Nothing if a program
// failed.
std::optional<Results> MeasureAll(const std::string &subject_program);

} // namespace corvidlmw::bench

#endif
