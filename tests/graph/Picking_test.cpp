/* Which arc is under the pointer. */

#include <tests/graph/GraphTest.h>

#include <memory>

namespace corvidlmw::test {
namespace {

using OwnedRegion = std::unique_ptr<std::remove_pointer_t<Region>, decltype(&XDestroyRegion)>;

class Picking : public DrawnPair {
protected:
    Widget At(int x, int y) { return XmGraphInputOverArc(graph, x, y); }
};

TEST_F(Picking, TwinsAreFoundWhereTheyBow) {
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
    Widget loop = Arc(left, left);
    Widget line = Arc(left, right, XmNarcWidth, 4);
    Show();
    EXPECT_EQ(At(80, 70), loop);
    EXPECT_EQ(At(130, 70), nullptr);
    for (int turn : {-65536, 65536}) {
        EXPECT_EQ(At(80 + turn, 70), nullptr);
        EXPECT_EQ(At(80, 70 + turn), nullptr);
    }
    const XmArcPart &part = ArcPartOf(line);
    const int x = 180 + part.label_width / 2;
    const int y = 120 - part.label_height;
    EXPECT_EQ(At(x, y), nullptr);
    XtVaSetValues(line, XmNmapLabel, True, nullptr);
    EXPECT_EQ(At(x, y), line);

    XPoint band[] = {{106, 116}, {114, 124}, {254, 124}, {246, 116}};
    const OwnedRegion expected(XPolygonRegion(band, 4, EvenOddRule), XDestroyRegion);
    XtVaSetValues(line, XmNmapLabel, False, nullptr);
    const OwnedRegion region(XmArcGetRegion(line), XDestroyRegion);
    EXPECT_TRUE(XEqualRegion(region.get(), expected.get()));
    Widget detached = XmCreateArc(graph, Name("arc"), nullptr, 0);
    EXPECT_EQ(XmArcGetRegion(detached), nullptr);
}

} // namespace
} // namespace corvidlmw::test
