// Arcs between any two boxes, in every mode and rank.
#include <tests/fuzz/Input.h>
#include <tests/graph/PlainGeometry.h>

#include <algorithm>
#include <cmath>

using namespace corvidlmw;
using namespace corvidlmw::arc;
using namespace corvidlmw::arc::plain;
using fuzz::Input, fuzz::Require;

namespace {

bool IsNear(double a, double b, double tolerance) {
    return std::fabs(a - b) <= tolerance;
}

Point Cut(Point p) {
    return {CutToPosition(p.x), CutToPosition(p.y)};
}

bool LiesOnBorder(Point p, const Rectangle &box) {
    return p.x == box.x || p.x == box.x + box.width || p.y == box.y || p.y == box.y + box.height;
}

// ---- End points ---------------------------------------------------------------------------------

// Boxes whose centres are not level leave by the border, and the arc the other way has the same ends.
void CheckRelative(const Segment &ends, const Rectangle &from, const Rectangle &to) {
    const Vector way = CentreOf(to) - CentreOf(from);
    if (std::fabs(way.real()) >= 1 && std::fabs(way.imag()) >= 1) {
        Require(LiesOnBorder(ends.start, from) && LiesOnBorder(ends.end, to));
    }
    Require(EndPoints({}, to, from) == Segment{ends.end, ends.start});
}

// `position` percent along a side, rounded toward zero as an offset.
int Along(int start, int position, int extent) {
    const double offset = std::trunc(static_cast<double>(position) * extent / 100);
    return start + static_cast<int>(offset);
}

Point OnSide(const Rectangle &box, int side, int position) {
    const bool upright =
        side == static_cast<int>(Side::Left) || side == static_cast<int>(Side::Right);
    const bool far =
        side == static_cast<int>(Side::Right) || side == static_cast<int>(Side::Bottom);
    return upright ? Point{far ? box.x + box.width : box.x, Along(box.y, position, box.height)}
                   : Point{Along(box.x, position, box.width), far ? box.y + box.height : box.y};
}

void CheckEnds(const Attachment &attachment, const Rectangle &from, const Rectangle &to) {
    const Segment ends = EndPoints(attachment, from, to);
    const auto known = [](int side) { return side >= 0 && side <= 3; };
    switch (attachment.mode) {
    case DrawMode::Fixed:
        Require(LiesOnBorder(ends.start, from) && LiesOnBorder(ends.end, to));
        break;
    case DrawMode::Proportional:
        Require(ends.start == OnSide(from, known(attachment.from_side) ? attachment.from_side : 1,
                                     attachment.from_position));
        Require(ends.end == OnSide(to, known(attachment.to_side) ? attachment.to_side : 0,
                                   attachment.to_position));
        break;
    case DrawMode::Relative: CheckRelative(ends, from, to); break;
    }
}

// ---- Curves ---------------------------------------------------------------------------------------

// Exact but for the cut to whole pixels and the floats that lead there, whose steps of t add up to an error
// of a millionth of the way; where the curve leaves 16 bits it comes back at the other side.
void CheckCurve(const Segment &ends, Point control) {
    const auto points = CurveThrough(ends, control);
    Require(points[0] == ends.start);
    const auto [x, y] = control;
    const double reach = std::max({32768.0, std::fabs(double(x)), std::fabs(double(y))});
    for (int step = 0; step < curve_points && reach < 1e6; ++step) {
        const Vector exact = OnCurve(ends, control, step * 0.05);
        if (std::fabs(exact.real()) > 32700 || std::fabs(exact.imag()) > 32700) {
            continue;
        }
        const Point point = points[static_cast<std::size_t>(step)];
        const double tolerance = 1.01 + reach * 4e-6;
        Require(IsNear(point.x, exact.real(), tolerance) &&
                IsNear(point.y, exact.imag(), tolerance));
    }
}

// The middle of the straight line, moved on across it: the two lie on one perpendicular, and the curves of
// an odd rank and the even one behind it bow to opposite sides.
void CheckControl(const Segment &ends, int rank) {
    const Vector way = V(ends.end) - V(ends.start);
    if (std::abs(way) < 20 || std::abs(way) > 4000 || std::fabs(way.real()) < 2 ||
        std::fabs(way.imag()) < 2 || rank > 50) {
        return;
    }
    const Vector middle = (V(ends.start) + V(ends.end)) * 0.5;
    const auto aside = [&](int of_rank) {
        const Vector off = V(CurveControl(ends, of_rank)) - middle;
        return (off * std::conj(Across(way))).real() / std::abs(way);
    };
    const int odd = rank % 2 != 0 ? rank : rank - 1;
    Require(aside(odd) * aside(odd + 1) < 0);
}

// ---- Arrow heads and picking ------------------------------------------------------------------------

void CheckArrow(Point tail, Point tip) {
    const auto head = ArrowHead(tail, tip);
    const bool allowed = tail.x >= 0 && tail.y >= 0 && tip.y >= 0;
    Require(head.has_value() == (allowed && tail != tip));
    const Vector way = V(tip) - V(tail);
    if (!head || std::abs(way) > 1e5 || std::fabs(double(tip.x)) > 40000) {
        return;
    }
    Require((*head)[0] == tip);
    const Vector base = V(tip) - 6.0 * way / std::abs(way);
    // Coordinates left of 0 are cut the other way than those to the right.
    for (const std::size_t corner : {1U, 2U}) {
        Require(IsNear(std::abs(V((*head)[corner]) - base), 3, 2.2));
    }
}

void CheckPick(const Segment &ends, int line_width) {
    const Vector way = V(ends.end) - V(ends.start);
    if (line_width > 50 || std::abs(way) < 20 * line_width) {
        return;
    }
    const PickShape shape = PickLine(ends, 0, line_width, {});
    const Vector across = 1.0 * line_width * Across(way / std::abs(way));
    for (const double part : {0.25, 0.5, 0.75}) {
        const Vector on_line = V(ends.start) + part * way;
        Require(Inside(shape, on_line + 0.44 * across) && Inside(shape, on_line - 0.44 * across));
        Require(!Inside(shape, on_line + 1.5 * across) && !Inside(shape, on_line - 1.5 * across));
    }
}

void CheckLoop(const Rectangle &node, int rank, const Label &label) {
    const Loop loop = LoopAround(node, rank, label);
    Require(loop.box.width >= 0 && loop.box.height >= 0);
    Require(loop.extent != 0 && std::abs(loop.extent) <= 360 * 64);
    const PickShape shape = PickLoop(node, rank, label);
    Require(shape.count == (label.shown ? 2 : 1));
    Require(shape.polygons[0].points[0] == Point{loop.box.x, loop.box.y});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    Input input(data, size);
    const Rectangle from = input.Box();
    const Rectangle to = input.Box();
    Attachment attachment;
    attachment.mode = static_cast<DrawMode>(input.Between(0, 2));
    attachment.horizontal = input.Flag();
    attachment.from_side = input.Between(-1, 4);
    attachment.from_position = input.Position();
    attachment.to_side = input.Between(-1, 4);
    attachment.to_position = input.Position();
    const int rank = input.Position();
    const int line_width = std::max(input.Dimension(), 1);
    Label label;
    label.shown = input.Flag();
    label.width = input.Dimension();
    label.height = input.Dimension();

    CheckEnds(attachment, from, to);
    const Segment ends = EndPoints(attachment, from, to);
    const Segment stored = {Cut(ends.start), Cut(ends.end)};
    const Point control = CurveControl(stored, rank);
    CheckCurve(stored, control);
    CheckControl(stored, std::max(rank, 1));
    CheckArrow(stored.start, stored.end);
    CheckArrow(control, stored.end);
    CheckPick(stored, line_width);
    Require(PickLine(stored, rank, line_width, label).count >= 1);
    CheckLoop(from, rank, label);
    return 0;
}
