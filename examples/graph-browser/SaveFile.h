#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace graph_browser {

// Makes `contents` the contents of a file, or leaves the file as it was: whatever fails, and
// whenever the machine stops, either the old contents or the new ones are there, whole. An existing
// file keeps its permissions, and its owner where that is allowed; through symbolic links the file
// at their end is written. Returns what went wrong, none if nothing did.
std::optional<std::string> SaveFile(const std::string &path, std::string_view contents);

// What tells whether another program has written a file in the meantime.
class FileStamp {
public:
    explicit FileStamp(const std::string &path);
    bool operator==(const FileStamp &other) const;

private:
    struct stat status {};
};

} // namespace graph_browser
