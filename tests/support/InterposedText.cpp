/* Text: Xlib's, Xft's, and the toolkit's compound strings as a whole. */

#include <tests/support/Interpose.h>
#include <tests/support/Recorder.h>

#include <X11/Xft/Xft.h>
#include <Xm/Xm.h>

namespace {

std::string Plain(const char *text, int length) {
    return std::string(text, static_cast<size_t>(length));
}

std::string Plain(const FcChar8 *text, int length) {
    return Plain(reinterpret_cast<const char *>(text), length);
}

// Wide characters beyond the first 256 do not occur in what the tests draw in two bytes.
std::string Plain(const XChar2b *text, int length) {
    std::string plain;
    for (int i = 0; i < length; ++i)
        plain.push_back(text[i].byte1 ? '?' : static_cast<char>(text[i].byte2));
    return plain;
}

template <class Character>
std::string PlainWide(const Character *text, int length) {
    std::string plain;
    for (int i = 0; i < length; ++i)
        plain.push_back(text[i] < 128 ? static_cast<char>(text[i]) : '?');
    return plain;
}

std::string Plain(XmString string) {
    if (!string)
        return {};
    auto *text = static_cast<char *>(
        XmStringUnparse(string, nullptr, XmCHARSET_TEXT, XmCHARSET_TEXT, nullptr, 0, XmOUTPUT_ALL));
    std::string plain = text ? text : "";
    XtFree(text);
    return plain;
}

// Xft draws without a GC.
unsigned long ColourOf(const XftColor *colour) {
    return colour->pixel;
}

} // namespace

// clang-format off
#pragma GCC visibility push(default)
extern "C" {

void _XmStringDraw(Display *, Window, XmFontList, XmString, GC, Position, Position, Dimension, unsigned char, unsigned char, XRectangle *);
void _XmStringDrawImage(Display *, Window, XmFontList, XmString, GC, Position, Position, Dimension, unsigned char, unsigned char, XRectangle *);

// ---- Xlib -------------------------------------------------------------------------------

#define CORVIDLMW_TEXT(function, Character) \
    CORVIDLMW_INTERPOSE(int, function, (Display *d, Drawable w, GC gc, int x, int y, const Character *text, int n), (d, w, gc, x, y, text, n), d, w, gc, {x, y}, Plain(text, n))

CORVIDLMW_TEXT(XDrawString, char)
CORVIDLMW_TEXT(XDrawImageString, char)
CORVIDLMW_TEXT(XDrawString16, XChar2b)
CORVIDLMW_TEXT(XDrawImageString16, XChar2b)

#define CORVIDLMW_SET_TEXT(function, Character, plain) \
    CORVIDLMW_INTERPOSE(void, function, (Display *d, Drawable w, XFontSet set, GC gc, int x, int y, const Character *text, int n), (d, w, set, gc, x, y, text, n), d, w, gc, {x, y}, plain(text, n))

CORVIDLMW_SET_TEXT(XmbDrawString, char, Plain)
CORVIDLMW_SET_TEXT(XmbDrawImageString, char, Plain)
CORVIDLMW_SET_TEXT(Xutf8DrawString, char, Plain)
CORVIDLMW_SET_TEXT(Xutf8DrawImageString, char, Plain)
CORVIDLMW_SET_TEXT(XwcDrawString, wchar_t, PlainWide)
CORVIDLMW_SET_TEXT(XwcDrawImageString, wchar_t, PlainWide)

// ---- Xft: x, y; the colour is the foreground ----------------------------------------------

#define CORVIDLMW_XFT_TEXT(function, Character, plain) \
    CORVIDLMW_INTERPOSE(void, function, (XftDraw *draw, const XftColor *colour, XftFont *font, int x, int y, const Character *text, int n), (draw, colour, font, x, y, text, n), XftDrawDisplay(draw), XftDrawDrawable(draw), nullptr, {x, y}, plain(text, n), ColourOf(colour))

CORVIDLMW_XFT_TEXT(XftDrawString8, FcChar8, Plain)
CORVIDLMW_XFT_TEXT(XftDrawStringUtf8, FcChar8, Plain)
CORVIDLMW_XFT_TEXT(XftDrawString16, FcChar16, PlainWide)
CORVIDLMW_XFT_TEXT(XftDrawString32, FcChar32, PlainWide)
CORVIDLMW_INTERPOSE(void, XftDrawRect, (XftDraw *draw, const XftColor *colour, int x, int y, unsigned width, unsigned height), (draw, colour, x, y, width, height), XftDrawDisplay(draw), XftDrawDrawable(draw), nullptr, {x, y, width, height}, {}, ColourOf(colour))

// ---- Compound strings: x, y, width, alignment, direction -----------------------------------

#define CORVIDLMW_COMPOUND(function) \
    CORVIDLMW_INTERPOSE(void, function, (Display *d, Window w, XmFontList fonts, XmString string, GC gc, Position x, Position y, Dimension width, unsigned char alignment, unsigned char direction, XRectangle *clip), (d, w, fonts, string, gc, x, y, width, alignment, direction, clip), d, w, gc, {x, y, width, alignment, direction}, Plain(string))

CORVIDLMW_COMPOUND(XmStringDraw)
CORVIDLMW_COMPOUND(XmStringDrawImage)
CORVIDLMW_COMPOUND(_XmStringDraw)
CORVIDLMW_COMPOUND(_XmStringDrawImage)

}  // extern "C"
// clang-format on
