// The shape of an arc: where it meets its nodes, how a curve bows, where a loop stands, the
// triangle of an arrow head, and the polygons that a pick is tested against.
//
// Arithmetic only. Sums of floats are rounded to single precision where they are stored, and
// every conversion to an integer truncates toward zero: drawing, erasing and picking must agree
// to the pixel, so they all ask here.
#pragma once

#include <corvidlmw/toolkit/Geometry.h>

#include <array>
#include <optional>

namespace corvidlmw::arc {

enum class DrawMode { Fixed = 0, Relative = 1, Proportional = 2 };
enum class Side { Left = 0, Right = 1, Bottom = 2, Top = 3 };

// How an arc meets its two nodes. Sides and positions (percent along the side) count in
// DrawMode::Proportional only, `horizontal` in DrawMode::Fixed only. A mode out of range is
// Relative, a side out of range the usual one (left of `to`, right of `from`).
struct Attachment {
    DrawMode mode = DrawMode::Relative;
    bool horizontal = true;
    int from_side = static_cast<int>(Side::Right);
    int from_position = 50;
    int to_side = static_cast<int>(Side::Left);
    int to_position = 50;
};

struct Label {
    bool shown = false;
    int width = 0;
    int height = 0;
};

// The end points of an arc from the rectangle `from` to the rectangle `to`.
Segment EndPoints(const Attachment &attachment, const Rectangle &from, const Rectangle &to);

// ---- Curves: the arcs of rank 1 and up between the same two nodes -------------------------

constexpr int curve_points = 20;
constexpr int curve_label_point = 10;

// The control point of the quadratic Bézier curve of an arc of `rank` (at least 1).
Point CurveControl(const Segment &ends, int rank);

// Twenty points at t = 0, 0.05, ... 0.95; the curve is not carried to its end. The coordinates
// are cut to 16 bits, as in an XPoint.
std::array<Point, curve_points> CurveThrough(const Segment &ends, Point control);

// ---- Loops: arcs from a node to itself ------------------------------------------------------

struct Loop {
    Rectangle box; // of the ellipse, as XDrawArc takes it
    int start = 0; // angles in 64ths of a degree
    int extent = 0;
    Point label;       // where the label's rectangle starts
    Segment arrows[2]; // tail and tip; a directed arc has the first, a bidirected one both
};

Loop LoopAround(const Rectangle &node, int rank, const Label &label);

// ---- Arrow heads ------------------------------------------------------------------------------

// The filled triangle with its tip on `tip`, pointing away from `tail`. None when the tail or
// tip.y is negative, or when both points are the same: an arrow of no length has no direction.
std::optional<std::array<Point, 3>> ArrowHead(Point tail, Point tip);

// ---- Picking ------------------------------------------------------------------------------------

struct Polygon {
    int count = 0;
    std::array<Point, 10> points{};
};

// The union of `polygons` is the area of the arc.
struct PickShape {
    int count = 0;
    std::array<Polygon, 3> polygons{};
};

// `line_width` is at least 1. The shape of an arc between two nodes by its stored end points;
// rank 0 is straight. A falling line (x and y grow together) with a slope between 1/2 and 2 gets
// the band along the other diagonal as well: its own band has next to no area there.
PickShape PickLine(const Segment &ends, int rank, int line_width, const Label &label);
PickShape PickLoop(const Rectangle &node, int rank, const Label &label);

} // namespace corvidlmw::arc
