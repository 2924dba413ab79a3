// The GCs, and what they draw.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/common/WidgetUtils.h>
#include <corvidlmw/gadget/SharedGCs.h>
#include <corvidlmw/toolkit/TextClip.h>

#include <X11/ShellP.h>

#include <algorithm>

namespace corvidlmw::icon_gadget {

namespace {

// ---- GCs --------------------------------------------------------------------------------------------

GCLook PlainLook(Widget w, Pixel foreground, Pixel background) {
    GCLook look;
    look.screen = XtScreen(XtParent(w));
    look.depth = static_cast<int>(XtParent(w)->core.depth);
    look.foreground = foreground;
    look.background = background;
    return look;
}

Font FontOf(Widget w) {
    XFontStruct *font = nullptr;
    return XmeRenderTableGetDefaultFont(IconOf(w).font_list, &font) && font ? font->fid : None;
}

// Antialiased text is grey in the colour that the toolkit has for it: the tile does not reach it.
GCLook InsensitiveLook(Widget w, GCLook look) {
    Widget parent = XtParent(w);
    const auto &cache = CacheOf(w);
    look.halftone = true;
    look.halftone_foreground = XmIsManager(parent)
                                   ? reinterpret_cast<XmManagerWidget>(parent)->manager.foreground
                                   : cache.foreground;
    look.halftone_background = parent->core.background_pixel;
    if (HasAntialiasedFont(IconOf(w).font_list)) {
        look.foreground = cache.bottom_shadow_color;
    }
    return look;
}

void Release(Widget w, GC &gc) {
    if (gc) {
        ReleaseGC(XtDisplay(XtParent(w)), gc);
        gc = nullptr;
    }
}

// ---- Drawing ------------------------------------------------------------------------------------------

// One drawing of a gadget.
class Painter {
public:
    explicit Painter(Widget w)
        : w_(w), icon_(IconOf(w)), area_(RectangleOf(w)), display_(XtDisplay(XtParent(w))),
          window_(XtWindowOfObject(w)), sensitive_(XtIsSensitive(w)) {}

    void Erase() const;
    void DrawContents() const;
    void DrawArrow() const;

private:
    GC ContentsGC() const { return sensitive_ ? icon_.normal_gc : icon_.insensitive_gc; }
    bool IsTooSmall() const;
    XRectangle Inside() const;
    void DrawContentsWithin(const XRectangle &clip) const;
    void DrawText() const;
    void DrawPicture() const;
    Pixmap ShownPixmap() const;
    void CopyPicture(Pixmap pixmap, int depth) const;

    Widget w_;
    const XmvIconGadgetPart &icon_;
    Rectangle area_;
    Display *display_;
    Window window_;
    bool sensitive_;
};

void Painter::Erase() const {
    XFillRectangle(display_, window_, icon_.background_gc, area_.x, area_.y,
                   static_cast<unsigned>(area_.width), static_cast<unsigned>(area_.height));
}

// The picture does not count.
bool Painter::IsTooSmall() const {
    const Extent needed = TextSizeOf(w_);
    return area_.width < needed.width || area_.height < needed.height;
}

XRectangle Painter::Inside() const {
    const int border =
        RecordOf(w_).gadget.highlight_thickness + RecordOf(w_).gadget.shadow_thickness;
    return {CutToPosition(area_.x + border), CutToPosition(area_.y + border),
            CutToDimension(std::max(0, area_.width - 2 * border)),
            CutToDimension(std::max(0, area_.height - 2 * border))};
}

void Painter::DrawContents() const {
    if (IsTooSmall()) {
        DrawContentsWithin(Inside());
    } else {
        DrawText();
        DrawPicture();
    }
}

// The GC is shared: the clip does not stay on it.
void Painter::DrawContentsWithin(const XRectangle &clip) const {
    XRectangle rectangle = clip;
    const OwnedRegion region(XCreateRegion());
    XUnionRectWithRegion(&rectangle, region.get(), region.get());
    TextClip text_clip(display_, window_, region.get());
    text_clip.Clip(icon_.font_list);
    XSetClipRectangles(display_, ContentsGC(), 0, 0, &rectangle, 1, Unsorted);
    DrawText();
    DrawPicture();
    XSetClipMask(display_, ContentsGC(), None);
}

void Painter::DrawText() const {
    if (icon_.text_width == 0) {
        return;
    }
    const auto &cache = CacheOf(w_);
    _XmStringDraw(display_, window_, icon_.font_list, icon_.label_string, ContentsGC(),
                  CutToPosition(area_.x + icon_.text_x), CutToPosition(area_.y + icon_.text_y),
                  icon_.text_width, cache.alignment,
                  XmStringDirectionToDirection(cache.string_direction), nullptr);
}

// Whether there is a picture at all is asked of the sensitive one in both states.
Pixmap Painter::ShownPixmap() const {
    if (icon_.label_pixmap == None) {
        return XmUNSPECIFIED_PIXMAP;
    }
    return sensitive_ ? icon_.label_pixmap : icon_.label_insensitive_pixmap;
}

void Painter::DrawPicture() const {
    const Pixmap pixmap = ShownPixmap();
    if (pixmap != XmUNSPECIFIED_PIXMAP && pixmap != None && icon_.pixmap_width > 0 &&
        icon_.pixmap_height > 0) {
        CopyPicture(pixmap, DepthOfPicture(w_, !sensitive_));
    }
}

// As an area goes only what has the window's depth; a bitmap that was not said to be one is copied as
// one. The server would refuse the rest.
void Painter::CopyPicture(Pixmap pixmap, int depth) const {
    const int x = area_.x + icon_.pixmap_x;
    const int y = area_.y + icon_.pixmap_y;
    const bool as_plane = icon_.label_bitmap != XmUNSPECIFIED_PIXMAP || depth == 1;
    if (depth == static_cast<int>(XtParent(w_)->core.depth) && !as_plane) {
        XCopyArea(display_, pixmap, window_, ContentsGC(), 0, 0, icon_.pixmap_width,
                  icon_.pixmap_height, x, y);
    } else if (as_plane && depth != 0) {
        XCopyPlane(display_, pixmap, window_, ContentsGC(), 0, 0, icon_.pixmap_width,
                   icon_.pixmap_height, x, y, 1);
    }
}

void Painter::DrawArrow() const {
    constexpr int edge = 4;
    if (!CacheOf(w_).show_arrow || icon_.arrow_width == 0) {
        return;
    }
    XCopyArea(display_, icon_.arrow_pixmap, window_, icon_.normal_gc, 0, 0,
              static_cast<unsigned>(icon_.arrow_width), static_cast<unsigned>(icon_.arrow_height),
              area_.x + area_.width - icon_.arrow_width - edge,
              area_.y + (area_.height - icon_.arrow_height) / 2);
}

// A menu that is not up draws nothing of its entries.
bool IsInLoweredMenu(Widget w) {
    Widget shell = XtParent(XtParent(w));
    return IsInMenuPane(w) && shell && XtIsShell(shell) &&
           !reinterpret_cast<ShellWidget>(shell)->shell.popped_up;
}

} // namespace

void FetchTextGCs(Widget w) {
    auto &icon = IconOf(w);
    const auto &cache = CacheOf(w);
    GCLook look = PlainLook(w, cache.foreground, cache.background);
    look.font = FontOf(w);
    icon.normal_gc = AcquireGC(look);
    icon.insensitive_gc = AcquireGC(InsensitiveLook(w, look));
    look.foreground = cache.background;
    look.background = cache.foreground;
    icon.background_gc = AcquireGC(look);
}

void FetchShadowGCs(Widget w) {
    auto &icon = IconOf(w);
    const auto &cache = CacheOf(w);
    icon.top_shadow_gc = AcquireGC(PlainLook(w, cache.top_shadow_color, cache.background));
    icon.bottom_shadow_gc = AcquireGC(PlainLook(w, cache.bottom_shadow_color, cache.background));
}

void ReleaseTextGCs(Widget w) {
    auto &icon = IconOf(w);
    Release(w, icon.normal_gc);
    Release(w, icon.insensitive_gc);
    Release(w, icon.background_gc);
}

void ReleaseShadowGCs(Widget w) {
    auto &icon = IconOf(w);
    Release(w, icon.top_shadow_gc);
    Release(w, icon.bottom_shadow_gc);
}

void Redisplay(Widget w, XEvent *, Region) {
    if (!XtWindowOfObject(w)) {
        return;
    }
    const Painter painter(w);
    painter.Erase();
    if (IsInLoweredMenu(w)) {
        return;
    }
    painter.DrawContents();
    _XmDrawGadgetShadowType(w);
    painter.DrawArrow();
    if (RecordOf(w).gadget.highlighted) {
        const auto highlight =
            reinterpret_cast<XmGadgetClass>(XtClass(w))->gadget_class.border_highlight;
        if (highlight) {
            highlight(w);
        }
    }
}

} // namespace corvidlmw::icon_gadget
