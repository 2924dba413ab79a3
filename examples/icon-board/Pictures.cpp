#include "Pictures.h"

#include <Xm/Xm.h>

namespace icon_board {

namespace {

constexpr unsigned size = 24;

constexpr char check_bits[] = "\x00\x00\x00\x40\x00\x60\x00\x30\x00\x18\x00\x0c\x00\x06\x02\x03"
                              "\x86\x01\xcc\x00\x78\x00\x30\x00\x00\x00\x00\x00\x00\x00\x00\x00";

class Brush {
public:
    Brush(Widget w, Pixmap pixmap)
        : widget_(w), pixmap_(pixmap), gc_(XCreateGC(XtDisplay(w), pixmap, 0, nullptr)) {}
    ~Brush() { XFreeGC(XtDisplay(widget_), gc_); }
    Brush(const Brush &) = delete;
    Brush &operator=(const Brush &) = delete;

    void Fill(const char *colour, int x, int y, unsigned width, unsigned height) {
        XColor screen{};
        XColor exact{};
        if (XAllocNamedColor(XtDisplay(widget_), DefaultColormapOfScreen(XtScreen(widget_)), colour,
                             &screen, &exact) != 0) {
            Fill(screen.pixel, x, y, width, height);
        }
    }
    void Fill(Pixel colour, int x, int y, unsigned width, unsigned height) {
        XSetForeground(XtDisplay(widget_), gc_, colour);
        XFillRectangle(XtDisplay(widget_), pixmap_, gc_, x, y, width, height);
    }

private:
    Widget widget_;
    Pixmap pixmap_;
    GC gc_;
};

} // namespace

Pixmap Pictures::PaintFolder(Widget w, const char *paper, const char *edge) const {
    int depth = 0;
    Pixel background = 0;
    XtVaGetValues(w, XmNdepth, &depth, XmNbackground, &background, nullptr);
    Pixmap pixmap = XCreatePixmap(display_, RootWindowOfScreen(XtScreen(w)), size, size,
                                  static_cast<unsigned>(depth));
    Brush brush(w, pixmap);
    brush.Fill(background, 0, 0, size, size);
    brush.Fill(edge, 1, 4, 10, 4);
    brush.Fill(edge, 1, 6, 22, 15);
    brush.Fill(paper, 2, 5, 8, 2);
    brush.Fill(paper, 2, 8, 20, 12);
    return pixmap;
}

Pictures::Pictures(Widget w)
    : display_(XtDisplay(w)), folder_(PaintFolder(w, "gold", "darkgoldenrod4")),
      grey_folder_(PaintFolder(w, "gray80", "gray55")),
      check_(XCreateBitmapFromData(display_, RootWindowOfScreen(XtScreen(w)), check_bits, 16, 16)) {
}

Pictures::~Pictures() {
    XFreePixmap(display_, folder_);
    XFreePixmap(display_, grey_folder_);
    XFreePixmap(display_, check_);
}

} // namespace icon_board
