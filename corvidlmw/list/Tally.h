// How often each number occurs, and so the highest of them: the tallest row, the widest one, kept while
// rows come and go.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

namespace corvidlmw::list {

class Tally {
public:
    void Add(int number) { counts_[number]++; }
    // A number that was added.
    void Remove(int number) {
        const auto found = counts_.find(number);
        if (found != counts_.end() && --found->second == 0) {
            counts_.erase(found);
        }
    }
    void Clear() { counts_.clear(); }
    int HighestOr(int preset) const { return counts_.empty() ? preset : counts_.rbegin()->first; }

private:
    Map<int, int> counts_;
};

} // namespace corvidlmw::list
