#pragma once

#include <array>

#include <Xm/Xm.h>

namespace form_designer {

// A coloured frame around a rectangle of a widget, above its children.
class Outline {
public:
    Outline(Widget of_widget, const char *colour);
    ~Outline();
    Outline(const Outline &) = delete;
    Outline &operator=(const Outline &) = delete;

    void Show(const XRectangle &around);
    void Hide();

private:
    Widget widget;
    std::array<Window, 4> sides{};
};

} // namespace form_designer
