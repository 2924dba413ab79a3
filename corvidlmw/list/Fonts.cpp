// What render tables say of their fonts, core fonts or others.

#include <corvidlmw/list/LmListI.h>

namespace corvidlmw::list {

XFontStruct *CoreFontOf(XmFontList fonts) {
    XFontStruct *font = nullptr;
    return fonts && XmeRenderTableGetDefaultFont(fonts, &font) ? font : nullptr;
}

int FontHeightOf(XmFontList fonts) {
    if (const XFontStruct *font = CoreFontOf(fonts)) {
        return font->ascent + font->descent;
    }
    int height = 0;
    int ascent = 0;
    int descent = 0;
    if (fonts) {
        XmRenderTableGetDefaultFontExtents(fonts, &height, &ascent, &descent);
    }
    return ascent + descent;
}

bool HasAntialiasedFont(XmFontList fonts) {
    XmFontContext context = nullptr;
    if (!XmFontListInitFontContext(&context, fonts)) {
        return false;
    }
    bool found = false;
    while (XmFontListEntry entry = XmFontListNextEntry(context)) {
        XmFontType type = XmFONT_IS_FONT;
        XmFontListEntryGetFont(entry, &type);
        found = found || type == XmFONT_IS_XFT;
    }
    XmFontListFreeFontContext(context);
    return found;
}

} // namespace corvidlmw::list
