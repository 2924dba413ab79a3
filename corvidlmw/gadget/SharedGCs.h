// GCs that all gadgets of equal colours and font share. The toolkit's own store of GCs is searched from
// one end to the other for each GC, and knows nothing of the tile that belongs to one.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

namespace corvidlmw::icon_gadget {

struct GCLook {
    Screen *screen = nullptr;
    int depth = 0;
    Pixel foreground = 0;
    Pixel background = 0;
    Font font = None; // None: any
    // Every other pixel of what is drawn in the first colour, the rest in the second.
    bool halftone = false;
    Pixel halftone_foreground = 0;
    Pixel halftone_background = 0;
    friend bool operator==(const GCLook &, const GCLook &) = default;
};

// Without graphics exposures. One Release for each.
GC AcquireGC(const GCLook &look);
void ReleaseGC(Display *display, GC gc);

} // namespace corvidlmw::icon_gadget
