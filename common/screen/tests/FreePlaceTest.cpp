#include "common/screen/FreePlace.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

constexpr QRect room(0, 20, 300, 500);
constexpr QSize size(100, 200);

TEST(FreePlace, InAnEmptyRoomItIsTheMiddleOfTheRightEdge)
{
    EXPECT_EQ(FreePlace(room, size, {}, {}), QPoint(200, 170));
}

TEST(FreePlace, IsOffTheBoxWhateverElseItCovers)
{
    const QRect box(150, 20, 150, 400);
    const std::optional<QPoint> place = FreePlace(room, size, box, { { QRect(0, 20, 150, 500), 9 } });
    ASSERT_TRUE(place);
    EXPECT_TRUE(IsFree(QRect(*place, size), room, box));
}

TEST(FreePlace, IsFoundInTheOnlyGapBesideTheBox)
{
    EXPECT_EQ(FreePlace(room, size, QRect(0, 20, 200, 500), {}), QPoint(200, 170));
    EXPECT_EQ(FreePlace(room, size, QRect(100, 20, 200, 500), {}), QPoint(0, 170));
    EXPECT_EQ(FreePlace(room, size, QRect(0, 20, 300, 300), {}), QPoint(200, 320));
    EXPECT_EQ(FreePlace(room, size, QRect(0, 220, 300, 300), {}), QPoint(200, 20));
}

TEST(FreePlace, CoversWhatMattersLeast)
{
    const QRect above(0, 20, 300, 250);
    const QRect below(0, 270, 300, 250);
    EXPECT_GE(FreePlace(room, size, {}, { { above, 4 }, { below, 1 } })->y(), 270);
    EXPECT_LE(FreePlace(room, size, {}, { { above, 1 }, { below, 4 } })->y(), 70);
}

TEST(FreePlace, ThereIsNoneWhereItDoesNotFit)
{
    EXPECT_EQ(FreePlace(room, QSize(301, 10), {}, {}), std::nullopt);
    EXPECT_EQ(FreePlace(room, QSize(10, 501), {}, {}), std::nullopt);
    EXPECT_EQ(FreePlace(room, size, QRect(50, 150, 200, 200), {}), std::nullopt);
}

} // namespace

} // namespace numbrela
