// Fonts and colours of single rows. Each look is a GC of the row's own, since drawing changes and clips it.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

namespace {

struct Look {
    XmFontList fonts = nullptr; // the row's; the list's if NULL
    Pixel foreground = 0;
    Pixel background = 0;
};

bool Check(Widget w, int position) {
    if (IsPosition(ListOf(w), position)) {
        return true;
    }
    WarnOfList(w, "Invalid item(s) to highlight.");
    return false;
}

GC CreateLookGC(Widget w, const Look &look) {
    XGCValues values{};
    unsigned long mask = GCForeground | GCBackground;
    values.foreground = look.foreground;
    values.background = look.background;
    if (const XFontStruct *font = CoreFontOf(look.fonts ? look.fonts : ListOf(w).font_list)) {
        values.font = font->fid;
        mask |= GCFont;
    }
    const DrawableOfDepth drawable(w);
    return XCreateGC(XtDisplay(w), drawable, mask, &values);
}

// The row is unselected from now on, but the lists of selected rows do not know it yet.
void Deselect(LmListPart &list, int row) {
    ElementOf(list, row).drawn_selected = True;
    SetSelected(list, row, false);
}

void GiveLook(Widget w, int row, const Look &look) {
    auto &list = ListOf(w);
    LmListElement &element = ElementOf(list, row);
    XmFontList fonts = look.fonts ? XmFontListCopy(look.fonts) : nullptr;
    GC gc = CreateLookGC(w, look);
    DropLook(w, element);
    element.font_list = fonts;
    element.gc = gc;
    StateOf(list).looks++;
    Deselect(list, row);
    ClipLook(w, gc);
}

} // namespace

} // namespace corvidlmw::list

using namespace corvidlmw;
using namespace corvidlmw::list;

extern "C" {

void LmListSetPositionAttributes(Widget w, int position, XmFontList font_list, Pixel foreground,
                                 Pixel background) {
    if (!IsList(w) || !Check(w, position)) {
        return;
    }
    auto &list = ListOf(w);
    const int row = position - 1;
    if (!font_list && foreground == 0 && background == 0) {
        DropLook(w, ElementOf(list, row));
        Deselect(list, row);
    } else {
        GiveLook(w, row,
                 {.fonts = font_list,
                  .foreground = foreground ? foreground : PrimitiveOf(w).foreground,
                  .background = background ? background : w->core.background_pixel});
    }
    DrawItem(w, row);
}

void LmListSetItemAttributes(Widget w, XmString item, XmFontList font_list, Pixel foreground,
                             Pixel background) {
    if (IsList(w) && ListOf(w).element_count > 0) {
        LmListSetPositionAttributes(w, FindRow(ListOf(w), item) + 1, font_list, foreground,
                                    background);
    }
}

// The position itself is the foreground's pixel.
void XmListSetAttributes(Widget w, LmListAttributeEntry *entries, int count) {
    if (!IsList(w)) {
        return;
    }
    for (int i = 0; entries && i < count; i++) {
        const auto position = static_cast<int>(entries[i].position);
        if (Check(w, position)) {
            GiveLook(w, position - 1,
                     {.foreground = static_cast<Pixel>(position),
                      .background = w->core.background_pixel});
        }
    }
    DrawList(w);
}

} // extern "C"
