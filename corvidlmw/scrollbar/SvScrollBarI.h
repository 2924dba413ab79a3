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

void Resize(Widget w);
void Redisplay(Widget w, XEvent *event, Region region);
// Puts the slider where the value is. True if it moved.
bool RedrawSlider(Widget w);
// The same after a change of the range, by which the slider may have got another length.
bool RefitSlider(Widget w);
// Only the coordinate along the bar counts.
void MoveSlider(Widget w, Point place);
// Plain or pressed, as it is selected.
void DrawArrow(Widget w, Part arrow);
void FreeSliderPixmaps(Widget w);
void FreeTroughPicture(Widget w);

void BuildForegroundGC(Widget w);
void BuildUnavailableGC(Widget w);
void FreeGCs(Widget w);

// ---- Interaction --------------------------------------------------------------------------------

constexpr int num_actions = 9;
extern XtActionsRec actions[num_actions];

// The one way out to clients. A client may destroy the bar there, and outside of event dispatching
// that frees it at once: nothing of the bar may be touched afterwards.
void ScrollCallback(Widget w, int reason, Point pointer, XEvent *event);

// ---- Navigator ----------------------------------------------------------------------------------

void InstallNavigator(WidgetClass widget_class);

// ---- Life ---------------------------------------------------------------------------------------

// Tells whether a widget was freed since, where a client is called and the widget needed afterwards.
class LifeWatch {
public:
    explicit LifeWatch(Widget w) : widget_(w) {
        XtAddCallback(w, XmNdestroyCallback, NoteDeath, this);
    }
    ~LifeWatch() {
        if (widget_) {
            XtRemoveCallback(widget_, XmNdestroyCallback, NoteDeath, this);
        }
    }
    LifeWatch(const LifeWatch &) = delete;
    LifeWatch &operator=(const LifeWatch &) = delete;

    bool Ended() const { return !widget_; }

private:
    static void NoteDeath(Widget, XtPointer watch, XtPointer) {
        static_cast<LifeWatch *>(watch)->widget_ = nullptr;
    }

    Widget widget_;
};

} // namespace corvidlmw::scroll_bar
