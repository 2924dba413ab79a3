#include <corvidlmw/toolkit/BlackAndWhite.h>

#include <corvidlmw/toolkit/MotifPrivate.h>

#include <X11/CoreP.h>
#include <X11/StringDefs.h>

#include <cstring>

namespace corvidlmw {

namespace {

bool IsKnown(Screen *screen) {
    const Visual &visual = *DefaultVisualOfScreen(screen);
    const unsigned long all = visual.red_mask | visual.green_mask | visual.blue_mask;
    return visual.c_class == TrueColor && (BlackPixelOfScreen(screen) & all) == 0 &&
           (WhitePixelOfScreen(screen) & all) == all;
}

// A widget of another colormap, or of a screen with fewer colors, has the name looked up.
void Default(Widget w, const char *name, Pixel of_screen, XrmValue *value) {
    static Pixel pixel;
    pixel = of_screen;
    if (!IsKnown(XtScreen(w)) || w->core.colormap != DefaultColormapOfScreen(XtScreen(w))) {
        XrmValue from = {static_cast<unsigned>(std::strlen(name) + 1), const_cast<char *>(name)};
        XrmValue to = {sizeof pixel, reinterpret_cast<XPointer>(&pixel)};
        XtConvertAndStore(w, XtRString, &from, XtRPixel, &to);
    }
    value->size = sizeof pixel;
    value->addr = reinterpret_cast<XPointer>(&pixel);
}

} // namespace

BlackAndWhite BlackAndWhite::Of(Screen *screen) {
    XColor colors[2] = {};
    colors[0].pixel = BlackPixelOfScreen(screen);
    colors[1].pixel = WhitePixelOfScreen(screen);
    if (IsKnown(screen)) {
        colors[1].red = colors[1].green = colors[1].blue = 0xffff;
    } else {
        XQueryColors(DisplayOfScreen(screen), DefaultColormapOfScreen(screen), colors, 2);
    }
    return {colors[0], colors[1]};
}

void BlackDefault(Widget w, int, XrmValue *value) {
    Default(w, "Black", BlackPixelOfScreen(XtScreen(w)), value);
}

void WhiteDefault(Widget w, int, XrmValue *value) {
    Default(w, "White", WhitePixelOfScreen(XtScreen(w)), value);
}

} // namespace corvidlmw
