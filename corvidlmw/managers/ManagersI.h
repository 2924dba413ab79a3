// What the managers share: walking over children, asking for a size and being asked for it, and
// the shadow of those that descend from XmBulletinBoard.
#pragma once

// First: it mends declarations of the toolkit's private headers.
#include <corvidlmw/toolkit/Toolkit.h>

#include <Xm/BulletinBP.h>

#include <algorithm>

namespace corvidlmw::managers {

struct Size {
    Dimension width = 0;
    Dimension height = 0;
    friend bool operator==(const Size &, const Size &) = default;
};

inline Size SizeOf(Widget w) {
    return {w->core.width, w->core.height};
}

// ---- Children -------------------------------------------------------------------------------------

// Visits the children that are rectangles. A visit may run callbacks that create or destroy children:
// the list is read anew at each step, and no child that is gone is touched.
template <class Visit>
void ForEachRectangle(Widget w, Visit visit) {
    for (Cardinal i = 0; i < NumChildrenOf(w);) {
        Widget child = ChildrenOf(w)[i];
        if (XtIsRectObj(child)) {
            visit(child);
        }
        if (i < NumChildrenOf(w) && ChildrenOf(w)[i] == child) {
            ++i;
        }
    }
}

// What the child answers to a query without a proposal.
Size PreferredSizeOf(Widget child);

// ---- Sizes ------------------------------------------------------------------------------------------

// In the 16 bits of a window's extent. What wraps to 0 is 1: there is no window of that size, and the
// server would refuse it.
inline Dimension CutToExtent(int extent) {
    return std::max<Dimension>(CutToDimension(extent), 1);
}

// A width or height of 0 becomes 10.
void ReplaceEmptySize(Widget w);

// Asks the parent for that size, and takes what it offers instead. False if it refused.
bool RequestSize(Widget w, Size size);
// The same unless the widget has that size.
void AdjustSizeTo(Widget w, Size size);

// The answer of a widget that wants exactly its natural size. A query for anything beyond width and
// height is agreed to.
XtGeometryResult AnswerQuery(Widget w, Size natural, const XtWidgetGeometry &intended,
                             XtWidgetGeometry &preferred);

// ---- Descendants of XmBulletinBoard ----------------------------------------------------------------

inline XmBulletinBoardPart &BoardOf(Widget w) {
    return reinterpret_cast<XmBulletinBoardWidget>(w)->bulletin_board;
}

inline XmManagerPart &ManagerOf(Widget w) {
    return reinterpret_cast<XmBulletinBoardWidget>(w)->manager;
}

// Takes down where the shadow lies now, for ClearNotedShadow once it must go.
void NoteShadow(Widget w);
void ClearNotedShadow(Widget w);
void DrawShadow(Widget w, unsigned int type);
// The gadgets, and then the shadow.
void RedisplayBoard(Widget w, XEvent *event, Region region);

} // namespace corvidlmw::managers
