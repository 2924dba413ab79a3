// What the library under test holds that a leak checker does not see: GCs, which are followed for their clips,
// pixmaps and cursors of the server, and GCs and tiles that the toolkit shares out. Only its own calls count.
#pragma once

#include <string>
#include <vector>

namespace corvidlmw::test {

// One line for each that was not given back yet: how it was made, and where.
std::vector<std::string> Belongings();

} // namespace corvidlmw::test
