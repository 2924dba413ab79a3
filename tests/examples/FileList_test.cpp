#include <Directory.h>
#include <FileList.h>

#include <corvidlmw/list/LmList.h>
#include <tests/support/Harness.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include <X11/IntrinsicP.h>
#include <unistd.h>

namespace file_list {
namespace {

namespace fs = std::filesystem;

class FileListTest : public corvidlmw::test::DisplayTest {
protected:
    void SetUp() override {
        DisplayTest::SetUp();
        std::string path = (fs::temp_directory_path() / "file-list-XXXXXX").string();
        directory = mkdtemp(path.data());
        fs::permissions(directory, fs::perms(0755));
    }
    void TearDown() override {
        fs::permissions(directory, fs::perms(0755));
        fs::remove_all(directory);
        if (shell)
            XtDestroyWidget(shell);
        files.reset();
        DisplayTest::TearDown();
    }

    void Write(const fs::path &name, const std::string &content = "") {
        std::ofstream(directory / name) << content;
    }

    // Nobody keeps the superuser out of a directory.
    std::vector<Entry> ReadAsNobody() {
        const bool is_root = geteuid() == 0;
        EXPECT_TRUE(!is_root || seteuid(65534) == 0);
        auto entries = ReadTree(directory, 3);
        EXPECT_TRUE(!is_root || seteuid(0) == 0);
        return entries;
    }

    Widget Show(std::vector<Entry> entries) {
        files = std::make_unique<FileList>(shell);
        files->Show(std::move(entries));
        DisplayTest::Show();
        return files->list();
    }

    // The columns follow each other: tabs are no text.
    static std::string RowOf(Widget list, int row) {
        XmString *items = nullptr;
        XtVaGetValues(list, XmNitems, &items, nullptr);
        auto *text = static_cast<char *>(XmStringUnparse(items[row], nullptr, XmCHARSET_TEXT,
                                                         XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
        std::string copy = text;
        XtFree(text);
        return copy;
    }

    fs::path directory;
    std::unique_ptr<FileList> files;
};

TEST_F(FileListTest, ShowsATreeAndWhatItMayNotRead) {
    fs::create_directories(directory / "a/b/c/d");
    Write("a/file", std::string(1234, 'x'));
    fs::create_directory(directory / "closed");
    Write("closed/secret");
    fs::permissions(directory / "closed", fs::perms::none);
    fs::create_symlink("nowhere", directory / "link");
    fs::create_symlink(".", directory / "loop");
    const auto entries = ReadAsNobody();
    std::vector<std::string> names;
    std::vector<int> depths;
    for (const Entry &entry : entries) {
        names.push_back(entry.name);
        depths.push_back(entry.depth);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"a", "b", "c", "file", "closed", "link", "loop"}));
    EXPECT_EQ(depths, (std::vector<int>{0, 1, 2, 1, 0, 0, 0}));
    EXPECT_EQ(SizeText(entries[3]), "1,234");
    EXPECT_EQ(entries[4].kind, Kind::Closed);
    EXPECT_EQ(SizeText(entries[4]), "no access");
    EXPECT_EQ(entries[5].target, "nowhere");
    Widget list = Show(entries);
    EXPECT_EQ(RowOf(list, 5).substr(0, 16), "link \xe2\x86\x92 nowhere");
    EXPECT_NE(RowOf(list, 4).find("no access"), std::string::npos);
}

TEST_F(FileListTest, ShowsAnEmptyDirectoryAndNone) {
    EXPECT_TRUE(ReadTree(directory, 3).empty());
    EXPECT_TRUE(ReadTree(directory / "missing", 3).empty());
    Widget list = Show({});
    int count = -1;
    XtVaGetValues(list, XmNitemCount, &count, nullptr);
    EXPECT_EQ(count, 0);
    EXPECT_GT(list->core.height, 100);
}

TEST_F(FileListTest, ShowsAnyNameInOneLine) {
    const std::string endless(255, 'w');
    for (const std::string &name :
         {std::string("\ttab\nline\x7f"), std::string("  two  "),
          std::string("\xc3\xa4\xe2\x82\xac"), std::string("bad\xff\xc3(\xe2\x82"), endless})
        Write(name);
    Widget list = Show(ReadTree(directory, 1));
    const std::size_t size_and_date = std::string("02001-01-01 00:00").size();
    std::vector<std::string> names;
    for (int row = 0; row < 5; row++) {
        names.push_back(RowOf(list, row));
        names.back().resize(names.back().size() - size_and_date);
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"?tab?line?", "  two  ", "bad\xc3\xbf\xc3\x83(\xc3\xa2",
                                        endless, "\xc3\xa4\xe2\x82\xac"}));
}

} // namespace
} // namespace file_list
