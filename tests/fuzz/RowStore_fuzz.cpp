// What rows are kept in, against the plainest containers there are.
#include <tests/fuzz/Input.h>

#include <corvidlmw/list/BlockPool.h>
#include <corvidlmw/list/RowSet.h>
#include <corvidlmw/list/SlackArray.h>
#include <corvidlmw/list/Tally.h>

#include <algorithm>
#include <array>
#include <set>
#include <vector>

using namespace corvidlmw::list;
using corvidlmw::fuzz::Input, corvidlmw::fuzz::Require;

namespace {

using Entry = std::array<int, 3>;

// A list of rows in all four of them, and beside it the rows as numbers with a mark.
class Rows {
public:
    ~Rows() {
        for (Entry *entry : entries_) {
            pool_.Give(entry);
        }
        Require(pool_.size() == 0);
    }
    Rows() = default;
    Rows(const Rows &) = delete;
    Rows &operator=(const Rows &) = delete;

    int size() const { return static_cast<int>(entries_.size()); }

    void Insert(int at, int count, int number) {
        pool_.Expect(count);
        set_.InsertRows(at, count);
        array_.Open(at, count);
        marks_.insert(marks_.begin() + at, static_cast<std::size_t>(count), false);
        for (int i = 0; i < count; i++) {
            Entry *entry = pool_.Take();
            entry->fill(number + i);
            entries_.insert(entries_.begin() + at + i, entry);
            array_.data()[at + i] = entry;
            tally_.Add(number + i);
            numbers_.insert(number + i);
        }
    }

    void Erase(int at, int count) {
        for (int i = at; i < at + count; i++) {
            Entry *entry = entries_[static_cast<std::size_t>(i)];
            Require(std::count(entry->begin(), entry->end(), (*entry)[0]) == 3);
            tally_.Remove((*entry)[0]);
            numbers_.erase(numbers_.find((*entry)[0]));
            pool_.Give(entry);
        }
        set_.EraseRows(at, count);
        array_.Close(at, count);
        marks_.erase(marks_.begin() + at, marks_.begin() + at + count);
        entries_.erase(entries_.begin() + at, entries_.begin() + at + count);
    }

    void Mark(int row, bool member) {
        set_.Put(row, member);
        marks_[static_cast<std::size_t>(row)] = member;
    }

    void Check(int row) const {
        Require(set_.size() == std::count(marks_.begin(), marks_.end(), true));
        Require(array_.size() == size() && pool_.size() == size());
        Require(std::equal(entries_.begin(), entries_.end(), array_.data()));
        Require(tally_.HighestOr(-1) == (numbers_.empty() ? -1 : *numbers_.rbegin()));
        const auto at = std::find(marks_.begin() + row, marks_.end(), true);
        Require(set_.Next(row) == (at == marks_.end() ? -1 : at - marks_.begin()));
        const auto before = std::find(marks_.rend() - row, marks_.rend(), true);
        Require(set_.LastBefore(row) == marks_.rend() - before - 1);
    }

private:
    RowSet set_;
    SlackArray<Entry *> array_;
    BlockPool<Entry, 16> pool_;
    Tally tally_;
    std::vector<bool> marks_;
    std::vector<Entry *> entries_;
    std::multiset<int> numbers_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    Rows rows;
    while (!input.AtEnd()) {
        const int action = input.Between(0, 3);
        const int at = input.Between(0, rows.size());
        const int count = input.Between(0, 200);
        if (action == 0 && rows.size() < 2000) {
            rows.Insert(at, count, input.Between(0, 1000));
        } else if (action == 1) {
            rows.Erase(at, std::min(count, rows.size() - at));
        } else if (at < rows.size()) {
            rows.Mark(at, action == 2);
        }
        rows.Check(std::min(at, rows.size()));
    }
    return 0;
}
