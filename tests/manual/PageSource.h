/* What the tests read out of the sources of the manual pages and out of the public headers. */
#ifndef CORVIDLMW_TESTS_MANUAL_PAGESOURCE_H
#define CORVIDLMW_TESTS_MANUAL_PAGESOURCE_H

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvidlmw::test {

// One resource in a table of a page, which gives it two lines: name, type and access; class and default.
struct PageResource {
    std::string name, class_name, type, preset, access;
};

struct Page {
    std::string text;               // without font changes and escapes
    std::string squeezed;           // see below
    std::vector<std::string> names; // of the line under NAME
    // By the table's title.
    std::map<std::string, std::vector<PageResource>> resource_sets;
    // Names of inherited resources by the class that they come from.
    std::map<std::string, std::set<std::string>> inherited;
    // The text below each entry that is headed by a bold name.
    std::map<std::string, std::string> entries;
};

Page ReadPage(const std::filesystem::path &file);

// All pages of section 3, by file name without its suffix.
const std::map<std::string, Page> &Pages();

// All public headers but those for subclasses (FooP.h), with comments taken out.
std::string HeaderTexts();

// One blank for each run of blanks and newlines, and none behind an opening parenthesis.
std::string Squeezed(const std::string &text);

} // namespace corvidlmw::test

#endif
