#include <corvidlmw/list/RowSet.h>

#include <algorithm>
#include <bit>

namespace corvidlmw::list {

void RowSet::Clear() {
    words_.clear();
    size_ = 0;
}

int RowSet::Next(int row) const {
    row = std::max(row, 0);
    if (size_ == 0 || row >= Highest()) {
        return -1;
    }
    Word word = words_[WordOf(row)] & ~(BitOf(row) - 1);
    for (std::size_t i = WordOf(row);;) {
        if (word != 0) {
            return static_cast<int>(i) * word_bits + std::countr_zero(word);
        }
        if (++i == words_.size()) {
            return -1;
        }
        word = words_[i];
    }
}

int RowSet::LastBefore(int row) const {
    row = std::min(row, Highest());
    if (size_ == 0 || row <= 0) {
        return -1;
    }
    const int last = row - 1;
    Word word = words_[WordOf(last)] & (BitOf(last) | (BitOf(last) - 1));
    for (std::size_t i = WordOf(last);;) {
        if (word != 0) {
            return static_cast<int>(i) * word_bits + word_bits - 1 - std::countl_zero(word);
        }
        if (i-- == 0) {
            return -1;
        }
        word = words_[i];
    }
}

Vector<int> RowSet::Rows() const {
    Vector<int> rows;
    rows.reserve(static_cast<std::size_t>(size_));
    ForEach([&rows](int row) { rows.push_back(row); });
    return rows;
}

RowSet::Word RowSet::WordAt(int row) const {
    const std::size_t word = WordOf(row);
    const int shift = row % word_bits;
    const Word low = word < words_.size() ? words_[word] >> shift : 0;
    const bool straddles = shift != 0 && word + 1 < words_.size();
    return straddles ? low | words_[word + 1] << (word_bits - shift) : low;
}

// From the end down, so that no word is read after it was written.
void RowSet::InsertRows(int row, int count) {
    if (count <= 0 || LastBefore(Highest()) < row) {
        return;
    }
    const std::size_t first = WordOf(row);
    const Word kept_mask = BitOf(row) - 1;
    const Word kept = words_[first] & kept_mask;
    words_[first] &= ~kept_mask;
    const int old_highest = Highest();
    words_.resize(WordOf(old_highest + count - 1) + 1);
    for (std::size_t i = words_.size(); i-- > first;) {
        const int source = static_cast<int>(i) * word_bits - count;
        if (source >= 0) {
            words_[i] = WordAt(source);
        } else {
            words_[i] = source > -word_bits ? words_[0] << -source : 0;
        }
        const int cut = row + count - static_cast<int>(i) * word_bits;
        if (cut > 0) {
            words_[i] &= cut >= word_bits ? 0 : ~(BitOf(cut) - 1);
        }
    }
    words_[first] |= kept;
    Trim();
}

void RowSet::EraseRows(int row, int count) {
    if (count <= 0 || LastBefore(Highest()) < row) {
        return;
    }
    for (int next = Next(row); next >= 0 && next - row < count; next = Next(next + 1)) {
        Put(next, false);
    }
    const std::size_t first = WordOf(row);
    const Word kept = words_[first] & (BitOf(row) - 1);
    const Word moved_mask = ~(BitOf(row) - 1);
    for (std::size_t i = first; i < words_.size(); i++) {
        const auto source = static_cast<std::int64_t>(i) * word_bits + count;
        words_[i] = source < Highest() ? WordAt(static_cast<int>(source)) : 0;
    }
    words_[first] = (words_[first] & moved_mask) | kept;
    Trim();
}

void RowSet::Trim() {
    while (!words_.empty() && words_.back() == 0) {
        words_.pop_back();
    }
}

} // namespace corvidlmw::list
