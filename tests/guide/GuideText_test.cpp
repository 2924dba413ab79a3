/* The guide's pages against its programs: quotes, pictures, links. */

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path guide = GUIDE;

std::string Contents(const fs::path &file) {
    std::ifstream in{file};
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>{in}, {}};
}

std::vector<fs::path> Steps() {
    std::vector<fs::path> steps;
    for (const auto &entry : fs::directory_iterator{guide / "steps"})
        steps.push_back(entry.path());
    EXPECT_FALSE(steps.empty());
    return steps;
}

std::vector<fs::path> Pages() {
    std::vector<fs::path> pages{guide / "README.md"};
    for (const auto &step : Steps())
        pages.push_back(step / "README.md");
    return pages;
}

struct Block {
    std::string language;
    std::string text;
};

std::vector<Block> FencedBlocks(const std::string &page) {
    std::vector<Block> blocks;
    static const std::string fence = "```";
    for (size_t at = page.find(fence); at != std::string::npos; at = page.find(fence, at)) {
        const size_t line_end = page.find('\n', at);
        const size_t end = page.find("\n" + fence, line_end);
        if (end == std::string::npos)
            break;
        blocks.push_back({page.substr(at + fence.size(), line_end - at - fence.size()),
                          page.substr(line_end, end + 1 - line_end)});
        at = end + 1 + fence.size();
    }
    return blocks;
}

// What can be quoted on a step's page, each behind a line break so that quotes are of whole lines.
std::string Quotable(const fs::path &step) {
    std::string all;
    for (const auto &entry : fs::directory_iterator{step})
        if (entry.path().extension() != ".md")
            all += "\n" + Contents(entry.path());
    return all;
}

// Targets of links and pictures that are files of ours.
std::vector<std::string> Targets(const std::string &page) {
    static const std::regex link{R"(\]\(([^)#:]+)\)|src="([^"#:]+)\")"};
    std::vector<std::string> targets;
    for (std::sregex_iterator it{page.begin(), page.end(), link}, end; it != end; ++it)
        targets.push_back((*it)[1].matched ? (*it)[1] : (*it)[2]);
    return targets;
}

// `sh` is what the reader types and `text` what a program says; all else is a quote.
TEST(GuideText, QuotesStandInTheirProgramWordForWord) {
    for (const auto &step : Steps()) {
        const std::string quotable = Quotable(step);
        int quotes = 0;
        for (const auto &[language, text] : FencedBlocks(Contents(step / "README.md"))) {
            if (language == "sh" || language == "text")
                continue;
            EXPECT_NE(quotable.find(text), std::string::npos) << step << " has no" << text;
            ++quotes;
        }
        EXPECT_GT(quotes, 0) << step;
    }
}

TEST(GuideText, EachStepShowsItsPicture) {
    const std::string index = Contents(guide / "README.md");
    for (const auto &step : Steps()) {
        const std::string name = step.filename();
        EXPECT_NE(Contents(step / "README.md").find("](../../pictures/" + name + ".png)"),
                  std::string::npos)
            << name;
        EXPECT_NE(index.find("pictures/" + name + ".png"), std::string::npos) << name;
        EXPECT_NE(index.find("(steps/" + name + "/README.md)"), std::string::npos) << name;
    }
}

TEST(GuideText, NoPictureIsLeftOver) {
    for (const auto &entry : fs::directory_iterator{guide / "pictures"})
        EXPECT_TRUE(fs::is_directory(guide / "steps" / entry.path().stem())) << entry.path();
}

TEST(GuideText, LinksLeadSomewhere) {
    for (const auto &page : Pages()) {
        const auto targets = Targets(Contents(page));
        EXPECT_FALSE(targets.empty()) << page;
        for (const auto &target : targets)
            EXPECT_TRUE(fs::exists(page.parent_path() / target)) << page << ": " << target;
    }
}

} // namespace
