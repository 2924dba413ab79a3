/* Windows, input, grabs and what is made and freed on the server. */

#include <tests/support/Interpose.h>

#include <X11/Xutil.h>

// clang-format off
namespace {

constexpr auto Long = [](auto value) { return static_cast<long>(value); };

}  // namespace

#pragma GCC visibility push(default)
extern "C" {

// ---- Mapping, stacking, geometry ----------------------------------------------------------

#define CORVIDLMW_WINDOW(function) CORVIDLMW_INTERPOSE(int, function, (Display *d, Window w), (d, w), d, w, nullptr, {})

CORVIDLMW_WINDOW(XMapWindow)
CORVIDLMW_WINDOW(XMapRaised)
CORVIDLMW_WINDOW(XMapSubwindows)
CORVIDLMW_WINDOW(XUnmapWindow)
CORVIDLMW_WINDOW(XUnmapSubwindows)
CORVIDLMW_WINDOW(XRaiseWindow)
CORVIDLMW_WINDOW(XLowerWindow)
CORVIDLMW_WINDOW(XDestroyWindow)
CORVIDLMW_WINDOW(XDestroySubwindows)
CORVIDLMW_INTERPOSE(int, XMoveWindow, (Display *d, Window w, int x, int y), (d, w, x, y), d, w, nullptr, {x, y})
CORVIDLMW_INTERPOSE(int, XResizeWindow, (Display *d, Window w, unsigned width, unsigned height), (d, w, width, height), d, w, nullptr, {width, height})
CORVIDLMW_INTERPOSE(int, XMoveResizeWindow, (Display *d, Window w, int x, int y, unsigned width, unsigned height), (d, w, x, y, width, height), d, w, nullptr, {x, y, width, height})
// Numbers: the mask, then x, y, width, height, border width, whichever of them count.
CORVIDLMW_INTERPOSE(int, XConfigureWindow, (Display *d, Window w, unsigned mask, XWindowChanges *c), (d, w, mask, c), d, w, nullptr, {mask, mask & CWX ? c->x : 0, mask & CWY ? c->y : 0, mask & CWWidth ? c->width : 0, mask & CWHeight ? c->height : 0, mask & CWBorderWidth ? c->border_width : 0})
CORVIDLMW_INTERPOSE(int, XReparentWindow, (Display *d, Window w, Window parent, int x, int y), (d, w, parent, x, y), d, w, nullptr, {Long(parent), x, y})
// Of a new window the drawable is the parent.
CORVIDLMW_INTERPOSE(Window, XCreateWindow, (Display *d, Window parent, int x, int y, unsigned width, unsigned height, unsigned border, int depth, unsigned c, Visual *visual, unsigned long mask, XSetWindowAttributes *attributes), (d, parent, x, y, width, height, border, depth, c, visual, mask, attributes), d, parent, nullptr, {x, y, width, height, border, depth, c, Long(mask)})
CORVIDLMW_INTERPOSE(Window, XCreateSimpleWindow, (Display *d, Window parent, int x, int y, unsigned width, unsigned height, unsigned border, unsigned long border_pixel, unsigned long background), (d, parent, x, y, width, height, border, border_pixel, background), d, parent, nullptr, {x, y, width, height, border, Long(border_pixel), Long(background)})

// ---- Attributes and input -----------------------------------------------------------------

CORVIDLMW_INTERPOSE(int, XSelectInput, (Display *d, Window w, long mask), (d, w, mask), d, w, nullptr, {mask})
// Numbers: the mask, then event mask, do-not-propagate mask, background pixel, whichever count.
CORVIDLMW_INTERPOSE(int, XChangeWindowAttributes, (Display *d, Window w, unsigned long mask, XSetWindowAttributes *a), (d, w, mask, a), d, w, nullptr, {Long(mask), mask & CWEventMask ? a->event_mask : 0, mask & CWDontPropagate ? a->do_not_propagate_mask : 0, mask & CWBackPixel ? Long(a->background_pixel) : 0})
CORVIDLMW_INTERPOSE(int, XSetWindowBackground, (Display *d, Window w, unsigned long pixel), (d, w, pixel), d, w, nullptr, {Long(pixel)})
CORVIDLMW_INTERPOSE(int, XSetWindowBackgroundPixmap, (Display *d, Window w, Pixmap pixmap), (d, w, pixmap), d, w, nullptr, {Long(pixmap)})
CORVIDLMW_INTERPOSE(int, XSetWindowBorder, (Display *d, Window w, unsigned long pixel), (d, w, pixel), d, w, nullptr, {Long(pixel)})
CORVIDLMW_INTERPOSE(int, XDefineCursor, (Display *d, Window w, Cursor cursor), (d, w, cursor), d, w, nullptr, {Long(cursor)})
CORVIDLMW_WINDOW(XUndefineCursor)
CORVIDLMW_INTERPOSE(int, XGrabPointer, (Display *d, Window w, Bool owner, unsigned mask, int pointer_mode, int keyboard_mode, Window confine, Cursor cursor, Time time), (d, w, owner, mask, pointer_mode, keyboard_mode, confine, cursor, time), d, w, nullptr, {owner, mask, pointer_mode, keyboard_mode, Long(confine), Long(cursor)})
CORVIDLMW_INTERPOSE(int, XUngrabPointer, (Display *d, Time time), (d, time), d, None, nullptr, {})
CORVIDLMW_INTERPOSE(int, XGrabServer, (Display *d), (d), d, None, nullptr, {})
CORVIDLMW_INTERPOSE(int, XUngrabServer, (Display *d), (d), d, None, nullptr, {})
CORVIDLMW_INTERPOSE(int, XWarpPointer, (Display *d, Window from, Window to, int from_x, int from_y, unsigned width, unsigned height, int x, int y), (d, from, to, from_x, from_y, width, height, x, y), d, to, nullptr, {x, y})
CORVIDLMW_INTERPOSE(int, XSetInputFocus, (Display *d, Window w, int revert_to, Time time), (d, w, revert_to, time), d, w, nullptr, {revert_to})
CORVIDLMW_INTERPOSE(int, XBell, (Display *d, int percent), (d, percent), d, None, nullptr, {percent})
CORVIDLMW_INTERPOSE(Status, XSendEvent, (Display *d, Window w, Bool propagate, long mask, XEvent *event), (d, w, propagate, mask, event), d, w, nullptr, {propagate, mask, event->type})

// ---- Questions ------------------------------------------------------------------------------

CORVIDLMW_INTERPOSE(Status, XGetWindowAttributes, (Display *d, Window w, XWindowAttributes *a), (d, w, a), d, w, nullptr, {})
CORVIDLMW_INTERPOSE(Status, XGetGeometry, (Display *d, Drawable w, Window *root, int *x, int *y, unsigned *width, unsigned *height, unsigned *border, unsigned *depth), (d, w, root, x, y, width, height, border, depth), d, w, nullptr, {})
CORVIDLMW_INTERPOSE(Status, XQueryTree, (Display *d, Window w, Window *root, Window *parent, Window **children, unsigned *count), (d, w, root, parent, children, count), d, w, nullptr, {})
CORVIDLMW_INTERPOSE(Bool, XQueryPointer, (Display *d, Window w, Window *root, Window *child, int *root_x, int *root_y, int *x, int *y, unsigned *mask), (d, w, root, child, root_x, root_y, x, y, mask), d, w, nullptr, {})
CORVIDLMW_INTERPOSE(Bool, XTranslateCoordinates, (Display *d, Window from, Window to, int from_x, int from_y, int *x, int *y, Window *child), (d, from, to, from_x, from_y, x, y, child), d, from, nullptr, {Long(to), from_x, from_y})
CORVIDLMW_INTERPOSE(Atom, XInternAtom, (Display *d, const char *atom, Bool only_if_exists), (d, atom, only_if_exists), d, None, nullptr, {only_if_exists}, atom)
CORVIDLMW_INTERPOSE(int, XSync, (Display *d, Bool discard), (d, discard), d, None, nullptr, {discard})
CORVIDLMW_INTERPOSE(int, XFlush, (Display *d), (d), d, None, nullptr, {})

// ---- Made and freed -------------------------------------------------------------------------


}  // extern "C"
// clang-format on
