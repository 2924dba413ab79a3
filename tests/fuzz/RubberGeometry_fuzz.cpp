// The line of a rubber board's child, each step of it against the same in doubles.
#include <tests/fuzz/Input.h>
#include <tests/managers/RubberModel.h>

using namespace corvidlmw;
using namespace corvidlmw::managers;
using fuzz::Input, fuzz::Require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    while (!input.AtEnd()) {
        const RubberMark initial{input.Between(-32768, 65535), input.Dimension()};
        const RubberMark final{input.Between(-32768, 65535), input.Dimension()};
        const int extent = input.Dimension();
        const int value = Stretch(initial, final, extent);
        Require(value == test::InSteps(initial, final, extent));
        const auto present = static_cast<unsigned short>(input.Dimension());
        const unsigned short stretched = StretchExtent(initial, final, extent, present);
        Require(stretched == (CutToDimension(value) == 0 ? present : CutToDimension(value)));
    }
    return 0;
}
