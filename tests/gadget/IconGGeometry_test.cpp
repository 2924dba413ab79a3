/* Where text and picture stand, against tables worked out by hand and a second calculation. */

#include <corvidlmw/gadget/IconGGeometry.h>
#include <tests/gadget/IconGModel.h>
#include <tests/support/Random.h>

#include <algorithm>

namespace corvidlmw::icon_gadget {

std::ostream &operator<<(std::ostream &out, const Extent &extent) {
    return out << extent.width << 'x' << extent.height;
}

namespace {

// A text of 50 by 13 and a picture of 16 by 20 in a border of 3.
Contents Sample(Placement placement, Alignment alignment) {
    Contents contents;
    contents.text = {50, 13};
    contents.picture = Extent{16, 20};
    contents.gap = 4;
    contents.margins = {2, 2, 1, 5, 3, 7};
    contents.border = 3;
    contents.placement = placement;
    contents.alignment = alignment;
    return contents;
}

TEST(IconGGeometry, TakesTheSizeThatItNeeds) {
    EXPECT_EQ(TextSize(Sample(Placement::left, Alignment::center)), (Extent{66, 33}));
    EXPECT_EQ(Place(Sample(Placement::left, Alignment::center), {}).size, (Extent{86, 33}));
    EXPECT_EQ(Place(Sample(Placement::right, Alignment::end), {}).size, (Extent{86, 33}));
    EXPECT_EQ(Place(Sample(Placement::top, Alignment::center), {}).size, (Extent{66, 57}));
    Contents wide = Sample(Placement::bottom, Alignment::center);
    wide.picture = Extent{100, 40};
    EXPECT_EQ(Place(wide, {}).size, (Extent{100, 77}));
    wide.placement = Placement::left;
    wide.arrow_space = 19;
    EXPECT_EQ(Place(wide, {}).size, (Extent{189, 40}));
    EXPECT_EQ(Place(wide, {20, 10}).size, (Extent{20, 10}));
    EXPECT_EQ(Place(wide, {20, 0}).size, (Extent{20, 40}));
}

TEST(IconGGeometry, KeepsTheGapWithoutAPicture) {
    Contents contents = Sample(Placement::right, Alignment::center);
    contents.picture = Extent{};
    EXPECT_EQ(Place(contents, {}).size, (Extent{70, 33}));
    contents.picture.reset();
    EXPECT_EQ(Place(contents, {}).size, (Extent{66, 33}));
    contents.placement = Placement::top;
    EXPECT_EQ(Place(contents, {}).size, (Extent{66, 37}));
    contents.alignment = Alignment::beginning;
    EXPECT_FALSE(Place(contents, {}).picture_x);
}

TEST(IconGGeometry, NothingIsOnePixel) {
    Contents nothing;
    EXPECT_EQ(Place(nothing, {}).size, (Extent{1, 1}));
    nothing.alignment = Alignment::end;
    EXPECT_EQ(Place(nothing, {}).text, (Point{0, 0}));
}

// In 120 by 60: the band of the text is 6 to 110 before the picture takes its part.
TEST(IconGGeometry, PutsTextAndPictureByTheirTable) {
    const struct {
        Placement placement;
        Alignment alignment;
        Point text;
        Point picture;
    } rows[] = {
        {Placement::left, Alignment::beginning, {26, 21}, {6, 18}},
        {Placement::left, Alignment::center, {43, 21}, {23, 18}},
        {Placement::left, Alignment::end, {60, 21}, {6, 18}},
        {Placement::right, Alignment::beginning, {6, 21}, {60, 18}},
        {Placement::right, Alignment::center, {23, 21}, {77, 18}},
        {Placement::right, Alignment::end, {40, 21}, {94, 18}},
        {Placement::top, Alignment::beginning, {6, 25}, {52, 8}},
        {Placement::top, Alignment::center, {33, 25}, {52, 8}},
        {Placement::top, Alignment::end, {60, 25}, {52, 8}},
        {Placement::bottom, Alignment::beginning, {6, 8}, {52, 25}},
        {Placement::bottom, Alignment::center, {33, 8}, {52, 25}},
        {Placement::bottom, Alignment::end, {60, 8}, {52, 25}},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        const Places places = Place(Sample(row.placement, row.alignment), {120, 60});
        EXPECT_EQ(places.text.x, row.text.x);
        EXPECT_EQ(places.text.y, row.text.y);
        EXPECT_EQ(places.picture_x, row.picture.x);
        EXPECT_EQ(places.picture_y, row.picture.y);
    }
}

TEST(IconGGeometry, KeepsAllInsideWhereThereIsRoom) {
    test::Random random;
    for (int i = 0; i < 20000; ++i) {
        Contents c = Sample(static_cast<Placement>(random.Between(0, 3)),
                            static_cast<Alignment>(random.Between(0, 2)));
        c.text = {random.Between(0, 200), random.Between(0, 60)};
        c.picture = Extent{random.Between(0, 60), random.Between(0, 20)};
        c.arrow_space = random.Between(0, 1) * random.Between(5, 30);
        c.gap = random.Between(0, 9);
        const Extent natural = Place(c, {}).size;
        const Extent size = {natural.width + random.Between(0, 99),
                             natural.height + random.Between(0, 99)};
        const Places places = Place(c, size);
        ASSERT_TRUE(KeepsInside(c, size, places));
    }
}

} // namespace
} // namespace corvidlmw::icon_gadget
