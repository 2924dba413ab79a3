// Single precision throughout, one rounding per operation: slopes, aspects and intercepts are
// floats, and so is every sum of them. Only the two fractions of a loop's width and the square
// roots are doubles. A tie or a rounding decided otherwise moves an end by a pixel, and what was
// drawn would no longer be erased.
#include <corvidlmw/graph/ArcGeometry.h>

#include <algorithm>
#include <cstdlib>

namespace corvidlmw::arc {

namespace {

constexpr float Single(int value) {
    return static_cast<float>(value);
}

// The integer centre: halves are cut from the size, not from the sum.
constexpr Point Middle(const Rectangle &box) {
    return {box.x + box.width / 2, box.y + box.height / 2};
}

// ---- End points -----------------------------------------------------------------------------

Segment FixedEnds(bool horizontal, const Rectangle &from, const Rectangle &to) {
    const Point out = Middle(from);
    const Point in = Middle(to);
    if (horizontal) {
        return {{from.x + from.width, out.y}, {to.x, in.y}};
    }
    return {{out.x, from.y + from.height}, {in.x, to.y}};
}

// 64 bits, since a position is a client's number and may be anything.
int AlongSide(int start, int position, int extent) {
    return static_cast<int>(start + static_cast<long long>(position) * extent / 100);
}

Point OnSide(const Rectangle &box, Side side, int position) {
    const int along_x = AlongSide(box.x, position, box.width);
    const int along_y = AlongSide(box.y, position, box.height);
    switch (side) {
    case Side::Left: return {box.x, along_y};
    case Side::Right: return {box.x + box.width, along_y};
    case Side::Bottom: return {along_x, box.y + box.height};
    case Side::Top: break;
    }
    return {along_x, box.y};
}

Side SideOr(Side usual, int side) {
    const bool known = side >= static_cast<int>(Side::Left) && side <= static_cast<int>(Side::Top);
    return known ? static_cast<Side>(side) : usual;
}

// Where the line of this slope through the centre of `box` leaves it. A line through the very
// corner leaves by the left or right edge where it falls, and by the top or bottom edge where it
// rises.
Point WhereLineLeaves(const Rectangle &box, float slope, bool rightward) {
    const Point centre = Middle(box);
    const float aspect = box.width == 0 ? 100.0F : Single(box.height) / Single(box.width);
    const bool falling = slope > 0.0F;
    const bool through_side = falling ? slope <= aspect : slope > -aspect;
    if (through_side) {
        const float rise = Single(box.width / 2) * slope;
        const float y = rightward ? Single(centre.y) + rise : Single(centre.y) - rise;
        return {rightward ? box.x + box.width : box.x, Truncate(y)};
    }
    const bool downward = falling == rightward;
    const float run = Single(box.height) / (2.0F * slope);
    const float x = downward ? Single(centre.x) + run : Single(centre.x) - run;
    return {Truncate(x), downward ? box.y + box.height : box.y};
}

struct Centre {
    float x = 0.0F;
    float y = 0.0F;
};

// The true centre, halves kept: what decides whether two boxes are level.
constexpr Centre CentreOf(const Rectangle &box) {
    return {Single(box.x) + Single(box.width) * 0.5F, Single(box.y) + Single(box.height) * 0.5F};
}

Segment RelativeEnds(const Rectangle &from, const Rectangle &to) {
    const Centre source = CentreOf(from);
    const Centre target = CentreOf(to);
    const bool same_x = Truncate(source.x) == Truncate(target.x);
    const bool same_y = Truncate(source.y) == Truncate(target.y);
    const bool rightward = target.x > source.x;
    const bool downward = target.y > source.y;
    Segment ends{Middle(from), Middle(to)};
    if (same_x && same_y) {
        return ends;
    }
    if (same_y) {
        ends.start.x = rightward ? from.x + from.width : from.x;
        ends.end.x = rightward ? to.x : to.x + to.width;
        return ends;
    }
    if (same_x) {
        ends.start.y = downward ? from.y + from.height : from.y;
        ends.end.y = downward ? to.y : to.y + to.height;
        return ends;
    }
    const float slope = (source.y - target.y) / (source.x - target.x);
    return {WhereLineLeaves(from, slope, rightward), WhereLineLeaves(to, slope, !rightward)};
}

// ---- Curves ---------------------------------------------------------------------------------

// A level and an upright line get a slope that can be divided by, and whose inverse can.
float CurveSlope(const Segment &ends) {
    if (ends.start.y == ends.end.y) {
        return 0.01F;
    }
    if (ends.start.x == ends.end.x) {
        return 100.0F;
    }
    return Single(ends.start.y - ends.end.y) / Single(ends.start.x - ends.end.x);
}

// How far below the straight line, measured upright, the parallel line with the control point
// lies: ranks 1, 2, 3, 4 give -2, 2, -4, 4 steps.
float CurveOffset(float slope, int rank) {
    const float weight = Single(std::max(1, rank));
    const float spread = 400.0F / (weight / (slope * slope)) + 400.0F;
    const long long step = Truncate(std::sqrt(std::fabs(static_cast<double>(spread))));
    const long long steps = rank % 2 != 0 ? -(1LL + rank) : rank;
    return static_cast<float>(steps * step);
}

// The points of the curve at t = 0, step, 2 step, ..., the steps summed up in single precision.
template <std::size_t count>
std::array<Point, count> StepAlongCurve(const Segment &ends, Point control, float step) {
    std::array<Point, count> points;
    float t = 0.0F;
    for (Point &point : points) {
        const float u = 1.0F - t;
        const auto between = [t, u](int start, int middle, int end) {
            const float sum =
                u * u * Single(start) + 2.0F * u * t * Single(middle) + t * t * Single(end);
            return static_cast<int>(CutToPosition(Truncate(sum)));
        };
        point = {between(ends.start.x, control.x, ends.end.x),
                 between(ends.start.y, control.y, ends.end.y)};
        t += step;
    }
    return points;
}

// ---- Loops ----------------------------------------------------------------------------------

constexpr double width_fraction_to_side = 0.6;
constexpr double width_fraction_to_tip = 0.05555555555555555;

// The ellipse covers the middle half of the node's width, a third of it over the node.
Loop LoopOverUpright(const Rectangle &node, bool above, const Label &label) {
    const int width = node.width / 2;
    const int height = 3 * node.height / 2;
    const int x = node.x + width / 2;
    const int y = above ? node.y - 2 * height / 3 : node.y + height / 3;
    const int outer = above ? y : y + height;
    const int edge = above ? node.y : node.y + node.height;
    const int inset = width / 36;
    return {
        .box = {x, y, width, height},
        .start = above ? -1920 : 1920,
        .extent = above ? 15360 : -15360,
        .label = {x + width / 2, outer - label.height},
        .arrows = {{{x + width, outer}, {x + width - inset, edge}},
                   {{x, outer}, {x + inset, edge}}},
    };
}

// The ellipse is as wide as the node and twice as high, shifted by six tenths of the width.
Loop LoopBeside(const Rectangle &node, bool left, const Label &label) {
    const int width = node.width;
    const int height = 2 * node.height;
    const double shift = width_fraction_to_side * width;
    const int x = Truncate(left ? node.x - shift : node.x + shift);
    const int y = node.y - node.height / 2;
    const int outer = left ? x : x + width;
    const int tail = left ? x + 2 * width / 3 : x + width / 3;
    const double inset = width_fraction_to_tip * width;
    const int tip = Truncate(left ? x + width - inset : x + inset);
    const int half_label = label.shown ? label.width / 2 : 0;
    return {
        .box = {x, y, width, height},
        .start = left ? 1920 : 9600,
        .extent = left ? 20864 : -19200,
        .label = {outer - half_label, y + height / 2 - label.height},
        .arrows = {{{tail, y + height}, {tip, y + height - height / 4}},
                   {{tail, y}, {tip, y + height / 4}}},
    };
}

// ---- Picking --------------------------------------------------------------------------------

void Add(PickShape &shape, std::initializer_list<Point> points) {
    Polygon &polygon = shape.polygons[static_cast<std::size_t>(shape.count++)];
    for (const Point &point : points) {
        polygon.points[static_cast<std::size_t>(polygon.count++)] = point;
    }
}

void AddRectangle(PickShape &shape, const Rectangle &box) {
    const int right = box.x + box.width;
    const int bottom = box.y + box.height;
    Add(shape, {{box.x, box.y}, {right, box.y}, {right, bottom}, {box.x, bottom}});
}

void AddStandingLabel(PickShape &shape, Point at, const Label &label) {
    if (label.shown) {
        AddRectangle(shape, {at.x, at.y - label.height, label.width, label.height});
    }
}

constexpr Point Shift(Point point, int dx, int dy) {
    return {point.x + dx, point.y + dy};
}

// The band between the line moved back and the line moved on by (dx, dy).
void AddLineBand(PickShape &shape, const Segment &ends, int dx, int dy) {
    Add(shape, {Shift(ends.start, -dx, -dy), Shift(ends.start, dx, dy), Shift(ends.end, dx, dy),
                Shift(ends.end, -dx, -dy)});
}

void AddCurveBand(PickShape &shape, const Segment &ends, const std::array<Point, 3> &inner, int dx,
                  int dy) {
    Add(shape, {Shift(ends.start, -dx, -dy), Shift(ends.start, dx, dy), Shift(inner[0], dx, dy),
                Shift(inner[1], dx, dy), Shift(inner[2], dx, dy), Shift(ends.end, dx, dy),
                Shift(ends.end, -dx, -dy), Shift(inner[2], -dx, -dy), Shift(inner[1], -dx, -dy),
                Shift(inner[0], -dx, -dy)});
}

bool FallsNearDiagonal(const Segment &ends) {
    const int dx = ends.end.x - ends.start.x;
    const int dy = ends.end.y - ends.start.y;
    const bool falling = (dx > 0 && dy > 0) || (dx < 0 && dy < 0);
    return falling && std::abs(dx) <= 2 * std::abs(dy) && std::abs(dy) <= 2 * std::abs(dx);
}

PickShape PickStraight(const Segment &ends, int line_width, const Label &label) {
    PickShape shape;
    AddLineBand(shape, ends, line_width, line_width);
    if (FallsNearDiagonal(ends)) {
        AddLineBand(shape, ends, -line_width, line_width);
    }
    const Point middle{(ends.start.x + ends.end.x) / 2, (ends.start.y + ends.end.y) / 2};
    AddStandingLabel(shape, middle, label);
    return shape;
}

PickShape PickCurve(const Segment &ends, int rank, int line_width, const Label &label) {
    const auto points = StepAlongCurve<8>(ends, CurveControl(ends, rank), 0.125F);
    const std::array<Point, 3> quarters{points[2], points[4], points[6]};
    PickShape shape;
    AddCurveBand(shape, ends, quarters, line_width, line_width);
    if (FallsNearDiagonal(ends)) {
        AddCurveBand(shape, ends, quarters, -line_width, line_width);
    }
    AddStandingLabel(shape, quarters[1], label);
    return shape;
}

} // namespace

// ---- The functions of the header ------------------------------------------------------------

Segment EndPoints(const Attachment &attachment, const Rectangle &from, const Rectangle &to) {
    switch (attachment.mode) {
    case DrawMode::Fixed: return FixedEnds(attachment.horizontal, from, to);
    case DrawMode::Proportional:
        return {OnSide(from, SideOr(Side::Right, attachment.from_side), attachment.from_position),
                OnSide(to, SideOr(Side::Left, attachment.to_side), attachment.to_position)};
    case DrawMode::Relative: break;
    }
    return RelativeEnds(from, to);
}

// The control point stands where the parallel line y = slope x + shifted crosses the
// perpendicular y = -x / slope + upright through the middle of the straight line.
Point CurveControl(const Segment &ends, int rank) {
    const int middle_x = (ends.end.x - ends.start.x) / 2 + ends.start.x;
    const int middle_y = (ends.end.y - ends.start.y) / 2 + ends.start.y;
    const float slope = CurveSlope(ends);
    const float straight = Single(ends.start.y) - slope * Single(ends.start.x);
    const float shifted = straight + CurveOffset(slope, rank);
    const float upright = Single(middle_y) + Single(middle_x) / slope;
    const int x = Truncate((upright - shifted) / (1.0F / slope + slope));
    return {x, Truncate(slope * Single(x) + shifted)};
}

std::array<Point, curve_points> CurveThrough(const Segment &ends, Point control) {
    return StepAlongCurve<curve_points>(ends, control, 0.05F);
}

Loop LoopAround(const Rectangle &node, int rank, const Label &label) {
    switch (static_cast<unsigned>(rank) % 4) {
    case 0: return LoopOverUpright(node, true, label);
    case 1: return LoopBeside(node, true, label);
    case 2: return LoopOverUpright(node, false, label);
    default: return LoopBeside(node, false, label);
    }
}

// The tip is turned into a frame in which the arrow points along the first axis, the base is
// laid 6 behind it and 3 to either side, and turned back. The frame's second axis points up.
std::optional<std::array<Point, 3>> ArrowHead(Point tail, Point tip) {
    if (tail.x < 0 || tail.y < 0 || tip.y < 0 || tail == tip) {
        return std::nullopt;
    }
    const double dx = static_cast<double>(tip.x) - tail.x;
    const double dy = static_cast<double>(tail.y) - tip.y;
    const auto length = static_cast<float>(std::sqrt(dx * dx + dy * dy));
    const float cosine = static_cast<float>(dx) / length;
    const float sine = static_cast<float>(dy) / length;
    const float along = Single(tip.x) * cosine - Single(tip.y) * sine - 6.0F;
    const float across = Single(tip.x) * sine + Single(tip.y) * cosine;
    const auto corner = [=](float side) {
        return Point{Truncate(along * cosine + side * sine + 0.5F),
                     Truncate(side * cosine - along * sine + 0.5F)};
    };
    return std::array<Point, 3>{tip, corner(across - 3.0F), corner(across + 3.0F)};
}

PickShape PickLine(const Segment &ends, int rank, int line_width, const Label &label) {
    return rank <= 0 ? PickStraight(ends, line_width, label)
                     : PickCurve(ends, rank, line_width, label);
}

// The label's quadrilateral is slanted on purpose: its left edge starts a label's height above the
// label, its right edge at the label's own top.
PickShape PickLoop(const Rectangle &node, int rank, const Label &label) {
    const Loop loop = LoopAround(node, rank, label);
    PickShape shape;
    AddRectangle(shape, loop.box);
    if (label.shown) {
        const int right = loop.label.x + label.width;
        const int bottom = loop.label.y + label.height;
        Add(shape, {{loop.label.x, loop.label.y - label.height},
                    {right, loop.label.y},
                    {right, bottom},
                    {loop.label.x, bottom}});
    }
    return shape;
}

} // namespace corvidlmw::arc
