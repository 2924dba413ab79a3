// Draws one of the small pictures of an example into a pixmap.
#pragma once

#include <X11/Intrinsic.h>

namespace example {

class Painter {
public:
    // A pixmap for a widget's screen, filled with a background; the caller frees it. What is drawn is moved
    // down by `drop` pixels.
    Painter(Widget w, Pixel background, int width, int height, int drop);
    ~Painter();
    Painter(const Painter &) = delete;
    Painter &operator=(const Painter &) = delete;

    Pixmap pixmap() const { return pixmap_; }

    // With a dark edge.
    void Box(const char *fill, int x, int y, unsigned w, unsigned h);
    void Disc(const char *fill, int x, int y, unsigned diameter);
    void Line(const char *colour, int x1, int y1, int x2, int y2);

private:
    void Use(const char *colour);

    Widget widget_;
    Display *display_;
    int drop_;
    Pixmap pixmap_;
    GC gc_;
};

} // namespace example
