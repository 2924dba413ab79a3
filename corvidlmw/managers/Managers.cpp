#include <corvidlmw/managers/ManagersI.h>

#include <Xm/DrawP.h>

#include <algorithm>

namespace corvidlmw::managers {

// ---- Children -------------------------------------------------------------------------------------

Size PreferredSizeOf(Widget child) {
    XtWidgetGeometry preferred{};
    XtQueryGeometry(child, nullptr, &preferred);
    return {preferred.width, preferred.height};
}

// ---- Sizes ------------------------------------------------------------------------------------------

void ReplaceEmptySize(Widget w) {
    constexpr Dimension small = 10;
    for (Dimension *extent : {&w->core.width, &w->core.height}) {
        if (*extent == 0) {
            *extent = small;
        }
    }
}

bool RequestSize(Widget w, Size size) {
    Size offer;
    const XtGeometryResult result =
        XtMakeResizeRequest(w, size.width, size.height, &offer.width, &offer.height);
    if (result == XtGeometryAlmost) {
        return XtMakeResizeRequest(w, offer.width, offer.height, nullptr, nullptr) != XtGeometryNo;
    }
    return result != XtGeometryNo;
}

void AdjustSizeTo(Widget w, Size size) {
    if (size != SizeOf(w)) {
        RequestSize(w, size);
    }
}

namespace {

XtGeometryResult Offer(Size size, XtWidgetGeometry &preferred) {
    preferred.request_mode = CWWidth | CWHeight;
    preferred.width = size.width;
    preferred.height = size.height;
    return XtGeometryAlmost;
}

} // namespace

// A width or height that is not asked about is not set in the proposal either.
XtGeometryResult AnswerQuery(Widget w, Size natural, const XtWidgetGeometry &intended,
                             XtWidgetGeometry &preferred) {
    constexpr XtGeometryMask both = CWWidth | CWHeight;
    if (intended.request_mode & ~both) {
        return XtGeometryYes;
    }
    if (intended.request_mode != both) {
        return Offer(natural, preferred);
    }
    if (natural == SizeOf(w)) {
        return XtGeometryNo;
    }
    if (natural == Size{intended.width, intended.height}) {
        return XtGeometryYes;
    }
    return Offer(natural, preferred);
}

// ---- Descendants of XmBulletinBoard ----------------------------------------------------------------

void NoteShadow(Widget w) {
    auto &board = BoardOf(w);
    board.old_width = w->core.width;
    board.old_height = w->core.height;
    board.old_shadow_thickness = ManagerOf(w).shadow_thickness;
}

void ClearNotedShadow(Widget w) {
    const auto &board = BoardOf(w);
    _XmClearShadowType(w, board.old_width, board.old_height, board.old_shadow_thickness, 0);
}

void DrawShadow(Widget w, unsigned int type) {
    const auto &manager = ManagerOf(w);
    if (HasWindow(w) && manager.shadow_thickness > 0) {
        XmeDrawShadows(XtDisplay(w), XtWindow(w), manager.top_shadow_GC, manager.bottom_shadow_GC,
                       0, 0, w->core.width, w->core.height, manager.shadow_thickness, type);
    }
}

void RedisplayBoard(Widget w, XEvent *event, Region region) {
    if (event) {
        XmeRedisplayGadgets(w, event, region);
    }
    DrawShadow(w, BoardOf(w).shadow_type);
}

} // namespace corvidlmw::managers
