/* Editing by gesture: the data follow the graph. */
#ifndef GUIDE_EDITING_H
#define GUIDE_EDITING_H

#include "Icons.h"

/* From now on the user edits the graph, which shows this data with icons. */
void AllowEditing(Widget graph, Agraph_t *data);

/* Deletes what is selected, in the data and in the graph. */
void DeleteSelected(Widget graph);

/* Replaces a file when the new one is whole. Returns False, and says why on standard error, if it is not. */
Boolean SaveDot(Agraph_t *data, const char *path);

#endif
