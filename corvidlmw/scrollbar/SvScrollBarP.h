/* Records and class record of SvScrollBar. */
#ifndef CORVIDLMW_SCROLLBAR_SVSCROLLBARP_H
#define CORVIDLMW_SCROLLBAR_SVSCROLLBARP_H

#include <corvidlmw/scrollbar/SvScrollBar.h>

#include <Xm/PrimitiveP.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Bits of `flags`. */
enum {
    SV_FIRST_SCROLL = 1, /* the timer has not fired since the press */
    SV_VALUE_SET = 2,    /* `value` was set in this XtSetValues */
    SV_END_TIMER = 4,    /* the press ended: the timer stops when it fires next */
    SV_ARROW1_AVAILABLE = 8,
    SV_ARROW2_AVAILABLE = 16,
    SV_SLIDER_AVAILABLE = 32, /* the slider is smaller than the range: the bar reacts */
    SV_KEYBOARD_GRABBED = 64,
    SV_PICTURE_ASKED = 128 /* troughPixmapCallback is running */
};

/* The toolkit reads a scroll bar's record in its scrolled windows, so the fields up to the delays lie
 * where XmScrollBar has them.
 *
 * `value` always counts from the top or left. Where processing_direction is XmMAX_ON_TOP or
 * XmMAX_ON_LEFT the value that the client sees counts from the other end: it is
 * maximum + minimum - value - slider_size. */
typedef struct {
    int value;
    int minimum;
    int maximum;
    int slider_size;
    unsigned char orientation;
    unsigned char processing_direction;
    Boolean show_arrows;
    int increment;
    int page_increment;
    int initial_delay; /* milliseconds */
    int repeat_delay;
    XtCallbackList value_changed_callback;
    XtCallbackList increment_callback;
    XtCallbackList decrement_callback;
    XtCallbackList page_increment_callback;
    XtCallbackList page_decrement_callback;
    XtCallbackList to_top_callback;
    XtCallbackList to_bottom_callback;
    XtCallbackList drag_callback;
    GC foreground_gc; /* paints in the background colour */
    Pixel trough_color;
    Pixmap slider_pixmap; /* None when it has to be built */
    Boolean sliding_on;   /* a drag is under way */
    Boolean etched_slider;
    int saved_value; /* at the start of a press */
    unsigned char flags;
    unsigned char change_type;        /* callback reason of the repeating press */
    XtIntervalId timer;               /* 0 if none */
    short initial_x, initial_y;       /* of the slider at the last step of a drag */
    short separation_x, separation_y; /* from the slider's corner to the pointer, in a drag */
    short slider_x, slider_y, slider_width, slider_height;
    short slider_area_x, slider_area_y, slider_area_width, slider_area_height;
    short arrow1_x, arrow1_y; /* the upper or left arrow */
    unsigned char arrow1_orientation;
    Boolean arrow1_selected; /* drawn pressed */
    short arrow2_x, arrow2_y;
    unsigned char arrow2_orientation;
    Boolean arrow2_selected;
    short arrow_width, arrow_height;
    GC unavailable_gc; /* stipples an insensitive bar */
    XtCallbackList trough_pixmap_callback;
    Pixmap trough_pixmap; /* None if there is none */
    Pixmap slider_mask;   /* of depth 1 and the slider's size; None masks nothing */
    XtPointer internal;
} SvScrollBarPart;

typedef struct _SvScrollBarRec {
    CorePart core;
    XmPrimitivePart primitive;
    SvScrollBarPart scroll_bar;
} SvScrollBarRec;

typedef struct {
    XtPointer extension;
} SvScrollBarClassPart;

typedef struct _SvScrollBarClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    SvScrollBarClassPart scroll_bar_class;
} SvScrollBarClassRec;

CORVIDLMW_EXPORT extern SvScrollBarClassRec svScrollBarClassRec;

/* ---- Internal functions that are exported -------------------------------------------------- */

/* From the slider's next drawing on, such as the next exposure, two lines are etched across its
 * middle. There is no way back. Anything but an SvScrollBar is left alone. */
CORVIDLMW_EXPORT void _SvSetEtchedSlider(Widget w);

#ifdef __cplusplus
}
#endif

#endif
