// The sheets of a printed graph.
#include <tests/fuzz/Input.h>

#include <corvidlmw/graph/PageGeometry.h>

#include <algorithm>

using namespace corvidlmw;
using namespace corvidlmw::page;
using fuzz::Input, fuzz::Require;

namespace {

void CheckPicture(const Size &extent) {
    const Picture picture = PictureFor(extent);
    Require(picture.size.width == std::max(extent.width, 0) + 10);
    Require(picture.rows >= 1 && picture.columns >= 1);
    Require((picture.columns - 1) * width < picture.size.width &&
            picture.columns * width >= picture.size.width);
    Require((picture.rows - 1) * height < picture.size.height &&
            picture.rows * height >= picture.size.height);
}

// A box in the picture is on one sheet at least, and on those only that it reaches into.
void CheckBox(const Size &extent, const Box &box) {
    const Picture picture = PictureFor(extent);
    int touched = 0;
    for (int row = 0; row < picture.rows; row++) {
        const int origin = Sheet{row, 0}.Origin().y;
        const bool reaches = box.bottom <= origin + height - 1 && box.top >= origin + 1;
        Require(TouchesRow(box, row) == reaches);
        touched += reaches;
    }
    Require(touched >= 1 || box.top < 1 || box.bottom >= picture.rows * height ||
            box.top == box.bottom);
    for (int column = 0; column < picture.columns; column++) {
        const int origin = Sheet{0, column}.Origin().x;
        Require(TouchesColumn(box, column) ==
                (box.left <= origin + width - 1 && box.right >= origin + 1));
    }
}

// The block of lines stands in the middle of its node.
void CheckBaseline(int top, int node_height, int lines, int font_size) {
    const int first = FirstBaseline(top, node_height, lines, font_size);
    const long above = long{top} - (first + font_size);
    const long below = node_height - above - long{lines} * font_size;
    Require(above - below >= -1 && above - below <= 1);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Size extent = {input.Between(-32768, 3 * 65535), input.Between(-32768, 3 * 65535)};
    CheckPicture(extent);
    const Point corner = input.Place();
    const Point other = input.Place();
    const Box box = BoxAround(corner, other);
    Require(box.left <= box.right && box.bottom <= box.top &&
            BoxAround(other, corner).top == box.top);
    CheckBox(extent, box);
    const int top = input.Between(-65535, 3 * 65535);
    const int node_height = input.Dimension();
    const int lines = input.Between(0, 1000);
    CheckBaseline(top, node_height, lines, input.Between(0, 2000));
    return 0;
}
