// The label of an arc and the fonts that it is drawn with.
//
// All arcs of a graph that are given the same render table share one copy of it. The toolkit would
// count a copy for each, but loses those past the limit of its small counter.

#include <corvidlmw/graph/GraphI.h>

#include <X11/Xlibint.h>

// Xlibint.h defines these as macros.
#undef min
#undef max

using namespace corvidlmw;
using namespace corvidlmw::graph;

namespace {

// ---- Labels -------------------------------------------------------------------------------------

_XmString LabelFromName(Widget arc) {
    const OwnedXmString name(XmStringLtoRCreate(XtName(arc), Name(XmFONTLIST_DEFAULT_TAG)));
    return _XmStringCreate(name.get());
}

// ---- Fonts --------------------------------------------------------------------------------------

// A list is a handle on a table that its copies share.
const void *TableOf(XmFontList list) {
    return *reinterpret_cast<void **>(list);
}

// The font of arcs whose font list was set to none: one for each display, until that closes.
struct FixedFont {
    Display *display;
    XFontStruct *font;
    FixedFont *next;
};
FixedFont *fixed_fonts = nullptr;

int ForgetFixedFont(Display *display, XExtCodes *) {
    for (FixedFont **link = &fixed_fonts; *link; link = &(*link)->next) {
        FixedFont *entry = *link;
        if (entry->display == display) {
            *link = entry->next;
            XFreeFontInfo(nullptr, entry->font, 1);
            Delete(entry);
            break;
        }
    }
    return 0;
}

XFontStruct *FixedFontOf(Display *display) {
    for (FixedFont *entry = fixed_fonts; entry; entry = entry->next) {
        if (entry->display == display) {
            return entry->font;
        }
    }
    XFontStruct *font = XLoadQueryFont(display, "fixed");
    XExtCodes *codes = font ? XAddExtension(display) : nullptr;
    if (codes) {
        XESetCloseDisplay(display, codes->extension, ForgetFixedFont);
        fixed_fonts = New<FixedFont>(display, font, fixed_fonts);
    }
    return font;
}

} // namespace

namespace corvidlmw::graph {

void TakeLabel(Widget arc) {
    auto &part = ArcOf(arc);
    if (part.label_string && XmeStringIsValid(part.label_string)) {
        part.label_string = _XmStringCreate(part.label_string);
        return;
    }
    if (part.label_string) {
        XmeWarning(arc, Name("Arc Widget expects a compound string"));
    }
    part.label_string = LabelFromName(arc);
}

void MeasureLabel(Widget arc) {
    auto &part = ArcOf(arc);
    _XmStringExtent(part.font_list, part.label_string, &part.label_width, &part.label_height);
}

void TakeFontList(Widget arc, XmFontList given) {
    SharedFonts &fonts = StateOf(XtParent(arc)).fonts;
    auto found = fonts.find(TableOf(given));
    if (found == fonts.end()) {
        XmFontList copy = XmFontListCopy(given);
        found = fonts.emplace(TableOf(copy), SharedFont{copy, 0}).first;
    }
    found->second.users += 1;
    ArcOf(arc).font_list = found->second.list;
}

void TakeFixedFontList(Widget arc) {
    XFontStruct *font = FixedFontOf(XtDisplay(arc));
    if (!font) {
        TakeFontList(arc, XmeGetDefaultRenderTable(arc, XmLABEL_FONTLIST));
        return;
    }
    XmFontList list = XmFontListCreate(font, Name(XmFONTLIST_DEFAULT_TAG));
    TakeFontList(arc, list);
    XmFontListFree(list);
}

void ReleaseFontList(Widget w, XmFontList list) {
    SharedFonts &fonts = StateOf(w).fonts;
    auto found = list ? fonts.find(TableOf(list)) : fonts.end();
    if (found != fonts.end() && --found->second.users == 0) {
        XmFontListFree(list);
        fonts.erase(found);
    }
}

} // namespace corvidlmw::graph
