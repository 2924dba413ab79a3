#include <corvidlmw/managers/Placing.h>

#include <Xm/DropSMgr.h>

#include <algorithm>

namespace corvidlmw {

namespace {

Rectangle Union(const Rectangle &a, const Rectangle &b) {
    if (a.width == 0) {
        return b;
    }
    const int x = std::min(a.x, b.x);
    const int y = std::min(a.y, b.y);
    return {x, y, std::max(a.x + a.width, b.x + b.width) - x,
            std::max(a.y + a.height, b.y + b.height) - y};
}

} // namespace

Placing::Placing(Widget w) : w_(w) {
    XmDropSiteStartUpdate(w);
}

Placing::~Placing() {
    XmDropSiteEndUpdate(w_);
    Clear();
}

void Placing::Place(Widget child, const Rectangle &place) {
    const Position x = CutToPosition(place.x);
    const Position y = CutToPosition(place.y);
    const Dimension width = CutToDimension(place.width);
    const Dimension height = CutToDimension(place.height);
    const Dimension border = child->core.border_width;
    const Rectangle cut{x, y, width, height};
    if (width == 0 || height == 0) {
        XmeConfigureObject(child, x, y, width, height, border);
    } else if (cut == RectangleOf(child)) {
        return;
    } else if (XtIsWidget(child)) {
        XtConfigureWidget(child, x, y, width, height, border);
    } else {
        MoveGadget(child, cut);
    }
}

void Placing::MoveGadget(Widget gadget, const Rectangle &place) {
    const Rectangle before = RectangleOf(gadget);
    gadget->core.x = CutToPosition(place.x);
    gadget->core.y = CutToPosition(place.y);
    gadget->core.width = CutToDimension(place.width);
    gadget->core.height = CutToDimension(place.height);
    if (XtIsManaged(gadget)) {
        stale_ = Union(Union(stale_, before), place);
    }
    const XtWidgetProc resize = XtClass(gadget)->core_class.resize;
    if (resize && (before.width != place.width || before.height != place.height)) {
        resize(gadget);
    }
}

void Placing::Clear() const {
    if (stale_.width == 0 || !HasWindow(w_)) {
        return;
    }
    const int x = std::max(stale_.x, 0);
    const int y = std::max(stale_.y, 0);
    const int width = std::min(stale_.x + stale_.width, +w_->core.width) - x;
    const int height = std::min(stale_.y + stale_.height, +w_->core.height) - y;
    if (width > 0 && height > 0) {
        XClearArea(XtDisplay(w_), XtWindow(w_), x, y, static_cast<unsigned>(width),
                   static_cast<unsigned>(height), True);
    }
}

} // namespace corvidlmw
