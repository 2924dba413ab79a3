// Small pictures of the kinds of nodes, each drawn when it is first asked for.
#pragma once

#include <map>
#include <tuple>

#include <X11/Intrinsic.h>

#include "Document.h"

namespace workbench {

struct PictureFormat {
    int height;
    int drop; // how far down the picture lies
};

class Pictures {
public:
    Pictures(Widget w, PictureFormat format)
        : widget_(w), display_(XtDisplay(w)), format_(format) {}
    ~Pictures();
    Pictures(const Pictures &) = delete;
    Pictures &operator=(const Pictures &) = delete;

    // On this background. A hit of the search bears a spot.
    Pixmap Of(Kind kind, Pixel background, bool hit);

private:
    Widget widget_;
    Display *display_; // the pictures may outlive the widget
    PictureFormat format_;
    std::map<std::tuple<Kind, Pixel, bool>, Pixmap> pixmaps_;
};

} // namespace workbench
