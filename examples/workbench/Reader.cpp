#include "Reader.h"

#include <filesystem>
#include <system_error>

#include "DirectoryReader.h"
#include "DotFileReader.h"
#include "IncludeReader.h"

namespace workbench {

std::unique_ptr<Reader> MakeReader(Source source, const std::string &path) {
    switch (source) {
    case Source::Directory: return std::make_unique<DirectoryReader>(path);
    case Source::Includes: return std::make_unique<IncludeReader>(path);
    case Source::DotFile: break;
    }
    return std::make_unique<DotFileReader>(path);
}

Source GuessSource(const std::string &path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error) ? Source::Directory : Source::DotFile;
}

} // namespace workbench
