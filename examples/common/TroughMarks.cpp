#include "TroughMarks.h"

#include <algorithm>

namespace example {

void DrawTroughMarks(Widget bar, const SvTroughPixmapCallbackStruct &picture,
                     const std::vector<int> &units, Pixel color) {
    XGCValues values{};
    values.foreground = color;
    GC gc = XCreateGC(XtDisplay(bar), picture.pixmap, GCForeground, &values);
    const long height = picture.height;
    const unsigned thickness = static_cast<unsigned>(std::max(height / picture.maximum, 2L));
    for (int unit : units)
        XFillRectangle(XtDisplay(bar), picture.pixmap, gc, 0,
                       static_cast<int>(unit * height / picture.maximum),
                       static_cast<unsigned>(picture.width), thickness);
    XFreeGC(XtDisplay(bar), gc);
}

} // namespace example
