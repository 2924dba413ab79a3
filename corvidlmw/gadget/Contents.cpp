// Text and picture: how large they are, where they stand, and what size the gadget wants.

#include <corvidlmw/gadget/IconGI.h>

#include <algorithm>

namespace corvidlmw::icon_gadget {

namespace {

Alignment AlignmentOf(const XmvIconGCacheObjPart &cache) {
    switch (cache.alignment) {
    case XmALIGNMENT_BEGINNING: return Alignment::beginning;
    case XmALIGNMENT_END: return Alignment::end;
    default: return Alignment::center;
    }
}

Placement PlacementOf(const XmvIconGCacheObjPart &cache) {
    switch (cache.icon_placement) {
    case XmICON_TOP: return Placement::top;
    case XmICON_BOTTOM: return Placement::bottom;
    case XmICON_LEFT: return Placement::left;
    default: return Placement::right;
    }
}

int ArrowSpace(Widget w) {
    constexpr int arrow_gap = 4;
    return CacheOf(w).show_arrow ? IconOf(w).arrow_width + arrow_gap : 0;
}

Contents ContentsOf(Widget w) {
    const auto &icon = IconOf(w);
    const auto &cache = CacheOf(w);
    Contents contents;
    contents.text = {icon.text_width, icon.text_height};
    if (icon.label_pixmap != None) {
        contents.picture = Extent{icon.pixmap_width, icon.pixmap_height};
    }
    contents.gap = cache.margin_middle;
    contents.margins = MarginsOf(w);
    contents.border = RecordOf(w).gadget.highlight_thickness + RecordOf(w).gadget.shadow_thickness;
    contents.arrow_space = ArrowSpace(w);
    contents.alignment = AlignmentOf(cache);
    contents.placement = PlacementOf(cache);
    return contents;
}

// A pixmap that its client has freed has no size.
void MeasurePicture(Widget w) {
    auto &icon = IconOf(w);
    icon.pixmap_x = icon.pixmap_y = 0;
    icon.pixmap_width = icon.pixmap_height = 0;
    InternalOf(w).picture_depth = 0;
    if (icon.label_pixmap == XmUNSPECIFIED_PIXMAP || icon.label_pixmap == None) {
        return;
    }
    Window root = None;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    if (XGetGeometry(XtDisplay(XtParent(w)), icon.label_pixmap, &root, &x, &y, &width, &height,
                     &border, &depth)) {
        icon.pixmap_width = static_cast<Dimension>(width);
        icon.pixmap_height = static_cast<Dimension>(height);
        InternalOf(w).picture_depth = static_cast<unsigned char>(depth);
    }
}

} // namespace

void MeasureContents(Widget w) {
    auto &icon = IconOf(w);
    icon.text_width = icon.text_height = 0;
    if (!XmStringEmpty(icon.label_string)) {
        _XmStringExtent(icon.font_list, icon.label_string, &icon.text_width, &icon.text_height);
    }
    MeasurePicture(w);
}

void ForgetPictureDepths(Widget old_w, Widget w) {
    if (IconOf(w).label_insensitive_pixmap != IconOf(old_w).label_insensitive_pixmap) {
        InternalOf(w).insensitive_picture_depth = 0;
    }
}

void SetSize(Widget w) {
    auto &icon = IconOf(w);
    auto &rectangle = RecordOf(w).rectangle;
    const Places places = Place(ContentsOf(w), {rectangle.width, rectangle.height});
    rectangle.width = CutToDimension(places.size.width);
    rectangle.height = CutToDimension(places.size.height);
    icon.text_x = CutToPosition(places.text.x);
    icon.text_y = CutToPosition(places.text.y);
    icon.pixmap_x = places.picture_x ? CutToPosition(*places.picture_x) : icon.pixmap_x;
    icon.pixmap_y = CutToPosition(places.picture_y);
}

Extent TextSizeOf(Widget w) {
    return TextSize(ContentsOf(w));
}

// Picture and arrow are left out, on purpose.
XtGeometryResult QueryGeometry(Widget w, XtWidgetGeometry *intended, XtWidgetGeometry *reply) {
    constexpr XtGeometryMask size_mask = CWWidth | CWHeight;
    reply->request_mode = 0;
    if ((intended->request_mode & ~size_mask) != 0 || !CacheOf(w).recompute_size) {
        return XtGeometryNo;
    }
    const Extent size = TextSizeOf(w);
    reply->width = std::max<Dimension>(CutToDimension(size.width), 1);
    reply->height = std::max<Dimension>(CutToDimension(size.height), 1);
    if (intended->request_mode == size_mask && intended->width == reply->width &&
        intended->height == reply->height) {
        return XtGeometryYes;
    }
    reply->request_mode = size_mask;
    return XtGeometryAlmost;
}

} // namespace corvidlmw::icon_gadget

using namespace corvidlmw::icon_gadget;

extern "C" void _XmCalcIconGDimensions(Widget w) {
    if (IsIconGadget(w)) {
        MeasureContents(w);
    }
}
