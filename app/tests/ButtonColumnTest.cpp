#include "app/ButtonColumn.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

std::optional<RunTimeError::Kind> errorOf(Int16 formHeight, Int16 buttonCount)
{
    return testing::KindThrownBy([&] { LayOutButtonColumn(formHeight, buttonCount); });
}

// The whole number nearest to a quotient of positive whole numbers, found without a division that rounds.
int nearestQuotient(int dividend, int divisor)
{
    int quotient = 0;
    while (2 * (dividend - quotient * divisor) > divisor) {
        ++quotient;
    }
    return quotient;
}

// Every unit is rounded the same way, so the last margin takes all of the rounding: at most half a twip for each unit.
TEST(ButtonColumn, PlacesTheNineButtonsOfTheMenuAndGivesTheRoundingOfAllUnitsToTheMarginBelow)
{
    const ButtonColumn column = LayOutButtonColumn(8700, 9);
    EXPECT_EQ(column.Left, 1000);
    EXPECT_EQ(column.ButtonHeight, 405);
    EXPECT_EQ(column.Tops, (std::vector<Int16> { 905, 1715, 2525, 3335, 4145, 4955, 5765, 6575, 7385 }));
    EXPECT_EQ(8700 - (column.Tops.back() + column.ButtonHeight), 910);
}

TEST(ButtonColumn, LeavesAGapOfOneButtonBelowEachButton)
{
    for (int count = 2; count <= 20; ++count) {
        SCOPED_TRACE(count);
        const ButtonColumn column = LayOutButtonColumn(8700, count);
        ASSERT_EQ(static_cast<int>(column.Tops.size()), count);
        for (std::size_t i = 1; i < column.Tops.size(); ++i) {
            EXPECT_EQ(column.Tops[i] - column.Tops[i - 1], 2 * column.ButtonHeight);
        }
    }
}

TEST(ButtonColumn, LeavesTheSameMarginAboveAndBelowWhenTheRoomDividesEvenly)
{
    for (int count = 1; count <= 20; ++count) {
        SCOPED_TRACE(count);
        const int formHeight = 1000 + 300 * (2 * count + 1);
        const ButtonColumn column = LayOutButtonColumn(formHeight, count);
        EXPECT_EQ(column.ButtonHeight, 300);
        EXPECT_EQ(column.Tops.front(), 800);
        EXPECT_EQ(formHeight - (column.Tops.back() + column.ButtonHeight), 800);
    }
}

// The number of units is odd, so a quotient never lies half-way between two whole numbers.
TEST(ButtonColumn, RoundsTheUnitToTheNearestTwip)
{
    EXPECT_EQ(LayOutButtonColumn(8704, 9).ButtonHeight, 405); // 405.47
    EXPECT_EQ(LayOutButtonColumn(8705, 9).ButtonHeight, 406); // 405.53
    for (int count = 1; count <= 30; ++count) {
        for (int formHeight = 1000; formHeight <= 9000; formHeight += 7) {
            const ButtonColumn column = LayOutButtonColumn(formHeight, count);
            ASSERT_EQ(column.ButtonHeight, nearestQuotient(formHeight - 1000, 2 * count + 1))
                << count << " buttons in " << formHeight;
            ASSERT_EQ(column.Tops.front(), column.ButtonHeight + 500);
        }
    }
}

TEST(ButtonColumn, PlacesASingleButtonInTheMiddle)
{
    const ButtonColumn column = LayOutButtonColumn(4000, 1);
    EXPECT_EQ(column.ButtonHeight, 1000);
    EXPECT_EQ(column.Tops, (std::vector<Int16> { 1500 }));
}

TEST(ButtonColumn, PlacesNothingWhenThereAreNoButtons)
{
    EXPECT_TRUE(LayOutButtonColumn(8700, 0).Tops.empty());
}

TEST(ButtonColumn, FillsTheHighestFormThatThereIs)
{
    const ButtonColumn column = LayOutButtonColumn(32767, 9);
    EXPECT_EQ(column.ButtonHeight, 1672); // 31767 / 19 = 1671.95
    EXPECT_EQ(column.Tops.back(), 16 * 1672 + 1672 + 500);
}

TEST(ButtonColumn, WhatDoesNotFitInto16BitsIsARunTimeErrorAndTheValueBeforeIsGood)
{
    constexpr auto overflow = RunTimeError::Kind::Overflow;
    EXPECT_EQ(errorOf(-31769, 9), overflow) << "1000 less than this is below -32768";
    EXPECT_EQ(errorOf(-31768, 9), std::nullopt);
    EXPECT_EQ(errorOf(8700, 16384), overflow) << "twice the number of buttons and one more is 32769";
    EXPECT_EQ(errorOf(8700, 16383), std::nullopt);
    // The unit, 1.6, is rounded up to 2, and the last button would stand at 2 × 2 × 9926 + 2 + 500 = 40206.
    EXPECT_EQ(errorOf(32767, 9927), overflow);
}

} // namespace

} // namespace numbrela
