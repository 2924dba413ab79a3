// What the sources of the scroll bar room share.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

#include <corvidlmw/scrollbar/ScrollBarGeometry.h>
#include <corvidlmw/scrollbar/SvScrollBarP.h>

namespace corvidlmw::scroll_bar {

// ---- Records ------------------------------------------------------------------------------------

inline SvScrollBarPart &BarOf(Widget w) {
    return reinterpret_cast<SvScrollBarWidget>(w)->scroll_bar;
}

inline XmPrimitivePart &PrimitiveOf(Widget w) {
    return reinterpret_cast<SvScrollBarWidget>(w)->primitive;
}

// A bar is no gadget: none of the calls that XtDisplay and its kin make for one is needed.
inline Screen *ScreenOf(Widget w) {
    return w->core.screen;
}

inline Display *DisplayOf(Widget w) {
    return DisplayOfScreen(w->core.screen);
}

inline Window WindowOf(Widget w) {
    return w->core.window;
}

inline bool IsSet(const SvScrollBarPart &bar, int flag) {
    return (bar.flags & flag) != 0;
}

inline void SetFlag(SvScrollBarPart &bar, int flag, bool on) {
    bar.flags = static_cast<unsigned char>(on ? bar.flags | flag : bar.flags & ~flag);
}

inline Axis AxisOf(const SvScrollBarPart &bar) {
    return {bar.orientation == XmHORIZONTAL};
}

inline Range RangeOf(const SvScrollBarPart &bar) {
    return {bar.minimum, bar.maximum, bar.slider_size};
}

inline Rectangle TroughOf(const SvScrollBarPart &bar) {
    return {bar.slider_area_x, bar.slider_area_y, bar.slider_area_width, bar.slider_area_height};
}

inline Rectangle SliderOf(const SvScrollBarPart &bar) {
    return {bar.slider_x, bar.slider_y, bar.slider_width, bar.slider_height};
}

inline Layout LayoutOf(const SvScrollBarPart &bar) {
    return {.trough = TroughOf(bar),
            .arrow1 = {bar.arrow1_x, bar.arrow1_y},
            .arrow2 = {bar.arrow2_x, bar.arrow2_y},
            .arrow_width = bar.arrow_width,
            .arrow_height = bar.arrow_height};
}

// What lies around trough and arrows.
inline int EdgeOf(Widget w) {
    return PrimitiveOf(w).highlight_thickness + PrimitiveOf(w).shadow_thickness;
}

// ---- Values -------------------------------------------------------------------------------------

inline bool IsInverted(const SvScrollBarPart &bar) {
    return bar.processing_direction == XmMAX_ON_TOP || bar.processing_direction == XmMAX_ON_LEFT;
}

// Between the field and what the client sees, in either direction.
inline int ForClient(const SvScrollBarPart &bar, int value) {
    return IsInverted(bar) ? Invert(RangeOf(bar), value) : value;
}

void LookUpRepresentationTypes();
void RepairAtCreation(Widget w);
// After XtSetValues: the direction follows the orientation, what is out of range is put right, and the
// value is turned round where it has to be.
void RepairChange(const SvScrollBarPart &old, Widget w);

void ExportScrollBarValue(Widget w, int offset, XtArgVal *value);
XmImportOperator ImportScrollBarValue(Widget w, int offset, XtArgVal *value);

// ---- Drawing ------------------------------------------------------------------------------------

inline bool HasPictureEntries(const SvScrollBarPart &bar) {
    return bar.trough_pixmap_callback != nullptr;
}

inline bool HasPicture(const SvScrollBarPart &bar) {
    return bar.trough_pixmap != None && HasPictureEntries(bar);
}

inline bool IsDrawn(Widget w) {
    return HasWindow(w) && BarOf(w).slider_pixmap != None;
}

void Resize(Widget w);
void Redisplay(Widget w, XEvent *event, Region region);
// Plain or pressed, as it is selected.
void DrawArrow(Widget w, Part arrow);
// Shows the trough, its picture or its colour, in a part of the window.
void RestoreTrough(Widget w, const Rectangle &area);
void ClearArea(Widget w, const Rectangle &area);
void FreeTroughPicture(Widget w);

Pixmap MakePixmap(Widget w, const Rectangle &size, int depth);
void FreePixmap(Widget w, Pixmap &pixmap);
// Nothing, where the box is empty or less.
void FillRectangle(Display *display, Drawable drawable, GC gc, const Rectangle &box);
void DrawRaised(Widget w, Drawable drawable, GC top, GC bottom, const Rectangle &box,
                int thickness);

// Both are made when they are needed first: many a bar is never seen, and few are insensitive.
GC ForegroundGC(Widget w);
GC UnavailableGC(Widget w);
void FreeForegroundGC(Widget w);
void FreeUnavailableGC(Widget w);

// ---- Slider -------------------------------------------------------------------------------------

// Into its pixmap, if there is one.
void DrawSlider(Widget w);
// Computes where the slider stands; with a window, makes its pixmap and draws it.
void GetSliderPixmap(Widget w);
void FreeSliderPixmaps(Widget w);
// To where the slider stands on the window, through its mask if the trough has a picture.
void CopySlider(Widget w);
// Puts the slider where the value is. True if it moved.
bool RedrawSlider(Widget w);
// The same after a change of the range, by which the slider may have got another length.
bool RefitSlider(Widget w);
// Only the coordinate along the bar counts.
void MoveSlider(Widget w, Point place);

// ---- Events -------------------------------------------------------------------------------------

// Key, button and motion events have their place and time at the same offsets. A client that calls an
// action by itself may have no event.
inline Point PointOf(const XEvent *event) {
    return event ? Point{event->xbutton.x, event->xbutton.y} : Point{};
}

inline Time TimeOf(const XEvent *event) {
    return event ? event->xbutton.time : CurrentTime;
}

// ---- Stepping -----------------------------------------------------------------------------------

// The one way out to clients. A client may destroy the bar there, and outside of event dispatching
// that frees it at once: nothing of the bar may be touched afterwards.
void ScrollCallback(Widget w, int reason, Point pointer, XEvent *event);

// By how much the value changes for one of the four reasons of a step.
std::int64_t StepOf(const SvScrollBarPart &bar, int reason);
// One step of the kind that `change_type` says. True if there was a way to go.
bool TakeStep(Widget w);
// Tells of the first step of a press, and starts its repetition. A timer that still runs from the last
// press goes on with this one's step.
void ReportAndRepeat(Widget w);
void EndTimer(SvScrollBarPart &bar);

// ---- Actions ------------------------------------------------------------------------------------

constexpr int num_actions = 9;
extern XtActionsRec actions[num_actions];

void TopOrBottom(Widget w, XEvent *event, String *params, Cardinal *num_params);
void IncrementUpOrLeft(Widget w, XEvent *event, String *params, Cardinal *num_params);
void IncrementDownOrRight(Widget w, XEvent *event, String *params, Cardinal *num_params);
void PageUpOrLeft(Widget w, XEvent *event, String *params, Cardinal *num_params);
void PageDownOrRight(Widget w, XEvent *event, String *params, Cardinal *num_params);

// Lets go of the keyboard, if a press holds it.
void UngrabKeyboard(Widget w, Time time);

inline Boolean &SelectedArrow(SvScrollBarPart &bar, Part arrow) {
    return arrow == Part::Arrow1 ? bar.arrow1_selected : bar.arrow2_selected;
}

// Selects it or not, and draws it so.
void SelectArrow(Widget w, Part arrow, bool selected);

// ---- Navigator ----------------------------------------------------------------------------------

void InstallNavigator(WidgetClass widget_class);

// ---- Resource changes ---------------------------------------------------------------------------

Boolean SetValues(Widget current, Widget request, Widget new_w, ArgList args, Cardinal *num_args);

// The four numbers of a bar that change most; a step of 0 stays as it is.
struct Numbers {
    int value;
    int slider_size;
    int increment;
    int page_increment;
};
void SetNumbers(Widget w, const Numbers &numbers);

} // namespace corvidlmw::scroll_bar
