#include "IncludeReader.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include <Directory.h>
#include <Utf8.h>

namespace workbench {

namespace {

namespace fs = std::filesystem;

// What is larger was hardly written by hand, and would take too long.
constexpr std::uintmax_t largest_file = 4 << 20;

// What a build made is not the project's own.
bool IsBuildDirectory(const std::vector<file_list::Entry> &entries) {
    return std::any_of(entries.begin(), entries.end(), [](const auto &entry) {
        return entry.name == "CMakeCache.txt" || entry.name == "config.status";
    });
}

// Of a directory, however it is written.
std::string OwnName(const std::string &directory) {
    std::error_code error;
    const fs::path full = fs::absolute(directory, error) / "";
    return full.lexically_normal().parent_path().filename().string();
}

std::string TextOf(const std::string &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

} // namespace

IncludeReader::IncludeReader(const std::string &path) : directories_{path} {
    document_.source = Source::Includes;
    document_.path = path;
    document_.graph.name = "includes";
    document_.graph.orientation = graph_browser::Orientation::Horizontal;
}

bool IncludeReader::Step() {
    if (!directories_.empty()) {
        const std::string next = std::move(directories_.back());
        directories_.pop_back();
        GoThrough(next);
        return true;
    }
    if (!index_) {
        index_.emplace(names_, OwnName(document_.path));
    }
    if (num_read_ < static_cast<int>(names_.size())) {
        ReadFile(num_read_++);
    }
    return num_read_ < static_cast<int>(names_.size());
}

void IncludeReader::GoThrough(const std::string &directory) {
    auto entries = file_list::ReadTree(directory, 1);
    if (IsBuildDirectory(entries)) {
        return;
    }
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->kind == file_list::Kind::Directory && !entry->name.starts_with('.')) {
            directories_.push_back(entry->path);
        }
    }
    for (const auto &entry : entries) {
        const bool file =
            entry.kind == file_list::Kind::File || entry.kind == file_list::Kind::Program;
        if (file && SourceKindOf(entry.name) != SourceKind::None) {
            AddFile(entry.path, entry.size, entry.changed);
        }
    }
}

void IncludeReader::AddFile(const std::string &path, std::uintmax_t size, std::time_t changed) {
    if (static_cast<int>(names_.size()) >= most_nodes) {
        document_.cut = true;
        return;
    }
    const std::string name = fs::path(path).lexically_relative(document_.path).string();
    const std::string shown = graph_browser::CleanUtf8(name, false);
    const Kind kind = SourceKindOf(name) == SourceKind::Header ? Kind::Header : Kind::Code;
    names_.push_back(name);
    document_.AddNode({.name = shown, .label = shown},
                      {.kind = kind, .size = size, .changed = changed, .path = path, .note = {}});
}

void IncludeReader::ReadFile(int node) {
    Item &item = document_.ItemAt(node);
    if (item.size > largest_file) {
        item.note = "too large to be read";
        return;
    }
    const std::string &name = names_[static_cast<std::size_t>(node)];
    std::vector<int> reached;
    for (const Include &include : IncludesIn(TextOf(item.path))) {
        const auto found = index_->Find(include, name);
        if (!found) {
            item.note += (item.note.empty() ? "also " : ", ") +
                         graph_browser::CleanUtf8(include.name, false);
        } else if (std::find(reached.begin(), reached.end(), *found) == reached.end()) {
            reached.push_back(*found);
            document_.AddEdge(node, *found);
        }
    }
}

std::string IncludeReader::Progress() const {
    return std::to_string(num_read_) + " of " + std::to_string(names_.size()) + " files read";
}

std::variant<Document, Failure> IncludeReader::Take() {
    if (names_.empty()) {
        return Failure{document_.path + ": no C or C++ sources"};
    }
    return std::move(document_);
}

} // namespace workbench
