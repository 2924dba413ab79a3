// What a pane of an XmHorzPanedWindow gets when it asks for another geometry.
#include <corvidlmw/managers/HPanedWI.h>

#include <Xm/SashP.h>

#include <algorithm>

namespace corvidlmw::managers {

namespace {

// Applies what a child asks for as it stands.
XtGeometryResult ApplyDirectly(Widget child, const XtWidgetGeometry &request) {
    const XtGeometryMask mode = request.request_mode;
    if (mode & CWX && request.x >= 0) {
        child->core.x = request.x;
    }
    if (mode & CWY && request.y >= 0) {
        child->core.y = request.y;
    }
    if (mode & CWWidth && request.width > 0) {
        child->core.width = request.width;
    }
    if (mode & CWHeight && request.height > 0) {
        child->core.height = request.height;
    }
    return XtGeometryYes;
}

void StoreIndex(Widget w, Widget child) {
    WidgetList children = ChildrenOf(w);
    const auto *found = std::find(children, children + NumChildrenOf(w), child);
    ConstraintOf(child).position_index = static_cast<short>(found - children);
}

// One pane's request on its way through.
class Negotiation {
public:
    Negotiation(Widget w, Widget child, const XtWidgetGeometry &request)
        : w_(w), child_(child), request_(request), width_(child->core.width),
          height_(child->core.height), old_width_(ConstraintOf(child).dwidth),
          compromise_(Asks(CWX | CWY)) {}

    XtGeometryResult Run(XtWidgetGeometry *reply) {
        if (Asks(CWHeight)) {
            NegotiateHeight();
        }
        if (Asks(CWWidth)) {
            NegotiateWidth();
        }
        const bool differs = (Asks(CWWidth) && width_ != request_.width) ||
                             (Asks(CWHeight) && height_ != request_.height);
        if (differs || Asks(CWX | CWY)) {
            return OfferCompromise(reply);
        }
        // To be offered what it asks for would make the child ask for it again, for ever.
        if (compromise_) {
            TakeBack();
            return XtGeometryNo;
        }
        if (Asks(XtCWQueryOnly)) {
            TakeBack();
            return XtGeometryYes;
        }
        return Apply();
    }

private:
    bool Asks(XtGeometryMask what) const { return (request_.request_mode & what) != 0; }

    // Once it is clear that the child only gets an offer, the window must not grow for it.
    XtGeometryResult AskParent(XtGeometryMask what, int extent, XtWidgetGeometry &offer) const {
        XtWidgetGeometry wish{};
        wish.request_mode = what | (compromise_ || Asks(XtCWQueryOnly) ? XtCWQueryOnly : 0);
        wish.width = wish.height = CutToExtent(extent);
        return XtMakeGeometryRequest(w_, &wish, &offer);
    }

    void NegotiateHeight() {
        RebuildManagedChildren(w_);
        const auto [tallest, border] = Tallest();
        if (request_.height < tallest) {
            height_ = tallest;
            compromise_ = true;
            return;
        }
        const int around = 2 * (border + PanedOf(w_).margin_height);
        XtWidgetGeometry offer{};
        switch (AskParent(CWHeight, request_.height + around, offer)) {
        case XtGeometryYes: height_ = request_.height; break;
        case XtGeometryAlmost:
            height_ = std::max(offer.height - around, tallest);
            compromise_ = true;
            break;
        // A window lower than one of its panes would be offered in turns with the tallest pane's height.
        default: height_ = std::max(+w_->core.height, tallest);
        }
    }

    struct Tall {
        int height = 1;
        int border = 0;
    };
    Tall Tallest() const {
        Tall tallest{0, 0};
        ForEachPane(w_, [&](Widget pane) {
            const Tall tall{pane->core.height, pane->core.border_width};
            if (tall.height + tall.border > tallest.height + tallest.border) {
                tallest = tall;
            }
        });
        return {std::max(tallest.height, 1), tallest.border};
    }

    void NegotiateWidth() {
        auto &constraint = ConstraintOf(child_);
        const int asked = request_.width;
        if (asked != Within(asked, constraint.min, constraint.max)) {
            compromise_ = true;
        }
        DesirePresentWidths(w_);
        old_width_ = constraint.dwidth;
        constraint.dwidth = asked;
        width_ = Within(WidthFor(asked, NeededWidth(w_)), constraint.min, constraint.max);
    }

    int WidthFor(int asked, int needed) {
        if (needed == w_->core.width) {
            return asked;
        }
        XtWidgetGeometry offer{};
        switch (AskParent(CWWidth, needed, offer)) {
        case XtGeometryYes: return asked;
        case XtGeometryAlmost: compromise_ = true; return asked + offer.width - needed;
        default: return child_->core.width;
        }
    }

    void TakeBack() {
        if (Asks(CWWidth)) {
            ConstraintOf(child_).dwidth = old_width_;
        }
    }

    XtGeometryResult OfferCompromise(XtWidgetGeometry *reply) {
        TakeBack();
        if (reply) {
            reply->request_mode = CWWidth | CWHeight;
            reply->width = CutToDimension(width_);
            reply->height = CutToDimension(height_);
        }
        return XtGeometryAlmost;
    }

    // The child's own window follows by the toolkit when it gets its Yes.
    XtGeometryResult Apply() {
        child_->core.width = CutToDimension(width_);
        child_->core.height = CutToDimension(height_);
        RefigureLocations(w_, PositionOf(w_, child_), Direction::Right, {});
        child_->core.x = ConstraintOf(child_).dx;
        child_->core.y = CutToPosition(PanedOf(w_).margin_height);
        CommitNewLocations(w_, child_);
        return XtGeometryYes;
    }

    Widget w_;
    Widget child_;
    const XtWidgetGeometry &request_;
    int width_;
    int height_;
    int old_width_;
    bool compromise_; // the answer is an offer at best
};

} // namespace

XtGeometryResult PanedGeometryManager(Widget child, XtWidgetGeometry *request,
                                      XtWidgetGeometry *reply) {
    Widget w = XtParent(child);
    auto &constraint = ConstraintOf(child);
    if (constraint.position_index == XmLAST_POSITION) {
        StoreIndex(w, child);
        return ApplyDirectly(child, *request);
    }
    if (XmIsSash(child)) {
        return ApplyDirectly(child, *request);
    }
    if ((XtIsRealized(w) && !constraint.allow_resize) ||
        !(request->request_mode & (CWWidth | CWHeight))) {
        return XtGeometryNo;
    }
    return Negotiation(w, child, *request).Run(reply);
}

} // namespace corvidlmw::managers
