// The slider: its picture, and its moves.
//
// It is drawn once, into a pixmap of its size, and copied to where it stands. The pixmap is made when
// the bar has a window, and drawn as soon as it is made.
//
// With a trough picture it is a hollow frame: where its mask is 0 the picture shows. The mask is made
// with the first picture; clipping by no mask at all is the same as by one that is full.

#include <corvidlmw/scrollbar/SvScrollBarI.h>

#include <algorithm>
#include <cstdlib>

namespace corvidlmw::scroll_bar {

namespace {

// ---- Place --------------------------------------------------------------------------------------

void StoreSlider(SvScrollBarPart &bar, const Rectangle &slider) {
    bar.slider_x = CutToPosition(slider.x);
    bar.slider_y = CutToPosition(slider.y);
    bar.slider_width = CutToPosition(slider.width);
    bar.slider_height = CutToPosition(slider.height);
}

Rectangle CalcSliderRect(const SvScrollBarPart &bar) {
    return SliderAt(TroughOf(bar), AxisOf(bar), RangeOf(bar), bar.value);
}

bool SameSize(const Rectangle &a, const Rectangle &b) {
    return a.width == b.width && a.height == b.height;
}

// ---- Picture ------------------------------------------------------------------------------------

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
    const TemporaryGC gc(DisplayOf(w), bar.slider_mask, GCForeground, values);
    FillRectangle(DisplayOf(w), bar.slider_mask, gc, size);
    XSetForeground(DisplayOf(w), gc, 0);
    FillRectangle(DisplayOf(w), bar.slider_mask, gc, Inset(size, 2 * FrameThickness(w)));
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
        XDrawLine(DisplayOf(w), bar.slider_pixmap, gc, from.x, from.y, to.x, to.y);
    };
    draw(primitive.bottom_shadow_GC, middle - 1);
    draw(primitive.top_shadow_GC, middle);
}

void MakeSliderPixmap(Widget w) {
    auto &bar = BarOf(w);
    if (HasWindow(w)) {
        bar.slider_pixmap = MakePixmap(w, SliderOf(bar), static_cast<int>(w->core.depth));
        DrawSlider(w);
    }
}

// ---- Uncovering ---------------------------------------------------------------------------------

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

} // namespace

// ---- Picture ------------------------------------------------------------------------------------

void DrawSlider(Widget w) {
    auto &bar = BarOf(w);
    const auto &primitive = PrimitiveOf(w);
    if (!IsDrawn(w)) {
        return;
    }
    const Rectangle size{0, 0, bar.slider_width, bar.slider_height};
    FillRectangle(DisplayOf(w), bar.slider_pixmap, ForegroundGC(w), size);
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

void GetSliderPixmap(Widget w) {
    auto &bar = BarOf(w);
    StoreSlider(bar, CalcSliderRect(bar));
    MakeSliderPixmap(w);
}

void FreeSliderPixmaps(Widget w) {
    FreePixmap(w, BarOf(w).slider_pixmap);
    FreePixmap(w, BarOf(w).slider_mask);
}

// ---- Moves --------------------------------------------------------------------------------------

// The GC is shared: its clip is taken off again at once.
void CopySlider(Widget w) {
    const auto &bar = BarOf(w);
    Display *display = DisplayOf(w);
    GC gc = ForegroundGC(w);
    const bool masked = HasPicture(bar);
    if (masked) {
        XSetClipOrigin(display, gc, bar.slider_x, bar.slider_y);
        XSetClipMask(display, gc, bar.slider_mask);
    }
    XCopyArea(display, bar.slider_pixmap, WindowOf(w), gc, 0, 0,
              static_cast<unsigned>(bar.slider_width), static_cast<unsigned>(bar.slider_height),
              bar.slider_x, bar.slider_y);
    if (masked) {
        XSetClipMask(display, gc, None);
        XSetClipOrigin(display, gc, 0, 0);
    }
}

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
    (axis.horizontal ? bar.slider_x : bar.slider_y) = CutToPosition(axis.Along(place));
    if (!IsDrawn(w)) {
        return;
    }
    CopySlider(w);
    if (!HasPicture(bar)) {
        ClearLeftStrip(w, old);
    }
}

} // namespace corvidlmw::scroll_bar
