// The cache of the arrows.

#include <corvidlmw/common/ArrowPixmaps.h>

#include <corvidlmw/toolkit/Toolkit.h>

// The records alone: an arrow is made here without a call into the gadget's room.
#include <corvidlmw/gadget/IconGP.h>

#include <Xm/CacheP.h>
#include <Xm/CascadeBGP.h>
#include <Xm/DrawP.h>

#include <algorithm>

namespace corvidlmw {

namespace {

// By field, since the record has gaps. The pixmap is what is looked for.
int CompareKeys(XtPointer a, XtPointer b) {
    const auto &one = *static_cast<const XmArrowPixmap *>(a);
    const auto &other = *static_cast<const XmArrowPixmap *>(b);
    return one.height == other.height && one.width == other.width && one.depth == other.depth &&
           one.direction == other.direction && one.top_shadow_color == other.top_shadow_color &&
           one.bottom_shadow_color == other.bottom_shadow_color &&
           one.foreground_color == other.foreground_color && one.display == other.display &&
           one.screen == other.screen;
}

// The toolkit's own delete procedure knows the toolkit's list of arrows only.
void DeletePixmap(XtPointer pixmap) {
    ReleaseArrowPixmap(reinterpret_cast<Pixmap>(pixmap));
}

XmCacheClassPart ArrowPixmapCache = {
    .cache_head = {nullptr, nullptr, 0},
    .cache_copy = _XmCacheCopy,
    .cache_delete = DeletePixmap,
    .cache_compare = CompareKeys,
};

// Beyond this an arrow is a mistake, such as a thickness of -1, and more than a server may have room for.
constexpr int largest_side = 4096;

int SideOf(const XmvIconGadgetRec &gadget, int border) {
    short index = 0;
    XFontStruct *font = nullptr;
    int height = 0;
    if (_XmFontListSearch(gadget.icon.font_list, Name(XmFONTLIST_DEFAULT_TAG), &index, &font) &&
        font) {
        height = font->ascent + font->descent;
    }
    return std::max(2 * border + 1, 2 * height / 3 + 2 * border);
}

Pixmap DrawArrow(const XmvIconGadgetRec &gadget, const XmArrowPixmap &key, int border) {
    Widget parent = gadget.object.parent;
    XGCValues values{};
    values.foreground = values.background = key.foreground_color;
    values.graphics_exposures = False;
    GC fill = XtGetGC(parent, GCForeground | GCBackground | GCGraphicsExposures, &values);
    Pixmap pixmap = XCreatePixmap(key.display, RootWindowOfScreen(key.screen), key.width,
                                  key.height, key.depth);
    XFillRectangle(key.display, pixmap, fill, 0, 0, key.width, key.height);
    const auto corner = static_cast<Position>(border - 1);
    const auto side = CutToDimension(key.width - 2 * (border - 1));
    XmeDrawArrow(key.display, pixmap, gadget.icon.top_shadow_gc, gadget.icon.bottom_shadow_gc, fill,
                 corner, corner, side, side, 2, XmARROW_RIGHT);
    XtReleaseGC(parent, fill);
    return pixmap;
}

XmArrowPixmap KeyOf(const XmvIconGadgetRec &gadget, int side) {
    Widget parent = gadget.object.parent;
    XmArrowPixmap key{};
    key.height = key.width = CutToDimension(side);
    key.depth = parent->core.depth;
    key.direction = XmARROW_RIGHT;
    key.top_shadow_color = gadget.icon.cache->top_shadow_color;
    key.bottom_shadow_color = gadget.icon.cache->bottom_shadow_color;
    key.foreground_color = gadget.icon.cache->background;
    key.display = XtDisplay(parent);
    key.screen = XtScreen(parent);
    key.pixmap = XmUNSPECIFIED_PIXMAP;
    return key;
}

} // namespace

void _XmCreateArrowPixmaps(Widget w) {
    auto &gadget = *reinterpret_cast<XmvIconGadget>(w);
    const int border = gadget.gadget.highlight_thickness + gadget.gadget.shadow_thickness;
    const int side = SideOf(gadget, border);
    if (gadget.icon.arrow_pixmap != XmUNSPECIFIED_PIXMAP || side > largest_side) {
        return;
    }
    XmArrowPixmap key = KeyOf(gadget, side);
    auto &entry = *static_cast<XmArrowPixmap *>(_XmCachePart(&ArrowPixmapCache, &key, sizeof key));
    if (entry.pixmap == XmUNSPECIFIED_PIXMAP) {
        entry.pixmap = DrawArrow(gadget, entry, border);
    }
    gadget.icon.arrow_pixmap = entry.pixmap;
    gadget.icon.arrow_width = entry.width;
    gadget.icon.arrow_height = entry.height;
}

void ReleaseArrowPixmap(Pixmap arrow) {
    for (auto *link = ArrowPixmapCache.cache_head.next; link; link = link->next) {
        auto &entry = *static_cast<XmArrowPixmap *>(CacheDataPtr(link));
        if (entry.pixmap == arrow) {
            if (link->ref_count == 1) {
                XFreePixmap(entry.display, arrow);
            }
            _XmCacheDelete(&entry);
            return;
        }
    }
}

} // namespace corvidlmw
