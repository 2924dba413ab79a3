/* Records and class record of XmvIconGadget. */
#ifndef CORVIDLMW_GADGET_ICONGP_H
#define CORVIDLMW_GADGET_ICONGP_H

#include <corvidlmw/gadget/IconG.h>

#include <Xm/ExtObjectP.h>
#include <Xm/LabelGP.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- The shared part ------------------------------------------------------------------------ */

/* Shared by all gadgets that are equal in it: never written through the pointer of a gadget. */
typedef struct {
    unsigned char alignment;
    unsigned char string_direction;
    Dimension margin_height, margin_width;
    Dimension margin_left, margin_right, margin_top, margin_bottom;
    Dimension margin_middle; /* between text and picture */
    Pixel foreground, background, top_shadow_color, bottom_shadow_color;
    Boolean recompute_size;
    Boolean skip_callback;
    unsigned char menu_type; /* XmNrowColumnType of the parent, XmWORK_AREA without one */
    Boolean show_arrow;
    int icon_placement;
} XmvIconGCacheObjPart;

typedef struct _XmvIconGCacheObjRec {
    ObjectPart object;
    XmExtPart ext;
    XmvIconGCacheObjPart icon_cache;
} XmvIconGCacheObjRec;

typedef struct {
    XtPointer extension;
} XmvIconGCacheObjClassPart;

typedef struct _XmvIconGCacheObjClassRec {
    ObjectClassPart object_class;
    XmExtClassPart ext_class;
    XmvIconGCacheObjClassPart icon_class_cache;
} XmvIconGCacheObjClassRec;

CORVIDLMW_EXPORT extern XmvIconGCacheObjClassRec xmvIconGCacheObjClassRec;

/* ---- The gadget ----------------------------------------------------------------------------- */

typedef struct {
    _XmString label_string;
    XmFontList font_list;
    Pixmap label_bitmap; /* unless it is XmUNSPECIFIED_PIXMAP, the picture is copied as a bitmap */
    Pixmap label_insensitive_bitmap;
    Pixmap label_pixmap; /* the picture */
    Pixmap label_insensitive_pixmap;
    unsigned char shadow_type;
    XtCallbackList default_action_callback;
    GC normal_gc;
    GC top_shadow_gc;
    GC bottom_shadow_gc;
    GC insensitive_gc;
    GC background_gc;        /* erases the gadget */
    Position text_x, text_y; /* from the gadget's corner, as those of the picture */
    Dimension text_width, text_height;
    Position pixmap_x, pixmap_y;
    Dimension pixmap_width, pixmap_height;
    Pixmap arrow_pixmap; /* XmUNSPECIFIED_PIXMAP until it is needed */
    int arrow_width, arrow_height;
    XmvIconGCacheObjPart *cache;
} XmvIconGadgetPart;

/* `label` is what the toolkit reads and writes where it takes the gadget for one of its label gadgets.
 * It mirrors what `icon` and the shared part hold; its string, render table and pixmaps are those of
 * `icon`. */
typedef struct _XmvIconGadgetRec {
    ObjectPart object;
    RectObjPart rectangle;
    XmGadgetPart gadget;
    XmLabelGadgetPart label;
    XmvIconGadgetPart icon;
} XmvIconGadgetRec;

/* A subclass may inherit this, XtInheritResize and XmInheritCachePart. */
#define XmvInheritSetOverrideCallback ((XtWidgetProc)_XtInherit)

typedef struct {
    XtWidgetProc setOverrideCallback;
    XmMenuProc menuProcs; /* NULL until the toolkit has the procedure and a gadget was made */
} XmvIconGadgetClassPart;

typedef struct _XmvIconGadgetClassRec {
    RectObjClassPart rect_class;
    XmGadgetClassPart gadget_class;
    XmvIconGadgetClassPart icon_class;
} XmvIconGadgetClassRec;

CORVIDLMW_EXPORT extern XmvIconGadgetClassRec xmvIconGadgetClassRec;

/* ---- Internal functions that are exported --------------------------------------------------- */

/* For all of these `w` is an icon gadget; anything else is left alone. */

/* Measures text and picture anew. The place of either stays until the gadget is resized. */
CORVIDLMW_EXPORT void _XmCalcIconGDimensions(Widget w);

/* Whether two XmvIconGCacheObjPart are shared as one: 1 or 0. The colours of the shadow are not
 * compared. */
CORVIDLMW_EXPORT int _XmvIconCacheCompare(XtPointer a, XtPointer b);

/* Set one margin, in pixels, in a copy of the gadget's shared part, and return it. There is one such
 * copy for all gadgets: finish with _XmReCacheIconG before going on to another gadget. */
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginHeight(Widget w, Dimension value);
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginWidth(Widget w, Dimension value);
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginLeft(Widget w, Dimension value);
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginRight(Widget w, Dimension value);
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginTop(Widget w, Dimension value);
CORVIDLMW_EXPORT Dimension _XmAssignIconG_MarginBottom(Widget w, Dimension value);

/* Gives the gadget what was assigned; without an open copy it does nothing. Neither size nor places
 * change by it. */
CORVIDLMW_EXPORT void _XmReCacheIconG(Widget w);

/* The converter from a string to XmNiconPlacement, registered with the class. */
CORVIDLMW_EXPORT void _XmCvtStringToIconPlacement(XrmValue *args, Cardinal *num_args,
                                                  XrmValue *from, XrmValue *to);

#ifdef __cplusplus
}
#endif

#endif
