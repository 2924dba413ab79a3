#include "Includes.h"

#include <algorithm>
#include <array>
#include <filesystem>

namespace workbench {

namespace {

constexpr std::string_view blank = " \t";

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blank);
    return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

// Cuts comments out of a line. `inside` tells whether a comment goes on from the line before, and then,
// whether it goes on to the next.
std::string WithoutComments(std::string_view line, bool &inside) {
    std::string kept;
    while (!line.empty()) {
        const std::size_t mark = line.find(inside ? "*/" : "/*");
        const std::string_view before = line.substr(0, mark);
        if (!inside) {
            kept += before;
        }
        if (mark == std::string_view::npos) {
            break;
        }
        inside = !inside;
        line.remove_prefix(mark + 2);
    }
    return kept;
}

std::optional<Include> IncludeIn(std::string_view line) {
    line = WithoutBlanks(line);
    if (!line.starts_with('#')) {
        return std::nullopt;
    }
    line = WithoutBlanks(line.substr(1));
    constexpr std::string_view word = "include";
    if (!line.starts_with(word)) {
        return std::nullopt;
    }
    line = WithoutBlanks(line.substr(word.size()));
    if (!line.starts_with('"') && !line.starts_with('<')) {
        return std::nullopt;
    }
    const bool quoted = line.front() == '"';
    const std::size_t end = line.find(quoted ? '"' : '>', 1);
    if (end == std::string_view::npos || end == 1) {
        return std::nullopt;
    }
    return Include{std::string(line.substr(1, end - 1)), quoted};
}

bool EndsWithPart(std::string_view name, std::string_view part) {
    return name.ends_with(part) &&
           (name.size() == part.size() || name[name.size() - part.size() - 1] == '/');
}

std::string LastPart(std::string_view name) {
    return std::string(name.substr(name.rfind('/') + 1));
}

} // namespace

std::vector<Include> IncludesIn(std::string_view text) {
    std::vector<Include> found;
    bool inside = false;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        const auto include = IncludeIn(WithoutComments(line, inside));
        if (include && std::find(found.begin(), found.end(), *include) == found.end()) {
            found.push_back(*include);
        }
    }
    return found;
}

SourceKind SourceKindOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    const std::string_view end = dot == std::string_view::npos ? "" : name.substr(dot + 1);
    constexpr std::array<std::string_view, 6> code = {"c", "cc", "cpp", "cxx", "C", "m"};
    constexpr std::array<std::string_view, 6> headers = {"h", "hh", "hpp", "hxx", "H", "inc"};
    if (std::find(code.begin(), code.end(), end) != code.end()) {
        return SourceKind::Code;
    }
    return std::find(headers.begin(), headers.end(), end) != headers.end() ? SourceKind::Header
                                                                           : SourceKind::None;
}

IncludeIndex::IncludeIndex(const std::vector<std::string> &names, std::string_view top)
    : top_(std::string(top) + '/'), all_(names) {
    for (int i = 0; const std::string &name : names) {
        names_.emplace(name, i);
        by_last_.emplace(LastPart(name), i++);
    }
}

std::optional<int> IncludeIndex::Find(const Include &include, std::string_view from) const {
    const auto find = [this](const std::filesystem::path &path) -> std::optional<int> {
        const auto found = names_.find(path.lexically_normal().string());
        return found == names_.end() ? std::nullopt : std::optional(found->second);
    };
    if (include.quoted) {
        const auto beside = find(std::filesystem::path(from).parent_path() / include.name);
        if (beside) {
            return beside;
        }
    }
    if (const auto from_top = find(include.name)) {
        return from_top;
    }
    if (include.name.starts_with(top_)) {
        if (const auto from_above = find(include.name.substr(top_.size()))) {
            return from_above;
        }
    }
    std::optional<int> only;
    const auto [first, last] = by_last_.equal_range(LastPart(include.name));
    for (auto candidate = first; candidate != last; ++candidate) {
        if (!EndsWithPart(all_[static_cast<std::size_t>(candidate->second)], include.name)) {
            continue;
        }
        if (only) {
            return std::nullopt;
        }
        only = candidate->second;
    }
    return only;
}

} // namespace workbench
