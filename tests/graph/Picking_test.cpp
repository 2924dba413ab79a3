/* Which arc is under the pointer. */

#include <tests/graph/DrawnGraph.h>

#include <cmath>
#include <memory>

namespace corvidlmw::graph {
namespace {

using OwnedRegion = std::unique_ptr<std::remove_pointer_t<Region>, decltype(&XDestroyRegion)>;

class Picking : public DrawnGraph {
protected:
    // A node of one pixel's size is the end of its arcs.
    Widget Dot(int x, int y) { return Node({static_cast<short>(x), static_cast<short>(y), 1, 1}); }
    Widget At(int x, int y) { return XmGraphInputOverArc(graph, x, y); }
    static OwnedRegion RegionOf(Widget arc) { return {XmArcGetRegion(arc), XDestroyRegion}; }
};

TEST_F(Picking, ALineOfAnySlopeIsFoundNearItselfAndNowhereElse) {
    constexpr double pi = 3.14159265358979;
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const double c = std::cos(degrees * pi / 180);
        const double s = std::sin(degrees * pi / 180);
        auto place = [](double v) { return static_cast<int>(std::lround(v)); };
        Widget arc = Arc(Dot(200, 200), Dot(200 + place(150 * c), 200 + place(150 * s)));
        Position x1 = 0;
        Position y1 = 0;
        Position x2 = 0;
        Position y2 = 0;
        XmArcGetPos(arc, &x1, &y1, &x2, &y2);
        EXPECT_NEAR(x2, 200 + 150 * c, 2) << degrees;
        EXPECT_NEAR(y2, 200 + 150 * s, 2) << degrees;
        for (double t : {10.0, 75.0, 140.0}) {
            EXPECT_EQ(At(place(200 + t * c), place(200 + t * s)), arc) << degrees << " at " << t;
            for (int side : {-14, 14})
                EXPECT_EQ(At(place(200 + t * c - side * s), place(200 + t * s + side * c)), nullptr)
                    << degrees << " beside " << t;
        }
        EXPECT_EQ(At(place(200 + 170 * c), place(200 + 170 * s)), nullptr) << degrees;
        XtDestroyWidget(arc);
    }
}

TEST_F(Picking, TwinsAreFoundWhereTheyBow) {
    Widget left = Node({50, 100, 60, 40});
    Widget right = Node({250, 100, 60, 40});
    Widget arcs[] = {Arc(left, right), Arc(left, right), Arc(right, left)};
    Show();
    EXPECT_EQ(At(180, 120), arcs[0]);
    EXPECT_EQ(At(180, 100), arcs[1]);
    EXPECT_EQ(At(180, 140), arcs[2]);
    EXPECT_EQ(At(180, 85), nullptr);
    XtVaSetValues(graph, XmNtwinsVisible, False, nullptr);
    EXPECT_EQ(At(180, 100), nullptr);
}

TEST_F(Picking, ALoopIsFoundInItsBoxAndALabelInItsRectangle) {
    Widget left = Node({50, 100, 60, 40});
    Widget right = Node({250, 100, 60, 40});
    Widget loop = Arc(left, left);
    Widget line = Arc(left, right, XmNarcWidth, 4);
    Show();
    EXPECT_EQ(At(80, 70), loop);
    EXPECT_EQ(At(130, 70), nullptr);
    EXPECT_EQ(At(80 + 65536, 70), nullptr);
    const XmArcPart &part = PartOf(line);
    const int x = 180 + part.label_width / 2;
    const int y = 120 - part.label_height;
    EXPECT_EQ(At(x, y), nullptr);
    XtVaSetValues(line, XmNmapLabel, True, nullptr);
    EXPECT_EQ(At(x, y), line);

    XPoint band[] = {{106, 116}, {114, 124}, {254, 124}, {246, 116}};
    const OwnedRegion expected(XPolygonRegion(band, 4, EvenOddRule), XDestroyRegion);
    XtVaSetValues(line, XmNmapLabel, False, nullptr);
    EXPECT_TRUE(XEqualRegion(RegionOf(line).get(), expected.get()));
    Widget detached = XmCreateArc(graph, test::Name("arc"), nullptr, 0);
    EXPECT_EQ(XmArcGetRegion(detached), nullptr);
}

} // namespace
} // namespace corvidlmw::graph
