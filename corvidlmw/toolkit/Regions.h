// Regions of the X library, whose rectangles no call of it tells.
#pragma once

#include <corvidlmw/toolkit/Memory.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace corvidlmw {

Vector<XRectangle> RectanglesOf(Region region);

} // namespace corvidlmw
