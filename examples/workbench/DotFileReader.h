// Reads a DOT file in a thread of its own: libcgraph cannot be stopped half way.
#pragma once

#include <future>
#include <string>

#include "Reader.h"

namespace workbench {

// libcgraph keeps much in globals. While this reads, nothing else may use it.
class DotFileReader : public Reader {
public:
    explicit DotFileReader(const std::string &path);

    bool Step() override;
    std::string Progress() const override;
    std::variant<Document, Failure> Take() override { return result_.get(); }

private:
    std::string path_;
    std::future<std::variant<Document, Failure>> result_;
};

} // namespace workbench
