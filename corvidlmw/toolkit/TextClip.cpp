#include <corvidlmw/toolkit/TextClip.h>

#include <X11/Xutil.h>
#include <X11/Xregion.h>

// Xregion.h defines these as macros.
#undef min
#undef max

#include <algorithm>
#include <vector>

namespace corvidlmw {

namespace {

std::vector<XRectangle> RectanglesOf(Region region) {
    std::vector<XRectangle> rectangles(static_cast<std::size_t>(region->numRects));
    std::transform(
        region->rects, region->rects + region->numRects, rectangles.begin(), [](const BOX &box) {
            return XRectangle{box.x1, box.y1, static_cast<unsigned short>(box.x2 - box.x1),
                              static_cast<unsigned short>(box.y2 - box.y1)};
        });
    return rectangles;
}

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

} // namespace

void TextClip::Clip(XmFontList fonts) {
    if (clipped_ || !HasAntialiasedFont(fonts)) {
        return;
    }
    std::vector<XRectangle> rectangles = RectanglesOf(region_);
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
