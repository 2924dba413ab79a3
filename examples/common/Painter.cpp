#include "Painter.h"

namespace example {

namespace {

constexpr const char *edge = "gray30";
constexpr int full_circle = 360 * 64;

} // namespace

Painter::Painter(Widget w, Pixel background, int width, int height, int drop)
    : widget_(w), display_(XtDisplay(w)), drop_(drop),
      pixmap_(XCreatePixmap(display_, RootWindowOfScreen(XtScreen(w)), static_cast<unsigned>(width),
                            static_cast<unsigned>(height),
                            static_cast<unsigned>(DefaultDepthOfScreen(XtScreen(w))))),
      gc_(XCreateGC(display_, pixmap_, 0, nullptr)) {
    XSetForeground(display_, gc_, background);
    XFillRectangle(display_, pixmap_, gc_, 0, 0, static_cast<unsigned>(width),
                   static_cast<unsigned>(height));
}

Painter::~Painter() {
    XFreeGC(display_, gc_);
}

void Painter::Box(const char *fill, int x, int y, unsigned w, unsigned h) {
    Use(fill);
    XFillRectangle(display_, pixmap_, gc_, x, y + drop_, w, h);
    Use(edge);
    XDrawRectangle(display_, pixmap_, gc_, x, y + drop_, w, h);
}

void Painter::Disc(const char *fill, int x, int y, unsigned diameter) {
    Use(fill);
    XFillArc(display_, pixmap_, gc_, x, y + drop_, diameter, diameter, 0, full_circle);
    Use(edge);
    XDrawArc(display_, pixmap_, gc_, x, y + drop_, diameter, diameter, 0, full_circle);
}

void Painter::Line(const char *colour, int x1, int y1, int x2, int y2) {
    Use(colour);
    XDrawLine(display_, pixmap_, gc_, x1, y1 + drop_, x2, y2 + drop_);
}

void Painter::Use(const char *colour) {
    XColor screen{};
    XColor exact{};
    if (XAllocNamedColor(display_, DefaultColormapOfScreen(XtScreen(widget_)), colour, &screen,
                         &exact) != 0) {
        XSetForeground(display_, gc_, screen.pixel);
    }
}

} // namespace example
