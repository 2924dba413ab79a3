#include "Icons.h"

#include <Xm/Xm.h>

#include <Painter.h>

namespace file_list {

namespace {

using example::Painter;

constexpr int width = 15;
constexpr int height = 19; // so that a cell's shadow leaves room for the text
constexpr int drop = 4;

void PaintFolder(Painter &painter, const char *colour) {
    painter.Box(colour, 1, 1, 5, 3);
    painter.Box(colour, 1, 3, 12, 8);
}

void PaintPage(Painter &painter, const char *colour) {
    painter.Box(colour, 3, 0, 9, 11);
    for (int y = 3; y < 10; y += 2) {
        painter.Line("gray60", 5, y, 9, y);
    }
}

void PaintKind(Painter &painter, Kind kind) {
    switch (kind) {
    case Kind::Directory: PaintFolder(painter, "gold"); break;
    case Kind::Closed:
        PaintFolder(painter, "gray70");
        painter.Line("red3", 3, 5, 10, 9);
        painter.Line("red3", 3, 9, 10, 5);
        break;
    case Kind::File: PaintPage(painter, "white"); break;
    case Kind::Program: PaintPage(painter, "palegreen2"); break;
    case Kind::Link: PaintPage(painter, "lightblue"); break;
    case Kind::Other: painter.Box("plum", 3, 3, 8, 6); break;
    }
}

void PaintFrame(Painter &painter) {
    painter.Line("gray30", 0, -drop, width - 1, -drop);
    painter.Line("gray30", 0, -drop, 0, height - 1 - drop);
    painter.Line("gray60", width - 1, 1 - drop, width - 1, height - 1 - drop);
    painter.Line("gray60", 1, height - 1 - drop, width - 1, height - 1 - drop);
}

void PaintTick(Painter &painter) {
    for (int x = 0; x < 3; x++) {
        painter.Line("green4", 3 + x, 6, 6 + x, 10);
        painter.Line("green4", 6 + x, 10, 11 + x, 1);
    }
}

Pixmap Paint(Widget w, Kind kind, Look look) {
    Pixel background = 0;
    XtVaGetValues(w, XmNbackground, &background, nullptr);
    Painter painter(w, background, width, height, drop);
    PaintKind(painter, kind);
    if (look == Look::Pressed) {
        PaintFrame(painter);
    } else if (look == Look::Checked) {
        PaintTick(painter);
    }
    return painter.pixmap();
}

} // namespace

Icons::Icons(Widget w) : display_(XtDisplay(w)) {
    for (const Kind kind :
         {Kind::Directory, Kind::Closed, Kind::File, Kind::Program, Kind::Link, Kind::Other}) {
        for (const Look look : {Look::Plain, Look::Pressed, Look::Checked}) {
            pixmaps_[{kind, look}] = Paint(w, kind, look);
        }
    }
}

Icons::~Icons() {
    for (const auto &[look, pixmap] : pixmaps_) {
        XFreePixmap(display_, pixmap);
    }
}

} // namespace file_list
