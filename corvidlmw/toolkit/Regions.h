// Regions of the X library, whose rectangles no call of it tells.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <vector>

namespace corvidlmw {

std::vector<XRectangle> RectanglesOf(Region region);

} // namespace corvidlmw
