/* Shadows, drawn as a widget of one's own would draw them.
 *
 * Sizes and coordinates are in pixels. The GCs need a foreground only. Nothing waits for the server.
 */
#ifndef CORVIDLMW_COMMON_WIDGETUTILS_H
#define CORVIDLMW_COMMON_WIDGETUTILS_H

#include <corvidlmw/toolkit/Export.h>

#include <X11/Intrinsic.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Draws the shadow of `gadget`, an XmvIconGadget or a gadget with that instance record, inside of its
 * highlight: by its XmNshadowType one of the toolkit's, a drop shadow (XmSHADOW_DROP), or for any
 * other value none. Without a window of the parent, or with XmNshadowThickness 0, it draws nothing,
 * and neither for what is no gadget or has a smaller record. */
CORVIDLMW_EXPORT void _XmDrawGadgetShadowType(Widget gadget);

/* Draws in a window a shadow of depth `size` along the right and the bottom edge inside of the
 * rectangle. It starts `size` pixels from the upper right and the lower left corner; what it leaves
 * out there is cleared. With `size` 0 or an empty rectangle it does nothing. */
CORVIDLMW_EXPORT void _XmDrawDropShadow(Display *display, Drawable window, GC gc, Dimension size,
                                        Position x, Position y, Dimension width, Dimension height);

/* Draws a groove inside of the rectangle: an outer frame, lit from the upper left, around an inner one
 * lit from the lower right. `size` is the width of both together; it is cut to what the rectangle has
 * room for, then made even. With 0 or 1 nothing is drawn. With the GCs exchanged it is a ridge that
 * becomes a groove. */
CORVIDLMW_EXPORT void _XmDrawEtchedShadow(Display *display, Drawable drawable, GC top_gc,
                                          GC bottom_gc, Dimension size, Position x, Position y,
                                          Dimension width, Dimension height);

#ifdef __cplusplus
}
#endif

#endif
