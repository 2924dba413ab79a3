/* Menus whose texts and keys stand in the resource file. */
#ifndef GUIDE_COMMANDS_H
#define GUIDE_COMMANDS_H

#include <Xm/Xm.h>

typedef struct {
    char *name;
    XtCallbackProc chosen;
    XtPointer closure;
} Command;

/* Adds a menu to a menu bar. */
void AddMenu(Widget bar, char *name, const Command *commands, int count);

/* Callbacks for a graph: the closure is the graph. */
void ZoomIn(Widget item, XtPointer graph, XtPointer call_data);
void ZoomOut(Widget item, XtPointer graph, XtPointer call_data);
void Turn(Widget item, XtPointer graph, XtPointer call_data);
void Print(Widget item, XtPointer graph, XtPointer call_data);

/* Ends the program. */
void Quit(Widget item, XtPointer closure, XtPointer call_data);

#endif
