#include "OneLine.h"

namespace example {

std::string OneLine(const std::string &text) {
    std::string line;
    for (const char c : text) {
        if (c == '\n')
            line += "\\n";
        else if (c == '\\')
            line += "\\\\";
        else
            line += c;
    }
    return line;
}

std::string FromOneLine(const std::string &line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool escape = line[i] == '\\' && i + 1 < line.size();
        const char c = escape ? line[++i] : line[i];
        if (escape && c != 'n' && c != '\\')
            text += '\\';
        text += escape && c == 'n' ? '\n' : c;
    }
    return text;
}

} // namespace example
