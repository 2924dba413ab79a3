#include <tests/support/Picture.h>

#include <tests/support/DisplayTest.h>
#include <tests/support/Interpose.h>
#include <tests/support/XServer.h>

#include <X11/Xutil.h>
#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

namespace corvidlmw::test {

namespace {

constexpr uint32_t colour_mask = 0xffffff;

XRectangle Intersection(const XRectangle &a, const XRectangle &b) {
    const int left = std::max<int>(a.x, b.x);
    const int top = std::max<int>(a.y, b.y);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    if (right <= left || bottom <= top)
        return {};
    return {static_cast<short>(left), static_cast<short>(top),
            static_cast<unsigned short>(right - left), static_cast<unsigned short>(bottom - top)};
}

// The part of a rectangle of a window's that is on the screen; the server reads no other.
XRectangle OnScreen(Window window, XRectangle area) {
    Display *robot = XServer::Instance().robot();
    int x = 0;
    int y = 0;
    Window child = None;
    XTranslateCoordinates(robot, DefaultRootWindow(robot), window, 0, 0, &x, &y, &child);
    return Intersection(
        area, {static_cast<short>(x), static_cast<short>(y), XServer::width, XServer::height});
}

std::vector<uint32_t> ReadPixels(Drawable drawable, XRectangle area) {
    std::vector<uint32_t> pixels;
    if (area.width == 0)
        return pixels;
    XImage *image = XGetImage(XServer::Instance().robot(), drawable, area.x, area.y, area.width,
                              area.height, AllPlanes, ZPixmap);
    if (!image)
        return pixels;
    pixels.reserve(size_t{area.width} * area.height);
    for (int y = 0; y < area.height; ++y)
        for (int x = 0; x < area.width; ++x)
            pixels.push_back(static_cast<uint32_t>(XGetPixel(image, x, y)));
    XDestroyImage(image);
    return pixels;
}

// The smallest rectangle with all places of an area that pass a test.
std::optional<XRectangle> BoxWhere(const XRectangle &area,
                                   const std::function<bool(int x, int y)> &test) {
    int left = area.x + area.width;
    int top = area.y + area.height;
    int right = area.x - 1;
    int bottom = area.y - 1;
    for (int y = area.y; y < area.y + area.height; ++y)
        for (int x = area.x; x < area.x + area.width; ++x)
            if (test(x, y)) {
                left = std::min(left, x);
                top = std::min(top, y);
                right = std::max(right, x);
                bottom = std::max(bottom, y);
            }
    if (right < left)
        return std::nullopt;
    return XRectangle{static_cast<short>(left), static_cast<short>(top),
                      static_cast<unsigned short>(right - left + 1),
                      static_cast<unsigned short>(bottom - top + 1)};
}

XRectangle Union(const XRectangle &a, const XRectangle &b) {
    const int left = std::min<int>(a.x, b.x);
    const int top = std::min<int>(a.y, b.y);
    const int right = std::max(a.x + a.width, b.x + b.width);
    const int bottom = std::max(a.y + a.height, b.y + b.height);
    return {static_cast<short>(left), static_cast<short>(top),
            static_cast<unsigned short>(right - left), static_cast<unsigned short>(bottom - top)};
}

} // namespace

// ---- Reading -----------------------------------------------------------------------------

Picture::Picture(XRectangle area, std::vector<uint32_t> pixels)
    : area_(area), pixels_(std::move(pixels)) {
    if (pixels_.size() != size_t{area_.width} * area_.height) {
        ADD_FAILURE() << "no pixels to read in " << area_;
        area_ = {};
        pixels_.clear();
    }
}

Picture Picture::Of(Widget object) {
    Dimension width = 0;
    Dimension height = 0;
    XtVaGetValues(object, XtNwidth, &width, XtNheight, &height, nullptr);
    return Of(object, {0, 0, width, height});
}

Picture Picture::Of(Widget object, XRectangle area) {
    interpose::SyncUnseen(XtDisplayOfObject(object));
    const XPoint origin = OriginInWindow(object);
    XRectangle in_window = area;
    in_window.x = static_cast<short>(area.x + origin.x);
    in_window.y = static_cast<short>(area.y + origin.y);
    XRectangle read = OnScreen(WindowOf(object), in_window);
    auto pixels = ReadPixels(WindowOf(object), read);
    read.x = static_cast<short>(read.x - origin.x);
    read.y = static_cast<short>(read.y - origin.y);
    return {read, std::move(pixels)};
}

namespace {

XRectangle AreaOf(Drawable drawable) {
    Window root = None;
    int x = 0;
    int y = 0;
    unsigned int width = 0;
    unsigned int height = 0;
    unsigned int border = 0;
    unsigned int depth = 0;
    XGetGeometry(XServer::Instance().robot(), drawable, &root, &x, &y, &width, &height, &border,
                 &depth);
    return {0, 0, static_cast<unsigned short>(width), static_cast<unsigned short>(height)};
}

} // namespace

Picture Picture::OfPixmap(Display *display, Pixmap pixmap) {
    interpose::SyncUnseen(display);
    const XRectangle area = AreaOf(pixmap);
    return {area, ReadPixels(pixmap, area)};
}

Picture Picture::OfWindow(Window window) {
    const XRectangle area = OnScreen(window, AreaOf(window));
    return {area, ReadPixels(window, area)};
}

// ---- Asking --------------------------------------------------------------------------------

Pixel Picture::At(int x, int y) const {
    const int column = x - area_.x;
    const int row = y - area_.y;
    if (column < 0 || row < 0 || column >= area_.width || row >= area_.height)
        return nowhere;
    return pixels_[static_cast<size_t>(row) * area_.width + static_cast<size_t>(column)];
}

int Picture::Count(Pixel colour, XRectangle in) const {
    int count = 0;
    for (int y = in.y; y < in.y + in.height; ++y)
        for (int x = in.x; x < in.x + in.width; ++x)
            count += At(x, y) == colour ? 1 : 0;
    return count;
}

std::optional<XRectangle> Picture::Box(Pixel colour) const {
    return BoxWhere(area_, [&](int x, int y) { return At(x, y) == colour; });
}

std::optional<XRectangle> Picture::BoxOfOthers(Pixel background) const {
    return BoxWhere(area_, [&](int x, int y) { return At(x, y) != background; });
}

std::optional<XRectangle> Picture::Difference(const Picture &other) const {
    return BoxWhere(Union(area_, other.area_),
                    [&](int x, int y) { return At(x, y) != other.At(x, y); });
}

// ---- Files ---------------------------------------------------------------------------------

bool Picture::SavePng(const std::string &path) const {
    std::vector<png_byte> bytes;
    bytes.reserve(pixels_.size() * 3);
    for (uint32_t pixel : pixels_)
        for (int shift : {16, 8, 0})
            bytes.push_back(static_cast<png_byte>((pixel & colour_mask) >> shift & 0xff));
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = area_.width;
    image.height = area_.height;
    image.format = PNG_FORMAT_RGB;
    return png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr) != 0;
}

Picture Picture::FromPng(const std::string &path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_file(&image, path.c_str())) {
        ADD_FAILURE() << path << ": " << image.message;
        return {};
    }
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> bytes(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr);
    std::vector<uint32_t> pixels;
    for (size_t i = 0; i + 2 < bytes.size(); i += 3)
        pixels.push_back(uint32_t{bytes[i]} << 16 | uint32_t{bytes[i + 1]} << 8 | bytes[i + 2]);
    return {
        {0, 0, static_cast<unsigned short>(image.width), static_cast<unsigned short>(image.height)},
        std::move(pixels)};
}

bool SavePng(Widget object, const std::string &path) {
    return Picture::Of(object).SavePng(path);
}

::testing::AssertionResult SamePicture(const Picture &expected, const Picture &actual) {
    const auto difference = expected.Difference(actual);
    if (!difference)
        return ::testing::AssertionSuccess();
    const auto *test = ::testing::UnitTest::GetInstance()->current_test_info();
    const char *directory = std::getenv("CORVIDLMW_TEST_OUTPUT");
    const std::string base = std::string(directory ? directory : ".") + "/" +
                             test->test_suite_name() + "." + test->name();
    expected.SavePng(base + ".expected.png");
    actual.SavePng(base + ".actual.png");
    return ::testing::AssertionFailure()
           << "the pictures differ in " << *difference << "; see " << base << ".*.png";
}

} // namespace corvidlmw::test
