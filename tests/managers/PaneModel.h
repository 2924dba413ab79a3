// The fitting of panes once more.
#pragma once

#include <corvidlmw/managers/PaneGeometry.h>

#include <cstddef>
#include <vector>

namespace corvidlmw::managers::pane_model {

struct Stop {
    int pane; // -1 for a turn after which both directions are used up
    bool in_start_direction;
};

inline void AddLeg(std::vector<Stop> &stops, int from, int step, int count,
                   bool in_start_direction) {
    for (int i = from; i >= 0 && i < count; i += step)
        stops.push_back({i, in_start_direction});
}

// All stops of the walk beforehand, leg after leg.
inline std::vector<Stop> Stops(int count, int index, int step) {
    const std::size_t enough = 30 * static_cast<std::size_t>(count);
    const bool starts_behind = step > 0 && index + 1 < count;
    std::vector<Stop> stops;
    AddLeg(stops, starts_behind ? index + 1 : index, step, count, true);
    for (int way = -step; stops.size() < enough; way = -way) {
        if (way == step)
            stops.push_back({-1, true});
        const bool stays = index == 0 && way < 0;
        AddLeg(stops, stays ? 0 : index + way, way, count, way == step);
    }
    return stops;
}

inline std::vector<Pane> Expected(const PaneRow &row, std::vector<Pane> panes, int index, int step,
                                  FitRules rules) {
    const int count = static_cast<int>(panes.size());
    const auto place = [&] {
        int x = row.margin;
        for (Pane &pane : panes) {
            pane.x = static_cast<short>(x);
            x = static_cast<short>(x + pane.width + row.spacing + 2 * pane.border);
        }
        return static_cast<short>(x) + row.margin - row.spacing;
    };
    int missing = row.width - 2 * row.margin + row.spacing;
    for (Pane &pane : panes) {
        pane.width = pane.width < pane.least ? pane.least : pane.width;
        pane.width = pane.width > pane.most ? pane.most : pane.width;
        missing -= pane.width + 2 * pane.border + row.spacing;
    }
    const auto stops = Stops(count, index, step);
    for (std::size_t at = 0, rounds = 0; missing != 0; ++at) {
        const Stop &stop = stops[at];
        if (stop.pane == -1) {
            const int end = place();
            if (rules.keep_limits || end <= row.width)
                break;
            auto &first = panes[static_cast<std::size_t>(index)];
            first.width = end - row.width < first.width ? first.width - (end - row.width) : 1;
            continue;
        }
        if (rounds++ == 9 * panes.size())
            break;
        Pane &pane = panes[static_cast<std::size_t>(stop.pane)];
        if (pane.skip_adjust && !rules.adjust_all && stop.in_start_direction)
            continue;
        const int old = pane.width;
        pane.width = missing > 0 || -missing < old ? old + missing : 1;
        pane.width = pane.width < pane.least ? pane.least : pane.width;
        pane.width = pane.width > pane.most ? pane.most : pane.width;
        missing -= pane.width - old;
    }
    place();
    return panes;
}

} // namespace corvidlmw::managers::pane_model
