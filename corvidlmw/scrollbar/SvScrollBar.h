/* SvScrollBar: a scroll bar with a picture in its trough.
 *
 * It takes the place of the toolkit's XmScrollBar wherever that is used, as in an XmScrolledWindow
 * whose scrolling policy is XmAPPLICATION_DEFINED: the same resources, callbacks with
 * XmScrollBarCallbackStruct, actions, translations and warnings. Beyond that, a client that adds
 * XmNtroughPixmapCallback draws a picture into the trough, such as the places of what was searched for;
 * the slider then is a hollow frame through which the picture shows.
 *
 * Called for a widget of another class, a function here does nothing. All functions belong to the
 * toolkit's thread. Lengths are in pixels, delays in milliseconds.
 */
#ifndef CORVIDLMW_SCROLLBAR_SVSCROLLBAR_H
#define CORVIDLMW_SCROLLBAR_SVSCROLLBAR_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resource names, classes and representation types ------------------------------------ */

#ifndef XmNnavigationType
#define XmNnavigationType "navigationType"
#endif
#ifndef XmNforeground
#define XmNforeground "foreground"
#endif
#ifndef XmNbackground
#define XmNbackground "background"
#endif
#ifndef XmNtroughColor
#define XmNtroughColor "troughColor"
#endif
#ifndef XmNvalue
#define XmNvalue "value"
#endif
#ifndef XmNminimum
#define XmNminimum "minimum"
#endif
#ifndef XmNmaximum
#define XmNmaximum "maximum"
#endif
#ifndef XmNsliderSize
#define XmNsliderSize "sliderSize"
#endif
#ifndef XmNshowArrows
#define XmNshowArrows "showArrows"
#endif
#ifndef XmNorientation
#define XmNorientation "orientation"
#endif
#ifndef XmNprocessingDirection
#define XmNprocessingDirection "processingDirection"
#endif
#ifndef XmNincrement
#define XmNincrement "increment"
#endif
#ifndef XmNpageIncrement
#define XmNpageIncrement "pageIncrement"
#endif
#ifndef XmNinitialDelay
#define XmNinitialDelay "initialDelay"
#endif
#ifndef XmNrepeatDelay
#define XmNrepeatDelay "repeatDelay"
#endif
#ifndef XmNvalueChangedCallback
#define XmNvalueChangedCallback "valueChangedCallback"
#endif
#ifndef XmNincrementCallback
#define XmNincrementCallback "incrementCallback"
#endif
#ifndef XmNdecrementCallback
#define XmNdecrementCallback "decrementCallback"
#endif
#ifndef XmNpageIncrementCallback
#define XmNpageIncrementCallback "pageIncrementCallback"
#endif
#ifndef XmNpageDecrementCallback
#define XmNpageDecrementCallback "pageDecrementCallback"
#endif
#ifndef XmNtoTopCallback
#define XmNtoTopCallback "toTopCallback"
#endif
#ifndef XmNtoBottomCallback
#define XmNtoBottomCallback "toBottomCallback"
#endif
#ifndef XmNdragCallback
#define XmNdragCallback "dragCallback"
#endif
#ifndef XmNtraversalOn
#define XmNtraversalOn "traversalOn"
#endif
#ifndef XmNhighlightThickness
#define XmNhighlightThickness "highlightThickness"
#endif
#ifndef XmNtroughPixmapCallback
#define XmNtroughPixmapCallback "troughPixmapCallback"
#endif
#ifndef XmCNavigationType
#define XmCNavigationType "NavigationType"
#endif
#ifndef XmCForeground
#define XmCForeground "Foreground"
#endif
#ifndef XmCBackground
#define XmCBackground "Background"
#endif
#ifndef XmCTroughColor
#define XmCTroughColor "TroughColor"
#endif
#ifndef XmCValue
#define XmCValue "Value"
#endif
#ifndef XmCMinimum
#define XmCMinimum "Minimum"
#endif
#ifndef XmCMaximum
#define XmCMaximum "Maximum"
#endif
#ifndef XmCSliderSize
#define XmCSliderSize "SliderSize"
#endif
#ifndef XmCShowArrows
#define XmCShowArrows "ShowArrows"
#endif
#ifndef XmCOrientation
#define XmCOrientation "Orientation"
#endif
#ifndef XmCProcessingDirection
#define XmCProcessingDirection "ProcessingDirection"
#endif
#ifndef XmCIncrement
#define XmCIncrement "Increment"
#endif
#ifndef XmCPageIncrement
#define XmCPageIncrement "PageIncrement"
#endif
#ifndef XmCInitialDelay
#define XmCInitialDelay "InitialDelay"
#endif
#ifndef XmCRepeatDelay
#define XmCRepeatDelay "RepeatDelay"
#endif
#ifndef XmCCallback
#define XmCCallback "Callback"
#endif
#ifndef XmCTraversalOn
#define XmCTraversalOn "TraversalOn"
#endif
#ifndef XmCHighlightThickness
#define XmCHighlightThickness "HighlightThickness"
#endif
#ifndef XmRNavigationType
#define XmRNavigationType "NavigationType"
#endif
#ifndef XmROrientation
#define XmROrientation "Orientation"
#endif
#ifndef XmRProcessingDirection
#define XmRProcessingDirection "ProcessingDirection"
#endif

/* ---- Trough picture ------------------------------------------------------------------------ */

#define SvCR_TROUGH_PIXMAP 99

/* The call data of XmNtroughPixmapCallback. The list runs when the bar is resized, when it is drawn
 * without having a picture, and from SvScrollBarRedisplay. Within it, no further picture is asked
 * for. */
typedef struct {
    int reason;    /* SvCR_TROUGH_PIXMAP */
    XEvent *event; /* the exposure; NULL after a resize and from SvScrollBarRedisplay */
    int width;     /* of the trough */
    int height;
    int depth;
    int maximum; /* the resource */
    /* As large as the trough and filled with XmNtroughColor; the client draws on it. It may store
     * another pixmap of that depth here, or None for a bar without a picture, and then the one that
     * stood here is the client's to free. The bar frees what stands here at the end. */
    Pixmap pixmap;
} SvTroughPixmapCallbackStruct;

/* ---- Class ---------------------------------------------------------------------------------- */

typedef struct _SvScrollBarClassRec *SvScrollBarWidgetClass;
typedef struct _SvScrollBarRec *SvScrollBarWidget;

CORVIDLMW_EXPORT extern WidgetClass svScrollBarWidgetClass;

#define SvIsScrollBar(w) XtIsSubclass((w), svScrollBarWidgetClass)

/* ---- Functions ------------------------------------------------------------------------------ */

/* Creates an unmanaged scroll bar `name` in `parent`, with `argcount` resources from `args` (NULL if
 * `argcount` is 0). A resource that is out of range is put right, with a warning. */
CORVIDLMW_EXPORT Widget SvCreateScrollBar(Widget parent, char *name, ArgList args,
                                          Cardinal argcount);

/* Called for a widget of another class, or NULL, the following do nothing. */

/* Stores XmNvalue, XmNsliderSize, XmNincrement and XmNpageIncrement. A NULL pointer is left out. */
CORVIDLMW_EXPORT void SvScrollBarGetValues(Widget w, int *value, int *slider_size, int *increment,
                                           int *page_increment);

/* Sets the four at once; an `increment` or a `page_increment` of 0 stays as it is. What is out of
 * range is put right, with a warning. With `notify` and another value than before,
 * XmNvalueChangedCallback is called, with a NULL event. */
CORVIDLMW_EXPORT void SvScrollBarSetValues(Widget w, int value, int slider_size, int increment,
                                           int page_increment, Boolean notify);

/* Discards the trough's picture, asks XmNtroughPixmapCallback for a new one, and paints the bar if it
 * has a window: for a client that has something else to show there. */
CORVIDLMW_EXPORT void SvScrollBarRedisplay(Widget w);

#ifdef __cplusplus
}
#endif

#endif
