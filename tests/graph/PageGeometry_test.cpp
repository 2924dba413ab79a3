// How a picture is cut into sheets.
#include <corvidlmw/graph/PageGeometry.h>

#include <gtest/gtest.h>

namespace corvidlmw::page {
namespace {

TEST(PageGeometry, TakesAsManySheetsAsThePictureTouches) {
    EXPECT_EQ(PictureFor({584, 764}).columns, 1);
    EXPECT_EQ(PictureFor({585, 764}).columns, 2);
    EXPECT_EQ(PictureFor({60, 30}).size, (Size{70, 40}));
    EXPECT_EQ(PictureFor({-5, -5}).size, (Size{10, 10}));
    // The product with a rounded 1 / 774 is what a division of integers gives.
    for (int height = 0; height <= 250'000; height++)
        ASSERT_EQ(PictureFor({0, height}).rows, (height + 10 + 773) / 774) << height;
}

TEST(PageGeometry, ABoxIsOnTheSheetsThatItReachesInto) {
    const Box box = BoxAround({600, 1548}, {593, 774});
    EXPECT_TRUE(TouchesColumn(box, 0));
    EXPECT_TRUE(TouchesColumn(box, 1));
    EXPECT_FALSE(TouchesRow(box, 0)) << "its lower edge lies on the sheet's upper one";
    EXPECT_TRUE(TouchesRow(box, 1));
    EXPECT_FALSE(TouchesRow(box, 2)) << "its upper edge lies on the sheet's lower one";
    EXPECT_FALSE(TouchesColumn(BoxAround({0, 0}, {0, 50}), 0)) << "on the left edge";
}

} // namespace
} // namespace corvidlmw::page
