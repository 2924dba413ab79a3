// Every public function has a page that shows its declaration as the header has it, and the other way
// round; likewise the callback structures and the reasons.

#include <tests/manual/PageSource.h>
#include <tests/support/GoogleTest.h>

#include <algorithm>
#include <regex>

namespace {

using namespace corvidlmw::test;

std::vector<std::string> Matches(const std::string &text, const char *pattern) {
    std::vector<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        found.push_back((*at)[1].str());
    }
    return found;
}

// The page that has `name` on its NAME line.
const Page *PageOf(const std::string &name) {
    for (const auto &[file, page] : Pages()) {
        if (std::find(page.names.begin(), page.names.end(), name) != page.names.end()) {
            return &page;
        }
    }
    return nullptr;
}

std::string FunctionName(const std::string &declaration) {
    std::smatch match;
    std::regex_search(declaration, match, std::regex(R"((\w+)\()"));
    return match[1];
}

TEST(FunctionPages, ShowEveryPublicFunctionAsItIsDeclared) {
    const auto declarations =
        Matches(Squeezed(HeaderTexts()), R"(CORVIDLMW_EXPORT ([^;{]*\([^;]*\);))");
    ASSERT_GT(declarations.size(), 100u);
    for (const std::string &declaration : declarations) {
        const Page *page = PageOf(FunctionName(declaration));
        ASSERT_TRUE(page) << "no page for " << declaration;
        EXPECT_NE(page->squeezed.find(declaration), std::string::npos)
            << page->names[0] << "(3) does not show " << declaration;
    }
}

// Functions, class tests and classes.
std::set<std::string> DeclaredNames() {
    const std::string headers = HeaderTexts();
    std::set<std::string> names;
    for (const char *pattern : {R"((\w+)\()", R"(struct _(\w+)Rec\b)"}) {
        const auto found = Matches(headers, pattern);
        names.insert(found.begin(), found.end());
    }
    return names;
}

TEST(FunctionPages, NameNothingThatIsNotDeclared) {
    const auto declared = DeclaredNames();
    for (const auto &[file, page] : Pages()) {
        ASSERT_FALSE(page.names.empty()) << file;
        EXPECT_EQ(page.names[0], file);
        for (const std::string &name : page.names) {
            EXPECT_TRUE(declared.count(name)) << file << " names " << name;
        }
    }
}

TEST(FunctionPages, ShowEveryStructureAsItIsDeclared) {
    std::string pages;
    for (const auto &[file, page] : Pages()) {
        pages += page.squeezed;
    }
    const auto structures = Matches(Squeezed(HeaderTexts()), R"((typedef struct \{[^}]*\} \w+;))");
    ASSERT_GE(structures.size(), 5u);
    for (const std::string &structure : structures) {
        EXPECT_NE(pages.find(structure), std::string::npos) << structure;
    }
}

std::set<std::string> WordsOfPages() {
    std::set<std::string> words;
    for (const auto &[file, page] : Pages()) {
        const auto found = Matches(page.text, R"((\w+))");
        words.insert(found.begin(), found.end());
    }
    return words;
}

TEST(FunctionPages, TellEveryReasonAndEveryMacro) {
    const auto words = WordsOfPages();
    const std::string headers = HeaderTexts();
    for (const char *pattern : {R"(\b(\w+CR_\w+)\b)", R"(#define (\w+)\()"}) {
        for (const std::string &word : Matches(headers, pattern)) {
            EXPECT_TRUE(words.count(word)) << word;
        }
    }
}

} // namespace
