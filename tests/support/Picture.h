/* Pixels read back from the server, and PNG files of them. */

#ifndef CORVIDLMW_TESTS_SUPPORT_PICTURE_H
#define CORVIDLMW_TESTS_SUPPORT_PICTURE_H

#include <X11/Intrinsic.h>
#include <tests/support/GoogleTest.h>

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace corvidlmw::test {

// A rectangle of pixels. Coordinates are those of the object it was read from; pixels outside of
// what was read (beyond the screen, say) are `Picture::nowhere`.
class Picture {
public:
    static constexpr Pixel nowhere = ~Pixel{0};

    Picture() = default;
    Picture(XRectangle area, std::vector<uint32_t> pixels);

    // What is on the screen of a widget or gadget, or of a rectangle of it; all pending drawing of
    // its client included.
    static Picture Of(Widget object);
    static Picture Of(Widget object, XRectangle area);
    static Picture OfPixmap(Display *display, Pixmap pixmap);
    // What is on the screen of a window, also of another process.
    static Picture OfWindow(Window window);
    // Of a PNG file; empty, and a failure of the test, if it cannot be read.
    static Picture FromPng(const std::string &path);

    XRectangle area() const { return area_; }
    Pixel At(int x, int y) const;
    int Count(Pixel colour) const { return Count(colour, area_); }
    int Count(Pixel colour, XRectangle in) const;
    // The smallest rectangle with all pixels of that colour, or all that are not.
    std::optional<XRectangle> Box(Pixel colour) const;
    std::optional<XRectangle> BoxOfOthers(Pixel background) const;
    // The smallest rectangle with all pixels that differ; nothing if the two are equal.
    std::optional<XRectangle> Difference(const Picture &other) const;
    bool operator==(const Picture &other) const { return !Difference(other); }

    bool SavePng(const std::string &path) const;

private:
    XRectangle area_{};
    std::vector<uint32_t> pixels_;
};

bool SavePng(Widget object, const std::string &path);

// EXPECT_TRUE(SamePicture(expected, actual)): on failure both are left as PNG files in the
// directory of CORVIDLMW_TEST_OUTPUT, else in the working directory.
::testing::AssertionResult SamePicture(const Picture &expected, const Picture &actual);

} // namespace corvidlmw::test

// In the global namespace, as the type is, so that the expectations find them.
inline bool operator==(const XRectangle &a, const XRectangle &b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

inline std::ostream &operator<<(std::ostream &out, const XRectangle &r) {
    return out << r.width << 'x' << r.height << '+' << r.x << '+' << r.y;
}

#endif
