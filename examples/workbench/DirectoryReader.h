// Reads a directory and all that is in it. What is hidden is passed over, and links are not followed.
#pragma once

#include <string>
#include <vector>

#include <Directory.h>

#include "Reader.h"

namespace workbench {

class DirectoryReader : public Reader {
public:
    explicit DirectoryReader(const std::string &path);

    bool Step() override;
    std::string Progress() const override;
    std::variant<Document, Failure> Take() override;

private:
    struct Waiting {
        file_list::Entry entry;
        int parent;
    };

    int AddEntry(const file_list::Entry &entry);
    void PutOff(const std::string &directory, int parent);

    Document document_;
    bool found_ = false;
    std::vector<Waiting> waiting_; // the next one last
};

} // namespace workbench
