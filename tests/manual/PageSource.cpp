#include <tests/manual/PageSource.h>

#include <fstream>
#include <regex>
#include <sstream>

namespace corvidlmw::test {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path &file) {
    std::ifstream in(file);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string Replaced(const std::string &text, const char *pattern, const char *by) {
    return std::regex_replace(text, std::regex(pattern), by);
}

// Fonts as \fB and \fP, \- for a minus, \& for nothing, \e for a backslash.
std::string Plain(const std::string &source) {
    std::string text = Replaced(source, R"(\\f(\[[^\]]*\]|.))", "");
    text = Replaced(text, R"(\\-)", "-");
    text = Replaced(text, R"(\\&|\\:)", "");
    text = Replaced(text, R"(\\\(em)", "--");
    return Replaced(text, R"(\\e)", "\\");
}

std::vector<std::string> Lines(const std::string &text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> Cells(const std::string &line) {
    std::vector<std::string> cells;
    std::istringstream in(line);
    for (std::string cell; std::getline(in, cell, '\t');) {
        cells.push_back(Replaced(cell, "^ +| +$", ""));
    }
    cells.resize(3);
    return cells;
}

bool StartsWith(const std::string &text, const char *start) {
    return text.rfind(start, 0) == 0;
}

std::vector<PageResource> Rows(const std::vector<std::string> &table) {
    std::vector<PageResource> rows;
    for (size_t i = 0; i + 1 < table.size(); i++) {
        if (!StartsWith(table[i], "XmN")) {
            continue;
        }
        const auto first = Cells(table[i]), second = Cells(table[i + 1]);
        rows.push_back({first[0], second[0], first[1], second[1], first[2]});
    }
    return rows;
}

class PageReader {
public:
    Page Read(const std::string &source) {
        page_.text = Plain(source);
        for (const std::string &line : Lines(page_.text)) {
            Take(line);
        }
        page_.squeezed = Squeezed(page_.text);
        return page_;
    }

private:
    void Take(const std::string &line) {
        if (StartsWith(line, ".SH") || StartsWith(line, ".SS")) {
            section_ = line.substr(4);
            entry_.clear();
        } else if (line == ".TS") {
            table_.assign(1, "");
        } else if (line == ".TE") {
            TakeTable();
        } else if (!table_.empty()) {
            table_.push_back(line);
        } else if (section_ == "NAME") {
            TakeNames(line);
        } else if (line == ".TP") {
            entry_ = ".TP";
        } else if (entry_ == ".TP") {
            entry_ = Replaced(line, R"(^\.[BIR]+ |"| ?\(3\)|\(\))", "");
            page_.entries[entry_];
        } else if (!entry_.empty()) {
            page_.entries[entry_] += line + "\n";
            TakeInherited(line);
        }
    }

    void TakeNames(const std::string &line) {
        const size_t dash = line.find(" - ");
        std::istringstream words(Replaced(line.substr(0, dash), ",", " "));
        for (std::string word; words >> word;) {
            page_.names.push_back(word);
        }
    }

    void TakeTable() {
        std::string title;
        for (const std::string &line : table_) {
            title = line.find(" Resource Set") != std::string::npos ? line : title;
        }
        if (!title.empty()) {
            page_.resource_sets[title] = Rows(table_);
        }
        table_.clear();
    }

    void TakeInherited(const std::string &line) {
        if (section_ != "Inherited Resources") {
            return;
        }
        const std::regex name(R"(XmN\w+)");
        for (std::sregex_iterator at(line.begin(), line.end(), name), end; at != end; ++at) {
            page_.inherited[entry_].insert(at->str());
        }
    }

    Page page_;
    std::string section_, entry_;
    std::vector<std::string> table_;
};

} // namespace

Page ReadPage(const fs::path &file) {
    return PageReader().Read(ReadFile(file));
}

const std::map<std::string, Page> &Pages() {
    static const auto pages = [] {
        std::map<std::string, Page> all;
        for (const auto &entry : fs::directory_iterator(SOURCE_DIRECTORY "/docs/man")) {
            if (entry.path().extension() == ".3") {
                all[entry.path().stem()] = ReadPage(entry.path());
            }
        }
        return all;
    }();
    return pages;
}

std::string HeaderTexts() {
    std::istringstream names(PUBLIC_HEADERS);
    std::string text;
    for (std::string name; std::getline(names, name, ':');) {
        const fs::path file = fs::path(SOURCE_DIRECTORY "/corvidlmw") / name;
        if (!std::regex_search(name, std::regex("P\\.h$|Export\\.h$"))) {
            text += ReadFile(file);
        }
    }
    // Not by a regular expression: the library's own recurses on long comments.
    for (size_t start; (start = text.find("/*")) != std::string::npos;) {
        text.erase(start, text.find("*/", start) + 2 - start);
    }
    return text;
}

std::string Squeezed(const std::string &text) {
    std::string squeezed;
    for (const char c : text) {
        const bool is_blank = c == ' ' || c == '\t' || c == '\n';
        const char last = squeezed.empty() ? ' ' : squeezed.back();
        if (is_blank && last != ' ' && last != '(') {
            squeezed += ' ';
        } else if (!is_blank) {
            squeezed += c;
        }
    }
    return squeezed;
}

} // namespace corvidlmw::test
