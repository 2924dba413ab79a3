/* XmSpringBox: a manager that lines its children up in one row or column and shares the spare room
 * among them by springs.
 *
 * Each child has a spring on each of its sides and one inside of it in each direction. A spring is
 * a weight without a unit: the spare room along the box goes to all springs along it, in proportion.
 * Side springs push children apart, inner springs stretch them; across the box each child's own three
 * springs place it. By default, with side springs of 50 and no inner ones, children keep the size that
 * they prefer and the room is spread around them. Where room is missing, children with inner springs
 * give it up first.
 *
 * With XmNresizePolicy XmRESIZE_NONE children without inner springs are never made smaller than they
 * prefer.
 */
#ifndef CORVIDLMW_MANAGERS_SPRINGBOX_H
#define CORVIDLMW_MANAGERS_SPRINGBOX_H

#include <corvidlmw/toolkit/Export.h>

#include <Xm/Xm.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Resources ----------------------------------------------------------------------------------- */

/* Of the box: XmNorientation (XmHORIZONTAL, the default, or XmVERTICAL), XmNmarginWidth and
 * XmNmarginHeight (0), and the least gap between two children, a Dimension in pixels (2). */
#ifndef XmNminSpacing
#define XmNminSpacing "minSpacing"
#endif

/* Of each child, as an int: the springs on its sides (50) and inside of it (0). */
#ifndef XmNleftSpring
#define XmNleftSpring "leftSpring"
#endif
#ifndef XmNrightSpring
#define XmNrightSpring "rightSpring"
#endif
#ifndef XmNtopSpring
#define XmNtopSpring "topSpring"
#endif
#ifndef XmNbottomSpring
#define XmNbottomSpring "bottomSpring"
#endif
#ifndef XmNverticalSpring
#define XmNverticalSpring "verticalSpring"
#endif
#ifndef XmNhorizontalSpring
#define XmNhorizontalSpring "horizontalSpring"
#endif
#ifndef XmCSpring
#define XmCSpring "Spring"
#endif

/* ---- Class --------------------------------------------------------------------------------------- */

typedef struct _XmSpringBoxClassRec *XmSpringBoxWidgetClass;
typedef struct _XmSpringBoxRec *XmSpringBoxWidget;

CORVIDLMW_EXPORT extern WidgetClass xmSpringBoxWidgetClass;

#define XmIsSpringBox(w) XtIsSubclass((w), xmSpringBoxWidgetClass)

/* ---- Creation ------------------------------------------------------------------------------------ */

/* Creates an unmanaged box `name` below `parent`, a composite widget, with `num_args` resources from
 * `args` (NULL if `num_args` is 0). Returns it; the parent owns it. */
CORVIDLMW_EXPORT Widget XmCreateSpringBox(Widget parent, char *name, ArgList args,
                                          Cardinal num_args);

/* The same in a dialog shell of its own, named `name` followed by "_popup", which gets `args` too.
 * Managing the box pops it up, and destroying the box destroys the shell. */
CORVIDLMW_EXPORT Widget XmCreateSpringBoxDialog(Widget parent, char *name, ArgList args,
                                                Cardinal num_args);

#ifdef __cplusplus
}
#endif

#endif
