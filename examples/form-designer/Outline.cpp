#include "Outline.h"

#include <algorithm>

namespace form_designer {
namespace {

constexpr int thickness = 2;

Pixel PixelOf(Widget widget, const char *colour) {
    Colormap colormap = 0;
    Pixel pixel = 0;
    XtVaGetValues(widget, XmNcolormap, &colormap, XmNforeground, &pixel, nullptr);
    XColor screen{}, exact{};
    if (XAllocNamedColor(XtDisplay(widget), colormap, colour, &screen, &exact) != 0)
        pixel = screen.pixel;
    return pixel;
}

} // namespace

// The windows take no events: what happens on them goes to the widget.
Outline::Outline(Widget of_widget, const char *colour) : widget(of_widget) {
    for (Window &side : sides)
        side = XCreateSimpleWindow(XtDisplay(widget), XtWindow(widget), 0, 0, 1, 1, 0, 0,
                                   PixelOf(widget, colour));
}

Outline::~Outline() {
    for (const Window side : sides)
        XDestroyWindow(XtDisplay(widget), side);
}

void Outline::Show(const XRectangle &around) {
    const int x = around.x, y = around.y;
    const int width = std::max<int>(around.width, 2 * thickness);
    const int height = std::max<int>(around.height, 2 * thickness);
    const int places[4][4] = {{x, y, width, thickness},
                              {x, y + height - thickness, width, thickness},
                              {x, y, thickness, height},
                              {x + width - thickness, y, thickness, height}};
    for (std::size_t i = 0; i < sides.size(); ++i) {
        XMoveResizeWindow(XtDisplay(widget), sides[i], places[i][0], places[i][1],
                          static_cast<unsigned>(places[i][2]), static_cast<unsigned>(places[i][3]));
        XMapRaised(XtDisplay(widget), sides[i]);
    }
}

void Outline::Hide() {
    for (const Window side : sides)
        XUnmapWindow(XtDisplay(widget), side);
}

} // namespace form_designer
