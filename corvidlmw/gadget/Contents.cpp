// Text and picture: how large they are, where they stand, and what size the gadget wants.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/toolkit/Lasting.h>

#include <algorithm>
#include <optional>

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

// ---- Pictures -------------------------------------------------------------------------------------

// The depths that are not the window's, and those of insensitive pictures that were shown: in most
// gadgets there are none of either, and their records have no room for them.
struct Depths {
    std::optional<int> picture;
    std::optional<int> insensitive;
};
UnorderedMap<Widget, Depths> &OddDepths() {
    static const Lasting<UnorderedMap<Widget, Depths>> depths;
    return *depths;
}

struct PixmapGeometry {
    unsigned width = 0;
    unsigned height = 0;
    unsigned depth = 0;
};

// A pixmap that its client has freed is of no size.
PixmapGeometry GeometryOf(Display *display, Pixmap pixmap) {
    PixmapGeometry geometry;
    Window root = None;
    int place = 0;
    unsigned border = 0;
    if (XGetGeometry(display, pixmap, &root, &place, &place, &geometry.width, &geometry.height,
                     &border, &geometry.depth) == 0) {
        return {};
    }
    return geometry;
}

int WindowDepth(Widget w) {
    return static_cast<int>(XtParent(w)->core.depth);
}

void NoteDepth(Widget w, int depth) {
    if (depth != WindowDepth(w)) {
        OddDepths()[w].picture = depth;
    } else if (const auto found = OddDepths().find(w); found != OddDepths().end()) {
        found->second.picture.reset();
    }
}

void MeasurePicture(Widget w) {
    auto &icon = IconOf(w);
    icon.pixmap_x = icon.pixmap_y = 0;
    icon.pixmap_width = icon.pixmap_height = 0;
    if (icon.label_pixmap == XmUNSPECIFIED_PIXMAP || icon.label_pixmap == None) {
        return;
    }
    const PixmapGeometry geometry = GeometryOf(XtDisplay(XtParent(w)), icon.label_pixmap);
    icon.pixmap_width = static_cast<Dimension>(geometry.width);
    icon.pixmap_height = static_cast<Dimension>(geometry.height);
    NoteDepth(w, static_cast<int>(geometry.depth));
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

// That of an insensitive picture is asked for once it is shown.
int DepthOfPicture(Widget w, bool insensitive) {
    if (insensitive) {
        auto &depth = OddDepths()[w].insensitive;
        if (!depth) {
            const Pixmap pixmap = IconOf(w).label_insensitive_pixmap;
            depth = static_cast<int>(GeometryOf(XtDisplay(XtParent(w)), pixmap).depth);
        }
        return *depth;
    }
    const auto found = OddDepths().find(w);
    return found == OddDepths().end() ? WindowDepth(w)
                                      : found->second.picture.value_or(WindowDepth(w));
}

void ForgetInsensitivePicture(Widget w) {
    if (const auto found = OddDepths().find(w); found != OddDepths().end()) {
        found->second.insensitive.reset();
    }
}

void ForgetPictures(Widget w) {
    OddDepths().erase(w);
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
