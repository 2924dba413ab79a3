// Where text and picture of an icon gadget stand.
#include <tests/fuzz/Input.h>
#include <tests/gadget/IconGModel.h>

using namespace corvidlmw;
using namespace corvidlmw::icon_gadget;
using fuzz::Input, fuzz::Require;

namespace {

Extent ReadExtent(Input &input) {
    const int width = input.Dimension();
    return {width, input.Dimension()};
}

Contents ReadContents(Input &input) {
    Contents contents;
    contents.text = ReadExtent(input);
    if (input.Flag()) {
        contents.picture = ReadExtent(input);
    }
    contents.gap = input.Dimension();
    for (int *margin : {&contents.margins.width, &contents.margins.height, &contents.margins.left,
                        &contents.margins.right, &contents.margins.top, &contents.margins.bottom}) {
        *margin = input.Dimension();
    }
    contents.border = input.Between(0, 2 * 65535);
    contents.arrow_space = input.Dimension();
    contents.alignment = static_cast<Alignment>(input.Between(0, 2));
    contents.placement = static_cast<Placement>(input.Between(0, 3));
    return contents;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Contents contents = ReadContents(input);
    const Extent given = ReadExtent(input);
    const Places natural = Place(contents, {});
    Require(natural.size.width >= 1 && natural.size.width <= 65535);
    Require(natural.size.height >= 1 && natural.size.height <= 65535);

    const Places places = Place(contents, given);
    Require(given.width == 0 || places.size.width == given.width);
    Require(given.height == 0 || places.size.height == given.height);
    Require(places.picture_x.has_value() || !contents.picture);
    // Nothing is squeezed where the uncut size fits into 16 bits and the given one is no smaller.
    const long width = TextSize(contents).width + contents.arrow_space +
                       (contents.picture ? contents.picture->width : 0) + long{contents.gap};
    const long height = TextSize(contents).height +
                        (contents.picture ? contents.picture->height : 0) + long{contents.gap};
    if (width <= 65535 && height <= 65535 && given.width >= width && given.height >= height) {
        Require(KeepsInside(contents, given, places));
    }
    return 0;
}
