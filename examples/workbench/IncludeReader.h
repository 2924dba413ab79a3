// Reads which files of a project include which. Files of others are no nodes; they are told in the note of
// the file that includes them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Includes.h"
#include "Reader.h"

namespace workbench {

class IncludeReader : public Reader {
public:
    explicit IncludeReader(const std::string &path);

    // First all directories are gone through, then all files are read.
    bool Step() override;
    std::string Progress() const override;
    std::variant<Document, Failure> Take() override;

private:
    void GoThrough(const std::string &directory);
    void AddFile(const std::string &path, std::uintmax_t size, std::time_t changed);
    void ReadFile(int node);

    Document document_;
    std::vector<std::string> directories_; // yet to be gone through, the next one last
    std::vector<std::string> names_;       // of the nodes, relative to the top
    std::optional<IncludeIndex> index_;    // when all files are known
    int num_read_ = 0;
};

} // namespace workbench
