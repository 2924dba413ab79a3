// The fonts of the gadgets: one copy for all that have the same.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

namespace corvidlmw::icon_gadget {

// A copy of the fonts. One Release for each.
XmFontList AcquireFonts(XmFontList fonts);
void ReleaseFonts(XmFontList copy);

} // namespace corvidlmw::icon_gadget
