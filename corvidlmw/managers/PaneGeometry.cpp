#include <corvidlmw/managers/PaneGeometry.h>

#include <algorithm>
#include <cstddef>

namespace corvidlmw::managers {

namespace {

int Taken(const Pane &pane, const PaneRow &row) {
    return pane.width + 2 * pane.border + row.spacing;
}

// In 16 bits, as the coordinates are kept. Returns where one more pane would stand.
int PlacePanes(const PaneRow &row, std::span<Pane> panes) {
    int x = CutToPosition(row.margin);
    for (Pane &pane : panes) {
        pane.x = x;
        x = CutToPosition(x + Taken(pane, row));
    }
    return x;
}

// The walk over the panes that fitting makes: in one direction to the end, then from the first pane in
// the other one, and so on.
class Fitting {
public:
    Fitting(const PaneRow &row, std::span<Pane> panes, int index, Direction direction,
            FitRules rules)
        : row_(row), panes_(panes), count_(static_cast<int>(panes.size())), index_(index),
          start_(static_cast<int>(direction)), rules_(rules), used_(UsedWidth(row, panes)),
          current_(index), step_(start_) {
        if (direction == Direction::Right && index != count_ - 1) {
            current_ = index + 1;
        }
    }

    void Run() {
        constexpr int patience = 9;
        for (int round = 0; used_ != row_.width && round < patience * count_; ++round) {
            if (!PassesOver(At(current_))) {
                Adjust(At(current_));
            }
            current_ += step_;
            if (used_ != row_.width && !TurnAtTheEnds()) {
                return;
            }
        }
        PlacePanes(row_, panes_);
    }

private:
    Pane &At(int i) { return panes_[static_cast<std::size_t>(i)]; }

    bool PassesOver(const Pane &pane) const {
        return pane.skip_adjust && !rules_.adjust_all && step_ == start_;
    }

    void Adjust(Pane &pane) {
        const int old = pane.width;
        const int wanted = old + row_.width - used_;
        pane.width = Within(std::max(wanted, 1), pane.least, pane.most);
        used_ += pane.width - old;
    }

    // False when the panes are placed for good.
    bool TurnAtTheEnds() {
        while (current_ < 0 || current_ >= count_) {
            step_ = -step_;
            if (step_ == start_ && !GiveUp()) {
                return false;
            }
            current_ = index_ + step_;
            if (index_ == 0 && step_ < 0) {
                current_ = 0;
            }
        }
        return true;
    }

    // Both directions are used up: the first pane gives what is still missing, whatever its limits.
    // `used_` stays, and the others, at their least, go on giving nothing.
    bool GiveUp() {
        const int end = PlacePanes(row_, panes_) + row_.margin - row_.spacing;
        if (rules_.keep_limits || end <= row_.width) {
            return false;
        }
        Pane &first = At(index_);
        first.width = std::max(first.width - (end - row_.width), 1);
        return true;
    }

    PaneRow row_;
    std::span<Pane> panes_;
    int count_;
    int index_;
    int start_;
    FitRules rules_;
    int used_;
    int current_;
    int step_;
};

} // namespace

int Within(int width, int least, int most) {
    return std::max(std::min(width, most), least);
}

int UsedWidth(const PaneRow &row, std::span<const Pane> panes) {
    int used = 2 * row.margin;
    for (const Pane &pane : panes) {
        used += Taken(pane, row);
    }
    return panes.empty() ? used : used - row.spacing;
}

void FitPanes(const PaneRow &row, std::span<Pane> panes, int index, Direction direction,
              FitRules rules) {
    if (index < 0 || index >= static_cast<int>(panes.size())) {
        return;
    }
    for (Pane &pane : panes) {
        pane.width = Within(pane.width, pane.least, pane.most);
    }
    Fitting(row, panes, index, direction, rules).Run();
}

// ---- Separators and sashes --------------------------------------------------------------------------

// A sash that would leave the window stands at its top.
Point SashPlace(const SashRules &rules, int pane_end, int width, int height, int border) {
    const int from_below = rules.height + rules.indent - height - 2 * border;
    const int y = rules.indent > 0 ? rules.indent : from_below;
    const bool fits = y >= 0 && y <= rules.height - height;
    return {CutToPosition(pane_end + rules.spacing / 2 - width / 2 - border + rules.offset),
            fits ? CutToPosition(y) : 0};
}

int SeparatorPlace(const SashRules &rules, int pane_end, int width, int border) {
    return CutToPosition(rules.spacing / 2 + pane_end - width / 2 - border);
}

int TrackPlace(int pane_x, int separator_width, int spacing) {
    return pane_x - (separator_width + spacing) / 2;
}

} // namespace corvidlmw::managers
