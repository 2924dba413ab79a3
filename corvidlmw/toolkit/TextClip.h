// Antialiased text does not look at a GC's clip, and painted over itself it gets bolder. This gives the
// text that the toolkit draws on one window the clip that the GCs have.
#pragma once

#include <corvidlmw/toolkit/MotifPrivate.h>

namespace corvidlmw {

// Such text looks neither at a GC's clip nor at its tile.
bool HasAntialiasedFont(XmFontList fonts);

class TextClip {
public:
    TextClip(Display *display, Window window, Region region)
        : display_(display), window_(window), region_(region) {}
    ~TextClip();
    TextClip(const TextClip &) = delete;
    TextClip &operator=(const TextClip &) = delete;

    // To be called before text in these fonts is drawn; without antialiased ones it does nothing.
    void Clip(XmFontList fonts);

private:
    Display *display_;
    Window window_;
    Region region_;
    bool clipped_ = false;
};

} // namespace corvidlmw
