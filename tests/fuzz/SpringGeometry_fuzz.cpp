// The row of a spring box against a second computation.
#include <tests/fuzz/Input.h>
#include <tests/managers/SpringModel.h>

using namespace corvidlmw;
using namespace corvidlmw::managers;
using namespace corvidlmw::managers::spring_model;
using fuzz::Input, fuzz::Require;

namespace {

Springs ReadSprings(Input &input) {
    const int before = input.Whole();
    const int inner = input.Whole();
    return {before, inner, input.Whole()};
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    SpringFrame frame;
    for (int *number : {&frame.length, &frame.thickness, &frame.margin_along, &frame.margin_across,
                        &frame.shadow, &frame.spacing}) {
        *number = input.Dimension();
    }
    frame.may_shrink = input.Flag();
    Children children(static_cast<std::size_t>(input.Between(1, 12)));
    for (SpringChild &child : children) {
        child.along = ReadSprings(input);
        child.across = ReadSprings(input);
        child.preferred_length = input.Dimension();
        child.preferred_thickness = input.Dimension();
    }
    const Places places = PlacesOf(frame, children);
    Require(places == Expected(frame, children));
    const SpringSize natural = NaturalSpringSize(SumsOf(children), frame);
    Require(natural.length >= 1 && natural.thickness >= 1);
    return 0;
}
