// The drawing functions: shadows in the manner of the toolkit's own.

#include <corvidlmw/common/WidgetUtils.h>

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

// The records alone: a gadget is drawn here without a call into its room.
#include <corvidlmw/gadget/IconGP.h>

#include <Xm/DrawP.h>

#include <algorithm>

using namespace corvidlmw;

namespace {

// ---- The groove -----------------------------------------------------------------------------------

// Kept between the calls, so that a shadow that is drawn at each exposure allocates nothing.
XRectangle *rects = nullptr;
Cardinal rect_count = 0; // in units of four rectangles

void MakeRoom(Cardinal units) {
    if (rect_count < units) {
        rects = reinterpret_cast<XRectangle *>(
            XtRealloc(reinterpret_cast<char *>(rects),
                      static_cast<Cardinal>(4 * units * sizeof(XRectangle))));
        rect_count = units;
    }
}

XRectangle RectangleAt(int x, int y, int width, int height) {
    return {CutToPosition(x), CutToPosition(y), CutToDimension(width), CutToDimension(height)};
}

// The edges of frames of one pixel, each inside of the one before. The upper and left edges leave out
// the far corners, so that no pixel belongs to two edges of different light.
void get_rects(int rings, int inset, const Rectangle &area, XRectangle *top, XRectangle *left,
               XRectangle *bottom, XRectangle *right) {
    const auto &[x, y, width, height] = area;
    for (int i = 0; i < rings; ++i) {
        const int d = inset + i;
        top[i] = RectangleAt(x + d, y + d, width - 2 * d - 1, 1);
        left[i] = RectangleAt(x + d, y + d, 1, height - 2 * d - 1);
        bottom[i] = RectangleAt(x + d, y + height - d - 1, width - 2 * d, 1);
        right[i] = RectangleAt(x + width - d - 1, y + d, 1, height - 2 * d);
    }
}

// ---- The shadow of a gadget -------------------------------------------------------------------------

// The toolkit's etched shadow is the groove, in four requests instead of two, unless it is of a single
// pixel or does not fit.
bool IsGroove(const XmvIconGadgetPart &icon, int thickness, const XRectangle &area) {
    const bool etched =
        icon.shadow_type == XmSHADOW_ETCHED_IN || icon.shadow_type == XmSHADOW_ETCHED_OUT;
    return etched && thickness > 1 && thickness <= std::min(area.width, area.height) / 2;
}

void DrawToolkitShadow(Display *display, Window window, const XmvIconGadgetPart &icon,
                       Dimension thickness, const XRectangle &area) {
    if (!IsGroove(icon, thickness, area)) {
        XmeDrawShadows(display, window, icon.top_shadow_gc, icon.bottom_shadow_gc, area.x, area.y,
                       area.width, area.height, thickness, icon.shadow_type);
    } else if (icon.shadow_type == XmSHADOW_ETCHED_IN) {
        _XmDrawEtchedShadow(display, window, icon.bottom_shadow_gc, icon.top_shadow_gc, thickness,
                            area.x, area.y, area.width, area.height);
    } else {
        _XmDrawEtchedShadow(display, window, icon.top_shadow_gc, icon.bottom_shadow_gc, thickness,
                            area.x, area.y, area.width, area.height);
    }
}

// Gadgets of other classes have no room for what is read.
bool HasIconGadgetRecord(Widget w) {
    return w && XmIsGadget(w) && XtClass(w)->core_class.widget_size >= sizeof(XmvIconGadgetRec);
}

XRectangle ShadowArea(const XmvIconGadgetRec &record) {
    const int highlight = record.gadget.highlight_thickness;
    return RectangleAt(record.rectangle.x + highlight, record.rectangle.y + highlight,
                       std::max(0, record.rectangle.width - 2 * highlight),
                       std::max(0, record.rectangle.height - 2 * highlight));
}

} // namespace

extern "C" {

void _XmDrawGadgetShadowType(Widget gadget) {
    if (!HasIconGadgetRecord(gadget) || !XtWindowOfObject(gadget)) {
        return;
    }
    const auto &record = *reinterpret_cast<XmvIconGadget>(gadget);
    const Dimension thickness = record.gadget.shadow_thickness;
    const XRectangle area = ShadowArea(record);
    Display *display = XtDisplayOfObject(gadget);
    const Window window = XtWindowOfObject(gadget);
    switch (record.icon.shadow_type) {
    case XmSHADOW_ETCHED_IN:
    case XmSHADOW_ETCHED_OUT:
    case XmSHADOW_IN:
    case XmSHADOW_OUT:
        if (thickness > 0) {
            DrawToolkitShadow(display, window, record.icon, thickness, area);
        }
        return;
    case XmSHADOW_DROP:
        _XmDrawDropShadow(display, window, record.icon.bottom_shadow_gc, thickness, area.x, area.y,
                          area.width, area.height);
        return;
    default: return;
    }
}

// A size of 0 would clear up to the window's edges: that is what it means to the server.
void _XmDrawDropShadow(Display *display, Drawable window, GC gc, Dimension size, Position x,
                       Position y, Dimension width, Dimension height) {
    if (size == 0 || width == 0 || height == 0) {
        return;
    }
    const int right = x + width - size;
    const int bottom = y + height - size;
    XClearArea(display, window, right, y, size, height, False);
    XClearArea(display, window, x, bottom, width, size, False);
    XFillRectangle(display, window, gc, right, y + size, size,
                   static_cast<unsigned>(std::max(0, height - size)));
    XFillRectangle(display, window, gc, x + size, bottom,
                   static_cast<unsigned>(std::max(0, width - size)), size);
}

// Each of the two calls takes the half of the buffer that has the edges of its light: the outer frame's
// upper and left ones with the inner frame's lower and right ones, and the other way round.
void _XmDrawEtchedShadow(Display *display, Drawable drawable, GC top_gc, GC bottom_gc,
                         Dimension size, Position x, Position y, Dimension width,
                         Dimension height) {
    const int h = std::min({int{size}, width / 2, height / 2}) / 2;
    if (h == 0) {
        return;
    }
    MakeRoom(static_cast<Cardinal>(2 * h));
    const Rectangle area = {x, y, width, height};
    get_rects(h, 0, area, rects, rects + h, rects + 4 * h, rects + 5 * h);
    get_rects(h, h, area, rects + 6 * h, rects + 7 * h, rects + 2 * h, rects + 3 * h);
    XFillRectangles(display, drawable, bottom_gc, rects + 4 * h, 4 * h);
    XFillRectangles(display, drawable, top_gc, rects, 4 * h);
}

} // extern "C"
