// The pictures on the board, drawn when the program starts.
#pragma once

#include <X11/Intrinsic.h>

namespace icon_board {

class Pictures {
public:
    // For gadgets in this widget, whose screen, depth and background they have.
    explicit Pictures(Widget w);
    ~Pictures();
    Pictures(const Pictures &) = delete;
    Pictures &operator=(const Pictures &) = delete;

    Pixmap folder() const { return folder_; }
    Pixmap grey_folder() const { return grey_folder_; } // for insensitive gadgets
    Pixmap check() const { return check_; }             // a bitmap

private:
    Pixmap PaintFolder(Widget w, const char *paper, const char *edge) const;

    Display *display_;
    Pixmap folder_;
    Pixmap grey_folder_;
    Pixmap check_;
};

} // namespace icon_board
