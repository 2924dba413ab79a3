// The table of checks, run for each pair of classes.

#include <tests/conformance/Bed.h>
#include <tests/conformance/Differences.h>

namespace corvidlmw::test {

struct Check {
    const char *name;
    void (Bed::*ask)();
    // Asks for what a rectangle of the screen and a child among children has.
    bool of_rectangles = false;
};

const std::vector<Check> checks = {
    {"WidgetTree", &Bed::WidgetTree},
    {"ResourcesByEditres", &Bed::ResourcesByEditres, true},
    {"GeometryByEditres", &Bed::GeometryByEditres, true},
    {"SetValuesByEditres", &Bed::SetValuesByEditres, true},
    {"TakesADrop", &Bed::TakesADrop, true},
    {"IsDragged", &Bed::IsDragged, true},
    {"UnitsAtCreation", &Bed::UnitsAtCreation, true},
    {"UnitsAfterwards", &Bed::UnitsAfterwards, true},
    {"LayoutDirection", &Bed::LayoutDirection, true},
    {"RightToLeftLooks", &Bed::RightToLeftLooks, true},
    {"ChangeColor", &Bed::ChangeColor},
    {"ColoursSetAfterwards", &Bed::ColoursSetAfterwards},
    {"Help", &Bed::Help},
    {"HelpOfTheParent", &Bed::HelpOfTheParent},
    {"TraversalByKeys", &Bed::TraversalByKeys},
    {"TraversalByFunction", &Bed::TraversalByFunction},
    {"NoTraversal", &Bed::NoTraversal},
    {"Insensitive", &Bed::Insensitive},
    {"FocusLooks", &Bed::FocusLooks},
    {"FocusCallbacks", &Bed::FocusCallbacks},
    {"FirstFocus", &Bed::FirstFocus},
    {"GadgetInside", &Bed::GadgetInside},
};

namespace {

struct Case {
    Pair pair;
    Check check;
};

void PrintTo(const Case &each, std::ostream *out) {
    *out << each.pair.name << ", " << each.check.name;
}

std::vector<Case> Cases() {
    std::vector<Case> cases;
    for (const Pair &each : pairs)
        for (const Check &check : checks)
            if (!each.is_line || !check.of_rectangles)
                cases.push_back({each, check});
    return cases;
}

class Conformance : public Bed, public ::testing::WithParamInterface<Case> {
protected:
    // On a shell of its own.
    Answer AnswerOf(Creator creator) {
        TearDown();
        SetUp();
        create = creator;
        answer.clear();
        (this->*GetParam().check.ask)();
        for (const auto &warning : warnings())
            Note("warning", warning.substr(0, warning.find('\n', 1)));
        Complaints::Current().warnings.clear();
        return answer;
    }
};

TEST_P(Conformance, AnswersAsTheToolkitsNearestClass) {
    pair = &GetParam().pair;
    const Answer ours = AnswerOf(pair->ours);
    const Answer toolkits = AnswerOf(pair->toolkits);
    if (IsSkipped())
        return;
    ASSERT_FALSE(toolkits.empty());
    ExpectNoOtherDifferences(pair->name, GetParam().check.name, ours, toolkits);
}

INSTANTIATE_TEST_SUITE_P(Classes, Conformance, ::testing::ValuesIn(Cases()), [](const auto &test) {
    return std::string(test.param.pair.name) + "_" + test.param.check.name;
});

} // namespace

} // namespace corvidlmw::test
