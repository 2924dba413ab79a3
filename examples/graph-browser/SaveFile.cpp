// The contents go to a new file beside the old one, reach the disk, and only then take the old
// one's name. A file is never opened for writing that already has contents.

#include "SaveFile.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace graph_browser {
namespace {

using std::filesystem::path;

constexpr int most_links = 40; // as many as the kernel follows
constexpr mode_t permission_bits = 07777;

// Beyond the size that the process may write to, write() shall fail rather than end the program.
class IgnoredSizeSignal {
public:
    IgnoredSizeSignal() {
        struct sigaction ignore {};
        ignore.sa_handler = SIG_IGN;
        sigaction(SIGXFSZ, &ignore, &before);
    }
    ~IgnoredSizeSignal() { sigaction(SIGXFSZ, &before, nullptr); }
    IgnoredSizeSignal(const IgnoredSizeSignal &) = delete;
    IgnoredSizeSignal &operator=(const IgnoredSizeSignal &) = delete;

private:
    struct sigaction before {};
};

// Follows links also to a file that is not there yet.
path EndOfLinks(path name) {
    std::error_code error;
    for (int links = 0; links < most_links; ++links) {
        const path target = std::filesystem::read_symlink(name, error);
        if (error)
            break;
        name = name.parent_path() / target; // an absolute target replaces all
    }
    return name;
}

path DirectoryOf(const path &file) {
    return file.has_parent_path() ? file.parent_path() : path{"."};
}

mode_t ModeForNewFiles() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

// ---- The new file ----------------------------------------------------------

// A file without a name of its own yet; what was not renamed is removed.
class TemporaryFile {
public:
    explicit TemporaryFile(const path &directory)
        : name((directory / ".graph-browser.XXXXXX").string()),
          descriptor(mkostemp(name.data(), O_CLOEXEC)), left_over(descriptor >= 0) {}
    ~TemporaryFile() {
        Close();
        if (left_over)
            unlink(name.c_str());
    }
    TemporaryFile(const TemporaryFile &) = delete;
    TemporaryFile &operator=(const TemporaryFile &) = delete;

    bool IsOpen() const { return descriptor >= 0; }
    bool Write(std::string_view contents);
    // The owner comes first: a change of owner takes bits of the permissions away.
    bool Take(const struct stat &old) {
        if (fchown(descriptor, old.st_uid, old.st_gid) != 0)
            static_cast<void>(fchown(descriptor, static_cast<uid_t>(-1), old.st_gid) == 0);
        return fchmod(descriptor, old.st_mode & permission_bits) == 0;
    }
    bool SetMode(mode_t mode) { return fchmod(descriptor, mode) == 0; }
    // A full disk may come to light as late as this.
    bool Finish() { return fsync(descriptor) == 0 && Close(); }
    bool Rename(const path &target) {
        left_over = rename(name.c_str(), target.c_str()) != 0;
        return !left_over;
    }

private:
    bool Close() {
        const bool closed = descriptor < 0 || close(descriptor) == 0;
        descriptor = -1;
        return closed;
    }

    std::string name;
    int descriptor;
    bool left_over;
};

bool TemporaryFile::Write(std::string_view contents) {
    while (!contents.empty()) {
        const ssize_t count = write(descriptor, contents.data(), contents.size());
        if (count < 0 && errno != EINTR)
            return false;
        contents.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
    }
    return true;
}

// The new name reaches the disk with the directory. The file is safe either way: should this fail,
// a crash can at worst bring the old one back.
void SyncDirectory(const path &directory) {
    const int descriptor = open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

// Returns the number of the error, 0 for none.
int Replace(const path &target, const struct stat *old, std::string_view contents) {
    TemporaryFile file{DirectoryOf(target)};
    const bool written = file.IsOpen() && file.Write(contents) &&
                         (old ? file.Take(*old) : file.SetMode(ModeForNewFiles())) &&
                         file.Finish() && file.Rename(target);
    return written ? 0 : errno;
}

} // namespace

// ---- Public functions ------------------------------------------------------

std::optional<std::string> SaveFile(const std::string &name, std::string_view contents) {
    const IgnoredSizeSignal ignored;
    const path target = EndOfLinks(name);
    struct stat old {};
    const bool exists = stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        return std::strerror(errno);
    // A device or a pipe must not be replaced by a file.
    if (exists && !S_ISREG(old.st_mode))
        return "not a regular file";
    // Renaming would not ask whether this file may be written.
    if (exists && access(target.c_str(), W_OK) != 0)
        return std::strerror(errno);
    if (const int error = Replace(target, exists ? &old : nullptr, contents); error != 0)
        return std::strerror(error);
    SyncDirectory(DirectoryOf(target));
    return std::nullopt;
}

FileStamp::FileStamp(const std::string &name) {
    if (stat(name.c_str(), &status) != 0)
        status = {};
}

bool FileStamp::operator==(const FileStamp &other) const {
    return status.st_ino == other.status.st_ino && status.st_dev == other.status.st_dev &&
           status.st_size == other.status.st_size &&
           status.st_mtim.tv_sec == other.status.st_mtim.tv_sec &&
           status.st_mtim.tv_nsec == other.status.st_mtim.tv_nsec;
}

} // namespace graph_browser
