// A set of row numbers that moves along when rows come and go: a bit for each row, and their number.
// Looking for the next row of the set passes over 64 rows at a time.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

#include <bit>
#include <cstddef>
#include <cstdint>

namespace corvidlmw::list {

class RowSet {
public:
    int size() const { return size_; }
    bool empty() const { return size_ == 0; }
    bool Contains(int row) const {
        return row >= 0 && row < Highest() && (words_[WordOf(row)] & BitOf(row)) != 0;
    }
    void Put(int row, bool member) {
        if (Contains(row) == member) {
            return;
        }
        if (row >= Highest()) {
            words_.resize(WordOf(row) + 1);
        }
        words_[WordOf(row)] ^= BitOf(row);
        size_ += member ? 1 : -1;
    }
    void Clear();

    // The first row of the set at or behind `row`, the last one before it; -1 if there is none.
    int Next(int row) const;
    int LastBefore(int row) const;

    // From the first row on. `act` can take the row that it is given out of the set.
    template <typename Act>
    void ForEach(Act act) const {
        for (std::size_t i = 0; i < words_.size(); i++) {
            for (Word word = words_[i]; word != 0; word &= word - 1) {
                act(static_cast<int>(i) * word_bits + std::countr_zero(word));
            }
        }
    }

    Vector<int> Rows() const;

    // Rows that come are no members; those from `row` on move.
    void InsertRows(int row, int count);
    void EraseRows(int row, int count);

private:
    using Word = std::uint64_t;
    static constexpr int word_bits = 64;

    static std::size_t WordOf(int row) { return static_cast<std::size_t>(row / word_bits); }
    static Word BitOf(int row) { return Word{1} << (row % word_bits); }
    int Highest() const { return static_cast<int>(words_.size()) * word_bits; }
    // The 64 bits that begin at any row, as many of them as there are.
    Word WordAt(int row) const;
    void Trim();

    Vector<Word> words_; // only as many as members need, and sometimes a few more
    int size_ = 0;
};

} // namespace corvidlmw::list
