// Layout and drawing of the scroll bar.
//
// The slider is drawn once, into a pixmap of its size, and copied to where it stands. Both pixmaps,
// slider and mask, are made when the bar has a window, and drawn as soon as they are made.
//
// With a trough picture the slider is a hollow frame: where its mask is 0 the picture shows. The mask
// goes with the picture, so that a bar without one has none, and clipping by no mask at all is the same
// as by one that is full. A bar has a picture as long as it has both troughPixmapCallback entries and a
// pixmap: a client may store None, or remove its callback later.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <Xm/DrawP.h>

#include <algorithm>
#include <limits>

namespace corvidlmw::scroll_bar {

namespace {

bool HasPictureEntries(const SvScrollBarPart &bar) {
    return bar.trough_pixmap_callback != nullptr;
}

bool HasPicture(const SvScrollBarPart &bar) {
    return bar.trough_pixmap != None && HasPictureEntries(bar);
}

bool IsDrawn(Widget w) {
    return HasWindow(w) && BarOf(w).slider_pixmap != None;
}

void FreePixmap(Widget w, Pixmap &pixmap) {
    if (pixmap != None) {
        XFreePixmap(XtDisplay(w), pixmap);
        pixmap = None;
    }
}

Pixmap MakePixmap(Widget w, const Rectangle &size, int depth) {
    return XCreatePixmap(XtDisplay(w), RootWindowOfScreen(XtScreen(w)),
                         static_cast<unsigned>(size.width), static_cast<unsigned>(size.height),
                         static_cast<unsigned>(depth));
}

// ---- Layout -------------------------------------------------------------------------------------

short Store(int value) {
    return static_cast<short>(std::clamp<int>(value, std::numeric_limits<short>::min(),
                                              std::numeric_limits<short>::max()));
}

void StoreLayout(SvScrollBarPart &bar, const Layout &layout) {
    bar.slider_area_x = Store(layout.trough.x);
    bar.slider_area_y = Store(layout.trough.y);
    bar.slider_area_width = Store(layout.trough.width);
    bar.slider_area_height = Store(layout.trough.height);
    bar.arrow1_x = Store(layout.arrow1.x);
    bar.arrow1_y = Store(layout.arrow1.y);
    bar.arrow2_x = Store(layout.arrow2.x);
    bar.arrow2_y = Store(layout.arrow2.y);
    bar.arrow_width = Store(layout.arrow_width);
    bar.arrow_height = Store(layout.arrow_height);
}

void StoreSlider(SvScrollBarPart &bar, const Rectangle &slider) {
    bar.slider_x = Store(slider.x);
    bar.slider_y = Store(slider.y);
    bar.slider_width = Store(slider.width);
    bar.slider_height = Store(slider.height);
}

Rectangle CalcSliderRect(const SvScrollBarPart &bar) {
    return SliderAt(TroughOf(bar), AxisOf(bar), RangeOf(bar), bar.value);
}

bool SameSize(const Rectangle &a, const Rectangle &b) {
    return a.width == b.width && a.height == b.height;
}

// ---- Slider -------------------------------------------------------------------------------------

// The toolkit would take a negative size for a huge one.
void DrawRaised(Widget w, Drawable drawable, GC top, GC bottom, const Rectangle &box,
                int thickness) {
    if (box.width > 0 && box.height > 0) {
        XmeDrawShadows(XtDisplay(w), drawable, top, bottom, CutToPosition(box.x),
                       CutToPosition(box.y), CutToDimension(box.width), CutToDimension(box.height),
                       CutToDimension(thickness), XmSHADOW_OUT);
    }
}

void FillRectangle(Display *display, Drawable drawable, GC gc, const Rectangle &box) {
    if (box.width > 0 && box.height > 0) {
        XFillRectangle(display, drawable, gc, box.x, box.y, static_cast<unsigned>(box.width),
                       static_cast<unsigned>(box.height));
    }
}

// The thickness of each of the two shadows of a hollow slider.
int FrameThickness(Widget w) {
    return std::max<int>(PrimitiveOf(w).shadow_thickness, 1);
}

Rectangle Inset(const Rectangle &size, int by) {
    return {by, by, size.width - 2 * by, size.height - 2 * by};
}

// A slider with no room for the hole gets a full mask.
void DrawMask(Widget w) {
    auto &bar = BarOf(w);
    const Rectangle size{0, 0, bar.slider_width, bar.slider_height};
    if (bar.slider_mask == None) {
        bar.slider_mask = MakePixmap(w, size, 1);
    }
    XGCValues values{};
    values.foreground = 1;
    const TemporaryGC gc(XtDisplay(w), bar.slider_mask, GCForeground, values);
    FillRectangle(XtDisplay(w), bar.slider_mask, gc, size);
    XSetForeground(XtDisplay(w), gc, 0);
    FillRectangle(XtDisplay(w), bar.slider_mask, gc, Inset(size, 2 * FrameThickness(w)));
}

void DrawEtchedLines(Widget w) {
    const auto &bar = BarOf(w);
    const auto &primitive = PrimitiveOf(w);
    const Axis axis = AxisOf(bar);
    const int middle = axis.Length(SliderOf(bar)) / 2;
    const int end = axis.Thickness(SliderOf(bar)) - 2;
    auto draw = [&](GC gc, int along) {
        const Point from = axis.At(along, 1);
        const Point to = axis.At(along, end);
        XDrawLine(XtDisplay(w), bar.slider_pixmap, gc, from.x, from.y, to.x, to.y);
    };
    draw(primitive.bottom_shadow_GC, middle - 1);
    draw(primitive.top_shadow_GC, middle);
}

void DrawSlider(Widget w) {
    auto &bar = BarOf(w);
    const auto &primitive = PrimitiveOf(w);
    if (!IsDrawn(w)) {
        return;
    }
    const Rectangle size{0, 0, bar.slider_width, bar.slider_height};
    FillRectangle(XtDisplay(w), bar.slider_pixmap, bar.foreground_gc, size);
    DrawRaised(w, bar.slider_pixmap, primitive.top_shadow_GC, primitive.bottom_shadow_GC, size,
               primitive.shadow_thickness);
    if (HasPictureEntries(bar)) {
        DrawMask(w);
        const int frame = FrameThickness(w);
        DrawRaised(w, bar.slider_pixmap, primitive.bottom_shadow_GC, primitive.top_shadow_GC,
                   Inset(size, frame), frame);
    }
    if (bar.etched_slider) {
        DrawEtchedLines(w);
    }
}

void MakeSliderPixmap(Widget w) {
    auto &bar = BarOf(w);
    if (HasWindow(w)) {
        bar.slider_pixmap = MakePixmap(w, SliderOf(bar), static_cast<int>(w->core.depth));
        DrawSlider(w);
    }
}

void GetSliderPixmap(Widget w) {
    auto &bar = BarOf(w);
    StoreSlider(bar, CalcSliderRect(bar));
    MakeSliderPixmap(w);
}

// ---- Slider and trough on the window ------------------------------------------------------------

// The GC is shared: its clip is taken off again at once.
void CopySlider(Widget w) {
    const auto &bar = BarOf(w);
    Display *display = XtDisplay(w);
    const bool masked = HasPicture(bar);
    if (masked) {
        XSetClipOrigin(display, bar.foreground_gc, bar.slider_x, bar.slider_y);
        XSetClipMask(display, bar.foreground_gc, bar.slider_mask);
    }
    XCopyArea(display, bar.slider_pixmap, XtWindow(w), bar.foreground_gc, 0, 0,
              static_cast<unsigned>(bar.slider_width), static_cast<unsigned>(bar.slider_height),
              bar.slider_x, bar.slider_y);
    if (masked) {
        XSetClipMask(display, bar.foreground_gc, None);
        XSetClipOrigin(display, bar.foreground_gc, 0, 0);
    }
}

void ClearArea(Widget w, const Rectangle &area) {
    // To the server a size of 0 means "up to the window's end".
    if (area.width > 0 && area.height > 0) {
        XClearArea(XtDisplay(w), XtWindow(w), area.x, area.y, static_cast<unsigned>(area.width),
                   static_cast<unsigned>(area.height), False);
    }
}

// Shows the trough in a part of it.
void RestoreTrough(Widget w, const Rectangle &area) {
    const auto &bar = BarOf(w);
    if (HasPicture(bar)) {
        XCopyArea(XtDisplay(w), bar.trough_pixmap, XtWindow(w), bar.foreground_gc,
                  area.x - bar.slider_area_x, area.y - bar.slider_area_y,
                  static_cast<unsigned>(area.width), static_cast<unsigned>(area.height), area.x,
                  area.y);
    } else {
        ClearArea(w, area);
    }
}

// What a slider that lay at `old` has left, the new place being drawn already.
void ClearLeftStrip(Widget w, const Rectangle &old) {
    const auto &bar = BarOf(w);
    const Axis axis = AxisOf(bar);
    const Rectangle now = SliderOf(bar);
    const int way = axis.Start(now) - axis.Start(old);
    const int strip_start = way > 0 ? axis.Start(old) : axis.Start(now) + axis.Length(now);
    const Point origin = axis.At(strip_start, axis.Across({now.x, now.y}));
    ClearArea(w, axis.Box(origin, std::abs(way), axis.Thickness(now)));
}

// ---- Trough picture -----------------------------------------------------------------------------

Pixmap MakeBlankPicture(Widget w) {
    const auto &bar = BarOf(w);
    const Rectangle size{0, 0, bar.slider_area_width, bar.slider_area_height};
    Pixmap picture = MakePixmap(w, size, static_cast<int>(w->core.depth));
    XGCValues values{};
    values.foreground = bar.trough_color;
    GC gc = XtGetGC(w, GCForeground, &values);
    FillRectangle(XtDisplay(w), picture, gc, size);
    XtReleaseGC(w, gc);
    return picture;
}

// False if the client destroyed the bar meanwhile, and it is gone already. A client that asks for a
// new picture while it draws one gets no other.
bool AskForPicture(Widget w, XEvent *event) {
    auto &bar = BarOf(w);
    if (IsSet(bar, SV_PICTURE_ASKED)) {
        return true;
    }
    Display *display = XtDisplay(w);
    SvTroughPixmapCallbackStruct data = {.reason = SvCR_TROUGH_PIXMAP,
                                         .event = event,
                                         .width = bar.slider_area_width,
                                         .height = bar.slider_area_height,
                                         .depth = static_cast<int>(w->core.depth),
                                         .maximum = bar.maximum,
                                         .pixmap = MakeBlankPicture(w)};
    const LifeWatch life(w);
    SetFlag(bar, SV_PICTURE_ASKED, true);
    XtCallCallbackList(w, bar.trough_pixmap_callback, &data);
    if (life.Ended()) {
        if (data.pixmap != None) {
            XFreePixmap(display, data.pixmap);
        }
        return false;
    }
    SetFlag(bar, SV_PICTURE_ASKED, false);
    bar.trough_pixmap = data.pixmap;
    return true;
}

// ---- The whole ----------------------------------------------------------------------------------

void DrawTrough(Widget w) {
    const auto &primitive = PrimitiveOf(w);
    const int highlight = primitive.highlight_thickness;
    const Rectangle box = {highlight, highlight, w->core.width - 2 * highlight,
                           w->core.height - 2 * highlight};
    DrawRaised(w, XtWindow(w), primitive.bottom_shadow_GC, primitive.top_shadow_GC, box,
               primitive.shadow_thickness);
    RestoreTrough(w, TroughOf(BarOf(w)));
}

void CoverInsensitive(Widget w) {
    const int edge = EdgeOf(w);
    FillRectangle(XtDisplay(w), XtWindow(w), BarOf(w).unavailable_gc,
                  {edge, edge, w->core.width - 2 * edge, w->core.height - 2 * edge});
}

void DrawHighlight(Widget w) {
    const auto &primitive_class =
        reinterpret_cast<XmPrimitiveClassRec *>(XtClass(w))->primitive_class;
    XtWidgetProc draw = PrimitiveOf(w).highlighted ? primitive_class.border_highlight
                                                   : primitive_class.border_unhighlight;
    if (draw) {
        draw(w);
    }
}

void DrawAll(Widget w) {
    DrawTrough(w);
    CopySlider(w);
    if (BarOf(w).show_arrows) {
        DrawArrow(w, Part::Arrow1);
        DrawArrow(w, Part::Arrow2);
    }
    if (!XtIsSensitive(w)) {
        CoverInsensitive(w);
    }
    DrawHighlight(w);
}

} // namespace

// ---- Methods ------------------------------------------------------------------------------------

void Resize(Widget w) {
    auto &bar = BarOf(w);
    const bool horizontal = AxisOf(bar).horizontal;
    bar.arrow1_orientation = horizontal ? XmARROW_LEFT : XmARROW_UP;
    bar.arrow2_orientation = horizontal ? XmARROW_RIGHT : XmARROW_DOWN;
    StoreLayout(bar, Arrange({.width = w->core.width,
                              .height = w->core.height,
                              .edge = EdgeOf(w),
                              .horizontal = horizontal,
                              .arrows = bar.show_arrows != False}));
    FreeSliderPixmaps(w);
    GetSliderPixmap(w);
    if (HasPictureEntries(bar)) {
        FreeTroughPicture(w);
        AskForPicture(w, nullptr);
    }
}

void Redisplay(Widget w, XEvent *event, Region) {
    auto &bar = BarOf(w);
    if (bar.slider_pixmap != None) {
        DrawSlider(w);
    } else {
        GetSliderPixmap(w);
    }
    const bool wanting = bar.trough_pixmap == None && HasPictureEntries(bar);
    if (wanting && !AskForPicture(w, event)) {
        return;
    }
    if (IsDrawn(w)) {
        DrawAll(w);
    }
}

// ---- Moves of the slider ------------------------------------------------------------------------

bool RedrawSlider(Widget w) {
    auto &bar = BarOf(w);
    const Rectangle old = SliderOf(bar);
    const Rectangle slider = CalcSliderRect(bar);
    if (slider == old) {
        return false;
    }
    if (IsDrawn(w)) {
        RestoreTrough(w, old);
    }
    StoreSlider(bar, slider);
    if (IsDrawn(w)) {
        CopySlider(w);
    }
    return true;
}

bool RefitSlider(Widget w) {
    auto &bar = BarOf(w);
    const Rectangle slider = CalcSliderRect(bar);
    if (SameSize(slider, SliderOf(bar))) {
        return RedrawSlider(w);
    }
    const bool drawn = IsDrawn(w);
    FreeSliderPixmaps(w);
    StoreSlider(bar, slider);
    if (drawn) {
        MakeSliderPixmap(w);
        RestoreTrough(w, TroughOf(bar));
        CopySlider(w);
    }
    return true;
}

void MoveSlider(Widget w, Point place) {
    auto &bar = BarOf(w);
    const Rectangle old = SliderOf(bar);
    const Axis axis = AxisOf(bar);
    if (place == Point{old.x, old.y}) {
        return;
    }
    if (IsDrawn(w) && HasPicture(bar)) {
        RestoreTrough(w, old);
    }
    (axis.horizontal ? bar.slider_x : bar.slider_y) = Store(axis.Along(place));
    if (!IsDrawn(w)) {
        return;
    }
    CopySlider(w);
    if (!HasPicture(bar)) {
        ClearLeftStrip(w, old);
    }
}

// ---- Arrows -------------------------------------------------------------------------------------

void DrawArrow(Widget w, Part arrow) {
    const auto &bar = BarOf(w);
    const auto &primitive = PrimitiveOf(w);
    if (!HasWindow(w)) {
        return;
    }
    const bool first = arrow == Part::Arrow1;
    const bool pressed = (first ? bar.arrow1_selected : bar.arrow2_selected) != False;
    GC top = pressed ? primitive.bottom_shadow_GC : primitive.top_shadow_GC;
    GC bottom = pressed ? primitive.top_shadow_GC : primitive.bottom_shadow_GC;
    XmeDrawArrow(XtDisplay(w), XtWindow(w), top, bottom, bar.foreground_gc,
                 CutToPosition((first ? bar.arrow1_x : bar.arrow2_x) - 1),
                 CutToPosition((first ? bar.arrow1_y : bar.arrow2_y) - 1),
                 CutToDimension(bar.arrow_width + 2), CutToDimension(bar.arrow_height + 2),
                 primitive.shadow_thickness,
                 first ? bar.arrow1_orientation : bar.arrow2_orientation);
}

// ---- Pixmaps and GCs ----------------------------------------------------------------------------

void FreeSliderPixmaps(Widget w) {
    FreePixmap(w, BarOf(w).slider_pixmap);
    FreePixmap(w, BarOf(w).slider_mask);
}

void FreeTroughPicture(Widget w) {
    FreePixmap(w, BarOf(w).trough_pixmap);
}

void BuildForegroundGC(Widget w) {
    XGCValues values{};
    values.foreground = w->core.background_pixel;
    values.background = w->core.background_pixel;
    values.graphics_exposures = False;
    BarOf(w).foreground_gc = XtGetGC(w, GCForeground | GCBackground | GCGraphicsExposures, &values);
}

void BuildUnavailableGC(Widget w) {
    Screen *screen = XtScreen(w);
    XGCValues values{};
    values.graphics_exposures = False;
    values.foreground = w->core.background_pixel;
    XtGCMask mask = GCForeground | GCGraphicsExposures;
    values.stipple = XmGetPixmapByDepth(screen, Name("50_foreground"), 1, 0, 1);
    if (values.stipple != XmUNSPECIFIED_PIXMAP) {
        values.foreground = BlackPixelOfScreen(screen);
        values.fill_style = FillStippled;
        mask |= GCFillStyle | GCStipple;
    }
    BarOf(w).unavailable_gc = XtGetGC(w, mask, &values);
}

// The GC knows whether it has a stipple; it is the toolkit's, which counts its users.
void FreeGCs(Widget w) {
    auto &bar = BarOf(w);
    XGCValues values{};
    XGetGCValues(XtDisplay(w), bar.unavailable_gc, GCFillStyle | GCStipple, &values);
    XtReleaseGC(w, bar.foreground_gc);
    XtReleaseGC(w, bar.unavailable_gc);
    if (values.fill_style == FillStippled) {
        XmDestroyPixmap(XtScreen(w), values.stipple);
    }
}

} // namespace corvidlmw::scroll_bar
