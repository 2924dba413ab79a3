// What a directory and the directories in it hold, as a flat list in the order of a tree view.
#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

namespace file_list {

enum class Kind { Directory, Closed, File, Program, Link, Other };

struct Entry {
    std::filesystem::path path;
    std::string name;
    Kind kind = Kind::Other; // Closed: a directory that cannot be read
    std::uintmax_t size = 0;
    std::time_t changed = 0;
    int depth = 0;
    std::string target; // of a link
};

// Entries sorted by name, each directory followed by what is in it, down to `levels` levels. Links are
// not followed.
std::vector<Entry> ReadTree(const std::filesystem::path &directory, int levels);

enum class Column { Name, Size, Date };

// A tree whose entries are sorted anew in each directory: by name, or the largest or newest first.
std::vector<Entry> SortedBy(Column column, const std::vector<Entry> &entries);

// With a comma after each thousand.
std::string Grouped(std::uintmax_t number);
std::string SizeText(const Entry &entry);
std::string DateText(const Entry &entry);

} // namespace file_list
