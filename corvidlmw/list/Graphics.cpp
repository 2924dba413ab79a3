// The GCs of a list, all private: rows change and clip them in place. And what they are clipped to.
//
// A clip that the GCs have already is not sent again. normal_gc alone can have another one, that of the
// bars, since a selected row leaves it there until the next SetClipRect.

#include <corvidlmw/list/LmListI.h>

#include <algorithm>

namespace corvidlmw::list {

namespace {

void Free(Display *display, GC &gc) {
    if (gc) {
        XFreeGC(display, gc);
        gc = nullptr;
    }
}

void FreeTile(Widget w) {
    auto &tile = StateOf(w).insensitive_tile;
    if (tile != XmUNSPECIFIED_PIXMAP) {
        XmDestroyPixmap(XtScreen(w), tile);
        tile = XmUNSPECIFIED_PIXMAP;
    }
}

void FreeOwnGCs(Widget w) {
    auto &list = ListOf(w);
    for (GC *gc :
         {&list.normal_gc, &list.inverse_gc, &list.arm_gc, &list.icon_gc, &list.insensitive_gc}) {
        Free(XtDisplay(w), *gc);
    }
    FreeTile(w);
    StateOf(list).clip.reset();
    StateOf(list).normal_clipped_to_bars = false;
}

GC CreateGC(Widget w, Drawable drawable, unsigned long mask, XGCValues values, Pixel foreground,
            Pixel background) {
    values.foreground = foreground;
    values.background = background;
    return XCreateGC(XtDisplay(w), drawable, mask, &values);
}

GC CreateInsensitiveGC(Widget w, Drawable drawable, unsigned long mask, XGCValues values) {
    const Pixel foreground = PrimitiveOf(w).foreground;
    const Pixel background = w->core.background_pixel;
    Pixmap &tile = StateOf(w).insensitive_tile;
    tile = XmGetPixmapByDepth(XtScreen(w), Name("50_foreground"), foreground, background,
                              static_cast<int>(w->core.depth));
    if (tile != XmUNSPECIFIED_PIXMAP) {
        mask |= GCFillStyle | GCTile;
        values.fill_style = FillTiled;
        values.tile = tile;
    }
    return CreateGC(w, drawable, mask, values, background, foreground);
}

XGCValues HighlightValues(Widget w, bool dashed) {
    const auto &primitive = PrimitiveOf(w);
    XGCValues values{};
    values.foreground = primitive.highlight_color;
    values.background = w->core.background_pixel;
    values.line_width = primitive.highlight_thickness;
    values.line_style = dashed ? LineOnOffDash : LineSolid;
    values.dashes = static_cast<char>(std::clamp<int>(primitive.highlight_thickness, 8, 127));
    return values;
}

void Clip(Widget w, GC gc, const Rectangle &area) {
    XRectangle rectangle = {0, 0, CutToDimension(area.width), CutToDimension(area.height)};
    XSetClipRectangles(XtDisplay(w), gc, area.x, area.y, &rectangle, 1, Unsorted);
}

void ClipLooks(Widget w, const Rectangle &area) {
    const auto &list = ListOf(w);
    if (StateOf(list).looks == 0) {
        return;
    }
    for (const LmListElement *element : ElementsOf(list)) {
        if (element->gc) {
            Clip(w, element->gc, area);
        }
    }
}

void ClipHighlight(Widget w, const Rectangle &inner) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    const int around = list.row_highlight;
    const Rectangle area{inner.x - around, inner.y - around, inner.width + 2 * around,
                         inner.height + 2 * around};
    if (list.highlight_gc && around != 0 && state.highlight_clip != area) {
        Clip(w, list.highlight_gc, area);
        state.highlight_clip = area;
    }
}

} // namespace

// ---- A drawable to make GCs on ------------------------------------------------------------------------

DrawableOfDepth::DrawableOfDepth(Widget w)
    : display_(XtDisplay(w)), drawable_(RootWindowOfScreen(XtScreen(w))) {
    if (w->core.depth != static_cast<Cardinal>(DefaultDepthOfScreen(XtScreen(w)))) {
        pixmap_ = XCreatePixmap(display_, drawable_, 1, 1, w->core.depth);
        drawable_ = pixmap_;
    }
}

DrawableOfDepth::~DrawableOfDepth() {
    if (pixmap_ != None) {
        XFreePixmap(display_, pixmap_);
    }
}

// ---- GCs ------------------------------------------------------------------------------------------

void MakeGC(Widget w) {
    auto &list = ListOf(w);
    FreeOwnGCs(w);
    const DrawableOfDepth drawable(w);
    const Pixel foreground = PrimitiveOf(w).foreground;
    const Pixel background = w->core.background_pixel;
    XGCValues values{};
    unsigned long mask = GCForeground | GCBackground;
    if (const XFontStruct *font = CoreFontOf(list.font_list)) {
        values.font = font->fid;
        mask |= GCFont;
    }
    list.normal_gc = CreateGC(w, drawable, mask, values, foreground, background);
    list.inverse_gc = CreateGC(w, drawable, mask, values, background, foreground);
    list.arm_gc = CreateGC(w, drawable, mask, values, list.arm_color, list.arm_color);
    // An icon is whole, unlike a window, and its copies need no answer.
    XGCValues icon_values = values;
    icon_values.graphics_exposures = False;
    list.icon_gc = CreateGC(w, drawable, mask | GCGraphicsExposures, icon_values, list.arm_color,
                            list.arm_color);
    list.insensitive_gc = CreateInsensitiveGC(w, drawable, mask, values);
}

void MakeHighlightGC(Widget w, bool dashed) {
    auto &list = ListOf(w);
    Free(XtDisplay(w), list.highlight_gc);
    StateOf(list).highlight_clip.reset();
    XGCValues values = HighlightValues(w, dashed);
    const DrawableOfDepth drawable(w);
    list.highlight_gc =
        XCreateGC(XtDisplay(w), drawable,
                  GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCDashList, &values);
}

void ChangeHighlightGC(Widget w, bool dashed) {
    XGCValues values = HighlightValues(w, dashed);
    XChangeGC(XtDisplay(w), ListOf(w).highlight_gc, GCLineWidth | GCLineStyle | GCDashList,
              &values);
}

void FreeGCs(Widget w) {
    FreeOwnGCs(w);
    Free(XtDisplay(w), ListOf(w).highlight_gc);
}

// ---- Clips ------------------------------------------------------------------------------------------

void SetClipRect(Widget w) {
    auto &list = ListOf(w);
    auto &state = StateOf(list);
    const Rectangle area = InnerArea(FrameOf(w));
    if (state.clip != area) {
        ClipLooks(w, area);
        for (GC gc : {list.normal_gc, list.icon_gc, list.inverse_gc, list.insensitive_gc}) {
            Clip(w, gc, area);
        }
    } else if (state.normal_clipped_to_bars) {
        Clip(w, list.normal_gc, area);
    }
    state.clip = area;
    state.normal_clipped_to_bars = false;
    ClipHighlight(w, area);
}

void ClipLook(Widget w, GC gc) {
    SetClipRect(w);
    Clip(w, gc, *StateOf(w).clip);
}

BarClip::BarClip(Widget w) : widget_(w) {
    StateOf(w).bar_clips++;
}

BarClip::~BarClip() {
    auto &state = StateOf(widget_);
    if (--state.bar_clips > 0 || !state.bars_clipped) {
        return;
    }
    const auto &primitive = PrimitiveOf(widget_);
    for (GC gc : {primitive.top_shadow_GC, ListOf(widget_).arm_gc, primitive.bottom_shadow_GC}) {
        XSetClipMask(XtDisplay(widget_), gc, None);
    }
    state.bars_clipped = false;
}

void BarClip::Clip() {
    auto &state = StateOf(widget_);
    const auto &primitive = PrimitiveOf(widget_);
    const Rectangle area = BarArea(FrameOf(widget_));
    if (!state.normal_clipped_to_bars) {
        list::Clip(widget_, ListOf(widget_).normal_gc, area);
        state.normal_clipped_to_bars = true;
    }
    if (state.bars_clipped) {
        return;
    }
    for (GC gc : {ListOf(widget_).arm_gc, primitive.top_shadow_GC, primitive.bottom_shadow_GC}) {
        list::Clip(widget_, gc, area);
    }
    state.bars_clipped = true;
}

} // namespace corvidlmw::list
