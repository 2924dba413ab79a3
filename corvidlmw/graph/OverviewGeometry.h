// The overview's arithmetic: a whole graph scaled into a small window, and the frame in it that stands
// for the part that can be seen.
//
// Scales and their products are in single precision, and every conversion to an integer truncates
// toward zero. "Window" is the overview's, "view" the part of the graph that its clip window shows.
#pragma once

#include <corvidlmw/graph/Size.h>
#include <corvidlmw/toolkit/Geometry.h>

#include <array>

namespace corvidlmw::overview {

using graph::Size;

// From graph pixels to window pixels. Zero while there is no picture.
struct Scale {
    float x = 0;
    float y = 0;

    bool IsSet() const { return x > 0 && y > 0; }
    float Smaller() const { return x < y ? x : y; }
};

// Fits what is `extent` large into the window; with `skewed` each axis by itself, else both alike.
Scale ScaleFor(const Size &window, const Size &extent, bool skewed);

// ---- Nodes -----------------------------------------------------------------------------------------

// Where the middle of a node lies in the window.
Point CentreOf(const Scale &scale, const Rectangle &node);

// The node's rectangle in the window: it keeps its proportions, by the smaller scale, and is at least
// 2 pixels wide and high.
Rectangle MiniatureOf(const Scale &scale, const Rectangle &node);

// ---- The frame ---------------------------------------------------------------------------------------

// The frame for a view of this size whose upper left corner is at `origin` in the graph. No wider nor
// higher than the coordinates of the X protocol allow.
Rectangle FrameFor(const Scale &scale, const Point &origin, const Size &view);

// Pulls a frame back into the window; one that is larger begins at 1. It is pulled back in x when its
// right edge reaches the window's, in y only when its lower edge passes the window's.
Rectangle KeepInside(Rectangle frame, const Size &window);

// The place in the graph that a frame's corner stands for; zero while there is no picture. Cut to 16
// bits.
Point GraphPlaceOf(const Scale &scale, const Point &corner);

// The lines of the frame, both ends included: two pixels wide, with mitred corners.
std::array<Segment, 4> UpperLeftLines(const Rectangle &frame);
std::array<Segment, 4> LowerRightLines(const Rectangle &frame);

// Whether a rectangle covers a pixel of those lines, or may.
bool TouchesFrame(const Rectangle &frame, const Rectangle &r);

} // namespace corvidlmw::overview
