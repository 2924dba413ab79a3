// Marks in the trough of an SvScrollBar.
#pragma once

#include <vector>

#include <Xm/Xm.h>

#include <corvidlmw/scrollbar/SvScrollBar.h>

namespace example {

// From XmNtroughPixmapCallback of a vertical bar: each of these units, counted from 0, is a stripe of the
// trough, at least two pixels thick.
void DrawTroughMarks(Widget bar, const SvTroughPixmapCallbackStruct &picture,
                     const std::vector<int> &units, Pixel color);

} // namespace example
