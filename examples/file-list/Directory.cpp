#include "Directory.h"

#include <algorithm>
#include <array>
#include <span>
#include <system_error>

#include <sys/stat.h>

namespace file_list {

namespace {

namespace fs = std::filesystem;

Kind KindOf(const struct stat &status) {
    if (S_ISDIR(status.st_mode)) {
        return Kind::Directory;
    }
    if (S_ISLNK(status.st_mode)) {
        return Kind::Link;
    }
    if (S_ISREG(status.st_mode)) {
        return (status.st_mode & S_IXUSR) != 0 ? Kind::Program : Kind::File;
    }
    return Kind::Other;
}

Entry Describe(const fs::path &path, int depth) {
    Entry entry;
    entry.path = path;
    entry.name = path.filename().string();
    entry.depth = depth;
    struct stat status {};
    if (lstat(path.c_str(), &status) != 0) {
        return entry;
    }
    entry.kind = KindOf(status);
    entry.size = static_cast<std::uintmax_t>(status.st_size);
    entry.changed = status.st_mtime;
    if (entry.kind == Kind::Link) {
        std::error_code ignored;
        entry.target = fs::read_symlink(path, ignored).string();
    }
    return entry;
}

// Sorted; an error is told for a directory that cannot be read.
std::vector<fs::path> PathsIn(const fs::path &directory, std::error_code &error) {
    std::vector<fs::path> paths;
    for (fs::directory_iterator next(directory, error), end; !error && next != end;
         next.increment(error)) {
        paths.push_back(next->path());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

struct Waiting {
    fs::path path;
    int depth;
};

void PutOff(std::vector<Waiting> &waiting, const std::vector<fs::path> &paths, int depth) {
    for (auto path = paths.rbegin(); path != paths.rend(); ++path) {
        waiting.push_back({*path, depth});
    }
}

} // namespace

std::vector<Entry> ReadTree(const fs::path &directory, int levels) {
    std::error_code error;
    std::vector<Entry> entries;
    std::vector<Waiting> waiting;
    PutOff(waiting, PathsIn(directory, error), 0);
    while (!waiting.empty()) {
        const Waiting next = std::move(waiting.back());
        waiting.pop_back();
        Entry &entry = entries.emplace_back(Describe(next.path, next.depth));
        if (entry.kind != Kind::Directory) {
            continue;
        }
        const auto inside = PathsIn(next.path, error);
        if (error) {
            entry.kind = Kind::Closed;
        } else if (next.depth + 1 < levels) {
            PutOff(waiting, inside, next.depth + 1);
        }
    }
    return entries;
}

namespace {

// An entry and what is in it.
using Branch = std::span<const Entry>;

std::vector<Branch> BranchesOf(std::span<const Entry> entries) {
    std::vector<Branch> branches;
    for (std::size_t begin = 0, end = 0; begin < entries.size(); begin = end) {
        end = begin + 1;
        while (end < entries.size() && entries[end].depth > entries[begin].depth) {
            end++;
        }
        branches.push_back(entries.subspan(begin, end - begin));
    }
    return branches;
}

bool ComesBefore(Column column, const Entry &a, const Entry &b) {
    switch (column) {
    case Column::Size: return a.size > b.size;
    case Column::Date: return a.changed > b.changed;
    case Column::Name: break;
    }
    return a.name < b.name;
}

// NOLINTNEXTLINE(misc-no-recursion): as deep as the tree that was read
void AppendSorted(Column column, std::span<const Entry> entries, std::vector<Entry> &sorted) {
    std::vector<Branch> branches = BranchesOf(entries);
    std::stable_sort(branches.begin(), branches.end(), [column](Branch a, Branch b) {
        return ComesBefore(column, a.front(), b.front());
    });
    for (const Branch branch : branches) {
        sorted.push_back(branch.front());
        AppendSorted(column, branch.subspan(1), sorted);
    }
}

} // namespace

std::vector<Entry> SortedBy(Column column, const std::vector<Entry> &entries) {
    std::vector<Entry> sorted;
    AppendSorted(column, entries, sorted);
    return sorted;
}

std::string Grouped(std::uintmax_t number) {
    std::string digits = std::to_string(number);
    for (auto at = static_cast<int>(digits.size()) - 3; at > 0; at -= 3) {
        digits.insert(static_cast<std::size_t>(at), ",");
    }
    return digits;
}

std::string SizeText(const Entry &entry) {
    switch (entry.kind) {
    case Kind::Directory: return "";
    case Kind::Closed: return "no access";
    default: return Grouped(entry.size);
    }
}

std::string DateText(const Entry &entry) {
    std::tm local{};
    std::array<char, 32> text{};
    if (entry.changed == 0 || !localtime_r(&entry.changed, &local)) {
        return "";
    }
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &local)};
}

} // namespace file_list
