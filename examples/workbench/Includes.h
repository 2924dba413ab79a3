// Which files the sources of a project include.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

struct Include {
    std::string name;
    bool quoted = false; // else in angle brackets
    bool operator==(const Include &) const = default;
};

// In their order, each once. Comments are passed over; conditions are not.
std::vector<Include> IncludesIn(std::string_view text);

enum class SourceKind { None, Code, Header };

// By the end of a file's name.
SourceKind SourceKindOf(std::string_view name);

// The files of a project by their names relative to its top.
class IncludeIndex {
public:
    // `top` is the name of the top directory itself.
    explicit IncludeIndex(const std::vector<std::string> &names, std::string_view top);

    // The number of the file that an include in the file `from` means: the one beside it if it is quoted,
    // one that it names from the top, or from the directory that the top is in, or the only one whose name
    // ends with it. None for a file of others.
    std::optional<int> Find(const Include &include, std::string_view from) const;

private:
    std::string top_;
    std::vector<std::string> all_;
    std::map<std::string, int, std::less<>> names_;
    std::multimap<std::string, int, std::less<>> by_last_; // by the last part of the name
};

} // namespace workbench
