// Where a class of ours is meant to answer otherwise than the toolkit's nearest one, and why.
#pragma once

#include <tests/conformance/Bed.h>

namespace corvidlmw::test {

struct Difference {
    const char *pair;
    const char *check;
    // The findings that differ, as "name: ours / the toolkit's"; all as they are told when a check fails.
    std::vector<std::string> findings;
    const char *reason;
};

extern const std::vector<Difference> differences;

// Each finding that differs must stand in the table, and each of the table's must still differ.
void ExpectNoOtherDifferences(const std::string &pair, const std::string &check, const Answer &ours,
                              const Answer &toolkits);

} // namespace corvidlmw::test
