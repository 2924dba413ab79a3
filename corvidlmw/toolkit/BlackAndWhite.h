// The two colors that a screen has by itself. Where its pixels are made of the three colors they are known
// without a word to the server.
#pragma once

#include <X11/Intrinsic.h>

namespace corvidlmw {

// As a lookup in the screen's default colormap.
struct BlackAndWhite {
    XColor black;
    XColor white;

    static BlackAndWhite Of(Screen *screen);
};

// Resource defaults, for XmRCallProc: what the names "Black" and "White" are converted to.
void BlackDefault(Widget w, int offset, XrmValue *value);
void WhiteDefault(Widget w, int offset, XrmValue *value);

} // namespace corvidlmw
