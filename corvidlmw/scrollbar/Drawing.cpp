// Layout and drawing of the scroll bar, but for its slider.
//
// A bar has a trough picture as long as it has both troughPixmapCallback entries and a pixmap: a client
// may store None, or remove its callback later.

#include <corvidlmw/scrollbar/SvScrollBarI.h>
#include <corvidlmw/toolkit/LifeWatch.h>

#include <Xm/DrawP.h>

namespace corvidlmw::scroll_bar {

namespace {

void StoreLayout(SvScrollBarPart &bar, const Layout &layout) {
    bar.slider_area_x = CutToPosition(layout.trough.x);
    bar.slider_area_y = CutToPosition(layout.trough.y);
    bar.slider_area_width = CutToPosition(layout.trough.width);
    bar.slider_area_height = CutToPosition(layout.trough.height);
    bar.arrow1_x = CutToPosition(layout.arrow1.x);
    bar.arrow1_y = CutToPosition(layout.arrow1.y);
    bar.arrow2_x = CutToPosition(layout.arrow2.x);
    bar.arrow2_y = CutToPosition(layout.arrow2.y);
    bar.arrow_width = CutToPosition(layout.arrow_width);
    bar.arrow_height = CutToPosition(layout.arrow_height);
}

// ---- Trough picture -----------------------------------------------------------------------------

Pixmap MakeBlankPicture(Widget w) {
    const auto &bar = BarOf(w);
    const Rectangle size{0, 0, bar.slider_area_width, bar.slider_area_height};
    Pixmap picture = MakePixmap(w, size, static_cast<int>(w->core.depth));
    XGCValues values{};
    values.foreground = bar.trough_color;
    GC gc = XtGetGC(w, GCForeground, &values);
    FillRectangle(DisplayOf(w), picture, gc, size);
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
    Display *display = DisplayOf(w);
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
    DrawRaised(w, WindowOf(w), primitive.bottom_shadow_GC, primitive.top_shadow_GC, box,
               primitive.shadow_thickness);
    RestoreTrough(w, TroughOf(BarOf(w)));
}

void CoverInsensitive(Widget w) {
    const int edge = EdgeOf(w);
    FillRectangle(DisplayOf(w), WindowOf(w), UnavailableGC(w),
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

// ---- Trough -------------------------------------------------------------------------------------

void ClearArea(Widget w, const Rectangle &area) {
    // To the server a size of 0 means "up to the window's end".
    if (area.width > 0 && area.height > 0) {
        XClearArea(DisplayOf(w), WindowOf(w), area.x, area.y, static_cast<unsigned>(area.width),
                   static_cast<unsigned>(area.height), False);
    }
}

// Shows the trough in a part of it.
void RestoreTrough(Widget w, const Rectangle &area) {
    const auto &bar = BarOf(w);
    if (HasPicture(bar)) {
        XCopyArea(DisplayOf(w), bar.trough_pixmap, WindowOf(w), ForegroundGC(w),
                  area.x - bar.slider_area_x, area.y - bar.slider_area_y,
                  static_cast<unsigned>(area.width), static_cast<unsigned>(area.height), area.x,
                  area.y);
    } else {
        ClearArea(w, area);
    }
}

void FreeTroughPicture(Widget w) {
    FreePixmap(w, BarOf(w).trough_pixmap);
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
    XmeDrawArrow(DisplayOf(w), WindowOf(w), top, bottom, ForegroundGC(w),
                 CutToPosition((first ? bar.arrow1_x : bar.arrow2_x) - 1),
                 CutToPosition((first ? bar.arrow1_y : bar.arrow2_y) - 1),
                 CutToDimension(bar.arrow_width + 2), CutToDimension(bar.arrow_height + 2),
                 primitive.shadow_thickness,
                 first ? bar.arrow1_orientation : bar.arrow2_orientation);
}

// ---- Pixmaps and rectangles ---------------------------------------------------------------------

void FreePixmap(Widget w, Pixmap &pixmap) {
    if (pixmap != None) {
        XFreePixmap(DisplayOf(w), pixmap);
        pixmap = None;
    }
}

Pixmap MakePixmap(Widget w, const Rectangle &size, int depth) {
    return XCreatePixmap(DisplayOf(w), RootWindowOfScreen(ScreenOf(w)),
                         static_cast<unsigned>(size.width), static_cast<unsigned>(size.height),
                         static_cast<unsigned>(depth));
}

// The toolkit would take a negative size for a huge one.
void DrawRaised(Widget w, Drawable drawable, GC top, GC bottom, const Rectangle &box,
                int thickness) {
    if (box.width > 0 && box.height > 0) {
        XmeDrawShadows(DisplayOf(w), drawable, top, bottom, CutToPosition(box.x),
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

// ---- GCs ----------------------------------------------------------------------------------------

GC ForegroundGC(Widget w) {
    auto &bar = BarOf(w);
    if (!bar.foreground_gc) {
        XGCValues values{};
        values.foreground = w->core.background_pixel;
        values.background = w->core.background_pixel;
        values.graphics_exposures = False;
        bar.foreground_gc = XtGetGC(w, GCForeground | GCBackground | GCGraphicsExposures, &values);
    }
    return bar.foreground_gc;
}

// The stipple is the toolkit's, which counts its users.
GC UnavailableGC(Widget w) {
    auto &bar = BarOf(w);
    if (!bar.unavailable_gc) {
        XGCValues values{};
        values.graphics_exposures = False;
        values.foreground = w->core.background_pixel;
        XtGCMask mask = GCForeground | GCGraphicsExposures;
        values.stipple = XmGetPixmapByDepth(ScreenOf(w), Name("50_foreground"), 1, 0, 1);
        if (values.stipple != XmUNSPECIFIED_PIXMAP) {
            values.foreground = BlackPixelOfScreen(ScreenOf(w));
            values.fill_style = FillStippled;
            mask |= GCFillStyle | GCStipple;
        }
        bar.unavailable_gc = XtGetGC(w, mask, &values);
    }
    return bar.unavailable_gc;
}

void FreeForegroundGC(Widget w) {
    auto &bar = BarOf(w);
    if (bar.foreground_gc) {
        XtReleaseGC(w, bar.foreground_gc);
        bar.foreground_gc = nullptr;
    }
}

// The GC knows whether it has a stipple.
void FreeUnavailableGC(Widget w) {
    auto &bar = BarOf(w);
    if (!bar.unavailable_gc) {
        return;
    }
    XGCValues values{};
    XGetGCValues(DisplayOf(w), bar.unavailable_gc, GCFillStyle | GCStipple, &values);
    XtReleaseGC(w, bar.unavailable_gc);
    bar.unavailable_gc = nullptr;
    if (values.fill_style == FillStippled) {
        XmDestroyPixmap(ScreenOf(w), values.stipple);
    }
}

} // namespace corvidlmw::scroll_bar
