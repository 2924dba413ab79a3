#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <SaveFile.h>

namespace graph_browser {
namespace {

namespace fs = std::filesystem;

class SaveFileTest : public testing::Test {
protected:
    SaveFileTest()
        : directory(fs::temp_directory_path() / ("save_file_test." + std::to_string(getpid()))) {
        fs::create_directories(directory);
        Put("old contents");
    }
    ~SaveFileTest() override { fs::remove_all(directory); }

    void Put(const char *contents) const { std::ofstream{file} << contents; }
    std::string Contents() const {
        std::ifstream stream{file};
        return {std::istreambuf_iterator<char>{stream}, {}};
    }
    // Nothing half written lies about.
    void ExpectFiles(int count) const {
        EXPECT_EQ(std::distance(fs::directory_iterator{directory}, fs::directory_iterator{}),
                  count);
    }

    fs::path directory;
    fs::path file = directory / "graph.dot";
};

TEST_F(SaveFileTest, TheNewContentsKeepThePermissions) {
    for (const mode_t mode : {0600, 0640, 0444, 0755}) {
        chmod(file.c_str(), mode);
        const auto error = SaveFile(file, "new");
        struct stat status {};
        stat(file.c_str(), &status);
        EXPECT_EQ(status.st_mode & 07777, mode);
        // Root may write everything.
        EXPECT_EQ(error.has_value(), mode == 0444 && geteuid() != 0);
    }
    EXPECT_EQ(Contents(), "new");
    umask(027);
    EXPECT_FALSE(SaveFile(directory / "fresh.dot", "new"));
    umask(022);
    EXPECT_EQ(fs::status(directory / "fresh.dot").permissions(), fs::perms{0640});
    ExpectFiles(2);
}

TEST_F(SaveFileTest, LinksStayAndTheirEndIsWritten) {
    fs::create_directory(directory / "links");
    fs::create_symlink("../graph.dot", directory / "links" / "relative");
    fs::create_symlink(directory / "links" / "relative", directory / "links" / "twice");
    EXPECT_FALSE(SaveFile(directory / "links" / "twice", "new"));
    EXPECT_EQ(Contents(), "new");
    fs::create_symlink("later.dot", directory / "links" / "dangling");
    EXPECT_FALSE(SaveFile(directory / "links" / "dangling", "made"));
    EXPECT_TRUE(fs::is_symlink(directory / "links" / "dangling"));
    EXPECT_TRUE(fs::is_regular_file(directory / "links" / "later.dot"));
    fs::create_symlink("loop", directory / "links" / "loop");
    EXPECT_TRUE(SaveFile(directory / "links" / "loop", "new"));
}

TEST_F(SaveFileTest, AFullDiskLeavesTheOldFile) {
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{100, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const auto error = SaveFile(file, std::string(1000, 'x'));
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(error, "File too large");
    EXPECT_EQ(Contents(), "old contents");
    ExpectFiles(1);
}

TEST_F(SaveFileTest, AProgramThatDiesWhileSavingLeavesAWholeFile) {
    const std::string texts[] = {std::string(300'000, 'a'), std::string(200'000, 'b')};
    for (int round = 0; round < 30; ++round) {
        SaveFile(file, texts[0]);
        const pid_t writer = fork();
        if (writer == 0)
            for (int turn = 1;; ++turn)
                SaveFile(file, texts[turn % 2]);
        usleep(static_cast<useconds_t>(200 * round));
        kill(writer, SIGKILL);
        waitpid(writer, nullptr, 0);
        const std::string found = Contents();
        EXPECT_TRUE(found == texts[0] || found == texts[1]) << found.size() << " bytes";
    }
}

TEST_F(SaveFileTest, WhatIsNoFileIsNotReplaced) {
    EXPECT_EQ(SaveFile("/dev/full", "new"), "not a regular file");
    EXPECT_EQ(SaveFile(directory, "new"), "not a regular file");
    EXPECT_EQ(SaveFile(directory / "missing" / "graph.dot", "new"), "No such file or directory");
    EXPECT_EQ(SaveFile(file / "graph.dot", "new"), "Not a directory");
    EXPECT_EQ(SaveFile("", "new"), "No such file or directory");
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    ExpectFiles(1);
}

TEST_F(SaveFileTest, AStampTellsThatAnotherProgramWrote) {
    const FileStamp stamp{file};
    EXPECT_TRUE(stamp == FileStamp{file});
    Put("other contents");
    EXPECT_FALSE(stamp == FileStamp{file});
    fs::remove(file);
    EXPECT_FALSE(stamp == FileStamp{file});
}

} // namespace
} // namespace graph_browser
