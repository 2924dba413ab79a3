/* Records and class record of LmList, for subclasses and for the other sources of the library.
 *
 * Rows are counted from 0 here and from 1 in every public function and resource. */
#ifndef CORVIDLMW_LIST_LMLISTP_H
#define CORVIDLMW_LIST_LMLISTP_H

#include <corvidlmw/list/LmList.h>

#include <Xm/PrimitiveP.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Constants ----------------------------------------------------------------------------------- */

/* Bits of `event_flags`. */
enum { EVENT_BUTTON_DOWN = 1, EVENT_SHIFT = 2, EVENT_CTRL = 4 };

/* Bits of `leave_direction`. */
enum { LEAVE_TOP = 1, LEAVE_BOTTOM = 2, LEAVE_LEFT = 4, LEAVE_RIGHT = 8 };

/* ---- Rows ---------------------------------------------------------------------------------------- */

/* All rows are equally tall: the tallest decides. */
typedef struct {
    XmString name;               /* what the toolkit's drawing takes; shares the item's storage */
    Dimension height;            /* of the text or the icon, whichever is taller */
    Dimension width;             /* of the text, in the list's fonts */
    Dimension cumulative_height; /* down to this row's end, modulo 65536: only differences count */
    Boolean selected;
    Boolean last_selected;  /* before the gesture that is under way */
    Boolean drawn_selected; /* as the window shows it */
    unsigned short line_count;
    int length; /* of the item, in bytes */
    GC gc;      /* the row's own look; NULL without one */
    XmFontList font_list;
    Pixmap icon; /* the client's; None and XmUNSPECIFIED_PIXMAP are no icon */
    short icon_width;
    short icon_height;
    short indent;
} LmListElement;

/* ---- Instance ------------------------------------------------------------------------------------ */

typedef struct {
    Dimension list_spacing;
    Dimension list_margin_width;
    Dimension list_margin_height;
    XmFontList font_list; /* owned, as the arrays are */
    XmString *items;      /* NULL without rows */
    int item_count;
    XmString *selected_items;
    int *selected_positions; /* from 1 */
    int selected_item_count;
    int visible_item_count;     /* how many rows fit */
    int last_set_visible_count; /* what the client asked for last */
    unsigned char selection_policy;
    unsigned char scroll_bar_display_policy;
    unsigned char list_size_policy;
    XmStringDirection string_direction;
    Boolean automatic_selection;
    Boolean did_selection;
    Boolean in_scroll_update;
    Boolean in_set_new_size;
    Boolean add_mode;
    unsigned char leave_direction;
    unsigned char row_highlight; /* highlightThickness and 1, or 0 */
    int double_click_interval;   /* milliseconds */
    XtIntervalId drag_timer;     /* 0 if none */
    XtCallbackList single_selection_callback;
    XtCallbackList multiple_selection_callback;
    XtCallbackList extended_selection_callback;
    XtCallbackList browse_selection_callback;
    XtCallbackList default_action_callback;
    GC normal_gc;
    GC inverse_gc; /* nothing draws with this one, nor with insensitive_gc */
    GC highlight_gc;
    LmListElement **elements;
    int element_count;
    int top_item_position;
    char event_flags;
    int last_highlighted;
    int start_item;
    int old_start_item;
    int end_item;
    int old_end_item;
    Position base_x; /* where rows begin */
    Position base_y;
    Boolean mouse_moved;
    Boolean append_in_progress;
    Boolean traversing; /* has the keyboard and shows the location cursor */
    Boolean keyboard_selection;
    short down_count;
    Time down_time;
    int current_keyboard_item; /* the location cursor; can be -1 or past the end */
    unsigned char selection_type;
    GC insensitive_gc;
    int vertical_maximum; /* what the bars were given */
    int vertical_origin;
    int vertical_extent;
    int horizontal_minimum;
    int horizontal_maximum;
    int horizontal_origin;
    int horizontal_extent;
    Dimension max_width; /* of a row with its icon and indent */
    Position x_origin;
    Widget horizontal_scroll_bar;
    Widget vertical_scroll_bar;
    Widget scrolled_window; /* NULL where the list does not scroll through its parent */
    Dimension max_item_height;
    Boolean show_icons;
    Boolean update;
    short icon_column_width;
    int armed_item;
    int *field_widths;
    int field_count;
    int current_field; /* -1 if none */
    Pixel arm_color;
    Dimension field_margin;
    Dimension item_spacing;
    XtCallbackList activate_callback;
    XtCallbackList disarm_callback;
    XtCallbackList arm_callback;
    XtCallbackList field_changed_callback;
    GC arm_gc;
    GC icon_gc;
    Boolean indent_icons;
    Dimension default_icon_width;

    XtPointer internal; /* the library's own */
} LmListPart;

typedef struct _LmListRec {
    CorePart core;
    XmPrimitivePart primitive;
    LmListPart list;
} LmListRec;

/* ---- Class ----------------------------------------------------------------------------------------- */

typedef struct {
    XtPointer extension;
} LmListClassPart;

typedef struct _LmListClassRec {
    CoreClassPart core_class;
    XmPrimitiveClassPart primitive_class;
    LmListClassPart list_class;
} LmListClassRec;

CORVIDLMW_EXPORT extern LmListClassRec lmListClassRec;

#ifdef __cplusplus
}
#endif

#endif
