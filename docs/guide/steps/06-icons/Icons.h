/* Nodes as icon gadgets. */
#ifndef GUIDE_ICONS_H
#define GUIDE_ICONS_H

#include "Dot.h"

/* A Dresser for nodes of class XmvIconGadget: a picture of the node's shape, and an arrow where it leads
 * on. */
void DressIcon(Widget widget, Agnode_t *node);

#endif
