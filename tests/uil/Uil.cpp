#include <tests/uil/Uil.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <sstream>

namespace corvidlmw::test {
namespace {

namespace fs = std::filesystem;

std::string DeclarationText() {
    return ReadFile(fs::path(SOURCE_DIRECTORY) / "corvidlmw/uil/Corvidlmw.uil");
}

template <typename Take>
void ForEachMatch(const std::string &text, const char *pattern, Take take) {
    const std::regex expression(pattern);
    for (std::sregex_iterator at(text.begin(), text.end(), expression), end; at != end; ++at) {
        take(*at);
    }
}

std::string OutputOf(const std::string &command) {
    std::string output;
    FILE *pipe = popen((command + " 2>&1").c_str(), "r");
    for (int c; (c = std::fgetc(pipe)) != EOF;) {
        output += static_cast<char>(c);
    }
    if (pclose(pipe) != 0 && output.empty()) {
        output = "the compiler failed";
    }
    return output;
}

} // namespace

std::string ReadFile(const fs::path &file) {
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

std::vector<UilResource> UilResources() {
    std::vector<UilResource> found;
    const std::string text = DeclarationText();
    ForEachMatch(text, R"((XmN\w+)\s*: argument\('(\w+)', (\w+)\);)", [&](const std::smatch &m) {
        found.push_back({m[1], m[2], m[3]});
    });
    ForEachMatch(text, R"((XmN\w+)\s*: reason\('(\w+)'\);)", [&](const std::smatch &m) {
        found.push_back({m[1], m[2], "reason"});
    });
    return found;
}

std::vector<std::string> UilProcedures() {
    std::vector<std::string> found;
    ForEachMatch(DeclarationText(), R"(\n +(\w+)\(\);)",
                 [&](const std::smatch &m) { found.push_back(m[1]); });
    return found;
}

UilModule::UilModule(const std::string &body) {
    std::string name = (fs::temp_directory_path() / "uil-XXXXXX").string();
    directory_ = mkdtemp(name.data());
    const fs::path source = directory_ / "module.uil";
    std::ofstream(source) << "module example names = case_sensitive\n" << body << "\nend module;\n";
    complaints_ =
        OutputOf(UIL_COMPILER " -I" SOURCE_DIRECTORY " -o " + uid_file() + " " + source.string());
}

UilModule::~UilModule() {
    std::error_code ignored;
    fs::remove_all(directory_, ignored);
}

} // namespace corvidlmw::test
