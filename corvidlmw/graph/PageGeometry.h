// The sheets that a printed graph is cut into: arithmetic only. One pixel is one unit of the paper,
// whose y grows upwards from the lower left corner of the whole picture.
#pragma once

#include <corvidlmw/graph/Size.h>
#include <corvidlmw/toolkit/Geometry.h>

namespace corvidlmw::page {

using graph::Size;

// Of every sheet.
constexpr int width = 594;
constexpr int height = 774;

struct Picture {
    Size size; // of the graph and a margin at its right and lower edge
    int rows = 0;
    int columns = 0;
};

// Of a graph whose nodes reach this far.
Picture PictureFor(const Size &extent);

// A sheet by its place in the grid, counted from the lower left corner of the picture.
struct Sheet {
    int row = 0;
    int column = 0;

    Point Origin() const;
};

// A box on the paper, its edges included.
struct Box {
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
};

Box BoxAround(const Point &a, const Point &b);
bool TouchesRow(const Box &box, int row);
bool TouchesColumn(const Box &box, int column);

// The baseline of the first of `lines` lines of text that stand in the middle of a node, each
// `font_size` high.
int FirstBaseline(int node_top, int node_height, int lines, int font_size);

} // namespace corvidlmw::page
