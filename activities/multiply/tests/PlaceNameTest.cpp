#include "activities/multiply/core/PlaceName.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

TEST(PlaceNameTest, CallsThePlacesOfAWholeNumberByTheirNamesInSpanish)
{
    EXPECT_EQ(PlaceName(0), "unidades");
    EXPECT_EQ(PlaceName(1), "decenas");
    EXPECT_EQ(PlaceName(2), "centenas");
    EXPECT_EQ(PlaceName(3), "unidades de millar");
    EXPECT_EQ(PlaceName(7), "decenas de millón");
    EXPECT_EQ(PlaceName(11), "centenas de millar de millón");
    EXPECT_EQ(PlaceName(12), "unidades de billón");
    EXPECT_EQ(PlaceName(32), "centenas de quintillón");
}

TEST(PlaceNameTest, CountsThePlacesForWhichPupilsHaveNoName)
{
    EXPECT_EQ(PlaceName(33), "cifra 34");
    EXPECT_EQ(PlaceName(1000), "cifra 1001");
}

} // namespace

} // namespace numbrela
