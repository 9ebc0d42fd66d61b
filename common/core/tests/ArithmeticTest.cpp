#include "common/core/Arithmetic.h"

#include <gtest/gtest.h>

#include <string>

namespace numbrela {

namespace {

TEST(PowerOfTen, IsExactAsFarAsADoubleIs)
{
    std::string text = "1";
    for (int exponent = 0; exponent <= 22; ++exponent) {
        EXPECT_EQ(PowerOfTen(exponent), std::stod(text)) << exponent;
        text += '0';
    }
}

TEST(RoundHalfToEven, TakesTheEvenOneOfTwoEquallyNearNumbers)
{
    EXPECT_EQ(RoundHalfToEven(0.5), 0);
    EXPECT_EQ(RoundHalfToEven(1.5), 2);
    EXPECT_EQ(RoundHalfToEven(2.5), 2);
    EXPECT_EQ(RoundHalfToEven(-0.5), 0);
    EXPECT_EQ(RoundHalfToEven(-1.5), -2);
    EXPECT_EQ(RoundHalfToEven(24.5), 24);
}

TEST(RoundHalfToEven, TakesTheNearestNumberOtherwise)
{
    EXPECT_EQ(RoundHalfToEven(2.4999999), 2);
    EXPECT_EQ(RoundHalfToEven(2.5000001), 3);
    EXPECT_EQ(RoundHalfToEven(-2.5000001), -3);
    EXPECT_EQ(RoundHalfToEven(7), 7);
}

} // namespace

} // namespace numbrela
