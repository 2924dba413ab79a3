// What a change of resources does.

#include <corvidlmw/gadget/IconGI.h>

#include <corvidlmw/common/ArrowPixmaps.h>
#include <corvidlmw/gadget/SharedFonts.h>

#include <Xm/RepType.h>

namespace corvidlmw::icon_gadget {

namespace {

// What is due at the end of a change.
struct Due {
    bool resize = false;
    bool redisplay = false;
};

// A client's string is copied; it may also be none, or no compound string.
bool TakeLabel(Widget old_w, Widget request, Widget w) {
    auto &old_label = IconOf(old_w).label_string;
    auto &label = IconOf(w).label_string;
    if (label == old_label) {
        return false;
    }
    if (!label) {
        label = NameAsLabel(old_w);
    } else if (XmeStringIsValid(label)) {
        label = _XmStringCreate(label);
    } else {
        XmeWarning(w, Name(_XmMsgLabel_0003));
        label = NameAsLabel(w);
    }
    _XmStringFree(old_label);
    old_label = IconOf(request).label_string = nullptr;
    return true;
}

bool TakeFont(Widget old_w, Widget w) {
    auto &old_fonts = IconOf(old_w).font_list;
    if (IconOf(w).font_list == old_fonts) {
        return false;
    }
    TakeFonts(w);
    _XmStringUpdate(IconOf(w).font_list, IconOf(w).label_string);
    ReleaseFonts(old_fonts);
    old_fonts = nullptr;
    return true;
}

// A size that was not asked for in this change is calculated anew.
void ForgetSize(Widget old_w, Widget request, Widget w) {
    if (!CacheOf(w).recompute_size) {
        return;
    }
    auto &rectangle = RecordOf(w).rectangle;
    if (request->core.width == old_w->core.width) {
        rectangle.width = 0;
    }
    if (request->core.height == old_w->core.height) {
        rectangle.height = 0;
    }
}

bool MarginsDiffer(const XmvIconGCacheObjPart &a, const XmvIconGCacheObjPart &b) {
    return a.margin_width != b.margin_width || a.margin_height != b.margin_height ||
           a.margin_left != b.margin_left || a.margin_right != b.margin_right ||
           a.margin_top != b.margin_top || a.margin_bottom != b.margin_bottom ||
           a.margin_middle != b.margin_middle;
}

bool BordersDiffer(const XmGadgetPart &a, const XmGadgetPart &b) {
    return a.shadow_thickness != b.shadow_thickness ||
           a.highlight_thickness != b.highlight_thickness;
}

// The text stays where it is until the gadget is resized.
bool TakeAlignment(Widget old_w, Widget w) {
    const auto &before = CacheOf(old_w);
    auto &cache = CacheOf(w);
    if (cache.alignment == before.alignment && cache.string_direction == before.string_direction) {
        return false;
    }
    if (!IsValidAlignment(w)) {
        cache.alignment = before.alignment;
    }
    if (!IsValidDirection(w)) {
        cache.string_direction = before.string_direction;
    }
    return true;
}

void TakeContents(Widget old_w, Widget request, Widget w, bool label_or_font, Due &due) {
    if (label_or_font || IconOf(w).label_pixmap != IconOf(old_w).label_pixmap ||
        CacheOf(w).show_arrow != CacheOf(old_w).show_arrow) {
        ForgetSize(old_w, request, w);
        MeasureContents(w);
        due.resize = due.redisplay = true;
    }
}

void TakeMargins(Widget old_w, Widget request, Widget w, Due &due) {
    const auto &rectangle = RecordOf(w).rectangle;
    if (MarginsDiffer(CacheOf(w), CacheOf(old_w)) ||
        BordersDiffer(RecordOf(w).gadget, RecordOf(old_w).gadget) || rectangle.width == 0 ||
        rectangle.height == 0) {
        ForgetSize(old_w, request, w);
        due.resize = due.redisplay = true;
    }
}

// The foreground and the colours of the shadow stay as they were drawn.
bool TakeColors(Widget old_w, Widget w, bool font) {
    if (!font && CacheOf(w).background == CacheOf(old_w).background) {
        return false;
    }
    ReleaseTextGCs(w);
    FetchTextGCs(w);
    return true;
}

bool SensitivityDiffers(Widget a, Widget b) {
    return a->core.sensitive != b->core.sensitive ||
           a->core.ancestor_sensitive != b->core.ancestor_sensitive;
}

} // namespace

Boolean SetValues(Widget old_w, Widget request, Widget new_w, ArgList, Cardinal *) {
    Due due;
    const bool label = TakeLabel(old_w, request, new_w);
    const bool font = TakeFont(old_w, new_w);
    if (IconOf(new_w).label_insensitive_pixmap != IconOf(old_w).label_insensitive_pixmap) {
        ForgetInsensitivePicture(new_w);
    }
    SelectInput(new_w);
    TakeMenuHighlight(new_w);
    if (CacheOf(new_w).show_arrow) {
        _XmCreateArrowPixmaps(new_w);
    }
    TakeContents(old_w, request, new_w, label || font, due);
    due.redisplay |= TakeAlignment(old_w, new_w);
    TakeMargins(old_w, request, new_w, due);
    due.redisplay |= TakeColors(old_w, new_w, font);
    UpdateMirror(CacheOf(old_w), new_w);
    if (due.resize) {
        XtClass(new_w)->core_class.resize(new_w);
    }
    due.redisplay |= SensitivityDiffers(old_w, new_w);
    TakeMenuTraversal(new_w);
    if (due.redisplay && CacheOf(new_w).menu_type == XmMENU_PULLDOWN) {
        CallMenuProcedure(XmMENU_MEMWIDGET_UPDATE, new_w, nullptr);
    }
    return due.redisplay;
}

void SetValuesAlmost(Widget, Widget new_w, XtWidgetGeometry *request, XtWidgetGeometry *reply) {
    XtClass(new_w)->core_class.resize(new_w);
    *request = *reply;
}

} // namespace corvidlmw::icon_gadget
