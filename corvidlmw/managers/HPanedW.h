/* XmHorzPanedWindow: a manager that lays its children out side by side, with sashes between them.
 *
 * Each pane is as tall as the window. Between two panes stand a separator and a sash; dragging the sash,
 * or moving it by the arrow keys, shifts width from one pane to its neighbours, within the limits of
 * each. It is XmPanedWindow lying on its side, and XmIsPanedWindow is true of it.
 *
 * All managed children are panes, from left to right in the order of their creation, or of
 * XmNpositionIndex. The window makes the sashes and separators by itself, as further children behind the
 * panes in XmNchildren, and they go with their panes.
 */
#ifndef CORVIDLMW_MANAGERS_HPANEDW_H
#define CORVIDLMW_MANAGERS_HPANEDW_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resources ----------------------------------------------------------------------------------- */

/* Of the window those of XmPanedWindow: XmNmarginWidth, XmNmarginHeight (3), XmNspacing (8, between two
 * panes), XmNrefigureMode (True; while it is False nothing is laid out), XmNseparatorOn (True),
 * XmNsashIndent (-10: a y, or if it is not above 0, a distance from the lower edge), XmNsashWidth,
 * XmNsashHeight (10), XmNsashShadowThickness (2), and a Position in pixels that is added to the x of
 * each sash (0). */
#ifndef XmNsashOffset
#define XmNsashOffset "sashOffset"
#endif
#ifndef XmCSashOffset
#define XmCSashOffset "SashOffset"
#endif

/* Of each pane, also as in XmPanedWindow: XmNallowResize (False: the pane's own requests are refused),
 * XmNpaneMinimum (1) and XmNpaneMaximum (1000) of its width, where equal ones fix the width and leave the
 * pane without a sash, XmNskipAdjust (False), and XmNpositionIndex (XmLAST_POSITION). */

/* ---- Class --------------------------------------------------------------------------------------- */

typedef struct _XmHorzPanedWindowClassRec *XmHorzPanedWindowWidgetClass;
typedef struct _XmHorzPanedWindowRec *XmHorzPanedWindowWidget;

CORVIDLMW_EXPORT extern WidgetClass xmHorzPanedWindowWidgetClass;

#define XmIsHorzPanedWindow(w) XtIsSubclass((w), xmHorzPanedWindowWidgetClass)

/* ---- Creation ------------------------------------------------------------------------------------ */

/* Creates an unmanaged window `name` below `parent`, a composite widget, with `num_args` resources from
 * `args` (NULL if `num_args` is 0). Returns it; the parent owns it. */
CORVIDLMW_EXPORT Widget XmCreateHorzPanedWindow(Widget parent, char *name, ArgList args,
                                                Cardinal num_args);

#ifdef __cplusplus
}
#endif

#endif
