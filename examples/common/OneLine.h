// A text of several lines as one line that a user can type: a line break is written \n there, and a
// backslash \\.
#pragma once

#include <string>

namespace example {

std::string OneLine(const std::string &text);
std::string FromOneLine(const std::string &line);

} // namespace example
