#include <tests/storm/Step.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <istream>
#include <sstream>

namespace corvidlmw::storm {

namespace {

constexpr char quote = '"';

bool IsPlain(unsigned char character) {
    return std::isalnum(character) ||
           std::string("._-+*/:;()<>?!=%#@~^&'|{}$").find(static_cast<char>(character)) !=
               std::string::npos;
}

int HexAt(const std::string &text, std::size_t at) {
    return std::stoi(text.substr(at, 2), nullptr, 16);
}

} // namespace

Step Step::From(std::size_t word) const {
    Step step;
    if (word < words.size())
        step.words.assign(words.begin() + static_cast<std::ptrdiff_t>(word), words.end());
    return step;
}

std::string ToLine(const Step &step) {
    std::string line;
    for (const auto &word : step.words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

Step FromLine(const std::string &line) {
    Step step;
    std::istringstream in(line);
    for (std::string word; in >> word;)
        step.words.push_back(word);
    return step;
}

Steps ReadSteps(std::istream &in) {
    Steps steps;
    for (std::string line; std::getline(in, line);)
        if (!line.empty() && line.front() != '#')
            steps.push_back(FromLine(line));
    return steps;
}

std::string Quote(const std::string &text) {
    std::string word(1, quote);
    for (const char character : text)
        if (const auto byte = static_cast<unsigned char>(character); IsPlain(byte)) {
            word += character;
        } else {
            std::array<char, 8> escaped{};
            std::snprintf(escaped.data(), escaped.size(), "\\x%02x", unsigned{byte});
            word += escaped.data();
        }
    return word;
}

std::string Unquote(const std::string &word) {
    std::string text;
    for (std::size_t i = word.starts_with(quote) ? 1 : 0; i < word.size(); i++)
        if (word.compare(i, 2, "\\x") == 0 && i + 3 < word.size()) {
            text += static_cast<char>(HexAt(word, i + 2));
            i += 3;
        } else {
            text += word[i];
        }
    return text;
}

std::vector<std::string> SplitAt(const std::string &text, char separator) {
    std::vector<std::string> parts;
    std::istringstream in(text);
    for (std::string part; std::getline(in, part, separator);)
        parts.push_back(part);
    return parts;
}

std::vector<std::string> ListIn(const std::string &word) {
    return word.size() > 2 ? SplitAt(word.substr(1, word.size() - 2), ',')
                           : std::vector<std::string>();
}

std::string ToList(const std::vector<std::string> &words) {
    std::string list;
    for (const auto &word : words)
        list += (list.empty() ? "" : ",") + word;
    return "[" + list + "]";
}

} // namespace corvidlmw::storm
