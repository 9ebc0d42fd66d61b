#include "common/screen/FreePlace.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

constexpr QRect room(0, 20, 300, 500);
constexpr QSize size(100, 200);
constexpr QPoint rightEdge(299, 270); // its middle

std::optional<QRect> freePlace(const QRect& box, const std::vector<Obstacle>& obstacles, QSize wanted = size)
{
    return FreePlace(room, { wanted }, rightEdge, box, obstacles);
}

TEST(FreePlace, InAnEmptyRoomItIsTheFavouriteOrAsNearAsCanBe)
{
    EXPECT_EQ(FreePlace(room, { size }, { 101, 203 }, {}, {}), QRect(QPoint(52, 104), size));
    EXPECT_EQ(freePlace({}, {}), QRect(QPoint(200, 171), size));
}

TEST(FreePlace, SomethingBroadIsInTheMiddleOfTheRoom)
{
    EXPECT_EQ(freePlace({}, {}, QSize(280, 100)), QRect(QPoint(10, 221), QSize(280, 100)));
}

TEST(FreePlace, IsOffTheBoxWhateverElseItCovers)
{
    const QRect box(150, 20, 150, 400);
    const std::optional<QRect> place = freePlace(box, { { QRect(0, 20, 150, 500), 9 } });
    ASSERT_TRUE(place);
    EXPECT_TRUE(IsFree(*place, room, box));
}

TEST(FreePlace, IsFoundInTheOnlyGapBesideTheBox)
{
    EXPECT_EQ(freePlace(QRect(0, 20, 200, 500), {}), QRect(QPoint(200, 171), size));
    EXPECT_EQ(freePlace(QRect(100, 20, 200, 500), {}), QRect(QPoint(0, 171), size));
    EXPECT_EQ(freePlace(QRect(0, 20, 300, 300), {}), QRect(QPoint(200, 320), size));
    EXPECT_EQ(freePlace(QRect(0, 220, 300, 300), {}), QRect(QPoint(200, 20), size));
}

// In a large room, even steps would leave that place out.
TEST(FreePlace, FitsExactlyBetweenTheBoxAndWhatIsOnItsOtherSide)
{
    constexpr QRect large(0, 0, 1920, 1080);
    constexpr QRect box(901, 501, 99, 99);
    const auto placeBetween = [&](const QRect& before, const QRect& after) {
        return FreePlace(large, { QSize(50, 100) }, {}, box, { { before }, { after } }).value().topLeft();
    };
    EXPECT_EQ(placeBetween({ 0, 0, 851, 1080 }, { 901, 0, 1019, 1080 }).x(), 851);
    EXPECT_EQ(placeBetween({ 0, 0, 1000, 1080 }, { 1050, 0, 870, 1080 }).x(), 1000);
    EXPECT_EQ(placeBetween({ 0, 0, 1920, 401 }, { 0, 501, 1920, 579 }).y(), 401);
    EXPECT_EQ(placeBetween({ 0, 0, 1920, 600 }, { 0, 700, 1920, 380 }).y(), 600);
}

TEST(FreePlace, CoversWhatMattersLeast)
{
    const QRect above(0, 20, 300, 250);
    const QRect below(0, 270, 300, 250);
    EXPECT_GE(freePlace({}, { { above, 4 }, { below, 1 } })->y(), 270);
    EXPECT_LE(freePlace({}, { { above, 1 }, { below, 4 } })->y(), 70);
}

// What is seen of a button whose edge is covered still says what it does.
TEST(FreePlace, RatherCutsTwoAtTheirEdgesThanTakesOneAway)
{
    const QRect above(0, 20, 300, 200);
    const QRect below(0, 320, 300, 200);
    EXPECT_EQ(freePlace({}, { { above, 1 }, { below, 1 } })->center().y(), room.center().y());
}

TEST(FreePlace, OfSeveralSizesItIsTheFirstOfThoseThatCoverLeast)
{
    const QRect below(0, 150, 300, 370);
    const QSize tall = size;
    const QSize flat(200, 100);
    const QSize flatter(200, 90);
    EXPECT_EQ(FreePlace(room, { tall, flat, flatter }, rightEdge, {}, {})->size(), tall);
    EXPECT_EQ(FreePlace(room, { tall, flat, flatter }, rightEdge, {}, { { below, 1 } })->size(), flat);
    EXPECT_EQ(FreePlace(room, { QSize(301, 10), flatter }, rightEdge, {}, {})->size(), flatter);
}

TEST(FreePlace, ThereIsNoneWhereItDoesNotFit)
{
    EXPECT_EQ(freePlace({}, {}, QSize(301, 10)), std::nullopt);
    EXPECT_EQ(freePlace({}, {}, QSize(10, 501)), std::nullopt);
    EXPECT_EQ(freePlace(QRect(50, 150, 200, 200), {}), std::nullopt);
}

} // namespace

} // namespace numbrela
