#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace marked_scrollbar {

// Where the lines of a text begin. Positions count characters, as the text widget does.
class Lines {
public:
    Lines() : Lines(std::wstring_view()) {}
    explicit Lines(std::wstring_view text);

    int Count() const { return static_cast<int>(starts.size()); }
    int LineAt(std::size_t position) const;
    // Of the first character of a line; the text's end for a line past the last one.
    std::size_t StartOf(int line) const;

private:
    std::vector<std::size_t> starts;
    std::size_t length;
};

// Where `word` occurs in `text`, upper and lower case alike, in ascending order and not overlapping.
// Nowhere, if it is empty.
std::vector<std::size_t> Occurrences(std::wstring_view text, std::wstring_view word);

// The bytes of a file as text of the locale. What is none of its characters becomes a question mark.
std::wstring TextOf(const std::string &bytes);

} // namespace marked_scrollbar
