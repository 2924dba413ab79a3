/* XmRubberBoard: a bulletin board whose children stretch with it.
 *
 * For each child two geometries are recorded, an initial one at one size of the board and a final one
 * at another. At any other size x, y, width and height of the child lie on the straight line through the
 * two, beyond them as well. The client places the children by hand, sets XmNsetInitial, resizes the
 * board, places them again and sets XmNsetFinal; or it gives all numbers by resources. Until both
 * sizes of the board are known, children stand where they ask to.
 *
 * Lengths and coordinates are in pixels.
 */
#ifndef CORVIDLMW_MANAGERS_RUBBERBOARD_H
#define CORVIDLMW_MANAGERS_RUBBERBOARD_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resources ----------------------------------------------------------------------------------- */

/* The sizes of the board at the two recordings (Dimension, 0 until recorded). */
#ifndef XmNinitialParentWidth
#define XmNinitialParentWidth "initialParentWidth"
#endif
#ifndef XmNinitialParentHeight
#define XmNinitialParentHeight "initialParentHeight"
#endif
#ifndef XmNfinalParentWidth
#define XmNfinalParentWidth "finalParentWidth"
#endif
#ifndef XmNfinalParentHeight
#define XmNfinalParentHeight "finalParentHeight"
#endif

/* Booleans. Setting one from False to True records the present geometries, setting it back forgets
 * them; nothing is recorded at creation. To record anew, set it False and True again. */
#ifndef XmNsetInitial
#define XmNsetInitial "setInitial"
#endif
#ifndef XmNsetFinal
#define XmNsetFinal "setFinal"
#endif

/* Of each child: its two geometries (Position, and Dimension of which 0 stands for the present one). */
#ifndef XmNinitialX
#define XmNinitialX "initialX"
#endif
#ifndef XmNinitialY
#define XmNinitialY "initialY"
#endif
#ifndef XmNfinalX
#define XmNfinalX "finalX"
#endif
#ifndef XmNfinalY
#define XmNfinalY "finalY"
#endif
#ifndef XmNinitialWidth
#define XmNinitialWidth "initialWidth"
#endif
#ifndef XmNinitialHeight
#define XmNinitialHeight "initialHeight"
#endif
#ifndef XmNfinalWidth
#define XmNfinalWidth "finalWidth"
#endif
#ifndef XmNfinalHeight
#define XmNfinalHeight "finalHeight"
#endif

#ifndef XmCInitialWidth
#define XmCInitialWidth "InitialWidth"
#endif
#ifndef XmCInitialHeight
#define XmCInitialHeight "InitialHeight"
#endif
#ifndef XmCFinalWidth
#define XmCFinalWidth "FinalWidth"
#endif
#ifndef XmCFinalHeight
#define XmCFinalHeight "FinalHeight"
#endif
#ifndef XmCSetInitial
#define XmCSetInitial "SetInitial"
#endif
#ifndef XmCSetFinal
#define XmCSetFinal "SetFinal"
#endif

/* ---- Class --------------------------------------------------------------------------------------- */

typedef struct _XmRubberBoardClassRec *XmRubberBoardWidgetClass;
typedef struct _XmRubberBoardRec *XmRubberBoardWidget;

CORVIDLMW_EXPORT extern WidgetClass xmRubberBoardWidgetClass;

#define XmIsRubberBoard(w) XtIsSubclass((w), xmRubberBoardWidgetClass)

/* ---- Creation ------------------------------------------------------------------------------------ */

/* Creates an unmanaged board `name` below `parent`, a composite widget, with `num_args` resources from
 * `args` (NULL if `num_args` is 0). Returns it; the parent owns it. */
CORVIDLMW_EXPORT Widget XmCreateRubberBoard(Widget parent, char *name, ArgList args,
                                            Cardinal num_args);

/* The same in a dialog shell of its own, named `name` followed by "_popup", which gets `args` too.
 * Managing the board pops it up, and destroying the board destroys the shell. */
CORVIDLMW_EXPORT Widget XmCreateRubberBoardDialog(Widget parent, char *name, ArgList args,
                                                  Cardinal num_args);

#ifdef __cplusplus
}
#endif

#endif
