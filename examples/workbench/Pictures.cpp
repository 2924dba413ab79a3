#include "Pictures.h"

#include <Painter.h>

namespace workbench {

namespace {

using example::Painter;

constexpr int width = 16;

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

// The arcs of the node are at the side where they are.
void PaintDisc(Painter &painter, const char *colour, bool in, bool out) {
    if (in) {
        painter.Line("gray30", 0, 6, 4, 6);
    }
    if (out) {
        painter.Line("gray30", 11, 6, 15, 6);
    }
    painter.Disc(colour, 4, 2, 8);
}

void PaintKind(Painter &painter, Kind kind) {
    switch (kind) {
    case Kind::Node:
    case Kind::Lone: return PaintDisc(painter, "white", false, false);
    case Kind::Root: return PaintDisc(painter, "palegreen2", false, true);
    case Kind::Inner: return PaintDisc(painter, "lightskyblue", true, true);
    case Kind::Leaf: return PaintDisc(painter, "khaki2", true, false);
    case Kind::Directory: return PaintFolder(painter, "gold");
    case Kind::Closed: return PaintFolder(painter, "gray70");
    case Kind::File: return PaintPage(painter, "white");
    case Kind::Program: return PaintPage(painter, "palegreen2");
    case Kind::Link: return PaintPage(painter, "lightblue");
    case Kind::Other: return painter.Box("plum", 3, 3, 8, 6);
    case Kind::Code: return PaintPage(painter, "lightskyblue");
    case Kind::Header: return PaintPage(painter, "khaki2");
    }
}

} // namespace

Pictures::~Pictures() {
    for (const auto &[key, pixmap] : pixmaps_) {
        XFreePixmap(display_, pixmap);
    }
}

Pixmap Pictures::Of(Kind kind, Pixel background, bool hit) {
    const auto [entry, added] = pixmaps_.try_emplace({kind, background, hit});
    if (added) {
        Painter painter(widget_, background, width, format_.height, format_.drop);
        PaintKind(painter, kind);
        if (hit) {
            painter.Disc("#d4500c", 9, 6, 5);
        }
        entry->second = painter.pixmap();
    }
    return entry->second;
}

} // namespace workbench
