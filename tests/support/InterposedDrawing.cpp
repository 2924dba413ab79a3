/* Drawing, clips and GC values. */

#include <tests/support/Interpose.h>

#include <X11/Xutil.h>

// clang-format off
namespace {

using corvidlmw::test::interpose::Flat;
using corvidlmw::test::interpose::FlatPoints;
using corvidlmw::test::interpose::SetClip;
using Numbers = std::vector<long>;

std::optional<XRectangle> BoxOf(Region region) {
    XRectangle box{};
    XClipBox(region, &box);
    return box;
}

std::optional<XRectangle> BoxOf(int x, int y, const XRectangle *rectangles, int count) {
    Region region = XCreateRegion();
    for (int i = 0; i < count; ++i) {
        XRectangle moved = rectangles[i];
        moved.x = static_cast<short>(moved.x + x);
        moved.y = static_cast<short>(moved.y + y);
        XUnionRectWithRegion(&moved, region, region);
    }
    const auto box = BoxOf(region);
    XDestroyRegion(region);
    return box;
}

Numbers BoxNumbers(Region region) {
    const auto box = *BoxOf(region);
    return {box.x, box.y, box.width, box.height};
}

}  // namespace

#pragma GCC visibility push(default)
extern "C" {

// ---- Lines and outlines ---------------------------------------------------------------

CORVIDLMW_INTERPOSE(int, XDrawPoint, (Display *d, Drawable w, GC gc, int x, int y), (d, w, gc, x, y), d, w, gc, {x, y})
CORVIDLMW_INTERPOSE(int, XDrawPoints, (Display *d, Drawable w, GC gc, XPoint *p, int n, int mode), (d, w, gc, p, n, mode), d, w, gc, FlatPoints(p, n, mode))
CORVIDLMW_INTERPOSE(int, XDrawLine, (Display *d, Drawable w, GC gc, int x1, int y1, int x2, int y2), (d, w, gc, x1, y1, x2, y2), d, w, gc, {x1, y1, x2, y2})
CORVIDLMW_INTERPOSE(int, XDrawLines, (Display *d, Drawable w, GC gc, XPoint *p, int n, int mode), (d, w, gc, p, n, mode), d, w, gc, FlatPoints(p, n, mode))
CORVIDLMW_INTERPOSE(int, XDrawSegments, (Display *d, Drawable w, GC gc, XSegment *s, int n), (d, w, gc, s, n), d, w, gc, Flat(s, n))
CORVIDLMW_INTERPOSE(int, XDrawRectangle, (Display *d, Drawable w, GC gc, int x, int y, unsigned width, unsigned height), (d, w, gc, x, y, width, height), d, w, gc, {x, y, width, height})
CORVIDLMW_INTERPOSE(int, XDrawRectangles, (Display *d, Drawable w, GC gc, XRectangle *r, int n), (d, w, gc, r, n), d, w, gc, Flat(r, n))
CORVIDLMW_INTERPOSE(int, XDrawArc, (Display *d, Drawable w, GC gc, int x, int y, unsigned width, unsigned height, int start, int extent), (d, w, gc, x, y, width, height, start, extent), d, w, gc, {x, y, width, height, start, extent})
CORVIDLMW_INTERPOSE(int, XDrawArcs, (Display *d, Drawable w, GC gc, XArc *a, int n), (d, w, gc, a, n), d, w, gc, Flat(a, n))

// ---- Areas ----------------------------------------------------------------------------

CORVIDLMW_INTERPOSE(int, XFillRectangle, (Display *d, Drawable w, GC gc, int x, int y, unsigned width, unsigned height), (d, w, gc, x, y, width, height), d, w, gc, {x, y, width, height})
CORVIDLMW_INTERPOSE(int, XFillRectangles, (Display *d, Drawable w, GC gc, XRectangle *r, int n), (d, w, gc, r, n), d, w, gc, Flat(r, n))
CORVIDLMW_INTERPOSE(int, XFillPolygon, (Display *d, Drawable w, GC gc, XPoint *p, int n, int shape, int mode), (d, w, gc, p, n, shape, mode), d, w, gc, FlatPoints(p, n, mode))
CORVIDLMW_INTERPOSE(int, XFillArc, (Display *d, Drawable w, GC gc, int x, int y, unsigned width, unsigned height, int start, int extent), (d, w, gc, x, y, width, height, start, extent), d, w, gc, {x, y, width, height, start, extent})
CORVIDLMW_INTERPOSE(int, XFillArcs, (Display *d, Drawable w, GC gc, XArc *a, int n), (d, w, gc, a, n), d, w, gc, Flat(a, n))
CORVIDLMW_INTERPOSE(int, XClearArea, (Display *d, Window w, int x, int y, unsigned width, unsigned height, Bool exposures), (d, w, x, y, width, height, exposures), d, w, nullptr, {x, y, width, height, exposures})
CORVIDLMW_INTERPOSE(int, XClearWindow, (Display *d, Window w), (d, w), d, w, nullptr, {})
// Of a copy the drawable is the target; the source comes first among the numbers.
CORVIDLMW_INTERPOSE(int, XCopyArea, (Display *d, Drawable from, Drawable to, GC gc, int x, int y, unsigned width, unsigned height, int to_x, int to_y), (d, from, to, gc, x, y, width, height, to_x, to_y), d, to, gc, {static_cast<long>(from), x, y, width, height, to_x, to_y})
CORVIDLMW_INTERPOSE(int, XCopyPlane, (Display *d, Drawable from, Drawable to, GC gc, int x, int y, unsigned width, unsigned height, int to_x, int to_y, unsigned long plane), (d, from, to, gc, x, y, width, height, to_x, to_y, plane), d, to, gc, {static_cast<long>(from), x, y, width, height, to_x, to_y, static_cast<long>(plane)})
CORVIDLMW_INTERPOSE(int, XPutImage, (Display *d, Drawable w, GC gc, XImage *i, int from_x, int from_y, int x, int y, unsigned width, unsigned height), (d, w, gc, i, from_x, from_y, x, y, width, height), d, w, gc, {from_x, from_y, x, y, width, height})

// ---- GC values ------------------------------------------------------------------------

CORVIDLMW_INTERPOSE(int, XSetForeground, (Display *d, GC gc, unsigned long pixel), (d, gc, pixel), d, None, gc, {static_cast<long>(pixel)})
CORVIDLMW_INTERPOSE(int, XSetBackground, (Display *d, GC gc, unsigned long pixel), (d, gc, pixel), d, None, gc, {static_cast<long>(pixel)})
CORVIDLMW_INTERPOSE(int, XSetFunction, (Display *d, GC gc, int function), (d, gc, function), d, None, gc, {function})
CORVIDLMW_INTERPOSE(int, XSetLineAttributes, (Display *d, GC gc, unsigned width, int style, int cap, int join), (d, gc, width, style, cap, join), d, None, gc, {width, style, cap, join})
CORVIDLMW_INTERPOSE(int, XSetDashes, (Display *d, GC gc, int offset, const char *dashes, int n), (d, gc, offset, dashes, n), d, None, gc, Numbers(dashes, dashes + n))
CORVIDLMW_INTERPOSE(int, XSetFillStyle, (Display *d, GC gc, int style), (d, gc, style), d, None, gc, {style})
CORVIDLMW_INTERPOSE(int, XSetTile, (Display *d, GC gc, Pixmap tile), (d, gc, tile), d, None, gc, {static_cast<long>(tile)})
CORVIDLMW_INTERPOSE(int, XSetStipple, (Display *d, GC gc, Pixmap stipple), (d, gc, stipple), d, None, gc, {static_cast<long>(stipple)})
CORVIDLMW_INTERPOSE(int, XSetTSOrigin, (Display *d, GC gc, int x, int y), (d, gc, x, y), d, None, gc, {x, y})
CORVIDLMW_INTERPOSE(int, XSetClipOrigin, (Display *d, GC gc, int x, int y), (d, gc, x, y), d, None, gc, {x, y})
CORVIDLMW_INTERPOSE(int, XSetSubwindowMode, (Display *d, GC gc, int mode), (d, gc, mode), d, None, gc, {mode})

// ---- What also moves a GC's clip --------------------------------------------------------

// The clip is followed also while nobody records.
#define CORVIDLMW_INTERPOSE_CLIP(function, parameters, arguments, follow, ...)                     \
    int function parameters {                                                                      \
        namespace interpose = corvidlmw::test::interpose;                                          \
        static auto *const next = interpose::Next(&function, #function);                           \
        if (interpose::Wanted())                                                                   \
            interpose::Note(#function, __builtin_return_address(0), __VA_ARGS__);                  \
        follow;                                                                                    \
        return next arguments;                                                                     \
    }

CORVIDLMW_INTERPOSE_CLIP(XSetRegion, (Display *d, GC gc, Region region), (d, gc, region), SetClip(gc, BoxOf(region)), d, None, gc, BoxNumbers(region))
CORVIDLMW_INTERPOSE_CLIP(XSetClipMask, (Display *d, GC gc, Pixmap mask), (d, gc, mask), SetClip(gc, std::nullopt), d, None, gc, {static_cast<long>(mask)})
CORVIDLMW_INTERPOSE_CLIP(XSetClipRectangles, (Display *d, GC gc, int x, int y, XRectangle *r, int n, int order), (d, gc, x, y, r, n, order), SetClip(gc, BoxOf(x, y, r, n)), d, None, gc, Flat(r, n))
CORVIDLMW_INTERPOSE_CLIP(XChangeGC, (Display *d, GC gc, unsigned long mask, XGCValues *values), (d, gc, mask, values), if (mask & GCClipMask) SetClip(gc, std::nullopt), d, None, gc, {static_cast<long>(mask)})

}  // extern "C"
// clang-format on
