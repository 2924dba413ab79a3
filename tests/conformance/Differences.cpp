#include <tests/conformance/Differences.h>

#include <set>

namespace corvidlmw::test {

const std::vector<Difference> differences = {};

namespace {

std::string Of(const Answer &answer, const std::string &name) {
    const auto found = answer.find(name);
    return found == answer.end() ? "none" : found->second;
}

std::set<std::string> Findings(const Answer &ours, const Answer &toolkits) {
    std::set<std::string> findings;
    Answer all = ours;
    all.insert(toolkits.begin(), toolkits.end());
    for (const auto &[name, finding] : all)
        if (Of(ours, name) != Of(toolkits, name))
            findings.insert(name + ": " + Of(ours, name) + " / " + Of(toolkits, name));
    return findings;
}

} // namespace

void ExpectNoOtherDifferences(const std::string &pair, const std::string &check, const Answer &ours,
                              const Answer &toolkits) {
    auto found = Findings(ours, toolkits);
    for (const auto &row : differences) {
        if (row.pair != pair || row.check != check)
            continue;
        for (const std::string &finding : row.findings)
            EXPECT_EQ(found.erase(finding), 1u) << "no longer so: " << finding;
    }
    for (const auto &finding : found)
        ADD_FAILURE() << "ours / the toolkit's: " << finding;
}

} // namespace corvidlmw::test
