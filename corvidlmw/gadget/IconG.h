/* XmvIconGadget: a gadget that shows a text and a picture side by side or one above the other, with a
 * shadow around them and, where it is asked for, a small arrow at the right edge.
 *
 * It passes for one of the toolkit's label gadgets (XmIsLabelGadget), also in an XmRowColumn. Gadgets
 * that look alike share what the cached resources hold, so thousands of them cost little.
 *
 * Its strings, render tables and pixmaps are given and taken as with XmLabelGadget: what is set is
 * copied but for the pixmaps, which stay the client's and must live as long as the gadget shows them;
 * a string from XtGetValues is the caller's to free. All functions belong to the toolkit's thread.
 */
#ifndef CORVIDLMW_GADGET_ICONG_H
#define CORVIDLMW_GADGET_ICONG_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names, classes and representation types ------------------------------------ */

#ifndef XmNdefaultActionCallback
#define XmNdefaultActionCallback "defaultActionCallback"
#endif
#ifndef XmNshadowThickness
#define XmNshadowThickness "shadowThickness"
#endif
#ifndef XmNshadowType
#define XmNshadowType "shadowType"
#endif
#ifndef XmNlabelPixmap
#define XmNlabelPixmap "labelPixmap"
#endif
#ifndef XmNlabelInsensitivePixmap
#define XmNlabelInsensitivePixmap "labelInsensitivePixmap"
#endif
#ifndef XmNlabelBitmap
#define XmNlabelBitmap "labelBitmap"
#endif
#ifndef XmNlabelInsensitiveBitmap
#define XmNlabelInsensitiveBitmap "labelInsensitiveBitmap"
#endif
#ifndef XmNlabelString
#define XmNlabelString "labelString"
#endif
#ifndef XmNfontList
#define XmNfontList "fontList"
#endif
#ifndef XmNtraversalOn
#define XmNtraversalOn "traversalOn"
#endif
#ifndef XmNhighlightThickness
#define XmNhighlightThickness "highlightThickness"
#endif
#ifndef XmNtopShadowColor
#define XmNtopShadowColor "topShadowColor"
#endif
#ifndef XmNbottomShadowColor
#define XmNbottomShadowColor "bottomShadowColor"
#endif
#ifndef XmNiconPlacement
#define XmNiconPlacement "iconPlacement"
#endif
#ifndef XmNforeground
#define XmNforeground "foreground"
#endif
#ifndef XmNbackground
#define XmNbackground "background"
#endif
#ifndef XmNalignment
#define XmNalignment "alignment"
#endif
#ifndef XmNmarginWidth
#define XmNmarginWidth "marginWidth"
#endif
#ifndef XmNmarginHeight
#define XmNmarginHeight "marginHeight"
#endif
#ifndef XmNmarginLeft
#define XmNmarginLeft "marginLeft"
#endif
#ifndef XmNmarginRight
#define XmNmarginRight "marginRight"
#endif
#ifndef XmNmarginTop
#define XmNmarginTop "marginTop"
#endif
#ifndef XmNmarginBottom
#define XmNmarginBottom "marginBottom"
#endif
#ifndef XmNmarginMiddle
#define XmNmarginMiddle "marginMiddle"
#endif
#ifndef XmNrecomputeSize
#define XmNrecomputeSize "recomputeSize"
#endif
#ifndef XmNshowArrow
#define XmNshowArrow "showArrow"
#endif
#ifndef XmNstringDirection
#define XmNstringDirection "stringDirection"
#endif
#ifndef XmCCallback
#define XmCCallback "Callback"
#endif
#ifndef XmCShadowThickness
#define XmCShadowThickness "ShadowThickness"
#endif
#ifndef XmCShadowType
#define XmCShadowType "ShadowType"
#endif
#ifndef XmCLabelPixmap
#define XmCLabelPixmap "LabelPixmap"
#endif
#ifndef XmCLabelInsensitivePixmap
#define XmCLabelInsensitivePixmap "LabelInsensitivePixmap"
#endif
#ifndef XmCLabelBitmap
#define XmCLabelBitmap "LabelBitmap"
#endif
#ifndef XmCLabelInsensitiveBitmap
#define XmCLabelInsensitiveBitmap "LabelInsensitiveBitmap"
#endif
#ifndef XmCXmString
#define XmCXmString "XmString"
#endif
#ifndef XmCFontList
#define XmCFontList "FontList"
#endif
#ifndef XmCTraversalOn
#define XmCTraversalOn "TraversalOn"
#endif
#ifndef XmCHighlightThickness
#define XmCHighlightThickness "HighlightThickness"
#endif
#ifndef XmCIconPlacement
#define XmCIconPlacement "IconPlacement"
#endif
#ifndef XmCForeground
#define XmCForeground "Foreground"
#endif
#ifndef XmCBackground
#define XmCBackground "Background"
#endif
#ifndef XmCAlignment
#define XmCAlignment "Alignment"
#endif
#ifndef XmCMarginWidth
#define XmCMarginWidth "MarginWidth"
#endif
#ifndef XmCMarginHeight
#define XmCMarginHeight "MarginHeight"
#endif
#ifndef XmCMarginLeft
#define XmCMarginLeft "MarginLeft"
#endif
#ifndef XmCMarginRight
#define XmCMarginRight "MarginRight"
#endif
#ifndef XmCMarginTop
#define XmCMarginTop "MarginTop"
#endif
#ifndef XmCMarginBottom
#define XmCMarginBottom "MarginBottom"
#endif
#ifndef XmCMarginMiddle
#define XmCMarginMiddle "MarginMiddle"
#endif
#ifndef XmCRecomputeSize
#define XmCRecomputeSize "RecomputeSize"
#endif
#ifndef XmCShowArrow
#define XmCShowArrow "ShowArrow"
#endif
#ifndef XmCStringDirection
#define XmCStringDirection "StringDirection"
#endif
#ifndef XmRIconPlacement
#define XmRIconPlacement "IconPlacement"
#endif
#ifndef XmRShadowType
#define XmRShadowType "ShadowType"
#endif
#ifndef XmRGadgetPixmap
#define XmRGadgetPixmap "GadgetPixmap"
#endif
#ifndef XmRXmString
#define XmRXmString "XmString"
#endif
#ifndef XmRFontList
#define XmRFontList "FontList"
#endif
#ifndef XmRAlignment
#define XmRAlignment "Alignment"
#endif
#ifndef XmRStringDirection
#define XmRStringDirection "StringDirection"
#endif

/* Values of XmNiconPlacement (an int): where the picture is, seen from the text. */
enum { XmICON_TOP, XmICON_BOTTOM, XmICON_LEFT, XmICON_RIGHT };

/* A further value of XmNshadowType beside those of the toolkit: a shadow that the gadget throws to
 * the right and down. */
#ifndef XmSHADOW_DROP
#define XmSHADOW_DROP 11
#endif

/* ---- Class ---------------------------------------------------------------------------------- */

typedef struct _XmvIconGadgetClassRec *XmvIconGadgetClass;
typedef struct _XmvIconGadgetRec *XmvIconGadget;

CORVIDLMW_EXPORT extern WidgetClass xmvIconGadgetClass;

#define XmvIsIconGadget(w) XtIsSubclass((w), xmvIconGadgetClass)

/* ---- Functions ------------------------------------------------------------------------------ */

/* Creates an unmanaged icon gadget `name` in `parent`, a manager, with `argcount` resources from
 * `args` (NULL if `argcount` is 0). A resource that is out of range is put right, with a warning. */
CORVIDLMW_EXPORT Widget XmvCreateIconGadget(Widget parent, char *name, ArgList args,
                                            Cardinal argcount);

/* Where the baselines of the text's lines are, counted from the parent's upper edge in pixels. Stores
 * an array of `*line_count` of them in `*baselines`, which the caller frees with XtFree. Stores
 * nothing and returns False where there is no text to walk through, and for anything but an icon
 * gadget. */
CORVIDLMW_EXPORT Boolean XmvIconGadgetGetBaselines(Widget w, Dimension **baselines,
                                                   int *line_count);

/* Stores the rectangle of the text alone, in the parent's coordinates, and returns True. False for
 * anything but an icon gadget. */
CORVIDLMW_EXPORT Boolean XmvIconGadgetGetDisplayRect(Widget w, XRectangle *rect);

#ifdef __cplusplus
}
#endif

#endif
