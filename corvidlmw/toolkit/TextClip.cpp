#include <corvidlmw/toolkit/TextClip.h>

#include <corvidlmw/toolkit/Regions.h>

namespace corvidlmw {

bool HasAntialiasedFont(XmFontList fonts) {
    XmFontContext context = nullptr;
    if (!XmFontListInitFontContext(&context, fonts)) {
        return false;
    }
    bool found = false;
    while (XmFontListEntry entry = XmFontListNextEntry(context)) {
        XmFontType type = XmFONT_IS_FONT;
        XmFontListEntryGetFont(entry, &type);
        found = found || type == XmFONT_IS_XFT;
    }
    XmFontListFreeFontContext(context);
    return found;
}

void TextClip::Clip(XmFontList fonts) {
    if (clipped_ || !HasAntialiasedFont(fonts)) {
        return;
    }
    Vector<XRectangle> rectangles = RectanglesOf(region_);
    _XmXftSetClipRectangles(display_, window_, 0, 0, rectangles.data(),
                            static_cast<int>(rectangles.size()));
    clipped_ = true;
}

// A rectangle as large as a window can be: the toolkit has no call that takes a clip away.
TextClip::~TextClip() {
    if (clipped_) {
        XRectangle everything = {0, 0, 32767, 32767};
        _XmXftSetClipRectangles(display_, window_, 0, 0, &everything, 1);
    }
}

} // namespace corvidlmw
