// What always holds while a client has control. What does not is a failure of GoogleTest's.
#pragma once

#include <tests/storm/World.h>

namespace corvidlmw::storm {

// Of all widgets below the storm's shell.
void CheckWidgets(World &world);
// No errors, and no warnings but known ones; both are forgotten.
void CheckComplaints();
// That nothing is left to do, and nothing grabbed, once all buttons are up.
void CheckRest(World &world);
// That the library holds nothing of the server's any more, once all widgets are gone.
void CheckBelongings();

// ---- By class

void CheckGraph(Widget graph);
void CheckList(Widget list);
void CheckScrollBar(Widget bar);
void CheckGrid(Widget grid);
void CheckPanes(Widget panes);
// What gadgets share is counted by how many of these, all that there are, share it.
void CheckSharedParts(const std::vector<Widget> &gadgets);

} // namespace corvidlmw::storm
